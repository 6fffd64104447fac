#include "repora/tables/alter_table.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/alter_columns.h"
#include "repora/tables/alter_partitions.h"
#include "repora/tables/constraints.h"
#include "repora/tables/external_table.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"
#include "repora/tables/table_organisation.h"

namespace codes = repora::codes;

namespace {

// Whether a key, check or relationship is one of the table's own; false for other items.
bool BelongsTo(REPProcessor const& processor, MOXActionSummaryItem const& constraint,
               MOXActionSummaryItem const& table) {
  if (constraint.Type() == ORVTypes::oRelationship) {
    auto const* const child = constraint.Properties().Find(ORVTypes::pChildEntityRef);
    return child && child->ShortId() == table.Id();
  }
  if (constraint.Owner() == table.Id()) return true;
  auto const* const column = constraint.Type() == ORVTypes::oCheckConstraintUsage
                                 ? processor.FindSummaryPtrById(constraint.Owner())
                                 : nullptr;
  return column && column->Owner() == table.Id();
}

}  // namespace

REPAlterTableProps::REPAlterTableProps() = default;

REPAlterTableProps::~REPAlterTableProps() = default;

REPProcess_e REPAlterTableProps::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                         REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  if (compression_) {
    if (auto const result = compression_->Process(table); result != REPProcessOK) return result;
  }
  if (supplemental_logging_) {
    if (auto const result = supplemental_logging_->Process(processor, table, supplemental_mode_);
        result != REPProcessOK)
      return result;
  }
  if (cache_ == REPCache_e::NoCache) repora::SetBoolean(*table, ORVTypes::pOracleCache, false);
  if (cache_ == REPCache_e::Cache) repora::SetBoolean(*table, ORVTypes::pOracleCache, true);
  if (parallel_) {
    if (auto const result = parallel_->Process(processor, table); result != REPProcessOK)
      return result;
  }
  if (row_movement_ == REPRowMovement_e::Disable)
    repora::SetBoolean(*table, ORVTypes::pOracleEnableRowMovement, false);
  if (row_movement_ == REPRowMovement_e::Enable)
    repora::SetBoolean(*table, ORVTypes::pOracleEnableRowMovement, true);
  if (repora::IsGiven(new_name_.Get())) {
    if (auto const result = ProcessRename(*processor, *table, table_name); result != REPProcessOK)
      return result;
  }
  if (segment_) {
    auto const* const storage = segment_->Process(processor, table, codes::kUnclassifiedStorage);
    if (storage) repora::SetReference(*table, ORVTypes::pOracleRegularStorageRef, storage->Id());
  }
  return iot_ == REPIOT_e::None ? REPProcessOK : ProcessIndexOrganization(*processor, *table);
}

REPProcess_e REPAlterTableProps::ProcessRename(REPProcessor& processor, MOXActionSummaryItem& table,
                                               REPName const* table_name) const {
  auto const root = processor.GetRoot();
  auto const* const new_name = new_name_.Get();
  if (processor.FindItem(root, ORVTypes::oEntity, new_name)) {
    processor.DisplayWarning(REPMessage::RenameTargetExists,
                             processor.GetObjectDisplayString(ORVTypes::oEntity),
                             repora::AsWritten(table_name), repora::AsWritten(new_name));
    return REPProcessError;
  }
  if (auto const result = processor.ReplaceItem(root, ORVTypes::oEntity, table_name, new_name);
      result != REPProcessOK)
    return result;
  processor.SetNameProp(&table, new_name);
  return processor.RenameEntityInTableIndexes(table_name, new_name);
}

REPProcess_e REPAlterTableProps::ProcessIndexOrganization(REPProcessor& processor,
                                                          MOXActionSummaryItem& table) const {
  if (iot_properties_) {
    if (auto const result = iot_properties_->Process(&table); result != REPProcessOK) return result;
  }
  if (!iot_including_column_.empty()) {
    REPName const name(iot_including_column_.c_str());
    auto const column = processor.FindItem(table.Id(), ORVTypes::oAttribute, &name);
    if (!column) {
      processor.DisplaySemantic(REPMessage::IncludingColumnMissing, iot_including_column_.str(),
                                processor.GetObjectDisplayString(table.Type()), table.Name());
      return REPProcessError;
    }
    repora::SetReference(table, ORVTypes::pIncludingColumn, column);
  }
  repora::SetBoolean(table, ORVTypes::pIndexOverflow, GetIndexOverflow());
  if (iot_segment_) {
    auto const* const storage = iot_segment_->Process(&processor, &table, codes::kOverflowStorage);
    if (storage) repora::SetReference(table, ORVTypes::pOracleOverflowStorageRef, storage->Id());
  }
  return iot_add_overflow_ ? iot_add_overflow_->Process(&processor, &table) : REPProcessOK;
}

REPAlterTable::REPAlterTable() = default;

REPAlterTable::~REPAlterTable() = default;

