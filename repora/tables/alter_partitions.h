#pragma once

#include <cstdint>
#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/lob_storage.h"
#include "repora/storage/partitions.h"
#include "repora/storage/segment_attributes.h"

class MOXActionSummaryItem;
class REPAlterMappingTableClause;
class REPAlterOverflowClause;
class REPProcessor;
class REPUpdateIndexClause;

namespace repora {
struct Partitioning;
}

// What a clause of ALTER TABLE does to the partitions of the table.
enum class REPTablePart_e : int {
  None,
  ModifyDefaultAttributes,
  SetSubpartitionTemplate,
  ModifyPartition,
  ModifySubpartition,
  MovePartition,
  MoveSubpartition,
  AddPartition,
  CoalescePartition,
  DropPartition,
  DropSubpartition,
  RenamePartition,
  RenameSubpartition,
  TruncatePartition,
  TruncateSubpartition,
  SplitPartition,
  SplitSubpartition,
  MergePartitions,
  MergeSubpartitions,
  ExchangePartition,
  ExchangeSubpartition
};
enum class REPUnusableLocal_e : int { None, Unusable, Rebuild };
enum class REPAddDropValues_e : int { None, Add, Drop };
// What becomes of the space of truncated partitions.
enum class REPStorage_e : int { None, Drop, Reuse };
// At a bound for ranges, by values for lists.
enum class REPSplit_e : int { None, At, Values };
enum class REPIndexes_e : int { None, Including, Excluding };
enum class REPValidation_e : int { None, With, Without };

// PARTITION [name] [description]
// One of the partitions that SPLIT and MERGE make. It is rendered only.
class REPPartitionSpec final {
 public:
  virtual std::string AsString() const;

  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  void SetTablePartDesc(REPTablePartDesc* description) { description_.Set(description); }
  REPTablePartDesc* GetTablePartDesc() const { return description_.Get(); }

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPTablePartDesc> description_;
};

namespace repora {

// [physical_attributes] [LOGGING | NOLOGGING] [ALLOCATE EXTENT ...] [DEALLOCATE UNUSED ...]
//   [SHRINK SPACE ...]
// Extents and shrinking are rendered only.
struct PartitionSegment {
  std::string AsString() const;

  Owned<REPPhysicalAttrClause> physical;
  REPLogging_e logging{};
  Owned<REPAllocExtentClause> allocate;
  Owned<REPDeallocateUnusedClause> deallocate;
  REPShrink_e shrink{};
};

}  // namespace repora

// segment [OVERFLOW segment] [COMPRESS [n] | NOCOMPRESS] [{lob | varray} ...]
// What MODIFY PARTITION changes of a partition.
class REPPartitionAttributes final {
 public:
  virtual std::string AsString() const;

