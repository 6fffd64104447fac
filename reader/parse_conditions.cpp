#include "reader/parse_conditions.h"

#include <cstdint>
#include <list>
#include <string_view>
#include <utility>
#include <vector>

#include "reader/parse_names.h"
#include "reader/parse_queries.h"
#include "repora/core/letters.h"
#include "repora/queries/select.h"

namespace repora::reader {
namespace {

using Condition = std::unique_ptr<REPCondition>;

bool AtListEnd(TokenStream const& in) {
  return in.Is(',') || in.Is(')') || in.AtEnd();
}

// Words that test the expression before them.
bool StartsTest(Word word) {
  switch (word) {
    case K_BETWEEN:
    case K_IN:
    case K_IS:
    case K_LIKE:
    case K_LIKE2:
    case K_LIKE4:
    case K_LIKEC:
    case K_MEMBER:
    case K_NOT:
    case K_SUBMULTISET: return true;
    default: return false;
  }
}

// Whether the token taken last is one that an operand has to follow.
bool AwaitsOperand(TokenStream& in) {
  in.StepBack();
  auto const& token = in.Next();
  switch (token.word) {
    case K_AND:
    case K_BETWEEN:
    case K_IN:
    case K_LIKE:
    case K_NOT:
    case K_OR: return true;
    default: return token.kind == TokenKind::Punctuation && token.punctuation != ')';
  }
}

Condition MakeText(TokenStream& in, std::string_view text) {
  return std::make_unique<REPTextCondition>(in.Copy(text));
}

Condition MakeTest(TokenStream& in, REPCondType_e kind, std::string_view left) {
  auto test = std::make_unique<REPCondition>(kind);
  test->SetExpression1(in.Copy(left));
  return test;
}

// left kind right; right alone when there is no left one yet.
Condition Join(REPCondType_e kind, Condition left, Condition right) {
  if (!left) return right;
  auto junction = std::make_unique<REPCondition>(kind);
  junction->SetCondition1(left.release());
  junction->SetCondition2(right.release());
  return junction;
}

// The negated form of a kind stands behind it.
REPCondType_e Negated(REPCondType_e kind, bool negated) {
  return static_cast<REPCondType_e>(static_cast<int>(kind) + (negated ? 1 : 0));
}

REPCondType_e ComparisonOf(std::string_view text) {
  if (text == "=") return REPCondType_e::Equal;
  if (text == "<") return REPCondType_e::Less;
  if (text == ">") return REPCondType_e::Greater;
  if (text == "<=") return REPCondType_e::LessOrEqual;
  if (text == ">=") return REPCondType_e::GreaterOrEqual;
  bool const unequal = text == "<>" || text == "!=" || text == "^=" || text == "~=";
  return unequal ? REPCondType_e::NotEqual : REPCondType_e::None;
}

// Reads one condition. Levels of parentheses stand in a list, not on the stack. A function that
// cannot take apart what comes returns null, or false, and leaves the stream within the level,
// which becomes a text.
class ConditionReader {
 public:
  // Without an end the condition ends at a ")" only.
  ConditionReader(TokenStream& in, ConditionEnd ends) : in_(in), ends_(ends) {}

  Condition Read();

 private:
  struct Level {
    std::size_t mark;                  // where it starts
    std::size_t negations = 0;         // of the term that comes
    Condition alternatives = nullptr;  // the terms before the last OR
    Condition conjunction = nullptr;   // and those since
  };

  bool AtLevelEnd() const;
  void OpenLevel();
  bool AddTerm(Condition term);
  Condition CloseLevel(bool taken_apart);
  Condition ReadTerm();
  Condition ReadExists();
  Condition ReadRegexpLike();
  Condition ReadTest(std::string_view left);
  Condition ReadComparison(REPCondType_e kind, std::string_view left);
  Condition ReadLike(REPCondType_e kind, std::string_view left);
  Condition ReadBetween(REPCondType_e kind, std::string_view left);
  Condition ReadIn(REPCondType_e kind, std::string_view left);
  Condition ReadCollectionTest(REPCondType_e kind, std::string_view left);
  Condition ReadIs(std::string_view left);
  Condition ReadIsOf(REPCondType_e kind, std::string_view left);
  bool ReadRightOperand(REPCondition& test);
  bool ReadOperand(std::string_view& text);
  bool ReadExpression(bool operand_due);
  bool ReadPrimary();
  bool ReadCase();
  bool ReadPlainString(std::string_view& content);
  REPCondType_e Comparison(Token const& token) const;
  bool IsOperator(Token const& token) const;
  bool ContinuesExpression(Token const& token) const;
  bool OpensExpression();
  void FindClosings();

