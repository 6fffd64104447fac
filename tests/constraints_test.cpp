#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "repora/model/codes.h"
#include "tests/table_builders.h"

namespace {

namespace codes = repora::codes;

using namespace repora::test;  // the builders are the language of these tests

using In = REPInlineConstr_e;
using Out = REPOutOfLineConstr_e;

auto const kOK = REPProcessOK;
auto const kError = REPProcessError;

std::string const kIndexMissing =
    "REP-49 Create / Alter Table T failed.  Specified Index does not exist.";

void Using(State& state) {
  state.SetUsingIndex(true);
}

Fill<State> UsingName(char const* name) {
  return [name](State& state) {
    state.SetUsingIndex(true);
    state.SetIndexSchema(new REPName(name));
  };
}

Fill<State> UsingProperties(Fill<REPIndexAttributesClause> const& fill) {
  return [fill](State& state) {
    state.SetUsingIndex(true);
    state.SetProperties(
        New<REPIndexPropertiesClause>([&](auto& p) { fill(*p.GetIndexAttributes()); }));
  };
}

// A table's constraint in a later statement.
REPProcess_e Constrain(RunningJob& run, char const* table, std::string const& constraint,
                       Fill<State> const& state = nullptr) {
  REPName const name(table);
  std::unique_ptr<REPOutOfLineConstraint> const owned(OutOfLine(constraint, state));
  return owned->Process(&run.p, &run.TableItem(table), &name);
}

TEST(Constraints, NullOptions) {
  InRun([](RunningJob& run) {
    EXPECT_EQ(run.Do(Table("T", "A NN:\"Nn\"; B NULL:NN; C")), kOK);
    EXPECT_EQ(Properties(run.ColumnItem("T", "A")),
              "pName='A' pNullOption=1 pNullOptionConstraintName='Nn' pType=100");
    EXPECT_EQ(Properties(run.ColumnItem("T", "B")),
              "pName='B' pNullOption=0 pNullOptionConstraintName='NN' pType=100");
    EXPECT_EQ(Properties(run.ColumnItem("T", "C")), "pName='C' pType=100");
    REPName const name("nn");
    EXPECT_EQ(run.p.FindConstraintInConstraintsMap(&name), run.ColumnItem("T", "A").Id());
    EXPECT_EQ(run.Messages(), "");
  });
}

// A name is taken by whatever kind of constraint came first, in any table of the same schema.
TEST(Constraints, NamesAreUniquePerSchema) {
  std::pair<char const*, char const*> const forms[] = {
      {"A NN:N", ""},   {"A PK:N", ""},   {"A CHK:N", ""},    {"A FK:N->P", ""},
      {"A", "UQ:N(A)"}, {"A", "CHK:N()"}, {"A", "FK:n(A)->P"}};
  for (auto const& first : forms) {
    InRun([&](RunningJob& run) {
      auto const create = [&](std::string const& table, auto const& form) {
        auto const result = run.Do(Table(table, form.first, form.second));
        return std::to_string(result) + run.Messages().substr(0, 7);
      };
      run.Do(Table("P", "A PK"));
      EXPECT_EQ(create("S.T0", first), "0");
      auto number = 0;
      for (auto const& form : forms)
        EXPECT_EQ(create("S.T" + std::to_string(++number), form), "4REP-28 ");
      // Another schema, or none, has names of its own.
      EXPECT_EQ(create("R.T", first), "0");
      EXPECT_EQ(create("T", first), "0");
      run.Do(Index("I", "T", "A"));
      EXPECT_EQ(Constrain(run, "T", "PK:n(A)", UsingName("I")), kError);
      EXPECT_EQ(run.Messages(), "REP-28 n already used as a constraint name.");
    });
  }
}

TEST(Constraints, KeysBecomeKeyGroups) {
  InRun([](RunningJob& run) {
    run.Do(Table("S.T", "A UQ; B PK:PK_B", "UQ:UQ(b, A); UQ()"));
    auto const& table = run.TableItem("S.T");
    EXPECT_EQ(run.KeyGroups(table), "AK(A); PK PK_B(B); AK UQ(B, A); AK()");
    auto const keys = run.Children(table.Id(), ORVTypes::oKeyGroup);
    auto const& member = run.Only(keys[1]->Id(), ORVTypes::oKeyGroupMember);
    auto const order = std::to_string(member.Id());
    EXPECT_EQ(Properties(*keys[1]),
              "pConstraintName='PK_B' pDoNotGenerate=true pGenerateAsConstraint=true "
              "pIndexMemberOrderList=" +
                  order + " pKeyGroupMemberOrderList=" + order +
                  " pKeyGroupType='PK' pName='PK_B'");
    auto const column = std::to_string(run.ColumnItem("S.T", "B").Id());
    EXPECT_EQ(Properties(member), "pAttributeRef=->" + column + " pName='B'");
    EXPECT_EQ(Properties(*keys[3]),
              "pDoNotGenerate=true pGenerateAsConstraint=true pKeyGroupType='AK'");
    REPName const name("S.T");
    EXPECT_EQ(run.p.FindPKInTableIndexes(&name, 1), keys[1]->Id());
    std::unique_ptr<REPNameList> const columns(Names("a, B"));
    EXPECT_EQ(run.p.FindMatchInTableIndexes(&name, columns.get()), keys[2]->Id());
    EXPECT_EQ(run.Messages(), "");

    EXPECT_EQ(run.Do(Table("U", "A", "PK(A, x, B)")), kError);
    EXPECT_EQ(run.Messages(),
              "REP-70 Create / Alter  Table - U failed.  Unable to find constraint column x.");
    EXPECT_EQ(run.Do(Table("V", "A", "PK(A, a)")), REPProcessDuplicate);
  });
}

TEST(Constraints, PhysicalModelsHaveTheIndexOrderOnly) {
  Job job;
  job.model.SetProperty(1, ORVTypes::pType, QELValue::FromInteger(codes::kModelPhysical));
  InRun(job, [](RunningJob& run) {
    run.Do(Table("T", "A PK"));
    auto const properties = Properties(run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup));
    EXPECT_NE(properties.find("pIndexMemberOrderList="), std::string::npos);
    EXPECT_EQ(properties.find("pKeyGroupMemberOrderList="), std::string::npos);
  });
}

