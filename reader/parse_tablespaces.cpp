#include <string>

#include "reader/parse_file_specs.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/replace.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/database/alter_tablespace.h"
#include "repora/database/tablespaces.h"

namespace repora::reader {
namespace {

// Words that start a statement: the ";" before it is missing.
bool StartsStatement(Word word) {
  return word == K_CREATE || word == K_ALTER || word == K_INSERT || word == K_GRANT;
}

// Whether an option comes, which ends a clause that is skipped.
bool StartsOption(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_AUTOEXTEND:
    case K_BLOCKSIZE:
    case K_DATAFILE:
    case K_DEFAULT:
    case K_EXTENT:
    case K_FLASHBACK:
    case K_LOGGING:
    case K_MINIMUM:
    case K_NOLOGGING:
    case K_OFFLINE:
    case K_ONLINE:
    case K_PERMANENT:
    case K_RENAME:
    case K_RETENTION:
    case K_TEMPFILE:
    case K_TEMPORARY: return true;
    case K_FORCE: return in.Is(K_FORCE, K_LOGGING);
    case K_SEGMENT: return in.Is(K_SEGMENT, K_SPACE);
    case K_STORAGE: return in.Peek(1).punctuation == '(';
    case K_TABLESPACE: return in.Is(K_TABLESPACE, K_GROUP);
    default: return StartsStatement(in.Peek().word);
  }
}

// Whether ENCRYPTION {ONLINE | OFFLINE} says how to encrypt, and not that the tablespace is
// offline.
bool IsWayOfEncryption(TokenStream const& in) {
  if (!in.Is(K_ONLINE) && !in.Is(K_OFFLINE)) return false;
  auto const word = in.Peek(1).word;
  return word == K_USING || word == K_ENCRYPT || word == K_DECRYPT || word == K_REKEY;
}

// A clause that the statement has no place for: encryption, protection against lost writes, in
// memory options, policies, shards, shrinking and dropping files.
void SkipClause(TokenStream& in) {
  constexpr int kWordsNamed = 4;
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || StartsStatement(token.word))
    in.Fail("an option of the tablespace");
  std::string name;
  int words = 0;
  bool only_words = true;
  auto const take = [&] {
    only_words = only_words && in.Peek().kind == TokenKind::Word;
    if (only_words && words++ < kWordsNamed)
      name += (name.empty() ? "" : " ") + ToUpper(in.TextOf(in.Peek()));
    in.SkipItem();
  };
  take();
  // What is dropped or shrunk is named by the word of an option.
  bool const has_object = token.word == K_DROP || token.word == K_SHRINK;
  if (has_object || (token.word == K_ENCRYPTION && IsWayOfEncryption(in))) take();
  while (!in.AtEnd() && !StartsOption(in)) {
    bool const service = in.Is(K_SERVICE);
    take();
    if (service && in.Is(K_DEFAULT)) take();
  }
  in.Note(token, "clause " + name + " is skipped");
}

// COMPRESS [BASIC | ADVANCED ... | FOR ...] | NOCOMPRESS
REPCompress_e ParseDefaultCompression(TokenStream& in) {
  auto const compression = ParseCompression(in);
  if (in.Accept(K_BASIC) || !(in.Is(K_FOR) || in.Is(K_ADVANCED))) return compression.compress;
  in.Note(in.Peek(), "kind of compression is skipped");
  do in.SkipItem();
  while (!in.AtEnd() && !StartsOption(in) && !in.Is(K_ILM) && !in.Is(K_INDEX) &&
         !in.Is(K_INMEMORY) && !in.Is(K_NO));
  return compression.compress;
}

