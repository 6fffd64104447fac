#pragma once

#include <concepts>
#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "reader/clause_trace.h"
#include "reader/lexer.h"

namespace repora::reader {

// A statement cannot be read: where it goes wrong, and "expected ..., found ...".
class SyntaxError : public std::exception {
 public:
  // The quote is the part of the text that shows what the script holds.
  SyntaxError(std::size_t offset, std::string text, std::string_view quote = {})
      : offset_(offset), unquoted_(text.size()), text_(std::move(text.append(quote))) {}
  std::size_t Offset() const { return offset_; }
  std::string const& Text() const { return text_; }
  std::string TextWithoutQuote() const { return text_.substr(0, unquoted_); }
  char const* what() const noexcept override { return text_.c_str(); }

 private:
  std::size_t offset_;
  std::size_t unquoted_;
  std::string text_;
};

// Something of a statement that was skipped. Those of one text are counted.
struct SkipNote {
  std::size_t offset = 0;  // of the first
  std::string text;
  std::size_t count = 1;
};

// The tokens of one statement, read from the first to the last. Behind the last one there are as
// many End tokens as anybody asks for. The text and the tokens are borrowed.
class TokenStream {
 public:
  // The last token must be an End.
  TokenStream(std::string_view text, std::vector<Token> const& tokens, ClauseMarks& marks)
      : text_(text), tokens_(tokens), marks_(marks) {}

  Token const& Peek(std::size_t ahead = 0) const {
    auto const index = next_ + ahead;
    return index < tokens_.size() ? tokens_[index] : tokens_.back();
  }
  // Takes a token of the grammar.
  Token const& Next() {
    auto const& token = Peek();
    if (token.word != K_NONE) marks_.AddKeyword(next_);
    return Advance();
  }
  // Takes a token that is a name, a value or something skipped.
  Token const& Advance() {
    auto const& token = Peek();
    if (next_ + 1 < tokens_.size()) ++next_;
    return token;
  }
  // Gives the token taken last back.
  void StepBack() { Rewind(next_ - 1); }
  bool AtEnd() const { return Peek().kind == TokenKind::End; }

  // Whether the coming tokens are these words; Accept takes them if so.
  template <std::same_as<Word>... Words>
  bool Is(Words... words) const {
    std::size_t ahead = 0;
    return (... && (Peek(ahead++).word == words));
  }
  template <std::same_as<Word>... Words>
  bool Accept(Words... words) {
    if (!Is(words...)) return false;
    for (std::size_t i = 0; i < sizeof...(words); ++i) marks_.AddKeyword(next_++);
    return true;
  }
  bool Is(char punctuation) const { return Peek().punctuation == punctuation; }
  bool Accept(char punctuation) {
    if (!Is(punctuation)) return false;
    Next();
    return true;
  }

  // Each throws a SyntaxError when something else comes.
  template <std::same_as<Word>... Words>
  void Expect(Words... words) {
    (..., ExpectWord(words));
  }
  void Expect(char punctuation);
  // A number with its sign, as text.
  std::string_view ExpectNumber();

  // "expected ..., found ..." at the coming token; what is expected is a description such as
  // "a name" or "')'". Where the statement ends within parentheses, the open one is reported.
  [[noreturn]] void Fail(std::string_view expected) const;

  std::string_view TextOf(Token const& token) const {
    return text_.substr(token.offset, token.length);
  }
  // A place between two tokens, and the script's own text from there to the last token taken.
  std::size_t Mark() const { return next_; }
  // The token behind a place.
  Token const& At(std::size_t mark) const { return tokens_[mark]; }
  std::string_view TextSince(std::size_t mark) const;
  // Takes all that is left: the script's own text from behind the last token taken to the end of
  // the statement, with its blanks and comments and, of a PL/SQL unit, the ";" that ends it.
  std::string_view TakeRest();
  // Whether a comment stands before the coming token.
  bool IsBehindComment() const;

  // A text for a setter; valid until the next call.
  char const* Copy(std::string_view text) {
    copy_ = text;
    return copy_.c_str();
  }

  // Goes back to a place.
  void Rewind(std::size_t mark) {
    next_ = mark;
    ForgetKeywords(mark);
  }
  // What was taken since a place was no keyword, but a part of a text.
  void ForgetKeywords(std::size_t mark) { marks_.Forget(mark); }
  // What was taken since a place is kept as a text.
  void KeepAsText(std::size_t mark) {
    marks_.Forget(mark);
    marks_.AddText(mark, next_);
  }
  // What was taken since a place is a query, taken apart.
  void KeepAsQuery(std::size_t mark) { marks_.AddQuery(mark, next_); }
  // Something of the grammar comes that has no keyword in front, such as a column.
  void StartClause(char const* name) { marks_.AddClause(next_, name); }

  // Takes "(" and all up to the ")" that closes it, when "(" comes.
  bool SkipParentheses();
  // The same where "(" has to come; the text between them.
  std::string_view TakeParentheses();
  // Takes the coming token, with all it holds when it is a "(".
  void SkipItem() {
    if (!SkipParentheses()) Advance();
  }

  // Notes that something was skipped, "clause X is skipped", found at a token.
  void Note(Token const& at, std::string_view text);
  std::vector<SkipNote> const& Notes() const { return notes_; }

  // A level of nesting, or what takes the stack of several; entering one too many throws a
  // SyntaxError.
  class Level {
   public:
    explicit Level(TokenStream& in, std::size_t count = 1) : in_(in), count_(count) {
      in_.Enter(count);
    }
    ~Level() { in_.depth_ -= count_; }
    Level(Level const&) = delete;
    Level& operator=(Level const&) = delete;

   private:
    TokenStream& in_;
    std::size_t count_;
  };

 private:
  void ExpectWord(Word word);
  void Enter(std::size_t count);
  std::string Describe(Token const& token) const;
  Token const* FindOpenParenthesis() const;

  std::string_view text_;
  std::vector<Token> const& tokens_;
  ClauseMarks& marks_;
  std::size_t next_ = 0;
  std::size_t depth_ = 0;
  std::vector<SkipNote> notes_;
  std::string copy_;
};

}  // namespace repora::reader
