#pragma once

#include <string>
#include <utility>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/size.h"

class MOXActionSummaryItem;

// ALLOCATE EXTENT [( [SIZE size] [DATAFILE 'file'] [INSTANCE n] )]
class REPAllocExtentClause {
 public:
  REPAllocExtentClause() = default;
  explicit REPAllocExtentClause(REPAllocExtentClause const* other)
      : REPAllocExtentClause(repora::CopyOf(other)) {}
  REPAllocExtentClause& operator=(REPAllocExtentClause const* other) {
    return *this = repora::CopyOf(other);
  }

  void SetSizeClause(REPSizeClause size) { size_ = std::move(size); }
  REPSizeClause GetSizeClause() const { return size_; }
  void SetFilename(REPName* file) { file_.Set(file); }
  REPName* GetFilename() const { return file_.Get(); }
  void SetInstance(char const* text) { instance_ = text; }
  char const* GetInstance() const { return instance_.c_str(); }

  // Writes the size on the item; the model has no place for the data file and the instance.
  // Without an item the result is REPProcessError.
  REPProcess_e Process(MOXActionSummaryItem* item) const;
  std::string AsString() const;

 private:
  REPSizeClause size_;
  repora::Owned<REPName> file_;  // with its single quotes
  repora::Text instance_;
};

// DEALLOCATE UNUSED [KEEP size]
// Frees space that the model does not describe: the clause is only rendered.
class REPDeallocateUnusedClause {
 public:
  REPDeallocateUnusedClause() = default;
  REPDeallocateUnusedClause(REPDeallocateUnusedClause const&) = default;
  explicit REPDeallocateUnusedClause(REPDeallocateUnusedClause const* other)
      : REPDeallocateUnusedClause(repora::CopyOf(other)) {}
  REPDeallocateUnusedClause& operator=(REPDeallocateUnusedClause const&) = default;
  REPDeallocateUnusedClause& operator=(REPDeallocateUnusedClause const* other) {
    return *this = repora::CopyOf(other);
  }
  virtual ~REPDeallocateUnusedClause() = default;

  void SetKeepSize(REPSizeClause size) { keep_ = std::move(size); }
  std::string AsString() const;

 private:
  REPSizeClause keep_;
};
