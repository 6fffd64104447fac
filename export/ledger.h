#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "export/run_outcome.h"

namespace repora::exporter {

// What became of a clause. The names are part of the JSON contract.
enum class Fate : std::uint8_t {
  Held,      // in the model
  Text,      // in the model as a text of the script
  Rendered,  // in the statement only, which renders it; the model does not know it
  Left,      // nowhere
};

inline constexpr std::array<std::string_view, 4> kFateNames = {"held", "text", "rendered", "left"};

constexpr std::string_view NameOf(Fate fate) {
  return kFateNames[static_cast<std::size_t>(fate)];
}

// How many there are of each fate.
struct FateCounts {
  std::array<std::size_t, kFateNames.size()> counts{};

  std::size_t& Of(Fate fate) { return counts[static_cast<std::size_t>(fate)]; }
  std::size_t Of(Fate fate) const { return counts[static_cast<std::size_t>(fate)]; }
  std::size_t Sum() const;
};

struct Place {
  std::string_view file;
  std::size_t line = 0;  // from 1; 0: none
  std::size_t column = 0;
};

// The account of a run: every clause of every statement counted once by what became of it. A
// statement that was not read, or has no place in a data model, is one clause, and the words that
// start a statement are its first clause. All names handed in are borrowed.
class Ledger {
 public:
  struct Row {
    std::string_view statement;  // "CREATE TABLE"
    std::string_view clause;     // "NOT NULL"; empty: the statement itself
    FateCounts counts;
    Place first;
    Place first_left;
  };
  struct Clause {
    std::uint32_t row;
    Fate fate;
    std::uint32_t line;
    std::uint32_t column;
  };
  struct Statement {
    std::string_view result;  // ok, duplicate, unsupported, error, unread or outside
    Place place;
    std::size_t first_clause;  // in Clauses(), up to that of the next statement
  };
  struct Script {
    std::string name;
    StatementCounts statements;
    FateCounts clauses;
    FateCounts words;
  };

  // Names of the scripts, in their order.
  void SetScripts(std::vector<std::string> const& names);
  // Keeps each statement and clause with its place.
  void KeepDetails() { keeps_details_ = true; }
  bool KeepsDetails() const { return keeps_details_; }

  // The statement that the next clauses belong to; the place is for the details.
  void StartStatement(std::size_t script, std::string_view result, Place const& place);
  std::uint32_t RowOf(std::string_view statement, std::string_view clause);
  // Whether Add looks at the place of a clause, which costs time to find.
  bool WantsPlace(std::uint32_t row, Fate fate) const;
  void Add(std::uint32_t row, Fate fate, std::size_t words, Place const& place);

  std::vector<Script> const& Scripts() const { return scripts_; }
  Script Total() const;
  // By statement and clause, the most frequent statements first; a statement's own row comes before
  // its clauses.
  std::vector<Row> Rows() const;
  // The details; rows are those of StoredRow.
  std::vector<Statement> const& Statements() const { return statements_; }
  std::vector<Clause> const& Clauses() const { return clauses_; }
  Row const& StoredRow(std::uint32_t row) const { return rows_[row]; }

 private:
  struct Key {
    char const* statement;
    char const* clause;
    bool operator==(Key const&) const = default;
  };
  struct Hash {
    std::size_t operator()(Key const& key) const;
  };

  // One per pair of name addresses, as comparing texts for each clause would cost too much.
  std::vector<Row> rows_;
  std::unordered_map<Key, std::uint32_t, Hash> row_of_;
  std::vector<Script> scripts_;
  std::size_t script_ = 0;
  bool keeps_details_ = false;
  std::vector<Statement> statements_;
  std::vector<Clause> clauses_;
};

// The account as a table, a line a clause, and its totals.
std::string LedgerText(Ledger const& ledger, bool bold_headings);

}  // namespace repora::exporter
