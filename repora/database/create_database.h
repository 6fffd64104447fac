#pragma once

#include <string>
#include <utility>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/database/log_files.h"
#include "repora/database/tablespace_options.h"

class MOXActionSummaryItem;

enum class REPTimeZone_e : int { None, Offset, Region };

namespace repora {

// The name of the database that a statement means when it names none.
inline constexpr char kDefaultDatabase[] = "DB_NAME";

// The tablespace of that name under the root, made when there is none; null outside a run.
MOXActionSummaryItem* TablespaceOf(REPProcessor* processor, char const* name);

}  // namespace repora

// '{+ | -}hh:mi' | 'region'
class REPTimeZoneClause final {
 public:
  // Without quotes. Hours and minutes have as many digits as they need.
  virtual std::string AsString() const;

  void SetKind(REPTimeZone_e kind) { kind_ = kind; }
  REPTimeZone_e GetKind() const { return kind_; }
  void SetMinus(bool minus) { minus_ = minus; }
  bool GetMinus() const { return minus_; }
  void SetHour(int hour) { hour_ = hour; }
  int GetHour() const { return hour_; }
  void SetMinute(int minute) { minute_ = minute; }
  int GetMinute() const { return minute_; }
  // The region; the kind stays.
  void SetTimeZone(char const* region) { region_ = region; }
  char const* GetTimeZone() const { return region_.c_str(); }

 private:
  REPTimeZone_e kind_{};
  bool minus_ = false;
  int hour_ = 0;
  int minute_ = 0;
  repora::Text region_;
};

// [SMALLFILE | BIGFILE] UNDO TABLESPACE name [DATAFILE file [, file]...]
class REPUndoTableSpaceClause {
 public:
  virtual ~REPUndoTableSpaceClause() = default;
  // With a leading blank; empty without a name.
  virtual std::string AsString() const;

  REPUndoTableSpaceClause() = default;
  REPUndoTableSpaceClause(REPUndoTableSpaceClause const&) = default;
  REPUndoTableSpaceClause& operator=(REPUndoTableSpaceClause const&) = default;

  void SetTablespace(char const* name) { name_ = name; }
  char const* GetTablespace() const { return name_.c_str(); }
  void SetDataFiles(REPDataFileClause* files) { files_.Set(files); }
  REPDataFileClause* GetDataFiles() const { return files_.Get(); }
  void SetFileSize(REPFileSize_e size) { file_size_ = size; }
  REPFileSize_e GetFileSize() const { return file_size_; }

  // Makes or completes the tablespace and links the database to it; nothing without a name.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const;

 private:
  repora::Text name_;
  repora::Owned<REPDataFileClause> files_;
  REPFileSize_e file_size_{};
};

