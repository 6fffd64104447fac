#include "repora/core/text.h"

#include <stdexcept>

namespace repora {

void Text::Assign(std::string_view text) {
  if (text.size() <= kInline) {
    if (!text.empty()) std::memcpy(small_, text.data(), text.size());
    small_[kTag] = static_cast<char>(kInline - static_cast<int>(text.size()));
    return;
  }
  if (text.size() > UINT32_MAX) throw std::length_error("text of 4 GiB or more");
  auto* const chars = new char[text.size() + 1];
  auto const size = static_cast<std::uint32_t>(text.size());
  std::memcpy(chars, text.data(), text.size());
  chars[size] = '\0';
  std::memcpy(small_, &chars, sizeof chars);
  std::memcpy(small_ + sizeof chars, &size, sizeof size);
  small_[kTag] = kHeap;
}

}  // namespace repora
