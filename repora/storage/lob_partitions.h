#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/lob_storage.h"
#include "repora/tables/object_columns.h"

class MOXActionSummaryItem;
class REPProcessor;

// The partitions of a LOB column: storage that partitions of the table have for it.

// SUBPARTITION name [lob_storage ...] [varray_column_properties ...]
class REPLOBSubPartition {
 public:
  void SetSubPartition(REPName* name) { name_.Set(name); }
  REPName* GetSubPartition() const { return name_.Get(); }
  // Adds at the head of the list, as the other Add operations here do.
  void AddSubLOBStorage(REPLOBStorage* storage) { lob_storages_.AddHead(storage); }
  REPLOBStorageList const& GetSubLOBStorages() const { return lob_storages_; }
  // Rendered only.
  void AddSubPartColProps(REPVarrayColumnProps* properties) { varrays_.AddHead(properties); }
  REPVarrayColumnPropsList const& GetSubPartColProps() const { return varrays_; }

  // The storages go to the partitioning storage of the subpartition; that and the subpartition are
  // added where the description has none.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* description) const;
  // Starts with a blank.
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  REPLOBStorageList lob_storages_;
  REPVarrayColumnPropsList varrays_;
};

// Subpartitions in order, owned.
class REPLOBSubPartitionList : public repora::ClauseList<REPLOBSubPartition> {
 public:
  // Ends at the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* description) const;
  std::string AsString(bool parenthesised = false) const;
};

// PARTITION name [lob_storage ...] [varray_column_properties ...] [(subpartition, ...)]
class REPLOBPartition {
 public:
  void SetPartition(REPName* name) { name_.Set(name); }
  REPName* GetPartition() const { return name_.Get(); }
  void AddLOBStorage(REPLOBStorage* storage) { lob_storages_.AddHead(storage); }
  REPLOBStorageList const& GetLOBStorages() const { return lob_storages_; }
  // Rendered only.
  void AddPartColProps(REPVarrayColumnProps* properties) { varrays_.AddHead(properties); }
  REPVarrayColumnPropsList const& GetPartColProps() const { return varrays_; }
  void SetLOBSubPartitionList(REPLOBSubPartitionList* list) { subpartitions_.Set(list); }
  REPLOBSubPartitionList* GetLOBSubPartitionList() const { return subpartitions_.Get(); }

  // The storages go to the description of the table's partition, added where it has none. A
  // partition that the table does not have is reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  REPLOBStorageList lob_storages_;
  REPVarrayColumnPropsList varrays_;
  repora::Owned<REPLOBSubPartitionList> subpartitions_;
};

// Partitions in order, owned.
class REPLOBPartitionList : public repora::ClauseList<REPLOBPartition> {
 public:
  // Ends at the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString(bool parenthesised = false) const;
};
