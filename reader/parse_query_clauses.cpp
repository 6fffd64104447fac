#include "reader/parse_conditions.h"
#include "reader/parse_names.h"
#include "reader/query_reader.h"
#include "repora/queries/query_clauses.h"

namespace repora::reader {

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

}  // namespace repora::reader
