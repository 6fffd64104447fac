#pragma once

#include <string>
#include <utility>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/extents.h"
#include "repora/storage/size.h"
#include "repora/storage/storage_clause.h"

class MOXActionSummaryItem;
class REPLOBPartitionList;
class REPProcessor;

// ( [TABLESPACE name] [{ENABLE | DISABLE} STORAGE IN ROW] [storage_clause] [CHUNK size]
//   [PCTVERSION n] [RETENTION] [FREEPOOLS n]
//   [{NOCACHE | CACHE | CACHE READS} [LOGGING | NOLOGGING]] )
class REPLOBParameters final {
 public:
  REPLOBParameters() = default;
  explicit REPLOBParameters(REPLOBParameters const* other)
      : REPLOBParameters(repora::CopyOf(other)) {}
  REPLOBParameters& operator=(REPLOBParameters const* other) {
    return *this = repora::CopyOf(other);
  }

  // Logging is left out without a cache keyword to stand behind.
  virtual std::string AsString() const;

  void SetTablespace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespace() const { return tablespace_.Get(); }
  void SetStorageRow(REPStorageRow_e storage_row) { storage_row_ = storage_row; }
  REPStorageRow_e GetStorageRow() const { return storage_row_; }
  void SetStorageClause(REPStorageClause storage) { storage_ = std::move(storage); }
  REPStorageClause GetStorageClause() const { return storage_; }
  void SetChunkSize(REPSizeClause size) { chunk_ = std::move(size); }
  REPSizeClause GetChunkSize() const { return chunk_; }
  void SetPCTVersion(char const* text) { pct_version_ = text; }
  char const* GetPCTVersion() const { return pct_version_.c_str(); }
  void SetRetention(bool retention) { retention_ = retention; }
  bool GetRetention() const { return retention_; }
  void SetFreePools(char const* text) { free_pools_ = text; }
  char const* GetFreePools() const { return free_pools_.c_str(); }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }

  // Writes the parameters on the one parameters item of a LOB storage item, made when it is
  // missing.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* lob) const;

 private:
  repora::Owned<REPName> tablespace_;
  REPStorageRow_e storage_row_{};
  REPStorageClause storage_;
  REPSizeClause chunk_;
  repora::Text pct_version_;
  bool retention_ = false;
  repora::Text free_pools_;
  REPCache_e cache_{};
  REPLogging_e logging_{};
};

// LOB (column, ...) STORE AS [segment] [lob_parameters]
class REPLOBStorage {
 public:
  REPLOBStorage();
  REPLOBStorage(REPLOBStorage const& other);
  explicit REPLOBStorage(REPLOBStorage const* other);
  REPLOBStorage& operator=(REPLOBStorage const& other);
  REPLOBStorage& operator=(REPLOBStorage const* other);
  ~REPLOBStorage();

  // The LOB columns.
  void SetItemNames(REPNameList* names) { items_.Set(names); }
  REPNameList* GetItemNames() const { return items_.Get(); }
  void SetSegName(REPName* name) { segment_.Set(name); }
  REPName* GetSegName() const { return segment_.Get(); }
  void SetParameters(REPLOBParameters* parameters) { parameters_.Set(parameters); }
  REPLOBParameters* GetParameters() const { return parameters_.Get(); }
  // A table's LOB partitions are only reported here. They are not rendered either; a column
  // property has a place for those that count.
  void SetLOBPartitionList(REPLOBPartitionList* list) { partitions_.Set(list); }
  REPLOBPartitionList* GetLOBPartitionList() const { return partitions_.Get(); }

  // The storage of LOB columns of a table or materialized view stands under the columns; any other
  // owner (a description or storage of a partition) takes it itself and refers to the columns,
  // which belong to the column owner. A column that is missing is an error without a message.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessForEntity(REPProcessor& processor, MOXActionSummaryItem& table) const;
  REPProcess_e ProcessForPartition(REPProcessor& processor, MOXActionSummaryItem& owner,
                                   MOXActionSummaryItem& column_owner) const;

  repora::Owned<REPNameList> items_;
  repora::Owned<REPName> segment_;
  repora::Owned<REPLOBParameters> parameters_;
  repora::Owned<REPLOBPartitionList> partitions_;
};

// LOB storages in order, owned. Process of this and of the lists below ends at the first result
// that is not OK.
class REPLOBStorageList : public repora::ClauseList<REPLOBStorage> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString(bool parenthesised = false) const;
};

// [storage_clause] [PCTVERSION n] [RETENTION] [FREEPOOLS n] [REBUILD FREEPOOLS]
//   [{NOCACHE | CACHE | CACHE READS} [LOGGING | NOLOGGING]] [ALLOCATE EXTENT ...]
//   [DEALLOCATE UNUSED [KEEP size]]
class REPModifyLOBParameters final {
 public:
  REPModifyLOBParameters() = default;
  explicit REPModifyLOBParameters(REPModifyLOBParameters const* other)
      : REPModifyLOBParameters(repora::CopyOf(other)) {}
  REPModifyLOBParameters& operator=(REPModifyLOBParameters const* other) {
    return *this = repora::CopyOf(other);
  }

  // DEALLOCATE UNUSED brings a leading blank of its own.
  virtual std::string AsString() const;

