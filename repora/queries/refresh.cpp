#include "repora/queries/refresh.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

REPProcess_e REPMaterializedViewRefreshRollback::Process(REPProcessor* processor,
                                                         MOXActionSummaryItem* view) const {
  if (!processor || !view) return REPProcessError;
  bool const is_master = side_ == REPMaster_e::Master;
  auto const state = is_master ? ORVTypes::pRefreshMasterRollbackSegState
                               : ORVTypes::pRefreshLocalRollbackSegState;
  auto const reference = is_master ? ORVTypes::pRefreshMasterRollbackSegReference
                                   : ORVTypes::pRefreshLocalRollbackSegReference;
  if (repora::HasProperty(*view, state)) {
    processor->DisplayWarning(REPMessage::InvalidRefreshOptions, view->Name());
    return REPProcessError;
  }
  if (default_) {
    repora::SetInteger(*view, state, codes::kRollbackSegmentDefault);
    return REPProcessOK;
  }
  repora::SetInteger(*view, state, codes::kRollbackSegmentNamed);
  if (!segment_) return REPProcessOK;
  if (repora::HasProperty(*view, reference)) return REPProcessError;
  repora::SetReference(*view, reference,
                       processor->FindCreateItem(processor->GetRoot(),
                                                 ORVTypes::oOracleRollbackSegment, segment_.Get()));
  return REPProcessOK;
}

std::string REPMaterializedViewRefreshRollback::AsString() const {
  return SqlText()
      .Part(default_ ? "DEFAULT" : "")
      .Part(repora::Keyword(side_))
      .Part("ROLLBACK SEGMENT")
      .Clause(" ", segment_.Get())
      .Take();
}

REPProcess_e REPMaterializedViewRefreshRollbackList::Process(REPProcessor* processor,
                                                             MOXActionSummaryItem* view) const {
  return rollbacks_.ProcessAll([&](REPMaterializedViewRefreshRollback const& rollback) {
    return rollback.Process(processor, view);
  });
}

std::string REPMaterializedViewRefreshRollbackList::AsString() const {
  return rollbacks_.Join(" ", false, [](REPMaterializedViewRefreshRollback const& rollback) {
    return rollback.AsString();
  });
}

namespace repora {
namespace {

// The code of a choice, where the first code belongs to value 1; nothing for other values.
template <class Choice, std::size_t N>
void SetCode(MOXActionSummaryItem& item, MOXId property, Choice choice,
             std::int32_t const (&choices)[N]) {
  auto const number = static_cast<int>(choice);
  if (number >= 1 && number <= static_cast<int>(N)) SetInteger(item, property, choices[number - 1]);
}

constexpr std::int32_t kMethods[] = {codes::kRefreshFast, codes::kRefreshComplete,
                                     codes::kRefreshForce};
constexpr std::int32_t kMoments[] = {codes::kRefreshOnDemand, codes::kRefreshOnCommit};
constexpr std::int32_t kKeys[] = {codes::kRefreshWithPrimaryKey, codes::kRefreshWithRowId};
constexpr std::int32_t kConstraints[] = {codes::kConstraintsEnforced, codes::kConstraintsTrusted};

}  // namespace

void RefreshOptions::WriteRefresh(MOXActionSummaryItem& view) const {
  SetInteger(view, ORVTypes::pRefreshState, codes::kRefreshed);
  SetCode(view, ORVTypes::pRefreshType, method_, kMethods);
  SetCode(view, ORVTypes::pRefreshOnWhat, moment_, kMoments);
  SetTextIfGiven(view, ORVTypes::pRefreshStartDate, start_);
  SetTextIfGiven(view, ORVTypes::pRefreshNextDate, next_);
  SetCode(view, ORVTypes::pRefreshWithKey, key_, kKeys);
  SetCode(view, ORVTypes::pOracleUsingConstraintType, constraints_, kConstraints);
}

std::string RefreshOptions::RefreshText(std::string_view rollbacks) const {
  SqlText sql("REFRESH");
  sql.Option(Keyword(method_))
      .Option(Keyword(moment_))
      .Clause(" START WITH ", start_)
      .Clause(" NEXT ", next_)
      .Option(Keyword(key_));
  auto const constraints = Keyword(constraints_);
  if (rollbacks.empty() && constraints.empty()) return sql.Take();
  sql.Append(" USING ");
  // A blank stands behind the segments also where no constraints follow.
  if (!rollbacks.empty()) sql.Append(rollbacks).Append(" ");
  return sql.Append(constraints).Take();
}

}  // namespace repora

REPProcess_e REPMaterializedViewRefresh::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* view) const {
  if (!processor || !view) return REPProcessError;
  if (refresh_ == REPRefresh_e::Never) {
    repora::SetInteger(*view, ORVTypes::pRefreshState, codes::kNeverRefreshed);
    return REPProcessOK;
  }
  WriteRefresh(*view);
  return rollbacks_.Process(processor, view);
}

std::string REPMaterializedViewRefresh::AsString() const {
  if (refresh_ == REPRefresh_e::Never) return std::string(repora::Keyword(refresh_));
  return RefreshText(rollbacks_.AsString());
}
