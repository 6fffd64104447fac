#include "repora/tables/constraints.h"

#include <string_view>
#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/conditions.h"
#include "repora/tables/indexes.h"
#include "repora/tables/relationships.h"

namespace codes = repora::codes;

namespace {

REPProcess_e ProcessState(REPProcessor& processor, REPConstraintState const* state,
                          MOXActionSummaryItem* constrained, bool is_key_group) {
  return state ? state->Process(&processor, constrained, is_key_group) : REPProcessOK;
}

// A constraint that becomes a key group of a table or view. Names and state may be null.
struct Key {
  REPProcessor& processor;
  MOXActionSummaryItem& table;
  REPName const* table_name;
  REPName const* name;
  REPConstraintState const* state;
  std::string_view type;  // empty: none is written

  bool IsUniqueKey() const { return type == codes::kPrimaryKey || type == codes::kAlternateKey; }
  REPIndexKeyType_e IndexKeyType() const {
    return type == codes::kPrimaryKey ? REPIndexPrimaryKey : REPIndexOtherKey;
  }
};

void WriteConstraintName(MOXActionSummaryItem& key_group, REPName const* name) {
  if (repora::IsGiven(name))
    repora::SetText(key_group, ORVTypes::pConstraintName, name->AsString(false));
}

// The key group without its members.
REPProcess_e CreateKeyGroup(Key const& key, MOXActionSummaryItem*& key_group) {
  auto& processor = key.processor;
  if (auto const result = repora::TestConstraintName(processor, key.table_name, key.name);
      result != REPProcessOK)
    return result;
  key_group = processor.CreateItem(key.table.Id(), ORVTypes::oKeyGroup, key.name);
  if (!key_group) return REPProcessError;
  if (auto const result =
          repora::RegisterConstraintName(processor, key.table_name, key.name, key_group->Id());
      result != REPProcessOK)
    return result;
  WriteConstraintName(*key_group, key.name);
  repora::SetBoolean(*key_group, ORVTypes::pGenerateAsConstraint, true);
  repora::SetBoolean(*key_group, ORVTypes::pDoNotGenerate, true);
  repora::SetTextIfGiven(*key_group, ORVTypes::pKeyGroupType, key.type);
  return REPProcessOK;
}

// Adds a column to the key group and to the order of its members.
REPProcess_e AddMember(Key const& key, MOXActionSummaryItem const& key_group,
                       REPName const& column_name, std::uint32_t column,
                       std::vector<std::uint32_t>& order) {
  auto& processor = key.processor;
  MOXActionSummaryItem* member = nullptr;
  if (auto const result =
          processor.AddItem(key_group.Id(), ORVTypes::oKeyGroupMember, &column_name, member);
      result != REPProcessOK)
    return result;
  if (key.IsUniqueKey())
    processor.AddMemberToTableIndexes(key.table_name, key_group.Id(), key.IndexKeyType(),
                                      &column_name);
  order.push_back(member->Id());
  repora::SetReference(*member, ORVTypes::pAttributeRef, column);
  return REPProcessOK;
}

// A key whose index is made by a CREATE INDEX inside the constraint.
REPProcess_e UseEmbeddedIndex(Key const& key) {
  auto* const index =
      key.state->ProcessCreateIndex(&key.processor, key.table_name, key.IndexKeyType());
  if (!index) return REPProcessError;
  repora::SetBoolean(*index, ORVTypes::pGenerateAsConstraint, true);
  repora::SetBoolean(*index, ORVTypes::pDoNotGenerate, true);
  WriteConstraintName(*index, key.name);
  repora::SetText(*index, ORVTypes::pKeyGroupType, key.type);
  return REPProcessOK;
}

// A key that takes an index made earlier, which must have the key's columns.
REPProcess_e UseNamedIndex(Key const& key, std::vector<REPName const*> const& columns) {
  auto& processor = key.processor;
  auto* const index =
      processor.FindItemPtr(key.table.Id(), ORVTypes::oKeyGroup, key.state->GetIndexSchema());
  if (!index) return repora::WarnIndexMissing(processor, key.table_name);
  if (auto const result = repora::TestConstraintName(processor, key.table_name, key.name);
      result != REPProcessOK)
    return result;
  WriteConstraintName(*index, key.name);
  if (auto const result =
          repora::RegisterConstraintName(processor, key.table_name, key.name, index->Id());
      result != REPProcessOK)
    return result;
  if (columns.empty()) return repora::WarnIndexMissing(processor, key.table_name);
  for (auto const* const column : columns)
    if (!processor.FindItem(index->Id(), ORVTypes::oKeyGroupMember, column))
      return repora::WarnIndexMissing(processor, key.table_name);
  for (auto const* const column : columns)
    processor.AddMemberToTableIndexes(key.table_name, index->Id(), key.IndexKeyType(), column);
  repora::SetText(*index, ORVTypes::pKeyGroupType, key.type);
  repora::SetBoolean(*index, ORVTypes::pGenerateAsConstraint, true);
  return key.state->Process(&processor, index, true);
}

// A check of a column or a table: a usage under its owner that refers to a rule of its own.
REPProcess_e ProcessCheck(REPProcessor& processor, MOXActionSummaryItem const& owner,
                          REPName const* table_name, REPName const* name,
                          REPCondition const* condition, REPConstraintState const* state) {
  MOXActionSummaryItem* usage = nullptr;
  if (!repora::IsGiven(name)) {
    usage = processor.CreateItem(owner.Id(), ORVTypes::oCheckConstraintUsage, nullptr);
  } else {
    if (auto const result = repora::TestConstraintName(processor, table_name, name);
        result != REPProcessOK)
      return result;
    if (auto const result =
            processor.AddItem(owner.Id(), ORVTypes::oCheckConstraintUsage, name, usage);
        result != REPProcessOK)
      return result;
    if (auto const result =
            repora::RegisterConstraintName(processor, table_name, name, usage->Id());
        result != REPProcessOK)
      return result;
  }
  auto* const rule = processor.CreateItem(processor.GetRoot(), ORVTypes::oValidationRule, nullptr);
  if (!usage || !rule) return REPProcessError;
  repora::SetReference(*usage, ORVTypes::pValidationRuleRef, rule->Id());
  repora::SetText(*rule, ORVTypes::pServerValue, repora::TextOf(condition));
  return ProcessState(processor, state, usage, false);
}

std::string_view KeyGroupTypeOf(REPInlineConstr_e constraint) {
  switch (constraint) {
    case REPInlineConstr_e::Unique: return codes::kAlternateKey;
    case REPInlineConstr_e::PrimaryKey: return codes::kPrimaryKey;
    case REPInlineConstr_e::References:
    case REPInlineConstr_e::Ref: return codes::kForeignKey;
    default: return {};
  }
}

std::string_view KeyGroupTypeOf(REPOutOfLineConstr_e constraint) {
  switch (constraint) {
    case REPOutOfLineConstr_e::Unique: return codes::kAlternateKey;
    case REPOutOfLineConstr_e::PrimaryKey: return codes::kPrimaryKey;
    case REPOutOfLineConstr_e::ForeignKey: return codes::kForeignKey;
    default: return {};
  }
}

}  // namespace

