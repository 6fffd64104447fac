#pragma once

#include "reader/token_stream.h"
#include "repora/code/stored_code.h"

namespace repora::reader {

// {EDITIONABLE | NONEDITIONABLE} as all that an ALTER asks for: skipped. False when none comes.
bool SkipAlterEditionable(TokenStream& in, Word kind);

// COMPILE [DEBUG] [PACKAGE | SPECIFICATION | BODY] [parameter = value]... [REUSE SETTINGS], behind
// its first word, to the end of the statement. Only packages, for which the part is given, have
// parts.
void ParseCompile(TokenStream& in, CompileStatement& statement, REPAlterPackage* package = nullptr);

}  // namespace repora::reader
