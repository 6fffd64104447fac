#include "reader/parse_constraints.h"

#include <string>

#include "reader/parse_conditions.h"
#include "reader/parse_indexes.h"
#include "reader/parse_names.h"
#include "reader/replace.h"

namespace repora::reader {
namespace {

// Where a constraint stands: behind one of a table, ENABLE may start a clause of the table.
enum class Place { Column, Table };

bool StartsConstraintState(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_DEFERRABLE:
    case K_DISABLE:
    case K_ENABLE:
    case K_EXCEPTIONS:
    case K_INITIALLY:
    case K_NOPRECHECK:
    case K_NORELY:
    case K_NOVALIDATE:
    case K_PRECHECK:
    case K_RELY:
    case K_USING:
    case K_VALIDATE: return true;
    case K_NOT: return in.Peek(1).word == K_DEFERRABLE;
    default: return false;
  }
}

// Whether the name of an index comes, rather than what follows a USING INDEX without one.
bool IsIndexName(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_ADD:
    case K_CASCADE:
    case K_DEFAULT:
    case K_DROP:
    case K_KEEP:
    case K_MODIFY:
    case K_RENAME: return false;
    default: return IsName(in.Peek()) && !StartsConstraintState(in) && !IsInlineConstraint(in);
  }
}

// {ENABLE | DISABLE} [TABLE LOCK | ALL TRIGGERS]
REPEnable_e ParseEnable(TokenStream& in) {
  bool const enable = in.Next().word == K_ENABLE;
  if (in.Accept(K_TABLE, K_LOCK))
    return enable ? REPEnable_e::EnableTableLock : REPEnable_e::DisableTableLock;
  if (in.Accept(K_ALL, K_TRIGGERS))
    return enable ? REPEnable_e::EnableAllTriggers : REPEnable_e::DisableAllTriggers;
  return enable ? REPEnable_e::Enable : REPEnable_e::Disable;
}

// [VALIDATE | NOVALIDATE]
REPValidate_e ParseValidate(TokenStream& in) {
  if (in.Accept(K_VALIDATE)) return REPValidate_e::Validate;
  return in.Accept(K_NOVALIDATE) ? REPValidate_e::NoValidate : REPValidate_e::None;
}

// EXCEPTIONS INTO table, behind its first word
std::unique_ptr<REPName> ParseExceptions(TokenStream& in) {
  in.Expect(K_INTO);
  return ParseName(in);
}

// USING INDEX [index | CREATE INDEX ... | (CREATE INDEX ...) | properties], behind its first word
void ParseUsingIndex(TokenStream& in, REPConstraintState& state) {
  using State = REPConstraintState;
  in.Expect(K_INDEX);
  std::unique_ptr<REPName> name;
  std::unique_ptr<REPCreateIndex> index;
  std::unique_ptr<REPIndexPropertiesClause> properties;
  if (in.Is(K_CREATE)) {
    index = ParseCreateIndexClause(in);
  } else if (in.Accept('(')) {
    index = ParseCreateIndexClause(in);
    in.Expect(')');
  } else {
    properties = ParseIndexProperties(in);
    if (!properties && IsIndexName(in)) name = ParseName(in);
  }
  state.SetUsingIndex(true);
  Replace(state, &State::GetIndexSchema, &State::SetIndexSchema, std::move(name));
  Replace(state, &State::GetCreateIndex, &State::SetCreateIndex, std::move(index));
  Replace(state, &State::GetProperties, &State::SetProperties, std::move(properties));
}

