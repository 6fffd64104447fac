#pragma once

#include <string>
#include <utility>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/database/tablespace_options.h"
#include "repora/storage/storage_clause.h"

// CREATE [SMALLFILE | BIGFILE] [UNDO] TABLESPACE name [DATAFILE file [, file]...]
//   [MINIMUM EXTENT size] [BLOCKSIZE size] [FORCE LOGGING] [LOGGING | NOLOGGING]
//   [DEFAULT [COMPRESS | NOCOMPRESS] storage_clause] [ONLINE | OFFLINE] [TEMPORARY | PERMANENT]
//   [EXTENT MANAGEMENT {DICTIONARY | LOCAL [AUTOALLOCATE | UNIFORM [SIZE size]]}]
//   [SEGMENT SPACE MANAGEMENT {MANUAL | AUTO}] [FLASHBACK {ON | OFF}]
//   [RETENTION {GUARANTEE | NOGUARANTEE}]
class REPCreateTablespace final : public REPStatement {
 public:
  void SetTablespace(REPName* name) { name_.Set(name); }
  REPName* GetTablespace() const { return name_.Get(); }
  void SetFileSize(REPFileSize_e size) { file_size_ = size; }
  REPFileSize_e GetFileSize() const { return file_size_; }
  void SetUndo(bool undo) { undo_ = undo; }
  bool GetUndo() const { return undo_; }
  void SetMinExtent(REPSizeClause size) { min_extent_ = std::move(size); }
  REPSizeClause GetMinExtent() const { return min_extent_; }
  void SetBlockSize(REPSizeClause size) { block_size_ = std::move(size); }
  REPSizeClause GetBlockSize() const { return block_size_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  void SetForceLogging(bool force) { force_logging_ = force; }
  bool GetForceLogging() const { return force_logging_; }
  void SetOnOff(REPOnOff_e state) { on_off_ = state; }
  REPOnOff_e GetOnOff() const { return on_off_; }
  void SetTempPerm(REPTempPerm_e kind) { temp_perm_ = kind; }
  REPTempPerm_e GetTempPerm() const { return temp_perm_; }
  // Is rendered with a default storage only.
  void SetCompress(REPCompress_e compress) { compress_ = compress; }
  REPCompress_e GetCompress() const { return compress_; }
  void SetDefaultStorage(REPStorageClause storage) { default_storage_ = std::move(storage); }
  REPStorageClause GetDefaultStorage() const { return default_storage_; }
  void SetFlashback(REPFlashback_e flashback) { flashback_ = flashback; }
  REPFlashback_e GetFlashback() const { return flashback_; }
  void SetRetention(REPRetention_e retention) { retention_ = retention; }
  REPRetention_e GetRetention() const { return retention_; }
  void SetSegment(REPSegment_e segment) { segment_ = segment; }
  REPSegment_e GetSegment() const { return segment_; }
  void SetExtent(REPExtent_e extent) { extent_ = extent; }
  REPExtent_e GetExtent() const { return extent_; }
  void SetExtentSize(REPSizeClause size) { extent_size_ = std::move(size); }
  REPSizeClause GetExtentSize() const { return extent_size_; }
  void SetDataFiles(REPDataFileClause* files) { data_files_.Set(files); }
  REPDataFileClause* GetDataFiles() const { return data_files_.Get(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  REPFileSize_e file_size_{};
  bool undo_ = false;
  REPSizeClause min_extent_;
  REPSizeClause block_size_;
  REPLogging_e logging_{};
  bool force_logging_ = false;
  REPOnOff_e on_off_{};
  REPTempPerm_e temp_perm_{};
  REPCompress_e compress_{};
  REPStorageClause default_storage_;
  REPFlashback_e flashback_{};
  REPRetention_e retention_{};
  REPSegment_e segment_{};
  REPExtent_e extent_{};
  REPSizeClause extent_size_;
  repora::Owned<REPDataFileClause> data_files_;
};

// CREATE [SMALLFILE | BIGFILE] TEMPORARY TABLESPACE name [TEMPFILE file [, file]...]
//   [TABLESPACE GROUP {name | ''}] [BLOCKSIZE size]
//   [EXTENT MANAGEMENT {DICTIONARY | LOCAL [AUTOALLOCATE | UNIFORM [SIZE size]]} |
//    UNIFORM [SIZE size]]
//   [SEGMENT SPACE MANAGEMENT {MANUAL | AUTO}] [FLASHBACK {ON | OFF}]
class REPCreateTemporaryTablespace final : public REPStatement {
 public:
  void SetTablespace(REPName* name) { name_.Set(name); }
  REPName* GetTablespace() const { return name_.Get(); }
  void SetFileSize(REPFileSize_e size) { file_size_ = size; }
  REPFileSize_e GetFileSize() const { return file_size_; }
  void SetTempFiles(REPFileSpecList* files) { temp_files_.Set(files); }
  REPFileSpecList* GetTempFiles() const { return temp_files_.Get(); }
  void SetExtent(REPExtent_e extent) { extent_ = extent; }
  REPExtent_e GetExtent() const { return extent_; }
  void SetExtentSize(REPSizeClause size) { extent_size_ = std::move(size); }
  REPSizeClause GetExtentSize() const { return extent_size_; }
  // An empty name, or one that reads '', stands for no group.
  void SetGroupName(REPName* name) { group_name_.Set(name); }
  REPName* GetGroupName() const { return group_name_.Get(); }
  void SetFlashback(REPFlashback_e flashback) { flashback_ = flashback; }
  REPFlashback_e GetFlashback() const { return flashback_; }
  void SetSegment(REPSegment_e segment) { segment_ = segment; }
  REPSegment_e GetSegment() const { return segment_; }
  void SetBlockSize(REPSizeClause size) { block_size_ = std::move(size); }
  REPSizeClause GetBlockSize() const { return block_size_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  REPFileSize_e file_size_{};
  repora::Owned<REPFileSpecList> temp_files_;
  REPExtent_e extent_{};
  REPSizeClause extent_size_;
  repora::Owned<REPName> group_name_;
  REPFlashback_e flashback_{};
  REPSegment_e segment_{};
  REPSizeClause block_size_;
};
