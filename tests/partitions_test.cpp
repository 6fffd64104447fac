#include "repora/storage/partitions.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/model/codes.h"
#include "repora/storage/partition_items.h"
#include "repora/tables/alter_partitions.h"
#include "tests/table_builders.h"

// What scripts cannot hold of partitions: clauses that lack a part or have one too many, and owners
// of columns that are no tables.
namespace {

namespace codes = repora::codes;
using repora::test::Names;
using repora::test::TextProperty;

MOXActionSummaryItem* Add(REPProcessor& processor, std::uint32_t owner, MOXId type,
                          char const* text) {
  REPName const name(text);
  MOXActionSummaryItem* item = nullptr;
  processor.AddItem(owner, type, &name, item);
  return item;
}

// A run in which there is a table T with the columns A and B.
struct TableRun {
  using Action = std::function<void(REPProcessor& processor, MOXActionSummaryItem& table)>;
  explicit TableRun(Action const& action, MOXId type = ORVTypes::oEntity) {
    EXPECT_TRUE(job.Run([&](REPProcessor& processor) {
      auto* const table = Add(processor, processor.GetRoot(), type, "T");
      Add(processor, table->Id(), ORVTypes::oAttribute, "A");
      Add(processor, table->Id(), ORVTypes::oAttribute, "B");
      action(processor, *table);
      called = true;
    }));
    EXPECT_TRUE(called);
  }
  std::vector<repora::test::Notified> Warnings() const { return job.window.Of(eRENotifyWarning); }

  repora::test::Job job;
  bool called = false;
};

TEST(Partitions, AClauseWithoutAKeyFailsSilently) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    for (auto const type : {REPPartition_e::Range, REPPartition_e::Hash, REPPartition_e::List,
                            REPPartition_e::Composite}) {
      REPTablePartitioningClause clause;
      clause.SetPartitionType(type);
      EXPECT_EQ(clause.Process(&processor, &table, &table), REPProcessError);
      EXPECT_EQ(clause.Process(nullptr, &table, &table), REPProcessError);
      EXPECT_EQ(clause.Process(&processor, nullptr, &table), REPProcessError);
    }
    EXPECT_EQ(TextProperty(table, ORVTypes::pOraclePartitionType), "(absent)");
    for (auto const type : {REPPartition_e::None, static_cast<REPPartition_e>(9)}) {
      REPTablePartitioningClause clause;
      clause.SetPartitionType(type);
      clause.SetColumns(Names("A"));
      EXPECT_EQ(clause.Process(&processor, &table, &table), REPProcessOK);
      EXPECT_EQ(clause.SetPartitionType(&table), REPProcessError);
      EXPECT_EQ(clause.AsString(), "");
    }
    REPSubPartitionByHash by_hash;
    EXPECT_EQ(by_hash.Process(&processor, &table, &table), REPProcessError);
    REPSubPartitionByList by_list;
    EXPECT_EQ(by_list.Process(&processor, &table, &table), REPProcessError);
  });
  EXPECT_TRUE(run.Warnings().empty());
}

TEST(Partitions, ASecondPartitioningOfATableFails) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPTablePartitioningClause clause;
    clause.SetPartitionType(REPPartition_e::Hash);
    clause.SetColumns(Names("A, B"));
    EXPECT_EQ(clause.Process(&processor, &table, &table), REPProcessOK);
    EXPECT_EQ(clause.Process(&processor, &table, &table), REPProcessError);
  });
}

TEST(Partitions, ItemsStandInTheOrderOfTheLists) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPTablePartitioningClause clause;
    clause.SetPartitionType(REPPartition_e::Range);
    clause.SetColumns(Names("A"));
    auto* const list = new REPRangePartitioningList;
    clause.SetRangeList(list);
    for (auto const* const name : {"P2", "P1", ""}) {
      list->AddTail(new REPRangePartitioning);
      list->GetClause(list->GetCount() - 1)->SetPartition(new REPName(name));
    }
    list->AddHead(new REPRangePartitioning);
    EXPECT_EQ(clause.Process(&processor, &table, &table), REPProcessOK);
    auto const partitioning = repora::FindPartitioning(processor, table);
    ASSERT_TRUE(partitioning.item);
    std::vector<MOXActionSummaryItem*> partitions;
    processor.FindSummaryChildrenByType(partitioning.item->Id(), partitioning.partition_type,
                                        partitions);
    std::string names;
    for (auto const* const partition : partitions) names += partition->Name() + std::string(";");
    EXPECT_EQ(names, ";P2;P1;;");
    // Without a description and a bound there is none in the model.
    EXPECT_FALSE(processor.FindItemPtr(partitions[1]->Id(), ORVTypes::oOraclePartitionDescription));
    EXPECT_EQ(TextProperty(*partitions[1], ORVTypes::pPartitionValues), "(absent)");
  });
}

