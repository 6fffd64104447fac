#include "repora/tables/index_partitions.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/storage/compression.h"
#include "repora/storage/partitions.h"
#include "repora/tables/alter_index.h"
#include "repora/tables/update_indexes.h"
#include "tests/table_builders.h"

namespace {

using namespace repora::test;  // the builders are the language of these tests

REPIndexPartitioningClause* Range(char const* name, char const* values) {
  return New<REPIndexPartitioningClause>([&](auto& range) {
    range.SetPartitionName(Name(name));
    range.SetValues(values);
  });
}

REPIndexPropertiesClause* Global(bool hash, char const* partition) {
  return New<REPIndexPropertiesClause>([&](auto& properties) {
    properties.SetGlobalIndex(New<REPGlobalPartitionedIndexClause>([&](auto& global) {
      global.SetHash(hash);
      global.SetColumnList(Names("A"));
      if (hash) {
        auto* const list = new REPIndividualHashPartitionList;
        list->AddTail(New<REPIndividualHashPartition>(
            [&](auto& individual) { individual.SetName(Name(partition)); }));
        global.SetIndividualPartitions(list);
      } else {
        auto* const list = new REPIndexPartitioningClauseList;
        list->AddTail(Range(partition, "1"));
        global.SetIndexPartitioningClauseList(list);
      }
    }));
  });
}

REPUpdateIndexClause* Update(char const* index, char const* partition, bool subpartitions = false) {
  return New<REPUpdateIndexClause>([&](auto& clause) {
    clause.SetUpdateIndexes(REPUpdateIndexes_e::Update);
    auto* const list = new REPUpdateIndexList;
    list->AddTail(New<REPUpdateIndex>([&](auto& updated) {
      updated.SetIndexName(Name(index));
      auto* const partitions = new REPUpdateIndexPartitionList;
      partitions->AddTail(
          New<REPUpdateIndexPartition>([&](auto& p) { p.SetPartitionName(Name(partition)); }));
      updated.SetUpdateIndexPartitionList(partitions);
      if (!subpartitions) return;
      auto* const sub = new REPUpdateIndexSubpartitionList;
      sub->AddTail(New<REPUpdateIndexSubpartition>([](auto& s) {
        s.SetSubpartitionName(Name("S"));
        s.SetTablespaceName(Name("X"));
      }));
      updated.SetUpdateIndexSubpartitionList(sub);
    }));
    clause.SetUpdateIndexList(list);
  });
}

TEST(IndexPartitions, BoundValuesAreSplitAtTheirSeparator) {
  struct {
    char const* values;
    std::vector<std::string> pieces;
  } const cases[] = {
      {"10\x81"
       "20",
       {"10", "20"}},
      {"10\x81\x81", {"10", "", ""}},
      {"'a, b'\x81MAXVALUE", {"'a, b'", "MAXVALUE"}},
      // In letters of UTF-8 the byte is none: two, three and four bytes long, then one behind them.
      {"'\xD1\x81'\x81'\xE2\x81\xB4\xF0\x9F\x81\x81'",
       {"'\xD1\x81'", "'\xE2\x81\xB4\xF0\x9F\x81\x81'"}},
      {"'\xC3\xA9\x81x'", {"'\xC3\xA9", "x'"}},
      {"\x81\xE9", {"", "\xE9"}},
  };
  for (auto const& one : cases) {
    SCOPED_TRACE(one.values);
    InRun([&](RunningJob& run) {
      auto* const global = run.Add(ORVTypes::oOracleIndexGlobalPartition, "");
      std::unique_ptr<REPIndexPartitioningClause> const range(Range("P", one.values));
      EXPECT_EQ(range->Process(&run.p, global), REPProcessOK);
      EXPECT_EQ(range->AsString(),
                std::string("PARTITION P VALUES LESS THAN (") + one.values + ")");
      auto const& info = run.Only(global->Id(), ORVTypes::oOracleRangePartitionInfo);
      std::vector<std::string> written;
      ASSERT_TRUE(info.Properties().Find(ORVTypes::pPartitionValues)->GetStringVector(written));
      EXPECT_EQ(written, one.pieces);
    });
  }
}

TEST(IndexPartitions, ALocalClauseFollowsAGlobalOneThatSucceeds) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A"));
    auto& table = run.TableItem("T");
    auto const create = [&](char const* name, char const* column) {
      return run.Do(Index(name, "T", "A", REPIndexType_e::None, [&](auto& properties) {
        auto* const global = new REPGlobalPartitionedIndexClause;
        global->SetColumnList(Names(column));
        properties.SetGlobalIndex(global);
        properties.SetLocalIndex(new REPLocalPartitionedIndexClause);
      }));
    };
    table.SetProperty(ORVTypes::pOraclePartitionType, QELValue::FromInteger(2));
    EXPECT_EQ(create("I", "A"), REPProcessOK);
    EXPECT_EQ(create("J", "X"), REPProcessError);
    table.SetProperty(ORVTypes::pOraclePartitionType, QELValue::FromInteger(0));
    EXPECT_EQ(run.Messages(), "");
    EXPECT_EQ(create("K", "A"), REPProcessError);
    EXPECT_EQ(run.Messages(),
              "REP-42 LOCAL partition index on Table T failed.  Underlying table of a LOCAL "
              "partition index must be partitioned.");
    auto const of = [&](char const* name) {
      auto const& index = run.Find(ORVTypes::oKeyGroup, name, table.Id());
      return TextProperty(index, ORVTypes::pOracleIndexPartitionType) + " " +
             std::to_string(run.Children(index.Id(), ORVTypes::oOracleIndexLocalPartition).size());
    };
    EXPECT_EQ(of("I") + ", " + of("J") + ", " + of("K"), "1 1, 0 0, 0 0");
  });
}

