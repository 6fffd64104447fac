#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace repora {

// A hash of a text that takes eight characters at a time, for tables that live as long as the
// process at most. All of its bits are good.
inline std::uint64_t HashText(std::string_view text) {
  constexpr auto mix = [](std::uint64_t hash, std::uint64_t part) {
    hash = (hash ^ part) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32U);
  };
  std::uint64_t hash = text.size();
  for (; text.size() >= sizeof hash; text.remove_prefix(sizeof hash)) {
    std::uint64_t part = 0;
    std::memcpy(&part, text.data(), sizeof part);
    hash = mix(hash, part);
  }
  std::uint64_t rest = 0;
  if (!text.empty()) std::memcpy(&rest, text.data(), text.size());
  return mix(mix(hash, rest), 0);
}

}  // namespace repora