// Attributes may bear a changed name; keys are found by the name of the script all the same.
TEST(Constraints, ReferencesFollowTheNamesOfTheScript) {
  Fill<State> const embedded = [](State& s) { s.SetCreateIndex(Index("I", "P", "EMP_ID")); };
  for (auto const& state : {Fill<State>(), embedded}) {
    Job job;
    job.processor.SetLogicalCase(eREPLogicalMixed);
    job.processor.SetPhysicalCase(eREPPhysicalLower);
    InRun(job, [&](RunningJob& run) {
      run.Do(Table("P", "EMP_ID PK", "", state));
      run.Do(Table("C", "X", "FK(x)->P(Emp_Id)"));
      EXPECT_EQ(run.Messages(), "");
      EXPECT_EQ(run.Relationships(), "C(X) -> P(Emp Id) 7 100");
    });
  }
}

struct ForeignKeyCase {
  char const* title;
  char const* columns;
  char const* constraints;
  char const* messages;  // without what begins all of them
  char const* relationships;
  bool fails_silently = false;
};

TEST(Constraints, ForeignKeys) {
  auto const* const no_key = "40 Table - S.C Failed. Unable to find matching index.";
  ForeignKeyCase const cases[] = {
      {"identifying", "X; Y", "PK(X, Y); FK:F(Y)->P", "", "F C(Y) -> P(A) 2"},
      {"partly in the primary key", "X; Y", "PK(X); FK(X, Y)->Q", "", "C(X, Y) -> Q(A, B) 7 100"},
      {"primary key known too late", "X", "FK(X)->P; PK(X)", "", "C(X) -> P(A) 7 100"},
      {"no nulls", "X NN; Y NN", "FK(X, Y)->Q", "", "C(X, Y) -> Q(A, B) 7 101"},
      {"one may be null", "X NN; Y NULL", "FK(X, Y)->Q", "", "C(X, Y) -> Q(A, B) 7 100"},
      // The pairs follow the key, not the columns of the clause.
      {"any order and case", "X; Y", "FK(x, y)->q(\"b\", A)", "", "C(X, Y) -> Q(A, B) 7 100"},
      {"a unique key will do", "X", "FK(X)->P(U)", "", "C(X) -> P(U) 7 100"},
      {"primary key of another size", "X", "FK(X)->Q", no_key, ""},
      {"columns that are no key", "X", "FK(X)->Q(A)", no_key, ""},
      {"number of columns differs", "X", "FK(X)->Q(A, B)", "", "C() -> Q()", true},
      {"no columns", "X", "FK()->P", "", "C() -> P()", true},
      {"later table", "X", "FK(X)->L", "39 Table - S.C Failed. Unable to find Table - L.", ""},
      {"no column", "X", "FK(X, z)->L", "39 Table - S.C Failed. Unable to find Column - z.", ""},
      {"no clause", "X", "FK(X)", "39 Table - S.C Failed. Unable to find Table - .", ""},
      {"a view", "X", "FK(X)->V", "66 Table - S.C  FK reference to View -  V is not supported. ",
       ""},
      {"a materialized view", "X", "FK(X)->M",
       "65  Table - S.C  FK reference to Materialized View -  M is not supported. ", ""},
      {"inline", "X FK:F->P", "", "", "F C(X) -> P(A) 7 100"},
      {"inline, by column", "X FK->P(u)", "", "", "C(X) -> P(U) 7 100"},
      {"inline, identifying", "X PK FK->P", "", "", "C(X) -> P(A) 2"},
      {"inline, not null", "X NN FK->P", "", "", "C(X) -> P(A) 7 101"},
      {"inline, not null too late", "X FK->P NN", "", "", "C(X) -> P(A) 7 100"},
      {"inline, several columns", "X FK->Q(A,B)", "",
       "41 Table - S.C Failed. Inline reference constraint contains multiple columns.", ""},
      {"inline, primary key of two", "X FK->Q", "", no_key, ""},
      {"inline, a view", "X FK->V", "", "39 Table - S.C Failed. Unable to find Table - V.", ""},
      {"inline to an own key made inline", "X PK; Y FK->S.C", "", "", "C(Y) -> C(X) 7 100"},
      {"inline to an own key made later", "X; Y FK->S.C", "PK(X)", no_key, ""},
      {"inline to itself", "X PK FK->S.C", "", "", "C(X) -> C(X) 2"},
      {"to itself: never identifying", "X", "PK(X); FK(X)->S.C", "", "C(X) -> C(X) 7 100"},
      {"to itself, in part", "X; Y; Z", "PK(X, Y); FK(X, Z)->S.C", "", "C(X, Z) -> C(X, Y) 7 100"},
      {"to itself, crossed", "X NN; Y NN", "PK(X, Y); FK(Y, X)->S.C",
       "43 A self referencing relationship on Table S.C has been altered because it had "
       "mis-matched index members.",
       "C(X, Y) -> C(X, Y) 7 101"},
  };
  for (auto const& expected : cases) {
    SCOPED_TRACE(expected.title);
    InRun([&](RunningJob& run) {
      run.Do(Table("P", "A PK; U UQ"));
      run.Do(Table("Q", "A; B", "PK(A, B)"));
      run.Add(ORVTypes::oView, "V");
      run.Add(ORVTypes::oCachedView, "M");
      auto const result = run.Do(Table("S.C", expected.columns, expected.constraints));
      auto messages = run.Messages();
      for (auto const* const start : {"REP-", "Create / Alter "})
        if (auto const at = messages.find(start); at != std::string::npos)
          messages.erase(at, std::string(start).size());
      EXPECT_EQ(messages, expected.messages);
      EXPECT_EQ(run.Relationships(), expected.relationships);
      bool const fails = expected.fails_silently || !*expected.relationships;
      EXPECT_EQ(result, fails ? kError : kOK);
    });
  }
}

