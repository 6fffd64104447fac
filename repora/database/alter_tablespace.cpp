#include "repora/database/alter_tablespace.h"

#include <algorithm>
#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

bool IsBetween(REPOnOff_e value, REPOnOff_e first, REPOnOff_e last) {
  return value >= first && value <= last;
}

void WriteTempPerm(MOXActionSummaryItem& tablespace, REPTempPerm_e value) {
  if (value == REPTempPerm_e::Temporary)
    repora::SetInteger(tablespace, ORVTypes::pTablespaceType, codes::kTemporaryTablespace);
  if (value == REPTempPerm_e::Permanent)
    repora::SetInteger(tablespace, ORVTypes::pTablespaceType, codes::kPermanentTablespace);
}

void WriteReadWrite(MOXActionSummaryItem& tablespace, REPReadWrite_e value) {
  if (value == REPReadWrite_e::ReadOnly) repora::SetBoolean(tablespace, ORVTypes::pReadOnly, true);
  if (value == REPReadWrite_e::ReadWrite)
    repora::SetBoolean(tablespace, ORVTypes::pReadOnly, false);
}

// What a state of the files says about their being offline.
void WriteFileState(MOXActionSummaryItem& file, REPOnOff_e value) {
  if (value == REPOnOff_e::DatafileOnline || value == REPOnOff_e::TempfileOnline)
    repora::SetBoolean(file, ORVTypes::pOracleOffline, false);
  if (value == REPOnOff_e::DatafileOffline || value == REPOnOff_e::TempfileOffline)
    repora::SetBoolean(file, ORVTypes::pOracleOffline, true);
}

}  // namespace

REPProcess_e REPAlterTablespace::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const tablespace =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOracleTablespace, name_.Get());
  if (!tablespace) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oOracleTablespace),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  repora::WriteCompress(*tablespace, compress_);
  if (default_storage_.GetClausePresent()) default_storage_.Process(processor, tablespace);
  repora::SetTextIfGiven(*tablespace, ORVTypes::pMinimumExtent, min_extent_.AsString());
  if (auto const result = AddFiles(processor, tablespace); result != REPProcessOK) return result;
  auto const renamed_files = RenameFiles(processor, *tablespace);
  ChangeFiles(processor, *tablespace);
  if (auto const result = Rename(processor, tablespace); result != REPProcessOK) return result;
  repora::WriteLogging(*tablespace, logging_);
  ChangeGroup(processor, *tablespace);
  repora::WriteOnOff(*tablespace, on_off_);
  WriteTempPerm(*tablespace, temp_perm_);
  WriteReadWrite(*tablespace, read_write_);
  repora::WriteFlashback(*tablespace, flashback_);
  repora::WriteRetention(*tablespace, retention_);
  return renamed_files;
}

REPProcess_e REPAlterTablespace::AddFiles(REPProcessor* processor,
                                          MOXActionSummaryItem* tablespace) const {
  for (auto const* const files : {add_datafiles_.Get(), add_tempfiles_.Get()}) {
    if (!files) continue;
    if (auto const result = files->Process(processor, tablespace); result != REPProcessOK)
      return result;
  }
  return REPProcessOK;
}

// Goes through all pairs and returns the last refusal. A file that is not there is reported and
// no refusal.
REPProcess_e REPAlterTablespace::RenameFiles(REPProcessor* processor,
                                             MOXActionSummaryItem const& tablespace) const {
  if (!rename_from_ || !rename_to_) return REPProcessOK;
  auto const type = ORVTypes::oOraclePhysicalFile;
  auto const warn = [&](REPMessage message, REPName const& file) {
    processor->DisplayWarning(message,
                              processor->GetObjectDisplayString(ORVTypes::oOracleTablespace),
                              repora::AsWritten(name_.Get()), file.GetFullName(false));
  };
  auto kept = REPProcessOK;
  auto const pairs = std::min(rename_from_->GetCount(), rename_to_->GetCount());
  for (int i = 0; i < pairs; ++i) {
    auto const* const from = rename_from_->GetName(i);
    auto const* const to = rename_to_->GetName(i);
    auto* const file = processor->FindItemPtr(tablespace.Id(), type, from);
    if (!file) {
      warn(REPMessage::AlterDatafileMissing, *from);
    } else if (auto const result = processor->ReplaceItem(tablespace.Id(), type, from, to);
               result != REPProcessOK) {
      warn(REPMessage::DatafileNotRenamed, *from);
      kept = result;
    } else {
      processor->SetNameProp(file, to);
    }
  }
  return kept;
}

