#include "repora/core/processor.h"

#include <atomic>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "repora/code/sequences.h"
#include "repora/model/codes.h"
#include "tests/run_fixture.h"

namespace repora::test {
namespace {

constexpr auto kEntity = ORVTypes::oEntity;

std::string Names(std::vector<MOXActionSummaryItem*> const& items) {
  std::string names;
  for (auto const* item : items) names += std::string(item->Name()) + " ";
  return names;
}

TEST(Processor, IsCreatedByName) {
  auto const processor = CreateByName<REPProcessor>("REPOracleProcessor");
  ASSERT_TRUE(processor);
  EXPECT_EQ(processor->GetRuntimeClass(), REPOracleProcessor::GetThisClass());
  EXPECT_TRUE(processor->GetRuntimeClass()->IsDerivedFrom(*REPProcessor::GetThisClass()));
  EXPECT_FALSE(CreateByName<REPProcessor>("NoSuchProcessor"));
  EXPECT_FALSE(CreateByName<REPProcessor>("REPStatement"));
}

TEST(Processor, WithoutModelSetKeepsItsStatements) {
  REPOracleProcessor processor;
  processor.AddStatement(nullptr);
  processor.AddStatement(new REPCreateSequence);
  EXPECT_FALSE(processor.Process());
  EXPECT_EQ(processor.GetCount(), 1);
  EXPECT_EQ(processor.GetModelType(), codes::kModelLogicalAndPhysical);
  MOXActionSummaryItem* item = nullptr;
  REPName const name("S");
  EXPECT_EQ(processor.AddItem(0, ORVTypes::oSequence, &name, item), REPProcessError);
  EXPECT_EQ(processor.FindCreateItem(0, ORVTypes::oSequence, &name), 0U);
}

TEST(Processor, ReportsEveryResultOnce) {
  Job job;
  auto const add = [&](REPProcess_e result, std::string text) {
    job.processor.AddStatement(
        new FunctionStatement([result](REPProcessor&) { return result; }, std::move(text)));
  };
  add(REPProcessOK, "FINE;");
  add(REPProcessDuplicate, "TWICE;");
  add(REPProcessUnused, "UNUSED;");
  add(REPProcessUnsupported, "CREATE JAVA;");
  add(REPProcessError, std::string(40000, 'x'));
  EXPECT_TRUE(job.processor.Process());
  EXPECT_EQ(job.processor.GetCount(), 0);
  std::vector<Notified> statement_part(job.window.all.begin(), job.window.all.begin() + 9);
  EXPECT_EQ(
      statement_part,
      (std::vector<Notified>{
          {eRENotifyBegin, 5, "", ""},
          {eRENotifyProgress, 1, "", ""},
          {eRENotifyProgress, 2, "", ""},
          {eRENotifyDuplicate, 0, "REP-1", "Duplicate Object Not Created - TWICE;"},
          {eRENotifyProgress, 3, "", ""},
          {eRENotifyProgress, 4, "", ""},
          {eRENotifyUnsupported, 0, "REP-2", "Unsupported Statement - CREATE JAVA;"},
          {eRENotifyProgress, 5, "", ""},
          {eRENotifySemantic, 0, "--------->", "Error in " + std::string(32000, 'x') + "."}}));
  for (auto const& notified :
       std::vector<Notified>(job.window.all.begin() + 9, job.window.all.end()))
    EXPECT_TRUE(notified.kind == eRENotifyBuildTotal || notified.kind == eRENotifyBuildPosition);
}

TEST(Processor, FillsTheRecordAndUsesOneForAll) {
  Job job;
  REPNotification const* record = nullptr;
  job.window.on_notify = [&](REPNotification const& notification) {
    EXPECT_TRUE(!record || record == &notification);
    record = &notification;
    EXPECT_EQ(notification.window, &job.window);
    EXPECT_EQ(notification.id + notification.code + notification.reserved, 0U);
    EXPECT_EQ(notification.code_text == nullptr, notification.message_text == nullptr);
  };
  job.Run([](REPProcessor& processor) {
    processor.DisplayWarning(REPMessage::AlterTargetMissing, "Table", std::string("EMP"));
    processor.DisplayWarning(44, "A", nullptr, "C", nullptr);
    processor.DisplaySemantic(3, "C1");
  });
  EXPECT_EQ(job.window.Of(eRENotifyWarning),
            (std::vector<Notified>{
                {eRENotifyWarning, 0, "REP-10",
                 "Alter Table - EMP Failed.  Unable to locate EMP in the model."},
                {eRENotifyWarning, 0, "REP-44",
                 "Duplciate Alias Name - A found for %2 - %3. %2 created with alias name not "
                 "substituted."}}));
  EXPECT_EQ(job.window.Of(eRENotifySemantic),
            (std::vector<Notified>{{eRENotifySemantic, 0, "REP-3", "Undefined Cluster C1"}}));
}

TEST(Processor, WithoutWindowPublishesMessagesOnly) {
  Job job;
  job.processor.SetNotifyWnd(nullptr);
  job.Run([](REPProcessor& processor) {
    processor.DisplayInformation(71, "EMP");
    processor.DisplayWarning(28, "PK");
  });
  std::vector<MOXAdvisory> advisories;
  job.model.GetAdvisoryChannel()->GetAdvisories(advisories);
  ASSERT_EQ(advisories.size(), 2U);
  EXPECT_EQ(advisories[0].Severity(), MOXAdvisory::eInformation);
  EXPECT_EQ(advisories[0].Message(),
            "Alter Table EMP.  Unable to find table in model.  Placeholder table created.");
  EXPECT_EQ(advisories[1].Severity(), MOXAdvisory::eWarning);
  EXPECT_EQ(advisories[1].Code(), "REP-28");
}

TEST(Processor, TellsAboutAdvisoriesOfTheBuild) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPName const name("LOST");
    processor.CreateItem(99999, kEntity, &name);  // an owner that does not exist
  });
  EXPECT_EQ(job.window.Of(eRENotifyAdvisories).size(), 1U);
}

