#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The lines of a script that are commands of SQL*Plus rather than SQL.
namespace repora::reader {

enum class CommandKind : std::uint8_t {
  None,
  Other,          // without effect on what is read
  Text,           // PROMPT: any text may follow
  Remark,         // REM: its line is never continued
  Define,         // DEFINE name = value
  Undefine,       // UNDEFINE name...
  Accept,         // ACCEPT name [DEFAULT value] ...
  Column,         // COLUMN column [NEW_VALUE name] ...
  Set,            // SET option value...
  Execute,        // EXECUTE statement: a PL/SQL block on one line
  Exit,           // EXIT, QUIT
  Include,        // START file, @file
  IncludeBeside,  // @@file
};

// The command that stands at an offset where a statement may start, whatever its case; commands may
// be shortened as SQL*Plus allows. Words that go on as no command does are none: SET ROLE is SQL,
// and EXIT WHEN is a piece of PL/SQL.
CommandKind CommandAt(std::string_view text, std::size_t offset);

// Whether a CONNECT with a password stands at an offset, which is no CONNECT BY.
bool IsLogin(std::string_view text, std::size_t offset);

// The end of the command that starts at an offset: that of its line, or of the line that a "-" at
// the end of the one before continues. The line end is not part of it.
std::size_t CommandEnd(std::string_view text, std::size_t start, CommandKind kind);

// A command in one line: without the dashes that continue it, the comment behind it and the ";" at
// its end.
std::string CommandLine(std::string_view command);

// The words of such a line without the first; quotes around a word are taken off.
std::vector<std::string> CommandWords(std::string_view line);

// What a line of DEFINE defines; empty name: nothing.
struct Definition {
  std::string_view name;
  std::string value;
};
Definition ReadDefinition(std::string_view line);

// Whether a word is a name in capital letters, or its beginning of so many letters or more.
bool Abbreviates(std::string_view word, std::string_view name, std::size_t shortest);

}  // namespace repora::reader
