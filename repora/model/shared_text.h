#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace repora {

// An immutable text that its copies share. The same text stands in several places of a model (an
// item's name, its name properties, a datatype in a million columns), so sharing saves most of the
// memory. Not synchronised: all copies belong to one thread at a time.
class SharedText {
 public:
  SharedText() = default;
  explicit SharedText(std::string_view text);
  SharedText(SharedText const& other) : block_(other.block_) {
    if (block_) ++block_->references;
  }
  SharedText(SharedText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~SharedText() { Release(block_); }

  char const* c_str() const { return block_ ? block_->Chars() : ""; }
  std::size_t size() const { return block_ ? block_->size : 0; }
  bool empty() const { return size() == 0; }
  std::string_view view() const { return {c_str(), size()}; }

  // For holders that keep the reference in a form of their own: Detach hands the reference out,
  // Adopt takes it back, Share makes another.
  void* Detach() && { return std::exchange(block_, nullptr); }
  static SharedText Adopt(void* block);
  static SharedText Share(void* block);

 private:
  struct Block {
    std::uint32_t references;
    std::uint32_t size;
    char* Chars() { return reinterpret_cast<char*>(this + 1); }
  };
  static void Release(Block* block);

  Block* block_ = nullptr;  // null: empty text
};

}  // namespace repora