TEST(Constraints, RelationshipProperties) {
  InRun([](RunningJob& run) {
    run.Do(Table("P", "A PK"));
    run.Do(Table("C", "X", "FK:\"Fk\"(X)->P", [](State& s) { s.SetRely(REPRely_e::Rely); }));
    auto const& item = run.Only(run.p.GetRoot(), ORVTypes::oRelationship);
    auto const& parent = run.TableItem("P");
    auto const id = [](MOXActionSummaryItem const& of) { return std::to_string(of.Id()); };
    auto const pair = std::int64_t{run.ColumnItem("P", "A").Id()} << 32 |
                      std::int64_t{run.ColumnItem("C", "X").Id()};
    EXPECT_EQ(Properties(item),
              "pChildEntityRef=->" + id(run.TableItem("C")) + " pKeyGroupRef=->" +
                  id(run.Only(parent.Id(), ORVTypes::oKeyGroup)) + " pMigrationMapping=" +
                  std::to_string(pair) + " pParentEntityRef=->" + id(parent) +
                  " pPhysicalName='Fk' pRelationshipChildDeleteRule=0 "
                  "pRelationshipChildInsertRule=0 pRelationshipChildUpdateRule=0 "
                  "pRelationshipNoNulls=100 pRelationshipParentInsertRule=0 pType=7");
    EXPECT_EQ(run.StateOf(item), "pRely=true");
    REPName const name("FK");
    EXPECT_EQ(run.p.FindConstraintInConstraintsMap(&name), item.Id());

    for (auto const rule : {REPDelete_e::Cascade, REPDelete_e::SetNull}) {
      auto* const constraint = OutOfLine("FK(X)->P");
      constraint->GetForeignKeyReferences()->SetDelete(rule);
      auto* const table = Table(rule == REPDelete_e::Cascade ? "D" : "E", "X");
      table->AddOutOfLineConstraint(constraint);
      run.Do(table);
    }
    EXPECT_EQ(run.Relationships(),
              "Fk C(X) -> P(A) 7 100; D(X) -> P(A) 7 100 10005; E(X) -> P(A) 7 100 10006");
  });
}

