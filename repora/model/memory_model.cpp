#include "repora/model/memory_model.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "repora/model/datatypes.h"
#include "repora/model/dump_text.h"
#include "repora/model/memory_builder.h"
#include "repora/model/metamodel.h"
#include "repora/model/trigger_template.h"

namespace repora {
namespace {

constexpr std::uint32_t kRootId = 1;

using Object = MemoryObject;

bool ById(Object const& object, std::uint32_t id) {
  return object.id < id;
}

std::string_view NameOf(Object const& object) {
  auto const* name = object.properties.Find(MOXTypes::pName);
  return name ? name->View() : std::string_view();
}

// Object ids by type. Ids nearly always come in ascending order; a list that got one out of order
// is sorted when it is asked for.
class TypeIndex final : public MOXTypeIndexI {
 public:
  void Add(MOXId type, std::uint32_t id) {
    auto& list = type < kTypeEnd ? of_vocabulary_[type] : others_[type];
    if (!list.ids.empty() && list.ids.back() > id) list.sorted = false;
    list.ids.push_back(id);
  }

  std::vector<std::uint32_t> const* ObjectsOfType(MOXId type) const override {
    if (type < kTypeEnd) return Sorted(of_vocabulary_[type]);
    auto const found = others_.find(type);
    return found == others_.end() ? nullptr : Sorted(found->second);
  }

 private:
  struct List {
    std::vector<std::uint32_t> ids;
    bool sorted = true;
  };

  // Null for a list that nothing was ever added to.
  static std::vector<std::uint32_t> const* Sorted(List& list) {
    if (!list.sorted) std::sort(list.ids.begin(), list.ids.end());
    list.sorted = true;
    return list.ids.empty() ? nullptr : &list.ids;
  }

  mutable std::array<List, kTypeEnd> of_vocabulary_;
  mutable std::unordered_map<MOXId, List> others_;  // types of a host's own
};

// The objects by ascending id. Ids that come out of order wait behind the sorted ones, ascending
// among themselves, and are merged in at the next look: filling many gaps costs one merge.
class ObjectStore {
 public:
  // False when the id is taken.
  bool Add(Object object) {
    auto const id = object.id;
    if (sorted_ < objects_.size() && objects_.back().id >= id) Merge();
    if (id <= highest_ && FindSorted(id)) return false;
    bool const in_order = sorted_ == objects_.size() && id > highest_;
    objects_.push_back(std::move(object));
    if (in_order) {
      if (id != highest_ + 1) {
        tail_ = sorted_;
        tail_id_ = id;
      }
      ++sorted_;
    }
    highest_ = std::max(highest_, id);
    return true;
  }

  void Reserve(std::size_t count) {
    auto const size = objects_.size();
    if (size + count > objects_.capacity()) objects_.reserve(size + std::max(count, size / 2));
  }

  bool Has(std::uint32_t id) const {
    Merge();
    return IsInTail(id) || FindSorted(id) != nullptr;
  }
  Object* Find(std::uint32_t id) const {
    Merge();
    return IsInTail(id) ? &objects_[tail_ + (id - tail_id_)] : FindSorted(id);
  }
  // The object with the lowest id from that one on, or null.
  Object* FindFrom(std::uint32_t id) const {
    Merge();
    auto const index = LowerBound(id);
    return index < objects_.size() ? &objects_[index] : nullptr;
  }
  std::vector<Object> const& All() const {
    Merge();
    return objects_;
  }
  std::uint32_t HighestId() const { return highest_; }

 private:
  // Whether the id is one of those that follow each other without gaps up to the highest.
  bool IsInTail(std::uint32_t id) const { return id >= tail_id_ && id <= highest_; }

  // The place of the id among the sorted objects. As no id stands twice, the ids before it and
  // those behind it leave only as many places to search as there are gaps between the ids.
  std::size_t LowerBound(std::uint32_t id) const {
    if (sorted_ == 0 || objects_[sorted_ - 1].id < id) return sorted_;
    std::size_t const from_here_on = std::size_t{objects_[sorted_ - 1].id} - id + 1;
    std::size_t const before = id > 0 ? id - 1 : 0;
    auto const first = static_cast<std::ptrdiff_t>(sorted_ - std::min(sorted_, from_here_on));
    auto const last = static_cast<std::ptrdiff_t>(std::min(sorted_, before));
    auto const begin = objects_.begin();
    return static_cast<std::size_t>(std::lower_bound(begin + first, begin + last, id, ById) -
                                    begin);
  }

  Object* FindSorted(std::uint32_t id) const {
    auto const index = LowerBound(id);
    return index < sorted_ && objects_[index].id == id ? &objects_[index] : nullptr;
  }