// [TABLE | ROW STORE | COLUMN STORE] [compression] [other defaults] [storage_clause], behind
// DEFAULT; false when nothing of it is left.
template <class Statement>
bool ParseDefaults(TokenStream& in, Statement& tablespace) {
  bool holds = false;
  auto const start = in.Mark();
  for (;;) {
    if (in.Is(K_STORAGE)) {
      tablespace.SetDefaultStorage(ParseStorageClause(in));
      holds = true;
    } else if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
      tablespace.SetCompress(ParseDefaultCompression(in));
      holds = true;
    } else if (in.Accept(K_TABLE) || in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE)) {
      bool const in_memory = in.Is(K_INMEMORY) || in.Is(K_NO, K_INMEMORY);
      if (!in.Is(K_COMPRESS) && !in.Is(K_NOCOMPRESS) && !in_memory)
        in.Fail("COMPRESS or NOCOMPRESS");
    } else if (SkipClause(in, ClausePlace::TablespaceDefaults)) {
      // Said.
    } else if (in.Is(K_ILM) || in.Is(K_INDEX) || in.Is(K_INMEMORY) || in.Is(K_NO)) {
      SkipClause(in);
    } else {
      if (in.Mark() == start) in.Fail("COMPRESS, NOCOMPRESS or STORAGE");
      return holds;
    }
  }
}

// {ON | OFF}
REPFlashback_e ParseFlashback(TokenStream& in) {
  if (in.Accept(K_ON)) return REPFlashback_e::On;
  if (in.Accept(K_OFF)) return REPFlashback_e::Off;
  in.Fail("ON or OFF");
}

// {GUARANTEE | NOGUARANTEE}
REPRetention_e ParseRetention(TokenStream& in) {
  if (in.Accept(K_GUARANTEE)) return REPRetention_e::Guarantee;
  if (in.Accept(K_NOGUARANTEE)) return REPRetention_e::NoGuarantee;
  in.Fail("GUARANTEE or NOGUARANTEE");
}

// {name | ''}
std::unique_ptr<REPName> ParseGroup(TokenStream& in) {
  if (in.Peek().kind != TokenKind::String) return ParseSimpleName(in);
  if (in.TextOf(in.Peek()) != "''") in.Fail("a name or ''");
  in.Next();
  return std::make_unique<REPName>();
}

// UNIFORM [SIZE size] and AUTOALLOCATE, which stand without EXTENT MANAGEMENT LOCAL in old scripts
template <class Statement>
bool ParseBareExtents(TokenStream& in, Statement& tablespace, REPExtent_e uniform) {
  if (in.Accept(K_AUTOALLOCATE)) {
    tablespace.SetExtent(REPExtent_e::LocalAutoAllocate);
    return true;
  }
  if (!in.Accept(K_UNIFORM)) return false;
  tablespace.SetExtent(uniform);
  if (in.Accept(K_SIZE)) tablespace.SetExtentSize(ParseSize(in));
  return true;
}

// BLOCKSIZE size | EXTENT MANAGEMENT ... | SEGMENT SPACE MANAGEMENT {MANUAL | AUTO} |
//   FLASHBACK {ON | OFF}
template <class Statement>
bool ParseCommonOption(TokenStream& in, Statement& tablespace) {
  if (in.Accept(K_BLOCKSIZE)) {
    tablespace.SetBlockSize(ParseSize(in));
  } else if (in.Is(K_EXTENT)) {
    auto const extents = ParseExtentManagement(in);
    tablespace.SetExtent(extents.GetExtent());
    tablespace.SetExtentSize(extents.GetSize());
  } else if (in.Accept(K_SEGMENT)) {
    in.Expect(K_SPACE, K_MANAGEMENT);
    if (!in.Is(K_MANUAL) && !in.Is(K_AUTO)) in.Fail("MANUAL or AUTO");
    tablespace.SetSegment(in.Next().word == K_AUTO ? REPSegment_e::Auto : REPSegment_e::Manual);
  } else if (in.Accept(K_FLASHBACK)) {
    tablespace.SetFlashback(ParseFlashback(in));
  } else {
    return false;
  }
  return true;
}

