#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "repora/model/codes.h"
#include "tests/table_builders.h"

namespace {

namespace codes = repora::codes;

using namespace repora::test;  // the builders are the language of these tests

using Attributes = REPIndexAttributesClause;

Fill<REPIndexPropertiesClause> With(Fill<Attributes> const& fill) {
  return [fill](REPIndexPropertiesClause& properties) { fill(*properties.GetIndexAttributes()); };
}

REPCreateIndex* ClusterIndex(char const* name, char const* cluster, REPIndexType_e type,
                             Fill<Attributes> const& attributes = nullptr) {
  return New<REPCreateIndex>([&](auto& index) {
    index.SetIndexName(new REPName(name));
    index.SetIndexType(type);
    index.SetClusterIndexClause(New<REPClusterIndexClause>([&](auto& clause) {
      clause.SetClusterName(new REPName(cluster));
      if (attributes) clause.SetIndexAttributes(New(attributes));
    }));
  });
}

TEST(Indexes, OfTables) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "C1; C2; C3"));
    EXPECT_EQ(run.Do(Index("S.I1", "T", "-c1, UPPER(c2), \"C3\"")), REPProcessOK);
    EXPECT_EQ(run.Do(Index("I2", "T", "C2", REPIndexType_e::Unique)), REPProcessOK);
    EXPECT_EQ(run.Do(Index("I3", "T", "C2", REPIndexType_e::Bitmap)), REPProcessOK);
    EXPECT_EQ(run.Do(Index("I4", "T", "")), REPProcessOK);
    EXPECT_EQ(run.KeyGroups("T"), "IE I1(C1 DESC, {UPPER(c2)}, C3); AK I2(C2); IE I3(C2); IE I4()");
    auto const table = run.TableItem("T").Id();
    auto const keys = run.Children(table, ORVTypes::oKeyGroup);
    auto const members = run.Children(keys[0]->Id(), ORVTypes::oKeyGroupMember);
    ASSERT_EQ(members.size(), 3u);
    std::string order;
    for (auto const* const member : members)
      order += (order.empty() ? "" : ", ") + std::to_string(member->Id());
    EXPECT_EQ(Properties(*keys[0]),
              "pDBOwner='S' pGenerateAsConstraint=false "
              "pIndexMemberOrderList=" +
                  order + " pKeyGroupMemberOrderList=" + order + " pKeyGroupType='IE' pName='I1'");
    EXPECT_EQ(Properties(*members[1]), "pExpression='UPPER(c2)'");
    EXPECT_EQ(TextProperty(*keys[1], ORVTypes::pOracleBitmap), "(absent)");
    EXPECT_EQ(TextProperty(*keys[2], ORVTypes::pOracleBitmap), "true");
    EXPECT_EQ(Properties(*keys[3]), "pGenerateAsConstraint=false pKeyGroupType='IE' pName='I4'");
    EXPECT_EQ(run.Children(keys[0]->Id(), ORVTypes::oOracleAttributeStorage).size(), 0u);
    // An index is no key that a foreign key could find.
    REPName const name("T");
    std::unique_ptr<REPNameList> const columns(Names("C2"));
    EXPECT_EQ(run.p.FindMatchInTableIndexes(&name, columns.get()), 0u);

    EXPECT_EQ(run.Do(Index("i2", "T", "C1")), REPProcessDuplicate);
    EXPECT_EQ(run.Do(Index("I5", "T", "C1, c1, C2")), REPProcessDuplicate);
    EXPECT_EQ(run.Children(table, ORVTypes::oKeyGroup).size(), 5u);
    EXPECT_EQ(run.Messages(), "");
  });
}

// The names that the logical model gives to an expression go, the physical one too.
TEST(Indexes, ExpressionsHaveNoNames) {
  Job job;
  job.processor.SetLogicalCase(eREPLogicalMixed);
  InRun(job, [](RunningJob& run) {
    run.Do(Table("T", "EMP_ID"));
    run.Do(Index("I", "T", "EMP_ID, F(EMP_ID)"));
    auto const members = run.Children(run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup).Id(),
                                      ORVTypes::oKeyGroupMember);
    EXPECT_NE(Properties(*members[0]).find("pName='Emp Id' pPhysicalName='EMP_ID'"),
              std::string::npos);
    EXPECT_EQ(Properties(*members[1]), "pExpression='F(EMP_ID)'");
  });
}

