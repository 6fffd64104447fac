#pragma once

#include <cstdint>
#include <string_view>

namespace repora::reader {

// A word of keywords.def; K_NONE for every other one.
enum Word : std::uint16_t {
  K_NONE,
#define REPORA_WORD(word) K_##word,
#include "reader/keywords.def"
#undef REPORA_WORD
};

// The known word of a text, whatever its case.
Word FindWord(std::string_view text);

// YEAR to SECOND.
bool IsUnitOfTime(Word word);

// The text of a known word in upper case; empty for K_NONE.
std::string_view TextOf(Word word);

}  // namespace repora::reader
