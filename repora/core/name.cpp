#include "repora/core/name.h"

#include <algorithm>

#include "repora/core/letters.h"

REPName::REPName(char const* text) : REPName(std::string_view(text ? text : "")) {}

REPName::REPName(std::string_view text) {
  auto const stop = std::find_if_not(text.begin(), text.end(), [](char c) {
    return c == '"' || repora::IsNameByte(static_cast<unsigned char>(c));
  });
  if (stop == text.end() || text == "*") {
    AddPiece(text, true);
  } else if (*stop != '.') {
    expression_ = true;
    AddPiece(text, true);
  } else {
    for (std::size_t start = 0; start <= text.size();) {
      auto const dot = std::min(text.find('.', start), text.size());
      if (dot > start) AddPiece(text.substr(start, dot - start), true);
      start = dot + 1;
    }
  }
}

REPName* REPName::MakeExpression(std::string_view text) {
  auto* const name = new REPName;
  name->text_ = repora::Text(text);
  name->count_ = 1;
  name->expression_ = true;
  return name;
}

void REPName::AddSegment(char const* segment, bool at_tail) {
  AddPiece(segment ? segment : "", at_tail);
}

void REPName::AddPiece(std::string_view piece, bool at_tail) {
  bool quoted = false;
  if (!piece.empty() && piece.front() == '"') {
    piece.remove_prefix(1);
    quoted = true;
  }
  if (!piece.empty() && piece.back() == '"') {
    // A closing quote alone marks the segment as well.
    piece.remove_suffix(1);
    quoted = true;
  }
  if (quoted) quoted_ = true;
  auto const length = static_cast<std::uint32_t>(piece.size());
  if (count_ == 0) {
    text_ = repora::Text(piece);
    first_quoted_ = quoted;
  } else {
    if (!segments_)
      segments_.Set(
          new std::vector<Segment>{{static_cast<std::uint32_t>(text_.size()), first_quoted_}});
    std::string joined(at_tail ? std::string_view(text_) : piece);
    joined.append(1, '.').append(at_tail ? piece : std::string_view(text_));
    if (at_tail) {
      segments_->push_back({static_cast<std::uint32_t>(joined.size()), quoted});
    } else {
      for (auto& segment : *segments_) segment.end += length + 1;
      segments_->insert(segments_->begin(), {length, quoted});
    }
    text_ = repora::Text(joined);
    compound_ = true;
  }
  ++count_;
}

REPName::Segment REPName::Describe(std::size_t index) const {
  return segments_ ? (*segments_)[index]
                   : Segment{static_cast<std::uint32_t>(text_.size()), first_quoted_};
}

std::string_view REPName::SegmentAt(std::size_t index) const {
  auto const start = index == 0 ? 0 : (*segments_)[index - 1].end + 1;
  return std::string_view(text_).substr(start, Describe(index).end - start);
}

std::string REPName::Render(std::size_t first, std::size_t last, bool quotes, bool map) const {
  std::string result;
  for (auto i = first; i < last; ++i) {
    if (i > first) result += '.';
    if (quotes && Describe(i).quoted)
      result.append(1, '"').append(SegmentAt(i)).append(1, '"');
    else if (map)
      result += repora::ToUpper(SegmentAt(i));
    else
      result += SegmentAt(i);
  }
  return result;
}

std::string REPName::GetName(bool quotes) const {
  return count_ == 0 ? std::string() : Render(count_ - 1, count_, quotes, false);
}

std::string REPName::GetOwnerName(bool quotes) const {
  return count_ == 0 ? std::string() : Render(0, count_ - 1, quotes, false);
}

std::string REPName::AsString(bool quotes) const {
  if (!quotes) return text_.str();
  return Render(0, count_, true, false);
}

std::string REPName::GetMapName(bool quotes) const {
  if (count_ == 0) return {};
  return Render(count_ - 1, count_, quotes, !Describe(count_ - 1).quoted);
}

std::string REPName::GetMapOwnerName(bool quotes) const {
  return count_ == 0 ? std::string() : Render(0, count_ - 1, quotes, true);
}

std::string REPName::GetMapFullName(bool quotes) const {
  if (!quotes) return repora::ToUpper(text_);
  return Render(0, count_, true, true);
}

repora::MapFullName::MapFullName(std::string_view text) {
  unsigned char all = 0;
  if (text.size() <= sizeof short_) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      auto const c = static_cast<unsigned char>(text[i]);
      all = static_cast<unsigned char>(all | c);
      short_[i] = static_cast<char>(c >= 'a' && c <= 'z' ? c ^ 0x20U : c);
    }
  }
  if (text.size() > sizeof short_ || all >= 0x80) {
    long_ = ToUpper(text);
    view_ = long_;
  } else {
    view_ = std::string_view(short_, text.size());
  }
}

std::string REPNameList::AsString(bool parenthesised) const {
  return names_.Join(", ", parenthesised, [](REPName const& name) { return name.AsString(false); });
}
