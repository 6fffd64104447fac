#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;

// [TABLESPACE name] [OVERFLOW [TABLESPACE name]]
//   [LOB (column, ...) STORE AS [segment] [(TABLESPACE name)]]
//   [VARRAY item STORE AS LOB segment]
class REPPartitioningStorageClause {
 public:
  void SetTablespaceName(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespaceName() const { return tablespace_.Get(); }
  void SetOverflow(bool overflow) { overflow_ = overflow; }
  bool GetOverflow() const { return overflow_; }
  void SetOverflowTablespaceName(REPName* name) { overflow_tablespace_.Set(name); }
  REPName* GetOverflowTablespaceName() const { return overflow_tablespace_.Get(); }
  // The varray is rendered only.
  void SetVarrayItem(char const* text) { varray_item_ = text; }
  char const* GetVarrayItem() const { return varray_item_.c_str(); }
  void SetVarraySegmentName(REPName* name) { varray_segment_.Set(name); }
  REPName* GetVarraySegmentName() const { return varray_segment_.Get(); }
  void SetLOBItemList(REPNameList* names) { lob_items_.Set(names); }
  REPNameList* GetLOBItemList() const { return lob_items_.Get(); }
  // A LOB has one segment and one tablespace: lists of more than one name are an error.
  void SetLOBSegmentNameList(REPNameList* names) { lob_segments_.Set(names); }
  REPNameList* GetLOBSegmentNameList() const { return lob_segments_.Get(); }
  void SetLOBTablespaceNameList(REPNameList* names) { lob_tablespaces_.Set(names); }
  REPNameList* GetLOBTablespaceNameList() const { return lob_tablespaces_.Get(); }

  // Writes the clause on a partitioning storage item. overflow says, and is told, whether a clause
  // of the list said OVERFLOW: from there on tablespaces are those of the overflow. LOB columns
  // are looked up under column_owner.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* storage,
                       MOXActionSummaryItem const* column_owner, bool& overflow) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessLob(REPProcessor& processor, MOXActionSummaryItem& storage,
                          MOXActionSummaryItem const* column_owner) const;

  repora::Owned<REPName> tablespace_;
  bool overflow_ = false;
  repora::Owned<REPName> overflow_tablespace_;
  repora::Text varray_item_;
  repora::Owned<REPName> varray_segment_;
  repora::Owned<REPNameList> lob_items_;
  repora::Owned<REPNameList> lob_segments_;
  repora::Owned<REPNameList> lob_tablespaces_;
};

// partitioning_storage ...
class REPPartitioningStorageClauseList : public repora::ClauseList<REPPartitioningStorageClause> {
 public:
  // Adds a partitioning storage item under the owner, named like it, or takes the one it has, and
  // writes the clauses on it. An empty list is an error.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;
};
