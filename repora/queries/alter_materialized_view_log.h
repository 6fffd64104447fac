#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/queries/materialized_view_logs.h"

class REPAllocExtentClause;
class REPAlterTablePartitioning;

// ALTER MATERIALIZED VIEW LOG [FORCE] ON [owner.]table [options] [SHRINK SPACE ...] [partitioning]
//   [ALLOCATE EXTENT ...] [ADD contents]
class REPAlterMaterializedViewLog final : public REPStatement, public repora::LogOptions {
 public:
  REPAlterMaterializedViewLog();
  ~REPAlterMaterializedViewLog() override;

  // Both rendered only.
  void SetForce(bool force) { force_ = force; }
  bool GetForce() const { return force_; }
  void SetShrink(REPShrink_e shrink) { shrink_ = shrink; }
  REPShrink_e GetShrink() const { return shrink_; }
  void SetAllocExtentClause(REPAllocExtentClause* clause) { allocate_.Set(clause); }
  REPAllocExtentClause* GetAllocExtentClause() const { return allocate_.Get(); }
  void SetAlterPartitioning(REPAlterTablePartitioning* clause) { partitioning_.Set(clause); }
  REPAlterTablePartitioning* GetAlterPartitioning() const { return partitioning_.Get(); }

  // REPProcessError, with a message, when the model has no such table or the table no log.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  bool force_ = false;
  REPShrink_e shrink_{};
  repora::Owned<REPAllocExtentClause> allocate_;
  repora::Owned<REPAlterTablePartitioning> partitioning_;
};