// CREATE DATABASE [name] [USER SYS IDENTIFIED BY password] [USER SYSTEM IDENTIFIED BY password]
//   [CONTROLFILE REUSE] [MAXDATAFILES n] [MAXINSTANCES n] [CHARACTER SET set]
//   [NATIONAL CHARACTER SET set] [SET DEFAULT {SMALLFILE | BIGFILE} TABLESPACE]
//   [LOGFILE log_file [, log_file]...] [MAXLOGFILES n] [MAXLOGMEMBERS n] [MAXLOGHISTORY n]
//   [SET STANDBY DATABASE {PROTECTED | UNPROTECTED}] [ARCHIVELOG | NOARCHIVELOG] [FORCE LOGGING]
//   [EXTENT MANAGEMENT LOCAL] [DATAFILE file [, file]...] [SYSAUX DATAFILE file [, file]...]
//   [DEFAULT TABLESPACE name [DATAFILE file [, file]...] [EXTENT MANAGEMENT ...]]
//   [[SMALLFILE | BIGFILE] UNDO TABLESPACE name [DATAFILE file [, file]...]]
//   [[SMALLFILE | BIGFILE] DEFAULT TEMPORARY TABLESPACE name [TEMPFILE file [, file]...]
//     [EXTENT MANAGEMENT ...]]
//   [SET TIME_ZONE = 'zone']
// Passwords and the protection by a standby database are not part of the model.
class REPCreateDatabase final : public REPStatement {
 public:
  void SetDatabase(REPName* name) { name_.Set(name); }
  REPName* GetDatabase() const { return name_.Get(); }
  // As written, with their quotes.
  void SetSysPassword(char const* password) { sys_password_ = password; }
  char const* GetSysPassword() const { return sys_password_.c_str(); }
  void SetSystemPassword(char const* password) { system_password_ = password; }
  char const* GetSystemPassword() const { return system_password_.c_str(); }
  void SetControlfileReuse(bool reuse) { controlfile_reuse_ = reuse; }
  bool GetControlfileReuse() const { return controlfile_reuse_; }
  void SetMaxDataFiles(char const* number) { max_data_files_ = number; }
  char const* GetMaxDataFiles() const { return max_data_files_.c_str(); }
  void SetMaxInstances(char const* number) { max_instances_ = number; }
  char const* GetMaxInstances() const { return max_instances_.c_str(); }
  void SetCharSet(char const* name) { char_set_ = name; }
  char const* GetCharSet() const { return char_set_.c_str(); }
  void SetNationalCharSet(char const* name) { national_char_set_ = name; }
  char const* GetNationalCharSet() const { return national_char_set_.c_str(); }
  void SetLogFiles(REPLogFileClause* files) { log_files_.Set(files); }
  REPLogFileClause* GetLogFiles() const { return log_files_.Get(); }
  void SetMaxLogFiles(char const* number) { max_log_files_ = number; }
  char const* GetMaxLogFiles() const { return max_log_files_.c_str(); }
  void SetMaxLogMembers(char const* number) { max_log_members_ = number; }
  char const* GetMaxLogMembers() const { return max_log_members_.c_str(); }
  void SetMaxLogHistory(char const* number) { max_log_history_ = number; }
  char const* GetMaxLogHistory() const { return max_log_history_.c_str(); }
  // Logging stands for ARCHIVELOG, NoLogging for NOARCHIVELOG.
  void SetArchiveLogging(REPLogging_e logging) { archive_logging_ = logging; }
  REPLogging_e GetArchiveLogging() const { return archive_logging_; }
  void SetForceLogging(bool force) { force_logging_ = force; }
  bool GetForceLogging() const { return force_logging_; }
  // Of the system tablespace.
  void SetExtent(REPExtent_e extent) { extent_.SetExtent(extent); }
  REPExtent_e GetExtent() const { return extent_.GetExtent(); }
  void SetExtentSize(REPSizeClause size) { extent_.SetSize(std::move(size)); }
  REPSizeClause GetExtentSize() const { return extent_.GetSize(); }
  void SetDataFiles(REPDataFileClause* files) { data_files_.Set(files); }
  REPDataFileClause* GetDataFiles() const { return data_files_.Get(); }
  void SetSysAuxDataFiles(REPDataFileClause* files) { sysaux_files_.Set(files); }
  REPDataFileClause* GetSysAuxDataFiles() const { return sysaux_files_.Get(); }
  // Of the tablespaces to come, and of the default one.
  void SetDefaultSize(REPFileSize_e size) { default_size_ = size; }
  REPFileSize_e GetDefaultSize() const { return default_size_; }
  void SetDefaultTablespace(char const* name) { default_tablespace_ = name; }
  char const* GetDefaultTablespace() const { return default_tablespace_.c_str(); }
  // Files and extents of the default tablespace are not rendered.
  void SetDefaultDataFiles(REPDataFileClause* files) { default_files_.Set(files); }
  REPDataFileClause* GetDefaultDataFiles() const { return default_files_.Get(); }
  void SetDefaultExtent(REPExtent_e extent) { default_extent_.SetExtent(extent); }
  REPExtent_e GetDefaultExtent() const { return default_extent_.GetExtent(); }
  void SetDefaultExtentSize(REPSizeClause size) { default_extent_.SetSize(std::move(size)); }
  REPSizeClause GetDefaultExtentSize() const { return default_extent_.GetSize(); }
  void SetTempTablespace(char const* name) { temp_tablespace_ = name; }
  char const* GetTempTablespace() const { return temp_tablespace_.c_str(); }
  void SetTempDefaultSize(REPFileSize_e size) { temp_size_ = size; }
  REPFileSize_e GetTempDefaultSize() const { return temp_size_; }
  void SetTempFiles(REPDataFileClause* files) { temp_files_.Set(files); }
  REPDataFileClause* GetTempFiles() const { return temp_files_.Get(); }
  void SetTempExtent(REPExtent_e extent) { temp_extent_.SetExtent(extent); }
  REPExtent_e GetTempExtent() const { return temp_extent_.GetExtent(); }
  void SetTempExtentSize(REPSizeClause size) { temp_extent_.SetSize(std::move(size)); }
  REPSizeClause GetTempExtentSize() const { return temp_extent_.GetSize(); }
  void SetUndoSize(REPFileSize_e size) { undo_.SetFileSize(size); }
  REPFileSize_e GetUndoSize() const { return undo_.GetFileSize(); }
  void SetUndoTablespace(char const* name) { undo_.SetTablespace(name); }
  char const* GetUndoTablespace() const { return undo_.GetTablespace(); }
  void SetUndoDataFiles(REPDataFileClause* files) { undo_.SetDataFiles(files); }
  REPDataFileClause* GetUndoDataFiles() const { return undo_.GetDataFiles(); }
  void SetTimeZone(REPTimeZoneClause zone) { time_zone_ = std::move(zone); }
  REPTimeZoneClause GetTimeZone() const { return time_zone_; }
  void SetStandby(REPStandby_e standby) { standby_ = standby; }
  REPStandby_e GetStandby() const { return standby_; }

