#include "reader/parse_columns.h"

#include "reader/parse_constraints.h"
#include "reader/parse_datatypes.h"
#include "reader/parse_names.h"
#include "reader/skipped_clauses.h"

namespace repora::reader {
namespace {

bool AtListEnd(TokenStream const& in) {
  return in.Is(',') || in.Is(')') || in.AtEnd();
}

void SkipToListEnd(TokenStream& in) {
  while (!AtListEnd(in)) in.SkipItem();
}

// Whether the next clause of a column comes, which ends the one before.
bool IsColumnClause(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ANNOTATIONS:
    case K_AS:
    case K_DECRYPT:
    case K_DEFAULT:
    case K_DOMAIN:
    case K_ENCRYPT:
    case K_GENERATED:
    case K_INVISIBLE:
    case K_RESERVABLE:
    case K_SCOPE:
    case K_SORT:
    case K_VISIBLE: return true;
    case K_NOT: return in.Is(K_NOT, K_RESERVABLE) || IsInlineConstraint(in);
    default: return IsInlineConstraint(in);
  }
}

// Whether the next clause of an ALTER TABLE comes, which ends a column outside of parentheses.
bool IsAlterClause(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ADD:
    case K_DISABLE:
    case K_DROP:
    case K_ENABLE:
    case K_LOB:
    case K_MODIFY:
    case K_NESTED:
    case K_RENAME:
    case K_VARRAY:
    case K_XMLTYPE: return true;
    default: return false;
  }
}

// [DOMAIN] before the name of a domain that is the datatype; the word may be left out.
bool AcceptDomain(TokenStream& in) {
  return IsName(in.Peek(1)) && in.Accept(K_DOMAIN);
}

// Whether a column has no datatype, because ALTER TABLE changes something else of it.
bool StartsChange(TokenStream const& in) {
  return in.Is(K_DROP) || in.Is(K_COLLATE) || in.Is(K_ADD, K_DOMAIN) || in.Is(K_READ, K_ONLY) ||
         in.Is(K_READ, K_WRITE);
}

// Whether the clause of a column ends, by another one or with the column.
bool AtClauseEnd(TokenStream const& in) {
  return AtListEnd(in) || IsColumnClause(in) || IsAlterClause(in);
}

// CASE ... END
void SkipCase(TokenStream& in) {
  TokenStream::Level const level(in);
  in.Expect(K_CASE);
  while (!in.Accept(K_END)) {
    if (AtListEnd(in)) in.Fail("END");
    if (in.Is(K_CASE))
      SkipCase(in);
    else
      in.SkipItem();
  }
}

// An expression up to where the grammar of the column goes on.
std::unique_ptr<REPExpr> ParseDefault(TokenStream& in) {
  auto const mark = in.Mark();
  bool operand_due = true;
  bool behind_string = false;
  while (!AtListEnd(in) && (operand_due || !AtClauseEnd(in))) {
    auto const& token = in.Peek();
    // As in 'it's', where a quote is missing.
    if (behind_string && token.kind == TokenKind::Word && token.word == K_NONE)
      in.Fail("',' or ')'");
    behind_string = token.kind == TokenKind::String;
    operand_due = token.kind == TokenKind::Punctuation && token.punctuation != '(';
    if (token.word == K_CASE)
      SkipCase(in);
    else
      in.SkipItem();
  }
  if (operand_due) in.Fail("an expression");
  return MakeExpression(in, mark);
}

// DEFAULT [ON NULL [FOR INSERT {ONLY | AND UPDATE}]] expression, behind its keyword
void ParseDefaultClause(TokenStream& in, REPRelTableColumn& column) {
  auto const& token = in.Peek();
  if (in.Accept(K_ON, K_NULL)) {
    in.Note(token, "ON NULL of a default is skipped");
    if (in.Accept(K_FOR, K_INSERT) && !in.Accept(K_AND, K_UPDATE)) in.Expect(K_ONLY);
  }
  std::unique_ptr<REPExpr> const replaced(column.GetExpression());
  column.SetExpression(nullptr);
  column.SetExpression(ParseDefault(in).release());
}

// [EVALUATE USING edition] [UNUSABLE {BEFORE | BEGINNING WITH} edition]..., of the expression
void TakeEditions(TokenStream& in) {
  while (in.Accept(K_EVALUATE, K_USING) || in.Accept(K_UNUSABLE, K_BEFORE) ||
         in.Accept(K_UNUSABLE, K_BEGINNING, K_WITH)) {
    if (in.Accept(K_EDITION)) {
      ParseSimpleName(in);
    } else {
      if (!in.Accept(K_NULL)) in.Expect(K_CURRENT);
      in.Expect(K_EDITION);
    }
  }
}

