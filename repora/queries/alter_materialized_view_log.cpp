#include "repora/queries/alter_materialized_view_log.h"

#include "repora/core/processor.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/extents.h"
#include "repora/tables/alter_partitions.h"

using repora::TextOf;

REPAlterMaterializedViewLog::REPAlterMaterializedViewLog() = default;

REPAlterMaterializedViewLog::~REPAlterMaterializedViewLog() = default;

REPProcess_e REPAlterMaterializedViewLog::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const find = [&](std::uint32_t owner, MOXId type, REPName const* name) {
    auto* const item = processor->FindItemPtr(owner, type, name);
    if (!item)
      processor->DisplayWarning(REPMessage::AlterTargetMissing,
                                processor->GetObjectDisplayString(type), repora::AsWritten(name));
    return item;
  };
  auto* const table = find(processor->GetRoot(), ORVTypes::oEntity, table_.Get());
  if (!table) return REPProcessError;
  auto const name = LogName();
  auto* const log = find(table->Id(), ORVTypes::oOracleCachedViewLog, &name);
  if (!log) return REPProcessError;
  WriteOptions(*processor, *log);
  if (auto const result = WriteColumns(*processor, *table, *log); result != REPProcessOK)
    return result;
  WriteSegment(*processor, *log);
  if (partitioning_) {
    if (auto const result = partitioning_->Process(processor, log); result != REPProcessOK)
      return result;
  }
  return allocate_ ? allocate_->Process(log) : REPProcessOK;
}

std::string REPAlterMaterializedViewLog::AsString() const {
  repora::SqlText sql("ALTER MATERIALIZED VIEW LOG ");
  sql.AppendIf(force_, "FORCE ")
      .Append("ON ")
      .Name(table_.Get())
      .Append(StorageText())
      .Option(repora::Keyword(shrink_))
      .Append(ParallelText())
      .Option(TextOf(partitioning_.Get()))
      .Option(TextOf(allocate_.Get()));
  if (LogsAnything()) sql.Append(" ADD ").Append(ContentsText());
  return sql.Take();
}
