#include "repora/queries/materialized_views.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "reader/script_reader.h"
#include "repora/queries/alter_materialized_view.h"
#include "repora/queries/alter_materialized_view_log.h"
#include "repora/queries/materialized_view_logs.h"
#include "repora/queries/refresh.h"
#include "repora/queries/select.h"
#include "repora/queries/table_refs.h"
#include "tests/run_fixture.h"

namespace {

using repora::MemoryModelSet;
using repora::test::Job;
using repora::test::Notified;
using repora::test::RecordingWindow;
using repora::test::TextProperty;

// Runs a script on a model; what was said of it, but for progress.
std::vector<Notified> RunScript(MemoryModelSet& model, std::string const& text,
                                bool ignore_duplicates = false) {
  repora::reader::ReadOptions options;
  repora::reader::ReadResult result;
  repora::reader::ReadScript("x.sql", text, options, result);
  EXPECT_TRUE(result.diagnostics.empty());
  RecordingWindow window;
  REPOracleProcessor processor;
  processor.SetModelSet(&model);
  processor.SetNotifyWnd(&window);
  processor.SetIgnoreDuplicateViews(ignore_duplicates);
  for (auto& statement : result.statements) processor.AddStatement(statement.object.release());
  EXPECT_TRUE(processor.Process());
  std::vector<Notified> said;
  for (auto const& notified : window.all)
    if (!notified.message.empty()) said.push_back(notified);
  return said;
}

// The one object of a type in the model.
repora::PropertySet const& PropertiesOf(MemoryModelSet& model, MOXId type) {
  auto const* const ids = model.GetTypeIndex()->ObjectsOfType(type);
  EXPECT_TRUE(ids && ids->size() == 1);
  return *model.PropertiesOf(ids->front());
}

std::string Value(repora::PropertySet const& properties, MOXId property) {
  auto const* const value = properties.Find(property);
  return value ? value->AsString(true) : "(absent)";
}

TEST(MaterializedViews, AnEarlierRunsObjectsAreAltered) {
  MemoryModelSet model;
  auto said = RunScript(model,
                        "create table s.t (id number);\n"
                        "create materialized view s.mv as select id from s.t;\n"
                        "create materialized view log on s.t with rowid;\n");
  for (auto const& one : said) ADD_FAILURE() << one.message;
  said = RunScript(model,
                   "alter materialized view s.mv cache refresh fast on commit;\n"
                   "alter materialized view log on s.t add primary key;\n");
  for (auto const& one : said) ADD_FAILURE() << one.message;
  auto const& view = PropertiesOf(model, ORVTypes::oCachedView);
  EXPECT_EQ(Value(view, ORVTypes::pRefreshType), "912");
  EXPECT_EQ(Value(view, ORVTypes::pRefreshOnWhat), "916");
  auto const& log = PropertiesOf(model, ORVTypes::oOracleCachedViewLog);
  EXPECT_EQ(Value(log, ORVTypes::pUsePrimaryKey), "true");
  EXPECT_EQ(Value(log, ORVTypes::pUseRowId), "true");
}

TEST(MaterializedViews, ARepeatedDefinitionTakesThePlaceOfTheFirstWhereDuplicatesAreIgnored) {
  std::string const script =
      "create table t (id number, c number);\n"
      "create materialized view mv compress 3 refresh fast as select id from t where c = 1;\n"
      "create materialized view mv nocompress cluster cl (c) using index tablespace x\n"
      "  never refresh as select c from t where c = 2;\n";
  MemoryModelSet refused;
  EXPECT_EQ(RunScript(refused, script).size(), 1u);
  EXPECT_EQ(Value(PropertiesOf(refused, ORVTypes::oCachedView), ORVTypes::pViewWhere), "c = 1");
  MemoryModelSet replaced;
  EXPECT_TRUE(RunScript(replaced, script, true).empty());
  auto const& view = PropertiesOf(replaced, ORVTypes::oCachedView);
  EXPECT_EQ(Value(view, ORVTypes::pViewWhere), "c = 2");
  EXPECT_EQ(Value(view, ORVTypes::pRefreshState), "911");
  EXPECT_EQ(Value(view, ORVTypes::pCompressType), "918");
  EXPECT_EQ(Value(view, ORVTypes::pCompressPrefixLength), "(absent)");
  EXPECT_EQ(Value(view, ORVTypes::pOracleDataStorageType), "2");
  EXPECT_NE(Value(view, ORVTypes::pOracleClusterColumnsRef), "(absent)");
}

TEST(MaterializedViews, NeedAQueryAndItsTables) {
  Job job;
  job.Run([](REPProcessor& processor) {
    REPCreateMaterializedView view;
    EXPECT_EQ(view.Process(nullptr), REPProcessError);
    view.SetViewName(new REPName("S.MV"));
    view.SetRefresh(new REPMaterializedViewRefresh);
    EXPECT_EQ(view.Process(&processor), REPProcessError);
    auto const name = REPName("S.MV");
    auto* const item = processor.FindItemPtr(processor.GetRoot(), ORVTypes::oCachedView, &name);
    ASSERT_TRUE(item);
    EXPECT_EQ(TextProperty(*item, ORVTypes::pDBOwner), "S");
    EXPECT_EQ(TextProperty(*item, ORVTypes::pRefreshState), "(absent)");

    REPCreateMaterializedView empty;
    empty.SetViewName(new REPName("E"));
    empty.SetSelect(new REPSelect);
    EXPECT_EQ(empty.Process(&processor), REPProcessError);

    // Refresh without a value is REFRESH, and a segment without a side is local.
    REPMaterializedViewRefresh refresh;
    refresh.AddRollback(new REPMaterializedViewRefreshRollback);
    EXPECT_EQ(refresh.Process(&processor, nullptr), REPProcessError);
    EXPECT_EQ(refresh.Process(&processor, item), REPProcessOK);
    EXPECT_EQ(TextProperty(*item, ORVTypes::pRefreshState), "910");
    EXPECT_EQ(TextProperty(*item, ORVTypes::pRefreshLocalRollbackSegState), "919");
    EXPECT_EQ(TextProperty(*item, ORVTypes::pRefreshLocalRollbackSegReference), "(absent)");
    EXPECT_EQ(refresh.AsString(), "REFRESH USING ROLLBACK SEGMENT ");
    EXPECT_EQ(refresh.Process(&processor, item), REPProcessError);

    EXPECT_EQ(REPAlterMaterializedView().Process(&processor), REPProcessError);
    EXPECT_EQ(REPCreateMaterializedViewLog().Process(&processor), REPProcessError);
    EXPECT_EQ(REPAlterMaterializedViewLog().Process(&processor), REPProcessError);
    EXPECT_EQ(REPMaterializedViewProps().Process(&processor, nullptr), REPProcessError);
  });
  auto const semantics = job.window.Of(eRENotifySemantic);
  ASSERT_EQ(semantics.size(), 1u);
  EXPECT_EQ(semantics[0].code, "REP-7");
  EXPECT_EQ(semantics[0].message, "Select List Missing from S.MV.");
}

TEST(MaterializedViews, RenderingOfWhatScriptsDoNotWrite) {
  EXPECT_EQ(REPCreateMaterializedView().AsString(), "CREATE MATERIALIZED VIEW");
  EXPECT_EQ(REPScopedTableRefConstraintList().AsString(), "()");
  EXPECT_EQ(REPMaterializedViewRefresh().AsString(), "REFRESH");

  REPAlterMaterializedView view;
  EXPECT_EQ(view.AsString(), "ALTER MATERIALIZED VIEW ;");
  view.SetViewName(new REPName("MV"));
  view.SetParallel(REPParallel_e::ParallelDegree);
  view.SetParallelSize("4");
  view.SetCache(REPCache_e::CacheReads);
  view.SetUsingIndex(REPUsingIndex_e::Index);
  auto* const attributes = new REPPhysicalAttrClause;
  attributes->SetPctFree(5);
  view.SetUsingPhysicalAttrClause(attributes);
  view.SetRefreshRollback(REPRefreshRollback_e::Master);  // not without REFRESH
  EXPECT_EQ(view.AsString(),
            "ALTER MATERIALIZED VIEW MV USING INDEX PARALLEL 4 USING INDEX PCTFREE 5;");

  REPCreateMaterializedViewLog log;
  log.SetTablename(new REPName("T"));
  log.SetParallel(REPParallel_e::Parallel);
  log.SetParallelSize("4");
  EXPECT_EQ(log.AsString(), "CREATE MATERIALIZED VIEW LOG ON T PARALLEL");
  log.SetRowID(false);
  EXPECT_EQ(log.AsString(), "CREATE MATERIALIZED VIEW LOG ON T PARALLEL WITH ");
  log.SetNewValues(REPNewValues_e::Including);
  EXPECT_EQ(log.AsString(),
            "CREATE MATERIALIZED VIEW LOG ON T PARALLEL WITH  INCLUDING NEW VALUES");
}

}  // namespace
