#pragma once

#include <cstddef>
#include <cstdint>

namespace repora {

// Memory for the small parts of a model (items, property sets, texts), of which a run makes
// millions that stay together: cut one after the other from chunks of 64 KiB, so that they lie in
// memory in the order in which they are made and read. A chunk goes back to the heap when all of
// its parts are free. Outside a scope, and for large parts, the heap serves: a part that is made
// and replaced on its own must not keep a chunk.
//
// A part may be given back on another thread than the one that took it.
class ChunkMemory {
 public:
  // Parts that live and grow side by side.
  enum Area : unsigned { kItems, kProperties, kContents };

  struct Part {
    void* memory;
    bool in_chunk;
  };

  // While one lives, the parts that its thread takes come from chunks.
  class Scope {
   public:
    Scope();
    ~Scope();
    Scope(Scope const&) = delete;
    Scope& operator=(Scope const&) = delete;
  };

  static Part Take(Area area, std::size_t size) {
    auto& open = open_[area];
    size = RoundedUp(size);
    if (size > static_cast<std::size_t>(open.end - open.next)) return TakeSlowly(area, size);
    auto* const memory = open.next;
    open.next += size;
    ++open.taken;
    return {memory, true};
  }

  // The size is the one it was taken or grown with.
  static void Give(Area area, Part part, std::size_t size) {
    if (!part.in_chunk) return GiveToHeap(part.memory);
    auto& open = open_[area];
    auto* const memory = static_cast<char*>(part.memory);
    if (memory + RoundedUp(size) == open.next) {  // the last one taken: take it back
      open.next = memory;
      --open.taken;
    } else {
      GiveToChunk(part.memory);
    }
  }

  // Makes a part larger where it lies; false when there is no room behind it.
  static bool Grow(Area area, Part part, std::size_t size, std::size_t new_size) {
    auto& open = open_[area];
    auto* const memory = static_cast<char*>(part.memory);
    if (!part.in_chunk || memory + RoundedUp(size) != open.next ||
        RoundedUp(new_size) > static_cast<std::size_t>(open.end - memory))
      return false;
    open.next = memory + RoundedUp(new_size);
    return true;
  }

 private:
  static constexpr std::size_t kAreas = 3;

  struct Slab;
  struct Chunk;
  // Where the next part of an area comes from.
  struct Open {
    char* next = nullptr;
    char* end = nullptr;
    Chunk* chunk = nullptr;
    std::uint32_t taken = 0;  // parts of the chunk that are in use or were given back to it
  };
  // Where the next chunk comes from.
  struct OpenSlab {
    char* next = nullptr;
    char* end = nullptr;
    Slab* slab = nullptr;
    std::uint32_t taken = 0;
  };

  static std::size_t RoundedUp(std::size_t size) { return (size + 7) & ~std::size_t{7}; }
  static Part TakeSlowly(Area area, std::size_t size);
  static void GiveToHeap(void* memory);
  static void GiveToChunk(void* memory);
  static Chunk* TakeChunk();
  static void Close(Open& open);
  static void CloseSlab();

  static constinit thread_local Open open_[kAreas];
  static constinit thread_local OpenSlab open_slab_;
  static constinit thread_local int scopes_;
};

// Stands in front of what copies share: how many hold it, and whether it lies in a chunk.
class ShareCount {
 public:
  explicit ShareCount(bool in_chunk) : bits_(in_chunk ? kOne | kInChunk : kOne) {}
  void Add() { bits_ += kOne; }
  // True when the last holder has gone.
  bool Drop() { return (bits_ -= kOne) < kOne; }
  bool IsShared() const { return bits_ >= 2 * kOne; }
  bool InChunk() const { return (bits_ & kInChunk) != 0; }

 private:
  static constexpr std::uint32_t kInChunk = 1;
  static constexpr std::uint32_t kOne = 2;

  std::uint32_t bits_;
};

}  // namespace repora
