#include "repora/core/statement.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "repora/code/sequences.h"
#include "repora/code/synonyms.h"
#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/messages.h"
#include "repora/tables/create_table.h"
#include "tests/run_fixture.h"

namespace repora::test {
namespace {

// The keywords of an enumeration in the order of its values, from 1; the value behind the last and
// those out of range have none.
template <class Enum>
void ExpectKeywords(std::vector<std::string> const& keywords) {
  for (std::size_t i = 0; i < keywords.size(); ++i)
    EXPECT_EQ(Keyword(static_cast<Enum>(i + 1)), keywords[i]) << i + 1;
  for (auto const value : {0, static_cast<int>(keywords.size()) + 1, -1, 0x7FFFFFFF})
    EXPECT_EQ(Keyword(static_cast<Enum>(value)), "") << keywords.front() << " " << value;
}

TEST(Keywords, AreCompleteAndNothingElse) {
  ExpectKeywords<REPFileSize_e>({"SMALLFILE", "BIGFILE"});
  ExpectKeywords<REPStandby_e>({"PROTECTED", "UNPROTECTED"});
  ExpectKeywords<REPCompress_e>({"COMPRESS", "NOCOMPRESS"});
  ExpectKeywords<REPLogging_e>({"LOGGING", "NOLOGGING", "FORCE LOGGING", "NO FORCE LOGGING"});
  ExpectKeywords<REPSort_e>({"NOSORT", "SORT", "ASC", "DESC"});
  ExpectKeywords<REPDeferrable_e>({"DEFERRABLE", "NOT DEFERRABLE"});
  ExpectKeywords<REPInitially_e>({"INITIALLY IMMEDIATE", "INITIALLY DEFERRED"});
  ExpectKeywords<REPEnable_e>({"ENABLE", "DISABLE", "ENABLE TABLE LOCK", "DISABLE TABLE LOCK",
                               "ENABLE ALL TRIGGERS", "DISABLE ALL TRIGGERS"});
  ExpectKeywords<REPValidate_e>({"VALIDATE", "NOVALIDATE"});
  ExpectKeywords<REPRely_e>({"RELY", "NORELY"});
  ExpectKeywords<REPDelete_e>({"CASCADE", "SET NULL"});
  ExpectKeywords<REPShrink_e>({"SHRINK SPACE", "SHRINK SPACE COMPACT", "SHRINK SPACE CASCADE",
                               "SHRINK SPACE COMPACT CASCADE"});
  ExpectKeywords<REPReturnAs_e>({"LOCATOR", "VALUE"});
  ExpectKeywords<REPSelectOpt_e>({"ALL", "UNIQUE", "DISTINCT"});
  ExpectKeywords<REPOrderBy_e>({"ASC", "DESC"});
  ExpectKeywords<REPOrderNulls_e>({"NULLS FIRST", "NULLS LAST"});
  ExpectKeywords<REPStorageRow_e>({"ENABLE STORAGE IN ROW", "DISABLE STORAGE IN ROW"});
  ExpectKeywords<REPCache_e>({"NOCACHE", "CACHE", "CACHE READS"});
  ExpectKeywords<REPCycle_e>({"NOCYCLE", "CYCLE"});
  ExpectKeywords<REPOrder_e>({"NOORDER", "ORDER"});
  ExpectKeywords<REPIndexType_e>({"UNIQUE", "BITMAP"});
  ExpectKeywords<REPNewValues_e>({"INCLUDING", "EXCLUDING"});
  ExpectKeywords<REPBuild_e>({"BUILD IMMEDIATE", "BUILD DEFERRED"});
  ExpectKeywords<REPParallel_e>({"NOPARALLEL", "PARALLEL", "PARALLEL"});
  ExpectKeywords<REPRefresh_e>({"NEVER REFRESH", "REFRESH"});
  ExpectKeywords<REPRefreshWith_e>({"WITH PRIMARY KEY", "WITH ROWID"});
  ExpectKeywords<REPRefreshOn_e>({"ON DEMAND", "ON COMMIT"});
  ExpectKeywords<REPRefreshConstraints_e>({"ENFORCED CONSTRAINTS", "TRUSTED CONSTRAINTS"});
  ExpectKeywords<REPRefreshFast_e>({"FAST", "COMPLETE", "FORCE"});
  ExpectKeywords<REPMaster_e>({"MASTER", "LOCAL"});
  ExpectKeywords<REPSubqueryType_e>({"UNION", "UNION ALL", "INTERSECT", "MINUS"});
  ExpectKeywords<REPJoinType_e>(
      {"JOIN", "INNER JOIN", "CROSS JOIN", "NATURAL JOIN", "NATURAL CROSS JOIN", "FULL JOIN",
       "FULL OUTER JOIN", "LEFT JOIN", "LEFT OUTER JOIN", "RIGHT JOIN", "RIGHT OUTER JOIN",
       "NATURAL FULL JOIN", "NATURAL FULL OUTER JOIN", "NATURAL LEFT JOIN",
       "NATURAL LEFT OUTER JOIN", "NATURAL RIGHT JOIN", "NATURAL RIGHT OUTER JOIN"});
  EXPECT_EQ(Keyword(REPOrganization_e::Heap), "ORGANIZATION HEAP");
  EXPECT_EQ(Keyword(REPOrganization_e::Index), "ORGANIZATION INDEX");
  EXPECT_EQ(Keyword(REPOrganization_e::External), "ORGANIZATION EXTERNAL");
  EXPECT_EQ(Keyword(static_cast<REPOrganization_e>(7)), "ORGANIZATION ");
}

TEST(Texts, KeepWhatTheyAreGiven) {
  for (std::size_t const size : {0U, 1U, 14U, 15U, 16U, 17U, 300U}) {
    std::string const chars(size, 'x');
    Text text(chars);
    Text copy = text;
    Text const moved = std::move(text);
    text = copy.c_str();
    copy = copy.c_str();  // from itself
    for (auto const* each : std::vector<Text const*>{&text, &copy, &moved}) {
      EXPECT_EQ(each->str(), chars);
      EXPECT_EQ(std::string(each->c_str()), chars);
      EXPECT_EQ(each->empty(), size == 0);
    }
  }
  EXPECT_TRUE(Text(static_cast<char const*>(nullptr)).empty());
}

TEST(Texts, AreReadAsNumbers) {
  struct {
    char const* text;
    int number;
  } const cases[] = {{nullptr, 0},
                     {"", 0},
                     {" \t42K", 42},
                     {"-7", -7},
                     {"+8", 8},
                     {"x1", 0},
                     {"- 1", 0},
                     {"2147483647", 2147483647},
                     {"99999999999999999999", 2147483647},
                     {"-99999999999", -2147483648}};
  for (auto const& [text, number] : cases) EXPECT_EQ(ToInt(text), number) << (text ? text : "null");
}

struct Element {
  int result;
  int* processed;
  ~Element() { *processed += 100; }
};

TEST(Lists, ProcessByTheirRule) {
  struct {
    ListRule rule;
    std::vector<int> results;
    int result;
    int processed;
  } const cases[] = {
      {ListRule::StopAtFailure, {0, 4, 1}, 4, 2},    {ListRule::StopAtFailure, {1, 4, 0}, 1, 1},
      {ListRule::StopAtFailure, {}, 0, 0},           {ListRule::SkipDuplicates, {1, 0, 3, 1}, 3, 3},
      {ListRule::SkipDuplicates, {1, 1}, 0, 2},      {ListRule::RunAllKeepFailure, {1, 4, 0}, 4, 3},
      {ListRule::RunAllKeepFailure, {4, 1, 0}, 1, 3}};
  for (auto const& expected : cases) {
    int processed = 0;
    {
      OwnedList<Element> list;
      for (auto const result : expected.results) list.AddTail(new Element{result, &processed});
      auto const result = list.ProcessAll(
          [](Element const& element) {
            ++*element.processed;
            return static_cast<REPProcess_e>(element.result);
          },
          expected.rule);
      EXPECT_EQ(result, expected.result);
      EXPECT_EQ(processed, expected.processed);
    }
    EXPECT_EQ(processed, expected.processed + 100 * static_cast<int>(expected.results.size()));
  }
}

TEST(Lists, GrowAtBothEnds) {
  REPExprList expressions;
  auto const make = [](char const* text) {
    auto* const expression = new REPExpr;
    expression->SetExprValue(text);
    return expression;
  };
  expressions.AddExpr(make("A"));
  expressions.AddExpr(make("B"));
  expressions.AddTail(make("C"));
  expressions.AddTail(nullptr);
  EXPECT_EQ(expressions.AsString(false), "B, A, C");
  EXPECT_EQ(expressions.AsString(true), "(B, A, C)");
  EXPECT_EQ(expressions.GetExpr(1)->AsString(), "A");
  EXPECT_THROW(expressions.GetExpr(3), std::invalid_argument);
  EXPECT_THROW(expressions.GetExpr(-1), std::invalid_argument);
  EXPECT_EQ(expressions.GetExpr(0)->GetExprType(), REPExprType_e::Plain);

  // A parse tree lets go of its statements from the last to the first.
  std::string deleted;
  struct Named final : REPStatement {
    Named(std::string& record, char name) : record_(record), name_(name) {}
    ~Named() override { record_ += name_; }
    std::string AsString() const override { return {}; }
    std::string& record_;
    char name_;
  };
  {
    REPParseTree tree;
    tree.AddTail(new Named(deleted, 'b'));
    tree.AddHead(new Named(deleted, 'a'));
    tree.AddTail(new Named(deleted, 'c'));
    tree.AddTail(nullptr);
    EXPECT_EQ(tree.GetCount(), 3);
    EXPECT_EQ(tree.GetStatement(1)->Process(nullptr), REPProcessUnsupported);
    EXPECT_EQ(tree.GetStatement(1)->GetStatementType(), REPStatement_e::None);
  }
  EXPECT_EQ(deleted, "cba");
}

TEST(Statements, EmptyOnesRenderTheirKeywords) {
  EXPECT_EQ(REPCreateSequence().AsString(), "CREATE SEQUENCE ;");
  EXPECT_EQ(REPAlterSequence().AsString(), "ALTER SEQUENCE ;");
  EXPECT_EQ(REPCreateSynonym().AsString(), "CREATE SYNONYM  FOR ;");
  REPCreateTable table;
  EXPECT_EQ(table.AsString(), "");
  table.SetTableType(REPTableType_e::Relational);
  EXPECT_EQ(table.AsString(), "CREATE TABLE ;");
  table.SetTableType(REPTableType_e::XmlType);
  EXPECT_EQ(table.AsString(), "CREATE TABLE (XML type);");
}

// Statements with nothing set, or with nulls, run without harm and say what became of them.
TEST(Statements, SurviveNulls) {
  for (auto const& statement : std::vector<std::shared_ptr<REPStatement>>{
           std::make_shared<REPCreateSequence>(), std::make_shared<REPAlterSequence>(),
           std::make_shared<REPCreateSynonym>(), std::make_shared<REPCreateTable>()})
    EXPECT_NE(statement->Process(nullptr), REPProcessOK);
  Job job;
  auto const add = [&](auto fill) {
    auto* const statement = fill();
    job.processor.AddStatement(statement);
  };
  add([] {
    auto* const sequence = new REPCreateSequence;
    sequence->SetSchemaName(nullptr);
    sequence->SetIncrementBy(nullptr);
    return sequence;
  });
  add([] {
    auto* const synonym = new REPCreateSynonym;  // no target: fails
    synonym->SetSynonym(new REPName("S"));
    return synonym;
  });
  add([] {
    auto* const table = new REPCreateTable;
    table->SetTableType(REPTableType_e::Relational);
    table->AddRelationalColumn(nullptr);
    table->AddRelationalColumn(new REPRelTableColumn);
    table->SetCompressionSize(nullptr);
    table->SetSegmentAttributes(nullptr);
    table->SetOrganization(static_cast<REPOrganization_e>(99));
    return table;
  });
  EXPECT_TRUE(job.processor.Process());
  EXPECT_EQ(job.window.Of(eRENotifySemantic).size(), 1U);
  EXPECT_EQ(job.window.Of(eRENotifyDuplicate).size(), 0U);
}

TEST(Messages, FillTheirPlaceholders) {
  EXPECT_EQ(FormatMessage(REPMessage::ExpressionName, 7), "Expr7");
  EXPECT_EQ(FormatMessage(REPMessage::PartitionOptionsDiscarded, {"P1", "why", nullptr, nullptr}),
            "Invalid partition options discarded on partition - P1.\r\nwhy");
  EXPECT_EQ(FormatMessage("%2 %1 100%% %", {"a", "b", nullptr, nullptr}), "b a 100% %");
  EXPECT_EQ(FormatMessage("%1 %2", {"%2", nullptr, "c", nullptr}), "%2 %2");
  EXPECT_EQ(FormatMessage("%1!i!x %1!", {"5", nullptr, nullptr, nullptr}), "5x 5!");
  EXPECT_EQ(MessageText(0U), "");
  EXPECT_EQ(MessageText(72U), "");
}

}  // namespace
}  // namespace repora::test
