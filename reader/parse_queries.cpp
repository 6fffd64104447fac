#include "reader/parse_queries.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "reader/parse_names.h"
#include "reader/query_reader.h"
#include "repora/core/letters.h"
#include "repora/queries/query_clauses.h"
#include "repora/queries/sub_query.h"
#include "repora/queries/table_refs.h"

namespace repora::reader {
namespace {

// Changes of the operator in a chain of set operations, each of which nests what is left of it.
constexpr int kMostOperators = 200;

// A query takes the stack of several other levels of nesting.
constexpr std::size_t kLevelsOfQuery = 8;

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

// Whether FROM comes, and not that of NTH_VALUE(...) FROM {FIRST | LAST} [nulls] OVER (...).
bool StartsFrom(TokenStream const& in) {
  if (!in.Is(K_FROM) || (!in.Is(K_FROM, K_FIRST) && !in.Is(K_FROM, K_LAST))) return in.Is(K_FROM);
  auto const behind = in.Peek(2).word;
  return behind != K_OVER && behind != K_IGNORE && behind != K_RESPECT;
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

}  // namespace

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

bool QueryReader::HasQuotedNames(std::size_t mark) {
  for (auto i = mark; i < in_.Mark(); ++i)
    if (auto const& token = in_.At(i);
        token.kind == TokenKind::QuotedName && NeedsQuotes(in_.TextOf(token)))
      return true;
  return false;
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
  in_.KeepAsText(mark);
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
  if (depth_ > 1)
    in_.ForgetKeywords(mark);
  else if (*query->GetText())
    in_.KeepAsText(mark);
  else
    in_.KeepAsQuery(mark);
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
    auto const& token = in_.Next();
    auto type = SetOperationOf(token.word);
    if (in_.Accept(K_ALL)) {
      if (type == REPSubqueryType_e::Union)
        type = REPSubqueryType_e::UnionAll;
      else
        KeepText(token, std::string(TextOf(token.word)) + " ALL");
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

// VALUES ( ... ) [, ( ... )]...: rows that are given as values
Query QueryReader::ReadValues() {
  auto query = std::make_unique<REPSelect>();
  KeepText(in_.Peek(), "VALUES");
  in_.Expect(K_VALUES);
  do in_.TakeParentheses();
  while (in_.Accept(','));
  query->SetTableRefList(new REPTableRefList);
  return query;
}

// SELECT ... | VALUES ... | ( query )
Query QueryReader::ReadOperand() {
  if (in_.Is(K_VALUES)) return ReadValues();
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
  while (!in_.Is(',') && !StartsFrom(in_) && !EndsQuery(in_)) {
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
  if (count % 2 == 0 || count > 2 * kMostNameParts) return false;
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