// One word or clause of a state; false when none comes.
bool ParseStatePart(TokenStream& in, REPConstraintState& state) {
  using State = REPConstraintState;
  auto const& token = in.Peek();
  switch (token.word) {
    case K_NOT:
      if (!in.Accept(K_NOT, K_DEFERRABLE)) return false;
      state.SetDeferrable(REPDeferrable_e::NotDeferrable);
      return true;
    case K_ENABLE:
    case K_DISABLE: state.SetEnable(ParseEnable(in)); return true;
    case K_VALIDATE:
    case K_NOVALIDATE: state.SetValidate(ParseValidate(in)); return true;
    case K_DEFERRABLE: state.SetDeferrable(REPDeferrable_e::Deferrable); break;
    case K_RELY: state.SetRely(REPRely_e::Rely); break;
    case K_NORELY: state.SetRely(REPRely_e::NoRely); break;
    case K_INITIALLY:
      in.Next();
      if (!in.Is(K_IMMEDIATE) && !in.Is(K_DEFERRED)) in.Fail("IMMEDIATE or DEFERRED");
      state.SetInitially(in.Is(K_DEFERRED) ? REPInitially_e::Deferred : REPInitially_e::Immediate);
      break;
    case K_EXCEPTIONS:
      in.Next();
      Replace(state, &State::GetExceptions, &State::SetExceptions, ParseExceptions(in));
      return true;
    case K_USING:
      in.Next();
      ParseUsingIndex(in, state);
      return true;
    case K_PRECHECK:
    case K_NOPRECHECK:
      in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
      break;
    default: return false;
  }
  in.Next();
  return true;
}

// [NOT] DEFERRABLE | INITIALLY {IMMEDIATE | DEFERRED} | {ENABLE | DISABLE} | {VALIDATE |
// NOVALIDATE}
//   | {RELY | NORELY} | EXCEPTIONS INTO table | USING INDEX ..., each in any place
std::unique_ptr<REPConstraintState> ParseState(TokenStream& in, Place place) {
  std::unique_ptr<REPConstraintState> state;
  while (StartsConstraintState(in) && !(place == Place::Table && IsEnableDisableClause(in))) {
    if (!state) state = std::make_unique<REPConstraintState>();
    ParseStatePart(in, *state);
  }
  return state;
}

// ON DELETE {CASCADE | SET NULL | NO ACTION}, the last of which says what holds anyway
void ParseOnDelete(TokenStream& in, REPReferenceClause& references) {
  auto const& token = in.Next();
  in.Expect(K_DELETE);
  if (in.Accept(K_CASCADE))
    references.SetDelete(REPDelete_e::Cascade);
  else if (in.Accept(K_SET, K_NULL))
    references.SetDelete(REPDelete_e::SetNull);
  else if (in.Accept(K_NO, K_ACTION))
    in.Note(token, "ON DELETE NO ACTION is skipped");
  else
    in.Fail("CASCADE or SET NULL");
}

// REFERENCES table [(column, ...)] [ON DELETE ...]
std::unique_ptr<REPReferenceClause> ParseReferences(TokenStream& in) {
  auto references = std::make_unique<REPReferenceClause>();
  in.Expect(K_REFERENCES);
  references->SetReferenceName(ParseName(in).release());
  if (in.Is('(')) references->SetColumns(ParseNameList(in).release());
  if (in.Is(K_ON)) ParseOnDelete(in, *references);
  return references;
}