TEST(Processor, LoadsWhatTheModelHolds) {
  Job job;
  auto const owner = job.processor.GetRoot() + 1;
  auto const sequence = job.model.AddObject(ORVTypes::oSequence, owner, "Emp_Seq");
  job.model.SetProperty(sequence, ORVTypes::pDBOwner, QELValue("Scott"));
  auto const link = job.model.AddObject(ORVTypes::oOracleDatabaseLink, owner, "REMOTE.WORLD");
  std::uint32_t first_new = 0;
  job.Run([&](REPProcessor& processor) {
    REPName const qualified("SCOTT.EMP_SEQ");
    auto const* const item = processor.FindItemPtr(owner, ORVTypes::oSequence, &qualified);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->Id(), sequence);
    EXPECT_TRUE(item->Properties().empty());
    REPName const remote("remote.world");
    EXPECT_EQ(processor.FindItem(owner, ORVTypes::oOracleDatabaseLink, &remote), link);
    REPName const unqualified("EMP_SEQ");
    EXPECT_EQ(processor.FindItem(owner, ORVTypes::oSequence, &unqualified), 0U);
    first_new = processor.CreateItem(owner, kEntity, nullptr)->Id();
  });
  EXPECT_GT(first_new, link);
}

TEST(Processor, SecondRunMeetsWhatTheFirstBuilt) {
  Job job;
  auto const add_sequence = [&] {
    auto sequence = std::make_unique<REPCreateSequence>();
    sequence->SetSchemaName(new REPName("SCOTT.S1"));
    sequence->SetIncrementBy("5");
    job.processor.AddStatement(sequence.release());
  };
  add_sequence();
  ASSERT_TRUE(job.processor.Process());
  auto const count = job.model.ObjectCount();
  REPOracleProcessor second;
  second.SetModelSet(&job.model);
  second.SetNotifyWnd(&job.window);
  auto alter = std::make_unique<REPAlterSequence>();
  alter->SetSchemaName(new REPName("scott.s1"));
  alter->SetIncrementBy("7");
  second.AddStatement(alter.release());
  auto again = std::make_unique<REPCreateSequence>();
  again->SetSchemaName(new REPName("SCOTT.S1"));
  second.AddStatement(again.release());
  job.window.all.clear();
  ASSERT_TRUE(second.Process());
  EXPECT_EQ(job.window.Of(eRENotifyDuplicate).size(), 1U);
  EXPECT_EQ(job.model.ObjectCount(), count);
  auto const* const ids = job.model.GetTypeIndex()->ObjectsOfType(ORVTypes::oSequence);
  ASSERT_TRUE(ids && ids->size() == 1);
  EXPECT_EQ(job.model.PropertiesOf(ids->front())->Find(ORVTypes::pIncrement)->String(), "7");
}

