#pragma once

#include <string>
#include <vector>

#include "repora/core/statement.h"
#include "repora/core/text.h"

class MOXActionSummaryItem;

namespace repora {

// The values of a partition in order, each the text of an expression as the script wrote it:
// 'EAST', TO_DATE('2024-01-01', 'YYYY-MM-DD'), MAXVALUE, NULL.
class PartitionValues {
 public:
  void Add(char const* text) { values_.emplace_back(text); }
  int GetCount() const { return static_cast<int>(values_.size()); }
  // The value at a position from 0 to GetCount() - 1; otherwise std::invalid_argument.
  char const* At(int position) const;
  std::vector<std::string> Texts() const;
  // Writes the values as the partition values of an item; none write nothing.
  void Write(MOXActionSummaryItem& item) const;
  // Separated by ", ".
  std::string AsString() const;

 private:
  std::vector<Text> values_;
};

}  // namespace repora

// VALUES LESS THAN (value, ...)
class REPRangeValueClause final {
 public:
  virtual std::string AsString() const;

  void AddValue(char const* text) { values_.Add(text); }  // at the end
  int GetNumValues() const { return values_.GetCount(); }
  char const* GetValue(int index) const { return values_.At(index); }

  // Writes the values, when there are any, as those of a partition; without an item the result is
  // REPProcessError.
  REPProcess_e Process(MOXActionSummaryItem* item) const;

 private:
  repora::PartitionValues values_;
};

// {VALUES | AT} (DEFAULT | value, ...)
class REPListValueClause {
 public:
  void SetDefault(bool is_default) { default_ = is_default; }
  bool GetDefault() const { return default_; }
  void AddValue(char const* text) { values_.Add(text); }  // at the end
  int GetNumValues() const { return values_.GetCount(); }
  char const* GetValue(int index) const { return values_.At(index); }

  // Each of these changes the values of a partition or subpartition: writes them anew, adds these
  // to what it has, or takes away all that are equal to one of these, text by text. DEFAULT counts
  // as one value of that text. Without an item the result is REPProcessError.
  REPProcess_e Process(MOXActionSummaryItem* item) const;
  REPProcess_e ProcessAdd(MOXActionSummaryItem* item) const;
  REPProcess_e ProcessDrop(MOXActionSummaryItem* item) const;

  // The values of a partition, or those at which one is split.
  std::string AsString(bool at) const;

 private:
  std::vector<std::string> Texts() const;

  bool default_ = false;  // the values are then without meaning
  repora::PartitionValues values_;
};
