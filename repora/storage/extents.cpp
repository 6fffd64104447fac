#include "repora/storage/extents.h"

#include "repora/core/properties.h"
#include "repora/core/sql_text.h"

using repora::SqlText;

REPProcess_e REPAllocExtentClause::Process(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  repora::SetTextIfGiven(*item, ORVTypes::pOracleSize, size_.AsString());
  return REPProcessOK;
}

std::string REPAllocExtentClause::AsString() const {
  auto const details = SqlText()
                           .PartClause("SIZE ", size_.AsString())
                           .PartClause("DATAFILE ", file_.Get())
                           .PartClause("INSTANCE ", instance_)
                           .Take();
  SqlText sql("ALLOCATE EXTENT");
  if (!details.empty()) sql.Append(" (").Append(details).Append(")");
  return sql.Take();
}

std::string REPDeallocateUnusedClause::AsString() const {
  SqlText sql("DEALLOCATE UNUSED");
  if (keep_.GetType() != REPSizeType_e::None) sql.Append(" KEEP ").Append(keep_.AsString());
  return sql.Take();
}
