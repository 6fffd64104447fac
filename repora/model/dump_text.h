#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "repora/model/property_set.h"

// The readable form that dumps of summaries and models share.
namespace repora {

// All of them append to the text.

// In double quotes; quotes, backslashes and control characters escaped.
void DumpQuoted(std::string& text, std::string_view value);
// Texts quoted, references as #id, vectors in brackets, pairs as #parent>#child.
void DumpValue(std::string& text, QELValue const& value);
// One line, without its end: id, type, owner, name.
void DumpObject(std::string& text, std::uint32_t id, MOXId type, std::uint32_t owner,
                std::string_view name);
// One indented line each, in the order of their ids.
void DumpProperties(std::string& text, PropertySet const& properties);

}  // namespace repora
