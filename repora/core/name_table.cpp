#include "repora/core/name_table.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "repora/model/hash_text.h"

namespace repora {
namespace {

constexpr std::size_t kBlockSize = 64 * 1024;

NameTable::Name Measure(std::string_view text) {
  NameTable::Name name;
  name.size = static_cast<std::uint32_t>(text.size());
  for (auto const c : text) {
    name.hash = name.hash * 33 + static_cast<std::uint32_t>(static_cast<signed char>(c));
    name.power *= 33;
  }
  return name;
}

std::uint32_t SlotHash(std::string_view text) {
  return static_cast<std::uint32_t>(HashText(text));
}

}  // namespace

std::size_t NameTable::FindSlot(std::string_view text, std::uint32_t hash) const {
  auto const mask = slots_.size() - 1;
  for (auto i = hash & mask;; i = (i + 1) & mask) {
    auto const& slot = slots_[i];
    if (slot.name == kNoName || (slot.hash == hash && names_[slot.name].view() == text)) return i;
  }
}

std::uint32_t NameTable::Find(std::string_view text) const {
  return slots_.empty() ? kNoName : slots_[FindSlot(text, SlotHash(text))].name;
}

std::uint32_t NameTable::Add(std::string_view text) {
  if (4 * (std::size_t{names_.size()} + 1) > 3 * slots_.size()) Grow();
  auto const hash = SlotHash(text);
  auto& slot = slots_[FindSlot(text, hash)];
  if (slot.name == kNoName) {
    auto name = Measure(text);
    name.chars = Store(text);
    slot = {hash, names_.Add(name)};
  }
  return slot.name;
}

// The slots move by their hashes: no name is looked at.
void NameTable::Grow() {
  auto const old = std::move(slots_);
  slots_.assign(std::max<std::size_t>(64, 2 * old.size()), Slot());
  auto const mask = slots_.size() - 1;
  for (auto const& slot : old) {
    if (slot.name == kNoName) continue;
    auto i = slot.hash & mask;
    while (slots_[i].name != kNoName) i = (i + 1) & mask;
    slots_[i] = slot;
  }
}

char const* NameTable::Store(std::string_view text) {
  if (text.size() > block_free_) {
    auto const size = std::max(kBlockSize, text.size());
    blocks_.push_back(std::make_unique<char[]>(size));
    block_next_ = blocks_.back().get();
    block_free_ = size;
  }
  auto* const place = block_next_;
  if (!text.empty()) std::memcpy(place, text.data(), text.size());
  block_next_ += text.size();
  block_free_ -= text.size();
  return place;
}

void NameTable::Clear() {
  names_.Clear();
  slots_ = {};
  blocks_.clear();
  block_free_ = 0;
  block_next_ = nullptr;
}

}  // namespace repora
