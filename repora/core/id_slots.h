#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace repora {

// A 32-bit value per object id, 0 where nothing was stored. Object ids are handed out one after the
// other, so most stand in a plain array; ids far from the others go to a hash map.
class IdSlots {
 public:
  std::uint32_t Find(std::uint32_t id) const {
    if (id < dense_.size()) return dense_[id];
    if (sparse_.empty()) return 0;
    auto const found = sparse_.find(id);
    return found == sparse_.end() ? 0 : found->second;
  }

  // Valid until the next call.
  std::uint32_t& At(std::uint32_t id) {
    if (id >= dense_.size()) {
      if (id > 2 * dense_.size() + kSlack) return sparse_[id];
      Extend(id);
    }
    return dense_[id];
  }

  void Clear() {
    dense_ = {};
    sparse_ = {};
  }

 private:
  static constexpr std::size_t kSlack = 4096;

  void Extend(std::uint32_t id);

  std::vector<std::uint32_t> dense_;
  std::unordered_map<std::uint32_t, std::uint32_t> sparse_;
};

// Elements that keep their address and their number; grows by blocks, so that millions of them
// neither move nor leave half of the memory unused.
template <class T>
class BlockArray {
 public:
  std::uint32_t Add(T element) {
    if (size_ % kBlock == 0) blocks_.push_back(std::make_unique<T[]>(kBlock));
    (*this)[size_] = std::move(element);
    return size_++;
  }
  T& operator[](std::uint32_t index) { return blocks_[index / kBlock][index % kBlock]; }
  T const& operator[](std::uint32_t index) const { return blocks_[index / kBlock][index % kBlock]; }
  std::uint32_t size() const { return size_; }

  void Clear() {
    blocks_.clear();
    size_ = 0;
  }

 private:
  static constexpr std::uint32_t kBlock = 1024;

  std::vector<std::unique_ptr<T[]>> blocks_;
  std::uint32_t size_ = 0;
};

}  // namespace repora
