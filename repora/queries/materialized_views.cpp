#include "repora/queries/materialized_views.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/refresh.h"
#include "repora/queries/select.h"
#include "repora/queries/view_columns.h"
#include "repora/queries/view_writer.h"
#include "repora/storage/parallel.h"
#include "repora/storage/partitions.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/external_table.h"
#include "repora/tables/organisation_items.h"
#include "repora/tables/table_column_props.h"

namespace codes = repora::codes;

REPMaterializedViewProps::REPMaterializedViewProps() = default;

REPMaterializedViewProps::~REPMaterializedViewProps() = default;

REPProcess_e REPMaterializedViewProps::Process(REPProcessor* processor,
                                               MOXActionSummaryItem* view) const {
  if (!processor || !view) return REPProcessError;
  if (columns_) {
    if (auto const result = columns_->Process(processor, view); result != REPProcessOK)
      return result;
  }
  if (partitioning_) {
    if (auto const result = partitioning_->Process(processor, view, view); result != REPProcessOK)
      return result;
  }
  repora::SetChoice(*view, ORVTypes::pOracleCache, cache_);
  repora::WriteParallel(*view, parallel_, parallel_size_);
  if (build_ == REPBuild_e::Immediate)
    repora::AddInteger(*view, ORVTypes::pBuildClause, codes::kBuildImmediate);
  if (build_ == REPBuild_e::Deferred)
    repora::AddInteger(*view, ORVTypes::pBuildClause, codes::kBuildDeferred);
  return REPProcessOK;
}

struct REPCreateMaterializedView::Made : repora::ViewOfQuery {
  Made(REPProcessor& run, MOXActionSummaryItem& view, REPName const* view_name, bool replaced)
      : ViewOfQuery{run, view, view_name, replaced}, writer(run, view, replaced) {}

  // Where nothing else was said the rows are stored in a heap.
  void SetDefaultStorage() const {
    if (!repora::HasProperty(item, ORVTypes::pOracleDataStorageType))
      writer.Integer(ORVTypes::pOracleDataStorageType, codes::kHeapStorage);
  }

  repora::ViewWriter writer;
};

REPCreateMaterializedView::REPCreateMaterializedView() = default;

REPCreateMaterializedView::~REPCreateMaterializedView() = default;

