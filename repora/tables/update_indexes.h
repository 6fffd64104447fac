#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/index_partitions.h"

class MOXActionSummaryItem;
class REPProcessor;

// What becomes of the indexes of a table when its partitions change.
enum class REPUpdateIndexes_e : int { None, UpdateGlobal, InvalidateGlobal, Update };

// PARTITION [name] [description]
class REPUpdateIndexPartition {
 public:
  void SetPartitionName(REPName* name) { name_.Set(name); }
  REPName* GetPartitionName() const { return name_.Get(); }
  // With a name of its own it is what is rendered of the partition.
  void SetIndexPartitionDesc(REPIndexPartitionDesc* description) { description_.Set(description); }
  REPIndexPartitionDesc* GetIndexPartitionDesc() const { return description_.Get(); }

  // The partition must be one of a global index.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* key_group) const;
  std::string AsString() const;

 private:
  bool Exists(REPProcessor const& processor, MOXActionSummaryItem const& key_group) const;

  repora::Owned<REPName> name_;
  repora::Owned<REPIndexPartitionDesc> description_;
};

class REPUpdateIndexPartitionList : public repora::ClauseList<REPUpdateIndexPartition> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* key_group) const;
  std::string AsString() const;
};

// SUBPARTITION [name] [TABLESPACE name]
// Rendered only.
class REPUpdateIndexSubpartition {
 public:
  void SetSubpartitionName(REPName* name) { name_.Set(name); }
  REPName* GetSubpartitionName() const { return name_.Get(); }
  void SetTablespaceName(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespaceName() const { return tablespace_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPName> tablespace_;
};

class REPUpdateIndexSubpartitionList : public repora::ClauseList<REPUpdateIndexSubpartition> {
 public:
  std::string AsString() const;
};

// index ({partition, ... | subpartition, ...})
class REPUpdateIndex {
 public:
  void SetIndexName(REPName* name) { name_.Set(name); }
  REPName* GetIndexName() const { return name_.Get(); }
  void SetUpdateIndexPartitionList(REPUpdateIndexPartitionList* list) { partitions_.Set(list); }
  REPUpdateIndexPartitionList* GetUpdateIndexPartitionList() const { return partitions_.Get(); }
  // The model cannot follow these: they fail the clause.
  void SetUpdateIndexSubpartitionList(REPUpdateIndexSubpartitionList* list) {
    subpartitions_.Set(list);
  }
  REPUpdateIndexSubpartitionList* GetUpdateIndexSubpartitionList() const {
    return subpartitions_.Get();
  }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPUpdateIndexPartitionList> partitions_;
  repora::Owned<REPUpdateIndexSubpartitionList> subpartitions_;
};

class REPUpdateIndexList : public repora::ClauseList<REPUpdateIndex> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;
};

// {UPDATE | INVALIDATE} GLOBAL INDEXES | UPDATE INDEXES [(index, ...)]
class REPUpdateIndexClause final {
 public:
  virtual std::string AsString() const;
  virtual ~REPUpdateIndexClause() = default;

  void SetUpdateIndexes(REPUpdateIndexes_e kind) { kind_ = kind; }
  REPUpdateIndexes_e GetUpdateIndexes() const { return kind_; }
  void SetUpdateIndexList(REPUpdateIndexList* list) { indexes_.Set(list); }
  REPUpdateIndexList* GetUpdateIndexList() const { return indexes_.Get(); }

  // Checks that the indexes and partitions named are there; writes nothing.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;

 private:
  REPUpdateIndexes_e kind_{};
  repora::Owned<REPUpdateIndexList> indexes_;
};
