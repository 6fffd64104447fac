#include "repora/core/item_registry.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "repora/model/item.h"

namespace repora {
namespace {

constexpr std::uint32_t Power33(int exponent) {
  return exponent == 0 ? 1 : 33 * Power33(exponent - 1);
}

// What the two hexadecimal digits of a byte add to a hash.
constexpr auto kHashOfByte = [] {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::array<std::uint32_t, 256> hashes{};
  for (std::size_t byte = 0; byte < hashes.size(); ++byte)
    hashes[byte] = static_cast<std::uint32_t>(digits[byte >> 4U]) * 33 +
                   static_cast<std::uint32_t>(digits[byte & 0xFU]);
  return hashes;
}();

// The hash h := h * 33 + character goes on over the eight digits of a number and a bar.
std::uint32_t HashHex(std::uint32_t hash, std::uint32_t number) {
  return hash * Power33(9) + kHashOfByte[number >> 24U] * Power33(7) +
         kHashOfByte[(number >> 16U) & 0xFFU] * Power33(5) +
         kHashOfByte[(number >> 8U) & 0xFFU] * Power33(3) + kHashOfByte[number & 0xFFU] * 33 + '|';
}

std::size_t Spread(std::uint32_t number) {
  auto const mixed = number * 0x9E3779B1U;
  return mixed ^ (mixed >> 16U);
}

}  // namespace

std::string KeyText(std::uint32_t owner, MOXId type, std::string_view name) {
  char prefix[24];
  std::snprintf(prefix, sizeof prefix, "%08X|%08X|", owner, type);
  return std::string(prefix).append(name);
}

std::uint32_t ItemRegistry::BucketOf(ItemKey key) const {
  auto const& name = names_[key.name];
  return (HashHex(HashHex(0, key.owner), key.type) * name.power + name.hash) % kBuckets;
}

bool ItemRegistry::Before(Entry const& a, Entry const& b) const {
  return a.bucket != b.bucket ? a.bucket < b.bucket : a.sequence > b.sequence;
}

std::uint32_t ItemRegistry::FirstGroup(Side side, std::uint32_t id) const {
  if (side == kOwnerSide) return groups_of_owner_.Find(id);
  return id < groups_of_name_.size() ? groups_of_name_[id] : 0;
}

std::uint32_t ItemRegistry::FindGroup(Side side, std::uint32_t id, MOXId type) const {
  auto group = FirstGroup(side, id);
  while (group && groups_[group].type != type) group = groups_[group].next;
  return group;
}

std::uint32_t ItemRegistry::AddGroup(Side side, std::uint32_t id, MOXId type) {
  if (auto const found = FindGroup(side, id, type)) return found;
  if (groups_.size() == 0) groups_.Add({});  // 0 means none
  if (side == kNameSide && id >= groups_of_name_.size())
    groups_of_name_.resize(std::size_t{id} + 1);
  auto& first = side == kOwnerSide ? groups_of_owner_.At(id) : groups_of_name_[id];
  Group group;
  group.type = type;
  group.next = first;
  first = groups_.Add(group);
  return first;
}

std::uint32_t& ItemRegistry::Head(Group& group, std::uint32_t bucket) {
  return group.is_large ? large_[group.head]->heads[bucket] : group.head;
}

void ItemRegistry::LinkEntry(Side side, std::uint32_t number, std::uint32_t entry) {
  auto& group = groups_[number];
  if (!group.is_large && group.count == kLargeFrom) MakeLarge(side, group);
  auto& head = Head(group, entries_[entry].bucket);
  entries_[entry].links[side] = {0, head};
  if (head) entries_[head].links[side].previous = entry;
  head = entry;
  ++group.count;
  if (group.is_large && !large_[group.head]->by_name.empty()) AddByName(*large_[group.head], entry);
}

void ItemRegistry::UnlinkEntry(Side side, std::uint32_t number, std::uint32_t entry) {
  auto& group = groups_[number];
  auto const link = entries_[entry].links[side];
  if (link.next) entries_[link.next].links[side].previous = link.previous;
  if (link.previous)
    entries_[link.previous].links[side].next = link.next;
  else
    Head(group, entries_[entry].bucket) = link.next;
  --group.count;
  if (group.is_large && !large_[group.head]->by_name.empty())
    RemoveByName(*large_[group.head], entry);
}

void ItemRegistry::MakeLarge(Side side, Group& group) {
  std::vector<std::uint32_t> members;
  for (auto entry = group.head; entry; entry = entries_[entry].links[side].next)
    members.push_back(entry);
  group.head = static_cast<std::uint32_t>(large_.size());
  group.is_large = true;
  group.count = 0;
  large_.push_back(std::make_unique<Large>());
  auto const number = FindGroup(
      side,
      side == kOwnerSide ? entries_[members.front()].key.owner : entries_[members.front()].key.name,
      group.type);
  std::for_each(members.rbegin(), members.rend(),
                [&](std::uint32_t entry) { LinkEntry(side, number, entry); });
}

void ItemRegistry::AddByName(Large& large, std::uint32_t entry) const {
  if (4 * (std::size_t{large.used} + 1) > 3 * large.by_name.size()) {
    auto const old = std::move(large.by_name);
    auto const live =
        std::count_if(old.begin(), old.end(), [](std::uint32_t slot) { return slot > kErased; });
    std::size_t size = 64;
    while (size < 4 * static_cast<std::size_t>(live + 1)) size *= 2;
    large.by_name.assign(size, 0);
    large.used = 0;
    for (auto const slot : old)
      if (slot > kErased) AddByName(large, slot);
  }
  auto const mask = large.by_name.size() - 1;
  auto slot = Spread(entries_[entry].key.name) & mask;
  while (large.by_name[slot] > kErased) slot = (slot + 1) & mask;
  if (large.by_name[slot] == 0) ++large.used;
  large.by_name[slot] = entry;
}

void ItemRegistry::RemoveByName(Large& large, std::uint32_t entry) {
  auto const mask = large.by_name.size() - 1;
  auto slot = Spread(entries_[entry].key.name) & mask;
  while (large.by_name[slot] != entry) slot = (slot + 1) & mask;
  large.by_name[slot] = kErased;
}

// Of the entries that share the owner and those that share the name, the fewer are searched: a
// table has few columns, and few tables bear one name. Only where both are many (wide tables with
// column names that every table has) a table by name helps, and it is made then.
std::uint32_t ItemRegistry::FindEntry(ItemKey key) const {
  auto const of_owner = FindGroup(kOwnerSide, key.owner, key.type);
  auto const of_name = FindGroup(kNameSide, key.name, key.type);
  if (!of_owner || !of_name) return 0;
  if (groups_[of_owner].is_large && groups_[of_name].is_large)
    return FindByName(groups_[of_owner], key.name);
  bool const by_name =
      groups_[of_owner].is_large ||
      (!groups_[of_name].is_large && groups_[of_name].count < groups_[of_owner].count);
  auto const side = by_name ? kNameSide : kOwnerSide;
  auto entry = groups_[side == kOwnerSide ? of_owner : of_name].head;
  while (entry && (entries_[entry].key.name != key.name || entries_[entry].key.owner != key.owner))
    entry = entries_[entry].links[side].next;
  return entry;
}

std::uint32_t ItemRegistry::FindByName(Group const& group, std::uint32_t name) const {
  auto& large = *large_[group.head];
  if (large.by_name.empty())
    for (auto const head : large.heads)
      for (auto entry = head; entry; entry = entries_[entry].links[kOwnerSide].next)
        AddByName(large, entry);
  auto const& slots = large.by_name;
  if (slots.empty()) return 0;
  auto const mask = slots.size() - 1;
  auto slot = Spread(name) & mask;
  while (slots[slot] && (slots[slot] == kErased || entries_[slots[slot]].key.name != name))
    slot = (slot + 1) & mask;
  return slots[slot];
}

void ItemRegistry::LinkToItem(std::uint32_t entry) {
  auto& first = entries_of_item_.At(entries_[entry].item->Id());
  entries_[entry].next_of_item = first;
  first = entry;
}

void ItemRegistry::UnlinkFromItem(std::uint32_t entry) {
  auto* place = &entries_of_item_.At(entries_[entry].item->Id());
  while (*place != entry) place = &entries_[*place].next_of_item;
  *place = entries_[entry].next_of_item;
}

void ItemRegistry::CountMismatch(std::uint32_t entry, std::int32_t change) {
  auto const& key = entries_[entry].key;
  if (entries_[entry].item->Type() == key.type) return;
  auto& group = groups_[FindGroup(kNameSide, key.name, key.type)];
  group.mismatched += static_cast<std::uint32_t>(change);
}

void ItemRegistry::Put(ItemKey key, Item* item) {
  if (!item) return;
  if (auto const found = FindEntry(key)) {
    CountMismatch(found, -1);
    UnlinkFromItem(found);
    entries_[found].item = item;
    LinkToItem(found);
    CountMismatch(found, 1);
    return;
  }
  PutNew(key, item);
}

void ItemRegistry::PutNew(ItemKey key, Item* item) {
  while (entries_.size() <= kErased) entries_.Add({});  // 0 means none
  std::uint32_t number = 0;
  if (free_entries_.empty()) {
    number = entries_.Add({});
  } else {
    number = free_entries_.back();
    free_entries_.pop_back();
  }
  auto& entry = entries_[number];
  entry.key = key;
  entry.sequence = next_sequence_++;
  entry.item = item;
  entry.bucket = BucketOf(key);
  LinkEntry(kOwnerSide, AddGroup(kOwnerSide, key.owner, key.type), number);
  LinkEntry(kNameSide, AddGroup(kNameSide, key.name, key.type), number);
  LinkToItem(number);
  CountMismatch(number, 1);
  ++size_;
}

bool ItemRegistry::Remove(ItemKey key) {
  auto const entry = FindEntry(key);
  if (!entry) return false;
  CountMismatch(entry, -1);
  UnlinkFromItem(entry);
  UnlinkEntry(kOwnerSide, FindGroup(kOwnerSide, key.owner, key.type), entry);
  UnlinkEntry(kNameSide, FindGroup(kNameSide, key.name, key.type), entry);
  free_entries_.push_back(entry);
  --size_;
  return true;
}

void ItemRegistry::Clear() {
  entries_.Clear();
  free_entries_ = {};
  groups_.Clear();
  large_.clear();
  groups_of_owner_.Clear();
  groups_of_name_ = {};
  entries_of_item_.Clear();
  size_ = 0;
}

std::uint32_t ItemRegistry::FirstOf(Side side, Group const& group) const {
  if (group.is_large) {
    auto const& heads = large_[group.head]->heads;
    auto const* const first =
        std::find_if(std::begin(heads), std::end(heads), [](std::uint32_t head) { return head; });
    return first == std::end(heads) ? 0 : *first;
  }
  auto best = group.head;
  for (auto entry = best; entry; entry = entries_[entry].links[side].next)
    if (Before(entries_[entry], entries_[best])) best = entry;
  return best;
}

template <class Visit>
void ItemRegistry::Walk(Side side, Group const& group, Visit visit) const {
  if (group.is_large) {
    for (auto const head : large_[group.head]->heads)
      for (auto entry = head; entry; entry = entries_[entry].links[side].next)
        if (!visit(entry)) return;
    return;
  }
  std::vector<std::uint32_t> members;
  for (auto entry = group.head; entry; entry = entries_[entry].links[side].next)
    members.push_back(entry);
  std::sort(members.begin(), members.end(),
            [this](std::uint32_t a, std::uint32_t b) { return Before(entries_[a], entries_[b]); });
  for (auto const entry : members)
    if (!visit(entry)) return;
}

ItemRegistry::Item* ItemRegistry::Find(ItemKey key) const {
  auto const entry = FindEntry(key);
  return entry ? entries_[entry].item : nullptr;
}

ItemRegistry::Item* ItemRegistry::FirstOfOwner(std::uint32_t owner, MOXId type) const {
  auto const group = FindGroup(kOwnerSide, owner, type);
  auto const entry = group ? FirstOf(kOwnerSide, groups_[group]) : 0;
  return entry ? entries_[entry].item : nullptr;
}

void ItemRegistry::VisitOwner(std::uint32_t owner, MOXId type, Visitor const& visit) const {
  if (auto const group = FindGroup(kOwnerSide, owner, type))
    Walk(kOwnerSide, groups_[group],
         [&](std::uint32_t entry) { return visit(entries_[entry].item); });
}

ItemRegistry::Item* ItemRegistry::FirstOfName(std::uint32_t name, MOXId type) const {
  auto const group = FindGroup(kNameSide, name, type);
  auto const entry = group ? FirstOf(kNameSide, groups_[group]) : 0;
  return entry ? entries_[entry].item : nullptr;
}

ItemRegistry::Item* ItemRegistry::FirstOfName(std::uint32_t name) const {
  std::uint32_t best = 0;
  for (auto group = FirstGroup(kNameSide, name); group; group = groups_[group].next) {
    auto const entry = FirstOf(kNameSide, groups_[group]);
    if (entry && (!best || Before(entries_[entry], entries_[best]))) best = entry;
  }
  return best ? entries_[best].item : nullptr;
}

ItemRegistry::Item* ItemRegistry::FirstOfNameAmong(std::uint32_t name,
                                                   std::vector<MOXId> const& item_types) const {
  auto const wanted = [&](MOXId type) {
    return std::find(item_types.begin(), item_types.end(), type) != item_types.end();
  };
  std::uint32_t best = 0;
  for (auto group = FirstGroup(kNameSide, name); group; group = groups_[group].next) {
    // Keys and items are of one type but for synonyms of keys, which are counted.
    if (!wanted(groups_[group].type) && groups_[group].mismatched == 0) continue;
    Walk(kNameSide, groups_[group], [&](std::uint32_t entry) {
      if (!wanted(entries_[entry].item->Type())) return true;
      if (!best || Before(entries_[entry], entries_[best])) best = entry;
      return false;
    });
  }
  return best ? entries_[best].item : nullptr;
}

bool ItemRegistry::FindKey(Item const* item, ItemKey& key) const {
  std::uint32_t best = 0;
  for (auto entry = item ? entries_of_item_.Find(item->Id()) : 0; entry;
       entry = entries_[entry].next_of_item) {
    if (entries_[entry].item == item && (!best || Before(entries_[entry], entries_[best])))
      best = entry;
  }
  if (best) key = entries_[best].key;
  return best != 0;
}

ItemRegistry::Item* ItemRegistry::FirstUnder(std::vector<std::uint32_t> const& owners, MOXId type,
                                             std::uint32_t name, std::size_t& position) const {
  auto const number = FindGroup(kNameSide, name, type);
  if (!number) return nullptr;
  auto const& group = groups_[number];
  Item* found = nullptr;
  if (group.is_large || owners.size() <= group.count) {
    for (position = 0; position < owners.size() && !found; ++position)
      found = Find({owners[position], type, name});
    if (found) --position;
    return found;
  }
  auto first = owners.end();
  for (auto entry = group.head; entry; entry = entries_[entry].links[kNameSide].next) {
    auto const owner = std::find(owners.begin(), first, entries_[entry].key.owner);
    if (owner == first) continue;
    first = owner;
    found = entries_[entry].item;
  }
  position = static_cast<std::size_t>(first - owners.begin());
  return found;
}

ItemRegistry::Item* ItemRegistry::FirstOfNameUnder(std::uint32_t name, MOXId type,
                                                   std::uint32_t owner_owner, MOXId owner_type,
                                                   ItemRegistry const& owners) const {
  auto const group = FindGroup(kNameSide, name, type);
  if (!group) return nullptr;
  std::uint32_t best = 0;
  Item* found = nullptr;
  Walk(kNameSide, groups_[group], [&](std::uint32_t entry) {
    auto owner = owners.entries_of_item_.Find(entries_[entry].key.owner);
    for (; owner; owner = owners.entries_[owner].next_of_item) {
      auto const& candidate = owners.entries_[owner];
      if (candidate.key.owner != owner_owner || candidate.key.type != owner_type) continue;
      if (best && !Before(candidate, owners.entries_[best])) continue;
      best = owner;
      found = entries_[entry].item;
    }
    return true;
  });
  return found;
}

}  // namespace repora