void REPAlterTablespace::ChangeFiles(REPProcessor* processor,
                                     MOXActionSummaryItem const& tablespace) const {
  auto const size = resize_.AsString();
  if (data_temp_on_off_ == REPOnOff_e::None && size.empty() && !autoextend_.GetClausePresent())
    return;
  std::vector<MOXActionSummaryItem*> files;
  processor->FindSummaryChildrenByType(tablespace.Id(), ORVTypes::oOraclePhysicalFile, files);
  for (auto* const file : files) {
    WriteFileState(*file, data_temp_on_off_);
    repora::SetTextIfGiven(*file, ORVTypes::pOracleFileSize, size);
    autoextend_.Process(processor, file);
  }
}

REPProcess_e REPAlterTablespace::Rename(REPProcessor* processor,
                                        MOXActionSummaryItem* tablespace) const {
  if (!new_name_) return REPProcessOK;
  auto const root = processor->GetRoot();
  auto const type = ORVTypes::oOracleTablespace;
  if (processor->FindItem(root, type, new_name_.Get()) != 0) {
    processor->DisplayWarning(REPMessage::RenameTargetExists,
                              processor->GetObjectDisplayString(type),
                              repora::AsWritten(name_.Get()), repora::AsWritten(new_name_.Get()));
    return REPProcessError;
  }
  auto const result = processor->ReplaceItem(root, type, name_.Get(), new_name_.Get());
  if (result == REPProcessOK) processor->SetNameProp(tablespace, new_name_.Get());
  return result;
}

void REPAlterTablespace::ChangeGroup(REPProcessor* processor,
                                     MOXActionSummaryItem& tablespace) const {
  if (!group_name_) return;
  if (repora::IsNoGroup(*group_name_)) {
    tablespace.RemoveProperty(ORVTypes::pTablespaceGroupRef);
    return;
  }
  MOXActionSummaryItem* group = nullptr;
  // A group that is there already is handed out as well.
  processor->AddItem(processor->GetRoot(), ORVTypes::oTablespaceGroup, group_name_.Get(), group);
  if (group) repora::SetReference(tablespace, ORVTypes::pTablespaceGroupRef, group->Id());
}

std::string REPAlterTablespace::AsString() const {
  auto const compress = repora::Keyword(compress_);
  SqlText sql("ALTER TABLESPACE ");
  sql.Name(name_.Get());
  if (default_storage_.GetClausePresent() || !compress.empty()) {
    sql.Append(" DEFAULT ");
    if (!compress.empty()) sql.Append(compress).Append(" ");
    if (default_storage_.GetClausePresent()) sql.Append(default_storage_.AsString());
  }
  sql.Append(min_extent_.AsString(" MINIMUM EXTENT "))
      .Append(resize_.AsString(" RESIZE "))
      .AppendIf(coalesce_, " COALESCE")
      .Clause(" RENAME TO ", new_name_.Get())
      .Option(repora::Keyword(backup_));
  if (add_datafiles_) sql.Append(" ADD DATAFILE ").Append(add_datafiles_->AsString(true));
  if (add_tempfiles_) sql.Append(" ADD TEMPFILE ").Append(add_tempfiles_->AsString(true));
  if (rename_from_ && rename_to_)
    sql.Append(" RENAME DATA FILE ")
        .Append(rename_from_->AsString(false))
        .Append(" TO ")
        .Append(rename_to_->AsString(false));
  if (IsBetween(data_temp_on_off_, REPOnOff_e::DatafileOnline, REPOnOff_e::TempfileOffline))
    sql.Option(repora::Keyword(data_temp_on_off_));
  sql.Option(repora::Keyword(logging_)).Append(repora::GroupText(group_name_.Get()));
  if (IsBetween(on_off_, REPOnOff_e::Online, REPOnOff_e::OfflineImmediate))
    sql.Option(repora::Keyword(on_off_));
  sql.Option(repora::Keyword(read_write_)).Option(repora::Keyword(temp_perm_));
  if (autoextend_.GetClausePresent()) sql.Append(" ").Append(autoextend_.AsString());
  return sql.Clause(" FLASHBACK ", repora::Keyword(flashback_))
      .Option(repora::Keyword(retention_))
      .Take();
}
