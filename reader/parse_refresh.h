#pragma once

#include <memory>
#include <vector>

#include "reader/token_stream.h"
#include "repora/queries/refresh.h"

namespace repora::reader {

using Rollbacks = std::vector<std::unique_ptr<REPMaterializedViewRefreshRollback>>;

// FAST | COMPLETE | FORCE | ON DEMAND | ON COMMIT | START WITH date | NEXT date |
// WITH PRIMARY KEY | WITH ROWID; false when none comes.
bool ParseRefreshOption(TokenStream& in, RefreshOptions& refresh);

// USING {[DEFAULT] [MASTER | LOCAL] ROLLBACK SEGMENT [name] | ENFORCED CONSTRAINTS |
// TRUSTED CONSTRAINTS}...; false when none comes.
bool ParseRefreshUsing(TokenStream& in, RefreshOptions& refresh, Rollbacks& rollbacks);

// NEVER REFRESH | REFRESH [option]...
std::unique_ptr<REPMaterializedViewRefresh> ParseRefresh(TokenStream& in);

}  // namespace repora::reader
