#pragma once

#include <string>
#include <utility>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/database/log_files.h"
#include "repora/storage/parallel.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;

// The clause of an ALTER DATABASE. Those of the plural have a list of log groups.
enum class REPAlterDBType_e : int {
  None,
  Mount,
  Open,
  Recover,
  RenameFile,
  CreateDatafile,
  CreateDatafileAs,
  CreateDatafileAsNew,
  DatafileOnline,
  DatafileOffline,
  DatafileOfflineDrop,
  DatafileResize,
  DatafileAutoExtend,
  DatafileEndBackup,
  TempfileResize,
  TempfileAutoExtend,
  TempfileDrop,
  TempfileDropIncludingDatafiles,
  TempfileOnline,
  TempfileOffline,
  ArchiveLog,
  ArchiveLogManual,
  NoArchiveLog,
  ForceLogging,
  NoForceLogging,
  ClearLogfile,
  ClearUnarchivedLogfile,
  ClearLogfiles,
  ClearUnarchivedLogfiles,
  AddLogfile,
  AddLogfileInstance,
  AddLogfileThread,
  AddLogfileMember,
  AddStandbyLogfile,
  AddStandbyLogfileInstance,
  AddStandbyLogfileThread,
  AddStandbyLogfileMember,
  DropLogfile,
  DropLogfileMember,
  DropStandbyLogfile,
  DropStandbyLogfileMember,
  AddSupplementalLog,
  AddSupplementalLogColumns,
  DropSupplementalLog,
  DropSupplementalLogColumns,
  CreateStandbyControlfile,
  BackupControlfile,
  StandbyDatabase,
  DefaultFileSize,
  DefaultTablespace,
  DefaultTempTablespace,
  RenameGlobalName,
  EnableBlockTracking,
  EnableBlockTrackingFile,
  DisableBlockTracking,
  FlashbackOn,
  FlashbackOff,
  TimeZone,
  Redo,
  GuardAll,
  GuardStandby,
  GuardNone,
};

// Operands of the clauses.

// What MOUNT mounts; not given: the database itself.
enum class REPDBMount_e : int { None, StandbyDatabase, CloneDatabase };
enum class REPDBOpenMode_e : int { None, ReadWrite, ReadOnly };
enum class REPDBLogs_e : int { None, ResetLogs, NoResetLogs };
enum class REPDBUpDown_e : int { None, Upgrade, Downgrade };
// The form of RECOVER.
enum class REPDBRecover_e : int {
  None,
  Database,
  Tablespace,
  Datafile,
  LogFile,
  Continue,
  Cancel,
  Managed
};
enum class REPDBDisconnect_e : int { None, Disconnect, FromSession };
enum class REPDBTimeout_e : int { None, Timeout, NoTimeout };
enum class REPDBDelay_e : int { None, NoDelay, DefaultDelay, Delay };
enum class REPDBExpire_e : int { None, Expire, NoExpire };
enum class REPDBThrough_e : int {
  None,
  Sequence,
  AllArchiveLog,
  AllSwitchover,
  LastSwitchover,
  NextSwitchover
};
enum class REPDBWait_e : int { None, Wait, NoWait };
enum class REPDBSkip_e : int { None, Skip, StandbyLogFile };
enum class REPDBRedo_e : int {
  None,
  EnableThread,
  EnablePublicThread,
  DisableThread,
  DisablePublicThread,
  EnableInstance,
  DisableInstance
};
enum class REPDBLogPhys_e : int { None, Logical, Physical };
// The clause for standby databases.
enum class REPDBStandby_e : int {
  None,
  Activate,
  Maximize,
  Register,
  Switchover,
  StartApply,
  StopApply,
  AbortApply
};
enum class REPDBMaximize_e : int { None, Protection, Availability, Performance };
// How the apply of a logical standby database starts.
enum class REPDBStandbyStart_e : int { None, NewPrimary, Initial, SkipFailedTransaction, Finish };
enum class REPDBStandbyCommit_e : int { None, Prepare, Commit };
// What the database is after a switchover.
enum class REPDBSwitchover_e : int { None, Primary, Standby };
// WITH or WITHOUT SESSION SHUTDOWN.
enum class REPDBSession_e : int { None, With, Without };