  void Merge() const {
    if (sorted_ == objects_.size()) return;
    auto const middle = objects_.begin() + static_cast<std::ptrdiff_t>(sorted_);
    std::inplace_merge(objects_.begin(), middle, objects_.end(),
                       [](Object const& a, Object const& b) { return a.id < b.id; });
    sorted_ = objects_.size();
    tail_ = sorted_ - 1;
    while (tail_ > 0 && objects_[tail_ - 1].id + 1 == objects_[tail_].id) --tail_;
    tail_id_ = objects_[tail_].id;
  }

  mutable std::vector<Object> objects_;
  mutable std::size_t sorted_ = 0;  // how many objects at the front are in order
  mutable std::size_t tail_ = 0;    // from there on the ids have no gaps
  mutable std::uint32_t tail_id_ = 1;
  std::uint32_t highest_ = 0;
};

class Model final : public MOXModelI {
 public:
  void GetRootObject(MOXObject& root) override { FindObject(kRootId, root); }

  void CreateIterator(MOXObjectIterator& iterator) override {
    iterator.Start(std::make_unique<Cursor>(*this));
  }

  bool FindObject(std::uint32_t id, MOXObject& object) override {
    auto const* found = store.Find(id);
    object = found ? Handle(*found) : MOXObject();
    return found != nullptr;
  }

  MOXObject OwnerOf(std::uint32_t id) override {
    MOXObject owner;
    if (auto const* object = store.Find(id)) FindObject(object->owner, owner);
    return owner;
  }

  Success_e PropertyOf(std::uint32_t id, MOXId property, QELValue& value) const override {
    auto const* object = store.Find(id);
    auto const* found = object ? object->properties.Find(property) : nullptr;
    value = found ? *found : QELValue();
    return found ? eSuccess : eFailed;
  }

  bool FindBuiltIn(int index, MOXId type, MOXObject& object) override {
    object = MOXObject();
    auto const* ids = types.ObjectsOfType(type);
    if (!ids) return false;
    auto const number = QELValue::FromInteger(index);
    auto const found = std::find_if(ids->begin(), ids->end(), [&](std::uint32_t id) {
      auto const* built_in_id = store.Find(id)->properties.Find(MOXTypes::pBuiltInId);
      return built_in_id && *built_in_id == number;
    });
    return found != ids->end() && FindObject(*found, object);
  }

  void SetUnderConstruction(bool construction) override { under_construction = construction; }

  bool Add(std::uint32_t id, MOXId type, std::uint32_t owner, PropertySet properties) {
    if (id == 0 || !store.Add({id, type, owner, std::move(properties)})) return false;
    types.Add(type, id);
    ++changes;
    return true;
  }

  // For changing an object; null when there is none.
  Object* Change(std::uint32_t id) {
    auto* const object = store.Find(id);
    if (object) ++changes;
    return object;
  }

  ObjectStore store;
  TypeIndex types;
  std::uint64_t changes = 0;
  bool under_construction = false;

 private:
  // Remembers where it is by id, so that objects may be added on the way.
  class Cursor final : public MOXObjectIterator::Cursor {
   public:
    explicit Cursor(Model& model) : model_(model) {}
    bool Next() override {
      auto const* next = last_ == kEnd ? nullptr : model_.store.FindFrom(last_ + 1);
      current_ = next ? model_.Handle(*next) : MOXObject();
      last_ = next ? next->id : kEnd;
      return next != nullptr;
    }
    MOXObject Current() const override { return current_; }

   private:
    static constexpr auto kEnd = std::numeric_limits<std::uint32_t>::max();
    Model& model_;
    MOXObject current_;
    std::uint32_t last_ = 0;
  };

