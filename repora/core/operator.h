#pragma once

#include <string>

#include "repora/core/text.h"

// The operators between and before the operands of an expression.
enum class REPOperType_e : int {
  None = 0,
  UnaryPlus = 1,
  UnaryMinus = 2,
  Prior = 3,
  ConnectByRoot = 4,
  Multiply = 5,
  Divide = 6,
  Plus = 7,
  Minus = 8,
  Concatenate = 9,
  Union = 10,
  UnionAll = 11,
  Intersect = 12,
  SetMinus = 13,
  MultisetExcept = 14,
  MultisetIntersect = 15,
  MultisetUnion = 16,
  UserDefined = 17,
};

// An operator of an expression.
class REPOperator final {
 public:
  REPOperator() = default;
  // The text is that of a user-defined operator.
  REPOperator(REPOperType_e type, char const* user_defined)
      : type_(type), user_defined_(user_defined) {}

  void SetOperType(REPOperType_e type) { type_ = type; }
  REPOperType_e GetOperType() const { return type_; }
  void SetUserDef(char const* text) { user_defined_ = text; }
  char const* GetUserDef() const { return user_defined_.c_str(); }

  virtual std::string AsString() const;

 private:
  REPOperType_e type_{};
  repora::Text user_defined_;
};
