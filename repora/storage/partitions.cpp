#include "repora/storage/partitions.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/compression.h"
#include "repora/storage/partition_items.h"

namespace codes = repora::codes;

namespace {

// Adds a partition with its values and, when given, its description.
template <class Values>
REPProcess_e AddPartition(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                          MOXActionSummaryItem* column_owner, MOXId type, REPName const* name,
                          Values const* values, REPTablePartDesc const* description) {
  if (!processor || !partitioning) return REPProcessError;
  auto* const partition = repora::AddPartitionItem(*processor, *partitioning, type, name,
                                                   REPMessage::DuplicatePartition);
  if (!partition) return REPProcessError;
  if (values) {
    if (auto const result = values->Process(partition); result != REPProcessOK) return result;
  }
  return description ? description->Process(processor, partition, column_owner) : REPProcessOK;
}

// What a method is in the model; 0 for none and for unknown ones.
std::int32_t CodeOf(REPPartition_e type) {
  switch (type) {
    case REPPartition_e::None: break;
    case REPPartition_e::Range: return codes::kRangePartitioning;
    case REPPartition_e::Hash: return codes::kHashPartitioning;
    case REPPartition_e::List: return codes::kListPartitioning;
    case REPPartition_e::Composite: return codes::kCompositePartitioning;
  }
  return 0;
}

MOXId ItemTypeOf(std::int32_t partitioning) {
  switch (partitioning) {
    case codes::kRangePartitioning: return ORVTypes::oOracleRangePartition;
    case codes::kListPartitioning: return ORVTypes::oOracleListPartition;
    case codes::kHashPartitioning: return ORVTypes::oOracleHashPartition;
    default: return ORVTypes::oOracleCompositePartition;
  }
}

}  // namespace

REPProcess_e REPTablePartDesc::Process(REPProcessor* processor, MOXActionSummaryItem* partition,
                                       MOXActionSummaryItem* column_owner) const {
  if (!processor || !partition) return REPProcessError;
  auto* const description =
      repora::FindOrAddNamesake(*processor, *partition, ORVTypes::oOraclePartitionDescription);
  if (!description) return REPProcessError;
  if (segment_) {
    auto const* const storage = segment_->Process(processor, description, codes::kRegularStorage);
    if (storage)
      repora::SetReference(*description, ORVTypes::pOracleRegularStorageRef, storage->Id());
  }
  repora::SetBoolean(*description, ORVTypes::pIndexOverflow, overflow_);
  if (overflow_segment_) {
    auto const* const storage =
        overflow_segment_->Process(processor, description, codes::kOverflowStorage);
    if (storage)
      repora::SetReference(*description, ORVTypes::pOracleOverflowStorageRef, storage->Id());
  }
  if (auto const result = lobs_.Process(processor, description, column_owner);
      result != REPProcessOK)
    return result;
  repora::WriteCompression(*description, compression_, compression_value_);
  return level_ ? level_->Process(processor, description, column_owner) : REPProcessOK;
}

REPProcess_e REPRangePartitioning::Process(REPProcessor* processor,
                                           MOXActionSummaryItem* partitioning,
                                           MOXActionSummaryItem* column_owner) const {
  return AddPartition(processor, partitioning, column_owner, ORVTypes::oOracleRangePartitionInfo,
                      name_.Get(), values_.Get(), description_.Get());
}

REPProcess_e REPRangePartitioningList::Process(REPProcessor* processor,
                                               MOXActionSummaryItem* partitioning,
                                               MOXActionSummaryItem* column_owner) const {
  return clauses_.ProcessAll([&](REPRangePartitioning const& partition) {
    return partition.Process(processor, partitioning, column_owner);
  });
}

REPProcess_e REPListPartitioning::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* partitioning,
                                          MOXActionSummaryItem* column_owner) const {
  return AddPartition(processor, partitioning, column_owner, ORVTypes::oOracleListPartitionInfo,
                      name_.Get(), values_.Get(), description_.Get());
}

REPProcess_e REPListPartitioningList::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* partitioning,
                                              MOXActionSummaryItem* column_owner) const {
  return clauses_.ProcessAll([&](REPListPartitioning const& partition) {
    return partition.Process(processor, partitioning, column_owner);
  });
}

REPProcess_e REPIndividualHashPartition::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* partitioning,
                                                 MOXActionSummaryItem const* column_owner) const {
  if (!processor || !partitioning) return REPProcessError;
  auto* const partition =
      repora::AddPartitionItem(*processor, *partitioning, ORVTypes::oOracleIndividualHashPartition,
                               name_.Get(), REPMessage::DuplicatePartition);
  if (!partition) return REPProcessError;
  return storage_ ? storage_->Process(processor, partition, column_owner) : REPProcessOK;
}

