#include "repora/database/tablespaces.h"

#include "repora/core/letters.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

void WriteSystemType(MOXActionSummaryItem& tablespace, std::string const& name) {
  if (repora::EqualsIgnoringCase(name, "SYSTEM"))
    repora::SetInteger(tablespace, ORVTypes::pTablespaceSystemType, codes::kSystemTablespace);
  if (repora::EqualsIgnoringCase(name, "SYSAUX"))
    repora::SetInteger(tablespace, ORVTypes::pTablespaceSystemType, codes::kSysauxTablespace);
}

// "SMALLFILE " or "BIGFILE ".
void AppendFileSize(SqlText& sql, REPFileSize_e size) {
  auto const keyword = repora::Keyword(size);
  if (!keyword.empty()) sql.Append(keyword).Append(" ");
}

void AppendDefaultStorage(SqlText& sql, REPCompress_e compress, REPStorageClause const& storage) {
  if (!storage.GetClausePresent()) return;
  sql.Append(" DEFAULT").Option(repora::Keyword(compress)).Option(storage.AsString());
}

}  // namespace

REPProcess_e REPCreateTablespace::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* tablespace = nullptr;
  if (auto const result = processor->AddItem(processor->GetRoot(), ORVTypes::oOracleTablespace,
                                             name_.Get(), tablespace);
      result != REPProcessOK)
    return result;
  repora::SetTextIfGiven(*tablespace, ORVTypes::pBlocksizeValue, block_size_.AsString());
  repora::WriteCompress(*tablespace, compress_);
  if (temp_perm_ == REPTempPerm_e::Temporary) {
    repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kTemporaryTablespace);
    repora::SetInteger(*tablespace, ORVTypes::pExtentManagementType, codes::kExtentsInDictionary);
  } else {
    repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kPermanentTablespace);
  }
  repora::WriteExtents(*tablespace, extent_, extent_size_);
  repora::WriteFlashback(*tablespace, flashback_);
  if (force_logging_) repora::SetBoolean(*tablespace, ORVTypes::pForceLogging, true);
  repora::SetTextIfGiven(*tablespace, ORVTypes::pMinimumExtent, min_extent_.AsString());
  repora::WriteLogging(*tablespace, logging_);
  repora::WriteOnOff(*tablespace, on_off_);
  if (default_storage_.GetClausePresent()) default_storage_.Process(processor, tablespace);
  repora::WriteRetention(*tablespace, retention_);
  repora::WriteSegments(*tablespace, segment_);
  repora::WriteFileSize(*tablespace, file_size_);
  if (undo_) repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kUndoTablespace);
  if (data_files_) data_files_->Process(processor, tablespace);
  WriteSystemType(*tablespace, repora::AsWritten(name_.Get()));
  return REPProcessOK;
}

std::string REPCreateTablespace::AsString() const {
  SqlText sql("CREATE ");
  AppendFileSize(sql, file_size_);
  sql.AppendIf(undo_, "UNDO ").Append("TABLESPACE ").Name(name_.Get());
  if (data_files_) sql.Append(" ").Append(data_files_->AsString());
  sql.Append(min_extent_.AsString(" MINIMUM EXTENT "))
      .Append(block_size_.AsString(" BLOCKSIZE "))
      .AppendIf(force_logging_, " FORCE LOGGING");
  if (logging_ == REPLogging_e::Logging || logging_ == REPLogging_e::NoLogging)
    sql.Option(repora::Keyword(logging_));
  AppendDefaultStorage(sql, compress_, default_storage_);
  if (on_off_ == REPOnOff_e::Online || on_off_ == REPOnOff_e::Offline)
    sql.Option(repora::Keyword(on_off_));
  sql.Option(repora::Keyword(temp_perm_));
  if (extent_ == REPExtent_e::Uniform)
    sql.Append(" EXTENT MANAGEMENT ");
  else
    sql.Clause(" EXTENT MANAGEMENT ", repora::Keyword(extent_));
  if (extent_ == REPExtent_e::LocalUniform) sql.Append(extent_size_.AsString(" SIZE "));
  return sql.Clause(" SEGMENT SPACE MANAGEMENT ", repora::Keyword(segment_))
      .Clause(" FLASHBACK  ", repora::Keyword(flashback_))
      .Clause(" RETENTION  ", repora::Keyword(retention_))
      .Append(";")
      .Take();
}

REPProcess_e REPCreateTemporaryTablespace::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* tablespace = nullptr;
  if (auto const result = processor->AddItem(processor->GetRoot(), ORVTypes::oOracleTablespace,
                                             name_.Get(), tablespace);
      result != REPProcessOK)
    return result;
  repora::SetTextIfGiven(*tablespace, ORVTypes::pBlocksizeValue, block_size_.AsString());
  repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kTemporaryTablespace);
  repora::WriteExtents(*tablespace, extent_, extent_size_);
  repora::WriteFlashback(*tablespace, flashback_);
  repora::WriteSegments(*tablespace, segment_);
  if (group_name_ && !repora::IsNoGroup(*group_name_)) {
    MOXActionSummaryItem* group = nullptr;
    // A group that is there already is as good as a new one.
    processor->AddItem(processor->GetRoot(), ORVTypes::oTablespaceGroup, group_name_.Get(), group);
    if (group) repora::SetReference(*tablespace, ORVTypes::pTablespaceGroupRef, group->Id());
  }
  repora::WriteFileSize(*tablespace, file_size_);
  if (temp_files_) temp_files_->Process(processor, tablespace);
  return REPProcessOK;
}

std::string REPCreateTemporaryTablespace::AsString() const {
  SqlText sql("CREATE ");
  AppendFileSize(sql, file_size_);
  sql.Append("TEMPORARY TABLESPACE ").Name(name_.Get());
  if (temp_files_) sql.Append(" TEMPFILE ").Append(temp_files_->AsString(true));
  sql.Append(repora::GroupText(group_name_.Get()))
      .Append(block_size_.AsString(" BLOCKSIZE "))
      .Clause(extent_ == REPExtent_e::Uniform ? " " : " EXTENT MANAGEMENT ",
              repora::Keyword(extent_));
  if (extent_ == REPExtent_e::LocalUniform || extent_ == REPExtent_e::Uniform)
    sql.Append(extent_size_.AsString(" SIZE "));
  return sql.Clause(" SEGMENT SPACE MANAGEMENT ", repora::Keyword(segment_))
      .Clause(" FLASHBACK  ", repora::Keyword(flashback_))
      .Append(";")
      .Take();
}
