#include "repora/model/chunk_memory.h"

#include <atomic>
#include <new>
#include <utility>

namespace repora {
namespace {

// Chunks lie at multiples of their size, so that a part finds its chunk.
constexpr std::size_t kChunkSize = 16 * 1024;
// Large, as what lies before its first chunk and behind its last one is lost.
constexpr std::size_t kSlabSize = 512 * 1024 - 64;
// Parts above this size would leave too much of a chunk unused.
constexpr std::size_t kLargestPart = 1024;
// More than a chunk has parts: keeps it while parts are still taken from it. The same for a slab.
constexpr std::uint32_t kOpenCount = 1U << 30U;

#if defined(__has_feature)
#define REPORA_HAS_FEATURE(feature) __has_feature(feature)
#else
#define REPORA_HAS_FEATURE(feature) 0
#endif
// A sanitizer sees a wrong access only to memory that comes from the heap part by part.
#if defined(__SANITIZE_ADDRESS__) || REPORA_HAS_FEATURE(address_sanitizer)
constexpr bool kUsesChunks = false;
#else
constexpr bool kUsesChunks = true;
#endif

// The chunk that an address lies in.
char* ChunkAt(void* memory) {
  return static_cast<char*>(memory) - reinterpret_cast<std::uintptr_t>(memory) % kChunkSize;
}

// How much of a slab or a chunk is in use.
class UseCount {
 public:
  // True when nothing is left.
  bool Drop(std::uint32_t count) {
    return in_use_.fetch_sub(count, std::memory_order_acq_rel) == count;
  }

 private:
  std::atomic<std::uint32_t> in_use_{kOpenCount};
};

}  // namespace

struct ChunkMemory::Slab {
  UseCount chunks;

  void Drop(std::uint32_t count) {
    if (chunks.Drop(count)) ::operator delete(this);
  }
};

struct ChunkMemory::Chunk {
  UseCount parts;
  Slab* slab;

  char* Begin() { return reinterpret_cast<char*>(this + 1); }
  char* End() { return reinterpret_cast<char*>(this) + kChunkSize; }
  void Drop(std::uint32_t count) {
    if (parts.Drop(count)) slab->Drop(1);
  }
};

constinit thread_local ChunkMemory::Open ChunkMemory::open_[kAreas] = {};
constinit thread_local ChunkMemory::OpenSlab ChunkMemory::open_slab_ = {};
constinit thread_local int ChunkMemory::scopes_ = 0;

ChunkMemory::Scope::Scope() {
  ++scopes_;
}

ChunkMemory::Scope::~Scope() {
  if (--scopes_ > 0) return;
  for (auto& open : open_) Close(open);
  CloseSlab();
}

ChunkMemory::Part ChunkMemory::TakeSlowly(Area area, std::size_t size) {
  if (!kUsesChunks || scopes_ == 0 || size > kLargestPart) return {::operator new(size), false};
  auto* const chunk = TakeChunk();
  Close(open_[area]);
  open_[area] = {chunk->Begin(), chunk->End(), chunk, 0};
  return Take(area, size);
}

ChunkMemory::Chunk* ChunkMemory::TakeChunk() {
  if (static_cast<std::size_t>(open_slab_.end - open_slab_.next) < kChunkSize) {
    auto* const memory = static_cast<char*>(::operator new(kSlabSize));
    CloseSlab();
    open_slab_ = {ChunkAt(memory + sizeof(Slab) + kChunkSize - 1), memory + kSlabSize,
                  new (memory) Slab, 0};
  }
  auto* const chunk = new (open_slab_.next) Chunk{{}, open_slab_.slab};
  open_slab_.next += kChunkSize;
  ++open_slab_.taken;
  return chunk;
}

void ChunkMemory::GiveToHeap(void* memory) {
  ::operator delete(memory);
}

void ChunkMemory::GiveToChunk(void* memory) {
  reinterpret_cast<Chunk*>(ChunkAt(memory))->Drop(1);
}

void ChunkMemory::Close(Open& open) {
  auto const closed = std::exchange(open, {});
  if (closed.chunk) closed.chunk->Drop(kOpenCount - closed.taken);
}

void ChunkMemory::CloseSlab() {
  auto const closed = std::exchange(open_slab_, {});
  if (closed.slab) closed.slab->Drop(kOpenCount - closed.taken);
}

}  // namespace repora
