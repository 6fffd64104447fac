#pragma once

#include <string_view>

namespace repora::fuzz {

// Sends any bytes through everything the program does with scripts: reading, import into a new
// model, messages, JSON, the report, rendering, reading what was rendered and a second run over the
// model. Aborts when something that is promised for every script does not hold.
//
// The first two bytes say how (see import_target.cpp), the rest are one or more texts, with the
// byte 0x1E between two of them. What is shorter is one text with everything at its default.
void ImportBytes(std::string_view input);

}  // namespace repora::fuzz
