#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace repora {

// A text field of the object model: null counts as empty. A script of a million statements holds
// tens of millions of these, most of them empty or short: sixteen bytes, with up to fifteen
// characters in place and longer texts on the heap.
class Text {
 public:
  Text() noexcept { small_[kTag] = kInline; }
  Text(char const* text) : Text(std::string_view(text ? text : "")) {}
  explicit Text(std::string_view text) { Assign(text); }
  Text(Text const& other) {
    if (other.IsSmall())
      std::memcpy(small_, other.small_, sizeof small_);
    else
      Assign(other);
  }
  Text(Text&& other) noexcept : Text() { Swap(other); }
  Text& operator=(Text other) noexcept {
    Swap(other);
    return *this;
  }
  ~Text() {
    if (!IsSmall()) delete[] Heap().chars;
  }

  std::size_t size() const {
    return IsSmall() ? kInline - static_cast<std::size_t>(small_[kTag]) : Heap().size;
  }
  bool empty() const { return small_[kTag] == kInline; }
  char const* c_str() const { return IsSmall() ? small_ : Heap().chars; }
  operator std::string_view() const { return {c_str(), size()}; }
  std::string str() const { return std::string(std::string_view(*this)); }

 private:
  // The last character tells the kinds apart. In a short text it counts the characters that are
  // still free, so that at none it is the terminator.
  static constexpr std::size_t kTag = 15;
  static constexpr char kInline = 15;
  static constexpr char kHeap = 16;

  struct HeapText {
    char* chars;
    std::uint32_t size;
  };

  bool IsSmall() const { return small_[kTag] != kHeap; }
  HeapText Heap() const {
    HeapText text{};
    std::memcpy(&text.chars, small_, sizeof text.chars);
    std::memcpy(&text.size, small_ + sizeof text.chars, sizeof text.size);
    return text;
  }
  void Swap(Text& other) noexcept {
    char kept[sizeof small_];
    std::memcpy(kept, small_, sizeof small_);
    std::memcpy(small_, other.small_, sizeof small_);
    std::memcpy(other.small_, kept, sizeof small_);
  }
  void Assign(std::string_view text);

  char small_[16] = {};
};

}  // namespace repora