// Views have no relationships: a reference from a view leaves its columns as a key group.
TEST(Constraints, ReferencesOfViews) {
  InRun([](RunningJob& run) {
    run.Do(Table("P", "A PK"));
    auto* const view = run.Add(ORVTypes::oView, "V");
    auto* const column = run.Add(ORVTypes::oAttribute, "X", view->Id());
    REPName const view_name("V");
    auto const process = [&](std::string const& parent) {
      std::unique_ptr<REPInlineConstraintClause> const in(Inline("FK->" + parent));
      std::unique_ptr<REPOutOfLineConstraint> const out(OutOfLine("FK:F(X)->" + parent, Using));
      auto const result = in->Process(&run.p, view, &view_name, column);
      return std::pair(result, out->Process(&run.p, view, &view_name));
    };
    EXPECT_EQ(process("P"), std::pair(kOK, kOK));
    EXPECT_EQ(run.KeyGroups(*view), "IF(X); IF F(X)");
    EXPECT_EQ(run.Relationships(), "");
    auto const keys = run.Children(view->Id(), ORVTypes::oKeyGroup);
    EXPECT_EQ(run.StateOf(*keys[0]), "(none)");
    EXPECT_EQ(run.StateOf(*keys[1]), "pName='F' pUseIndex=908");
    // They are no keys that others could refer to.
    std::unique_ptr<REPNameList> const columns(Names("X"));
    EXPECT_EQ(run.p.FindMatchInTableIndexes(&view_name, columns.get()), 0u);
    EXPECT_EQ(process("ELSEWHERE"), std::pair(kError, kError));
  });
}

TEST(Constraints, Checks) {
  InRun([](RunningJob& run) {
    auto const novalidate = [](State& s) { s.SetValidate(REPValidate_e::NoValidate); };
    EXPECT_EQ(run.Do(Table("T", "A CHK:CA CHK", "CHK()", novalidate)), kOK);
    auto const rules = run.Children(run.p.GetRoot(), ORVTypes::oValidationRule);
    ASSERT_EQ(rules.size(), 3u);
    auto const reference = [&](std::size_t i) {
      return "pValidationRuleRef=->" + std::to_string(rules[i]->Id());
    };
    auto const of_column =
        run.Children(run.ColumnItem("T", "A").Id(), ORVTypes::oCheckConstraintUsage);
    ASSERT_EQ(of_column.size(), 2u);
    EXPECT_EQ(Properties(*of_column[0]), "pName='CA' " + reference(0));
    EXPECT_EQ(run.StateOf(*of_column[0]), "pName='CA' pValidate=false");
    EXPECT_EQ(Properties(*of_column[1]), reference(1));
    auto const& of_table = run.Only(run.TableItem("T").Id(), ORVTypes::oCheckConstraintUsage);
    EXPECT_EQ(Properties(of_table), reference(2));
    EXPECT_EQ(run.StateOf(of_table), "pValidate=false");
    EXPECT_EQ(Properties(*rules[0]), "pServerValue='A IS NOT NULL'");
    EXPECT_EQ(Properties(*rules[2]), "pServerValue=''");
    EXPECT_EQ(run.Messages(), "");
  });
}

TEST(Constraints, StateProperties) {
  std::pair<Fill<State>, char const*> const cases[] = {
      {[](State&) {}, ""},
      {[](State& s) { s.SetDeferrable(REPDeferrable_e::Deferrable); }, "pDeferrable=true"},
      {[](State& s) { s.SetDeferrable(REPDeferrable_e::NotDeferrable); }, "pDeferrable=false"},
      {[](State& s) { s.SetInitially(REPInitially_e::Immediate); }, "pImmediate=true"},
      {[](State& s) { s.SetInitially(REPInitially_e::Deferred); }, "pImmediate=false"},
      {[](State& s) { s.SetEnable(REPEnable_e::Enable); }, "pEnabled=true"},
      {[](State& s) { s.SetEnable(REPEnable_e::Disable); }, "pEnabled=false"},
      {[](State& s) { s.SetEnable(REPEnable_e::EnableTableLock); }, ""},
      {[](State& s) { s.SetValidate(REPValidate_e::Validate); }, "pValidate=true"},
      {[](State& s) { s.SetRely(REPRely_e::NoRely); }, "pRely=false"},
      {Using, "pUseIndex=908"},
  };
  for (auto const& [fill, properties] : cases) {
    InRun([&, &state = fill, &expected = properties](RunningJob& run) {
      run.Do(Table("T", "A UQ", "", state));
      EXPECT_EQ(run.StateOf(run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup)), expected);
    });
  }
}

TEST(Constraints, StatesOfOneItemAreOne) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A NN NULL NN", "", [](State& s) {
      s.SetRely(REPRely_e::Rely);
      s.SetExceptions(new REPName("S.EXC"));
    }));
    REPName const name("S.EXC");
    auto const table = run.p.FindCreateItem(run.p.GetRoot(), ORVTypes::oEntity, &name);
    EXPECT_EQ(run.StateOf(run.ColumnItem("T", "A")),
              "pExceptionTableRef=->" + std::to_string(table) + " pName='A' pRely=true");
    EXPECT_EQ(TextProperty(run.ColumnItem("T", "A"), ORVTypes::pNullOption), "1");
    EXPECT_EQ(Properties(*run.p.FindSummaryPtrById(table)),
              "pDBOwner='S' pDoNotGenerate=true pName='EXC'");
  });
}