TEST(IndexPartitions, HashPartitionsDropWhatTheyCannotHold) {
  InRun([](RunningJob& run) {
    auto* const local = run.Add(ORVTypes::oOracleIndexLocalPartition, "");
    REPPartition partition;
    auto* const segment = new REPSegmentAttributesClause;
    segment->GetAttributesClause()->SetPctFree(10);
    segment->SetTablespaceName(Name("T"));
    partition.SetSegmentAttributes(segment);
    // Subpartitions by STORE IN are for composite partitions only.
    partition.SetStoreInTablespaces(Names("X, Y"));
    EXPECT_EQ(partition.Process(&run.p, local, 3), REPProcessOK);
    EXPECT_EQ(run.Messages(),
              "REP-56 Invalid partition options discarded on partition - <Unnamed>.\r\n"
              "PARTITION PCTFREE 10 TABLESPACE T STORE IN (X, Y)");
    partition.SetPartitionName(Name("P"));
    partition.SetDefaultTablespace(true);
    EXPECT_EQ(partition.Process(&run.p, local, 3), REPProcessOK);
    EXPECT_EQ(run.Messages(),
              "REP-56 Invalid partition options discarded on partition - P.\r\n"
              "PARTITION P PCTFREE 10 TABLESPACE T TABLESPACE DEFAULT STORE IN (X, Y)");
    std::string tablespaces;
    for (auto const* const hash :
         run.Children(local->Id(), ORVTypes::oOracleIndividualHashPartition)) {
      auto const& storage = run.Only(hash->Id(), ORVTypes::oOraclePartitioningStorage);
      auto const* const tablespace = storage.Properties().Find(ORVTypes::pOracleTablespaceRef);
      tablespaces += run.NameOf(tablespace->ShortId()) + " ";
      EXPECT_TRUE(run.Children(hash->Id(), ORVTypes::oOraclePartitionDescription).empty());
    }
    EXPECT_EQ(tablespaces, "T DEFAULT ");
    // Partitions of a table that is partitioned in no known way.
    EXPECT_EQ(partition.Process(&run.p, local, 5), REPProcessError);
  });
}

