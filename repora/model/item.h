#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "repora/model/property_set.h"

class MOXModelSetI;

// One property of an item. The flag is the model library's own; the processor always passes false.
class MOXProperty {
 public:
  MOXProperty() = default;
  MOXProperty(MOXId id, QELValue value, bool flag)
      : id_(id), value_(std::move(value)), flag_(flag) {}
  MOXId Id() const { return id_; }
  QELValue const& Value() const { return value_; }
  bool Flag() const { return flag_; }

 private:
  MOXId id_ = 0;
  QELValue value_;
  bool flag_ = false;
};

// One object created or touched by a run. Reference counted: the creator holds the first reference.
class MOXActionSummaryItem {
 public:
  MOXActionSummaryItem() : MOXActionSummaryItem(false) {}
  // One beside the others of the run (see ChunkMemory).
  static MOXActionSummaryItem* Make();
  MOXActionSummaryItem(MOXActionSummaryItem const&) = delete;
  MOXActionSummaryItem& operator=(MOXActionSummaryItem const&) = delete;

  void AddReference() { references_.Add(); }
  void RemoveReference() {
    if (references_.Drop()) Destroy();
  }

  std::uint32_t Id() const { return id_; }
  void SetId(std::uint32_t id) { id_ = id; }
  MOXId Type() const { return type_; }
  void SetType(MOXId type) { type_ = type; }
  std::uint32_t Owner() const { return owner_; }  // object id of the parent
  void SetOwner(std::uint32_t owner) { owner_ = owner; }
  char const* Name() const { return name_.c_str(); }
  void SetName(std::string_view name) { name_ = repora::SharedText(name); }
  void SetName(repora::SharedText name) { name_ = std::move(name); }

  // Both replace a property that the item has already.
  void AddProperty(MOXProperty const& property) { SetProperty(property); }
  void SetProperty(MOXProperty const& property) { SetProperty(property.Id(), property.Value()); }
  void SetProperty(MOXId id, QELValue value);
  // A property as a pair of what it was before (first) and what it becomes; the summary keeps what
  // it becomes.
  void SetPropertyPair(MOXProperty const& first, MOXProperty const& second);
  // A removed property is also taken from an existing object when the summary is built.
  void RemoveProperty(MOXId id);
  // False when the item has no such property; the value is then empty.
  bool GetPropertyValue(MOXId id, QELValue& value) const;

  repora::PropertySet const& Properties() const { return properties_; }
  // Ids removed and not set again since, sorted.
  std::vector<MOXId> RemovedProperties() const;
  bool HasRemoved(MOXId id) const;

 private:
  explicit MOXActionSummaryItem(bool in_chunk) : references_(in_chunk) {}
  ~MOXActionSummaryItem() = default;
  void Destroy();

  repora::ShareCount references_;
  std::uint32_t id_ = 0;
  MOXId type_ = 0;
  std::uint32_t owner_ = 0;
  repora::SharedText name_;
  repora::PropertySet properties_;
  std::unique_ptr<std::vector<MOXId>> removed_;  // sorted; null: none
};

// The items of a summary by id, in ascending order. The items are borrowed.
class MOXItemMap {
 public:
  using Items = std::vector<MOXActionSummaryItem*>;

  MOXActionSummaryItem* Find(std::uint32_t id) const;  // null when there is none
  Items::const_iterator begin() const { return items_.begin(); }
  Items::const_iterator end() const { return items_.end(); }
  std::size_t size() const { return items_.size(); }

 private:
  friend class MOXActionSummary;
  // Returns the item that had the id before, or null.
  MOXActionSummaryItem* Insert(MOXActionSummaryItem* item);
  Items::const_iterator LowerBound(std::uint32_t id) const;

  Items items_;  // sorted by id
};

// The result of a run: the objects it loaded from the model and the ones it created, owned.
// Reference counted: the creator holds the first reference.
class MOXActionSummary {
 public:
  enum Types_e { eCreated = 0, eExisting = 1 };

  MOXActionSummary() = default;
  MOXActionSummary(MOXActionSummary const&) = delete;
  MOXActionSummary& operator=(MOXActionSummary const&) = delete;

  void AddReference() { ++references_; }
  void RemoveReference() {
    if (--references_ == 0) delete this;
  }

  // Takes a reference to the item. An item of the same id is replaced.
  void AddItem(Types_e kind, MOXActionSummaryItem* item);

  // Every item, created and existing, by id.
  MOXItemMap const& CreatedObjects() const { return items_; }
  // Whether an item of the summary was added as an existing object.
  bool IsExisting(std::uint32_t id) const;

  // Writes the summary as text: a line per item in id order with its type, owner and name, and a
  // line per property below it.
  void Dump(FILE* file, MOXModelSetI* model_set, std::string const& title) const;

 private:
  ~MOXActionSummary();

  std::uint32_t references_ = 1;
  MOXItemMap items_;
  std::vector<std::uint32_t> existing_;  // sorted ids
};