// Options of a permanent or undo tablespace that are words alone.
bool ParseWordOption(TokenStream& in, REPCreateTablespace& tablespace) {
  if (in.Accept(K_FORCE, K_LOGGING)) {
    tablespace.SetForceLogging(true);
    return true;
  }
  if (in.Accept(K_NO, K_FORCE, K_LOGGING)) {
    tablespace.SetForceLogging(false);
    return true;
  }
  switch (in.Peek().word) {
    case K_LOGGING: tablespace.SetLogging(REPLogging_e::Logging); break;
    case K_NOLOGGING: tablespace.SetLogging(REPLogging_e::NoLogging); break;
    case K_ONLINE: tablespace.SetOnOff(REPOnOff_e::Online); break;
    case K_OFFLINE: tablespace.SetOnOff(REPOnOff_e::Offline); break;
    case K_TEMPORARY: tablespace.SetTempPerm(REPTempPerm_e::Temporary); break;
    case K_PERMANENT: tablespace.SetTempPerm(REPTempPerm_e::Permanent); break;
    default: return false;
  }
  in.Next();
  return true;
}

void ParsePermanentOption(TokenStream& in, REPCreateTablespace& tablespace) {
  using Statement = REPCreateTablespace;
  if (ParseWordOption(in, tablespace) || ParseCommonOption(in, tablespace) ||
      ParseBareExtents(in, tablespace, REPExtent_e::LocalUniform))
    return;
  if (in.Accept(K_DATAFILE)) {
    Replace(tablespace, &Statement::GetDataFiles, &Statement::SetDataFiles, ParseDataFiles(in));
  } else if (in.Accept(K_MINIMUM)) {
    in.Expect(K_EXTENT);
    tablespace.SetMinExtent(ParseSize(in));
  } else if (in.Accept(K_DEFAULT)) {
    ParseDefaults(in, tablespace);
  } else if (in.Accept(K_RETENTION)) {
    tablespace.SetRetention(ParseRetention(in));
  } else {
    SkipClause(in);
  }
}

void ParseTemporaryOption(TokenStream& in, REPCreateTemporaryTablespace& tablespace) {
  using Statement = REPCreateTemporaryTablespace;
  if (ParseCommonOption(in, tablespace) || ParseBareExtents(in, tablespace, REPExtent_e::Uniform))
    return;
  if (in.Accept(K_TEMPFILE))
    Replace(tablespace, &Statement::GetTempFiles, &Statement::SetTempFiles, ParseFileSpecList(in));
  else if (in.Accept(K_TABLESPACE, K_GROUP))
    Replace(tablespace, &Statement::GetGroupName, &Statement::SetGroupName, ParseGroup(in));
  else
    SkipClause(in);
}

// What stands between CREATE and TABLESPACE.
struct TablespaceKind {
  REPFileSize_e file_size{};
  bool undo = false;
  bool temporary = false;
  bool local = false;
};

// CREATE [BIGFILE | SMALLFILE] [UNDO | [LOCAL] TEMPORARY] TABLESPACE; other words are skipped
TablespaceKind ParseTablespaceKind(TokenStream& in) {
  TablespaceKind kind;
  in.Expect(K_CREATE);
  while (in.Peek().kind == TokenKind::Word && !in.Is(K_TABLESPACE)) {
    auto const& token = in.Next();
    switch (token.word) {
      case K_BIGFILE: kind.file_size = REPFileSize_e::BigFile; continue;
      case K_SMALLFILE: kind.file_size = REPFileSize_e::SmallFile; continue;
      case K_UNDO: kind.undo = true; continue;
      case K_TEMPORARY: kind.temporary = true; continue;
      case K_LOCAL: kind.local = true; break;
      default: break;
    }
    in.Note(token, "clause " + ToUpper(in.TextOf(token)) + " is skipped");
  }
  in.Expect(K_TABLESPACE);
  return kind;
}

// What a name list takes of 'file' [, 'file']...
std::unique_ptr<REPNameList> ParseFileNames(TokenStream& in) {
  auto names = std::make_unique<REPNameList>();
  do {
    auto name = std::make_unique<REPName>();
    name->AddTail(ParseFileName(in).c_str());
    names->AddTail(name.release());
  } while (in.Accept(','));
  return names;
}

