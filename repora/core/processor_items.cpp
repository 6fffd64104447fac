#include "repora/core/name.h"
#include "repora/core/processor_state.h"
#include "repora/core/properties.h"

using repora::ItemKey;
using repora::MapFullName;
using repora::NameTable;

namespace {

// A key for a search: a name that was never registered has no number.
bool FindKeyOf(NameTable const& names, std::uint32_t owner, MOXId type, REPName const* name,
               ItemKey& key) {
  key = {owner, type, names.Find(MapFullName(name))};
  return key.name != NameTable::kNoName;
}

void MarkAsPlaceholder(MOXActionSummaryItem& item) {
  repora::AddBoolean(item, ORVTypes::pDoNotGenerate, true);
}

}  // namespace

MOXActionSummaryItem* REPProcessor::CreateItem(std::uint32_t owner, MOXId type,
                                               REPName const* name) {
  if (!state_->summary) return nullptr;
  auto* const item = MOXActionSummaryItem::Make();
  item->SetOwner(owner);
  item->SetType(type);
  item->SetId(state_->next_id);
  if (name && !name->IsEmpty()) SetNameProp(item, name);
  state_->summary->AddItem(MOXActionSummary::eCreated, item);
  item->RemoveReference();
  ++state_->next_id;
  return item;
}

REPProcess_e REPProcessor::AddItem(std::uint32_t owner, MOXId type, REPName const* name,
                                   MOXActionSummaryItem*& item) {
  item = nullptr;
  if (!state_->summary) return REPProcessError;
  ItemKey const key{owner, type, state_->names.Add(MapFullName(name))};
  item = state_->registry.Find(key);
  if (item) return REPProcessDuplicate;
  if (state_->placeholders.size() > 0) item = state_->placeholders.Find(key);
  if (item) {
    item->RemoveProperty(ORVTypes::pDoNotGenerate);
    state_->placeholders.Remove(key);
  } else {
    item = CreateItem(owner, type, name);
  }
  state_->registry.PutNew(key, item);
  return REPProcessOK;
}

std::uint32_t REPProcessor::FindCreateItem(std::uint32_t owner, MOXId type, REPName const* name) {
  if (!state_->summary) return 0;
  ItemKey const key{owner, type, state_->names.Add(MapFullName(name))};
  if (auto const* const item = state_->registry.Find(key)) return item->Id();
  if (auto const* const item = state_->placeholders.Find(key)) return item->Id();
  auto* const item = CreateItem(owner, type, name);
  MarkAsPlaceholder(*item);
  if (name && TypeUsesDBOwner(type))
    repora::AddTextIfGiven(*item, ORVTypes::pDBOwner, name->GetOwnerName(false));
  state_->placeholders.Put(key, item);
  return item->Id();
}

REPProcess_e REPProcessor::AddSynonym(std::uint32_t owner, MOXId type, REPName const* name,
                                      MOXActionSummaryItem* item) {
  state_->registry.Put({owner, type, state_->names.Add(MapFullName(name))}, item);
  return REPProcessOK;
}

REPProcess_e REPProcessor::ReplaceItem(std::uint32_t owner, MOXId type, REPName const* old_name,
                                       REPName const* new_name) {
  if (!state_->summary) return REPProcessError;
  ItemKey const old_key{owner, type, state_->names.Add(MapFullName(old_name))};
  ItemKey const new_key{owner, type, state_->names.Add(MapFullName(new_name))};
  if (state_->registry.Find(new_key) || state_->placeholders.Find(new_key))
    return REPProcessDuplicate;
  for (auto* const items : {&state_->registry, &state_->placeholders}) {
    auto* const item = items->Find(old_key);
    if (!item) continue;
    items->Remove(old_key);
    items->Put(new_key, item);
    return REPProcessOK;
  }
  auto* const item = CreateItem(owner, type, new_name);
  MarkAsPlaceholder(*item);
  state_->placeholders.Put(new_key, item);
  return REPProcessOK;
}

REPProcess_e REPProcessor::RenameItem(MOXActionSummaryItem* item, REPName const* new_name) {
  ItemKey old_key;
  if (!state_->registry.FindKey(item, old_key)) return REPProcessError;
  ItemKey const new_key{old_key.owner, old_key.type, state_->names.Add(MapFullName(new_name))};
  if (state_->registry.Find(new_key)) return REPProcessDuplicate;
  state_->registry.Remove(old_key);
  SetNameProp(item, new_name);
  state_->registry.Put(new_key, item);
  return REPProcessOK;
}

MOXActionSummaryItem* REPProcessor::FindItemPtr(std::uint32_t owner, MOXId type,
                                                REPName const* name) const {
  ItemKey key;
  return FindKeyOf(state_->names, owner, type, name, key) ? state_->registry.Find(key) : nullptr;
}

std::uint32_t REPProcessor::FindItem(std::uint32_t owner, MOXId type, REPName const* name) const {
  auto const* const item = FindItemPtr(owner, type, name);
  return item ? item->Id() : 0;
}

MOXActionSummaryItem* REPProcessor::FindItemPtr(std::uint32_t owner, MOXId type) const {
  return state_->registry.FirstOfOwner(owner, type);
}

