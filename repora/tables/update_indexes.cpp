#include "repora/tables/update_indexes.h"

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"

namespace codes = repora::codes;

using repora::SqlText;
using repora::TextOf;

namespace {

// Whether the item has the property with that value.
bool Is(MOXActionSummaryItem const& item, MOXId property, std::int32_t number) {
  auto const* const value = item.Properties().Find(property);
  return value && QELValue::HasValue(*value) && value->Integer() == number;
}

}  // namespace

REPProcess_e REPUpdateIndexPartition::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* key_group) const {
  if (!processor || !key_group) return REPProcessError;
  if (Exists(*processor, *key_group))
    return description_ ? description_->Process(processor, key_group) : REPProcessOK;
  auto const* const table = processor->FindSummaryPtrById(key_group->Owner());
  return table ? repora::FailAlterPartitioning(*processor, *table) : REPProcessError;
}

bool REPUpdateIndexPartition::Exists(REPProcessor const& processor,
                                     MOXActionSummaryItem const& key_group) const {
  if (!Is(key_group, ORVTypes::pOracleIndexPartitionType, codes::kIndexPartitionGlobal))
    return false;
  auto const* const global =
      processor.FindItemPtr(key_group.Id(), ORVTypes::oOracleIndexGlobalPartition);
  if (!global) return false;
  MOXId type = 0;
  if (Is(*global, ORVTypes::pOracleIndexGlobalPartitionType, codes::kGlobalPartitionRange))
    type = ORVTypes::oOracleRangePartitionInfo;
  else if (Is(*global, ORVTypes::pOracleIndexGlobalPartitionType, codes::kGlobalPartitionHash))
    type = ORVTypes::oOracleIndividualHashPartition;
  else
    return false;
  return processor.FindItem(global->Id(), type, name_.Get()) != 0;
}

std::string REPUpdateIndexPartition::AsString() const {
  if (description_ && description_->GetPartitionName()) return description_->AsString();
  return SqlText("PARTITION").Clause(" ", name_.Get()).Take();
}

REPProcess_e REPUpdateIndexPartitionList::Process(REPProcessor* processor,
                                                  MOXActionSummaryItem* key_group) const {
  return clauses_.ProcessAll([&](REPUpdateIndexPartition const& partition) {
    return partition.Process(processor, key_group);
  });
}

std::string REPUpdateIndexPartitionList::AsString() const {
  return clauses_.Join(
      ", ", true, [](REPUpdateIndexPartition const& partition) { return partition.AsString(); });
}

std::string REPUpdateIndexSubpartition::AsString() const {
  return SqlText("SUBPARTITION")
      .Clause(" ", name_.Get())
      .Clause(" TABLESPACE ", tablespace_.Get())
      .Take();
}

std::string REPUpdateIndexSubpartitionList::AsString() const {
  return clauses_.Join(", ", true, [](REPUpdateIndexSubpartition const& subpartition) {
    return subpartition.AsString();
  });
}

REPProcess_e REPUpdateIndex::Process(REPProcessor* processor, MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  auto* const key_group = processor->FindItemPtr(table->Id(), ORVTypes::oKeyGroup, name_.Get());
  if (!key_group) return repora::FailAlterPartitioning(*processor, *table);
  if (partitions_) {
    if (auto const result = partitions_->Process(processor, key_group); result != REPProcessOK)
      return result;
  }
  if (!subpartitions_) return REPProcessOK;
  processor->DisplayWarning(REPMessage::AlterTableOptionUnsupported,
                            repora::MessageText(REPMessage::WordPartitionUpdateIndex),
                            table->Name());
  return REPProcessError;
}

std::string REPUpdateIndex::AsString() const {
  return SqlText()
      .Name(name_.Get())
      .Option(TextOf(partitions_.Get()))
      .Option(TextOf(subpartitions_.Get()))
      .Take();
}

REPProcess_e REPUpdateIndexList::Process(REPProcessor* processor,
                                         MOXActionSummaryItem* table) const {
  return clauses_.ProcessAll(
      [&](REPUpdateIndex const& index) { return index.Process(processor, table); });
}

std::string REPUpdateIndexList::AsString() const {
  return clauses_.Join(", ", true, [](REPUpdateIndex const& index) { return index.AsString(); });
}

REPProcess_e REPUpdateIndexClause::Process(REPProcessor* processor,
                                           MOXActionSummaryItem* table) const {
  return indexes_ ? indexes_->Process(processor, table) : REPProcessOK;
}

std::string REPUpdateIndexClause::AsString() const {
  switch (kind_) {
    case REPUpdateIndexes_e::None: break;
    case REPUpdateIndexes_e::UpdateGlobal: return "UPDATE GLOBAL INDEXES";
    case REPUpdateIndexes_e::InvalidateGlobal: return "INVALIDATE GLOBAL INDEXES";
    case REPUpdateIndexes_e::Update:
      return SqlText("UPDATE INDEXES").Option(TextOf(indexes_.Get())).Take();
  }
  return {};
}
