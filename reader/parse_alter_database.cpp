#include "reader/parse_alter_database.h"

#include <algorithm>
#include <iterator>

#include "reader/parse_file_specs.h"
#include "reader/parse_log_files.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/parse_supplemental.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

using Alter = REPAlterDatabase;
using Type = REPAlterDBType_e;

// 'file' | n
std::string ParseFile(TokenStream& in) {
  if (in.Peek().kind == TokenKind::Number) return std::string(in.ExpectNumber());
  return ParseFileName(in);
}

}  // namespace

REPDBLogPhys_e AcceptLogicalOrPhysical(TokenStream& in) {
  return AcceptChoice<REPDBLogPhys_e>(
      in, {{K_LOGICAL, REPDBLogPhys_e::Logical}, {K_PHYSICAL, REPDBLogPhys_e::Physical}});
}

void SkipRest(TokenStream& in, std::string name) {
  constexpr int kWordsNamed = 4;
  if (in.AtEnd()) return;
  auto const& token = in.Peek();
  bool only_words = true;
  for (int words = 0; !in.AtEnd() && !in.Is(K_CREATE) && !in.Is(K_ALTER); in.SkipItem()) {
    only_words = only_words && in.Peek().kind == TokenKind::Word;
    if (!only_words || words++ >= kWordsNamed) continue;
    name += (name.empty() ? "" : " ") + ToUpper(in.TextOf(in.Peek()));
  }
  in.Note(token, "clause " + name + " is skipped");
}

std::unique_ptr<REPFileSpecList> ParseFiles(TokenStream& in) {
  auto files = std::make_unique<REPFileSpecList>();
  do {
    auto* const file = new REPFileSpec;
    files->AddTail(file);
    file->SetFilename(ParseFile(in).c_str());
  } while (in.Accept(','));
  return files;
}

