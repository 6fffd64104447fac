#pragma once

#include <cstdint>
#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/storage/storage_clause.h"

class MOXActionSummaryItem;
class REPProcessor;

// [physical_attributes] [TABLESPACE name] [LOGGING | NOLOGGING | [NO] FORCE LOGGING]
//   [COMPRESS [n] | NOCOMPRESS]
class REPSegmentAttributesClause final {
 public:
  REPSegmentAttributesClause() = default;
  explicit REPSegmentAttributesClause(REPSegmentAttributesClause const* other)
      : REPSegmentAttributesClause(repora::CopyOf(other)) {}
  REPSegmentAttributesClause& operator=(REPSegmentAttributesClause const* other) {
    return *this = repora::CopyOf(other);
  }

  // As REPPhysicalAttrClause::Process, with logging and tablespace on the same item. Compression
  // is written only on an owner that is a partition description: other owners hold it themselves.
  virtual MOXActionSummaryItem* Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                        std::int32_t storage_kind) const;
  virtual std::string AsString() const;

  // Filled in place.
  REPPhysicalAttrClause* GetAttributesClause() { return &attributes_; }
  REPPhysicalAttrClause const* GetAttributesClause() const { return &attributes_; }
  void SetTablespaceName(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespaceName() const { return tablespace_.Get(); }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  void SetCompressionSize(char const* text) { compression_size_ = text; }

  // Takes over what this clause does not say itself, except compression. A tablespace name that
  // is taken moves here.
  void FillFrom(REPSegmentAttributesClause& other);

 private:
  REPPhysicalAttrClause attributes_;
  repora::Owned<REPName> tablespace_;
  REPLogging_e logging_{};
  REPCompress_e compression_{};
  repora::Text compression_size_;  // the prefix length of COMPRESS n
};

// (PARTITION [segment_attributes], ...)
// A null element is a partition without attributes.
class REPSegmentAttributesClauseList final {
 public:
  REPSegmentAttributesClauseList() = default;
  explicit REPSegmentAttributesClauseList(REPSegmentAttributesClauseList const* other)
      : REPSegmentAttributesClauseList(repora::CopyOf(other)) {}
  REPSegmentAttributesClauseList& operator=(REPSegmentAttributesClauseList const* other) {
    return *this = repora::CopyOf(other);
  }

  virtual std::string AsString() const;

  void AddHead(REPSegmentAttributesClause* clause) { clauses_.AddHead(clause); }
  void AddTail(REPSegmentAttributesClause* clause) { clauses_.AddTail(clause); }
  int GetCount() const { return clauses_.GetCount(); }
  REPSegmentAttributesClause* GetAttributes(int index) const { return clauses_.At(index); }
  // Takes a clause out of the list and hands it to the caller.
  REPSegmentAttributesClause* RemoveAt(int index) { return clauses_.RemoveAt(index); }

  // For a list that holds one clause written in pieces: merges the pieces into the first one, the
  // first value of each attribute winning, and deletes the others. Null pieces are dropped.
  // Returns the merged clause, still owned by the list; null when there is none.
  REPSegmentAttributesClause* CompactList();

 private:
  repora::OwnedList<REPSegmentAttributesClause, repora::NullElements::Kept> clauses_;
};

// (PARTITION segment_attributes, ...)
class REPSegmentAttributesList {
 public:
  REPSegmentAttributesList() = default;
  explicit REPSegmentAttributesList(REPSegmentAttributesList const* other)
      : REPSegmentAttributesList(repora::CopyOf(other)) {}
  REPSegmentAttributesList& operator=(REPSegmentAttributesList const* other) {
    return *this = repora::CopyOf(other);
  }

  void AddHead(REPSegmentAttributesClause* clause) { clauses_.AddHead(clause); }
  void AddTail(REPSegmentAttributesClause* clause) { clauses_.AddTail(clause); }
  int GetCount() const { return clauses_.GetCount(); }
  REPSegmentAttributesClause* GetAttributesClause(int index) const { return clauses_.At(index); }
  std::string AsString() const;

 private:
  repora::OwnedList<REPSegmentAttributesClause> clauses_;
};
