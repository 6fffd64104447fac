#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace repora::test {

// A statement of a script, as somebody counts it who leafs through the lines.
struct PlainStatement {
  std::size_t line = 0;  // of its first word, from 1
  std::string kind;      // "CREATE TABLE", "INSERT"; "?" for lines that start as nothing does
  friend bool operator==(PlainStatement const&, PlainStatement const&) = default;
};

// Finds the statements of a script line by line. It owes nothing to the reader and serves to check
// what that one finds: no tokens, no grammar, only quotes, comments, first words and "/" lines.
std::vector<PlainStatement> SplitPlainly(std::string const& script);

}  // namespace repora::test