REPProcess_e REPIndividualHashPartitionList::Process(
    REPProcessor* processor, MOXActionSummaryItem* partitioning,
    MOXActionSummaryItem const* column_owner) const {
  return clauses_.ProcessAll([&](REPIndividualHashPartition const& partition) {
    return partition.Process(processor, partitioning, column_owner);
  });
}

REPProcess_e REPHashPartitionsByQuantity::Process(REPProcessor* processor,
                                                  MOXActionSummaryItem* partitioning) const {
  if (!processor || !partitioning) return REPProcessError;
  if (!quantity_.empty() || tablespaces_ || overflow_tablespaces_)
    repora::SetInteger(*partitioning, ORVTypes::pOracleHashPartitionType,
                       codes::kHashPartitionsByQuantity);
  repora::AddTextIfGiven(*partitioning, ORVTypes::pOracleHashPartitionQuantity, quantity_);
  if (tablespaces_)
    repora::SetTablespaces(*processor, *partitioning, ORVTypes::pOracleTablespacesRef,
                           *tablespaces_);
  if (overflow_tablespaces_)
    repora::SetTablespaces(*processor, *partitioning, ORVTypes::pOracleOverflowTablespacesRef,
                           *overflow_tablespaces_);
  return REPProcessOK;
}

REPProcess_e REPTablePartitioningClause::SetPartitionType(MOXActionSummaryItem* item) const {
  auto const code = CodeOf(type_);
  if (!item || code == 0) return REPProcessError;
  repora::SetInteger(*item, ORVTypes::pOraclePartitionType, code);
  return REPProcessOK;
}

REPProcess_e REPTablePartitioningClause::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* partition_owner,
                                                 MOXActionSummaryItem* column_owner) const {
  if (!processor || !partition_owner || !column_owner) return REPProcessError;
  if (CodeOf(type_) == 0) return REPProcessOK;
  auto* const partitioning = AddPartitioning(*processor, *partition_owner, *column_owner);
  return partitioning ? ProcessPartitions(processor, partitioning, column_owner) : REPProcessError;
}

// The item of the partitioning with its key; null when there is no key or a column of it is not
// found.
MOXActionSummaryItem* REPTablePartitioningClause::AddPartitioning(
    REPProcessor& processor, MOXActionSummaryItem& partition_owner,
    MOXActionSummaryItem const& column_owner) const {
  auto const type = CodeOf(type_);
  auto const use =
      type_ == REPPartition_e::Composite ? repora::ColumnUse::CompositeKey : repora::ColumnUse::Key;
  bool const by_list = type_ == REPPartition_e::List;
  std::uint32_t column = 0;
  std::vector<std::uint32_t> columns;
  bool const found =
      by_list ? repora::FindColumn(processor, column_owner, column_.Get(), use, column)
              : columns_ && repora::FindColumns(processor, column_owner, *columns_, use, columns);
  if (!found) return nullptr;
  MOXActionSummaryItem* partitioning = nullptr;
  if (processor.AddItem(partition_owner.Id(), ItemTypeOf(type), nullptr, partitioning) !=
      REPProcessOK)
    return nullptr;
  repora::SetInteger(partition_owner, ORVTypes::pOraclePartitionType, type);
  if (by_list)
    repora::SetReference(*partitioning, ORVTypes::pColumnRef, column);
  else
    repora::SetReferences(*partitioning, ORVTypes::pColumnsRef, columns);
  return partitioning;
}

REPProcess_e REPTablePartitioningClause::ProcessPartitions(
    REPProcessor* processor, MOXActionSummaryItem* partitioning,
    MOXActionSummaryItem* column_owner) const {
  auto const process = [&](auto const& list) {
    return list ? list->Process(processor, partitioning, column_owner) : REPProcessOK;
  };
  switch (type_) {
    case REPPartition_e::None: break;
    case REPPartition_e::Range: return process(ranges_);
    case REPPartition_e::List: return process(lists_);
    case REPPartition_e::Hash:
      if (hashes_) {
        if (auto const result = process(hashes_); result != REPProcessOK) return result;
        repora::SetInteger(*partitioning, ORVTypes::pOracleHashPartitionType,
                           codes::kHashPartitionsListed);
      }
      return quantity_ ? quantity_->Process(processor, partitioning) : REPProcessOK;
    case REPPartition_e::Composite:
      if (auto const result = process(by_list_); result != REPProcessOK) return result;
      if (auto const result = process(by_hash_); result != REPProcessOK) return result;
      return process(ranges_);
  }
  return REPProcessOK;
}
