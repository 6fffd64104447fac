#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "repora/storage/size.h"

class MOXActionSummaryItem;
class REPProcessor;

// The virtual operations of the storage classes are slots of their interface to parsers, not
// points of extension: the clauses are copied and deleted as values.

enum class REPPoolType_e : int { None, Default, Recycle, Keep };

// STORAGE ( [INITIAL size] [NEXT size] [MINEXTENTS n] [MAXEXTENTS {n | UNLIMITED}]
//   [PCTINCREASE n] [FREELISTS n] [FREELIST GROUPS n] [OPTIMAL [size | NULL]]
//   [BUFFER_POOL {KEEP | RECYCLE | DEFAULT}] )
class REPStorageClause final {
 public:
  REPStorageClause() = default;
  // Null: a clause with nothing given, as in all classes that are made from a pointer.
  explicit REPStorageClause(REPStorageClause const* other)
      : REPStorageClause(repora::CopyOf(other)) {}
  REPStorageClause& operator=(REPStorageClause const* other) {
    return *this = repora::CopyOf(other);
  }

  // Adds a physical storage item under the owner, named like the owner, and writes the clause on
  // it, whether or not the clause is marked as present. Returns the item, borrowed; null when the
  // processor or the owner is null.
  virtual MOXActionSummaryItem* Process(REPProcessor* processor, MOXActionSummaryItem* owner) const;
  virtual std::string AsString() const;

  void SetInitial(REPSizeClause size) { initial_ = std::move(size); }
  REPSizeClause GetInitial() const { return initial_; }
  void SetNext(REPSizeClause size) { next_ = std::move(size); }
  REPSizeClause GetNext() const { return next_; }
  void SetMinExtents(REPSizeClause size) { min_extents_ = std::move(size); }
  REPSizeClause GetMinExtents() const { return min_extents_; }
  void SetMaxExtents(REPSizeClause size) { max_extents_ = std::move(size); }
  REPSizeClause GetMaxExtents() const { return max_extents_; }
  void SetPctIncrease(REPSizeClause size) { pct_increase_ = std::move(size); }
  REPSizeClause GetPctIncrease() const { return pct_increase_; }
  void SetFreeLists(REPSizeClause size) { free_lists_ = std::move(size); }
  REPSizeClause GetFreeLists() const { return free_lists_; }
  void SetGroups(REPSizeClause size) { groups_ = std::move(size); }
  REPSizeClause GetGroups() const { return groups_; }
  void SetOptimal(REPSizeClause size) { optimal_ = std::move(size); }
  REPSizeClause GetOptimal() const { return optimal_; }
  void SetBufferPool(REPPoolType_e pool) { pool_ = pool; }
  REPPoolType_e GetBufferPool() const { return pool_; }
  void SetClausePresent(bool present) { present_ = present; }
  bool GetClausePresent() const { return present_; }

  // Writes the clause on a physical storage item.
  void WriteProperties(MOXActionSummaryItem& storage) const;
  // Takes over what this clause does not say itself.
  void FillFrom(REPStorageClause const& other);

 private:
  REPSizeClause initial_;
  REPSizeClause next_;
  REPSizeClause min_extents_;
  REPSizeClause max_extents_;
  REPSizeClause pct_increase_;
  REPSizeClause free_lists_;
  REPSizeClause groups_;
  REPSizeClause optimal_;
  REPPoolType_e pool_{};
  bool present_ = false;  // the script has a STORAGE clause
};

// [PCTFREE n] [PCTUSED n] [INITRANS n] [MAXTRANS n] [storage_clause]
// Numbers are -1 when not given. As texts they are decimal; a text without a number gives 0.
class REPPhysicalAttrClause final {
 public:
  REPPhysicalAttrClause() = default;
  explicit REPPhysicalAttrClause(REPPhysicalAttrClause const* other)
      : REPPhysicalAttrClause(repora::CopyOf(other)) {}
  REPPhysicalAttrClause& operator=(REPPhysicalAttrClause const* other) {
    return *this = repora::CopyOf(other);
  }

  virtual std::string AsString() const;

  void SetPctFree(int percent) { pct_free_ = percent; }
  void SetPctFree(char const* text) { pct_free_ = repora::ToInt(text); }
  int GetPctFree() const { return pct_free_; }
  void SetPctUsed(int percent) { pct_used_ = percent; }
  void SetPctUsed(char const* text) { pct_used_ = repora::ToInt(text); }
  int GetPctUsed() const { return pct_used_; }
  void SetIniTrans(int count) { ini_trans_ = count; }
  void SetIniTrans(char const* text) { ini_trans_ = repora::ToInt(text); }
  int GetIniTrans() const { return ini_trans_; }
  void SetMaxTrans(int count) { max_trans_ = count; }
  void SetMaxTrans(char const* text) { max_trans_ = repora::ToInt(text); }
  int GetMaxTrans() const { return max_trans_; }
  void SetStorageClause(REPStorageClause storage) { storage_ = std::move(storage); }
  REPStorageClause GetStorageClause() const { return storage_; }

  // Adds a physical storage item of a kind (repora::codes::k...Storage) under the owner, or takes
  // the one of that name that the owner has, and writes the clause on it. An overflow is named
  // "Overflow", other kinds have no name. Returns the item, borrowed; null when the processor or
  // the owner is null. The owner's reference to the item is the caller's to set.
  MOXActionSummaryItem* Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                std::int32_t storage_kind) const;
  // Takes over what this clause does not say itself.
  void FillFrom(REPPhysicalAttrClause const& other);

 private:
  static constexpr int kNotGiven = -1;

  int pct_free_ = kNotGiven;
  int pct_used_ = kNotGiven;
  int ini_trans_ = kNotGiven;
  int max_trans_ = kNotGiven;
  REPStorageClause storage_;
};