TEST(Partitions, StorageIsOneClauseAtLeastAndOneLobSegmentAtMost) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPPartitioningStorageClauseList list;
    EXPECT_EQ(list.Process(&processor, &table, &table), REPProcessError);
    EXPECT_FALSE(processor.FindItemPtr(table.Id(), ORVTypes::oOraclePartitioningStorage));

    auto const process = [&](char const* segments, char const* tablespaces) {
      REPPartitioningStorageClauseList lobs;
      lobs.AddTail(new REPPartitioningStorageClause);
      lobs.GetClause(0)->SetLOBItemList(Names("A, B"));
      lobs.GetClause(0)->SetLOBSegmentNameList(Names(segments));
      lobs.GetClause(0)->SetLOBTablespaceNameList(Names(tablespaces));
      return lobs.Process(&processor, &table, &table);
    };
    EXPECT_EQ(process("S1, S2", "TS"), REPProcessError);
    EXPECT_EQ(process("S1", "TS1, TS2"), REPProcessError);
    EXPECT_EQ(process("S2", ""), REPProcessOK);
    // Both go to the storage that the first one made.
    auto const* const storage =
        processor.FindItemPtr(table.Id(), ORVTypes::oOraclePartitioningStorage);
    ASSERT_TRUE(storage);
    for (auto const* const name : {"S1", "S2"}) {
      REPName const segment(name);
      auto const* const lob =
          processor.FindItemPtr(storage->Id(), ORVTypes::oOracleLOBStorage, &segment);
      ASSERT_TRUE(lob) << name;
      EXPECT_EQ(TextProperty(*lob, ORVTypes::pOracleTablespaceRef), "(absent)");
    }
    // Only CREATE TABLE tells a segment that exists.
    EXPECT_EQ(process("S2", "TS"), REPProcessOK);
  });
  EXPECT_TRUE(run.Warnings().empty());
}

TEST(Partitions, ATemplateSubpartitionMustHaveAName) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPSubPartitionTemplateSubPartition subpartition;
    EXPECT_EQ(subpartition.Process(&processor, &table, &table), REPProcessError);
    subpartition.SetSubPartition(new REPName);
    EXPECT_EQ(subpartition.Process(&processor, &table, &table), REPProcessError);
    EXPECT_FALSE(processor.FindItemPtr(table.Id(), ORVTypes::oOraclePartitionTemplate));
  });
  EXPECT_TRUE(run.Warnings().empty());
}

TEST(Partitions, ColumnsOfAMaterializedViewInTwoLevelsAreFoundByTheirExactName) {
  TableRun const run(
      [](REPProcessor& processor, MOXActionSummaryItem& view) {
        // What the query selects is in the summary without being registered.
        REPName const name("c");
        auto const* const column = processor.CreateItem(view.Id(), ORVTypes::oAttribute, &name);
        auto const process = [&](REPPartition_e type, char const* key, char const* subkey) {
          REPTablePartitioningClause clause;
          clause.SetPartitionType(type);
          clause.SetColumns(Names(key));
          auto* const by_list = new REPSubPartitionByList;
          by_list->SetColumn(new REPName(subkey));
          clause.SetSubPartitionByList(by_list);
          return clause.Process(&processor, &view, &view);
        };
        EXPECT_EQ(process(REPPartition_e::Composite, "C", "c"), REPProcessError);
        EXPECT_EQ(process(REPPartition_e::Hash, "c", "c"), REPProcessError);
        EXPECT_EQ(process(REPPartition_e::Composite, "c", "c"), REPProcessOK);
        auto const partitioning = repora::FindPartitioning(processor, view);
        ASSERT_TRUE(partitioning.item);
        EXPECT_EQ(TextProperty(*partitioning.item, ORVTypes::pColumnRef),
                  std::to_string(column->Id()));
      },
      ORVTypes::oCachedView);
  auto const warnings = run.Warnings();
  ASSERT_EQ(warnings.size(), 2u);
  EXPECT_EQ(warnings[0].message,
            "Create / Alter Materialized View - T Failed. Unable to find Column - C.");
  // Other methods name a table, whatever the owner of the columns is.
  EXPECT_EQ(warnings[1].message, "Create / Alter Table - T Failed. Unable to find Column - c.");
}

