#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "repora/model/chunk_memory.h"

namespace repora {

// An immutable text that its copies share. The same text stands in several places of a model (an
// item's name, its name properties, a datatype in a million columns), so sharing saves most of the
// memory. Not synchronised: all copies belong to one thread at a time.
class SharedText {
 public:
  SharedText() = default;
  explicit SharedText(std::string_view text) : block_(text.empty() ? nullptr : Make(text)) {}
  SharedText(SharedText const& other) : block_(other.block_) {
    if (block_) block_->count.Add();
  }
  SharedText(SharedText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~SharedText() {
    if (block_ && block_->count.Drop()) Destroy(block_);
  }

  char const* c_str() const { return block_ ? block_->Chars() : ""; }
  std::size_t size() const { return block_ ? block_->size : 0; }
  bool empty() const { return size() == 0; }
  std::string_view view() const { return ViewOf(block_); }

  // For holders that keep the reference in a form of their own: Detach hands the reference out,
  // Adopt takes it back, Share makes another, ViewOf only looks.
  void* Detach() && { return std::exchange(block_, nullptr); }
  static SharedText Adopt(void* block) {
    SharedText text;
    text.block_ = static_cast<Block*>(block);
    return text;
  }
  static SharedText Share(void* block) {
    auto text = Adopt(block);
    if (text.block_) text.block_->count.Add();
    return text;
  }
  static std::string_view ViewOf(void* block) {
    auto* const contents = static_cast<Block*>(block);
    return contents ? std::string_view(contents->Chars(), contents->size) : std::string_view("", 0);
  }

 private:
  struct Block {
    ShareCount count;
    std::uint32_t size;
    char* Chars() { return reinterpret_cast<char*>(this + 1); }
  };
  static Block* Make(std::string_view text);
  static void Destroy(Block* block);

  Block* block_ = nullptr;  // null: empty text
};

}  // namespace repora
