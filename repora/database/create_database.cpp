#include "repora/database/create_database.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

REPName SimpleName(std::string const& text) {
  REPName name;
  name.AddTail(text.c_str());
  return name;
}

// A tablespace that the database has of its own. Its name is made from that of the database.
REPProcess_e AddOwnTablespace(REPProcessor* processor, std::string const& name,
                              REPDataFileClause const* files, std::int32_t system_type,
                              MOXActionSummaryItem*& tablespace) {
  auto const tablespace_name = SimpleName(name);
  if (auto const result = processor->AddItem(processor->GetRoot(), ORVTypes::oOracleTablespace,
                                             &tablespace_name, tablespace);
      result != REPProcessOK)
    return result;
  if (files)
    if (auto const result = files->Process(processor, tablespace); result != REPProcessOK)
      return result;
  repora::SetInteger(*tablespace, ORVTypes::pTablespaceSystemType, system_type);
  return REPProcessOK;
}

bool IsLocal(REPExtent_e extent) {
  return extent == REPExtent_e::Local || extent == REPExtent_e::LocalAutoAllocate ||
         extent == REPExtent_e::LocalUniform;
}

}  // namespace

namespace repora {

MOXActionSummaryItem* TablespaceOf(REPProcessor* processor, char const* name) {
  auto const tablespace = SimpleName(name);
  return processor->FindSummaryPtrById(
      processor->FindCreateItem(processor->GetRoot(), ORVTypes::oOracleTablespace, &tablespace));
}

}  // namespace repora

std::string REPTimeZoneClause::AsString() const {
  if (kind_ == REPTimeZone_e::Region) return region_.str();
  if (kind_ != REPTimeZone_e::Offset) return {};
  return SqlText(minus_ ? "-" : "+").Number(hour_).Append(":").Number(minute_).Take();
}

REPProcess_e REPUndoTableSpaceClause::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* database) const {
  if (!processor || !database) return REPProcessError;
  if (name_.empty()) return REPProcessOK;
  auto* const tablespace = repora::TablespaceOf(processor, name_.c_str());
  if (!tablespace) return REPProcessError;
  repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kUndoTablespace);
  repora::SetReference(*database, ORVTypes::pUndoTablespaceRef, tablespace->Id());
  repora::WriteFileSize(*tablespace, file_size_);
  return files_ ? files_->Process(processor, tablespace) : REPProcessOK;
}

std::string REPUndoTableSpaceClause::AsString() const {
  if (name_.empty()) return {};
  return SqlText()
      .Option(repora::Keyword(file_size_))
      .Append(" UNDO TABLESPACE ")
      .Append(name_)
      .Option(repora::TextOf(files_.Get()))
      .Take();
}

REPProcess_e REPCreateDatabase::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  // One segment: the domain is part of the name, and no owner.
  auto const full_name =
      repora::IsGiven(name_.Get()) ? name_->GetFullName(false) : repora::kDefaultDatabase;
  auto name = SimpleName(full_name);
  name.SetQuoted(name_ && name_->IsQuoted());
  MOXActionSummaryItem* database = nullptr;
  if (auto const result =
          processor->AddItem(processor->GetRoot(), ORVTypes::oOracleDatabase, &name, database);
      result != REPProcessOK)
    return result;
  WriteOptions(*database);
  if (log_files_) log_files_->Process(processor, database);
  WriteLogOptions(*database);
  if (auto const result = AddSystem(processor, *database, full_name + "_SYSTEM");
      result != REPProcessOK)
    return result;
  if (auto const result = AddSysaux(processor, *database, full_name + "_SYSAUX");
      result != REPProcessOK)
    return result;
  repora::WriteFileSize(*database, default_size_);
  AddTemporary(processor, *database);
  AddDefault(processor, *database);
  undo_.Process(processor, database);
  repora::SetTextIfGiven(*database, ORVTypes::pTimeZone, time_zone_.AsString());
  return REPProcessOK;
}

void REPCreateDatabase::WriteOptions(MOXActionSummaryItem& database) const {
  if (controlfile_reuse_) repora::SetBoolean(database, ORVTypes::pOracleControlFileReuse, true);
  repora::SetTextIfGiven(database, ORVTypes::pOracleMaxDataFiles, max_data_files_);
  repora::SetTextIfGiven(database, ORVTypes::pOracleMaxInstances, max_instances_);
  repora::SetTextIfGiven(database, ORVTypes::pOracleCharacterSet, char_set_);
  repora::SetTextIfGiven(database, ORVTypes::pNationalCharacterSet, national_char_set_);
}

void REPCreateDatabase::WriteLogOptions(MOXActionSummaryItem& database) const {
  repora::SetTextIfGiven(database, ORVTypes::pOracleMaxLogFiles, max_log_files_);
  repora::SetTextIfGiven(database, ORVTypes::pOracleMaxLogMembers, max_log_members_);
  repora::SetTextIfGiven(database, ORVTypes::pOracleMaxLogHistory, max_log_history_);
  if (archive_logging_ == REPLogging_e::Logging)
    repora::SetBoolean(database, ORVTypes::pOracleArchiveLog, true);
  if (archive_logging_ == REPLogging_e::NoLogging)
    repora::SetBoolean(database, ORVTypes::pOracleArchiveLog, false);
  if (force_logging_) repora::SetBoolean(database, ORVTypes::pForceLogging, true);
}