TEST(Processor, StopBeforeTheRunLeavesTheModelAlone) {
  Job job;
  auto const before = job.model.DumpText();
  bool ran = false;
  job.Add([&](REPProcessor&) {
    ran = true;
    return REPProcessOK;
  });
  job.processor.Stop();
  EXPECT_FALSE(job.processor.Process());
  EXPECT_FALSE(ran);
  EXPECT_EQ(job.processor.GetCount(), 0);
  EXPECT_EQ(job.model.DumpText(), before);
  EXPECT_EQ(job.window.all.size(), 1U);  // the begin alone
}

// Hands out statements with the results given, and counts how many were asked for.
class CountingSource final : public REPStatementSource {
 public:
  explicit CountingSource(std::vector<REPProcess_e> results) : results_(std::move(results)) {}
  REPStatement* Next() override {
    alive_at_calls.push_back(*alive_);
    if (asked++ == results_.size()) return nullptr;
    auto const token = std::make_shared<int>(0);
    ++*alive_;
    std::shared_ptr<int> const alive(token.get(), [count = alive_, token](int*) { --*count; });
    return new FunctionStatement(
        [this, alive, result = results_[asked - 1]](REPProcessor&) {
          if (on_run) on_run();
          return result;
        },
        "S" + std::to_string(asked) + ";");
  }

  std::size_t asked = 0;
  std::vector<int> alive_at_calls;  // its statements that had not been deleted at each call
  std::function<void()> on_run;

