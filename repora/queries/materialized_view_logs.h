#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/storage_clause.h"

class MOXActionSummaryItem;
class REPProcessor;
class REPTablePartitioningClause;

namespace repora {

// What creating and altering a materialized view log have in common:
//   ON [owner.]table [physical_attributes] [TABLESPACE name] [LOGGING | NOLOGGING]
//   [CACHE | NOCACHE | CACHE READS] [NOPARALLEL | PARALLEL [degree]]
//   [OBJECT ID, PRIMARY KEY, ROWID, SEQUENCE, (columns)] [{INCLUDING | EXCLUDING} NEW VALUES]
class LogOptions {
 public:
  // The table that is logged. The name of the log follows from it.
  void SetTablename(REPName* name) { table_.Set(name); }
  REPName* GetTablename() const { return table_.Get(); }
  void SetTablespace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespace() const { return tablespace_.Get(); }
  // CACHE READS is rendered only.
  void SetCache(REPCache_e cache) { cache_ = cache; }
  REPCache_e GetCache() const { return cache_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  // The degree is rendered with REPParallel_e::ParallelDegree only.
  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  void SetParallelSize(char const* text) { parallel_size_ = text; }
  char const* GetParallelSize() const { return parallel_size_.c_str(); }
  // Part of the statement, filled in place.
  REPPhysicalAttrClause* GetPhysicalAttrClause() { return &physical_; }
  REPPhysicalAttrClause const* GetPhysicalAttrClause() const { return &physical_; }
  // What is logged. Columns are logged beside the keys.
  void SetColumns(REPNameList* columns) {
    columns_.Set(columns);
    contents_given_ = true;
  }
  REPNameList* GetColumns() const { return columns_.Get(); }
  void SetObjectID(bool object_id) { SetContent(object_id_, object_id); }
  bool GetObjectID() const { return object_id_; }
  void SetPrimaryKey(bool primary_key) { SetContent(primary_key_, primary_key); }
  bool GetPrimaryKey() const { return primary_key_; }
  void SetRowID(bool row_id) { SetContent(row_id_, row_id); }
  bool GetRowID() const { return row_id_; }
  void SetSequence(bool sequence) { SetContent(sequence_, sequence); }
  bool GetSequence() const { return sequence_; }
  void SetNewValues(REPNewValues_e new_values) {
    new_values_ = new_values;
    contents_given_ = true;
  }
  REPNewValues_e GetNewValues() const { return new_values_; }

 protected:
  ~LogOptions() = default;

  REPName LogName() const;
  void WriteOptions(REPProcessor& processor, MOXActionSummaryItem& log) const;
  // Makes or changes the segment of the log when the statement renders something of it.
  void WriteSegment(REPProcessor& processor, MOXActionSummaryItem& log) const;
  // REPProcessError when the table has no column of a name.
  REPProcess_e WriteColumns(REPProcessor const& processor, MOXActionSummaryItem const& table,
                            MOXActionSummaryItem& log) const;
  // Physical attributes, tablespace, logging and cache, each with a leading blank.
  std::string StorageText() const;
  std::string ParallelText() const;
  // What is logged, and the new values behind it.
  std::string ContentsText() const;
  // Whether anything was set of what is logged.
  bool ContentsGiven() const { return contents_given_; }
  bool LogsAnything() const;

  Owned<REPName> table_;

 private:
  void SetContent(bool& content, bool value) {
    content = value;
    contents_given_ = true;
  }

  Owned<REPName> tablespace_;
  REPCache_e cache_{};
  REPLogging_e logging_{};
  REPParallel_e parallel_{};
  Text parallel_size_;
  REPPhysicalAttrClause physical_;
  Owned<REPNameList> columns_;
  bool object_id_ = false;
  bool primary_key_ = false;
  bool row_id_ = false;
  bool sequence_ = false;
  bool contents_given_ = false;
  REPNewValues_e new_values_{};
};

}  // namespace repora

// CREATE MATERIALIZED VIEW LOG ON [owner.]table [options] [WITH contents] [PARTITION BY ...]
// The log stands under its table.
class REPCreateMaterializedViewLog final : public REPStatement, public repora::LogOptions {
 public:
  REPCreateMaterializedViewLog();
  ~REPCreateMaterializedViewLog() override;

  void SetPartitioningClause(REPTablePartitioningClause* clause) { partitioning_.Set(clause); }
  REPTablePartitioningClause* GetPartitioningClause() const { return partitioning_.Get(); }

  // A column that the table does not have is an error without a message; the log stays.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPTablePartitioningClause> partitioning_;
};
