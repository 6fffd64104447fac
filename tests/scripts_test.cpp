// Whole scripts in the styles people write them, tests/scripts, and what each must give:
// tests/scripts/expected.txt.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/golden_checks.h"

namespace repora::test {
namespace {

namespace fs = std::filesystem;

struct Expected {
  std::string counts;
  std::vector<std::string> messages;  // "line:column kind words"
};

// A line for a script, "PATH COUNTS", and an indented one for each of its messages.
std::map<std::string, Expected> ReadExpectations() {
  std::map<std::string, Expected> all;
  std::ifstream file(REPORA_SCRIPTS_DIR "/expected.txt");
  Expected* current = nullptr;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.starts_with("  ")) {
      current->messages.push_back(line.substr(2));
    } else {
      auto const blank = line.find(' ');
      current = &all[line.substr(0, blank)];
      current->counts = line.substr(blank + 1);
    }
  }
  return all;
}

std::string TextOfFile(fs::path const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::string CountsOf(GoldenOutcome const& outcome) {
  auto const& counts = outcome.session->Statements();
  std::string text;
  for (auto const count : {counts.read, counts.ok, counts.duplicate, counts.unsupported,
                           counts.error, counts.unread, counts.outside})
    text += (text.empty() ? "" : " ") + std::to_string(count);
  return text;
}

void Check(Expected const& expected, GoldenOutcome const& outcome) {
  EXPECT_EQ(CountsOf(outcome), expected.counts);
  auto const count = std::max(expected.messages.size(), outcome.messages.size());
  for (std::size_t i = 0; i < count; ++i) {
    std::string message;
    if (i < outcome.messages.size()) {
      auto const& one = outcome.messages[i];
      message = std::to_string(one.line) + ":" + std::to_string(one.column) + " ";
      message.append(exporter::NameOf(one.kind)).append(" ").append(one.text);
    }
    auto const wanted = i < expected.messages.size() ? expected.messages[i] : "no message";
    EXPECT_TRUE(message.starts_with(wanted)) << "wanted: " << wanted << "\ngot: " << message;
  }
}

TEST(Scripts, GiveWhatTheyHold) {
  auto const expectations = ReadExpectations();
  EXPECT_GE(expectations.size(), 100U);
  std::set<std::string> found;
  for (auto const& entry : fs::recursive_directory_iterator(REPORA_SCRIPTS_DIR)) {
    if (entry.path().extension() != ".sql") continue;
    auto const name = fs::relative(entry.path(), REPORA_SCRIPTS_DIR).generic_string();
    SCOPED_TRACE(name);
    found.insert(name);
    auto const expected = expectations.find(name);
    if (expected == expectations.end()) {
      ADD_FAILURE() << "nothing says what it must give";
      continue;
    }
    GoldenCase script;
    script.sql = TextOfFile(entry.path());
    Check(expected->second, *RunGolden(script));
  }
  EXPECT_EQ(found.size(), expectations.size());
}

TEST(RoundTrip, OfScriptsOfEveryStyle) {
  EXPECT_GT(CheckRoundTrips({REPORA_SCRIPTS_DIR}, REPORA_SCRIPTS_DIR "/roundtrip_exceptions.txt",
                            /*all_used=*/true),
            400U);
}

}  // namespace
}  // namespace repora::test