REPName repora::QualifiedConstraintName(REPName const* table_name, REPName const* constraint_name) {
  REPName qualified;
  auto const owner = table_name ? table_name->GetOwnerName(false) : std::string();
  if (!owner.empty()) qualified.AddTail(owner.c_str());
  qualified.AddTail(AsWritten(constraint_name).c_str());
  if (constraint_name && constraint_name->IsQuoted()) qualified.SetQuoted(true);
  return qualified;
}

REPProcess_e repora::TestConstraintName(REPProcessor& processor, REPName const* table_name,
                                        REPName const* constraint_name) {
  if (!repora::IsGiven(constraint_name)) return REPProcessOK;
  auto const qualified = QualifiedConstraintName(table_name, constraint_name);
  if (!processor.FindConstraintInConstraintsMap(&qualified)) return REPProcessOK;
  processor.DisplayWarning(REPMessage::ConstraintNameUsed, AsWritten(constraint_name));
  return REPProcessError;
}

REPProcess_e repora::RegisterConstraintName(REPProcessor& processor, REPName const* table_name,
                                            REPName const* constraint_name, std::uint32_t item_id) {
  if (!repora::IsGiven(constraint_name)) return REPProcessOK;
  auto const qualified = QualifiedConstraintName(table_name, constraint_name);
  return processor.AddConstraintToConstraintsMap(&qualified, item_id);
}

