#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "reader/lexer.h"
#include "reader/script_reader.h"
#include "repora/queries/query_clauses.h"
#include "repora/queries/select.h"
#include "repora/queries/sub_query.h"
#include "repora/queries/views.h"
#include "tests/table_builders.h"

namespace {

using namespace repora::test;  // the builders are the language of these tests

REPTableRef* TableRef(char const* table, char const* alias = nullptr) {
  return New<REPTableRef>([&](auto& reference) {
    reference.SetTableRef(REPTableRef_e::QueryTableExpr);
    reference.SetQueryTableExpr(
        New<REPQueryTableExpr>([&](auto& expression) { expression.SetQueryName(Name(table)); }));
    if (alias) reference.SetAliasName(Name(alias));
  });
}

REPTableRef* Join(REPTableRef* left, REPTableRef* right, REPJoinType_e type = REPJoinType_e::Join) {
  return New<REPTableRef>([&](auto& reference) {
    reference.SetTableRef(REPTableRef_e::Joined);
    reference.SetJoinedTable(New<REPJoinedTable>([&](auto& joined) {
      joined.SetJoinType(type);
      joined.SetLeftTableRef(left);
      joined.SetRightTableRef(right);
    }));
  });
}

REPTableRefList* From(std::initializer_list<REPTableRef*> tables) {
  auto* const list = new REPTableRefList;
  for (auto* const table : tables) list->AddTail(table);
  return list;
}

REPSelectList* List(std::string const& names) {
  auto* const list = new REPSelectList;
  for (auto const& name : Split(names, ',')) list->AddName(Name(name), nullptr);
  return list;
}

// SELECT names FROM tables; without names there is no list.
REPSelect* Query(std::string const& names, REPTableRefList* tables) {
  return New<REPSelect>([&](auto& query) {
    if (!names.empty()) query.SetSelectList(List(names));
    query.SetTableRefList(tables);
  });
}

REPCreateView* View(char const* name, REPSelect* query) {
  return New<REPCreateView>([&](auto& view) {
    view.SetViewName(Name(name));
    view.SetSubquery(query);
  });
}

REPSubQuery* Union(REPSelect* query) {
  return New<REPSubQuery>([&](auto& operation) {
    operation.SetSubqueryType(REPSubqueryType_e::Union);
    operation.SetSubquery(query);
  });
}

// A query with every clause that owns something.
REPSelect* EveryClause() {
  auto* const query = Query(
      "A, B", From({TableRef("T", "X"), Join(TableRef("U"), TableRef("V")), new REPTableRef}));
  auto& table = *query->GetTableRefList()->GetTableRef(2);
  table.SetTableRef(REPTableRef_e::Only);
  table.SetFlashback(
      New<REPFlashbackClause>([](auto& flashback) { flashback.SetAsOfTimestamp("1"); }));
  table.SetQueryTableExpr(New<REPQueryTableExpr>(
      [](auto& expression) { expression.SetSubquery(Query("", From({TableRef("W")}))); }));
  auto& join = *query->GetTableRefList()->GetTableRef(1)->GetJoinedTable();
  join.SetOnCondition(Condition("C"));
  join.SetUsingColumns(Names("D"));
  join.SetLeftGroupedClause(new REPGroupedTableClause);
  join.SetRightGroupedClause(new REPGroupedTableClause);
  query->SetWhere(New<REPWhere>([](auto& where) { where.SetCondition(Condition("E")); }));
  query->SetHierQuery(New<REPHierQuery>([](auto& hierarchy) {
    hierarchy.SetStartCondition(Condition("F"));
    hierarchy.SetOnCondition(Condition("G"));
  }));
  query->SetGroupByList(New<REPGroupByList>([](auto& list) {
    list.SetHaving(Condition("H"));
    list.AddTail(New<REPGroupBy>([](auto& entry) {
      entry.SetGroupBy(REPGroupBy_e::Expression);
      entry.SetExpr(New<REPExpr>([](auto& expression) { expression.SetExprValue("I"); }));
    }));
  }));
  query->SetSubQuery(Union(Query("J", From({TableRef("T")}))));
  query->SetOrderByList(New<REPOrderByList>([](auto& list) {
    list.AddTail(New<REPOrderBy>([](auto& key) { key.SetName(Name("K")); }));
  }));
  query->SetForUpdate(
      New<REPForUpdate>([](auto& for_update) { for_update.SetUpdateNames(Names("L")); }));
  return query;
}

TEST(Queries, CopiesOutliveWhatTheyWereMadeFrom) {
  std::unique_ptr<REPSelect> original(EveryClause());
  auto const text = original->AsString();
  EXPECT_EQ(text,
            "SELECT A, B FROM T X, U JOIN V ON C IS NOT NULL USING(D), ONLY((SELECT * FROM W)) AS "
            "OF  TIMESTAMP (1)  WHERE E IS NOT NULL START WITH F IS NOT NULL CONNECT BY G IS NOT "
            "NULL GROUP BY I HAVING H IS NOT NULL UNION(SELECT J FROM T) ORDER BY K FOR UPDATE OF "
            "(L)");
  REPSelect const copy(*original);
  std::unique_ptr<REPSelect> assigned(Query("Z", From({TableRef("Z")})));
  *assigned = copy;
  original->GetTableRefList()->GetTableRef(0)->SetTableRef(REPTableRef_e::Only);
  original.reset();
  EXPECT_EQ(copy.AsString(), text);
  EXPECT_EQ(assigned->AsString(), text);
}

TEST(Queries, RenderWhatIsMissingAsNothing) {
  REPSelect query;
  EXPECT_EQ(query.AsString(), "SELECT * FROM");
  query.SetFactor("WITH Q");
  EXPECT_EQ(query.AsString(), "WITH Q SELECT * FROM");
  query.SetSelectOpt(static_cast<REPSelectOpt_e>(9));
  EXPECT_EQ(query.AsString(), "WITH Q SELECT  * FROM");
  EXPECT_EQ(query.GetWhereString() + query.GetGroupByString() + query.GetHavingString() +
                query.GetOrderByString(),
            "");
  EXPECT_EQ(REPWhere().AsString() + REPWhere().GetString(), "");
  EXPECT_EQ(REPHierQuery().AsString(), "CONNECT BY ");
  EXPECT_EQ(REPGroupByList().AsString(), "GROUP BY ");
  EXPECT_EQ(REPOrderByList().AsString(), "ORDER BY ");
  EXPECT_EQ(REPOrderBy().AsString(), "");
  EXPECT_EQ(REPSubQuery().AsString(), "()");
  EXPECT_EQ(REPForUpdate().AsString(), "FOR UPDATE");
  EXPECT_EQ(REPSampleClause().AsString(), "SAMPLE()");
  EXPECT_EQ(REPFlashbackClause().AsString(), "");
  EXPECT_EQ(REPTableRef().AsString(false), "");
  EXPECT_EQ(REPQueryTableExpr().AsString(true), "");
  EXPECT_EQ(REPJoinedTable().AsString(), "");
  EXPECT_EQ(REPGroupBy().AsString(), "");
  REPOrderBy downwards;
  downwards.SetOrderBy(REPOrderBy_e::Desc);
  downwards.SetOrderNulls(REPOrderNulls_e::Last);
  EXPECT_EQ(downwards.AsString(), "DESC NULLS LAST");
  EXPECT_EQ(REPCreateView().AsString(), "CREATE VIEW ");
  EXPECT_EQ(REPAlterView().AsString(), "ALTER VIEW ;");
}

TEST(Queries, RenderFormsThatNoScriptMakes) {
  std::unique_ptr<REPTableRef> const join(
      Join(TableRef("A"), TableRef("B"), static_cast<REPJoinType_e>(18)));
  EXPECT_EQ(join->AsString(false), "A  B");
  auto& left = *join->GetJoinedTable()->GetLeftTable()->GetQueryTableExpr();
  left.SetPartition(Name("P"));
  left.SetSubpartition(Name("Q"));
  EXPECT_EQ(left.AsString(true), "A PARTITION BY (P) SUBPARTITION BY (Q)");
  left.SetCollection("C");
  EXPECT_EQ(left.AsString(false), "TABLE(C)");
  left.SetDBLink(Name("L"));
  EXPECT_EQ(left.AsString(false), "A@L");
  REPForUpdate for_update;
  for_update.SetUpdateWait(static_cast<REPUpdateWait_e>(7));
  EXPECT_EQ(for_update.AsString(), "FOR UPDATE WAIT");
  REPGroupBy sets;
  sets.SetGroupBy(REPGroupBy_e::GroupingSets);
  sets.SetExprList(New<REPExprList>([](auto& list) {
    for (auto const* const text : {"A", "B"})
      list.AddTail(New<REPExpr>([&](auto& expression) { expression.SetExprValue(text); }));
  }));
  EXPECT_EQ(sets.AsString(), "GROUPING SETS ()");
  sets.SetGroupBySet(REPGroupBy_e::Rollup);
  EXPECT_EQ(sets.AsString(), "GROUPING SETS (ROLLUP A, B)");
  sets.SetGroupBySet(REPGroupBy_e::Cube);
  EXPECT_EQ(sets.AsString(), "GROUPING SETS (CUBE A, B)");
}

TEST(Queries, ExpressionsAreWhatTheyAreCalled) {
  for (auto const* const text : {"A.B", "*", "\"Emp Name\"", ""}) {
    std::unique_ptr<REPName> const name(REPName::MakeExpression(text));
    EXPECT_TRUE(name->IsExpression());
    EXPECT_FALSE(name->IsQuoted());
    EXPECT_EQ(name->GetCount(), 1);
    EXPECT_EQ(name->AsString(false), text);
    EXPECT_EQ(name->AsString(true), text);
    EXPECT_EQ(name->GetOwnerName(false), "");
  }
}

TEST(Queries, WithoutASelectListAreNoWildcard) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A"));
    std::unique_ptr<REPCreateView> const view(View("S.V", Query("", From({TableRef("T")}))));
    auto& query = *view->GetSubquery();
    EXPECT_FALSE(query.ContainsWildcard());
    EXPECT_EQ(query.CountCols(&run.p, nullptr), 0);
    EXPECT_EQ(view->Process(&run.p), REPProcessError);
    auto const& item = run.Find(ORVTypes::oView, "S.V");
    auto const& relationship = run.Only(run.p.GetRoot(), ORVTypes::oRelationship);
    EXPECT_EQ(TextProperty(relationship, ORVTypes::pChildEntityRef), std::to_string(item.Id()));
    EXPECT_EQ(run.Do(View("S.W", nullptr)), REPProcessError);
    EXPECT_EQ(run.Messages(), "REP-7 Select List Missing from S.W.");
    EXPECT_EQ(run.Do(View("X", Query("A", nullptr))), REPProcessError);
  });
}