TEST(IndexPartitions, UpdatedIndexes) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A"));
    auto& table = run.TableItem("T");
    auto const create = [&](char const* name, REPIndexPropertiesClause* properties) {
      auto* const index = Index(name, "T", "A");
      index->GetTableIndexClause()->SetIndexProperties(properties);
      EXPECT_EQ(run.Do(index), REPProcessOK);
    };
    create("R", Global(false, "P"));
    create("H", Global(true, "P"));
    create("N", nullptr);
    table.SetProperty(ORVTypes::pOraclePartitionType, QELValue::FromInteger(1));
    create("L", New<REPIndexPropertiesClause>([](auto& properties) {
             properties.SetLocalIndex(New<REPLocalPartitionedIndexClause>([](auto& local) {
               auto* const list = new REPPartitionList;
               list->AddTail(New<REPPartition>(
                   [](auto& partition) { partition.SetPartitionName(Name("P")); }));
               local.SetPartitionList(list);
             }));
           }));
    auto const failed = "REP-19 Alter Table - T Failed. Unable to process Alter Partitioning.";
    auto const process = [&](REPUpdateIndexClause* clause) {
      bool const ok =
          std::unique_ptr<REPUpdateIndexClause>(clause)->Process(&run.p, &table) == REPProcessOK;
      return ok ? "ok" + run.Messages() : run.Messages();
    };
    EXPECT_EQ(process(Update("r", "p")), "ok");
    EXPECT_EQ(process(Update("H", "P")), "ok");
    EXPECT_EQ(process(Update("R", "Q")), failed);
    EXPECT_EQ(process(Update("H", "")), failed);
    EXPECT_EQ(process(Update("L", "P")), failed);
    EXPECT_EQ(process(Update("N", "P")), failed);
    EXPECT_EQ(process(Update("MISSING", "P")), failed);
    EXPECT_EQ(process(Update("R", "P", true)),
              "REP-35 Partition Update Index option in Alter Table - T unsupported. Modify create "
              "table or use Table Editor to adjust partitions.");
    EXPECT_EQ(process(new REPUpdateIndexClause), "ok");
    REPUpdateIndexPartition partition;
    EXPECT_EQ(partition.Process(nullptr, &table), REPProcessError);
    EXPECT_EQ(REPUpdateIndex().Process(&run.p, nullptr), REPProcessError);
  });
}

TEST(IndexPartitions, TextsOfUpdatedIndexes) {
  auto const text = [](REPUpdateIndexes_e kind) {
    std::unique_ptr<REPUpdateIndexClause> const clause(Update("I", "P", true));
    clause->SetUpdateIndexes(kind);
    return clause->AsString();
  };
  EXPECT_EQ(text(REPUpdateIndexes_e::UpdateGlobal), "UPDATE GLOBAL INDEXES");
  EXPECT_EQ(text(REPUpdateIndexes_e::InvalidateGlobal), "INVALIDATE GLOBAL INDEXES");
  EXPECT_EQ(text(REPUpdateIndexes_e::Update),
            "UPDATE INDEXES (I (PARTITION P) (SUBPARTITION S TABLESPACE X))");
  EXPECT_EQ(text(static_cast<REPUpdateIndexes_e>(4)), "");
  REPUpdateIndexPartition partition;
  EXPECT_EQ(partition.AsString(), "PARTITION");
  auto* const description = new REPIndexPartitionDesc;
  partition.SetIndexPartitionDesc(description);
  auto* const segment = new REPSegmentAttributesClause;
  segment->SetTablespaceName(Name("X"));
  description->SetSegmentAttributesClause(segment);
  auto* const compression = new REPCompressionClause;
  compression->SetCompression(REPCompress_e::NoCompress);
  description->SetKeyCompressionClause(compression);
  auto* const subpartitions = new REPIndexSubpartitionClause;
  subpartitions->SetTablespaceNames(Names("Y, Z"));
  subpartitions->SetSubpartitionList(new REPSubPartitionList);
  description->SetIndexSubpartitionClause(subpartitions);
  EXPECT_EQ(partition.AsString() + description->AsString(), "PARTITIONPARTITION");
  description->SetPartitionName(Name("P"));
  EXPECT_EQ(partition.AsString(), "PARTITION P TABLESPACE X NOCOMPRESS STORE IN (Y, Z) ()");
}