REPProcess_e repora::WarnIndexMissing(REPProcessor& processor, REPName const* table_name) {
  processor.DisplayWarning(REPMessage::SpecifiedIndexMissing, AsWritten(table_name));
  return REPProcessError;
}

REPInlineConstraintClause::REPInlineConstraintClause() = default;

REPInlineConstraintClause::~REPInlineConstraintClause() = default;

REPProcess_e REPInlineConstraintClause::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* table,
                                                REPName const* table_name,
                                                MOXActionSummaryItem* column) const {
  if (!processor || !table || !column) return REPProcessError;
  switch (constraint_) {
    case REPInlineConstr_e::Null:
    case REPInlineConstr_e::NotNull: return ProcessNullOption(*processor, table_name, *column);
    case REPInlineConstr_e::Unique:
    case REPInlineConstr_e::PrimaryKey: return ProcessKey(*processor, *table, table_name, *column);
    case REPInlineConstr_e::References:
      return ProcessReferences(*processor, *table, table_name, *column);
    case REPInlineConstr_e::Check:
      return ProcessCheck(*processor, *column, table_name, name_.Get(), check_.Get(), state_.Get());
    default: return REPProcessOK;
  }
}

// The name of a NULL is written down, but it is no name of a constraint: it may be used again.
REPProcess_e REPInlineConstraintClause::ProcessNullOption(REPProcessor& processor,
                                                          REPName const* table_name,
                                                          MOXActionSummaryItem& column) const {
  bool const is_not_null = constraint_ == REPInlineConstr_e::NotNull;
  if (is_not_null) {
    if (auto const result = repora::TestConstraintName(processor, table_name, name_.Get());
        result != REPProcessOK)
      return result;
    if (auto const result =
            repora::RegisterConstraintName(processor, table_name, name_.Get(), column.Id());
        result != REPProcessOK)
      return result;
  }
  if (repora::IsGiven(name_.Get()))
    repora::SetText(column, ORVTypes::pNullOptionConstraintName, name_->AsString(false));
  repora::SetInteger(column, ORVTypes::pNullOption, is_not_null ? codes::kNotNull : codes::kNull);
  return ProcessState(processor, state_.Get(), &column, false);
}

REPProcess_e REPInlineConstraintClause::ProcessKey(REPProcessor& processor,
                                                   MOXActionSummaryItem& table,
                                                   REPName const* table_name,
                                                   MOXActionSummaryItem& column) const {
  Key const key{processor,   table,        table_name,
                name_.Get(), state_.Get(), KeyGroupTypeOf(constraint_)};
  if (state_ && state_->GetCreateIndex()) return UseEmbeddedIndex(key);
  if (state_ && repora::IsGiven(state_->GetIndexSchema())) {
    auto const name = repora::ScriptNameOf(column);
    return UseNamedIndex(key, {&name});
  }
  return ProcessKeyGroup(processor, table, table_name, column);
}

REPProcess_e REPInlineConstraintClause::ProcessReferences(REPProcessor& processor,
                                                          MOXActionSummaryItem& table,
                                                          REPName const* table_name,
                                                          MOXActionSummaryItem& column) const {
  if (auto const result = repora::TestConstraintName(processor, table_name, name_.Get());
      result != REPProcessOK)
    return result;
  auto const* const parent_name = repora::ParentNameOf(references_.Get());
  repora::ForeignKey key{.table = &table,
                         .table_name = table_name,
                         .constraint_name = name_.Get(),
                         .references = references_.Get(),
                         .state = state_.Get(),
                         .of_column = true,
                         .columns = {column.Id()}};
  key.parent = processor.FindItem(processor.GetRoot(), ORVTypes::oEntity, parent_name);
  if (!key.parent) {
    repora::WarnTargetMissing(processor, table_name, ORVTypes::oEntity, parent_name);
    return REPProcessError;
  }
  auto const* const parent_columns = references_ ? references_->GetColumns() : nullptr;
  if (parent_columns && parent_columns->GetCount() > 1) {
    processor.DisplayWarning(REPMessage::InlineReferenceColumns,
                             processor.GetObjectDisplayString(ORVTypes::oEntity),
                             repora::AsWritten(table_name));
    return REPProcessError;
  }
  if (auto const result = repora::FindParentKey(processor, key); result != REPProcessOK)
    return result;
  if (table.Type() == ORVTypes::oView) return ProcessKeyGroup(processor, table, table_name, column);
  return repora::AddRelationship(processor, key);
}

