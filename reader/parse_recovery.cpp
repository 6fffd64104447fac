#include "reader/parse_alter_database.h"
#include "reader/parse_file_specs.h"
#include "reader/parse_names.h"
#include "reader/parse_storage.h"
#include "reader/replace.h"

// RECOVER and the clauses for standby databases, which go on with what was recovered elsewhere.
namespace repora::reader {
namespace {

using Alter = REPAlterDatabase;
using Type = REPAlterDBType_e;

REPDBWait_e AcceptWait(TokenStream& in) {
  return AcceptChoice<REPDBWait_e>(in,
                                   {{K_WAIT, REPDBWait_e::Wait}, {K_NOWAIT, REPDBWait_e::NoWait}});
}

// PARALLEL ... | NOPARALLEL; false when none comes.
bool ParseRecoverParallel(TokenStream& in, Alter& alter) {
  auto parallel = ParseParallel(in);
  if (!parallel) return false;
  Replace(alter, &Alter::GetRecoverParallel, &Alter::SetRecoverParallel, std::move(parallel));
  return true;
}

// Options that the statement has no place for: snapshots, instances, consistent ends.
void SkipNewerRecovery(TokenStream& in) {
  if (in.Is(K_SNAPSHOT) || in.Is(K_USING) || in.Is(K_UNTIL)) SkipRest(in, "RECOVER");
}

// {[THREAD n] SEQUENCE n | ALL ARCHIVELOG | {ALL | LAST | NEXT} SWITCHOVER}, behind THROUGH
void ParseThrough(TokenStream& in, Alter& alter) {
  if (in.Accept(K_ALL, K_ARCHIVELOG)) return alter.SetRecoverThrough(REPDBThrough_e::AllArchiveLog);
  auto const through = AcceptChoice<REPDBThrough_e>(in, {{K_ALL, REPDBThrough_e::AllSwitchover},
                                                         {K_LAST, REPDBThrough_e::LastSwitchover},
                                                         {K_NEXT, REPDBThrough_e::NextSwitchover}});
  if (through != REPDBThrough_e::None) {
    in.Expect(K_SWITCHOVER);
    return alter.SetRecoverThrough(through);
  }
  alter.SetRecoverThrough(REPDBThrough_e::Sequence);
  if (in.Accept(K_THREAD)) alter.SetRecoverThread(in.Copy(in.ExpectNumber()));
  in.Expect(K_SEQUENCE);
  alter.SetRecoverSequence(in.Copy(in.ExpectNumber()));
}

// An option of managed recovery that is about time or logs; false when none comes.
bool ParseManagedPace(TokenStream& in, Alter& alter) {
  if (in.Accept(K_TIMEOUT))
    alter.SetRecoverTimeout(REPDBTimeout_e::Timeout, in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_NOTIMEOUT))
    alter.SetRecoverTimeout(REPDBTimeout_e::NoTimeout);
  else if (in.Accept(K_NODELAY))
    alter.SetRecoverDelay(REPDBDelay_e::NoDelay);
  else if (in.Accept(K_DEFAULT, K_DELAY))
    alter.SetRecoverDelay(REPDBDelay_e::DefaultDelay);
  else if (in.Accept(K_DELAY))
    alter.SetRecoverDelay(REPDBDelay_e::Delay, in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_NEXT))
    alter.SetRecoverNext(in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_EXPIRE))
    alter.SetRecoverExpire(REPDBExpire_e::Expire, in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_NO, K_EXPIRE))
    alter.SetRecoverExpire(REPDBExpire_e::NoExpire);
  else if (in.Accept(K_USING, K_CURRENT, K_LOGFILE))
    alter.SetRecoverUsingCurrent(true);
  else if (in.Accept(K_UNTIL, K_CHANGE))
    alter.SetRecoverUntilChange(in.Copy(in.ExpectNumber()));
  else
    return false;
  return true;
}