TEST(AlterIndexPartitions, WithoutTheirNamesTheyDoNothing) {
  InRun([](RunningJob& run) {
    auto* const index = run.Add(ORVTypes::oKeyGroup, "I");
    auto* const subpartition = run.Add(ORVTypes::oOracleSubpartitionSpec, "S", index->Id());
    REPAlterIndexPartition partition;
    auto const process = [&](REPAlterIndex_e operation) {
      partition.SetAlterIndex(operation);
      return partition.Process(&run.p, index);
    };
    partition.SetLogging(REPLogging_e::NoLogging);
    partition.SetSubpartition(Name("S"));
    EXPECT_EQ(process(REPAlterIndex_e::RenameSubpartition), REPProcessOK);
    partition.SetNewName(Name("Q"));
    EXPECT_EQ(process(REPAlterIndex_e::None), REPProcessOK);
    EXPECT_EQ(process(static_cast<REPAlterIndex_e>(10)), REPProcessOK);
    EXPECT_EQ(partition.AsString(), "");
    delete partition.GetSubpartition();
    partition.SetSubpartition(nullptr);
    EXPECT_EQ(process(REPAlterIndex_e::ModifySubpartition), REPProcessOK);
    EXPECT_EQ(process(REPAlterIndex_e::RenameSubpartition), REPProcessOK);
    EXPECT_EQ(run.Messages(), "");
    EXPECT_EQ(Properties(*subpartition), "pName='S'");
    EXPECT_TRUE(run.Children(subpartition->Id(), ORVTypes::oOraclePhysicalStorage).empty());
    EXPECT_EQ(process(REPAlterIndex_e::DropPartition), REPProcessError);
    EXPECT_EQ(partition.Process(nullptr, index), REPProcessError);
    EXPECT_EQ(REPAlterIndex().Process(nullptr), REPProcessError);
  });
}

TEST(AlterIndex, FindsTheIndexOfACluster) {
  InRun([](RunningJob& run) {
    auto const* const cluster = run.Add(ORVTypes::oOracleCluster, "C");
    auto* const index = run.Add(ORVTypes::oOracleClusterIndex, "I", cluster->Id());
    auto* const alter = New<REPAlterIndex>([](auto& statement) {
      statement.SetIndexName(Name("i"));
      statement.SetIniTrans("3");
      statement.SetPctUsed(40);
      statement.SetAlterPartition(New<REPAlterIndexPartition>(
          [](auto& partition) { partition.SetAlterIndex(REPAlterIndex_e::DropPartition); }));
    });
    EXPECT_EQ(alter->AsString(), "ALTER INDEX i PCTUSED 40 INITRANS 3 DROP PARTITION ;");
    EXPECT_EQ(run.Do(alter), REPProcessOK);
    EXPECT_EQ(run.Messages(),
              "REP-14 Alter Cluster Index - I Failed. Drop Option unsupported in Alter.  Modify "
              "Option in the create.");
    auto const& storage = run.Only(index->Id(), ORVTypes::oOracleAttributeStorage);
    EXPECT_EQ(Properties(run.Only(storage.Id(), ORVTypes::oOraclePhysicalStorage)),
              "pOracleIniTrans='3' pOraclePctUsed='40' pType=1");
    EXPECT_EQ(REPAlterIndex().AsString(), "ALTER INDEX ;");
  });
}

}  // namespace
