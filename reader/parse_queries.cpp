#include "reader/parse_queries.h"

#include <algorithm>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "reader/parse_conditions.h"
#include "reader/parse_names.h"
#include "repora/core/letters.h"
#include "repora/queries/query_clauses.h"
#include "repora/queries/sub_query.h"
#include "repora/queries/table_refs.h"

namespace repora::reader {
namespace {

using Query = std::unique_ptr<REPSelect>;
using TableRef = std::unique_ptr<REPTableRef>;

// Changes of the operator in a chain of set operations, each of which nests what is left of it.
constexpr int kMostOperators = 200;

// A query takes the stack of several other levels of nesting.
constexpr std::size_t kLevelsOfQuery = 8;

bool StartsQueryWord(Token const& token) {
  return token.word == K_SELECT || token.word == K_WITH;
}

REPSubqueryType_e SetOperationOf(Word word) {
  switch (word) {
    case K_UNION: return REPSubqueryType_e::Union;
    case K_INTERSECT: return REPSubqueryType_e::Intersect;
    case K_EXCEPT:
    case K_MINUS: return REPSubqueryType_e::Minus;
    default: return REPSubqueryType_e::None;
  }
}

bool StartsSetOperation(TokenStream const& in) {
  if (SetOperationOf(in.Peek().word) == REPSubqueryType_e::None) return false;
  auto const& next = in.Peek(1);
  return next.word == K_ALL || next.word == K_SELECT || next.punctuation == '(';
}

// ORDER BY, row limiting, FOR UPDATE: what follows the last operand of a set operation.
bool StartsTail(TokenStream const& in) {
  auto const next = in.Peek(1).word;
  switch (in.Peek().word) {
    case K_ORDER: return next == K_BY || next == K_SIBLINGS;
    case K_OFFSET: return in.Peek(1).kind != TokenKind::Punctuation;
    case K_FETCH: return next == K_FIRST || next == K_NEXT;
    case K_FOR: return next == K_UPDATE;
    default: return false;
  }
}

bool EndsQuery(TokenStream const& in) {
  return in.AtEnd() || in.Is(')') || StartsRestriction(in) || StartsContainerOption(in);
}

// Clauses of a query block that have no class.
bool StartsNewerClause(TokenStream const& in) {
  auto const& next = in.Peek(1);
  switch (in.Peek().word) {
    case K_MODEL: return next.kind == TokenKind::Word || next.punctuation == '(';
    case K_WINDOW: return IsName(next) && in.Peek(2).word == K_AS;
    case K_QUALIFY: return next.kind != TokenKind::Punctuation;
    default: return false;
  }
}

bool StartsJoin(TokenStream const& in) {
  auto const next = in.Peek(1).word;
  switch (in.Peek().word) {
    case K_JOIN: return true;
    case K_INNER: return next == K_JOIN;
    case K_CROSS: return next == K_JOIN || next == K_APPLY;
    case K_OUTER: return next == K_APPLY;
    case K_FULL:
    case K_LEFT:
    case K_RIGHT: return next == K_JOIN || next == K_OUTER;
    case K_NATURAL: return true;
    case K_PARTITION: return next == K_BY;
    default: return false;
  }
}

// Whether a clause of the query comes, or its end.
bool EndsClause(TokenStream const& in) {
  auto const next = in.Peek(1).word;
  switch (in.Peek().word) {
    case K_WHERE:
    case K_HAVING: return true;
    case K_CONNECT:
    case K_GROUP: return next == K_BY;
    case K_START: return next == K_WITH;
    default:
      return EndsQuery(in) || StartsSetOperation(in) || StartsTail(in) || StartsNewerClause(in);
  }
}

bool EndsCondition(TokenStream const& in) {
  return EndsClause(in) || StartsJoin(in);
}

// Words that cannot be the alias of a table, as they go on with the query.
bool FollowsTable(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ON:
    case K_USING:
    case K_PIVOT:
    case K_UNPIVOT:
    case K_MATCH_RECOGNIZE:
    case K_SAMPLE:
    case K_VERSIONS:
    case K_PARTITION:
    case K_SUBPARTITION: return true;
    default: return EndsCondition(in);
  }
}

// Words that stand before an operand, so that the one behind them is no alias.
bool TakesOperand(Word word) {
  switch (word) {
    case K_ALL:
    case K_AND:
    case K_AT:
    case K_BETWEEN:
    case K_BY:
    case K_CASE:
    case K_COLLATE:
    case K_CONNECT_BY_ROOT:
    case K_DISTINCT:
    case K_ELSE:
    case K_EXCEPT:
    case K_IN:
    case K_INTERSECT:
    case K_INTERVAL:
    case K_IS:
    case K_LIKE:
    case K_MULTISET:
    case K_NEW:
    case K_NOT:
    case K_OR:
    case K_OVER:
    case K_PRIOR:
    case K_THEN:
    case K_TO:
    case K_UNION:
    case K_UNIQUE:
    case K_WHEN:
    case K_ZONE: return true;
    default: return false;
  }
}

// Reserved words that stand for a value, as in T.ROWID: no column has such a name.
bool IsValue(Word word) {
  switch (word) {
    case K_LEVEL:
    case K_NULL:
    case K_ROWID:
    case K_ROWNUM:
    case K_SYSDATE:
    case K_UID:
    case K_USER: return true;
    default: return false;
  }
}

bool IsUnitOfTime(Word word) {
  switch (word) {
    case K_DAY:
    case K_HOUR:
    case K_MINUTE:
    case K_MONTH:
    case K_SECOND:
    case K_YEAR: return true;
    default: return false;
  }
}

// Whether the object model, which renders names without quotes, would change the name.
bool NeedsQuotes(std::string_view quoted) {
  auto const name = quoted.substr(1, quoted.size() - 2);
  auto const plain = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' || c == '#';
  };
  return name.empty() || !(name[0] >= 'A' && name[0] <= 'Z') ||
         !std::all_of(name.begin(), name.end(), plain);
}

