#include "repora/model/item.h"

#include <algorithm>
#include <new>

using repora::ChunkMemory;

MOXActionSummaryItem* MOXActionSummaryItem::Make() {
  auto const part = ChunkMemory::Take(ChunkMemory::kItems, sizeof(MOXActionSummaryItem));
  return new (part.memory) MOXActionSummaryItem(part.in_chunk);
}

void MOXActionSummaryItem::Destroy() {
  ChunkMemory::Part const part{this, references_.InChunk()};
  this->~MOXActionSummaryItem();
  ChunkMemory::Give(ChunkMemory::kItems, part, sizeof(MOXActionSummaryItem));
}

void MOXActionSummaryItem::SetProperty(MOXId id, QELValue value) {
  properties_.Set(id, std::move(value));
  if (removed_) std::erase(*removed_, id);
}

void MOXActionSummaryItem::SetPropertyPair(MOXProperty const& /*first*/,
                                           MOXProperty const& second) {
  SetProperty(second);
}

void MOXActionSummaryItem::RemoveProperty(MOXId id) {
  properties_.Remove(id);
  if (!removed_) removed_ = std::make_unique<std::vector<MOXId>>();
  auto const place = std::lower_bound(removed_->begin(), removed_->end(), id);
  if (place == removed_->end() || *place != id) removed_->insert(place, id);
}

bool MOXActionSummaryItem::GetPropertyValue(MOXId id, QELValue& value) const {
  auto const* found = properties_.Find(id);
  value = found ? *found : QELValue();
  return found != nullptr;
}

std::vector<MOXId> MOXActionSummaryItem::RemovedProperties() const {
  return removed_ ? *removed_ : std::vector<MOXId>();
}

bool MOXActionSummaryItem::HasRemoved(MOXId id) const {
  return removed_ && std::binary_search(removed_->begin(), removed_->end(), id);
}

MOXItemMap::Items::const_iterator MOXItemMap::LowerBound(std::uint32_t id) const {
  return std::lower_bound(
      items_.begin(), items_.end(), id,
      [](MOXActionSummaryItem const* item, std::uint32_t wanted) { return item->Id() < wanted; });
}

MOXActionSummaryItem* MOXItemMap::Find(std::uint32_t id) const {
  if (items_.empty() || id > items_.back()->Id()) return nullptr;
  // The items of a run have ids without gaps, at the end of the list.
  auto const from_end = std::size_t{items_.back()->Id() - id};
  if (from_end < items_.size()) {
    auto* const item = items_[items_.size() - 1 - from_end];
    if (item->Id() == id) return item;
  }
  auto const place = LowerBound(id);
  return place != items_.end() && (*place)->Id() == id ? *place : nullptr;
}

MOXActionSummaryItem* MOXItemMap::Insert(MOXActionSummaryItem* item) {
  if (items_.empty() || items_.back()->Id() < item->Id()) {  // ids are handed out in this order
    items_.push_back(item);
    return nullptr;
  }
  auto const place = LowerBound(item->Id());
  if ((*place)->Id() != item->Id()) {
    items_.insert(place, item);
    return nullptr;
  }
  return std::exchange(items_[static_cast<std::size_t>(place - items_.begin())], item);
}

void MOXActionSummary::AddItem(Types_e kind, MOXActionSummaryItem* item) {
  if (!item) return;
  item->AddReference();
  if (auto* const replaced = items_.Insert(item)) replaced->RemoveReference();
  if (kind == eCreated && (existing_.empty() || existing_.back() < item->Id())) return;
  auto const place = std::lower_bound(existing_.begin(), existing_.end(), item->Id());
  bool const known = place != existing_.end() && *place == item->Id();
  if (kind == eExisting && !known) existing_.insert(place, item->Id());
  if (kind == eCreated && known) existing_.erase(place);
}

bool MOXActionSummary::IsExisting(std::uint32_t id) const {
  return !existing_.empty() && id <= existing_.back() &&
         std::binary_search(existing_.begin(), existing_.end(), id);
}

MOXActionSummary::~MOXActionSummary() {
  for (auto* const item : items_) item->RemoveReference();
}
