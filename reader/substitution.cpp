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

VariableUse FindVariable(std::string_view text, std::size_t offset, char prefix) {
  while ((offset = text.find(prefix, offset)) != std::string_view::npos) {
    VariableUse use;
    use.start = offset;
    auto name = offset + 1;
    if (name < text.size() && text[name] == prefix) ++name;
    use.end = name;
    while (use.end < text.size() && IsNameByte(static_cast<unsigned char>(text[use.end])))
      ++use.end;
    offset = use.end;
    if (use.end == name) continue;
    use.name = ToUpper(text.substr(name, use.end - name));
    if (use.end < text.size() && text[use.end] == '.') ++use.end;
    return use;
  }
  return {};
}

bool Expand(std::string_view text, std::size_t origin, char prefix, Defines const& defines,
            ExpandedText& expanded) {
  if (defines.empty()) return false;
  std::size_t done = 0;
  bool found = false;
  for (auto use = FindVariable(text, 0, prefix); !use.name.empty();
       use = FindVariable(text, use.end, prefix)) {
    auto const define = defines.find(use.name);
    if (define == defines.end()) continue;
    expanded.Append(text.substr(done, use.start - done), origin + done);
    expanded.AppendValue(define->second, origin + use.start);
    done = use.end;
    found = true;
  }
  if (found) expanded.Append(text.substr(done), origin + done);
  return found;
}

}  // namespace repora::reader
