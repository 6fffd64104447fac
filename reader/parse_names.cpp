#include "reader/parse_names.h"

#include "repora/core/letters.h"

namespace repora::reader {
namespace {

void AddSegment(TokenStream& in, REPName& name) {
  auto const& token = in.Peek();
  if (!IsName(token)) in.Fail("a name");
  name.AddTail(in.Copy(in.TextOf(token)));
  in.Advance();
}

}  // namespace

bool IsName(Token const& token) {
  return token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName;
}

std::unique_ptr<REPName> ParseName(TokenStream& in) {
  auto name = ParseSimpleName(in);
  std::size_t parts = 1;
  while (in.Is('.')) {
    if (++parts > kMostNameParts) in.Fail("a name of at most 100 parts");
    in.Next();
    AddSegment(in, *name);
  }
  return name;
}

std::unique_ptr<REPName> ParseSimpleName(TokenStream& in) {
  auto name = std::make_unique<REPName>();
  AddSegment(in, *name);
  return name;
}

std::string ParseNameText(TokenStream& in) {
  return ParseSimpleName(in)->AsString(false);
}

std::unique_ptr<REPNameList> ParseNameList(TokenStream& in) {
  auto names = std::make_unique<REPNameList>();
  in.Expect('(');
  do names->AddTail(ParseName(in).release());
  while (in.Accept(','));
  in.Expect(')');
  return names;
}

std::unique_ptr<REPName> ParseDBLink(TokenStream& in) {
  if (!in.Accept('@')) return nullptr;
  auto link = ParseName(in);
  SkipConnectionQualifier(in);
  return link;
}

void SkipConnectionQualifier(TokenStream& in) {
  if (!in.Is('@')) return;
  in.Note(in.Next(), "connection qualifier of a database link is skipped");
  ParseSimpleName(in);
}

std::unique_ptr<REPExpr> MakeExpression(TokenStream& in, std::size_t mark) {
  auto expression = std::make_unique<REPExpr>();
  expression->SetExprValue(in.Copy(in.TextSince(mark)));
  in.ForgetKeywords(mark);
  return expression;
}

std::unique_ptr<REPExpr> ParseExpression(TokenStream& in, bool (*ends)(TokenStream const& in)) {
  auto const mark = in.Mark();
  bool operand_due = true;
  while (!in.AtEnd() && (operand_due || !ends(in))) {
    auto const& token = in.Peek();
    operand_due = token.kind == TokenKind::Punctuation && token.punctuation != '(';
    in.SkipItem();
  }
  if (operand_due) in.Fail("an expression");
  return MakeExpression(in, mark);
}

bool AcceptOrReplace(TokenStream& in) {
  return in.Accept(K_OR, K_REPLACE);
}

void SkipIfNotExists(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_IF, K_NOT, K_EXISTS)) in.Note(token, "IF NOT EXISTS is skipped");
}

void SkipIfExists(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_IF, K_EXISTS)) in.Note(token, "IF EXISTS is skipped");
}

void SkipKindWords(TokenStream& in, Word kind) {
  auto const& token = in.Peek();
  std::string words;
  while (in.Peek().kind == TokenKind::Word && !in.Is(kind)) {
    if (!words.empty()) words += ' ';
    words += ToUpper(in.TextOf(in.Next()));
  }
  if (!words.empty()) in.Note(token, "clause " + words + " is skipped");
}

void SkipEditionable(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_EDITIONABLE) || in.Accept(K_NONEDITIONABLE))
    in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
}

void SkipSharing(TokenStream& in) {
  auto const& token = in.Peek();
  if (!in.Accept(K_SHARING)) return;
  in.Note(token, "clause SHARING is skipped");
  in.Expect('=');
  if (!in.Accept(K_EXTENDED, K_DATA)) in.Next();
}

}  // namespace repora::reader
