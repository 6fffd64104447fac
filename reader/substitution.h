#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace repora::reader {

// Substitution variables and their values, names in upper case.
using Defines = std::map<std::string, std::string>;

// A text in which variables were replaced by their values, and where its parts came from.
class ExpandedText {
 public:
  std::string const& Text() const { return text_; }
  // Where an offset of the text stood before; what a value brought in stood at its variable.
  std::size_t OriginOf(std::size_t offset) const;

  void Append(std::string_view text, std::size_t origin);
  void AppendValue(std::string_view value, std::size_t origin);

 private:
  struct Part {
    std::size_t start;   // in text_
    std::size_t origin;  // of its first byte
    bool value;          // all bytes of it have the same origin
  };
  std::string text_;
  std::vector<Part> parts_;
};

// The characters that mark variables; NUL: there is no such mark.
struct VariableMarks {
  char prefix = '&';
  char concat = '.';   // ends a name and goes with it
  char escape = '\0';  // before a prefix that is to stay, and goes
};

// One use of a variable in a text: &name, &&name, with the dot that may end the name. An escaped
// prefix is one without a name.
struct VariableUse {
  std::size_t start = 0;
  std::size_t end = 0;  // 0: there is none
  std::string name;     // in upper case
};

// The next use of a variable at or behind an offset.
VariableUse FindVariable(std::string_view text, std::size_t offset, VariableMarks const& marks);

}  // namespace repora::reader