REPProcess_e REPAlterTable::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const table = FindTable(*processor);
  if (!table) return REPProcessError;
  auto const* const name = name_.Get();
  auto result = REPProcessOK;
  if (move_) result = move_->Process(processor, table);
  if (result == REPProcessOK && props_) result = props_->Process(processor, table, name);
  if (result == REPProcessOK && columns_) result = columns_->Process(processor, table, name);
  if (result == REPProcessOK && partitioning_) result = partitioning_->Process(processor, table);
  if (result == REPProcessOK && external_) {
    result = external_->Process(processor, table, true);
    if (result == REPProcessOK) {
      repora::SetInteger(*table, ORVTypes::pOracleDataStorageType, codes::kIndexOrExternalStorage);
      repora::SetInteger(*table, ORVTypes::pDataOrganizationType, codes::kExternal);
    }
  }
  if (result == REPProcessOK && enable_disable_)
    result = enable_disable_->Process(processor, table, name);
  if (result == REPProcessOK && constraint_) result = constraint_->Process(processor, table, name);
  if (result != REPProcessOK) return result;
  if (ref_constraint_) return REPProcessUnsupported;
  if (state_ && modify_ != REPModifyConstr_e::None) {
    auto* const modified = FindModified(*processor);
    // A named constraint that is not known ends the statement silently.
    if (!modified && modify_ == REPModifyConstr_e::Constraint) return REPProcessOK;
    if (modified) {
      result = state_->Process(processor, modified, true);
      if (result != REPProcessOK) return result;
    }
  }
  if (repora::IsGiven(old_constraint_.Get()) && repora::IsGiven(new_constraint_.Get())) {
    result = RenameConstraint(*processor, *table);
    if (result != REPProcessOK) return result;
  }
  if (drop_ == REPDropConstr_e::None) return REPProcessOK;
  processor->DisplayWarning(REPMessage::AlterDropUnsupported,
                            processor->GetObjectDisplayString(ORVTypes::oEntity), table->Name());
  return REPProcessError;
}

// The table, or a placeholder for it; null, reported, when there is neither.
MOXActionSummaryItem* REPAlterTable::FindTable(REPProcessor& processor) const {
  auto const root = processor.GetRoot();
  if (auto* const table = processor.FindItemPtr(root, ORVTypes::oEntity, name_.Get())) return table;
  auto* const placeholder =
      processor.FindSummaryPtrById(processor.FindCreateItem(root, ORVTypes::oEntity, name_.Get()));
  if (placeholder)
    processor.DisplayInformation(REPMessage::PlaceholderTableCreated,
                                 repora::AsWritten(name_.Get()));
  else
    processor.DisplayWarning(REPMessage::AlterTargetMissing,
                             processor.GetObjectDisplayString(ORVTypes::oEntity),
                             repora::AsWritten(name_.Get()));
  return placeholder;
}

// The item of the constraint that MODIFY means, or null.
MOXActionSummaryItem* REPAlterTable::FindModified(REPProcessor& processor) const {
  std::uint32_t id = 0;
  switch (modify_) {
    case REPModifyConstr_e::None: break;
    case REPModifyConstr_e::Constraint: {
      auto const name = repora::QualifiedConstraintName(name_.Get(), old_constraint_.Get());
      id = processor.FindConstraintInConstraintsMap(&name);
      break;
    }
    case REPModifyConstr_e::PrimaryKey: id = processor.FindPKInTableIndexes(name_.Get(), 0); break;
    case REPModifyConstr_e::Unique:
      id = processor.FindMatchInTableIndexes(name_.Get(), constraint_columns_.Get());
      break;
  }
  return id ? processor.FindSummaryPtrById(id) : nullptr;
}

REPProcess_e REPAlterTable::RenameConstraint(REPProcessor& processor,
                                             MOXActionSummaryItem const& table) const {
  auto const* const old_name = old_constraint_.Get();
  auto const* const new_name = new_constraint_.Get();
  auto const fail_missing = [&] {
    processor.DisplayWarning(REPMessage::ConstraintMissing, repora::AsWritten(name_.Get()),
                             repora::AsWritten(old_name));
    return REPProcessError;
  };
  auto const qualified_old = repora::QualifiedConstraintName(name_.Get(), old_name);
  auto const qualified_new = repora::QualifiedConstraintName(name_.Get(), new_name);
  auto const id = processor.FindConstraintInConstraintsMap(&qualified_old);
  if (!id) return fail_missing();
  if (processor.FindConstraintInConstraintsMap(&qualified_new)) {
    processor.DisplayWarning(REPMessage::ConstraintNameUsed, repora::AsWritten(new_name));
    return REPProcessError;
  }
  auto* const constraint = processor.FindSummaryPtrById(id);
  if (!constraint) return REPProcessError;
  auto const type = constraint->Type();
  bool const is_relationship = type == ORVTypes::oRelationship;
  if (!is_relationship && type != ORVTypes::oKeyGroup && type != ORVTypes::oCheckConstraintUsage)
    return REPProcessUnsupported;
  if (!BelongsTo(processor, *constraint, table)) return fail_missing();
  if (is_relationship)
    processor.SetPhysicalNameProp(constraint, new_name);
  else
    processor.SetNameProp(constraint, new_name);
  if (type == ORVTypes::oKeyGroup)
    repora::SetText(*constraint, ORVTypes::pConstraintName, new_name->GetName(false));
  if (auto* const state = processor.FindItemPtr(id, ORVTypes::oOracleConstraintState, old_name))
    processor.RenameItem(state, new_name);
  return processor.RenameItemInConstraintsMap(&qualified_old, &qualified_new);
}
