#include "repora/tables/alter_columns.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/column_properties.h"
#include "repora/tables/constraints.h"

namespace codes = repora::codes;

namespace {

REPProcess_e FailColumn(REPProcessor& processor, REPMessage message, REPName const* table_name,
                        std::string const& column) {
  processor.DisplayWarning(message, processor.GetObjectDisplayString(ORVTypes::oEntity),
                           repora::AsWritten(table_name), column);
  return REPProcessError;
}

}  // namespace

REPAddColumnClause::REPAddColumnClause() = default;

REPAddColumnClause::~REPAddColumnClause() = default;

REPProcess_e REPAddColumnClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                         REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  if (constraint_) return constraint_->Process(processor, table, table_name);
  if (ref_constraint_) return REPProcessUnsupported;
  if (supplemental_logging_)
    return supplemental_logging_->Process(processor, table, REPSuppLog_e::Create);
  MOXActionSummaryItem* attribute = nullptr;
  if (processor->AddItem(table->Id(), ORVTypes::oAttribute, name_.Get(), attribute) != REPProcessOK)
    return FailColumn(*processor, REPMessage::AlterColumnFailed, table_name,
                      name_ ? name_->GetName(false) : std::string());
  if (datatype_) repora::WriteDatatype(*processor, *attribute, *datatype_);
  repora::SetBoolean(*attribute, ORVTypes::pOracleSortColumn, sort_);
  repora::SetInteger(*attribute, ORVTypes::pType, codes::kAttributeType);
  if (expression_) repora::WriteDefault(*processor, *attribute, *expression_);
  return inline_constraints_ ? inline_constraints_->Process(processor, table, table_name, attribute)
                             : REPProcessOK;
}

REPProcess_e REPAddColumnClauseList::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             REPName const* table_name) const {
  auto const result = clauses_.ProcessAll([&](REPAddColumnClause const& clause) {
    return clause.Process(processor, table, table_name);
  });
  return result == REPProcessOK && column_properties_
             ? column_properties_->Process(processor, table)
             : result;
}

REPModifyColumnClause::REPModifyColumnClause() = default;

REPModifyColumnClause::~REPModifyColumnClause() = default;

REPProcess_e REPModifyColumnClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                            REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  auto* const attribute = processor->FindItemPtr(table->Id(), ORVTypes::oAttribute, name_.Get());
  if (!attribute)
    return FailColumn(*processor, REPMessage::AlterColumnMissing, table_name,
                      repora::AsWritten(name_.Get()));
  if (datatype_) repora::WriteDatatype(*processor, *attribute, *datatype_);
  if (expression_)
    repora::WriteDefault(
        *processor, *attribute, *expression_,
        processor->FindItemPtr(attribute->Id(), ORVTypes::oDefaultConstraintUsage));
  auto result = REPProcessOK;
  if (inline_constraints_)
    result = inline_constraints_->Process(processor, table, table_name, attribute);
  if (result == REPProcessOK && lob_storage_)
    result = lob_storage_->Process(processor, table, table);
  return result;
}

REPProcess_e REPModifyColumnClauseList::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* table,
                                                REPName const* table_name) const {
  return clauses_.ProcessAll([&](REPModifyColumnClause const& clause) {
    return clause.Process(processor, table, table_name);
  });
}

REPProcess_e REPDropColumnClause::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  processor->DisplayWarning(REPMessage::AlterDropUnsupported,
                            processor->GetObjectDisplayString(ORVTypes::oEntity), table->Name());
  return REPProcessError;
}

REPProcess_e REPDropColumnClauseList::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* table) const {
  return clauses_.ProcessAll(
      [&](REPDropColumnClause const& clause) { return clause.Process(processor, table); });
}

REPProcess_e REPRenameColumnClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                            REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  auto const* const old_name = old_name_.Get();
  auto const* const new_name = new_name_.Get();
  if (!repora::IsGiven(old_name) || !repora::IsGiven(new_name)) return REPProcessError;
  auto* const attribute = processor->FindItemPtr(table->Id(), ORVTypes::oAttribute, old_name);
  if (!attribute)
    return FailColumn(*processor, REPMessage::AlterColumnMissing, table_name,
                      repora::AsWritten(old_name));
  if (processor->FindItemPtr(table->Id(), ORVTypes::oAttribute, new_name) ||
      processor->ReplaceItem(table->Id(), ORVTypes::oAttribute, old_name, new_name) != REPProcessOK)
    return FailColumn(*processor, REPMessage::RenameTargetExists, table_name,
                      repora::AsWritten(new_name));
  processor->SetNameProp(attribute, new_name);
  // A table without keys has no members to rename.
  processor->RenameMemberAttributesForTable(table_name, old_name, new_name);
  return REPProcessOK;
}

REPProcess_e REPRenameColumnClauseList::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* table,
                                                REPName const* table_name) const {
  return clauses_.ProcessAll([&](REPRenameColumnClause const& clause) {
    return clause.Process(processor, table, table_name);
  });
}

REPProcess_e REPAlterColumnClauses::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                            REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  auto result = REPProcessOK;
  if (add_) result = add_->Process(processor, table, table_name);
  if (result == REPProcessOK && modify_) result = modify_->Process(processor, table, table_name);
  if (result == REPProcessOK && drop_) result = drop_->Process(processor, table);
  if (result == REPProcessOK && rename_) result = rename_->Process(processor, table, table_name);
  if (result == REPProcessOK && modify_lobs_) result = modify_lobs_->Process(processor, table);
  return result;
}