// [GENERATED [ALWAYS | BY DEFAULT [ON NULL]]] AS {IDENTITY [options] | (expression) [VIRTUAL |
//   MATERIALIZED] [editions]}
void SkipGenerated(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_GENERATED) && !in.Accept(K_ALWAYS) && in.Accept(K_BY)) {
    in.Expect(K_DEFAULT);
    in.Accept(K_ON, K_NULL);
  }
  in.Expect(K_AS);
  bool const identity = in.Accept(K_IDENTITY);
  in.Note(token, identity ? "AS IDENTITY is skipped" : "expression of a virtual column is skipped");
  if (identity) return TakeIdentityOptions(in);
  if (!in.SkipParentheses()) in.Fail("'('");
  if (!in.Accept(K_VIRTUAL)) in.Accept(K_MATERIALIZED);
  TakeEditions(in);
}

// A clause that a column object has no place for.
void SkipColumnClause(TokenStream& in) {
  if (SkipClause(in, ClausePlace::Column)) return;
  auto const& clause = in.Next();
  in.Note(clause, "clause " + std::string(TextOf(clause.word)) + " is skipped");
  while (!AtClauseEnd(in)) in.SkipItem();
}

void AddInlineConstraint(TokenStream& in, REPRelTableColumn& column) {
  if (!column.GetInlineConstraints())
    column.SetInlineConstraints(new REPInlineConstraintClauseList);
  column.GetInlineConstraints()->AddTail(ParseInlineConstraint(in).release());
}

// False when no clause of a column comes.
bool ParseColumnClause(TokenStream& in, REPRelTableColumn& column) {
  if (IsInlineConstraint(in)) {
    AddInlineConstraint(in, column);
    return true;
  }
  switch (in.Peek().word) {
    case K_DEFAULT:
      in.Next();
      ParseDefaultClause(in, column);
      break;
    case K_SORT:
      in.Next();
      column.SetSort(true);
      break;
    case K_AS:
    case K_GENERATED: SkipGenerated(in); break;
    case K_WITH: SkipColumnClause(in); break;
    case K_COLLATE:
    case K_READ:
    case K_VALIDATE: return SkipClause(in, ClausePlace::Column);
    case K_ADD:
    case K_DROP:
      // What else comes with these words is a clause of ALTER TABLE.
      return (in.Peek(1).word == K_DOMAIN || in.Peek(1).word == K_IDENTITY) &&
             SkipClause(in, ClausePlace::Column);
    default:
      if (!IsColumnClause(in)) return false;
      SkipColumnClause(in);
  }
  return true;
}

}  // namespace

// name [datatype] [SORT] [DEFAULT expression] [constraint]...
std::unique_ptr<REPRelTableColumn> ParseColumn(TokenStream& in) {
  auto column = std::make_unique<REPRelTableColumn>();
  in.StartClause("column");
  column->SetColumnName(ParseSimpleName(in).release());
  // In a list before AS SELECT the datatype comes from the query.
  if (!AtListEnd(in) && !StartsChange(in) &&
      (in.Is(K_REF) || AcceptDomain(in) || !IsColumnClause(in)))
    column->SetDatatype(ParseDatatype(in).release());
  while (ParseColumnClause(in, *column)) {
  }
  while (column->GetInlineConstraints() && IsFurtherInlineConstraint(in)) {
    in.Next();
    AddInlineConstraint(in, *column);
  }
  return column;
}

bool SkipPeriod(TokenStream& in) {
  if (!in.Is(K_PERIOD, K_FOR)) return false;
  in.Note(in.Peek(), "clause PERIOD FOR is skipped");
  SkipToListEnd(in);
  return true;
}

// DOMAIN name ( column [, column]... ) [USING ( column [, column]... )]; what stands between the
// parentheses of a datatype starts with a number.
bool SkipDomain(TokenStream& in) {
  if (!in.Is(K_DOMAIN) || !IsName(in.Peek(1))) return false;
  std::size_t behind = 2;
  while (in.Peek(behind).punctuation == '.') behind += 2;
  return in.Peek(behind).punctuation == '(' && IsName(in.Peek(behind + 1)) &&
         SkipClause(in, ClausePlace::Column);
}

}  // namespace repora::reader
