// What no script reaches of stored code and triggers.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "reader/script_reader.h"
#include "repora/code/indextypes.h"
#include "repora/code/stored_code.h"
#include "repora/code/triggers.h"
#include "repora/code/unsupported.h"
#include "repora/core/operator.h"
#include "tests/run_fixture.h"

namespace {

using repora::test::Job;
using repora::test::Properties;
using repora::test::TextProperty;

// Runs the action inside a run on a new model.
void InRun(std::function<void(REPProcessor&)> const& action) {
  bool called = false;
  Job job;
  EXPECT_TRUE(job.Run([&](REPProcessor& running) { action(running), called = true; }) && called);
}

MOXActionSummaryItem* Find(REPProcessor& processor, std::uint32_t owner, MOXId type,
                           char const* name) {
  REPName const key(name);
  return processor.FindItemPtr(owner, type, &key);
}

TEST(StoredCode, WithoutText) {
  REPCreateProcedure procedure;
  EXPECT_EQ(procedure.AsString(), "CREATE PROCEDURE  ;");
  procedure.SetProcedureName(new REPName("HR.P"));
  REPCreatePackage package;
  package.SetPackageName(new REPName("PK"));
  package.SetAuthID(REPAuthID_e::Definer);
  package.SetPackageIsAs(REPPackageIsAs_e::As);
  REPCreatePackageBody body;
  body.SetPackageName(new REPName("PK"));
  body.SetPackageIsAs(static_cast<REPPackageIsAs_e>(3));
  body.SetPackageSpec(" text");
  InRun([&](REPProcessor& processor) {
    auto const root = processor.GetRoot();
    EXPECT_EQ(procedure.Process(&processor), REPProcessOK);
    EXPECT_EQ(Properties(*Find(processor, root, ORVTypes::oStoredProcedure, "HR.P")),
              "pDBOwner='HR' pName='P' pType=0");
    EXPECT_EQ(package.Process(&processor), REPProcessOK);
    EXPECT_EQ(body.Process(&processor), REPProcessOK);
    EXPECT_EQ(Properties(*Find(processor, root, ORVTypes::oOraclePackage, "PK")),
              "pName='PK' pTemplateCode='CREATE PACKAGE BODY PK text' "
              "pTemplateSpec='CREATE PACKAGE PK AUTHID DEFINER'");
    EXPECT_EQ(package.Process(&processor), REPProcessDuplicate);
  });
  EXPECT_EQ(package.AsString(), "CREATE PACKAGE PK AUTHID DEFINER;");
  EXPECT_EQ(body.AsString(), "CREATE PACKAGE BODY PK text;");
}

// Code is not looked into, but no text of the object model holds a NUL.
TEST(StoredCode, KeepsStrayBytesButNoNul) {
  for (auto const& byte : {std::string(1, '\x01'), std::string(1, '\0')}) {
    repora::reader::ReadOptions options;
    repora::reader::ReadResult result;
    auto const text = "CREATE PROCEDURE P IS BEGIN x := a ? " + byte + "; END;";
    repora::reader::ReadScript("x.sql", text + "\n/\nCREATE SEQUENCE S;", options, result);
    bool const kept = byte[0] != '\0';
    ASSERT_EQ(result.statements.size(), kept ? 2U : 1U);
    EXPECT_EQ(result.diagnostics.size(), kept ? 0U : 1U);
    EXPECT_EQ(result.statements[0].object->AsString(), kept ? text : "CREATE SEQUENCE S;");
  }
}

TEST(StoredCode, CompileParametersAreSeparatedByOneBlank) {
  REPCompileParams parameters;
  EXPECT_EQ(parameters.AsString(), "");
  parameters.SetWarnings("'ENABLE:ALL'");
  auto const copy = parameters;
  parameters.SetOptLevel("2");
  EXPECT_EQ(parameters.AsString(), "PLSQL_OPTIMIZE_LEVEL = 2 PLSQL_WARNINGS = 'ENABLE:ALL'");
  EXPECT_EQ(copy.AsString(), "PLSQL_WARNINGS = 'ENABLE:ALL'");
  REPAlterPackage package;
  package.SetCompile(static_cast<REPCompile_e>(4));
  package.SetCompileParams(new REPCompileParams);
  EXPECT_EQ(package.AsString(), "ALTER PACKAGE  COMPILE;");
}

TEST(StoredCode, NullArgumentsAreErrors) {
  EXPECT_EQ(REPCreateProcedure().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateFunction().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreatePackage().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreatePackageBody().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateLibrary().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateIndextype().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPAlterFunction().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPAlterTrigger().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateTrigger().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPCreateType().Process(nullptr), REPProcessUnsupported);
  // No ON object.
  InRun([](REPProcessor& processor) {
    REPCreateTrigger trigger;
    trigger.SetTriggerName(new REPName("T"));
    EXPECT_EQ(trigger.Process(&processor), REPProcessError);
  });
}

TEST(Indextypes, RenderWhatIsThere) {
  REPCreateIndextype indextype;
  EXPECT_EQ(indextype.AsString(), "CREATE INDEXTYPE  FOR USING ;");
  indextype.GetOperators().AddTail(new REPIndextypeOper);
  indextype.GetDML().AddTail(new REPIndextypeDML);
  indextype.SetDML(4);
  EXPECT_EQ(indextype.AsString(), "CREATE INDEXTYPE  FOR () USING ();");
}

TEST(Triggers, ListsAreFilledFromTheirLastElement) {
  REPCreateTrigger trigger;
  EXPECT_EQ(trigger.AsString(), "CREATE TRIGGER  ON ;\r\n\r\n\r\n");
  trigger.AddDMLEvent(repora::kDMLUpdate);
  trigger.AddDMLEvent(repora::kDMLDelete);
  trigger.AddUpdateColumn(new REPName("B"));
  trigger.AddUpdateColumn(new REPName("A"));
  trigger.AddOtherEvent("LOGON");
  trigger.AddOtherEvent("Grant");
  trigger.AddDDLEvent(2);
  trigger.AddDDLEvent(1);
  trigger.AddDatabaseEvent(2);
  trigger.AddDatabaseEvent(1);
  trigger.SetTriggerFire(static_cast<REPTriggerFire_e>(4));
  EXPECT_EQ(trigger.AsString(),
            "CREATE TRIGGER  DELETE OR UPDATE OF (A, B) Grant OR LOGON ON ;\r\n\r\n\r\n");
  EXPECT_EQ(trigger.GetDDLEvents(), 3U);
  EXPECT_EQ(trigger.GetDatabaseEvent(), 1);
  EXPECT_STREQ(trigger.GetOtherEvent(0), "Grant");
}

TEST(Triggers, EveryEventHasItsBit) {
  char const* const ddl[] = {"Alter",
                             "analyze",
                             "associate statistics",
                             "AUDIT",
                             "comment",
                             "CREATE",
                             "disassociate STATISTICS",
                             "drop",
                             "grant",
                             "noaudit",
                             "rename",
                             "revoke",
                             "truncate",
                             "ddl"};
  char const* const database[] = {"servererror", "LOGON",    "Logoff",
                                  "startup",     "shutdown", "suspend"};
  InRun([&](REPProcessor& processor) {
    int number = 0;
    auto const check = [&](char const* event, std::string const& expected) {
      REPCreateTrigger trigger;
      auto const name = "T" + std::to_string(++number);
      trigger.SetTriggerName(new REPName(name.c_str()));
      trigger.SetOnName(new REPName("Database"));
      trigger.AddOtherEvent(event);
      ASSERT_EQ(trigger.Process(&processor), REPProcessOK);
      auto const owner = processor.FindItemPtr(processor.GetRoot(), ORVTypes::oOracleDatabase);
      auto* const item = Find(processor, owner->Id(), ORVTypes::oTrigger, name.c_str());
      // A trigger without a time says that with an empty value.
      ASSERT_NE(item->Properties().Find(ORVTypes::pTriggerFire), nullptr);
      EXPECT_EQ(TextProperty(*item, ORVTypes::pTriggerFire), "");
      EXPECT_EQ(TextProperty(*item, ORVTypes::pDDLEvent) + " " +
                    TextProperty(*item, ORVTypes::pDatabaseEvent),
                expected)
          << event;
    };
    int bit = 1;
    for (auto const* const event : ddl) {
      check(event, std::to_string(bit) + " (absent)");
      bit *= 2;
    }
    bit = 1;
    for (auto const* const event : database) {
      check(event, "(absent) " + std::to_string(bit));
      bit *= 2;
    }
    check("db_role_change", "(absent) (absent)");
  });
}

// The model's own template of a trigger header, changed before the run.
std::string Header(char const* text) {
  Job job;
  auto const* const templates = job.model.GetTypeIndex()->ObjectsOfType(ORVTypes::oTriggerTemplate);
  job.model.SetProperty(templates->front(), ORVTypes::pTemplateCode, QELValue(text));
  return job.processor.GetTriggerTemplateSyntax(ORVTypes::oView);
}

TEST(Triggers, HeadersComeFromTheModel) {
  EXPECT_EQ(Header("A %TriggerWhen\r\n%TriggerBody %TriggerWhen\r\n"), "A %TriggerWhen\r\n");
  EXPECT_EQ(Header("A %TriggerWhen"), "A %TriggerWhen");
  EXPECT_EQ(Header("A %Body\r\n"), "A %Body\r\n");
  auto const standard = REPOracleProcessor().GetTriggerTemplateSyntax(ORVTypes::oEntity);
  EXPECT_TRUE(standard.ends_with(" %Scope\r\n %TriggerWhen\r\n"));
  EXPECT_EQ(Header(""), standard);
}

TEST(Operators, AreTextsByKind) {
  char const* const texts[] = {"",
                               "+",
                               "-",
                               "PRIOR",
                               "CONNECT_BY_ROOT",
                               "*",
                               "/",
                               "+",
                               "-",
                               "||",
                               "UNION",
                               "UNION ALL",
                               "INTERSECT",
                               "MINUS",
                               "MULTISET EXCEPT",
                               "MULTISET INTERSECT",
                               "MULTISET UNION",
                               "~=",
                               ""};
  int kind = 0;
  for (auto const* const text : texts)
    EXPECT_EQ(REPOperator(static_cast<REPOperType_e>(kind++), "~=").AsString(), text) << kind - 1;
  REPOperator user_defined(REPOperType_e::UserDefined, "x");
  auto const copy = user_defined;
  user_defined.SetUserDef(nullptr);
  EXPECT_EQ(user_defined.AsString(), "");
  EXPECT_EQ(copy.AsString(), "x");
  EXPECT_EQ(REPOperator(static_cast<REPOperType_e>(-1), "x").AsString(), "");
}

}  // namespace
