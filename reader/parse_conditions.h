#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/queries/conditions.h"

namespace repora::reader {

// A condition, up to the ")" or the word behind it that starts another clause. One that cannot be
// taken apart is kept as its text, as is each level of parentheses in it.
std::unique_ptr<REPCondition> ParseCondition(TokenStream& in);

// ( condition ); the parentheses are not part of the result.
std::unique_ptr<REPCondition> ParseConditionInParentheses(TokenStream& in);

}  // namespace repora::reader
