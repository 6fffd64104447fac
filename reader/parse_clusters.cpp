#include "reader/parse_datatypes.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "repora/database/clusters.h"

namespace repora::reader {
namespace {

// Clauses that may be written more than once, of which the last counts, until the cluster takes
// them.
struct Clauses {
  std::unique_ptr<REPName> tablespace;
  std::unique_ptr<REPExpr> hash_expression;
  std::unique_ptr<REPParallelClause> parallel;
};

// Words that start an option of a cluster, and so end an expression before.
bool StartsOption(Word word) {
  switch (word) {
    case K_CACHE:
    case K_HASH:
    case K_HASHKEYS:
    case K_INDEX:
    case K_NOCACHE:
    case K_NOPARALLEL:
    case K_NOROWDEPENDENCIES:
    case K_PARALLEL:
    case K_PARTITION:
    case K_ROWDEPENDENCIES:
    case K_SHARING:
    case K_SINGLE:
    case K_SIZE: return true;
    default: return StartsSegmentAttribute(word);
  }
}

// name datatype [COLLATE name] [SORT]
std::unique_ptr<REPClusterColumn> ParseClusterColumn(TokenStream& in) {
  auto column = std::make_unique<REPClusterColumn>();
  column->SetColumnName(ParseSimpleName(in).release());
  column->SetDatatype(ParseDatatype(in).release());
  auto const& token = in.Peek();
  if (in.Accept(K_COLLATE)) {
    in.Note(token, "clause COLLATE is skipped");
    ParseSimpleName(in);
  }
  column->SetSort(in.Accept(K_SORT));
  return column;
}

// ( column [, column]... )
std::unique_ptr<REPClusterColumnList> ParseClusterColumns(TokenStream& in) {
  auto columns = std::make_unique<REPClusterColumnList>();
  in.Expect('(');
  do columns->AddTail(ParseClusterColumn(in).release());
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return columns;
}

// Options of CREATE and ALTER CLUSTER; false when none comes.
bool ParseCommonOption(TokenStream& in, ClusterOptions& cluster) {
  auto& physical = *cluster.GetPhysicalAttrClause();
  if (ParsePhysicalAttribute(in, physical)) return true;
  if (in.Accept(K_SIZE))
    cluster.SetSize(ParseSize(in));
  else if (in.Accept(K_CACHE))
    cluster.SetCache(REPCache_e::Cache);
  else if (in.Accept(K_NOCACHE))
    cluster.SetCache(REPCache_e::NoCache);
  else
    return false;
  return true;
}

void ParseCreateOption(TokenStream& in, REPCreateCluster& cluster, Clauses& clauses) {
  auto const& token = in.Peek();
  if (ParseCommonOption(in, cluster)) return;
  if (in.Accept(K_TABLESPACE)) {
    clauses.tablespace = ParseName(in);
  } else if (in.Accept(K_INDEX)) {
    cluster.SetIndex(true);
  } else if (in.Accept(K_SINGLE)) {
    in.Expect(K_TABLE);
    cluster.SetSingle(true);
  } else if (in.Accept(K_HASHKEYS)) {
    cluster.SetHashSize(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_HASH)) {
    in.Expect(K_IS);
    clauses.hash_expression = ParseExpression(
        in, [](TokenStream const& stream) { return StartsOption(stream.Peek().word); });
  } else if (in.Accept(K_ROWDEPENDENCIES)) {
    cluster.SetRowDepend(REPRowDepend_e::RowDependencies);
  } else if (in.Accept(K_NOROWDEPENDENCIES)) {
    cluster.SetRowDepend(REPRowDepend_e::NoRowDependencies);
  } else if (auto parallel = ParseParallel(in)) {
    clauses.parallel = std::move(parallel);
  } else if (in.Is(K_SHARING)) {
    SkipSharing(in);
  } else if (in.Accept(K_PARTITION, K_BY)) {
    in.Note(token, "clause PARTITION BY is skipped");
    in.Next();  // how
    while (in.SkipParentheses()) {
    }
  } else {
    in.Fail("an option of the cluster");
  }
}

// False when the option was skipped.
bool ParseAlterOption(TokenStream& in, REPAlterCluster& cluster) {
  auto const& token = in.Peek();
  if (ParseCommonOption(in, cluster)) return token.word != K_MAXTRANS;
  if (auto parallel = ParseParallel(in)) {
    cluster.SetParallel(*parallel);
  } else if (in.Is(K_ALLOCATE)) {
    std::unique_ptr<REPAllocExtentClause> const replaced(cluster.GetAllocExtentClause());
    cluster.SetAllocExtentClause(nullptr);
    cluster.SetAllocExtentClause(ParseAllocateExtent(in).release());
  } else if (in.Accept(K_DEALLOCATE, K_UNUSED)) {
    cluster.SetDeallocate(true);
    if (in.Accept(K_KEEP)) cluster.SetDeallocateSize(ParseSize(in));
  } else if (in.Accept(K_MODIFY, K_PARTITION)) {
    in.Note(token, "clause MODIFY PARTITION is skipped");
    ParseName(in);
    ParseAllocateExtent(in);
    return false;
  } else {
    in.Fail("an option of the cluster");
  }
  return true;
}

}  // namespace

// CREATE CLUSTER [IF NOT EXISTS] name (columns) [option]...
std::unique_ptr<REPStatement> ParseCreateCluster(TokenStream& in) {
  auto const& start = in.Peek();
  auto cluster = std::make_unique<REPCreateCluster>();
  cluster->SetStatementType(REPStatement_e::CreateCluster);
  in.Expect(K_CREATE, K_CLUSTER);
  SkipIfNotExists(in);
  cluster->SetClusterName(ParseName(in).release());
  cluster->SetColumns(ParseClusterColumns(in).release());
  Clauses clauses;
  while (!in.AtEnd()) ParseCreateOption(in, *cluster, clauses);
  cluster->SetTablespaceName(clauses.tablespace.release());
  cluster->SetHashExpr(clauses.hash_expression.release());
  cluster->SetParallelClause(clauses.parallel.release());
  NoteMaxTransAlone(in, start, *cluster->GetPhysicalAttrClause());
  return cluster;
}

// ALTER CLUSTER [IF EXISTS] name option...; null when all of the options were skipped.
std::unique_ptr<REPStatement> ParseAlterCluster(TokenStream& in) {
  auto const& start = in.Peek();
  auto cluster = std::make_unique<REPAlterCluster>();
  cluster->SetStatementType(REPStatement_e::AlterCluster);
  in.Expect(K_ALTER, K_CLUSTER);
  SkipIfExists(in);
  cluster->SetClusterName(ParseName(in).release());
  bool holds = false;
  do holds = ParseAlterOption(in, *cluster) || holds;
  while (!in.AtEnd());
  NoteMaxTransAlone(in, start, *cluster->GetPhysicalAttrClause());
  if (!holds) return nullptr;
  return cluster;
}

}  // namespace repora::reader
