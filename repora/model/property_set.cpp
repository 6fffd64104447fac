#include "repora/model/property_set.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace repora {
namespace {

constexpr std::size_t kRoom = 2;  // entries that a set begins with and grows by

}  // namespace

PropertySet::Block* PropertySet::Make(std::size_t capacity) {
  auto const part =
      ChunkMemory::Take(ChunkMemory::kProperties, sizeof(Block) + capacity * sizeof(Entry));
  return new (part.memory)
      Block{ShareCount(part.in_chunk), 0, static_cast<std::uint16_t>(capacity)};
}

void PropertySet::Give(Block* block) {
  ChunkMemory::Give(ChunkMemory::kProperties, {block, block->count.InChunk()},
                    sizeof(Block) + block->capacity * sizeof(Entry));
}

void PropertySet::Destroy(Block* block) {
  std::destroy_n(block->Entries(), block->size);
  Give(block);
}

void PropertySet::MakeOwn(std::size_t capacity) {
  bool const is_shared = block_ && block_->count.IsShared();
  if (block_ && !is_shared && block_->capacity >= capacity) return;
  if (capacity > std::numeric_limits<std::uint16_t>::max())
    throw std::length_error("too many properties of one object");
  if (block_ && !is_shared &&
      ChunkMemory::Grow(ChunkMemory::kProperties, {block_, block_->count.InChunk()},
                        sizeof(Block) + block_->capacity * sizeof(Entry),
                        sizeof(Block) + capacity * sizeof(Entry))) {
    block_->capacity = static_cast<std::uint16_t>(capacity);
    return;
  }
  auto* const block = Make(capacity);
  if (block_) {
    block->size = block_->size;
    if (is_shared) {
      std::uninitialized_copy_n(block_->Entries(), block_->size, block->Entries());
      block_->count.Drop();
    } else {
      // Entries hold no pointer to themselves: their bytes can move.
      std::memcpy(static_cast<void*>(block->Entries()), block_->Entries(),
                  block_->size * sizeof(Entry));
      Give(block_);
    }
  }
  block_ = block;
}

void PropertySet::Set(MOXId id, QELValue value) {
  auto const* const place = Place(id);
  auto const index = static_cast<std::size_t>(place - begin());
  if (place != end() && place->id == id) {
    MakeOwn(size());
    block_->Entries()[index].value = std::move(value);
    return;
  }
  auto const room = block_ ? std::size_t{block_->capacity} : 0;
  MakeOwn(size() < room ? room : room + std::max(kRoom, room / 2));
  auto* const entry = block_->Entries() + index;
  std::memmove(static_cast<void*>(entry + 1), entry, (block_->size - index) * sizeof(Entry));
  new (entry) Entry{id, std::move(value)};
  ++block_->size;
}

void PropertySet::Remove(MOXId id) {
  auto const* const place = Place(id);
  if (place == end() || place->id != id) return;
  auto const index = static_cast<std::size_t>(place - begin());
  MakeOwn(size());
  auto* const entry = block_->Entries() + index;
  std::destroy_at(entry);
  --block_->size;
  std::memmove(static_cast<void*>(entry), entry + 1, (block_->size - index) * sizeof(Entry));
}

}  // namespace repora
