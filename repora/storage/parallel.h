#pragma once

#include <string>
#include <string_view>

#include "repora/core/keywords.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;

namespace repora {

// How a statement that keeps the degree apart runs: not in parallel, or in parallel with the degree
// when there is one. PARALLEL with and without a degree is the same here; other values write
// nothing.
void WriteParallel(MOXActionSummaryItem& item, REPParallel_e parallel, std::string_view degree);

}  // namespace repora

// NOPARALLEL | PARALLEL [n | ( [DEGREE n] [INSTANCES n] )]
// The degree is part of the clause, so REPParallel_e::ParallelDegree has no meaning here.
class REPParallelClause {
 public:
  REPParallelClause() = default;
  explicit REPParallelClause(REPParallelClause const* other)
      : REPParallelClause(repora::CopyOf(other)) {}
  REPParallelClause& operator=(REPParallelClause const* other) {
    return *this = repora::CopyOf(other);
  }

  void SetParallel(REPParallel_e parallel) { parallel_ = parallel; }
  REPParallel_e GetParallel() const { return parallel_; }
  // The degree of the short form, 0 for none; as text a decimal number.
  void SetSize(int degree) { size_ = degree; }
  void SetSize(char const* text) { size_ = repora::ToInt(text); }
  int GetSize() const { return size_; }
  void SetDegree(char const* text) { degree_ = text; }
  void SetInstances(char const* text) { instances_ = text; }

  // NOPARALLEL, the degree, or the form in parentheses; empty for PARALLEL alone.
  std::string GetValue() const;

  // Writes the clause on the item. The processor is not used and may be null; without an item
  // nothing is written and the result is REPProcessError.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* item) const;
  std::string AsString() const;

 private:
  REPParallel_e parallel_{};
  int size_ = 0;
  repora::Text degree_;
  repora::Text instances_;
};
