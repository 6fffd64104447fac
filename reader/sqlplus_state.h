#pragma once

#include <cstddef>
#include <set>
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
  // Given are the values that answer where a value would be asked for; the variables are those that
  // scripts define, which come first. Both are borrowed.
  SqlPlusState(Defines const& given, Defines& variables) : given_(given), variables_(variables) {}

  // Whether a text may hold variables; often there is nothing more to do.
  bool MayHoldVariables(std::string_view text) const {
    return marks_.prefix != '\0' && text.find(marks_.prefix) != std::string_view::npos;
  }
  // Replaces the variables that have a value; origin is that of the text's first byte. False when
  // there are none, and nothing was done.
  bool Expand(std::string_view text, std::size_t origin, ExpandedText& expanded) const;

  // The next variable at or behind an offset of which something is to be said and was not yet.
  VariableUse FindNotable(std::string_view text, std::size_t offset) const;
  // Whether a command names the variable, so that it is no "&" of a text.
  bool IsNamed(std::string const& variable) const {
    return unresolved_.contains(variable) || queried_.contains(variable);
  }
  // What is to be said of it, once.
  std::string NoteOn(std::string const& variable);

  // What ends an SQL statement besides a "/" line; NUL: nothing.
  char Terminator() const { return terminator_; }

  // Carries out a command that changes variables or options. The text of a note on it; empty: there
  // is nothing to say.
  std::string Run(CommandKind kind, std::string_view command);

  // The file that a command includes.
  struct File {
    std::string name;  // with its suffix; empty: the command names none
    std::vector<std::string> arguments;
    std::string problem;             // why it cannot be looked for; empty: it can
    std::vector<std::string> notes;  // on variables in the arguments
    bool is_secret = false;          // the command may hold a password
  };
  File IncludedFile(std::string_view command);

  // Gives a file its arguments, as &1, &2, ..., while it lives; behind it those of the file around
  // it are back.
  class Arguments {
   public:
    Arguments(SqlPlusState& state, std::vector<std::string> const& arguments);
    ~Arguments();
    Arguments(Arguments const&) = delete;
    Arguments& operator=(Arguments const&) = delete;

   private:
    Defines& variables_;
    Defines outer_;
  };

 private:
  std::string const* ValueOf(std::string const& variable) const;
  std::string Expanded(std::string_view text) const;
  VariableUse FindUndefined(std::string_view text, std::size_t offset) const;
  void Define(std::string_view line);
  std::string Accept(std::vector<std::string> const& words);
  void TakeFromQuery(std::vector<std::string> const& words);
  void SetOptions(std::vector<std::string> const& words);

  Defines const& given_;
  Defines& variables_;
  VariableMarks marks_;
  char terminator_ = ';';
  std::string suffix_ = "sql";        // of included files
  std::set<std::string> unresolved_;  // variables whose definition uses one without a value
  std::set<std::string> queried_;     // variables that a query would set
  std::set<std::string> noted_;
};

}  // namespace repora::reader