TEST(Constraints, UsingIndexIsForKeys) {
  InRun([&](RunningJob& run) {
    run.Do(Table("P", "A PK"));
    std::pair<char const*, char const*> const forms[] = {
        {"A NN", ""}, {"A CHK", ""}, {"A", "FK(A)->P"}, {"A FK->P", ""}, {"A", "CHK()"}};
    auto number = 0;
    for (auto const& [columns, constraints] : forms) {
      auto const name = "T" + std::to_string(++number);
      EXPECT_EQ(run.Do(Table(name, columns, constraints, Using)), kError);
      EXPECT_EQ(run.Messages(),
                "REP-47 Using Index not allowed for NOT NULL, foreign key, or check constraint.");
    }
    EXPECT_EQ(run.StateOf(run.ColumnItem("T1", "A")), "pName='A'");
  });
}

TEST(Constraints, UsingIndexProperties) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A", "PK(A)", UsingProperties([](auto& a) { a.SetReverse(true); })));
    auto const& key = run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup);
    EXPECT_EQ(Properties(run.Only(key.Id(), ORVTypes::oOracleAttributeStorage)),
              "pOracleReverseStore=true");
    EXPECT_EQ(run.StateOf(key), "pUseIndex=908");
    auto const local =
        UsingProperties([](auto& a) { a.SetIndexAttPartition(REPIndexAttPart_e::Local); });
    EXPECT_EQ(run.Do(Table("U", "A UQ:UQ", "", local)), kError);
    EXPECT_EQ(run.Messages().substr(0, 6), "REP-42");
    EXPECT_EQ(run.StateOf(run.Only(run.TableItem("U").Id(), ORVTypes::oKeyGroup)), "pName='UQ'");
  });
}

TEST(Constraints, UsingANamedIndex) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A; B"));
    run.Do(Index("I", "T", "B, A"));
    auto& table = run.TableItem("T");
    for (auto const& [constraint, index] :
         {std::pair("UQ(A)", "NONE"), {"UQ(A, C)", "I"}, {"UQ()", "I"}}) {
      EXPECT_EQ(Constrain(run, "T", constraint, UsingName(index)), kError);
      EXPECT_EQ(run.Messages(), kIndexMissing);
    }
    REPName const table_name("T");
    std::unique_ptr<REPNameList> const one(Names("A"));
    EXPECT_EQ(run.p.FindMatchInTableIndexes(&table_name, one.get()), 0u);
    EXPECT_EQ(run.KeyGroups(table), "IE I(B, A)");

    EXPECT_EQ(Constrain(run, "T", "PK:PK(a, b)", UsingName("i")), kOK);
    EXPECT_EQ(run.KeyGroups(table), "PK I(B, A)");
    auto const& key = run.Only(table.Id(), ORVTypes::oKeyGroup);
    EXPECT_EQ(TextProperty(key, ORVTypes::pConstraintName), "PK");
    EXPECT_EQ(TextProperty(key, ORVTypes::pGenerateAsConstraint), "true");
    EXPECT_EQ(run.StateOf(key), "pName='I' pUseIndex=908");
    EXPECT_EQ(run.p.FindPKInTableIndexes(&table_name, 2), key.Id());
    REPName const name("pk");
    EXPECT_EQ(run.p.FindConstraintInConstraintsMap(&name), key.Id());

    run.Do(Index("J", "T", "B", REPIndexType_e::Unique));
    std::unique_ptr<REPInlineConstraintClause> const in(Inline("UQ", UsingName("J")));
    EXPECT_EQ(in->Process(&run.p, &table, &table_name, &run.ColumnItem("T", "B")), kOK);
    EXPECT_EQ(in->Process(&run.p, &table, &table_name, &run.ColumnItem("T", "A")), kError);
    EXPECT_EQ(run.Messages(), kIndexMissing);
  });
}

TEST(Constraints, UsingAnEmbeddedIndex) {
  auto const embedded = [](char const* table) {
    return [table](State& state) {
      state.SetCreateIndex(Index("I", table, "B, A", REPIndexType_e::Unique));
      state.SetDeferrable(REPDeferrable_e::Deferrable);
    };
  };
  InRun([&](RunningJob& run) {
    EXPECT_EQ(run.Do(Table("T", "A; B", "PK:PK(A, B)", embedded("T"))), kOK);
    EXPECT_EQ(run.KeyGroups("T"), "PK I(B, A)");
    auto const& key = run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup);
    EXPECT_EQ(TextProperty(key, ORVTypes::pConstraintName), "PK");
    EXPECT_EQ(TextProperty(key, ORVTypes::pGenerateAsConstraint), "true");
    EXPECT_EQ(TextProperty(key, ORVTypes::pDoNotGenerate), "true");
    EXPECT_EQ(run.StateOf(key), "pDeferrable=true pName='I' pUseIndex=908");
    REPName const table_name("T");
    EXPECT_EQ(run.p.FindPKInTableIndexes(&table_name, 2), key.Id());
    // Here the name goes to the index alone: another constraint may take it.
    EXPECT_EQ(run.Do(Table("U", "A NN:PK")), kOK);
    EXPECT_EQ(run.Do(Table("V", "A UQ:UQ", "", embedded("NONE"))), kError);
    EXPECT_EQ(run.Messages(),
              "REP-39 Create / Alter Index - I Failed. Unable to find Table - NONE.");
  });
}

