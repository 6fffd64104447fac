#pragma once

#include <map>
#include <string>
#include <vector>

#include "reader/script_reader.h"
#include "repora/core/statement.h"

namespace repora::cli {

class InterruptWatch;

struct Scripts {
  reader::ReadResult read;
  // Names of scripts that hold no statement at all: no failure, but rarely what the user meant.
  std::vector<std::string> without_statements;
};

// Reads the scripts, in that order and as if they were one: what one of them defines holds for the
// next ones. "-" is standard input. Throws FileError for a script that cannot be read (not for a
// file that a script includes) and Interrupted.
Scripts ReadScripts(std::vector<std::string> const& paths,
                    std::map<std::string, std::string> defines, InterruptWatch const& interrupts);

}  // namespace repora::cli
