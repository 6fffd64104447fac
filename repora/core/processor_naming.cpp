#include <array>
#include <string_view>

#include "repora/core/letters.h"
#include "repora/core/name.h"
#include "repora/core/processor_state.h"
#include "repora/model/codes.h"
#include "repora/model/datatypes_map.h"
#include "repora/model/trigger_template.h"

namespace {

// Types whose schema travels in a property of its own; the others take the whole dotted name.
constexpr MOXId kShortNameTypes[] = {
    ORVTypes::oEntity,
    ORVTypes::oAttribute,
    ORVTypes::oKeyGroup,
    ORVTypes::oCachedView,
    ORVTypes::oFunction,
    ORVTypes::oOracleCachedViewLog,
    ORVTypes::oOracleCluster,
    ORVTypes::oOracleClusterIndex,
    ORVTypes::oOracleContext,
    ORVTypes::oOracleDatabase,
    ORVTypes::oOracleDiskGroup,
    ORVTypes::oOracleLibrary,
    ORVTypes::oOraclePackage,
    ORVTypes::oOraclePhysicalStorage,
    ORVTypes::oSequence,
    ORVTypes::oStoredProcedure,
    ORVTypes::oSynonym,
    ORVTypes::oTrigger,
    ORVTypes::oView,
};

constexpr auto kUsesShortName = [] {
  std::array<bool, repora::kTypeEnd> uses{};
  for (auto const type : kShortNameTypes) uses[type] = true;
  return uses;
}();

// Both give the text itself as it is, or a new one that the buffer holds.
std::string_view ApplyPhysicalCase(eREPPhysical rule, std::string_view text, std::string& buffer) {
  switch (rule) {
    case eREPPhysicalLower: return buffer = repora::ToLower(text);
    case eREPPhysicalUpper: return buffer = repora::ToUpper(text);
    case eREPPhysicalAsIs: break;
  }
  return text;
}

std::string_view ApplyLogicalCase(eREPLogical rule, std::string_view text, std::string& buffer) {
  switch (rule) {
    case eREPLogicalLower: return buffer = repora::ToLower(text);
    case eREPLogicalUpper: return buffer = repora::ToUpper(text);
    case eREPLogicalMixed: return buffer = repora::ToMixed(text);
    case eREPLogicalAsIs: break;
  }
  return text;
}

}  // namespace

bool REPProcessor::TypeUsesShortName(MOXId type) const {
  return type < kUsesShortName.size() && kUsesShortName[type];
}

bool REPProcessor::TypeUsesPhysicalName(MOXId type) const {
  auto& known = state_->uses_physical_name;
  if (type < known.size() && known[type]) return *known[type];
  auto* const metamodel = state_->model_set ? state_->model_set->GetMetamodel() : nullptr;
  auto const* const association =
      MOXUtilityPack::FindAssociation(metamodel, type, ORVTypes::pPhysicalName);
  bool const uses = association && association->GetBoolean(MOXTypes::pIsDeprecated) != 1;
  if (state_->summary && type < known.size()) known[type] = uses;
  return uses;
}

bool REPProcessor::TypeUsesDBOwner(MOXId type) const {
  auto* const metamodel = state_->model_set ? state_->model_set->GetMetamodel() : nullptr;
  return MOXUtilityPack::FindAssociation(metamodel, type, ORVTypes::pDBOwner) != nullptr;
}

void REPProcessor::SetNameProp(MOXActionSummaryItem* item, REPName const* name) {
  if (!item || !name || name->IsEmpty()) return;
  auto const full = TypeUsesShortName(item->Type()) ? name->NameView() : name->FullNameView();
  std::string physical_buffer;
  auto const physical =
      name->IsQuoted() ? full : ApplyPhysicalCase(state_->physical_case, full, physical_buffer);
  auto const set_name = [&](repora::SharedText const& text) {
    item->SetName(text);
    item->SetProperty(MOXTypes::pName, QELValue(text));
  };
  if (GetModelType() == repora::codes::kModelPhysical ||
      (state_->logical_case == eREPLogicalAsIs && state_->physical_case == eREPPhysicalAsIs) ||
      !TypeUsesPhysicalName(item->Type())) {
    set_name(repora::SharedText(physical));
    return;
  }
  if (item->Type() == ORVTypes::oAttribute) {
    auto const* const owner = FindSummaryPtrById(item->Owner());
    if (owner && (owner->Type() == ORVTypes::oView || owner->Type() == ORVTypes::oCachedView)) {
      set_name(repora::SharedText(physical));
      return;
    }
  }
  std::string logical_buffer;
  auto const logical =
      name->IsQuoted() ? full : ApplyLogicalCase(state_->logical_case, full, logical_buffer);
  repora::SharedText const logical_text(logical);
  set_name(logical_text);
  item->SetProperty(ORVTypes::pPhysicalName,
                    logical == physical ? QELValue(logical_text) : QELValue(physical));
}