// The options of managed recovery in any order, behind MANAGED STANDBY DATABASE.
void ParseManagedRecovery(TokenStream& in, Alter& alter) {
  alter.SetDBRecover(REPDBRecover_e::Managed);
  for (;;) {
    if (ParseManagedPace(in, alter) || ParseRecoverParallel(in, alter)) continue;
    if (in.Is(K_USING, K_INSTANCES)) {
      in.Note(in.Peek(), "clause USING INSTANCES is skipped");
      for (int words = 0; words < 3; ++words) in.Next();
    } else if (in.Accept(K_CANCEL))
      alter.SetRecoverCancel(true);
    else if (in.Accept(K_IMMEDIATE))
      alter.SetRecoverImmediate(true);
    else if (in.Accept(K_DISCONNECT, K_FROM, K_SESSION))
      alter.SetRecoverDisconnect(REPDBDisconnect_e::FromSession);
    else if (in.Accept(K_DISCONNECT))
      alter.SetRecoverDisconnect(REPDBDisconnect_e::Disconnect);
    else if (in.Accept(K_THROUGH))
      ParseThrough(in, alter);
    else if (in.Accept(K_FINISH))
      alter.SetRecoverFinish(true);
    else if (in.Accept(K_SKIP, K_STANDBY, K_LOGFILE))
      alter.SetRecoverSkip(REPDBSkip_e::StandbyLogFile);
    else if (in.Accept(K_SKIP))
      alter.SetRecoverSkip(REPDBSkip_e::Skip);
    else if (in.Is(K_WAIT) || in.Is(K_NOWAIT))
      alter.SetRecoverWait(AcceptWait(in));
    else
      return SkipNewerRecovery(in);
  }
}

// [UNTIL {CANCEL | TIME 'time' | CHANGE n | CONSISTENT}] [USING BACKUP CONTROLFILE], behind
// DATABASE
void ParseRecoverDatabase(TokenStream& in, Alter& alter) {
  for (;;) {
    if (in.Accept(K_UNTIL, K_CANCEL))
      alter.SetRecoverUntilCancel(true);
    else if (in.Accept(K_UNTIL, K_TIME))
      alter.SetRecoverUntilTime(ParseFileName(in).c_str());
    else if (in.Accept(K_UNTIL, K_CHANGE))
      alter.SetRecoverUntilChange(in.Copy(in.ExpectNumber()));
    else if (in.Accept(K_UNTIL, K_CONSISTENT))
      alter.SetRecoverConsistentWith(true);
    else if (in.Accept(K_USING, K_BACKUP, K_CONTROLFILE))
      alter.SetRecoverUsingBackup(true);
    else
      return;
  }
}

// name [, name]...
std::string ParseTablespaces(TokenStream& in) {
  auto names = ParseNameText(in);
  while (in.Accept(',')) names += ", " + ParseNameText(in);
  return names;
}

// [STANDBY] {DATABASE ... | TABLESPACE name [, name]... | DATAFILE file [, file]... |
//   LOGFILE 'file'}
void ParseWhatIsRecovered(TokenStream& in, Alter& alter) {
  alter.SetRecoverStandby(in.Accept(K_STANDBY));
  if (in.Accept(K_DATABASE)) {
    alter.SetDBRecover(REPDBRecover_e::Database);
    return ParseRecoverDatabase(in, alter);
  }
  if (in.Accept(K_LOGFILE)) {
    alter.SetDBRecover(REPDBRecover_e::LogFile);
    return alter.SetRecoverLogFile(ParseFileName(in).c_str());
  }
  if (in.Accept(K_TABLESPACE)) {
    alter.SetDBRecover(REPDBRecover_e::Tablespace);
    alter.SetTablespaceName(ParseTablespaces(in).c_str());
  } else if (in.Accept(K_DATAFILE)) {
    alter.SetDBRecover(REPDBRecover_e::Datafile);
    alter.SetFileSpecList(ParseFiles(in).release());
  } else {
    in.Fail("DATABASE, TABLESPACE, DATAFILE or LOGFILE");
  }
  if (!alter.GetRecoverStandby()) return;
  in.Expect(K_UNTIL);
  alter.SetRecoverConsistentWith(in.Accept(K_CONSISTENT, K_WITH));
  in.Expect(K_CONTROLFILE);
}

