// Counts the statements of whole scripts a second time, by a plain splitter that shares nothing
// with the reader, and compares: no statement lost, none swallowed by the one before it.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "reader/script_reader.h"
#include "reader/splitter.h"
#include "tests/plain_splitter.h"

namespace repora::test {
namespace {

namespace fs = std::filesystem;

std::string TextOfFile(fs::path const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// "line kind" of every statement the reader cuts out of a script.
std::vector<std::string> FromReader(std::string const& script) {
  reader::Source const source("script.sql", script);
  reader::Splitter splitter(source.Text());
  std::vector<std::string> found;
  for (auto section = splitter.Next(); section.kind != reader::Section::Kind::End;
       section = splitter.Next()) {
    if (section.kind != reader::Section::Kind::Statement) continue;
    std::string kind = "?";
    if (auto const* const statement = section.statement) {
      auto const& words = statement->words;
      kind = reader::TextOf(words[0]);
      if (words[0] == reader::K_CREATE || words[0] == reader::K_ALTER)
        kind.append(" ").append(reader::TextOf(words[1]));
    }
    found.push_back(std::to_string(source.PositionOf(section.start).line) + " " + kind);
  }
  return found;
}

std::vector<std::string> FromPlainSplitter(std::string const& script) {
  std::vector<std::string> found;
  for (auto const& one : SplitPlainly(script))
    found.push_back(std::to_string(one.line) + " " + one.kind);
  return found;
}

// What one list has and the other has not, and the other way round.
std::string Differences(std::vector<std::string> const& plain,
                        std::vector<std::string> const& read) {
  auto const missing = [](std::vector<std::string> const& from,
                          std::vector<std::string> const& in) {
    std::multiset<std::string> rest(in.begin(), in.end());
    std::string lines;
    for (auto const& one : from) {
      if (auto const known = rest.find(one); known != rest.end())
        rest.erase(known);
      else
        lines += "  " + one + "\n";
    }
    return lines;
  };
  std::string text;
  if (auto const lost = missing(plain, read); !lost.empty()) text += "not by the reader:\n" + lost;
  if (auto const extra = missing(read, plain); !extra.empty()) text += "only by it:\n" + extra;
  return text;
}

// Compares every script below a folder; returns how many statements they hold.
std::size_t CompareScripts(fs::path const& folder) {
  std::size_t statements = 0;
  for (auto const& entry : fs::recursive_directory_iterator(folder)) {
    auto const extension = entry.path().extension();
    if (extension != ".sql" && extension != ".tps") continue;
    auto const text = TextOfFile(entry.path());
    auto const plain = FromPlainSplitter(text);
    EXPECT_EQ(Differences(plain, FromReader(text)), "") << entry.path();
    reader::ReadOptions options;
    reader::ReadResult result;
    reader::ReadScript("script.sql", text, options, result);
    EXPECT_EQ(result.statements.size() + result.unread + result.outside, plain.size())
        << entry.path();
    statements += plain.size();
  }
  return statements;
}

TEST(PlainSplitter, CountsWhatALookAtTheScriptShows) {
  struct {
    char const* script;
    std::vector<std::string> statements;
  } const cases[] = {
      {"CREATE TABLE t (a CHAR(1) DEFAULT ';'); -- it's;\n/* ; */ COMMIT; DROP TABLE t\n/\n",
       {"1 CREATE TABLE", "2 COMMIT", "2 DROP"}},
      {"rem it's\nprompt a -\n create\nSELECT q'[it's ; ]' FROM dual;\nSET ROLE r;\n",
       {"4 SELECT", "5 SET"}},
      {"CREATE PACKAGE BODY p AS\n PROCEDURE a IS\n BEGIN\n  IF 1=1 THEN NULL; END IF;\n END;\n"
       " PROCEDURE b IS BEGIN NULL; END;\nEND p;\nGRANT EXECUTE ON p TO u;\n",
       {"1 CREATE PACKAGE", "8 GRANT"}},
      {"BEGIN\n NULL;\nEND;\n/\n\nCREATE SEQUENCE s\nCREATE SEQUENCE r;",
       {"1 BEGIN", "6 CREATE SEQUENCE", "7 CREATE SEQUENCE"}},
      {"Table created.\nIt's 3 o'clock\nCREATE OR REPLACE FORCE VIEW v AS SELECT 1 x FROM dual;\n",
       {"1 ?", "3 CREATE VIEW"}},
      {"CREAT TABLE t (\n comment CLOB,\n b DATE);\nfoo\nCREATE TABLE u (a DATE; b "
       "DATE);\nCOMMIT;\n",
       {"1 ?", "5 CREATE TABLE", "6 COMMIT"}},
  };
  for (auto const& one : cases)
    EXPECT_EQ(FromPlainSplitter(one.script), one.statements) << one.script;
}

TEST(Corpus, LosesNoStatement) {
  fs::path const corpus = REPORA_CORPUS_DIR;
  if (!fs::is_directory(corpus)) GTEST_SKIP() << corpus << " is not there";
  EXPECT_GT(CompareScripts(corpus), 9000U);
}

TEST(Scripts, LoseNoStatement) {
  EXPECT_GT(CompareScripts(REPORA_SCRIPTS_DIR), 400U);
}

}  // namespace
}  // namespace repora::test