std::uint32_t REPProcessor::FindItemAmong(std::vector<std::uint32_t> const& owners, MOXId type,
                                          REPName const* name, std::size_t& position) const {
  ItemKey key;
  if (!FindKeyOf(state_->names, 0, type, name, key)) return 0;
  auto const* const item = state_->registry.FirstUnder(owners, type, key.name, position);
  return item ? item->Id() : 0;
}

void REPProcessor::FindChildrenByType(std::uint32_t owner, MOXId type,
                                      std::vector<MOXActionSummaryItem*>& items) const {
  state_->registry.VisitOwner(owner, type, [&](MOXActionSummaryItem* item) {
    items.push_back(item);
    return true;
  });
}

MOXActionSummaryItem* REPProcessor::FindSummaryItemPtr(std::uint32_t owner, MOXId type) const {
  state_->UpdateSummaryIndex();
  return state_->summary_index.First(owner, type);
}

void REPProcessor::FindSummaryChildrenByType(std::uint32_t owner, MOXId type,
                                             std::vector<MOXActionSummaryItem*>& items) const {
  state_->UpdateSummaryIndex();
  state_->summary_index.Append(owner, type, items);
}

MOXActionSummaryItem* REPProcessor::FindSummaryPtrById(std::uint32_t id) const {
  return state_->summary ? state_->summary->CreatedObjects().Find(id) : nullptr;
}

MOXActionSummaryItem* REPProcessor::FindItemPtrByTypeName(MOXId type, REPName const* name) const {
  ItemKey key;
  if (!name || !FindKeyOf(state_->names, 0, type, name, key)) return nullptr;
  return state_->registry.FirstOfName(key.name, type);
}

MOXActionSummaryItem* REPProcessor::FindItemPtrByName(REPName const* name) const {
  ItemKey key;
  if (!FindKeyOf(state_->names, 0, 0, name, key)) return nullptr;
  return state_->registry.FirstOfName(key.name);
}

MOXActionSummaryItem* REPProcessor::FindSynonymDuplicatePtr(REPName const* name) const {
  static std::vector<MOXId> const clashing = {ORVTypes::oEntity,     ORVTypes::oView,
                                              ORVTypes::oCachedView, ORVTypes::oSequence,
                                              ORVTypes::oSynonym,    ORVTypes::oStoredProcedure,
                                              ORVTypes::oFunction,   ORVTypes::oOraclePackage};
  ItemKey key;
  if (!FindKeyOf(state_->names, 0, 0, name, key)) return nullptr;
  return state_->registry.FirstOfNameAmong(key.name, clashing);
}

MOXActionSummaryItem* REPProcessor::FindTrigger(REPName const* name) const {
  ItemKey key;
  if (!FindKeyOf(state_->names, 0, 0, name, key)) return nullptr;
  auto const under = [&](MOXId owner_type, repora::ItemRegistry const& owners) {
    return state_->registry.FirstOfNameUnder(key.name, ORVTypes::oTrigger, state_->root, owner_type,
                                             owners);
  };
  for (auto const type : {ORVTypes::oEntity, ORVTypes::oView, ORVTypes::oCachedView})
    if (auto* const trigger = under(type, state_->registry)) return trigger;
  if (auto const* const database = FindItemPtr(state_->root, ORVTypes::oOracleDatabase))
    if (auto* const trigger = FindItemPtr(database->Id(), ORVTypes::oTrigger, name)) return trigger;
  return under(ORVTypes::oEntity, state_->placeholders);
}

namespace repora {

std::uint32_t SummaryIndex::FindGroup(std::uint32_t owner, MOXId type) const {
  auto group = groups_of_owner_.Find(owner);
  while (group && groups_[group].type != type) group = groups_[group].next;
  return group;
}

void SummaryIndex::Update(MOXItemMap const& items) {
  auto const count = static_cast<std::ptrdiff_t>(items.size());
  for (; items_seen_ < count; ++items_seen_) Add(*(items.begin() + items_seen_));
}

void SummaryIndex::Add(Item* item) {
  if (groups_.size() == 0) {
    groups_.Add({});
    nodes_.Add({});
  }
  auto group = FindGroup(item->Owner(), item->Type());
  if (!group) {
    auto& first = groups_of_owner_.At(item->Owner());
    group = first = groups_.Add({item->Type(), first, 0, 0});
  }
  auto const node = nodes_.Add({item, 0});
  auto& members = groups_[group];
  (members.first ? nodes_[members.last].next : members.first) = node;
  members.last = node;
}

SummaryIndex::Item* SummaryIndex::First(std::uint32_t owner, MOXId type) const {
  auto const group = FindGroup(owner, type);
  return group ? nodes_[groups_[group].first].item : nullptr;
}

void SummaryIndex::Append(std::uint32_t owner, MOXId type, std::vector<Item*>& items) const {
  auto const group = FindGroup(owner, type);
  for (auto node = group ? groups_[group].first : 0; node; node = nodes_[node].next)
    items.push_back(nodes_[node].item);
}

void SummaryIndex::Clear() {
  groups_of_owner_.Clear();
  groups_.Clear();
  nodes_.Clear();
  items_seen_ = 0;
}

}  // namespace repora
