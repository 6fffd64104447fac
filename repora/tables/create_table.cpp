#include "repora/tables/create_table.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/select.h"
#include "repora/storage/compression.h"
#include "repora/storage/parallel.h"
#include "repora/storage/partitions.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/external_table.h"
#include "repora/tables/organisation_items.h"
#include "repora/tables/query_columns.h"

namespace codes = repora::codes;

REPCreateTable::REPCreateTable() = default;

REPCreateTable::~REPCreateTable() = default;

REPProcess_e REPCreateTable::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  if (table_type_ != REPTableType_e::Relational) return REPProcessUnsupported;
  MOXActionSummaryItem* item = nullptr;
  if (auto const result =
          processor->AddItem(processor->GetRoot(), ORVTypes::oEntity, name_.Get(), item);
      result != REPProcessOK)
    return result;
  auto& entity = *item;
  if (global_temporary_) repora::SetBoolean(entity, ORVTypes::pOracleTemporary, true);
  if (name_) repora::SetTextIfGiven(entity, ORVTypes::pDBOwner, name_->GetOwnerName(false));
  // Indexes and columns may ask how the table is partitioned; what is wrong with it is told later.
  if (partitioning_) partitioning_->SetPartitionType(&entity);
  if (auto const result = ProcessColumns(processor, entity); result != REPProcessOK) return result;
  if (partitioning_) {
    if (auto const result = partitioning_->Process(processor, &entity, &entity);
        result != REPProcessOK)
      return result;
  }
  if (auto const result = constraints_.Process(processor, &entity, name_.Get());
      result != REPProcessOK)
    return result;
  if (auto const result = ref_constraints_.Process(processor, &entity); result != REPProcessOK)
    return result;
  if (auto const result = supplemental_logging_.Process(processor, &entity, REPSuppLog_e::Create);
      result != REPProcessOK)
    return result;
  if (commit_ == REPCommit_e::DeleteRows)
    repora::SetInteger(entity, ORVTypes::pOracleCommitType, codes::kCommitDelete);
  if (commit_ == REPCommit_e::PreserveRows)
    repora::SetInteger(entity, ORVTypes::pOracleCommitType, codes::kCommitPreserve);
  if (auto const result = ProcessOrganization(processor, entity); result != REPProcessOK)
    return result;
  if (auto const result = ProcessCluster(processor, entity); result != REPProcessOK) return result;
  ProcessSegment(processor, entity);
  ProcessCompression(entity);
  if (auto const result = column_properties_.Process(processor, &entity); result != REPProcessOK)
    return result;
  repora::SetChoice(entity, ORVTypes::pOracleCache, cache_);
  if (parallel_) {
    if (auto const result = parallel_->Process(processor, &entity); result != REPProcessOK)
      return result;
  }
  repora::SetChoice(entity, ORVTypes::pOracleRowDependencies, row_dependencies_);
  if (enable_disable_) {
    if (auto const result = enable_disable_->Process(processor, &entity, name_.Get());
        result != REPProcessOK)
      return result;
  }
  repora::SetChoice(entity, ORVTypes::pOracleEnableRowMovement, row_movement_);
  if (monitor_ == REPMonitor_e::On) repora::SetBoolean(entity, ORVTypes::pIsMonitoring, true);
  if (monitor_ == REPMonitor_e::Off) repora::SetBoolean(entity, ORVTypes::pIsMonitoring, false);
  return REPProcessOK;
}

REPProcess_e REPCreateTable::ProcessColumns(REPProcessor* processor,
                                            MOXActionSummaryItem& entity) const {
  if (!query_) return columns_.Process(processor, &entity, name_.Get());
  return columns_.GetCount() > 0
             ? repora::MakeNamedColumns(*processor, entity, name_.Get(), *query_, columns_)
             : repora::MakeQueryColumns(*processor, entity, name_.Get(), *query_);
}