// NOVALIDATE; the columns of UNIQUE are (b). "-" in the place of the index stands for a using
// clause with properties but without a name.
REPEnableDisableClause* EnableDisable(In type, REPEnable_e enable, std::string const& name = "",
                                      std::string const& index = "") {
  return New<REPEnableDisableClause>([&](auto& clause) {
    clause.SetType(type);
    clause.SetEnable(enable);
    clause.SetValidate(REPValidate_e::NoValidate);
    if (type == In::Unique) clause.SetColumns(Names("b"));
    clause.SetConstraint(Name(name));
    if (index.empty()) return;
    clause.SetUsingClause(New<REPUsingIndexClause>([&](auto& using_index) {
      if (index != "-") using_index.SetIndexName(Name(index));
      using_index.SetIndexProperties(New<REPIndexPropertiesClause>(
          [](auto& properties) { properties.GetIndexAttributes()->SetOnline(true); }));
    }));
  });
}

TEST(Constraints, EnableAndDisable) {
  struct Case {
    REPEnableDisableClause* clause;
    int result;
    std::string messages;
    char const* storages;  // how many each of the key groups has
  };
  auto const enable = REPEnable_e::Enable;
  auto const missing = "REP-30 Alter Table T - Constraint NONE not found.";
  Case const cases[] = {
      {EnableDisable(In::PrimaryKey, REPEnable_e::Disable), 0, "", "000"},
      {EnableDisable(In::Named, enable, "nn"), 0, "", "000"},
      {EnableDisable(In::Named, enable, "NONE", "-"), 0, "", "000"},
      {EnableDisable(In::Check, enable, "NN"), 0, "", "000"},
      {EnableDisable(In::Unique, enable, "", "-"), 0, "", "010"},
      {EnableDisable(In::Unique, enable, "", "i"), 0, "", "011"},
      {EnableDisable(In::Named, enable, "uq", "-"), 0, "", "021"},
      {EnableDisable(In::PrimaryKey, enable, "", "NONE"), 4, kIndexMissing, "021"},
      {EnableDisable(In::Named, enable, "NN", "-"), 4, kIndexMissing, "021"},  // no key group
      {EnableDisable(In::PrimaryKey, enable, "NONE", "-"), 4, missing, "021"},
  };
  InRun([&](RunningJob& run) {
    run.Do(Table("T", "A PK; B UQ:UQ; C NN:NN"));
    run.Do(Index("I", "T", "C"));
    auto& table = run.TableItem("T");
    REPName const table_name("T");
    auto const keys = run.Children(table.Id(), ORVTypes::oKeyGroup);
    for (auto const& expected : cases) {
      std::unique_ptr<REPEnableDisableClause> const clause(expected.clause);
      EXPECT_EQ(clause->Process(&run.p, &table, &table_name), expected.result);
      EXPECT_EQ(run.Messages(), expected.messages);
      std::string storages;
      for (auto const* const key : keys)
        storages +=
            std::to_string(run.Children(key->Id(), ORVTypes::oOracleAttributeStorage).size());
      EXPECT_EQ(storages, expected.storages);
    }
    EXPECT_EQ(run.StateOf(*keys[0]), "pEnabled=true pName='T' pUseIndex=908 pValidate=false");
    EXPECT_EQ(run.StateOf(*keys[1]), "pEnabled=true pName='T' pUseIndex=908 pValidate=false");
    EXPECT_EQ(run.StateOf(run.ColumnItem("T", "C")), "pEnabled=true pUseIndex=908 pValidate=false");
  });
}

