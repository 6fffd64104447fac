#include "repora/tables/external_table.h"

#include <string_view>
#include <vector>

#include "repora/core/letters.h"
#include "repora/core/name.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/sub_query.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

// A name whose dots are part of it, as they are in file names.
REPName WholeName(std::string_view text) {
  REPName name;
  name.AddTail(std::string(text).c_str());
  return name;
}

// Refers to a directory, made as a placeholder when it is not known.
void WriteDirectory(REPProcessor& processor, MOXActionSummaryItem& item, std::string_view text) {
  auto const name = WholeName(text);
  repora::SetReference(
      item, ORVTypes::pOracleDirectoryRef,
      processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleDirectory, &name));
}

std::string_view ProjectText(REPProject_e project) {
  switch (project) {
    case REPProject_e::None: break;
    case REPProject_e::All: return "PROJECT COLUMN ALL";
    case REPProject_e::Referenced: return "PROJECT COLUMN REFERENCED";
  }
  return {};
}

}  // namespace

REPExternalTableClause::REPExternalTableClause() = default;

REPExternalTableClause::REPExternalTableClause(REPExternalTableClause const& other) = default;

REPExternalTableClause::REPExternalTableClause(REPExternalTableClause const* other)
    : REPExternalTableClause(repora::CopyOf(other)) {}

REPExternalTableClause& REPExternalTableClause::operator=(REPExternalTableClause const& other) =
    default;

REPExternalTableClause& REPExternalTableClause::operator=(REPExternalTableClause const* other) {
  return *this = repora::CopyOf(other);
}

REPExternalTableClause::~REPExternalTableClause() = default;

void REPExternalTableClause::SetSubQuery(REPSubQuery* query) {
  // What is replaced goes back to whoever handed it in, unless a copy still has it.
  if (sub_query_.use_count() == 1) sub_query_->Release();
  sub_query_ = std::make_shared<repora::Owned<REPSubQuery>>();
  sub_query_->Set(query);
}

REPSubQuery* REPExternalTableClause::GetSubQuery() const {
  return sub_query_ ? sub_query_->Get() : nullptr;
}

REPProcess_e REPExternalTableClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             bool alter) const {
  if (!processor || !table) return REPProcessError;
  repora::SetTextIfGiven(*table, ORVTypes::pAccessDriver, driver_);
  if (!directory_.empty()) WriteDirectory(*processor, *table, directory_);
  if (!parameters_.empty()) {
    repora::SetText(*table, ORVTypes::pAccessParameters, parameters_);
    repora::SetInteger(*table, ORVTypes::pAccessParameterType, codes::kAccessParametersText);
  }
  if (auto const* const query = GetSubQuery()) {
    repora::SetText(*table, ORVTypes::pAccessParameters, query->AsString());
    repora::SetInteger(*table, ORVTypes::pAccessParameterType, codes::kAccessParametersQuery);
  }
  if (auto const result = ProcessLocations(*processor, *table, alter); result != REPProcessOK)
    return result;
  if (reject_limit_.empty()) return REPProcessOK;
  bool const unlimited = repora::EqualsIgnoringCase(reject_limit_, "UNLIMITED");
  repora::SetInteger(*table, ORVTypes::pRejectLimitType,
                     unlimited ? codes::kRejectUnlimited : codes::kRejectNumber);
  if (!unlimited) repora::SetText(*table, ORVTypes::pRejectLimit, reject_limit_);
  return REPProcessOK;
}

REPProcess_e REPExternalTableClause::ProcessLocations(REPProcessor& processor,
                                                      MOXActionSummaryItem& table,
                                                      bool alter) const {
  if (alter && !locations_.IsEmpty()) {
    std::vector<MOXActionSummaryItem*> present;
    processor.FindChildrenByType(table.Id(), ORVTypes::oOracleLocation, present);
    if (!present.empty()) processor.DisplayWarning(REPMessage::LocationsAdded, table.Name());
  }
  for (int i = 0; i < locations_.GetCount(); ++i) {
    std::string_view const text = *locations_.At(i);
    auto const colon = text.find(':');
    bool const has_directory = colon != std::string_view::npos && colon > 0;
    auto const file = WholeName(has_directory ? text.substr(colon + 1) : text);
    MOXActionSummaryItem* location = nullptr;
    if (auto const result =
            processor.AddItem(table.Id(), ORVTypes::oOracleLocation, &file, location);
        result != REPProcessOK && result != REPProcessDuplicate)
      return result;
    if (has_directory && location) WriteDirectory(processor, *location, text.substr(0, colon));
  }
  return REPProcessOK;
}

std::string REPExternalTableClause::AsString() const {
  SqlText sql;
  sql.PartClause("TYPE ", driver_).PartClause("DEFAULT DIRECTORY ", directory_);
  if (!parameters_.empty())
    sql.Part("ACCESS PARAMETERS(").Append(parameters_).Append(")");
  else
    sql.PartClause("ACCESS PARAMETERS USING CLOB ", repora::TextOf(GetSubQuery()));
  if (!locations_.IsEmpty())
    sql.Part("LOCATION").Append(locations_.Join(", ", true, [](repora::Text const& location) {
      return location.str();
    }));
  return sql.PartClause("REJECT LIMIT ", reject_limit_).Part(ProjectText(project_)).Take();
}
