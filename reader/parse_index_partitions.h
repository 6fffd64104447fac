#pragma once

#include <memory>
#include <string>

#include "reader/token_stream.h"
#include "repora/tables/index_partitions.h"
#include "repora/tables/update_indexes.h"

namespace repora::reader {

// LOCAL [STORE IN (...)] [(partitions)]; null when none comes.
std::unique_ptr<REPLocalPartitionedIndexClause> ParseLocalPartitions(TokenStream& in);

// GLOBAL PARTITION BY {RANGE | HASH} (columns) ...; null when none comes.
std::unique_ptr<REPGlobalPartitionedIndexClause> ParseGlobalPartitions(TokenStream& in);

// {UPDATE | INVALIDATE} GLOBAL INDEXES | UPDATE INDEXES [(index [(partitions)], ...)]; null when
// none comes.
std::unique_ptr<REPUpdateIndexClause> ParseUpdateIndexes(TokenStream& in);

// The segment attributes and the compression of a partition of an index.
struct IndexPartitionOptions {
  std::unique_ptr<REPSegmentAttributesClause> segment;  // null: none given
  REPCompress_e compression = REPCompress_e::None;
  std::string compression_size;
};

// One attribute of the segment, COMPRESS or NOCOMPRESS, or a newer property, which is skipped;
// false when none comes.
bool ParseIndexPartitionOption(TokenStream& in, IndexPartitionOptions& options);

// The name behind PARTITION or SUBPARTITION; null when what follows it comes instead.
std::unique_ptr<REPName> ParseIndexPartitionName(TokenStream& in);

}  // namespace repora::reader
