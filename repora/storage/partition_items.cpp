#include "repora/storage/partition_items.h"

#include <algorithm>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace repora {
namespace {

// A column of a materialized view by its text as written; 0 when there is none.
std::uint32_t FindViewColumn(REPProcessor const& processor, MOXActionSummaryItem const& view,
                             REPName const& name) {
  std::vector<MOXActionSummaryItem*> columns;
  processor.FindSummaryChildrenByType(view.Id(), ORVTypes::oAttribute, columns);
  auto const text = name.AsString(false);
  auto const found =
      std::find_if(columns.begin(), columns.end(),
                   [&text](MOXActionSummaryItem const* column) { return text == column->Name(); });
  return found == columns.end() ? 0 : (*found)->Id();
}

}  // namespace

MOXActionSummaryItem* AddPartitionItem(REPProcessor& processor, MOXActionSummaryItem const& owner,
                                       MOXId type, REPName const* name, REPMessage duplicate) {
  if (!IsGiven(name)) return processor.CreateItem(owner.Id(), type, nullptr);
  MOXActionSummaryItem* item = nullptr;
  if (processor.AddItem(owner.Id(), type, name, item) == REPProcessOK) return item;
  processor.DisplayWarning(duplicate, name->GetFullName(false));
  return nullptr;
}

MOXActionSummaryItem* FindOrAddNamesake(REPProcessor& processor, MOXActionSummaryItem const& owner,
                                        MOXId type) {
  REPName name;
  name.AddTail(owner.Name());
  MOXActionSummaryItem* item = nullptr;
  // An item that the owner has already is as good as a new one.
  processor.AddItem(owner.Id(), type, &name, item);
  return item;
}

bool FindColumn(REPProcessor& processor, MOXActionSummaryItem const& column_owner,
                REPName const* name, ColumnUse use, std::uint32_t& id) {
  if (!name) return false;
  bool const by_text =
      use == ColumnUse::CompositeKey && column_owner.Type() == ORVTypes::oCachedView;
  id = by_text ? FindViewColumn(processor, column_owner, *name)
               : processor.FindItem(column_owner.Id(), ORVTypes::oAttribute, name);
  if (id != 0) return true;
  auto const owner_type = processor.GetObjectDisplayString(
      use == ColumnUse::Key ? ORVTypes::oEntity : column_owner.Type());
  auto const column_type = processor.GetObjectDisplayString(ORVTypes::oAttribute);
  auto const column = name->GetFullName(false);
  if (use == ColumnUse::Lob)
    processor.DisplaySemantic(REPMessage::TargetMissing, owner_type, column_owner.Name(),
                              column_type, column);
  else
    processor.DisplayWarning(REPMessage::TargetMissing, owner_type, column_owner.Name(),
                             column_type, column);
  return false;
}

bool FindColumns(REPProcessor& processor, MOXActionSummaryItem const& column_owner,
                 REPNameList const& names, ColumnUse use, std::vector<std::uint32_t>& ids) {
  for (int i = 0; i < names.GetCount(); ++i) {
    std::uint32_t id = 0;
    if (!FindColumn(processor, column_owner, names.GetName(i), use, id)) return false;
    ids.push_back(id);
  }
  return true;
}

std::uint32_t FindTablespace(REPProcessor& processor, REPName const* name) {
  return processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleTablespace, name);
}

void SetTablespaces(REPProcessor& processor, MOXActionSummaryItem& item, MOXId property,
                    REPNameList const& names) {
  std::vector<std::uint32_t> ids;
  for (int i = 0; i < names.GetCount(); ++i)
    ids.push_back(FindTablespace(processor, names.GetName(i)));
  SetReferences(item, property, ids);
}

MOXActionSummaryItem* Partitioning::Find(REPProcessor const& processor, REPName const* name) const {
  return item && IsGiven(name) ? processor.FindItemPtr(item->Id(), partition_type, name) : nullptr;
}

Partitioning FindPartitioning(REPProcessor const& processor, MOXActionSummaryItem const& table) {
  Partitioning partitioning;
  auto const* const type = table.Properties().Find(ORVTypes::pOraclePartitionType);
  if (!type) return partitioning;
  partitioning.type = type->Integer();
  MOXId item_type = 0;
  switch (partitioning.type) {
    case codes::kRangePartitioning:
      item_type = ORVTypes::oOracleRangePartition;
      partitioning.partition_type = ORVTypes::oOracleRangePartitionInfo;
      break;
    case codes::kListPartitioning:
      item_type = ORVTypes::oOracleListPartition;
      partitioning.partition_type = ORVTypes::oOracleListPartitionInfo;
      break;
    case codes::kHashPartitioning:
      item_type = ORVTypes::oOracleHashPartition;
      partitioning.partition_type = ORVTypes::oOracleIndividualHashPartition;
      break;
    case codes::kCompositePartitioning:
      item_type = ORVTypes::oOracleCompositePartition;
      partitioning.partition_type = ORVTypes::oOracleRangePartitionInfo;
      break;
    default: return partitioning;
  }
  partitioning.item = processor.FindItemPtr(table.Id(), item_type);
  return partitioning;
}

REPProcess_e FailAlterPartitioning(REPProcessor& processor, MOXActionSummaryItem const& table) {
  processor.DisplayWarning(REPMessage::AlterPartitioningFailed,
                           processor.GetObjectDisplayString(ORVTypes::oEntity), table.Name());
  return REPProcessError;
}

}  // namespace repora
