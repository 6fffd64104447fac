#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "repora/model/chunk_memory.h"
#include "repora/model/ids.h"
#include "repora/model/value.h"

namespace repora {

// The properties of one object, sorted by id, at most one per id. Made for the five to twenty
// properties that an object has: sixteen bytes a property. Copies share their contents until one
// of them changes, so that a model takes over the properties of an item without touching them. Not
// synchronised: all copies belong to one thread at a time.
class PropertySet {
 public:
  struct Entry {
    MOXId id;
    QELValue value;
  };

  PropertySet() = default;
  PropertySet(PropertySet const& other) : block_(other.block_) {
    if (block_) block_->count.Add();
  }
  PropertySet(PropertySet&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  PropertySet& operator=(PropertySet other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~PropertySet() {
    if (block_ && block_->count.Drop()) Destroy(block_);
  }

  void Set(MOXId id, QELValue value);
  void Remove(MOXId id);
  // Null when absent; valid until the next change.
  QELValue const* Find(MOXId id) const {
    auto const* const place = Place(id);
    return place != end() && place->id == id ? &place->value : nullptr;
  }

  Entry const* begin() const { return block_ ? block_->Entries() : nullptr; }
  Entry const* end() const { return begin() + size(); }
  bool empty() const { return size() == 0; }
  std::size_t size() const { return block_ ? block_->size : 0; }

 private:
  struct Block {
    ShareCount count;
    std::uint16_t size;
    std::uint16_t capacity;
    Entry* Entries() { return reinterpret_cast<Entry*>(this + 1); }
  };

  static Block* Make(std::size_t capacity);
  static void Give(Block* block);
  static void Destroy(Block* block);
  // The first entry with that id or a higher one. There are few, and they are mostly set in the
  // order of their ids, so the walk from the end is short.
  Entry const* Place(MOXId id) const {
    auto const* place = end();
    while (place != begin() && (place - 1)->id >= id) --place;
    return place;
  }
  // Makes the contents this set's own, with room for so many entries.
  void MakeOwn(std::size_t capacity);

  Block* block_ = nullptr;  // null: no properties
};

}  // namespace repora
