#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/session.h"
#include "cli/terminal.h"

namespace repora::cli {

enum class Command { Import, Render };

struct Options {
  Command command = Command::Import;
  std::vector<std::string> scripts;
  std::map<std::string, std::string> defines;  // names in upper case
  std::vector<std::string> include_folders;    // whose files scripts may include, besides their own
  ImportSettings settings;
  std::string json;     // path or "-"; empty: none
  std::string summary;  // path; empty: none
  bool ledger = false;  // print it
  bool strict = false;
  bool redact = false;  // passwords
  bool quiet = false;
  bool progress = true;  // on a terminal
  ColorMode color = ColorMode::Auto;
};

// Nothing when the program has nothing more to do (help, version, wrong usage); the exit status
// says why.
std::optional<Options> ParseOptions(int argc, char const* const* argv, int& exit_status);

}  // namespace repora::cli
