#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/tables/datatype.h"

namespace repora::reader {

// A datatype of SQL, or the name of one that a user defined.
std::unique_ptr<REPDatatype> ParseDatatype(TokenStream& in);

}  // namespace repora::reader
