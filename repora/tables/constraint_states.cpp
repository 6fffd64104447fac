#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/constraints.h"
#include "repora/tables/indexes.h"

namespace codes = repora::codes;

namespace {

// A choice of two keywords, of which the first means true.
template <class Choice>
void WriteChoice(MOXActionSummaryItem& item, MOXId property, Choice choice) {
  if (static_cast<int>(choice) == 1) repora::SetBoolean(item, property, true);
  if (static_cast<int>(choice) == 2) repora::SetBoolean(item, property, false);
}

void WriteExceptions(REPProcessor& processor, MOXActionSummaryItem& state, REPName const* table) {
  if (!repora::IsGiven(table)) return;
  repora::SetReference(state, ORVTypes::pExceptionTableRef,
                       processor.FindCreateItem(processor.GetRoot(), ORVTypes::oEntity, table));
}

}  // namespace

REPConstraintState::REPConstraintState() = default;

REPConstraintState::~REPConstraintState() = default;

REPProcess_e REPConstraintState::Process(REPProcessor* processor, MOXActionSummaryItem* constrained,
                                         bool is_key_group) const {
  if (!processor || !constrained) return REPProcessError;
  REPName const name(constrained->Name());
  MOXActionSummaryItem* state = nullptr;
  if (auto const result =
          processor->AddItem(constrained->Id(), ORVTypes::oOracleConstraintState, &name, state);
      result != REPProcessOK && result != REPProcessDuplicate)
    return result;
  WriteProperties(*processor, *state);
  if (!is_key_group && using_index_) {
    processor->DisplayWarning(REPMessage::UsingIndexNotAllowed);
    return REPProcessError;
  }
  if (!is_key_group || constrained->Type() != ORVTypes::oKeyGroup) return REPProcessOK;
  auto* const table = processor->FindSummaryPtrById(constrained->Owner());
  if (!table) return REPProcessError;
  if (properties_) {
    if (auto const result = properties_->Process(processor, table, constrained);
        result != REPProcessOK)
      return result;
  }
  if (using_index_) repora::SetInteger(*state, ORVTypes::pUseIndex, codes::kUsingIndex);
  return REPProcessOK;
}

MOXActionSummaryItem* REPConstraintState::ProcessCreateIndex(REPProcessor* processor,
                                                             REPName const* table_name,
                                                             REPIndexKeyType_e kind) const {
  if (!processor || !create_index_) return nullptr;
  auto* const index = create_index_->ProcessEmbeded(processor);
  if (!index) return nullptr;
  std::vector<MOXActionSummaryItem*> members;
  processor->FindChildrenByType(index->Id(), ORVTypes::oKeyGroupMember, members);
  for (auto const* const member : members) {
    auto const name = repora::ScriptNameOf(*member);
    processor->AddMemberToTableIndexes(table_name, index->Id(), kind, &name);
  }
  auto* state = processor->FindItemPtr(index->Id(), ORVTypes::oOracleConstraintState);
  if (!state) {
    REPName const name(index->Name());
    processor->AddItem(index->Id(), ORVTypes::oOracleConstraintState, &name, state);
  }
  if (!state) return index;
  repora::SetInteger(*state, ORVTypes::pUseIndex, codes::kUsingIndex);
  WriteProperties(*processor, *state);
  return index;
}

void REPConstraintState::WriteProperties(REPProcessor& processor,
                                         MOXActionSummaryItem& state) const {
  WriteChoice(state, ORVTypes::pDeferrable, deferrable_);
  WriteChoice(state, ORVTypes::pEnabled, enable_);
  WriteChoice(state, ORVTypes::pImmediate, initially_);
  WriteChoice(state, ORVTypes::pRely, rely_);
  WriteChoice(state, ORVTypes::pValidate, validate_);
  WriteExceptions(processor, state, exceptions_.Get());
}

REPUsingIndexClause::REPUsingIndexClause() = default;

REPUsingIndexClause::~REPUsingIndexClause() = default;

REPProcess_e REPEnableDisableClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  auto const target = FindTarget(*processor, table_name);
  if (!target) return REPProcessOK;
  auto* state = processor->FindItemPtr(target, ORVTypes::oOracleConstraintState);
  if (!state) {
    auto const* const name = type_ == REPInlineConstr_e::Named ? nullptr : table_name;
    if (auto const result =
            processor->AddItem(target, ORVTypes::oOracleConstraintState, name, state);
        result != REPProcessOK)
      return result;
  }
  WriteChoice(*state, ORVTypes::pEnabled, enable_);
  WriteChoice(*state, ORVTypes::pValidate, validate_);
  WriteExceptions(*processor, *state, exceptions_.Get());
  if (!using_) return REPProcessOK;
  repora::SetInteger(*state, ORVTypes::pUseIndex, codes::kUsingIndex);
  return ProcessUsingClause(*processor, *table, table_name, target);
}

std::uint32_t REPEnableDisableClause::FindTarget(REPProcessor const& processor,
                                                 REPName const* table_name) const {
  switch (type_) {
    case REPInlineConstr_e::Unique:
      return processor.FindMatchInTableIndexes(table_name, columns_.Get());
    case REPInlineConstr_e::PrimaryKey: return processor.FindPKInTableIndexes(table_name, 0);
    case REPInlineConstr_e::Named: {
      auto const name = repora::QualifiedConstraintName(table_name, constraint_.Get());
      return processor.FindConstraintInConstraintsMap(&name);
    }
    default: return 0;
  }
}

REPProcess_e REPEnableDisableClause::ProcessUsingClause(REPProcessor& processor,
                                                        MOXActionSummaryItem& table,
                                                        REPName const* table_name,
                                                        std::uint32_t target) const {
  auto const* const properties = using_->GetIndexProperties();
  if (!properties) return REPProcessOK;
  auto id = target;
  if (repora::IsGiven(using_->GetIndexName())) {
    id = processor.FindItem(table.Id(), ORVTypes::oKeyGroup, using_->GetIndexName());
    if (!id) return repora::WarnIndexMissing(processor, table_name);
  } else if (repora::IsGiven(constraint_.Get())) {
    // The name as the clause gives it: constraints of a schema are known by their full name only.
    id = processor.FindConstraintInConstraintsMap(constraint_.Get());
    if (!id) {
      processor.DisplayWarning(REPMessage::ConstraintMissing, repora::AsWritten(table_name),
                               repora::AsWritten(constraint_.Get()));
      return REPProcessError;
    }
  }
  auto* const key_group = processor.FindSummaryPtrById(id);
  if (!key_group) return REPProcessError;
  if (key_group->Type() != ORVTypes::oKeyGroup)
    return repora::WarnIndexMissing(processor, table_name);
  properties->Process(&processor, &table, key_group);
  return REPProcessOK;
}

REPProcess_e REPEnableDisableClauseList::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* table,
                                                 REPName const* table_name) const {
  return clauses_.ProcessAll([&](REPEnableDisableClause const& clause) {
    return clause.Process(processor, table, table_name);
  });
}
