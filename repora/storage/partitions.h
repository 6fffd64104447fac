#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/lob_storage.h"
#include "repora/storage/partition_values.h"
#include "repora/storage/partitioning_storage.h"
#include "repora/storage/segment_attributes.h"
#include "repora/storage/subpartitions.h"
#include "repora/tables/object_columns.h"

class MOXActionSummaryItem;
class REPProcessor;

// How a table is partitioned. Composite: by ranges, and each of them by a hash or by lists.
enum class REPPartition_e : int { None, Range, Hash, List, Composite };

// Everywhere below, column_owner is the item whose columns the clause names: the table, the
// materialized view, or the master table of a log.

// [segment_attributes] [COMPRESS [n] | NOCOMPRESS] [OVERFLOW [segment_attributes]]
//   [lob_storage ...] [varray_properties ...] [partition_level]
class REPTablePartDesc {
 public:
  void SetSegAttributes(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegAttributes() const { return segment_.Get(); }
  void SetOverflow(bool overflow) { overflow_ = overflow; }
  bool GetOverflow() const { return overflow_; }
  void SetOverflowSegAttributes(REPSegmentAttributesClause* clause) {
    overflow_segment_.Set(clause);
  }
  REPSegmentAttributesClause* GetOverflowSegAttributes() const { return overflow_segment_.Get(); }
  // Both add at the head of their lists: from the last to the first.
  void AddLOBStorage(REPLOBStorage* storage) { lobs_.AddHead(storage); }
  REPLOBStorageList const& GetLOBStorages() const { return lobs_; }
  // Varrays are rendered only.
  void AddColProps(REPVarrayColumnProps* properties) { varrays_.AddHead(properties); }
  REPVarrayColumnPropsList const& GetColProps() const { return varrays_; }
  void SetCompress(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompress() const { return compression_; }
  // The prefix length of COMPRESS n.
  void SetCompressValue(char const* text) { compression_value_ = text; }
  char const* GetCompressValue() const { return compression_value_.c_str(); }
  void SetPartitionLevel(REPPartitionLevel* level) { level_.Set(level); }
  REPPartitionLevel* GetPartitionLevel() const { return level_.Get(); }

  // Adds the description of a partition to it, also when nothing is given.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partition,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPSegmentAttributesClause> segment_;
  bool overflow_ = false;
  repora::Owned<REPSegmentAttributesClause> overflow_segment_;
  REPLOBStorageList lobs_;
  REPVarrayColumnPropsList varrays_;
  REPCompress_e compression_{};
  repora::Text compression_value_;
  repora::Owned<REPPartitionLevel> level_;
};

// PARTITION [name] [VALUES LESS THAN (...)] [description]
class REPRangePartitioning {
 public:
  // An empty name counts as none, here and in the other kinds of partitions.
  void SetPartition(REPName* name) { name_.Set(name); }
  REPName* GetPartition() const { return name_.Get(); }
  void SetRangeClause(REPRangeValueClause* values) { values_.Set(values); }
  REPRangeValueClause* GetRangeClause() const { return values_.Get(); }
  void SetTablePartDecs(REPTablePartDesc* description) { description_.Set(description); }
  REPTablePartDesc* GetTablePartDecs() const { return description_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPRangeValueClause> values_;
  repora::Owned<REPTablePartDesc> description_;
};

// (range_partition, ...)
class REPRangePartitioningList : public repora::ClauseList<REPRangePartitioning> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;
};

// PARTITION [name] [VALUES (...)] [description]
class REPListPartitioning {
 public:
  void SetPartition(REPName* name) { name_.Set(name); }
  REPName* GetPartition() const { return name_.Get(); }
  void SetListClause(REPListValueClause* values) { values_.Set(values); }
  REPListValueClause* GetListClause() const { return values_.Get(); }
  void SetTablePartDesc(REPTablePartDesc* description) { description_.Set(description); }
  REPTablePartDesc* GetTablePartDesc() const { return description_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPListValueClause> values_;
  repora::Owned<REPTablePartDesc> description_;
};

// (list_partition, ...)
class REPListPartitioningList : public repora::ClauseList<REPListPartitioning> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;
};

// PARTITION [name] [partitioning_storage]
class REPIndividualHashPartition {
 public:
  void SetName(REPName* name) { name_.Set(name); }
  REPName* GetName() const { return name_.Get(); }
  void SetStorage(REPPartitioningStorageClauseList* storage) { storage_.Set(storage); }
  REPPartitioningStorageClauseList* GetStorage() const { return storage_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPPartitioningStorageClauseList> storage_;
};

// (hash_partition, ...)
class REPIndividualHashPartitionList : public repora::ClauseList<REPIndividualHashPartition> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  // "()" for an empty list.
  std::string AsString() const;
};

// PARTITIONS n [STORE IN (tablespace, ...)] [OVERFLOW STORE IN (tablespace, ...)]
class REPHashPartitionsByQuantity {
 public:
  void SetQuantity(char const* text) { quantity_ = text; }
  char const* GetQuantity() const { return quantity_.c_str(); }
  void SetTablespaces(REPNameList* names) { tablespaces_.Set(names); }
  REPNameList* GetTablespaces() const { return tablespaces_.Get(); }
  void SetOverflowTablespaces(REPNameList* names) { overflow_tablespaces_.Set(names); }
  REPNameList* GetOverflowTablespaces() const { return overflow_tablespaces_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning) const;
  std::string AsString() const;

 private:
  repora::Text quantity_;
  repora::Owned<REPNameList> tablespaces_;
  repora::Owned<REPNameList> overflow_tablespaces_;
};

// PARTITION BY RANGE (column, ...) [subpartitioning] (range_partition, ...)
// | PARTITION BY LIST (column) (list_partition, ...)
// | PARTITION BY HASH (column, ...) {(hash_partition, ...) | hash_partitions_by_quantity}
class REPTablePartitioningClause final {
 public:
  virtual std::string AsString() const;

  void SetPartitionType(REPPartition_e type) { type_ = type; }
  REPPartition_e GetPartitionType() const { return type_; }
  // Writes on an item how it is partitioned; an error for no method and for an unknown one.
  REPProcess_e SetPartitionType(MOXActionSummaryItem* item) const;
  // The key of all methods but LIST.
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  // The key of LIST.
  void SetColumn(REPName* column) { column_.Set(column); }
  REPName* GetColumn() const { return column_.Get(); }
  void SetRangeList(REPRangePartitioningList* list) { ranges_.Set(list); }
  REPRangePartitioningList* GetRangeList() const { return ranges_.Get(); }
  void SetListList(REPListPartitioningList* list) { lists_.Set(list); }
  REPListPartitioningList* GetListList() const { return lists_.Get(); }
  void SetIndivList(REPIndividualHashPartitionList* list) { hashes_.Set(list); }
  REPIndividualHashPartitionList* GetIndivList() const { return hashes_.Get(); }
  void SetHashPartitions(REPHashPartitionsByQuantity* quantity) { quantity_.Set(quantity); }
  REPHashPartitionsByQuantity* GetHashPartitions() const { return quantity_.Get(); }
  void SetSubPartitionByList(REPSubPartitionByList* clause) { by_list_.Set(clause); }
  REPSubPartitionByList* GetSubPartitionByList() const { return by_list_.Get(); }
  void SetSubPartitionByHash(REPSubPartitionByHash* clause) { by_hash_.Set(clause); }
  REPSubPartitionByHash* GetSubPartitionByHash() const { return by_hash_.Get(); }

  // Makes the partitioning under partition_owner, which for a log of a materialized view is not
  // the owner of the columns. The first failure ends it; what was made before stays.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partition_owner,
                       MOXActionSummaryItem* column_owner) const;

 private:
  MOXActionSummaryItem* AddPartitioning(REPProcessor& processor,
                                        MOXActionSummaryItem& partition_owner,
                                        MOXActionSummaryItem const& column_owner) const;
  REPProcess_e ProcessPartitions(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                                 MOXActionSummaryItem* column_owner) const;

  REPPartition_e type_{};
  repora::Owned<REPNameList> columns_;
  repora::Owned<REPName> column_;
  repora::Owned<REPRangePartitioningList> ranges_;
  repora::Owned<REPListPartitioningList> lists_;
  repora::Owned<REPIndividualHashPartitionList> hashes_;
  repora::Owned<REPHashPartitionsByQuantity> quantity_;
  repora::Owned<REPSubPartitionByList> by_list_;
  repora::Owned<REPSubPartitionByHash> by_hash_;
};