// Whether the left operand of a set operation keeps its meaning without parentheses.
bool IsPlain(REPSelect const& query) {
  return !query.GetSubQuery() && !query.GetOrderByList() && !query.GetForUpdate() &&
         !*query.GetText() && !*query.GetFactor();
}

// SELECT * FROM (query)
Query Enclose(Query query) {
  auto enclosing = std::make_unique<REPSelect>();
  auto list = std::make_unique<REPSelectList>();
  list->AddName(new REPName("*"), nullptr);
  auto table = std::make_unique<REPTableRef>();
  table->SetTableRef(REPTableRef_e::QueryTableExpr);
  auto expression = std::make_unique<REPQueryTableExpr>();
  expression->SetSubquery(query.release());
  table->SetQueryTableExpr(expression.release());
  auto tables = std::make_unique<REPTableRefList>();
  tables->AddTail(table.release());
  enclosing->SetSelectList(list.release());
  enclosing->SetTableRefList(tables.release());
  return enclosing;
}

// Whether a view of the query keeps its SQL. What the run finds out only adds to it.
bool KeepsSql(REPSelect const& query) {
  if (query.IsUnionOrJoin() || query.ContainsWildcard()) return true;
  auto const* const tables = query.GetTableRefList();
  for (int i = 0; tables && i < tables->GetCount(); ++i) {
    auto const* const table = tables->GetTableRef(i)->GetQueryTableExpr();
    if (table && table->GetSubQuery()) return true;
  }
  return false;
}

bool TakesCondition(REPJoinType_e type) {
  switch (type) {
    case REPJoinType_e::Cross:
    case REPJoinType_e::Natural:
    case REPJoinType_e::NaturalCross: return false;
    default: return type < REPJoinType_e::NaturalFull;
  }
}

// Reads one query. A function that meets what the classes have no place for says so with KeepText
// and goes on; one that cannot go on throws.
class QueryReader {
 public:
  // Only the query of a statement is worth a note: one within another stays in that one's text.
  QueryReader(TokenStream& in, bool takes_notes) : in_(in), takes_notes_(takes_notes) {}

  Query ReadQueryOrText();

 private:
  struct Item {
    Token token;  // the first
    std::size_t mark;
  };
  struct Operand {
    REPSubqueryType_e type;  // of the operation that leads to it
    Query query;
  };

