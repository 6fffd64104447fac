#include "repora/tables/index_partitions.h"

#include <string_view>
#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/compression.h"
#include "repora/storage/partition_items.h"
#include "repora/storage/partition_values.h"
#include "repora/storage/partitions.h"

namespace codes = repora::codes;

namespace {

// Whether the byte at a position continues a letter of UTF-8 that begins before it.
bool ContinuesLetter(std::string_view text, std::size_t position) {
  auto const byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  for (std::size_t back = 1; back <= 3 && back <= position; ++back) {
    auto const lead = byte(position - back);
    if (lead >= 0xC2 && lead <= 0xF4) return back < (lead >= 0xF0 ? 4U : lead >= 0xE0 ? 3U : 2U);
    if (lead < 0x80 || lead > 0xBF) return false;
  }
  return false;
}

repora::PartitionValues SplitValues(std::string_view text) {
  repora::PartitionValues values;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && (text[i] != repora::kBoundSeparator || ContinuesLetter(text, i)))
      continue;
    values.Add(std::string(text.substr(start, i - start)).c_str());
    start = i + 1;
  }
  return values;
}

// The tablespace that a partition of the table lies in, as the model knows it.
std::uint32_t FindDefaultTablespace(REPProcessor& processor) {
  REPName const name("DEFAULT");
  return repora::FindTablespace(processor, &name);
}

// How the table is partitioned; 0 when it is not.
std::int32_t PartitionTypeOf(MOXActionSummaryItem const& table) {
  auto const* const type = table.Properties().Find(ORVTypes::pOraclePartitionType);
  return type ? type->Integer() : 0;
}

}  // namespace

REPProcess_e REPIndexPartitioningClause::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* global_partition) const {
  if (!processor || !global_partition) return REPProcessError;
  MOXActionSummaryItem* info = nullptr;
  if (!repora::IsGiven(name_.Get())) {
    info =
        processor->CreateItem(global_partition->Id(), ORVTypes::oOracleRangePartitionInfo, nullptr);
    if (!info) return REPProcessError;
  } else if (auto const result = processor->AddItem(
                 global_partition->Id(), ORVTypes::oOracleRangePartitionInfo, name_.Get(), info);
             result != REPProcessOK) {
    return result;
  }
  if (!values_.empty()) SplitValues(values_).Write(*info);
  if (!segment_) return REPProcessOK;
  MOXActionSummaryItem* description = nullptr;
  if (auto const result = processor->AddItem(info->Id(), ORVTypes::oOraclePartitionDescription,
                                             name_.Get(), description);
      result != REPProcessOK)
    return result;
  auto const* const storage =
      segment_->Process(processor, description, codes::kUnclassifiedStorage);
  if (storage)
    repora::AddReference(*description, ORVTypes::pOracleRegularStorageRef, storage->Id());
  return REPProcessOK;
}

REPProcess_e REPIndexPartitioningClauseList::Process(REPProcessor* processor,
                                                     MOXActionSummaryItem* global_partition) const {
  return clauses_.ProcessAll([&](REPIndexPartitioningClause const& clause) {
    return clause.Process(processor, global_partition);
  });
}

REPGlobalPartitionedIndexClause::REPGlobalPartitionedIndexClause() = default;

REPGlobalPartitionedIndexClause::~REPGlobalPartitionedIndexClause() = default;

REPProcess_e REPGlobalPartitionedIndexClause::Process(REPProcessor* processor,
                                                      MOXActionSummaryItem* table,
                                                      MOXActionSummaryItem* index) const {
  if (!processor || !table || !index) return REPProcessError;
  repora::SetInteger(*index, ORVTypes::pOracleIndexPartitionType, codes::kIndexPartitionGlobal);
  MOXActionSummaryItem* partitioning = nullptr;
  if (auto const result = processor->AddItem(index->Id(), ORVTypes::oOracleIndexGlobalPartition,
                                             nullptr, partitioning);
      result != REPProcessOK)
    return result;
  if (columns_ && columns_->GetCount() > 0) {
    std::vector<std::uint32_t> ids;
    for (int i = 0; i < columns_->GetCount(); ++i) {
      auto const id = processor->FindItem(table->Id(), ORVTypes::oAttribute, columns_->GetName(i));
      if (id == 0) return REPProcessError;
      ids.push_back(id);
    }
    repora::SetReferences(*partitioning, ORVTypes::pColumnsRef, ids);
  }
  if (hash_) return ProcessHash(*processor, table, *partitioning);
  repora::SetInteger(*partitioning, ORVTypes::pOracleIndexGlobalPartitionType,
                     codes::kGlobalPartitionRange);
  return ranges_ ? ranges_->Process(processor, partitioning) : REPProcessOK;
}

