#include "repora/core/properties.h"

#include "repora/core/name.h"
#include "repora/model/item.h"

namespace repora {

void SetText(MOXActionSummaryItem& item, MOXId property, std::string_view text) {
  item.SetProperty(property, QELValue(text));
}

void SetInteger(MOXActionSummaryItem& item, MOXId property, std::int32_t number) {
  item.SetProperty(property, QELValue::FromInteger(number));
}

void SetBoolean(MOXActionSummaryItem& item, MOXId property, bool value) {
  item.SetProperty(property, QELValue::FromBoolean(value));
}

void SetReference(MOXActionSummaryItem& item, MOXId property, std::uint32_t id) {
  item.SetProperty(property, QELValue(QELShortId(id)));
}

void SetReferences(MOXActionSummaryItem& item, MOXId property,
                   std::vector<std::uint32_t> const& ids) {
  item.SetProperty(property, QELValue::FromShortIds(ids));
}

void AddText(MOXActionSummaryItem& item, MOXId property, std::string_view text) {
  item.SetProperty(property, QELValue(text));
}

void AddInteger(MOXActionSummaryItem& item, MOXId property, std::int32_t number) {
  item.SetProperty(property, QELValue::FromInteger(number));
}

void AddBoolean(MOXActionSummaryItem& item, MOXId property, bool value) {
  item.SetProperty(property, QELValue::FromBoolean(value));
}

void AddReference(MOXActionSummaryItem& item, MOXId property, std::uint32_t id) {
  item.SetProperty(property, QELValue(QELShortId(id)));
}

void SetTextIfGiven(MOXActionSummaryItem& item, MOXId property, std::string_view text) {
  if (!text.empty()) SetText(item, property, text);
}

void AddTextIfGiven(MOXActionSummaryItem& item, MOXId property, std::string_view text) {
  if (!text.empty()) AddText(item, property, text);
}

void SetOwnerOf(MOXActionSummaryItem& item, REPName const* name) {
  if (name && name->IsCompound()) SetText(item, ORVTypes::pDBOwner, name->GetOwnerName(false));
}

bool HasProperty(MOXActionSummaryItem const& item, MOXId property) {
  auto const* value = item.Properties().Find(property);
  return value && QELValue::HasValue(*value);
}

}  // namespace repora
