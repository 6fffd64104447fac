#pragma once

#include <memory>
#include <string>

#include "reader/token_stream.h"
#include "repora/database/file_specs.h"
#include "repora/database/tablespace_options.h"

namespace repora::reader {

// 'file', as the script wrote it between the quotes; a substitution variable without a value
// stands for a name as well.
std::string ParseFileName(TokenStream& in);

// AUTOEXTEND {OFF | ON [NEXT size] [MAXSIZE size]}
REPAutoExtendClause ParseAutoExtend(TokenStream& in);

// ['file' | ( 'file' [, 'file']... )] [SIZE size] [REUSE] [AUTOEXTEND ...]; nothing of it must be
// there, for the server can choose it all.
std::unique_ptr<REPFileSpec> ParseFileSpec(TokenStream& in);

// file [, file]... | ( file [, file]... )
std::unique_ptr<REPFileSpecList> ParseFileSpecList(TokenStream& in);

// The same for DATAFILE, behind its keyword.
std::unique_ptr<REPDataFileClause> ParseDataFiles(TokenStream& in);

// EXTENT MANAGEMENT {DICTIONARY | LOCAL [AUTOALLOCATE | UNIFORM [SIZE size]]}
REPExtentMgmtClause ParseExtentManagement(TokenStream& in);

}  // namespace repora::reader