// [parallel_clause]; the end of every clause for standby databases
void EndStandby(TokenStream& in, Alter& alter, REPDBStandby_e clause) {
  alter.SetAlterDBType(Type::StandbyDatabase);
  alter.SetStandby(clause);
  alter.SetStandbyParallel(ParseParallel(in).release());
}

// TO SWITCHOVER [CANCEL | [TO [LOGICAL | PHYSICAL] [PRIMARY | STANDBY]]
//   [{WITH | WITHOUT} SESSION SHUTDOWN] [WAIT | NOWAIT]]
void ParseSwitchover(TokenStream& in, Alter& alter, REPDBStandbyCommit_e commit) {
  in.Expect(K_TO, K_SWITCHOVER);
  alter.SetStandbyCommit(commit);
  alter.SetStandbySwitchoverCancel(in.Accept(K_CANCEL));
  if (in.Accept(K_TO)) {
    alter.SetStandbyLogPhys(AcceptLogicalOrPhysical(in));
    alter.SetStandbySwitchover(AcceptChoice<REPDBSwitchover_e>(
        in, {{K_PRIMARY, REPDBSwitchover_e::Primary}, {K_STANDBY, REPDBSwitchover_e::Standby}}));
    if (alter.GetStandbySwitchover() == REPDBSwitchover_e::None) in.Fail("PRIMARY or STANDBY");
  }
  alter.SetStandbySession(AcceptChoice<REPDBSession_e>(
      in, {{K_WITH, REPDBSession_e::With}, {K_WITHOUT, REPDBSession_e::Without}}));
  if (alter.GetStandbySession() != REPDBSession_e::None) in.Expect(K_SESSION, K_SHUTDOWN);
  alter.SetStandbyWait(AcceptWait(in));
  EndStandby(in, alter, REPDBStandby_e::Switchover);
}

}  // namespace

// MANAGED STANDBY DATABASE ... | [AUTOMATIC] [FROM 'location'] {CONTINUE [DEFAULT] | CANCEL |
//   what [TEST] [ALLOW n CORRUPTION] [parallel_clause]}
void ParseRecover(TokenStream& in, Alter& alter) {
  alter.SetAlterDBType(Type::Recover);
  if (in.Accept(K_MANAGED)) {
    in.Expect(K_STANDBY, K_DATABASE);
    return ParseManagedRecovery(in, alter);
  }
  if (in.Is(K_TO)) {
    alter.SetAlterDBType(Type::None);
    return SkipRest(in, "RECOVER");
  }
  alter.SetRecoverAutomatic(in.Accept(K_AUTOMATIC));
  if (in.Accept(K_FROM)) alter.SetRecoverLoc(ParseFileName(in).c_str());
  if (in.Accept(K_CONTINUE)) {
    alter.SetDBRecover(REPDBRecover_e::Continue);
    return alter.SetRecoverContinueDefault(in.Accept(K_DEFAULT));
  }
  if (in.Accept(K_CANCEL)) return alter.SetDBRecover(REPDBRecover_e::Cancel);
  ParseWhatIsRecovered(in, alter);
  for (;;) {
    if (in.Accept(K_TEST)) {
      alter.SetRecoverTest(true);
    } else if (in.Accept(K_ALLOW)) {
      alter.SetRecoverCorruption(in.Copy(in.ExpectNumber()));
      in.Expect(K_CORRUPTION);
    } else if (!ParseRecoverParallel(in, alter)) {
      return SkipNewerRecovery(in);
    }
  }
}

// [LOGICAL | PHYSICAL] STANDBY DATABASE [SKIP [STANDBY LOGFILE]]
void ParseActivate(TokenStream& in, Alter& alter) {
  alter.SetStandbyLogPhys(AcceptLogicalOrPhysical(in));
  in.Expect(K_STANDBY, K_DATABASE);
  if (in.Accept(K_SKIP)) {
    alter.SetStandbySkip(REPDBSkip_e::Skip);
    if (in.Accept(K_STANDBY, K_LOGFILE)) alter.SetStandbyLogfile(REPDBStandby_e::Activate);
  }
  EndStandby(in, alter, REPDBStandby_e::Activate);
  if (in.Is(K_FINISH)) SkipRest(in, "ACTIVATE STANDBY DATABASE");
}

