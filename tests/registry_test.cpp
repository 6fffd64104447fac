#include <algorithm>
#include <deque>
#include <random>

#include <gtest/gtest.h>

#include "repora/core/item_registry.h"
#include "repora/model/item.h"

namespace repora {
namespace {

using Item = MOXActionSummaryItem;

// The table whose order the registry answers in, written down plainly: 17 chained buckets over the
// text keys, walked from the first bucket to the last, newest key first.
class PlainTable {
 public:
  using Entry = std::pair<std::string, Item*>;

  void Put(std::string const& key, Item* item) {
    if (auto* const found = FindEntry(key))
      found->second = item;
    else
      buckets_[BucketOf(key)].push_front({key, item});
  }
  bool Remove(std::string const& key) {
    return std::erase_if(buckets_[BucketOf(key)], [&](auto const& e) { return e.first == key; }) !=
           0;
  }
  Item* Find(std::string const& key) {
    auto* const found = FindEntry(key);
    return found ? found->second : nullptr;
  }
  template <class Matches>
  std::vector<Entry> All(Matches matches) const {
    std::vector<Entry> found;
    for (auto const& bucket : buckets_)
      std::copy_if(bucket.begin(), bucket.end(), std::back_inserter(found), matches);
    return found;
  }
  template <class Matches>
  Item* First(Matches matches) const {
    auto const found = All(matches);
    return found.empty() ? nullptr : found.front().second;
  }

 private:
  static std::size_t BucketOf(std::string const& key) {
    std::uint32_t h = 0;
    for (char const c : key) h = h * 33 + static_cast<std::uint32_t>(static_cast<signed char>(c));
    return h % 17;
  }
  Entry* FindEntry(std::string const& key) {
    auto& bucket = buckets_[BucketOf(key)];
    auto const found =
        std::find_if(bucket.begin(), bucket.end(), [&](auto const& e) { return e.first == key; });
    return found == bucket.end() ? nullptr : &*found;
  }

  std::deque<Entry> buckets_[17];
};

std::string Prefix(std::uint32_t owner, MOXId type) {
  return KeyText(owner, type, "");
}

// Both tables side by side, filled by the same random operations.
class RegistryOrder : public testing::TestWithParam<unsigned> {
 protected:
  static constexpr std::uint32_t kRoot = 1;
  static constexpr MOXId kTypes[] = {ORVTypes::oEntity, ORVTypes::oView, ORVTypes::oAttribute,
                                     ORVTypes::oTrigger, ORVTypes::oSequence};

