#include "reader/parse_indexes.h"

#include <string>
#include <utility>
#include <vector>

#include "reader/parse_conditions.h"
#include "reader/parse_index_partitions.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/parse_strings.h"
#include "reader/replace.h"
#include "reader/skipped_clauses.h"

namespace repora::reader {
namespace {

// Words that start a property of an index, and so end the condition of a join index.
bool StartsIndexProperty(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_COMPRESS:
    case K_COMPUTE:
    case K_DISABLE:
    case K_ENABLE:
    case K_GLOBAL:
    case K_INITRANS:
    case K_INVISIBLE:
    case K_LOCAL:
    case K_LOGGING:
    case K_MAXTRANS:
    case K_NOCOMPRESS:
    case K_NOLOGGING:
    case K_NOPARALLEL:
    case K_NOREVERSE:
    case K_NOSORT:
    case K_ONLINE:
    case K_PARALLEL:
    case K_PCTFREE:
    case K_PCTUSED:
    case K_REVERSE:
    case K_SORT:
    case K_STORAGE:
    case K_TABLESPACE:
    case K_UNUSABLE:
    case K_USING:
    case K_VISIBLE: return true;
    default: return false;
  }
}

bool AtListEnd(TokenStream const& in, std::size_t ahead = 0) {
  auto const& token = in.Peek(ahead);
  return token.punctuation == ',' || token.punctuation == ')' || token.kind == TokenKind::End;
}

REPSort_e SortOf(Word word) {
  switch (word) {
    case K_ASC: return REPSort_e::Asc;
    case K_DESC: return REPSort_e::Desc;
    case K_NOSORT: return REPSort_e::NoSort;
    case K_SORT: return REPSort_e::Sort;
    default: return REPSort_e::None;
  }
}

// {column | expression} [ASC | DESC | SORT | NOSORT]
std::unique_ptr<REPIndexExpr> ParseIndexExpr(TokenStream& in) {
  auto expression = std::make_unique<REPIndexExpr>();
  auto const at_sort = [&] {
    return SortOf(in.Peek().word) != REPSort_e::None && AtListEnd(in, 1);
  };
  auto const mark = in.Mark();
  if (AtListEnd(in)) in.Fail("a column or an expression");
  do {
    bool const is_name = in.Peek().word == K_NONE && IsName(in.Peek());
    in.SkipItem();
    if (is_name && in.Peek().word == K_NONE && IsName(in.Peek())) in.Fail("',' or ')'");
  } while (!AtListEnd(in) && !at_sort());
  expression->SetExpression(in.Copy(in.TextSince(mark)));
  if (!AtListEnd(in)) expression->SetSort(SortOf(in.Next().word));
  return expression;
}

// ( expression [, expression]... )
std::unique_ptr<REPIndexExprList> ParseIndexExprs(TokenStream& in) {
  auto expressions = std::make_unique<REPIndexExprList>();
  in.Expect('(');
  do expressions->AddTail(ParseIndexExpr(in).release());
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return expressions;
}

// TABLESPACE {DEFAULT | name}, behind its keyword
void ParseIndexTablespace(TokenStream& in, REPIndexAttributesClause& attributes) {
  std::unique_ptr<REPName> name;
  if (!in.Accept(K_DEFAULT)) name = ParseName(in);
  attributes.SetTablespaceDefault(!name);
  // The last one counts; one before comes back to its reader.
  std::unique_ptr<REPName> const replaced(attributes.GetTablespace());
  attributes.SetTablespace(name.release());
}

// Options that are words alone.
bool ParseIndexOption(TokenStream& in, REPIndexAttributesClause& attributes) {
  if (in.Accept(K_COMPUTE, K_STATISTICS)) {
    attributes.SetComputeStatistics(true);
    return true;
  }
  switch (in.Peek().word) {
    case K_LOGGING: attributes.SetLogging(REPLogging_e::Logging); break;
    case K_NOLOGGING: attributes.SetLogging(REPLogging_e::NoLogging); break;
    case K_NOSORT: attributes.SetSort(REPSort_e::NoSort); break;
    case K_ONLINE: attributes.SetOnline(true); break;
    case K_REVERSE: attributes.SetReverse(true); break;
    case K_SORT: attributes.SetSort(REPSort_e::Sort); break;
    default: return false;
  }
  in.Next();
  return true;
}

// One of the attributes of an index; false when none comes.
bool ParseIndexAttribute(TokenStream& in, REPIndexAttributesClause& attributes) {
  if (ParsePhysicalAttribute(in, *attributes.GetPhysicalAttrClause()) || SkipTablespaceSet(in) ||
      ParseIndexOption(in, attributes))
    return true;
  if (in.Accept(K_TABLESPACE)) {
    ParseIndexTablespace(in, attributes);
  } else if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
    auto const compression = ParseIndexCompression(in);
    attributes.SetCompression(compression.compress);
    attributes.SetCompressionSize(in.Copy(compression.size));
  } else if (auto parallel = ParseParallel(in)) {
    std::unique_ptr<REPParallelClause> const replaced(attributes.GetParallelClause());
    attributes.SetParallelClause(parallel.release());
  } else {
    return false;
  }
  return true;
}

