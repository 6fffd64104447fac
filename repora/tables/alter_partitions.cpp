#include "repora/tables/alter_partitions.h"

#include <vector>

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"
#include "repora/tables/table_organisation.h"
#include "repora/tables/update_indexes.h"

namespace codes = repora::codes;

namespace {

// The operation stays undone, and the statement goes on.
REPProcess_e SkipOperation(REPProcessor& processor, MOXActionSummaryItem const& table,
                           REPMessage operation) {
  processor.DisplayWarning(REPMessage::AlterTableOptionUnsupported, repora::MessageText(operation),
                           table.Name());
  return REPProcessOK;
}

// Writes physical attributes and logging on a storage item of the owner, made when there is none;
// null when neither is given.
MOXActionSummaryItem* WriteSegment(REPProcessor& processor, MOXActionSummaryItem& owner,
                                   repora::PartitionSegment const& segment,
                                   std::int32_t storage_kind) {
  if (!segment.physical && segment.logging == REPLogging_e::None) return nullptr;
  REPPhysicalAttrClause const nothing;
  auto const& physical = segment.physical ? *segment.physical : nothing;
  auto* const storage = physical.Process(&processor, &owner, storage_kind);
  if (!storage) return nullptr;
  if (segment.logging == REPLogging_e::Logging)
    repora::SetBoolean(*storage, ORVTypes::pOracleNoLogging, false);
  if (segment.logging == REPLogging_e::NoLogging)
    repora::SetBoolean(*storage, ORVTypes::pOracleNoLogging, true);
  return storage;
}

// The first subpartition of a name, by the order of the partitions; null when there is none.
MOXActionSummaryItem* FindSubpartition(REPProcessor const& processor,
                                       repora::Partitioning const& partitioning,
                                       REPName const* name) {
  std::vector<MOXActionSummaryItem*> partitions;
  std::vector<MOXActionSummaryItem*> descriptions;
  processor.FindSummaryChildrenByType(partitioning.item->Id(), partitioning.partition_type,
                                      partitions);
  for (auto const* const partition : partitions) {
    descriptions.clear();
    processor.FindSummaryChildrenByType(partition->Id(), ORVTypes::oOraclePartitionDescription,
                                        descriptions);
    for (auto const* const description : descriptions)
      if (auto* const subpartition =
              processor.FindItemPtr(description->Id(), ORVTypes::oOracleSubpartitionSpec, name))
        return subpartition;
  }
  return nullptr;
}

// The same where the template of a composite partitioning comes before all partitions.
MOXActionSummaryItem* FindSubpartitionOrTemplate(REPProcessor const& processor,
                                                 repora::Partitioning const& partitioning,
                                                 REPName const* name) {
  auto* const in_template =
      processor.FindItemPtr(partitioning.item->Id(), ORVTypes::oOraclePartitionTemplate, name);
  return in_template ? in_template : FindSubpartition(processor, partitioning, name);
}

std::int32_t IntegerOf(MOXActionSummaryItem const& item, MOXId property, std::int32_t otherwise) {
  auto const* const value = item.Properties().Find(property);
  return value ? value->Integer() : otherwise;
}

}  // namespace

REPProcess_e REPPartitionAttributes::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                             MOXActionSummaryItem* partition,
                                             long partition_type) const {
  if (!processor || !table || !partition) return REPProcessError;
  switch (partition_type) {
    case codes::kRangePartitioning:
    case codes::kListPartitioning:
    case codes::kCompositePartitioning: return ProcessDescription(*processor, *table, *partition);
    case codes::kHashPartitioning: return ProcessHashPartition(*processor, *table, *partition);
    default: return REPProcessOK;
  }
}

