#include "repora/core/letters.h"

#include <cstdint>

namespace repora {
namespace {

// A run of letters: the lower-case letter is first + offset for every step-th letter between first
// and last (upper case). Letters whose other case takes another number of bytes are left out, so a
// name never changes its length.
struct CaseRange {
  std::uint32_t first, last;  // upper case
  std::uint32_t step;
  std::int32_t offset;
};

constexpr CaseRange kRanges[] = {
    {'A', 'Z', 1, 32},       {0x00C0, 0x00D6, 1, 32},   {0x00D8, 0x00DE, 1, 32},
    {0x0100, 0x012E, 2, 1},  {0x0132, 0x0136, 2, 1},    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},  {0x0178, 0x0178, 1, -121}, {0x0179, 0x017D, 2, 1},
    {0x0187, 0x0187, 1, 1},  {0x0191, 0x0191, 1, 1},    {0x01A0, 0x01A4, 2, 1},
    {0x01AF, 0x01AF, 1, 1},  {0x01B3, 0x01B5, 2, 1},    {0x01CD, 0x01DB, 2, 1},
    {0x01DE, 0x01EE, 2, 1},  {0x01F8, 0x021E, 2, 1},    {0x0222, 0x0232, 2, 1},
    {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37},   {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63}, {0x0391, 0x03A1, 1, 32},   {0x03A3, 0x03AB, 1, 32},
    {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32},   {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},  {0x04C0, 0x04C0, 1, 15},   {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},  {0x1E00, 0x1E94, 2, 1},    {0x1EA0, 0x1EFE, 2, 1},
    {0x1F08, 0x1F0F, 1, -8}, {0x1F18, 0x1F1D, 1, -8},   {0x1F28, 0x1F2F, 1, -8},
    {0x1F38, 0x1F3F, 1, -8}, {0x1F48, 0x1F4D, 1, -8},   {0x1F59, 0x1F5F, 2, -8},
    {0x1F68, 0x1F6F, 1, -8},
};

std::uint32_t ConvertLetter(std::uint32_t letter, bool upper) {
  for (auto const& range : kRanges) {
    auto const shift = upper ? range.offset : 0;
    auto const first = static_cast<std::uint32_t>(static_cast<std::int32_t>(range.first) + shift);
    auto const last = static_cast<std::uint32_t>(static_cast<std::int32_t>(range.last) + shift);
    if (letter < first || letter > last || (letter - first) % range.step != 0) continue;
    auto const change = upper ? -range.offset : range.offset;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(letter) + change);
  }
  return upper && letter == 0x03C2 ? 0x03A3 : letter;  // final sigma has no upper case of its own
}

struct Letter {
  std::uint32_t code;
  int length;  // in bytes; 0: not a valid sequence
};

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Decodes the two- and three-byte sequences that the ranges above can name.
Letter Decode(std::string_view text) {
  auto const byte = [&](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
  };
  if (byte(0) >= 0xC2 && byte(0) <= 0xDF && text.size() > 1 && IsContinuation(text[1]))
    return {((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU), 2};
  if (byte(0) >= 0xE0 && byte(0) <= 0xEF && text.size() > 2 && IsContinuation(text[1]) &&
      IsContinuation(text[2]))
    return {((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU), 3};
  return {0, 0};
}

void Encode(char* out, std::uint32_t code, int length) {
  if (length == 2) {
    out[0] = static_cast<char>(0xC0U | (code >> 6U));
    out[1] = static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    out[0] = static_cast<char>(0xE0U | (code >> 12U));
    out[1] = static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    out[2] = static_cast<char>(0x80U | (code & 0x3FU));
  }
}

// Converts the letter at the front of the rest of a text and returns its length in bytes.
std::size_t ConvertFront(char* rest, std::size_t size, bool upper) {
  if (static_cast<unsigned char>(*rest) < 0x80) {
    if (upper ? (*rest >= 'a' && *rest <= 'z') : (*rest >= 'A' && *rest <= 'Z'))
      *rest = static_cast<char>(*rest ^ 0x20);
    return 1;
  }
  auto const letter = Decode({rest, size});
  if (letter.length == 0) return 1;
  auto const converted = ConvertLetter(letter.code, upper);
  if (converted != letter.code) Encode(rest, converted, letter.length);
  return static_cast<std::size_t>(letter.length);
}

std::string Convert(std::string_view text, bool upper) {
  std::string result(text);
  for (std::size_t i = 0; i < result.size();)
    i += ConvertFront(result.data() + i, result.size() - i, upper);
  return result;
}

}  // namespace

std::string ToUpper(std::string_view text) {
  return Convert(text, true);
}

std::string ToLower(std::string_view text) {
  return Convert(text, false);
}

std::string ToMixed(std::string_view text) {
  std::string result(text);
  bool starts_word = true;
  for (std::size_t i = 0; i < result.size();) {
    if (result[i] == '_') result[i] = ' ';
    bool const blank = result[i] == ' ';
    i += ConvertFront(result.data() + i, result.size() - i, starts_word);
    starts_word = blank;
  }
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && ToUpper(a) == ToUpper(b);
}

}  // namespace repora
