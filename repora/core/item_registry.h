#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "repora/core/id_slots.h"
#include "repora/core/name_table.h"
#include "repora/model/ids.h"

class MOXActionSummaryItem;

namespace repora {

// The key of an item: who owns it, its type and its map name.
struct ItemKey {
  std::uint32_t owner = 0;
  MOXId type = 0;
  std::uint32_t name = 0;  // number in the name table
};

// "%08X|%08X|%s" of owner, type and name: the text form of a key.
std::string KeyText(std::uint32_t owner, MOXId type, std::string_view name);

// Items by key, in the order of a chained hash table of 17 buckets over the text keys: ascending
// buckets, the most recently inserted key first within one, a replaced item in the place of its
// predecessor. That order decides which match a search finds first. No search walks the table:
// the keys of one owner and type, and those of one name and type, are linked, in one list per
// bucket as soon as there are many of them.
class ItemRegistry {
 public:
  using Item = MOXActionSummaryItem;
  using Visitor = std::function<bool(Item*)>;  // false ends the walk

  static constexpr std::uint32_t kBuckets = 17;

  explicit ItemRegistry(NameTable const& names) : names_(names) {}

  Item* Find(ItemKey key) const;
  void Put(ItemKey key, Item* item);     // replaces the item of a key that is there
  void PutNew(ItemKey key, Item* item);  // the same for a key that is known not to be there
  bool Remove(ItemKey key);
  void Clear();
  std::size_t size() const { return size_; }

  // In the order of the table.
  Item* FirstOfOwner(std::uint32_t owner, MOXId type) const;
  void VisitOwner(std::uint32_t owner, MOXId type, Visitor const& visit) const;
  Item* FirstOfName(std::uint32_t name, MOXId type) const;
  Item* FirstOfName(std::uint32_t name) const;
  // The first entry of that name whose item (not whose key) is of one of the types.
  Item* FirstOfNameAmong(std::uint32_t name, std::vector<MOXId> const& item_types) const;
  // The item of that type and name under the first of the owners that has one, and that owner's
  // position; it costs no more than the owners, or the items of the name, are many.
  Item* FirstUnder(std::vector<std::uint32_t> const& owners, MOXId type, std::uint32_t name,
                   std::size_t& position) const;
  // The first key of an item; false when it has none.
  bool FindKey(Item const* item, ItemKey& key) const;
  // The first, by the order of their owners' first keys among those of (owner_owner, owner_type),
  // of the items of that type and name.
  Item* FirstOfNameUnder(std::uint32_t name, MOXId type, std::uint32_t owner_owner,
                         MOXId owner_type, ItemRegistry const& owners) const;

 private:
  enum Side { kOwnerSide, kNameSide };  // the two lists that an entry belongs to

  struct Link {
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
  };
  struct Entry {
    ItemKey key;
    std::uint32_t sequence = 0;
    Item* item = nullptr;
    Link links[2];
    std::uint32_t next_of_item = 0;
    std::uint32_t bucket = 0;
  };
  // Entries that share an owner, or a name, and the type. Few of them are one list; many are a list
  // per bucket.
  struct Group {
    MOXId type = 0;
    std::uint32_t count = 0;
    std::uint32_t next = 0;        // group of the same owner or name
    std::uint32_t head = 0;        // first entry; in a large group its number in large_
    std::uint32_t mismatched = 0;  // entries whose item is of another type than the key
    bool is_large = false;
  };
  struct Large {
    std::uint32_t heads[kBuckets] = {};
    // On the owner's side, once a search needs it: entries by name in open addressing, 0 free,
    // 1 erased, and how many slots are not free.
    std::vector<std::uint32_t> by_name;
    std::uint32_t used = 0;
  };

  static constexpr std::uint32_t kLargeFrom = 16;
  static constexpr std::uint32_t kErased = 1;  // entry 1 is never used

  std::uint32_t BucketOf(ItemKey key) const;
  bool Before(Entry const& a, Entry const& b) const;
  std::uint32_t FindEntry(ItemKey key) const;
  std::uint32_t FirstGroup(Side side, std::uint32_t id) const;
  std::uint32_t FindGroup(Side side, std::uint32_t id, MOXId type) const;
  std::uint32_t AddGroup(Side side, std::uint32_t id, MOXId type);
  std::uint32_t& Head(Group& group, std::uint32_t bucket);
  void LinkEntry(Side side, std::uint32_t group, std::uint32_t entry);
  void UnlinkEntry(Side side, std::uint32_t group, std::uint32_t entry);
  void MakeLarge(Side side, Group& group);
  void AddByName(Large& large, std::uint32_t entry) const;
  std::uint32_t FindByName(Group const& group, std::uint32_t name) const;
  void RemoveByName(Large& large, std::uint32_t entry);
  std::uint32_t FirstOf(Side side, Group const& group) const;
  template <class Visit>
  void Walk(Side side, Group const& group, Visit visit) const;
  void LinkToItem(std::uint32_t entry);
  void UnlinkFromItem(std::uint32_t entry);
  void CountMismatch(std::uint32_t entry, std::int32_t change);

  NameTable const& names_;
  BlockArray<Entry> entries_;
  std::vector<std::uint32_t> free_entries_;
  BlockArray<Group> groups_;
  std::vector<std::unique_ptr<Large>> large_;
  IdSlots groups_of_owner_;
  std::vector<std::uint32_t> groups_of_name_;
  IdSlots entries_of_item_;
  std::size_t size_ = 0;
  std::uint32_t next_sequence_ = 1;
};

}  // namespace repora
