#include "repora/queries/view_columns.h"

#include "repora/core/processor.h"
#include "repora/model/item.h"
#include "repora/queries/query_clauses.h"
#include "repora/queries/select.h"
#include "repora/queries/view_writer.h"

namespace repora {
namespace {

void Warn(ViewOfQuery const& view, REPMessage message) {
  view.processor.DisplayWarning(message, view.processor.GetObjectDisplayString(view.item.Type()),
                                AsWritten(view.name));
}

}  // namespace

bool KeepSqlIfUnmapped(ViewOfQuery const& view, REPSelect const& query,
                       REPStatement const& statement) {
  bool const unmapped = query.IsUnionOrJoin();
  if (!unmapped && !query.ContainsWildcard()) return false;
  Warn(view, unmapped ? REPMessage::ImportedAsUserSql : REPMessage::ImportedAsUserSqlWildcard);
  ViewWriter(view.processor, view.item, view.replace)
      .Text(ORVTypes::pViewSQL, statement.AsString());
  return true;
}

REPProcess_e MakeViewColumns(ViewOfQuery const& view, REPSelect& query) {
  if (auto const result = query.ProcessColsForView(&view.processor, &view.item, view.replace);
      result != REPProcessOK)
    return result;
  ViewWriter const writer(view.processor, view.item, view.replace);
  writer.TextIfGiven(ORVTypes::pViewWhere, query.GetWhereString());
  if (auto const* const hierarchy = query.GetHierQuery()) {
    if (auto const result = hierarchy->Process(&view.processor, &view.item, view.replace);
        result != REPProcessOK)
      return result;
  }
  writer.TextIfGiven(ORVTypes::pViewGroupBy, query.GetGroupByString());
  writer.TextIfGiven(ORVTypes::pViewHaving, query.GetHavingString());
  writer.TextIfGiven(ORVTypes::pViewOrderBy, query.GetOrderByString());
  return REPProcessOK;
}

MOXActionSummaryItem* FindViewColumn(REPProcessor const& processor,
                                     MOXActionSummaryItem const& view, int position) {
  auto const column = processor.GetViewColumnsColInPos(view.Id(), position);
  return column != 0 ? processor.FindSummaryPtrById(column) : nullptr;
}

bool AliasesFit(ViewOfQuery const& view, int count) {
  if (count == view.processor.GetViewColumnsColCount(view.item.Id())) return true;
  Warn(view, REPMessage::ColumnCountDiffers);
  return false;
}

void RenameByAlias(REPProcessor& processor, MOXActionSummaryItem const& view,
                   REPName const* view_name, REPName const* alias, MOXActionSummaryItem& column) {
  if (processor.AliasNameListAdd(alias) == REPProcessOK)
    processor.RenameItem(&column, alias);
  else
    processor.DisplayWarning(REPMessage::DuplicateAlias, AsWritten(alias),
                             processor.GetObjectDisplayString(view.Type()), AsWritten(view_name));
}

void WarnOfFlashback(ViewOfQuery const& view, REPSelect const& query) {
  if (query.ContainsFlashbackQuery()) Warn(view, REPMessage::FlashbackUnsupported);
}

}  // namespace repora
