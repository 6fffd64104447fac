#include <vector>

#include "reader/parse_columns.h"
#include "reader/parse_constraints.h"
#include "reader/parse_names.h"
#include "reader/parse_object_columns.h"
#include "reader/parse_organisation.h"
#include "reader/parse_partitions.h"
#include "reader/parse_queries.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/parse_supplemental.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/queries/select.h"
#include "repora/tables/create_table.h"

namespace repora::reader {
namespace {

// Clauses that may be written more than once, of which the last counts, until the table takes them.
struct Clauses {
  PhysicalSide physical;
  std::unique_ptr<REPParallelClause> parallel;
  ColumnProperties column_properties;
  std::unique_ptr<REPTablePartitioningClause> partitioning;
  bool for_exchange = false;  // the columns are those of another table
};

// [AS] query; the library renders it without AS.
bool StartsTableQuery(Word word) {
  return word == K_AS || word == K_SELECT || word == K_WITH;
}

// Words that start a clause behind the columns, and so end one that is skipped.
bool StartsClause(Word word) {
  switch (word) {
    case K_CACHE:
    case K_CLUSTER:
    case K_COLUMN:
    case K_COMPRESS:
    case K_DISABLE:
    case K_ENABLE:
    case K_FLASHBACK:
    case K_INCLUDING:
    case K_INMEMORY:
    case K_LOB:
    case K_MAPPING:
    case K_MONITORING:
    case K_NESTED:
    case K_NOCACHE:
    case K_NOCOMPRESS:
    case K_NOMAPPING:
    case K_NOMONITORING:
    case K_NOPARALLEL:
    case K_NOROWDEPENDENCIES:
    case K_ON:
    case K_ORGANIZATION:
    case K_OVERFLOW:
    case K_PARALLEL:
    case K_PARTITION:
    case K_PCTTHRESHOLD:
    case K_READ:
    case K_REJECT:
    case K_ROWDEPENDENCIES:
    case K_SEGMENT:
    case K_VARRAY:
    case K_XMLTYPE: return true;
    default: return StartsTableQuery(word) || StartsSegmentAttribute(word);
  }
}

// Words that start a statement: the ";" before it is missing.
bool StartsStatement(Word word) {
  return word == K_CREATE || word == K_ALTER || word == K_DROP || word == K_INSERT ||
         word == K_GRANT;
}

// Takes the rest of a clause.
void SkipRest(TokenStream& in) {
  while (!in.AtEnd() && !in.Is(')')) {
    if (in.Accept(K_STORE, K_AS)) continue;
    auto const word = in.Peek().word;
    if (StartsStatement(word) || StartsClause(word) || in.Is(K_ROW, K_STORE) ||
        StartsSkippedClause(in, ClausePlace::Table))
      return;
    in.SkipItem();
  }
}

// The table takes the last one first.
template <class T>
void AddInOrder(REPCreateTable& table, std::vector<std::unique_ptr<T>>& parts,
                void (REPCreateTable::*add)(T*)) {
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) (table.*add)(part->release());
}

// ( {column | constraint | SUPPLEMENTAL LOG ...} [, ...] ); returns the place behind the first
// column that is a name alone, as only those of a table AS SELECT are, or 0.
std::size_t ParseColumns(TokenStream& in, REPCreateTable& table) {
  std::size_t untyped = 0;
  std::vector<std::unique_ptr<REPRelTableColumn>> columns;
  std::vector<std::unique_ptr<REPOutOfLineConstraint>> constraints;
  std::vector<std::unique_ptr<REPOutOfLineRefConstraint>> ref_constraints;
  std::vector<std::unique_ptr<REPSuppLogProps>> logging;
  in.Expect('(');
  do {
    if (IsName(in.Peek()) && (in.Peek(1).punctuation == ',' || in.Peek(1).punctuation == ')') &&
        untyped == 0)
      untyped = in.Mark() + 1;
    if (IsOutOfLineConstraint(in))
      constraints.push_back(ParseOutOfLineConstraint(in));
    else if (IsOutOfLineRefConstraint(in))
      ref_constraints.push_back(ParseOutOfLineRefConstraint(in));
    else if (IsSupplementalLogging(in))
      logging.push_back(ParseSupplementalLogging(in));
    else if (!SkipPeriod(in) && !SkipDomain(in))
      columns.push_back(ParseColumn(in));
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  AddInOrder(table, columns, &REPCreateTable::AddRelationalColumn);
  AddInOrder(table, constraints, &REPCreateTable::AddOutOfLineConstraint);
  AddInOrder(table, ref_constraints, &REPCreateTable::AddOutOfLineRefConstraint);
  AddInOrder(table, logging, &REPCreateTable::AddSuppLogProps);
  return untyped;
}

// ON COMMIT {DELETE | PRESERVE} ROWS | ON COMMIT {DROP | PRESERVE} DEFINITION
void ParseOnCommit(TokenStream& in, REPCreateTable& table) {
  auto const& token = in.Next();
  in.Expect(K_COMMIT);
  auto const action = in.Peek().word;
  if (action != K_DELETE && action != K_PRESERVE && action != K_DROP)
    in.Fail("DELETE ROWS or PRESERVE ROWS");
  in.Next();
  if (in.Accept(K_DEFINITION)) {
    in.Note(token, "clause ON COMMIT DEFINITION is skipped");
    return;
  }
  in.Expect(K_ROWS);
  if (action == K_DELETE)
    table.SetCommit(REPCommit_e::DeleteRows);
  else
    table.SetCommit(REPCommit_e::PreserveRows);
}

// {ENABLE | DISABLE} {ROW MOVEMENT | constraint}
void ParseEnable(TokenStream& in, REPCreateTable& table) {
  if (IsEnableDisableClause(in)) {
    if (!table.GetEnableDisableClauseList())
      table.SetEnableDisableClauseList(new REPEnableDisableClauseList);
    table.GetEnableDisableClauseList()->AddTail(ParseEnableDisableClause(in).release());
    return;
  }
  auto const& token = in.Next();
  if (in.Accept(K_ROW, K_MOVEMENT)) {
    table.SetRowMovement(token.word == K_ENABLE ? REPRowMovement_e::Enable
                                                : REPRowMovement_e::Disable);
    return;
  }
  in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
  SkipRest(in);
}

// Options that are one word.
bool ParseTableOption(TokenStream& in, REPCreateTable& table) {
  switch (in.Peek().word) {
    case K_CACHE: table.SetCache(REPCache_e::Cache); break;
    case K_NOCACHE: table.SetCache(REPCache_e::NoCache); break;
    case K_MONITORING: table.SetMonitor(REPMonitor_e::On); break;
    case K_NOMONITORING: table.SetMonitor(REPMonitor_e::Off); break;
    case K_ROWDEPENDENCIES: table.SetRowDepend(REPRowDepend_e::RowDependencies); break;
    case K_NOROWDEPENDENCIES: table.SetRowDepend(REPRowDepend_e::NoRowDependencies); break;
    default: return false;
  }
  in.Next();
  return true;
}

// A clause whose grammar is not known.
void SkipTableClause(TokenStream& in) {
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || StartsStatement(token.word))
    in.Fail("the end of the statement");
  in.Note(token, "clause " + ToUpper(in.TextOf(token)) + " is skipped");
  in.Next();
  SkipRest(in);
}

void ParseTableClause(TokenStream& in, REPCreateTable& table, Clauses& clauses) {
  auto const word = in.Peek().word;
  if (in.Is(K_FOR, K_EXCHANGE)) clauses.for_exchange = true;
  if (clauses.physical.ParsePart(in)) return;
  if (SkipClause(in, ClausePlace::Table)) {
    SkipRest(in);  // what newer releases than these grammars have
    return;
  }
  if (StartsTableQuery(word) && !table.GetSelect()) {
    in.Accept(K_AS);
    table.SetSelect(ParseQuery(in).release());
  } else if (word == K_ON) {
    ParseOnCommit(in, table);
  } else if (ParseColumnProperties(in, clauses.column_properties)) {
    // The table takes them in the end.
  } else if (word == K_ENABLE || word == K_DISABLE) {
    ParseEnable(in, table);
  } else if (word == K_PARTITION) {
    clauses.partitioning = ParseTablePartitioning(in);
    if (!clauses.partitioning) SkipRest(in);
  } else if (auto parallel = ParseParallel(in)) {
    clauses.parallel = std::move(parallel);
  } else if (!ParseTableOption(in, table)) {
    SkipTableClause(in);
  }
}

// CREATE [GLOBAL TEMPORARY | other kind] TABLE, of which the other kinds are skipped
void ParseTableKind(TokenStream& in, REPCreateTable& table) {
  in.Expect(K_CREATE);
  if (in.Accept(K_GLOBAL, K_TEMPORARY)) table.SetGlobalTemp(true);
  SkipKindWords(in, K_TABLE);
  in.Expect(K_TABLE);
}

// OF type ...: the rows of the table are objects, which a model does not hold
void SkipObjectTable(TokenStream& in, REPCreateTable& table) {
  auto const& token = in.Next();
  auto const type = ParseName(in);
  bool const xml = EqualsIgnoringCase(type->GetName(false), "XMLTYPE");
  table.SetTableType(xml ? REPTableType_e::XmlType : REPTableType_e::Object);
  in.Note(token, "definition of an object table is skipped");
  while (!in.AtEnd()) in.SkipItem();
}

}  // namespace

