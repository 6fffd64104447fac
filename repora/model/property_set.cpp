#include "repora/model/property_set.h"

#include <algorithm>
#include <memory>
#include <new>

namespace repora {

PropertySet::PropertySet(PropertySet const& other) {
  if (other.size_ == 0) return;
  Grow(other.size_);
  std::uninitialized_copy(other.begin(), other.end(), entries_);
  size_ = other.size_;
}

PropertySet::~PropertySet() {
  std::destroy_n(entries_, size_);
  ::operator delete(entries_);
}

void PropertySet::Swap(PropertySet& other) noexcept {
  std::swap(entries_, other.entries_);
  std::swap(size_, other.size_);
  std::swap(capacity_, other.capacity_);
}

void PropertySet::Grow(std::uint32_t capacity) {
  auto* const entries = static_cast<Entry*>(::operator new(capacity * sizeof(Entry)));
  std::uninitialized_move_n(entries_, size_, entries);
  std::destroy_n(entries_, size_);
  ::operator delete(entries_);
  entries_ = entries;
  capacity_ = capacity;
}

PropertySet::Entry* PropertySet::LowerBound(MOXId id) const {
  return std::lower_bound(entries_, entries_ + size_, id,
                          [](Entry const& entry, MOXId wanted) { return entry.id < wanted; });
}

void PropertySet::Set(MOXId id, QELValue value) {
  auto* place = LowerBound(id);
  if (place != entries_ + size_ && place->id == id) {
    place->value = std::move(value);
    return;
  }
  auto const index = place - entries_;
  if (size_ == capacity_) Grow(capacity_ < 4 ? 4 : capacity_ + capacity_ / 2);
  auto* const end = new (entries_ + size_) Entry{id, std::move(value)};
  ++size_;
  std::rotate(entries_ + index, end, end + 1);
}

void PropertySet::Remove(MOXId id) {
  auto* const place = LowerBound(id);
  if (place == entries_ + size_ || place->id != id) return;
  std::move(place + 1, entries_ + size_, place);
  --size_;
  std::destroy_at(entries_ + size_);
}

QELValue const* PropertySet::Find(MOXId id) const {
  auto const* const place = LowerBound(id);
  return place != end() && place->id == id ? &place->value : nullptr;
}

}  // namespace repora