// {[NOT] NULL | UNIQUE | PRIMARY KEY | REFERENCES ... | CHECK (condition) | REF column | WITH ROWID
//   | SCOPE IS table}
void ParseInlineKind(TokenStream& in, REPInlineConstraintClause& clause) {
  switch (in.Peek().word) {
    case K_NULL:
      in.Next();
      clause.SetConstraint(REPInlineConstr_e::Null);
      break;
    case K_NOT:
      in.Expect(K_NOT, K_NULL);
      clause.SetConstraint(REPInlineConstr_e::NotNull);
      break;
    case K_UNIQUE:
      in.Next();
      clause.SetConstraint(REPInlineConstr_e::Unique);
      break;
    case K_PRIMARY:
      in.Expect(K_PRIMARY, K_KEY);
      clause.SetConstraint(REPInlineConstr_e::PrimaryKey);
      break;
    case K_REFERENCES:
      clause.SetConstraint(REPInlineConstr_e::References);
      clause.SetReferences(ParseReferences(in).release());
      break;
    case K_CHECK:
      in.Next();
      clause.SetConstraint(REPInlineConstr_e::Check);
      clause.SetCheckConditions(ParseConditionInParentheses(in).release());
      break;
    case K_REF:
      in.Next();
      clause.SetConstraint(REPInlineConstr_e::Ref);
      clause.SetRefName(ParseName(in).release());
      break;
    case K_WITH:
      in.Expect(K_WITH, K_ROWID);
      clause.SetConstraint(REPInlineConstr_e::WithRowId);
      break;
    case K_SCOPE:
      in.Expect(K_SCOPE, K_IS);
      clause.SetConstraint(REPInlineConstr_e::ScopeIs);
      clause.SetScope(ParseName(in).release());
      break;
    default: in.Fail("a constraint");
  }
}

// {UNIQUE | PRIMARY KEY} (column, ...) | FOREIGN KEY (column, ...) REFERENCES ...
//   | CHECK (condition)
void ParseOutOfLineKind(TokenStream& in, REPOutOfLineConstraint& constraint) {
  if (in.Accept(K_CHECK)) {
    constraint.SetConstraint(REPOutOfLineConstr_e::Check);
    constraint.SetCheckConditions(ParseConditionInParentheses(in).release());
    return;
  }
  if (in.Accept(K_UNIQUE)) {
    constraint.SetConstraint(REPOutOfLineConstr_e::Unique);
  } else if (in.Accept(K_PRIMARY)) {
    in.Expect(K_KEY);
    constraint.SetConstraint(REPOutOfLineConstr_e::PrimaryKey);
  } else if (in.Accept(K_FOREIGN)) {
    in.Expect(K_KEY);
    constraint.SetConstraint(REPOutOfLineConstr_e::ForeignKey);
  } else {
    in.Fail("CHECK, FOREIGN KEY, PRIMARY KEY or UNIQUE");
  }
  constraint.SetColumns(ParseNameList(in).release());
  if (constraint.GetConstraint() == REPOutOfLineConstr_e::ForeignKey)
    constraint.SetForeignKeyReferences(ParseReferences(in).release());
}

// USING INDEX [index | properties], behind its first word
std::unique_ptr<REPUsingIndexClause> ParseUsingClause(TokenStream& in) {
  auto clause = std::make_unique<REPUsingIndexClause>();
  in.Expect(K_INDEX);
  auto const& token = in.Peek();
  if (in.SkipParentheses()) {
    in.Note(token, "CREATE INDEX of an ENABLE clause is skipped");
    return clause;
  }
  // The properties may be those of an index that is named.
  if (auto properties = ParseIndexProperties(in)) {
    clause->SetIndexProperties(properties.release());
  } else if (IsIndexName(in)) {
    clause->SetIndexName(ParseName(in).release());
    clause->SetIndexProperties(ParseIndexProperties(in).release());
  }
  return clause;
}

// [USING INDEX ...] | [EXCEPTIONS INTO table] | [CASCADE] | [{KEEP | DROP} INDEX], each in any
// place
bool ParseEnableDisableOption(TokenStream& in, REPEnableDisableClause& clause) {
  using Clause = REPEnableDisableClause;
  if (in.Accept(K_USING))
    Replace(clause, &Clause::GetUsingClause, &Clause::SetUsingClause, ParseUsingClause(in));
  else if (in.Accept(K_EXCEPTIONS))
    Replace(clause, &Clause::GetExceptions, &Clause::SetExceptions, ParseExceptions(in));
  else if (in.Accept(K_CASCADE))
    clause.SetCascade(true);
  else if (in.Accept(K_KEEP, K_INDEX))
    clause.SetKeepDrop(REPKeepDrop_e::KeepIndex);
  else if (in.Accept(K_DROP, K_INDEX))
    clause.SetKeepDrop(REPKeepDrop_e::DropIndex);
  else
    return false;
  return true;
}

