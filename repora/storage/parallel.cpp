#include "repora/storage/parallel.h"

#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"

using repora::SqlText;

std::string REPParallelClause::GetValue() const {
  if (parallel_ == REPParallel_e::NoParallel) return "NOPARALLEL";
  if (parallel_ != REPParallel_e::Parallel) return {};
  if (size_ > 0) return std::to_string(size_);
  if (degree_.empty() && instances_.empty()) return {};
  return SqlText("(")
      .PartClause("DEGREE ", degree_)
      .PartClause("INSTANCES ", instances_)
      .Append(")")
      .Take();
}

REPProcess_e REPParallelClause::Process(REPProcessor* /*processor*/,
                                        MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  if (parallel_ == REPParallel_e::NoParallel)
    repora::SetInteger(*item, ORVTypes::pUseParallel, repora::codes::kNoParallel);
  if (parallel_ == REPParallel_e::Parallel) {
    repora::SetInteger(*item, ORVTypes::pUseParallel, repora::codes::kParallel);
    repora::SetTextIfGiven(*item, ORVTypes::pOracleParallel, GetValue());
  }
  return REPProcessOK;
}

std::string REPParallelClause::AsString() const {
  if (parallel_ != REPParallel_e::Parallel) return GetValue();
  return SqlText("PARALLEL").Option(GetValue()).Take();
}
