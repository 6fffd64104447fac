#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "reader/script_reader.h"

namespace repora::cli {

class InterruptWatch;

// Finds the files that scripts include. Scripts come from anywhere and can name any file, so only
// files in the folders of the scripts given to the program are read, or below them, and in those
// that the user allows. What counts is where a file is when all links are followed.
class Includes {
 public:
  // The scripts as they were given, "-" for standard input, whose folder is the current one; the
  // folders exist. Interrupts are borrowed.
  Includes(std::vector<std::string> const& scripts, std::vector<std::string> const& allowed,
           InterruptWatch const& interrupts);

  // A file that is included by the script given under that name, or by a file it includes. Throws
  // Interrupted.
  reader::ReadOptions::Included Find(reader::ReadOptions::Request const& request,
                                     std::string const& script) const;

 private:
  void Allow(std::filesystem::path const& folder);
  bool IsAllowed(std::filesystem::path const& file) const;

  InterruptWatch const& interrupts_;
  std::vector<std::filesystem::path> folders_;  // without links
};

}  // namespace repora::cli
