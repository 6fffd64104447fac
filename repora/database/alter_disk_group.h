#pragma once

#include <string>
#include <utility>
#include <vector>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/disk_groups.h"
#include "repora/storage/size.h"

// What a clause of ALTER DISKGROUP does. Those of "All" are for all disk groups.
enum class REPAlterDGType_e : int {
  None,
  Add,  // disks and failure groups
  DropDisk,
  DropDisksInFailgroup,
  ResizeAll,
  ResizeDisk,
  ResizeDisksInFailgroup,
  UndropDisks,
  AllUndropDisks,
  Rebalance,
  RebalancePower,
  CheckAll,
  CheckDisk,
  CheckDisksInFailgroup,
  CheckFile,
  AddTemplate,
  AlterTemplate,
  DropTemplate,
  AddDirectory,
  DropDirectory,
  RenameDirectory,
  AddAlias,
  DropAlias,
  RenameAlias,
  DropFile,
  Mount,
  AllMount,
  Dismount,
  DismountForce,
  DismountNoForce,
  AllDismount,
  AllDismountForce,
  AllDismountNoForce
};
enum class REPRepair_e : int { None, Repair, NoRepair };
enum class REPMirror_e : int { None, Mirror, Unprotected };
enum class REPFine_e : int { None, Fine, Coarse };

// name ADD failgroup [failgroup]...
// name DROP {DISK disk [FORCE | NOFORCE] [, ...] | DISKS IN FAILGROUP failgroup [FORCE | NOFORCE]
//   [, ...]}
// name RESIZE {ALL [SIZE size] | DISK disk [SIZE size] [, ...] | DISKS IN FAILGROUP failgroup
//   [SIZE size] [, ...]}
// {name | ALL} UNDROP DISKS
// name REBALANCE [POWER n]
// name CHECK {ALL | DISK disk [, ...] | DISKS IN FAILGROUP failgroup [, ...] | FILE 'file' [, ...]}
//   [REPAIR | NOREPAIR]
// name {ADD | ALTER} TEMPLATE template ATTRIBUTES([MIRROR | UNPROTECTED] [FINE | COARSE]) [, ...]
// name DROP TEMPLATE template [, ...]
// name ADD DIRECTORY 'directory' [, ...]
// name DROP DIRECTORY 'directory' [FORCE | NOFORCE] [, ...]
// name RENAME DIRECTORY 'directory' TO 'directory' [, ...]
// name ADD ALIAS 'alias' FOR 'file' [, ...]
// name DROP ALIAS 'alias' [, ...]
// name RENAME ALIAS 'alias' TO 'alias' [, ...]
// name DROP FILE 'file' [, ...]
// {name | ALL} {MOUNT | DISMOUNT [FORCE | NOFORCE]}
//
// One clause, which names its disk group itself. Its operands are lists in the order of the script:
// what stands behind a name (a size, FORCE, attributes, a new name) is at the name's position in a
// list of its own. A list may be shorter, as if nothing stood there. File names, directories and
// aliases are kept and rendered with the quotes of the script.
class REPDiskgroupClause final {
 public:
  virtual std::string AsString() const;

  void SetDiskgroupName(REPName* name) { name_.Set(name); }
  REPName* GetDiskgroupName() const { return name_.Get(); }
  void SetAlterDGType(REPAlterDGType_e type) { type_ = type; }
  REPAlterDGType_e GetAlterDGType() const { return type_; }

