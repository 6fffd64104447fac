#pragma once

#include <memory>
#include <vector>

#include "reader/token_stream.h"
#include "repora/tables/object_columns.h"
#include "repora/tables/table_column_props.h"

namespace repora::reader {

using ColumnProperties = std::vector<std::unique_ptr<REPTableColumnProp>>;

// LOCATOR | VALUE
REPReturnAs_e ParseReturnAs(TokenStream& in);

// VARRAY item [substitutable] [STORE AS [SECUREFILE | BASICFILE] LOB [segment] [( parameter... )]]
std::unique_ptr<REPVarrayColumnProps> ParseVarrayProperties(TokenStream& in);

// Whether a column property comes.
bool StartsColumnProperty(TokenStream const& in);

// {LOB storage [partitions] | VARRAY ... [partitions] | NESTED TABLE ... | COLUMN name ... |
// XMLTYPE ...}..., with "," between them or not. Those of XMLTYPE are skipped with a note. False
// when none comes.
bool ParseColumnProperties(TokenStream& in, ColumnProperties& properties);

}  // namespace repora::reader