REPProcess_e REPCreateDatabase::AddSystem(REPProcessor* processor, MOXActionSummaryItem& database,
                                          std::string const& name) const {
  bool const local = IsLocal(extent_.GetExtent());
  if (!data_files_ && !local) return REPProcessOK;
  MOXActionSummaryItem* system = nullptr;
  if (auto const result =
          AddOwnTablespace(processor, name, data_files_.Get(), codes::kSystemTablespace, system);
      result != REPProcessOK)
    return result;
  repora::SetReference(database, ORVTypes::pSystemOracleTablespaceRef, system->Id());
  if (local) repora::SetInteger(*system, ORVTypes::pExtentManagementType, codes::kExtentsLocal);
  return REPProcessOK;
}

REPProcess_e REPCreateDatabase::AddSysaux(REPProcessor* processor, MOXActionSummaryItem& database,
                                          std::string const& name) const {
  if (!sysaux_files_) return REPProcessOK;
  MOXActionSummaryItem* sysaux = nullptr;
  if (auto const result =
          AddOwnTablespace(processor, name, sysaux_files_.Get(), codes::kSysauxTablespace, sysaux);
      result != REPProcessOK)
    return result;
  repora::SetReference(database, ORVTypes::pAuxiliaryOracleTablespaceRef, sysaux->Id());
  return REPProcessOK;
}

void REPCreateDatabase::AddTemporary(REPProcessor* processor,
                                     MOXActionSummaryItem& database) const {
  if (temp_tablespace_.empty()) return;
  auto* const tablespace = repora::TablespaceOf(processor, temp_tablespace_.c_str());
  if (!tablespace) return;
  repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kTemporaryTablespace);
  repora::SetReference(database, ORVTypes::pDefaultTempTablespaceRef, tablespace->Id());
  repora::WriteFileSize(*tablespace, temp_size_);
  if (temp_files_) temp_files_->Process(processor, tablespace);
  temp_extent_.Process(processor, tablespace);
}

void REPCreateDatabase::AddDefault(REPProcessor* processor, MOXActionSummaryItem& database) const {
  if (default_tablespace_.empty()) return;
  auto* const tablespace = repora::TablespaceOf(processor, default_tablespace_.c_str());
  if (!tablespace) return;
  repora::SetReference(database, ORVTypes::pDefaultTablespaceRef, tablespace->Id());
  repora::WriteFileSize(*tablespace, default_size_);
  if (default_files_) default_files_->Process(processor, tablespace);
  default_extent_.Process(processor, tablespace);
}

std::string REPCreateDatabase::AsString() const {
  SqlText sql("CREATE DATABASE");
  sql.Option(repora::AsWritten(name_.Get()))
      .Clause(" USER SYS IDENTIFIED BY ", sys_password_)
      .Clause(" USER SYSTEM IDENTIFIED BY ", system_password_)
      .AppendIf(controlfile_reuse_, " CONTROLFILE REUSE")
      .Clause(" MAXDATAFILES ", max_data_files_)
      .Clause(" MAXINSTANCES ", max_instances_)
      .Clause(" CHARACTER SET ", char_set_)
      .Clause(" NATIONAL CHARACTER SET ", national_char_set_);
  if (auto const size = repora::Keyword(default_size_); !size.empty())
    sql.Append(" SET DEFAULT ").Append(size).Append(" TABLESPACE");
  sql.Option(repora::TextOf(log_files_.Get()))
      .Clause(" MAXLOGFILES ", max_log_files_)
      .Clause(" MAXLOGMEMBERS ", max_log_members_)
      .Clause(" MAXLOGHISTORY ", max_log_history_)
      .Clause(" SET STANDBY DATABASE ", repora::Keyword(standby_))
      .AppendIf(archive_logging_ == REPLogging_e::Logging, " ARCHIVELOG")
      .AppendIf(archive_logging_ == REPLogging_e::NoLogging, " NOARCHIVELOG")
      .AppendIf(force_logging_, " FORCE LOGGING")
      .Append(extent_.AsString())
      .Option(repora::TextOf(data_files_.Get()))
      .Clause(" SYSAUX ", repora::TextOf(sysaux_files_.Get()))
      .Clause(" DEFAULT TABLESPACE ", default_tablespace_)
      .Append(undo_.AsString());
  if (!temp_tablespace_.empty())
    sql.Option(repora::Keyword(temp_size_))
        .Append(" DEFAULT TEMPORARY TABLESPACE ")
        .Append(temp_tablespace_);
  // A file may be without a name and options: the server chooses both.
  if (temp_files_) sql.Append(" TEMPFILE ").Append(temp_files_->FilesAsString());
  sql.Append(temp_extent_.AsString());
  if (auto const zone = time_zone_.AsString(); !zone.empty())
    sql.Append(" SET TIME_ZONE='").Append(zone).Append("'");
  return sql.Append(";").Take();
}