TEST(Queries, ListTheirColumnsWithinBounds) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A; B"));
    std::unique_ptr<REPSelect> const query(Query("A, T.B, A + 1, NADA", From({TableRef("T")})));
    EXPECT_EQ(query->ColListGetAt(0), nullptr);
    EXPECT_EQ(query->CountCols(&run.p, nullptr), 4);
    EXPECT_EQ(query->CountCols(nullptr, nullptr), 4);
    EXPECT_EQ(query->ColListGetAt(-1), nullptr);
    EXPECT_EQ(query->ColListGetAt(4), nullptr);
    ASSERT_NE(query->ColListGetAt(1), nullptr);
    EXPECT_EQ(query->ColListGetAt(1)->column, "B");
    EXPECT_EQ(query->ColListGetAt(1)->attribute_id, run.ColumnItem("T", "B").Id());
    for (int const expression : {2, 3}) {
      EXPECT_EQ(query->ColListGetAt(expression)->is_expression, 1);
      EXPECT_EQ(query->ColListGetAt(expression)->attribute_id, 0U);
    }
    std::unique_ptr<REPSelect> const unknown(Query("A", From({TableRef("T"), TableRef("U")})));
    EXPECT_EQ(unknown->CountCols(&run.p, ""), -1);
    EXPECT_EQ(run.Messages(), "");
  });
}

