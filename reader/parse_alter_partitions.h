#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/tables/alter_partitions.h"

namespace repora::reader {

// {ADD | DROP | MODIFY | MOVE | SPLIT | other verb} [SUB]PARTITION ..., MODIFY DEFAULT ATTRIBUTES
// ... or SET SUBPARTITION TEMPLATE ..., read into the clause that its statement takes in the end; a
// second one is noted. False when none comes.
bool ParseAlterPartitions(TokenStream& in, std::unique_ptr<REPAlterTablePartitioning>& change);

}  // namespace repora::reader