 private:
  std::vector<REPProcess_e> results_;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

TEST(Processor, RunsTheStatementsOfASourceBehindThoseAdded) {
  Job job;
  CountingSource source({REPProcessOK, REPProcessDuplicate, REPProcessOK});
  job.processor.SetStatementSource(&source);
  job.Add([&](REPProcessor&) {
    EXPECT_EQ(source.asked, 0U);
    return REPProcessOK;
  });
  EXPECT_EQ(job.processor.GetCount(), 1);
  EXPECT_TRUE(job.processor.Process());
  EXPECT_EQ(source.alive_at_calls, (std::vector<int>{0, 0, 0, 0}));
  ASSERT_GE(job.window.all.size(), 6U);
  EXPECT_EQ(
      std::vector<Notified>(job.window.all.begin(), job.window.all.begin() + 6),
      (std::vector<Notified>{{eRENotifyBegin, 1, "", ""},
                             {eRENotifyProgress, 1, "", ""},
                             {eRENotifyProgress, 2, "", ""},
                             {eRENotifyProgress, 3, "", ""},
                             {eRENotifyDuplicate, 0, "REP-1", "Duplicate Object Not Created - S2;"},
                             {eRENotifyProgress, 4, "", ""}}));
  EXPECT_TRUE(job.processor.Process());  // a run of its own, which the source is not asked for
  EXPECT_EQ(source.asked, 4U);
}

TEST(Processor, AStoppedRunLeavesTheSourceAlone) {
  Job job;
  auto const before = job.model.DumpText();
  CountingSource source({REPProcessOK, REPProcessOK, REPProcessOK, REPProcessOK});
  source.on_run = [&] {
    if (source.asked == 2) job.processor.Stop();
  };
  job.processor.SetStatementSource(&source);
  EXPECT_FALSE(job.processor.Process());
  EXPECT_EQ(source.asked, 3U);
  EXPECT_EQ(job.window.Of(eRENotifyProgress).size(), 2U);
  EXPECT_EQ(job.model.DumpText(), before);
}

// The statements of a paused run wait; a stop takes effect when the pause is over.
TEST(ProcessorThread, PauseHoldsAndStopEndsTheRun) {
  Job job;
  std::atomic<int> done = 0;
  std::atomic<bool> paused = false;
  for (int i = 0; i < 3; ++i)
    job.Add([&, i](REPProcessor& processor) {
      ++done;
      if (i == 0) {
        processor.Pause();
        paused = true;
      }
      return REPProcessOK;
    });
  bool result = true;
  std::thread worker([&] { result = job.processor.Process(); });
  while (!paused) std::this_thread::yield();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(done, 1);
  job.processor.Stop();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(done, 1);
  job.processor.Resume();
  worker.join();
  EXPECT_EQ(done, 1);
  EXPECT_FALSE(result);
}

TEST(ProcessorThread, ResumeGoesOn) {
  Job job;
  std::atomic<int> done = 0;
  job.processor.Pause();
  for (int i = 0; i < 50; ++i)
    job.Add([&](REPProcessor&) {
      ++done;
      return REPProcessOK;
    });
  bool result = false;
  std::thread worker([&] { result = job.processor.Process(); });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(done, 0);
  job.processor.Resume();
  worker.join();
  EXPECT_EQ(done, 50);
  EXPECT_TRUE(result);
}

TEST(Processor, WritesTheSummaryFileEvenWhenStopped) {
  auto const path = testing::TempDir() + "repora_summary.txt";
  Job job;
  job.processor.SetSummaryFilename(path.c_str());
  job.Run([](REPProcessor& processor) {
    REPName const name("S1");
    processor.CreateItem(processor.GetRoot(), ORVTypes::oSequence, &name);
    processor.Stop();
  });
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_NE(text.str().find("oSequence"), std::string::npos);
  std::remove(path.c_str());
  Job unwritable;
  unwritable.processor.SetSummaryFilename("/no/such/folder/summary.txt");
  EXPECT_TRUE(unwritable.processor.Process());
}

TEST(Items, DuplicatesPlaceholdersAndRenames) {
  Job job;
  job.Run([](REPProcessor& processor) {
    auto const root = processor.GetRoot();
    REPName const emp("Scott.Emp");
    REPName const emp_quoted("\"SCOTT\".\"emp\"");
    MOXActionSummaryItem* first = nullptr;
    MOXActionSummaryItem* second = nullptr;
    ASSERT_EQ(processor.AddItem(root, kEntity, &emp, first), REPProcessOK);
    EXPECT_EQ(processor.AddItem(root, kEntity, &emp_quoted, second), REPProcessDuplicate);
    EXPECT_EQ(second, first);
    EXPECT_EQ(processor.CreateItem(root, kEntity, nullptr)->Id(), first->Id() + 1);

    // A name that is used before its statement comes is adopted by the statement.
    REPName const cluster("SCOTT.C1");
    auto const id = processor.FindCreateItem(root, ORVTypes::oOracleCluster, &cluster);
    auto* const placeholder = processor.FindSummaryPtrById(id);
    EXPECT_EQ(TextProperty(*placeholder, ORVTypes::pDoNotGenerate), "true");
    EXPECT_EQ(TextProperty(*placeholder, ORVTypes::pDBOwner), "SCOTT");
    EXPECT_EQ(processor.FindCreateItem(root, ORVTypes::oOracleCluster, &cluster), id);
    EXPECT_EQ(processor.FindItem(root, ORVTypes::oOracleCluster, &cluster), 0U);
    REPName const tablespace("DATA.USERS");
    auto* const space = processor.FindSummaryPtrById(
        processor.FindCreateItem(root, ORVTypes::oOracleTablespace, &tablespace));
    EXPECT_EQ(TextProperty(*space, ORVTypes::pDBOwner), "(absent)");
    MOXActionSummaryItem* adopted = nullptr;
    ASSERT_EQ(processor.AddItem(root, ORVTypes::oOracleCluster, &cluster, adopted), REPProcessOK);
    EXPECT_EQ(adopted, placeholder);
    EXPECT_EQ(TextProperty(*adopted, ORVTypes::pDoNotGenerate), "(absent)");
    EXPECT_EQ(processor.FindItem(root, ORVTypes::oOracleCluster, &cluster), id);

    REPName const dept("SCOTT.DEPT");
    REPName const staff("STAFF");
    ASSERT_EQ(processor.AddItem(root, kEntity, &dept, second), REPProcessOK);
    EXPECT_EQ(processor.RenameItem(first, &dept), REPProcessDuplicate);
    EXPECT_STREQ(first->Name(), "Emp");
    EXPECT_EQ(processor.RenameItem(first, &staff), REPProcessOK);
    EXPECT_STREQ(first->Name(), "STAFF");
    EXPECT_EQ(processor.FindItemPtr(root, kEntity, &staff), first);
    EXPECT_EQ(processor.FindItemPtr(root, kEntity, &emp), nullptr);
    EXPECT_EQ(processor.RenameItem(processor.CreateItem(root, kEntity, &emp), &emp),
              REPProcessError);

    // Re-keying leaves the names alone, in the registry and among the placeholders.
    REPName const link("OLD_LINK");
    REPName const new_link("NEW_LINK");
    REPName const other("OTHER");
    EXPECT_EQ(processor.ReplaceItem(root, kEntity, &staff, &dept), REPProcessDuplicate);
    EXPECT_EQ(processor.ReplaceItem(root, kEntity, &staff, &emp), REPProcessOK);
    EXPECT_EQ(processor.FindItemPtr(root, kEntity, &emp), first);
    EXPECT_STREQ(first->Name(), "STAFF");
    auto const link_id = processor.FindCreateItem(root, ORVTypes::oOracleDatabaseLink, &link);
    EXPECT_EQ(processor.ReplaceItem(root, ORVTypes::oOracleDatabaseLink, &link, &new_link),
              REPProcessOK);
    EXPECT_EQ(processor.FindCreateItem(root, ORVTypes::oOracleDatabaseLink, &new_link), link_id);
    EXPECT_EQ(processor.ReplaceItem(root, ORVTypes::oOracleDatabaseLink, &link, &other),
              REPProcessOK);
    auto* const made = processor.FindSummaryPtrById(
        processor.FindCreateItem(root, ORVTypes::oOracleDatabaseLink, &other));
    EXPECT_EQ(TextProperty(*made, ORVTypes::pDoNotGenerate), "true");
  });
}

TEST(Items, AreFoundByOwnerTypeAndName) {
  Job job;
  job.Run([](REPProcessor& processor) {
    auto const root = processor.GetRoot();
    auto const add = [&](std::uint32_t owner, MOXId type, char const* text) {
      REPName const name(text);
      MOXActionSummaryItem* item = nullptr;
      EXPECT_EQ(processor.AddItem(owner, type, &name, item), REPProcessOK);
      return item;
    };
    auto* const table = add(root, kEntity, "T");
    auto* const view = add(root, ORVTypes::oView, "V");
    auto* const column = add(table->Id(), ORVTypes::oAttribute, "X");
    auto* const sequence = add(root, ORVTypes::oSequence, "X");
    auto* const trigger = add(view->Id(), ORVTypes::oTrigger, "TRG");
    REPName const x("x");
    REPName const trg("trg");
    EXPECT_EQ(processor.FindItemPtrByTypeName(ORVTypes::oAttribute, &x), column);
    EXPECT_EQ(processor.FindItemPtrByTypeName(ORVTypes::oAttribute, nullptr), nullptr);
    EXPECT_EQ(processor.FindSynonymDuplicatePtr(&x), sequence);
    EXPECT_EQ(processor.FindTrigger(&trg), trigger);
    auto* const on_table = add(table->Id(), ORVTypes::oTrigger, "TRG");
    EXPECT_EQ(processor.FindTrigger(&trg), on_table);  // tables come before views
    REPName const alias("ALIAS");
    EXPECT_EQ(processor.AddSynonym(root, kEntity, &alias, table), REPProcessOK);
    std::vector<MOXActionSummaryItem*> children;
    processor.FindChildrenByType(root, kEntity, children);
    EXPECT_EQ(children, (std::vector<MOXActionSummaryItem*>{table, table}));
    EXPECT_EQ(processor.FindItemPtr(root, kEntity), table);
    add(table->Id(), ORVTypes::oAttribute, "A");
    add(table->Id(), ORVTypes::oAttribute, "B");
    children.clear();
    processor.FindSummaryChildrenByType(table->Id(), ORVTypes::oAttribute, children);
    EXPECT_EQ(Names(children), "X A B ");
    EXPECT_EQ(processor.FindSummaryItemPtr(table->Id(), ORVTypes::oAttribute), column);
    EXPECT_EQ(processor.FindSummaryItemPtr(column->Id(), ORVTypes::oAttribute), nullptr);
    add(table->Id(), ORVTypes::oAttribute, "LATER");
    children.clear();
    processor.FindSummaryChildrenByType(table->Id(), ORVTypes::oAttribute, children);
    EXPECT_EQ(Names(children), "X A B LATER ");

    // A trigger of the database, and one of a table that no statement has made yet.
    auto* const database = add(root, ORVTypes::oOracleDatabase, "DB");
    auto* const logon = add(database->Id(), ORVTypes::oTrigger, "LOGON_TRG");
    REPName const unknown("UNKNOWN");
    auto* const early =
        add(processor.FindCreateItem(root, kEntity, &unknown), ORVTypes::oTrigger, "EARLY_TRG");
    REPName const logon_name("LOGON_TRG");
    REPName const early_name("EARLY_TRG");
    EXPECT_EQ(processor.FindTrigger(&logon_name), logon);
    EXPECT_EQ(processor.FindTrigger(&early_name), early);
  });
}

struct NamingCase {
  eREPLogical logical;
  eREPPhysical physical;
  int model_type;
  MOXId type;
  char const* written;
  char const* name;
  char const* physical_name;
};

class Naming : public testing::TestWithParam<NamingCase> {};

TEST_P(Naming, FollowsTheCaseRules) {
  auto const& expected = GetParam();
  Job job;
  job.model.SetProperty(1, ORVTypes::pType, QELValue::FromInteger(expected.model_type));
  job.processor.SetLogicalCase(expected.logical);
  job.processor.SetPhysicalCase(expected.physical);
  job.Run([&](REPProcessor& processor) {
    REPName const view_name("V");
    auto owner = processor.GetRoot();
    if (expected.type == ORVTypes::oAttribute)
      owner = processor.CreateItem(owner, ORVTypes::oView, &view_name)->Id();
    REPName const name(expected.written);
    auto const* const item = processor.CreateItem(owner, expected.type, &name);
    EXPECT_STREQ(item->Name(), expected.name);
    EXPECT_EQ(TextProperty(*item, MOXTypes::pName), expected.name);
    EXPECT_EQ(TextProperty(*item, ORVTypes::pPhysicalName), expected.physical_name);
  });
}

constexpr int kBoth = codes::kModelLogicalAndPhysical;
INSTANTIATE_TEST_SUITE_P(
    Rules, Naming,
    testing::Values(
        NamingCase{eREPLogicalMixed, eREPPhysicalUpper, kBoth, kEntity, "S.Order_Item",
                   "Order Item", "ORDER_ITEM"},
        NamingCase{eREPLogicalMixed, eREPPhysicalUpper, kBoth, kEntity, "\"Order_Item\"",
                   "Order_Item", "Order_Item"},
        NamingCase{eREPLogicalAsIs, eREPPhysicalAsIs, kBoth, kEntity, "Emp", "Emp", "(absent)"},
        NamingCase{eREPLogicalLower, eREPPhysicalAsIs, kBoth, kEntity, "Emp", "emp", "Emp"},
        NamingCase{eREPLogicalUpper, eREPPhysicalLower, kBoth, kEntity, "Emp", "EMP", "emp"},
        NamingCase{eREPLogicalMixed, eREPPhysicalUpper, codes::kModelPhysical, kEntity,
                   "Order_Item", "ORDER_ITEM", "(absent)"},
        NamingCase{eREPLogicalMixed, eREPPhysicalLower, kBoth, ORVTypes::oAttribute, "ORDER_ITEM",
                   "order_item", "(absent)"},  // a view column
        NamingCase{eREPLogicalMixed, eREPPhysicalLower, kBoth, ORVTypes::oOracleTablespace,
                   "A.USERS_TS", "a.users_ts", "(absent)"}));  // physical only, whole name

TEST(Naming, OfTypesAndDomains) {
  Job job;
  job.Run([&](REPProcessor& processor) {
    EXPECT_EQ(processor.GetObjectDisplayString(kEntity), "Table");
    EXPECT_EQ(processor.GetObjectDisplayString(4711), "4711");
    auto const domain = processor.IdentifyParentDomain("VARCHAR2(30)");
    ASSERT_NE(domain, 0U);
    EXPECT_EQ(processor.IdentifyParentDomain("VARCHAR2"), domain);
    EXPECT_NE(processor.IdentifyParentDomain("NUMBER(8,2)"), domain);
    EXPECT_EQ(processor.IdentifyParentDomain("NO_SUCH_TYPE"), 0U);
    EXPECT_EQ(processor.IdentifyParentDomain(nullptr), 0U);
    REPName const name("emp_x");
    auto* const item = processor.CreateItem(processor.GetRoot(), kEntity, nullptr);
    processor.SetPhysicalNameProp(item, &name);
    EXPECT_EQ(TextProperty(*item, ORVTypes::pPhysicalName), "emp_x");
    processor.SetPropOnActionItem(item, MOXProperty(ORVTypes::pComment, QELValue("c"), false),
                                  true);
    EXPECT_EQ(TextProperty(*item, ORVTypes::pComment), "c");
    processor.SetNameProp(nullptr, &name);
    processor.SetNameProp(item, nullptr);
    EXPECT_STREQ(item->Name(), "");
  });
}

TEST(CrossReferences, TableIndexes) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPName const emp("Scott.Emp"), staff("STAFF"), a("A"), b("b"), c("C");
    processor.AddMemberToTableIndexes(&emp, 20, REPIndexOtherKey, &a);
    processor.AddMemberToTableIndexes(&emp, 20, REPIndexPrimaryKey, &b);  // the type stays
    processor.AddMemberToTableIndexes(&emp, 10, REPIndexPrimaryKey, &c);
    REPName const lower("scott.emp");
    EXPECT_EQ(processor.FindPKInTableIndexes(&lower, 0), 10U);
    EXPECT_EQ(processor.FindPKInTableIndexes(&lower, 2), 0U);
    auto const match = [&](std::vector<char const*> const& names) {
      REPNameList list;
      for (auto const* name : names) list.AddTail(new REPName(name));
      return processor.FindMatchInTableIndexes(&emp, &list);
    };
    EXPECT_EQ(match({"B", "a"}), 20U);
    EXPECT_EQ(match({"a"}), 0U);
    EXPECT_EQ(match({"c"}), 10U);
    EXPECT_EQ(match({}), 0U);

