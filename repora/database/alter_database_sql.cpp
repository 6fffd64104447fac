#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string_view>

#include "repora/core/sql_text.h"
#include "repora/database/alter_database.h"
#include "repora/tables/supplemental_logging.h"

using repora::SqlText;

namespace {

using Alter = REPAlterDatabase;

// The words of a value, of which the first belong to value 1; empty for values without words.
template <class Enum>
std::string_view WordsOf(Enum value, std::initializer_list<std::string_view> words) {
  auto const number = static_cast<int>(value);
  return number >= 1 && number <= static_cast<int>(words.size()) ? words.begin()[number - 1]
                                                                 : std::string_view();
}

std::string Quoted(std::string_view text) {
  return std::string("'").append(text).append("'");
}

// " KEYWORD 'text'"; nothing without a text.
void AppendQuoted(SqlText& sql, std::string_view keyword, std::string_view text) {
  if (!text.empty()) sql.Append(keyword).Append(Quoted(text));
}

// A file by its name or, when that is digits alone, by its number.
std::string FileText(std::string_view name) {
  bool const number = !name.empty() && std::all_of(name.begin(), name.end(),
                                                   [](char c) { return c >= '0' && c <= '9'; });
  return number ? std::string(name) : Quoted(name);
}

// 'file' | n [, ...] of all files, without their sizes.
std::string NamesText(REPFileSpecList const* files) {
  SqlText sql;
  for (int i = 0; files && i < files->GetCount(); ++i) {
    auto const& file = *files->GetFileSpec(i);
    for (int k = 0; k < file.GetNumFilenames(); ++k) sql.Part(FileText(file.GetFilename(k)), ", ");
  }
  return sql.Take();
}

std::string Specifications(REPFileSpecList const* files) {
  return files ? files->AsString(false) : std::string();
}

std::string RenameFilenames(Alter const& alter) {
  SqlText sql;
  for (int i = 0; i < alter.GetNumRenameFilenames(); ++i)
    sql.Part(FileText(alter.GetRenameFilename(i)), ", ");
  return sql.Take();
}

template <class List>
std::string ListText(List const* list) {
  return list ? list->AsString() : std::string();
}

// The operands of the clauses, each with a leading blank.

// [STANDBY DATABASE | CLONE DATABASE]
std::string Mount(Alter const& alter) {
  return SqlText()
      .Option(WordsOf(alter.GetDBMount(), {"STANDBY DATABASE", "CLONE DATABASE"}))
      .Take();
}

// [READ WRITE | READ ONLY] [RESETLOGS | NORESETLOGS] [UPGRADE | DOWNGRADE]
std::string Open(Alter const& alter) {
  return SqlText()
      .Option(WordsOf(alter.GetDBOpenMode(), {"READ WRITE", "READ ONLY"}))
      .Option(WordsOf(alter.GetDBLogs(), {"RESETLOGS", "NORESETLOGS"}))
      .Option(WordsOf(alter.GetDBUpDown(), {"UPGRADE", "DOWNGRADE"}))
      .Take();
}

// MANAGED STANDBY DATABASE {CANCEL [IMMEDIATE] [WAIT | NOWAIT] |
//   [DISCONNECT [FROM SESSION]] [TIMEOUT n | NOTIMEOUT] [NODELAY | DEFAULT DELAY | DELAY n]
//   [NEXT n] [EXPIRE n | NO EXPIRE] [USING CURRENT LOGFILE] [UNTIL CHANGE n]
//   [THROUGH {[THREAD n] SEQUENCE n | ALL ARCHIVELOG | {ALL | LAST | NEXT} SWITCHOVER}]
//   [parallel_clause] [FINISH [SKIP [STANDBY LOGFILE]] [WAIT | NOWAIT]]}
std::string ManagedRecovery(Alter const& alter) {
  SqlText sql(" MANAGED STANDBY DATABASE");
  sql.AppendIf(alter.GetRecoverCancel(), " CANCEL")
      .AppendIf(alter.GetRecoverImmediate(), " IMMEDIATE")
      .Option(WordsOf(alter.GetRecoverDisconnect(), {"DISCONNECT", "DISCONNECT FROM SESSION"}))
      .Option(WordsOf(alter.GetRecoverTimeout(), {"TIMEOUT", "NOTIMEOUT"}))
      .Option(alter.GetRecoverTimeoutText())
      .Option(WordsOf(alter.GetRecoverDelay(), {"NODELAY", "DEFAULT DELAY", "DELAY"}))
      .Option(alter.GetRecoverDelayText())
      .Clause(" NEXT ", alter.GetRecoverNext())
      .Option(WordsOf(alter.GetRecoverExpire(), {"EXPIRE", "NO EXPIRE"}))
      .Option(alter.GetRecoverExpireText())
      .AppendIf(alter.GetRecoverUsingCurrent(), " USING CURRENT LOGFILE")
      .Clause(" UNTIL CHANGE ", alter.GetRecoverUntilChange());
  auto const through = alter.GetRecoverThrough();
  if (through == REPDBThrough_e::Sequence)
    sql.Append(" THROUGH")
        .Clause(" THREAD ", alter.GetRecoverThread())
        .Clause(" SEQUENCE ", alter.GetRecoverSequence());
  else
    sql.Clause(" THROUGH ", WordsOf(through, {"", "ALL ARCHIVELOG", "ALL SWITCHOVER",
                                              "LAST SWITCHOVER", "NEXT SWITCHOVER"}));
  return sql.Option(repora::TextOf(alter.GetRecoverParallel()))
      .AppendIf(alter.GetRecoverFinish(), " FINISH")
      .Option(WordsOf(alter.GetRecoverSkip(), {"SKIP", "SKIP STANDBY LOGFILE"}))
      .Option(WordsOf(alter.GetRecoverWait(), {"WAIT", "NOWAIT"}))
      .Take();
}

// [STANDBY] DATABASE [UNTIL {CANCEL | TIME 'time' | CHANGE n | CONSISTENT}]
//     [USING BACKUP CONTROLFILE] |
//   [STANDBY] {TABLESPACE name [, name]... | DATAFILE file [, file]...}
//     [UNTIL [CONSISTENT WITH] CONTROLFILE] |
//   LOGFILE 'file'
std::string WhatIsRecovered(Alter const& alter) {
  SqlText sql;
  sql.AppendIf(alter.GetRecoverStandby(), " STANDBY");
  switch (alter.GetDBRecover()) {
    case REPDBRecover_e::Database:
      sql.Append(" DATABASE").AppendIf(alter.GetRecoverUntilCancel(), " UNTIL CANCEL");
      AppendQuoted(sql, " UNTIL TIME ", alter.GetRecoverUntilTime());
      return sql.Clause(" UNTIL CHANGE ", alter.GetRecoverUntilChange())
          .AppendIf(alter.GetRecoverConsistentWith(), " UNTIL CONSISTENT")
          .AppendIf(alter.GetRecoverUsingBackup(), " USING BACKUP CONTROLFILE")
          .Take();
    case REPDBRecover_e::Tablespace:
      sql.Append(" TABLESPACE").Option(alter.GetTablespaceName());
      break;
    case REPDBRecover_e::Datafile:
      sql.Append(" DATAFILE").Option(NamesText(alter.GetFileSpecList()));
      break;
    case REPDBRecover_e::LogFile:
      AppendQuoted(sql, " LOGFILE ", alter.GetRecoverLogFile());
      return sql.Take();
    default: return sql.Take();
  }
  if (alter.GetRecoverStandby())
    sql.Append(alter.GetRecoverConsistentWith() ? " UNTIL CONSISTENT WITH CONTROLFILE"
                                                : " UNTIL CONTROLFILE");
  return sql.Take();
}

// MANAGED ... | [AUTOMATIC] [FROM 'location']
//   {what [TEST] [ALLOW n CORRUPTION] [parallel_clause] | CONTINUE [DEFAULT] | CANCEL}
std::string Recover(Alter const& alter) {
  if (alter.GetDBRecover() == REPDBRecover_e::Managed) return ManagedRecovery(alter);
  SqlText sql;
  sql.AppendIf(alter.GetRecoverAutomatic(), " AUTOMATIC");
  AppendQuoted(sql, " FROM ", alter.GetRecoverLoc());
  if (alter.GetDBRecover() == REPDBRecover_e::Continue)
    return sql.Append(" CONTINUE").AppendIf(alter.GetRecoverContinueDefault(), " DEFAULT").Take();
  if (alter.GetDBRecover() == REPDBRecover_e::Cancel) return sql.Append(" CANCEL").Take();
  sql.Append(WhatIsRecovered(alter)).AppendIf(alter.GetRecoverTest(), " TEST");
  if (std::string_view const count = alter.GetRecoverCorruption(); !count.empty())
    sql.Append(" ALLOW ").Append(count).Append(" CORRUPTION");
  return sql.Option(repora::TextOf(alter.GetRecoverParallel())).Take();
}

// file [, file]...
std::string Files(Alter const& alter) {
  return SqlText().Option(NamesText(alter.GetFileSpecList())).Take();
}

// file [, file]... TO 'file' [, 'file']...
std::string Rename(Alter const& alter) {
  return SqlText(Files(alter)).Clause(" TO ", RenameFilenames(alter)).Take();
}

// file [, file]... AS file_specification [, file_specification]...
std::string CreateAs(Alter const& alter) {
  return SqlText()
      .Option(RenameFilenames(alter))
      .Clause(" AS ", Specifications(alter.GetFileSpecList()))
      .Take();
}

// file [, file]... RESIZE size
std::string Resize(Alter const& alter) {
  return SqlText(Files(alter)).Append(alter.GetResizeClause().AsString(" RESIZE ")).Take();
}

// file [, file]... AUTOEXTEND ...
std::string AutoExtend(Alter const& alter) {
  return SqlText(Files(alter)).Option(alter.GetAutoExtendClause().AsString()).Take();
}

// {GROUP n | 'file' | ('file', ...)} [, ...]
std::string Groups(Alter const& alter) {
  return SqlText().Option(ListText(alter.GetLogFileDescList())).Take();
}

// [GROUP n] file_specification [, [GROUP n] file_specification]...
std::string LogFiles(Alter const& alter) {
  return SqlText().Option(ListText(alter.GetRedoLogFileSpecList())).Take();
}

// 'instance' log_file [, log_file]...
std::string LogFilesOfInstance(Alter const& alter) {
  SqlText sql;
  AppendQuoted(sql, " ", alter.GetLogfileInstance());
  return sql.Append(LogFiles(alter)).Take();
}

// n log_file [, log_file]...
std::string LogFilesOfThread(Alter const& alter) {
  return SqlText().Option(alter.GetLogfileThread()).Append(LogFiles(alter)).Take();
}

// 'file' [REUSE] [, 'file' [REUSE]]... TO group [, group]...
std::string AddedMembers(Alter const& alter) {
  return SqlText(LogFiles(alter)).Clause(" TO ", ListText(alter.GetLogFileDescList())).Take();
}

// DATA ( {ALL | PRIMARY KEY | UNIQUE | FOREIGN KEY} [, ...] ) COLUMNS
std::string KeyColumns(Alter const& alter) {
  REPSuppIdKey keys;
  keys.SetLogAll(alter.GetSuppIdKeyAll());
  keys.SetLogPrimaryKey(alter.GetSuppIdKeyPrimaryKey());
  keys.SetLogUnique(alter.GetSuppIdKeyUnique());
  keys.SetLogForeignKey(alter.GetSuppIdKeyForeignKey());
  return " " + keys.AsString();
}

std::string_view LogicalOrPhysical(REPDBLogPhys_e value) {
  return WordsOf(value, {"LOGICAL", "PHYSICAL"});
}

// [LOGICAL | PHYSICAL] STANDBY CONTROLFILE AS 'file' [REUSE]
std::string StandbyControlfile(Alter const& alter) {
  SqlText sql;
  sql.Option(LogicalOrPhysical(alter.GetControlLogPhys())).Append(" STANDBY CONTROLFILE");
  AppendQuoted(sql, " AS ", alter.GetControlFilename());
  return sql.AppendIf(alter.GetControlReuse(), " REUSE").Take();
}

// TO {'file' [REUSE] | TRACE [AS 'file' [REUSE]] [RESETLOGS | NORESETLOGS]}
std::string BackupControlfile(Alter const& alter) {
  SqlText sql(" TO");
  if (!alter.GetBackupTrace()) {
    AppendQuoted(sql, " ", alter.GetBackupFilename());
    return sql.AppendIf(alter.GetBackupReuse(), " REUSE").Take();
  }
  sql.Append(" TRACE");
  AppendQuoted(sql, " AS ", alter.GetBackupTraceFilename());
  return sql.AppendIf(alter.GetBackupTraceReuse(), " REUSE")
      .Option(repora::Keyword(alter.GetBackupResetlogs()))
      .Take();
}

// ACTIVATE [LOGICAL | PHYSICAL] STANDBY DATABASE [SKIP [STANDBY LOGFILE]]
std::string Activate(Alter const& alter) {
  bool const log_file = alter.GetStandbyLogfile() != REPDBStandby_e::None ||
                        alter.GetStandbySkip() == REPDBSkip_e::StandbyLogFile;
  bool const skip = log_file || alter.GetStandbySkip() == REPDBSkip_e::Skip;
  return SqlText(" ACTIVATE")
      .Option(LogicalOrPhysical(alter.GetStandbyLogPhys()))
      .Append(" STANDBY DATABASE")
      .AppendIf(skip, " SKIP")
      .AppendIf(log_file, " STANDBY LOGFILE")
      .Take();
}

// SET STANDBY DATABASE TO MAXIMIZE {PROTECTION | AVAILABILITY | PERFORMANCE}
std::string Maximize(Alter const& alter) {
  return SqlText(" SET STANDBY DATABASE")
      .Clause(" TO MAXIMIZE ",
              WordsOf(alter.GetStandbyMaximize(), {"PROTECTION", "AVAILABILITY", "PERFORMANCE"}))
      .Take();
}

// REGISTER [OR REPLACE] [LOGICAL | PHYSICAL] LOGFILE file_specification [, ...] [FOR session]
std::string Register(Alter const& alter) {
  return SqlText(" REGISTER")
      .AppendIf(alter.GetStandbyReplace(), " OR REPLACE")
      .Option(LogicalOrPhysical(alter.GetStandbyLogPhys()))
      .Append(" LOGFILE")
      .Option(Specifications(alter.GetFileSpecList()))
      .Clause(" FOR ", alter.GetStandbyLogminerName())
      .Take();
}

// {PREPARE | COMMIT} TO SWITCHOVER {CANCEL | [TO [LOGICAL | PHYSICAL] [PRIMARY | STANDBY]]
//   [{WITH | WITHOUT} SESSION SHUTDOWN] [WAIT | NOWAIT]}
std::string Switchover(Alter const& alter) {
  SqlText sql;
  sql.Append(alter.GetStandbyCommit() == REPDBStandbyCommit_e::Prepare ? " PREPARE" : " COMMIT")
      .Append(" TO SWITCHOVER")
      .AppendIf(alter.GetStandbySwitchoverCancel(), " CANCEL");
  auto const role = SqlText()
                        .Part(LogicalOrPhysical(alter.GetStandbyLogPhys()))
                        .Part(WordsOf(alter.GetStandbySwitchover(), {"PRIMARY", "STANDBY"}))
                        .Take();
  return sql.Clause(" TO ", role)
      .Option(
          WordsOf(alter.GetStandbySession(), {"WITH SESSION SHUTDOWN", "WITHOUT SESSION SHUTDOWN"}))
      .Option(WordsOf(alter.GetStandbyWait(), {"WAIT", "NOWAIT"}))
      .Take();
}

// START LOGICAL STANDBY APPLY [IMMEDIATE] [NODELAY]
//   [NEW PRIMARY link | INITIAL [n] | SKIP FAILED TRANSACTION | FINISH]
std::string StartApply(Alter const& alter) {
  SqlText sql(" START LOGICAL STANDBY APPLY");
  sql.AppendIf(alter.GetStandbyImmediate(), " IMMEDIATE")
      .AppendIf(alter.GetStandbyNodelay(), " NODELAY")
      .Option(WordsOf(alter.GetStandbyStart(),
                      {"NEW PRIMARY", "INITIAL", "SKIP FAILED TRANSACTION", "FINISH"}));
  if (alter.GetStandbyStart() == REPDBStandbyStart_e::NewPrimary)
    sql.Option(alter.GetStandbyDBlink());
  if (alter.GetStandbyStart() == REPDBStandbyStart_e::Initial)
    sql.Option(alter.GetStandbyInitialValue());
  return sql.Take();
}

// One of the above, or {STOP | ABORT} LOGICAL STANDBY APPLY, then [parallel_clause]
std::string StandbyDatabase(Alter const& alter) {
  SqlText sql;
  switch (alter.GetStandby()) {
    case REPDBStandby_e::Activate: sql.Append(Activate(alter)); break;
    case REPDBStandby_e::Maximize: sql.Append(Maximize(alter)); break;
    case REPDBStandby_e::Register: sql.Append(Register(alter)); break;
    case REPDBStandby_e::Switchover: sql.Append(Switchover(alter)); break;
    case REPDBStandby_e::StartApply: sql.Append(StartApply(alter)); break;
    case REPDBStandby_e::StopApply: sql.Append(" STOP LOGICAL STANDBY APPLY"); break;
    case REPDBStandby_e::AbortApply: sql.Append(" ABORT LOGICAL STANDBY APPLY"); break;
    default: break;
  }
  return sql.Option(repora::TextOf(alter.GetStandbyParallel())).Take();
}

// {SMALLFILE | BIGFILE} TABLESPACE
std::string DefaultFileSize(Alter const& alter) {
  return SqlText().Option(repora::Keyword(alter.GetFileSize())).Append(" TABLESPACE").Take();
}

std::string Tablespace(Alter const& alter) {
  return SqlText().Option(alter.GetTablespaceName()).Take();
}

std::string GlobalName(Alter const& alter) {
  return SqlText().Option(repora::AsWritten(alter.GetNewGlobalName())).Take();
}

// 'file' [REUSE]
std::string TrackingFile(Alter const& alter) {
  SqlText sql;
  AppendQuoted(sql, " ", alter.GetEnableFilename());
  return sql.AppendIf(alter.GetEnableReuse(), " REUSE").Take();
}

// = 'zone'
std::string TimeZone(Alter const& alter) {
  return " = " + Quoted(alter.GetTimeZone());
}

// {ENABLE | DISABLE} {[PUBLIC] THREAD n | INSTANCE 'instance'}
std::string Redo(Alter const& alter) {
  SqlText sql;
  sql.Option(
      WordsOf(alter.GetRedo(), {"ENABLE THREAD", "ENABLE PUBLIC THREAD", "DISABLE THREAD",
                                "DISABLE PUBLIC THREAD", "ENABLE INSTANCE", "DISABLE INSTANCE"}));
  if (alter.GetRedo() < REPDBRedo_e::EnableInstance)
    return sql.Option(alter.GetRedoThread()).Take();
  AppendQuoted(sql, " ", alter.GetRedoInstance());
  return sql.Take();
}

// How a clause reads: the words before its operands and those behind them.
struct Form {
  std::string_view before;
  std::string (*operands)(Alter const& alter) = nullptr;
  std::string_view behind = {};
};

constexpr Form kForms[] = {
    {" MOUNT", Mount},
    {" OPEN", Open},
    {" RECOVER", Recover},
    {" RENAME FILE", Rename},
    {" CREATE DATAFILE", Files},
    {" CREATE DATAFILE", CreateAs},
    {" CREATE DATAFILE", Files, " AS NEW"},
    {" DATAFILE", Files, " ONLINE"},
    {" DATAFILE", Files, " OFFLINE"},
    {" DATAFILE", Files, " OFFLINE DROP"},
    {" DATAFILE", Resize},
    {" DATAFILE", AutoExtend},
    {" DATAFILE", Files, " END BACKUP"},
    {" TEMPFILE", Resize},
    {" TEMPFILE", AutoExtend},
    {" TEMPFILE", Files, " DROP"},
    {" TEMPFILE", Files, " DROP INCLUDING DATAFILES"},
    {" TEMPFILE", Files, " ONLINE"},
    {" TEMPFILE", Files, " OFFLINE"},
    {" ARCHIVELOG"},
    {" ARCHIVELOG MANUAL"},
    {" NOARCHIVELOG"},
    {" FORCE LOGGING"},
    {" NO FORCE LOGGING"},
    {" CLEAR LOGFILE", Groups},
    {" CLEAR UNARCHIVED LOGFILE", Groups},
    {" CLEAR LOGFILE", Groups},
    {" CLEAR UNARCHIVED LOGFILE", Groups},
    {" ADD LOGFILE", LogFiles},
    {" ADD LOGFILE INSTANCE", LogFilesOfInstance},
    {" ADD LOGFILE THREAD", LogFilesOfThread},
    {" ADD LOGFILE MEMBER", AddedMembers},
    {" ADD STANDBY LOGFILE", LogFiles},
    {" ADD STANDBY LOGFILE INSTANCE", LogFilesOfInstance},
    {" ADD STANDBY LOGFILE THREAD", LogFilesOfThread},
    {" ADD STANDBY LOGFILE MEMBER", AddedMembers},
    {" DROP LOGFILE", Groups},
    {" DROP LOGFILE MEMBER", Groups},
    {" DROP STANDBY LOGFILE", Groups},
    {" DROP STANDBY LOGFILE MEMBER", Groups},
    {" ADD SUPPLEMENTAL LOG DATA"},
    {" ADD SUPPLEMENTAL LOG", KeyColumns},
    {" DROP SUPPLEMENTAL LOG DATA"},
    {" DROP SUPPLEMENTAL LOG", KeyColumns},
    {" CREATE", StandbyControlfile},
    {" BACKUP CONTROLFILE", BackupControlfile},
    {"", StandbyDatabase},
    {" SET DEFAULT", DefaultFileSize},
    {" DEFAULT TABLESPACE", Tablespace},
    {" DEFAULT TEMPORARY TABLESPACE", Tablespace},
    {" RENAME GLOBAL_NAME TO", GlobalName},
    {" ENABLE BLOCK CHANGE TRACKING"},
    {" ENABLE BLOCK CHANGE TRACKING USING FILE", TrackingFile},
    {" DISABLE BLOCK CHANGE TRACKING"},
    {" FLASHBACK ON"},
    {" FLASHBACK OFF"},
    {" SET TIME_ZONE", TimeZone},
    {"", Redo},
    {" GUARD ALL"},
    {" GUARD STANDBY"},
    {" GUARD NONE"},
};
static_assert(std::size(kForms) == static_cast<std::size_t>(REPAlterDBType_e::GuardNone));

}  // namespace

std::string REPAlterDatabase::AsString() const {
  SqlText sql("ALTER DATABASE");
  sql.Option(name_);
  if (type_ <= REPAlterDBType_e::None || type_ > REPAlterDBType_e::GuardNone) return sql.Take();
  auto const& form = kForms[static_cast<int>(type_) - 1];
  sql.Append(form.before);
  if (form.operands) sql.Append(form.operands(*this));
  return sql.Append(form.behind).Take();
}
