#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "repora/code/sequences.h"

namespace repora::reader {
namespace {

// MAXVALUE n | NOMAXVALUE and its like; Option is the enumeration of the one or the other
// statement.
template <class Statement, class Option>
struct Limit {
  Word given, off;
  void (Statement::*set_option)(Option);
  void (Statement::*set_value)(char const*);
};

template <class Statement, class Option>
bool ParseLimit(TokenStream& in, Statement& sequence, Limit<Statement, Option> const& limit) {
  // An option that is off is 1, and one with a value 2, in all of them.
  if (in.Accept(limit.off)) {
    (sequence.*limit.set_option)(Option{1});
    return true;
  }
  if (!in.Accept(limit.given)) return false;
  auto const value = in.ExpectNumber();
  (sequence.*limit.set_option)(Option{2});
  (sequence.*limit.set_value)(in.Copy(value));
  return true;
}

// [INCREMENT BY n] [MAXVALUE n | NOMAXVALUE] [MINVALUE n | NOMINVALUE] [CYCLE | NOCYCLE]
//   [ORDER | NOORDER]
template <class Statement>
bool ParseCommonOption(TokenStream& in, Statement& sequence) {
  using Option = Limit<Statement, REPOptional_e>;
  if (in.Accept(K_INCREMENT)) {
    in.Expect(K_BY);
    sequence.SetIncrementBy(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_CYCLE)) {
    sequence.SetCycle(REPCycle_e::Cycle);
  } else if (in.Accept(K_NOCYCLE)) {
    sequence.SetCycle(REPCycle_e::NoCycle);
  } else if (in.Accept(K_ORDER)) {
    sequence.SetOrder(REPOrder_e::Order);
  } else if (in.Accept(K_NOORDER)) {
    sequence.SetOrder(REPOrder_e::NoOrder);
  } else {
    return ParseLimit(in, sequence,
                      Option{K_MAXVALUE, K_NOMAXVALUE, &Statement::SetMaxValueOption,
                             &Statement::SetMaxValue}) ||
           ParseLimit(in, sequence,
                      Option{K_MINVALUE, K_NOMINVALUE, &Statement::SetMinValueOption,
                             &Statement::SetMinValue});
  }
  return true;
}

// KEEP | NOKEEP | SCALE [EXTEND | NOEXTEND] | NOSCALE | SHARD [EXTEND | NOEXTEND] | NOSHARD |
//   SESSION | GLOBAL | RESTART | SHARING = word: newer options that a sequence object has no place
// for.
bool SkipNewerOption(TokenStream& in) {
  auto const& option = in.Peek();
  switch (option.word) {
    case K_SHARING: SkipSharing(in); return true;
    case K_KEEP:
    case K_NOKEEP:
    case K_SCALE:
    case K_NOSCALE:
    case K_SHARD:
    case K_NOSHARD:
    case K_SESSION:
    case K_GLOBAL:
    case K_RESTART: break;
    default: return false;
  }
  auto const mark = in.Mark();
  in.Next();
  if (option.word == K_RESTART && in.Accept(K_START, K_WITH)) in.ExpectNumber();
  if (!in.Accept(K_EXTEND)) in.Accept(K_NOEXTEND);
  in.ForgetKeywords(mark);
  in.Note(option, "clause " + std::string(TextOf(option.word)) + " is skipped");
  return true;
}

}  // namespace

// CREATE SEQUENCE [IF NOT EXISTS] name [START WITH n] [CACHE n | NOCACHE] [common options]...
std::unique_ptr<REPStatement> ParseCreateSequence(TokenStream& in) {
  auto sequence = std::make_unique<REPCreateSequence>();
  sequence->SetStatementType(REPStatement_e::CreateSequence);
  in.Expect(K_CREATE, K_SEQUENCE);
  SkipIfNotExists(in);
  sequence->SetSchemaName(ParseName(in).release());
  while (!in.AtEnd()) {
    if (in.Accept(K_START)) {
      in.Expect(K_WITH);
      sequence->SetStartWith(in.Copy(in.ExpectNumber()));
      continue;
    }
    Limit<REPCreateSequence, REPOptional_e> const cache{
        K_CACHE, K_NOCACHE, &REPCreateSequence::SetCacheOption, &REPCreateSequence::SetCache};
    if (!ParseCommonOption(in, *sequence) && !ParseLimit(in, *sequence, cache) &&
        !SkipNewerOption(in))
      in.Fail("an option of the sequence");
  }
  return sequence;
}

// ALTER SEQUENCE name [CACHE n | CACHE READS | NOCACHE] [common options]...
std::unique_ptr<REPStatement> ParseAlterSequence(TokenStream& in) {
  auto sequence = std::make_unique<REPAlterSequence>();
  sequence->SetStatementType(REPStatement_e::AlterSequence);
  in.Expect(K_ALTER, K_SEQUENCE);
  SkipIfExists(in);
  sequence->SetSchemaName(ParseName(in).release());
  while (!in.AtEnd()) {
    if (in.Accept(K_CACHE, K_READS)) {
      sequence->SetCacheOption(REPCache_e::CacheReads);
      continue;
    }
    if (in.Is(K_START)) {
      // Only a restart may say where; the model keeps where the sequence began.
      in.Note(in.Next(), "clause START WITH is skipped");
      in.Expect(K_WITH);
      in.ExpectNumber();
      continue;
    }
    Limit<REPAlterSequence, REPCache_e> const cache{
        K_CACHE, K_NOCACHE, &REPAlterSequence::SetCacheOption, &REPAlterSequence::SetCache};
    if (!ParseCommonOption(in, *sequence) && !ParseLimit(in, *sequence, cache) &&
        !SkipNewerOption(in))
      in.Fail("an option of the sequence");
  }
  return sequence;
}

}  // namespace repora::reader
