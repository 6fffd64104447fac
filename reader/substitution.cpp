#include "reader/substitution.h"

#include <algorithm>
#include <iterator>

#include "repora/core/letters.h"

namespace repora::reader {

std::size_t ExpandedText::OriginOf(std::size_t offset) const {
  auto const next =
      std::upper_bound(parts_.begin(), parts_.end(), offset,
                       [](std::size_t wanted, Part const& part) { return wanted < part.start; });
  if (next == parts_.begin()) return offset;
  auto const& part = *std::prev(next);
  return part.value ? part.origin : part.origin + (offset - part.start);
}

void ExpandedText::Append(std::string_view text, std::size_t origin) {
  if (text.empty()) return;
  parts_.push_back({text_.size(), origin, false});
  text_ += text;
}

void ExpandedText::AppendValue(std::string_view value, std::size_t origin) {
  if (value.empty()) return;
  parts_.push_back({text_.size(), origin, true});
  text_ += value;
}

VariableUse FindVariable(std::string_view text, std::size_t offset, VariableMarks const& marks) {
  auto const is_name = [&](char c) {
    return IsNameByte(static_cast<unsigned char>(c)) && c != marks.prefix && c != marks.concat;
  };
  if (marks.prefix == '\0') return {};
  while ((offset = text.find(marks.prefix, offset)) != std::string_view::npos) {
    VariableUse use;
    use.start = offset;
    auto name = offset + 1;
    if (marks.escape != '\0' && offset > 0 && text[offset - 1] == marks.escape)
      return {offset - 1, name, {}};
    if (name < text.size() && text[name] == marks.prefix) ++name;
    use.end = name;
    while (use.end < text.size() && is_name(text[use.end])) ++use.end;
    offset = use.end;
    if (use.end == name) continue;
    use.name = ToUpper(text.substr(name, use.end - name));
    if (marks.concat != '\0' && use.end < text.size() && text[use.end] == marks.concat) ++use.end;
    return use;
  }
  return {};
}

}  // namespace repora::reader
