#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;
class REPAddOverflowClause;
class REPAllocExtentClause;
class REPAlterColumnClauses;
class REPAlterTablePartitioning;
class REPCompressionClause;
class REPConstraintState;
class REPDeallocateUnusedClause;
class REPEnableDisableClauseList;
class REPExternalTableClause;
class REPIndexOrgTableClause;
class REPMoveTableClause;
class REPOutOfLineConstraint;
class REPOutOfLineRefConstraint;
class REPParallelClause;
class REPProcessor;
class REPSegmentAttributesClause;
class REPSuppLogPropsList;
class REPTableColumnPropList;
enum class REPKeepDrop_e : int;
enum class REPSuppLog_e : int;

enum class REPModifyConstr_e : int { None, Constraint, PrimaryKey, Unique };
enum class REPDropConstr_e : int { None, PrimaryKey, Unique, Constraint };
// UPGRADE and what follows it.
enum class REPUpgrade_e : int { None, Upgrade, IncludingData, NotIncludingData };
enum class REPRecBlock_e : int { None, Minimize, NoMinimize };
// Which change of an index-organised table the clause holds.
enum class REPIOT_e : int { None, Coalesce, IndexOrganized, Overflow, AddOverflow, MappingTable };

// [COMPRESS [n] | NOCOMPRESS] [{ADD | DROP} supplemental_logging, ...] [ALLOCATE EXTENT ...]
//   [DEALLOCATE UNUSED ...] [SHRINK SPACE [COMPACT] [CASCADE]] [CACHE | NOCACHE]
//   [UPGRADE [[NOT] INCLUDING DATA] [column_properties]]
//   [{MINIMIZE | NOMINIMIZE} RECORDS_PER_BLOCK] [parallel] [{ENABLE | DISABLE} ROW MOVEMENT]
//   [RENAME TO table] [segment_attributes]
//   [COALESCE] [index_org_table] [INCLUDING column] [OVERFLOW | MAPPING TABLE]
//   [segment_attributes] [ALLOCATE EXTENT ...] [DEALLOCATE UNUSED ...] [add_overflow]
class REPAlterTableProps {
 public:
  REPAlterTableProps();
  ~REPAlterTableProps();

  void SetCompressionClause(REPCompressionClause* clause) { compression_.Set(clause); }
  REPCompressionClause* GetCompressionClause() const { return compression_.Get(); }
  void SetSuppLogging(REPSuppLog_e mode) { supplemental_mode_ = mode; }
  REPSuppLog_e GetSuppLogging() const { return supplemental_mode_; }
  void SetSuppLogPropsList(REPSuppLogPropsList* list) { supplemental_logging_.Set(list); }
  REPSuppLogPropsList* GetSuppLogPropsList() const { return supplemental_logging_.Get(); }
  // Extents, shrinking, upgrading and records per block are rendered only.
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocateUnusedClause(REPDeallocateUnusedClause* clause) { deallocate_.Set(clause); }
  REPDeallocateUnusedClause* GetDeallocateUnusedClause() const { return deallocate_.Get(); }
  void SetShrink(REPShrink_e shrink) { shrink_ = shrink; }
  REPShrink_e GetShrink() const { return shrink_; }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetUpgrade(REPUpgrade_e upgrade) { upgrade_ = upgrade; }
  REPUpgrade_e GetUpgrade() const { return upgrade_; }
  // How the columns of an upgraded table are stored.
  void SetUpgradeColumns(REPTableColumnPropList* list) { upgrade_columns_.Set(list); }
  REPTableColumnPropList* GetUpgradeColumns() const { return upgrade_columns_.Get(); }
  void SetRecBlock(REPRecBlock_e records) { records_per_block_ = records; }
  REPRecBlock_e GetRecBlock() const { return records_per_block_; }
  void SetParallelClause(REPParallelClause* clause) { parallel_.Set(clause); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }
  void SetRowMovement(REPRowMovement_e movement) { row_movement_ = movement; }
  REPRowMovement_e GetRowMovement() const { return row_movement_; }
  // The table's name after RENAME TO.
  void SetNewTableName(REPName* name) { new_name_.Set(name); }
  REPName* GetNewTableName() const { return new_name_.Get(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }
  // The members below say what the change of an index-organised table is; without this one they
  // write nothing.
  void SetIOT(REPIOT_e iot) { iot_ = iot; }
  REPIOT_e GetIOT() const { return iot_; }
  bool GetIndexOverflow() const {
    return iot_ == REPIOT_e::Overflow || iot_ == REPIOT_e::AddOverflow;
  }
  void SetIOTIndexOrgTableClause(REPIndexOrgTableClause* clause) { iot_properties_.Set(clause); }
  REPIndexOrgTableClause* GetIOTIndexOrgTableClause() const { return iot_properties_.Get(); }
  void SetIOTCoalesce(bool coalesce) { iot_coalesce_ = coalesce; }
  bool GetIOTCoalesce() const { return iot_coalesce_; }
  void SetIOTAllocExtentClause(REPAllocExtentClause* clause) { iot_allocate_.Set(clause); }
  REPAllocExtentClause* GetIOTAllocExtentClause() const { return iot_allocate_.Get(); }
  void SetIOTDeallocateUnusedClause(REPDeallocateUnusedClause* clause) {
    iot_deallocate_.Set(clause);
  }
  REPDeallocateUnusedClause* GetIOTDeallocateUnusedClause() const { return iot_deallocate_.Get(); }
  void SetIOTIncludingCol(char const* text) { iot_including_column_ = text; }
  char const* GetIOTIncludingCol() const { return iot_including_column_.c_str(); }
  // Those of OVERFLOW.
  void SetIOTSegmentAttributesClause(REPSegmentAttributesClause* clause) {
    iot_segment_.Set(clause);
  }
  REPSegmentAttributesClause* GetIOTSegmentAttributesClause() const { return iot_segment_.Get(); }
  void SetIOTAddOverflowClause(REPAddOverflowClause* clause) { iot_add_overflow_.Set(clause); }
  REPAddOverflowClause* GetIOTAddOverflowClause() const { return iot_add_overflow_.Get(); }

  // table_name is the name the table has before a RENAME TO.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessRename(REPProcessor& processor, MOXActionSummaryItem& table,
                             REPName const* table_name) const;
  REPProcess_e ProcessIndexOrganization(REPProcessor& processor, MOXActionSummaryItem& table) const;
  std::string IndexOrganizationText() const;

