#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "reader/parse_statements.h"

namespace repora::reader {

// How the end of a statement is found. A line that holds only "/" ends every one.
enum class Extent : std::uint8_t {
  Sql,     // at the next ";"
  Plsql,   // at the ";" behind its last END
  Source,  // foreign source text, at the "/" line alone
};

// A kind of statement, told by its first words.
struct StatementKind {
  std::array<Word, 5> words;  // without the modifiers between them, such as OR REPLACE
  Extent extent = Extent::Sql;
  ParseFunction parse = nullptr;  // null: outside the data model

  // "CREATE MATERIALIZED VIEW"; lives as long as the program.
  std::string const& Name() const;
};

// The kind of PL/SQL blocks without a name.
StatementKind const& BlockKind();

// Finds the kind of a statement from its first tokens, handed in one by one.
class KindFinder {
 public:
  void Clear() { *this = KindFinder(); }
  // Takes the next token, a ";" or End included; false when the kind is settled and further tokens
  // tell nothing.
  bool Take(Token const& token);

  // What was settled: null for a statement that starts as none does.
  StatementKind const* Kind() const { return kind_; }
  // How many tokens the words of the kind take; without a kind, how many stand before the one that
  // fits none.
  std::size_t TokensOfKind() const { return kind_ || words_ == 0 ? tokens_of_kind_ : tokens_ - 1; }

 private:
  bool Extend(Word word);

  StatementKind const* first_ = nullptr;  // the kinds that start with the words taken
  StatementKind const* last_ = nullptr;
  StatementKind const* kind_ = nullptr;
  std::size_t words_ = 0;
  std::size_t tokens_ = 0;
  std::size_t tokens_of_kind_ = 0;
};

}  // namespace repora::reader