  void SetStorageClause(REPStorageClause storage) { storage_ = std::move(storage); }
  REPStorageClause GetStorageClause() const { return storage_; }
  void SetPCTVersion(char const* text) { pct_version_ = text; }
  char const* GetPCTVersion() const { return pct_version_.c_str(); }
  void SetRetention(bool retention) { retention_ = retention; }
  bool GetRetention() const { return retention_; }
  void SetFreePools(char const* text) { free_pools_ = text; }
  char const* GetFreePools() const { return free_pools_.c_str(); }
  // Rebuilding free pools and the extents below are rendered only.
  void SetRebuildFreepools(bool rebuild) { rebuild_free_pools_ = rebuild; }
  bool GetRebuildFreepools() const { return rebuild_free_pools_; }
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetDeallocate(bool deallocate) { deallocate_ = deallocate; }
  bool GetDeallocate() const { return deallocate_; }
  void SetKeepSize(REPSizeClause size) { keep_ = std::move(size); }
  REPSizeClause GetKeepSize() const { return keep_; }

  // As REPLOBParameters::Process. Logging counts with NOCACHE and CACHE READS only.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* lob) const;

 private:
  REPStorageClause storage_;
  repora::Text pct_version_;
  bool retention_ = false;
  repora::Text free_pools_;
  bool rebuild_free_pools_ = false;
  REPCache_e cache_{};
  REPLogging_e logging_{};
  repora::Owned<REPAllocExtentClause> allocate_;
  bool deallocate_ = false;
  REPSizeClause keep_;
};

// MODIFY LOB (column) (modify_lob_parameters), of a materialized view
class REPModifyLOBStorage {
 public:
  // Of several LOB columns only the first is changed.
  void SetItemNames(REPNameList* names) { items_.Set(names); }
  REPNameList* GetItemNames() const { return items_.Get(); }
  void SetParameters(REPModifyLOBParameters* parameters) { parameters_.Set(parameters); }
  REPModifyLOBParameters* GetParameters() const { return parameters_.Get(); }

  // A column without LOB storage is reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPNameList> items_;
  repora::Owned<REPModifyLOBParameters> parameters_;
};

// Changes of LOB storage in order, owned.
class REPModifyLOBStorageList : public repora::ClauseList<REPModifyLOBStorage> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString(bool parenthesised = false) const;
};

// MODIFY LOB (column) (modify_lob_parameters), of a table
class REPModifyLOBStorageClause {
 public:
  // As in REPModifyLOBStorage.
  void SetLOBItemList(REPNameList* names) { items_.Set(names); }
  REPNameList* GetLOBItemList() const { return items_.Get(); }
  void SetLOBParameters(REPModifyLOBParameters* parameters) { parameters_.Set(parameters); }
  REPModifyLOBParameters* GetLOBParameters() const { return parameters_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  repora::Owned<REPNameList> items_;
  repora::Owned<REPModifyLOBParameters> parameters_;
};

// Changes of LOB storage in order, owned.
class REPModifyLOBStorageClauseList : public repora::ClauseList<REPModifyLOBStorageClause> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;
};

// {LOB (column, ...) | LOB column | VARRAY varray} [lob_parameters] [modify_lob_parameters]
// The storage of LOB columns and varrays of a partition.
class REPVarrayLOBParameters final {
 public:
  REPVarrayLOBParameters() = default;
  explicit REPVarrayLOBParameters(REPVarrayLOBParameters const* other)
      : REPVarrayLOBParameters(repora::CopyOf(other)) {}
  REPVarrayLOBParameters& operator=(REPVarrayLOBParameters const* other) {
    return *this = repora::CopyOf(other);
  }

  virtual std::string AsString() const;

  void SetVarrayName(REPName* name) { varray_.Set(name); }
  REPName* GetVarrayName() const { return varray_.Get(); }
  void SetItemNames(REPNameList* names) { items_.Set(names); }
  REPNameList* GetItemNames() const { return items_.Get(); }
  // Counts when there is no list, and in a partition only.
  void SetItemName(REPName* name) { item_.Set(name); }
  REPName* GetItemName() const { return item_.Get(); }
  void SetParameters(REPLOBParameters* parameters) { parameters_.Set(parameters); }
  REPLOBParameters* GetParameters() const { return parameters_.Get(); }
  void SetModifyParameters(REPModifyLOBParameters* parameters) {
    modify_parameters_.Set(parameters);
  }
  REPModifyLOBParameters* GetModifyParameters() const { return modify_parameters_.Get(); }

  // Owners as in REPLOBStorage::Process. In a partition the LOB storage of any of the columns is
  // taken and then serves all of them.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem* column_owner) const;

 private:
  REPProcess_e ProcessForEntity(REPProcessor& processor, MOXActionSummaryItem& table) const;
  REPProcess_e ProcessForPartition(REPProcessor& processor, MOXActionSummaryItem& owner,
                                   MOXActionSummaryItem& column_owner) const;
  REPProcess_e ProcessParameters(REPProcessor& processor, MOXActionSummaryItem& lob) const;

  repora::Owned<REPName> varray_;
  repora::Owned<REPNameList> items_;
  repora::Owned<REPName> item_;
  repora::Owned<REPLOBParameters> parameters_;
  repora::Owned<REPModifyLOBParameters> modify_parameters_;
};

// LOB and varray storages in order, owned.
class REPVarrayLOBParametersList : public repora::ClauseList<REPVarrayLOBParameters> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem* column_owner) const;
  std::string AsString(bool parenthesised = false) const;
};
