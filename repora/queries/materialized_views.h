#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/storage_clause.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;
class REPExternalTableClause;
class REPMaterializedViewRefresh;
class REPProcessor;
class REPSegmentAttributesClause;
class REPSelect;
class REPTableColumnPropList;
class REPTablePartitioningClause;

namespace repora {
class ViewWriter;
}

// ON PREBUILT TABLE and what follows it.
enum class REPPrebuilt_e : int { None, Prebuilt, WithReducedPrecision, WithoutReducedPrecision };
// USING NO INDEX, USING INDEX.
enum class REPUsingIndex_e : int { None, NoIndex, Index };
// {ENABLE | DISABLE} QUERY REWRITE
enum class REPRewrite_e : int { None, Enable, Disable };

// SCOPE FOR (column) IS table
// To which table the references of a column are bound. A model has no place for it.
class REPScopedTableRefConstraint final {
 public:
  virtual std::string AsString() const;

  void SetColumnName(REPName* name) { column_.Set(name); }
  REPName* GetColumnName() const { return column_.Get(); }
  void SetScopeName(REPName* name) { scope_.Set(name); }
  REPName* GetScopeName() const { return scope_.Get(); }

 private:
  repora::Owned<REPName> column_;
  repora::Owned<REPName> scope_;
};

// (SCOPE FOR (column) IS table, ...)
class REPScopedTableRefConstraintList final {
 public:
  virtual std::string AsString() const;

  void AddHead(REPScopedTableRefConstraint* constraint) { constraints_.AddHead(constraint); }
  void AddTail(REPScopedTableRefConstraint* constraint) { constraints_.AddTail(constraint); }
  int GetCount() const { return constraints_.GetCount(); }
  REPScopedTableRefConstraint* GetConstraint(int index) const { return constraints_.At(index); }

 private:
  repora::OwnedList<REPScopedTableRefConstraint> constraints_;
};

// [column_properties] [PARTITION BY ...] [CACHE | NOCACHE] [NOPARALLEL | PARALLEL [degree]]
//   [BUILD {IMMEDIATE | DEFERRED}]
class REPMaterializedViewProps final {
 public:
  REPMaterializedViewProps();
  REPMaterializedViewProps(REPMaterializedViewProps const&) = delete;
  REPMaterializedViewProps& operator=(REPMaterializedViewProps const&) = delete;
  // Not virtual: the class is no base.
  ~REPMaterializedViewProps();

  virtual REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view) const;

  void SetColumnProps(REPTableColumnPropList* list) { columns_.Set(list); }
  REPTableColumnPropList* GetColumnProps() const { return columns_.Get(); }
  void SetPartitioningClause(REPTablePartitioningClause* clause) { partitioning_.Set(clause); }
  REPTablePartitioningClause* GetPartitioningClause() const { return partitioning_.Get(); }
  // CACHE READS is rendered only.
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  void SetParallelSize(char const* text) { parallel_size_ = text; }
  char const* GetParallelSize() const { return parallel_size_.c_str(); }
  void SetBuild(REPBuild_e build) { build_ = build; }
  REPBuild_e GetBuild() const { return build_; }

  std::string AsString() const;

 private:
  repora::Owned<REPTableColumnPropList> columns_;
  repora::Owned<REPTablePartitioningClause> partitioning_;
  REPCache_e cache_{};
  REPParallel_e parallel_{};
  repora::Text parallel_size_;  // the degree
  REPBuild_e build_{};
};

// CREATE MATERIALIZED VIEW [owner.]name [(aliases)] [OF type] [(scoped constraints)]
//   {ON PREBUILT TABLE [{WITH | WITHOUT} REDUCED PRECISION]
//   | [ORGANIZATION {HEAP | INDEX | EXTERNAL external_table}] [segment attributes]
//     [INCLUDING column] [OVERFLOW [segment attributes]] [COMPRESS [n] | NOCOMPRESS]
//     [MAPPING TABLE | NOMAPPING] [PCTTHRESHOLD n] [CLUSTER name (columns)] [properties]}
//   [USING NO INDEX | USING INDEX [TABLESPACE name] [physical attributes]] [refresh] [FOR UPDATE]
//   [{ENABLE | DISABLE} QUERY REWRITE] AS query
// Its query is treated as a view's. One that is mapped column by column also has what a table has
// of storage, and its refresh; one that keeps its SQL has nothing else.
class REPCreateMaterializedView final : public REPStatement {
 public:
  REPCreateMaterializedView();
  ~REPCreateMaterializedView() override;

