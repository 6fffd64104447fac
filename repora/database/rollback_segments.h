#pragma once

#include <string>
#include <utility>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/tablespace_options.h"
#include "repora/storage/storage_clause.h"

// CREATE [PUBLIC] ROLLBACK SEGMENT name [TABLESPACE name] [storage_clause]
class REPCreateRollbackSegment final : public REPStatement {
 public:
  void SetStorageClause(REPStorageClause storage) { storage_ = std::move(storage); }
  REPStorageClause GetStorageClause() const { return storage_; }
  void SetSegmentName(REPName* name) { name_.Set(name); }
  REPName* GetSegmentName() const { return name_.Get(); }
  void SetTableSpace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTableSpace() const { return tablespace_.Get(); }
  void SetPublic() { public_ = true; }
  bool GetPublic() const { return public_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPStorageClause storage_;
  repora::Owned<REPName> name_;
  repora::Owned<REPName> tablespace_;
  bool public_ = false;
};

// ALTER ROLLBACK SEGMENT name [ONLINE | OFFLINE] [storage_clause] [SHRINK [TO size]]
// The model does not change by SHRINK, which is only rendered.
class REPAlterRollbackSegment final : public REPStatement {
 public:
  void SetSegmentName(REPName* name) { name_.Set(name); }
  REPName* GetSegmentName() const { return name_.Get(); }
  void SetStorageClause(REPStorageClause storage) { storage_ = std::move(storage); }
  REPStorageClause GetStorageClause() const { return storage_; }
  void SetShrink(bool shrink) { shrink_ = shrink; }
  bool GetShrink() const { return shrink_; }
  void SetShrinkClause(REPSizeClause size) { shrink_size_ = std::move(size); }
  REPSizeClause GetShrinkClause() const { return shrink_size_; }
  // Online and offline; other values say nothing here.
  void SetOnOff(REPOnOff_e on_off) { on_off_ = on_off; }
  REPOnOff_e GetOnOff() const { return on_off_; }

  // REPProcessError, with a message, when the model has no such segment.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  REPStorageClause storage_;
  bool shrink_ = false;
  REPSizeClause shrink_size_;
  REPOnOff_e on_off_{};
};
