#pragma once

#include "reader/token_stream.h"
#include "repora/tables/alter_table.h"

namespace repora::reader {

// {ADD | DROP | MODIFY | MOVE | SPLIT | other verb} [SUB]PARTITION ..., MODIFY DEFAULT ATTRIBUTES
// ... or SET SUBPARTITION TEMPLATE ..., read into the statement; false when none comes.
bool ParseAlterPartitions(TokenStream& in, REPAlterTable& table);

}  // namespace repora::reader
