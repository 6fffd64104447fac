#pragma once

#include <cstdint>
#include <string_view>

#include "reader/token_stream.h"

// Clauses for which the model has no place. Their grammar is known all the same, so that what
// follows one is read as what it is, and one clause has one note.
namespace repora::reader {

// Where a clause may stand.
enum class ClausePlace : std::uint16_t {
  Table = 1,
  AlterTable = 2,
  Partition = 4,
  Column = 8,
  Index = 16,
  View = 32,
  AlterView = 64,
  MaterializedView = 128,
  MaterializedViewLog = 256,
  TablespaceDefaults = 512,
  User = 1024,
};

// Takes a clause that may stand there, noted as "clause X is skipped"; false when none comes that
// is known.
bool SkipClause(TokenStream& in, ClausePlace place);

// Whether such a clause comes.
bool StartsSkippedClause(TokenStream& in, ClausePlace place);

// [COMPRESS ... | NOCOMPRESS | {ROW | COLUMN} STORE COMPRESS ...], which is not noted; false when
// none comes.
bool TakeCompression(TokenStream& in);

// [( option... ) | option...] of an identity column, with parentheses or as the database prints
// them; not noted.
void TakeIdentityOptions(TokenStream& in);

// [STORE ...] [XMLSCHEMA ...] [ELEMENT ...] ..., of an XMLTYPE column or table; not noted either.
void TakeXmlTypeStorage(TokenStream& in);

}  // namespace repora::reader
