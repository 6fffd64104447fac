#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reader/sqlplus_commands.h"
#include "reader/substitution.h"

namespace repora::reader {

// What the commands of a script have set up for the lines behind them: substitution variables and
// options. One serves a script that was given and all the files it includes.
class SqlPlusState {
 public:
  // The variables are borrowed; DEFINE and UNDEFINE change them.
  explicit SqlPlusState(Defines& variables) : variables_(variables) {}

  // Whether a text may hold variables; often there is nothing more to do.
  bool MayHoldVariables(std::string_view text) const {
    return prefix_ != '\0' && text.find(prefix_) != std::string_view::npos;
  }
  // Replaces the variables that have a value; see reader::Expand.
  bool Expand(std::string_view text, std::size_t origin, ExpandedText& expanded) const;
  // The next use of a variable without a value at or behind an offset; empty name: none.
  VariableUse FindUndefined(std::string_view text, std::size_t offset) const;

  // Carries out a command that changes variables or options.
  void Run(CommandKind kind, std::string_view command);

  // The file that a command includes; empty: it names none.
  struct File {
    std::string name;
    std::vector<std::string> arguments;
  };
  File IncludedFile(std::string_view command) const;
  // Gives the arguments of an included file to it, as &1, &2, ...
  void Pass(std::vector<std::string> const& arguments);

 private:
  std::vector<std::string> Words(std::string_view command) const;
  void SetOptions(std::vector<std::string> const& words);

  Defines& variables_;
  char prefix_ = '&';  // of variables; NUL: they are not replaced
};

}  // namespace repora::reader
