#pragma once

#include <memory>

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

// ALLOCATE EXTENT [( [SIZE size] [DATAFILE 'file'] [INSTANCE n] )]
std::unique_ptr<REPAllocExtentClause> ParseAllocateExtent(TokenStream& in);

// DEALLOCATE UNUSED [KEEP size]
std::unique_ptr<REPDeallocateUnusedClause> ParseDeallocateUnused(TokenStream& in);

// SHRINK SPACE [COMPACT] [CASCADE]
REPShrink_e ParseShrink(TokenStream& in);

}  // namespace repora::reader
