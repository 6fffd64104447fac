#include "repora/model/memory_builder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "repora/model/dump_text.h"
#include "repora/model/hash_text.h"
#include "repora/model/item.h"
#include "repora/model/memory_model.h"
#include "repora/model/metamodel.h"

namespace repora {

// --- The advisory channel ---

void MemoryAdvisoryChannel::Subscribe(MOXSubscriberI* subscriber) {
  if (subscriber &&
      std::find(subscribers_.begin(), subscribers_.end(), subscriber) == subscribers_.end())
    subscribers_.push_back(subscriber);
}

void MemoryAdvisoryChannel::Unsubscribe(MOXSubscriberI* subscriber) {
  if (!subscriber) return;
  std::replace(subscribers_.begin(), subscribers_.end(), subscriber,
               static_cast<MOXSubscriberI*>(nullptr));
  if (telling_ == 0) std::erase(subscribers_, nullptr);
}

void MemoryAdvisoryChannel::Publish(MOXAdvisory const& advisory, long& told, long& held,
                                    long& dropped) {
  class Event final : public MOXPublishedEventI {
   public:
    explicit Event(MOXAdvisory advisory) : advisory_(std::move(advisory)) {}
    MOXAdvisory const& Advisory() const override { return advisory_; }

   private:
    MOXAdvisory advisory_;  // a copy: the list may grow while subscribers are being told
  };

  advisories_.push_back(advisory);
  told = 0;
  if (!subscribers_.empty()) {
    Event const event(advisories_.back());
    ++telling_;
    auto const count = subscribers_.size();  // who comes while others are told waits for the next
    for (std::size_t i = 0; i < count; ++i) {
      if (!subscribers_[i]) continue;
      subscribers_[i]->Notify(event);
      ++told;
    }
    if (--telling_ == 0) std::erase(subscribers_, nullptr);
  }
  held = static_cast<long>(advisories_.size());
  dropped = 0;
}

void MemoryAdvisoryChannel::GetAdvisories(std::vector<MOXAdvisory>& advisories) const {
  advisories = advisories_;
}

// --- The builder ---

namespace {

// Tells the callback how far a build is until it does not want to hear more.
class Progress {
 public:
  Progress(MOXBuilderCallbackI* callback, std::size_t total)
      : callback_(callback), total_(total), step_(std::max<std::size_t>(1, total / 100)) {
    Tell(MOXBuilderCallbackI::eProgress);
  }
  void CountItem() {
    if (++done_ == next_ || done_ == total_) {
      if (done_ == next_) next_ += step_;
      Tell(MOXBuilderCallbackI::eProgress);
    }
  }
  void Finish() { Tell(MOXBuilderCallbackI::eFinished); }

 private:
  void Tell(MOXBuilderCallbackI::Events_e event) {
    auto const count = [](std::size_t n) { return static_cast<unsigned long>(n); };
    if (callback_ && !callback_->Advise(event, count(done_), count(total_))) callback_ = nullptr;
  }

  MOXBuilderCallbackI* callback_;
  std::size_t total_;
  std::size_t step_;
  std::size_t next_ = step_;
  std::size_t done_ = 0;
};

// Where each item of a summary goes: to an object of the model, or to a new one.
class BuildPlan {
 public:
  struct Target {
    std::uint32_t id;
    std::uint32_t item;  // its place among the items
  };

  BuildPlan(MemoryModelSet const& model_set, MOXActionSummary const& summary,
            MOXBuilderIdMap const* id_map)
      : summary_(summary), id_map_(id_map) {
    auto const& items = summary.CreatedObjects();
    auto const last_item = items.size() == 0 ? 0 : (*(items.end() - 1))->Id();
    std::uint64_t next_free = std::uint64_t{std::max(model_set.HighestId(), last_item)} + 1;
    created.reserve(items.size());
    for (std::uint32_t place = 0; place < items.size(); ++place) {
      auto const id = Item({0, place}).Id();
      auto target = Mapped(id);
      if (summary.IsExisting(id) && model_set.Has(target)) {
        changed.push_back({target, place});
      } else {
        bool const free = id != 0 && !model_set.Has(id);
        target = free ? id : static_cast<std::uint32_t>(next_free++);
        created.push_back({target, place});
      }
      if (target != id) moved_[id] = target;
    }
    keeps_all_ids_ = moved_.empty() && (!id_map_ || id_map_->IsIdentity());
    fits = next_free - 1 <= std::numeric_limits<std::uint32_t>::max();
    // Fresh ids come in between; in ascending order the model takes them all at once.
    auto const by_id = [](Target const& a, Target const& b) { return a.id < b.id; };
    if (!std::is_sorted(created.begin(), created.end(), by_id))
      std::sort(created.begin(), created.end(), by_id);
  }

