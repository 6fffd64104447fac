#include <string>
#include <vector>

#include "reader/parse_code.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "repora/code/triggers.h"

namespace repora::reader {
namespace {

// BEFORE | AFTER | INSTEAD OF | FOR. Rendered compound triggers have none of them.
void ParseFire(TokenStream& in, REPCreateTrigger& trigger) {
  auto const& token = in.Peek();
  if (in.Accept(K_BEFORE)) {
    trigger.SetTriggerFire(REPTriggerFire_e::Before);
  } else if (in.Accept(K_AFTER)) {
    trigger.SetTriggerFire(REPTriggerFire_e::After);
  } else if (in.Accept(K_INSTEAD, K_OF)) {
    trigger.SetTriggerFire(REPTriggerFire_e::InsteadOf);
  } else if (in.Accept(K_FOR)) {
    in.Note(token, "clause FOR of a compound trigger is skipped");
  }
}

int DMLEventOf(Word word) {
  switch (word) {
    case K_DELETE: return kDMLDelete;
    case K_INSERT: return kDMLInsert;
    case K_UPDATE: return kDMLUpdate;
    default: return 0;
  }
}

// column [, column]... in parentheses or without
void ParseUpdateColumns(TokenStream& in, std::vector<std::unique_ptr<REPName>>& columns) {
  bool const enclosed = in.Accept('(');
  do columns.push_back(ParseSimpleName(in));
  while (in.Accept(','));
  if (enclosed) in.Expect(')');
}

// A DDL or database event of one or two words, with one blank between them.
std::string ParseOtherEvent(TokenStream& in) {
  auto const& first = in.Peek();
  if (first.kind != TokenKind::Word || in.Is(K_ON) || in.Is(K_OR)) in.Fail("an event");
  std::string event(in.TextOf(in.Next()));
  if (in.Peek().kind == TokenKind::Word && !in.Is(K_ON) && !in.Is(K_OR))
    event += " " + std::string(in.TextOf(in.Next()));
  if (!IsTriggerEvent(event)) in.Note(first, "event " + event + " has no place in the data model");
  return event;
}

// {{DELETE | INSERT | UPDATE} [OF columns] | other event} [OR event]...
void ParseEvents(TokenStream& in, REPCreateTrigger& trigger) {
  std::vector<std::unique_ptr<REPName>> columns;
  std::vector<std::string> other_events;
  do {
    auto const event = DMLEventOf(in.Peek().word);
    if (event == 0) {
      other_events.push_back(ParseOtherEvent(in));
      continue;
    }
    in.Next();
    trigger.AddDMLEvent(event);
    // Wherever they stand, they are the columns of UPDATE.
    if (in.Accept(K_OF)) ParseUpdateColumns(in, columns);
  } while (in.Accept(K_OR));
  for (auto event = other_events.rbegin(); event != other_events.rend(); ++event)
    trigger.AddOtherEvent(event->c_str());
  for (auto column = columns.rbegin(); column != columns.rend(); ++column)
    trigger.AddUpdateColumn(column->release());
}

// ON [NESTED TABLE column OF] {name | [PLUGGABLE] DATABASE | [owner.]SCHEMA}
void ParseOn(TokenStream& in, REPCreateTrigger& trigger) {
  if (!in.Accept(K_ON)) in.Fail("OR or ON");
  if (in.Accept(K_NESTED, K_TABLE)) {
    trigger.SetNestedColumn(ParseSimpleName(in).release());
    in.Expect(K_OF);
  }
  if (in.Is(K_PLUGGABLE, K_DATABASE)) in.Note(in.Next(), "clause PLUGGABLE is skipped");
  trigger.SetOnName(ParseName(in).release());
}

// {OLD | NEW | PARENT} [AS] name ..., behind REFERENCING
void ParseReferencing(TokenStream& in, REPCreateTrigger& trigger) {
  struct Row {
    Word word;
    void (REPCreateTrigger::*set)(char const*);
  };
  constexpr Row kRows[] = {{K_OLD, &REPCreateTrigger::SetAsOld},
                           {K_NEW, &REPCreateTrigger::SetAsNew},
                           {K_PARENT, &REPCreateTrigger::SetAsParent}};
  auto const accept_row = [&] {
    for (auto const& row : kRows) {
      if (!in.Accept(row.word)) continue;
      in.Accept(K_AS);
      if (!IsName(in.Peek())) in.Fail("a name");
      (trigger.*row.set)(in.Copy(in.TextOf(in.Next())));
      return true;
    }
    return false;
  };
  if (!accept_row()) in.Fail("OLD, NEW or PARENT");
  while (accept_row()) {
  }
}

// (condition), behind WHEN
void ParseWhen(TokenStream& in, REPCreateTrigger& trigger) {
  if (in.Is('(') && in.Peek(1).punctuation == ')') {
    in.Next();
    in.Fail("a condition");
  }
  trigger.SetTriggerWhen(in.Copy(in.TakeParentheses()));
}

// FOLLOWS | PRECEDES name [, name]... | {FORWARD | REVERSE} CROSSEDITION | ENABLE | DISABLE |
//   DEFAULT COLLATION name: words of newer releases
bool SkipNewerClause(TokenStream& in) {
  auto const& clause = in.Peek();
  switch (clause.word) {
    case K_FOLLOWS:
    case K_PRECEDES:
      in.Next();
      do ParseName(in);
      while (in.Accept(','));
      break;
    case K_FORWARD:
    case K_REVERSE:
      in.Next();
      in.Expect(K_CROSSEDITION);
      in.Note(clause, "clause " + std::string(TextOf(clause.word)) + " CROSSEDITION is skipped");
      return true;
    case K_DEFAULT:
      in.Next();
      in.Expect(K_COLLATION);
      ParseName(in);
      in.Note(clause, "clause DEFAULT COLLATION is skipped");
      return true;
    case K_ENABLE:
    case K_DISABLE: in.Next(); break;
    default: return false;
  }
  in.Note(clause, "clause " + std::string(TextOf(clause.word)) + " is skipped");
  return true;
}

bool StartsBody(TokenStream const& in) {
  return in.Is(K_DECLARE) || in.Is(K_BEGIN) || in.Is(kLabelStart) || in.Is(K_CALL) ||
         in.Is(K_COMPOUND, K_TRIGGER);
}

// The body as it is stored: a block with the ";" that ends it, a call without. Rendered triggers
// have one more of them.
std::string TakeBody(TokenStream& in) {
  bool const call = in.Is(K_CALL);
  std::string body(in.TakeRest());
  body.erase(0, body.find_first_not_of(" \t\r\n\f\v"));
  if (body.ends_with(call ? ";" : ";;")) body.pop_back();
  return body;
}

}  // namespace

// CREATE [OR REPLACE] [EDITIONABLE | NONEDITIONABLE] TRIGGER [IF NOT EXISTS] name [SHARING = word]
//   {BEFORE | AFTER | INSTEAD OF | FOR} events ON object [REFERENCING ...] [FOR EACH ROW]
//   [WHEN (condition)] body
std::unique_ptr<REPStatement> ParseCreateTrigger(TokenStream& in) {
  auto trigger = std::make_unique<REPCreateTrigger>();
  trigger->SetStatementType(REPStatement_e::CreateTrigger);
  in.Expect(K_CREATE);
  trigger->SetReplace(AcceptOrReplace(in));
  SkipEditionable(in);
  in.Expect(K_TRIGGER);
  SkipIfNotExists(in);
  trigger->SetTriggerName(ParseName(in).release());
  SkipSharing(in);
  while (SkipNewerClause(in)) {
  }
  auto const start = in.Mark();
  ParseFire(in, *trigger);
  bool const timed = in.Mark() != start;
  ParseEvents(in, *trigger);
  ParseOn(in, *trigger);
  while (!StartsBody(in)) {
    if (in.Accept(K_REFERENCING)) {
      ParseReferencing(in, *trigger);
    } else if (in.Accept(K_FOR)) {
      in.Expect(K_EACH, K_ROW);
      trigger->SetForRow(true);
    } else if (in.Accept(K_WHEN)) {
      ParseWhen(in, *trigger);
    } else if (!SkipNewerClause(in)) {
      in.Fail("the body of the trigger");
    }
  }
  if (!timed && !in.Is(K_COMPOUND)) in.Fail("BEFORE, AFTER, INSTEAD OF or FOR");
  trigger->SetTriggerBody(TakeBody(in).c_str());
  return trigger;
}

// ALTER TRIGGER name {ENABLE | DISABLE | RENAME TO name | COMPILE ... | EDITIONABLE |
//   NONEDITIONABLE}
std::unique_ptr<REPStatement> ParseAlterTrigger(TokenStream& in) {
  auto trigger = std::make_unique<REPAlterTrigger>();
  trigger->SetStatementType(REPStatement_e::AlterTrigger);
  in.Expect(K_ALTER, K_TRIGGER);
  SkipIfExists(in);
  trigger->SetTriggerName(ParseName(in).release());
  if (SkipAlterEditionable(in, K_TRIGGER)) return nullptr;
  if (in.Accept(K_ENABLE)) {
    trigger->SetAlter(REPTrigger_e::Enable);
  } else if (in.Accept(K_DISABLE)) {
    trigger->SetAlter(REPTrigger_e::Disable);
  } else if (in.Accept(K_RENAME)) {
    in.Expect(K_TO);
    trigger->SetAlter(REPTrigger_e::Rename);
    trigger->SetNewTriggerName(ParseName(in).release());
  } else if (in.Accept(K_COMPILE)) {
    trigger->SetAlter(REPTrigger_e::Compile);
    ParseCompile(in, *trigger);
  } else {
    in.Fail("ENABLE, DISABLE, RENAME or COMPILE");
  }
  return trigger;
}

}  // namespace repora::reader