// The "," that the library writes between two of the clauses.
void AcceptSeparator(TokenStream& in) {
  auto const next = in.Peek(1).word;
  if (in.Is(',') && (next == K_ENABLE || next == K_DISABLE)) in.Next();
}

// Whether what stands behind CONSTRAINT and a name shows a constraint whose kind is missing or
// misspelt, and not a column that is called CONSTRAINT, whose datatype the name is.
bool LacksKind(Token const& name, Token const& next) {
  return next.kind == TokenKind::End || next.word == K_KEY ||
         (name.word == K_NONE && next.kind == TokenKind::Word && next.word == K_NONE);
}

}  // namespace

bool IsInlineConstraint(TokenStream const& in) {
  auto const second = in.Peek(1);
  switch (in.Peek().word) {
    case K_CONSTRAINT:
    case K_NULL:
    case K_UNIQUE:
    case K_PRIMARY:
    case K_CHECK:
    case K_REFERENCES: return true;
    case K_NOT: return second.word == K_NULL;
    case K_REF: return IsName(second);
    case K_WITH: return second.word == K_ROWID;
    case K_SCOPE: return second.word == K_IS;
    default: return false;
  }
}

// [CONSTRAINT name] kind [state]
std::unique_ptr<REPInlineConstraintClause> ParseInlineConstraint(TokenStream& in) {
  auto clause = std::make_unique<REPInlineConstraintClause>();
  if (in.Accept(K_CONSTRAINT)) clause->SetConstraintName(ParseName(in).release());
  ParseInlineKind(in, *clause);
  clause->SetConstraintState(ParseState(in, Place::Column).release());
  return clause;
}

bool IsFurtherInlineConstraint(TokenStream const& in) {
  if (!in.Is(',')) return false;
  bool const named = in.Peek(1).word == K_CONSTRAINT && IsName(in.Peek(2));
  auto const at = [&, start = named ? 3U : 1U](std::size_t i) { return in.Peek(start + i); };
  switch (at(0).word) {
    case K_NULL: return true;
    case K_NOT: return at(1).word == K_NULL;
    case K_UNIQUE: return at(1).punctuation != '(';
    case K_PRIMARY: return at(1).word == K_KEY && at(2).punctuation != '(';
    case K_WITH: return at(1).word == K_ROWID;
    case K_SCOPE: return at(1).word == K_IS;
    case K_REFERENCES: {
      // Unless it is the name of a column that its datatype follows.
      if (named || !IsName(at(1))) return named;
      std::size_t behind = 2;
      while (at(behind).punctuation == '.') behind += 2;
      return at(behind).punctuation == '(' ? IsName(at(behind + 1))
                                           : behind > 2 || at(1).word == K_NONE;
    }
    default: return false;
  }
}

std::unique_ptr<REPInlineConstraintClauseList> ParseInlineConstraints(TokenStream& in) {
  if (!IsInlineConstraint(in)) return nullptr;
  auto list = std::make_unique<REPInlineConstraintClauseList>();
  do list->AddTail(ParseInlineConstraint(in).release());
  while (IsInlineConstraint(in) || (IsFurtherInlineConstraint(in) && in.Accept(',')));
  return list;
}

bool IsOutOfLineConstraint(TokenStream const& in) {
  auto const second = in.Peek(1);
  switch (in.Peek().word) {
    case K_CONSTRAINT:
      if (in.Is(K_CONSTRAINT, K_IF, K_NOT, K_EXISTS)) return true;
      switch (in.Peek(2).word) {
        case K_CHECK:
        case K_FOREIGN:
        case K_PRIMARY:
        case K_UNIQUE: return IsName(second);
        default: return IsName(second) && LacksKind(second, in.Peek(2));
      }
    case K_PRIMARY:
    case K_FOREIGN: return second.word == K_KEY || second.punctuation == '(';
    case K_UNIQUE:
    case K_CHECK: return second.punctuation == '(';
    default: return false;
  }
}