  Query ReadQuery();
  std::string ReadFactor();
  Query ReadOperands();
  Query ReadOperand();
  Query ReadBlock();
  void ReadSelectList(REPSelect& query);
  void ReadEntry(REPSelectList& list);
  std::size_t CountExpressionItems() const;
  bool IsColumn(std::size_t count) const;
  void ReadFrom(REPSelect& query);
  TableRef ReadTableRef();
  TableRef ContinueJoin(TableRef left);
  bool AcceptJoin(REPJoinType_e& type);
  REPJoinType_e ReadOuter(REPJoinType_e plain);
  TableRef ReadTable();
  TableRef ReadParenthesisedTable();
  std::unique_ptr<REPQueryTableExpr> ReadTableExpression();
  void ReadInlineQuery(REPQueryTableExpr& table);
  void ReadNamedTable(REPQueryTableExpr& table);
  void ReadPartition(REPQueryTableExpr& table);
  void ReadSample(REPQueryTableExpr& table);
  std::string_view ReadFlashbackValue();
  void ReadFlashback(REPTableRef& table);
  bool IsFactor(REPName const& name) const;
  bool OpensQuery() const;
  void ReadBlockClauses(REPSelect& query);
  void ReadHierarchy(REPSelect& query);
  void ReadGroupBy(REPGroupByList& list);
  std::unique_ptr<REPGroupBy> ReadGroupEntry();
  std::unique_ptr<REPExprList> ReadExpressionList();
  void ReadOrderBy(REPSelect& query);
  void ReadForUpdate(REPSelect& query);
  std::string_view ReadText(bool (*ends)(TokenStream const&));
  std::string_view TakeParentheses();
  void KeepText(Token const& at, std::string const& what);
  bool HasQuotedNames(std::size_t mark);

  TokenStream& in_;
  bool takes_notes_;
  bool keeps_text_ = false;       // of the query that is read
  bool has_lone_having_ = false;  // without GROUP BY, which the classes render all the same
  int depth_ = 0;                 // of queries
  std::vector<std::string> factors_;
  std::vector<Item> items_;
};

void QueryReader::KeepText(Token const& at, std::string const& what) {
  keeps_text_ = true;
  if (takes_notes_ && depth_ == 1) in_.Note(at, what + " is kept as text of the query");
}

// The script's text up to a "," or to what ends it.
std::string_view QueryReader::ReadText(bool (*ends)(TokenStream const&)) {
  auto const mark = in_.Mark();
  while (!in_.Is(',') && !ends(in_)) in_.SkipItem();
  auto const text = in_.TextSince(mark);
  if (text.empty()) in_.Fail("an expression");
  return text;
}

// Takes "(" to ")"; the text between them.
std::string_view QueryReader::TakeParentheses() {
  if (!in_.Is('(')) in_.Fail("'('");
  auto const mark = in_.Mark() + 1;
  in_.SkipParentheses();
  in_.StepBack();
  auto const text = in_.TextSince(mark);
  in_.Next();
  return text;
}

bool QueryReader::HasQuotedNames(std::size_t mark) {
  auto const end = in_.Mark();
  bool found = false;
  for (in_.Rewind(mark); !found && in_.Mark() < end; in_.Next())
    found = in_.Peek().kind == TokenKind::QuotedName && NeedsQuotes(in_.TextOf(in_.Peek()));
  in_.Rewind(end);
  return found;
}

Query QueryReader::ReadQueryOrText() {
  auto const mark = in_.Mark();
  try {
    auto query = ReadQuery();
    if (EndsQuery(in_)) return query;
    in_.Fail("the end of the query");
  } catch (SyntaxError const& error) {
    if (takes_notes_ && depth_ == 0)
      in_.Note(in_.Peek(), "the query is kept as its text: " + error.Text());
  }
  in_.Rewind(mark);
  while (!EndsQuery(in_)) in_.SkipItem();
  auto const text = in_.TextSince(mark);
  if (text.empty()) in_.Fail("a query");
  auto query = std::make_unique<REPSelect>();
  query->SetText(in_.Copy(text));
  query->SetTableRefList(new REPTableRefList);
  return query;
}