// ALTER DATABASE [name] clause
// A statement has one clause, its type says which; the grammar of each stands at its rendering. The
// operands belong to one clause or another, and those of others are neither processed nor rendered.
// The model holds archiving, forced logging, log groups that are added, the default tablespaces and
// the time zone.
// File names, locations, zones and times are without quotes; a file name of digits alone is the
// number of the file.
class REPAlterDatabase final : public REPStatement {
 public:
  // Empty: the database of the script.
  void SetDatabaseName(char const* name) { name_ = name; }
  char const* GetDatabaseName() const { return name_.c_str(); }
  void SetAlterDBType(REPAlterDBType_e type) { type_ = type; }
  REPAlterDBType_e GetAlterDBType() const { return type_; }

  // Mount and open.
  void SetDBMount(REPDBMount_e value) { mount_ = value; }
  REPDBMount_e GetDBMount() const { return mount_; }
  void SetDBOpenMode(REPDBOpenMode_e value) { open_mode_ = value; }
  REPDBOpenMode_e GetDBOpenMode() const { return open_mode_; }
  void SetDBLogs(REPDBLogs_e value) { open_logs_ = value; }
  REPDBLogs_e GetDBLogs() const { return open_logs_; }
  void SetDBUpDown(REPDBUpDown_e value) { up_down_ = value; }
  REPDBUpDown_e GetDBUpDown() const { return up_down_; }

