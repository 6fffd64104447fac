#include "repora/tables/alter_index_partitions.h"

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"

namespace codes = repora::codes;

using repora::SqlText;
using repora::TextOf;

namespace {

// The partition of a name; null, reported, when there is none.
MOXActionSummaryItem* FindPartition(REPProcessor& processor, MOXId type, REPName const* name) {
  auto* const partition = processor.FindItemPtrByTypeName(type, name);
  if (!partition)
    processor.DisplayWarning(REPMessage::AlterTargetMissing, processor.GetObjectDisplayString(type),
                             repora::AsWritten(name));
  return partition;
}

REPProcess_e FailUnsupported(REPProcessor& processor, MOXActionSummaryItem const& index,
                             REPMessage option) {
  processor.DisplayWarning(REPMessage::AlterIndexOptionUnsupported, repora::MessageText(option),
                           index.Name());
  return REPProcessError;
}

}  // namespace

void repora::IndexOptions::WriteLogging(MOXActionSummaryItem& storage) const {
  if (logging_ == REPLogging_e::Logging) SetBoolean(storage, ORVTypes::pOracleNoLogging, false);
  if (logging_ == REPLogging_e::NoLogging) SetBoolean(storage, ORVTypes::pOracleNoLogging, true);
}

std::string repora::IndexOptions::ParallelText() const {
  if (parallel_ == REPParallel_e::None) return {};
  return SqlText().Part(Keyword(parallel_)).Part(parallel_size_).Take();
}

std::string repora::IndexOptions::ParametersText() const {
  if (parameters_.empty()) return {};
  return SqlText("PARAMETERS('").Append(parameters_).Append("')").Take();
}

std::string repora::IndexChanges::DeallocateText() const {
  if (!deallocate_) return {};
  return SqlText("DEALLOCATE UNUSED").Clause(" KEEP ", deallocate_size_.AsString()).Take();
}

REPProcess_e REPAlterIndexPartition::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* index) const {
  if (!processor || !index) return REPProcessError;
  switch (operation_) {
    case REPAlterIndex_e::None: break;
    case REPAlterIndex_e::ModifyDefaultAttributes:
      return FailUnsupported(*processor, *index, REPMessage::WordModifyDefaultAttributes);
    case REPAlterIndex_e::AddPartition: return AddPartition(*processor, *index);
    case REPAlterIndex_e::CoalescePartition:
      return FailUnsupported(*processor, *index, REPMessage::WordCoalesce);
    case REPAlterIndex_e::ModifyPartition:
      return Modify(*processor, ORVTypes::oOracleRangePartitionInfo, partition_.Get());
    case REPAlterIndex_e::RenamePartition:
      return Rename(*processor, ORVTypes::oOracleRangePartitionInfo, partition_.Get());
    case REPAlterIndex_e::DropPartition:
      processor->DisplayWarning(REPMessage::AlterDropUnsupported,
                                processor->GetObjectDisplayString(index->Type()), index->Name());
      return REPProcessError;
    case REPAlterIndex_e::SplitPartition:
      return FailUnsupported(*processor, *index, REPMessage::WordSplitPartition);
    case REPAlterIndex_e::ModifySubpartition:
      if (!subpartition_) break;
      return Modify(*processor, ORVTypes::oOracleSubpartitionSpec, subpartition_.Get());
    case REPAlterIndex_e::RenameSubpartition:
      if (!subpartition_ || !new_name_) break;
      return Rename(*processor, ORVTypes::oOracleSubpartitionSpec, subpartition_.Get());
  }
  return REPProcessOK;
}

REPProcess_e REPAlterIndexPartition::AddPartition(REPProcessor& processor,
                                                  MOXActionSummaryItem const& index) const {
  MOXActionSummaryItem* partition = nullptr;
  if (auto const result = processor.AddItem(index.Id(), ORVTypes::oOracleIndexGlobalPartition,
                                            partition_.Get(), partition);
      result != REPProcessOK)
    return result;
  repora::AddInteger(*partition, ORVTypes::pOracleHashPartitionType,
                     codes::kHashPartitionsByQuantity);
  if (tablespace_)
    repora::SetReferences(*partition, ORVTypes::pOracleTablespacesRef,
                          {repora::FindTablespace(processor, tablespace_.Get())});
  if (parallel_ == REPParallel_e::NoParallel)
    repora::AddInteger(*partition, ORVTypes::pUseParallel, codes::kNoParallel);
  if (parallel_ == REPParallel_e::Parallel)
    repora::AddInteger(*partition, ORVTypes::pUseParallel, codes::kParallel);
  if (parallel_ == REPParallel_e::ParallelDegree)
    repora::AddTextIfGiven(*partition, ORVTypes::pOracleParallel, parallel_size_);
  return REPProcessOK;
}