// [WITH ...] operand [set operation operand]... [ORDER BY ...] [row limit] [FOR UPDATE ...]
Query QueryReader::ReadQuery() {
  TokenStream::Level const level(in_, kLevelsOfQuery);
  struct Scope {
    explicit Scope(QueryReader& reader)
        : reader_(reader),
          keeps_text_(std::exchange(reader.keeps_text_, false)),
          has_lone_having_(std::exchange(reader.has_lone_having_, false)),
          factors_(reader.factors_.size()) {
      ++reader_.depth_;
    }
    ~Scope() {
      --reader_.depth_;
      reader_.keeps_text_ = keeps_text_;
      reader_.has_lone_having_ = has_lone_having_;
      reader_.factors_.resize(factors_);
    }
    QueryReader& reader_;
    bool keeps_text_;
    bool has_lone_having_;
    std::size_t factors_;
  } const scope(*this);

  auto const mark = in_.Mark();
  auto const factor = in_.Is(K_WITH) ? ReadFactor() : std::string();
  auto query = ReadOperands();
  bool const is_ordered = query->GetOrderByList() || query->GetForUpdate() || *query->GetText();
  // In parentheses of its own, which the classes have for an inline query only.
  if ((is_ordered && StartsTail(in_)) || (!factor.empty() && *query->GetFactor()))
    query = Enclose(std::move(query));
  if (!factor.empty()) query->SetFactor(factor.c_str());
  if (in_.Is(K_ORDER)) ReadOrderBy(*query);
  if (in_.Is(K_OFFSET) || in_.Is(K_FETCH)) {
    KeepText(in_.Peek(), "row limit");
    while (!EndsQuery(in_) && !in_.Is(K_FOR, K_UPDATE)) in_.SkipItem();
  }
  if (in_.Is(K_FOR, K_UPDATE)) ReadForUpdate(*query);
  // A query that is not modelled column by column is its text, so that must be right.
  bool const is_text = depth_ > 1 || !takes_notes_ || KeepsSql(*query);
  if (keeps_text_ || (is_text && (has_lone_having_ || HasQuotedNames(mark))))
    query->SetText(in_.Copy(in_.TextSince(mark)));
  return query;
}

// WITH name [(columns)] AS (query) [SEARCH ...] [CYCLE ...] [, ...]
std::string QueryReader::ReadFactor() {
  auto const mark = in_.Mark();
  in_.Expect(K_WITH);
  do {
    factors_.push_back(ParseSimpleName(in_)->GetMapFullName(false));
    in_.SkipParentheses();
    in_.Expect(K_AS);
    if (!in_.SkipParentheses()) in_.Fail("'('");
    while (!in_.Is(',') && !in_.Is('(') && !in_.Is(K_SELECT) && !in_.AtEnd()) in_.SkipItem();
  } while (in_.Accept(','));
  return std::string(in_.TextSince(mark));
}

// Set operations bind from left to right, and the classes nest to the right. A run of one operator
// means the same either way, but for MINUS; at any other the left part becomes an inline query.
Query QueryReader::ReadOperands() {
  std::vector<Operand> run;
  auto const close_run = [&run] {
    auto result = std::move(run.back().query);
    for (auto operand = run.rbegin(); operand + 1 != run.rend(); ++operand) {
      auto left = std::move((operand + 1)->query);
      if (!IsPlain(*left)) left = Enclose(std::move(left));
      auto operation = std::make_unique<REPSubQuery>();
      operation->SetSubqueryType(operand->type);
      operation->SetSubquery(result.release());
      left->SetSubQuery(operation.release());
      result = std::move(left);
    }
    run.clear();
    return result;
  };
  run.push_back({REPSubqueryType_e::None, ReadOperand()});
  int operators = 0;
  while (StartsSetOperation(in_)) {
    auto type = SetOperationOf(in_.Peek().word);
    in_.Next();
    if (in_.Accept(K_ALL)) {
      if (type != REPSubqueryType_e::Union) in_.Fail("a query");
      type = REPSubqueryType_e::UnionAll;
    }
    bool const goes_on =
        run.size() == 1 || (type == run.back().type && type != REPSubqueryType_e::Minus);
    if (!goes_on) {
      if (++operators > kMostOperators) in_.Fail("fewer changes of the set operator");
      auto left = Enclose(close_run());
      run.push_back({REPSubqueryType_e::None, std::move(left)});
    }
    run.push_back({type, ReadOperand()});
  }
  return close_run();
}

