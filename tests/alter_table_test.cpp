#include "repora/tables/alter_table.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/alter_columns.h"
#include "tests/table_builders.h"

namespace {

using namespace repora::test;  // the builders are the language of these tests

// A column clause of ADD or MODIFY: "A #10C =1 NN:N" is A VARCHAR2(10 CHAR) DEFAULT 1 CONSTRAINT N
// NOT NULL.
template <class Clause>
Clause* Column(std::vector<std::string> const& words) {
  auto* const clause = new Clause;
  auto* const constraints = new REPInlineConstraintClauseList;
  clause->SetInlineConstraints(constraints);
  clause->SetColumnName(Name(words[1]));
  for (std::size_t i = 2; i < words.size(); ++i) {
    auto const value = words[i].substr(1);
    if (words[i][0] == '#') {
      clause->SetDatatype(new REPDatatype);
      clause->GetDatatype()->SetDataType(REPDatatype_e::Varchar2);
      clause->GetDatatype()->SetSize(value.c_str());
      if (value.back() == 'C') clause->GetDatatype()->SetCharType(REPChartype_e::Char);
    } else if (words[i][0] == '=') {
      clause->SetExpression(New<REPExpr>([&](auto& e) { e.SetExprValue(value.c_str()); }));
    } else {
      constraints->AddTail(Inline(words[i]));
    }
  }
  return clause;
}

using Statement = std::unique_ptr<REPAlterTable>;

// ALTER TABLE of clauses separated by semicolons: "ADD column", "ADD constraint", "MODIFY column",
// "DROP", "RENAME old new" of a column, "CONSTRAINT old new", "TO table". Lists stay empty for want
// of clauses.
Statement Alter(std::string const& table, std::string const& clauses = "") {
  auto alter = std::make_unique<REPAlterTable>();
  alter->SetTableName(Name(table));
  alter->SetAlterTableProps(new REPAlterTableProps);
  auto* const columns = new REPAlterColumnClauses;
  alter->SetAlterColumnClauses(columns);
  columns->SetAddColumnClauseList(new REPAddColumnClauseList);
  columns->SetModifyColumnClauseList(new REPModifyColumnClauseList);
  columns->SetDropColumnClauseList(new REPDropColumnClauseList);
  columns->SetRenameColumnClauseList(new REPRenameColumnClauseList);
  for (auto const& clause : Split(clauses, ';')) {
    auto const words = Split(clause, ' ');
    if (words[0] == "ADD" && words[1].back() == ')') {
      columns->GetAddColumnClauseList()->AddTail(New<REPAddColumnClause>(
          [&](auto& added) { added.SetOutOfLineConstraint(OutOfLine(words[1])); }));
    } else if (words[0] == "ADD") {
      columns->GetAddColumnClauseList()->AddTail(Column<REPAddColumnClause>(words));
    } else if (words[0] == "MODIFY") {
      columns->GetModifyColumnClauseList()->AddTail(Column<REPModifyColumnClause>(words));
    } else if (words[0] == "DROP") {
      columns->GetDropColumnClauseList()->AddTail(new REPDropColumnClause);
    } else if (words[0] == "RENAME") {
      columns->GetRenameColumnClauseList()->AddTail(New<REPRenameColumnClause>([&](auto& rename) {
        if (words[1] != "?") rename.SetOldName(Name(words[1]));
        if (words[2] != "?") rename.SetNewName(Name(words[2]));
      }));
    } else if (words[0] == "CONSTRAINT") {
      alter->SetConstraintOldName(Name(words[1]));
      alter->SetConstraintNewName(Name(words[2]));
    } else {
      alter->GetAlterTableProps()->SetNewTableName(Name(words[1]));
    }
  }
  return alter;
}

// The result and the messages of a statement.
std::string Do(RunningJob& run, Statement const& alter) {
  auto const result = std::to_string(alter->Process(&run.p));
  auto const messages = run.Messages();
  return messages.empty() ? result : result + " " + messages;
}
std::string Do(RunningJob& run, std::string const& table, std::string const& clauses) {
  return Do(run, Alter(table, clauses));
}

// A run over EMP, with a primary key and a unique key, and BOSS, which refers to EMP.
void InCompany(std::function<void(RunningJob&)> const& test) {
  InRun([&](RunningJob& run) {
    run.Do(Table("EMP", "ID; NAME; DEPT", "PK:PK_EMP(ID); UQ:UQ_EMP(NAME, DEPT)"));
    run.Do(Table("BOSS", "ID", "FK:FK_BOSS(ID)->EMP"));
    ASSERT_EQ(run.Messages(), "");
    test(run);
  });
}

MOXActionSummaryItem* ConstraintItem(RunningJob& run, char const* text) {
  REPName const name(text);
  return run.p.FindSummaryPtrById(run.p.FindConstraintInConstraintsMap(&name));
}

bool HasColumn(RunningJob& run, char const* table, char const* text) {
  REPName const name(text);
  return run.p.FindItem(run.TableItem(table).Id(), ORVTypes::oAttribute, &name) != 0;
}

MOXActionSummaryItem& Referred(RunningJob& run, MOXActionSummaryItem const& item, MOXId property) {
  return *run.p.FindSummaryPtrById(item.Properties().Find(property)->ShortId());
}

std::string const kDropRefused =
    "4 REP-14 Alter Table - EMP Failed. Drop Option unsupported in Alter.  Modify Option in the "
    "create.";

TEST(AlterTable, UnknownTableGetsAPlaceholder) {
  InCompany([](RunningJob& run) {
    std::string const made =
        "0 REP-71 Alter Table HR.T.  Unable to find table in model.  Placeholder table created.";
    EXPECT_EQ(Do(run, "HR.T", "ADD A; ADD PK:PK_T(A)"), made);
    auto const* const table = run.p.FindSummaryPtrById(ConstraintItem(run, "HR.PK_T")->Owner());
    EXPECT_EQ(Properties(*table), "pDBOwner='HR' pDoNotGenerate=true pName='T'");
    // The placeholder moves to its new name, where CREATE TABLE finds it with its key.
    EXPECT_EQ(Do(run, "hr.t", "ADD B; TO HR.NOW").substr(0, 8), "0 REP-71");
    EXPECT_EQ(run.Do(Table("HR.NOW", "C")), REPProcessOK);
    EXPECT_EQ(&run.TableItem("HR.NOW"), table);
    EXPECT_TRUE(HasColumn(run, "HR.NOW", "B"));
    REPName const now("HR.NOW");
    EXPECT_NE(run.p.FindPKInTableIndexes(&now, 1), 0U);
  });
}

TEST(AlterTable, AddAndModifyColumns) {
  InCompany([](RunningJob& run) {
    EXPECT_EQ(Do(run, "EMP", "ADD CODE #10C ='x' NN:NN_CODE"), "0");
    auto const& column = run.ColumnItem("EMP", "CODE");
    EXPECT_EQ(Properties(column),
              "pCharacterSemantics=908 pDatatype='VARCHAR2(10)' pLogicalDatatype='VARCHAR2(10)' "
              "pName='CODE' pNullOption=1 pNullOptionConstraintName='NN_CODE' "
              "pOracleSortColumn=false pParentDomain=->" +
                  TextProperty(column, ORVTypes::pParentDomain) + " pType=100");
    auto const& usage = run.Only(column.Id(), ORVTypes::oDefaultConstraintUsage);
    auto const& first = Referred(run, usage, ORVTypes::pDefaultProperty);
    EXPECT_EQ(Properties(first), "pServerValue=''x''");

    EXPECT_EQ(Do(run, "EMP", "MODIFY code #20 ='y' NULL"), "0");
    EXPECT_EQ(TextProperty(column, ORVTypes::pDatatype), "VARCHAR2(20)");
    EXPECT_EQ(TextProperty(column, ORVTypes::pCharacterSemantics), "908");
    EXPECT_EQ(TextProperty(column, ORVTypes::pNullOption), "0");
    EXPECT_EQ(&run.Only(column.Id(), ORVTypes::oDefaultConstraintUsage), &usage);
    EXPECT_EQ(Properties(Referred(run, usage, ORVTypes::pDefaultProperty)), "pServerValue=''y''");
    EXPECT_EQ(Properties(first), "pServerValue=''x''");
    auto const named = run.ColumnItem("EMP", "NAME").Id();
    run.Add(ORVTypes::oDefaultConstraintUsage, "BY_HAND", named);
    EXPECT_EQ(Do(run, "EMP", "MODIFY DEPT =7; MODIFY NAME =8"), "0");
    for (auto const id : {named, run.ColumnItem("EMP", "DEPT").Id()})
      run.Only(id, ORVTypes::oDefaultConstraintUsage);

    // The first clause that fails is the end of its list.
    EXPECT_EQ(Do(run, "EMP", "ADD Name; ADD LATE"),
              "4 REP-17 Alter Table - EMP Failed. Unable to process column Name.");
    EXPECT_EQ(Do(run, "EMP", "ADD NEW; MODIFY NO.SUCH; MODIFY ID =1"),
              "4 REP-16 Alter Table - EMP Failed. Unable to locate column NO.SUCH in Table.");
    EXPECT_TRUE(HasColumn(run, "EMP", "NEW") && !HasColumn(run, "EMP", "LATE"));
    EXPECT_TRUE(
        run.Children(run.ColumnItem("EMP", "ID").Id(), ORVTypes::oDefaultConstraintUsage).empty());
    auto const reference = Alter("EMP", "ADD R; ADD S");
    reference->GetAlterColumnClauses()
        ->GetAddColumnClauseList()
        ->GetClause(0)
        ->SetOutOfLineRefConstraint(new REPOutOfLineRefConstraint);
    EXPECT_EQ(Do(run, reference), "3");
    EXPECT_FALSE(HasColumn(run, "EMP", "R") || HasColumn(run, "EMP", "S"));
  });
}

TEST(AlterTable, StepsBeforeAFailureStay) {
  InCompany([](RunningJob& run) {
    auto const alter = Alter("EMP", "ADD EXTRA; CONSTRAINT UQ_EMP UQ_NEW");
    alter->SetEnableDisableClauseList(new REPEnableDisableClauseList);
    alter->GetEnableDisableClauseList()->AddTail(New<REPEnableDisableClause>([](auto& disable) {
      disable.SetEnable(REPEnable_e::Disable);
      disable.SetType(REPInlineConstr_e::PrimaryKey);
    }));
    alter->SetDropConstraint(REPDropConstr_e::PrimaryKey);
    EXPECT_EQ(Do(run, alter), kDropRefused);
    EXPECT_EQ(run.KeyGroups("EMP"), "PK PK_EMP(ID); AK UQ_NEW(NAME, DEPT)");
    EXPECT_EQ(run.StateOf(*ConstraintItem(run, "PK_EMP")), "pEnabled=false pName='EMP'");
    EXPECT_TRUE(HasColumn(run, "EMP", "EXTRA"));

    // The column clauses: add, modify, drop, rename. Nothing behind the drop is done.
    auto const columns = Alter("EMP", "RENAME NAME TITLE; DROP; MODIFY B NN; ADD B");
    columns->SetOutOfLineConstraint(OutOfLine("CHK:CK_LATE()"));
    EXPECT_EQ(Do(run, columns), kDropRefused);
    EXPECT_EQ(TextProperty(run.ColumnItem("EMP", "B"), ORVTypes::pNullOption), "1");
    EXPECT_TRUE(HasColumn(run, "EMP", "NAME") && !ConstraintItem(run, "CK_LATE"));

    // A REF constraint comes before the constraint changes, behind the added constraint.
    auto const reference = Alter("EMP", "CONSTRAINT UQ_NEW UQ_NEVER");
    reference->SetOutOfLineConstraint(OutOfLine("CHK:CK_EMP()"));
    reference->SetOutOfLineRefConstraint(new REPOutOfLineRefConstraint);
    EXPECT_EQ(Do(run, reference), "3");
    EXPECT_TRUE(ConstraintItem(run, "CK_EMP") && ConstraintItem(run, "UQ_NEW"));
    EXPECT_EQ(Do(run, "EMP", "ADD NEVER; TO BOSS"),
              "4 REP-11 Rename in Alter Table - EMP Failed. BOSS already exists in the model.");
    EXPECT_FALSE(HasColumn(run, "EMP", "NEVER"));
  });
}

TEST(AlterTable, RenamedTableIsFoundWithItsKeys) {
  InCompany([](RunningJob& run) {
    auto const& table = run.TableItem("EMP");
    EXPECT_EQ(Do(run, "emp", "TO STAFF"), "0");
    EXPECT_EQ(&run.TableItem("STAFF"), &table);
    EXPECT_EQ(Properties(table), "pName='STAFF'");
    EXPECT_EQ(run.Do(Table("EMP", "A FK->STAFF")), REPProcessOK);
    EXPECT_EQ(run.Relationships(),
              "FK_BOSS BOSS(ID) -> STAFF(ID) 7 100; EMP(A) -> STAFF(ID) 7 100");

    // A name that waits for its CREATE TABLE is taken, and so are the keys of a name.
    REPName const awaited("AWAITED");
    run.p.FindCreateItem(run.p.GetRoot(), ORVTypes::oEntity, &awaited);
    EXPECT_EQ(Do(run, "STAFF", "TO AWAITED"), "1");
    EXPECT_STREQ(table.Name(), "STAFF");
    REPName const indexed("INDEXED");
    run.p.AddMemberToTableIndexes(&indexed, 77, REPIndexOtherKey, &awaited);
    EXPECT_EQ(Do(run, "STAFF", "TO INDEXED"), "4");
  });
}

TEST(AlterTable, RenamedColumnIsFoundInItsKeys) {
  InCompany([](RunningJob& run) {
    auto const& column = run.ColumnItem("EMP", "DEPT");
    EXPECT_EQ(Do(run, "EMP", "RENAME dept UNIT"), "0");
    EXPECT_EQ(&run.ColumnItem("EMP", "UNIT"), &column);
    EXPECT_STREQ(column.Name(), "UNIT");
    EXPECT_FALSE(HasColumn(run, "EMP", "DEPT"));
    auto const key = ConstraintItem(run, "UQ_EMP")->Id();
    EXPECT_STREQ(run.Find(ORVTypes::oKeyGroupMember, "UNIT", key).Name(), "UNIT");

    std::string const taken = "4 REP-11 Rename in Alter Table - BOSS Failed. ";
    EXPECT_EQ(Do(run, "BOSS", "RENAME ID NR"), "0");  // a table without keys
    EXPECT_EQ(Do(run, "BOSS", "RENAME ID NO"),
              "4 REP-16 Alter Table - BOSS Failed. Unable to locate column ID in Table.");
    EXPECT_EQ(Do(run, "BOSS", "RENAME NR nr"), taken + "nr already exists in the model.");
    EXPECT_EQ(Do(run, "BOSS", "RENAME ? NO") + Do(run, "BOSS", "RENAME NR ?"), "44");
    REPName const awaited("AWAITED");
    run.p.FindCreateItem(run.TableItem("BOSS").Id(), ORVTypes::oAttribute, &awaited);
    EXPECT_EQ(Do(run, "BOSS", "RENAME NR AWAITED"), taken + "AWAITED already exists in the model.");
    EXPECT_STREQ(run.ColumnItem("BOSS", "NR").Name(), "NR");
  });
}

TEST(AlterTable, RenamedConstraints) {
  InCompany([](RunningJob& run) {
    EXPECT_EQ(Do(run, "EMP", "ADD FLAG CHK:CK_FLAG; ADD OPT NN:NN_OPT; ADD CHK:CK_EMP()"), "0");
    struct {
      std::string table, other, old_name, new_name;
    } const cases[] = {
        {"EMP", "BOSS", "PK_EMP", "PK_NEW"},
        {"EMP", "BOSS", "CK_EMP", "CK_NEW"},
        {"EMP", "BOSS", "CK_FLAG", "CK_FLAG_NEW"},
        {"BOSS", "EMP", "FK_BOSS", "FK_NEW"},
    };
    for (auto const& [table, other, old_name, new_name] : cases) {
      auto const not_found = " - Constraint " + old_name + " not found.";
      auto const rename = "CONSTRAINT " + old_name + " ";
      auto* const item = ConstraintItem(run, old_name.c_str());
      run.Add(ORVTypes::oOracleConstraintState, old_name.c_str(), item->Id());
      EXPECT_EQ(Do(run, other, rename + "X"), "4 REP-30 Alter Table " + other + not_found);
      EXPECT_EQ(Do(run, table, rename + "uq_emp"),
                "4 REP-28 uq_emp already used as a constraint name.");
      EXPECT_EQ(Do(run, table, rename + new_name), "0");
      EXPECT_EQ(Do(run, table, rename + "X"), "4 REP-30 Alter Table " + table + not_found);
      EXPECT_EQ(ConstraintItem(run, new_name.c_str()), item);
      EXPECT_EQ(run.StateOf(*item), "pName='" + new_name + "'");
      bool const is_relationship = item->Type() == ORVTypes::oRelationship;
      EXPECT_EQ(TextProperty(*item, is_relationship ? ORVTypes::pPhysicalName : MOXTypes::pName),
                new_name);
    }
    EXPECT_EQ(TextProperty(*ConstraintItem(run, "PK_NEW"), ORVTypes::pConstraintName), "PK_NEW");
    EXPECT_EQ(Do(run, "EMP", "CONSTRAINT NN_OPT NN_NEW"), "3");
    REPName const ghost("GHOST");
    run.p.AddConstraintToConstraintsMap(&ghost, 99999);
    EXPECT_EQ(Do(run, "EMP", "CONSTRAINT GHOST X"), "4");
  });
}

TEST(AlterTable, ModifiedConstraints) {
  using Modify = REPModifyConstr_e;
  InCompany([](RunningJob& run) {
    auto const modify = [&](Modify kind, char const* name, char const* columns, bool rely) {
      auto const alter = Alter("EMP");
      alter->SetConstraintOldName(new REPName(name));
      alter->SetConstraintNewName(new REPName("UQ_MOVED"));
      alter->SetConstraintColumnList(Names(columns));
      alter->SetModifyConstraint(kind);
      alter->SetConstraintState(New<State>([&](auto& state) {
        state.SetRely(rely ? REPRely_e::Rely : REPRely_e::NoRely);
        state.SetUsingIndex(true);
      }));
      return Do(run, alter);
    };
    EXPECT_EQ(modify(Modify::PrimaryKey, "", "", true), "0");
    EXPECT_EQ(run.StateOf(*ConstraintItem(run, "PK_EMP")),
              "pName='PK_EMP' pRely=true pUseIndex=908");
    EXPECT_EQ(modify(Modify::Unique, "", "dept, name", false), "0");
    // A key that is not there is passed over, a name that is not there ends the statement.
    EXPECT_EQ(modify(Modify::Unique, "UQ_EMP", "NAME", true), "0");
    EXPECT_EQ(run.StateOf(*ConstraintItem(run, "UQ_MOVED")),
              "pName='UQ_MOVED' pRely=false pUseIndex=908");
    EXPECT_EQ(modify(Modify::Constraint, "UNKNOWN", "", true), "0");
    EXPECT_EQ(modify(Modify::Constraint, "UQ_MOVED", "", true),
              "4 REP-28 UQ_MOVED already used as a constraint name.");
    EXPECT_EQ(run.StateOf(*ConstraintItem(run, "UQ_MOVED")),
              "pName='UQ_MOVED' pRely=true pUseIndex=908");
  });
}

// Every property at once; enumerations take the value of the choice.
Statement WithProperties(char const* table, int choice) {
  auto alter = Alter(table);
  auto& props = *alter->GetAlterTableProps();
  auto const segment = [](int pct_free) {
    return New<REPSegmentAttributesClause>(
        [&](auto& clause) { clause.GetAttributesClause()->SetPctFree(pct_free); });
  };
  props.SetCompressionClause(New<REPCompressionClause>(
      [](auto& clause) { clause.SetCompression(REPCompress_e::Compress); }));
  props.SetAllocExtentClause(new REPAllocExtentClause);
  props.SetDeallocateUnusedClause(new REPDeallocateUnusedClause);
  props.SetShrink(REPShrink_e(choice));
  props.SetCache(REPCache_e(choice));
  props.SetUpgrade(REPUpgrade_e(choice));
  props.SetRecBlock(REPRecBlock_e(choice));
  props.SetParallelClause(
      New<REPParallelClause>([](auto& clause) { clause.SetParallel(REPParallel_e::NoParallel); }));
  props.SetRowMovement(REPRowMovement_e(choice));
  props.SetSegmentAttributesClause(segment(10));
  props.SetIOT(REPIOT_e(choice));
  props.SetIOTCoalesce(choice == 3);
  props.SetIOTIncludingCol("name");
  props.SetIOTSegmentAttributesClause(segment(20));
  props.SetIOTAllocExtentClause(new REPAllocExtentClause);
  props.SetIOTDeallocateUnusedClause(new REPDeallocateUnusedClause);
  return alter;
}

TEST(AlterTable, PropertiesReachTheModel) {
  for (int choice = 0; choice <= 6; ++choice) {
    InCompany([&](RunningJob& run) {
      EXPECT_EQ(Do(run, WithProperties("EMP", choice)), "0");
      auto const& table = run.TableItem("EMP");
      auto const reference = [&](MOXId property, char const* type) {
        auto const& storage = Referred(run, table, property);
        EXPECT_EQ(TextProperty(storage, ORVTypes::pType), type);
        return "=->" + std::to_string(storage.Id()) + " ";
      };
      std::string expected = "pCompressType=919 ";
      if (choice > 0)
        expected +=
            "pIncludingColumn=->" + std::to_string(run.ColumnItem("EMP", "NAME").Id()) +
            (choice == 3 || choice == 4 ? " pIndexOverflow=true " : " pIndexOverflow=false ");
      expected += "pName='EMP' ";
      if (choice == 1) expected += "pOracleCache=false pOracleEnableRowMovement=false ";
      if (choice == 2) expected += "pOracleCache=true pOracleEnableRowMovement=true ";
      if (choice > 0)
        expected +=
            "pOracleOverflowStorageRef" + reference(ORVTypes::pOracleOverflowStorageRef, "3");
      expected += "pOracleRegularStorageRef" + reference(ORVTypes::pOracleRegularStorageRef, "0");
      EXPECT_EQ(Properties(table), expected + "pUseParallel=905");
      auto const lost = Alter("EMP");
      lost->GetAlterTableProps()->SetIOT(REPIOT_e::Coalesce);
      lost->GetAlterTableProps()->SetIOTIncludingCol("NONE");
      EXPECT_EQ(Do(run, lost), "4 REP-5 IOT Including Column - NONE not found in Table - EMP. ");
    });
  }
}

TEST(AlterTable, NothingIsDoneWithoutARunOrATable) {
  Job job;
  RunningJob idle(job.processor, job.window);
  EXPECT_EQ(Do(idle, "HR.EMP", "ADD A"),
            "4 REP-10 Alter Table - HR.EMP Failed.  Unable to locate HR.EMP in the model.");
  EXPECT_EQ(Alter("EMP")->Process(nullptr), REPProcessError);
  EXPECT_EQ(REPAlterTableProps().Process(&idle.p, nullptr, nullptr), REPProcessError);
  EXPECT_EQ(REPAlterColumnClauses().Process(&idle.p, nullptr, nullptr), REPProcessError);
  REPAddColumnClauseList list;
  list.AddTail(nullptr);
  EXPECT_THROW(list.GetClause(0), std::invalid_argument);
}

TEST(AlterTable, TextOfColumnClauses) {
  std::pair<char const*, char const*> const texts[] = {
      {"ADD A #5 =1 CHK:C", "ADD A VARCHAR2(5) DEFAULT 1 CONSTRAINT C CHECK (A IS NOT NULL)"},
      {"ADD \"B\"; ADD A NN UQ", "ADD (B, A NOT NULL, UNIQUE)"},
      {"ADD UQ:U(A,B)", "ADD CONSTRAINT U UNIQUE (A, B)"},
      {"ADD CHK()", "ADD CHECK ()"},
      {"MODIFY A #5 =1 NN", "MODIFY A VARCHAR2(5) DEFAULT 1 NOT NULL"},
      {"MODIFY A =1; MODIFY B NULL", "MODIFY(A DEFAULT 1, B NULL)"},
      {"RENAME A B; MODIFY C =2; ADD D", "ADD D MODIFY C DEFAULT 2 RENAME COLUMN A TO B"},
  };
  for (auto const& [clauses, text] : texts)
    EXPECT_EQ(Alter("T", clauses)->AsString(), std::string("ALTER TABLE T ") + text + ";");
  auto const sorted = Alter("T", "ADD A #5 =1");
  sorted->GetAlterColumnClauses()->GetAddColumnClauseList()->GetClause(0)->SetSort(true);
  EXPECT_EQ(sorted->AsString(), "ALTER TABLE T ADD A VARCHAR2(5) SORT DEFAULT 1;");

  std::string const substitutable[] = {"A DEFAULT 1", "COLUMN A SUBSTITUTABLE AT ALL LEVELS",
                                       "COLUMN A NOT SUBSTITUTABLE AT ALL LEVELS",
                                       "COLUMN A SUBSTITUTABLE AT ALL LEVELS FORCE",
                                       "COLUMN A NOT SUBSTITUTABLE AT ALL LEVELS FORCE"};
  std::string const drops[] = {"", "DROP (A, B)", "SET UNUSED (A, B)", "DROP UNUSED COLUMNS",
                               "DROP COLUMNS CONTINUE"};
  for (int i = 0; i <= 4; ++i) {
    auto const alter = Alter("T", "MODIFY A =1; DROP");
    auto const& columns = *alter->GetAlterColumnClauses();
    columns.GetModifyColumnClauseList()->GetClause(0)->SetSubstitutable(REPSubstitutable_e(i));
    auto& drop = *columns.GetDropColumnClauseList()->GetClause(0);
    drop.SetDrop(REPDrop_e(i));
    drop.SetColumns(Names("A, B"));
    EXPECT_EQ(alter->AsString(),
              "ALTER TABLE T MODIFY " + substitutable[i] + (i > 0 ? " " + drops[i] : "") + ";");
    drop.SetCascade(true);
    drop.SetInvalidate(true);
    drop.SetCheckpoint("250");
    EXPECT_EQ(drop.AsString(), drops[i] + " CASCADE CONSTRAINTS INVALIDATE CHECKPOINT 250");
  }
}

TEST(AlterTable, TextOfProperties) {
  std::string const extents = "ALLOCATE EXTENT DEALLOCATE UNUSED";
  std::string const choices[][2] = {
      {"", ""},
      {" SHRINK SPACE NOCACHE UPGRADE MINIMIZE RECORDS_PER_BLOCK NOPARALLEL DISABLE ROW MOVEMENT",
       "COALESCE INCLUDING name PCTFREE 20"},
      {" SHRINK SPACE COMPACT CACHE UPGRADE INCLUDING DATA NOMINIMIZE RECORDS_PER_BLOCK NOPARALLEL "
       "ENABLE ROW MOVEMENT",
       "INCLUDING name PCTFREE 20"},
      {" SHRINK SPACE CASCADE CACHE READS UPGRADE NOT INCLUDING DATA NOPARALLEL",
       "COALESCE INCLUDING name OVERFLOW PCTFREE 20"},
      {" SHRINK SPACE COMPACT CASCADE NOPARALLEL", "INCLUDING name PCTFREE 20"},
      {" NOPARALLEL", "INCLUDING name PCTFREE 20 MAPPING TABLE"}};
  for (int choice = 1; choice <= 5; ++choice) {
    auto const alter = WithProperties("T", choice);
    alter->GetAlterTableProps()->SetNewTableName(new REPName("HR.N"));
    auto const& [options, organization] = choices[choice];
    EXPECT_EQ(alter->AsString(), "ALTER TABLE T COMPRESS " + extents + options +
                                     " RENAME TO HR.N PCTFREE 10 " + organization + " " + extents +
                                     ";");
  }
}

TEST(AlterTable, TextOfConstraintClauses) {
  EXPECT_EQ(REPAlterTable().AsString(), "ALTER TABLE ;");
  auto const alter = Alter("HR.T", "CONSTRAINT K N");
  alter->SetOutOfLineConstraint(OutOfLine("PK:P(A, B)"));
  alter->SetOutOfLineRefConstraint(New<REPOutOfLineRefConstraint>(
      [](auto& constraint) { constraint.SetRefColumn(new REPName("R")); }));
  alter->SetConstraintState(New<State>([](auto& s) { s.SetRely(REPRely_e::NoRely); }));
  alter->SetConstraintColumnList(Names("A, B"));
  alter->SetCascade(true);
  alter->SetEnableDisableClauseList(new REPEnableDisableClauseList);
  alter->GetEnableDisableClauseList()->AddTail(New<REPEnableDisableClause>([](auto& enable) {
    enable.SetEnable(REPEnable_e::Enable);
    enable.SetType(REPInlineConstr_e::PrimaryKey);
  }));
  std::string const modified[] = {"", " MODIFY CONSTRAINT K NORELY", " MODIFY PRIMARY KEY NORELY",
                                  " MODIFY UNIQUE (A, B) NORELY", ""};
  std::string const dropped[] = {"", " DROP PRIMARY KEY CASCADE KEEP INDEX",
                                 " DROP UNIQUE (A, B) CASCADE DROP INDEX",
                                 " DROP CONSTRAINT K CASCADE", ""};
  for (int i = 0; i <= 4; ++i) {
    alter->SetModifyConstraint(REPModifyConstr_e(i));
    alter->SetDropConstraint(REPDropConstr_e(i));
    alter->SetKeepDrop(REPKeepDrop_e(i));
    EXPECT_EQ(alter->AsString(),
              "ALTER TABLE HR.T ADD CONSTRAINT P PRIMARY KEY (A, B) ADD REF (R) WITH ROWID RENAME "
              "CONSTRAINT K TO N" +
                  modified[i] + dropped[i] + " ENABLE PRIMARY KEY;");
  }
}

}  // namespace
