#pragma once

#include <memory>
#include <string>

#include "reader/token_stream.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"

namespace repora::reader {

// n [K | M | G | T] | UNLIMITED | NULL
REPSizeClause ParseSize(TokenStream& in);

// STORAGE ( option... )
REPStorageClause ParseStorageClause(TokenStream& in);

// One of PCTFREE n | PCTUSED n | INITRANS n | MAXTRANS n | storage_clause; false when none comes.
bool ParsePhysicalAttribute(TokenStream& in, REPPhysicalAttrClause& attributes);

// [TABLESPACE SET name], the tablespaces of a sharded table, which is skipped; false when none
// comes.
bool SkipTablespaceSet(TokenStream& in);

// Whether a word starts what ParseSegmentAttribute takes.
bool StartsSegmentAttribute(Word word);

// One of a physical attribute | TABLESPACE name | LOGGING | NOLOGGING; false when none comes.
bool ParseSegmentAttribute(TokenStream& in, REPSegmentAttributesClause& segment);

// NOPARALLEL | PARALLEL [n | ( [DEGREE n] [INSTANCES n] )]; null when none comes.
std::unique_ptr<REPParallelClause> ParseParallel(TokenStream& in);

// What COMPRESS or NOCOMPRESS says.
struct Compression {
  REPCompress_e compress = REPCompress_e::None;
  std::string_view size;  // the prefix length of COMPRESS n
};

// COMPRESS [n] | NOCOMPRESS; nothing when none comes.
Compression ParseCompression(TokenStream& in);

// [BASIC | ADVANCED [LOW | HIGH] | FOR kind [LOW | HIGH | OPERATIONS]] [[NO] ROW LEVEL LOCKING],
// behind the COMPRESS of a table or partition: the kind is skipped.
void SkipKindOfCompression(TokenStream& in);

// [READS], behind CACHE
REPCache_e ParseCache(TokenStream& in);

// What PARALLEL or NOPARALLEL says to a statement that keeps the degree apart.
struct Parallel {
  REPParallel_e parallel = REPParallel_e::None;  // ParallelDegree with a degree
  std::string degree;
};

// NOPARALLEL | PARALLEL [n | ( [DEGREE n] [INSTANCES n] )]; nothing when none comes.
Parallel ParseParallelDegree(TokenStream& in);

// Notes a MAXTRANS that stands alone in a statement: segments follow what their statement renders,
// and MAXTRANS is not rendered.
void NoteMaxTransAlone(TokenStream& in, Token const& statement,
                       REPPhysicalAttrClause const& attributes);

// ALLOCATE EXTENT [( [SIZE size] [DATAFILE 'file'] [INSTANCE n] )]
std::unique_ptr<REPAllocExtentClause> ParseAllocateExtent(TokenStream& in);

// DEALLOCATE UNUSED [KEEP size]
std::unique_ptr<REPDeallocateUnusedClause> ParseDeallocateUnused(TokenStream& in);

// SHRINK SPACE [COMPACT] [CASCADE]
REPShrink_e ParseShrink(TokenStream& in);

}  // namespace repora::reader
