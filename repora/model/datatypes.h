#pragma once

#include <cstdint>
#include <span>

namespace repora {

// One datatype built into Oracle. Other spellings (INTEGER, CHARACTER VARYING ...) name the one
// that the database makes of them.
struct BuiltInDatatype {
  std::int32_t id;   // MOXTypes::pBuiltInId of its domain
  char const* name;  // in capitals, words separated by one blank
  int since;         // first release that has it
};

// All of them, in ascending id order.
std::span<BuiltInDatatype const> BuiltInDatatypes();

}  // namespace repora