TEST(Indexes, OfOtherThings) {
  InRun([](RunningJob& run) {
    auto* const view = run.Add(ORVTypes::oCachedView, "MV");
    run.Add(ORVTypes::oAttribute, "A", view->Id());
    EXPECT_EQ(run.Do(Index("I", "mv", "A")), REPProcessOK);
    EXPECT_EQ(run.KeyGroups(*view), "IE I(A)");
    run.Add(ORVTypes::oView, "V");
    EXPECT_EQ(run.Do(Index("S.I", "V", "A")), REPProcessError);
    EXPECT_EQ(run.Messages(),
              "REP-39 Create / Alter Index - S.I Failed. Unable to find Table - V.");

    auto const* const cluster = run.Add(ORVTypes::oOracleCluster, "C");
    auto const local = [](Attributes& attributes) {
      attributes.SetReverse(true);
      attributes.SetIndexAttPartition(REPIndexAttPart_e::Local);
    };
    EXPECT_EQ(run.Do(ClusterIndex("S.J", "C", REPIndexType_e::Unique, local)), REPProcessOK);
    EXPECT_EQ(run.Do(ClusterIndex("S.j", "C", REPIndexType_e::None)), REPProcessDuplicate);
    EXPECT_EQ(run.Do(ClusterIndex("K", "C", REPIndexType_e::Bitmap)), REPProcessOK);
    auto const indexes = run.Children(cluster->Id(), ORVTypes::oOracleClusterIndex);
    ASSERT_EQ(indexes.size(), 2u);
    EXPECT_EQ(Properties(*indexes[0]), "pDBOwner='S' pIsUnique=true pName='J'");
    EXPECT_EQ(Properties(*indexes[1]), "pName='K' pOracleBitmap=true");
    EXPECT_EQ(Properties(run.Only(indexes[0]->Id(), ORVTypes::oOracleAttributeStorage)),
              "pOracleReverseStore=true");
    EXPECT_EQ(run.Messages(), "");
    EXPECT_EQ(run.Do(ClusterIndex("J", "S.X", REPIndexType_e::None)), REPProcessError);
    EXPECT_EQ(run.Messages(), "REP-3 Undefined Cluster S.X");
  });
}

TEST(Indexes, Unsupported) {
  InRun([](RunningJob& run) {
    run.Do(Table("T", "A"));
    EXPECT_EQ(run.Do(new REPCreateIndex), REPProcessUnsupported);
    std::unique_ptr<REPCreateIndex> const join(Index("I", "T", "A"));
    EXPECT_EQ(REPCreateIndex().ProcessEmbeded(&run.p), nullptr);
    join->SetBitmapIndexClause(new REPBitmapIndexClause);
    EXPECT_EQ(join->Process(&run.p), REPProcessUnsupported);
    EXPECT_EQ(join->ProcessEmbeded(&run.p), nullptr);
    EXPECT_EQ(run.KeyGroups("T"), "");
  });
}