// A variable without a value in the place of properties: ${STORAGE_CLAUSE}.
bool SkipPlaceholder(TokenStream& in) {
  auto const& token = in.Peek();
  auto const text = in.TextOf(token);
  if (token.kind != TokenKind::Word || text.find_first_of("&{") == std::string_view::npos)
    return false;
  in.Note(token, "clause " + std::string(text) + " is skipped");
  in.Next();
  return true;
}

// INDEXTYPE IS name [PARALLEL ...] [PARAMETERS ('text')]
std::unique_ptr<REPDomainIndexClause> ParseDomainIndex(TokenStream& in) {
  auto domain = std::make_unique<REPDomainIndexClause>();
  in.Expect(K_INDEXTYPE, K_IS);
  domain->SetIndextypeName(ParseName(in).release());
  while (!in.Is(K_PARAMETERS) && SkipClause(in, ClausePlace::Index)) {
  }
  domain->SetParallelClause(ParseParallel(in).release());
  if (in.Is(K_PARAMETERS)) domain->SetODCIParameters(ParseIndexParameters(in).c_str());
  return domain;
}

// The attributes of an index of a cluster or of a join. Only the latter may be partitioned, with
// its table.
std::unique_ptr<REPIndexAttributesClause> ParseIndexAttributes(TokenStream& in,
                                                               REPBitmapIndexClause* join) {
  auto attributes = std::make_unique<REPIndexAttributesClause>();
  bool given = false;
  while (true) {
    if (ParseIndexAttribute(in, *attributes)) {
      given = true;
    } else if (join && in.Is(K_LOCAL)) {
      Replace(*join, &REPBitmapIndexClause::GetLocalPartition,
              &REPBitmapIndexClause::SetLocalPartition, ParseLocalPartitions(in));
    } else if (!SkipClause(in, ClausePlace::Index)) {
      break;
    }
  }
  return given ? std::move(attributes) : nullptr;
}

// CLUSTER name [attributes], behind its keyword
std::unique_ptr<REPClusterIndexClause> ParseClusterIndex(TokenStream& in) {
  auto cluster = std::make_unique<REPClusterIndexClause>();
  cluster->SetClusterName(ParseName(in).release());
  cluster->SetIndexAttributes(ParseIndexAttributes(in, nullptr).release());
  return cluster;
}

// FROM table [alias] [, table [alias]]...
void ParseFrom(TokenStream& in, REPBitmapIndexClause& join) {
  std::vector<std::pair<std::unique_ptr<REPName>, std::unique_ptr<REPName>>> tables;
  in.Expect(K_FROM);
  do {
    auto table = ParseName(in);
    auto alias = IsName(in.Peek()) && !in.Is(K_WHERE) ? ParseSimpleName(in) : nullptr;
    tables.emplace_back(std::move(table), std::move(alias));
  } while (in.Accept(','));
  for (auto table = tables.rbegin(); table != tables.rend(); ++table) {
    join.AddFromName(table->first.release());
    join.AddFromAlias(table->second.release());
  }
}

// table (expressions) FROM tables WHERE condition [attributes], from FROM
std::unique_ptr<REPBitmapIndexClause> ParseJoinIndex(TokenStream& in, REPTableIndexClause& table) {
  auto join = std::make_unique<REPBitmapIndexClause>();
  ParseFrom(in, *join);
  in.Expect(K_WHERE);
  join->SetCondition(ParseCondition(in, StartsIndexProperty).release());
  join->SetIndexAttributes(ParseIndexAttributes(in, join.get()).release());
  // What was read as an index on the table is the beginning of this one.
  join->SetTableName(table.GetTableName());
  table.SetTableName(nullptr);
  join->SetIndexExprList(table.GetIndexExprList());
  table.SetIndexExprList(nullptr);
  return join;
}

