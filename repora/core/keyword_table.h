#pragma once

#include <cstddef>
#include <string_view>

namespace repora {

// The keyword of a value, where the first keyword belongs to value 1; empty for values beyond.
template <class Enum, std::size_t N>
std::string_view FindKeyword(Enum value, std::string_view const (&keywords)[N]) {
  auto const number = static_cast<int>(value);
  return number >= 1 && number <= static_cast<int>(N) ? keywords[number - 1] : std::string_view();
}

}  // namespace repora
