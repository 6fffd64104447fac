#include "reader/parse_refresh.h"

#include "reader/parse_materialized_views.h"
#include "reader/parse_names.h"

namespace repora::reader {
namespace {

// Words that end a date of a refresh.
bool EndsDate(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_COMPLETE:
    case K_FAST:
    case K_FORCE:
    case K_NEXT:
    case K_ON:
    case K_START:
    case K_USING:
    case K_WITH: return true;
    default: return StartsViewClause(in);
  }
}

// [DEFAULT] [MASTER | LOCAL] ROLLBACK SEGMENT [name]
std::unique_ptr<REPMaterializedViewRefreshRollback> ParseRollback(TokenStream& in) {
  auto rollback = std::make_unique<REPMaterializedViewRefreshRollback>();
  rollback->SetDefault(in.Accept(K_DEFAULT));
  if (in.Accept(K_MASTER))
    rollback->SetMaster(REPMaster_e::Master);
  else if (in.Accept(K_LOCAL))
    rollback->SetMaster(REPMaster_e::Local);
  in.Expect(K_ROLLBACK, K_SEGMENT);
  if (!rollback->GetDefault()) rollback->SetSegmentName(ParseName(in).release());
  return rollback;
}

}  // namespace

bool ParseRefreshOption(TokenStream& in, RefreshOptions& refresh) {
  auto const& token = in.Peek();
  if (in.Accept(K_FAST)) {
    refresh.SetRefreshFast(REPRefreshFast_e::Fast);
  } else if (in.Accept(K_COMPLETE)) {
    refresh.SetRefreshFast(REPRefreshFast_e::Complete);
  } else if (in.Accept(K_FORCE)) {
    refresh.SetRefreshFast(REPRefreshFast_e::Force);
  } else if (in.Accept(K_ON, K_DEMAND)) {
    refresh.SetRefreshOn(REPRefreshOn_e::Demand);
  } else if (in.Accept(K_ON, K_COMMIT)) {
    refresh.SetRefreshOn(REPRefreshOn_e::Commit);
  } else if (in.Accept(K_ON, K_STATEMENT)) {
    in.Note(token, "clause ON STATEMENT is skipped");
  } else if (in.Accept(K_START, K_WITH)) {
    refresh.SetStartDate(ParseExpression(in, EndsDate)->AsString().c_str());
  } else if (in.Accept(K_NEXT)) {
    refresh.SetNextDate(ParseExpression(in, EndsDate)->AsString().c_str());
  } else if (in.Accept(K_WITH)) {
    if (in.Accept(K_PRIMARY)) {
      in.Expect(K_KEY);
      refresh.SetRefreshWith(REPRefreshWith_e::PrimaryKey);
    } else if (in.Accept(K_ROWID)) {
      refresh.SetRefreshWith(REPRefreshWith_e::RowId);
    } else {
      in.Fail("PRIMARY KEY or ROWID");
    }
  } else {
    return false;
  }
  return true;
}

bool ParseRefreshUsing(TokenStream& in, RefreshOptions& refresh, Rollbacks& rollbacks) {
  if (IsUsingIndex(in) || !in.Accept(K_USING)) return false;
  for (bool first = true;; first = false) {
    switch (in.Peek().word) {
      case K_DEFAULT:
      case K_LOCAL:
      case K_MASTER:
      case K_ROLLBACK: rollbacks.push_back(ParseRollback(in)); break;
      case K_ENFORCED:
        in.Expect(K_ENFORCED, K_CONSTRAINTS);
        refresh.SetRefreshConstraints(REPRefreshConstraints_e::Enforced);
        break;
      case K_TRUSTED:
        in.Expect(K_TRUSTED, K_CONSTRAINTS);
        refresh.SetRefreshConstraints(REPRefreshConstraints_e::Trusted);
        break;
      case K_LOGICAL: {
        auto const& token = in.Peek();
        in.Expect(K_LOGICAL, K_PARTITION, K_CHANGE, K_TRACKING);
        in.Note(token, "clause USING LOGICAL PARTITION CHANGE TRACKING is skipped");
        break;
      }
      default:
        if (first) in.Fail("a rollback segment or constraints");
        return true;
    }
  }
}

std::unique_ptr<REPMaterializedViewRefresh> ParseRefresh(TokenStream& in) {
  auto refresh = std::make_unique<REPMaterializedViewRefresh>();
  if (in.Accept(K_NEVER, K_REFRESH)) {
    refresh->SetRefresh(REPRefresh_e::Never);
    return refresh;
  }
  in.Expect(K_REFRESH);
  refresh->SetRefresh(REPRefresh_e::Refresh);
  Rollbacks rollbacks;
  while (ParseRefreshOption(in, *refresh) || ParseRefreshUsing(in, *refresh, rollbacks)) continue;
  for (auto rollback = rollbacks.rbegin(); rollback != rollbacks.rend(); ++rollback)
    refresh->AddRollback(rollback->release());
  return refresh;
}

}  // namespace repora::reader