REPProcess_e REPInlineConstraintClause::ProcessKeyGroup(REPProcessor& processor,
                                                        MOXActionSummaryItem& table,
                                                        REPName const* table_name,
                                                        MOXActionSummaryItem& column) const {
  MOXActionSummaryItem* key_group = nullptr;
  if (auto const result =
          CreateKeyGroupPlusMember(&processor, &table, table_name, &column, key_group);
      result != REPProcessOK)
    return result;
  return ProcessState(processor, state_.Get(), key_group, true);
}

REPProcess_e REPInlineConstraintClause::CreateKeyGroupPlusMember(
    REPProcessor* processor, MOXActionSummaryItem* table, REPName const* table_name,
    MOXActionSummaryItem* column, MOXActionSummaryItem*& key_group) const {
  key_group = nullptr;
  if (!processor || !table || !column) return REPProcessError;
  Key const key{*processor,  *table,       table_name,
                name_.Get(), state_.Get(), KeyGroupTypeOf(constraint_)};
  if (auto const result = CreateKeyGroup(key, key_group); result != REPProcessOK) return result;
  std::vector<std::uint32_t> order;
  if (auto const result =
          AddMember(key, *key_group, repora::ScriptNameOf(*column), column->Id(), order);
      result != REPProcessOK)
    return result;
  repora::WriteMemberOrder(*processor, *key_group, order);
  return REPProcessOK;
}

REPProcess_e REPInlineConstraintClauseList::Process(REPProcessor* processor,
                                                    MOXActionSummaryItem* table,
                                                    REPName const* table_name,
                                                    MOXActionSummaryItem* column) const {
  return clauses_.ProcessAll([&](REPInlineConstraintClause const& clause) {
    return clause.Process(processor, table, table_name, column);
  });
}

REPOutOfLineConstraint::REPOutOfLineConstraint() = default;

REPOutOfLineConstraint::~REPOutOfLineConstraint() = default;

REPProcess_e REPOutOfLineConstraint::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  switch (constraint_) {
    case REPOutOfLineConstr_e::Unique:
    case REPOutOfLineConstr_e::PrimaryKey: return ProcessKey(*processor, *table, table_name);
    case REPOutOfLineConstr_e::ForeignKey: return ProcessForeignKey(*processor, *table, table_name);
    case REPOutOfLineConstr_e::Check:
      return ProcessCheck(*processor, *table, table_name, name_.Get(), check_.Get(), state_.Get());
    default: return REPProcessOK;
  }
}

REPProcess_e REPOutOfLineConstraint::ProcessKey(REPProcessor& processor,
                                                MOXActionSummaryItem& table,
                                                REPName const* table_name) const {
  Key const key{processor,   table,        table_name,
                name_.Get(), state_.Get(), KeyGroupTypeOf(constraint_)};
  if (state_ && state_->GetCreateIndex()) return UseEmbeddedIndex(key);
  if (state_ && repora::IsGiven(state_->GetIndexSchema())) {
    std::vector<REPName const*> columns;
    for (int i = 0; columns_ && i < columns_->GetCount(); ++i)
      columns.push_back(columns_->GetName(i));
    return UseNamedIndex(key, columns);
  }
  return ProcessKeyGroup(processor, table, table_name);
}

