#pragma once

#include <string>
#include <utility>

#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/storage_clause.h"
#include "repora/tables/datatype.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;

// name datatype [SORT]
// One column of the key of a cluster.
class REPClusterColumn {
 public:
  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnName() const { return name_.Get(); }
  void SetDatatype(REPDatatype* datatype) { datatype_.Set(datatype); }
  REPDatatype* GetDatatype() const { return datatype_.Get(); }
  void SetSort(bool sort) { sort_ = sort; }
  bool GetSort() const { return sort_; }

  // Adds the column under the cluster. REPProcessDuplicate when the cluster has a column of that
  // name, which is reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* cluster,
                       REPName const* cluster_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPDatatype> datatype_;
  bool sort_ = false;
};

// Key columns in order, owned.
class REPClusterColumnList {
 public:
  void AddHead(REPClusterColumn* column) { columns_.AddHead(column); }
  void AddTail(REPClusterColumn* column) { columns_.AddTail(column); }
  int GetCount() const { return columns_.GetCount(); }
  REPClusterColumn* GetColumn(int index) const { return columns_.At(index); }

  // A duplicate column is skipped; any other failure ends the list.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* cluster,
                       REPName const* cluster_name) const;
  std::string AsString() const;

 private:
  repora::OwnedList<REPClusterColumn> columns_;
};

namespace repora {

// What creating and altering a cluster have in common:
//   name [SIZE size] [CACHE | NOCACHE] [physical_attributes]
class ClusterOptions {
 public:
  void SetClusterName(REPName* name) { name_.Set(name); }
  REPName* GetClusterName() const { return name_.Get(); }
  // The room for the rows of one key.
  void SetSize(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSize() const { return size_; }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  // Numbers as in REPPhysicalAttrClause.
  void SetPctFree(int percent) { physical_.SetPctFree(percent); }
  void SetPctFree(char const* text) { physical_.SetPctFree(text); }
  void SetPctUsed(int percent) { physical_.SetPctUsed(percent); }
  void SetPctUsed(char const* text) { physical_.SetPctUsed(text); }
  void SetIniTrans(int count) { physical_.SetIniTrans(count); }
  void SetIniTrans(char const* text) { physical_.SetIniTrans(text); }
  void SetMaxTrans(int count) { physical_.SetMaxTrans(count); }
  void SetMaxTrans(char const* text) { physical_.SetMaxTrans(text); }
  void SetStorage(REPStorageClause storage) { physical_.SetStorageClause(std::move(storage)); }
  // The clause that the five before fill; part of the statement.
  REPPhysicalAttrClause* GetPhysicalAttrClause() { return &physical_; }
  REPPhysicalAttrClause const* GetPhysicalAttrClause() const { return &physical_; }

 protected:
  ~ClusterOptions() = default;

  void WriteCache(MOXActionSummaryItem& cluster) const;
  // Makes or changes the segment of the cluster when the statement renders something of it.
  void WriteSegment(REPProcessor* processor, MOXActionSummaryItem& cluster) const;
  std::string CacheText() const;

  Owned<REPName> name_;
  REPSizeClause size_;
  REPCache_e cache_{};
  REPPhysicalAttrClause physical_;
};

}  // namespace repora

// CREATE CLUSTER [owner.]name (column [, column]...) [physical_attributes] [SIZE size]
//   [TABLESPACE name] [INDEX | [SINGLE TABLE] HASHKEYS n [HASH IS expression]] [parallel]
//   [ROWDEPENDENCIES | NOROWDEPENDENCIES] [CACHE | NOCACHE]
class REPCreateCluster final : public REPStatement, public repora::ClusterOptions {
 public:
  void SetColumns(REPClusterColumnList* columns) { columns_.Set(columns); }
  REPClusterColumnList* GetColumns() const { return columns_.Get(); }
  void SetTablespaceName(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespaceName() const { return tablespace_.Get(); }
  void SetIndex(bool index) { index_ = index; }
  bool GetIndex() const { return index_; }
  void SetSingle(bool single) { single_ = single; }
  bool GetSingle() const { return single_; }
  // The number of hash values, -1 when not given; as text a decimal number.
  void SetHashSize(int count) { hash_size_ = count; }
  void SetHashSize(char const* text) { hash_size_ = repora::ToInt(text); }
  int GetHashSize() const { return hash_size_; }
  void SetHashExpr(REPExpr* expression) { hash_expression_.Set(expression); }
  REPExpr* GetHashExpr() const { return hash_expression_.Get(); }
  void SetRowDepend(REPRowDepend_e row_dependencies) { row_dependencies_ = row_dependencies; }
  REPRowDepend_e GetRowDepend() const { return row_dependencies_; }
  void SetParallelClause(REPParallelClause* parallel) { parallel_.Set(parallel); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPClusterColumnList> columns_;
  repora::Owned<REPName> tablespace_;
  bool index_ = false;
  bool single_ = false;
  int hash_size_ = -1;
  repora::Owned<REPExpr> hash_expression_;
  REPRowDepend_e row_dependencies_{};
  repora::Owned<REPParallelClause> parallel_;
};

// ALTER CLUSTER [owner.]name [physical_attributes] [SIZE size] [parallel] [CACHE | NOCACHE]
//   [allocate_extent] [DEALLOCATE UNUSED [KEEP size]]
// The model does not change by SIZE and DEALLOCATE UNUSED, which are only rendered.
class REPAlterCluster final : public REPStatement, public repora::ClusterOptions {
 public:
  void SetParallel(REPParallelClause parallel) { parallel_ = std::move(parallel); }
  REPParallelClause const& GetParallel() const { return parallel_; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocate(bool deallocate) { deallocate_ = deallocate; }
  bool GetDeallocate() const { return deallocate_; }
  void SetDeallocateSize(REPSizeClause size) { deallocate_size_ = std::move(size); }
  REPSizeClause GetDeallocateSize() const { return deallocate_size_; }

  // REPProcessError, with a message, when the model has no such cluster.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPParallelClause parallel_;
  repora::Owned<REPAllocExtentClause> allocate_;
  bool deallocate_ = false;
  REPSizeClause deallocate_size_;  // what is kept
};