// {TO name | DATAFILE 'file' [, 'file']... TO 'file' [, 'file']...}, behind RENAME
void ParseRename(TokenStream& in, REPAlterTablespace& tablespace) {
  using Statement = REPAlterTablespace;
  if (in.Accept(K_TO)) {
    Replace(tablespace, &Statement::GetRename, &Statement::SetRename, ParseSimpleName(in));
    return;
  }
  if (!in.Accept(K_DATAFILE) && !in.Accept(K_TEMPFILE)) in.Fail("TO or DATAFILE");
  auto const& token = in.Peek();
  auto from = ParseFileNames(in);
  in.Expect(K_TO);
  auto to = ParseFileNames(in);
  if (from->GetCount() != to->GetCount())
    in.Note(token, "file names without a counterpart are skipped");
  Replace(tablespace, &Statement::GetRenameFromList, &Statement::SetRenameFromList,
          std::move(from));
  Replace(tablespace, &Statement::GetRenameToList, &Statement::SetRenameToList, std::move(to));
}

// {DATAFILE | TEMPFILE} file [, file]..., behind ADD
void ParseAddFiles(TokenStream& in, REPAlterTablespace& tablespace) {
  using Statement = REPAlterTablespace;
  if (in.Accept(K_DATAFILE))
    Replace(tablespace, &Statement::GetAddDatafileList, &Statement::SetAddDatafileList,
            ParseFileSpecList(in));
  else if (in.Accept(K_TEMPFILE))
    Replace(tablespace, &Statement::GetAddTempfileList, &Statement::SetAddTempfileList,
            ParseFileSpecList(in));
  else
    in.Fail("DATAFILE or TEMPFILE");
}

// {ONLINE | OFFLINE}, behind DATAFILE or TEMPFILE
REPOnOff_e ParseFileState(TokenStream& in, REPOnOff_e online, REPOnOff_e offline) {
  if (in.Accept(K_ONLINE)) return online;
  if (in.Accept(K_OFFLINE)) return offline;
  in.Fail("ONLINE or OFFLINE");
}

// [NORMAL | TEMPORARY | IMMEDIATE], behind OFFLINE
REPOnOff_e ParseOffline(TokenStream& in) {
  if (in.Accept(K_NORMAL)) return REPOnOff_e::OfflineNormal;
  if (in.Accept(K_TEMPORARY)) return REPOnOff_e::OfflineTemporary;
  if (in.Accept(K_IMMEDIATE)) return REPOnOff_e::OfflineImmediate;
  return REPOnOff_e::Offline;
}

// Options of ALTER TABLESPACE that are words alone.
bool ParseAlterWords(TokenStream& in, REPAlterTablespace& tablespace) {
  if (in.Accept(K_COALESCE))
    tablespace.SetCoalesce(true);
  else if (in.Accept(K_BEGIN, K_BACKUP))
    tablespace.SetBackup(REPBackup_e::Begin);
  else if (in.Accept(K_END, K_BACKUP))
    tablespace.SetBackup(REPBackup_e::End);
  else if (in.Accept(K_LOGGING))
    tablespace.SetLogging(REPLogging_e::Logging);
  else if (in.Accept(K_NOLOGGING))
    tablespace.SetLogging(REPLogging_e::NoLogging);
  else if (in.Accept(K_FORCE, K_LOGGING))
    tablespace.SetLogging(REPLogging_e::ForceLogging);
  else if (in.Accept(K_NO, K_FORCE, K_LOGGING))
    tablespace.SetLogging(REPLogging_e::NoForceLogging);
  else if (in.Accept(K_ONLINE))
    tablespace.SetOnOff(REPOnOff_e::Online);
  else if (in.Accept(K_OFFLINE))
    tablespace.SetOnOff(ParseOffline(in));
  else if (in.Accept(K_READ, K_ONLY))
    tablespace.SetReadWrite(REPReadWrite_e::ReadOnly);
  else if (in.Accept(K_READ, K_WRITE))
    tablespace.SetReadWrite(REPReadWrite_e::ReadWrite);
  else if (in.Accept(K_TEMPORARY))
    tablespace.SetTempPerm(REPTempPerm_e::Temporary);
  else if (in.Accept(K_PERMANENT))
    tablespace.SetTempPerm(REPTempPerm_e::Permanent);
  else
    return false;
  return true;
}

