#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/core/properties.h"
#include "repora/queries/select.h"
#include "repora/queries/sub_query.h"
#include "repora/storage/lob_partitions.h"
#include "repora/storage/lob_storage.h"
#include "repora/storage/physical_props.h"
#include "repora/tables/alter_columns.h"
#include "repora/tables/external_table.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"
#include "repora/tables/table_organisation.h"
#include "tests/table_builders.h"

namespace {

using repora::test::Name;
using repora::test::Names;
using repora::test::New;
using repora::test::Properties;

MOXActionSummaryItem* Add(REPProcessor& processor, std::uint32_t owner, MOXId type,
                          char const* text) {
  REPName const name(text);
  MOXActionSummaryItem* item = nullptr;
  processor.AddItem(owner, type, &name, item);
  return item;
}

// A run with a table of the columns A, B and C, and a description that stands for a partition.
struct TableRun {
  REPProcessor& processor;
  MOXActionSummaryItem* table;
  MOXActionSummaryItem* partition;
  std::vector<MOXActionSummaryItem*> columns;

  std::vector<MOXActionSummaryItem*> Children(MOXActionSummaryItem const* owner, MOXId type) const {
    std::vector<MOXActionSummaryItem*> items;
    processor.FindSummaryChildrenByType(owner->Id(), type, items);
    return items;
  }
};

std::vector<std::string> InRun(std::function<void(TableRun&)> const& action) {
  repora::test::Job job;
  bool called = false;
  job.Run([&](REPProcessor& processor) {
    auto* const table = Add(processor, processor.GetRoot(), ORVTypes::oEntity, "T");
    TableRun run{processor, table, nullptr, {}};
    for (char const* const column : {"A", "B", "C"})
      run.columns.push_back(Add(processor, table->Id(), ORVTypes::oAttribute, column));
    run.partition = Add(processor, table->Id(), ORVTypes::oOraclePartitionDescription, "P");
    action(run);
    called = true;
  });
  EXPECT_TRUE(called);
  std::vector<std::string> messages;
  for (auto const kind : {eRENotifyInformation, eRENotifyWarning, eRENotifySemantic})
    for (auto const& notified : job.window.Of(kind)) messages.push_back(notified.message);
  return messages;
}

REPLOBParameters* Cached() {
  return New<REPLOBParameters>([](auto& parameters) { parameters.SetCache(REPCache_e::Cache); });
}

TEST(Lobs, PartitionsOfATableAreToldWithTheStatement) {
  std::pair<REPStatement_e, char const*> const statements[] = {
      {REPStatement_e::CreateTable, "Create"},
      {REPStatement_e::AlterTable, "Alter"},
      {REPStatement_e::CreateMaterializedView, "Create"},
      {REPStatement_e::AlterMaterializedView, "Alter"}};
  for (auto const& [type, word] : statements) {
    auto const messages = InRun([type = type](TableRun& run) {
      run.processor.SetStatementType(type);
      REPLOBStorage storage;
      storage.SetItemNames(Names("A, B"));
      storage.SetParameters(Cached());
      storage.SetLOBPartitionList(new REPLOBPartitionList);
      EXPECT_EQ(storage.Process(&run.processor, run.table, run.table), REPProcessOK);
      EXPECT_EQ(run.Children(run.columns[1], ORVTypes::oOracleLOBStorage).size(), 1U);
    });
    EXPECT_EQ(messages, std::vector{std::string("LOB Partition Storage Option in ") + word +
                                    " Table - T - Unsupported."});
  }
}

TEST(Lobs, StorageOfAPartitionServesAllColumnsItNames) {
  EXPECT_TRUE(
      InRun([](TableRun& run) {
        REPVarrayLOBParametersList list;
        list.AddTail(New<REPVarrayLOBParameters>([](auto& varray) {
          varray.SetItemNames(Names("A, B"));
          varray.SetParameters(Cached());
        }));
        list.AddTail(New<REPVarrayLOBParameters>([](auto& varray) {
          varray.SetItemName(Name("C"));
          varray.SetModifyParameters(
              New<REPModifyLOBParameters>([](auto& parameters) { parameters.SetPCTVersion("7"); }));
        }));
        list.AddTail(New<REPVarrayLOBParameters>([](auto& varray) {
          varray.SetItemNames(Names("B, C"));
          varray.SetItemName(Name("NOWHERE"));
        }));
        EXPECT_EQ(list.Process(&run.processor, run.partition, run.table), REPProcessOK);
        EXPECT_EQ(list.AsString(), "LOB (A, B) (CACHE), LOB C PCTVERSION 7, LOB (B, C)");
        auto const lobs = run.Children(run.partition, ORVTypes::oOracleLOBStorage);
        ASSERT_EQ(lobs.size(), 2U);
        auto const id = [&](std::size_t i) { return std::to_string(run.columns.at(i)->Id()); };
        EXPECT_EQ(Properties(*lobs[0]), "pColumnsRef=" + id(1) + ", " + id(2));
        EXPECT_EQ(Properties(*lobs[1]), "pColumnsRef=" + id(2));
        auto const* const changed =
            run.processor.FindSummaryItemPtr(lobs[1]->Id(), ORVTypes::oOracleLOBParameters);
        EXPECT_EQ(Properties(*changed), "pOraclePercentVersion='7'");
      }).empty());
}

TEST(Lobs, StorageOfATableIsNamedLikeTheColumn) {
  EXPECT_TRUE(InRun([](TableRun& run) {
                REPVarrayLOBParameters varray;
                varray.SetItemNames(Names("A, B"));
                varray.SetParameters(Cached());
                EXPECT_EQ(varray.Process(&run.processor, run.table, nullptr), REPProcessOK);
                auto const lobs = run.Children(run.columns[1], ORVTypes::oOracleLOBStorage);
                ASSERT_EQ(lobs.size(), 1U);
                EXPECT_STREQ(lobs[0]->Name(), "B");
              }).empty());
}

TEST(Lobs, WhatIsMissingFailsWithoutAMessage) {
  EXPECT_TRUE(
      InRun([](TableRun& run) {
        auto* const processor = &run.processor;
        for (char const* const items : {"", "NOWHERE"}) {
          REPLOBStorage storage;
          storage.SetItemNames(Names(items));
          EXPECT_EQ(storage.Process(processor, run.partition, run.table), REPProcessError);
          REPVarrayLOBParameters varray;
          varray.SetItemNames(Names(items));
          EXPECT_EQ(varray.Process(processor, run.partition, run.table), REPProcessError);
          REPModifyLOBStorage modify;
          modify.SetItemNames(Names(items));
          EXPECT_EQ(modify.Process(processor, run.table), REPProcessError);
        }
        EXPECT_EQ(REPLOBStorage().Process(nullptr, run.table, run.table), REPProcessError);
        EXPECT_EQ(REPLOBStorage().Process(processor, run.partition, nullptr), REPProcessError);
        EXPECT_EQ(REPLOBParameters().Process(processor, nullptr), REPProcessError);
        EXPECT_EQ(REPModifyLOBParameters().Process(nullptr, run.table), REPProcessError);
        EXPECT_EQ(REPLOBPartition().Process(processor, nullptr), REPProcessError);
        EXPECT_EQ(REPLOBSubPartition().Process(processor, run.table, nullptr), REPProcessError);
        EXPECT_EQ(REPTableColumnProp().Process(processor, nullptr), REPProcessError);
        EXPECT_EQ(REPExternalTableClause().Process(nullptr, run.table, true), REPProcessError);
        EXPECT_EQ(REPIndexOrgTableClause().Process(nullptr), REPProcessError);
        EXPECT_EQ(REPMoveTableClause().Process(processor, nullptr), REPProcessError);
        EXPECT_EQ(REPSuppLogProps().Process(processor, nullptr, REPSuppLog_e::Add),
                  REPProcessError);
        EXPECT_EQ(run.Children(run.partition, ORVTypes::oOracleLOBStorage).size(), 0U);
      }).empty());
}

TEST(Organisation, AddingPutsAtTheHead) {
  REPMoveTableClause move;
  REPLOBPartition partition;
  REPSuppLogGroup group;
  REPExternalTableClause external;
  for (char const* const name : {"X", "Y"}) {
    auto const lob = [name] {
      return New<REPLOBStorage>([name](auto& storage) {
        storage.SetItemNames(Names(name));
        storage.SetSegName(Name("S"));
      });
    };
    auto const varray = [name] {
      return New<REPVarrayColumnProps>([name](auto& item) { item.SetVarrayItem(Name(name)); });
    };
    move.AddLOBStorage(lob());
    move.AddVarrayColumnProps(varray());
    partition.AddLOBStorage(lob());
    partition.AddPartColProps(varray());
    group.AddLogColumn(Name(name), name[0] == 'X');
    external.AddLocation(name);
  }
  std::string const lists = " LOB (Y) STORE AS S, LOB (X) STORE AS S VARRAY Y, VARRAY X";
  EXPECT_EQ(move.AsString(), "MOVE" + lists);
  EXPECT_EQ(partition.AsString(), "PARTITION " + lists);
  EXPECT_EQ(group.AsString(), "GROUP  (Y, X NO LOG)");
  EXPECT_EQ(external.AsString(), "LOCATION(Y, X)");
}

TEST(Organisation, ChangesOfTheOverflow) {
  EXPECT_TRUE(InRun([](TableRun& run) {
                REPAlterOverflowClause overflow;
                overflow.SetDeallocateUnusedClause(new REPDeallocateUnusedClause);
                overflow.SetAllocExtentClause(new REPAllocExtentClause);
                EXPECT_EQ(overflow.Process(&run.processor, run.table), REPProcessOK);
                EXPECT_EQ(run.Children(run.table, ORVTypes::oOraclePhysicalStorage).size(), 0U);
                EXPECT_EQ(overflow.AsString(), "OVERFLOW ALLOCATE EXTENT DEALLOCATE UNUSED");
                REPAlterMappingTableClause mapping;
                mapping.SetAllocExtentClause(new REPAllocExtentClause);
                EXPECT_EQ(mapping.AsString(), "MAPPING TABLE ALLOCATE EXTENT");
                overflow.SetAddOverflowClause(New<REPAddOverflowClause>([](auto& added) {
                  added.SetSegmentAttributesClause(new REPSegmentAttributesClause);
                }));
                EXPECT_EQ(overflow.Process(&run.processor, run.table), REPProcessOK);
                auto const items = run.Children(run.table, ORVTypes::oOraclePhysicalStorage);
                ASSERT_EQ(items.size(), 1U);
                EXPECT_STREQ(items[0]->Name(), "Overflow");
                EXPECT_NE(Properties(*run.table).find("pOracleOverflowStorageRef=->"),
                          std::string::npos);
              }).empty());
}

// An index storage that was loaded under a name of its own stays what the table refers to.
TEST(Organisation, MoveKeepsTheIndexStorage) {
  EXPECT_TRUE(InRun([](TableRun& run) {
                auto* const index =
                    Add(run.processor, run.table->Id(), ORVTypes::oOraclePhysicalStorage, "IX");
                repora::SetReference(*run.table, ORVTypes::pOracleIndexStorageRef, index->Id());
                auto const before = Properties(*run.table);
                REPMoveTableClause move;
                move.SetSegmentAttributesClause(new REPSegmentAttributesClause);
                EXPECT_EQ(move.Process(&run.processor, run.table), REPProcessOK);
                EXPECT_EQ(Properties(*run.table), before);
                EXPECT_EQ(run.Children(run.table, ORVTypes::oOraclePhysicalStorage).size(), 2U);
              }).empty());
}

TEST(Organisation, CopiesOfAnExternalTableShareItsQuery) {
  auto const query = [](char const* text) {
    return New<REPSubQuery>([text](auto& sub_query) {
      sub_query.SetSubquery(New<REPSelect>([text](auto& select) { select.SetText(text); }));
    });
  };
  REPPhysicalProps copy;
  std::unique_ptr<REPSubQuery> replaced;
  {
    auto* const external = new REPExternalTableClause;
    external->SetDriverType("D");
    external->AddLocation("f");
    external->SetSubQuery(replaced.get());
    external->SetSubQuery(query("FIRST"));
    replaced.reset(external->GetSubQuery());
    external->SetSubQuery(query("SECOND"));
    REPPhysicalProps properties;
    properties.SetOrganization(REPOrganization_e::External);
    properties.SetPctThreshold("5");
    properties.SetExternalTableClause(external);
    copy = &properties;
    external->SetSubQuery(query("THIRD"));
  }
  EXPECT_EQ(copy.AsString(),
            "ORGANIZATION EXTERNAL TYPE D ACCESS PARAMETERS USING CLOB (SECOND) LOCATION(f)");
  EXPECT_EQ(replaced->AsString(), "(FIRST)");
  replaced->SetSubqueryType(REPSubqueryType_e::UnionAll);
  EXPECT_EQ(replaced->AsString(), "UNION ALL(FIRST)");
  // A query wins over a text.
  EXPECT_TRUE(InRun([&](TableRun& run) {
                REPExternalTableClause both;
                both.SetAccessParameters("text");
                both.SetSubQuery(query("Q"));
                EXPECT_EQ(both.Process(&run.processor, run.table, false), REPProcessOK);
                auto const properties = Properties(*run.table);
                EXPECT_NE(properties.find("pAccessParameterType=1 pAccessParameters='(Q)'"),
                          std::string::npos)
                    << properties;
              }).empty());
}

}  // namespace
