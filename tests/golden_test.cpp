// Runs the golden files as tests: one per case, and one per file for the round trip.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/golden_checks.h"
#include "tests/golden_file.h"

namespace repora::test {
namespace {

class FunctionTest : public testing::Test {
 public:
  explicit FunctionTest(std::function<void()> body) : body_(std::move(body)) {}
  void TestBody() override { body_(); }

 private:
  std::function<void()> body_;
};

void Register(std::string const& suite, std::string const& name, std::string const& file, int line,
              std::function<void()> body) {
  testing::RegisterTest(
      suite.c_str(), name.c_str(), nullptr, nullptr, file.c_str(), line,
      [body = std::move(body)]() -> testing::Test* { return new FunctionTest(body); });
}

std::vector<GoldenFile> const& Files() {
  static auto const files = LoadGoldenFiles(REPORA_GOLDEN_DIR);
  return files;
}

std::vector<RoundTripException> const& Exceptions() {
  static auto const exceptions =
      LoadRoundTripExceptions(REPORA_GOLDEN_DIR "/roundtrip_exceptions.txt");
  return exceptions;
}

void CheckRoundTrip(GoldenFile const& file) {
  std::size_t statements = 0;
  for (auto const& golden : file.cases) {
    std::string faults;
    for (auto const& statement : ReadGolden(golden).statements) {
      ++statements;
      if (auto const fault = RoundTripFault(statement.object->AsString()); !fault.empty())
        faults += "\n" + fault;
    }
    bool excepted = false;
    for (auto const& one : Exceptions())
      excepted = excepted || (one.file == file.stem && one.title == golden.title);
    if (!faults.empty() && !excepted)
      ADD_FAILURE_AT(golden.file.c_str(), golden.line) << golden.title << faults;
    if (faults.empty() && excepted)
      ADD_FAILURE_AT(golden.file.c_str(), golden.line)
          << golden.title << " is among the exceptions, but comes back as it was";
  }
  EXPECT_GT(statements, 0U);
}

bool RegisterAll() {
  for (auto const& file : Files()) {
    Register("GoldenFile", file.stem, file.path, 1, [&file] {
      for (auto const& fault : file.faults) ADD_FAILURE() << fault;
      EXPECT_FALSE(file.cases.empty());
    });
    for (auto const& golden : file.cases)
      Register("Golden_" + file.stem, golden.TestName(), golden.file, golden.line, [&golden] {
        auto const outcome = RunGolden(golden);
        for (auto const& [number, text] : FindFailures(golden, *outcome))
          ADD_FAILURE_AT(golden.file.c_str(), number) << text;
      });
    Register("RoundTrip", file.stem, file.path, 1, [&file] { CheckRoundTrip(file); });
  }
  return true;
}

[[maybe_unused]] bool const registered = RegisterAll();

// The runner is worth something only if it sees what is wrong.
TEST(GoldenRunner, FindsEveryWrongExpectation) {
  GoldenCase golden;
  golden.sql =
      "CREATE SEQUENCE A.S1 INCREMENT BY 5 CYCLE;\nCREATE SEQUENCE A.S1;\n"
      "CREATE TABLE T (X NUMBER, X DATE) TABLESPACE TS;\n";
  std::vector<std::string> const right = {
      "object oSequence /S1 pIncrement=\"5\" pCycleOn=true pDBOwner=\"A\"",
      "object oAttribute T.X pType=100",
      "object oEntity T pOracleRegularStorageRef->pOracleTablespaceRef=@TS",
      "no property oSequence S1 pInitial",
      "no object oSequence S2",
      "count oSequence 1",
      "message duplicate REP-1 2:1 Duplicate",
      "message warning REP-69 3:1",
      "messages 2",
      "render |CREATE SEQUENCE A.S1 INCREMENT BY 5 CYCLE;|",
      "counts read=3 ok=2 duplicate=1"};
  std::vector<std::string> const wrong = {
      "object oSequence /S1 pIncrement=5",
      "object oSequence /S1 pCycleOn=false",
      "object oSequence /S1 pInitial=\"5\"",
      "object oSequence /A.S1",
      "object oAttribute /X",
      "object oSequence S2",
      "object oNothing S1",
      "object oSequence S1 pNothing=1",
      "object oEntity T pOracleRegularStorageRef->pOracleTablespaceRef=@USERS",
      "no property oSequence S1 pIncrement",
      "no property oSequence S2 pIncrement",
      "no object oSequence S1",
      "count oSequence 2",
      "message duplicate REP-2 2:1",
      "message duplicate REP-1 2:2",
      "message duplicate REP-1 2:1 Other",
      "message fault",
      "messages 3",
      "render |CREATE SEQUENCE A.S1 INCREMENT BY 5 CYCLE; |",
      "counts ok=1",
      "counts bad=1",
      "objects oSequence S1"};
  auto const failures_of = [&](std::vector<std::string> const& lines) {
    golden.expectations.clear();
    for (auto const& line : lines) golden.expectations.push_back({1, line});
    auto const outcome = RunGolden(golden);
    std::string text;
    for (auto const& failure : FindFailures(golden, *outcome)) text += failure.text + "\n";
    return text;
  };
  EXPECT_EQ(failures_of(right), "");
  // Messages come in the order of the script.
  EXPECT_NE(failures_of({right[7], right[6]}), "");
  for (auto const& line : wrong) EXPECT_NE(failures_of({line}), "") << line;
}

// Whole scripts: the examples, and real ones where they are at hand.
TEST(RoundTrip, OfWholeScripts) {
  bool const has_corpus = std::filesystem::exists(REPORA_CORPUS_DIR);
  std::vector<std::filesystem::path> folders{REPORA_EXAMPLES_DIR};
  if (has_corpus) folders.emplace_back(REPORA_CORPUS_DIR);
  EXPECT_GT(
      CheckRoundTrips(folders, REPORA_GOLDEN_DIR "/script_exceptions.txt", /*all_used=*/has_corpus),
      0U);
}

TEST(RoundTripExceptions, NameACaseAndAReason) {
  for (auto const& one : Exceptions()) {
    bool known = false;
    for (auto const& file : Files())
      for (auto const& golden : file.cases)
        known = known || (file.stem == one.file && golden.title == one.title);
    EXPECT_TRUE(known) << "line " << one.line << ": no such case: " << one.title;
    EXPECT_FALSE(one.reason.empty()) << "line " << one.line;
  }
}

}  // namespace
}  // namespace repora::test