  MOXActionSummaryItem const& Item(Target const& target) const {
    return **(summary_.CreatedObjects().begin() + target.item);
  }

  // Whether every id of the summary is the id in the model, so that nothing is to be translated.
  bool KeepsAllIds() const { return keeps_all_ids_; }

  // The id in the model of what the summary calls by that id; 0 stays no object.
  std::uint32_t Translated(std::uint32_t id) const {
    if (id == 0) return 0;
    if (!moved_.empty())
      if (auto const found = moved_.find(id); found != moved_.end()) return found->second;
    auto const mapped = Mapped(id);
    return mapped == id || summary_.CreatedObjects().Find(id) ? id : mapped;
  }

  QELValue Translated(QELValue const& value) const {
    switch (value.Kind()) {
      case QELValue::eShortId: return QELValue(QELShortId(Translated(value.ShortId())));
      case QELValue::eShortIdVector:
        return Rebuilt(value, value.ShortIds(),
                       [this](std::uint32_t element) { return QELShortId(Translated(element)); });
      case QELValue::eInt64Vector:
        return Rebuilt(value, value.Int64s(), [this](std::int64_t element) {
          auto const bits = static_cast<std::uint64_t>(element);
          auto const high = Translated(static_cast<std::uint32_t>(bits >> 32));
          auto const low = Translated(static_cast<std::uint32_t>(bits));
          return static_cast<std::int64_t>(std::uint64_t{high} << 32 | low);
        });
      default: return value;
    }
  }

  std::vector<Target> created;  // by ascending id
  std::vector<Target> changed;
  bool fits = true;  // false: there are not enough ids for all new objects

 private:
  std::uint32_t Mapped(std::uint32_t id) const {
    auto const mapped = id_map_ ? id_map_->Find(id) : 0;
    return mapped == 0 ? id : mapped;
  }

  // The vector with every element translated; the value itself when that changes nothing, so that
  // it stays shared.
  template <class Element, class Translate>
  static QELValue Rebuilt(QELValue const& value, std::span<Element const> elements,
                          Translate translate) {
    QELValue translated;
    for (auto const element : elements) translated += translate(element);
    return translated == value ? value : translated;
  }

