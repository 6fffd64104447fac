#include "repora/database/disk_groups.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

std::string_view WithoutQuotes(std::string_view text) {
  bool const quoted = text.size() >= 2 && text.front() == '\'' && text.back() == '\'';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

std::string_view repora::Keyword(REPRedundancy_e value) {
  switch (value) {
    case REPRedundancy_e::None: break;
    case REPRedundancy_e::High: return "HIGH REDUNDANCY";
    case REPRedundancy_e::Normal: return "NORMAL REDUNDANCY";
    case REPRedundancy_e::External: return "EXTERNAL REDUNDANCY";
  }
  return {};
}

std::string_view repora::Keyword(REPForce_e value) {
  switch (value) {
    case REPForce_e::None: break;
    case REPForce_e::Force: return "FORCE";
    case REPForce_e::NoForce: return "NOFORCE";
  }
  return {};
}

REPProcess_e REPQualifiedDiskClause::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* failgroup) const {
  if (!processor || !failgroup) return REPProcessError;
  auto const type = ORVTypes::oOracleQualifiedDisk;
  MOXActionSummaryItem* disk = nullptr;
  if (!repora::IsGiven(name_.Get()))
    disk = processor->CreateItem(failgroup->Id(), type, nullptr);
  else if (auto const result = processor->AddItem(failgroup->Id(), type, name_.Get(), disk);
           result != REPProcessOK)
    return result;
  if (!disk) return REPProcessError;
  repora::SetTextIfGiven(*disk, ORVTypes::pSearchString, WithoutQuotes(search_string_));
  repora::SetTextIfGiven(*disk, ORVTypes::pOracleSize, size_.AsString());
  if (force_ == REPForce_e::Force) repora::SetBoolean(*disk, ORVTypes::pForce, true);
  if (force_ == REPForce_e::NoForce) repora::SetBoolean(*disk, ORVTypes::pForce, false);
  return REPProcessOK;
}

std::string REPQualifiedDiskClause::AsString() const {
  return SqlText(search_string_)
      .Clause(" NAME ", name_.Get())
      .Append(size_.AsString(" SIZE "))
      .Option(repora::Keyword(force_))
      .Take();
}

REPProcess_e REPFailgroup::Process(REPProcessor* processor,
                                   MOXActionSummaryItem* disk_group) const {
  if (!processor || !disk_group) return REPProcessError;
  auto* const failgroup =
      processor->CreateItem(disk_group->Id(), ORVTypes::oOracleFailGroup, name_.Get());
  return disks_.ProcessAll(
      [&](REPQualifiedDiskClause const& disk) { return disk.Process(processor, failgroup); });
}

std::string REPFailgroup::AsString() const {
  auto const disks =
      disks_.Join(", ", false, [](REPQualifiedDiskClause const& disk) { return disk.AsString(); });
  return SqlText()
      .PartClause("FAILGROUP ", repora::AsWritten(name_.Get()))
      .Part("DISK")
      .Option(disks)
      .Take();
}

REPProcess_e REPFailgroupList::Process(REPProcessor* processor,
                                       MOXActionSummaryItem* disk_group) const {
  return clauses_.ProcessAll(
      [&](REPFailgroup const& failgroup) { return failgroup.Process(processor, disk_group); });
}

REPProcess_e REPCreateDiskgroup::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* group = nullptr;
  if (auto const result =
          processor->AddItem(processor->GetRoot(), ORVTypes::oOracleDiskGroup, name_.Get(), group);
      result != REPProcessOK)
    return result;
  auto const write = [&](std::int32_t code) {
    repora::SetInteger(*group, ORVTypes::pRedundancyType, code);
  };
  switch (redundancy_) {
    case REPRedundancy_e::None: break;
    case REPRedundancy_e::High: write(codes::kRedundancyHigh); break;
    case REPRedundancy_e::Normal: write(codes::kRedundancyNormal); break;
    case REPRedundancy_e::External: write(codes::kRedundancyExternal); break;
  }
  return failgroups_.Process(processor, group);
}

std::string REPCreateDiskgroup::AsString() const {
  return SqlText("CREATE DISKGROUP ")
      .Name(name_.Get())
      .Option(repora::Keyword(redundancy_))
      .Option(failgroups_.AsString())
      .Append(";")
      .Take();
}
