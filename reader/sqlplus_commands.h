#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The lines of a script that are commands of SQL*Plus rather than SQL.
namespace repora::reader {

enum class CommandKind {
  None,
  Other,          // without effect on what is read
  Remark,         // REM: its line is never continued
  Define,         // DEFINE name = value
  Undefine,       // UNDEFINE name...
  Set,            // SET option value...
  Include,        // START file, @file
  IncludeBeside,  // @@file
};

// The command that a word starts, whatever its case; commands may be shortened as SQL*Plus allows.
// SET is a command only before what is no ROLE, TRANSACTION or CONSTRAINT.
CommandKind FindCommand(std::string_view word);

// The end of the command that starts at an offset: that of its line, or of the line that a "-" at
// the end of the one before continues. The line end is not part of it.
std::size_t CommandEnd(std::string_view text, std::size_t start, CommandKind kind);

// The words of a command without the first, without comments behind it and without the ";" at its
// end; quotes around a word are taken off, and continued lines are one.
std::vector<std::string> CommandWords(std::string_view command);

}  // namespace repora::reader
