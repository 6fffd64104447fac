#include "cli/terminal.h"

#include <algorithm>
#include <cstdlib>

#include <unistd.h>

namespace repora::cli {
namespace {

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Bytes of the UTF-8 character that a text starts with, 0 when there is none.
std::size_t CharacterSize(std::string_view text) {
  auto const at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  auto const first = at(0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  std::size_t const size = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i)
    if (!IsContinuation(text[i])) return 0;
  // Longer forms than needed, surrogates, and what lies beyond the last character
  bool const valid = (first != 0xE0 || at(1) >= 0xA0) && (first != 0xED || at(1) < 0xA0) &&
                     (first != 0xF0 || at(1) >= 0x90) && (first != 0xF4 || at(1) < 0x90);
  return valid ? size : 0;
}

bool IsControl(std::string_view character) {
  auto const first = static_cast<unsigned char>(character[0]);
  return first < 0x20 || first == 0x7F ||
         (first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0);
}

// Takes the next character off a text.
std::string_view TakePrintable(std::string_view& text) {
  auto const size = CharacterSize(text);
  auto const character = text.substr(0, size == 0 ? 1 : size);
  text.remove_prefix(character.size());
  if (size == 0) return "\xEF\xBF\xBD";
  return IsControl(character) ? std::string_view(" ") : character;
}

char32_t CodePoint(std::string_view character) {
  auto point = static_cast<char32_t>(static_cast<unsigned char>(character[0]));
  if (character.size() > 1) point &= 0x7FU >> character.size();
  for (auto const c : character.substr(1))
    point = point << 6U | (static_cast<unsigned char>(c) & 0x3FU);
  return point;
}

struct Range {
  char32_t first;
  char32_t last;
  std::size_t width;
};

// Characters that do not take one place: marks above and below others, and those of East Asia and
// pictures.
constexpr Range kWidths[] = {
    {0x0300, 0x036F, 0},   {0x1100, 0x115F, 2},   {0x1AB0, 0x1AFF, 0},   {0x200B, 0x200F, 0},
    {0x20D0, 0x20FF, 0},   {0x2E80, 0x303E, 2},   {0x3041, 0x4DBF, 2},   {0x4E00, 0xA4CF, 2},
    {0xA960, 0xA97F, 2},   {0xAC00, 0xD7A3, 2},   {0xF900, 0xFAFF, 2},   {0xFE00, 0xFE0F, 0},
    {0xFE20, 0xFE2F, 0},   {0xFE30, 0xFE6F, 2},   {0xFF00, 0xFF60, 2},   {0xFFE0, 0xFFE6, 2},
    {0x1F300, 0x1F64F, 2}, {0x1F680, 0x1F6FF, 2}, {0x1F900, 0x1F9FF, 2}, {0x20000, 0x3FFFD, 2}};

std::size_t WidthOf(char32_t point) {
  for (auto const& range : kWidths)
    if (point >= range.first && point <= range.last) return range.width;
  return 1;
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
  return ::isatty(::fileno(stream)) == 1;
}

bool UsesColor(ColorMode mode, std::FILE* stream) {
  if (mode != ColorMode::Auto) return mode == ColorMode::Always;
  auto const* const no_color = std::getenv("NO_COLOR");
  auto const* const terminal = std::getenv("TERM");
  if (no_color && *no_color) return false;
  return IsTerminal(stream) && terminal && std::string_view(terminal) != "dumb";
}

std::string Style::Wrap(std::string_view attributes, std::string_view text) const {
  if (!enabled_) return std::string(text);
  return std::string("\x1b[").append(attributes).append("m").append(text).append("\x1b[0m");
}

std::string Printable(std::string_view text) {
  std::string result;
  while (!text.empty()) result += TakePrintable(text);
  return result;
}

std::string PrintableSummary(std::string_view text, std::size_t limit) {
  std::string result;
  std::size_t count = 0;
  std::size_t cut = 0;      // where the dots go
  bool after_break = true;  // behind a line break or a tab, and its blank
  while (!text.empty()) {
    bool const is_break = text.front() == '\n' || text.front() == '\r' || text.front() == '\t';
    auto const character = TakePrintable(text);
    if (character == " " && (after_break || (is_break && result.back() == ' '))) continue;
    if (count + 3 == limit) cut = result.size();
    if (count == limit) return result.substr(0, cut) + "...";
    result += character;
    ++count;
    after_break = is_break;
  }
  while (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    auto const size = std::max<std::size_t>(CharacterSize(text), 1);
    width += WidthOf(CodePoint(text.substr(0, size)));
    text.remove_prefix(size);
  }
  return width;
}

}  // namespace repora::cli