REPProcess_e REPCreateMaterializedView::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* item = nullptr;
  auto const added =
      processor->AddItem(processor->GetRoot(), ORVTypes::oCachedView, name_.Get(), item);
  bool const replace = added == REPProcessDuplicate && processor->GetIgnoreDuplicateViews();
  if (added != REPProcessOK && !replace) return added;
  Made view(*processor, *item, name_.Get(), replace);
  auto const owner = name_ ? name_->GetOwnerName(false) : std::string();
  repora::SetTextIfGiven(*item, ORVTypes::pDBOwner, owner);
  if (!query_) {
    processor->DisplaySemantic(REPMessage::SelectListMissing, repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  if (auto const result = query_->ProcessTableList(processor, item, owner.c_str(), false);
      result != REPProcessOK)
    return result;
  if (repora::KeepSqlIfUnmapped(view, *query_, *this)) return REPProcessOK;
  if (auto const result = ProcessColumns(view); result != REPProcessOK) return result;
  if (auto const result = ProcessStorage(view); result != REPProcessOK) return result;
  if (refresh_) {
    if (auto const result = refresh_->Process(processor, item); result != REPProcessOK)
      return result;
  }
  if (for_update_) view.writer.Boolean(ORVTypes::pUpdateable, true);
  if (rewrite_ == REPRewrite_e::Enable)
    view.writer.Integer(ORVTypes::pQueryRewriteState, codes::kRewriteEnabled);
  if (rewrite_ == REPRewrite_e::Disable)
    view.writer.Integer(ORVTypes::pQueryRewriteState, codes::kRewriteDisabled);
  return REPProcessOK;
}

// The view column by column, with its aliases.
REPProcess_e REPCreateMaterializedView::ProcessColumns(Made& view) const {
  if (auto const result = repora::MakeViewColumns(view, *query_); result != REPProcessOK)
    return result;
  if (aliases_) {
    if (!repora::AliasesFit(view, aliases_->GetCount())) return REPProcessError;
    view.processor.AliasNameListClear();
    for (int i = 0; i < aliases_->GetCount(); ++i) {
      auto* const column = repora::FindViewColumn(view.processor, view.item, i);
      if (!column) return REPProcessError;
      repora::RenameByAlias(view.processor, view.item, view.name, aliases_->GetName(i), *column);
    }
    view.processor.AliasNameListClear();
  }
  if (scopes_)
    view.processor.DisplayWarning(REPMessage::ScopeForUnsupported,
                                  view.processor.GetObjectDisplayString(view.item.Type()),
                                  repora::AsWritten(view.name));
  repora::WarnOfFlashback(view, *query_);
  return REPProcessOK;
}

REPProcess_e REPCreateMaterializedView::ProcessStorage(Made& view) const {
  if (prebuilt_ != REPPrebuilt_e::None) view.writer.Boolean(ORVTypes::pOraclePrebuiltTable, true);
  if (prebuilt_ == REPPrebuilt_e::WithReducedPrecision)
    view.writer.Boolean(ORVTypes::pOracleReducedPrecision, true);
  if (prebuilt_ == REPPrebuilt_e::WithoutReducedPrecision)
    view.writer.Boolean(ORVTypes::pOracleReducedPrecision, false);
  if (auto const result = ProcessOrganization(view); result != REPProcessOK) return result;
  if (auto const result = ProcessCluster(view); result != REPProcessOK) return result;
  ProcessSegment(view);
  ProcessCompression(view);
  if (properties_) {
    if (auto const result = properties_->Process(&view.processor, &view.item);
        result != REPProcessOK)
      return result;
  }
  ProcessUsingIndex(view);
  return REPProcessOK;
}

REPProcess_e REPCreateMaterializedView::ProcessOrganization(Made& view) const {
  auto const& writer = view.writer;
  switch (organization_) {
    case REPOrganization_e::Heap:
      writer.Integer(ORVTypes::pOracleDataStorageType, codes::kHeapStorage);
      return REPProcessOK;
    case REPOrganization_e::External:
      writer.Integer(ORVTypes::pOracleDataStorageType, codes::kIndexOrExternalStorage);
      writer.Integer(ORVTypes::pDataOrganizationType, codes::kExternal);
      return REPProcessOK;
    case REPOrganization_e::Index: break;
    default: return REPProcessOK;
  }
  writer.Integer(ORVTypes::pOracleDataStorageType, codes::kIndexOrExternalStorage);
  writer.Integer(ORVTypes::pDataOrganizationType, codes::kIndexOrganized);
  if (mapping_ == REPMapping_e::MappingTable)
    writer.Integer(ORVTypes::pTableMapping, codes::kMappingTable);
  if (mapping_ == REPMapping_e::NoMapping)
    writer.Integer(ORVTypes::pTableMapping, codes::kNoMapping);
  writer.TextIfGiven(ORVTypes::pPctThreshold, pct_threshold_);
  if (including_column_) {
    auto const column = repora::FindIncludingColumn(view.processor, view.item, *including_column_);
    if (column == 0) return REPProcessError;
    writer.Reference(ORVTypes::pIncludingColumn, column);
  }
  if (index_overflow_) writer.Boolean(ORVTypes::pIndexOverflow, true);
  if (overflow_segment_) {
    auto const* const storage =
        overflow_segment_->Process(&view.processor, &view.item, codes::kOverflowStorage);
    if (storage) writer.Reference(ORVTypes::pOracleOverflowStorageRef, storage->Id());
  }
  return REPProcessOK;
}

REPProcess_e REPCreateMaterializedView::ProcessCluster(Made& view) const {
  if (!cluster_) return REPProcessOK;
  auto const cluster = repora::FindCluster(view.processor, *cluster_);
  view.writer.Integer(ORVTypes::pOracleDataStorageType, codes::kClusteredStorage);
  view.writer.Reference(ORVTypes::pOracleClusterRef, cluster);
  if (!cluster_columns_ || cluster_columns_->GetCount() == 0) return REPProcessOK;
  std::vector<std::uint32_t> columns;
  if (!repora::FindClusterColumns(view.processor, view.item, *cluster_columns_, columns))
    return REPProcessError;
  view.writer.References(ORVTypes::pOracleClusterColumnsRef, columns);
  return REPProcessOK;
}

void REPCreateMaterializedView::ProcessSegment(Made& view) const {
  if (!segment_) return;
  bool const is_index = organization_ == REPOrganization_e::Index;
  auto const* const storage = segment_->Process(
      &view.processor, &view.item, is_index ? codes::kIndexStorage : codes::kRegularStorage);
  view.SetDefaultStorage();
  if (!storage) return;
  if (is_index)
    view.writer.Reference(ORVTypes::pOracleIndexStorageRef, storage->Id());
  else if (organization_ != REPOrganization_e::External)
    view.writer.Reference(ORVTypes::pOracleRegularStorageRef, storage->Id());
}

void REPCreateMaterializedView::ProcessCompression(Made& view) const {
  if (compression_ == REPCompress_e::Compress) {
    view.writer.Integer(ORVTypes::pCompressType, codes::kCompress);
    view.writer.TextIfGiven(ORVTypes::pCompressPrefixLength, compression_size_);
  } else if (compression_ == REPCompress_e::NoCompress) {
    view.writer.Integer(ORVTypes::pCompressType, codes::kNoCompress);
    view.item.RemoveProperty(ORVTypes::pCompressPrefixLength);
  } else {
    return;
  }
  view.SetDefaultStorage();
}

// The index that comes with the view has an item of its own only where something is said of it.
void REPCreateMaterializedView::ProcessUsingIndex(Made& view) const {
  if (using_index_ == REPUsingIndex_e::NoIndex)
    view.writer.Integer(ORVTypes::pUseIndex, codes::kUsingNoIndex);
  if (using_index_ != REPUsingIndex_e::Index) return;
  view.writer.Integer(ORVTypes::pUseIndex, codes::kUsingIndex);
  if (!index_tablespace_ && !index_attributes_) return;
  auto& processor = view.processor;
  auto* const index = processor.CreateItem(view.item.Id(), ORVTypes::oKeyGroup, nullptr);
  if (!index) return;
  repora::SetText(*index, ORVTypes::pKeyGroupType, codes::kAlternateKey);
  view.writer.Reference(ORVTypes::pIndexRef, index->Id());
  auto* const storage =
      processor.CreateItem(index->Id(), ORVTypes::oOracleAttributeStorage, nullptr);
  if (!storage) return;
  if (index_tablespace_)
    repora::SetReference(*storage, ORVTypes::pOracleTablespaceRef,
                         processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleTablespace,
                                                  index_tablespace_.Get()));
  if (index_attributes_) index_attributes_->Process(&processor, storage, codes::kRegularStorage);
}