REPProcess_e REPOutOfLineConstraint::ProcessForeignKey(REPProcessor& processor,
                                                       MOXActionSummaryItem& table,
                                                       REPName const* table_name) const {
  if (auto const result = repora::TestConstraintName(processor, table_name, name_.Get());
      result != REPProcessOK)
    return result;
  repora::ForeignKey key{.table = &table,
                         .table_name = table_name,
                         .constraint_name = name_.Get(),
                         .references = references_.Get(),
                         .state = state_.Get(),
                         .of_column = false,
                         .columns = {}};
  for (int i = 0; columns_ && i < columns_->GetCount(); ++i) {
    auto const* const name = columns_->GetName(i);
    key.columns.push_back(processor.FindItem(table.Id(), ORVTypes::oAttribute, name));
    if (key.columns.back() != 0) continue;
    repora::WarnTargetMissing(processor, table_name, ORVTypes::oAttribute, name);
    return REPProcessError;
  }
  auto const* const parent_name = repora::ParentNameOf(references_.Get());
  auto const find = [&](MOXId type) {
    return processor.FindItem(processor.GetRoot(), type, parent_name);
  };
  key.parent = find(ORVTypes::oEntity);
  if (!key.parent) {
    auto const warn_unsupported = [&](REPMessage message, MOXId type) {
      processor.DisplayWarning(message, processor.GetObjectDisplayString(ORVTypes::oEntity),
                               repora::AsWritten(table_name),
                               processor.GetObjectDisplayString(type),
                               repora::AsWritten(parent_name));
    };
    if (find(ORVTypes::oView))
      warn_unsupported(REPMessage::ForeignKeyUnsupported, ORVTypes::oView);
    else if (find(ORVTypes::oCachedView))
      warn_unsupported(REPMessage::ForeignKeyUnsupportedCreate, ORVTypes::oCachedView);
    else
      repora::WarnTargetMissing(processor, table_name, ORVTypes::oEntity, parent_name);
    return REPProcessError;
  }
  if (auto const result = repora::FindParentKey(processor, key); result != REPProcessOK)
    return result;
  if (table.Type() == ORVTypes::oView) return ProcessKeyGroup(processor, table, table_name);
  return repora::AddRelationship(processor, key);
}

REPProcess_e REPOutOfLineConstraint::ProcessKeyGroup(REPProcessor& processor,
                                                     MOXActionSummaryItem& table,
                                                     REPName const* table_name) const {
  MOXActionSummaryItem* key_group = nullptr;
  if (auto const result = CreateKeyGroupPlusMembers(&processor, &table, table_name, key_group);
      result != REPProcessOK)
    return result;
  return ProcessState(processor, state_.Get(), key_group, true);
}

REPProcess_e REPOutOfLineConstraint::CreateKeyGroupPlusMembers(
    REPProcessor* processor, MOXActionSummaryItem* table, REPName const* table_name,
    MOXActionSummaryItem*& key_group) const {
  Key const key{*processor,  *table,       table_name,
                name_.Get(), state_.Get(), KeyGroupTypeOf(constraint_)};
  if (auto const result = CreateKeyGroup(key, key_group); result != REPProcessOK) return result;
  if (!columns_ || columns_->GetCount() == 0) return REPProcessOK;
  std::vector<std::uint32_t> order;
  for (int i = 0; i < columns_->GetCount(); ++i) {
    auto const* const name = columns_->GetName(i);
    auto const column = processor->FindItem(table->Id(), ORVTypes::oAttribute, name);
    if (!column) {
      processor->DisplayWarning(REPMessage::ConstraintColumnMissing,
                                processor->GetObjectDisplayString(table->Type()),
                                repora::AsWritten(table_name), name->AsString(false));
      return REPProcessError;
    }
    if (auto const result = AddMember(key, *key_group, *name, column, order);
        result != REPProcessOK)
      return result;
  }
  repora::WriteMemberOrder(*processor, *key_group, order);
  return REPProcessOK;
}

REPProcess_e REPOutOfLineConstraintList::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* table,
                                                 REPName const* table_name) const {
  return constraints_.ProcessAll([&](REPOutOfLineConstraint const& constraint) {
    return constraint.Process(processor, table, table_name);
  });
}

REPProcess_e REPOutOfLineRefConstraint::Process(REPProcessor* /*processor*/,
                                                MOXActionSummaryItem* /*table*/) const {
  return REPProcessUnsupported;
}

REPProcess_e REPOutOfLineRefConstraintList::Process(REPProcessor* processor,
                                                    MOXActionSummaryItem* table) const {
  return constraints_.ProcessAll([&](REPOutOfLineRefConstraint const& constraint) {
    return constraint.Process(processor, table);
  });
}
