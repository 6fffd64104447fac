#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace repora::cli {

enum class ColorMode { Auto, Always, Never };

bool IsTerminal(std::FILE* stream);

// Whether to colour what goes to the stream. Auto: on a terminal that can, unless NO_COLOR is set.
bool UsesColor(ColorMode mode, std::FILE* stream);

// Wraps text in terminal attributes, or leaves it plain.
class Style {
 public:
  explicit Style(bool enabled) : enabled_(enabled) {}
  std::string Bold(std::string_view text) const { return Wrap("1", text); }
  std::string Red(std::string_view text) const { return Wrap("1;31", text); }
  std::string Yellow(std::string_view text) const { return Wrap("1;33", text); }
  std::string Cyan(std::string_view text) const { return Wrap("1;36", text); }
  std::string Green(std::string_view text) const { return Wrap("1;32", text); }

 private:
  std::string Wrap(std::string_view attributes, std::string_view text) const;
  bool enabled_;
};

// Text of a script made fit for one line of a terminal: each character takes one place, control
// characters become blanks, bytes that are no UTF-8 become U+FFFD.
std::string Printable(std::string_view text);

// The same for running text: a line break with the indentation behind it becomes one blank, and
// what exceeds the limit (in characters) is cut off and ends in "...".
std::string PrintableSummary(std::string_view text, std::size_t limit);

// Number of places of a terminal that printable text takes.
std::size_t DisplayWidth(std::string_view text);

}  // namespace repora::cli
