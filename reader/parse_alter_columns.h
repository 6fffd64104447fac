#pragma once

#include "reader/token_stream.h"
#include "repora/tables/alter_table.h"

// The clauses of ALTER TABLE that change columns and constraints. Each is read from its keyword
// into the statement; what the statement has no place for is skipped with a note.
namespace repora::reader {

void ParseAlterAdd(TokenStream& in, REPAlterTable& table);
void ParseAlterModify(TokenStream& in, REPAlterTable& table);
void ParseAlterDrop(TokenStream& in, REPAlterTable& table);
void ParseAlterRename(TokenStream& in, REPAlterTable& table);
void ParseSetUnused(TokenStream& in, REPAlterTable& table);
void ParseAlterEnable(TokenStream& in, REPAlterTable& table);

// The properties of the table, made when they are first needed.
REPAlterTableProps& PropertiesOf(REPAlterTable& table);

// Whether a word starts a clause, and so ends the one before.
bool StartsAlterClause(Word word);

// Takes the rest of a clause, up to the word that starts another.
void SkipAlterClause(TokenStream& in);

}  // namespace repora::reader
