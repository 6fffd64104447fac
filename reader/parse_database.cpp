#include <algorithm>
#include <string>

#include "reader/parse_file_specs.h"
#include "reader/parse_log_files.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/replace.h"
#include "repora/database/create_database.h"

namespace repora::reader {
namespace {

using Statement = REPCreateDatabase;

// {SYS | SYSTEM} IDENTIFIED BY password, behind USER
void ParseUser(TokenStream& in, Statement& database) {
  if (!in.Is(K_SYS) && !in.Is(K_SYSTEM)) in.Fail("SYS or SYSTEM");
  bool const sys = in.Next().word == K_SYS;
  in.Expect(K_IDENTIFIED, K_BY);
  if (!IsName(in.Peek())) in.Fail("a password");
  auto const* const password = in.Copy(in.TextOf(in.Next()));
  if (sys)
    database.SetSysPassword(password);
  else
    database.SetSystemPassword(password);
}

bool IsDigits(std::string_view text) {
  constexpr std::size_t kMostDigits = 3;
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// '{+ | -}hh:mi' | 'region'
REPTimeZoneClause ParseTimeZone(TokenStream& in) {
  REPTimeZoneClause zone;
  auto const text = ParseFileName(in);
  zone.SetKind(REPTimeZone_e::Region);
  zone.SetTimeZone(text.c_str());
  auto const colon = text.find(':');
  if (colon == std::string::npos || (text[0] != '+' && text[0] != '-')) return zone;
  auto const hour = text.substr(1, colon - 1);
  auto const minute = text.substr(colon + 1);
  if (!IsDigits(hour) || !IsDigits(minute)) return zone;
  zone.SetKind(REPTimeZone_e::Offset);
  zone.SetTimeZone("");
  zone.SetMinus(text[0] == '-');
  zone.SetHour(ToInt(hour.c_str()));
  zone.SetMinute(ToInt(minute.c_str()));
  return zone;
}

// {DEFAULT {BIGFILE | SMALLFILE} TABLESPACE | STANDBY DATABASE {PROTECTED | UNPROTECTED} |
//   TIME_ZONE = 'zone'}, behind SET
void ParseSet(TokenStream& in, Statement& database) {
  auto const& token = in.Peek();
  if (in.Accept(K_DEFAULT)) {
    if (!in.Is(K_BIGFILE) && !in.Is(K_SMALLFILE)) in.Fail("BIGFILE or SMALLFILE");
    database.SetDefaultSize(in.Next().word == K_BIGFILE ? REPFileSize_e::BigFile
                                                        : REPFileSize_e::SmallFile);
    in.Expect(K_TABLESPACE);
  } else if (in.Accept(K_TIME_ZONE)) {
    in.Accept('=');
    database.SetTimeZone(ParseTimeZone(in));
  } else if (in.Accept(K_STANDBY, K_NOLOGGING)) {
    in.Note(token, "clause SET STANDBY NOLOGGING is skipped");
    in.Expect(K_FOR);
    in.Next();
    in.Next();
  } else if (in.Accept(K_STANDBY)) {
    in.Expect(K_DATABASE);
    if (!in.Is(K_PROTECTED) && !in.Is(K_UNPROTECTED)) in.Fail("PROTECTED or UNPROTECTED");
    database.SetStandby(in.Next().word == K_PROTECTED ? REPStandby_e::Protected
                                                      : REPStandby_e::Unprotected);
  } else {
    in.Fail("DEFAULT, STANDBY or TIME_ZONE");
  }
}

// [LOCAL] TEMPORARY TABLESPACE [FOR {ALL | LEAF}] name [TEMPFILE file [, file]...]
//   [EXTENT MANAGEMENT ...], behind DEFAULT
void ParseTemporary(TokenStream& in, Statement& database, REPFileSize_e size) {
  auto const& token = in.Peek();
  if (in.Accept(K_LOCAL)) in.Note(token, "clause LOCAL is skipped");
  in.Expect(K_TEMPORARY, K_TABLESPACE);
  if (!in.Accept(K_FOR, K_ALL)) in.Accept(K_FOR, K_LEAF);
  database.SetTempTablespace(ParseNameText(in).c_str());
  database.SetTempDefaultSize(size);
  for (;;) {
    if (in.Accept(K_TEMPFILE)) {
      Replace(database, &Statement::GetTempFiles, &Statement::SetTempFiles, ParseDataFiles(in));
    } else if (in.Is(K_EXTENT)) {
      auto const extents = ParseExtentManagement(in);
      database.SetTempExtent(extents.GetExtent());
      database.SetTempExtentSize(extents.GetSize());
    } else {
      return;
    }
  }
}

// name [DATAFILE file [, file]...] [EXTENT MANAGEMENT ...], behind DEFAULT TABLESPACE
void ParseDefault(TokenStream& in, Statement& database) {
  database.SetDefaultTablespace(ParseNameText(in).c_str());
  for (;;) {
    if (in.Accept(K_DATAFILE)) {
      Replace(database, &Statement::GetDefaultDataFiles, &Statement::SetDefaultDataFiles,
              ParseDataFiles(in));
    } else if (in.Is(K_EXTENT)) {
      auto const extents = ParseExtentManagement(in);
      database.SetDefaultExtent(extents.GetExtent());
      database.SetDefaultExtentSize(extents.GetSize());
    } else {
      return;
    }
  }
}

// [BIGFILE | SMALLFILE] {UNDO TABLESPACE name [DATAFILE file [, file]...] |
//   DEFAULT [LOCAL] TEMPORARY TABLESPACE ... | USER_DATA TABLESPACE name DATAFILE file [, file]...}
void ParseTablespace(TokenStream& in, Statement& database) {
  auto const& start = in.Peek();
  auto size = REPFileSize_e::None;
  if (in.Accept(K_BIGFILE)) size = REPFileSize_e::BigFile;
  if (in.Accept(K_SMALLFILE)) size = REPFileSize_e::SmallFile;
  if (in.Accept(K_UNDO, K_TABLESPACE)) {
    database.SetUndoSize(size);
    database.SetUndoTablespace(ParseNameText(in).c_str());
    if (in.Accept(K_DATAFILE))
      Replace(database, &Statement::GetUndoDataFiles, &Statement::SetUndoDataFiles,
              ParseDataFiles(in));
  } else if (in.Accept(K_USER_DATA, K_TABLESPACE)) {
    in.Note(start, "clause USER_DATA TABLESPACE is skipped");
    ParseSimpleName(in);
    if (in.Accept(K_DATAFILE)) ParseDataFiles(in);
  } else if (in.Accept(K_DEFAULT)) {
    ParseTemporary(in, database, size);
  } else {
    in.Fail("an option of the database");
  }
}

// Options that are words alone.
bool ParseWordOption(TokenStream& in, Statement& database) {
  if (in.Accept(K_CONTROLFILE, K_REUSE))
    database.SetControlfileReuse(true);
  else if (in.Accept(K_ARCHIVELOG))
    database.SetArchiveLogging(REPLogging_e::Logging);
  else if (in.Accept(K_NOARCHIVELOG))
    database.SetArchiveLogging(REPLogging_e::NoLogging);
  else if (in.Accept(K_FORCE, K_LOGGING))
    database.SetForceLogging(true);
  else
    return false;
  return true;
}

// Whether an option comes: not a name, and the end of the clauses of a pluggable database.
bool StartsOption(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ARCHIVELOG:
    case K_BIGFILE:
    case K_CHARACTER:
    case K_CONTROLFILE:
    case K_DATAFILE:
    case K_DEFAULT:
    case K_EXTENT:
    case K_FORCE:
    case K_LOGFILE:
    case K_MAXDATAFILES:
    case K_MAXINSTANCES:
    case K_MAXLOGFILES:
    case K_MAXLOGHISTORY:
    case K_MAXLOGMEMBERS:
    case K_NATIONAL:
    case K_NOARCHIVELOG:
    case K_SET:
    case K_SMALLFILE:
    case K_USER:
    case K_USER_DATA: return true;
    case K_ENABLE: return in.Is(K_ENABLE, K_PLUGGABLE);
    case K_SYSAUX: return in.Is(K_SYSAUX, K_DATAFILE);
    case K_UNDO: return in.Is(K_UNDO, K_TABLESPACE);
    default: return false;
  }
}

void ParseOption(TokenStream& in, Statement& database) {
  auto const& token = in.Peek();
  if (ParseWordOption(in, database) || ParseLimit(in, database)) return;
  if (in.Accept(K_USER)) {
    ParseUser(in, database);
  } else if (in.Accept(K_CHARACTER, K_SET)) {
    database.SetCharSet(ParseNameText(in).c_str());
  } else if (in.Accept(K_NATIONAL, K_CHARACTER, K_SET)) {
    database.SetNationalCharSet(ParseNameText(in).c_str());
  } else if (in.Accept(K_SET)) {
    ParseSet(in, database);
  } else if (in.Accept(K_LOGFILE)) {
    Replace(database, &Statement::GetLogFiles, &Statement::SetLogFiles, ParseLogFiles(in));
  } else if (in.Is(K_EXTENT)) {
    auto const extents = ParseExtentManagement(in);
    database.SetExtent(extents.GetExtent());
    database.SetExtentSize(extents.GetSize());
  } else if (in.Accept(K_DATAFILE)) {
    Replace(database, &Statement::GetDataFiles, &Statement::SetDataFiles, ParseDataFiles(in));
  } else if (in.Accept(K_SYSAUX, K_DATAFILE)) {
    Replace(database, &Statement::GetSysAuxDataFiles, &Statement::SetSysAuxDataFiles,
            ParseDataFiles(in));
  } else if (in.Accept(K_DEFAULT, K_TABLESPACE)) {
    ParseDefault(in, database);
  } else if (in.Accept(K_ENABLE, K_PLUGGABLE, K_DATABASE)) {
    in.Note(token, "clause ENABLE PLUGGABLE DATABASE is skipped");
    while (!in.AtEnd() && !StartsOption(in)) in.SkipItem();
  } else {
    ParseTablespace(in, database);
  }
}

}  // namespace

// CREATE DATABASE [IF NOT EXISTS] [name] [option]...
std::unique_ptr<REPStatement> ParseCreateDatabase(TokenStream& in) {
  auto database = std::make_unique<REPCreateDatabase>();
  database->SetStatementType(REPStatement_e::CreateDatabase);
  in.Expect(K_CREATE, K_DATABASE);
  SkipIfNotExists(in);
  if (IsName(in.Peek()) && !StartsOption(in)) database->SetDatabase(ParseName(in).release());
  while (!in.AtEnd()) ParseOption(in, *database);
  return database;
}

}  // namespace repora::reader