REPProcess_e REPAlterIndexPartition::Modify(REPProcessor& processor, MOXId type,
                                            REPName const* name) const {
  auto* const partition = FindPartition(processor, type, name);
  if (!partition) return REPProcessError;
  bool const logs = logging_ == REPLogging_e::Logging || logging_ == REPLogging_e::NoLogging;
  if (!logs && physical_.AsString().empty()) return REPProcessOK;
  auto* const storage = physical_.Process(&processor, partition, codes::kRegularStorage);
  if (storage) WriteLogging(*storage);
  return REPProcessOK;
}

REPProcess_e REPAlterIndexPartition::Rename(REPProcessor& processor, MOXId type,
                                            REPName const* name) const {
  auto* const partition = FindPartition(processor, type, name);
  if (!partition) return REPProcessError;
  if (new_name_) {
    processor.SetNameProp(partition, new_name_.Get());
    processor.ReplaceItem(partition->Owner(), type, name, new_name_.Get());
  }
  return REPProcessOK;
}

std::string REPAlterIndexPartition::AsString() const {
  SqlText sql;
  switch (operation_) {
    case REPAlterIndex_e::None: break;
    case REPAlterIndex_e::ModifyDefaultAttributes:
      sql.Append("MODIFY DEFAULT ATTRIBUTES")
          .Clause(" FOR PARTITION ", partition_.Get())
          .Option(TextOf(GetSegmentAttributes1()));
      break;
    case REPAlterIndex_e::AddPartition:
      sql.Append("ADD PARTITION")
          .Clause(" ", partition_.Get())
          .Clause(" TABLESPACE ", tablespace_.Get())
          .Option(ParallelText());
      break;
    case REPAlterIndex_e::CoalescePartition:
      sql.Append("COALESCE PARTITION").Option(ParallelText());
      break;
    case REPAlterIndex_e::ModifyPartition: return ModifyPartitionText();
    case REPAlterIndex_e::RenamePartition:
    case REPAlterIndex_e::RenameSubpartition:
      sql.Append("RENAME ")
          .Clause("PARTITION ", partition_.Get())
          .Clause("SUBPARTITION ", subpartition_.Get())
          .Append(" TO ")
          .Name(new_name_.Get());
      break;
    case REPAlterIndex_e::DropPartition:
      sql.Append("DROP PARTITION ").Name(partition_.Get());
      break;
    case REPAlterIndex_e::SplitPartition: return SplitText();
    case REPAlterIndex_e::ModifySubpartition:
      sql.Append("MODIFY SUBPARTITION ")
          .Name(subpartition_.Get())
          .AppendIf(unusable_, " UNUSABLE")
          .Option(DeallocateText())
          .Option(TextOf(allocate_.Get()));
      break;
  }
  return sql.Take();
}

std::string REPAlterIndexPartition::ModifyPartitionText() const {
  auto const logging = logging_ == REPLogging_e::Logging     ? "LOGGING"
                       : logging_ == REPLogging_e::NoLogging ? "NOLOGGING"
                                                             : "";
  return SqlText("MODIFY PARTITION ")
      .Name(partition_.Get())
      .Option(physical_.AsString())
      .Option(logging)
      .Option(repora::Keyword(GetCompression1()))
      .Option(GetCompressionSize1())
      .Option(DeallocateText())
      .Option(TextOf(allocate_.Get()))
      .Option(ParametersText())
      .AppendIf(coalesce_, " COALESCE")
      .AppendIf(update_references_, " UPDATE BLOCK REFERENCES")
      .AppendIf(unusable_, " UNUSABLE")
      .Take();
}

std::string REPAlterIndexPartition::SplitText() const {
  SqlText sql("SPLIT PARTITION ");
  sql.Name(partition_.Get()).Append(" AT (").Append(values_).Append(")");
  if (into_)
    sql.Append(" INTO (PARTITION")
        .Append(targets_[0].AsString())
        .Append(", PARTITION")
        .Append(targets_[1].AsString())
        .Append(")");
  return sql.Option(ParallelText()).Take();
}

std::string REPAlterIndexPartition::Target::AsString() const {
  return SqlText()
      .Clause(" ", name.Get())
      .Option(TextOf(segment.Get()))
      .Option(repora::Keyword(compression))
      .Option(compression_size)
      .Take();
}
