#pragma once

// The messages of the library by name.
enum class REPMessage : unsigned {
#define REPORA_MESSAGE(number, name, text) name = number,
#include "repora/resources/messages.def"
#undef REPORA_MESSAGE
};
