#include "repora/queries/alter_materialized_view.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/materialized_views.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/alter_partitions.h"
#include "repora/tables/organisation_items.h"
#include "repora/tables/table_organisation.h"

using repora::SqlText;
using repora::TextOf;

namespace codes = repora::codes;

namespace {

// DISABLE brings a trailing blank of its own.
std::string_view KindText(REPMViewType_e kind) {
  switch (kind) {
    case REPMViewType_e::None: break;
    case REPMViewType_e::EnableRewrite: return " ENABLE QUERY REWRITE";
    case REPMViewType_e::DisableRewrite: return " DISABLE QUERY REWRITE ";
    case REPMViewType_e::Compile: return " COMPILE";
    case REPMViewType_e::ConsiderFresh: return " CONSIDER FRESH";
  }
  return {};
}

}  // namespace

REPAlterMaterializedView::REPAlterMaterializedView() = default;

REPAlterMaterializedView::~REPAlterMaterializedView() = default;

REPProcess_e REPAlterMaterializedView::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const view =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oCachedView, name_.Get());
  if (!view) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oCachedView),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  repora::WriteParallel(*view, parallel_, parallel_size_);
  if (physical_) physical_->Process(processor, view, codes::kRegularStorage);
  repora::SetChoice(*view, ORVTypes::pOracleNoLogging, logging_);
  repora::SetChoice(*view, ORVTypes::pOracleCache, cache_);
  if (using_index_ == REPUsingIndex_e::Index)
    repora::SetInteger(*view, ORVTypes::pUseIndex, codes::kUsingIndex);
  if (auto const result = ProcessLobs(processor, *view); result != REPProcessOK) return result;
  if (auto const result = ProcessIndexOrganization(processor, *view); result != REPProcessOK)
    return result;
  if (refresh_) ProcessRefresh(*processor, *view);
  return REPProcessOK;
}

REPProcess_e REPAlterMaterializedView::ProcessLobs(REPProcessor* processor,
                                                   MOXActionSummaryItem& view) const {
  auto const result = lobs_.Process(processor, &view, &view);
  return result == REPProcessOK ? modified_lobs_.Process(processor, &view) : result;
}

REPProcess_e REPAlterMaterializedView::ProcessIndexOrganization(REPProcessor* processor,
                                                                MOXActionSummaryItem& view) const {
  repora::SetTextIfGiven(view, ORVTypes::pPctThreshold, pct_threshold_);
  if (including_column_) {
    auto const column = repora::FindIncludingColumn(*processor, view, *including_column_);
    if (column == 0) return REPProcessError;
    repora::SetReference(view, ORVTypes::pIncludingColumn, column);
  }
  if (index_overflow_) repora::SetBoolean(view, ORVTypes::pIndexOverflow, true);
  return add_overflow_ ? add_overflow_->Process(processor, &view) : REPProcessOK;
}

void REPAlterMaterializedView::ProcessRefresh(REPProcessor& processor,
                                              MOXActionSummaryItem& view) const {
  WriteRefresh(view);
  auto const reference = ORVTypes::pRefreshMasterRollbackSegReference;
  if (rollback_ == REPRefreshRollback_e::DefaultMaster) {
    repora::SetInteger(view, ORVTypes::pRefreshMasterRollbackSegState,
                       codes::kRollbackSegmentDefault);
    if (repora::HasProperty(view, reference)) view.SetProperty(reference, QELValue());
  }
  if (rollback_ != REPRefreshRollback_e::Master) return;
  repora::SetInteger(view, ORVTypes::pRefreshMasterRollbackSegState, codes::kRollbackSegmentNamed);
  if (rollback_segment_)
    repora::SetReference(
        view, reference,
        processor.FindCreateItem(processor.GetRoot(), ORVTypes::oOracleRollbackSegment,
                                 rollback_segment_.Get()));
}

std::string REPAlterMaterializedView::RollbackText() const {
  switch (rollback_) {
    case REPRefreshRollback_e::None: break;
    case REPRefreshRollback_e::DefaultMaster: return "DEFAULT MASTER ROLLBACK SEGMENT";
    case REPRefreshRollback_e::Master:
      return SqlText("MASTER ROLLBACK SEGMENT ").Name(rollback_segment_.Get()).Take();
  }
  return {};
}

std::string REPAlterMaterializedView::AsString() const {
  bool const has_cache = cache_ == REPCache_e::NoCache || cache_ == REPCache_e::Cache;
  SqlText sql("ALTER MATERIALIZED VIEW ");
  sql.Name(name_.Get())
      .AppendIf(using_index_ == REPUsingIndex_e::Index, " USING INDEX")
      .Option(TextOf(physical_.Get()))
      .Option(repora::Keyword(compression_))
      .Option(lobs_.AsString())
      .Option(modified_lobs_.AsString())
      .Option(TextOf(partitioning_.Get()))
      .Option(repora::Keyword(parallel_))
      .Option(parallel_size_)
      .Option(repora::Keyword(logging_))
      .Option(TextOf(allocate_.Get()))
      .Option(has_cache ? repora::Keyword(cache_) : std::string_view())
      .Option(repora::Keyword(shrink_))
      .Clause(" PCTTHRESHOLD ", pct_threshold_)
      .Clause(" INCLUDING ", including_column_.Get())
      .AppendIf(index_overflow_, " OVERFLOW")
      .Option(TextOf(segment_.Get()))
      .Option(TextOf(add_overflow_.Get()))
      .AppendIf(coalesce_, " COALESCE")
      .Option(TextOf(deallocate_.Get()))
      .Clause(" USING INDEX ", TextOf(index_attributes_.Get()))
      .Clause(" MODIFY ", TextOf(scopes_.Get()));
  if (refresh_) sql.Append(" ").Append(RefreshText(RollbackText()));
  return sql.Append(KindText(kind_)).Append(";").Take();
}
