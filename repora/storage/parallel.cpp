#include "repora/storage/parallel.h"

#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"

using repora::SqlText;

void repora::WriteParallel(MOXActionSummaryItem& item, REPParallel_e parallel,
                           std::string_view degree) {
  if (parallel == REPParallel_e::NoParallel)
    SetInteger(item, ORVTypes::pUseParallel, codes::kNoParallel);
  if (parallel == REPParallel_e::Parallel || parallel == REPParallel_e::ParallelDegree) {
    SetInteger(item, ORVTypes::pUseParallel, codes::kParallel);
    SetTextIfGiven(item, ORVTypes::pOracleParallel, degree);
  }
}

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
  if (parallel_ != REPParallel_e::ParallelDegree)
    repora::WriteParallel(*item, parallel_, GetValue());
  return REPProcessOK;
}

std::string REPParallelClause::AsString() const {
  if (parallel_ != REPParallel_e::Parallel) return GetValue();
  return SqlText("PARALLEL").Option(GetValue()).Take();
}
