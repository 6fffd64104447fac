#include "repora/database/alter_disk_group.h"

#include <cstddef>
#include <iterator>
#include <string_view>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"

using repora::SqlText;
using Items = std::vector<MOXActionSummaryItem*>;

namespace {

std::string_view Keyword(REPAlterDGType_e type) {
  static constexpr std::string_view keywords[] = {"ADD",
                                                  "DROP DISK",
                                                  "DROP DISKS IN FAILGROUP",
                                                  "RESIZE ALL",
                                                  "RESIZE DISK",
                                                  "RESIZE DISKS IN FAILGROUP",
                                                  "UNDROP DISKS",
                                                  "ALL UNDROP DISKS",
                                                  "REBALANCE",
                                                  "REBALANCE POWER",
                                                  "CHECK ALL",
                                                  "CHECK DISK",
                                                  "CHECK DISKS IN FAILGROUP",
                                                  "CHECK FILE",
                                                  "ADD TEMPLATE",
                                                  "ALTER TEMPLATE",
                                                  "DROP TEMPLATE",
                                                  "ADD DIRECTORY",
                                                  "DROP DIRECTORY",
                                                  "RENAME DIRECTORY",
                                                  "ADD ALIAS",
                                                  "DROP ALIAS",
                                                  "RENAME ALIAS",
                                                  "DROP FILE",
                                                  "MOUNT",
                                                  "ALL MOUNT",
                                                  "DISMOUNT",
                                                  "DISMOUNT FORCE",
                                                  "DISMOUNT NOFORCE",
                                                  "ALL DISMOUNT",
                                                  "ALL DISMOUNT FORCE",
                                                  "ALL DISMOUNT NOFORCE"};
  auto const number = static_cast<int>(type);
  return number >= 1 && number <= static_cast<int>(std::size(keywords)) ? keywords[number - 1]
                                                                        : std::string_view();
}

bool IsForAllGroups(REPAlterDGType_e type) {
  return Keyword(type).starts_with("ALL ");
}

std::string_view Keyword(REPRepair_e value) {
  switch (value) {
    case REPRepair_e::None: break;
    case REPRepair_e::Repair: return "REPAIR";
    case REPRepair_e::NoRepair: return "NOREPAIR";
  }
  return {};
}

std::string_view Keyword(REPMirror_e value) {
  switch (value) {
    case REPMirror_e::None: break;
    case REPMirror_e::Mirror: return "MIRROR";
    case REPMirror_e::Unprotected: return "UNPROTECTED";
  }
  return {};
}

std::string_view Keyword(REPFine_e value) {
  switch (value) {
    case REPFine_e::None: break;
    case REPFine_e::Fine: return "FINE";
    case REPFine_e::Coarse: return "COARSE";
  }
  return {};
}

// What a list has at a position, or nothing.
template <class T>
T At(std::vector<T> const& list, int index) {
  auto const position = static_cast<std::size_t>(index);
  return position < list.size() ? list[position] : T();
}

// The names, separated by ", ", each with what stands behind it.
template <class Behind>
std::string Join(REPNameList const& names, Behind behind) {
  SqlText sql;
  for (int i = 0; i < names.GetCount(); ++i)
    sql.Part(repora::AsWritten(names.GetName(i)) + behind(i), ", ");
  return sql.Take();
}

template <class Behind>
std::string Join(std::vector<repora::Text> const& names, Behind behind) {
  SqlText sql;
  int index = 0;
  for (auto const& name : names) sql.Part(name.str() + behind(index++), ", ");
  return sql.Take();
}

// Each with a second name behind a keyword.
std::string JoinPairs(std::vector<repora::Text> const& names, char const* keyword,
                      std::vector<repora::Text> const& others) {
  return Join(names, [&](int i) { return SqlText().Clause(keyword, At(others, i)).Take(); });
}

// Each with its FORCE or NOFORCE.
template <class Names>
std::string JoinForced(Names const& names, std::vector<REPForce_e> const& forces) {
  return Join(names,
              [&](int i) { return SqlText().Option(repora::Keyword(At(forces, i))).Take(); });
}

std::string JoinSized(REPNameList const& names, std::vector<REPSizeClause> const& sizes) {
  return Join(names, [&](int i) { return At(sizes, i).AsString(" SIZE "); });
}

std::string Nothing(int /*index*/) {
  return {};
}

Items ChildrenOf(REPProcessor const& processor, MOXActionSummaryItem const& owner, MOXId type) {
  Items children;
  processor.FindSummaryChildrenByType(owner.Id(), type, children);
  return children;
}

Items DisksOf(REPProcessor const& processor, MOXActionSummaryItem const& group) {
  Items disks;
  for (auto const* failgroup : ChildrenOf(processor, group, ORVTypes::oOracleFailGroup))
    processor.FindSummaryChildrenByType(failgroup->Id(), ORVTypes::oOracleQualifiedDisk, disks);
  return disks;
}

void Resize(Items const& disks, REPSizeClause const& size) {
  for (auto* disk : disks) repora::SetTextIfGiven(*disk, ORVTypes::pOracleSize, size.AsString());
}

// The items of exactly that name.
Items Named(Items const& items, REPName const& name) {
  Items named;
  auto const text = name.AsString(false);
  for (auto* item : items)
    if (item->Name() == text) named.push_back(item);
  return named;
}

}  // namespace