// LOCAL ... | GLOBAL PARTITION BY ... | GLOBAL; false when none comes. The last one counts.
bool ParseIndexPartitions(TokenStream& in, REPIndexPropertiesClause& properties) {
  if (auto local = ParseLocalPartitions(in)) {
    std::unique_ptr<REPLocalPartitionedIndexClause> const replaced(properties.GetLocalIndex());
    properties.SetLocalIndex(local.release());
  } else if (auto global = ParseGlobalPartitions(in)) {
    std::unique_ptr<REPGlobalPartitionedIndexClause> const replaced(properties.GetGlobalIndex());
    properties.SetGlobalIndex(global.release());
  } else if (in.Accept(K_GLOBAL)) {
    properties.GetIndexAttributes()->SetIndexAttPartition(REPIndexAttPart_e::Global);
  } else {
    return false;
  }
  return true;
}

// {attribute | domain_index | partitions}...
// A placeholder behind USING INDEX is rather the name of the index than its properties.
std::unique_ptr<REPIndexPropertiesClause> ParseProperties(TokenStream& in, bool skip_placeholders) {
  auto properties = std::make_unique<REPIndexPropertiesClause>();
  bool given = false;
  while (true) {
    auto* const domain = properties->GetDomainIndex();
    if (domain && in.Is(K_PARAMETERS)) {
      domain->SetODCIParameters(ParseIndexParameters(in).c_str());
    } else if (!domain && in.Is(K_INDEXTYPE)) {
      properties->SetDomainIndex(ParseDomainIndex(in).release());
      given = true;
    } else if (ParseIndexAttribute(in, *properties->GetIndexAttributes()) ||
               ParseIndexPartitions(in, *properties)) {
      given = true;
    } else if (!SkipClause(in, ClausePlace::Index) && !(skip_placeholders && SkipPlaceholder(in))) {
      break;
    }
  }
  return given ? std::move(properties) : nullptr;
}

// CLUSTER name ... | table [alias] (expressions) {[properties] | FROM ...}
void ParseIndexTarget(TokenStream& in, REPCreateIndex& index) {
  if (in.Accept(K_CLUSTER)) {
    index.SetClusterIndexClause(ParseClusterIndex(in).release());
    return;
  }
  auto table = std::make_unique<REPTableIndexClause>();
  table->SetTableName(ParseName(in).release());
  if (IsName(in.Peek())) table->SetAliasName(ParseSimpleName(in).release());
  table->SetIndexExprList(ParseIndexExprs(in).release());
  if (in.Is(K_FROM)) {
    index.SetBitmapIndexClause(ParseJoinIndex(in, *table).release());
    return;
  }
  table->SetIndexProperties(ParseProperties(in, true).release());
  index.SetTableIndexClause(table.release());
}

// CREATE [UNIQUE | BITMAP | other kind] INDEX, of which the other kinds are skipped
void ParseIndexKind(TokenStream& in, REPCreateIndex& index) {
  in.Expect(K_CREATE);
  if (in.Accept(K_UNIQUE))
    index.SetIndexType(REPIndexType_e::Unique);
  else if (in.Accept(K_BITMAP))
    index.SetIndexType(REPIndexType_e::Bitmap);
  SkipKindWords(in, K_INDEX);
  in.Expect(K_INDEX);
}

}  // namespace

Compression ParseIndexCompression(TokenStream& in) {
  auto const compression = ParseCompression(in);
  auto const& kind = in.Peek();
  if (in.Accept(K_ADVANCED)) {
    in.Note(kind, "kind of compression is skipped");
    if (!in.Accept(K_LOW)) in.Accept(K_HIGH);
  }
  return compression;
}

std::string ParseIndexParameters(TokenStream& in) {
  in.Expect(K_PARAMETERS);
  in.Expect('(');
  auto text = ParseQuotedText(in);
  in.Expect(')');
  return text;
}

std::unique_ptr<REPIndexPropertiesClause> ParseIndexProperties(TokenStream& in) {
  return ParseProperties(in, false);
}

// CREATE [UNIQUE | BITMAP] INDEX [IF NOT EXISTS] name ON target
std::unique_ptr<REPCreateIndex> ParseCreateIndexClause(TokenStream& in) {
  auto index = std::make_unique<REPCreateIndex>();
  index->SetStatementType(REPStatement_e::CreateIndex);
  ParseIndexKind(in, *index);
  SkipIfNotExists(in);
  index->SetIndexName(ParseName(in).release());
  in.Expect(K_ON);
  ParseIndexTarget(in, *index);
  return index;
}

std::unique_ptr<REPStatement> ParseCreateIndex(TokenStream& in) {
  return ParseCreateIndexClause(in);
}

}  // namespace repora::reader
