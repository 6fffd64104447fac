#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "repora/core/statement.h"

// Statements about objects that a data model does not have. They are taken from a script so that
// the run reports each of them, but nothing of them is kept: what they render is a fixed text.
namespace repora {

// A text as an argument of a template.
template <std::size_t size>
struct Literal {
  consteval Literal(char const (&characters)[size]) {
    for (std::size_t i = 0; i < size; ++i) text[i] = characters[i];
  }
  char text[size];
};

// The keywords of a statement and a mark that tells that the rest of it is missing.
std::string NotDoneText(std::string_view keywords);

template <Literal keywords>
class UnsupportedStatement : public REPStatement {
 public:
  std::string AsString() const override { return NotDoneText(keywords.text); }
};

}  // namespace repora

class REPCreateJava final : public repora::UnsupportedStatement<"CREATE JAVA"> {};
class REPAlterJava final : public repora::UnsupportedStatement<"ALTER JAVA"> {};
class REPCreateType final : public repora::UnsupportedStatement<"CREATE TYPE"> {};
class REPCreateTypeBody final : public repora::UnsupportedStatement<"CREATE TYPE BODY"> {};
class REPAlterType final : public repora::UnsupportedStatement<"ALTER TYPE"> {};
class REPCreateDimension final : public repora::UnsupportedStatement<"CREATE DIMENSION"> {};
class REPAlterDimension final : public repora::UnsupportedStatement<"ALTER DIMENSION"> {};
class REPCreateOperator final : public repora::UnsupportedStatement<"CREATE OPERATOR"> {};
class REPAlterOperator final : public repora::UnsupportedStatement<"ALTER OPERATOR"> {};
class REPCreateOutline final : public repora::UnsupportedStatement<"CREATE OUTLINE"> {};
class REPAlterOutline final : public repora::UnsupportedStatement<"ALTER OUTLINE"> {};
class REPCreateSchema final : public repora::UnsupportedStatement<"CREATE SCHEMA"> {};
class REPAlterIndextype final : public repora::UnsupportedStatement<"ALTER INDEXTYPE"> {};
