#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace repora::test {

// A folder of its own for a test, gone when it ends.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(TemporaryFolder const&) = delete;
  TemporaryFolder& operator=(TemporaryFolder const&) = delete;

  std::filesystem::path const& Path() const { return path_; }
  void Write(std::string const& name, std::string const& text) const;
  std::string Read(std::string const& name) const;
  std::vector<std::string> Names() const;  // sorted

 private:
  std::filesystem::path path_;
};

struct ProgramResult {
  int status = -1;  // 1000 and more: ended by a signal
  std::string out;
  std::string err;
};

struct ProgramInput {
  std::string in{};
  bool keep_in_open = false;               // standard input never ends
  bool closed_output = false;              // nobody reads standard output
  std::vector<std::string> environment{};  // added, NAME=VALUE
  // Called with each piece of standard error and with the program's process.
  std::function<void(std::string const& err, pid_t process)> watch{};
};

// Runs the program in a folder until it ends.
ProgramResult RunProgram(std::filesystem::path const& folder, std::vector<std::string> arguments,
                         ProgramInput const& input = {});

}  // namespace repora::test