  // Recovery.
  void SetDBRecover(REPDBRecover_e value) { recover_ = value; }
  REPDBRecover_e GetDBRecover() const { return recover_; }
  void SetRecoverAutomatic(bool given) { recover_automatic_ = given; }
  bool GetRecoverAutomatic() const { return recover_automatic_; }
  // FROM 'location'
  void SetRecoverLoc(char const* text) { recover_location_ = text; }
  char const* GetRecoverLoc() const { return recover_location_.c_str(); }
  void SetRecoverLogFile(char const* text) { recover_log_file_ = text; }
  char const* GetRecoverLogFile() const { return recover_log_file_.c_str(); }
  void SetRecoverContinueDefault(bool given) { recover_continue_default_ = given; }
  bool GetRecoverContinueDefault() const { return recover_continue_default_; }
  void SetRecoverTest(bool given) { recover_test_ = given; }
  bool GetRecoverTest() const { return recover_test_; }
  // ALLOW n CORRUPTION
  void SetRecoverCorruption(char const* text) { recover_corruption_ = text; }
  char const* GetRecoverCorruption() const { return recover_corruption_.c_str(); }
  void SetRecoverParallel(REPParallelClause* value) { recover_parallel_.Set(value); }
  REPParallelClause* GetRecoverParallel() const { return recover_parallel_.Get(); }
  // STANDBY before what is recovered
  void SetRecoverStandby(bool given) { recover_standby_ = given; }
  bool GetRecoverStandby() const { return recover_standby_; }
  void SetRecoverUsingBackup(bool given) { recover_using_backup_ = given; }
  bool GetRecoverUsingBackup() const { return recover_using_backup_; }
  void SetRecoverUntilCancel(bool given) { recover_until_cancel_ = given; }
  bool GetRecoverUntilCancel() const { return recover_until_cancel_; }
  // Without quotes.
  void SetRecoverUntilTime(char const* text) { recover_until_time_ = text; }
  char const* GetRecoverUntilTime() const { return recover_until_time_.c_str(); }
  void SetRecoverUntilChange(char const* text) { recover_until_change_ = text; }
  char const* GetRecoverUntilChange() const { return recover_until_change_.c_str(); }
  // UNTIL CONSISTENT; of parts of a standby database, CONSISTENT WITH CONTROLFILE.
  void SetRecoverConsistentWith(bool given) { recover_consistent_with_ = given; }
  bool GetRecoverConsistentWith() const { return recover_consistent_with_; }
  void SetRecoverDisconnect(REPDBDisconnect_e value) { recover_disconnect_ = value; }
  REPDBDisconnect_e GetRecoverDisconnect() const { return recover_disconnect_; }
  void SetRecoverTimeout(REPDBTimeout_e value, char const* text = nullptr) {
    recover_timeout_ = value;
    recover_timeout_text_ = text;
  }
  REPDBTimeout_e GetRecoverTimeout() const { return recover_timeout_; }
  char const* GetRecoverTimeoutText() const { return recover_timeout_text_.c_str(); }
  void SetRecoverDelay(REPDBDelay_e value, char const* text = nullptr) {
    recover_delay_ = value;
    recover_delay_text_ = text;
  }
  REPDBDelay_e GetRecoverDelay() const { return recover_delay_; }
  char const* GetRecoverDelayText() const { return recover_delay_text_.c_str(); }
  void SetRecoverNext(char const* text) { recover_next_ = text; }
  char const* GetRecoverNext() const { return recover_next_.c_str(); }
  void SetRecoverExpire(REPDBExpire_e value, char const* text = nullptr) {
    recover_expire_ = value;
    recover_expire_text_ = text;
  }
  REPDBExpire_e GetRecoverExpire() const { return recover_expire_; }
  char const* GetRecoverExpireText() const { return recover_expire_text_.c_str(); }
  // USING CURRENT LOGFILE
  void SetRecoverUsingCurrent(bool given) { recover_using_current_ = given; }
  bool GetRecoverUsingCurrent() const { return recover_using_current_; }
  void SetRecoverThrough(REPDBThrough_e value) { recover_through_ = value; }
  REPDBThrough_e GetRecoverThrough() const { return recover_through_; }
  void SetRecoverThread(char const* text) { recover_thread_ = text; }
  char const* GetRecoverThread() const { return recover_thread_.c_str(); }
  void SetRecoverSequence(char const* text) { recover_sequence_ = text; }
  char const* GetRecoverSequence() const { return recover_sequence_.c_str(); }
  void SetRecoverCancel(bool given) { recover_cancel_ = given; }
  bool GetRecoverCancel() const { return recover_cancel_; }
  void SetRecoverImmediate(bool given) { recover_immediate_ = given; }
  bool GetRecoverImmediate() const { return recover_immediate_; }
  void SetRecoverWait(REPDBWait_e value) { recover_wait_ = value; }
  REPDBWait_e GetRecoverWait() const { return recover_wait_; }
  void SetRecoverSkip(REPDBSkip_e value) { recover_skip_ = value; }
  REPDBSkip_e GetRecoverSkip() const { return recover_skip_; }
  void SetRecoverFinish(bool given) { recover_finish_ = given; }
  bool GetRecoverFinish() const { return recover_finish_; }

