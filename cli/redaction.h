#pragma once

#include "reader/script_reader.h"

namespace repora::cli {

// Replaces every password that the statements of a script hold, so that nothing made of them shows
// one: their text, the model, messages of the run. What a password looks like does not matter, and
// no other text changes. Texts of code that makes such statements while it runs stay as they are.
void RedactPasswords(reader::ReadPiece& script);

}  // namespace repora::cli
