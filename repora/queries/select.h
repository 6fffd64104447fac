#pragma once

#include <string>

#include "repora/core/owned.h"

// A query kept as its text.
class REPSelect {
 public:
  REPSelect() = default;
  REPSelect(REPSelect const&) = delete;
  REPSelect& operator=(REPSelect const&) = delete;
  virtual ~REPSelect() = default;

  virtual std::string AsString() const { return text_.str(); }

  // The query from SELECT to its end, without parentheses around it.
  void SetText(char const* text) { text_ = text; }
  char const* GetText() const { return text_.c_str(); }

 private:
  repora::Text text_;
};
