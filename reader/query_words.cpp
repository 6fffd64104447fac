#include "reader/parse_names.h"
#include "reader/query_reader.h"

namespace repora::reader {

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

bool StartsTail(TokenStream const& in) {
  auto const next = in.Peek(1).word;
  switch (in.Peek().word) {
    case K_ORDER: return next == K_BY || next == K_SIBLINGS;
    case K_OFFSET: return in.Peek(1).kind != TokenKind::Punctuation;
    case K_FETCH:
      return next == K_FIRST || next == K_NEXT || next == K_APPROX || next == K_APPROXIMATE ||
             next == K_EXACT;
    case K_FOR: return next == K_UPDATE;
    default: return false;
  }
}

bool EndsQuery(TokenStream const& in) {
  return in.AtEnd() || in.Is(')') || StartsRestriction(in) || StartsContainerOption(in);
}

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

}  // namespace repora::reader