  MOXObject Handle(Object const& object) { return {this, object.id, object.type}; }
};

PropertySet Named(std::string_view name) {
  PropertySet properties;
  if (!name.empty()) properties.Set(MOXTypes::pName, QELValue(name));
  return properties;
}

void DumpLines(std::string& text, Object const& object) {
  DumpObject(text, object.id, object.type, object.owner, NameOf(object));
  text += '\n';
  DumpProperties(text, object.properties);
}

}  // namespace

struct MemoryModelSet::Parts {
  Model model;
  Metamodel metamodel;
  MemoryAdvisoryChannel channel;
};

MemoryModelSet::MemoryModelSet(MemoryModelOptions const& options)
    : parts_(std::make_unique<Parts>()) {
  auto root = Named(options.root_name);
  root.Set(ORVTypes::pTargetServer, QELValue::FromInteger(options.target_server));
  root.Set(ORVTypes::pDBMSVersion, QELValue::FromInteger(options.dbms_version));
  root.Set(ORVTypes::pDBMSMinorVersion, QELValue::FromInteger(options.dbms_minor_version));
  root.Set(ORVTypes::pType, QELValue::FromInteger(options.model_type));
  InsertObject(kRootId, ORVTypes::oModel, 0, std::move(root));

  for (auto const& datatype : BuiltInDatatypes()) {
    auto const domain = AddObject(ORVTypes::oDomain, kRootId, datatype.name);
    SetProperty(domain, MOXTypes::pBuiltInId, QELValue::FromInteger(datatype.id));
  }

  auto const trigger = AddObject(ORVTypes::oTriggerTemplate, kRootId, "Table Trigger");
  SetProperty(trigger, MOXTypes::pBuiltInId,
              QELValue::FromInteger(ORVBuiltInObjectIndex::kTriggerTemplate));
  SetProperty(trigger, ORVTypes::pTemplateCode, QELValue(kTableTriggerTemplate));
}

MemoryModelSet::~MemoryModelSet() = default;

MOXModelI* MemoryModelSet::GetModel() {
  return &parts_->model;
}

MOXModelI* MemoryModelSet::GetMetamodel() {
  return &parts_->metamodel;
}

MOXAdvisoryChannelI* MemoryModelSet::GetAdvisoryChannel() {
  return &parts_->channel;
}

MOXTypeIndexI* MemoryModelSet::GetTypeIndex() {
  return &parts_->model.types;
}

std::unique_ptr<MOXBuilderI> MemoryModelSet::NewBuilder() {
  return std::make_unique<MemoryBuilder>(*this);
}

std::unique_ptr<MOXBuilderValidatorI> MemoryModelSet::NewBuilderValidator() {
  return std::make_unique<MemoryValidator>(*this);
}

std::uint32_t MemoryModelSet::AddObject(MOXId type, std::uint32_t owner, char const* name) {
  auto const id = HighestId() + 1;  // 0 after the last one
  return InsertObject(id, type, owner, Named(name ? name : "")) ? id : 0;
}

bool MemoryModelSet::InsertObject(std::uint32_t id, MOXId type, std::uint32_t owner,
                                  PropertySet properties) {
  return parts_->model.Add(id, type, owner, std::move(properties));
}

void MemoryModelSet::Reserve(std::size_t count) {
  parts_->model.store.Reserve(count);
}

bool MemoryModelSet::SetOwner(std::uint32_t id, std::uint32_t owner) {
  auto* const object = parts_->model.Change(id);
  if (object) object->owner = owner;
  return object != nullptr;
}

bool MemoryModelSet::SetProperty(std::uint32_t id, MOXId property, QELValue value) {
  auto* const object = parts_->model.Change(id);
  if (object) object->properties.Set(property, std::move(value));
  return object != nullptr;
}

bool MemoryModelSet::RemoveProperty(std::uint32_t id, MOXId property) {
  auto* const object = parts_->model.Change(id);
  if (object) object->properties.Remove(property);
  return object != nullptr;
}

bool MemoryModelSet::Has(std::uint32_t id) const {
  return parts_->model.store.Has(id);
}

std::uint32_t MemoryModelSet::OwnerOf(std::uint32_t id) const {
  auto const* object = parts_->model.store.Find(id);
  return object ? object->owner : 0;
}

std::size_t MemoryModelSet::ObjectCount() const {
  return parts_->model.store.All().size();
}

std::uint32_t MemoryModelSet::HighestId() const {
  return parts_->model.store.HighestId();
}

std::uint64_t MemoryModelSet::ChangeCount() const {
  return parts_->model.changes;
}

bool MemoryModelSet::IsUnderConstruction() const {
  return parts_->model.under_construction;
}

PropertySet const* MemoryModelSet::PropertiesOf(std::uint32_t id) const {
  auto const* object = parts_->model.store.Find(id);
  return object ? &object->properties : nullptr;
}

MemoryObject const* MemoryModelSet::Find(std::uint32_t id) const {
  return parts_->model.store.Find(id);
}

std::vector<MemoryObject> const& MemoryModelSet::Objects() const {
  return parts_->model.store.All();
}

void MemoryModelSet::Dump(std::FILE* file) const {
  if (!file) return;
  std::string text;
  for (auto const& object : parts_->model.store.All()) {
    text.clear();
    DumpLines(text, object);
    std::fwrite(text.data(), 1, text.size(), file);
  }
}

std::string MemoryModelSet::DumpText() const {
  std::string text;
  for (auto const& object : parts_->model.store.All()) DumpLines(text, object);
  return text;
}

}  // namespace repora