REPProcess_e REPDiskgroupClause::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* group = nullptr;
  if (!IsForAllGroups(type_)) {
    group = processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOracleDiskGroup, name_.Get());
    if (!group) {
      processor->DisplayWarning(REPMessage::AlterTargetMissing,
                                processor->GetObjectDisplayString(ORVTypes::oOracleDiskGroup),
                                repora::AsWritten(name_.Get()));
      return REPProcessError;
    }
  }
  switch (type_) {
    case REPAlterDGType_e::Add: return failgroups_.Process(processor, group);
    case REPAlterDGType_e::ResizeAll: Resize(DisksOf(*processor, *group), size_); break;
    case REPAlterDGType_e::ResizeDisk:
    case REPAlterDGType_e::ResizeDisksInFailgroup: ResizeDisks(*processor, *group); break;
    default:
      processor->DisplayWarning(REPMessage::UnsupportedStatement, AsString());
      return REPProcessError;
  }
  return REPProcessOK;
}

void REPDiskgroupClause::ResizeDisks(REPProcessor& processor,
                                     MOXActionSummaryItem const& group) const {
  if (type_ == REPAlterDGType_e::ResizeDisk) {
    auto const disks = DisksOf(processor, group);
    for (int i = 0; i < disk_names_.GetCount(); ++i)
      Resize(Named(disks, *disk_names_.GetName(i)), At(sizes_, i));
    return;
  }
  auto const failgroups = ChildrenOf(processor, group, ORVTypes::oOracleFailGroup);
  for (int i = 0; i < failgroup_names_.GetCount(); ++i)
    for (auto const* failgroup : Named(failgroups, *failgroup_names_.GetName(i)))
      Resize(ChildrenOf(processor, *failgroup, ORVTypes::oOracleQualifiedDisk), At(sizes_, i));
}

std::string REPDiskgroupClause::AsString() const {
  SqlText sql;
  if (!IsForAllGroups(type_)) sql.Part(repora::AsWritten(name_.Get()));
  return sql.Part(Keyword(type_)).Part(Operands()).Take();
}

std::string REPDiskgroupClause::Operands() const {
  auto const checked = [&](std::string const& operands) {
    return SqlText().Part(operands).Part(Keyword(repair_)).Take();
  };
  switch (type_) {
    case REPAlterDGType_e::Add: return failgroups_.AsString();
    case REPAlterDGType_e::DropDisk: return JoinForced(disk_names_, forces_);
    case REPAlterDGType_e::DropDisksInFailgroup: return JoinForced(failgroup_names_, forces_);
    case REPAlterDGType_e::ResizeAll: return size_.AsString("SIZE ");
    case REPAlterDGType_e::ResizeDisk: return JoinSized(disk_names_, sizes_);
    case REPAlterDGType_e::ResizeDisksInFailgroup: return JoinSized(failgroup_names_, sizes_);
    case REPAlterDGType_e::RebalancePower: return power_.str();
    case REPAlterDGType_e::CheckAll: return checked({});
    case REPAlterDGType_e::CheckDisk: return checked(disk_names_.AsString(false));
    case REPAlterDGType_e::CheckDisksInFailgroup: return checked(failgroup_names_.AsString(false));
    case REPAlterDGType_e::CheckFile: return checked(Join(files_, Nothing));
    case REPAlterDGType_e::AddTemplate:
    case REPAlterDGType_e::AlterTemplate: return Templates();
    case REPAlterDGType_e::DropTemplate: return template_names_.AsString(false);
    case REPAlterDGType_e::AddDirectory: return Join(new_directories_, Nothing);
    case REPAlterDGType_e::DropDirectory: return JoinForced(old_directories_, forces_);
    case REPAlterDGType_e::RenameDirectory:
      return JoinPairs(old_directories_, " TO ", new_directories_);
    case REPAlterDGType_e::AddAlias: return JoinPairs(aliases_, " FOR ", files_);
    case REPAlterDGType_e::DropAlias: return Join(aliases_, Nothing);
    case REPAlterDGType_e::RenameAlias: return JoinPairs(aliases_, " TO ", new_aliases_);
    case REPAlterDGType_e::DropFile: return Join(files_, Nothing);
    default: return {};
  }
}

std::string REPDiskgroupClause::Templates() const {
  return Join(template_names_, [&](int i) {
    return SqlText(" ATTRIBUTES(")
        .Part(Keyword(At(mirrors_, i)))
        .Part(Keyword(At(fines_, i)))
        .Append(")")
        .Take();
  });
}

REPProcess_e REPDiskgroupClauseList::Process(REPProcessor* processor) const {
  return clauses_.ProcessAll(
      [&](REPDiskgroupClause const& clause) { return clause.Process(processor); },
      repora::ListRule::RunAllKeepFailure);
}

REPProcess_e REPAlterDiskgroup::Process(REPProcessor* processor) const {
  return processor ? clauses_.Process(processor) : REPProcessError;
}

std::string REPAlterDiskgroup::AsString() const {
  return SqlText("ALTER DISKGROUP ").Append(clauses_.AsString(false)).Append(";").Take();
}
