#include "repora/tables/indexes.h"

#include <string_view>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/conditions.h"
#include "repora/storage/compression.h"
#include "repora/tables/index_partitions.h"

namespace codes = repora::codes;

namespace {

std::string_view KeyGroupTypeOf(REPIndexType_e type) {
  return type == REPIndexType_e::Unique ? codes::kAlternateKey : codes::kIndexEntry;
}

bool IsKnown(REPIndexType_e type) {
  return type == REPIndexType_e::None || type == REPIndexType_e::Unique ||
         type == REPIndexType_e::Bitmap;
}

void SetSchemaOf(MOXActionSummaryItem& index, REPName const* name) {
  if (name) repora::SetTextIfGiven(index, ORVTypes::pDBOwner, name->GetOwnerName(false));
}

}  // namespace

REPName repora::ScriptNameOf(MOXActionSummaryItem const& item) {
  auto const* const physical = item.Properties().Find(ORVTypes::pPhysicalName);
  return REPName(physical ? physical->View() : std::string_view(item.Name()));
}

void repora::WriteMemberOrder(REPProcessor const& processor, MOXActionSummaryItem& key_group,
                              std::vector<std::uint32_t> const& members) {
  auto const order = QELValue::FromShortIds(members);
  if (processor.GetModelType() != codes::kModelPhysical)
    key_group.SetProperty(ORVTypes::pKeyGroupMemberOrderList, order);
  key_group.SetProperty(ORVTypes::pIndexMemberOrderList, order);
}

REPProcess_e REPIndexAttributesClause::Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                               MOXActionSummaryItem* table) const {
  if (!processor || !owner) return REPProcessError;
  auto* const item = processor->CreateItem(owner->Id(), ORVTypes::oOracleAttributeStorage, nullptr);
  if (!item) return REPProcessError;
  auto& storage = *item;
  bool const has_physical = !physical_.AsString().empty();
  if (has_physical) physical_.Process(processor, &storage, codes::kRegularStorage);
  if (logging_ == REPLogging_e::Logging)
    repora::SetBoolean(storage, ORVTypes::pOracleNoLogging, false);
  if (logging_ == REPLogging_e::NoLogging)
    repora::SetBoolean(storage, ORVTypes::pOracleNoLogging, true);
  if (online_) repora::SetBoolean(storage, ORVTypes::pOnline, true);
  if (compute_statistics_) repora::SetBoolean(storage, ORVTypes::pComputeStatistics, true);
  ProcessTablespace(*processor, storage, has_physical);
  repora::WriteCompression(storage, compression_, compression_size_);
  if (sort_ == REPSort_e::NoSort) repora::SetBoolean(storage, ORVTypes::pOracleNoSort, true);
  if (sort_ == REPSort_e::Sort) repora::SetBoolean(storage, ORVTypes::pOracleNoSort, false);
  if (reverse_) repora::SetBoolean(storage, ORVTypes::pOracleReverseStore, true);
  if (parallel_) parallel_->Process(processor, &storage);
  return ProcessPartition(*processor, *owner, table);
}

void REPIndexAttributesClause::ProcessTablespace(REPProcessor& processor,
                                                 MOXActionSummaryItem& storage,
                                                 bool has_physical_storage) const {
  if (tablespace_default_) {
    repora::SetInteger(storage, ORVTypes::pOracleTablespaceUsageType,
                       codes::kTablespaceUsageDefault);
    return;
  }
  if (!tablespace_) return;
  auto const tablespace =
      processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleTablespace, tablespace_.Get());
  if (!has_physical_storage) {
    // A tablespace needs a segment that lies in it.
    REPName const no_name;
    MOXActionSummaryItem* segment = nullptr;
    processor.AddItem(storage.Id(), ORVTypes::oOraclePhysicalStorage, &no_name, segment);
  }
  repora::SetReference(storage, ORVTypes::pOracleTablespaceRef, tablespace);
}

REPProcess_e REPIndexAttributesClause::ProcessPartition(REPProcessor& processor,
                                                        MOXActionSummaryItem& owner,
                                                        MOXActionSummaryItem const* table) const {
  if (partition_ == REPIndexAttPart_e::Global)
    repora::SetInteger(owner, ORVTypes::pOracleIndexPartitionType, codes::kIndexPartitionGlobal);
  if (partition_ != REPIndexAttPart_e::Local || !table) return REPProcessOK;
  if (!repora::HasProperty(*table, ORVTypes::pOraclePartitionType)) {
    processor.DisplayWarning(REPMessage::LocalIndexNeedsPartitions, table->Name());
    return REPProcessError;
  }
  repora::SetInteger(owner, ORVTypes::pOracleIndexPartitionType, codes::kIndexPartitionLocal);
  return REPProcessOK;
}

REPProcess_e REPDomainIndexClause::Process(REPProcessor* /*processor*/,
                                           MOXActionSummaryItem* /*table*/,
                                           MOXActionSummaryItem* /*key_group*/) const {
  return REPProcessOK;
}

REPIndexPropertiesClause::REPIndexPropertiesClause() = default;

REPIndexPropertiesClause::~REPIndexPropertiesClause() = default;