// CREATE [GLOBAL TEMPORARY] TABLE [IF NOT EXISTS] name {[(columns)] | OF type} [table clause]...
std::unique_ptr<REPStatement> ParseCreateTable(TokenStream& in) {
  auto table = std::make_unique<REPCreateTable>();
  table->SetStatementType(REPStatement_e::CreateTable);
  table->SetTableType(REPTableType_e::Relational);
  ParseTableKind(in, *table);
  SkipIfNotExists(in);
  table->SetTableName(ParseName(in).release());
  SkipSharing(in);
  if (in.Is(K_OF)) {
    SkipObjectTable(in, *table);
    return table;
  }
  Clauses clauses;
  bool const has_columns = in.Is('(');
  auto const untyped = has_columns ? ParseColumns(in, *table) : 0;
  while (!in.AtEnd()) ParseTableClause(in, *table, clauses);
  if (!has_columns && !table->GetSelect() && !clauses.for_exchange) in.Fail("'(' or AS");
  if (untyped > 0 && !table->GetSelect()) {
    in.Rewind(untyped);
    in.Fail("a datatype");
  }
  clauses.physical.GiveTo(*table);
  table->SetParallelClause(clauses.parallel.release());
  AddInOrder(*table, clauses.column_properties, &REPCreateTable::AddColumnProp);
  table->SetPartitioningClause(clauses.partitioning.release());
  return table;
}

}  // namespace repora::reader