REPProcess_e REPCreateTable::ProcessOrganization(REPProcessor* processor,
                                                 MOXActionSummaryItem& entity) const {
  switch (organization_) {
    case REPOrganization_e::None: break;
    case REPOrganization_e::Heap:
      if (!global_temporary_)
        repora::SetInteger(entity, ORVTypes::pOracleDataStorageType, codes::kHeapStorage);
      break;
    case REPOrganization_e::Index: return ProcessIndexOrganization(processor, entity);
    case REPOrganization_e::External:
      repora::SetInteger(entity, ORVTypes::pOracleDataStorageType, codes::kIndexOrExternalStorage);
      repora::SetInteger(entity, ORVTypes::pDataOrganizationType, codes::kExternal);
      return external_ ? external_->Process(processor, &entity, false) : REPProcessOK;
  }
  return REPProcessOK;
}

REPProcess_e REPCreateTable::ProcessIndexOrganization(REPProcessor* processor,
                                                      MOXActionSummaryItem& entity) const {
  repora::SetInteger(entity, ORVTypes::pOracleDataStorageType, codes::kIndexOrExternalStorage);
  repora::SetInteger(entity, ORVTypes::pDataOrganizationType, codes::kIndexOrganized);
  if (mapping_ == REPMapping_e::MappingTable)
    repora::SetInteger(entity, ORVTypes::pTableMapping, codes::kMappingTable);
  if (mapping_ == REPMapping_e::NoMapping)
    repora::SetInteger(entity, ORVTypes::pTableMapping, codes::kNoMapping);
  repora::SetTextIfGiven(entity, ORVTypes::pPctThreshold, pct_threshold_);
  if (including_column_) {
    auto const column = repora::FindIncludingColumn(*processor, entity, *including_column_);
    if (column == 0) return REPProcessError;
    repora::SetReference(entity, ORVTypes::pIncludingColumn, column);
  }
  repora::SetBoolean(entity, ORVTypes::pIndexOverflow, index_overflow_);
  if (overflow_segment_) {
    auto const* const storage =
        overflow_segment_->Process(processor, &entity, codes::kOverflowStorage);
    if (storage) repora::SetReference(entity, ORVTypes::pOracleOverflowStorageRef, storage->Id());
  }
  return REPProcessOK;
}

REPProcess_e REPCreateTable::ProcessCluster(REPProcessor* processor,
                                            MOXActionSummaryItem& entity) const {
  if (!cluster_) return REPProcessOK;
  repora::SetReference(entity, ORVTypes::pOracleClusterRef,
                       repora::FindCluster(*processor, *cluster_));
  if (cluster_columns_ && cluster_columns_->GetCount() > 0) {
    std::vector<std::uint32_t> columns;
    if (!repora::FindClusterColumns(*processor, entity, *cluster_columns_, columns))
      return REPProcessError;
    repora::SetReferences(entity, ORVTypes::pOracleClusterColumnsRef, columns);
  }
  auto const* const storage = entity.Properties().Find(ORVTypes::pOracleDataStorageType);
  if (!storage || storage->Integer() == codes::kHeapStorage)
    repora::SetInteger(entity, ORVTypes::pOracleDataStorageType, codes::kClusteredStorage);
  return REPProcessOK;
}

void REPCreateTable::ProcessSegment(REPProcessor* processor, MOXActionSummaryItem& entity) const {
  if (!segment_) return;
  bool const is_index = organization_ == REPOrganization_e::Index;
  auto const* const storage = segment_->Process(
      processor, &entity, is_index ? codes::kIndexStorage : codes::kRegularStorage);
  if (!repora::HasProperty(entity, ORVTypes::pOracleDataStorageType))
    repora::AddInteger(entity, ORVTypes::pOracleDataStorageType, codes::kHeapStorage);
  if (!storage) return;
  if (is_index)
    repora::SetReference(entity, ORVTypes::pOracleIndexStorageRef, storage->Id());
  else if (organization_ != REPOrganization_e::External)
    repora::SetReference(entity, ORVTypes::pOracleRegularStorageRef, storage->Id());
}

void REPCreateTable::ProcessCompression(MOXActionSummaryItem& entity) const {
  repora::WriteCompression(entity, compression_, compression_size_);
  bool const given =
      compression_ == REPCompress_e::Compress || compression_ == REPCompress_e::NoCompress;
  if (given && !repora::HasProperty(entity, ORVTypes::pOracleDataStorageType))
    repora::SetInteger(entity, ORVTypes::pOracleDataStorageType, codes::kHeapStorage);
}