  MOXActionSummary const& summary_;
  MOXBuilderIdMap const* id_map_;
  std::unordered_map<std::uint32_t, std::uint32_t> moved_;  // summary ids that are others here
  bool keeps_all_ids_ = false;
};

PropertySet NewProperties(MOXActionSummaryItem const& item, BuildPlan const& plan) {
  auto properties = item.Properties();
  if (!plan.KeepsAllIds())
    for (auto const& property : item.Properties())
      properties.Set(property.id, plan.Translated(property.value));
  if (*item.Name() && !properties.Find(MOXTypes::pName) && !item.HasRemoved(MOXTypes::pName))
    properties.Set(MOXTypes::pName, QELValue(item.Name()));
  return properties;
}

// False when the object is as the item says already.
bool ChangeObject(MemoryModelSet& model_set, BuildPlan::Target const& target,
                  BuildPlan const& plan) {
  auto const before = model_set.ChangeCount();
  auto const& item = plan.Item(target);
  auto const owner = plan.Translated(item.Owner());
  if (model_set.OwnerOf(target.id) != owner) model_set.SetOwner(target.id, owner);
  for (auto const& property : item.Properties()) {
    auto value = plan.Translated(property.value);
    auto const* old = model_set.PropertiesOf(target.id)->Find(property.id);
    if (!old || !(*old == value)) model_set.SetProperty(target.id, property.id, std::move(value));
  }
  for (auto const property : item.RemovedProperties())
    if (model_set.PropertiesOf(target.id)->Find(property))
      model_set.RemoveProperty(target.id, property);
  return model_set.ChangeCount() != before;
}

}  // namespace

bool MemoryBuilder::Build(MOXActionSummary* summary, unsigned /*flags*/,
                          std::string const& /*name*/) {
  if (!summary) return false;
  BuildPlan const plan(model_set_, *summary, id_map_);
  if (!plan.fits) return false;

  Progress progress(callback_, plan.created.size() + plan.changed.size());
  model_set_.Reserve(plan.created.size());
  for (auto const& target : plan.created) {
    auto const& item = plan.Item(target);
    model_set_.InsertObject(target.id, item.Type(), plan.Translated(item.Owner()),
                            NewProperties(item, plan));
    progress.CountItem();
  }
  std::vector<std::uint32_t> really_changed;
  for (auto const& target : plan.changed) {
    if (ChangeObject(model_set_, target, plan)) really_changed.push_back(target.id);
    progress.CountItem();
  }

  if (validator_) {
    auto* const model = model_set_.GetModel();
    for (auto const& target : plan.created)
      validator_->Validate(MOXObject(model, target.id, plan.Item(target).Type()));
    MOXObject object;
    for (auto const id : really_changed)
      if (model->FindObject(id, object)) validator_->Validate(object);
  }
  progress.Finish();
  return true;
}

// --- The validator ---

namespace {

std::string_view TextOf(PropertySet const& properties, MOXId property) {
  auto const* value = properties.Find(property);
  return value ? value->View() : std::string_view();
}

// How a message calls an object: Table "EMP" (#5).
std::string Called(MemoryModelSet& model_set, MemoryObject const& object) {
  auto text = model_set.GetMetamodel()->NameOfType(object.type, ORVTypes::tPhysicalName);
  if (text.empty()) text = "Object";
  if (auto const name = TextOf(object.properties, MOXTypes::pName); !name.empty()) {
    text += ' ';
    DumpQuoted(text, name);
  }
  return text + " (#" + std::to_string(object.id) + ")";
}

template <class Visit>
void VisitReferences(QELValue const& value, Visit visit) {
  switch (value.Kind()) {
    case QELValue::eShortId: visit(value.ShortId()); return;
    case QELValue::eShortIdVector:
      for (auto const id : value.ShortIds()) visit(id);
      return;
    case QELValue::eInt64Vector:
      for (auto const pair : value.Int64s()) {
        visit(static_cast<std::uint32_t>(static_cast<std::uint64_t>(pair) >> 32));
        visit(static_cast<std::uint32_t>(static_cast<std::uint64_t>(pair)));
      }
      return;
    default: return;
  }
}

}  // namespace

// Which objects of the model share a name, found out once for each state of the model. The table
// holds ids only, so that it stays small beside a model of millions of objects.
class MemoryValidator::NameIndex {
 public:
  struct Namesakes {
    std::uint32_t first;
    std::uint32_t second;
    std::uint32_t count;
    bool told;
  };

  explicit NameIndex(MemoryModelSet& model_set) : model_set_(model_set) {}

  // Null for an object without namesakes.
  Namesakes* Find(std::uint32_t id) {
    if (!made_ || changes_ != model_set_.ChangeCount()) Make();
    if (group_of_.empty()) return nullptr;
    auto const found = group_of_.find(id);
    return found == group_of_.end() ? nullptr : &groups_[found->second];
  }

 private:
  struct Key {
    std::uint32_t owner;
    MOXId type;
    bool of_constraint;  // constraints and indexes have names of their own
    std::string_view schema;
    std::string_view name;
    bool operator==(Key const&) const = default;
  };
  struct Slot {
    std::uint32_t id = 0;
    std::uint32_t tag = 0;  // part of the hash, so that few names need to be compared
  };
  // An object that waits for its place in the table to come into the cache.
  struct Waiting {
    MemoryObject const* object;
    std::uint64_t hash;
  };

  static std::uint64_t Hash(Key const& key) {
    auto hash = HashText(key.name) ^ (std::uint64_t{key.owner} << 32 | key.type);
    if (!key.schema.empty()) hash ^= HashText(key.schema) << 1U;
    hash *= 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32U);
  }

  static Key KeyOf(MemoryObject const& object) {
    Key key{object.owner, object.type, false, {}, {}};
    for (auto const& property : object.properties) {
      if (property.id == MOXTypes::pName) key.name = property.value.View();
      if (property.id == ORVTypes::pDBOwner) key.schema = property.value.View();
      if (property.id == ORVTypes::pGenerateAsConstraint)
        key.of_constraint = property.value.Boolean();
    }
    return key;
  }