// [CONSTRAINT name] kind [state]
std::unique_ptr<REPOutOfLineConstraint> ParseOutOfLineConstraint(TokenStream& in) {
  auto constraint = std::make_unique<REPOutOfLineConstraint>();
  if (in.Accept(K_CONSTRAINT)) {
    SkipIfNotExists(in);
    constraint->SetConstraintName(ParseName(in).release());
  }
  ParseOutOfLineKind(in, *constraint);
  constraint->SetConstraintState(ParseState(in, Place::Table).release());
  return constraint;
}

bool IsOutOfLineRefConstraint(TokenStream const& in) {
  return in.Is(K_SCOPE, K_FOR) || (in.Is(K_REF) && in.Peek(1).punctuation == '(');
}

// SCOPE FOR (column) IS table | REF (column) WITH ROWID
std::unique_ptr<REPOutOfLineRefConstraint> ParseOutOfLineRefConstraint(TokenStream& in) {
  auto constraint = std::make_unique<REPOutOfLineRefConstraint>();
  bool const scope = in.Accept(K_SCOPE, K_FOR);
  if (!scope) in.Expect(K_REF);
  in.Expect('(');
  auto column = ParseName(in);
  in.Expect(')');
  if (scope) {
    constraint->SetScopeColumn(column.release());
    in.Expect(K_IS);
    constraint->SetScopeSchema(ParseName(in).release());
  } else {
    constraint->SetRefColumn(column.release());
    in.Expect(K_WITH, K_ROWID);
  }
  return constraint;
}

std::unique_ptr<REPConstraintState> ParseConstraintState(TokenStream& in) {
  return ParseState(in, Place::Table);
}

bool IsEnableDisableClause(TokenStream const& in) {
  if (!in.Is(K_ENABLE) && !in.Is(K_DISABLE)) return false;
  auto const second = in.Peek(1).word;
  bool const validate = second == K_VALIDATE || second == K_NOVALIDATE;
  switch (validate ? in.Peek(2).word : second) {
    case K_CONSTRAINT:
    case K_PRIMARY:
    case K_UNIQUE: return true;
    case K_TABLE: return !validate && in.Peek(2).word == K_LOCK;
    case K_ALL: return !validate && in.Peek(2).word == K_TRIGGERS;
    default: return false;
  }
}

// {ENABLE | DISABLE} [VALIDATE | NOVALIDATE] {UNIQUE (column, ...) | PRIMARY KEY
//   | CONSTRAINT name} [option]... | {ENABLE | DISABLE} {TABLE LOCK | ALL TRIGGERS}
std::unique_ptr<REPEnableDisableClause> ParseEnableDisableClause(TokenStream& in) {
  auto clause = std::make_unique<REPEnableDisableClause>();
  clause->SetEnable(ParseEnable(in));
  bool const of_constraint =
      clause->GetEnable() == REPEnable_e::Enable || clause->GetEnable() == REPEnable_e::Disable;
  if (!of_constraint) {
    AcceptSeparator(in);
    return clause;
  }
  clause->SetValidate(ParseValidate(in));
  if (in.Accept(K_UNIQUE)) {
    clause->SetType(REPInlineConstr_e::Unique);
    clause->SetColumns(ParseNameList(in).release());
  } else if (in.Accept(K_PRIMARY)) {
    in.Expect(K_KEY);
    clause->SetType(REPInlineConstr_e::PrimaryKey);
  } else {
    in.Expect(K_CONSTRAINT);
    clause->SetType(REPInlineConstr_e::Named);
    clause->SetConstraint(ParseName(in).release());
  }
  while (ParseEnableDisableOption(in, *clause)) {
  }
  AcceptSeparator(in);
  return clause;
}

}  // namespace repora::reader