  // Adds the database and the tablespaces of the statement with their files. Duplicate when there
  // is a database of the name, or one of the tablespaces of the system.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  void WriteOptions(MOXActionSummaryItem& database) const;
  void WriteLogOptions(MOXActionSummaryItem& database) const;
  REPProcess_e AddSystem(REPProcessor* processor, MOXActionSummaryItem& database,
                         std::string const& name) const;
  REPProcess_e AddSysaux(REPProcessor* processor, MOXActionSummaryItem& database,
                         std::string const& name) const;
  void AddTemporary(REPProcessor* processor, MOXActionSummaryItem& database) const;
  void AddDefault(REPProcessor* processor, MOXActionSummaryItem& database) const;

  repora::Owned<REPName> name_;
  repora::Text sys_password_;
  repora::Text system_password_;
  bool controlfile_reuse_ = false;
  repora::Text max_data_files_;
  repora::Text max_instances_;
  repora::Text char_set_;
  repora::Text national_char_set_;
  repora::Owned<REPLogFileClause> log_files_;
  repora::Text max_log_files_;
  repora::Text max_log_members_;
  repora::Text max_log_history_;
  REPLogging_e archive_logging_{};
  bool force_logging_ = false;
  REPExtentMgmtClause extent_;
  repora::Owned<REPDataFileClause> data_files_;
  repora::Owned<REPDataFileClause> sysaux_files_;
  REPFileSize_e default_size_{};
  repora::Text default_tablespace_;
  repora::Owned<REPDataFileClause> default_files_;
  REPExtentMgmtClause default_extent_;
  repora::Text temp_tablespace_;
  REPFileSize_e temp_size_{};
  repora::Owned<REPDataFileClause> temp_files_;
  REPExtentMgmtClause temp_extent_;
  REPUndoTableSpaceClause undo_;
  REPTimeZoneClause time_zone_;
  REPStandby_e standby_{};
};
