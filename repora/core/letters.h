#pragma once

#include <string>
#include <string_view>

// Letters of names: ASCII, and the Latin, Greek and Cyrillic letters of UTF-8 text. Bytes that are
// not valid UTF-8 stay as they are.
namespace repora {

std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// Words capitalised, underscores turned into blanks: ORDER_ITEM becomes "Order Item".
std::string ToMixed(std::string_view text);

// Equal but for case.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Whether a byte may stand in an unquoted name: letters, digits, # _ $, and every byte from 0x80.
constexpr bool IsNameByte(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || c == '#' || c >= 0x80;
}

}  // namespace repora
