#include "reader/parse_code.h"

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

#include "reader/parse_datatypes.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_strings.h"
#include "repora/code/indextypes.h"

namespace repora::reader {
namespace {

// CREATE [OR REPLACE] [EDITIONABLE | NONEDITIONABLE] kind [IF NOT EXISTS] name [SHARING = word]
template <class Statement, std::same_as<Word>... Words>
std::unique_ptr<Statement> ParseHeader(TokenStream& in, REPStatement_e type,
                                       void (Statement::*set_name)(REPName*), Words... kind) {
  auto statement = std::make_unique<Statement>();
  statement->SetStatementType(type);
  in.Expect(K_CREATE);
  statement->SetReplace(AcceptOrReplace(in));
  SkipEditionable(in);
  in.Expect(kind...);
  SkipIfNotExists(in);
  (statement.get()->*set_name)(ParseName(in).release());
  SkipSharing(in);
  return statement;
}

// All that is left, without the ";" behind it.
std::string_view TakeUnitText(TokenStream& in) {
  auto text = in.TakeRest();
  if (text.ends_with(';')) text.remove_suffix(1);
  return text;
}

// The same without the blanks in front.
std::string_view TakeCode(TokenStream& in) {
  if (in.AtEnd()) in.Fail("the code");
  auto const text = TakeUnitText(in);
  return text.substr(std::min(text.find_first_not_of(" \t\r\n\f\v"), text.size()));
}

// ACCESSIBLE BY (...) | DEFAULT COLLATION name | ...: clauses before IS or AS for which a package
// has no place. Takes one word or parenthesis after the other.
void SkipPackageClause(TokenStream& in) {
  auto const& clause = in.Peek();
  if (in.Accept(K_ACCESSIBLE, K_BY)) {
    in.Note(clause, "clause ACCESSIBLE BY is skipped");
    if (!in.SkipParentheses()) in.Fail("'('");
  } else if (in.Accept(K_DEFAULT, K_COLLATION)) {
    in.Note(clause, "clause DEFAULT COLLATION is skipped");
    ParseName(in);
  } else {
    in.Fail("IS or AS");
  }
}

// AUTHID {CURRENT_USER | DEFINER}
REPAuthID_e ParseRights(TokenStream& in) {
  in.Expect(K_AUTHID);
  if (in.Accept(K_CURRENT_USER)) return REPAuthID_e::CurrentUser;
  if (in.Accept(K_DEFINER)) return REPAuthID_e::Definer;
  in.Fail("CURRENT_USER or DEFINER");
}

// [AUTHID {CURRENT_USER | DEFINER}] {IS | AS} code | WRAPPED code
std::unique_ptr<REPStatement> ParsePackage(TokenStream& in,
                                           std::unique_ptr<CreatePackageStatement> package,
                                           REPCreatePackage* specification = nullptr) {
  for (;;) {
    // What is wrapped has no IS or AS; the blank before it is part of it.
    if (in.Is(K_WRAPPED)) {
      package->SetPackageSpec(in.Copy(TakeUnitText(in)));
      return package;
    }
    if (in.IsBehindComment()) in.Note(in.Peek(), "comment before the code is skipped");
    if (in.Is(K_IS) || in.Is(K_AS)) break;
    if (in.Is(K_AUTHID) && specification)
      specification->SetAuthID(ParseRights(in));
    else
      SkipPackageClause(in);
  }
  package->SetPackageIsAs(in.Is(K_IS) ? REPPackageIsAs_e::Is : REPPackageIsAs_e::As);
  in.Next();
  package->SetPackageSpec(in.Copy(TakeCode(in)));
  return package;
}

// [WITH | WITHOUT] ARRAY DML; NotGiven when none comes.
REPCreateIndextype::DMLMode AcceptArrayDML(TokenStream& in) {
  if (in.Accept(K_ARRAY, K_DML)) return REPCreateIndextype::ArrayDML;
  if (in.Accept(K_WITH, K_ARRAY, K_DML)) return REPCreateIndextype::WithArrayDML;
  if (in.Accept(K_WITHOUT, K_ARRAY, K_DML)) return REPCreateIndextype::WithoutArrayDML;
  return REPCreateIndextype::NotGiven;
}

// operator (datatype [, datatype]...)
std::unique_ptr<REPIndextypeOper> ParseIndextypeOper(TokenStream& in) {
  auto oper = std::make_unique<REPIndextypeOper>();
  oper->SetName(ParseName(in).release());
  in.Expect('(');
  do oper->GetDatatypes().AddTail(ParseDatatype(in).release());
  while (in.Accept(','));
  in.Expect(')');
  return oper;
}

// (type [, varray type])
std::unique_ptr<REPIndextypeDML> ParseIndextypeDML(TokenStream& in) {
  auto types = std::make_unique<REPIndextypeDML>();
  in.Expect('(');
  types->SetName(ParseName(in).release());
  if (in.Accept(',')) types->SetType(ParseName(in).release());
  in.Expect(')');
  return types;
}

// WITH LOCAL [RANGE] PARTITION | WITH SYSTEM MANAGED STORAGE TABLES: newer options without a place
// in the index type
bool SkipIndextypeOption(TokenStream& in) {
  auto const& option = in.Peek();
  if (in.Accept(K_WITH, K_SYSTEM, K_MANAGED, K_STORAGE, K_TABLES)) {
    in.Note(option, "clause WITH SYSTEM MANAGED STORAGE TABLES is skipped");
    return true;
  }
  if (!in.Accept(K_WITH, K_LOCAL)) return false;
  in.Accept(K_RANGE);
  in.Expect(K_PARTITION);
  in.Note(option, "clause WITH LOCAL PARTITION is skipped");
  return true;
}

// The parameters of compiling that a statement keeps.
struct CompileParameter {
  Word word;
  void (REPCompileParams::*set)(char const*);
};
constexpr CompileParameter kCompileParameters[] = {
    {K_PLSQL_OPTIMIZE_LEVEL, &REPCompileParams::SetOptLevel},
    {K_PLSQL_CODE_TYPE, &REPCompileParams::SetCodeType},
    {K_PLSQL_DEBUG, &REPCompileParams::SetDebug},
    {K_PLSQL_WARNINGS, &REPCompileParams::SetWarnings},
    {K_NLS_LENGTH_SEMANTICS, &REPCompileParams::SetSemantics},
};

// parameter = value [, value]...
void ParseCompileParameter(TokenStream& in, CompileStatement& statement) {
  auto const& name = in.Next();
  in.Expect('=');
  auto const mark = in.Mark();
  do {
    if (in.AtEnd()) in.Fail("a value");
    in.Next();
  } while (in.Accept(','));
  for (auto const& parameter : kCompileParameters) {
    if (parameter.word != name.word) continue;
    if (!statement.GetCompileParams()) statement.SetCompileParams(new REPCompileParams);
    (statement.GetCompileParams()->*parameter.set)(in.Copy(in.TextSince(mark)));
    return;
  }
  in.Note(name, "parameter " + std::string(in.TextOf(name)) + " is skipped");
}

REPCompile_e PartOf(Word word) {
  switch (word) {
    case K_PACKAGE: return REPCompile_e::Package;
    case K_SPECIFICATION: return REPCompile_e::Specification;
    case K_BODY: return REPCompile_e::Body;
    default: return REPCompile_e::None;
  }
}

// ALTER kind name {COMPILE ... | EDITIONABLE | NONEDITIONABLE}
template <class Statement>
std::unique_ptr<REPStatement> ParseAlter(TokenStream& in, REPStatement_e type, Word kind,
                                         void (Statement::*set_name)(REPName*)) {
  auto statement = std::make_unique<Statement>();
  statement->SetStatementType(type);
  in.Expect(K_ALTER, kind);
  SkipIfExists(in);
  (statement.get()->*set_name)(ParseName(in).release());
  if (SkipAlterEditionable(in, kind)) return nullptr;
  in.Expect(K_COMPILE);
  REPAlterPackage* package = nullptr;
  if constexpr (std::is_same_v<Statement, REPAlterPackage>) package = statement.get();
  ParseCompile(in, *statement, package);
  return statement;
}

}  // namespace

bool SkipAlterEditionable(TokenStream& in, Word kind) {
  auto const& token = in.Peek();
  if (!in.Accept(K_EDITIONABLE) && !in.Accept(K_NONEDITIONABLE)) return false;
  in.Note(token, "ALTER " + std::string(TextOf(kind)) + " " + std::string(TextOf(token.word)) +
                     " is skipped");
  return true;
}

void ParseCompile(TokenStream& in, CompileStatement& statement, REPAlterPackage* package) {
  while (!in.AtEnd()) {
    auto const part = package ? PartOf(in.Peek().word) : REPCompile_e::None;
    if (in.Peek(1).punctuation == '=') {
      ParseCompileParameter(in, statement);
    } else if (in.Accept(K_DEBUG)) {
      statement.SetDebug(true);
    } else if (in.Accept(K_REUSE, K_SETTINGS)) {
      statement.SetReuseSettings(true);
    } else if (part != REPCompile_e::None) {
      package->SetCompile(part);
      in.Next();
    } else {
      in.Fail("an option of COMPILE");
    }
  }
}

// CREATE [OR REPLACE] PROCEDURE name code
std::unique_ptr<REPStatement> ParseCreateProcedure(TokenStream& in) {
  auto procedure = ParseHeader(in, REPStatement_e::CreateProcedure,
                               &REPCreateProcedure::SetProcedureName, K_PROCEDURE);
  procedure->SetProcedureText(in.Copy(TakeCode(in)));
  return procedure;
}

// CREATE [OR REPLACE] FUNCTION name code
std::unique_ptr<REPStatement> ParseCreateFunction(TokenStream& in) {
  auto function = ParseHeader(in, REPStatement_e::CreateFunction,
                              &REPCreateFunction::SetFunctionName, K_FUNCTION);
  function->SetFunctionText(in.Copy(TakeCode(in)));
  return function;
}

// CREATE [OR REPLACE] PACKAGE name [AUTHID {CURRENT_USER | DEFINER}] {IS | AS} code
std::unique_ptr<REPStatement> ParseCreatePackage(TokenStream& in) {
  auto package = ParseHeader<REPCreatePackage>(in, REPStatement_e::CreatePackage,
                                               &REPCreatePackage::SetPackageName, K_PACKAGE);
  auto* const specification = package.get();
  return ParsePackage(in, std::move(package), specification);
}

// CREATE [OR REPLACE] PACKAGE BODY name {IS | AS} code
std::unique_ptr<REPStatement> ParseCreatePackageBody(TokenStream& in) {
  return ParsePackage(in, ParseHeader<REPCreatePackageBody>(in, REPStatement_e::CreatePackageBody,
                                                            &REPCreatePackageBody::SetPackageName,
                                                            K_PACKAGE, K_BODY));
}

// CREATE [OR REPLACE] LIBRARY name {IS | AS} 'file' [IN directory] [AGENT 'link']
//   [CREDENTIAL name]
std::unique_ptr<REPStatement> ParseCreateLibrary(TokenStream& in) {
  auto library =
      ParseHeader(in, REPStatement_e::CreateLibrary, &REPCreateLibrary::SetLibraryName, K_LIBRARY);
  library->SetIsAs(in.Is(K_AS));
  if (!in.Accept(K_IS) && !in.Accept(K_AS)) in.Fail("IS or AS");
  library->SetFileName(ParseQuotedText(in).c_str());
  while (!in.AtEnd()) {
    auto const& clause = in.Peek();
    if (in.Accept(K_AGENT)) {
      library->SetAgentName(ParseQuotedText(in).c_str());
    } else if (in.Accept(K_IN) || in.Accept(K_CREDENTIAL)) {
      in.Note(clause, "clause " + std::string(TextOf(clause.word)) + " is skipped");
      ParseName(in);
    } else {
      in.Fail("AGENT");
    }
  }
  return library;
}

// CREATE [OR REPLACE] INDEXTYPE name FOR operator [, operator]... USING implementation
//   [[WITH | WITHOUT] ARRAY DML] [(types) [, (types)]...]
std::unique_ptr<REPStatement> ParseCreateIndextype(TokenStream& in) {
  auto indextype = ParseHeader(in, REPStatement_e::CreateIndextype,
                               &REPCreateIndextype::SetIndextype, K_INDEXTYPE);
  in.Expect(K_FOR);
  do indextype->GetOperators().AddTail(ParseIndextypeOper(in).release());
  while (in.Accept(','));
  in.Expect(K_USING);
  indextype->SetImplementation(ParseName(in).release());
  while (!in.AtEnd()) {
    if (auto const mode = AcceptArrayDML(in); mode != REPCreateIndextype::NotGiven) {
      indextype->SetDML(mode);
    } else if (in.Is('(')) {
      do indextype->GetDML().AddTail(ParseIndextypeDML(in).release());
      while (in.Accept(','));
    } else if (!SkipIndextypeOption(in)) {
      in.Fail("an option of the index type");
    }
  }
  return indextype;
}

std::unique_ptr<REPStatement> ParseAlterProcedure(TokenStream& in) {
  return ParseAlter(in, REPStatement_e::AlterProcedure, K_PROCEDURE,
                    &REPAlterProcedure::SetProcedureName);
}

std::unique_ptr<REPStatement> ParseAlterFunction(TokenStream& in) {
  return ParseAlter(in, REPStatement_e::AlterFunction, K_FUNCTION,
                    &REPAlterFunction::SetFunctionName);
}

std::unique_ptr<REPStatement> ParseAlterPackage(TokenStream& in) {
  return ParseAlter(in, REPStatement_e::AlterPackage, K_PACKAGE, &REPAlterPackage::SetPackageName);
}

}  // namespace repora::reader
