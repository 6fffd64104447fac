#include <string>

#include "reader/parse_alter_partitions.h"
#include "reader/parse_materialized_views.h"
#include "reader/parse_names.h"
#include "reader/parse_partitions.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/queries/alter_materialized_view_log.h"
#include "repora/queries/materialized_view_logs.h"
#include "repora/storage/extents.h"

namespace repora::reader {
namespace {

// Clauses that may be written more than once, of which the last counts, until the log takes them.
// Columns add up.
struct Clauses {
  std::unique_ptr<REPName> tablespace;
  std::unique_ptr<REPNameList> columns;

  void GiveTo(LogOptions& log) {
    log.SetTablespace(tablespace.release());
    if (columns) log.SetColumns(columns.release());
  }
};

// ( column [, column]... )
void ParseColumns(TokenStream& in, Clauses& clauses) {
  if (!clauses.columns) clauses.columns = std::make_unique<REPNameList>();
  in.Expect('(');
  do clauses.columns->AddTail(ParseSimpleName(in).release());
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
}

// One of OBJECT ID | PRIMARY KEY | ROWID | SEQUENCE | COMMIT SCN | ( columns ); false when none
// comes.
bool ParseContent(TokenStream& in, LogOptions& log, Clauses& clauses) {
  auto const& token = in.Peek();
  if (in.Accept(K_OBJECT, K_ID))
    log.SetObjectID(true);
  else if (in.Accept(K_PRIMARY, K_KEY))
    log.SetPrimaryKey(true);
  else if (in.Accept(K_ROWID))
    log.SetRowID(true);
  else if (in.Accept(K_SEQUENCE))
    log.SetSequence(true);
  else if (in.Accept(K_COMMIT, K_SCN))
    in.Note(token, "COMMIT SCN of a log is skipped");
  else if (in.Is('('))
    ParseColumns(in, clauses);
  else
    return false;
  return true;
}

// [content [[,] content]...] {INCLUDING | EXCLUDING} NEW VALUES, behind WITH or ADD
void ParseContents(TokenStream& in, LogOptions& log, Clauses& clauses) {
  bool comma = false;
  bool any = false;
  while (ParseContent(in, log, clauses)) {
    any = true;
    comma = in.Accept(',');
  }
  if (comma || (!any && !in.Is(K_INCLUDING) && !in.Is(K_EXCLUDING)))
    in.Fail("what is logged: OBJECT ID, PRIMARY KEY, ROWID, SEQUENCE or columns");
}

// Words that start a clause of a log, and so end one that is skipped.
bool StartsLogClause(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ADD:
    case K_ALLOCATE:
    case K_CACHE:
    case K_EXCLUDING:
    case K_FOR:
    case K_INCLUDING:
    case K_NOCACHE:
    case K_NOPARALLEL:
    case K_PARALLEL:
    case K_PURGE:
    case K_SHRINK:
    case K_WITH: return true;
    default: return in.Is(K_PARTITION, K_BY) || StartsSegmentAttribute(in.Peek().word);
  }
}

// Takes the rest of a clause.
void SkipRest(TokenStream& in) {
  auto const mark = in.Mark();
  while (!in.AtEnd() && !StartsLogClause(in))
    if (!in.Accept(K_START, K_WITH)) in.SkipItem();
  in.ForgetKeywords(mark);
}

// PURGE ... and FOR {SYNCHRONOUS | FAST} REFRESH ..., and whatever else newer releases have
void SkipLogClause(TokenStream& in, std::string_view expected) {
  if (SkipClause(in, ClausePlace::MaterializedViewLog)) return;
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || token.word == K_CREATE || token.word == K_ALTER)
    in.Fail(expected);
  in.Note(token, "clause " + ToUpper(in.TextOf(token)) + " is skipped");
  in.Next();
  SkipRest(in);
}

