#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/alter_index_partitions.h"
#include "repora/tables/table_options.h"

class REPProcessor;

enum class REPReverse_e : int { None, Reverse, NoReverse };

// [{PARTITION | SUBPARTITION} name] [REVERSE | NOREVERSE] [TABLESPACE name] [PARAMETERS ('text')]
//   [ONLINE] [COMPUTE STATISTICS] [COMPRESS [n] | NOCOMPRESS] [LOGGING | NOLOGGING] [parallel]
//   [physical_attributes]
// Rendered only: what is rebuilt is the same index. The keyword REBUILD is the statement's.
class REPRebuildClause : public repora::IndexOptions {
 public:
  void SetPartition(REPName* name) { partition_.Set(name); }
  REPName* GetPartition() const { return partition_.Get(); }
  void SetSubpartition(REPName* name) { subpartition_.Set(name); }
  REPName* GetSubpartition() const { return subpartition_.Get(); }
  void SetReverse(REPReverse_e reverse) { reverse_ = reverse; }
  REPReverse_e GetReverse() const { return reverse_; }
  void SetTablespace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespace() const { return tablespace_.Get(); }
  void SetOnline(bool online) { online_ = online; }
  bool GetOnline() const { return online_; }
  // COMPUTE STATISTICS
  void SetCompute(bool compute) { compute_ = compute; }
  bool GetCompute() const { return compute_; }
  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompression() const { return compression_; }
  // The prefix length after COMPRESS.
  void SetCompressionSize(char const* text) { compression_size_ = text; }
  char const* GetCompressionSize() const { return compression_size_.c_str(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> partition_;
  repora::Owned<REPName> subpartition_;
  REPReverse_e reverse_{};
  repora::Owned<REPName> tablespace_;
  bool online_ = false;
  bool compute_ = false;
  REPCompress_e compression_{};
  repora::Text compression_size_;
};

// ALTER INDEX [owner.]name [DEALLOCATE UNUSED [KEEP size]] [ALLOCATE EXTENT ...] [parallel]
//   [physical_attributes] [LOGGING | NOLOGGING] [SHRINK SPACE [COMPACT] [CASCADE]] [REBUILD ...]
//   [PARAMETERS ('text')] [ENABLE | DISABLE] [UNUSABLE] [RENAME TO name] [COALESCE]
//   [{MONITORING | NOMONITORING} USAGE] [UPDATE BLOCK REFERENCES] [partition_operation]
// The name, the storage, parallelism, and whether the index is enabled reach the model; the rest,
// but for operations on partitions, is rendered only.
class REPAlterIndex final : public REPStatement, public repora::IndexChanges {
 public:
  void SetIndexName(REPName* name) { name_.Set(name); }
  REPName* GetIndexName() const { return name_.Get(); }
  // Enable or Disable.
  void SetEnable(REPEnable_e enable) { enable_ = enable; }
  REPEnable_e GetEnable() const { return enable_; }
  void SetMonitor(REPMonitor_e monitor) { monitor_ = monitor; }
  REPMonitor_e GetMonitor() const { return monitor_; }
  void SetRebuildClause(REPRebuildClause* clause) { rebuild_.Set(clause); }
  REPRebuildClause* GetRebuildClause() const { return rebuild_.Get(); }
  void SetShrink(REPShrink_e shrink) { shrink_ = shrink; }
  REPShrink_e GetShrink() const { return shrink_; }
  void SetAlterPartition(REPAlterIndexPartition* clause) { partition_.Set(clause); }
  REPAlterIndexPartition* GetAlterPartition() const { return partition_.Get(); }

  // Only an index that is not known fails the statement: what an operation on a partition cannot
  // do is reported, and the statement goes on.
  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  void WriteParallel(MOXActionSummaryItem& storage) const;

  repora::Owned<REPName> name_;
  REPEnable_e enable_{};
  REPMonitor_e monitor_{};
  repora::Owned<REPRebuildClause> rebuild_;
  REPShrink_e shrink_{};
  repora::Owned<REPAlterIndexPartition> partition_;
};