namespace {

// 'instance' | instance
std::string ParseInstance(TokenStream& in) {
  if (IsName(in.Peek())) return ParseSimpleName(in)->AsString(false);
  return ParseFileName(in);
}

// --- Mount and open ---

// [{STANDBY | CLONE} DATABASE]
void ParseMount(TokenStream& in, Alter& alter) {
  alter.SetAlterDBType(Type::Mount);
  alter.SetDBMount(AcceptChoice<REPDBMount_e>(
      in, {{K_STANDBY, REPDBMount_e::StandbyDatabase}, {K_CLONE, REPDBMount_e::CloneDatabase}}));
  if (alter.GetDBMount() != REPDBMount_e::None) in.Expect(K_DATABASE);
}

// [READ WRITE | READ ONLY] [RESETLOGS | NORESETLOGS] [UPGRADE | DOWNGRADE]
void ParseOpen(TokenStream& in, Alter& alter) {
  alter.SetAlterDBType(Type::Open);
  for (;;) {
    if (in.Accept(K_READ, K_WRITE))
      alter.SetDBOpenMode(REPDBOpenMode_e::ReadWrite);
    else if (in.Accept(K_READ, K_ONLY))
      alter.SetDBOpenMode(REPDBOpenMode_e::ReadOnly);
    else if (in.Accept(K_RESETLOGS))
      alter.SetDBLogs(REPDBLogs_e::ResetLogs);
    else if (in.Accept(K_NORESETLOGS))
      alter.SetDBLogs(REPDBLogs_e::NoResetLogs);
    else if (in.Accept(K_UPGRADE))
      alter.SetDBUpDown(REPDBUpDown_e::Upgrade);
    else if (in.Accept(K_DOWNGRADE))
      alter.SetDBUpDown(REPDBUpDown_e::Downgrade);
    else
      return;
  }
}

// --- Files ---

// {FILE file [, file]... TO 'file' [, 'file']... | GLOBAL_NAME TO name}
void ParseRename(TokenStream& in, Alter& alter) {
  if (in.Accept(K_GLOBAL_NAME)) {
    in.Expect(K_TO);
    alter.SetAlterDBType(Type::RenameGlobalName);
    return alter.SetNewGlobalName(ParseName(in).release());
  }
  if (!in.Accept(K_FILE)) in.Fail("FILE or GLOBAL_NAME");
  alter.SetAlterDBType(Type::RenameFile);
  alter.SetFileSpecList(ParseFiles(in).release());
  in.Expect(K_TO);
  do alter.AddRenameFilename(ParseFileName(in).c_str());
  while (in.Accept(','));
}

// file [, file]... [AS {NEW | file_specification [, file_specification]...}]
void ParseCreateDatafile(TokenStream& in, Alter& alter) {
  auto files = ParseFiles(in);
  if (in.Is(K_AS) && in.Peek(1).word != K_NEW) {
    in.Next();
    alter.SetAlterDBType(Type::CreateDatafileAs);
    for (int i = 0; i < files->GetCount(); ++i)
      alter.AddRenameFilename(files->GetFileSpec(i)->GetFilename(0));
    return alter.SetFileSpecList(ParseFileSpecList(in).release());
  }
  alter.SetAlterDBType(in.Accept(K_AS, K_NEW) ? Type::CreateDatafileAsNew : Type::CreateDatafile);
  alter.SetFileSpecList(files.release());
}

// {DATAFILE ... | [LOGICAL | PHYSICAL] STANDBY CONTROLFILE AS 'file' [REUSE]}
void ParseCreate(TokenStream& in, Alter& alter) {
  if (in.Accept(K_DATAFILE)) return ParseCreateDatafile(in, alter);
  if (in.Is(K_FAR)) return SkipRest(in, "CREATE");
  auto const kind = AcceptLogicalOrPhysical(in);
  if (!in.Accept(K_STANDBY, K_CONTROLFILE)) in.Fail("DATAFILE or STANDBY CONTROLFILE");
  alter.SetAlterDBType(Type::CreateStandbyControlfile);
  alter.SetControlLogPhys(kind);
  in.Expect(K_AS);
  alter.SetControlFilename(ParseFileName(in).c_str());
  alter.SetControlReuse(in.Accept(K_REUSE));
}

// file [, file]... {ONLINE | OFFLINE [[FOR] DROP] | RESIZE size | AUTOEXTEND ... | END BACKUP}
void ParseDatafile(TokenStream& in, Alter& alter) {
  alter.SetFileSpecList(ParseFiles(in).release());
  if (in.Accept(K_ONLINE)) {
    alter.SetAlterDBType(Type::DatafileOnline);
  } else if (in.Accept(K_OFFLINE)) {
    bool const drop = in.Accept(K_FOR, K_DROP) || in.Accept(K_DROP);
    alter.SetAlterDBType(drop ? Type::DatafileOfflineDrop : Type::DatafileOffline);
  } else if (in.Accept(K_RESIZE)) {
    alter.SetAlterDBType(Type::DatafileResize);
    alter.SetResizeClause(ParseSize(in));
  } else if (in.Is(K_AUTOEXTEND)) {
    alter.SetAlterDBType(Type::DatafileAutoExtend);
    alter.SetAutoExtendClause(ParseAutoExtend(in));
  } else if (in.Accept(K_END, K_BACKUP)) {
    alter.SetAlterDBType(Type::DatafileEndBackup);
  } else if (in.Is(K_ENCRYPT) || in.Is(K_DECRYPT)) {
    SkipRest(in, "DATAFILE");
  } else {
    in.Fail("ONLINE, OFFLINE, RESIZE, AUTOEXTEND or END BACKUP");
  }
}

// file [, file]... {RESIZE size | AUTOEXTEND ... | DROP [INCLUDING DATAFILES] | ONLINE | OFFLINE}
void ParseTempfile(TokenStream& in, Alter& alter) {
  alter.SetFileSpecList(ParseFiles(in).release());
  if (in.Accept(K_RESIZE)) {
    alter.SetAlterDBType(Type::TempfileResize);
    alter.SetResizeClause(ParseSize(in));
  } else if (in.Is(K_AUTOEXTEND)) {
    alter.SetAlterDBType(Type::TempfileAutoExtend);
    alter.SetAutoExtendClause(ParseAutoExtend(in));
  } else if (in.Accept(K_DROP)) {
    bool const files = in.Accept(K_INCLUDING);
    if (files) in.Expect(K_DATAFILES);
    alter.SetAlterDBType(files ? Type::TempfileDropIncludingDatafiles : Type::TempfileDrop);
  } else if (in.Accept(K_ONLINE)) {
    alter.SetAlterDBType(Type::TempfileOnline);
  } else if (in.Accept(K_OFFLINE)) {
    alter.SetAlterDBType(Type::TempfileOffline);
  } else {
    in.Fail("RESIZE, AUTOEXTEND, DROP, ONLINE or OFFLINE");
  }
}

// --- Logs ---

// [MANUAL]
void ParseArchiveLog(TokenStream& in, Alter& alter) {
  alter.SetAlterDBType(in.Accept(K_MANUAL) ? Type::ArchiveLogManual : Type::ArchiveLog);
}

void ParseNoArchiveLog(TokenStream& /*in*/, Alter& alter) {
  alter.SetAlterDBType(Type::NoArchiveLog);
}

void ParseForce(TokenStream& in, Alter& alter) {
  in.Expect(K_LOGGING);
  alter.SetAlterDBType(Type::ForceLogging);
}

void ParseNo(TokenStream& in, Alter& alter) {
  in.Expect(K_FORCE, K_LOGGING);
  alter.SetAlterDBType(Type::NoForceLogging);
}

// [UNARCHIVED] LOGFILE group [, group]... [UNRECOVERABLE DATAFILE]
void ParseClear(TokenStream& in, Alter& alter) {
  bool const unarchived = in.Accept(K_UNARCHIVED);
  in.Expect(K_LOGFILE);
  auto groups = ParseLogFileDescs(in);
  bool const list = groups->GetCount() > 1 || groups->GetLogFileDesc(0)->GetNumFilenames() > 1;
  if (list)
    alter.SetAlterDBType(unarchived ? Type::ClearUnarchivedLogfiles : Type::ClearLogfiles);
  else
    alter.SetAlterDBType(unarchived ? Type::ClearUnarchivedLogfile : Type::ClearLogfile);
  alter.SetLogFileDescList(groups.release());
  if (in.Is(K_UNRECOVERABLE)) SkipRest(in);
}

// The types of a clause about log files, for those of the database or of a standby database.
struct LogTypes {
  Type group, instance, thread, member;
};

// [INSTANCE 'instance' | THREAD n] log_file [, log_file]... |
//   MEMBER 'file' [REUSE] [, 'file' [REUSE]]... TO group [, group]...
void ParseAddLogfile(TokenStream& in, Alter& alter, LogTypes const& types) {
  if (in.Accept(K_MEMBER)) {
    alter.SetAlterDBType(types.member);
    alter.SetRedoLogFileSpecList(ParseRedoLogFiles(in).release());
    in.Expect(K_TO);
    return alter.SetLogFileDescList(ParseLogFileDescs(in).release());
  }
  if (in.Accept(K_INSTANCE)) {
    alter.SetAlterDBType(types.instance);
    alter.SetLogfileInstance(ParseInstance(in).c_str());
  } else if (in.Accept(K_THREAD)) {
    alter.SetAlterDBType(types.thread);
    alter.SetLogfileThread(in.Copy(in.ExpectNumber()));
  } else {
    alter.SetAlterDBType(types.group);
  }
  alter.SetRedoLogFileSpecList(ParseRedoLogFiles(in).release());
}

// [( key [, key]... ) COLUMNS], behind SUPPLEMENTAL LOG DATA
void ParseSupplemental(TokenStream& in, Alter& alter, Type data, Type columns) {
  if (in.Peek(3).punctuation != '(') {
    in.Expect(K_SUPPLEMENTAL, K_LOG, K_DATA);
    if (in.Is(K_FOR) || in.Is(K_SUBSET)) return SkipRest(in, "SUPPLEMENTAL LOG DATA");
    return alter.SetAlterDBType(data);
  }
  auto const properties = ParseSupplementalLogging(in);
  auto const* const keys = properties ? properties->GetIdKey() : nullptr;
  if (!keys) in.Fail("DATA");
  alter.SetAlterDBType(columns);
  alter.SetSuppIdKeyAll(keys->GetLogAll());
  alter.SetSuppIdKeyPrimaryKey(keys->GetLogPrimaryKey());
  alter.SetSuppIdKeyUnique(keys->GetLogUnique());
  alter.SetSuppIdKeyForeignKey(keys->GetLogForeignKey());
}

// {[STANDBY] LOGFILE ... | SUPPLEMENTAL LOG DATA ...}
void ParseAdd(TokenStream& in, Alter& alter) {
  if (in.Accept(K_LOGFILE))
    ParseAddLogfile(in, alter,
                    {Type::AddLogfile, Type::AddLogfileInstance, Type::AddLogfileThread,
                     Type::AddLogfileMember});
  else if (in.Accept(K_STANDBY, K_LOGFILE))
    ParseAddLogfile(in, alter,
                    {Type::AddStandbyLogfile, Type::AddStandbyLogfileInstance,
                     Type::AddStandbyLogfileThread, Type::AddStandbyLogfileMember});
  else if (in.Is(K_SUPPLEMENTAL))
    ParseSupplemental(in, alter, Type::AddSupplementalLog, Type::AddSupplementalLogColumns);
  else
    in.Fail("LOGFILE, STANDBY LOGFILE or SUPPLEMENTAL LOG");
}

// {[STANDBY] LOGFILE {group [, group]... | MEMBER 'file' [, 'file']...} | SUPPLEMENTAL LOG DATA
// ...}
void ParseDrop(TokenStream& in, Alter& alter) {
  if (in.Is(K_SUPPLEMENTAL))
    return ParseSupplemental(in, alter, Type::DropSupplementalLog,
                             Type::DropSupplementalLogColumns);
  if (in.Is(K_MIRROR)) return SkipRest(in, "DROP");
  bool const standby = in.Accept(K_STANDBY);
  if (!in.Accept(K_LOGFILE)) in.Fail("LOGFILE, STANDBY LOGFILE or SUPPLEMENTAL LOG");
  if (in.Accept(K_MEMBER))
    alter.SetAlterDBType(standby ? Type::DropStandbyLogfileMember : Type::DropLogfileMember);
  else
    alter.SetAlterDBType(standby ? Type::DropStandbyLogfile : Type::DropLogfile);
  alter.SetLogFileDescList(ParseLogFileDescs(in).release());
}

// CONTROLFILE TO {'file' [REUSE] | TRACE [AS 'file' [REUSE]] [RESETLOGS | NORESETLOGS]}
void ParseBackup(TokenStream& in, Alter& alter) {
  in.Expect(K_CONTROLFILE, K_TO);
  alter.SetAlterDBType(Type::BackupControlfile);
  if (!in.Accept(K_TRACE)) {
    alter.SetBackupFilename(ParseFileName(in).c_str());
    return alter.SetBackupReuse(in.Accept(K_REUSE));
  }
  alter.SetBackupTrace(true);
  if (in.Accept(K_AS)) {
    alter.SetBackupTraceFilename(ParseFileName(in).c_str());
    alter.SetBackupTraceReuse(in.Accept(K_REUSE));
  }
  alter.SetBackupResetlogs(
      AcceptChoice<REPDBResetlogs_e>(in, {{K_RESETLOGS, REPDBResetlogs_e::ResetLogs},
                                          {K_NORESETLOGS, REPDBResetlogs_e::NoResetLogs}}));
}

// --- The others ---

// {DEFAULT {BIGFILE | SMALLFILE} TABLESPACE | TIME_ZONE = 'zone' | STANDBY DATABASE ...}
void ParseSet(TokenStream& in, Alter& alter) {
  if (in.Accept(K_STANDBY, K_DATABASE)) {
    if (in.Is(K_PROTECTED) || in.Is(K_UNPROTECTED)) return SkipRest(in, "SET STANDBY DATABASE");
    return ParseMaximize(in, alter);
  }
  if (in.Is(K_STANDBY, K_NOLOGGING)) return SkipRest(in, "SET");
  if (in.Accept(K_TIME_ZONE)) {
    in.Accept('=');
    alter.SetAlterDBType(Type::TimeZone);
    return alter.SetTimeZone(ParseFileName(in).c_str());
  }
  if (!in.Accept(K_DEFAULT)) in.Fail("DEFAULT, TIME_ZONE or STANDBY DATABASE");
  alter.SetAlterDBType(Type::DefaultFileSize);
  alter.SetFileSize(AcceptChoice<REPFileSize_e>(
      in, {{K_BIGFILE, REPFileSize_e::BigFile}, {K_SMALLFILE, REPFileSize_e::SmallFile}}));
  if (alter.GetFileSize() == REPFileSize_e::None) in.Fail("BIGFILE or SMALLFILE");
  in.Expect(K_TABLESPACE);
}

// [TEMPORARY] TABLESPACE name
void ParseDefault(TokenStream& in, Alter& alter) {
  if (in.Is(K_EDITION) || in.Is(K_LOCAL)) return SkipRest(in, "DEFAULT");
  alter.SetAlterDBType(in.Accept(K_TEMPORARY) ? Type::DefaultTempTablespace
                                              : Type::DefaultTablespace);
  in.Expect(K_TABLESPACE);
  alter.SetTablespaceName(ParseNameText(in).c_str());
}

// {[PUBLIC] THREAD n | INSTANCE 'instance'}; false when something else comes
bool ParseRedo(TokenStream& in, Alter& alter, bool enable) {
  using Redo = REPDBRedo_e;
  if (in.Accept(K_INSTANCE)) {
    alter.SetRedo(enable ? Redo::EnableInstance : Redo::DisableInstance);
    alter.SetRedoInstance(ParseInstance(in).c_str());
  } else if (in.Accept(K_PUBLIC, K_THREAD)) {
    alter.SetRedo(enable ? Redo::EnablePublicThread : Redo::DisablePublicThread);
    alter.SetRedoThread(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_THREAD)) {
    alter.SetRedo(enable ? Redo::EnableThread : Redo::DisableThread);
    alter.SetRedoThread(in.Copy(in.ExpectNumber()));
  } else {
    return false;
  }
  alter.SetAlterDBType(Type::Redo);
  return true;
}

// {BLOCK CHANGE TRACKING [USING FILE 'file' [REUSE]] | [PUBLIC] THREAD n | INSTANCE 'instance'}
void ParseEnable(TokenStream& in, Alter& alter) {
  if (ParseRedo(in, alter, true)) return;
  if (in.Is(K_LOST)) return SkipRest(in, "ENABLE");
  if (!in.Accept(K_BLOCK, K_CHANGE, K_TRACKING))
    in.Fail("BLOCK CHANGE TRACKING, THREAD or INSTANCE");
  alter.SetAlterDBType(Type::EnableBlockTracking);
  if (!in.Accept(K_USING, K_FILE)) return;
  alter.SetAlterDBType(Type::EnableBlockTrackingFile);
  alter.SetEnableFilename(ParseFileName(in).c_str());
  alter.SetEnableReuse(in.Accept(K_REUSE));
}

void ParseDisable(TokenStream& in, Alter& alter) {
  if (ParseRedo(in, alter, false)) return;
  if (in.Is(K_LOST)) return SkipRest(in, "DISABLE");
  if (!in.Accept(K_BLOCK, K_CHANGE, K_TRACKING))
    in.Fail("BLOCK CHANGE TRACKING, THREAD or INSTANCE");
  alter.SetAlterDBType(Type::DisableBlockTracking);
}

void ParseFlashback(TokenStream& in, Alter& alter) {
  if (!in.Is(K_ON) && !in.Is(K_OFF)) in.Fail("ON or OFF");
  alter.SetAlterDBType(in.Next().word == K_ON ? Type::FlashbackOn : Type::FlashbackOff);
}

void ParseGuard(TokenStream& in, Alter& alter) {
  if (in.Accept(K_ALL)) return alter.SetAlterDBType(Type::GuardAll);
  if (in.Accept(K_STANDBY)) return alter.SetAlterDBType(Type::GuardStandby);
  if (!EqualsIgnoringCase(in.TextOf(in.Peek()), "NONE")) in.Fail("ALL, STANDBY or NONE");
  in.Next();
  alter.SetAlterDBType(Type::GuardNone);
}

// --- Clauses by their first word ---

struct Clause {
  Word word;
  void (*parse)(TokenStream& in, Alter& alter);  // what stands behind the word; null: skipped
};

constexpr Clause kClauses[] = {{K_ABORT, ParseAbort},
                               {K_ACTIVATE, ParseActivate},
                               {K_ADD, ParseAdd},
                               {K_ARCHIVELOG, ParseArchiveLog},
                               {K_BACKUP, ParseBackup},
                               {K_BEGIN, nullptr},
                               {K_CHARACTER, nullptr},
                               {K_CLEAR, ParseClear},
                               {K_CLOSE, nullptr},
                               {K_COMMIT, ParseCommit},
                               {K_CONVERT, nullptr},
                               {K_CREATE, ParseCreate},
                               {K_DATAFILE, ParseDatafile},
                               {K_DEFAULT, ParseDefault},
                               {K_DICTIONARY, nullptr},
                               {K_DISABLE, ParseDisable},
                               {K_DISMOUNT, nullptr},
                               {K_DROP, ParseDrop},
                               {K_ENABLE, ParseEnable},
                               {K_END, nullptr},
                               {K_FAILOVER, nullptr},
                               {K_FLASHBACK, ParseFlashback},
                               {K_FORCE, ParseForce},
                               {K_GUARD, ParseGuard},
                               {K_INTERNAL, nullptr},
                               {K_LOCAL, nullptr},
                               {K_LOST, nullptr},
                               {K_MOUNT, ParseMount},
                               {K_MOVE, nullptr},
                               {K_NATIONAL, nullptr},
                               {K_NO, ParseNo},
                               {K_NOARCHIVELOG, ParseNoArchiveLog},
                               {K_OPEN, ParseOpen},
                               {K_PREPARE, ParsePrepare},
                               {K_PROPERTY, nullptr},
                               {K_RECOVER, ParseRecover},
                               {K_REGISTER, ParseRegister},
                               {K_RENAME, ParseRename},
                               {K_RESET, nullptr},
                               {K_SET, ParseSet},
                               {K_START, ParseStart},
                               {K_STOP, ParseStop},
                               {K_SWITCHOVER, nullptr},
                               {K_TEMPFILE, ParseTempfile}};

Clause const* FindClause(Word word) {
  auto const* const found =
      std::find_if(std::begin(kClauses), std::end(kClauses),
                   [word](Clause const& clause) { return clause.word == word; });
  return found == std::end(kClauses) ? nullptr : found;
}

}  // namespace

// ALTER DATABASE [IF EXISTS] [name] [clause]
// A clause that is skipped leaves a statement without one.
std::unique_ptr<REPStatement> ParseAlterDatabase(TokenStream& in) {
  auto alter = std::make_unique<REPAlterDatabase>();
  alter->SetStatementType(REPStatement_e::AlterDatabase);
  in.Expect(K_ALTER, K_DATABASE);
  SkipIfExists(in);
  if (IsName(in.Peek()) && !FindClause(in.Peek().word))
    alter->SetDatabaseName(ParseName(in)->AsString(false).c_str());
  auto const& token = in.Peek();
  if (in.AtEnd()) {
    in.Note(token, "there is no clause to read");
    return alter;
  }
  auto const* const clause = FindClause(token.word);
  if (!clause) in.Fail("a clause of ALTER DATABASE");
  if (!clause->parse) {
    SkipRest(in);
    return alter;
  }
  in.Next();
  clause->parse(in, *alter);
  return alter;
}

}  // namespace repora::reader
