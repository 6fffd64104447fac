#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "repora/core/owned.h"

// A qualified SQL name as the script wrote it: OWNER.NAME, "Mixed Name", or an expression.
class REPName {
 public:
  REPName() = default;
  // Parses a script name: plain names are split at their dots, "*" and texts that are no plain name
  // (expressions) become one segment, empty text and null one empty segment.
  explicit REPName(char const* text);
  explicit REPName(std::string_view text);
  // An expression, kept as it is written whatever it looks like; the caller owns it.
  static REPName* MakeExpression(std::string_view text);

  // A segment written in double quotes loses them and is marked as quoted. Null counts as empty.
  void AddHead(char const* segment) { AddSegment(segment, false); }
  void AddTail(char const* segment) { AddSegment(segment, true); }

  int GetCount() const { return static_cast<int>(count_); }
  // No segment, or an empty first one.
  bool IsEmpty() const { return count_ == 0 || SegmentAt(0).empty(); }
  bool IsQuoted() const { return quoted_; }
  bool IsCompound() const { return compound_; }
  bool IsExpression() const { return expression_; }
  void SetQuoted(bool quoted) { quoted_ = quoted; }

  // As written. With quotes, segments that were quoted are wrapped in double quotes again.
  std::string GetName(bool quotes) const;       // the last segment
  std::string GetOwnerName(bool quotes) const;  // all but the last, joined with "."
  std::string GetFullName(bool quotes) const { return AsString(quotes); }
  // The same without quotes and without a copy, valid until the name changes.
  std::string_view NameView() const {
    return count_ == 0 ? std::string_view() : SegmentAt(count_ - 1);
  }
  std::string_view FullNameView() const { return text_; }
  std::string AsString(bool quotes) const;

  // Upper-cased, the form of lookup keys. With quotes, quoted segments keep their case and quotes.
  std::string GetMapName(bool quotes) const;  // a quoted last segment always keeps its case
  std::string GetMapOwnerName(bool quotes) const;
  std::string GetMapFullName(bool quotes) const;

 protected:
  void AddSegment(char const* segment, bool at_tail);

 private:
  struct Segment {
    std::uint32_t end = 0;  // in text_; the next segment starts behind the dot
    bool quoted = false;
  };

  void AddPiece(std::string_view piece, bool at_tail);
  Segment Describe(std::size_t index) const;
  std::string_view SegmentAt(std::size_t index) const;
  std::string Render(std::size_t first, std::size_t last, bool quotes, bool map) const;

  // The segments joined with dots. A name of one segment, the usual kind, needs no list of them.
  repora::Text text_;
  repora::Owned<std::vector<Segment>> segments_;  // null while there is one
  std::uint32_t count_ = 0;
  bool first_quoted_ = false;  // while segments_ is null
  bool quoted_ = false;
  bool compound_ = false;
  bool expression_ = false;
};

namespace repora {

// GetMapFullName(false) of a name, empty for null; names of the usual length stay off the heap.
class MapFullName {
 public:
  explicit MapFullName(REPName const* name)
      : MapFullName(name ? name->FullNameView() : std::string_view()) {}
  MapFullName(MapFullName const&) = delete;
  MapFullName& operator=(MapFullName const&) = delete;
  operator std::string_view() const { return view_; }

 private:
  explicit MapFullName(std::string_view text);

  char short_[64];
  std::string long_;
  std::string_view view_;
};

}  // namespace repora

// Names in order (column lists, tablespace lists), owned.
class REPNameList {
 public:
  void AddHead(REPName* name) { names_.AddHead(name); }
  void AddTail(REPName* name) { names_.AddTail(name); }
  int GetCount() const { return names_.GetCount(); }
  REPName* GetName(int index) const { return names_.At(index); }
  std::string AsString(bool parenthesised) const;

 protected:
  void RemoveAll() { names_.RemoveAll(); }

 private:
  repora::OwnedList<REPName> names_;
};

namespace repora {

// Neither null nor empty.
inline bool IsGiven(REPName const* name) {
  return name && !name->IsEmpty();
}

// The name as written, without quotes; empty for null.
inline std::string AsWritten(REPName const* name) {
  return name ? name->AsString(false) : std::string();
}

}  // namespace repora
