#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "reader/clause_trace.h"
#include "repora/core/statement.h"

// Turns the text of a script into statement objects.
namespace repora::reader {

// A place in a script, both counted from 1; a column is a character, with a byte that is not valid
// UTF-8 counting as one.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

// The text of one script under the name that messages give it, without the byte order mark of a
// UTF-8 text. Positions are worked out when they are asked for, and not by two threads at a time;
// parts may be hidden by another thread.
class Source {
 public:
  Source(std::string name, std::string text, std::size_t script = 0);
  std::string const& Name() const { return name_; }
  // Which of the scripts read it is or is included by, counted from 0.
  std::size_t Script() const { return script_; }
  std::string_view Text() const { return text_; }
  Position PositionOf(std::size_t offset) const;
  // The line that holds the offset, without its line end, which is looked for.
  std::string_view LineAt(std::size_t offset) const;

  // Marks a part of the text that nobody is to show, because it may hold a password. The parts come
  // in the order of the text.
  void Hide(std::size_t begin, std::size_t end);
  // Whether any of it is hidden.
  bool IsHidden(std::size_t begin, std::size_t end) const;

 private:
  // The start of the line that holds an offset; its number is left in line_.
  std::size_t LineStart(std::size_t offset) const;

  std::string name_;
  std::string text_;
  std::size_t script_;
  struct Part {
    std::size_t begin;
    std::size_t end;
  };
  std::vector<Part> hidden_;  // guarded by lock_
  mutable std::mutex lock_;
  mutable std::vector<std::size_t> lines_;  // where they start
  mutable bool has_all_lines_ = false;      // those up to the last place asked for, otherwise
  mutable std::size_t line_ = 1;
  // The place asked for last.
  mutable std::size_t column_offset_ = 0;
  mutable std::size_t column_ = 1;
};

enum class DiagnosticKind {
  Syntax,  // a statement or a part of it could not be read
  Note,    // something was skipped, and the rest is kept
};

struct Diagnostic {
  DiagnosticKind kind = DiagnosticKind::Syntax;
  Source const* source = nullptr;
  std::size_t offset = 0;     // in that source
  std::size_t statement = 0;  // number of the read statement it belongs to, from 1; 0: none
  std::size_t before = 0;     // statements read in front of it
  std::string text;
};

struct ReadStatement {
  std::unique_ptr<REPStatement> object;
  Source const* source = nullptr;
  std::size_t offset = 0;  // of the statement's first word
};

enum class Reading : std::uint8_t {
  Read,
  Unread,   // with a syntax error, or skipped with notes
  Outside,  // without a place in a data model
};

// What became of one statement of the text.
struct StatementTrace {
  Reading reading = Reading::Unread;
  std::string_view kind;  // its first words, as "CREATE TABLE"; empty: starts as no statement does
  Source const* source = nullptr;
  std::size_t offset = 0;     // of its first word
  std::size_t statement = 0;  // number, if it was read
  std::size_t words = 0;      // the tokens it is made of
  // Its clauses, if it was read: those of the piece from this one on.
  std::size_t first_clause = 0;
  std::size_t clauses = 0;
};

// A part of what was read, in the order of the text.
struct ReadPiece {
  std::vector<ReadStatement> statements;
  std::vector<Diagnostic> diagnostics;
  std::vector<StatementTrace> traces;  // of every statement
  std::vector<ClauseTrace> clauses;    // of all of them
  std::size_t bytes = 0;               // of the script itself, not of the files it includes
};

struct ReadResult : ReadPiece {
  std::vector<std::unique_ptr<Source>> sources;  // the scripts and the files they include
  std::set<std::string, std::less<>> left;       // names of what was left
  std::size_t scripts = 0;
  std::size_t read = 0;  // statements, also those that were handed over
  std::size_t unread = 0;
  std::size_t outside = 0;
};

struct ReadOptions {
  // Values of substitution variables, names in upper case: the answers wherever SQL*Plus would ask
  // for one.
  std::map<std::string, std::string> defines;
  // What scripts have defined; it comes first, and holds for the scripts read after.
  std::map<std::string, std::string> variables;

  // What @name and @@name ask for.
  struct Request {
    std::string name;     // as the script has it, with the suffix
    std::string from;     // the name of the script or included file that holds the command
    bool beside = false;  // @@: only beside that file
  };
  struct Included {
    std::string name;  // for messages; a file that is asked for again has the same one
    std::string text;
    std::string problem{};  // why the file is left out, as the end of a note; empty: it is here
  };
  // Finds an included file; nothing when it cannot be read. Which places it may look at is for the
  // host to decide: scripts can name any file. Null: includes are noted.
  std::function<std::optional<Included>(Request const&)> include;
  // Takes over what was read of a script each time it is worth the call, and its last part, so that
  // a script of any length can be worked on while it is read. What it is given stays valid as long
  // as the result. No line that holds a statement or diagnostic handed over has parts still unread,
  // so all that is to be hidden of it is. Null: everything gathers in the result.
  std::function<void(ReadPiece)> hand_over;
  std::atomic<bool> const* stop = nullptr;  // when it turns true, reading ends after a statement
};

// Reads one script, appending to the result. Never throws for what a script holds; its DEFINE
// commands change the variables of the options.
void ReadScript(std::string name, std::string text, ReadOptions& options, ReadResult& result);

}  // namespace repora::reader