TEST(Indexes, Attributes) {
  auto const tablespace = [](Attributes& a) { a.SetTablespace(new REPName("TS")); };
  auto const compress = [](REPCompress_e kind) {
    return [kind](Attributes& a) {
      a.SetCompression(kind);
      a.SetCompressionSize("2");
    };
  };
  auto const parallel = [](Attributes& a) {
    a.SetParallelClause(New<REPParallelClause>([](auto& clause) {
      clause.SetParallel(REPParallel_e::Parallel);
      clause.SetSize(4);
    }));
  };
  struct Case {
    Fill<Attributes> fill;
    char const* properties;  // # is the id of the tablespace
    char const* text;
    char const* segment = "(none)";  // the physical storage under the attribute storage
  };
  Case const cases[] = {
      {[](Attributes&) {}, "", ""},
      {[](Attributes& a) { a.GetPhysicalAttrClause()->SetPctFree(5); }, "", "PCTFREE 5",
       "pOraclePctFree='5' pType=1"},
      // MAXTRANS has no text and makes no segment.
      {[](Attributes& a) { a.GetPhysicalAttrClause()->SetMaxTrans(5); }, "", ""},
      {[](Attributes& a) { a.SetLogging(REPLogging_e::Logging); }, "pOracleNoLogging=false",
       "LOGGING"},
      {[](Attributes& a) { a.SetLogging(REPLogging_e::NoLogging); }, "pOracleNoLogging=true",
       "NOLOGGING"},
      {[](Attributes& a) { a.SetOnline(true); }, "pOnline=true", "ONLINE"},
      {[](Attributes& a) { a.SetComputeStatistics(true); }, "pComputeStatistics=true",
       "COMPUTE STATISTICS"},
      {tablespace, "pOracleTablespaceRef=->#", "TABLESPACE TS", ""},
      {[&](Attributes& a) { tablespace(a), a.GetPhysicalAttrClause()->SetPctFree(5); },
       "pOracleTablespaceRef=->#", "PCTFREE 5 TABLESPACE TS", "pOraclePctFree='5' pType=1"},
      {[&](Attributes& a) { tablespace(a), a.SetTablespaceDefault(true); },
       "pOracleTablespaceUsageType=0", "TABLESPACE DEFAULT TABLESPACE TS"},
      {compress(REPCompress_e::Compress), "pCompressPrefixLength='2' pCompressType=919",
       "COMPRESS 2"},
      {compress(REPCompress_e::NoCompress), "pCompressType=918", "NOCOMPRESS"},
      {[](Attributes& a) { a.SetSort(REPSort_e::NoSort); }, "pOracleNoSort=true", "NOSORT"},
      {[](Attributes& a) { a.SetSort(REPSort_e::Sort); }, "pOracleNoSort=false", "SORT"},
      {[](Attributes& a) { a.SetReverse(true); }, "pOracleReverseStore=true", "REVERSE"},
      {parallel, "pOracleParallel='4' pUseParallel=904", "PARALLEL 4"},
  };
  for (auto const& expected : cases) {
    SCOPED_TRACE(expected.text);
    Attributes attributes;
    expected.fill(attributes);
    EXPECT_EQ(attributes.AsString(), expected.text);
    InRun([&](RunningJob& run) {
      auto const space = std::to_string(run.Add(ORVTypes::oOracleTablespace, "TS")->Id());
      run.Do(Table("T", "A"));
      EXPECT_EQ(run.Do(Index("I", "T", "A", REPIndexType_e::None, With(expected.fill))),
                REPProcessOK);
      auto const& key = run.Only(run.TableItem("T").Id(), ORVTypes::oKeyGroup);
      auto const& storage = run.Only(key.Id(), ORVTypes::oOracleAttributeStorage);
      std::string properties(expected.properties);
      if (auto const at = properties.find('#'); at != std::string::npos)
        properties.replace(at, 1, space);
      EXPECT_EQ(Properties(storage), properties);
      // A segment is registered, so that a later change finds it.
      auto const* const segment = run.p.FindItemPtr(storage.Id(), ORVTypes::oOraclePhysicalStorage);
      EXPECT_EQ(segment ? Properties(*segment) : "(none)", expected.segment);
    });
  }
}

TEST(Indexes, LocalIndexesNeedPartitions) {
  InRun([](RunningJob& run) {
    run.Do(Table("S.T", "A"));
    auto& table = run.TableItem("S.T");
    auto const create = [&](char const* name, REPIndexAttPart_e partition) {
      return run.Do(Index(name, "S.T", "A", REPIndexType_e::None,
                          With([&](auto& a) { a.SetIndexAttPartition(partition); })));
    };
    EXPECT_EQ(create("I1", REPIndexAttPart_e::Local), REPProcessError);
    EXPECT_EQ(run.Messages(),
              "REP-42 LOCAL partition index on Table T failed.  Underlying table of a LOCAL "
              "partition index must be partitioned.");
    EXPECT_EQ(create("I2", REPIndexAttPart_e::Global), REPProcessOK);
    table.SetProperty(ORVTypes::pOraclePartitionType, QELValue::FromInteger(1));
    EXPECT_EQ(create("I3", REPIndexAttPart_e::Local), REPProcessOK);
    EXPECT_EQ(create("I4", REPIndexAttPart_e::None), REPProcessOK);
    EXPECT_EQ(run.Messages(), "");
    // What was made before the failure stays.
    EXPECT_EQ(run.KeyGroups(table), "IE I1(A); IE I2(A); IE I3(A); IE I4(A)");
    std::string types;
    for (auto const* const key : run.Children(table.Id(), ORVTypes::oKeyGroup)) {
      run.Only(key->Id(), ORVTypes::oOracleAttributeStorage);
      types += TextProperty(*key, ORVTypes::pOracleIndexPartitionType) + " ";
    }
    EXPECT_EQ(types, "(absent) 0 1 (absent) ");
  });
}

