#pragma once

#include <string>

#include "repora/core/owned.h"

// What kind of expression an REPExpr is; kinds beyond the plain one belong to derived classes.
enum class REPExprType_e : int { Plain = 0 };

// An expression kept as the text of the script.
class REPExpr {
 public:
  REPExpr() = default;
  REPExpr(REPExpr const&) = default;
  REPExpr& operator=(REPExpr const&) = default;
  virtual ~REPExpr() = default;

  virtual REPExprType_e GetExprType() const { return REPExprType_e::Plain; }
  virtual std::string AsString() const { return value_.str(); }

  void SetExprValue(char const* text) { value_ = text; }

 private:
  repora::Text value_;
};

// Expressions in order, owned.
class REPExprList {
 public:
  void AddHead(REPExpr* expression) { expressions_.AddHead(expression); }
  void AddTail(REPExpr* expression) { expressions_.AddTail(expression); }
  // At the head, as the object model is filled from the last element to the first.
  void AddExpr(REPExpr* expression) { AddHead(expression); }
  int GetCount() const { return expressions_.GetCount(); }
  REPExpr* GetExpr(int index) const { return expressions_.At(index); }
  std::string AsString(bool parenthesised) const {
    return expressions_.Join(", ", parenthesised,
                             [](REPExpr const& expression) { return expression.AsString(); });
  }

 protected:
  void RemoveAll() { expressions_.RemoveAll(); }

 private:
  repora::OwnedList<REPExpr> expressions_;
};

// The empty base of object references in the object model. Copies copy nothing.
class REPObject {
 public:
  REPObject() = default;
  REPObject(REPObject const& /*other*/) {}
  REPObject& operator=(REPObject const& /*other*/) { return *this; }
  virtual ~REPObject() = default;
};
