#include "reader/token_stream.h"

#include <algorithm>

namespace repora::reader {
namespace {

constexpr std::size_t kDeepest = 1000;
constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kMostNotes = 100;  // of different texts, in one statement

std::string Quote(char punctuation) {
  return {'\'', punctuation, '\''};
}

// What a note is about: "clause ONLINE is skipped" is about ONLINE.
std::string_view SubjectOf(std::string_view note) {
  constexpr std::string_view kClause = "clause ";
  if (note.starts_with(kClause)) note.remove_prefix(kClause.size());
  for (std::string_view const end :
       {" is skipped", " are skipped", " is not read", " has no place in the data model"})
    if (note.ends_with(end)) note.remove_suffix(end.size());
  return note;
}

}  // namespace

void TokenStream::Expect(char punctuation) {
  if (!Accept(punctuation)) Fail(Quote(punctuation));
}

void TokenStream::ExpectWord(Word word) {
  if (!Accept(word)) Fail(reader::TextOf(word));
}

std::string_view TokenStream::ExpectNumber() {
  auto const mark = Mark();
  if (Is('-') || Is('+')) Next();
  auto const& token = Peek();
  // A substitution variable without a value stands for a number as for anything else.
  bool const variable =
      token.kind == TokenKind::Word && TextOf(token).find('&') != std::string_view::npos;
  if (token.kind != TokenKind::Number && !variable) Fail("a number");
  Next();
  return TextSince(mark);
}

std::string TokenStream::Describe(Token const& token) const {
  auto text = TextOf(token);
  text = text.substr(0, text.find_first_of("\r\n"));
  bool const whole = text.size() == token.length && text.size() <= kLongestQuote;
  if (!whole) {
    text = text.substr(0, kLongestQuote);
    // Not in the midst of a character.
    while (!text.empty() && text.size() < token.length &&
           (static_cast<unsigned char>(text_[token.offset + text.size()]) & 0xC0U) == 0x80)
      text.remove_suffix(1);
  }
  std::string const dots(whole ? "" : "...");
  if (token.kind == TokenKind::String) return "the string " + std::string(text) + dots;
  return "'" + std::string(text) + dots + "'";
}

Token const* TokenStream::FindOpenParenthesis() const {
  std::vector<Token const*> open;
  for (auto const& token : tokens_) {
    if (token.punctuation == '(') open.push_back(&token);
    if (token.punctuation == ')' && !open.empty()) open.pop_back();
  }
  return open.empty() ? nullptr : open.front();
}

void TokenStream::Fail(std::string_view expected) const {
  auto const& token = Peek();
  auto const text = "expected " + std::string(expected);
  if (token.kind != TokenKind::End)
    throw SyntaxError(token.offset, text, ", found " + Describe(token));
  if (auto const* const open = FindOpenParenthesis())
    throw SyntaxError(open->offset, "parenthesis is not closed");
  throw SyntaxError(token.offset, text + ", found the end of the statement");
}

std::string_view TokenStream::TextSince(std::size_t mark) const {
  auto const next = std::min(next_, tokens_.size() - 1);
  if (mark >= next) return {};
  auto const start = tokens_[mark].offset;
  return text_.substr(start, tokens_[next - 1].end() - start);
}

std::string_view TokenStream::TakeRest() {
  auto const start = next_ > 0 ? tokens_[next_ - 1].end() : tokens_.front().offset;
  next_ = tokens_.size() - 1;
  return text_.substr(start, tokens_.back().offset - start);
}

bool TokenStream::IsBehindComment() const {
  if (next_ == 0) return false;
  auto const start = tokens_[next_ - 1].end();
  auto const gap = text_.substr(start, Peek().offset - start);
  return gap.find("--") != std::string_view::npos || gap.find("/*") != std::string_view::npos;
}

bool TokenStream::SkipParentheses() {
  if (!Is('(')) return false;
  std::size_t open = 0;
  do {
    if (AtEnd()) Fail("')'");
    if (Is('(') && ++open + depth_ > kDeepest)
      throw SyntaxError(Peek().offset, "nesting deeper than 1,000 levels");
    if (Is(')')) --open;
    Advance();
  } while (open > 0);
  return true;
}

std::string_view TokenStream::TakeParentheses() {
  if (!Is('(')) Fail("'('");
  auto const mark = next_ + 1;
  SkipParentheses();
  StepBack();
  auto const text = TextSince(mark);
  Advance();
  return text;
}

void TokenStream::Enter(std::size_t count) {
  depth_ += count;
  if (depth_ <= kDeepest) return;
  depth_ -= count;
  throw SyntaxError(Peek().offset, "nesting deeper than 1,000 levels");
}

void TokenStream::Note(Token const& at, std::string_view text) {
  auto const place = std::partition_point(
      tokens_.begin(), tokens_.end(), [&](Token const& token) { return token.offset < at.offset; });
  marks_.AddLeft(static_cast<std::size_t>(place - tokens_.begin()), SubjectOf(text));
  auto const find = [&] {
    return std::find_if(notes_.begin(), notes_.end(),
                        [&](SkipNote const& note) { return note.text == text; });
  };
  auto known = find();
  if (known == notes_.end() && notes_.size() + 1 >= kMostNotes) {
    text = "more is skipped";
    known = find();
  }
  if (known == notes_.end())
    notes_.push_back({at.offset, std::string(text)});
  else
    ++known->count;
}

}  // namespace repora::reader