    std::vector<std::uint32_t> attributes;
    EXPECT_EQ(processor.GetMemberAttributesForIndex(&emp, 30, attributes), REPProcessError);
    EXPECT_EQ(processor.GetMemberAttributesForIndex(&emp, 10, attributes), REPProcessError);
    MOXActionSummaryItem* member = nullptr;
    processor.AddItem(10, ORVTypes::oKeyGroupMember, &c, member);
    member->SetProperty(ORVTypes::pAttributeRef, QELValue(QELShortId(77)));
    EXPECT_EQ(processor.GetMemberAttributesForIndex(&emp, 10, attributes), REPProcessOK);
    EXPECT_EQ(attributes, std::vector<std::uint32_t>{77});

    REPName const renamed("NEW_C");
    EXPECT_EQ(processor.RenameMemberAttributesForTable(&staff, &c, &renamed), REPProcessError);
    EXPECT_EQ(processor.RenameMemberAttributesForTable(&emp, &c, &renamed), REPProcessOK);
    EXPECT_STREQ(member->Name(), "NEW_C");
    EXPECT_EQ(match({"c"}), 10U);  // the map keeps the old text
    EXPECT_EQ(processor.RenameMemberAttributesForTable(&emp, &a, &renamed), REPProcessError);

    processor.AddMemberToTableIndexes(&staff, 40, REPIndexOtherKey, &a);
    EXPECT_EQ(processor.RenameEntityInTableIndexes(&emp, &staff), REPProcessError);
    EXPECT_EQ(processor.FindPKInTableIndexes(&emp, 1), 10U);
    REPName const crew("CREW"), nobody("NOBODY"), nothing("NOTHING");
    EXPECT_EQ(processor.RenameEntityInTableIndexes(&emp, &crew), REPProcessOK);
    EXPECT_EQ(processor.FindPKInTableIndexes(&crew, 1), 10U);
    EXPECT_EQ(processor.RenameEntityInTableIndexes(&nobody, &nothing), REPProcessOK);
  });
}

