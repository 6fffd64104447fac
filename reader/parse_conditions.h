#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/queries/conditions.h"

namespace repora::reader {

// Whether what comes ends a condition that is not in parentheses.
using ConditionEnd = bool (*)(TokenStream const& in);

// A condition, up to a ")", a "," or what its clause ends with. One that cannot be taken apart is
// kept as its text, as is each level of parentheses in it.
std::unique_ptr<REPCondition> ParseCondition(TokenStream& in, ConditionEnd ends);

// ( condition ); the parentheses are not part of the result.
std::unique_ptr<REPCondition> ParseConditionInParentheses(TokenStream& in);

}  // namespace repora::reader
