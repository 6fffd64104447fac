#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "reader/lexer.h"
#include "reader/plsql_blocks.h"
#include "reader/sqlplus_commands.h"
#include "reader/statement_kinds.h"

namespace repora::reader {

// What comes next in a script.
struct Section {
  enum class Kind { End, Command, Statement } kind = Kind::End;
  std::size_t start = 0;  // of the first token
  std::size_t end = 0;    // behind the last one, and before what ends the statement
  std::size_t stop = 0;   // behind the ";" or "/" that ends it
  CommandKind command = CommandKind::None;
  StatementKind const* statement = nullptr;  // null: starts as no statement does
  std::size_t words = 0;                     // tokens of the statement
  std::size_t tokens_of_kind = 0;            // see KindFinder::TokensOfKind
  bool has_password = false;                 // it holds the word IDENTIFIED
  bool unclosed = false;      // a unit of code that is kept, but whose end was not found
  bool unterminated = false;  // neither ";" nor "/" stands before the next statement
  Token fault;                // the first thing that is no token, where that matters; else an End
};

// Cuts a script into statements and commands as SQL*Plus does. It looks at the first words of a
// statement only to know how that one ends.
class Splitter {
 public:
  explicit Splitter(std::string_view text)
      : text_(text), has_nul_(text.find('\0') != text.npos), lexer_(text) {}

  // What ends an SQL statement from here on besides a "/" line; NUL: nothing. A ";" does so
  // anywhere, another character at the end of a line.
  void SetTerminator(char terminator) { terminator_ = terminator; }

  // The next section. Throws nothing.
  Section Next();

  // The tokens of the last statement, with an End behind them: all of them if it can be read, else
  // those of its beginning.
  std::vector<Token> const& Tokens() const { return tokens_; }

 private:
  bool ReadCommand(Token const& first, Section& section);
  void ReadExecute(Section& section);
  void ReadStatement(Token const& first, Section& section);
  Token FindNul(Token const& first, std::size_t end) const;
  bool EndsStatement(Token const& token, Extent extent);
  bool IsWrapped(Extent extent) const;
  bool StartsSection(std::size_t offset) const;
  bool StartsLine(Token const& token) const;
  bool EndsLine(Token const& token) const;
  bool IsLoneOnLine(Token const& token) const { return StartsLine(token) && EndsLine(token); }
  bool IsEmptyStatement(Token const& token) const;
  bool IsRunLine(Token const& token) const;
  bool IsTerminator(Token const& token) const;
  void CutTerminator(Token& token);
  bool StartsLogin(Token const& token) const;
  bool StartsStatement(std::size_t offset) const;
  bool StartsInside(Token const& token) const;
  bool HidesStatement(Token const& token, Extent extent) const;
  void SkipSource();
  std::size_t SkipForeignLines(std::size_t offset);
  void SkipWrapped();
  std::size_t FindRestart(std::size_t offset, std::size_t stop, Extent extent) const;
  std::string_view TextAt(Token const& token) const {
    return text_.substr(token.offset, token.length);
  }

  std::string_view text_;
  bool has_nul_;
  char terminator_ = ';';
  Lexer lexer_;
  PlsqlBlocks blocks_;
  KindFinder finder_;
  std::vector<Token> tokens_;
};

}  // namespace repora::reader