TEST(CrossReferences, ConstraintsViewColumnsAndAliases) {
  REPOracleProcessor processor;
  REPName const pk("pk_emp"), pk_upper("PK_EMP"), other("OTHER"), third("THIRD");
  EXPECT_EQ(processor.AddConstraintToConstraintsMap(&pk, 5), REPProcessOK);
  EXPECT_EQ(processor.AddConstraintToConstraintsMap(&pk_upper, 6), REPProcessDuplicate);
  EXPECT_EQ(processor.FindConstraintInConstraintsMap(&pk_upper), 5U);
  EXPECT_EQ(processor.RenameItemInConstraintsMap(&other, &third), REPProcessError);
  EXPECT_EQ(processor.RenameItemInConstraintsMap(&other, &pk), REPProcessDuplicate);
  EXPECT_EQ(processor.RenameItemInConstraintsMap(&pk, &other), REPProcessOK);
  EXPECT_EQ(processor.FindConstraintInConstraintsMap(&other), 5U);
  EXPECT_EQ(processor.FindConstraintInConstraintsMap(&pk), 0U);

  for (std::uint32_t const column : {7U, 8U, 7U}) processor.AddColToViewColumnsMap(3, column);
  EXPECT_EQ(processor.GetViewColumnsColCount(3), 3);
  EXPECT_EQ(processor.GetViewColumnsColCount(4), 0);
  EXPECT_EQ(processor.GetViewColumnsColInPos(3, 2), 7U);
  EXPECT_EQ(processor.GetViewColumnsColInPos(3, 3), 0U);
  EXPECT_EQ(processor.GetViewColumnsColInPos(3, -1), 0U);

  EXPECT_EQ(processor.AliasNameListAdd(&pk), REPProcessOK);
  EXPECT_EQ(processor.AliasNameListAdd(&pk_upper), REPProcessOK);  // case counts here
  EXPECT_EQ(processor.AliasNameListAdd(&pk), REPProcessDuplicate);
  processor.AliasNameListClear();
  EXPECT_EQ(processor.AliasNameListAdd(&pk), REPProcessOK);
}

}  // namespace
}  // namespace repora::test
