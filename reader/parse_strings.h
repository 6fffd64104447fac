#pragma once

#include <string>

#include "reader/token_stream.h"

namespace repora::reader {

// 'text' | q'[text]', with or without N: the text that the string stands for, where two quotes of a
// plain string are one.
std::string ParseString(TokenStream& in);

// The same as it reads between plain quotes, for texts that are rendered in such: a quote within it
// is doubled.
std::string ParseQuotedText(TokenStream& in);

}  // namespace repora::reader
