#include "reader/keywords.h"

#include <array>
#include <cstddef>
#include <iterator>

#include "reader/characters.h"

namespace repora::reader {
namespace {

constexpr std::string_view kTexts[] = {
    "",  // K_NONE
#define REPORA_WORD(word) #word,
#include "reader/keywords.def"
#undef REPORA_WORD
};

constexpr std::size_t kLongest = [] {
  std::size_t longest = 0;
  for (auto const text : kTexts) longest = text.size() > longest ? text.size() : longest;
  return longest;
}();

constexpr std::size_t kSlots = 4096;
static_assert(std::size(kTexts) * 4 < kSlots, "a fuller table has longer searches");

// Length and four letters tell nearly all words apart; the mask makes them case-insensitive.
constexpr std::size_t Slot(std::string_view text) {
  auto const letter = [&](std::size_t i) {
    return static_cast<std::size_t>(static_cast<unsigned char>(text[i]) & 0xDFU);
  };
  auto const size = text.size();
  auto const hash =
      letter(0) * 37 + letter(1) * 329 + letter(size / 2) * 1181 + letter(size - 1) * 7 + size * 61;
  return (hash ^ (hash >> 7)) % kSlots;
}

constexpr auto kTable = [] {
  std::array<std::uint16_t, kSlots> table{};
  for (std::size_t word = 1; word < std::size(kTexts); ++word) {
    auto slot = Slot(kTexts[word]);
    while (table[slot] != 0) slot = (slot + 1) % kSlots;
    table[slot] = static_cast<std::uint16_t>(word);
  }
  return table;
}();

bool Matches(std::string_view known, std::string_view text) {
  if (known.size() != text.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (known[i] != UpperAscii(text[i])) return false;
  return true;
}

}  // namespace

Word FindWord(std::string_view text) {
  if (text.size() < 2 || text.size() > kLongest) return K_NONE;
  for (auto slot = Slot(text); kTable[slot] != 0; slot = (slot + 1) % kSlots)
    if (Matches(kTexts[kTable[slot]], text)) return static_cast<Word>(kTable[slot]);
  return K_NONE;
}

std::string_view TextOf(Word word) {
  return word < std::size(kTexts) ? kTexts[word] : std::string_view();
}

bool IsUnitOfTime(Word word) {
  switch (word) {
    case K_DAY:
    case K_HOUR:
    case K_MINUTE:
    case K_MONTH:
    case K_SECOND:
    case K_YEAR: return true;
    default: return false;
  }
}

}  // namespace repora::reader