  void SetPhysicalAttrClause(REPPhysicalAttrClause* clause) { segment_.physical.Set(clause); }
  REPPhysicalAttrClause* GetPhysicalAttrClause() const { return segment_.physical.Get(); }
  void SetLogging(REPLogging_e logging) { segment_.logging = logging; }
  REPLogging_e GetLogging() const { return segment_.logging; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { segment_.allocate.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return segment_.allocate.Get(); }
  void SetDeallocateUnusedClause(REPDeallocateUnusedClause* clause) {
    segment_.deallocate.Set(clause);
  }
  REPDeallocateUnusedClause* GetDeallocateUnusedClause() const { return segment_.deallocate.Get(); }
  void SetShrink(REPShrink_e shrink) { segment_.shrink = shrink; }
  REPShrink_e GetShrink() const { return segment_.shrink; }
  void SetOverflowPhysicalAttrClause(REPPhysicalAttrClause* clause) {
    overflow_.physical.Set(clause);
  }
  REPPhysicalAttrClause* GetOverflowPhysicalAttrClause() const { return overflow_.physical.Get(); }
  void SetOverflowLogging(REPLogging_e logging) { overflow_.logging = logging; }
  REPLogging_e GetOverflowLogging() const { return overflow_.logging; }
  void SetOverflowAllocExtentClause(REPAllocExtentClause* clause) {
    overflow_.allocate.Set(clause);
  }
  REPAllocExtentClause* GetOverflowAllocExtentClause() const { return overflow_.allocate.Get(); }
  void SetOverflowDeallocateUnusedClause(REPDeallocateUnusedClause* clause) {
    overflow_.deallocate.Set(clause);
  }
  REPDeallocateUnusedClause* GetOverflowDeallocateUnusedClause() const {
    return overflow_.deallocate.Get();
  }
  void SetOverflowShrink(REPShrink_e shrink) { overflow_.shrink = shrink; }
  REPShrink_e GetOverflowShrink() const { return overflow_.shrink; }
  void SetDataCompression(REPCompressionClause* clause) { compression_.Set(clause); }
  REPCompressionClause* GetDataCompression() const { return compression_.Get(); }
  void SetVarrayLOBParametersList(REPVarrayLOBParametersList* list) { lobs_.Set(list); }
  REPVarrayLOBParametersList* GetVarrayLOBParametersList() const { return lobs_.Get(); }

  // partition_type is how the table is partitioned (repora::codes::k...Partitioning); any other
  // number writes nothing.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* partition, long partition_type) const;

 private:
  REPProcess_e ProcessDescription(REPProcessor& processor, MOXActionSummaryItem& table,
                                  MOXActionSummaryItem const& partition) const;
  REPProcess_e ProcessHashPartition(REPProcessor& processor, MOXActionSummaryItem& table,
                                    MOXActionSummaryItem& partition) const;

  repora::PartitionSegment segment_;
  repora::PartitionSegment overflow_;
  repora::Owned<REPCompressionClause> compression_;
  repora::Owned<REPVarrayLOBParametersList> lobs_;
};

// MODIFY DEFAULT ATTRIBUTES [FOR PARTITION name] attributes
// | SET SUBPARTITION TEMPLATE {(template_subpartition, ...) | n}
// | {MODIFY | MOVE | ADD | COALESCE | DROP | RENAME | TRUNCATE | SPLIT | EXCHANGE}
//     {PARTITION | SUBPARTITION} ... [update_indexes] [parallel]
// | MERGE {PARTITIONS | SUBPARTITIONS} ... [update_indexes] [parallel]
// Which of the members count is the operation's. What is moved, merged, split, coalesced or dropped
// the model does not follow; what is truncated or exchanged does not change it.
class REPAlterTablePartitioning {
 public:
  REPAlterTablePartitioning();
  virtual ~REPAlterTablePartitioning();

  virtual std::string AsString() const;

