#pragma once

#include <string>
#include <utility>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/model/ids.h"
#include "repora/storage/extents.h"
#include "repora/storage/segment_attributes.h"

class MOXActionSummaryItem;
class REPProcessor;

// What ALTER INDEX does to a partition.
enum class REPAlterIndex_e : int {
  None,
  ModifyDefaultAttributes,
  AddPartition,
  CoalescePartition,
  ModifyPartition,
  RenamePartition,
  DropPartition,
  SplitPartition,
  ModifySubpartition,
  RenameSubpartition
};

namespace repora {

// What an index, its rebuilding and one of its partitions have in common.
class IndexOptions {
 public:
  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  // The degree of PARALLEL.
  void SetParallelSize(char const* text) { parallel_size_ = text; }
  char const* GetParallelSize() const { return parallel_size_.c_str(); }
  // Filled in place.
  REPPhysicalAttrClause* GetPhysicalAttr() { return &physical_; }
  REPPhysicalAttrClause const* GetPhysicalAttr() const { return &physical_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  // The text of PARAMETERS, without its quotes.
  void SetParameters(char const* text) { parameters_ = text; }
  char const* GetParameters() const { return parameters_.c_str(); }

 protected:
  // NOPARALLEL or PARALLEL [n]; either may have the size.
  std::string ParallelText() const;
  // PARAMETERS('text'); empty without a text.
  std::string ParametersText() const;
  // Writes the logging choice on a storage item.
  void WriteLogging(MOXActionSummaryItem& storage) const;

  REPParallel_e parallel_{};
  Text parallel_size_;
  REPPhysicalAttrClause physical_;
  REPLogging_e logging_{};
  Text parameters_;
};

// What an index and one of its partitions have in common: changes of the segment, and what is done
// to the whole.
class IndexChanges : public IndexOptions {
 public:
  void SetPctFree(int percent) { physical_.SetPctFree(percent); }
  void SetPctFree(char const* text) { physical_.SetPctFree(text); }
  void SetPctUsed(int percent) { physical_.SetPctUsed(percent); }
  void SetPctUsed(char const* text) { physical_.SetPctUsed(text); }
  void SetIniTrans(int count) { physical_.SetIniTrans(count); }
  void SetIniTrans(char const* text) { physical_.SetIniTrans(text); }
  void SetStorage(REPStorageClause storage) { physical_.SetStorageClause(std::move(storage)); }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocate(bool deallocate) { deallocate_ = deallocate; }
  bool GetDeallocate() const { return deallocate_; }
  // The size of KEEP.
  void SetDeallocateSize(REPSizeClause size) { deallocate_size_ = std::move(size); }
  REPSizeClause GetDeallocateSize() const { return deallocate_size_; }
  void SetUnusable(bool unusable) { unusable_ = unusable; }
  bool GetUnusable() const { return unusable_; }
  void SetCoalesce(bool coalesce) { coalesce_ = coalesce; }
  bool GetCoalesce() const { return coalesce_; }
  // UPDATE BLOCK REFERENCES
  void SetUpdateReferences(bool update) { update_references_ = update; }
  bool GetUpdateReferences() const { return update_references_; }
  // The name after RENAME.
  void SetNewName(REPName* name) { new_name_.Set(name); }
  REPName* GetNewName() const { return new_name_.Get(); }

 protected:
  // DEALLOCATE UNUSED [KEEP size]; empty when it is not set.
  std::string DeallocateText() const;