// An option of ALTER TABLESPACE other than DEFAULT; false when none comes.
bool ParseAlterOption(TokenStream& in, REPAlterTablespace& tablespace) {
  using Statement = REPAlterTablespace;
  if (ParseAlterWords(in, tablespace)) return true;
  if (in.Accept(K_MINIMUM)) {
    in.Expect(K_EXTENT);
    tablespace.SetMinExtent(ParseSize(in));
  } else if (in.Accept(K_RESIZE)) {
    tablespace.SetResize(ParseSize(in));
  } else if (in.Accept(K_RENAME)) {
    ParseRename(in, tablespace);
  } else if (in.Accept(K_ADD)) {
    ParseAddFiles(in, tablespace);
  } else if (in.Accept(K_DATAFILE)) {
    tablespace.SetDataTempOnOff(
        ParseFileState(in, REPOnOff_e::DatafileOnline, REPOnOff_e::DatafileOffline));
  } else if (in.Accept(K_TEMPFILE)) {
    tablespace.SetDataTempOnOff(
        ParseFileState(in, REPOnOff_e::TempfileOnline, REPOnOff_e::TempfileOffline));
  } else if (in.Accept(K_TABLESPACE, K_GROUP)) {
    Replace(tablespace, &Statement::GetGroupName, &Statement::SetGroupName, ParseGroup(in));
  } else if (in.Is(K_AUTOEXTEND)) {
    tablespace.SetAutoExtend(ParseAutoExtend(in));
  } else if (in.Accept(K_FLASHBACK)) {
    tablespace.SetFlashback(ParseFlashback(in));
  } else if (in.Accept(K_RETENTION) || in.Is(K_GUARANTEE) || in.Is(K_NOGUARANTEE)) {
    // The library renders the option without RETENTION.
    tablespace.SetRetention(ParseRetention(in));
  } else {
    return false;
  }
  return true;
}

}  // namespace

// CREATE [BIGFILE | SMALLFILE] [UNDO | TEMPORARY] TABLESPACE [IF NOT EXISTS] name [option]...
std::unique_ptr<REPStatement> ParseCreateTablespace(TokenStream& in) {
  auto const& start = in.Peek();
  auto const kind = ParseTablespaceKind(in);
  SkipIfNotExists(in);
  if (!kind.temporary) {
    auto tablespace = std::make_unique<REPCreateTablespace>();
    tablespace->SetStatementType(REPStatement_e::CreateTablespace);
    tablespace->SetFileSize(kind.file_size);
    tablespace->SetUndo(kind.undo);
    tablespace->SetTablespace(ParseName(in).release());
    while (!in.AtEnd()) ParsePermanentOption(in, *tablespace);
    return tablespace;
  }
  if (kind.undo) in.Note(start, "clause UNDO is skipped");
  // A local one is made for all instances or for those that only read; its name follows.
  if (kind.local && in.Accept(K_FOR)) in.Next();
  auto tablespace = std::make_unique<REPCreateTemporaryTablespace>();
  tablespace->SetStatementType(REPStatement_e::CreateTemporaryTablespace);
  tablespace->SetFileSize(kind.file_size);
  tablespace->SetTablespace(ParseName(in).release());
  while (!in.AtEnd()) ParseTemporaryOption(in, *tablespace);
  return tablespace;
}

// ALTER TABLESPACE [IF EXISTS] name option...; null when all of the options were skipped.
std::unique_ptr<REPStatement> ParseAlterTablespace(TokenStream& in) {
  auto tablespace = std::make_unique<REPAlterTablespace>();
  tablespace->SetStatementType(REPStatement_e::AlterTablespace);
  in.Expect(K_ALTER, K_TABLESPACE);
  SkipIfExists(in);
  tablespace->SetTablespace(ParseName(in).release());
  bool holds = false;
  do {
    if (in.Accept(K_DEFAULT))
      holds = ParseDefaults(in, *tablespace) || holds;
    else if (ParseAlterOption(in, *tablespace))
      holds = true;
    else
      SkipClause(in);
  } while (!in.AtEnd());
  if (!holds) return nullptr;
  return tablespace;
}

}  // namespace repora::reader