  void AddFailgroup(REPFailgroup* failgroup) { failgroups_.AddTail(failgroup); }
  REPFailgroupList const& GetFailgroups() const { return failgroups_; }
  void AddDiskName(REPName* name) { disk_names_.AddTail(name); }
  REPNameList const& GetDiskNames() const { return disk_names_; }
  void AddFailgroupName(REPName* name) { failgroup_names_.AddTail(name); }
  REPNameList const& GetFailgroupNames() const { return failgroup_names_; }
  // The size of RESIZE ALL.
  void SetSizeClause(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSizeClause() const { return size_; }
  // The sizes of the disks or failure groups that are named.
  void AddSizeClause(REPSizeClause size) { sizes_.push_back(std::move(size)); }
  std::vector<REPSizeClause> const& GetSizeClauses() const { return sizes_; }
  // Of disks, failure groups or directories that are dropped.
  void AddForce(REPForce_e force) { forces_.push_back(force); }
  std::vector<REPForce_e> const& GetForces() const { return forces_; }
  void SetRebalancePower(char const* power) { power_ = power; }
  char const* GetRebalancePower() const { return power_.c_str(); }
  void SetRepair(REPRepair_e repair) { repair_ = repair; }
  REPRepair_e GetRepair() const { return repair_; }
  void AddTemplateName(REPName* name) { template_names_.AddTail(name); }
  REPNameList const& GetTemplateNames() const { return template_names_; }
  void AddMirror(REPMirror_e mirror) { mirrors_.push_back(mirror); }
  std::vector<REPMirror_e> const& GetMirrors() const { return mirrors_; }
  void AddFine(REPFine_e fine) { fines_.push_back(fine); }
  std::vector<REPFine_e> const& GetFines() const { return fines_; }
  // Directories that are dropped or renamed.
  void AddOldDirName(char const* name) { old_directories_.emplace_back(name); }
  std::vector<repora::Text> const& GetOldDirNames() const { return old_directories_; }
  // Directories that are added, or names for those that are renamed.
  void AddNewDirName(char const* name) { new_directories_.emplace_back(name); }
  std::vector<repora::Text> const& GetNewDirNames() const { return new_directories_; }
  void AddAliasName(char const* name) { aliases_.emplace_back(name); }
  std::vector<repora::Text> const& GetAliasNames() const { return aliases_; }
  // Names for the aliases that are renamed.
  void AddNewAliasName(char const* name) { new_aliases_.emplace_back(name); }
  std::vector<repora::Text> const& GetNewAliasNames() const { return new_aliases_; }
  // Files that are checked or dropped, or get an alias.
  void AddFilename(char const* name) { files_.emplace_back(name); }
  std::vector<repora::Text> const& GetFilenames() const { return files_; }

  // Adds disks or resizes them. All else is reported as unsupported, and a disk group that the
  // model does not have as missing: both are REPProcessError.
  REPProcess_e Process(REPProcessor* processor) const;

 private:
  std::string Operands() const;
  std::string Templates() const;  // with their attributes
  void ResizeDisks(REPProcessor& processor, MOXActionSummaryItem const& group) const;

  repora::Owned<REPName> name_;
  REPAlterDGType_e type_{};
  REPFailgroupList failgroups_;
  REPNameList disk_names_;
  REPNameList failgroup_names_;
  REPSizeClause size_;
  std::vector<REPSizeClause> sizes_;
  std::vector<REPForce_e> forces_;
  repora::Text power_;
  REPRepair_e repair_{};
  REPNameList template_names_;
  std::vector<REPMirror_e> mirrors_;
  std::vector<REPFine_e> fines_;
  std::vector<repora::Text> old_directories_;
  std::vector<repora::Text> new_directories_;
  std::vector<repora::Text> aliases_;
  std::vector<repora::Text> new_aliases_;
  std::vector<repora::Text> files_;
};

// Clauses in order, owned.
class REPDiskgroupClauseList : public repora::ClauseList<REPDiskgroupClause> {
 public:
  // Goes through all clauses; the last result that is not REPProcessOK.
  REPProcess_e Process(REPProcessor* processor) const;
  std::string AsString(bool parenthesised) const { return Join(", ", parenthesised); }
};

// ALTER DISKGROUP clause [, clause]...
class REPAlterDiskgroup final : public REPStatement {
 public:
  void AddDiskgroupClause(REPDiskgroupClause* clause) { clauses_.AddTail(clause); }
  REPDiskgroupClauseList const& GetDiskgroupClauses() const { return clauses_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPDiskgroupClauseList clauses_;
};
