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

// One use of a variable in a text: &name, &&name, with the dot that may end the name.
struct VariableUse {
  std::size_t start = 0;
  std::size_t end = 0;
  std::string name;  // in upper case
};

// The next use of a variable at or behind an offset; empty name: none.
VariableUse FindVariable(std::string_view text, std::size_t offset, char prefix);

// Replaces every variable that has a value; origin is that of the text's first byte. False when
// there is none, and nothing was done.
bool Expand(std::string_view text, std::size_t origin, char prefix, Defines const& defines,
            ExpandedText& expanded);

}  // namespace repora::reader