  // Files and tablespaces.
  void SetFileSize(REPFileSize_e value) { file_size_ = value; }
  REPFileSize_e GetFileSize() const { return file_size_; }
  // Several names are separated by commas.
  void SetTablespaceName(char const* text) { tablespace_name_ = text; }
  char const* GetTablespaceName() const { return tablespace_name_.c_str(); }
  // Without quotes.
  void SetTimeZone(char const* text) { time_zone_ = text; }
  char const* GetTimeZone() const { return time_zone_.c_str(); }
  void SetNewGlobalName(REPName* value) { new_global_name_.Set(value); }
  REPName* GetNewGlobalName() const { return new_global_name_.Get(); }
  // The new name of RENAME FILE, the lost file of CREATE DATAFILE ... AS. Set puts one in the place
  // of those that are there, Add puts one behind them.
  void SetRenameFilename(char const* name) {
    rename_filenames_.RemoveAll();
    AddRenameFilename(name);
  }
  void AddRenameFilename(char const* name) { rename_filenames_.AddTail(new repora::Text(name)); }
  int GetNumRenameFilenames() const { return rename_filenames_.GetCount(); }
  char const* GetRenameFilename(int index = 0) const {
    return rename_filenames_.At(index)->c_str();
  }
  // The files of the clause; in CREATE DATAFILE ... AS the new ones.
  void SetFileSpecList(REPFileSpecList* value) { files_.Set(value); }
  REPFileSpecList* GetFileSpecList() const { return files_.Get(); }
  void SetResizeClause(REPSizeClause value) { resize_ = std::move(value); }
  REPSizeClause GetResizeClause() const { return resize_; }
  void SetAutoExtendClause(REPAutoExtendClause value) { autoextend_ = std::move(value); }
  REPAutoExtendClause GetAutoExtendClause() const { return autoextend_; }
  // Of block change tracking.
  void SetEnableFilename(char const* text) { enable_filename_ = text; }
  char const* GetEnableFilename() const { return enable_filename_.c_str(); }
  void SetEnableReuse(bool given) { enable_reuse_ = given; }
  bool GetEnableReuse() const { return enable_reuse_; }

  // Threads and instances.
  void SetRedo(REPDBRedo_e value) { redo_ = value; }
  REPDBRedo_e GetRedo() const { return redo_; }
  // Without quotes.
  void SetRedoInstance(char const* text) { redo_instance_ = text; }
  char const* GetRedoInstance() const { return redo_instance_.c_str(); }
  void SetRedoThread(char const* text) { redo_thread_ = text; }
  char const* GetRedoThread() const { return redo_thread_.c_str(); }

  // Control files.
  void SetControlLogPhys(REPDBLogPhys_e value) { control_log_phys_ = value; }
  REPDBLogPhys_e GetControlLogPhys() const { return control_log_phys_; }
  void SetControlReuse(bool given) { control_reuse_ = given; }
  bool GetControlReuse() const { return control_reuse_; }
  void SetControlFilename(char const* text) { control_filename_ = text; }
  char const* GetControlFilename() const { return control_filename_.c_str(); }
  void SetBackupReuse(bool given) { backup_reuse_ = given; }
  bool GetBackupReuse() const { return backup_reuse_; }
  void SetBackupFilename(char const* text) { backup_filename_ = text; }
  char const* GetBackupFilename() const { return backup_filename_.c_str(); }
  void SetBackupTrace(bool given) { backup_trace_ = given; }
  bool GetBackupTrace() const { return backup_trace_; }
  void SetBackupTraceFilename(char const* text) { backup_trace_filename_ = text; }
  char const* GetBackupTraceFilename() const { return backup_trace_filename_.c_str(); }
  void SetBackupTraceReuse(bool given) { backup_trace_reuse_ = given; }
  bool GetBackupTraceReuse() const { return backup_trace_reuse_; }
  void SetBackupResetlogs(REPDBResetlogs_e value) { backup_resetlogs_ = value; }
  REPDBResetlogs_e GetBackupResetlogs() const { return backup_resetlogs_; }

