#include "repora/storage/partition_values.h"

#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "repora/core/sql_text.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace {

void WriteTexts(MOXActionSummaryItem& item, std::vector<std::string> const& texts) {
  item.SetProperty(ORVTypes::pPartitionValues, QELValue(texts));
}

std::vector<std::string> ReadTexts(MOXActionSummaryItem const& item) {
  std::vector<std::string> texts;
  if (auto const* const value = item.Properties().Find(ORVTypes::pPartitionValues))
    value->GetStringVector(texts);
  return texts;
}

}  // namespace

char const* repora::PartitionValues::At(int position) const {
  if (position < 0 || position >= GetCount())
    throw std::invalid_argument("position outside the values");
  return values_[static_cast<std::size_t>(position)].c_str();
}

std::vector<std::string> repora::PartitionValues::Texts() const {
  std::vector<std::string> texts;
  texts.reserve(values_.size());
  for (auto const& value : values_) texts.push_back(value.str());
  return texts;
}

void repora::PartitionValues::Write(MOXActionSummaryItem& item) const {
  if (!values_.empty()) WriteTexts(item, Texts());
}

std::string repora::PartitionValues::AsString() const {
  SqlText sql;
  // Part would leave out an empty value with its comma.
  for (int i = 0; i < GetCount(); ++i) sql.AppendIf(i > 0, ", ").Append(At(i));
  return sql.Take();
}

REPProcess_e REPRangeValueClause::Process(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  values_.Write(*item);
  return REPProcessOK;
}

std::string REPRangeValueClause::AsString() const {
  return "VALUES LESS THAN (" + values_.AsString() + ")";
}

REPProcess_e REPListValueClause::Process(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  auto const texts = Texts();
  if (!texts.empty()) WriteTexts(*item, texts);
  return REPProcessOK;
}

REPProcess_e REPListValueClause::ProcessAdd(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  auto texts = ReadTexts(*item);
  for (auto& text : Texts()) texts.push_back(std::move(text));
  WriteTexts(*item, texts);
  return REPProcessOK;
}

REPProcess_e REPListValueClause::ProcessDrop(MOXActionSummaryItem* item) const {
  if (!item) return REPProcessError;
  auto const dropped = Texts();
  std::unordered_set<std::string_view> const set(dropped.begin(), dropped.end());
  auto texts = ReadTexts(*item);
  std::erase_if(texts, [&set](std::string const& text) { return set.contains(text); });
  WriteTexts(*item, texts);
  return REPProcessOK;
}

std::string REPListValueClause::AsString(bool at) const {
  return SqlText(at ? "AT(" : "VALUES(")
      .Append(default_ ? "DEFAULT" : values_.AsString())
      .Append(")")
      .Take();
}

std::vector<std::string> REPListValueClause::Texts() const {
  return default_ ? std::vector<std::string>{"DEFAULT"} : values_.Texts();
}
