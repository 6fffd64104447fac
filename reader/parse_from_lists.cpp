#include <algorithm>
#include <list>
#include <utility>

#include "reader/parse_conditions.h"
#include "reader/parse_names.h"
#include "reader/query_reader.h"
#include "repora/queries/table_refs.h"

namespace repora::reader {
namespace {

bool TakesCondition(REPJoinType_e type) {
  switch (type) {
    case REPJoinType_e::Cross:
    case REPJoinType_e::Natural:
    case REPJoinType_e::NaturalCross: return false;
    default: return type < REPJoinType_e::NaturalFull;
  }
}

}  // namespace

// FROM table [, table]...
void QueryReader::ReadFrom(REPSelect& query) {
  auto tables = std::make_unique<REPTableRefList>();
  if (in_.Is(K_FROM)) {
    in_.Next();
    do tables->AddTail(ReadTableRef().release());
    while (in_.Accept(','));
  } else {
    KeepText(in_.Peek(), "query without FROM");
  }
  query.SetTableRefList(tables.release());
}

// table [join]...
TableRef QueryReader::ReadTableRef() {
  TokenStream::Level const level(in_);
  return ContinueJoin(ReadTable());
}

// [{join table [ON condition | USING (columns)]}...]
TableRef QueryReader::ContinueJoin(TableRef left) {
  std::list<TokenStream::Level> levels;  // the classes nest to the left
  REPJoinType_e type{};
  while (AcceptJoin(type)) {
    levels.emplace_back(in_);
    auto join = std::make_unique<REPJoinedTable>();
    join->SetJoinType(type);
    auto right = ReadTable();
    bool const has_condition = TakesCondition(type);
    // a JOIN b JOIN c ON ... ON ...: the inner one comes first.
    if (has_condition && StartsJoin(in_)) right = ContinueJoin(std::move(right));
    for (auto const* side : {left.get(), right.get()}) {
      auto const* const table = side->GetQueryTableExpr();
      // In a join the classes say something else with it.
      if (table && (table->GetPartition() || table->GetSubpartition())) keeps_text_ = true;
    }
    if (has_condition && in_.Accept(K_ON))
      join->SetOnCondition(ParseCondition(in_, EndsCondition).release());
    else if (has_condition && in_.Accept(K_USING))
      join->SetUsingColumns(ParseNameList(in_).release());
    join->SetLeftTableRef(left.release());
    join->SetRightTableRef(right.release());
    left = std::make_unique<REPTableRef>();
    left->SetTableRef(REPTableRef_e::Joined);
    left->SetJoinedTable(join.release());
    if (has_condition && (in_.Is(K_ON) || in_.Is(K_USING))) break;  // of a join around this one
  }
  return left;
}

// [PARTITION BY (columns)] {[INNER | CROSS | {FULL | LEFT | RIGHT} [OUTER] | NATURAL ...] JOIN
//   | {CROSS | OUTER} APPLY}
bool QueryReader::AcceptJoin(REPJoinType_e& type) {
  if (!StartsJoin(in_)) return false;
  auto const& token = in_.Peek();
  if (in_.Accept(K_PARTITION, K_BY)) {
    KeepText(token, "PARTITION BY of a join");
    in_.SkipItem();
    return AcceptJoin(type);
  }
  if (in_.Accept(K_CROSS, K_APPLY) || in_.Accept(K_OUTER, K_APPLY)) {
    KeepText(token, "APPLY");
    type = REPJoinType_e::Cross;
    return true;
  }
  bool const natural = in_.Accept(K_NATURAL);
  if (in_.Accept(K_FULL))
    type = ReadOuter(natural ? REPJoinType_e::NaturalFull : REPJoinType_e::Full);
  else if (in_.Accept(K_LEFT))
    type = ReadOuter(natural ? REPJoinType_e::NaturalLeft : REPJoinType_e::Left);
  else if (in_.Accept(K_RIGHT))
    type = ReadOuter(natural ? REPJoinType_e::NaturalRight : REPJoinType_e::Right);
  else if (in_.Accept(K_CROSS))
    type = natural ? REPJoinType_e::NaturalCross : REPJoinType_e::Cross;
  else if (in_.Accept(K_INNER))
    type = natural ? REPJoinType_e::Natural : REPJoinType_e::Inner;
  else
    type = natural ? REPJoinType_e::Natural : REPJoinType_e::Join;
  in_.Expect(K_JOIN);
  return true;
}

// [OUTER]; the kinds with it stand behind those without.
REPJoinType_e QueryReader::ReadOuter(REPJoinType_e plain) {
  return static_cast<REPJoinType_e>(static_cast<int>(plain) + (in_.Accept(K_OUTER) ? 1 : 0));
}

// {table expression | ONLY (table expression) | (table [join]...)} [flashback] [pivot] [[AS] alias]
TableRef QueryReader::ReadTable() {
  auto table = std::make_unique<REPTableRef>();
  table->SetTableRef(REPTableRef_e::QueryTableExpr);
  if (in_.Is('(') && in_.Peek(1).word == K_VALUES && in_.Peek(2).punctuation == '(') {
    ReadValuesTable(*table);
    return table;
  }
  if (in_.Is('(') && !OpensQuery()) {
    table = ReadParenthesisedTable();
    // What the table has within the parentheses it cannot have behind them as well.
    if (table->GetTable_e() == REPTableRef_e::ParenthesisedJoin || table->GetAliasName() ||
        table->GetFlashback())
      return table;
  } else if (in_.Is(K_ONLY) && in_.Peek(1).punctuation == '(') {
    in_.Next();
    in_.Next();
    table->SetTableRef(REPTableRef_e::Only);
    table->SetQueryTableExpr(ReadTableExpression().release());
    in_.Expect(')');
  } else {
    table->SetQueryTableExpr(ReadTableExpression().release());
  }
  ReadFlashback(*table);
  for (auto const word : {K_PIVOT, K_UNPIVOT, K_MATCH_RECOGNIZE}) {
    if (!in_.Is(word)) continue;
    auto const& token = in_.Next();
    KeepText(token, std::string(TextOf(word)));
    while (!in_.Is('(') && !in_.AtEnd()) in_.Next();
    in_.SkipParentheses();
  }
  bool const as = in_.Accept(K_AS);  // of other databases
  if (as || (IsName(in_.Peek()) && !FollowsTable(in_)))
    table->SetAliasName(ParseSimpleName(in_).release());
  return table;
}

// ( VALUES ( ... ) [, ( ... )]... ) [[AS] alias [( columns )]]
void QueryReader::ReadValuesTable(REPTableRef& table) {
  KeepText(in_.Peek(1), "VALUES");
  in_.SkipParentheses();
  table.SetQueryTableExpr(new REPQueryTableExpr);
  bool const as = in_.Accept(K_AS);
  if (as || (IsName(in_.Peek()) && !FollowsTable(in_)))
    table.SetAliasName(ParseSimpleName(in_).release());
  in_.SkipParentheses();
}

// ( table [join]... )
TableRef QueryReader::ReadParenthesisedTable() {
  in_.Expect('(');
  auto table = ReadTableRef();
  if (table->GetTable_e() == REPTableRef_e::Joined)
    table->SetTableRef(REPTableRef_e::ParenthesisedJoin);
  in_.Expect(')');
  return table;
}

// Whether the "(" that comes is that of a query, and not that of a join that starts with one.
bool QueryReader::OpensQuery() const {
  std::size_t place = 1;
  while (in_.Peek(place).punctuation == '(') ++place;
  if (!StartsQueryWord(in_.Peek(place))) return false;
  // Behind the inner query must come what a query goes on with.
  auto lowest = place;
  for (auto depth = place; in_.Peek(place).kind != TokenKind::End; ++place) {
    auto const& token = in_.Peek(place);
    if (token.punctuation == '(') ++depth;
    if (token.punctuation != ')') continue;
    if (--depth == 0) return true;
    if (depth >= lowest) continue;
    lowest = depth;
    auto const& next = in_.Peek(place + 1);
    bool const goes_on = next.punctuation == ')' || next.word == K_ORDER || next.word == K_OFFSET ||
                         next.word == K_FETCH ||
                         SetOperationOf(next.word) != REPSubqueryType_e::None;
    if (!goes_on) return false;
  }
  return false;
}

// [LATERAL] ( query [restriction] ) | {TABLE | THE} ( expression ) [(+)] | function ( ... ) | name
std::unique_ptr<REPQueryTableExpr> QueryReader::ReadTableExpression() {
  auto table = std::make_unique<REPQueryTableExpr>();
  auto const& token = in_.Peek();
  bool const opens = in_.Peek(1).punctuation == '(';
  if (opens && in_.Accept(K_LATERAL)) KeepText(token, "LATERAL");
  if (in_.Is('(')) {
    ReadInlineQuery(*table);
  } else if (opens && (in_.Accept(K_TABLE) || in_.Accept(K_THE))) {
    table->SetCollection(in_.Copy(in_.TakeParentheses()));
    if (in_.Is('(') && in_.Peek(1).punctuation == '+') {
      in_.SkipParentheses();
      table->SetCollectionPlus(true);
    }
  } else {
    ReadNamedTable(*table);
  }
  return table;
}

// ( query [WITH {READ ONLY | CHECK OPTION} [CONSTRAINT name]] )
void QueryReader::ReadInlineQuery(REPQueryTableExpr& table) {
  in_.Expect('(');
  table.SetSubquery(ReadQueryOrText().release());
  if (in_.Accept(K_WITH)) {
    if (in_.Accept(K_READ, K_ONLY)) {
      table.SetSubqueryRestrict(REPSubqueryRestrict_e::ReadOnly);
    } else {
      in_.Expect(K_CHECK, K_OPTION);
      table.SetSubqueryRestrict(REPSubqueryRestrict_e::CheckOption);
    }
    if (in_.Accept(K_CONSTRAINT))
      table.SetSubqueryConstraint(in_.Copy(ParseSimpleName(in_)->AsString(false)));
  }
  in_.Expect(')');
}

// name [@link] [PARTITION (name) | SUBPARTITION (name)] [SAMPLE ...] | function ( ... )
void QueryReader::ReadNamedTable(REPQueryTableExpr& table) {
  auto const& token = in_.Peek();
  auto name = ParseName(in_);
  if (in_.Is('(') && in_.Peek(1).punctuation != '+') {
    KeepText(token, "table function " + name->AsString(false));
    in_.SkipParentheses();
    return;
  }
  if (IsFactor(*name)) {
    // Not a table of the model: the text says what it is.
    keeps_text_ = true;
    return;
  }
  table.SetQueryName(name.release());
  table.SetDBLink(ParseDBLink(in_).release());
  ReadPartition(table);
  ReadSample(table);
  // Of a remote table the classes say no more than its name.
  if (table.GetDBLink() &&
      (table.GetPartition() || table.GetSubpartition() || table.GetSampleClause()))
    keeps_text_ = true;
}

bool QueryReader::IsFactor(REPName const& name) const {
  return name.GetCount() == 1 &&
         std::find(factors_.begin(), factors_.end(), name.GetMapFullName(false)) != factors_.end();
}

// [{PARTITION | SUBPARTITION} {(name) | FOR (values)}]
void QueryReader::ReadPartition(REPQueryTableExpr& table) {
  auto const& token = in_.Peek();
  if ((!in_.Is(K_PARTITION) && !in_.Is(K_SUBPARTITION)) || in_.Is(K_PARTITION, K_BY)) return;
  in_.Next();
  if (in_.Accept(K_FOR)) {
    KeepText(token, "PARTITION FOR");
    in_.SkipItem();
    return;
  }
  in_.Expect('(');
  if (token.word == K_PARTITION)
    table.SetPartition(ParseSimpleName(in_).release());
  else
    table.SetSubpartition(ParseSimpleName(in_).release());
  in_.Expect(')');
}

// [SAMPLE [BLOCK] (percent) [SEED (seed)]]
void QueryReader::ReadSample(REPQueryTableExpr& table) {
  if (!in_.Accept(K_SAMPLE)) return;
  auto sample = std::make_unique<REPSampleClause>();
  sample->SetBlock(in_.Accept(K_BLOCK));
  sample->SetSamplePercent(in_.Copy(in_.TakeParentheses()));
  if (in_.Accept(K_SEED)) sample->SetSeedValue(in_.Copy(in_.TakeParentheses()));
  table.SetSampleClause(sample.release());
}

// {operand [operator operand]... | (value)}, of which the parentheses are left out
std::string_view QueryReader::ReadFlashbackValue() {
  auto const mark = in_.Mark();
  bool const enclosed = in_.Is('(');
  std::string_view content;
  if (enclosed) content = in_.TakeParentheses();
  bool operand_due = !enclosed;
  for (;;) {
    bool const is_operator =
        in_.Peek().kind == TokenKind::Punctuation && !in_.Is(',') && !in_.Is(')') && !in_.Is('(');
    if (operand_due) {
      bool const interval = in_.Is(K_INTERVAL);
      in_.SkipItem();
      if (in_.Peek().kind == TokenKind::String) in_.Next();
      while (interval && (IsUnitOfTime(in_.Peek().word) || in_.Is(K_TO) || in_.Is('(')))
        in_.SkipItem();
      operand_due = false;
    } else if (is_operator) {
      in_.Next();
      operand_due = true;
    } else if (in_.Is('(') && in_.Mark() > mark + 1) {
      in_.SkipParentheses();
    } else {
      break;
    }
  }
  auto const text = in_.TextSince(mark);
  if (text.empty()) in_.Fail("a time or an SCN");
  return enclosed && text.size() == content.size() + 2 ? content : text;
}

// [VERSIONS BETWEEN {SCN | TIMESTAMP} lower AND upper] [AS OF {SCN | TIMESTAMP} value]
void QueryReader::ReadFlashback(REPTableRef& table) {
  if (!in_.Is(K_VERSIONS) && !in_.Is(K_AS, K_OF)) return;
  auto clause = std::make_unique<REPFlashbackClause>();
  auto const read_kind = [&] {
    if (in_.Accept(K_SCN)) return true;
    in_.Expect(K_TIMESTAMP);
    return false;
  };
  if (in_.Accept(K_VERSIONS)) {
    in_.Expect(K_BETWEEN);
    clause->SetTimestampTypeSCN(read_kind());
    clause->SetMinValue(in_.Copy(ReadFlashbackValue()));
    in_.Expect(K_AND);
    clause->SetMaxValue(in_.Copy(ReadFlashbackValue()));
  }
  if (in_.Accept(K_AS, K_OF)) {
    clause->SetAsOfTimestampTypeSCN(read_kind());
    clause->SetAsOfTimestamp(in_.Copy(ReadFlashbackValue()));
  }
  table.SetFlashback(clause.release());
}

}  // namespace repora::reader
