#pragma once

#include "repora/core/name.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;
class REPSelect;

// What views and materialized views make of their query once its tables were found.
namespace repora {

// A view, the name that its statement gives it, and whether it replaces an earlier definition.
struct ViewOfQuery {
  REPProcessor& processor;
  MOXActionSummaryItem& item;
  REPName const* name;
  bool replace;
};

// Keeps the SQL of the statement, with a warning, when its query cannot be mapped column by column;
// false when it can.
bool KeepSqlIfUnmapped(ViewOfQuery const& view, REPSelect const& query,
                       REPStatement const& statement);

// The columns of the view, and the texts of the clauses of its query.
REPProcess_e MakeViewColumns(ViewOfQuery const& view, REPSelect& query);

// The column at a position; null when there is none.
MOXActionSummaryItem* FindViewColumn(REPProcessor const& processor,
                                     MOXActionSummaryItem const& view, int position);

// Whether the view has as many columns as it has aliases; warns when not.
bool AliasesFit(ViewOfQuery const& view, int count);

// Renames a column by its alias. An alias that the list of the run has already leaves the column
// its name, with a warning; so does, without one, a name that another column has.
void RenameByAlias(REPProcessor& processor, MOXActionSummaryItem const& view,
                   REPName const* view_name, REPName const* alias, MOXActionSummaryItem& column);

// Warns of a flashback clause in the FROM list.
void WarnOfFlashback(ViewOfQuery const& view, REPSelect const& query);

}  // namespace repora