  TokenStream& in_;
  ConditionEnd ends_;
  std::vector<Level> levels_;
  std::list<TokenStream::Level> depth_;  // of the levels but the outermost
  // For the tokens from first_ on: how far behind the first the ")" of a "(" is. Found for all
  // within a "(" at once, so that deep nesting costs no more than its length.
  std::size_t first_ = 0;
  std::vector<std::uint32_t> closings_;
};

bool ConditionReader::AtLevelEnd() const {
  if (in_.Is(')') || in_.AtEnd()) return true;
  return levels_.size() <= 1 && ends_ && (in_.Is(',') || ends_(in_));
}

// [NOT]... {term | (condition)} [{AND | OR} ...]...
Condition ConditionReader::Read() {
  OpenLevel();
  for (;;) {
    while (in_.Accept(K_NOT)) ++levels_.back().negations;
    if (in_.Is('(') && !OpensExpression()) {
      depth_.emplace_back(in_);
      in_.Next();
      OpenLevel();
      continue;
    }
    auto term = ReadTerm();
    // A term may end its level, which is the last term of the level around it.
    for (;;) {
      bool const taken_apart = term != nullptr;
      if (taken_apart && AddTerm(std::move(term))) break;
      auto condition = CloseLevel(taken_apart);
      if (levels_.empty()) return condition;
      in_.Expect(')');
      depth_.pop_back();
      term = std::make_unique<REPCondition>(REPCondType_e::Parenthesised);
      term->SetCondition1(condition.release());
    }
  }
}

void ConditionReader::OpenLevel() {
  levels_.push_back({in_.Mark()});
}

// Whether another term is to come.
bool ConditionReader::AddTerm(Condition term) {
  auto& level = levels_.back();
  for (; level.negations > 0; --level.negations) {
    auto negation = std::make_unique<REPCondition>(REPCondType_e::Not);
    negation->SetCondition1(term.release());
    term = std::move(negation);
  }
  level.conjunction = Join(REPCondType_e::And, std::move(level.conjunction), std::move(term));
  if (in_.Accept(K_AND)) return true;
  level.alternatives =
      Join(REPCondType_e::Or, std::move(level.alternatives), std::move(level.conjunction));
  return in_.Accept(K_OR);
}

// The condition of the level, as its text when it cannot be taken apart up to its end.
Condition ConditionReader::CloseLevel(bool taken_apart) {
  auto const mark = levels_.back().mark;
  auto condition = std::move(levels_.back().alternatives);
  if (!taken_apart || !AtLevelEnd()) {
    while (!AtLevelEnd()) in_.SkipItem();
    auto const text = in_.TextSince(mark);
    if (text.empty()) in_.Fail("a condition");
    if (AwaitsOperand(in_)) in_.Fail("an expression");
    condition = MakeText(in_, text);
  }
  levels_.pop_back();
  return condition;
}

// EXISTS (query) | REGEXP_LIKE (...) | expression [test]
Condition ConditionReader::ReadTerm() {
  if (in_.Peek(1).punctuation == '(') {
    if (in_.Is(K_EXISTS)) return ReadExists();
    if (in_.Is(K_REGEXP_LIKE)) return ReadRegexpLike();
  }
  std::string_view left;
  return ReadOperand(left) ? ReadTest(left) : nullptr;
}

// EXISTS ( query )
Condition ConditionReader::ReadExists() {
  in_.Next();
  auto const query = in_.TakeParentheses();
  return query.empty() ? nullptr : MakeTest(in_, REPCondType_e::Exists, query);
}

// REGEXP_LIKE ( expression , 'pattern' [, 'match'] ); with other than plain strings it stays a text
Condition ConditionReader::ReadRegexpLike() {
  auto const mark = in_.Mark();
  in_.Expect(K_REGEXP_LIKE);
  in_.Expect('(');
  auto const start = in_.Mark();
  while (!AtListEnd(in_)) in_.SkipItem();
  auto const left = in_.TextSince(start);
  std::string_view pattern;
  std::string_view match;
  bool const plain = !left.empty() && in_.Accept(',') && ReadPlainString(pattern) &&
                     (!in_.Accept(',') || ReadPlainString(match));
  if (plain && in_.Accept(')')) {
    auto test = MakeTest(in_, REPCondType_e::RegexpLike, left);
    test->SetExpression2(in_.Copy(pattern));
    test->SetExpression3(in_.Copy(match));
    return test;
  }
  while (!in_.Is(')') && !in_.AtEnd()) in_.SkipItem();
  in_.Expect(')');
  return MakeText(in_, in_.TextSince(mark));
}

// expression {= expression | [NOT] LIKE pattern | IS NULL | ...}; one that nothing tests is a
// condition itself
Condition ConditionReader::ReadTest(std::string_view left) {
  if (auto const kind = Comparison(in_.Peek()); kind != REPCondType_e::None) {
    in_.Next();
    return ReadComparison(kind, left);
  }
  if (in_.Accept(K_IS)) return ReadIs(left);
  bool const negated = in_.Accept(K_NOT);
  auto const word = in_.Peek().word;
  if (!StartsTest(word)) return negated ? nullptr : MakeText(in_, left);
  in_.Next();
  switch (word) {
    case K_LIKE: return ReadLike(Negated(REPCondType_e::Like, negated), left);
    case K_LIKE2: return ReadLike(Negated(REPCondType_e::Like2, negated), left);
    case K_LIKE4: return ReadLike(Negated(REPCondType_e::Like4, negated), left);
    case K_LIKEC: return ReadLike(Negated(REPCondType_e::LikeC, negated), left);
    case K_BETWEEN: return ReadBetween(Negated(REPCondType_e::Between, negated), left);
    case K_IN: return ReadIn(Negated(REPCondType_e::In, negated), left);
    case K_MEMBER:
      return ReadCollectionTest(negated ? REPCondType_e::NotMember : REPCondType_e::Member, left);
    case K_SUBMULTISET:
      return ReadCollectionTest(
          negated ? REPCondType_e::NotSubmultiset : REPCondType_e::Submultiset, left);
    default: return nullptr;
  }
}

// [ANY | SOME | ALL] {expression | (query)}, behind the comparison
Condition ConditionReader::ReadComparison(REPCondType_e kind, std::string_view left) {
  auto test = MakeTest(in_, kind, left);
  if (in_.Peek(1).punctuation == '(') {
    if (in_.Accept(K_ANY))
      test->SetCondTypeMod(REPCondTypeMod_e::Any);
    else if (in_.Accept(K_SOME))
      test->SetCondTypeMod(REPCondTypeMod_e::Some);
    else if (in_.Accept(K_ALL))
      test->SetCondTypeMod(REPCondTypeMod_e::All);
  }
  return ReadRightOperand(*test) ? std::move(test) : nullptr;
}

// pattern [ESCAPE 'character'], behind LIKE
Condition ConditionReader::ReadLike(REPCondType_e kind, std::string_view left) {
  auto test = MakeTest(in_, kind, left);
  std::string_view text;
  if (!ReadOperand(text)) return nullptr;
  test->SetExpression2(in_.Copy(text));
  if (in_.Accept(K_ESCAPE)) {
    if (!ReadPlainString(text)) return nullptr;
    test->SetExpression3(in_.Copy(text));
  }
  return test;
}

// expression AND expression, behind BETWEEN
Condition ConditionReader::ReadBetween(REPCondType_e kind, std::string_view left) {
  auto test = MakeTest(in_, kind, left);
  std::string_view text;
  if (!ReadOperand(text)) return nullptr;
  test->SetExpression2(in_.Copy(text));
  if (!in_.Accept(K_AND) || !ReadOperand(text)) return nullptr;
  test->SetExpression3(in_.Copy(text));
  return test;
}

// {(expression, ...) | (query)}, behind IN
Condition ConditionReader::ReadIn(REPCondType_e kind, std::string_view left) {
  auto test = MakeTest(in_, kind, left);
  // Without its parentheses a list would grow together with NOT IN.
  if (!in_.Is('(')) return nullptr;
  return ReadRightOperand(*test) ? std::move(test) : nullptr;
}

// [OF] expression, behind MEMBER or SUBMULTISET
Condition ConditionReader::ReadCollectionTest(REPCondType_e kind, std::string_view left) {
  // The form with OF stands behind that without.
  auto test = MakeTest(in_, Negated(kind, in_.Accept(K_OF)), left);
  std::string_view text;
  if (!ReadOperand(text)) return nullptr;
  test->SetExpression2(in_.Copy(text));
  return test;
}

// [NOT] {NULL | NAN | INFINITE | A SET | EMPTY | OF ...}, behind IS
Condition ConditionReader::ReadIs(std::string_view left) {
  bool const negated = in_.Accept(K_NOT);
  if (in_.Accept(K_NULL)) return MakeTest(in_, Negated(REPCondType_e::IsNull, negated), left);
  if (in_.Accept(K_NAN)) return MakeTest(in_, Negated(REPCondType_e::IsNan, negated), left);
  if (in_.Accept(K_INFINITE))
    return MakeTest(in_, Negated(REPCondType_e::IsInfinite, negated), left);
  if (in_.Accept(K_EMPTY)) return MakeTest(in_, Negated(REPCondType_e::IsEmpty, negated), left);
  if (in_.Accept(K_OF)) return ReadIsOf(Negated(REPCondType_e::IsOf, negated), left);
  if (in_.Peek(1).word != K_SET || !EqualsIgnoringCase(in_.TextOf(in_.Peek()), "A")) return nullptr;
  in_.Next();
  in_.Expect(K_SET);
  return MakeTest(in_, Negated(REPCondType_e::IsASet, negated), left);
}

// [TYPE] ( [ONLY] type [, ...] ), behind IS OF
Condition ConditionReader::ReadIsOf(REPCondType_e kind, std::string_view left) {
  struct Type {
    std::unique_ptr<REPName> name;
    bool only;
  };
  auto test = MakeTest(in_, kind, left);
  test->SetType(in_.Accept(K_TYPE));
  if (!in_.Accept('(')) return nullptr;
  std::vector<Type> types;
  do {
    bool const only = IsName(in_.Peek(1)) && in_.Accept(K_ONLY);
    types.push_back({ParseName(in_), only});
  } while (in_.Accept(','));
  in_.Expect(')');
  for (auto type = types.rbegin(); type != types.rend(); ++type)
    test->AddType(type->name.release(), type->only ? 1 : 0);
  return test;
}

// (query) | expression
bool ConditionReader::ReadRightOperand(REPCondition& test) {
  auto const mark = in_.Mark();
  if (in_.Is('(') && (in_.Peek(1).word == K_SELECT || in_.Peek(1).word == K_WITH)) {
    auto query = ParseQueryInParentheses(in_);
    if (!ContinuesExpression(in_.Peek())) {
      test.SetSelect(query.release());
      return true;
    }
    if (!ReadExpression(false)) return false;
  } else if (!ReadExpression(true)) {
    return false;
  }
  test.SetExpression2(in_.Copy(in_.TextSince(mark)));
  return true;
}

// The script's text of an expression.
bool ConditionReader::ReadOperand(std::string_view& text) {
  auto const mark = in_.Mark();
  if (!ReadExpression(true)) return false;
  text = in_.TextSince(mark);
  return true;
}

// operand [operator operand]..., from an operand that is due or from behind one
bool ConditionReader::ReadExpression(bool operand_due) {
  for (;;) {
    if (operand_due) {
      while (in_.Is('-') || in_.Is('+') || in_.Is(':') || in_.Is(K_PRIOR) ||
             in_.Is(K_CONNECT_BY_ROOT))
        in_.Next();
      if (!ReadPrimary()) return false;
      operand_due = false;
    }
    auto const& token = in_.Peek();
    if (in_.SkipParentheses() || in_.Accept(K_AT, K_LOCAL)) continue;  // of a call, or (+)
    if (in_.Accept('.') || in_.Accept('@')) {
      if (!IsName(in_.Peek())) return false;
      in_.Next();
    } else if (IsOperator(token)) {
      in_.Next();
      operand_due = true;
    } else if (in_.Accept(K_AT, K_TIME, K_ZONE) || in_.Accept(K_COLLATE)) {
      operand_due = true;
    } else if (IsUnitOfTime(token.word)) {
      in_.Next();
    } else if (in_.Is(K_TO) && IsUnitOfTime(in_.Peek(1).word)) {
      in_.Next();
    } else {
      return true;
    }
  }
}

// (...) | CASE ... END | DATE 'text' | word | "name" | number | 'text'
bool ConditionReader::ReadPrimary() {
  if (in_.SkipParentheses()) return true;
  if (in_.Is(K_CASE)) return ReadCase();
  auto const& token = in_.Peek();
  switch (token.kind) {
    case TokenKind::Number:
    case TokenKind::QuotedName:
    case TokenKind::String: in_.Next(); return true;
    case TokenKind::Word:
      in_.Next();
      if (in_.Peek().kind == TokenKind::String) in_.Next();
      return true;
    default: return false;
  }
}

// CASE ... END, with others within
bool ConditionReader::ReadCase() {
  std::size_t open = 0;
  do {
    if (AtListEnd(in_)) return false;
    if (in_.Is(K_CASE)) ++open;
    if (in_.Is(K_END)) --open;
    in_.SkipItem();
  } while (open > 0);
  return true;
}

// The content of a string that stands between single quotes and is not empty.
bool ConditionReader::ReadPlainString(std::string_view& content) {
  auto const text = in_.TextOf(in_.Peek());
  if (in_.Peek().kind != TokenKind::String || text.front() != '\'' || text.size() < 3) return false;
  content = text.substr(1, text.size() - 2);
  in_.Next();
  return true;
}

REPCondType_e ConditionReader::Comparison(Token const& token) const {
  return token.kind == TokenKind::Punctuation ? ComparisonOf(in_.TextOf(token))
                                              : REPCondType_e::None;
}

bool ConditionReader::IsOperator(Token const& token) const {
  switch (token.punctuation) {
    case '+':
    case '-':
    case '*':
    case '/': return true;
    default: return token.kind == TokenKind::Punctuation && in_.TextOf(token) == "||";
  }
}

// Whether an expression may go on with the token behind an operand.
bool ConditionReader::ContinuesExpression(Token const& token) const {
  return IsOperator(token) || token.punctuation == '.' || token.word == K_AT ||
         token.word == K_COLLATE || IsUnitOfTime(token.word);
}

// Whether the "(" that comes holds an expression or a row: what follows its ")" tells them from a
// condition.
bool ConditionReader::OpensExpression() {
  if (in_.Mark() - first_ >= closings_.size()) FindClosings();
  auto const at = in_.Mark() - first_;
  auto const& next = in_.Peek(closings_[at] - at + 1);
  return Comparison(next) != REPCondType_e::None || StartsTest(next.word) ||
         ContinuesExpression(next);
}

void ConditionReader::FindClosings() {
  first_ = in_.Mark();
  closings_.clear();
  std::vector<std::size_t> open;
  do {
    auto const place = closings_.size();
    auto const& token = in_.Peek(place);
    closings_.push_back(static_cast<std::uint32_t>(place));
    if (token.kind == TokenKind::End) return;
    if (token.punctuation == '(') open.push_back(place);
    if (token.punctuation == ')') {
      closings_[open.back()] = static_cast<std::uint32_t>(place);
      open.pop_back();
    }
  } while (!open.empty());
}

}  // namespace

std::unique_ptr<REPCondition> ParseCondition(TokenStream& in, ConditionEnd ends) {
  auto const mark = in.Mark();
  auto condition = ConditionReader(in, ends).Read();
  in.ForgetKeywords(mark);
  return condition;
}

std::unique_ptr<REPCondition> ParseConditionInParentheses(TokenStream& in) {
  in.Expect('(');
  auto condition = ParseCondition(in, nullptr);
  in.Expect(')');
  return condition;
}

}  // namespace repora::reader