  RegistryOrder() : random_(GetParam()) {
    for (std::uint32_t id = 1; id <= 60; ++id) items_.push_back(NewItem(id));
    items_.push_back(NewItem(4'000'000'000U));  // far from the others
    for (int i = 0; i < 25; ++i) names_of_test_.push_back("N" + std::to_string(i * i));
    names_of_test_.push_back("");
    names_of_test_.push_back(
        "STRA\xC3\x9F"
        "E");
  }
  ~RegistryOrder() override {
    for (auto* const item : items_) item->RemoveReference();
  }

  Item* NewItem(std::uint32_t id) {
    auto* const item = new Item;
    item->SetId(id);
    item->SetType(kTypes[id % std::size(kTypes)]);
    return item;
  }
  std::size_t Pick(std::size_t count) { return random_() % count; }
  std::uint32_t PickOwner() { return Pick(3) == 0 ? kRoot : items_[Pick(items_.size())]->Id(); }
  MOXId PickType() { return kTypes[Pick(std::size(kTypes))]; }
  std::string const& PickName() { return names_of_test_[Pick(names_of_test_.size())]; }

  void Change() {
    auto const owner = PickOwner();
    auto const type = PickType();
    auto const& name = PickName();
    ItemKey const key{owner, type, names_.Add(name)};
    auto const text = KeyText(owner, type, name);
    if (Pick(4) == 0) {
      EXPECT_EQ(registry_.Remove(key), plain_.Remove(text)) << text;
    } else {
      auto* const item = items_[Pick(items_.size())];
      registry_.Put(key, item);
      plain_.Put(text, item);
    }
  }

  void CompareSearches() {
    auto const owner = PickOwner();
    auto const type = PickType();
    auto const& name = PickName();
    auto const number = names_.Find(name);
    auto const has_name = [&](auto const& e) { return e.first.substr(18) == name; };
    auto const has_type_name = [&](auto const& e) {
      return e.first.substr(9) == Prefix(0, type).substr(9) + name;
    };
    auto const is_child = [&](auto const& e) {
      return e.first.substr(0, 18) == Prefix(owner, type);
    };

    std::vector<Item*> children;
    registry_.VisitOwner(owner, type, [&](Item* item) {
      children.push_back(item);
      return true;
    });
    std::vector<Item*> expected;
    for (auto const& entry : plain_.All(is_child)) expected.push_back(entry.second);
    EXPECT_EQ(children, expected);
    EXPECT_EQ(registry_.FirstOfOwner(owner, type), plain_.First(is_child));
    if (number == NameTable::kNoName) return;
    EXPECT_EQ(registry_.Find({owner, type, number}), plain_.Find(KeyText(owner, type, name)));
    EXPECT_EQ(registry_.FirstOfName(number, type), plain_.First(has_type_name));
    EXPECT_EQ(registry_.FirstOfName(number), plain_.First(has_name));
    std::vector<MOXId> const among = {ORVTypes::oEntity, ORVTypes::oSequence};
    EXPECT_EQ(registry_.FirstOfNameAmong(number, among), plain_.First([&](auto const& e) {
      return has_name(e) && std::count(among.begin(), among.end(), e.second->Type()) != 0;
    }));
    CompareKeyOfItem();
    CompareTriggers(number, name);
  }

  void CompareKeyOfItem() {
    auto* const item = items_[Pick(items_.size())];
    auto const keys = plain_.All([&](auto const& e) { return e.second == item; });
    ItemKey key;
    ASSERT_EQ(registry_.FindKey(item, key), !keys.empty());
    if (keys.empty()) return;
    EXPECT_EQ(KeyText(key.owner, key.type, names_[key.name].view()), keys.front().first);
  }

  void CompareTriggers(std::uint32_t number, std::string const& name) {
    Item* expected = nullptr;
    for (auto const& table : plain_.All([](auto const& e) {
           return e.first.substr(0, 18) == Prefix(kRoot, ORVTypes::oEntity);
         })) {
      expected = plain_.Find(KeyText(table.second->Id(), ORVTypes::oTrigger, name));
      if (expected) break;
    }
    EXPECT_EQ(
        registry_.FirstOfNameUnder(number, ORVTypes::oTrigger, kRoot, ORVTypes::oEntity, registry_),
        expected);
  }

  std::mt19937 random_;
  std::vector<Item*> items_;
  std::vector<std::string> names_of_test_;
  NameTable names_;
  ItemRegistry registry_{names_};
  PlainTable plain_;
};

TEST_P(RegistryOrder, AnswersLikeThePlainTable) {
  for (int i = 0; i < 1500 && !HasFailure(); ++i) {
    Change();
    CompareSearches();
  }
  registry_.Clear();
  EXPECT_EQ(registry_.size(), 0U);
  EXPECT_EQ(registry_.FirstOfOwner(kRoot, ORVTypes::oEntity), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RegistryOrder, testing::Values(1U, 2U, 3U));

TEST(KeyText, IsOwnerTypeAndNameInHexadecimal) {
  EXPECT_EQ(KeyText(1, 0x2A, "SCOTT.EMP"), "00000001|0000002A|SCOTT.EMP");
}

TEST(NameTable, KeepsManyNamesApart) {
  NameTable names;
  EXPECT_EQ(names.Find("A"), NameTable::kNoName);
  for (std::uint32_t i = 0; i < 5000; ++i) ASSERT_EQ(names.Add("C" + std::to_string(i)), i);
  for (std::uint32_t i = 0; i < 5000; ++i) ASSERT_EQ(names.Find("C" + std::to_string(i)), i);
  EXPECT_EQ(names.Add("C17"), 17U);
  std::string const huge(200'000, 'X');
  EXPECT_EQ(names[names.Add(huge)].view(), huge);
}

}  // namespace
}  // namespace repora
