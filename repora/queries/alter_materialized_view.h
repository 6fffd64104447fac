#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/queries/refresh.h"
#include "repora/storage/lob_storage.h"

class MOXActionSummaryItem;
class REPAddOverflowClause;
class REPAllocExtentClause;
class REPAlterTablePartitioning;
class REPDeallocateUnusedClause;
class REPPhysicalAttrClause;
class REPProcessor;
class REPScopedTableRefConstraintList;
class REPSegmentAttributesClause;
enum class REPUsingIndex_e : int;

// What ends ALTER MATERIALIZED VIEW.
enum class REPMViewType_e : int { None, EnableRewrite, DisableRewrite, Compile, ConsiderFresh };
// The rollback segment of a changed refresh: the default one, or a named one.
enum class REPRefreshRollback_e : int { None, DefaultMaster, Master };

// ALTER MATERIALIZED VIEW [owner.]name [USING INDEX] [physical_attributes] [COMPRESS | NOCOMPRESS]
//   [LOB storage, ...] [MODIFY LOB ..., ...] [partitioning] [NOPARALLEL | PARALLEL [degree]]
//   [LOGGING | NOLOGGING] [ALLOCATE EXTENT ...] [CACHE | NOCACHE] [SHRINK SPACE ...]
//   [PCTTHRESHOLD n] [INCLUDING column] [OVERFLOW] [segment_attributes] [ADD OVERFLOW ...]
//   [COALESCE] [DEALLOCATE UNUSED ...] [USING INDEX physical_attributes]
//   [MODIFY (SCOPE FOR ...)]
//   [REFRESH [options] [USING [[DEFAULT] MASTER ROLLBACK SEGMENT [name]] ...]]
//   [{ENABLE | DISABLE} QUERY REWRITE | COMPILE | CONSIDER FRESH]
class REPAlterMaterializedView final : public REPStatement, public repora::RefreshOptions {
 public:
  REPAlterMaterializedView();
  ~REPAlterMaterializedView() override;

  void SetViewName(REPName* name) { name_.Set(name); }
  REPName* GetViewName() const { return name_.Get(); }
  // Rendered only, as are compression, shrinking, coalescing, extents, partitioning, segment
  // attributes, scoped constraints and the physical attributes of USING INDEX.
  void SetViewType(REPMViewType_e kind) { kind_ = kind; }
  REPMViewType_e GetViewType() const { return kind_; }
  // Whether there is a REFRESH; without it the options of a refresh have no effect.
  void SetRefreshPresent(bool present) { refresh_ = present; }
  bool GetRefreshPresent() const { return refresh_; }
  void SetRefreshRollback(REPRefreshRollback_e rollback) { rollback_ = rollback; }
  REPRefreshRollback_e GetRefreshRollback() const { return rollback_; }
  void SetRollbackSegment(REPName* name) { rollback_segment_.Set(name); }
  REPName* GetRollbackSegment() const { return rollback_segment_.Get(); }
  void SetUsingIndex(REPUsingIndex_e use) { using_index_ = use; }
  REPUsingIndex_e GetUsingIndex() const { return using_index_; }
  void SetUsingPhysicalAttrClause(REPPhysicalAttrClause* clause) { index_attributes_.Set(clause); }
  REPPhysicalAttrClause* GetUsingPhysicalAttrClause() const { return index_attributes_.Get(); }
  void SetScopedConstraintList(REPScopedTableRefConstraintList* list) { scopes_.Set(list); }
  REPScopedTableRefConstraintList* GetScopedConstraintList() const { return scopes_.Get(); }
  void SetAlterTablePartitioning(REPAlterTablePartitioning* clause) { partitioning_.Set(clause); }
  REPAlterTablePartitioning* GetAlterTablePartitioning() const { return partitioning_.Get(); }
  void SetPhysicalAttrClause(REPPhysicalAttrClause* clause) { physical_.Set(clause); }
  REPPhysicalAttrClause* GetPhysicalAttrClause() const { return physical_.Get(); }
  // Both add at the head of their list.
  void AddLOBStorage(REPLOBStorage* storage) { lobs_.AddHead(storage); }
  REPLOBStorageList const& GetLOBStorages() const { return lobs_; }
  void AddModifyLOBStorage(REPModifyLOBStorage* storage) { modified_lobs_.AddHead(storage); }
  REPModifyLOBStorageList const& GetModifyLOBStorages() const { return modified_lobs_; }
  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompression() const { return compression_; }
  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  void SetParallelSize(char const* text) { parallel_size_ = text; }
  char const* GetParallelSize() const { return parallel_size_.c_str(); }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocateUnusedClause(REPDeallocateUnusedClause* clause) { deallocate_.Set(clause); }
  REPDeallocateUnusedClause* GetDeallocateUnusedClause() const { return deallocate_.Get(); }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetShrink(REPShrink_e shrink) { shrink_ = shrink; }
  REPShrink_e GetShrink() const { return shrink_; }
  void SetCoalesce(bool coalesce) { coalesce_ = coalesce; }
  bool GetCoalesce() const { return coalesce_; }
  void SetPctThreshold(char const* text) { pct_threshold_ = text; }
  char const* GetPctThreshold() const { return pct_threshold_.c_str(); }
  void SetIndexOverflow(bool overflow) { index_overflow_ = overflow; }
  bool GetIndexOverflow() const { return index_overflow_; }
  void SetIncludingColumn(REPName* column) { including_column_.Set(column); }
  REPName* GetIncludingColumn() const { return including_column_.Get(); }
  void SetAddOverflowClause(REPAddOverflowClause* clause) { add_overflow_.Set(clause); }
  REPAddOverflowClause* GetAddOverflowClause() const { return add_overflow_.Get(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }

  // REPProcessError, with a message, when the model has no such materialized view.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e ProcessLobs(REPProcessor* processor, MOXActionSummaryItem& view) const;
  REPProcess_e ProcessIndexOrganization(REPProcessor* processor, MOXActionSummaryItem& view) const;
  void ProcessRefresh(REPProcessor& processor, MOXActionSummaryItem& view) const;
  std::string RollbackText() const;

  repora::Owned<REPName> name_;
  REPMViewType_e kind_{};
  bool refresh_ = false;
  REPRefreshRollback_e rollback_{};
  repora::Owned<REPName> rollback_segment_;
  REPUsingIndex_e using_index_{};
  repora::Owned<REPPhysicalAttrClause> index_attributes_;
  repora::Owned<REPScopedTableRefConstraintList> scopes_;
  repora::Owned<REPAlterTablePartitioning> partitioning_;
  repora::Owned<REPPhysicalAttrClause> physical_;
  REPLOBStorageList lobs_;
  REPModifyLOBStorageList modified_lobs_;
  REPCompress_e compression_{};
  REPParallel_e parallel_{};
  repora::Text parallel_size_;  // the degree
  REPLogging_e logging_{};
  repora::Owned<REPAllocExtentClause> allocate_;
  repora::Owned<REPDeallocateUnusedClause> deallocate_;
  REPCache_e cache_{};
  REPShrink_e shrink_{};
  bool coalesce_ = false;
  repora::Text pct_threshold_;
  bool index_overflow_ = false;
  repora::Owned<REPName> including_column_;
  repora::Owned<REPAddOverflowClause> add_overflow_;
  repora::Owned<REPSegmentAttributesClause> segment_;
};
