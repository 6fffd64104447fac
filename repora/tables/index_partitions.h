#pragma once

#include <cstdint>
#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/segment_attributes.h"

class MOXActionSummaryItem;
class REPCompressionClause;
class REPIndividualHashPartitionList;
class REPProcessor;

namespace repora {

// Between the bound values of one partition of a global index.
inline constexpr char kBoundSeparator = '\x81';

}  // namespace repora

// PARTITION [name] VALUES LESS THAN (value, ...) [segment_attributes]
// A partition of a global index.
class REPIndexPartitioningClause {
 public:
  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  // The bound values as the script wrote them, with repora::kBoundSeparator between two of them.
  // As a part of a letter in UTF-8 that byte separates nothing.
  void SetValues(char const* text) { values_ = text; }
  char const* GetValues() const { return values_.c_str(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }

  // Adds the partition under the partitioning item of the index. REPProcessDuplicate when there is
  // one of that name.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* global_partition) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Text values_;
  repora::Owned<REPSegmentAttributesClause> segment_;
};

// Rendered without parentheses and commas.
class REPIndexPartitioningClauseList : public repora::ClauseList<REPIndexPartitioningClause> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* global_partition) const;
  std::string AsString() const;
};

// GLOBAL PARTITION BY
//   {RANGE (column, ...) (partition, ...)
//   | HASH (column, ...) {[PARTITIONS n] [STORE IN (tablespace, ...)]
//       [OVERFLOW STORE IN (tablespace, ...)] | (PARTITION [name] [storage], ...)}}
class REPGlobalPartitionedIndexClause final {
 public:
  REPGlobalPartitionedIndexClause();
  virtual ~REPGlobalPartitionedIndexClause();

  virtual std::string AsString() const;

  // HASH; otherwise RANGE.
  void SetHash(bool hash) { hash_ = hash; }
  bool GetHash() const { return hash_; }
  void SetColumnList(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumnList() const { return columns_.Get(); }
  void SetIndexPartitioningClauseList(REPIndexPartitioningClauseList* list) { ranges_.Set(list); }
  REPIndexPartitioningClauseList* GetIndexPartitioningClauseList() const { return ranges_.Get(); }
  // The number of hash partitions.
  void SetHashQuantity(char const* text) { quantity_ = text; }
  char const* GetHashQuantity() const { return quantity_.c_str(); }
  void SetStoreInNames(REPNameList* tablespaces) { store_in_.Set(tablespaces); }
  REPNameList* GetStoreInNames() const { return store_in_.Get(); }
  void SetOverflowNames(REPNameList* tablespaces) { overflow_.Set(tablespaces); }
  REPNameList* GetOverflowNames() const { return overflow_.Get(); }
  void SetIndividualPartitions(REPIndividualHashPartitionList* list) { individual_.Set(list); }
  REPIndividualHashPartitionList* GetIndividualPartitions() const { return individual_.Get(); }

  // Makes the partitioning of the index, a key group of the table. A key column that the table
  // does not have ends the clause with REPProcessError and no message; what was made stays.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* index) const;

 private:
  REPProcess_e ProcessHash(REPProcessor& processor, MOXActionSummaryItem* table,
                           MOXActionSummaryItem& partitioning) const;

  bool hash_ = false;
  repora::Owned<REPNameList> columns_;
  repora::Owned<REPIndexPartitioningClauseList> ranges_;
  repora::Text quantity_;
  repora::Owned<REPNameList> store_in_;
  repora::Owned<REPNameList> overflow_;
  repora::Owned<REPIndividualHashPartitionList> individual_;
};

// SUBPARTITION [name] [TABLESPACE {name | DEFAULT}]
// A subpartition of a local index. TABLESPACE DEFAULT is rendered only.
class REPSubPartition {
 public:
  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  void SetTablespaceName(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespaceName() const { return tablespace_.Get(); }
  void SetDefaultTablespace(bool use_default) { default_tablespace_ = use_default; }
  bool GetDefaultTablespace() const { return default_tablespace_; }

  // Adds the subpartition under the description of its partition.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* description) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPName> tablespace_;
  bool default_tablespace_ = false;
};

class REPSubPartitionList : public repora::ClauseList<REPSubPartition> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* description) const;
  std::string AsString() const;
};