REPProcess_e REPPartitionAttributes::ProcessDescription(
    REPProcessor& processor, MOXActionSummaryItem& table,
    MOXActionSummaryItem const& partition) const {
  auto* const description =
      repora::FindOrAddNamesake(processor, partition, ORVTypes::oOraclePartitionDescription);
  if (!description) return REPProcessError;
  if (auto const* const storage =
          WriteSegment(processor, *description, segment_, codes::kRegularStorage))
    repora::SetReference(*description, ORVTypes::pOracleRegularStorageRef, storage->Id());
  if (auto const* const storage =
          WriteSegment(processor, *description, overflow_, codes::kOverflowStorage)) {
    repora::SetReference(*description, ORVTypes::pOracleOverflowStorageRef, storage->Id());
    repora::SetBoolean(*description, ORVTypes::pIndexOverflow, true);
  }
  if (compression_) {
    if (auto const result = compression_->Process(description); result != REPProcessOK)
      return result;
  }
  return lobs_ ? lobs_->Process(&processor, description, &table) : REPProcessOK;
}

// The storage of a hash partition is referred to by nothing, and logging does not make one.
REPProcess_e REPPartitionAttributes::ProcessHashPartition(REPProcessor& processor,
                                                          MOXActionSummaryItem& table,
                                                          MOXActionSummaryItem& partition) const {
  if (segment_.physical) WriteSegment(processor, partition, segment_, codes::kRegularStorage);
  if (overflow_.physical) WriteSegment(processor, partition, overflow_, codes::kOverflowStorage);
  if (!lobs_) return REPProcessOK;
  auto* const storage =
      repora::FindOrAddNamesake(processor, partition, ORVTypes::oOraclePartitioningStorage);
  return storage ? lobs_->Process(&processor, storage, &table) : REPProcessError;
}

REPAlterTablePartitioning::REPAlterTablePartitioning() = default;

REPAlterTablePartitioning::~REPAlterTablePartitioning() = default;