  // Standby databases.
  void SetStandbyParallel(REPParallelClause* value) { standby_parallel_.Set(value); }
  REPParallelClause* GetStandbyParallel() const { return standby_parallel_.Get(); }
  void SetStandby(REPDBStandby_e value) { standby_ = value; }
  REPDBStandby_e GetStandby() const { return standby_; }
  void SetStandbySkip(REPDBSkip_e value) { standby_skip_ = value; }
  REPDBSkip_e GetStandbySkip() const { return standby_skip_; }
  void SetStandbyLogPhys(REPDBLogPhys_e value) { standby_log_phys_ = value; }
  REPDBLogPhys_e GetStandbyLogPhys() const { return standby_log_phys_; }
  // Any value: SKIP is followed by STANDBY LOGFILE.
  void SetStandbyLogfile(REPDBStandby_e value) { standby_logfile_ = value; }
  REPDBStandby_e GetStandbyLogfile() const { return standby_logfile_; }
  void SetStandbyMaximize(REPDBMaximize_e value) { standby_maximize_ = value; }
  REPDBMaximize_e GetStandbyMaximize() const { return standby_maximize_; }
  void SetStandbyLogminerName(char const* text) { standby_logminer_name_ = text; }
  char const* GetStandbyLogminerName() const { return standby_logminer_name_.c_str(); }
  void SetStandbyReplace(bool given) { standby_replace_ = given; }
  bool GetStandbyReplace() const { return standby_replace_; }
  void SetStandbyDBlink(char const* text) { standby_db_link_ = text; }
  char const* GetStandbyDBlink() const { return standby_db_link_.c_str(); }
  void SetStandbyInitialValue(char const* text) { standby_initial_value_ = text; }
  char const* GetStandbyInitialValue() const { return standby_initial_value_.c_str(); }
  void SetStandbyImmediate(bool given) { standby_immediate_ = given; }
  bool GetStandbyImmediate() const { return standby_immediate_; }
  void SetStandbyNodelay(bool given) { standby_nodelay_ = given; }
  bool GetStandbyNodelay() const { return standby_nodelay_; }
  void SetStandbyStart(REPDBStandbyStart_e value) { standby_start_ = value; }
  REPDBStandbyStart_e GetStandbyStart() const { return standby_start_; }
  void SetStandbyCommit(REPDBStandbyCommit_e value) { standby_commit_ = value; }
  REPDBStandbyCommit_e GetStandbyCommit() const { return standby_commit_; }
  void SetStandbySwitchoverCancel(bool given) { standby_switchover_cancel_ = given; }
  bool GetStandbySwitchoverCancel() const { return standby_switchover_cancel_; }
  void SetStandbySwitchover(REPDBSwitchover_e value) { standby_switchover_ = value; }
  REPDBSwitchover_e GetStandbySwitchover() const { return standby_switchover_; }
  void SetStandbyWait(REPDBWait_e value) { standby_wait_ = value; }
  REPDBWait_e GetStandbyWait() const { return standby_wait_; }
  void SetStandbySession(REPDBSession_e value) { standby_session_ = value; }
  REPDBSession_e GetStandbySession() const { return standby_session_; }

  // Log files.
  void SetLogFileDescList(REPLogFileDescList* value) { log_file_descs_.Set(value); }
  REPLogFileDescList* GetLogFileDescList() const { return log_file_descs_.Get(); }
  void SetRedoLogFileSpecList(REPRedoLogFileSpecList* value) { redo_log_files_.Set(value); }
  REPRedoLogFileSpecList* GetRedoLogFileSpecList() const { return redo_log_files_.Get(); }
  // Without quotes.
  void SetLogfileInstance(char const* text) { logfile_instance_ = text; }
  char const* GetLogfileInstance() const { return logfile_instance_.c_str(); }
  void SetLogfileThread(char const* text) { logfile_thread_ = text; }
  char const* GetLogfileThread() const { return logfile_thread_.c_str(); }

  // Supplemental logging.
  void SetSuppIdKeyAll(bool given) { supp_id_key_all_ = given; }
  bool GetSuppIdKeyAll() const { return supp_id_key_all_; }
  void SetSuppIdKeyPrimaryKey(bool given) { supp_id_key_primary_key_ = given; }
  bool GetSuppIdKeyPrimaryKey() const { return supp_id_key_primary_key_; }
  void SetSuppIdKeyUnique(bool given) { supp_id_key_unique_ = given; }
  bool GetSuppIdKeyUnique() const { return supp_id_key_unique_; }
  void SetSuppIdKeyForeignKey(bool given) { supp_id_key_foreign_key_ = given; }
  bool GetSuppIdKeyForeignKey() const { return supp_id_key_foreign_key_; }

  // REPProcessError when the statement names a database that is not there, which is reported here.
  // Clauses that the model cannot hold are reported, too, and change nothing.
  REPProcess_e Process(REPProcessor* processor) const override;
  // Without a ";" at the end.
  std::string AsString() const override;

