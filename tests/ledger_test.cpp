// What the ledger says of a clause is tried out on every golden case: without a clause that is
// held, the model must be another one; without one that is only rendered, it must be the same.
#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "export/json_export.h"
#include "tests/golden_checks.h"

namespace repora::test {
namespace {

using reader::Fate;

// How often a clause of a statement is tried out.
constexpr int kTries = 20;

struct Run {
  std::string model;
  std::string rendered;
  std::vector<std::string> results;  // of the statements, in the order of the script
};

Run RunScript(GoldenCase golden, std::string_view script) {
  golden.sql = script;
  auto const outcome = RunGolden(golden);
  Run run;
  exporter::WriteJson({}, {}, outcome->session->Model(), outcome->session->Loaded(), {},
                      [&](std::string_view piece) {
                        run.model += piece;
                        return true;
                      });
  for (auto const& text : outcome->rendered) run.rendered += text + "\n";
  for (auto const& statement : outcome->session->Ledger().Statements())
    run.results.emplace_back(statement.result);
  return run;
}

// The end of what can be taken out with a clause: commas and parentheses of what is around it stay.
std::size_t EndOfClause(std::string_view script, std::size_t begin, std::size_t end) {
  int depth = 0;
  bool quoted = false;
  for (auto i = begin; i < end; ++i) {
    if (script[i] == '\'') quoted = !quoted;
    if (quoted) continue;
    if (script[i] == '(') ++depth;
    if (script[i] == ')' && --depth < 0) return i;
    if (script[i] == ';' || (script[i] == ',' && depth == 0)) return i;
    if (script.substr(i, 2) == "\n/") return i;
  }
  return end;
}

struct Evidence {
  Fate fate{};
  int tries = 0;
  int model = 0;    // times that the model was another one without the clause
  int nothing = 0;  // times that it was the same
  std::string where;
};

using Key = std::pair<std::string, std::string>;  // statement and clause

class Trial {
 public:
  void Try(GoldenCase const& golden) {
    auto const read = ReadGolden(golden);
    std::string_view const script = golden.sql;
    for (std::size_t k = 0; k < read.traces.size(); ++k) {
      auto const& trace = read.traces[k];
      if (trace.reading != reader::Reading::Read) continue;
      auto const end = k + 1 < read.traces.size() ? read.traces[k + 1].offset : script.size();
      if (HasWork(read, trace)) TryStatement(golden, read, k, script.substr(0, end));
    }
  }

  std::map<Key, Evidence> const& Found() const { return found_; }

 private:
  static Key KeyOf(reader::StatementTrace const& trace, reader::ClauseTrace const& clause) {
    return {std::string(trace.kind), std::string(clause.name)};
  }
  bool HasWork(reader::ReadResult const& read, reader::StatementTrace const& trace) const {
    for (std::size_t i = 1; i < trace.clauses; ++i) {
      auto const& clause = read.clauses[trace.first_clause + i];
      auto const known = found_.find(KeyOf(trace, clause));
      if (clause.fate != Fate::Left && (known == found_.end() || known->second.tries < kTries))
        return true;
    }
    return false;
  }

  // The script ends with the statement: what comes later could do the same once more.
  void TryStatement(GoldenCase const& golden, reader::ReadResult const& read, std::size_t number,
                    std::string_view script) {
    auto const& trace = read.traces[number];
    auto const with = RunScript(golden, script);
    auto const& result = with.results[number];
    if (result != "ok") return;
    bool const matters = RunScript(golden, script.substr(0, trace.offset)).model != with.model;
    // What changes nothing by itself may still make the object that it names.
    if (auto const& head = read.clauses[trace.first_clause]; head.fate != Fate::Rendered) {
      auto& evidence = found_[KeyOf(trace, head)];
      ++(matters ? evidence.model : evidence.nothing);
      if (!matters) evidence.where = golden.title;
    }
    for (std::size_t i = 1; i < trace.clauses; ++i) {
      auto const& clause = read.clauses[trace.first_clause + i];
      auto& evidence = found_[KeyOf(trace, clause)];
      if (clause.fate == Fate::Left || evidence.tries == kTries) continue;
      ++evidence.tries;
      evidence.fate = clause.fate;
      if (!matters) continue;
      auto const next =
          i + 1 < trace.clauses ? read.clauses[trace.first_clause + i + 1].offset : script.size();
      auto const end = EndOfClause(script, clause.offset, next);
      auto const shorter =
          std::string(script.substr(0, clause.offset)) + " " + std::string(script.substr(end));
      auto const without = RunScript(golden, shorter);
      if (without.results != with.results) continue;
      bool const other = without.model != with.model;
      ++(other ? evidence.model : evidence.nothing);
      // Neither in the model nor rendered is what should have been noted as left.
      if (other == (evidence.fate == Fate::Rendered) || without.rendered == with.rendered)
        evidence.where =
            golden.title + ": " + std::string(script.substr(clause.offset, end - clause.offset));
    }
  }

  std::map<Key, Evidence> found_;
};

TEST(Ledger, SaysOfEachClauseWhatTheModelKnowsOfIt) {
  Trial trial;
  for (auto const& file : LoadGoldenFiles(REPORA_GOLDEN_DIR))
    for (auto const& golden : file.cases) trial.Try(golden);
  int certain = 0;
  for (auto const& [key, evidence] : trial.Found()) {
    auto const name = key.first + " / " + key.second + ": " + evidence.where;
    if (evidence.model + evidence.nothing > 0) ++certain;
    if (evidence.fate == Fate::Rendered) {
      EXPECT_EQ(evidence.model, 0) << name;
    } else if (evidence.nothing > 0) {
      EXPECT_GT(evidence.model, 0) << name;
    }
  }
  EXPECT_GT(certain, 400);
}

// Every word of every statement belongs to one clause.
TEST(Ledger, CountsEveryWordOnce) {
  for (auto const& file : LoadGoldenFiles(REPORA_GOLDEN_DIR)) {
    for (auto const& golden : file.cases) {
      SCOPED_TRACE(golden.file + ": " + golden.title);
      std::size_t words = 0;
      auto const read = ReadGolden(golden);
      for (auto const& trace : read.traces) {
        words += trace.words;
        std::size_t in_clauses = 0;
        for (std::size_t i = 0; i < trace.clauses; ++i)
          in_clauses += read.clauses[trace.first_clause + i].words;
        bool const read_it = trace.reading == reader::Reading::Read;
        EXPECT_EQ(in_clauses, read_it ? trace.words : 0);
      }
      auto const outcome = RunGolden(golden);
      auto const& ledger = outcome->session->Ledger();
      auto const total = ledger.Total();
      EXPECT_EQ(total.words.Sum(), words);
      EXPECT_EQ(total.clauses.Sum(), ledger.Clauses().size());
      EXPECT_EQ(ledger.Statements().size(), read.traces.size());
      EXPECT_EQ(total.statements.read, read.read);
      EXPECT_EQ(total.statements.unread, read.unread);
      EXPECT_EQ(total.statements.outside, read.outside);
      std::size_t in_rows = 0;
      for (auto const& row : ledger.Rows()) in_rows += row.counts.Sum();
      EXPECT_EQ(in_rows, total.clauses.Sum());
    }
  }
}

}  // namespace
}  // namespace repora::test