  void SetTablePart(REPTablePart_e operation) { operation_ = operation; }
  REPTablePart_e GetTablePart() const { return operation_; }
  // The partition or subpartition that is changed.
  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  // The other one of a MERGE.
  void SetPartitionName2(REPName* name) { name2_.Set(name); }
  REPName* GetPartitionName2() const { return name2_.Get(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }
  void SetDataCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetDataCompression() const { return compression_; }
  // The prefix length of COMPRESS n.
  void SetDataCompressionSize(char const* text) { compression_size_ = text; }
  char const* GetDataCompressionSize() const { return compression_size_.c_str(); }
  void SetPctThreshold(char const* text) { pct_threshold_ = text; }
  char const* GetPctThreshold() const { return pct_threshold_.c_str(); }
  void SetAlterOverflowClause(REPAlterOverflowClause* clause) { overflow_.Set(clause); }
  REPAlterOverflowClause* GetAlterOverflowClause() const { return overflow_.Get(); }
  void SetAlterMappingTableClause(REPAlterMappingTableClause* clause) {
    mapping_table_.Set(clause);
  }
  REPAlterMappingTableClause* GetAlterMappingTableClause() const { return mapping_table_.Get(); }
  void SetVarrayLOBParametersList(REPVarrayLOBParametersList* list) { lobs_.Set(list); }
  REPVarrayLOBParametersList* GetVarrayLOBParametersList() const { return lobs_.Get(); }
  // The subpartitions of a template, or their number.
  void SetSubPartitionList(REPSubPartitionTemplateSubPartitionList* list) { template_.Set(list); }
  REPSubPartitionTemplateSubPartitionList* GetSubPartitionList() const { return template_.Get(); }
  void SetHashSubPartitionQuantity(char const* text) { template_quantity_ = text; }
  char const* GetHashSubPartitionQuantity() const { return template_quantity_.c_str(); }
  void SetUnusableLocal(REPUnusableLocal_e choice) { unusable_local_ = choice; }
  REPUnusableLocal_e GetUnusableLocal() const { return unusable_local_; }
  void SetAddDropValues(REPAddDropValues_e choice) { add_drop_values_ = choice; }
  REPAddDropValues_e GetAddDropValues() const { return add_drop_values_; }
  // Values that are added or dropped, those of a new partition, or those of a SPLIT.
  void SetListValueClause(REPListValueClause* values) { values_.Set(values); }
  REPListValueClause* GetListValueClause() const { return values_.Get(); }
  // What is added or moved; the second one of a SPLIT.
  void SetSubPartitionSpec1(REPSubPartitionSpec* subpartition) { subpartition1_.Set(subpartition); }
  REPSubPartitionSpec* GetSubPartitionSpec1() const { return subpartition1_.Get(); }
  void SetSubPartitionSpec2(REPSubPartitionSpec* subpartition) { subpartition2_.Set(subpartition); }
  REPSubPartitionSpec* GetSubPartitionSpec2() const { return subpartition2_.Get(); }
  void SetUpdateIndexClause(REPUpdateIndexClause* clause) { update_indexes_.Set(clause); }
  REPUpdateIndexClause* GetUpdateIndexClause() const { return update_indexes_.Get(); }
  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  void SetParallelSize(char const* text) { parallel_size_ = text; }
  char const* GetParallelSize() const { return parallel_size_.c_str(); }
  // COALESCE SUBPARTITION of MODIFY PARTITION.
  void SetCoalesce(bool coalesce) { coalesce_ = coalesce; }
  bool GetCoalesce() const { return coalesce_; }
  void SetPartitionAttributes(REPPartitionAttributes* attributes) { attributes_.Set(attributes); }
  REPPartitionAttributes* GetPartitionAttributes() const { return attributes_.Get(); }
  // Shrinking and the extents are rendered only.
  void SetShrink(REPShrink_e shrink) { shrink_ = shrink; }
  REPShrink_e GetShrink() const { return shrink_; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocateUnusedClause(REPDeallocateUnusedClause* clause) { deallocate_.Set(clause); }
  REPDeallocateUnusedClause* GetDeallocateUnusedClause() const { return deallocate_.Get(); }
  // MAPPING TABLE of MOVE PARTITION.
  void SetMapping(bool mapping) { mapping_ = mapping; }
  bool GetMapping() const { return mapping_; }
  // The description, the bound and the storage of a new partition.
  void SetTablePartDesc(REPTablePartDesc* description) { description_.Set(description); }
  REPTablePartDesc* GetTablePartDesc() const { return description_.Get(); }
  void SetRangeValueClause(REPRangeValueClause* bound) { bound_.Set(bound); }
  REPRangeValueClause* GetRangeValueClause() const { return bound_.Get(); }
  void SetPartitioningStorageClauseList(REPPartitioningStorageClauseList* list) {
    storage_.Set(list);
  }
  REPPartitioningStorageClauseList* GetPartitioningStorageClauseList() const {
    return storage_.Get();
  }
  void SetNewName(REPName* name) { new_name_.Set(name); }
  REPName* GetNewName() const { return new_name_.Get(); }
  void SetStorage(REPStorage_e storage) { truncated_storage_ = storage; }
  REPStorage_e GetStorage() const { return truncated_storage_; }
  void SetSplit(REPSplit_e split) { split_ = split; }
  REPSplit_e GetSplit() const { return split_; }
  // The partitions that SPLIT makes; MERGE makes the first.
  void SetPartitionSpec1(REPPartitionSpec* partition) { partition1_.Set(partition); }
  REPPartitionSpec* GetPartitionSpec1() const { return partition1_.Get(); }
  void SetPartitionSpec2(REPPartitionSpec* partition) { partition2_.Set(partition); }
  REPPartitionSpec* GetPartitionSpec2() const { return partition2_.Get(); }
  // The table of EXCHANGE.
  void SetTableName(REPName* name) { table_name_.Set(name); }
  REPName* GetTableName() const { return table_name_.Get(); }
  void SetIndexes(REPIndexes_e indexes) { indexes_ = indexes; }
  REPIndexes_e GetIndexes() const { return indexes_; }
  void SetValidation(REPValidation_e validation) { validation_ = validation; }
  REPValidation_e GetValidation() const { return validation_; }
  void SetExceptTableName(REPName* name) { exceptions_table_.Set(name); }
  REPName* GetExceptTableName() const { return exceptions_table_.Get(); }

  // Applies the operation to a table. One that does not fit how the table is partitioned, and a
  // partition that is not there, are reported and fail.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;

 protected:
  REPProcess_e ModifyTableDefaultAttrs(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e SetSubpartTemplate(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e ModifyTablePartition(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e ModifyTableSubPartition(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e AddPartition(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e RenamePartition(REPProcessor* processor, MOXActionSummaryItem* table) const;
  REPProcess_e RenameSubPartition(REPProcessor* processor, MOXActionSummaryItem* table) const;

 private:
  REPProcess_e AddSubpartition(REPProcessor& processor, MOXActionSummaryItem& table,
                               MOXActionSummaryItem const& partition, std::int32_t type) const;
  REPProcess_e ChangeValues(MOXActionSummaryItem& partition) const;
  REPProcess_e UpdateIndexes(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string DefaultAttributesText() const;
  std::string ModifyPartitionText() const;
  std::string ModifySubpartitionText() const;
  std::string AddPartitionText() const;
  std::string SplitText() const;
  std::string ExchangeText() const;
  std::string ValuesChangeText() const;
  std::string UpdateTail() const;
  std::string ParallelTail() const;

  REPTablePart_e operation_{};
  repora::Owned<REPName> name_;
  repora::Owned<REPName> name2_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  REPCompress_e compression_{};
  repora::Text compression_size_;
  repora::Text pct_threshold_;
  repora::Owned<REPAlterOverflowClause> overflow_;
  repora::Owned<REPAlterMappingTableClause> mapping_table_;
  repora::Owned<REPVarrayLOBParametersList> lobs_;
  repora::Owned<REPSubPartitionTemplateSubPartitionList> template_;
  repora::Text template_quantity_;
  REPUnusableLocal_e unusable_local_{};
  REPAddDropValues_e add_drop_values_{};
  repora::Owned<REPListValueClause> values_;
  repora::Owned<REPSubPartitionSpec> subpartition1_;
  repora::Owned<REPSubPartitionSpec> subpartition2_;
  repora::Owned<REPUpdateIndexClause> update_indexes_;
  REPParallel_e parallel_{};
  repora::Text parallel_size_;
  bool coalesce_ = false;
  repora::Owned<REPPartitionAttributes> attributes_;
  REPShrink_e shrink_{};
  repora::Owned<REPAllocExtentClause> allocate_;
  repora::Owned<REPDeallocateUnusedClause> deallocate_;
  bool mapping_ = false;
  repora::Owned<REPTablePartDesc> description_;
  repora::Owned<REPRangeValueClause> bound_;
  repora::Owned<REPPartitioningStorageClauseList> storage_;
  repora::Owned<REPName> new_name_;
  REPStorage_e truncated_storage_{};
  REPSplit_e split_{};
  repora::Owned<REPPartitionSpec> partition1_;
  repora::Owned<REPPartitionSpec> partition2_;
  repora::Owned<REPName> table_name_;
  REPIndexes_e indexes_{};
  REPValidation_e validation_{};
  repora::Owned<REPName> exceptions_table_;
};
