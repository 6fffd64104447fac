#pragma once

#include <memory>
#include <string>

#include "reader/parse_storage.h"
#include "reader/token_stream.h"
#include "repora/tables/indexes.h"

namespace repora::reader {

// From CREATE up to what does not belong to an index, which may be a part of another statement.
std::unique_ptr<REPCreateIndex> ParseCreateIndexClause(TokenStream& in);

// The properties of an index in any order, up to what is none; null when none comes.
std::unique_ptr<REPIndexPropertiesClause> ParseIndexProperties(TokenStream& in);

// COMPRESS [n | ADVANCED [LOW | HIGH]] | NOCOMPRESS; nothing when none comes. The kind is skipped.
Compression ParseIndexCompression(TokenStream& in);

// PARAMETERS ('text') as the text that one in plain quotes holds, without these.
std::string ParseIndexParameters(TokenStream& in);

}  // namespace repora::reader