REPProcess_e REPGlobalPartitionedIndexClause::ProcessHash(
    REPProcessor& processor, MOXActionSummaryItem* table,
    MOXActionSummaryItem& partitioning) const {
  auto const set_kind = [&partitioning](std::int32_t kind) {
    repora::SetInteger(partitioning, ORVTypes::pOracleIndexGlobalHashPartitionType, kind);
  };
  repora::SetInteger(partitioning, ORVTypes::pOracleIndexGlobalPartitionType,
                     codes::kGlobalPartitionHash);
  if (individual_) {
    set_kind(codes::kGlobalHashListed);
    return individual_->Process(&processor, &partitioning, table);
  }
  if (!quantity_.empty())
    repora::SetText(partitioning, ORVTypes::pOracleHashPartitionQuantity, quantity_);
  if (store_in_)
    repora::SetTablespaces(processor, partitioning, ORVTypes::pOracleTablespacesRef, *store_in_);
  if (overflow_)
    repora::SetTablespaces(processor, partitioning, ORVTypes::pOracleOverflowTablespacesRef,
                           *overflow_);
  if (!quantity_.empty() || store_in_ || overflow_) set_kind(codes::kGlobalHashByQuantity);
  return REPProcessOK;
}

REPProcess_e REPSubPartition::Process(REPProcessor* processor,
                                      MOXActionSummaryItem* description) const {
  if (!processor || !description) return REPProcessError;
  auto const* const subpartition =
      repora::AddPartitionItem(*processor, *description, ORVTypes::oOracleSubpartitionSpec,
                               name_.Get(), REPMessage::DuplicateSubpartition);
  if (!subpartition) return REPProcessError;
  if (repora::AsWritten(tablespace_.Get()).empty()) return REPProcessOK;
  auto const tablespace = repora::FindTablespace(*processor, tablespace_.Get());
  MOXActionSummaryItem* storage = nullptr;
  auto const result = processor->AddItem(subpartition->Id(), ORVTypes::oOraclePartitioningStorage,
                                         name_.Get(), storage);
  if (result == REPProcessOK)
    repora::SetReference(*storage, ORVTypes::pOracleTablespaceRef, tablespace);
  return result;
}

REPProcess_e REPSubPartitionList::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* description) const {
  return clauses_.ProcessAll([&](REPSubPartition const& subpartition) {
    return subpartition.Process(processor, description);
  });
}

struct REPPartition::Work {
  REPProcessor& processor;
  long type;  // of the table's partitioning
  MOXActionSummaryItem* partition = nullptr;
  MOXActionSummaryItem* description = nullptr;
  MOXActionSummaryItem* storage = nullptr;  // of the description
};

REPProcess_e REPPartition::Process(REPProcessor* processor, MOXActionSummaryItem* local_partition,
                                   long table_partition_type) const {
  if (!processor || !local_partition) return REPProcessError;
  MOXId item_type = 0;
  switch (table_partition_type) {
    case codes::kRangePartitioning:
    case codes::kCompositePartitioning: item_type = ORVTypes::oOracleRangePartitionInfo; break;
    case codes::kListPartitioning: item_type = ORVTypes::oOracleListPartitionInfo; break;
    case codes::kHashPartitioning: item_type = ORVTypes::oOracleIndividualHashPartition; break;
    default: return REPProcessError;
  }
  Work work{*processor, table_partition_type};
  work.partition = repora::AddPartitionItem(*processor, *local_partition, item_type, name_.Get(),
                                            REPMessage::DuplicatePartition);
  if (!work.partition) return REPProcessError;
  bool const is_hash = table_partition_type == codes::kHashPartitioning;
  if (!is_hash && !DescribeSegment(work)) return REPProcessError;
  if (auto const result = AddSubpartitions(work); result != REPProcessOK) return result;
  if (is_hash) return segment_ || default_tablespace_ ? AddHashStorage(work) : REPProcessOK;
  return default_tablespace_ ? UseDefaultTablespace(work) : REPProcessOK;
}

// The description of the partition, made when there is none yet; null, reported, when it cannot be.
MOXActionSummaryItem* REPPartition::Describe(Work& work) const {
  if (work.description) return work.description;
  auto& processor = work.processor;
  if (processor.AddItem(work.partition->Id(), ORVTypes::oOraclePartitionDescription, name_.Get(),
                        work.description) == REPProcessOK)
    return work.description;
  processor.DisplayWarning(REPMessage::DuplicatePartition, repora::AsWritten(name_.Get()));
  return nullptr;
}

bool REPPartition::DescribeSegment(Work& work) const {
  if (!segment_ && compression_ == REPCompress_e::None) return true;
  auto* const description = Describe(work);
  if (!description) return false;
  if (segment_) {
    work.storage = segment_->Process(&work.processor, description, codes::kRegularStorage);
    if (!work.storage) return false;
    repora::SetReference(*description, ORVTypes::pOracleRegularStorageRef, work.storage->Id());
  }
  repora::WriteCompression(*description, compression_, compression_size_);
  return true;
}

