#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "repora/model/codes.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/physical_props.h"
#include "repora/storage/segment_attributes.h"
#include "tests/run_fixture.h"

namespace {

namespace codes = repora::codes;

// Calls the action inside a run on a new model.
void InRun(std::function<void(REPProcessor*)> const& action) {
  bool called = false;
  repora::test::Job job;
  EXPECT_TRUE(job.Run([&](REPProcessor& running) { action(&running), called = true; }) && called);
}

MOXActionSummaryItem* Add(REPProcessor* processor, MOXId type, char const* text) {
  REPName const name(text);
  MOXActionSummaryItem* item = nullptr;
  processor->AddItem(processor->GetRoot(), type, &name, item);
  return item;
}

using repora::test::Properties;

using Item = std::unique_ptr<MOXActionSummaryItem, void (*)(MOXActionSummaryItem*)>;
Item NewItem() {
  return {new MOXActionSummaryItem, [](MOXActionSummaryItem* item) { item->RemoveReference(); }};
}

REPSegmentAttributesClause* Segment(int pct_free, char const* tablespace = nullptr,
                                    REPLogging_e logging = REPLogging_e::None) {
  auto* const clause = new REPSegmentAttributesClause;
  clause->GetAttributesClause()->SetPctFree(pct_free);
  if (tablespace) clause->SetTablespaceName(new REPName(tablespace));
  clause->SetLogging(logging);
  return clause;
}

// What a clause's process writes on an item.
std::string Written(std::function<void(MOXActionSummaryItem*)> const& process) {
  auto const item = NewItem();
  process(item.get());
  return Properties(*item);
}

TEST(Storage, SizesKeepTheirUnit) {
  std::pair<char const*, char const*> const texts[] = {
      {"64k", "64K"}, {"64K", "64K"}, {"10m", "10M"}, {"2G", "2G"}, {"1t", "1T"}, {"100B", "100"},
      {"512", "512"}, {"8X", "8X"},   {"M", "M"},     {"", ""},     {nullptr, ""}};
  for (auto const& [text, rendered] : texts) EXPECT_EQ(REPSizeClause(text).AsString(), rendered);
  EXPECT_EQ(REPSizeClause("8X").GetType(), REPSizeType_e::Number);
  EXPECT_EQ(REPSizeClause("").GetType(), REPSizeType_e::Number);
  // The type changes alone: the number shows again under a type that has one.
  REPSizeClause size("7G");
  char const* const by_type[] = {"", "", "NULL", "7", "7K", "7M", "7G", "7T", "UNLIMITED", ""};
  for (int type = 0; type < 10; ++type) {
    size.SetType(static_cast<REPSizeType_e>(type));
    EXPECT_EQ(size.AsString(), by_type[type]);
  }
  EXPECT_EQ(REPSizeClause("7G").AsString("SIZE ") + REPSizeClause().AsString("SIZE "), "SIZE 7G");
}

TEST(Storage, EverySizeOfTheStorageClause) {
  struct {
    void (REPStorageClause::*set)(REPSizeClause);
    std::string keyword;
    char const* properties;
  } const fields[] = {
      {&REPStorageClause::SetInitial, "INITIAL", "pOracleInitial='3K'"},
      {&REPStorageClause::SetNext, "NEXT", "pOracleNext='3K'"},
      {&REPStorageClause::SetMinExtents, "MINEXTENTS", "pOracleMinExtents='3K'"},
      {&REPStorageClause::SetMaxExtents, "MAXEXTENTS", "pOracleMaxExtents='3K'"},
      {&REPStorageClause::SetPctIncrease, "PCTINCREASE", "pOraclePctIncrease='3K'"},
      {&REPStorageClause::SetFreeLists, "FREELISTS", "pOracleFreeLists='3K'"},
      {&REPStorageClause::SetGroups, "FREELIST GROUPS", "pOracleFreeListGroups='3K'"},
      {&REPStorageClause::SetOptimal, "OPTIMAL", "pOracleOptimal='3K' pOracleOptimalSizeType=1"},
  };
  REPStorageClause all;
  std::string all_text = "STORAGE (";
  for (auto const& field : fields) {
    REPStorageClause given;
    (given.*field.set)("3k");
    EXPECT_EQ(given.AsString(), "STORAGE ( " + field.keyword + " 3K )");
    EXPECT_EQ(Written([&](auto* item) { given.WriteProperties(*item); }), field.properties);
    REPStorageClause merged;
    merged.FillFrom(given);
    EXPECT_EQ(merged.AsString(), given.AsString());
    (given.*field.set)("4");
    merged.FillFrom(given);
    EXPECT_EQ(merged.AsString(), "STORAGE ( " + field.keyword + " 3K )");
    (all.*field.set)("3K");
    all_text += " " + field.keyword + " 3K";
  }
  EXPECT_EQ(all.AsString(), all_text + " )");
}

TEST(Storage, KeywordsOfTheStorageClause) {
  using Type = REPSizeType_e;
  using Pool = REPPoolType_e;
  struct {
    Type max, optimal;
    Pool pool;
    char const* text;
    char const* properties;
  } const cases[] = {
      {Type::None, Type::None, Pool::None, "STORAGE ( )", ""},
      {Type::Unlimited, Type::KeywordOnly, Pool::Recycle,
       "STORAGE ( MAXEXTENTS UNLIMITED OPTIMAL BUFFER_POOL RECYCLE )",
       "pOracleBuffPool=901 pOracleMaxExtentType=0 pOracleOptimal=' '"},
      {Type::KeywordOnly, Type::Null, Pool::Default,
       "STORAGE ( MAXEXTENTS  OPTIMAL NULL BUFFER_POOL DEFAULT )",
       "pOracleBuffPool=902 pOracleMaxExtents='' pOracleOptimalSizeType=0"},
      {Type::None, Type::None, Pool::Keep, "STORAGE ( BUFFER_POOL KEEP )", "pOracleBuffPool=900"},
      {Type::None, Type::None, static_cast<Pool>(9), "STORAGE ( )", ""},
  };
  for (auto const& expected : cases) {
    REPStorageClause clause;
    clause.SetMaxExtents(expected.max);
    clause.SetOptimal(expected.optimal);
    clause.SetBufferPool(expected.pool);
    EXPECT_EQ(clause.AsString(), expected.text);
    EXPECT_EQ(Written([&](auto* item) { clause.WriteProperties(*item); }), expected.properties);
  }
}

TEST(Storage, PhysicalAttributes) {
  REPStorageClause sizes;
  sizes.SetInitial("64K");
  REPPhysicalAttrClause clause;
  clause.SetStorageClause(sizes);
  clause.SetPctFree(0);
  clause.SetPctUsed("x");
  clause.SetIniTrans(" 12 ");
  clause.SetMaxTrans(255);
  auto present = clause;
  sizes.SetClausePresent(true);
  present.SetStorageClause(sizes);
  EXPECT_EQ(clause.AsString(), "PCTFREE 0 PCTUSED 0 INITRANS 12");
  EXPECT_EQ(present.AsString(), "PCTFREE 0 PCTUSED 0 INITRANS 12 STORAGE ( INITIAL 64K )");
  InRun([&](REPProcessor* processor) {
    auto* const table = Add(processor, ORVTypes::oEntity, "EMP");
    auto const* const storage = clause.Process(processor, table, codes::kRegularStorage);
    EXPECT_EQ(
        Properties(*storage),
        "pOracleIniTrans='12' pOracleMaxTrans='255' pOraclePctFree='0' pOraclePctUsed='0' pType=1");
    // The same segment again is the same item.
    EXPECT_EQ(present.Process(processor, table, codes::kRegularStorage), storage);
    EXPECT_NE(Properties(*storage).find("pOracleInitial='64K'"), std::string::npos);
    auto const* const overflow =
        REPPhysicalAttrClause().Process(processor, table, codes::kOverflowStorage);
    EXPECT_EQ(Properties(*overflow), "pName='Overflow' pType=3");
    EXPECT_EQ(overflow->Owner(), table->Id());
    // A storage clause of its own is named like its owner and needs no mark.
    sizes.SetClausePresent(false);
    auto const* const named = sizes.Process(processor, table);
    EXPECT_EQ(named->Type(), ORVTypes::oOraclePhysicalStorage);
    EXPECT_EQ(Properties(*named), "pName='EMP' pOracleInitial='64K'");
  });
}

TEST(Storage, SegmentAttributes) {
  std::unique_ptr<REPSegmentAttributesClause> const clause(
      Segment(-1, "\"Users\"", REPLogging_e::NoLogging));
  clause->SetCompressionSize("2");
  EXPECT_EQ(clause->AsString(), "TABLESPACE Users NOLOGGING");
  clause->SetCompression(REPCompress_e::Compress);
  EXPECT_EQ(clause->AsString(), "TABLESPACE Users NOLOGGING COMPRESS 2");
  InRun([&](REPProcessor* processor) {
    auto const tablespace = Add(processor, ORVTypes::oOracleTablespace, "USERS")->Id();
    auto* const table = Add(processor, ORVTypes::oEntity, "EMP");
    auto* const partition = Add(processor, ORVTypes::oOraclePartitionDescription, "P1");
    auto const table_before = Properties(*table);
    auto const reference = "pOracleTablespaceRef=->" + std::to_string(tablespace);

    auto const* const storage = clause->Process(processor, table, codes::kIndexStorage);
    EXPECT_EQ(Properties(*storage), "pOracleNoLogging=true " + reference + " pType=2");
    EXPECT_EQ(Properties(*table), table_before);

    clause->SetLogging(REPLogging_e::Logging);
    auto const* const other = clause->Process(processor, partition, codes::kUnclassifiedStorage);
    EXPECT_EQ(Properties(*other), "pOracleNoLogging=false " + reference + " pType=0");
    EXPECT_EQ(Properties(*partition), "pCompressPrefixLength='2' pCompressType=919 pName='P1'");

    // FORCE LOGGING is no choice of a segment; an unknown tablespace gets a placeholder.
    REPSegmentAttributesClause last(clause.get());
    last.SetLogging(REPLogging_e::ForceLogging);
    last.SetCompression(REPCompress_e::NoCompress);
    last.GetTablespaceName()->AddHead("ELSEWHERE");
    last.Process(processor, partition, codes::kUnclassifiedStorage);
    auto const placeholder = processor->FindCreateItem(
        processor->GetRoot(), ORVTypes::oOracleTablespace, last.GetTablespaceName());
    EXPECT_NE(placeholder, tablespace);
    EXPECT_EQ(Properties(*other), "pOracleNoLogging=false pOracleTablespaceRef=->" +
                                      std::to_string(placeholder) + " pType=0");
    EXPECT_EQ(Properties(*partition), "pCompressType=918 pName='P1'");
  });
}

TEST(Storage, CompactListMergesPieces) {
  REPSegmentAttributesClauseList list;
  EXPECT_EQ(list.CompactList(), nullptr);
  list.AddTail(nullptr);
  EXPECT_EQ(list.CompactList(), nullptr);
  list.AddTail(Segment(20, "late", REPLogging_e::NoLogging));
  list.AddTail(nullptr);
  list.AddHead(Segment(-1, "users"));
  list.AddHead(Segment(10));
  list.AddHead(nullptr);
  for (int i = 1; i <= 2; ++i) {
    REPStorageClause storage;
    storage.SetBufferPool(static_cast<REPPoolType_e>(i));
    storage.SetMaxExtents(REPSizeType_e::KeywordOnly);
    storage.SetClausePresent(true);
    auto* const piece = Segment(-1, nullptr, REPLogging_e::Logging);
    piece->GetAttributesClause()->SetStorageClause(storage);
    piece->GetAttributesClause()->SetPctUsed(40 + i);
    piece->GetAttributesClause()->SetIniTrans(2 + i);
    piece->GetAttributesClause()->SetMaxTrans(9 + i);
    piece->SetCompression(REPCompress_e::Compress);
    list.AddTail(piece);
  }
  auto* const first = list.GetAttributes(1);
  EXPECT_EQ(list.CompactList(), first);
  EXPECT_EQ(first->AsString(),
            "PCTFREE 10 PCTUSED 41 INITRANS 3 STORAGE ( MAXEXTENTS  BUFFER_POOL DEFAULT ) "
            "TABLESPACE users NOLOGGING");
  EXPECT_EQ(first->GetAttributesClause()->GetMaxTrans(), 10);
  ASSERT_EQ(list.GetCount(), 1);
  EXPECT_EQ(list.GetAttributes(0), first);
}

TEST(Storage, ListsOfSegmentAttributes) {
  REPSegmentAttributesClauseList list;
  EXPECT_EQ(list.AsString(), "()");
  list.AddTail(nullptr);
  list.AddHead(Segment(5));
  list.AddTail(Segment(6));
  list.AddTail(new REPSegmentAttributesClause);
  auto const* const all = "(PARTITION PCTFREE 5, PARTITION, PARTITION PCTFREE 6, PARTITION )";
  EXPECT_EQ(list.AsString(), all);
  REPSegmentAttributesClauseList const copy(&list);
  for (int const position : {2, 0}) {
    std::unique_ptr<REPSegmentAttributesClause> const taken(list.GetAttributes(position));
    EXPECT_EQ(list.RemoveAt(position), taken.get());
  }
  EXPECT_EQ(list.AsString(), "(PARTITION, PARTITION )");
  EXPECT_EQ(copy.AsString(), all);
  EXPECT_THROW(list.GetAttributes(-1), std::invalid_argument);
  EXPECT_THROW(list.RemoveAt(2), std::invalid_argument);

  REPSegmentAttributesList plain;
  EXPECT_EQ(plain.AsString(), "");
  plain.AddTail(Segment(2));
  plain.AddHead(Segment(1));
  plain.AddTail(nullptr);
  EXPECT_EQ(plain.AsString(), "(PARTITION PCTFREE 1, PARTITION PCTFREE 2)");
  EXPECT_THROW(plain.GetAttributesClause(2), std::invalid_argument);
}

TEST(Storage, PhysicalProps) {
  REPPhysicalProps props;
  EXPECT_EQ(props.AsString(), "");
  props.SetCompressionSize("2");
  props.SetSegmentAttributes(Segment(10));
  props.SetIncludingColumn(new REPName("B"));
  props.SetIndexOverflow(true);
  props.SetOverflowSegmentAttributes(Segment(20));
  props.SetMapping(REPMapping_e::MappingTable);
  props.SetPctThreshold("30");
  std::string const start = "PCTFREE 10 INCLUDING B OVERFLOW PCTFREE 20 ";
  EXPECT_EQ(props.AsString(), start + "MAPPING TABLE PCTTHRESHOLD 30");
  props.SetOrganization(REPOrganization_e::Index);
  props.SetCompression(REPCompress_e::NoCompress);
  props.SetMapping(static_cast<REPMapping_e>(3));
  EXPECT_EQ(props.AsString(),
            "ORGANIZATION INDEX " + start + "NOCOMPRESS 2 NOMAPPING PCTTHRESHOLD 30");
  REPPhysicalProps external(&props);
  external.SetOrganization(REPOrganization_e::External);
  EXPECT_EQ(external.AsString(), "ORGANIZATION EXTERNAL");

  auto* const columns = new REPNameList;
  columns->AddTail(new REPName("A"));
  columns->AddTail(new REPName("B"));
  props.SetClusterName(new REPName("HR.C"));
  props.SetClusterColumns(columns);
  auto const copy = props;
  columns->AddTail(new REPName("C"));
  EXPECT_EQ(copy.AsString(), "CLUSTER HR.C(A, B)");
}

TEST(Storage, Parallel) {
  struct {
    int kind;
    char const *size, *degree, *instances;
    std::string text, value;
    int code;
  } const cases[] = {
      {0, "4", "2", "3", "", "", 0},
      {1, "4", "2", "3", "NOPARALLEL", "", 905},
      {2, "0", "", nullptr, "PARALLEL", "", 904},
      {2, "4", "2", "3", "PARALLEL 4", "4", 904},
      {2, "-1", "2", "", "PARALLEL (DEGREE 2)", "(DEGREE 2)", 904},
      {2, nullptr, nullptr, "3", "PARALLEL (INSTANCES 3)", "(INSTANCES 3)", 904},
      {2, "x", "2", "3", "PARALLEL (DEGREE 2 INSTANCES 3)", "(DEGREE 2 INSTANCES 3)", 904},
      {3, "4", "2", "3", "", "", 0},
  };
  for (auto const& expected : cases) {
    REPParallelClause clause;
    clause.SetParallel(static_cast<REPParallel_e>(expected.kind));
    clause.SetSize(expected.size);
    clause.SetDegree(expected.degree);
    clause.SetInstances(expected.instances);
    EXPECT_EQ(clause.AsString(), expected.text);
    std::string properties;
    if (!expected.value.empty()) properties = "pOracleParallel='" + expected.value + "' ";
    if (expected.code != 0) properties += "pUseParallel=" + std::to_string(expected.code);
    EXPECT_EQ(Written([&](auto* item) { clause.Process(nullptr, item); }), properties);
  }
}

TEST(Storage, CompressionAndExtents) {
  auto const item = NewItem();
  REPCompressionClause clause;
  auto const write = [&](int compression, char const* size) {
    clause.SetCompression(static_cast<REPCompress_e>(compression));
    clause.SetCompressionSize(size);
    EXPECT_EQ(clause.Process(item.get()), REPProcessOK);
    return clause.AsString() + ": " + Properties(*item);
  };
  EXPECT_EQ(write(0, "2"), ": ");
  EXPECT_EQ(write(1, "2"), "COMPRESS 2: pCompressPrefixLength='2' pCompressType=919");
  EXPECT_EQ(write(1, nullptr), "COMPRESS: pCompressPrefixLength='2' pCompressType=919");
  EXPECT_EQ(write(2, "2"), "NOCOMPRESS: pCompressType=918");
  EXPECT_EQ(write(3, "2"), ": pCompressType=918");

  REPAllocExtentClause allocate;
  EXPECT_EQ(allocate.AsString(), "ALLOCATE EXTENT");
  allocate.SetInstance("1");
  allocate.SetFilename(new REPName("'f1.dbf'"));
  EXPECT_EQ(Written([&](auto* to) { allocate.Process(to); }), "");
  allocate.SetSizeClause("10m");
  EXPECT_EQ(Written([&](auto* to) { allocate.Process(to); }), "pOracleSize='10M'");
  EXPECT_EQ(allocate.AsString(), "ALLOCATE EXTENT (SIZE 10M DATAFILE 'f1.dbf' INSTANCE 1)");

  REPDeallocateUnusedClause deallocate;
  EXPECT_EQ(deallocate.AsString(), "DEALLOCATE UNUSED");
  deallocate.SetKeepSize("5K");
  EXPECT_EQ(REPDeallocateUnusedClause(&deallocate).AsString(), "DEALLOCATE UNUSED KEEP 5K");
}

TEST(Storage, CopiesOwnTheirNames) {
  auto original = std::unique_ptr<REPSegmentAttributesClause>(Segment(10, "users"));
  REPSegmentAttributesClause const by_reference(*original);
  REPSegmentAttributesClause const by_pointer(original.get());
  REPSegmentAttributesClause assigned(by_pointer);
  assigned = original.get();
  assigned = &assigned;
  original.reset();
  for (auto const* copy : {&by_reference, &by_pointer, &std::as_const(assigned)})
    EXPECT_EQ(copy->AsString(), "PCTFREE 10 TABLESPACE users");
  assigned = static_cast<REPSegmentAttributesClause const*>(nullptr);
  EXPECT_EQ(assigned.AsString(), "");
}

TEST(Storage, NullArgumentsAreHarmless) {
  std::unique_ptr<REPSegmentAttributesClause> const clause(Segment(10, "users"));
  InRun([&](REPProcessor* processor) {
    EXPECT_EQ(clause->Process(processor, nullptr, codes::kRegularStorage), nullptr);
    EXPECT_EQ(REPStorageClause().Process(processor, nullptr), nullptr);
  });
  EXPECT_EQ(Written([&](auto* item) {
              EXPECT_EQ(clause->Process(nullptr, item, codes::kRegularStorage), nullptr);
              EXPECT_EQ(REPStorageClause().Process(nullptr, item), nullptr);
            }),
            "");
  EXPECT_EQ(REPParallelClause().Process(nullptr, nullptr), REPProcessError);
  EXPECT_EQ(REPCompressionClause().Process(nullptr), REPProcessError);
  EXPECT_EQ(REPAllocExtentClause().Process(nullptr), REPProcessError);
}

}  // namespace
