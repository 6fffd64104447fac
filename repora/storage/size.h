#pragma once

#include <string>

#include "repora/core/owned.h"

// What a size is and, for numbers, its unit.
enum class REPSizeType_e : int {
  None,
  KeywordOnly,  // the keyword of the size stands without a value
  Null,
  Number,  // bytes or a count
  Kilobytes,
  Megabytes,
  Gigabytes,
  Terabytes,
  Unlimited,
};

// n [K | M | G | T] | UNLIMITED | NULL
// The number is kept as the script wrote it.
class REPSizeClause {
 public:
  REPSizeClause() = default;
  // A size as written; see SetSize.
  REPSizeClause(char const* text) { SetSize(text); }
  // A size without a number.
  REPSizeClause(REPSizeType_e type) : type_(type) {}
  explicit REPSizeClause(REPSizeClause const* other) : REPSizeClause(repora::CopyOf(other)) {}
  REPSizeClause& operator=(REPSizeClause const* other) { return *this = repora::CopyOf(other); }

  // Takes a size as written: a last letter K, M, G or T in either case is its unit, a last B
  // stands for bytes, and any other text is a plain number as a whole. Null counts as empty, which
  // is a number without digits. UNLIMITED and NULL are no texts but types.
  void SetSize(char const* text);
  void SetType(REPSizeType_e type) { type_ = type; }  // the number stays
  REPSizeType_e GetType() const { return type_; }

  // The number with its unit, or the keyword; empty when there is neither. A prefix stands before
  // a text that is not empty; null means none.
  std::string AsString(char const* prefix = nullptr) const;

 private:
  REPSizeType_e type_{};
  repora::Text value_;  // without the unit
};