  repora::Owned<REPCompressionClause> compression_;
  REPSuppLog_e supplemental_mode_{};
  repora::Owned<REPSuppLogPropsList> supplemental_logging_;
  repora::Owned<REPAllocExtentClause> allocate_;
  repora::Owned<REPDeallocateUnusedClause> deallocate_;
  REPShrink_e shrink_{};
  REPCache_e cache_{};
  REPUpgrade_e upgrade_{};
  repora::Owned<REPTableColumnPropList> upgrade_columns_;
  REPRecBlock_e records_per_block_{};
  repora::Owned<REPParallelClause> parallel_;
  REPRowMovement_e row_movement_{};
  repora::Owned<REPName> new_name_;
  repora::Owned<REPIndexOrgTableClause> iot_properties_;
  REPIOT_e iot_{};
  bool iot_coalesce_ = false;
  repora::Owned<REPAllocExtentClause> iot_allocate_;
  repora::Owned<REPDeallocateUnusedClause> iot_deallocate_;
  repora::Text iot_including_column_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPSegmentAttributesClause> iot_segment_;
  repora::Owned<REPAddOverflowClause> iot_add_overflow_;
};

// ALTER TABLE [owner.]name [move] [properties] [column_clauses] [ADD {constraint | ref_constraint}]
//   [RENAME CONSTRAINT old TO new]
//   [MODIFY {PRIMARY KEY | UNIQUE (column, ...) | CONSTRAINT name} constraint_state]
//   [DROP {PRIMARY KEY | UNIQUE (column, ...) | CONSTRAINT name} [CASCADE] [{KEEP | DROP} INDEX]]
//   [partitioning] [external_table] [enable_disable ...]
class REPAlterTable final : public REPStatement {
 public:
  REPAlterTable();
  ~REPAlterTable() override;

