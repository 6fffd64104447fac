#pragma once

#include <cstddef>
#include <string_view>

namespace repora::reader {

// Blanks within a line.
constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

constexpr bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

// The end of the line that holds an offset, before its line end.
constexpr std::size_t LineEnd(std::string_view text, std::size_t offset) {
  while (offset < text.size() && !IsLineEnd(text[offset])) ++offset;
  return offset;
}

// The start of the line behind a line end.
constexpr std::size_t AfterLineEnd(std::string_view text, std::size_t end) {
  if (text.substr(end, 2) == "\r\n") return end + 2;
  return end < text.size() ? end + 1 : end;
}

constexpr char UpperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace repora::reader