  // Without a name, or a file that is named by its disk group only.
  static bool MayRepeat(Key const& key) {
    return key.name.empty() ||
           (key.type == ORVTypes::oOraclePhysicalFile && key.name.front() == '+');
  }

  // The table has a place for two in three; the low bits of a hash choose it.
  void Make() {
    groups_.clear();
    group_of_.clear();
    auto const& objects = model_set_.Objects();
    std::vector<Slot> slots(std::bit_ceil(objects.size() + objects.size() / 2));
    std::array<Waiting, 16> waiting{};
    std::size_t count = 0;
    auto const enter_all = [&] {
      for (std::size_t i = 0; i < count; ++i) Enter(slots, waiting[i]);
      count = 0;
    };
    for (auto const& object : objects) {
      auto const key = KeyOf(object);
      if (MayRepeat(key)) continue;
      auto const hash = Hash(key);
      __builtin_prefetch(&slots[hash & (slots.size() - 1)], 1);
      waiting[count++] = {&object, hash};
      if (count == waiting.size()) enter_all();
    }
    enter_all();
    made_ = true;
    changes_ = model_set_.ChangeCount();
  }

  void Enter(std::vector<Slot>& slots, Waiting const& next) {
    auto const tag = static_cast<std::uint32_t>(next.hash >> 32);
    for (auto place = static_cast<std::size_t>(next.hash);; ++place) {
      auto& slot = slots[place & (slots.size() - 1)];
      if (slot.id == 0) {
        slot = {next.object->id, tag};
        return;
      }
      if (slot.tag == tag && KeyOf(*model_set_.Find(slot.id)) == KeyOf(*next.object)) {
        Join(slot.id, next.object->id);
        return;
      }
    }
  }

  void Join(std::uint32_t first, std::uint32_t id) {
    auto const [entry, is_new] = group_of_.try_emplace(first, groups_.size());
    auto const group = entry->second;
    if (is_new) groups_.push_back({first, id, 1, false});
    ++groups_[group].count;
    group_of_[id] = group;
  }

  MemoryModelSet& model_set_;
  std::vector<Namesakes> groups_;
  std::unordered_map<std::uint32_t, std::size_t> group_of_;
  std::uint64_t changes_ = 0;
  bool made_ = false;
};

MemoryValidator::MemoryValidator(MemoryModelSet& model_set)
    : model_set_(model_set), names_(std::make_unique<NameIndex>(model_set)) {}

MemoryValidator::~MemoryValidator() = default;

void MemoryValidator::Validate(MOXObject const& object) {
  auto const* const found =
      object.Model() == model_set_.GetModel() ? model_set_.Find(object.Id()) : nullptr;
  if (!found) return;
  CheckReferences(*found);
  CheckOwner(*found);
  CheckName(*found);
}

void MemoryValidator::CheckReferences(MemoryObject const& object) {
  for (auto const& property : object.properties)
    VisitReferences(property.value, [&](std::uint32_t id) {
      if (id == 0 || model_set_.Has(id)) return;
      auto const* name = PropertyDisplayName(property.id);
      Warn("BUILD-1", Called(model_set_, object) + ": " + (name ? name : "a property") +
                          " refers to #" + std::to_string(id) + ", which does not exist.");
    });
}

void MemoryValidator::CheckOwner(MemoryObject const& object) {
  if (model_set_.Has(object.owner)) return;
  MOXObject root;
  model_set_.GetModel()->GetRootObject(root);
  if (object.id == root.Id()) return;
  Warn("BUILD-2", Called(model_set_, object) + " belongs to #" + std::to_string(object.owner) +
                      ", which does not exist.");
}

void MemoryValidator::CheckName(MemoryObject const& object) {
  auto* const namesakes = names_->Find(object.id);
  if (!namesakes || namesakes->count < 2 || namesakes->told) return;
  namesakes->told = true;
  auto const other = namesakes->first == object.id ? namesakes->second : namesakes->first;
  Warn("BUILD-3", Called(model_set_, object) + " is one of " + std::to_string(namesakes->count) +
                      " objects of that name, beside #" + std::to_string(other) + ".");
}

void MemoryValidator::Warn(char const* code, std::string message) {
  long told = 0;
  long held = 0;
  long dropped = 0;
  model_set_.GetAdvisoryChannel()->Publish(
      MOXAdvisory(code, MOXAdvisory::eWarning, std::move(message)), told, held, dropped);
}

}  // namespace repora