// What fails is told, and all that can be found is found all the same.
TEST(Queries, ProcessEveryTableAndReportAFailure) {
  InRun([](RunningJob& run) {
    run.Do(Table("A", "X"));
    run.Do(Table("B", "Y"));
    run.Do(Table("C", "Z"));
    auto* const view = run.Add(ORVTypes::oView, "V");
    std::unique_ptr<REPSelect> const query(
        Query("X", From({new REPTableRef, TableRef("A"), Join(new REPTableRef, TableRef("B")),
                         Join(TableRef("C"), nullptr), TableRef("A", "E")})));
    EXPECT_EQ(query->ProcessTableList(&run.p, view, nullptr, false), REPProcessError);
    std::string tables;
    for (auto const* const item : run.Children(run.p.GetRoot(), ORVTypes::oRelationship))
      tables += run.NameOf(item->Properties().Find(ORVTypes::pParentEntityRef)->ShortId());
    EXPECT_EQ(tables, "ACA");
    EXPECT_EQ(query->ProcessTableList(nullptr, view, nullptr, false), REPProcessError);
    EXPECT_EQ(query->ProcessTableList(&run.p, nullptr, nullptr, false), REPProcessError);
    EXPECT_EQ(query->ProcessColsForView(nullptr, view, false), REPProcessError);
    EXPECT_EQ(query->ProcessColsForView(&run.p, nullptr, false), REPProcessError);
    EXPECT_EQ(REPHierQuery().Process(&run.p, nullptr, false), REPProcessError);
    EXPECT_EQ(REPCreateView().Process(nullptr), REPProcessError);
    EXPECT_EQ(REPAlterView().Process(nullptr), REPProcessError);
    EXPECT_EQ(REPViewAliasList().Process(&run.p, nullptr, nullptr), REPProcessError);
  });
}

