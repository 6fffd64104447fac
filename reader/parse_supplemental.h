#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/tables/supplemental_logging.h"

namespace repora::reader {

// Whether SUPPLEMENTAL LOG comes.
bool IsSupplementalLogging(TokenStream const& in);

// SUPPLEMENTAL LOG {GROUP name [( column [NO LOG] [, ...] ) [ALWAYS]] | DATA ( key [, ...] )
// COLUMNS}; null, noted, for other data.
std::unique_ptr<REPSuppLogProps> ParseSupplementalLogging(TokenStream& in);

}  // namespace repora::reader