TEST(Constraints, OrderInCreateTable) {
  InRun([](RunningJob& run) {
    auto* const table = Table("T", "A", "PK(A)");
    table->SetRowDepend(REPRowDepend_e::RowDependencies);
    table->SetRowMovement(REPRowMovement_e::Enable);
    auto* const list = new REPEnableDisableClauseList;
    table->SetEnableDisableClauseList(list);
    list->AddTail(EnableDisable(In::PrimaryKey, REPEnable_e::Disable));
    list->AddTail(EnableDisable(In::PrimaryKey, REPEnable_e::Enable, "", "NONE"));
    list->AddTail(EnableDisable(In::PrimaryKey, REPEnable_e::Disable));
    EXPECT_EQ(run.Do(table), kError);
    EXPECT_EQ(run.Messages(), kIndexMissing);
    auto const& item = run.TableItem("T");
    EXPECT_EQ(run.StateOf(run.Only(item.Id(), ORVTypes::oKeyGroup)),
              "pEnabled=true pName='T' pUseIndex=908 pValidate=false");
    EXPECT_EQ(Properties(item), "pName='T' pOracleRowDependencies=true");

    auto* const with_ref = Table("U", "A", "PK(A)");
    with_ref->AddOutOfLineRefConstraint(new REPOutOfLineRefConstraint);
    with_ref->SetCommit(REPCommit_e::DeleteRows);
    EXPECT_EQ(run.Do(with_ref), REPProcessUnsupported);
    EXPECT_EQ(run.KeyGroups("U"), "PK(A)");
    EXPECT_EQ(Properties(run.TableItem("U")), "pName='U'");
    // A failing constraint ends its column, the columns and the constraints.
    EXPECT_EQ(run.Do(Table("W", "A FK->NONE NULL; B", "PK(A)")), kError);
    EXPECT_EQ(Properties(run.ColumnItem("W", "A")), "pName='A' pType=100");
    EXPECT_EQ(run.Children(run.TableItem("W").Id(), ORVTypes::oAttribute).size(), 1u);
    EXPECT_EQ(run.KeyGroups("W"), "");
  });
}

TEST(Constraints, Texts) {
  Fill<State> const rely = [](State& s) { s.SetRely(REPRely_e::Rely); };
  Fill<State> const none;
  struct Case {
    char const* constraint;
    Fill<State> const& state;
    char const* text;
  };
  Case const of_columns[] = {
      {"NULL", none, "NULL"},
      {"NN:\"c\"", rely, "CONSTRAINT c NOT NULL RELY"},
      {"UQ", [](State&) {}, "UNIQUE"},
      {"PK", none, "PRIMARY KEY"},
      {"FK:C->S.P(A)", none, "CONSTRAINT C REFERENCES S.P(A) ON DELETE SET NULL"},
      {"CHK", rely, "CHECK (A IS NOT NULL) RELY"},
      {"REF:C", none, "CONSTRAINT C  REF R"},
      {"ROWID", none, "WITH ROWID"},
      {"SCOPE", none, "SCOPE IS S.T"},
  };
  for (auto const& expected : of_columns) {
    std::unique_ptr<REPInlineConstraintClause> const clause(
        Inline(expected.constraint, expected.state));
    clause->SetRefName(new REPName("R"));
    clause->SetScope(new REPName("S.T"));
    if (clause->GetReferences()) clause->GetReferences()->SetDelete(REPDelete_e::SetNull);
    EXPECT_EQ(clause->AsString(), expected.text);
  }
  Case const of_tables[] = {
      {"UQ(A, B)", rely, " UNIQUE (A, B) RELY"},
      {"PK:C(A)", none, " CONSTRAINT C PRIMARY KEY (A)"},
      {"FK(A, B)->P", rely, " FOREIGN KEY (A, B) REFERENCES P RELY"},
      {"CHK()", none, "CHECK (A IS NOT NULL)"},
      {"CHK:C()", rely, " CONSTRAINT C CHECK (A IS NOT NULL) RELY"},
  };
  for (auto const& expected : of_tables) {
    std::unique_ptr<REPOutOfLineConstraint> const constraint(
        OutOfLine(expected.constraint, expected.state));
    constraint->SetCheckConditions(Condition("A"));
    EXPECT_EQ(constraint->AsString(), expected.text);
  }
  REPOutOfLineRefConstraint constraint;
  EXPECT_EQ(constraint.AsString(), "");
  constraint.SetRefColumn(new REPName("R"));
  EXPECT_EQ(constraint.AsString(), " REF (R) WITH ROWID");
  std::unique_ptr<REPName> const replaced(constraint.GetRefColumn());
  constraint.SetRefColumn(nullptr);
  constraint.SetScopeColumn(new REPName("C"));
  constraint.SetScopeSchema(new REPName("S.T"));
  EXPECT_EQ(constraint.AsString(), " SCOPE FOR (C) IS S.T");
}

