#include <algorithm>
#include <utility>

#include "reader/characters.h"
#include "reader/script_reader.h"

namespace repora::reader {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

unsigned char ByteAt(std::string_view text, std::size_t offset) {
  return offset < text.size() ? static_cast<unsigned char>(text[offset]) : '\0';
}

// The bytes of the character at an offset; 1 for what is not valid UTF-8.
std::size_t CharacterSize(std::string_view text, std::size_t offset) {
  auto const first = ByteAt(text, offset);
  auto const size = first < 0xC2   ? 1U
                    : first < 0xE0 ? 2U
                    : first < 0xF0 ? 3U
                    : first < 0xF5 ? 4U
                                   : 1U;
  auto const second = ByteAt(text, offset + 1);
  if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
      (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F))
    return 1;
  for (auto i = 1U; i < size; ++i)
    if ((ByteAt(text, offset + i) & 0xC0U) != 0x80) return 1;
  return size;
}

}  // namespace

Source::Source(std::string name, std::string text, std::size_t script)
    : name_(std::move(name)), text_(std::move(text)), script_(script) {
  if (text_.starts_with(kByteOrderMark)) text_.erase(0, kByteOrderMark.size());
}

std::size_t Source::LineStart(std::size_t offset) const {
  // The lines up to the offset: often the first messages are the last ones.
  if (lines_.empty()) lines_.push_back(0);
  while (!has_all_lines_ && lines_.back() <= offset) {
    auto const end = LineEnd(text_, lines_.back());
    has_all_lines_ = end >= text_.size();
    if (!has_all_lines_) lines_.push_back(AfterLineEnd(text_, end));
  }
  auto const next = std::upper_bound(lines_.begin(), lines_.end(), offset);
  line_ = static_cast<std::size_t>(next - lines_.begin());
  return *std::prev(next);
}

Position Source::PositionOf(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  auto at = LineStart(offset);
  auto column = std::size_t{1};
  // Messages come in the order of the text; a long line is not counted anew for each.
  if (at <= column_offset_ && column_offset_ <= offset) {
    at = column_offset_;
    column = column_;
  }
  while (at < offset) {
    auto const next = at + CharacterSize(text_, at);
    if (next > offset) break;
    at = next;
    ++column;
  }
  column_offset_ = at;
  column_ = column;
  return {line_, column};
}

std::string_view Source::LineAt(std::size_t offset) const {
  auto const start = LineStart(std::min(offset, text_.size()));
  return std::string_view(text_).substr(start, LineEnd(text_, start) - start);
}

void Source::Hide(std::size_t begin, std::size_t end) {
  std::lock_guard const guard(lock_);
  hidden_.push_back({begin, end});
}

bool Source::IsHidden(std::size_t begin, std::size_t end) const {
  std::lock_guard const guard(lock_);
  auto const part = std::partition_point(hidden_.begin(), hidden_.end(),
                                         [&](Part const& one) { return one.end <= begin; });
  return part != hidden_.end() && part->begin < end;
}

}  // namespace repora::reader
