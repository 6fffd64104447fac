#pragma once

#include <string>
#include <string_view>

#include "repora/core/name.h"
#include "repora/core/owned.h"

namespace repora {

// Builds the SQL text of a statement or clause. It owns the blanks: what is not given (empty text,
// null pointer) is left out together with the blank or keyword that belongs to it.
class SqlText {
 public:
  SqlText() = default;
  explicit SqlText(std::string_view start) : text_(start) {}

  // The text as it is.
  SqlText& Append(std::string_view text) {
    text_ += text;
    return *this;
  }
  SqlText& AppendIf(bool given, std::string_view text) { return given ? Append(text) : *this; }

  SqlText& Number(long long value) { return Append(std::to_string(value)); }

  // The name as written, without quotes.
  SqlText& Name(REPName const* name) { return name ? Append(name->AsString(false)) : *this; }

  // " KEYWORD " and its value; nothing when the value is not given.
  SqlText& Clause(std::string_view keyword, std::string_view value) {
    return value.empty() ? *this : Append(keyword).Append(value);
  }
  SqlText& Clause(std::string_view keyword, REPName const* name) {
    return name ? Append(keyword).Name(name) : *this;
  }

  // A keyword or a rendered child with one leading blank; nothing when empty.
  SqlText& Option(std::string_view text) { return Clause(" ", text); }

  // A part of a sequence that is separated by a blank (or another separator), with none before the
  // first part.
  SqlText& Part(std::string_view text, std::string_view separator = " ") {
    if (text.empty()) return *this;
    if (has_part_) Append(separator);
    has_part_ = true;
    return Append(text);
  }
  // A part of a keyword and its value; nothing when the value is not given.
  SqlText& PartClause(std::string_view keyword, std::string_view value) {
    return value.empty() ? *this : Part(keyword).Append(value);
  }
  SqlText& PartClause(std::string_view keyword, REPName const* name) {
    return name ? Part(keyword).Name(name) : *this;
  }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
  bool has_part_ = false;
};

// The text of a child, empty for null.
template <class T>
std::string TextOf(T const* child) {
  return child ? child->AsString() : std::string();
}

}  // namespace repora