REPProcess_e REPAlterTablePartitioning::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  auto const skip = [&](REPMessage operation) {
    return SkipOperation(*processor, *table, operation);
  };
  switch (operation_) {
    case REPTablePart_e::None: break;
    case REPTablePart_e::ModifyDefaultAttributes: return ModifyTableDefaultAttrs(processor, table);
    case REPTablePart_e::SetSubpartitionTemplate: return SetSubpartTemplate(processor, table);
    case REPTablePart_e::ModifyPartition: return ModifyTablePartition(processor, table);
    case REPTablePart_e::ModifySubpartition: return ModifyTableSubPartition(processor, table);
    case REPTablePart_e::MovePartition: return skip(REPMessage::WordMovePartition);
    case REPTablePart_e::MoveSubpartition: return skip(REPMessage::WordMoveSubpartition);
    case REPTablePart_e::AddPartition: return AddPartition(processor, table);
    case REPTablePart_e::CoalescePartition: return skip(REPMessage::WordCoalesce);
    case REPTablePart_e::DropPartition:
    case REPTablePart_e::DropSubpartition:
      processor->DisplayWarning(REPMessage::AlterDropUnsupported,
                                processor->GetObjectDisplayString(ORVTypes::oEntity),
                                table->Name());
      return REPProcessError;
    case REPTablePart_e::RenamePartition: return RenamePartition(processor, table);
    case REPTablePart_e::RenameSubpartition: return RenameSubPartition(processor, table);
    case REPTablePart_e::TruncatePartition:
    case REPTablePart_e::TruncateSubpartition: break;
    case REPTablePart_e::SplitPartition: return skip(REPMessage::WordSplitPartition);
    case REPTablePart_e::SplitSubpartition: return skip(REPMessage::WordSplitSubpartition);
    case REPTablePart_e::MergePartitions: return skip(REPMessage::WordMergePartition);
    case REPTablePart_e::MergeSubpartitions: return skip(REPMessage::WordMergeSubpartition);
    case REPTablePart_e::ExchangePartition:
    case REPTablePart_e::ExchangeSubpartition: break;
  }
  return REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::ModifyTableDefaultAttrs(REPProcessor* processor,
                                                                MOXActionSummaryItem* table) const {
  auto* target = table;
  if (name_) {
    auto const partitioning = repora::FindPartitioning(*processor, *table);
    auto const* const partition = partitioning.type == codes::kCompositePartitioning
                                      ? partitioning.Find(*processor, name_.Get())
                                      : nullptr;
    if (!partition) return repora::FailAlterPartitioning(*processor, *table);
    target =
        repora::FindOrAddNamesake(*processor, *partition, ORVTypes::oOraclePartitionDescription);
    if (!target) return REPProcessError;
  }
  if (segment_) {
    auto const* const storage = segment_->Process(processor, target, codes::kRegularStorage);
    if (storage) repora::SetReference(*target, ORVTypes::pOracleRegularStorageRef, storage->Id());
  }
  repora::WriteCompression(*target, compression_, compression_size_);
  repora::SetTextIfGiven(*target, ORVTypes::pPctThreshold, pct_threshold_);
  if (overflow_) {
    if (auto const result = overflow_->Process(processor, target); result != REPProcessOK)
      return result;
  }
  return lobs_ ? lobs_->Process(processor, target, table) : REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::SetSubpartTemplate(REPProcessor* processor,
                                                           MOXActionSummaryItem* table) const {
  auto const partitioning = repora::FindPartitioning(*processor, *table);
  if (partitioning.type != codes::kCompositePartitioning || !partitioning.item)
    return repora::FailAlterPartitioning(*processor, *table);
  auto& composite = *partitioning.item;
  if (!template_quantity_.empty()) {
    repora::SetInteger(composite, ORVTypes::pOracleTemplateSubpartitionType,
                       codes::kTemplateByQuantity);
    repora::SetText(composite, ORVTypes::pOracleHashPartitionQuantity, template_quantity_);
    repora::SetInteger(composite, ORVTypes::pHashSubpartitionType,
                       codes::kHashSubpartitionsByQuantity);
  }
  if (!template_) return REPProcessOK;
  repora::SetInteger(composite, ORVTypes::pOracleTemplateSubpartitionType, codes::kTemplateListed);
  processor->DisplayWarning(REPMessage::SubpartitionsAdded, table->Name());
  if (auto const result = template_->Process(processor, &composite, table); result != REPProcessOK)
    return result;
  switch (IntegerOf(composite, ORVTypes::pOracleCompositeSubpartitionType, -1)) {
    case codes::kSubpartitionByHash:
      repora::SetInteger(composite, ORVTypes::pHashSubpartitionType,
                         codes::kHashSubpartitionsByTemplate);
      break;
    case codes::kSubpartitionByList:
      repora::SetInteger(composite, ORVTypes::pOracleTemplateSubpartitionType,
                         codes::kTemplateListed);
      break;
    default: break;
  }
  return REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::ModifyTablePartition(REPProcessor* processor,
                                                             MOXActionSummaryItem* table) const {
  auto const partitioning = repora::FindPartitioning(*processor, *table);
  auto* const partition = partitioning.Find(*processor, name_.Get());
  if (!partition) return repora::FailAlterPartitioning(*processor, *table);
  if (attributes_) {
    if (auto const result = attributes_->Process(processor, table, partition, partitioning.type);
        result != REPProcessOK)
      return result;
  }
  if (subpartition1_) {
    if (auto const result = AddSubpartition(*processor, *table, *partition, partitioning.type);
        result != REPProcessOK)
      return result;
  }
  if (coalesce_) SkipOperation(*processor, *table, REPMessage::WordCoalesce);
  if (auto const result = UpdateIndexes(processor, table); result != REPProcessOK) return result;
  return partitioning.type == codes::kListPartitioning ? ChangeValues(*partition) : REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::AddSubpartition(REPProcessor& processor,
                                                        MOXActionSummaryItem& table,
                                                        MOXActionSummaryItem const& partition,
                                                        std::int32_t type) const {
  if (type != codes::kRangePartitioning && type != codes::kCompositePartitioning)
    return repora::FailAlterPartitioning(processor, table);
  auto* const description =
      repora::FindOrAddNamesake(processor, partition, ORVTypes::oOraclePartitionDescription);
  if (!description) return REPProcessError;
  if (auto const result = subpartition1_->Process(&processor, description, &table);
      result != REPProcessOK)
    return result;
  repora::SetInteger(*description, ORVTypes::pOraclePartitionLevelSubpartitionType,
                     codes::kSubpartitionsListed);
  return REPProcessOK;
}

// What ADD VALUES and DROP VALUES do.
REPProcess_e REPAlterTablePartitioning::ChangeValues(MOXActionSummaryItem& partition) const {
  if (!values_) return REPProcessOK;
  switch (add_drop_values_) {
    case REPAddDropValues_e::None: break;
    case REPAddDropValues_e::Add: return values_->ProcessAdd(&partition);
    case REPAddDropValues_e::Drop: return values_->ProcessDrop(&partition);
  }
  return REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::UpdateIndexes(REPProcessor* processor,
                                                      MOXActionSummaryItem* table) const {
  return update_indexes_ ? update_indexes_->Process(processor, table) : REPProcessOK;
}

REPProcess_e REPAlterTablePartitioning::ModifyTableSubPartition(REPProcessor* processor,
                                                                MOXActionSummaryItem* table) const {
  auto const partitioning = repora::FindPartitioning(*processor, *table);
  bool const composite = partitioning.type == codes::kCompositePartitioning && partitioning.item;
  auto* const subpartition = composite && repora::IsGiven(name_.Get())
                                 ? FindSubpartitionOrTemplate(*processor, partitioning, name_.Get())
                                 : nullptr;
  if (!subpartition) return repora::FailAlterPartitioning(*processor, *table);
  if (auto const result = ChangeValues(*subpartition); result != REPProcessOK) return result;
  if (!lobs_) return REPProcessOK;
  auto* const storage =
      repora::FindOrAddNamesake(*processor, *subpartition, ORVTypes::oOraclePartitioningStorage);
  return storage ? lobs_->Process(processor, storage, table) : REPProcessError;
}

REPProcess_e REPAlterTablePartitioning::AddPartition(REPProcessor* processor,
                                                     MOXActionSummaryItem* table) const {
  auto const partitioning = repora::FindPartitioning(*processor, *table);
  if (!partitioning.item) return repora::FailAlterPartitioning(*processor, *table);
  auto const owner = partitioning.item->Id();
  auto const type = partitioning.partition_type;
  MOXActionSummaryItem* partition = nullptr;
  if (!repora::IsGiven(name_.Get()))
    partition = processor->CreateItem(owner, type, nullptr);
  else if (processor->AddItem(owner, type, name_.Get(), partition) != REPProcessOK)
    return repora::FailAlterPartitioning(*processor, *table);
  auto result = REPProcessOK;
  if (partitioning.type == codes::kHashPartitioning) {
    if (storage_) result = storage_->Process(processor, partition, table);
  } else {
    if (partitioning.type == codes::kListPartitioning) {
      if (values_) result = values_->Process(partition);
    } else if (bound_) {
      result = bound_->Process(partition);
    }
    if (result == REPProcessOK && description_)
      result = description_->Process(processor, partition, table);
  }
  return result == REPProcessOK ? UpdateIndexes(processor, table) : result;
}

REPProcess_e REPAlterTablePartitioning::RenamePartition(REPProcessor* processor,
                                                        MOXActionSummaryItem* table) const {
  auto* const partition =
      repora::FindPartitioning(*processor, *table).Find(*processor, name_.Get());
  if (!partition || !repora::IsGiven(new_name_.Get()))
    return repora::FailAlterPartitioning(*processor, *table);
  return processor->RenameItem(partition, new_name_.Get());
}

REPProcess_e REPAlterTablePartitioning::RenameSubPartition(REPProcessor* processor,
                                                           MOXActionSummaryItem* table) const {
  if (!repora::IsGiven(name_.Get()) || !repora::IsGiven(new_name_.Get()))
    return repora::FailAlterPartitioning(*processor, *table);
  auto const partitioning = repora::FindPartitioning(*processor, *table);
  MOXActionSummaryItem* subpartition = nullptr;
  switch (partitioning.type) {
    case codes::kNotPartitioned:
    case codes::kHashPartitioning: break;
    case codes::kRangePartitioning:
    case codes::kListPartitioning:
      if (partitioning.item) subpartition = FindSubpartition(*processor, partitioning, name_.Get());
      break;
    case codes::kCompositePartitioning:
      if (partitioning.item)
        subpartition = FindSubpartitionOrTemplate(*processor, partitioning, name_.Get());
      break;
    default: return REPProcessOK;
  }
  if (!subpartition) return repora::FailAlterPartitioning(*processor, *table);
  return processor->RenameItem(subpartition, new_name_.Get());
}