  void SetTableName(REPName* name) { name_.Set(name); }
  REPName* GetTableName() const { return name_.Get(); }
  void SetAlterTableProps(REPAlterTableProps* props) { props_.Set(props); }
  REPAlterTableProps* GetAlterTableProps() const { return props_.Get(); }
  void SetAlterColumnClauses(REPAlterColumnClauses* clauses) { columns_.Set(clauses); }
  REPAlterColumnClauses* GetAlterColumnClauses() const { return columns_.Get(); }
  void SetAlterTablePartitioning(REPAlterTablePartitioning* clause) { partitioning_.Set(clause); }
  REPAlterTablePartitioning* GetAlterTablePartitioning() const { return partitioning_.Get(); }
  void SetExternalTableClause(REPExternalTableClause* clause) { external_.Set(clause); }
  REPExternalTableClause* GetExternalTableClause() const { return external_.Get(); }
  void SetMoveTableClause(REPMoveTableClause* clause) { move_.Set(clause); }
  REPMoveTableClause* GetMoveTableClause() const { return move_.Get(); }
  void SetEnableDisableClauseList(REPEnableDisableClauseList* list) { enable_disable_.Set(list); }
  REPEnableDisableClauseList* GetEnableDisableClauseList() const { return enable_disable_.Get(); }
  // The constraint of ADD.
  void SetOutOfLineConstraint(REPOutOfLineConstraint* constraint) { constraint_.Set(constraint); }
  REPOutOfLineConstraint* GetOutOfLineConstraint() const { return constraint_.Get(); }
  void SetOutOfLineRefConstraint(REPOutOfLineRefConstraint* constraint) {
    ref_constraint_.Set(constraint);
  }
  REPOutOfLineRefConstraint* GetOutOfLineRefConstraint() const { return ref_constraint_.Get(); }
  // The constraint of RENAME, MODIFY and DROP CONSTRAINT.
  void SetConstraintOldName(REPName* name) { old_constraint_.Set(name); }
  REPName* GetConstraintOldName() const { return old_constraint_.Get(); }
  // Its name after RENAME CONSTRAINT.
  void SetConstraintNewName(REPName* name) { new_constraint_.Set(name); }
  REPName* GetConstraintNewName() const { return new_constraint_.Get(); }
  void SetConstraintState(REPConstraintState* state) { state_.Set(state); }
  REPConstraintState* GetConstraintState() const { return state_.Get(); }
  // The columns of MODIFY and DROP UNIQUE.
  void SetConstraintColumnList(REPNameList* columns) { constraint_columns_.Set(columns); }
  REPNameList* GetConstraintColumnList() const { return constraint_columns_.Get(); }
  void SetModifyConstraint(REPModifyConstr_e modify) { modify_ = modify; }
  REPModifyConstr_e GetModifyConstraint() const { return modify_; }
  void SetDropConstraint(REPDropConstr_e drop) { drop_ = drop; }
  REPDropConstr_e GetDropConstraint() const { return drop_; }
  // What becomes of the index of a dropped constraint; rendered only, as is CASCADE.
  void SetKeepDrop(REPKeepDrop_e keep_drop) { keep_drop_ = keep_drop; }
  REPKeepDrop_e GetKeepDrop() const { return keep_drop_; }
  void SetCascade(bool cascade) { cascade_ = cascade; }
  bool GetCascade() const { return cascade_; }

  // A table that is not known gets a placeholder. The first clause that fails ends the statement;
  // what was done before it stays.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  MOXActionSummaryItem* FindTable(REPProcessor& processor) const;
  MOXActionSummaryItem* FindModified(REPProcessor& processor) const;
  REPProcess_e RenameConstraint(REPProcessor& processor, MOXActionSummaryItem const& table) const;
  std::string ConstraintText(REPModifyConstr_e kind) const;

  repora::Owned<REPName> name_;
  repora::Owned<REPAlterTableProps> props_;
  repora::Owned<REPAlterColumnClauses> columns_;
  repora::Owned<REPAlterTablePartitioning> partitioning_;
  repora::Owned<REPExternalTableClause> external_;
  repora::Owned<REPMoveTableClause> move_;
  repora::Owned<REPEnableDisableClauseList> enable_disable_;
  repora::Owned<REPOutOfLineConstraint> constraint_;
  repora::Owned<REPOutOfLineRefConstraint> ref_constraint_;
  repora::Owned<REPName> old_constraint_;
  repora::Owned<REPName> new_constraint_;
  repora::Owned<REPConstraintState> state_;
  repora::Owned<REPNameList> constraint_columns_;
  REPModifyConstr_e modify_{};
  REPDropConstr_e drop_{};
  REPKeepDrop_e keep_drop_{};
  bool cascade_ = false;
};
