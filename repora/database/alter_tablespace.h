#pragma once

#include <string>
#include <utility>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/database/tablespace_options.h"
#include "repora/storage/storage_clause.h"

// ALTER TABLESPACE name [DEFAULT [COMPRESS | NOCOMPRESS] [storage_clause]] [MINIMUM EXTENT size]
//   [RESIZE size] [COALESCE] [RENAME TO name] [{BEGIN | END} BACKUP] [ADD DATAFILE file...]
//   [ADD TEMPFILE file...] [RENAME DATAFILE 'file'... TO 'file'...]
//   [{DATAFILE | TEMPFILE} {ONLINE | OFFLINE}] [LOGGING | NOLOGGING | [NO] FORCE LOGGING]
//   [TABLESPACE GROUP {name | ''}] [ONLINE | OFFLINE [NORMAL | TEMPORARY | IMMEDIATE]]
//   [READ {ONLY | WRITE}] [TEMPORARY | PERMANENT] [AUTOEXTEND ...] [FLASHBACK {ON | OFF}]
//   [RETENTION {GUARANTEE | NOGUARANTEE}]
// A script has one or a few of them. COALESCE, BACKUP and FORCE LOGGING change nothing in the
// model.
class REPAlterTablespace final : public REPStatement {
 public:
  void SetTablespace(REPName* name) { name_.Set(name); }
  REPName* GetTablespace() const { return name_.Get(); }
  void SetCompress(REPCompress_e compress) { compress_ = compress; }
  REPCompress_e GetCompress() const { return compress_; }
  void SetDefaultStorage(REPStorageClause storage) { default_storage_ = std::move(storage); }
  REPStorageClause GetDefaultStorage() const { return default_storage_; }
  void SetMinExtent(REPSizeClause size) { min_extent_ = std::move(size); }
  REPSizeClause GetMinExtent() const { return min_extent_; }
  void SetResize(REPSizeClause size) { resize_ = std::move(size); }
  REPSizeClause GetResize() const { return resize_; }
  void SetCoalesce(bool coalesce) { coalesce_ = coalesce; }
  bool GetCoalesce() const { return coalesce_; }
  void SetRename(REPName* name) { new_name_.Set(name); }
  REPName* GetRename() const { return new_name_.Get(); }
  void SetBackup(REPBackup_e backup) { backup_ = backup; }
  REPBackup_e GetBackup() const { return backup_; }
  void SetAutoExtend(REPAutoExtendClause autoextend) { autoextend_ = std::move(autoextend); }
  REPAutoExtendClause GetAutoExtend() const { return autoextend_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  // An empty name, or one that reads '', takes the tablespace out of its group.
  void SetGroupName(REPName* name) { group_name_.Set(name); }
  REPName* GetGroupName() const { return group_name_.Get(); }
  void SetOnOff(REPOnOff_e state) { on_off_ = state; }  // Online to OfflineImmediate
  REPOnOff_e GetOnOff() const { return on_off_; }
  void SetTempPerm(REPTempPerm_e kind) { temp_perm_ = kind; }
  REPTempPerm_e GetTempPerm() const { return temp_perm_; }
  void SetReadWrite(REPReadWrite_e read_write) { read_write_ = read_write; }
  REPReadWrite_e GetReadWrite() const { return read_write_; }
  void SetFlashback(REPFlashback_e flashback) { flashback_ = flashback; }
  REPFlashback_e GetFlashback() const { return flashback_; }
  void SetRetention(REPRetention_e retention) { retention_ = retention; }
  REPRetention_e GetRetention() const { return retention_; }
  void SetAddDatafileList(REPFileSpecList* files) { add_datafiles_.Set(files); }
  REPFileSpecList* GetAddDatafileList() const { return add_datafiles_.Get(); }
  void SetAddTempfileList(REPFileSpecList* files) { add_tempfiles_.Set(files); }
  REPFileSpecList* GetAddTempfileList() const { return add_tempfiles_.Get(); }
  // File names without quotes; the lists count as far as both reach.
  void SetRenameFromList(REPNameList* names) { rename_from_.Set(names); }
  REPNameList* GetRenameFromList() const { return rename_from_.Get(); }
  void SetRenameToList(REPNameList* names) { rename_to_.Set(names); }
  REPNameList* GetRenameToList() const { return rename_to_.Get(); }
  // The state of all files, DatafileOnline to TempfileOffline.
  void SetDataTempOnOff(REPOnOff_e state) { data_temp_on_off_ = state; }
  REPOnOff_e GetDataTempOnOff() const { return data_temp_on_off_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e AddFiles(REPProcessor* processor, MOXActionSummaryItem* tablespace) const;
  REPProcess_e RenameFiles(REPProcessor* processor, MOXActionSummaryItem const& tablespace) const;
  void ChangeFiles(REPProcessor* processor, MOXActionSummaryItem const& tablespace) const;
  REPProcess_e Rename(REPProcessor* processor, MOXActionSummaryItem* tablespace) const;
  void ChangeGroup(REPProcessor* processor, MOXActionSummaryItem& tablespace) const;

  repora::Owned<REPName> name_;
  REPCompress_e compress_{};
  REPStorageClause default_storage_;
  REPSizeClause min_extent_;
  REPSizeClause resize_;
  bool coalesce_ = false;
  repora::Owned<REPName> new_name_;
  REPBackup_e backup_{};
  REPAutoExtendClause autoextend_;
  REPLogging_e logging_{};
  repora::Owned<REPName> group_name_;
  REPOnOff_e on_off_{};
  REPTempPerm_e temp_perm_{};
  REPReadWrite_e read_write_{};
  REPFlashback_e flashback_{};
  REPRetention_e retention_{};
  repora::Owned<REPFileSpecList> add_datafiles_;
  repora::Owned<REPFileSpecList> add_tempfiles_;
  repora::Owned<REPNameList> rename_from_;
  repora::Owned<REPNameList> rename_to_;
  REPOnOff_e data_temp_on_off_{};
};
