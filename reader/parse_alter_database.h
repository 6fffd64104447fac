#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "reader/token_stream.h"
#include "repora/database/alter_database.h"

// Pieces of ALTER DATABASE. The functions for a clause read what stands behind its first word, and
// set the type of the statement.
namespace repora::reader {

template <class Enum>
struct Choice {
  Word word;
  Enum value;
};

// The value of the word that comes; the word is taken. Nothing is taken when it is another.
template <class Enum>
Enum AcceptChoice(TokenStream& in, std::initializer_list<Choice<Enum>> choices) {
  for (auto const& choice : choices)
    if (in.Accept(choice.word)) return choice.value;
  return Enum{};
}

// [LOGICAL | PHYSICAL]
REPDBLogPhys_e AcceptLogicalOrPhysical(TokenStream& in);

// Leaves out a clause that the statement has no place for, or what is left of one, to the end. The
// note names it by the words that are taken, and by those that were taken before.
void SkipRest(TokenStream& in, std::string name = {});

// {'file' | n} [, {'file' | n}]...
std::unique_ptr<REPFileSpecList> ParseFiles(TokenStream& in);

// RECOVER
void ParseRecover(TokenStream& in, REPAlterDatabase& alter);

// Clauses for standby databases: ACTIVATE, SET STANDBY DATABASE, REGISTER, COMMIT, PREPARE, START,
// STOP, ABORT
void ParseActivate(TokenStream& in, REPAlterDatabase& alter);
void ParseMaximize(TokenStream& in, REPAlterDatabase& alter);
void ParseRegister(TokenStream& in, REPAlterDatabase& alter);
void ParseCommit(TokenStream& in, REPAlterDatabase& alter);
void ParsePrepare(TokenStream& in, REPAlterDatabase& alter);
void ParseStart(TokenStream& in, REPAlterDatabase& alter);
void ParseStop(TokenStream& in, REPAlterDatabase& alter);
void ParseAbort(TokenStream& in, REPAlterDatabase& alter);

}  // namespace repora::reader
