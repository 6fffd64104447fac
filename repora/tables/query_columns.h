#pragma once

#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPName;
class REPProcessor;
class REPRelTableColumnList;
class REPSelect;

// The columns of CREATE TABLE ... AS query. They take datatype, null option and sorting from what
// they are copies of.
namespace repora {

// Columns that the statement names, one for each of the query; their own datatypes do not count.
REPProcess_e MakeNamedColumns(REPProcessor& processor, MOXActionSummaryItem& table,
                              REPName const* table_name, REPSelect& query,
                              REPRelTableColumnList const& columns);

// Columns that are named as in the query.
REPProcess_e MakeQueryColumns(REPProcessor& processor, MOXActionSummaryItem& table,
                              REPName const* table_name, REPSelect& query);

}  // namespace repora
