#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "repora/code/profiles.h"
#include "repora/code/unsupported.h"
#include "repora/code/users.h"

namespace repora::reader {
namespace {

template <class Statement>
std::unique_ptr<REPStatement> Make() {
  return std::make_unique<Statement>();
}

struct Kind {
  Word verb;
  std::array<Word, 2> words;
  REPStatement_e type;
  std::unique_ptr<REPStatement> (*make)();
};

// A kind whose words start with those of another stands before it.
constexpr Kind kKinds[] = {
    {K_CREATE, {K_JAVA}, REPStatement_e::CreateJava, &Make<REPCreateJava>},
    {K_ALTER, {K_JAVA}, REPStatement_e::AlterJava, &Make<REPAlterJava>},
    {K_CREATE, {K_TYPE, K_BODY}, REPStatement_e::CreateTypeBody, &Make<REPCreateTypeBody>},
    {K_CREATE, {K_TYPE}, REPStatement_e::CreateType, &Make<REPCreateType>},
    {K_ALTER, {K_TYPE}, REPStatement_e::AlterType, &Make<REPAlterType>},
    {K_CREATE, {K_DIMENSION}, REPStatement_e::CreateDimension, &Make<REPCreateDimension>},
    {K_ALTER, {K_DIMENSION}, REPStatement_e::AlterDimension, &Make<REPAlterDimension>},
    {K_CREATE, {K_OPERATOR}, REPStatement_e::CreateOperator, &Make<REPCreateOperator>},
    {K_ALTER, {K_OPERATOR}, REPStatement_e::AlterOperator, &Make<REPAlterOperator>},
    {K_CREATE, {K_OUTLINE}, REPStatement_e::CreateOutline, &Make<REPCreateOutline>},
    {K_ALTER, {K_OUTLINE}, REPStatement_e::AlterOutline, &Make<REPAlterOutline>},
    {K_CREATE, {K_SCHEMA}, REPStatement_e::CreateSchema, &Make<REPCreateSchema>},
    {K_ALTER, {K_INDEXTYPE}, REPStatement_e::AlterIndextype, &Make<REPAlterIndextype>},
    {K_ALTER, {K_USER}, REPStatement_e::AlterUser, &Make<REPAlterUser>},
    {K_ALTER, {K_PROFILE}, REPStatement_e::AlterProfile, &Make<REPAlterProfile>},
};

// The kind whose words come; takes them. Null when none does.
Kind const* AcceptKind(TokenStream& in, Word verb) {
  auto const* const kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](Kind const& one) {
    if (one.verb != verb) return false;
    return one.words[1] == K_NONE ? in.Accept(one.words[0]) : in.Accept(one.words[0], one.words[1]);
  });
  return kind == std::end(kKinds) ? nullptr : kind;
}

// Words between the kind and the name: JAVA SOURCE NAMED, SCHEMA AUTHORIZATION.
bool AcceptWordBeforeName(TokenStream& in, Word kind) {
  if (in.Accept(K_IF, K_NOT, K_EXISTS) || in.Accept(K_IF, K_EXISTS)) return true;
  if (kind == K_SCHEMA) return in.Accept(K_AUTHORIZATION);
  return kind == K_JAVA &&
         (in.Accept(K_SOURCE) || in.Accept(K_RESOURCE) || in.Accept(K_CLASS) || in.Accept(K_NAMED));
}

// Java classes and outlines may have no name.
bool IsNameless(TokenStream const& in) {
  return !IsName(in.Peek()) || in.Is(K_USING) || in.Is(K_FROM) || in.Is(K_FOR) || in.Is(K_ON);
}

}  // namespace

std::unique_ptr<REPStatement> ParseUnsupported(TokenStream& in) {
  auto const& verb = in.Next();
  Kind const* kind = nullptr;
  while (!(kind = AcceptKind(in, verb.word))) {
    if (in.AtEnd()) in.Fail("the kind of an object");
    in.Next();  // OR REPLACE and its like
  }
  auto statement = kind->make();
  statement->SetStatementType(kind->type);
  std::string text(TextOf(verb.word));
  for (auto const word : kind->words)
    if (word != K_NONE) text += " " + std::string(TextOf(word));
  while (AcceptWordBeforeName(in, kind->words[0])) {
  }
  auto const& name = in.Peek();
  if (!IsNameless(in)) {
    auto const mark = in.Mark();
    ParseName(in);
    text += " " + std::string(in.TextSince(mark));
  }
  in.Note(name, text + " has no place in the data model");
  in.TakeRest();
  return statement;
}

}  // namespace repora::reader
