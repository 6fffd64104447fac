#include "reader/parse_materialized_views.h"

#include <string>

#include "reader/parse_names.h"
#include "reader/parse_object_columns.h"
#include "reader/parse_organisation.h"
#include "reader/parse_partitions.h"
#include "reader/parse_queries.h"
#include "reader/parse_refresh.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/queries/refresh.h"

namespace repora::reader {
namespace {

// Words that start a statement: the ";" before it is missing.
bool StartsStatement(Word word) {
  return word == K_CREATE || word == K_ALTER || word == K_DROP || word == K_INSERT ||
         word == K_GRANT;
}

// Clauses that may be written more than once, of which the last counts, until the view takes them.
struct Clauses {
  std::unique_ptr<REPNameList> aliases;
  std::unique_ptr<REPScopedTableRefConstraintList> scopes;
  PhysicalSide physical;
  ColumnProperties columns;
  std::unique_ptr<REPTablePartitioningClause> partitioning;
  std::unique_ptr<REPMaterializedViewProps> properties;
  std::unique_ptr<REPName> index_tablespace;
  std::unique_ptr<REPPhysicalAttrClause> index_attributes;
  std::unique_ptr<REPMaterializedViewRefresh> refresh;

  REPMaterializedViewProps& Properties() {
    if (!properties) properties = std::make_unique<REPMaterializedViewProps>();
    return *properties;
  }
};

// ( {alias | SCOPE FOR ( column ) IS table} [, ...] )
void ParseViewColumns(TokenStream& in, Clauses& clauses) {
  in.Expect('(');
  do {
    if (in.Is(K_SCOPE, K_FOR)) {
      if (!clauses.scopes) clauses.scopes = std::make_unique<REPScopedTableRefConstraintList>();
      clauses.scopes->AddTail(ParseScope(in).release());
      continue;
    }
    if (!clauses.aliases) clauses.aliases = std::make_unique<REPNameList>();
    clauses.aliases->AddTail(ParseSimpleName(in).release());
    while (SkipClause(in, ClausePlace::Column)) continue;
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
}

// ON PREBUILT TABLE [{WITH | WITHOUT} REDUCED PRECISION]
void ParsePrebuilt(TokenStream& in, REPCreateMaterializedView& view) {
  in.Expect(K_ON, K_PREBUILT, K_TABLE);
  if (in.Accept(K_WITH, K_REDUCED, K_PRECISION))
    view.SetPrebuilt(REPPrebuilt_e::WithReducedPrecision);
  else if (in.Accept(K_WITHOUT, K_REDUCED, K_PRECISION))
    view.SetPrebuilt(REPPrebuilt_e::WithoutReducedPrecision);
  else
    view.SetPrebuilt(REPPrebuilt_e::Prebuilt);
}

// USING {NO INDEX | INDEX [TABLESPACE name | physical attribute]...}
void ParseUsingIndex(TokenStream& in, REPCreateMaterializedView& view, Clauses& clauses) {
  in.Expect(K_USING);
  if (in.Accept(K_NO)) {
    in.Expect(K_INDEX);
    view.SetUsingIndex(REPUsingIndex_e::NoIndex);
    return;
  }
  in.Expect(K_INDEX);
  view.SetUsingIndex(REPUsingIndex_e::Index);
  auto attributes = std::make_unique<REPPhysicalAttrClause>();
  for (bool any = false;;) {
    if (in.Accept(K_TABLESPACE)) {
      clauses.index_tablespace = ParseName(in);
    } else if (ParsePhysicalAttribute(in, *attributes)) {
      any = true;
    } else {
      if (any) clauses.index_attributes = std::move(attributes);
      return;
    }
  }
}

// BUILD {IMMEDIATE | DEFERRED}
REPBuild_e ParseBuild(TokenStream& in) {
  in.Expect(K_BUILD);
  if (in.Accept(K_IMMEDIATE)) return REPBuild_e::Immediate;
  in.Expect(K_DEFERRED);
  return REPBuild_e::Deferred;
}

// One of the properties of the view; false when none comes.
bool ParseViewProperty(TokenStream& in, Clauses& clauses) {
  if (ParseColumnProperties(in, clauses.columns)) return true;
  if (in.Is(K_PARTITION, K_BY)) {
    clauses.partitioning = ParseTablePartitioning(in);
    if (!clauses.partitioning) SkipViewRest(in);
  } else if (in.Accept(K_CACHE)) {
    clauses.Properties().SetCache(ParseCache(in));
  } else if (in.Accept(K_NOCACHE)) {
    clauses.Properties().SetCache(REPCache_e::NoCache);
  } else if (in.Is(K_BUILD)) {
    clauses.Properties().SetBuild(ParseBuild(in));
  } else if (auto const parallel = ParseParallelDegree(in);
             parallel.parallel != REPParallel_e::None) {
    clauses.Properties().SetParallel(parallel.parallel);
    clauses.Properties().SetParallelSize(parallel.degree.c_str());
  } else {
    return false;
  }
  return true;
}

// Whether a kind of organization comes without its keyword, as the library renders it.
bool IsBareOrganization(TokenStream const& in) {
  return in.Is(K_HEAP) || in.Is(K_INDEX) || in.Is(K_EXTERNAL);
}

void ParseViewClause(TokenStream& in, REPCreateMaterializedView& view, Clauses& clauses) {
  if (clauses.physical.ParsePart(in) || ParseViewProperty(in, clauses)) return;
  if (in.Is(K_ON, K_PREBUILT))
    ParsePrebuilt(in, view);
  else if (IsUsingIndex(in))
    ParseUsingIndex(in, view, clauses);
  else if (in.Is(K_REFRESH) || in.Is(K_NEVER))
    clauses.refresh = ParseRefresh(in);
  else if (in.Accept(K_FOR, K_UPDATE))
    view.SetForUpdate(true);
  else if (in.Accept(K_ENABLE, K_QUERY, K_REWRITE))
    view.SetRewrite(REPRewrite_e::Enable);
  else if (in.Accept(K_DISABLE, K_QUERY, K_REWRITE))
    view.SetRewrite(REPRewrite_e::Disable);
  else if (IsBareOrganization(in))
    clauses.physical.ParseOrganization(in);
  else
    SkipViewClause(in, "AS");
}

void GiveTo(REPCreateMaterializedView& view, Clauses& clauses) {
  view.SetColumnNameList(clauses.aliases.release());
  view.SetScopedConstraintList(clauses.scopes.release());
  clauses.physical.GiveTo(view);
  if (!clauses.columns.empty()) {
    auto columns = std::make_unique<REPTableColumnPropList>();
    for (auto& column : clauses.columns) columns->AddTail(column.release());
    clauses.Properties().SetColumnProps(columns.release());
  }
  if (clauses.partitioning)
    clauses.Properties().SetPartitioningClause(clauses.partitioning.release());
  view.SetViewProps(clauses.properties.release());
  view.SetTablespace(clauses.index_tablespace.release());
  view.SetPhysicalAttrClause(clauses.index_attributes.release());
  view.SetRefresh(clauses.refresh.release());
}

}  // namespace

void ExpectMaterializedView(TokenStream& in) {
  if (!in.Accept(K_SNAPSHOT)) in.Expect(K_MATERIALIZED, K_VIEW);
}

bool IsUsingIndex(TokenStream const& in) {
  return in.Is(K_USING, K_INDEX) || in.Is(K_USING, K_NO, K_INDEX);
}

bool StartsViewClause(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ADD:
    case K_ALLOCATE:
    case K_AS:
    case K_BUILD:
    case K_CACHE:
    case K_CLUSTER:
    case K_COALESCE:
    case K_COMPILE:
    case K_COMPRESS:
    case K_CONSIDER:
    case K_DEALLOCATE:
    case K_DISABLE:
    case K_ENABLE:
    case K_INCLUDING:
    case K_INMEMORY:
    case K_MAPPING:
    case K_MODIFY:
    case K_NEVER:
    case K_NOCACHE:
    case K_NOCOMPRESS:
    case K_NOMAPPING:
    case K_NOPARALLEL:
    case K_ORGANIZATION:
    case K_OVERFLOW:
    case K_PARALLEL:
    case K_PCTTHRESHOLD:
    case K_REFRESH:
    case K_SEGMENT:
    case K_SHRINK: return true;
    default:
      return in.Is(K_FOR, K_UPDATE) || in.Is(K_ON, K_PREBUILT) || in.Is(K_PARTITION, K_BY) ||
             IsUsingIndex(in) || StartsColumnProperty(in) || StartsSegmentAttribute(in.Peek().word);
  }
}

void SkipViewRest(TokenStream& in) {
  while (!in.AtEnd() && !StartsViewClause(in) && !StartsStatement(in.Peek().word)) in.SkipItem();
}

void SkipViewClause(TokenStream& in, std::string_view expected) {
  if (SkipClause(in, ClausePlace::MaterializedView)) return;
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || StartsStatement(token.word)) in.Fail(expected);
  auto const names_two = token.word == K_ADD || token.word == K_DISABLE || token.word == K_ENABLE ||
                         token.word == K_MODIFY || token.word == K_NO || token.word == K_ON;
  std::string name(ToUpper(in.TextOf(token)));
  in.Next();
  if (names_two && in.Peek().kind == TokenKind::Word) name += " " + ToUpper(in.TextOf(in.Next()));
  in.Note(token, "clause " + name + " is skipped");
  SkipViewRest(in);
}