TEST(Indexes, Texts) {
  auto const text = [](REPStatement* index) {
    return std::unique_ptr<REPStatement>(index)->AsString();
  };
  EXPECT_EQ(text(new REPCreateIndex), "CREATE INDEX  ON ;");
  EXPECT_EQ(text(ClusterIndex("I", "S.C", REPIndexType_e::Bitmap,
                              [](auto& attributes) { attributes.SetOnline(true); })),
            "CREATE BITMAP INDEX I ON CLUSTER S.C ONLINE;");
  auto* const index = Index("\"i\"", "S.T", "A, -UPPER(b)", REPIndexType_e::Unique,
                            [](REPIndexPropertiesClause& properties) {
                              auto* const attributes = properties.GetIndexAttributes();
                              attributes->SetReverse(true);
                              attributes->SetLogging(REPLogging_e::Logging);
                              attributes->SetIndexAttPartition(REPIndexAttPart_e::Local);
                            });
  index->GetTableIndexClause()->SetAliasName(new REPName("X"));
  EXPECT_EQ(index->EmbeddedText(),
            "CREATE UNIQUE INDEX i ON S.T X (A, UPPER(b) DESC) LOGGING REVERSE");
  auto* const domain = new REPDomainIndexClause;
  domain->SetIndextypeName(new REPName("CTX.CONTEXT"));
  index->GetTableIndexClause()->GetIndexProperties()->SetDomainIndex(domain);
  EXPECT_EQ(domain->AsString(), "INDEXTYPE IS CTX.CONTEXT");
  domain->SetODCIParameters("LEXER x");
  domain->SetParallelClause(
      New<REPParallelClause>([](auto& clause) { clause.SetParallel(REPParallel_e::NoParallel); }));
  EXPECT_EQ(text(index),
            "CREATE UNIQUE INDEX i ON S.T X (A, UPPER(b) DESC) LOGGING REVERSE INDEXTYPE IS "
            "CTX.CONTEXT NOPARALLEL PARAMETERS('LEXER x');");

  REPBitmapIndexClause join;
  EXPECT_EQ(join.AsString(), "");
  join.SetTableName(new REPName("F"));
  auto* const list = new REPIndexExprList;
  list->AddTail(New<REPIndexExpr>([](auto& expression) { expression.SetExpression("D.A"); }));
  join.SetIndexExprList(list);
  for (auto const& [table, alias] : {std::pair("G", ""), {"S.D", "D"}, {"F", ""}}) {
    join.AddFromName(Name(table));
    join.AddFromAlias(Name(alias));
  }
  join.SetCondition(Condition("D.A"));
  join.SetIndexAttributes(New<Attributes>([](auto& attributes) { attributes.SetOnline(true); }));
  EXPECT_EQ(join.AsString(), "F (D.A) FROM F, S.D D, G WHERE D.A IS NOT NULL ONLINE");
}

TEST(Indexes, NullArgumentsAreHarmless) {
  InRun([](RunningJob& run) {
    auto* const table = run.Add(ORVTypes::oEntity, "T");
    MOXActionSummaryItem* made = table;
    EXPECT_EQ(REPTableIndexClause().Process(nullptr, nullptr, REPIndexType_e::None, made),
              REPProcessError);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(REPClusterIndexClause().Process(&run.p, nullptr, REPIndexType_e::None, made),
              REPProcessError);
    EXPECT_EQ(REPIndexPropertiesClause().Process(&run.p, table, nullptr), REPProcessError);
    EXPECT_EQ(REPDomainIndexClause().Process(nullptr, nullptr, nullptr), REPProcessOK);
    EXPECT_EQ(REPCreateIndex().Process(nullptr), REPProcessError);
    REPTableIndexClause clause;
    clause.SetTableName(new REPName("T"));
    EXPECT_EQ(clause.Process(&run.p, nullptr, static_cast<REPIndexType_e>(3), made), REPProcessOK);
    EXPECT_EQ(Properties(*made), "pGenerateAsConstraint=false");
  });
  REPIndexExprList list;
  list.AddHead(nullptr);
  EXPECT_THROW(list.GetIndexExpr(0), std::invalid_argument);
}

}  // namespace
