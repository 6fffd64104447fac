#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/database/file_specs.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;

// What becomes of the redo logs when a database is opened with a new control file.
enum class REPDBResetlogs_e : int { None, ResetLogs, NoResetLogs };

namespace repora {

// "RESETLOGS" or "NORESETLOGS"; empty when not given.
std::string_view Keyword(REPDBResetlogs_e value);

}  // namespace repora

// A redo log group is a log file item under the database, without a name: its files are a property.
// Group numbers are decimal texts for the setters and -1 where none is given.

// [GROUP n] file
class REPLogFileSpec {
 public:
  void SetGroup(char const* text) { group_ = repora::ToInt(text); }
  int GetGroup() const { return group_; }
  void SetFileSpec(REPFileSpec* file) { file_.Set(file); }
  REPFileSpec* GetFileSpec() const { return file_.Get(); }

  // Adds the log file item.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const;
  std::string AsString() const;

 private:
  int group_ = -1;
  repora::Owned<REPFileSpec> file_;
};

// Log groups in order, owned.
class REPLogFileSpecList : public repora::ClauseList<REPLogFileSpec> {
 public:
  REPLogFileSpec* GetLogFileSpec(int index) const { return clauses_.At(index); }

  // Adds the items of all groups; the last result that is not REPProcessOK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const;
  std::string AsString(bool parenthesised = false) const { return Join(", ", parenthesised); }
};

// LOGFILE log_file [, log_file]...
class REPLogFileClause {
 public:
  // Adds an empty entry at the end, which the caller fills; borrowed.
  REPLogFileSpec* AddLogFileSpec();
  int GetNumLogFileSpecs() const { return files_.GetCount(); }
  REPLogFileSpec* GetLogFileSpec(int index) const { return files_.GetLogFileSpec(index); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const {
    return files_.Process(processor, database);
  }
  std::string AsString() const { return "LOGFILE " + files_.AsString(); }

 private:
  REPLogFileSpecList files_;
};

// [GROUP n] ['file' | ('file' [, 'file']...)] [SIZE size] [REUSE]
class REPRedoLogFileSpec {
 public:
  void SetGroup(char const* text) { group_ = repora::ToInt(text); }
  int GetGroup() const { return group_; }
  // Puts a name, without its quotes, behind those that are there.
  void AddFilename(char const* name) { names_.AddTail(new repora::Text(name)); }
  int GetNumFilenames() const { return names_.GetCount(); }
  char const* GetFilename(int index) const { return names_.At(index)->c_str(); }
  void SetSizeClause(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSizeClause() const { return size_; }
  void SetReuse(bool reuse) { reuse_ = reuse; }
  bool GetReuse() const { return reuse_; }

  // Adds the log file item. Unlike in CREATE DATABASE, files that are not to be reused leave no
  // property.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const;
  std::string AsString() const;

 private:
  int group_ = -1;
  repora::OwnedList<repora::Text> names_;
  REPSizeClause size_;
  bool reuse_ = false;
};

// Redo log groups in order, owned.
class REPRedoLogFileSpecList : public repora::ClauseList<REPRedoLogFileSpec> {
 public:
  REPRedoLogFileSpec* GetRedoLogFileSpec(int index) const { return clauses_.At(index); }

  // Ends at the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* database) const;
  std::string AsString(bool parenthesised = false) const { return Join(", ", parenthesised); }
};

// GROUP n | 'file' | ('file' [, 'file']...)
// Names a log group that is there.
class REPLogFileDesc {
 public:
  void SetGroup(char const* text) { group_ = repora::ToInt(text); }
  int GetGroup() const { return group_; }
  // Puts a name, without its quotes, behind those that are there.
  void AddFilename(char const* name) { names_.AddTail(new repora::Text(name)); }
  int GetNumFilenames() const { return names_.GetCount(); }
  char const* GetFilename(int index) const { return names_.At(index)->c_str(); }

  std::string AsString() const;

 private:
  int group_ = -1;
  repora::OwnedList<repora::Text> names_;
};

// Descriptions of log groups in order, owned.
class REPLogFileDescList : public repora::ClauseList<REPLogFileDesc> {
 public:
  REPLogFileDesc* GetLogFileDesc(int index) const { return clauses_.At(index); }
  std::string AsString(bool parenthesised = false) const { return Join(", ", parenthesised); }
};
