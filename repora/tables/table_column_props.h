#pragma once

#include <string>

#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPLOBPartitionList;
class REPLOBStorage;
class REPNestedColumnProps;
class REPObjectColumnProps;
class REPProcessor;
class REPVarrayColumnProps;

// [object_column_properties] [nested_table_properties] [varray_properties] [lob_storage]
//   [(lob_partition, ...)]
// How a column with storage of its own is stored.
class REPTableColumnProp {
 public:
  REPTableColumnProp();
  ~REPTableColumnProp();

  // The model has no place for the properties of object, nested table and varray columns: they are
  // rendered, and reported when they are processed.
  void SetObjectColumnProps(REPObjectColumnProps* properties) { object_.Set(properties); }
  REPObjectColumnProps* GetObjectColumnProps() const { return object_.Get(); }
  void SetNestedColumnProps(REPNestedColumnProps* properties) { nested_.Set(properties); }
  REPNestedColumnProps* GetNestedColumnProps() const { return nested_.Get(); }
  void SetVarrayColumnProps(REPVarrayColumnProps* properties) { varray_.Set(properties); }
  REPVarrayColumnProps* GetVarrayColumnProps() const { return varray_.Get(); }
  void SetLOBStorage(REPLOBStorage* storage) { lob_storage_.Set(storage); }
  REPLOBStorage* GetLOBStorage() const { return lob_storage_.Get(); }
  // What partitions of the table say of its LOB columns.
  void SetLOBPartitionList(REPLOBPartitionList* list) { lob_partitions_.Set(list); }
  REPLOBPartitionList* GetLOBPartitionList() const { return lob_partitions_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* entity) const;
  std::string AsString() const;

 private:
  repora::Owned<REPObjectColumnProps> object_;
  repora::Owned<REPNestedColumnProps> nested_;
  repora::Owned<REPVarrayColumnProps> varray_;
  repora::Owned<REPLOBStorage> lob_storage_;
  repora::Owned<REPLOBPartitionList> lob_partitions_;
};

// Column properties in order, owned.
class REPTableColumnPropList : public repora::ClauseList<REPTableColumnProp> {
 public:
  REPTableColumnProp* GetColumn(int index) const { return GetClause(index); }

  // A duplicate is skipped; any other failure ends the list.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* entity) const;
  // Separated by commas or by blanks.
  std::string AsString(bool comma_separated) const;
};
