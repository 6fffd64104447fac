#pragma once

#include <string>
#include <utility>

#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;

// The virtual operations of these clauses are slots of their interface to parsers, not points of
// extension: the clauses are copied and deleted as values.

// AUTOEXTEND {OFF | ON [NEXT size] [MAXSIZE {size | UNLIMITED}]}
class REPAutoExtendClause final {
 public:
  // ON unless OFF is set.
  virtual std::string AsString() const;

  void SetClausePresent(bool present) { present_ = present; }
  bool GetClausePresent() const { return present_; }
  void SetOn(bool on) { on_ = on; }
  bool GetOn() const { return on_; }
  void SetOff(bool off) { off_ = off; }
  bool GetOff() const { return off_; }
  void SetSizeClause(REPSizeClause size) { next_ = std::move(size); }
  REPSizeClause GetSize() const { return next_; }
  void SetMaxSizeClause(REPSizeClause size) { max_ = std::move(size); }
  REPSizeClause GetMaxSize() const { return max_; }

  // Writes the clause on a file item, when it is present. Without an item the result is
  // REPProcessError.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* file) const;

 private:
  bool present_ = false;  // the script has the clause
  bool on_ = false;
  bool off_ = false;
  REPSizeClause next_;
  REPSizeClause max_;
};

// ['file' | ('file' [, 'file']...)] [SIZE size] [REUSE] [AUTOEXTEND ...]
// File names are kept as the script wrote them, but for the quotes around them.
class REPFileSpec {
 public:
  // Puts a name before those that are there.
  void SetFilename(char const* name) { names_.AddHead(new repora::Text(name)); }
  int GetNumFilenames() const { return names_.GetCount(); }
  char const* GetFilename(int index) const { return names_.At(index)->c_str(); }
  void SetReuse(bool reuse) { reuse_ = reuse; }
  bool GetReuse() const { return reuse_; }
  void SetSizeClause(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSizeClause() const { return size_; }
  void SetAutoExtendClause(REPAutoExtendClause autoextend) { autoextend_ = std::move(autoextend); }
  REPAutoExtendClause GetAutoExtentClause() const { return autoextend_; }

  // Adds a file item per name under the owner, a tablespace or the database, and one without a name
  // when there is none. A name that the owner has already is reported and left out; names in a disk
  // group ("+DATA") may repeat, for the server makes files of them. The result is that of the last
  // name that was looked up.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner) const;
  std::string AsString() const;

 private:
  void WriteProperties(REPProcessor* processor, MOXActionSummaryItem* file) const;

  repora::OwnedList<repora::Text> names_;
  bool reuse_ = false;
  REPSizeClause size_;
  REPAutoExtendClause autoextend_;
};

// Files in order, owned.
class REPFileSpecList {
 public:
  void AddHead(REPFileSpec* file) { files_.AddHead(file); }
  void AddTail(REPFileSpec* file) { files_.AddTail(file); }
  int GetCount() const { return files_.GetCount(); }
  REPFileSpec* GetFileSpec(int index) const { return files_.At(index); }

  // Adds the items of all files; the last result that is not REPProcessOK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner) const;
  // A single file has no parentheses in any case.
  std::string AsString(bool parenthesised) const;

 private:
  repora::OwnedList<REPFileSpec> files_;
};

// DATAFILE file [, file]...
// A file that could not be added does not hold up the statement: REPProcessOK in any case.
class REPDataFileClause {
 public:
  // Puts a file before those that are there; null is ignored.
  void AddFileSpec(REPFileSpec* file) { files_.AddHead(file); }
  int GetNumFileSpecs() const { return files_.GetCount(); }
  REPFileSpec* GetFileSpec(int index) const { return files_.GetFileSpec(index); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner) const;
  std::string AsString() const;
  // The files without the keyword, as TEMPFILE and others take them.
  std::string FilesAsString() const { return files_.AsString(true); }

 private:
  REPFileSpecList files_;
};