// PARTITION [name] [segment_attributes] [COMPRESS [n] | NOCOMPRESS] [TABLESPACE DEFAULT]
//   [(subpartition, ...)] [STORE IN (tablespace, ...)]
// A partition of a local index.
class REPPartition {
 public:
  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  void SetSegmentAttributes(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributes() const { return segment_.Get(); }
  void SetCompress(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompress() const { return compression_; }
  // The prefix length after COMPRESS.
  void SetCompressSize(char const* text) { compression_size_ = text; }
  char const* GetCompressSize() const { return compression_size_.c_str(); }
  void SetDefaultTablespace(bool use_default) { default_tablespace_ = use_default; }
  bool GetDefaultTablespace() const { return default_tablespace_; }
  void SetSubPartitionList(REPSubPartitionList* list) { subpartitions_.Set(list); }
  REPSubPartitionList* GetSubPartitionList() const { return subpartitions_.Get(); }
  void SetStoreInTablespaces(REPNameList* tablespaces) { store_in_.Set(tablespaces); }
  REPNameList* GetStoreInTablespaces() const { return store_in_.Get(); }

  // Adds the partition under the local partitioning item of the index. The type is that of the
  // table's partitioning, one of repora::codes::kPartitioned...
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* local_partition,
                       long table_partition_type) const;
  std::string AsString() const;

 private:
  struct Work;  // a run of Process

  MOXActionSummaryItem* Describe(Work& work) const;
  bool DescribeSegment(Work& work) const;
  REPProcess_e AddSubpartitions(Work& work) const;
  REPProcess_e AddHashStorage(Work& work) const;
  REPProcess_e UseDefaultTablespace(Work& work) const;

  repora::Owned<REPName> name_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  REPCompress_e compression_{};
  repora::Text compression_size_;
  bool default_tablespace_ = false;
  repora::Owned<REPSubPartitionList> subpartitions_;
  repora::Owned<REPNameList> store_in_;
};

class REPPartitionList : public repora::ClauseList<REPPartition> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* local_partition,
                       long table_partition_type) const;
  std::string AsString() const;
};

// LOCAL [STORE IN {(tablespace, ...) | (DEFAULT)}] [(partition, ...)]
// STORE IN (DEFAULT) is not rendered.
class REPLocalPartitionedIndexClause final {
 public:
  virtual std::string AsString() const;
  virtual ~REPLocalPartitionedIndexClause() = default;

  void SetPartitionList(REPPartitionList* list) { partitions_.Set(list); }
  REPPartitionList* GetPartitionList() const { return partitions_.Get(); }
  void SetStoreInTablespaces(REPNameList* tablespaces) { store_in_.Set(tablespaces); }
  REPNameList* GetStoreInTablespaces() const { return store_in_.Get(); }
  void SetStoreInDefaultTablespace(bool use_default) { store_in_default_ = use_default; }
  bool GetStoreInDefaultTablespace() const { return store_in_default_; }

  // Makes the partitioning of the index, a key group of the table, which must be partitioned.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* index) const;

 private:
  repora::Owned<REPPartitionList> partitions_;
  repora::Owned<REPNameList> store_in_;
  bool store_in_default_ = false;
};

// [STORE IN (tablespace, ...)] [(subpartition, ...)]
// Rendered only.
class REPIndexSubpartitionClause final {
 public:
  virtual std::string AsString() const;
  virtual ~REPIndexSubpartitionClause() = default;

  void SetTablespaceNames(REPNameList* tablespaces) { tablespaces_.Set(tablespaces); }
  REPNameList* GetTablespaceNames() const { return tablespaces_.Get(); }
  void SetSubpartitionList(REPSubPartitionList* list) { subpartitions_.Set(list); }
  REPSubPartitionList* GetSubpartitionList() const { return subpartitions_.Get(); }

 private:
  repora::Owned<REPNameList> tablespaces_;
  repora::Owned<REPSubPartitionList> subpartitions_;
};

// PARTITION [name [segment_attributes] [key_compression] [subpartitions]]
// What becomes of a partition of an index when its table changes. Rendered only, and without a name
// the rest is not rendered either.
class REPIndexPartitionDesc final {
 public:
  REPIndexPartitionDesc();
  virtual ~REPIndexPartitionDesc();

  virtual std::string AsString() const;

  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  void SetSegmentAttributesClause(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributesClause() const { return segment_.Get(); }
  void SetKeyCompressionClause(REPCompressionClause* clause) { compression_.Set(clause); }
  REPCompressionClause* GetKeyCompressionClause() const { return compression_.Get(); }
  void SetIndexSubpartitionClause(REPIndexSubpartitionClause* clause) {
    subpartitions_.Set(clause);
  }
  REPIndexSubpartitionClause* GetIndexSubpartitionClause() const { return subpartitions_.Get(); }

  // Writes nothing.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* item) const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPSegmentAttributesClause> segment_;
  repora::Owned<REPCompressionClause> compression_;
  repora::Owned<REPIndexSubpartitionClause> subpartitions_;
};
