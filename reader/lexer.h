#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "reader/keywords.h"

namespace repora::reader {

enum class TokenKind : std::uint8_t {
  End,
  Word,         // a name or keyword, with the substitution variables and placeholders in it:
                // TAB_&SUFFIX.X, ${SCHEMA}
  QuotedName,   // "Mixed Name", with its quotes
  Number,       // 1, .5, 1e10, and with letters glued to it: 64K
  String,       // '..', N'..', q'[..]', with its quotes
  Punctuation,  // one character, or one of || := => .. ** << >> <= >= <> != ^= ~=
  Fault,        // what is no token; see LexicalFault
};

enum class LexicalFault : std::uint8_t { None, OpenString, OpenName, OpenComment, StrayByte };

// Stands for the "<<" of a label.
constexpr char kLabelStart = '\x01';

// A piece of a text. Its bytes stay in the text: a token only says where they are.
struct Token {
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
  Word word = K_NONE;  // of a Word
  TokenKind kind = TokenKind::End;
  char punctuation = 0;  // of a Punctuation of one character, or kLabelStart
  LexicalFault fault() const {
    return kind == TokenKind::Fault ? static_cast<LexicalFault>(punctuation) : LexicalFault::None;
  }
  std::uint32_t end() const { return offset + length; }
};

// Texts of this size and beyond have no offsets for tokens.
constexpr std::size_t kTextLimit = 0xFFFFFFF0U;

// Cuts a text into tokens, one at a time. A fault is a token too: of an open string or comment it
// reaches to the end of the text, of an open quoted name to the end of the line.
class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  Token Next();

  // Where the next token is looked for.
  std::size_t Offset() const { return offset_; }
  void MoveTo(std::size_t offset) { offset_ = offset; }

 private:
  bool SkipBlanks();  // false: an open comment starts at offset_
  Token ReadWord();
  Token ReadNumber();
  Token ReadString(std::size_t start);
  Token ReadDelimitedString(std::size_t start, std::size_t delimiter);
  Token ReadQuotedName();
  Token ReadPunctuation();
  Token Make(TokenKind kind, std::size_t start, std::size_t end);
  Token Fault(LexicalFault fault, std::size_t start, std::size_t end);
  unsigned char At(std::size_t offset) const {
    return offset < text_.size() ? static_cast<unsigned char>(text_[offset]) : '\0';
  }

  std::string_view text_;
  std::size_t offset_ = 0;
  // Delimiters of q'..' strings that were found open: none of them is closed further on, and a
  // text full of them must not be searched to its end for each.
  std::bitset<256> open_delimiters_;
};

// The number of bytes of a blank at an offset of a text, among them the blanks beyond ASCII that
// editors leave in scripts; 0: no blank.
std::size_t BlankAt(std::string_view text, std::size_t offset);

}  // namespace repora::reader
