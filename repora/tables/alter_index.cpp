#include "repora/tables/alter_index.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/compression.h"
#include "repora/storage/parallel.h"

namespace codes = repora::codes;

using repora::SqlText;
using repora::TextOf;

namespace {

std::string_view ReverseText(REPReverse_e reverse) {
  switch (reverse) {
    case REPReverse_e::None: break;
    case REPReverse_e::Reverse: return "REVERSE";
    case REPReverse_e::NoReverse: return "NOREVERSE";
  }
  return {};
}

std::string_view MonitorText(REPMonitor_e monitor) {
  switch (monitor) {
    case REPMonitor_e::None: break;
    case REPMonitor_e::On: return "MONITORING USAGE";
    case REPMonitor_e::Off: return "NOMONITORING USAGE";
  }
  return {};
}

}  // namespace

std::string REPRebuildClause::AsString() const {
  return SqlText()
      .PartClause("PARTITION ", partition_.Get())
      .PartClause("SUBPARTITION ", subpartition_.Get())
      .Part(ReverseText(reverse_))
      .PartClause("TABLESPACE ", tablespace_.Get())
      .Part(ParametersText())
      .Part(online_ ? "ONLINE" : "")
      .Part(compute_ ? "COMPUTE STATISTICS" : "")
      .Part(repora::CompressionText(compression_, compression_size_))
      .Part(repora::Keyword(logging_))
      .Part(ParallelText())
      .Part(physical_.AsString())
      .Take();
}

REPProcess_e REPAlterIndex::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* index = processor->FindItemPtrByTypeName(ORVTypes::oKeyGroup, name_.Get());
  if (!index) index = processor->FindItemPtrByTypeName(ORVTypes::oOracleClusterIndex, name_.Get());
  if (!index) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oKeyGroup),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  if (repora::IsGiven(new_name_.Get())) {
    processor->SetNameProp(index, new_name_.Get());
    processor->ReplaceItem(processor->GetRoot(), ORVTypes::oKeyGroup, name_.Get(), new_name_.Get());
  }
  if (enable_ == REPEnable_e::Enable) repora::SetBoolean(*index, ORVTypes::pEnabled, true);
  if (enable_ == REPEnable_e::Disable) repora::SetBoolean(*index, ORVTypes::pEnabled, false);
  bool const has_physical = !physical_.AsString().empty();
  if (parallel_ != REPParallel_e::None || logging_ != REPLogging_e::None || has_physical) {
    auto* storage = processor->FindSummaryItemPtr(index->Id(), ORVTypes::oOracleAttributeStorage);
    if (!storage)
      storage = processor->CreateItem(index->Id(), ORVTypes::oOracleAttributeStorage, nullptr);
    if (!storage) return REPProcessError;
    WriteParallel(*storage);
    if (has_physical) physical_.Process(processor, storage, codes::kRegularStorage);
    WriteLogging(*storage);
  }
  if (partition_) partition_->Process(processor, index);
  return REPProcessOK;
}

void REPAlterIndex::WriteParallel(MOXActionSummaryItem& storage) const {
  if (parallel_ == REPParallel_e::NoParallel) storage.RemoveProperty(ORVTypes::pOracleParallel);
  repora::WriteParallel(storage, parallel_, parallel_size_);
}

std::string REPAlterIndex::AsString() const {
  SqlText sql("ALTER INDEX ");
  sql.Name(name_.Get())
      .Option(DeallocateText())
      .Option(TextOf(allocate_.Get()))
      .Option(ParallelText())
      .Option(physical_.AsString())
      .Option(repora::Keyword(logging_))
      .Option(repora::Keyword(shrink_));
  if (rebuild_) sql.Append(" REBUILD").Option(rebuild_->AsString());
  return sql.Option(ParametersText())
      .AppendIf(enable_ == REPEnable_e::Enable, " ENABLE")
      .AppendIf(enable_ == REPEnable_e::Disable, " DISABLE")
      .AppendIf(unusable_, " UNUSABLE")
      .Clause(" RENAME TO ", new_name_.Get())
      .AppendIf(coalesce_, " COALESCE")
      .Option(MonitorText(monitor_))
      .AppendIf(update_references_, " UPDATE BLOCK REFERENCES")
      .Option(TextOf(partition_.Get()))
      .Append(";")
      .Take();
}
