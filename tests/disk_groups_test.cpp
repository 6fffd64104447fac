#include "repora/database/disk_groups.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "repora/database/alter_disk_group.h"
#include "repora/database/clusters.h"
#include "repora/database/rollback_segments.h"
#include "tests/run_fixture.h"

// What the reader never makes of clusters, rollback segments and disk groups.
namespace {

using repora::test::Job;
using repora::test::Properties;

REPFailgroup* Failgroup(char const* name, char const* disk_name, char const* search_string) {
  auto* const disk = new REPQualifiedDiskClause;
  disk->SetSearchString(search_string);
  if (disk_name) disk->SetDiskName(new REPName(disk_name));
  auto* const failgroup = new REPFailgroup;
  if (name) failgroup->SetFailgroupName(new REPName(name));
  failgroup->AddQualifiedDiskClause(disk);
  return failgroup;
}

REPCreateDiskgroup* Diskgroup(char const* name, REPFailgroup* failgroup) {
  auto* const group = new REPCreateDiskgroup;
  group->SetDiskgroupName(new REPName(name));
  group->AddFailgroup(failgroup);
  return group;
}

REPDiskgroupClause* Clause(char const* name, int type) {
  auto* const clause = new REPDiskgroupClause;
  if (name) clause->SetDiskgroupName(new REPName(name));
  clause->SetAlterDGType(static_cast<REPAlterDGType_e>(type));
  return clause;
}

REPAlterDiskgroup* Alter(REPDiskgroupClause* clause) {
  auto* const statement = new REPAlterDiskgroup;
  statement->AddDiskgroupClause(clause);
  return statement;
}

MOXActionSummaryItem* Find(REPProcessor const& processor, MOXId type, char const* text) {
  REPName const name(text);
  return processor.FindItemPtr(processor.GetRoot(), type, &name);
}

TEST(DiskGroups, EmptyNamesAndQuotesDoNotReachTheModel) {
  Job job;
  job.processor.AddStatement(Diskgroup("A", Failgroup("", "", "'ORCL:1'")));
  job.processor.AddStatement(Diskgroup("B", Failgroup(nullptr, nullptr, "ORCL:2")));
  job.processor.AddStatement(Diskgroup("C", Failgroup(nullptr, nullptr, "'")));
  job.processor.AddStatement(Diskgroup("D", Failgroup(nullptr, nullptr, nullptr)));
  std::string disks;
  job.Run([&](REPProcessor& processor) {
    for (auto const* name : {"A", "B", "C", "D"}) {
      auto const* const group = Find(processor, ORVTypes::oOracleDiskGroup, name);
      ASSERT_TRUE(group);
      auto const* const failgroup =
          processor.FindSummaryItemPtr(group->Id(), ORVTypes::oOracleFailGroup);
      ASSERT_TRUE(failgroup);
      EXPECT_EQ(Properties(*failgroup), "");
      auto const* const disk =
          processor.FindSummaryItemPtr(failgroup->Id(), ORVTypes::oOracleQualifiedDisk);
      ASSERT_TRUE(disk);
      disks += "[" + Properties(*disk) + "]";
    }
  });
  EXPECT_EQ(disks,
            "[pSearchString='ORCL:1'][pSearchString='ORCL:2'][pSearchString=''']"
            "[]");
  std::unique_ptr<REPFailgroup> const unnamed(Failgroup("", "D", "'ORCL:1'"));
  EXPECT_EQ(unnamed->AsString(), "DISK 'ORCL:1' NAME D");
}

TEST(DiskGroups, ListsOfOperandsMayBeShort) {
  REPDiskgroupClause clause;
  clause.SetDiskgroupName(new REPName("A"));
  for (auto const* name : {"X", "Y"}) {
    clause.AddDiskName(new REPName(name));
    clause.AddTemplateName(new REPName(name));
    clause.AddOldDirName(name);
    clause.AddAliasName(name);
  }
  clause.AddSizeClause("1G");
  clause.AddForce(REPForce_e{3});
  clause.AddForce(REPForce_e::Force);
  clause.AddForce(REPForce_e::NoForce);
  clause.AddMirror(REPMirror_e::Mirror);
  clause.AddFilename("F");
  std::pair<REPAlterDGType_e, char const*> const texts[] = {
      {REPAlterDGType_e::None, "A"},
      {REPAlterDGType_e::DropDisk, "A DROP DISK X, Y FORCE"},
      {REPAlterDGType_e::ResizeDisk, "A RESIZE DISK X SIZE 1G, Y"},
      {REPAlterDGType_e::ResizeDisksInFailgroup, "A RESIZE DISKS IN FAILGROUP"},
      {REPAlterDGType_e::AddTemplate, "A ADD TEMPLATE X ATTRIBUTES(MIRROR), Y ATTRIBUTES()"},
      {REPAlterDGType_e::RenameDirectory, "A RENAME DIRECTORY X, Y"},
      {REPAlterDGType_e::AddAlias, "A ADD ALIAS X FOR F, Y"},
      {REPAlterDGType_e::RebalancePower, "A REBALANCE POWER"},
      {REPAlterDGType_e::AllDismountNoForce, "ALL DISMOUNT NOFORCE"},
      {REPAlterDGType_e{33}, "A"}};
  for (auto const& [type, text] : texts) {
    clause.SetAlterDGType(type);
    EXPECT_EQ(clause.AsString(), text);
  }
}

TEST(DiskGroups, KindsAreNumbered) {
  Job job;
  job.processor.AddStatement(Diskgroup("A", Failgroup("F", "D", "'1'")));
  for (int type = 0; type <= 33; ++type) job.processor.AddStatement(Alter(Clause("A", type)));
  ASSERT_TRUE(job.processor.Process());
  std::string failed;
  for (auto const& warning : job.window.Of(eRENotifyWarning)) failed += warning.message + "|";
  EXPECT_EQ(failed,
            "Unsupported Statement - A|Unsupported Statement - A DROP DISK|"
            "Unsupported Statement - A DROP DISKS IN FAILGROUP|"
            "Unsupported Statement - A UNDROP DISKS|Unsupported Statement - ALL UNDROP DISKS|"
            "Unsupported Statement - A REBALANCE|Unsupported Statement - A REBALANCE POWER|"
            "Unsupported Statement - A CHECK ALL|Unsupported Statement - A CHECK DISK|"
            "Unsupported Statement - A CHECK DISKS IN FAILGROUP|"
            "Unsupported Statement - A CHECK FILE|Unsupported Statement - A ADD TEMPLATE|"
            "Unsupported Statement - A ALTER TEMPLATE|Unsupported Statement - A DROP TEMPLATE|"
            "Unsupported Statement - A ADD DIRECTORY|Unsupported Statement - A DROP DIRECTORY|"
            "Unsupported Statement - A RENAME DIRECTORY|Unsupported Statement - A ADD ALIAS|"
            "Unsupported Statement - A DROP ALIAS|Unsupported Statement - A RENAME ALIAS|"
            "Unsupported Statement - A DROP FILE|Unsupported Statement - A MOUNT|"
            "Unsupported Statement - ALL MOUNT|Unsupported Statement - A DISMOUNT|"
            "Unsupported Statement - A DISMOUNT FORCE|Unsupported Statement - A DISMOUNT NOFORCE|"
            "Unsupported Statement - ALL DISMOUNT|Unsupported Statement - ALL DISMOUNT FORCE|"
            "Unsupported Statement - ALL DISMOUNT NOFORCE|Unsupported Statement - A|");
}

TEST(DiskGroups, ObjectsOfAnEarlierRunAreAltered) {
  Job first;
  first.processor.AddStatement(Diskgroup("A", Failgroup("F", "D", "'1'")));
  auto* const cluster = new REPCreateCluster;
  cluster->SetClusterName(new REPName("S.C"));
  first.processor.AddStatement(cluster);
  ASSERT_TRUE(first.processor.Process());

  REPOracleProcessor second;
  second.SetModelSet(&first.model);
  second.SetNotifyWnd(&first.window);
  auto* const clause = Clause("A", 5);
  clause->AddDiskName(new REPName("D"));
  clause->AddSizeClause("7G");
  second.AddStatement(Alter(clause));
  auto* const alter = new REPAlterCluster;
  alter->SetClusterName(new REPName("S.C"));
  alter->SetPctFree("5");
  second.AddStatement(alter);
  std::string found;
  second.AddStatement(new repora::test::FunctionStatement([&](REPProcessor& processor) {
    auto const* const group = Find(processor, ORVTypes::oOracleDiskGroup, "A");
    auto const* const failgroup =
        processor.FindSummaryItemPtr(group->Id(), ORVTypes::oOracleFailGroup);
    found =
        Properties(*processor.FindSummaryItemPtr(failgroup->Id(), ORVTypes::oOracleQualifiedDisk));
    auto const* const storage = processor.FindSummaryItemPtr(
        Find(processor, ORVTypes::oOracleCluster, "S.C")->Id(), ORVTypes::oOraclePhysicalStorage);
    found += storage ? "; " + Properties(*storage) : "; no storage";
    return REPProcessOK;
  }));
  ASSERT_TRUE(second.Process());
  EXPECT_EQ(found, "pOracleSize='7G'; pOraclePctFree='5' pType=1");
  EXPECT_TRUE(first.window.Of(eRENotifyWarning).empty());
}

TEST(Clusters, ValuesWithoutMeaningAreNotRendered) {
  REPCreateCluster create;
  EXPECT_EQ(create.AsString(), "CREATE CLUSTER  ;");
  create.SetCache(REPCache_e::CacheReads);
  create.SetRowDepend(REPRowDepend_e{3});
  create.SetHashSize(-2);
  create.SetMaxTrans(7);
  EXPECT_EQ(create.AsString(), "CREATE CLUSTER  ;");
  create.SetHashSize("12");
  EXPECT_EQ(create.AsString(), "CREATE CLUSTER   HASHKEYS 12;");

  REPAlterCluster alter;
  alter.SetCache(REPCache_e::CacheReads);
  alter.SetDeallocateSize("1M");
  EXPECT_EQ(alter.AsString(), "ALTER CLUSTER ;") << "KEEP belongs to DEALLOCATE UNUSED";

  REPAlterRollbackSegment segment;
  segment.SetOnOff(REPOnOff_e::OfflineImmediate);
  segment.SetShrinkClause("1M");
  EXPECT_EQ(segment.AsString(), "ALTER ROLLBACK SEGMENT ;") << "TO belongs to SHRINK";
  EXPECT_EQ(REPCreateRollbackSegment().AsString(), "CREATE ROLLBACK SEGMENT ;");
  EXPECT_EQ(REPCreateDiskgroup().AsString(), "CREATE DISKGROUP ;");
  EXPECT_EQ(REPAlterDiskgroup().AsString(), "ALTER DISKGROUP ;");
}

TEST(Clusters, NullsAreErrors) {
  REPAlterDiskgroup diskgroup;
  diskgroup.AddDiskgroupClause(Clause("A", 1));
  for (REPStatement* statement : std::initializer_list<REPStatement*>{
           new REPCreateCluster, new REPAlterCluster, new REPCreateRollbackSegment,
           new REPAlterRollbackSegment, new REPCreateDiskgroup}) {
    EXPECT_EQ(statement->Process(nullptr), REPProcessError);
    delete statement;
  }
  EXPECT_EQ(diskgroup.Process(nullptr), REPProcessError);
  Job job;
  job.Run([](REPProcessor& processor) {
    EXPECT_EQ(REPClusterColumn().Process(&processor, nullptr, nullptr), REPProcessError);
    EXPECT_EQ(REPFailgroup().Process(&processor, nullptr), REPProcessError);
    EXPECT_EQ(REPQualifiedDiskClause().Process(&processor, nullptr), REPProcessError);
    // Without a name it is missing.
    EXPECT_EQ(REPAlterCluster().Process(&processor), REPProcessError);
    EXPECT_EQ(REPDiskgroupClause().Process(&processor), REPProcessError);
  });
}

}  // namespace
