// Scripts that nobody writes by hand. What they must not cost is time: work that grew with the
// square of their length would take these tests hours, and the runner's limit ends them.
#include <string>

#include <gtest/gtest.h>

#include "reader/script_reader.h"
#include "repora/core/statement.h"
#include "tests/run_fixture.h"

namespace {

using namespace repora::reader;

constexpr std::size_t kRepetitions = 300'000;

ReadResult Read(std::string text) {
  ReadOptions options;
  ReadResult result;
  ReadScript("hostile.sql", std::move(text), options, result);
  return result;
}

std::string Repeat(std::string const& piece, std::size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(HostileScripts, OneLineHoldsAnyNumberOfStatements) {
  struct {
    char const* piece;
    std::size_t statements;
    std::size_t unread;
    std::size_t outside;
  } const cases[] = {
      {"CREATE SEQUENCE s; ", kRepetitions, 0, 0},
      {"DROP TABLE t; ", 0, 0, kRepetitions},
      {"CREATE x; ", 0, kRepetitions, 0},
      {"BEGIN NULL; END; ", 0, 0, kRepetitions},
      {"SELECT &v FROM t; ", 0, 0, kRepetitions},
      {"; ", 0, 0, 0},
      {"/* x */ ", 0, 0, 0},
      // Text that is no SQL is one thing that is not read.
      {"x; ", 0, 1, 0},
      {"\x01; ", 0, 1, 0},
  };
  for (auto const& one : cases) {
    auto const result = Read(Repeat(one.piece, kRepetitions));
    EXPECT_EQ(result.statements.size(), one.statements) << one.piece;
    EXPECT_EQ(result.unread, one.unread) << one.piece;
    EXPECT_EQ(result.outside, one.outside) << one.piece;
    for (auto const& diagnostic : result.diagnostics)
      EXPECT_EQ(diagnostic.source->PositionOf(diagnostic.offset).column, diagnostic.offset + 1);
  }
}

TEST(HostileScripts, OneLineHoldsAnyNumberOfMistakes) {
  auto const result = Read(Repeat("CREATE x; ", kRepetitions));
  ASSERT_EQ(result.diagnostics.size(), kRepetitions);
  std::size_t column = 8;
  for (auto const& diagnostic : result.diagnostics) {
    auto const position = diagnostic.source->PositionOf(diagnostic.offset);
    ASSERT_EQ(position.line, 1U);
    ASSERT_EQ(position.column, column);
    column += 10;
  }
}

TEST(HostileScripts, OneUnitHoldsAnyNumberOfEnds) {
  auto const unit = "CREATE PROCEDURE p IS BEGIN " + Repeat("x; END; ", kRepetitions);
  auto const result = Read(unit);
  ASSERT_EQ(result.statements.size(), 1U);
  EXPECT_GE(result.statements[0].object->AsString().size(), unit.size() - 1);
  EXPECT_EQ(result.unread, 0U);
}

TEST(HostileScripts, OneStatementLeavesAnyNumberOfClauses) {
  auto const result = Read("CREATE TABLE t (a INT) " + Repeat("INMEMORY ", kRepetitions) + ";");
  ASSERT_EQ(result.traces.size(), 1U);
  EXPECT_GE(result.traces[0].clauses, kRepetitions);
}

TEST(HostileScripts, OneTableHasAnyNumberOfKeys) {
  repora::test::Job job;
  job.Run([](REPProcessor& processor) {
    REPName const table("T");
    REPName const column("C");
    for (std::uint32_t id = 10; id < 500'000; ++id)
      processor.AddMemberToTableIndexes(&table, id, REPIndexOtherKey, &column);
    // The keys are in the order of their ids, whichever came first.
    for (std::uint32_t const id : {600'005U, 600'003U, 600'004U, 600'005U})
      processor.AddMemberToTableIndexes(&table, id, REPIndexPrimaryKey, &column);
    EXPECT_EQ(processor.FindPKInTableIndexes(&table, 0), 600'003U);
    EXPECT_EQ(processor.FindPKInTableIndexes(&table, 2), 600'005U);
  });
}

TEST(HostileScripts, OpenStringsAndCommentsAreSearchedOnce) {
  EXPECT_EQ(Read(Repeat("/* ", kRepetitions)).unread, 1U);
  EXPECT_EQ(Read(Repeat("q'[ ", kRepetitions)).unread, 1U);
  EXPECT_EQ(Read(Repeat("SELECT q'[x FROM t;\n", kRepetitions)).unread, kRepetitions);
  EXPECT_EQ(Read("CREATE VIEW v AS SELECT " + Repeat("CASE ", kRepetitions)).diagnostics.size(),
            1U);
}

TEST(HostileScripts, FilesThatAreLeftOutAreNotReadWithoutEnd) {
  std::size_t asked = 0;
  ReadOptions options;
  options.include = [&](ReadOptions::Request const&) {
    ++asked;
    return ReadOptions::Included{"hostile.sql", "CREATE SEQUENCE s;"};
  };
  ReadResult result;
  ReadScript("hostile.sql", Repeat("@hostile\n", 20'000), options, result);
  EXPECT_EQ(asked, 10'000U);
  EXPECT_EQ(result.read, 0U);
}

TEST(HostileScripts, NamesHaveAHundredPartsAtMost) {
  auto const table = [](std::size_t parts) {
    return "CREATE TABLE a" + Repeat(".a", parts - 1) + " (b INT);";
  };
  EXPECT_EQ(Read(table(100)).statements.size(), 1U);
  for (auto const parts : {std::size_t{101}, kRepetitions}) {
    auto const result = Read(table(parts));
    ASSERT_EQ(result.diagnostics.size(), 1U);
    EXPECT_EQ(result.diagnostics[0].text, "expected a name of at most 100 parts, found '.'");
    EXPECT_EQ(result.diagnostics[0].offset, table(100).find(" (b"));
  }
  // A longer one in a query is an expression.
  auto const path = "a" + Repeat(".a", kRepetitions);
  auto const view = Read("CREATE VIEW v AS SELECT " + path + " FROM t;");
  ASSERT_EQ(view.statements.size(), 1U);
  EXPECT_NE(view.statements[0].object->AsString().find(path), std::string::npos);
}

}  // namespace
