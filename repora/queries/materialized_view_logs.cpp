#include "repora/queries/materialized_view_logs.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/parallel.h"
#include "repora/storage/partitions.h"

namespace codes = repora::codes;

namespace repora {

REPName LogOptions::LogName() const {
  REPName name;
  if (!table_) return name;
  if (auto const owner = table_->GetOwnerName(false); !owner.empty()) name.AddTail(owner.c_str());
  name.AddTail(("MLOG$_" + table_->GetName(false)).c_str());
  return name;
}

void LogOptions::WriteOptions(REPProcessor& processor, MOXActionSummaryItem& log) const {
  SetChoice(log, ORVTypes::pOracleCache, cache_);
  WriteParallel(log, parallel_, parallel_size_);
  if (object_id_) SetBoolean(log, ORVTypes::pUseObjectId, true);
  if (primary_key_) SetBoolean(log, ORVTypes::pUsePrimaryKey, true);
  if (row_id_) SetBoolean(log, ORVTypes::pUseRowId, true);
  if (sequence_) SetBoolean(log, ORVTypes::pUseSequence, true);
  SetChoice(log, ORVTypes::pExclude, new_values_);
  if (tablespace_)
    SetReference(log, ORVTypes::pOracleTablespaceRef,
                 processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleTablespace,
                                          tablespace_.Get()));
  SetChoice(log, ORVTypes::pOracleNoLogging, logging_);
}

void LogOptions::WriteSegment(REPProcessor& processor, MOXActionSummaryItem& log) const {
  if (!physical_.AsString().empty()) physical_.Process(&processor, &log, codes::kRegularStorage);
}

REPProcess_e LogOptions::WriteColumns(REPProcessor const& processor,
                                      MOXActionSummaryItem const& table,
                                      MOXActionSummaryItem& log) const {
  if (!columns_ || columns_->GetCount() == 0) return REPProcessOK;
  std::vector<std::uint32_t> columns;
  for (int i = 0; i < columns_->GetCount(); ++i) {
    columns.push_back(processor.FindItem(table.Id(), ORVTypes::oAttribute, columns_->GetName(i)));
    if (columns.back() == 0) return REPProcessError;
  }
  SetReferences(log, ORVTypes::pColumnsRef, columns);
  return REPProcessOK;
}

std::string LogOptions::StorageText() const {
  return SqlText()
      .Option(physical_.AsString())
      .Clause(" TABLESPACE ", tablespace_.Get())
      .Option(Keyword(logging_))
      .Option(Keyword(cache_))
      .Take();
}

std::string LogOptions::ParallelText() const {
  SqlText sql;
  sql.Option(Keyword(parallel_));
  if (parallel_ == REPParallel_e::ParallelDegree) sql.Option(parallel_size_);
  return sql.Take();
}

std::string LogOptions::ContentsText() const {
  SqlText sql;
  sql.Part(object_id_ ? "OBJECT ID" : "", ", ")
      .Part(primary_key_ ? "PRIMARY KEY" : "", ", ")
      .Part(row_id_ ? "ROWID" : "", ", ")
      .Part(sequence_ ? "SEQUENCE" : "", ", ")
      .Part(columns_ ? columns_->AsString(true) : std::string(), ", ");
  if (auto const new_values = Keyword(new_values_); !new_values.empty())
    sql.Option(new_values).Append(" NEW VALUES");
  return sql.Take();
}

bool LogOptions::LogsAnything() const {
  return object_id_ || primary_key_ || row_id_ || sequence_ || columns_ ||
         new_values_ != REPNewValues_e::None;
}

}  // namespace repora

REPCreateMaterializedViewLog::REPCreateMaterializedViewLog() = default;

REPCreateMaterializedViewLog::~REPCreateMaterializedViewLog() = default;

REPProcess_e REPCreateMaterializedViewLog::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const table = processor->FindItemPtr(processor->GetRoot(), ORVTypes::oEntity, table_.Get());
  if (!table) {
    processor->DisplayWarning(REPMessage::LogTableMissing, repora::AsWritten(table_.Get()));
    return REPProcessError;
  }
  auto const name = LogName();
  MOXActionSummaryItem* log = nullptr;
  if (auto const result =
          processor->AddItem(table->Id(), ORVTypes::oOracleCachedViewLog, &name, log);
      result != REPProcessOK)
    return result;
  // A later run knows the log by its schema and name.
  repora::SetOwnerOf(*log, &name);
  WriteOptions(*processor, *log);
  WriteSegment(*processor, *log);
  if (partitioning_) {
    if (auto const result = partitioning_->Process(processor, log, table); result != REPProcessOK)
      return result;
  }
  return WriteColumns(*processor, *table, *log);
}

std::string REPCreateMaterializedViewLog::AsString() const {
  repora::SqlText sql("CREATE MATERIALIZED VIEW LOG ON ");
  sql.Name(table_.Get()).Append(StorageText()).Append(ParallelText());
  if (ContentsGiven()) sql.Append(" WITH ").Append(ContentsText());
  return sql.Option(repora::TextOf(partitioning_.Get())).Take();
}