 private:
  REPProcess_e Apply(REPProcessor* processor, MOXActionSummaryItem& database) const;
  MOXActionSummaryItem* NamedTablespace(REPProcessor* processor) const;

  repora::Text name_;
  REPAlterDBType_e type_{};
  REPDBMount_e mount_{};
  REPDBOpenMode_e open_mode_{};
  REPDBLogs_e open_logs_{};
  REPDBUpDown_e up_down_{};
  REPDBRecover_e recover_{};
  bool recover_automatic_ = false;
  repora::Text recover_location_;
  repora::Text recover_log_file_;
  bool recover_continue_default_ = false;
  bool recover_test_ = false;
  repora::Text recover_corruption_;
  repora::Owned<REPParallelClause> recover_parallel_;
  bool recover_standby_ = false;
  bool recover_using_backup_ = false;
  bool recover_until_cancel_ = false;
  repora::Text recover_until_time_;
  repora::Text recover_until_change_;
  bool recover_consistent_with_ = false;
  REPDBDisconnect_e recover_disconnect_{};
  REPDBTimeout_e recover_timeout_{};
  repora::Text recover_timeout_text_;
  REPDBDelay_e recover_delay_{};
  repora::Text recover_delay_text_;
  repora::Text recover_next_;
  REPDBExpire_e recover_expire_{};
  repora::Text recover_expire_text_;
  bool recover_using_current_ = false;
  REPDBThrough_e recover_through_{};
  repora::Text recover_thread_;
  repora::Text recover_sequence_;
  bool recover_cancel_ = false;
  bool recover_immediate_ = false;
  REPDBWait_e recover_wait_{};
  REPDBSkip_e recover_skip_{};
  bool recover_finish_ = false;
  REPFileSize_e file_size_{};
  repora::Text tablespace_name_;
  repora::Text time_zone_;
  repora::Owned<REPName> new_global_name_;
  repora::OwnedList<repora::Text> rename_filenames_;
  repora::Owned<REPFileSpecList> files_;
  REPSizeClause resize_;
  REPAutoExtendClause autoextend_;
  repora::Text enable_filename_;
  bool enable_reuse_ = false;
  REPDBRedo_e redo_{};
  repora::Text redo_instance_;
  repora::Text redo_thread_;
  REPDBLogPhys_e control_log_phys_{};
  bool control_reuse_ = false;
  repora::Text control_filename_;
  bool backup_reuse_ = false;
  repora::Text backup_filename_;
  bool backup_trace_ = false;
  repora::Text backup_trace_filename_;
  bool backup_trace_reuse_ = false;
  REPDBResetlogs_e backup_resetlogs_{};
  repora::Owned<REPParallelClause> standby_parallel_;
  REPDBStandby_e standby_{};
  REPDBSkip_e standby_skip_{};
  REPDBLogPhys_e standby_log_phys_{};
  REPDBStandby_e standby_logfile_{};
  REPDBMaximize_e standby_maximize_{};
  repora::Text standby_logminer_name_;
  bool standby_replace_ = false;
  repora::Text standby_db_link_;
  repora::Text standby_initial_value_;
  bool standby_immediate_ = false;
  bool standby_nodelay_ = false;
  REPDBStandbyStart_e standby_start_{};
  REPDBStandbyCommit_e standby_commit_{};
  bool standby_switchover_cancel_ = false;
  REPDBSwitchover_e standby_switchover_{};
  REPDBWait_e standby_wait_{};
  REPDBSession_e standby_session_{};
  repora::Owned<REPLogFileDescList> log_file_descs_;
  repora::Owned<REPRedoLogFileSpecList> redo_log_files_;
  repora::Text logfile_instance_;
  repora::Text logfile_thread_;
  bool supp_id_key_all_ = false;
  bool supp_id_key_primary_key_ = false;
  bool supp_id_key_unique_ = false;
  bool supp_id_key_foreign_key_ = false;
};