REPProcess_e REPPartition::AddSubpartitions(Work& work) const {
  bool const is_composite = work.type == codes::kCompositePartitioning;
  auto const set_kind = [&work](std::int32_t kind) {
    repora::SetInteger(*work.description, ORVTypes::pOraclePartitionLevelSubpartitionType, kind);
  };
  if (subpartitions_) {
    if (!is_composite) {
      work.processor.DisplayWarning(REPMessage::SubpartitionsInvalid,
                                    repora::AsWritten(name_.Get()));
      return REPProcessError;
    }
    if (!Describe(work)) return REPProcessError;
    set_kind(codes::kSubpartitionsListed);
    if (auto const result = subpartitions_->Process(&work.processor, work.description);
        result != REPProcessOK)
      return result;
  }
  if (store_in_ && is_composite) {
    if (!Describe(work)) return REPProcessError;
    repora::SetTablespaces(work.processor, *work.description, ORVTypes::pOracleTablespacesRef,
                           *store_in_);
    set_kind(codes::kSubpartitionsByQuantity);
  }
  return REPProcessOK;
}

// A hash partition has a tablespace and nothing else of its own.
REPProcess_e REPPartition::AddHashStorage(Work& work) const {
  auto& processor = work.processor;
  MOXActionSummaryItem* storage = nullptr;
  if (auto const result = processor.AddItem(
          work.partition->Id(), ORVTypes::oOraclePartitioningStorage, name_.Get(), storage);
      result != REPProcessOK)
    return result;
  auto const* const tablespace = segment_ ? segment_->GetTablespaceName() : nullptr;
  if (default_tablespace_)
    repora::SetReference(*storage, ORVTypes::pOracleTablespaceRef,
                         FindDefaultTablespace(processor));
  else if (tablespace)
    repora::SetReference(*storage, ORVTypes::pOracleTablespaceRef,
                         repora::FindTablespace(processor, tablespace));
  if (segment_ && !segment_->GetAttributesClause()->AsString().empty())
    processor.DisplayInformation(
        REPMessage::PartitionOptionsDiscarded,
        repora::IsGiven(name_.Get()) ? repora::AsWritten(name_.Get()) : "<Unnamed>", AsString());
  return REPProcessOK;
}

REPProcess_e REPPartition::UseDefaultTablespace(Work& work) const {
  auto* const description = Describe(work);
  if (!description) return REPProcessError;
  if (!work.storage) {
    REPName const no_name;
    if (auto const result = work.processor.AddItem(
            description->Id(), ORVTypes::oOraclePhysicalStorage, &no_name, work.storage);
        result != REPProcessOK)
      return result;
    repora::SetReference(*description, ORVTypes::pOracleRegularStorageRef, work.storage->Id());
  }
  repora::SetReference(*work.storage, ORVTypes::pOracleTablespaceRef,
                       FindDefaultTablespace(work.processor));
  return REPProcessOK;
}

REPProcess_e REPPartitionList::Process(REPProcessor* processor,
                                       MOXActionSummaryItem* local_partition,
                                       long table_partition_type) const {
  return clauses_.ProcessAll([&](REPPartition const& partition) {
    return partition.Process(processor, local_partition, table_partition_type);
  });
}

REPProcess_e REPLocalPartitionedIndexClause::Process(REPProcessor* processor,
                                                     MOXActionSummaryItem* table,
                                                     MOXActionSummaryItem* index) const {
  if (!processor || !table || !index) return REPProcessError;
  auto const type = PartitionTypeOf(*table);
  if (type == 0) {
    processor->DisplayWarning(REPMessage::LocalIndexNeedsPartitions, table->Name());
    return REPProcessError;
  }
  MOXActionSummaryItem* partitioning = nullptr;
  if (auto const result = processor->AddItem(index->Id(), ORVTypes::oOracleIndexLocalPartition,
                                             nullptr, partitioning);
      result != REPProcessOK)
    return result;
  repora::SetInteger(*index, ORVTypes::pOracleIndexPartitionType, codes::kIndexPartitionLocal);
  repora::SetInteger(*partitioning, ORVTypes::pOraclePartitionType, type);
  auto const set_hash_kind = [&](std::int32_t kind) {
    if (type == codes::kHashPartitioning)
      repora::SetInteger(*partitioning, ORVTypes::pOracleHashPartitionType, kind);
  };
  if (partitions_) {
    if (auto const result = partitions_->Process(processor, partitioning, type);
        result != REPProcessOK)
      return result;
    set_hash_kind(codes::kHashPartitionsListed);
  }
  if (store_in_) {
    repora::SetTablespaces(*processor, *partitioning, ORVTypes::pOracleTablespacesRef, *store_in_);
    set_hash_kind(codes::kHashPartitionsByQuantity);
  }
  if (store_in_default_) {
    repora::SetReferences(*partitioning, ORVTypes::pOracleTablespacesRef,
                          {FindDefaultTablespace(*processor)});
    set_hash_kind(codes::kHashPartitionsByQuantity);
  }
  return REPProcessOK;
}

REPIndexPartitionDesc::REPIndexPartitionDesc() = default;

REPIndexPartitionDesc::~REPIndexPartitionDesc() = default;

REPProcess_e REPIndexPartitionDesc::Process(REPProcessor* /*processor*/,
                                            MOXActionSummaryItem* /*item*/) const {
  return REPProcessOK;
}
