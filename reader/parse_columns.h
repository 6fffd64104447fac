#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/tables/columns.h"

namespace repora::reader {

// One column of a table, up to what does not belong to it.
std::unique_ptr<REPRelTableColumn> ParseColumn(TokenStream& in);

// A period among the columns of a table: skipped with a note. False when none comes.
bool SkipPeriod(TokenStream& in);

// A domain of several columns in the place of a column: skipped with a note. False when none comes.
bool SkipDomain(TokenStream& in);

}  // namespace repora::reader
