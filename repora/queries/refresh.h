#pragma once

#include <string>
#include <string_view>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;

// [DEFAULT] [MASTER | LOCAL] ROLLBACK SEGMENT [name]
// The rollback segment that a refresh uses on one side.
class REPMaterializedViewRefreshRollback {
 public:
  void SetDefault(bool is_default) { default_ = is_default; }
  bool GetDefault() const { return default_; }
  // Anything but MASTER is the local side.
  void SetMaster(REPMaster_e side) { side_ = side; }
  REPMaster_e GetMaster() const { return side_; }
  void SetSegmentName(REPName* name) { segment_.Set(name); }
  REPName* GetSegmentName() const { return segment_.Get(); }

  // A second segment of a side is an error, and reported.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view) const;
  std::string AsString() const;

 private:
  bool default_ = false;
  REPMaster_e side_{};
  repora::Owned<REPName> segment_;
};

// Rollback segments in order, owned.
class REPMaterializedViewRefreshRollbackList final {
 public:
  virtual std::string AsString() const;

  void AddHead(REPMaterializedViewRefreshRollback* rollback) { rollbacks_.AddHead(rollback); }
  void AddTail(REPMaterializedViewRefreshRollback* rollback) { rollbacks_.AddTail(rollback); }
  int GetCount() const { return rollbacks_.GetCount(); }
  REPMaterializedViewRefreshRollback* GetRollback(int index) const { return rollbacks_.At(index); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view) const;

 private:
  repora::OwnedList<REPMaterializedViewRefreshRollback> rollbacks_;
};

namespace repora {

// [FAST | COMPLETE | FORCE] [ON DEMAND | ON COMMIT] [START WITH date] [NEXT date]
//   [WITH PRIMARY KEY | WITH ROWID] [USING [rollback] [{ENFORCED | TRUSTED} CONSTRAINTS]]
// What a refresh and a change of it say alike.
class RefreshOptions {
 public:
  void SetRefreshFast(REPRefreshFast_e method) { method_ = method; }
  REPRefreshFast_e GetRefreshFast() const { return method_; }
  void SetRefreshOn(REPRefreshOn_e moment) { moment_ = moment; }
  REPRefreshOn_e GetRefreshOn() const { return moment_; }
  void SetRefreshWith(REPRefreshWith_e key) { key_ = key; }
  REPRefreshWith_e GetRefreshWith() const { return key_; }
  void SetRefreshConstraints(REPRefreshConstraints_e constraints) { constraints_ = constraints; }
  REPRefreshConstraints_e GetRefreshConstraints() const { return constraints_; }
  // Date expressions, as the script has them.
  void SetStartDate(char const* text) { start_ = text; }
  char const* GetStartDate() const { return start_.c_str(); }
  void SetNextDate(char const* text) { next_ = text; }
  char const* GetNextDate() const { return next_.c_str(); }

 protected:
  ~RefreshOptions() = default;

  // That the view is refreshed, and how.
  void WriteRefresh(MOXActionSummaryItem& view) const;
  // REFRESH and its options, with the text of the rollback segments within USING.
  std::string RefreshText(std::string_view rollbacks) const;

 private:
  REPRefreshFast_e method_{};
  REPRefreshOn_e moment_{};
  REPRefreshWith_e key_{};
  REPRefreshConstraints_e constraints_{};
  Text start_;
  Text next_;
};

}  // namespace repora

// NEVER REFRESH | REFRESH [options] [USING {[DEFAULT] [MASTER | LOCAL] ROLLBACK SEGMENT [name]}...]
class REPMaterializedViewRefresh : public repora::RefreshOptions {
 public:
  virtual ~REPMaterializedViewRefresh() = default;
  virtual std::string AsString() const;

  void SetRefresh(REPRefresh_e refresh) { refresh_ = refresh; }
  REPRefresh_e GetRefresh() const { return refresh_; }
  // Adds at the head of the list: rollback segments are added from the last to the first.
  void AddRollback(REPMaterializedViewRefreshRollback* rollback) { rollbacks_.AddHead(rollback); }
  REPMaterializedViewRefreshRollbackList const& GetRollbacks() const { return rollbacks_; }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view) const;

 private:
  REPRefresh_e refresh_{};
  REPMaterializedViewRefreshRollbackList rollbacks_;
};
