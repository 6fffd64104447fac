#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "reader/script_reader.h"
#include "repora/core/statement.h"

namespace repora::cli {

class InterruptWatch;

// Scripts in memory.
struct Scripts {
  std::vector<std::string> paths;  // as given; "-" is standard input
  std::vector<std::string> texts;
  std::size_t Size() const;                // in bytes
  std::vector<std::string> Names() const;  // as messages give them
};

// All files before any of them is read: a missing one is better known before a long run than after
// it. Throws FileError and Interrupted.
Scripts LoadScripts(std::vector<std::string> const& paths, InterruptWatch const& interrupts);

// Reads the scripts, in that order and as if they were one: what one of them defines holds for the
// next ones. Hands over what it reads, and a note for a script that holds nothing at all, which is
// no failure but rarely what the user meant. Throws Interrupted.
// Files are included from the folders of the scripts and from those that are given.
void ReadScripts(Scripts scripts, std::vector<std::string> const& include_folders,
                 std::map<std::string, std::string> defines, InterruptWatch const& interrupts,
                 std::function<void(reader::ReadPiece)> const& hand_over,
                 reader::ReadResult& result);

}  // namespace repora::cli
