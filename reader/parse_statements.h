#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/core/statement.h"

// One function per kind of statement: reads it from its first word to its end, or throws a
// SyntaxError. Null when all of it was skipped with notes. Which words lead to which function is
// said in statement_kinds.cpp.
namespace repora::reader {

using ParseFunction = std::unique_ptr<REPStatement> (*)(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateTable(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterTable(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateIndex(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterIndex(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateTablespace(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterTablespace(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateDatabase(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterDatabase(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateControlfile(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreatePFile(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateSPFile(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateCluster(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterCluster(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateRollbackSegment(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterRollbackSegment(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateDiskgroup(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterDiskgroup(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateView(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterView(TokenStream& in);

// Of SNAPSHOT too, the older word for a materialized view.
std::unique_ptr<REPStatement> ParseCreateMaterializedView(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterMaterializedView(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateMaterializedViewLog(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterMaterializedViewLog(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateSequence(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterSequence(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateSynonym(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateTrigger(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterTrigger(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateProcedure(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateFunction(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreatePackage(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreatePackageBody(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateLibrary(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateIndextype(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterProcedure(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterFunction(TokenStream& in);
std::unique_ptr<REPStatement> ParseAlterPackage(TokenStream& in);
// Java, types, dimensions, operators, outlines and schemas, and ALTER of an indextype, user or
// profile.
std::unique_ptr<REPStatement> ParseUnsupported(TokenStream& in);

std::unique_ptr<REPStatement> ParseCreateUser(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateRole(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateProfile(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateContext(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateDirectory(TokenStream& in);
std::unique_ptr<REPStatement> ParseCreateDatabaseLink(TokenStream& in);
std::unique_ptr<REPStatement> ParseComment(TokenStream& in);

}  // namespace repora::reader
