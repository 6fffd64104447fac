#pragma once

#include <string>

#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/lob_storage.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/object_columns.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;
class REPProcessor;

// [MAPPING TABLE | NOMAPPING] [PCTTHRESHOLD n] [COMPRESS [n] | NOCOMPRESS]
class REPIndexOrgTableClause {
 public:
  void SetMappingTable(REPMapping_e mapping) { mapping_ = mapping; }
  REPMapping_e GetMappingTable() const { return mapping_; }
  void SetPctThreshold(char const* text) { pct_threshold_ = text; }
  char const* GetPctThreshold() const { return pct_threshold_.c_str(); }
  void SetKeyCompressionClause(REPCompressionClause* clause) { key_compression_.Set(clause); }
  REPCompressionClause* GetKeyCompressionClause() const { return key_compression_.Get(); }

  REPProcess_e Process(MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  REPMapping_e mapping_{};
  repora::Text pct_threshold_;
  repora::Owned<REPCompressionClause> key_compression_;
};

// ADD OVERFLOW [segment_attributes] [(PARTITION [segment_attributes], ...)]
class REPAddOverflowClause {
 public:
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }
  // The overflow of the partitions; rendered only.
  void SetSegmentAttributesClauseList(REPSegmentAttributesClauseList* list) {
    partitions_.Set(list);
  }
  REPSegmentAttributesClauseList* GetSegmentAttributesClauseList() const {
    return partitions_.Get();
  }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPSegmentAttributesClauseList> partitions_;
};

namespace repora {

// What a change of the segment beside that of an index-organised table holds: extents to allocate
// and space to give back, both rendered only.
class SideSegmentChange {
 public:
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocateUnusedClause(REPDeallocateUnusedClause* clause) { deallocate_.Set(clause); }
  REPDeallocateUnusedClause* GetDeallocateUnusedClause() const { return deallocate_.Get(); }

 protected:
  std::string ExtentsText() const;

 private:
  Owned<REPAllocExtentClause> allocate_;
  Owned<REPDeallocateUnusedClause> deallocate_;
};

}  // namespace repora

// OVERFLOW [ALLOCATE EXTENT ...] [DEALLOCATE UNUSED ...] | add_overflow
class REPAlterOverflowClause : public repora::SideSegmentChange {
 public:
  void SetAddOverflowClause(REPAddOverflowClause* clause) { add_overflow_.Set(clause); }
  REPAddOverflowClause* GetAddOverflowClause() const { return add_overflow_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPAddOverflowClause> add_overflow_;
};

// MAPPING TABLE {ALLOCATE EXTENT ... | DEALLOCATE UNUSED ...}
class REPAlterMappingTableClause : public repora::SideSegmentChange {
 public:
  std::string AsString() const;
};

// MOVE [ONLINE] [segment_attributes] [COMPRESS [n] | NOCOMPRESS] [index_org_table]
//   [{lob_storage | varray_column_properties} ...] [parallel]
class REPMoveTableClause {
 public:
  void SetParallelClause(REPParallelClause* clause) { parallel_.Set(clause); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }
  void SetCompressionClause(REPCompressionClause* clause) { compression_.Set(clause); }
  REPCompressionClause* GetCompressionClause() const { return compression_.Get(); }
  void SetIndexOrgTableClause(REPIndexOrgTableClause* clause) { index_organised_.Set(clause); }
  REPIndexOrgTableClause* GetIndexOrgTableClause() const { return index_organised_.Get(); }
  // Rendered only, as are varray column properties.
  void SetOnline(bool online) { online_ = online; }
  bool GetOnline() const { return online_; }
  // Both add at the head of their list.
  void AddVarrayColumnProps(REPVarrayColumnProps* properties) { varrays_.AddHead(properties); }
  REPVarrayColumnPropsList const& GetVarrayColumnProps() const { return varrays_; }
  void AddLOBStorage(REPLOBStorage* storage) { lob_storages_.AddHead(storage); }
  REPLOBStorageList const& GetLOBStorages() const { return lob_storages_; }

  // A table that has an index storage keeps it: the new storage item stands beside it then.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPParallelClause> parallel_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPCompressionClause> compression_;
  repora::Owned<REPIndexOrgTableClause> index_organised_;
  bool online_ = false;
  REPVarrayColumnPropsList varrays_;
  REPLOBStorageList lob_storages_;
};