std::unique_ptr<REPScopedTableRefConstraint> ParseScope(TokenStream& in) {
  auto scope = std::make_unique<REPScopedTableRefConstraint>();
  in.Expect(K_SCOPE, K_FOR);
  in.Expect('(');
  scope->SetColumnName(ParseName(in).release());
  in.Expect(')');
  in.Expect(K_IS);
  scope->SetScopeName(ParseName(in).release());
  return scope;
}

// CREATE {MATERIALIZED VIEW | SNAPSHOT} [IF NOT EXISTS] name [OF type] [(columns)] [clause]...
//   AS query
std::unique_ptr<REPStatement> ParseCreateMaterializedView(TokenStream& in) {
  auto view = std::make_unique<REPCreateMaterializedView>();
  view->SetStatementType(REPStatement_e::CreateMaterializedView);
  in.Expect(K_CREATE);
  ExpectMaterializedView(in);
  SkipIfNotExists(in);
  view->SetViewName(ParseName(in).release());
  SkipSharing(in);
  Clauses clauses;
  while (in.Is('(')) ParseViewColumns(in, clauses);
  if (in.Accept(K_OF)) view->SetOfTypeName(ParseName(in).release());
  while (in.Is('(')) ParseViewColumns(in, clauses);
  while (!in.Accept(K_AS)) ParseViewClause(in, *view, clauses);
  view->SetSelect(ParseQuery(in).release());
  GiveTo(*view, clauses);
  if (!in.AtEnd()) in.Fail("the end of the materialized view");
  return view;
}

}  // namespace repora::reader
