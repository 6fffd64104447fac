#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/database/log_files.h"

// CREATE CONTROLFILE [REUSE] [SET] DATABASE name [LOGFILE log_file [, log_file]...]
//   [RESETLOGS | NORESETLOGS] [DATAFILE file [, file]...] [MAXLOGFILES n] [MAXLOGMEMBERS n]
//   [MAXLOGHISTORY n] [MAXDATAFILES n] [MAXINSTANCES n] [ARCHIVELOG]
//   [FORCE LOGGING] [CHARACTER SET set]
// A control file describes a database that is there already, so the model has no object for it:
// the statement is unsupported. The limits are decimal texts for the setters, and -1 where none is
// given.
class REPCreateControlfile final : public REPStatement {
 public:
  void SetReuse(bool reuse) { reuse_ = reuse; }
  bool GetReuse() const { return reuse_; }
  void SetSet(bool set) { set_ = set; }
  bool GetSet() const { return set_; }
  void SetDatabase(REPName* name) { name_.Set(name); }
  REPName* GetDatabase() const { return name_.Get(); }
  void SetLogFileClause(REPLogFileClause* files) { log_files_.Set(files); }
  REPLogFileClause* GetLogFileClause() const { return log_files_.Get(); }
  void SetResetLogs(REPDBResetlogs_e reset) { reset_logs_ = reset; }
  REPDBResetlogs_e GetResetLogs() const { return reset_logs_; }
  void SetDataFileClause(REPDataFileClause* files) { data_files_.Set(files); }
  REPDataFileClause* GetDataFileClause() const { return data_files_.Get(); }
  void SetMaxLogFiles(char const* number) { max_log_files_ = repora::ToInt(number); }
  int GetMaxLogFiles() const { return max_log_files_; }
  void SetMaxLogMembers(char const* number) { max_log_members_ = repora::ToInt(number); }
  int GetMaxLogMembers() const { return max_log_members_; }
  void SetMaxLogHistory(char const* number) { max_log_history_ = repora::ToInt(number); }
  int GetMaxLogHistory() const { return max_log_history_; }
  void SetMaxDataFiles(char const* number) { max_data_files_ = repora::ToInt(number); }
  int GetMaxDataFiles() const { return max_data_files_; }
  void SetMaxInstances(char const* number) { max_instances_ = repora::ToInt(number); }
  int GetMaxInstances() const { return max_instances_; }
  void SetArchiveLog(bool archive) { archive_log_ = archive; }
  bool GetArchiveLog() const { return archive_log_; }
  void SetForceLogging(bool force) { force_logging_ = force; }
  bool GetForceLogging() const { return force_logging_; }
  void SetCharacterSet(char const* name) { character_set_ = name; }
  char const* GetCharacterSet() const { return character_set_.c_str(); }

  std::string AsString() const override;

 private:
  bool reuse_ = false;
  bool set_ = false;
  repora::Owned<REPName> name_;
  repora::Owned<REPLogFileClause> log_files_;
  REPDBResetlogs_e reset_logs_{};
  repora::Owned<REPDataFileClause> data_files_;
  int max_log_files_ = -1;
  int max_log_members_ = -1;
  int max_log_history_ = -1;
  int max_data_files_ = -1;
  int max_instances_ = -1;
  bool archive_log_ = false;
  bool force_logging_ = false;
  repora::Text character_set_;
};

// CREATE PFILE [= 'file'] FROM SPFILE [= 'file']
class REPCreatePFile final : public REPStatement {
 public:
  // File names without quotes; empty: the default file of the instance.
  void SetPFilename(char const* name) { pfile_ = name; }
  char const* GetPFilename() const { return pfile_.c_str(); }
  void SetSPFilename(char const* name) { spfile_ = name; }
  char const* GetSPFilename() const { return spfile_.c_str(); }

  // Keeps the statement as a script before the schema; Duplicate when there is one for the file.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Text pfile_;
  repora::Text spfile_;
};

// CREATE SPFILE [= 'file'] FROM PFILE [= 'file']
class REPCreateSPFile final : public REPStatement {
 public:
  // As in REPCreatePFile.
  void SetPFilename(char const* name) { pfile_ = name; }
  char const* GetPFilename() const { return pfile_.c_str(); }
  void SetSPFilename(char const* name) { spfile_ = name; }
  char const* GetSPFilename() const { return spfile_.c_str(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Text pfile_;
  repora::Text spfile_;
};
