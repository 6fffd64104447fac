#include "repora/storage/lob_partitions.h"

#include "repora/core/processor.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"

using repora::SqlText;

REPProcess_e REPLOBSubPartition::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                         MOXActionSummaryItem* description) const {
  if (!processor || !table || !description) return REPProcessError;
  auto* subpartition =
      processor->FindItemPtr(description->Id(), ORVTypes::oOracleSubpartitionSpec, name_.Get());
  if (!subpartition) {
    if (auto const result = processor->AddItem(description->Id(), ORVTypes::oOracleSubpartitionSpec,
                                               name_.Get(), subpartition);
        result != REPProcessOK)
      return result;
  }
  if (lob_storages_.GetCount() == 0) return REPProcessOK;
  auto* const storage =
      repora::FindOrAddNamesake(*processor, *subpartition, ORVTypes::oOraclePartitioningStorage);
  return storage ? lob_storages_.Process(processor, storage, table) : REPProcessError;
}

std::string REPLOBSubPartition::AsString() const {
  return SqlText(" SUBPARTITION ")
      .Name(name_.Get())
      .Option(lob_storages_.AsString())
      .Option(varrays_.AsString())
      .Take();
}

REPProcess_e REPLOBSubPartitionList::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             MOXActionSummaryItem* description) const {
  return clauses_.ProcessAll([&](REPLOBSubPartition const& subpartition) {
    return subpartition.Process(processor, table, description);
  });
}

std::string REPLOBSubPartitionList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}

REPProcess_e REPLOBPartition::Process(REPProcessor* processor, MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  auto const* const partition =
      repora::FindPartitioning(*processor, *table).Find(*processor, name_.Get());
  if (!partition) return repora::FailAlterPartitioning(*processor, *table);
  auto* const description =
      repora::FindOrAddNamesake(*processor, *partition, ORVTypes::oOraclePartitionDescription);
  if (!description) return REPProcessError;
  if (auto const result = lob_storages_.Process(processor, description, table);
      result != REPProcessOK)
    return result;
  return subpartitions_ ? subpartitions_->Process(processor, table, description) : REPProcessOK;
}

std::string REPLOBPartition::AsString() const {
  SqlText sql("PARTITION ");
  sql.Name(name_.Get()).Option(lob_storages_.AsString()).Option(varrays_.AsString());
  if (subpartitions_) sql.Append(subpartitions_->AsString(true));
  return sql.Take();
}

REPProcess_e REPLOBPartitionList::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* table) const {
  return clauses_.ProcessAll(
      [&](REPLOBPartition const& partition) { return partition.Process(processor, table); });
}

std::string REPLOBPartitionList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}
