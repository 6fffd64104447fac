#include "repora/tables/relationships.h"

#include <algorithm>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/constraints.h"

namespace codes = repora::codes;

namespace {

using Ids = std::vector<std::uint32_t>;

bool Contains(Ids const& ids, std::uint32_t id) {
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

// Whether a column refers to another member of the key than the one it is paired with.
bool IsMismatched(Ids const& members, Ids const& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i] != members[i] && Contains(members, columns[i])) return true;
  return false;
}

void SetMapping(MOXActionSummaryItem& relationship, Ids const& parents, Ids const& children) {
  QELValue mapping;
  for (std::size_t i = 0; i < parents.size(); ++i)
    mapping += static_cast<std::int64_t>(std::uint64_t{parents[i]} << 32 | children[i]);
  relationship.SetProperty(ORVTypes::pMigrationMapping, std::move(mapping));
}

// Whether the foreign key is part of the child's own primary key, as far as that is known by now.
bool IsIdentifying(REPProcessor const& processor, repora::ForeignKey const& key) {
  Ids members;
  if (auto const primary = processor.FindPKInTableIndexes(key.table_name, 0))
    processor.GetMemberAttributesForIndex(key.table_name, primary, members);
  return std::all_of(key.columns.begin(), key.columns.end(),
                     [&members](std::uint32_t column) { return Contains(members, column); });
}

REPProcess_e SetNoNulls(REPProcessor const& processor, repora::ForeignKey const& key,
                        MOXActionSummaryItem& relationship) {
  auto code = codes::kNoNulls;
  for (auto const id : key.columns) {
    auto const* const column = processor.FindSummaryPtrById(id);
    if (!column && !key.of_column) return REPProcessError;
    auto const* const option = column ? column->Properties().Find(ORVTypes::pNullOption) : nullptr;
    if (!option || option->Integer() != codes::kNotNull) code = codes::kNullsAllowed;
  }
  repora::SetInteger(relationship, ORVTypes::pRelationshipNoNulls, code);
  return REPProcessOK;
}

void SetRules(MOXActionSummaryItem& relationship, REPDelete_e rule) {
  if (rule == REPDelete_e::Cascade)
    repora::SetInteger(relationship, ORVTypes::pRelationshipParentDeleteRule,
                       codes::kDeleteCascade);
  if (rule == REPDelete_e::SetNull)
    repora::SetInteger(relationship, ORVTypes::pRelationshipParentDeleteRule,
                       codes::kDeleteSetNull);
  for (auto const property :
       {ORVTypes::pRelationshipParentInsertRule, ORVTypes::pRelationshipChildInsertRule,
        ORVTypes::pRelationshipChildUpdateRule, ORVTypes::pRelationshipChildDeleteRule})
    repora::SetInteger(relationship, property, codes::kNoRule);
}

// Which columns refer to which, and what kind of relationship that makes.
REPProcess_e SetMigration(REPProcessor& processor, repora::ForeignKey const& key,
                          MOXActionSummaryItem& relationship) {
  Ids members;
  if (processor.GetMemberAttributesForIndex(repora::ParentNameOf(key.references), key.parent_key,
                                            members) != REPProcessOK ||
      members.size() != key.columns.size())
    return REPProcessError;
  bool const refers_to_itself = !key.of_column && key.parent == key.table->Id();
  bool const altered = refers_to_itself && IsMismatched(members, key.columns);
  if (altered)
    processor.DisplayWarning(REPMessage::SelfReferenceAltered, repora::AsWritten(key.table_name));
  SetMapping(relationship, members, altered ? members : key.columns);
  if (!refers_to_itself && IsIdentifying(processor, key)) {
    repora::SetInteger(relationship, ORVTypes::pType, codes::kIdentifying);
    return REPProcessOK;
  }
  repora::SetInteger(relationship, ORVTypes::pType, codes::kNonIdentifying);
  return SetNoNulls(processor, key, relationship);
}

}  // namespace

REPName const* repora::ParentNameOf(REPReferenceClause const* references) {
  return references ? references->GetReferenceName() : nullptr;
}

void repora::WarnTargetMissing(REPProcessor& processor, REPName const* table_name, MOXId type,
                               REPName const* name) {
  processor.DisplayWarning(
      REPMessage::TargetMissing, processor.GetObjectDisplayString(ORVTypes::oEntity),
      AsWritten(table_name), processor.GetObjectDisplayString(type), AsWritten(name));
}

REPProcess_e repora::FindParentKey(REPProcessor& processor, ForeignKey& key) {
  auto const* const parent = ParentNameOf(key.references);
  auto const* const columns = key.references ? key.references->GetColumns() : nullptr;
  key.parent_key =
      columns && columns->GetCount() > 0
          ? processor.FindMatchInTableIndexes(parent, columns)
          : processor.FindPKInTableIndexes(parent, static_cast<int>(key.columns.size()));
  if (key.parent_key) return REPProcessOK;
  processor.DisplayWarning(REPMessage::MatchingIndexMissing,
                           processor.GetObjectDisplayString(ORVTypes::oEntity),
                           AsWritten(key.table_name));
  return REPProcessError;
}

REPProcess_e repora::AddRelationship(REPProcessor& processor, ForeignKey const& key) {
  auto* const relationship =
      processor.CreateItem(processor.GetRoot(), ORVTypes::oRelationship, nullptr);
  if (!relationship) return REPProcessError;
  processor.SetPhysicalNameProp(relationship, key.constraint_name);
  if (auto const result = RegisterConstraintName(processor, key.table_name, key.constraint_name,
                                                 relationship->Id());
      result != REPProcessOK)
    return result;
  SetReference(*relationship, ORVTypes::pParentEntityRef, key.parent);
  SetReference(*relationship, ORVTypes::pChildEntityRef, key.table->Id());
  SetReference(*relationship, ORVTypes::pKeyGroupRef, key.parent_key);
  if (auto const result = SetMigration(processor, key, *relationship); result != REPProcessOK)
    return result;
  SetRules(*relationship, key.references ? key.references->GetDelete() : REPDelete_e::None);
  return key.state ? key.state->Process(&processor, relationship, false) : REPProcessOK;
}
