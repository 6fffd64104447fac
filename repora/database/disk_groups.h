#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;

// How many copies of its files a disk group keeps.
enum class REPRedundancy_e : int { None, High, Normal, External };
enum class REPForce_e : int { None, Force, NoForce };

namespace repora {

// As in core/keywords.h.
std::string_view Keyword(REPRedundancy_e value);
std::string_view Keyword(REPForce_e value);

}  // namespace repora

// The virtual operations of these clauses are slots of their interface to parsers, not points of
// extension.

// 'search string' [NAME name] [SIZE size] [FORCE | NOFORCE]
// The disks that a search string finds.
class REPQualifiedDiskClause final {
 public:
  virtual std::string AsString() const;

  // Kept and rendered as it is; the model gets it without the quotes around it.
  void SetSearchString(char const* text) { search_string_ = text; }
  char const* GetSearchString() const { return search_string_.c_str(); }
  void SetDiskName(REPName* name) { name_.Set(name); }
  REPName* GetDiskName() const { return name_.Get(); }
  void SetSizeClause(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSizeClause() const { return size_; }
  void SetForce(REPForce_e force) { force_ = force; }
  REPForce_e GetForce() const { return force_; }

  // Adds the disk under its failure group; a disk without a name is always a new one.
  // REPProcessDuplicate when the failure group has a disk of that name.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* failgroup) const;

 private:
  repora::Text search_string_;
  repora::Owned<REPName> name_;
  REPSizeClause size_;
  REPForce_e force_{};
};

// [FAILGROUP name] DISK disk [, disk]...
class REPFailgroup final {
 public:
  virtual std::string AsString() const;

  // Null: the disks have no FAILGROUP.
  void SetFailgroupName(REPName* name) { name_.Set(name); }
  REPName* GetFailgroupName() const { return name_.Get(); }
  void AddQualifiedDiskClause(REPQualifiedDiskClause* disk) { disks_.AddTail(disk); }
  int GetNumQualifiedDiskClauses() const { return disks_.GetCount(); }
  REPQualifiedDiskClause* GetQualifiedDiskClause(int index) const { return disks_.At(index); }

  // Adds a failure group under the disk group, whether or not it has one of that name, and its
  // disks under it. The first result of a disk that is not REPProcessOK ends it.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* disk_group) const;

 private:
  repora::Owned<REPName> name_;
  repora::OwnedList<REPQualifiedDiskClause> disks_;
};

// Failure groups in order, owned; rendered one behind the other.
class REPFailgroupList : public repora::ClauseList<REPFailgroup> {
 public:
  // The first result that is not REPProcessOK ends the list.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* disk_group) const;
  std::string AsString() const { return Join(" ", false); }
};

// CREATE DISKGROUP name [{HIGH | NORMAL | EXTERNAL} REDUNDANCY] failgroup [failgroup]...
class REPCreateDiskgroup final : public REPStatement {
 public:
  void SetDiskgroupName(REPName* name) { name_.Set(name); }
  REPName* GetDiskgroupName() const { return name_.Get(); }
  void SetRedundancy(REPRedundancy_e redundancy) { redundancy_ = redundancy; }
  REPRedundancy_e GetRedundancy() const { return redundancy_; }
  void AddFailgroup(REPFailgroup* failgroup) { failgroups_.AddTail(failgroup); }
  REPFailgroupList const& GetFailgroups() const { return failgroups_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  REPRedundancy_e redundancy_{};
  REPFailgroupList failgroups_;
};
