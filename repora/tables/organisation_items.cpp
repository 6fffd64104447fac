#include "repora/tables/organisation_items.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/item.h"

namespace repora {
namespace {

std::uint32_t FindColumn(REPProcessor& processor, MOXActionSummaryItem const& item,
                         REPName const& name, REPMessage missing) {
  auto const column = processor.FindItem(item.Id(), ORVTypes::oAttribute, &name);
  if (column == 0)
    processor.DisplaySemantic(missing, name.GetFullName(false),
                              processor.GetObjectDisplayString(item.Type()), item.Name());
  return column;
}

}  // namespace

std::uint32_t FindIncludingColumn(REPProcessor& processor, MOXActionSummaryItem const& item,
                                  REPName const& name) {
  return FindColumn(processor, item, name, REPMessage::IncludingColumnMissing);
}

std::uint32_t FindCluster(REPProcessor& processor, REPName const& name) {
  auto const root = processor.GetRoot();
  auto const known = processor.FindItem(root, ORVTypes::oOracleCluster, &name);
  if (known != 0) return known;
  auto const made = processor.FindCreateItem(root, ORVTypes::oOracleCluster, &name);
  if (auto* const cluster = processor.FindSummaryPtrById(made))
    SetTextIfGiven(*cluster, ORVTypes::pDBOwner, name.GetOwnerName(false));
  return made;
}

bool FindClusterColumns(REPProcessor& processor, MOXActionSummaryItem const& item,
                        REPNameList const& names, std::vector<std::uint32_t>& ids) {
  for (int i = 0; i < names.GetCount(); ++i) {
    auto const column =
        FindColumn(processor, item, *names.GetName(i), REPMessage::ClusterColumnMissing);
    if (column == 0) return false;
    ids.push_back(column);
  }
  return true;
}

}  // namespace repora