  void SetViewName(REPName* name) { name_.Set(name); }
  REPName* GetViewName() const { return name_.Get(); }
  // Rendered only.
  void SetOfTypeName(REPName* name) { type_.Set(name); }
  REPName* GetOfTypeName() const { return type_.Get(); }
  void SetScopedConstraintList(REPScopedTableRefConstraintList* list) { scopes_.Set(list); }
  REPScopedTableRefConstraintList* GetScopedConstraintList() const { return scopes_.Get(); }
  void SetViewProps(REPMaterializedViewProps* properties) { properties_.Set(properties); }
  REPMaterializedViewProps* GetViewProps() const { return properties_.Get(); }
  void SetPrebuilt(REPPrebuilt_e prebuilt) { prebuilt_ = prebuilt; }
  REPPrebuilt_e GetPrebuilt() const { return prebuilt_; }
  void SetUsingIndex(REPUsingIndex_e use) { using_index_ = use; }
  REPUsingIndex_e GetUsingIndex() const { return using_index_; }
  // Those of USING INDEX, and its tablespace.
  void SetPhysicalAttrClause(REPPhysicalAttrClause* clause) { index_attributes_.Set(clause); }
  REPPhysicalAttrClause* GetPhysicalAttrClause() const { return index_attributes_.Get(); }
  void SetTablespace(REPName* name) { index_tablespace_.Set(name); }
  REPName* GetTablespace() const { return index_tablespace_.Get(); }
  void SetRefresh(REPMaterializedViewRefresh* refresh) { refresh_.Set(refresh); }
  REPMaterializedViewRefresh* GetRefresh() const { return refresh_.Get(); }
  void SetForUpdate(bool for_update) { for_update_ = for_update; }
  bool GetForUpdate() const { return for_update_; }
  void SetRewrite(REPRewrite_e rewrite) { rewrite_ = rewrite; }
  REPRewrite_e GetRewrite() const { return rewrite_; }
  void SetSelect(REPSelect* query) { query_.Set(query); }
  REPSelect* GetSelect() const { return query_.Get(); }
  void SetColumnNameList(REPNameList* aliases) { aliases_.Set(aliases); }
  REPNameList* GetColumnNameList() const { return aliases_.Get(); }
  // Rendered only.
  void SetExternalTableClause(REPExternalTableClause* clause) { external_.Set(clause); }
  REPExternalTableClause* GetExternalTableClause() const { return external_.Get(); }
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
  // The columns of this view that stand for the cluster key.
  void SetClusterColumns(REPNameList* columns) { cluster_columns_.Set(columns); }
  REPNameList* GetClusterColumns() const { return cluster_columns_.Get(); }
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

  // What was made before a failure stays.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  // The materialized view that is made, and how its properties are written.
  struct Made;

  REPProcess_e ProcessColumns(Made& view) const;
  REPProcess_e ProcessStorage(Made& view) const;
  REPProcess_e ProcessOrganization(Made& view) const;
  REPProcess_e ProcessCluster(Made& view) const;
  void ProcessSegment(Made& view) const;
  void ProcessCompression(Made& view) const;
  void ProcessUsingIndex(Made& view) const;
  std::string PhysicalText() const;

  repora::Owned<REPName> name_;
  repora::Owned<REPName> type_;
  repora::Owned<REPScopedTableRefConstraintList> scopes_;
  repora::Owned<REPMaterializedViewProps> properties_;
  REPPrebuilt_e prebuilt_{};
  REPUsingIndex_e using_index_{};
  repora::Owned<REPPhysicalAttrClause> index_attributes_;
  repora::Owned<REPName> index_tablespace_;
  repora::Owned<REPMaterializedViewRefresh> refresh_;
  bool for_update_ = false;
  REPRewrite_e rewrite_{};
  repora::Owned<REPSelect> query_;
  repora::Owned<REPNameList> aliases_;
  repora::Owned<REPExternalTableClause> external_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPSegmentAttributesClause> overflow_segment_;
  repora::Owned<REPName> cluster_;
  repora::Owned<REPNameList> cluster_columns_;
  REPCompress_e compression_{};
  repora::Text compression_size_;
  REPOrganization_e organization_{};
  REPMapping_e mapping_{};
  repora::Text pct_threshold_;
  bool index_overflow_ = false;
  repora::Owned<REPName> including_column_;
};