// An option of CREATE and ALTER MATERIALIZED VIEW LOG; false when none comes.
bool ParseCommonOption(TokenStream& in, LogOptions& log, Clauses& clauses) {
  if (ParsePhysicalAttribute(in, *log.GetPhysicalAttrClause())) return true;
  if (in.Accept(K_TABLESPACE)) {
    clauses.tablespace = ParseName(in);
  } else if (in.Accept(K_LOGGING)) {
    log.SetLogging(REPLogging_e::Logging);
  } else if (in.Accept(K_NOLOGGING)) {
    log.SetLogging(REPLogging_e::NoLogging);
  } else if (in.Accept(K_CACHE)) {
    log.SetCache(ParseCache(in));
  } else if (in.Accept(K_NOCACHE)) {
    log.SetCache(REPCache_e::NoCache);
  } else if (in.Accept(K_INCLUDING, K_NEW, K_VALUES)) {
    log.SetNewValues(REPNewValues_e::Including);
  } else if (in.Accept(K_EXCLUDING, K_NEW, K_VALUES)) {
    log.SetNewValues(REPNewValues_e::Excluding);
  } else if (auto const parallel = ParseParallelDegree(in);
             parallel.parallel != REPParallel_e::None) {
    log.SetParallel(parallel.parallel);
    log.SetParallelSize(parallel.degree.c_str());
  } else {
    return false;
  }
  return true;
}

// False when the clause was skipped.
bool ParseAlterClause(TokenStream& in, REPAlterMaterializedViewLog& log, Clauses& clauses,
                      std::unique_ptr<REPAllocExtentClause>& allocate,
                      std::unique_ptr<REPAlterTablePartitioning>& partitioning) {
  auto const& token = in.Peek();
  if (ParseCommonOption(in, log, clauses)) return token.word != K_MAXTRANS;
  if (ParseAlterPartitions(in, partitioning)) return partitioning != nullptr;
  if (in.Is(K_ALLOCATE)) {
    allocate = ParseAllocateExtent(in);
  } else if (in.Is(K_SHRINK)) {
    log.SetShrink(ParseShrink(in));
  } else if (in.Accept(K_ADD)) {
    ParseContents(in, log, clauses);
  } else {
    SkipLogClause(in, "a clause of ALTER MATERIALIZED VIEW LOG");
    return false;
  }
  return true;
}

}  // namespace

// CREATE {MATERIALIZED VIEW | SNAPSHOT} LOG [IF NOT EXISTS] ON table [option]... [WITH contents]
//   [PARTITION BY ...]
std::unique_ptr<REPStatement> ParseCreateMaterializedViewLog(TokenStream& in) {
  auto const& start = in.Peek();
  auto log = std::make_unique<REPCreateMaterializedViewLog>();
  log->SetStatementType(REPStatement_e::CreateMaterializedViewLog);
  in.Expect(K_CREATE);
  ExpectMaterializedView(in);
  in.Expect(K_LOG);
  SkipIfNotExists(in);
  in.Expect(K_ON);
  log->SetTablename(ParseName(in).release());
  Clauses clauses;
  std::unique_ptr<REPTablePartitioningClause> partitioning;
  while (!in.AtEnd()) {
    if (ParseCommonOption(in, *log, clauses)) continue;
    if (in.Accept(K_WITH)) {
      ParseContents(in, *log, clauses);
    } else if (in.Is(K_PARTITION, K_BY)) {
      partitioning = ParseTablePartitioning(in);
      if (!partitioning) SkipRest(in);
    } else {
      SkipLogClause(in, "a clause of the materialized view log");
    }
  }
  clauses.GiveTo(*log);
  log->SetPartitioningClause(partitioning.release());
  NoteMaxTransAlone(in, start, *log->GetPhysicalAttrClause());
  return log;
}

// ALTER {MATERIALIZED VIEW | SNAPSHOT} LOG [IF EXISTS] [FORCE] ON table clause...; null when all
// were skipped.
std::unique_ptr<REPStatement> ParseAlterMaterializedViewLog(TokenStream& in) {
  auto const& start = in.Peek();
  auto log = std::make_unique<REPAlterMaterializedViewLog>();
  log->SetStatementType(REPStatement_e::AlterMaterializedViewLog);
  in.Expect(K_ALTER);
  ExpectMaterializedView(in);
  in.Expect(K_LOG);
  SkipIfExists(in);
  log->SetForce(in.Accept(K_FORCE));
  in.Expect(K_ON);
  log->SetTablename(ParseName(in).release());
  Clauses clauses;
  std::unique_ptr<REPAllocExtentClause> allocate;
  std::unique_ptr<REPAlterTablePartitioning> partitioning;
  bool holds = false;
  do holds = ParseAlterClause(in, *log, clauses, allocate, partitioning) || holds;
  while (!in.AtEnd());
  clauses.GiveTo(*log);
  log->SetAllocExtentClause(allocate.release());
  log->SetAlterPartitioning(partitioning.release());
  NoteMaxTransAlone(in, start, *log->GetPhysicalAttrClause());
  if (!holds) return nullptr;
  return log;
}

}  // namespace repora::reader
