#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/core/statement.h"

// One function per kind of statement: reads it from its first word to its end, or throws a
// SyntaxError. Null when all of it was skipped with notes. Which words lead to which function is
// said in statement_kinds.cpp.
namespace repora::reader {

using ParseFunction = std::unique_ptr<REPStatement> (*)(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateTable(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterTable(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateIndex(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateView(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterView(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateSequence(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterSequence(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateSynonym(TokenStream& in);

}  // namespace repora::reader