TEST(Constraints, StateTexts) {
  State state;
  EXPECT_EQ(state.AsString(), "");
  state.SetUsingIndex(true);
  EXPECT_EQ(state.AsString(), "USING INDEX");
  UsingProperties([](auto& attributes) { attributes.SetReverse(true); })(state);
  state.SetRely(REPRely_e::NoRely);
  state.SetExceptions(new REPName("S.E"));
  EXPECT_EQ(state.AsString(), "NORELY EXCEPTIONS INTO S.E USING INDEX REVERSE");
  state.SetCreateIndex(Index("I", "T", "A"));
  EXPECT_EQ(state.AsString(), "NORELY EXCEPTIONS INTO S.E USING INDEX CREATE INDEX I ON T (A)");
  state.SetIndexSchema(new REPName("S.I"));
  state.SetDeferrable(REPDeferrable_e::NotDeferrable);
  state.SetInitially(REPInitially_e::Deferred);
  state.SetEnable(REPEnable_e::DisableAllTriggers);
  state.SetValidate(REPValidate_e::Validate);
  EXPECT_EQ(state.AsString(),
            "NOT DEFERRABLE INITIALLY DEFERRED DISABLE ALL TRIGGERS VALIDATE NORELY "
            "EXCEPTIONS INTO S.E USING INDEX S.I");

  std::unique_ptr<REPEnableDisableClause> const clause(
      EnableDisable(In::Unique, REPEnable_e::Enable, "C", "I"));
  EXPECT_EQ(clause->AsString(), "ENABLE NOVALIDATE UNIQUE (b) USING INDEX I ONLINE");
  clause->SetType(In::PrimaryKey);
  clause->SetExceptions(new REPName("E"));
  clause->SetCascade(true);
  clause->SetKeepDrop(REPKeepDrop_e::DropIndex);
  EXPECT_EQ(clause->AsString(),
            "ENABLE NOVALIDATE PRIMARY KEY USING INDEX I ONLINE EXCEPTIONS INTO E CASCADE DROP "
            "INDEX");
  clause->SetEnable(REPEnable_e::None);
  clause->SetType(In::Named);
  clause->SetCascade(false);
  clause->SetKeepDrop(REPKeepDrop_e::KeepIndex);
  EXPECT_EQ(clause->AsString(),
            "NOVALIDATE CONSTRAINT C USING INDEX I ONLINE EXCEPTIONS INTO E KEEP INDEX");
}

TEST(Constraints, TableText) {
  std::unique_ptr<REPCreateTable> const table(Table("S.T", "A NN UQ; B", "PK(A); UQ:UQ(B)"));
  EXPECT_EQ(table->AsString(),
            "CREATE TABLE S.T( A NOT NULL, UNIQUE, B,   PRIMARY KEY (A),  CONSTRAINT UQ UNIQUE "
            "(B));");
  auto* const ref = new REPOutOfLineRefConstraint;
  ref->SetRefColumn(new REPName("R"));
  table->AddOutOfLineRefConstraint(ref);
  auto* const list = new REPEnableDisableClauseList;
  list->AddTail(EnableDisable(In::PrimaryKey, REPEnable_e::Disable));
  list->AddHead(EnableDisable(In::Named, REPEnable_e::Enable, "UQ"));
  table->SetEnableDisableClauseList(list);
  table->SetRowDepend(REPRowDepend_e::RowDependencies);
  table->SetOrganization(REPOrganization_e::Heap);
  EXPECT_EQ(table->AsString(),
            "CREATE TABLE S.T( A NOT NULL, UNIQUE, B,   PRIMARY KEY (A),  CONSTRAINT UQ UNIQUE (B),"
            "   REF (R) WITH ROWID) ROWDEPENDENCIES ENABLE NOVALIDATE CONSTRAINT UQ, DISABLE "
            "NOVALIDATE PRIMARY KEY ORGANIZATION HEAP;");
}

TEST(Constraints, NullArgumentsAreHarmless) {
  REPInlineConstraintClause in;
  REPOutOfLineConstraint out;
  State state;
  InRun([&](RunningJob& run) {
    auto* const table = run.Add(ORVTypes::oEntity, "T");
    auto* const column = run.Add(ORVTypes::oAttribute, "A", table->Id());
    EXPECT_EQ(in.Process(&run.p, table, nullptr, nullptr), kError);
    EXPECT_EQ(in.Process(nullptr, table, nullptr, column), kError);
    EXPECT_EQ(out.Process(&run.p, nullptr, nullptr), kError);
    EXPECT_EQ(state.Process(&run.p, nullptr, true), kError);
    EXPECT_EQ(REPEnableDisableClause().Process(&run.p, nullptr, nullptr), kError);
    EXPECT_EQ(run.Messages(), "");
    // Of the kinds, known or not, only keys can do without what belongs to them.
    for (int kind = -1; kind <= 11; ++kind) {
      in.SetConstraint(static_cast<In>(kind));
      in.Process(&run.p, table, nullptr, column);
      out.SetConstraint(static_cast<Out>(kind));
      out.Process(&run.p, table, nullptr);
    }
    EXPECT_EQ(run.KeyGroups(*table), "AK(); PK(); AK(A); PK(A)");
  });
  EXPECT_EQ(state.ProcessCreateIndex(nullptr, nullptr, REPIndexPrimaryKey), nullptr);
  REPInlineConstraintClauseList list;
  list.AddTail(nullptr);
  EXPECT_THROW(list.GetConstraint(0), std::invalid_argument);
  EXPECT_THROW(REPOutOfLineConstraintList().GetConstraint(-1), std::invalid_argument);
  EXPECT_THROW(REPEnableDisableClauseList().GetClause(0), std::invalid_argument);
}

}  // namespace