REPProcess_e REPIndexPropertiesClause::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                               MOXActionSummaryItem* key_group) const {
  if (auto const result = attributes_.Process(processor, key_group, table); result != REPProcessOK)
    return result;
  auto result = domain_ ? domain_->Process(processor, table, key_group) : REPProcessOK;
  if (global_) {
    result = global_->Process(processor, table, key_group);
    if (result != REPProcessOK) return result;
  }
  return local_ ? local_->Process(processor, table, key_group) : result;
}

REPProcess_e REPClusterIndexClause::Process(REPProcessor* processor, REPName const* index_name,
                                            REPIndexType_e type,
                                            MOXActionSummaryItem*& cluster_index) const {
  cluster_index = nullptr;
  if (!processor) return REPProcessError;
  auto const* const cluster =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOracleCluster, name_.Get());
  if (!cluster) {
    processor->DisplaySemantic(REPMessage::UndefinedCluster, repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  MOXActionSummaryItem* index = nullptr;
  if (auto const result =
          processor->AddItem(cluster->Id(), ORVTypes::oOracleClusterIndex, index_name, index);
      result != REPProcessOK)
    return result;
  cluster_index = index;
  SetSchemaOf(*index, index_name);
  if (type == REPIndexType_e::Unique) repora::SetBoolean(*index, ORVTypes::pIsUnique, true);
  if (type == REPIndexType_e::Bitmap) repora::SetBoolean(*index, ORVTypes::pOracleBitmap, true);
  if (attributes_) attributes_->Process(processor, index, nullptr);
  return REPProcessOK;
}

REPProcess_e REPTableIndexClause::Process(REPProcessor* processor, REPName const* index_name,
                                          REPIndexType_e type,
                                          MOXActionSummaryItem*& key_group) const {
  key_group = nullptr;
  if (!processor) return REPProcessError;
  auto const root = processor->GetRoot();
  auto* table = processor->FindItemPtr(root, ORVTypes::oEntity, name_.Get());
  if (!table) table = processor->FindItemPtr(root, ORVTypes::oCachedView, name_.Get());
  if (!table) {
    processor->DisplayWarning(
        REPMessage::TargetMissing, processor->GetObjectDisplayString(ORVTypes::oKeyGroup),
        repora::AsWritten(index_name), processor->GetObjectDisplayString(ORVTypes::oEntity),
        repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  MOXActionSummaryItem* index = nullptr;
  if (auto const result = processor->AddItem(table->Id(), ORVTypes::oKeyGroup, index_name, index);
      result != REPProcessOK)
    return result;
  key_group = index;
  SetSchemaOf(*index, index_name);
  repora::SetBoolean(*index, ORVTypes::pGenerateAsConstraint, false);
  if (type == REPIndexType_e::Bitmap) repora::SetBoolean(*index, ORVTypes::pOracleBitmap, true);
  if (IsKnown(type)) repora::SetText(*index, ORVTypes::pKeyGroupType, KeyGroupTypeOf(type));
  if (auto const result = ProcessExpressions(*processor, *table, *index); result != REPProcessOK)
    return result;
  return properties_ ? properties_->Process(processor, table, index) : REPProcessOK;
}

REPProcess_e REPTableIndexClause::ProcessExpressions(REPProcessor& processor,
                                                     MOXActionSummaryItem const& table,
                                                     MOXActionSummaryItem& key_group) const {
  if (!expressions_ || expressions_->GetCount() == 0) return REPProcessOK;
  std::vector<std::uint32_t> order;
  for (int i = 0; i < expressions_->GetCount(); ++i) {
    auto const* const expression = expressions_->GetIndexExpr(i);
    REPName const name(expression->GetExpression());
    MOXActionSummaryItem* member = nullptr;
    if (auto const result =
            processor.AddItem(key_group.Id(), ORVTypes::oKeyGroupMember, &name, member);
        result != REPProcessOK)
      return result;
    if (auto const column = processor.FindItem(table.Id(), ORVTypes::oAttribute, &name)) {
      repora::SetReference(*member, ORVTypes::pAttributeRef, column);
    } else {
      repora::SetText(*member, ORVTypes::pExpression, expression->GetExpression());
      member->RemoveProperty(MOXTypes::pName);
      member->RemoveProperty(ORVTypes::pPhysicalName);
    }
    if (expression->GetSort() == REPSort_e::Asc || expression->GetSort() == REPSort_e::Desc)
      repora::SetText(*member, ORVTypes::pKeyGroupSortOrder,
                      repora::Keyword(expression->GetSort()));
    order.push_back(member->Id());
  }
  repora::WriteMemberOrder(processor, key_group, order);
  return REPProcessOK;
}

REPBitmapIndexClause::REPBitmapIndexClause() = default;

REPBitmapIndexClause::~REPBitmapIndexClause() = default;

REPProcess_e REPCreateIndex::Process(REPProcessor* processor) const {
  MOXActionSummaryItem* index = nullptr;
  return Process(processor, index);
}

MOXActionSummaryItem* REPCreateIndex::ProcessEmbeded(REPProcessor* processor) const {
  MOXActionSummaryItem* index = nullptr;
  return Process(processor, index) == REPProcessOK ? index : nullptr;
}

REPProcess_e REPCreateIndex::Process(REPProcessor* processor, MOXActionSummaryItem*& index) const {
  if (!processor) return REPProcessError;
  if (bitmap_) return REPProcessUnsupported;
  if (cluster_) return cluster_->Process(processor, name_.Get(), type_, index);
  if (table_) return table_->Process(processor, name_.Get(), type_, index);
  return REPProcessUnsupported;
}