// SELECT ... | ( query )
Query QueryReader::ReadOperand() {
  if (!in_.Accept('(')) return ReadBlock();
  auto query = ReadQuery();
  in_.Expect(')');
  return query;
}

// SELECT [ALL | DISTINCT | UNIQUE] list FROM tables [clause]...
Query QueryReader::ReadBlock() {
  auto query = std::make_unique<REPSelect>();
  in_.Expect(K_SELECT);
  if (in_.Accept(K_ALL))
    query->SetSelectOpt(REPSelectOpt_e::All);
  else if (in_.Accept(K_DISTINCT))
    query->SetSelectOpt(REPSelectOpt_e::Distinct);
  else if (in_.Accept(K_UNIQUE))
    query->SetSelectOpt(REPSelectOpt_e::Unique);
  ReadSelectList(*query);
  ReadFrom(*query);
  ReadBlockClauses(*query);
  return query;
}

void QueryReader::ReadSelectList(REPSelect& query) {
  auto list = std::make_unique<REPSelectList>();
  do ReadEntry(*list);
  while (in_.Accept(','));
  query.SetSelectList(list.release());
}

// expression [[AS] alias]
void QueryReader::ReadEntry(REPSelectList& list) {
  auto const start = in_.Mark();
  items_.clear();
  while (!in_.Is(',') && !in_.Is(K_FROM) && !EndsQuery(in_)) {
    items_.push_back({in_.Peek(), in_.Mark()});
    in_.SkipItem();
  }
  auto const count = CountExpressionItems();
  if (count == 0) in_.Fail("an entry of the select list");
  auto const end = in_.Mark();
  if (count < items_.size()) in_.Rewind(items_[count].mark);
  std::unique_ptr<REPName> name;
  if (IsColumn(count)) {
    name = std::make_unique<REPName>();
    for (std::size_t i = 0; i < count; i += 2) name->AddTail(in_.Copy(in_.TextOf(items_[i].token)));
  } else {
    name.reset(REPName::MakeExpression(in_.TextSince(start)));
  }
  std::unique_ptr<REPName> alias;
  if (count < items_.size()) {
    in_.Accept(K_AS);
    alias = ParseSimpleName(in_);
    if (in_.Mark() != end) in_.Fail("',' or FROM");
  }
  list.AddName(name.release(), alias.release());
}

// The items of an entry without its alias.
std::size_t QueryReader::CountExpressionItems() const {
  auto const count = items_.size();
  if (count < 2 || !IsName(items_[count - 1].token)) return count;
  auto const& last = items_[count - 1].token;
  auto const& before = items_[count - 2].token;
  if (before.word == K_AS) return count - 2;
  if (last.word == K_END) return count;
  switch (before.kind) {
    case TokenKind::Word: return TakesOperand(before.word) ? count : count - 1;
    case TokenKind::QuotedName:
    case TokenKind::Number: return count - 1;
    case TokenKind::String: {
      // INTERVAL '1' DAY
      bool const interval = count >= 3 && items_[count - 3].token.word == K_INTERVAL;
      return interval && IsUnitOfTime(last.word) ? count : count - 1;
    }
    default: return before.punctuation == '(' ? count - 1 : count;
  }
}

// Whether the first items are {name [. name]... [. *] | *}.
bool QueryReader::IsColumn(std::size_t count) const {
  if (count % 2 == 0) return false;
  for (std::size_t i = 0; i < count; ++i) {
    auto const& token = items_[i].token;
    bool const fits = i % 2 != 0 ? token.punctuation == '.'
                                 : IsName(token) || (i + 1 == count && token.punctuation == '*');
    if (!fits) return false;
  }
  auto const last = items_[count - 1].token.word;
  bool const of_sequence = count > 1 && (last == K_CURRVAL || last == K_NEXTVAL);
  return !of_sequence && !IsValue(last);
}

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
  if (in_.Is('(') && !OpensQuery()) {
    table = ReadParenthesisedTable();
    if (table->GetTable_e() == REPTableRef_e::ParenthesisedJoin) return table;
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
    table->SetCollection(in_.Copy(TakeParentheses()));
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
  sample->SetSamplePercent(in_.Copy(TakeParentheses()));
  if (in_.Accept(K_SEED)) sample->SetSeedValue(in_.Copy(TakeParentheses()));
  table.SetSampleClause(sample.release());
}

