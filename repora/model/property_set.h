#pragma once

#include <cstdint>

#include "repora/model/ids.h"
#include "repora/model/value.h"

namespace repora {

// The properties of one object, sorted by id, at most one per id. Made for the five to twenty
// properties that an object has: sixteen bytes a property.
class PropertySet {
 public:
  struct Entry {
    MOXId id;
    QELValue value;
  };

  PropertySet() = default;
  PropertySet(PropertySet const& other);
  PropertySet(PropertySet&& other) noexcept { Swap(other); }
  PropertySet& operator=(PropertySet other) noexcept {
    Swap(other);
    return *this;
  }
  ~PropertySet();

  void Set(MOXId id, QELValue value);
  void Remove(MOXId id);
  QELValue const* Find(MOXId id) const;  // null when absent; valid until the next change

  Entry const* begin() const { return entries_; }
  Entry const* end() const { return entries_ + size_; }
  bool empty() const { return size_ == 0; }
  std::size_t size() const { return size_; }

 private:
  Entry* LowerBound(MOXId id) const;
  void Swap(PropertySet& other) noexcept;
  void Grow(std::uint32_t capacity);

  Entry* entries_ = nullptr;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;
};

}  // namespace repora