void REPProcessor::SetPhysicalNameProp(MOXActionSummaryItem* item, REPName const* name) const {
  if (!item || !name || name->IsEmpty()) return;
  auto text = TypeUsesShortName(item->Type()) ? name->NameView() : name->FullNameView();
  std::string buffer;
  if (!name->IsQuoted()) text = ApplyPhysicalCase(state_->physical_case, text, buffer);
  item->SetProperty(ORVTypes::pPhysicalName, QELValue(text));
}

void REPProcessor::SetPropOnActionItem(MOXActionSummaryItem* item, MOXProperty const& property,
                                       bool as_pair) {
  if (!item) return;
  if (as_pair)
    item->SetPropertyPair(MOXProperty(property.Id(), QELValue(), false), property);
  else
    item->SetProperty(property);
}

std::string REPProcessor::GetObjectDisplayString(MOXId type) const {
  auto* const metamodel = state_->model_set ? state_->model_set->GetMetamodel() : nullptr;
  for (auto const terminology : {ORVTypes::tPhysicalName, MOXId{0}}) {
    auto name = MOXUtilityPack::MetaobjectName(type, MOXUtilityPack::eDisplayName, metamodel,
                                               terminology, nullptr);
    if (!name.empty()) return name;
  }
  return std::to_string(type);
}

QELValue REPProcessor::ShareDatatype(std::string_view datatype, std::uint32_t& domain) {
  if (!state_->summary) {
    domain = LookUpParentDomain(std::string(datatype));
    return QELValue(datatype);
  }
  auto const number = state_->datatype_names.Add(datatype);
  auto& known = state_->datatypes;
  if (number == known.size())
    known.push_back({QELValue(datatype), LookUpParentDomain(std::string(datatype))});
  domain = known[number].domain;
  return known[number].text;
}

std::uint32_t REPProcessor::IdentifyParentDomain(char const* datatype_name) {
  std::uint32_t domain = 0;
  ShareDatatype(datatype_name ? datatype_name : "", domain);
  return domain;
}

std::uint32_t REPProcessor::LookUpParentDomain(std::string const& datatype_name) const {
  auto const& map = KALDatatypesMapI::GetReference();
  auto const dbms =
      map.GetDbms(state_->target_server, state_->dbms_version, state_->dbms_minor_version);
  QELValue built_in_id;
  if (!state_->model_set || !dbms || !map.FindBuiltInId(*dbms, datatype_name, built_in_id))
    return 0;
  auto* const index = state_->model_set->GetTypeIndex();
  auto const* const domains = index ? index->ObjectsOfType(ORVTypes::oDomain) : nullptr;
  if (!domains) return 0;
  for (auto const id : *domains) {
    MOXObject domain;
    QELValue value;
    if (state_->model_set->GetModel()->FindObject(id, domain) &&
        domain.GetProperty(MOXTypes::pBuiltInId, value, false) == eSuccess && value == built_in_id)
      return id;
  }
  return 0;
}

std::string REPProcessor::GetTriggerTemplateSyntax(MOXId object_type) const {
  if (object_type == ORVTypes::oOracleDatabase)
    return std::string(repora::kDatabaseTriggerTemplate);
  auto* const model = state_->model_set ? state_->model_set->GetModel() : nullptr;
  MOXObject found;
  QELValue code;
  std::string text;
  if (ORVBuiltInObjectIndex::GetInstance().FindBuiltInObject(
          model, ORVBuiltInObjectIndex::kTriggerTemplate, ORVTypes::oTriggerTemplate, found) &&
      found.GetProperty(ORVTypes::pTemplateCode, code, false) == eSuccess &&
      QELValue::HasValue(code))
    text = code.AsString(true);
  if (text.empty()) text = repora::kTableTriggerTemplate;
  // Only the header is wanted: up to the line end behind its last macro.
  constexpr std::string_view kLastMacro = "%TriggerWhen";
  constexpr std::string_view kLineEnd = "\r\n";
  auto const last = text.find(kLastMacro);
  return last == std::string::npos ? text
                                   : text.substr(0, last + kLastMacro.size() + kLineEnd.size());
}
