#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/columns.h"
#include "repora/tables/constraints.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;
class REPExternalTableClause;
class REPParallelClause;
class REPSegmentAttributesClause;
class REPSelect;
class REPTablePartitioningClause;

// CREATE [GLOBAL TEMPORARY] TABLE [owner.]name
//   [(columns, constraints, REF constraints, supplemental logging)]
//   [ON COMMIT {DELETE | PRESERVE} ROWS] [CACHE | NOCACHE] [parallel]
//   [{ENABLE | DISABLE} ROW MOVEMENT] [ROWDEPENDENCIES | NOROWDEPENDENCIES]
//   [enable_disable_clause ...] [ORGANIZATION {HEAP | INDEX | EXTERNAL (external_table)}]
//   [segment attributes] [INCLUDING column] [OVERFLOW [segment attributes]]
//   [COMPRESS [n] | NOCOMPRESS] [MAPPING TABLE | NOMAPPING] [PCTTHRESHOLD n]
//   [CLUSTER name (columns)] [column_properties] [PARTITION BY ...] [MONITORING | NOMONITORING]
//   [[AS] query]
class REPCreateTable final : public REPStatement {
 public:
  REPCreateTable();
  ~REPCreateTable() override;

  void SetTableType(REPTableType_e type) { table_type_ = type; }
  REPTableType_e GetTableType() const { return table_type_; }
  void SetGlobalTemp(bool temporary) { global_temporary_ = temporary; }
  bool GetGlobalTemp() const { return global_temporary_; }
  void SetTableName(REPName* name) { name_.Set(name); }
  REPName* GetTableName() const { return name_.Get(); }
  void SetCommit(REPCommit_e commit) { commit_ = commit; }
  REPCommit_e GetCommit() const { return commit_; }
  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompression() const { return compression_; }
  // The prefix length after COMPRESS.
  void SetCompressionSize(char const* text) { compression_size_ = text; }
  char const* GetCompressionSize() const { return compression_size_.c_str(); }
  void SetOrganization(REPOrganization_e organization) { organization_ = organization; }
  REPOrganization_e GetOrganization() const { return organization_; }
  void SetMapping(REPMapping_e mapping) { mapping_ = mapping; }
  REPMapping_e GetMapping() const { return mapping_; }
  void SetPctThreshold(char const* text) { pct_threshold_ = text; }
  char const* GetPctThreshold() const { return pct_threshold_.c_str(); }
  void SetIndexOverflow(bool overflow) { index_overflow_ = overflow; }
  bool GetIndexOverflow() const { return index_overflow_; }
  void SetIncludingColumn(REPName* column) { including_column_.Set(column); }
  REPName* GetIncludingColumn() const { return including_column_.Get(); }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetRowDepend(REPRowDepend_e depend) { row_dependencies_ = depend; }
  REPRowDepend_e GetRowDepend() const { return row_dependencies_; }
  void SetParallelClause(REPParallelClause* clause) { parallel_.Set(clause); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }
  void SetRowMovement(REPRowMovement_e movement) { row_movement_ = movement; }
  REPRowMovement_e GetRowMovement() const { return row_movement_; }
  void SetMonitor(REPMonitor_e monitor) { monitor_ = monitor; }
  REPMonitor_e GetMonitor() const { return monitor_; }
  void SetSegmentAttributes(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributes() const { return segment_.Get(); }
  void SetOverflowSegmentAttributes(REPSegmentAttributesClause* clause) {
    overflow_segment_.Set(clause);
  }
  REPSegmentAttributesClause* GetOverflowSegmentAttributes() const {
    return overflow_segment_.Get();
  }
  void SetClusterName(REPName* name) { cluster_.Set(name); }
  REPName* GetClusterName() const { return cluster_.Get(); }
  // The columns of this table that stand for the cluster key.
  void SetClusterColumns(REPNameList* columns) { cluster_columns_.Set(columns); }
  REPNameList* GetClusterColumns() const { return cluster_columns_.Get(); }
  void SetPartitioningClause(REPTablePartitioningClause* clause) { partitioning_.Set(clause); }
  REPTablePartitioningClause* GetPartitioningClause() const { return partitioning_.Get(); }
  // Adds at the head of the list: columns are added from the last to the first.
  void AddRelationalColumn(REPRelTableColumn* column) { columns_.AddHead(column); }
  REPRelTableColumnList const& GetRelationalColumns() const { return columns_; }
  // At the head of their lists too.
  void AddOutOfLineConstraint(REPOutOfLineConstraint* constraint) {
    constraints_.AddHead(constraint);
  }
  REPOutOfLineConstraintList const& GetOutOfLineConstraints() const { return constraints_; }
  void AddOutOfLineRefConstraint(REPOutOfLineRefConstraint* constraint) {
    ref_constraints_.AddHead(constraint);
  }
  REPOutOfLineRefConstraintList const& GetOutOfLineRefConstraints() const {
    return ref_constraints_;
  }
  void AddSuppLogProps(REPSuppLogProps* properties) { supplemental_logging_.AddHead(properties); }
  REPSuppLogPropsList const& GetSuppLogProps() const { return supplemental_logging_; }
  void AddColumnProp(REPTableColumnProp* properties) { column_properties_.AddHead(properties); }
  REPTableColumnPropList const& GetColumnProps() const { return column_properties_; }
  void SetExternalTableClause(REPExternalTableClause* clause) { external_.Set(clause); }
  REPExternalTableClause* GetExternalTableClause() const { return external_.Get(); }
  void SetEnableDisableClauseList(REPEnableDisableClauseList* list) { enable_disable_.Set(list); }
  REPEnableDisableClauseList* GetEnableDisableClauseList() const { return enable_disable_.Get(); }
  // The query of CREATE TABLE ... AS, which says what columns the table has.
  void SetSelect(REPSelect* query) { query_.Set(query); }
  REPSelect* GetSelect() const { return query_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e ProcessColumns(REPProcessor* processor, MOXActionSummaryItem& entity) const;
  REPProcess_e ProcessOrganization(REPProcessor* processor, MOXActionSummaryItem& entity) const;
  REPProcess_e ProcessIndexOrganization(REPProcessor* processor,
                                        MOXActionSummaryItem& entity) const;
  REPProcess_e ProcessCluster(REPProcessor* processor, MOXActionSummaryItem& entity) const;
  void ProcessSegment(REPProcessor* processor, MOXActionSummaryItem& entity) const;
  void ProcessCompression(MOXActionSummaryItem& entity) const;
  std::string RelationalTableText() const;
  std::string RelationalPropertiesText() const;

  REPTableType_e table_type_{};
  bool global_temporary_ = false;
  repora::Owned<REPName> name_;
  REPCommit_e commit_{};
  REPCompress_e compression_{};
  repora::Text compression_size_;
  REPOrganization_e organization_{};
  REPMapping_e mapping_{};
  repora::Text pct_threshold_;
  bool index_overflow_ = false;
  repora::Owned<REPName> including_column_;
  REPCache_e cache_{};
  REPRowDepend_e row_dependencies_{};
  repora::Owned<REPParallelClause> parallel_;
  REPRowMovement_e row_movement_{};
  REPMonitor_e monitor_{};
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPSegmentAttributesClause> overflow_segment_;
  repora::Owned<REPName> cluster_;
  repora::Owned<REPNameList> cluster_columns_;
  repora::Owned<REPTablePartitioningClause> partitioning_;
  REPTableColumnPropList column_properties_;
  REPRelTableColumnList columns_;
  REPSuppLogPropsList supplemental_logging_;
  REPOutOfLineConstraintList constraints_;
  REPOutOfLineRefConstraintList ref_constraints_;
  repora::Owned<REPExternalTableClause> external_;
  repora::Owned<REPEnableDisableClauseList> enable_disable_;
  repora::Owned<REPSelect> query_;
};
