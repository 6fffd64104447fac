#pragma once

namespace repora::cli {

inline constexpr int kExitDone = 0;        // every statement is done; there may be warnings
inline constexpr int kExitIncomplete = 1;  // a statement failed, was unsupported or not readable
inline constexpr int kExitTrouble = 2;     // wrong usage, or a file that cannot be read or written

}  // namespace repora::cli