TEST(Partitions, RenderingOfWhatScriptsDoNotWrite) {
  REPTablePartitioningClause composite;
  composite.SetPartitionType(REPPartition_e::Composite);
  auto* const key = new REPName;
  key->AddTail("\"My Key\"");
  composite.SetColumn(key);
  EXPECT_EQ(composite.AsString(), "PARTITION BY RANGE(\"My Key\")");
  EXPECT_EQ(REPRangePartitioningList().AsString(), "");
  EXPECT_EQ(REPListPartitioningList().AsString(), "");
  EXPECT_EQ(REPIndividualHashPartitionList().AsString(), "()");
  EXPECT_EQ(REPSubPartitionSpecList().AsString(), "");
  REPListValueClause values;
  values.AddValue("1");
  values.SetDefault(true);
  EXPECT_EQ(values.AsString(true), "AT(DEFAULT)");
  REPRangeValueClause bound;
  bound.AddValue("");
  bound.AddValue("2");
  EXPECT_EQ(bound.AsString(), "VALUES LESS THAN (, 2)");
  EXPECT_STREQ(bound.GetValue(1), "2");
  EXPECT_THROW(bound.GetValue(2), std::invalid_argument);
  EXPECT_THROW(values.GetValue(-1), std::invalid_argument);
  REPPartitionLevel level;
  level.SetTablespaceList(Names("TS"));
  EXPECT_EQ(level.AsString(), "");
  REPTablePartDesc description;
  description.SetCompress(REPCompress_e::NoCompress);
  description.SetCompressValue("2");
  description.SetOverflowSegAttributes(new REPSegmentAttributesClause);
  EXPECT_EQ(description.AsString(), "NOCOMPRESS 2");
}

TEST(AlterPartitions, OperationsThatAreNoneDoNothing) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    for (int const operation : {0, 21, -1}) {
      REPAlterTablePartitioning clause;
      clause.SetTablePart(static_cast<REPTablePart_e>(operation));
      EXPECT_EQ(clause.Process(&processor, &table), REPProcessOK);
      EXPECT_EQ(clause.Process(nullptr, &table), REPProcessError);
      EXPECT_EQ(clause.Process(&processor, nullptr), REPProcessError);
      EXPECT_EQ(clause.AsString(), "");
    }
  });
  EXPECT_TRUE(run.Warnings().empty());
}

TEST(AlterPartitions, NamesThatAreMissingAreReported) {
  using enum REPTablePart_e;
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPTablePartitioningClause partitioning;
    partitioning.SetPartitionType(REPPartition_e::Composite);
    partitioning.SetColumns(Names("A"));
    ASSERT_EQ(partitioning.Process(&processor, &table, &table), REPProcessOK);
    for (auto const operation :
         {ModifyPartition, ModifySubpartition, RenamePartition, RenameSubpartition}) {
      REPAlterTablePartitioning clause;
      clause.SetTablePart(operation);
      clause.SetNewName(new REPName("N"));
      EXPECT_EQ(clause.Process(&processor, &table), REPProcessError);
    }
    // How a table is partitioned may be a number of a newer model, or lack its item.
    REPAlterTablePartitioning rename;
    rename.SetTablePart(RenameSubpartition);
    rename.SetPartitionName(new REPName("S"));
    rename.SetNewName(new REPName("N"));
    table.SetProperty(ORVTypes::pOraclePartitionType, QELValue::FromInteger(9));
    EXPECT_EQ(rename.Process(&processor, &table), REPProcessOK);
    table.SetProperty(ORVTypes::pOraclePartitionType,
                      QELValue::FromInteger(codes::kListPartitioning));
    EXPECT_EQ(rename.Process(&processor, &table), REPProcessError);
  });
  EXPECT_EQ(run.Warnings().size(), 5u);
}

TEST(AlterPartitions, AttributesOfAnUnknownKindOfPartitionWriteNothing) {
  TableRun const run([](REPProcessor& processor, MOXActionSummaryItem& table) {
    REPPartitionAttributes attributes;
    attributes.SetLogging(REPLogging_e::NoLogging);
    EXPECT_EQ(attributes.Process(&processor, &table, &table, 5), REPProcessOK);
    EXPECT_EQ(attributes.Process(&processor, &table, nullptr, 1), REPProcessError);
    EXPECT_FALSE(processor.FindItemPtr(table.Id(), ORVTypes::oOraclePartitionDescription));
  });
}

TEST(AlterPartitions, RenderingLeavesOutWhatDoesNotFit) {
  REPAlterTablePartitioning split;
  split.SetTablePart(REPTablePart_e::SplitPartition);
  split.SetPartitionName(new REPName("P"));
  auto* const values = new REPListValueClause;
  values->AddValue("1");
  split.SetListValueClause(values);
  split.SetPartitionSpec1(new REPPartitionSpec);
  // No kind of split, one partition only, a size without the parallel clause it belongs to.
  split.SetParallelSize("4");
  EXPECT_EQ(split.AsString(), "SPLIT PARTITION P");
  REPAlterTablePartitioning rename;
  rename.SetTablePart(REPTablePart_e::RenamePartition);
  EXPECT_EQ(rename.AsString(), "RENAME PARTITION  TO ");
  REPPartitionAttributes attributes;
  attributes.SetLogging(static_cast<REPLogging_e>(9));
  attributes.SetOverflowShrink(REPShrink_e::Space);
  EXPECT_EQ(attributes.AsString(), "OVERFLOW SHRINK SPACE");
}

}  // namespace
