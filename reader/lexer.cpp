#include "reader/lexer.h"

#include <algorithm>
#include <array>

#include "reader/characters.h"

namespace repora::reader {
namespace {

enum class ByteClass : std::uint8_t { Stray, Blank, Name, Digit, HighBit, Other };

constexpr auto kClasses = [] {
  std::array<ByteClass, 256> classes{};
  for (std::size_t c = 0; c < 256; ++c) {
    auto const letter = c & 0xDFU;
    if ((letter >= 'A' && letter <= 'Z') || c == '_' || c == '$' || c == '#')
      classes[c] = ByteClass::Name;
    else if (c >= '0' && c <= '9')
      classes[c] = ByteClass::Digit;
    else if (c >= 0x80)
      classes[c] = ByteClass::HighBit;
    else if (c == ' ' || (c >= '\t' && c <= '\r') || c == 0x1A)  // 0x1A: end of file under DOS
      classes[c] = ByteClass::Blank;
    else if (c > ' ' && c != 0x7F)
      classes[c] = ByteClass::Other;
  }
  return classes;
}();

ByteClass ClassOf(unsigned char c) {
  return kClasses[c];
}

bool IsNamePart(unsigned char c) {
  auto const byte_class = ClassOf(c);
  return byte_class == ByteClass::Name || byte_class == ByteClass::Digit;
}

bool IsDigit(unsigned char c) {
  return ClassOf(c) == ByteClass::Digit;
}

char ClosingDelimiter(char c) {
  switch (c) {
    case '[': return ']';
    case '(': return ')';
    case '{': return '}';
    case '<': return '>';
    default: return c;
  }
}

bool IsPair(unsigned char first, unsigned char second) {
  switch (first) {
    case '|': return second == '|';
    case ':': return second == '=';
    case '=': return second == '>';
    case '.': return second == '.';
    case '*': return second == '*';
    case '<': return second == '<' || second == '=' || second == '>';
    case '>': return second == '>' || second == '=';
    case '!':
    case '^':
    case '~': return second == '=';
    default: return false;
  }
}

}  // namespace

std::size_t BlankAt(std::string_view text, std::size_t offset) {
  auto const c = static_cast<unsigned char>(text[offset]);
  if (ClassOf(c) == ByteClass::Blank) return 1;
  if (c < 0x80) return 0;
  auto const rest = text.substr(offset, 3);
  if (rest.starts_with("\xC2\xA0")) return 2;  // no-break space
  return rest == "\xE3\x80\x80" || rest == "\xE2\x80\x8B" || rest == "\xEF\xBB\xBF" ? 3 : 0;
}

Token Lexer::Make(TokenKind kind, std::size_t start, std::size_t end) {
  offset_ = end;
  Token token;
  token.offset = static_cast<std::uint32_t>(start);
  token.length = static_cast<std::uint32_t>(end - start);
  token.kind = kind;
  return token;
}

Token Lexer::Fault(LexicalFault fault, std::size_t start, std::size_t end) {
  auto token = Make(TokenKind::Fault, start, end);
  token.punctuation = static_cast<char>(fault);
  return token;
}

bool Lexer::SkipBlanks() {
  while (offset_ < text_.size()) {
    auto const c = static_cast<unsigned char>(text_[offset_]);
    auto const byte_class = ClassOf(c);
    if (byte_class == ByteClass::Blank) {
      ++offset_;
    } else if (c == '-' && At(offset_ + 1) == '-') {
      offset_ = LineEnd(text_, offset_ + 2);
    } else if (c == '/' && At(offset_ + 1) == '*') {
      auto const end = text_.find("*/", offset_ + 2);
      if (end == std::string_view::npos) return false;
      offset_ = end + 2;
    } else if (byte_class == ByteClass::HighBit) {
      auto const blank = BlankAt(text_, offset_);
      if (blank == 0) return true;
      offset_ += blank;
    } else {
      return true;
    }
  }
  return true;
}

Token Lexer::Next() {
  if (!SkipBlanks()) return Fault(LexicalFault::OpenComment, offset_, text_.size());
  if (offset_ >= text_.size()) return Make(TokenKind::End, text_.size(), text_.size());
  auto const c = static_cast<unsigned char>(text_[offset_]);
  switch (ClassOf(c)) {
    case ByteClass::Name:
    case ByteClass::HighBit: return ReadWord();
    case ByteClass::Digit: return ReadNumber();
    case ByteClass::Stray: return Fault(LexicalFault::StrayByte, offset_, offset_ + 1);
    default: break;
  }
  auto const next = At(offset_ + 1);
  switch (c) {
    case '\'': return ReadString(offset_);
    case '"': return ReadQuotedName();
    case '&':
      if (next == '&' || IsNamePart(next) || next >= 0x80) return ReadWord();
      break;
    case '.':
      if (IsDigit(next)) return ReadNumber();
      break;
    default: break;
  }
  return ReadPunctuation();
}

Token Lexer::ReadWord() {
  auto const start = offset_;
  auto end = start;
  bool plain = true;
  for (;;) {
    while (end < text_.size() && IsNamePart(static_cast<unsigned char>(text_[end]))) ++end;
    if (At(end) >= 0x80 && BlankAt(text_, end) == 0) {
      plain = false;
      ++end;
      continue;
    }
    // A placeholder of a migration tool in the word: ${SCHEMA}.
    if (At(end) == '{' && end > start && text_[end - 1] == '$') {
      auto close = end + 1;
      while (IsNamePart(At(close)) || At(close) == '.' || At(close) == ':' || At(close) == '-')
        ++close;
      if (At(close) != '}') break;
      plain = false;
      end = close + 1;
      continue;
    }
    // A variable in the word, with the dot that ends its name.
    if (At(end) != '&') break;
    auto name = end + (At(end + 1) == '&' ? 2U : 1U);
    auto const name_start = name;
    while (IsNamePart(At(name)) || At(name) >= 0x80) ++name;
    if (name == name_start) break;
    plain = false;
    end = name + (At(name) == '.' ? 1U : 0U);
  }
  if (end == start) return ReadPunctuation();  // "&&" before what is no name
  if (At(end) == '\'' && end - start <= 2) {
    auto const first = text_[start] & 0x5F;
    if (end - start == 1 && first == 'N') return ReadString(start);
    auto const last = text_[end - 1] & 0x5F;
    if (last == 'Q' && (end - start == 1 || first == 'N') && end + 1 < text_.size() &&
        BlankAt(text_, end + 1) == 0)
      return ReadDelimitedString(start, end + 1);
  }
  auto token = Make(TokenKind::Word, start, end);
  if (plain) token.word = FindWord(text_.substr(start, end - start));
  return token;
}

Token Lexer::ReadNumber() {
  auto end = offset_;
  while (IsDigit(At(end))) ++end;
  if (At(end) == '.' && At(end + 1) != '.') {  // but 1..10 is a range
    ++end;
    while (IsDigit(At(end))) ++end;
  }
  if ((At(end) & 0xDFU) == 'E' && (At(end + 1) == '+' || At(end + 1) == '-') &&
      IsDigit(At(end + 2)))
    end += 2;
  while (IsNamePart(At(end))) ++end;
  return Make(TokenKind::Number, offset_, end);
}

// Reads '..' in which '' stands for a quote; start is that of the prefix N, if there is one.
Token Lexer::ReadString(std::size_t start) {
  auto end = text_.find('\'', start) + 1;
  for (;;) {
    end = text_.find('\'', end);
    if (end == std::string_view::npos) return Fault(LexicalFault::OpenString, start, text_.size());
    ++end;
    if (At(end) != '\'') return Make(TokenKind::String, start, end);
    ++end;
  }
}

Token Lexer::ReadDelimitedString(std::size_t start, std::size_t delimiter) {
  // A delimiter beyond ASCII is as long as its character.
  auto size = std::size_t{1};
  if (At(delimiter) >= 0xC2)
    while (size < 4 && (At(delimiter + size) & 0xC0U) == 0x80) ++size;
  std::array<char, 5> closing{};
  std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(delimiter), size, closing.begin());
  closing[0] = ClosingDelimiter(closing[0]);
  closing[size] = '\'';
  auto const key = static_cast<unsigned char>(closing[size - 1]);
  if (!open_delimiters_[key]) {
    auto const end = text_.find({closing.data(), size + 1}, delimiter + size);
    if (end != std::string_view::npos) return Make(TokenKind::String, start, end + size + 1);
    open_delimiters_.set(key);
  }
  return Fault(LexicalFault::OpenString, start, text_.size());
}

Token Lexer::ReadQuotedName() {
  auto end = offset_ + 1;
  while (end < text_.size() && text_[end] != '"' && !IsLineEnd(text_[end])) ++end;
  if (At(end) != '"') return Fault(LexicalFault::OpenName, offset_, end);
  return Make(TokenKind::QuotedName, offset_, end + 1);
}

Token Lexer::ReadPunctuation() {
  auto const first = static_cast<unsigned char>(text_[offset_]);
  bool const pair = IsPair(first, At(offset_ + 1));
  // More than two are the mark of a merge.
  bool const label = pair && first == '<' && At(offset_ + 1) == '<' && At(offset_ + 2) != '<';
  auto token = Make(TokenKind::Punctuation, offset_, offset_ + (pair ? 2U : 1U));
  if (!pair) token.punctuation = static_cast<char>(first);
  if (label) token.punctuation = kLabelStart;
  return token;
}

}  // namespace repora::reader