// TO MAXIMIZE {PROTECTION | AVAILABILITY | PERFORMANCE}, behind SET STANDBY DATABASE
void ParseMaximize(TokenStream& in, Alter& alter) {
  in.Expect(K_TO, K_MAXIMIZE);
  auto const goal =
      AcceptChoice<REPDBMaximize_e>(in, {{K_PROTECTION, REPDBMaximize_e::Protection},
                                         {K_AVAILABILITY, REPDBMaximize_e::Availability},
                                         {K_PERFORMANCE, REPDBMaximize_e::Performance}});
  if (goal == REPDBMaximize_e::None) in.Fail("PROTECTION, AVAILABILITY or PERFORMANCE");
  alter.SetStandbyMaximize(goal);
  EndStandby(in, alter, REPDBStandby_e::Maximize);
}

// [OR REPLACE] [LOGICAL | PHYSICAL] LOGFILE file_specification [, ...] [FOR session]
void ParseRegister(TokenStream& in, Alter& alter) {
  alter.SetStandbyReplace(AcceptOrReplace(in));
  alter.SetStandbyLogPhys(AcceptLogicalOrPhysical(in));
  in.Expect(K_LOGFILE);
  alter.SetFileSpecList(ParseFileSpecList(in).release());
  if (in.Accept(K_FOR)) alter.SetStandbyLogminerName(ParseNameText(in).c_str());
  EndStandby(in, alter, REPDBStandby_e::Register);
}

void ParseCommit(TokenStream& in, Alter& alter) {
  ParseSwitchover(in, alter, REPDBStandbyCommit_e::Commit);
}

void ParsePrepare(TokenStream& in, Alter& alter) {
  if (in.Is(K_MIRROR)) return SkipRest(in, "PREPARE");
  ParseSwitchover(in, alter, REPDBStandbyCommit_e::Prepare);
}

// LOGICAL STANDBY APPLY [IMMEDIATE] [NODELAY]
//   [NEW PRIMARY link | INITIAL [n] | SKIP FAILED TRANSACTION | FINISH]
void ParseStart(TokenStream& in, Alter& alter) {
  in.Expect(K_LOGICAL, K_STANDBY, K_APPLY);
  alter.SetStandbyImmediate(in.Accept(K_IMMEDIATE));
  alter.SetStandbyNodelay(in.Accept(K_NODELAY));
  if (in.Accept(K_NEW, K_PRIMARY)) {
    alter.SetStandbyStart(REPDBStandbyStart_e::NewPrimary);
    alter.SetStandbyDBlink(ParseName(in)->AsString(false).c_str());
  } else if (in.Accept(K_INITIAL)) {
    alter.SetStandbyStart(REPDBStandbyStart_e::Initial);
    if (in.Peek().kind == TokenKind::Number)
      alter.SetStandbyInitialValue(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_SKIP, K_FAILED, K_TRANSACTION)) {
    alter.SetStandbyStart(REPDBStandbyStart_e::SkipFailedTransaction);
  } else if (in.Accept(K_FINISH)) {
    alter.SetStandbyStart(REPDBStandbyStart_e::Finish);
  }
  EndStandby(in, alter, REPDBStandby_e::StartApply);
}

void ParseStop(TokenStream& in, Alter& alter) {
  in.Expect(K_LOGICAL, K_STANDBY, K_APPLY);
  EndStandby(in, alter, REPDBStandby_e::StopApply);
}

void ParseAbort(TokenStream& in, Alter& alter) {
  in.Expect(K_LOGICAL, K_STANDBY, K_APPLY);
  EndStandby(in, alter, REPDBStandby_e::AbortApply);
}

}  // namespace repora::reader
