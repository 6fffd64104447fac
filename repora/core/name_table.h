#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "repora/core/id_slots.h"

namespace repora {

// Gives every text a number, so that keys of names are compared and hashed as numbers.
class NameTable {
 public:
  static constexpr std::uint32_t kNoName = UINT32_MAX;

  struct Name {
    char const* chars = nullptr;
    std::uint32_t size = 0;
    std::uint32_t hash = 0;   // h := h * 33 + character over the whole text, characters signed
    std::uint32_t power = 1;  // 33 to the size: what a hash before the text is multiplied by
    std::string_view view() const { return {chars, size}; }
  };

  std::uint32_t Find(std::string_view text) const;  // kNoName when it was never added
  std::uint32_t Add(std::string_view text);
  Name const& operator[](std::uint32_t number) const { return names_[number]; }
  std::uint32_t size() const { return names_.size(); }
  void Clear();

 private:
  struct Slot {
    std::uint32_t hash = 0;  // of its own, quicker to make than the one of the name
    std::uint32_t name = kNoName;
  };

  std::size_t FindSlot(std::string_view text, std::uint32_t hash) const;
  void Grow();
  char const* Store(std::string_view text);

  BlockArray<Name> names_;
  std::vector<Slot> slots_;  // open addressing, at most 3/4 full
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t block_free_ = 0;
  char* block_next_ = nullptr;
};

}  // namespace repora
