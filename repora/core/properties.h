#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "repora/model/ids.h"

class MOXActionSummaryItem;
class REPName;

// Writers of item properties: Set replaces what the item has, Add is the same in words that say
// that the item is new. "IfGiven" writes nothing for an empty value.
namespace repora {

void SetText(MOXActionSummaryItem& item, MOXId property, std::string_view text);
void SetInteger(MOXActionSummaryItem& item, MOXId property, std::int32_t number);
void SetBoolean(MOXActionSummaryItem& item, MOXId property, bool value);
void SetReference(MOXActionSummaryItem& item, MOXId property, std::uint32_t id);
void SetReferences(MOXActionSummaryItem& item, MOXId property,
                   std::vector<std::uint32_t> const& ids);

// A choice of two keywords as a boolean: false for value 1, true for 2, nothing for any other.
template <class Choice>
void SetChoice(MOXActionSummaryItem& item, MOXId property, Choice choice) {
  auto const value = static_cast<int>(choice);
  if (value == 1 || value == 2) SetBoolean(item, property, value == 2);
}

void AddText(MOXActionSummaryItem& item, MOXId property, std::string_view text);
void AddInteger(MOXActionSummaryItem& item, MOXId property, std::int32_t number);
void AddBoolean(MOXActionSummaryItem& item, MOXId property, bool value);
void AddReference(MOXActionSummaryItem& item, MOXId property, std::uint32_t id);

void SetTextIfGiven(MOXActionSummaryItem& item, MOXId property, std::string_view text);
void AddTextIfGiven(MOXActionSummaryItem& item, MOXId property, std::string_view text);

// The schema of a compound name as ORVTypes::pDBOwner; other names write nothing.
void SetOwnerOf(MOXActionSummaryItem& item, REPName const* name);

// Whether the item has the property with a value.
bool HasProperty(MOXActionSummaryItem const& item, MOXId property);

}  // namespace repora