TEST(Queries, KnowOfInlineQueriesOnceTheirTablesAreProcessed) {
  InRun([](RunningJob& run) {
    auto* const inline_query = new REPTableRef;
    inline_query->SetTableRef(REPTableRef_e::QueryTableExpr);
    inline_query->SetQueryTableExpr(New<REPQueryTableExpr>(
        [](auto& expression) { expression.SetSubquery(Query("A", From({TableRef("T")}))); }));
    std::unique_ptr<REPSelect> const query(Query("A", From({inline_query})));
    EXPECT_FALSE(query->IsUnionOrJoin());
    EXPECT_EQ(query->ProcessTableList(&run.p, nullptr, nullptr, true), REPProcessOK);
    EXPECT_TRUE(query->IsUnionOrJoin());
  });
}

// --- Scripts of any size and with any fault ---

std::string Repeat(std::size_t times, std::string const& text) {
  std::string repeated;
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

struct Outcome {
  std::string rendered;  // of the only statement; empty when it was not read
  std::string syntax;    // the only fault
  std::string notes;
};

Outcome ReadOne(std::string const& text) {
  repora::reader::ReadOptions options;
  repora::reader::ReadResult result;
  repora::reader::ReadScript("test.sql", text, options, result);
  Outcome outcome;
  std::size_t faults = 0;
  for (auto const& diagnostic : result.diagnostics) {
    bool const is_fault = diagnostic.kind == repora::reader::DiagnosticKind::Syntax;
    faults += is_fault ? 1 : 0;
    (is_fault ? outcome.syntax : outcome.notes) += diagnostic.text;
  }
  EXPECT_EQ(result.statements.size() + faults, 1U) << text.substr(0, 1000);
  if (!result.statements.empty()) outcome.rendered = result.statements[0].object->AsString();
  return outcome;
}

TEST(Queries, OfAnyLength) {
  constexpr std::size_t kMany = 100000;
  std::string const view = "CREATE VIEW V AS ";
  auto const chain = ReadOne(view + "SELECT A FROM T" + Repeat(kMany, " UNION SELECT A FROM T"));
  EXPECT_EQ(chain.notes + chain.syntax, "");
  EXPECT_EQ(chain.rendered, view + "SELECT A FROM T" + Repeat(kMany, " UNION(SELECT A FROM T") +
                                Repeat(kMany, ")"));
  auto const wide = view + "SELECT A" + Repeat(kMany, ", A") + " FROM T" + Repeat(kMany, ", T") +
                    " GROUP BY A" + Repeat(kMany, ", A") + " ORDER BY A" + Repeat(kMany, ", A");
  EXPECT_EQ(ReadOne(wide).rendered, wide);
}

// Too deep for the classes, and yet kept whole.
TEST(Queries, OfAnyDepth) {
  std::string const view = "CREATE VIEW V AS ";
  struct {
    char const* title;
    std::string query;
    char const* note;
  } const kept[] = {
      {"joins", "SELECT A FROM T" + Repeat(5000, " JOIN T ON A = B"), "nesting deeper"},
      {"unclosed joins", "SELECT A FROM T" + Repeat(5000, " JOIN T") + Repeat(5000, " ON 1 = 1"),
       "nesting deeper"},
      {"operators", "SELECT A FROM T" + Repeat(150, " UNION SELECT A FROM T MINUS SELECT A FROM T"),
       "fewer changes of the set operator"},
      {"inline queries",
       Repeat(400, "SELECT A FROM (") + "SELECT A  FROM T" + Repeat(400, ")") + " T0", ""},
      {"conditions",
       "SELECT A FROM T" + Repeat(400, " WHERE A IN (SELECT A FROM T") + Repeat(400, ")"), ""},
      {"parentheses", Repeat(900, "(") + "SELECT A  FROM T" + Repeat(900, ")"), "nesting deeper"},
  };
  for (auto const& one : kept) {
    SCOPED_TRACE(one.title);
    auto const outcome = ReadOne(view + one.query);
    EXPECT_EQ(outcome.syntax, "");
    EXPECT_NE(outcome.notes.find(one.note), std::string::npos) << outcome.notes;
    EXPECT_EQ(outcome.rendered, view + one.query);
  }
  struct {
    char const* title;
    std::string query;
  } const refused[] = {
      {"inline queries", Repeat(2000, "SELECT A FROM (") + "SELECT A FROM T" + Repeat(2000, ")")},
      {"parentheses", Repeat(2000, "(") + "SELECT A FROM T" + Repeat(2000, ")")},
      {"parenthesised tables", "SELECT A FROM " + Repeat(2000, "(") + "T" + Repeat(2000, ")")},
      {"conditions", "SELECT A FROM T WHERE " + Repeat(2000, "A IN (SELECT A FROM T WHERE ") +
                         "A = 1" + Repeat(2000, ")")},
  };
  for (auto const& one : refused) {
    SCOPED_TRACE(one.title);
    EXPECT_EQ(ReadOne(view + one.query).syntax, "nesting deeper than 1,000 levels");
  }
}

// Each beginning of a statement is read, as text if need be, or gives one fault.
TEST(Queries, CutOffAnywhere) {
  std::string const statements[] = {
      "CREATE OR REPLACE FORCE VIEW S.V (A PRIMARY KEY DISABLE, B, CONSTRAINT K UNIQUE (A, B)) AS "
      "WITH Q (X) AS (SELECT 1 FROM DUAL) SELECT DISTINCT E.A, COUNT(*) OVER (PARTITION BY B) N, "
      "CASE WHEN A = 1 THEN 2 END \"x\", INTERVAL '1' DAY FROM S.E@L E LEFT OUTER JOIN (D CROSS "
      "JOIN ONLY(F)) ON E.A = D.A AND EXISTS (SELECT 1 FROM G) NATURAL JOIN H USING (A), (SELECT * "
      "FROM I WITH CHECK OPTION CONSTRAINT C) J, TABLE(K(1))(+) M, N PARTITION (P) SAMPLE BLOCK "
      "(5) "
      "SEED (1), O VERSIONS BETWEEN SCN 1 AND MAXVALUE AS OF TIMESTAMP SYSDATE - 1, R PIVOT "
      "(SUM(X) FOR Y IN (1)) T WHERE A NOT IN (SELECT A FROM U) START WITH A IS NULL CONNECT BY "
      "NOCYCLE PRIOR A = B GROUP BY A, ROLLUP (B), GROUPING SETS ((A), ()) HAVING COUNT(*) > 1 "
      "UNION ALL (SELECT A FROM V MINUS SELECT A FROM W) INTERSECT SELECT A FROM X ORDER SIBLINGS "
      "BY A DESC NULLS LAST OFFSET 5 ROWS FETCH FIRST 5 ROWS ONLY FOR UPDATE OF A WAIT 5 WITH READ "
      "ONLY CONSTRAINT Y",
      "CREATE VIEW V OF S.T WITH OBJECT IDENTIFIER (A, F(B)) (A UNIQUE, CONSTRAINT K PRIMARY KEY "
      "(A)) AS SELECT A FROM T",
      "CREATE VIEW V OF XMLTYPE XMLSCHEMA \"u\" ELEMENT \"e\" WITH OBJECT ID DEFAULT AS SELECT A "
      "FROM T CONTAINER_MAP",
      "ALTER VIEW S.V MODIFY CONSTRAINT K RELY",
      "ALTER VIEW IF EXISTS V DROP UNIQUE (A, B)",
      "CREATE TABLE S.T (A, B DEFAULT 1) TABLESPACE X AS (SELECT A, B FROM T ORDER BY A) UNION "
      "SELECT * FROM U"};
  for (auto const& statement : statements) {
    repora::reader::Lexer lexer(statement);
    std::size_t read = 0;
    for (auto token = lexer.Next(); token.kind != repora::reader::TokenKind::End;
         token = lexer.Next()) {
      auto const outcome = ReadOne(statement.substr(0, token.offset + token.length));
      EXPECT_NE(outcome.rendered.empty(), outcome.syntax.empty());
      read += outcome.rendered.empty() ? 0 : 1;
    }
    EXPECT_GT(read, 0U) << statement;
  }
}

}  // namespace
