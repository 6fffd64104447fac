#include "repora/model/property_set.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace repora {

void PropertySet::Destroy(Block* block) {
  std::destroy_n(block->Entries(), block->size);
  ::operator delete(block);
}

void PropertySet::MakeOwn(std::size_t capacity) {
  if (block_ && block_->references == 1 && block_->capacity >= capacity) return;
  if (capacity > std::numeric_limits<std::uint16_t>::max())
    throw std::length_error("too many properties of one object");
  auto* const block = new (::operator new(sizeof(Block) + capacity * sizeof(Entry)))
      Block{1, 0, static_cast<std::uint16_t>(capacity)};
  if (block_) {
    block->size = block_->size;
    if (block_->references == 1) {
      std::uninitialized_move_n(block_->Entries(), block_->size, block->Entries());
      Destroy(block_);
    } else {
      std::uninitialized_copy_n(block_->Entries(), block_->size, block->Entries());
      --block_->references;
    }
  }
  block_ = block;
}

PropertySet::Entry const* PropertySet::LowerBound(MOXId id) const {
  return std::lower_bound(begin(), end(), id,
                          [](Entry const& entry, MOXId wanted) { return entry.id < wanted; });
}

void PropertySet::Set(MOXId id, QELValue value) {
  auto const* const place = LowerBound(id);
  auto const index = static_cast<std::size_t>(place - begin());
  if (place != end() && place->id == id) {
    MakeOwn(size());
    block_->Entries()[index].value = std::move(value);
    return;
  }
  auto const room = block_ ? std::size_t{block_->capacity} : 0;
  // Grows by half: most objects end with six to twelve properties.
  MakeOwn(size() < room ? room : std::max<std::size_t>(4, room + room / 2));
  auto* const entries = block_->Entries();
  auto* const last = new (entries + block_->size) Entry{id, std::move(value)};
  ++block_->size;
  std::rotate(entries + index, last, last + 1);
}

void PropertySet::Remove(MOXId id) {
  auto const* const place = LowerBound(id);
  if (place == end() || place->id != id) return;
  auto const index = static_cast<std::size_t>(place - begin());
  MakeOwn(size());
  auto* const entries = block_->Entries();
  std::move(entries + index + 1, entries + block_->size, entries + index);
  --block_->size;
  std::destroy_at(entries + block_->size);
}

QELValue const* PropertySet::Find(MOXId id) const {
  auto const* const place = LowerBound(id);
  return place != end() && place->id == id ? &place->value : nullptr;
}

}  // namespace repora