  repora::Owned<REPAllocExtentClause> allocate_;
  bool deallocate_ = false;
  REPSizeClause deallocate_size_;
  bool unusable_ = false;
  bool coalesce_ = false;
  bool update_references_ = false;
  repora::Owned<REPName> new_name_;
};

}  // namespace repora

// MODIFY DEFAULT ATTRIBUTES [FOR PARTITION name] segment_attributes
// | ADD PARTITION [name] [TABLESPACE name] [parallel]
// | COALESCE PARTITION [parallel]
// | MODIFY PARTITION name {physical_attributes | LOGGING | COMPRESS ... | DEALLOCATE UNUSED ... |
//     ALLOCATE EXTENT ... | PARAMETERS ('text') | COALESCE | UPDATE BLOCK REFERENCES | UNUSABLE}...
// | RENAME {PARTITION | SUBPARTITION} name TO name
// | DROP PARTITION name
// | SPLIT PARTITION name AT (value, ...) [INTO (PARTITION ..., PARTITION ...)] [parallel]
// | MODIFY SUBPARTITION name {UNUSABLE | DEALLOCATE UNUSED ... | ALLOCATE EXTENT ...}
class REPAlterIndexPartition : public repora::IndexChanges {
 public:
  void SetAlterIndex(REPAlterIndex_e operation) { operation_ = operation; }
  REPAlterIndex_e GetAlterIndex() const { return operation_; }
  void SetPartition(REPName* name) { partition_.Set(name); }
  REPName* GetPartition() const { return partition_.Get(); }
  void SetSubpartition(REPName* name) { subpartition_.Set(name); }
  REPName* GetSubpartition() const { return subpartition_.Get(); }
  void SetTablespace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespace() const { return tablespace_.Get(); }
  // The bound of a split, as the script wrote it.
  void SetValues(char const* text) { values_ = text; }
  char const* GetValues() const { return values_.c_str(); }
  // The partitions of a split are given. What belongs to the first of them, compression and segment
  // attributes, is that of the partition in the operations that modify.
  void SetInto(bool into) { into_ = into; }
  bool GetInto() const { return into_; }
  void SetIntoName1(REPName* name) { targets_[0].name.Set(name); }
  REPName* GetIntoName1() const { return targets_[0].name.Get(); }
  void SetIntoName2(REPName* name) { targets_[1].name.Set(name); }
  REPName* GetIntoName2() const { return targets_[1].name.Get(); }
  void SetCompression1(REPCompress_e compression) { targets_[0].compression = compression; }
  REPCompress_e GetCompression1() const { return targets_[0].compression; }
  void SetCompression2(REPCompress_e compression) { targets_[1].compression = compression; }
  REPCompress_e GetCompression2() const { return targets_[1].compression; }
  void SetCompressionSize1(char const* text) { targets_[0].compression_size = text; }
  char const* GetCompressionSize1() const { return targets_[0].compression_size.c_str(); }
  void SetCompressionSize2(char const* text) { targets_[1].compression_size = text; }
  char const* GetCompressionSize2() const { return targets_[1].compression_size.c_str(); }
  void SetSegmentAttributes1(REPSegmentAttributesClause* clause) {
    targets_[0].segment.Set(clause);
  }
  REPSegmentAttributesClause* GetSegmentAttributes1() const { return targets_[0].segment.Get(); }
  void SetSegmentAttributes2(REPSegmentAttributesClause* clause) {
    targets_[1].segment.Set(clause);
  }
  REPSegmentAttributesClause* GetSegmentAttributes2() const { return targets_[1].segment.Get(); }

  // The index is a key group or a cluster index. What the model cannot follow is reported and is an
  // error; a partition is looked up by its name among those of all tables and indexes.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* index) const;
  // Empty without an operation.
  std::string AsString() const;

 private:
  struct Target {
    std::string AsString() const;  // with a leading blank before each part

    repora::Owned<REPName> name;
    REPCompress_e compression{};
    repora::Text compression_size;
    repora::Owned<REPSegmentAttributesClause> segment;
  };

  REPProcess_e AddPartition(REPProcessor& processor, MOXActionSummaryItem const& index) const;
  REPProcess_e Modify(REPProcessor& processor, MOXId type, REPName const* name) const;
  REPProcess_e Rename(REPProcessor& processor, MOXId type, REPName const* name) const;
  std::string ModifyPartitionText() const;
  std::string SplitText() const;

  REPAlterIndex_e operation_{};
  repora::Owned<REPName> partition_;
  repora::Owned<REPName> subpartition_;
  repora::Owned<REPName> tablespace_;
  repora::Text values_;
  bool into_ = false;
  Target targets_[2];
};