// {operand [operator operand]... | (value)}, of which the parentheses are left out
std::string_view QueryReader::ReadFlashbackValue() {
  auto const mark = in_.Mark();
  bool const enclosed = in_.Is('(');
  std::string_view content;
  if (enclosed) content = TakeParentheses();
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

// [WHERE condition] [hierarchy] [GROUP BY ...] [HAVING condition] [newer clause]...
void QueryReader::ReadBlockClauses(REPSelect& query) {
  if (in_.Accept(K_WHERE)) {
    auto where = std::make_unique<REPWhere>();
    where->SetCondition(ParseCondition(in_, EndsCondition).release());
    query.SetWhere(where.release());
  }
  if (in_.Is(K_START, K_WITH) || in_.Is(K_CONNECT, K_BY)) ReadHierarchy(query);
  if (in_.Is(K_GROUP, K_BY) || in_.Is(K_HAVING)) {
    auto list = std::make_unique<REPGroupByList>();
    for (;;) {
      if (in_.Accept(K_GROUP, K_BY))
        ReadGroupBy(*list);
      else if (!list->GetHaving() && in_.Accept(K_HAVING))
        list->SetHaving(ParseCondition(in_, EndsCondition).release());
      else
        break;
    }
    if (list->GetCount() == 0) has_lone_having_ = true;
    query.SetGroupByList(list.release());
  }
  while (StartsNewerClause(in_)) {
    auto const& token = in_.Next();
    KeepText(token, std::string(TextOf(token.word)));
    while (!EndsQuery(in_) && !StartsSetOperation(in_) && !StartsTail(in_) &&
           !StartsNewerClause(in_))
      in_.SkipItem();
  }
}

// {START WITH condition | CONNECT BY [NOCYCLE] condition}...
void QueryReader::ReadHierarchy(REPSelect& query) {
  auto hierarchy = std::make_unique<REPHierQuery>();
  for (;;) {
    if (!hierarchy->GetStartCondition() && in_.Accept(K_START, K_WITH)) {
      hierarchy->SetStartCondition(ParseCondition(in_, EndsCondition).release());
    } else if (!hierarchy->GetOnCondition() && in_.Accept(K_CONNECT, K_BY)) {
      if (in_.Accept(K_NOCYCLE)) hierarchy->SetNoCycle(true);
      hierarchy->SetOnCondition(ParseCondition(in_, EndsCondition).release());
    } else {
      break;
    }
  }
  query.SetHierQuery(hierarchy.release());
}

// entry [, entry]...; none where only HAVING follows
void QueryReader::ReadGroupBy(REPGroupByList& list) {
  if (in_.Is(K_HAVING)) return;
  do list.AddTail(ReadGroupEntry().release());
  while (in_.Accept(','));
}

// {ROLLUP | CUBE} (list) | GROUPING SETS ({ROLLUP (list) | CUBE (list) | list}) | expression
std::unique_ptr<REPGroupBy> QueryReader::ReadGroupEntry() {
  auto entry = std::make_unique<REPGroupBy>();
  auto const start = in_.Mark();
  auto const read_list = [&](REPGroupBy_e kind) {
    entry->SetGroupBy(kind);
    entry->SetExprList(ReadExpressionList().release());
  };
  bool const opens = in_.Peek(1).punctuation == '(';
  if (opens && in_.Accept(K_ROLLUP)) {
    read_list(REPGroupBy_e::Rollup);
  } else if (opens && in_.Accept(K_CUBE)) {
    read_list(REPGroupBy_e::Cube);
  } else if (in_.Accept(K_GROUPING, K_SETS)) {
    read_list(REPGroupBy_e::GroupingSets);
    entry->SetGroupBySet(REPGroupBy_e::Expression);
  }
  if (entry->GetGroupBy() != REPGroupBy_e::None && (in_.Is(',') || EndsClause(in_))) return entry;
  in_.Rewind(start);
  ReadText(EndsClause);
  entry = std::make_unique<REPGroupBy>();
  entry->SetGroupBy(REPGroupBy_e::Expression);
  entry->SetExpr(MakeExpression(in_, start).release());
  return entry;
}

// ( expression [, expression]... )
std::unique_ptr<REPExprList> QueryReader::ReadExpressionList() {
  auto list = std::make_unique<REPExprList>();
  in_.Expect('(');
  do {
    auto const mark = in_.Mark();
    ReadText([](TokenStream const& in) { return in.Is(')') || in.AtEnd(); });
    list->AddTail(MakeExpression(in_, mark).release());
  } while (in_.Accept(','));
  in_.Expect(')');
  return list;
}

// ORDER [SIBLINGS] BY key [ASC | DESC] [NULLS {FIRST | LAST}] [, ...]
void QueryReader::ReadOrderBy(REPSelect& query) {
  auto const ends_key = [](TokenStream const& in) {
    return in.Is(K_ASC) || in.Is(K_DESC) || in.Is(K_NULLS, K_FIRST) || in.Is(K_NULLS, K_LAST) ||
           EndsClause(in);
  };
  auto list = std::make_unique<REPOrderByList>();
  in_.Expect(K_ORDER);
  list->SetSiblings(in_.Accept(K_SIBLINGS));
  in_.Expect(K_BY);
  do {
    auto key = std::make_unique<REPOrderBy>();
    key->SetName(REPName::MakeExpression(ReadText(ends_key)));
    if (in_.Accept(K_ASC)) key->SetOrderBy(REPOrderBy_e::Asc);
    if (in_.Accept(K_DESC)) key->SetOrderBy(REPOrderBy_e::Desc);
    if (in_.Accept(K_NULLS, K_FIRST)) key->SetOrderNulls(REPOrderNulls_e::First);
    if (in_.Accept(K_NULLS, K_LAST)) key->SetOrderNulls(REPOrderNulls_e::Last);
    list->AddTail(key.release());
  } while (in_.Accept(','));
  query.SetOrderByList(list.release());
}

// FOR UPDATE [OF columns] [NOWAIT | WAIT n | SKIP LOCKED]
void QueryReader::ReadForUpdate(REPSelect& query) {
  auto clause = std::make_unique<REPForUpdate>();
  in_.Expect(K_FOR, K_UPDATE);
  if (in_.Accept(K_OF)) {
    if (in_.Is('(')) {
      clause->SetUpdateNames(ParseNameList(in_).release());
    } else {
      auto columns = std::make_unique<REPNameList>();
      do columns->AddTail(ParseName(in_).release());
      while (in_.Accept(','));
      clause->SetUpdateNames(columns.release());
    }
  }
  if (in_.Accept(K_NOWAIT)) {
    clause->SetUpdateWait(REPUpdateWait_e::NoWait);
  } else if (in_.Accept(K_WAIT)) {
    clause->SetUpdateWait(REPUpdateWait_e::Wait);
    if (in_.Peek().kind == TokenKind::Number) clause->SetWaitValue(in_.Copy(in_.ExpectNumber()));
  } else if (in_.Is(K_SKIP, K_LOCKED)) {
    KeepText(in_.Peek(), "SKIP LOCKED");
    in_.Expect(K_SKIP, K_LOCKED);
  }
  query.SetForUpdate(clause.release());
}

}  // namespace

bool StartsQuery(TokenStream const& in) {
  std::size_t place = 0;
  while (in.Peek(place).punctuation == '(') ++place;
  return StartsQueryWord(in.Peek(place));
}

bool StartsRestriction(TokenStream const& in) {
  return in.Is(K_WITH, K_READ) || in.Is(K_WITH, K_CHECK);
}

bool StartsContainerOption(TokenStream const& in) {
  bool const starts = in.Is(K_CONTAINER_MAP) || in.Is(K_CONTAINERS_DEFAULT);
  return starts && in.Peek(1).kind == TokenKind::End;
}

std::unique_ptr<REPSelect> ParseQuery(TokenStream& in) {
  return QueryReader(in, true).ReadQueryOrText();
}

std::unique_ptr<REPSelect> ParseQueryInParentheses(TokenStream& in) {
  in.Expect('(');
  auto query = QueryReader(in, false).ReadQueryOrText();
  in.Expect(')');
  return query;
}

}  // namespace repora::reader
