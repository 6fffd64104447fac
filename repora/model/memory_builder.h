#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "repora/model/builder.h"
#include "repora/model/model.h"

namespace repora {

class MemoryModelSet;
struct MemoryObject;

// Keeps every advisory as long as it lives; none is ever dropped. A subscriber may subscribe,
// unsubscribe and publish while it is being told.
class MemoryAdvisoryChannel final : public MOXAdvisoryChannelI {
 public:
  void Subscribe(MOXSubscriberI* subscriber) override;
  void Unsubscribe(MOXSubscriberI* subscriber) override;
  void Publish(MOXAdvisory const& advisory, long& told, long& held, long& dropped) override;
  void GetAdvisories(std::vector<MOXAdvisory>& advisories) const override;

 private:
  std::vector<MOXAdvisory> advisories_;
  std::vector<MOXSubscriberI*> subscribers_;  // null: left while others were being told
  int telling_ = 0;                           // how deep Publish is nested
};

// Applies a summary to a model in memory. An item that was loaded from the model changes its
// object, found through the id map or, without a mapping, under its own id; what the summary does
// not mention stays. A created item becomes a new object under its id, or under a fresh one when
// the model has an object of that id already; references to it are then translated. A loaded item
// whose object is gone is made anew.
class MemoryBuilder final : public MOXBuilderI {
 public:
  explicit MemoryBuilder(MemoryModelSet& model_set) : model_set_(model_set) {}
  // False when the summary is null or the model has no ids left; the model is then untouched.
  // Progress comes at the start, about every hundredth of the items and at the end.
  bool Build(MOXActionSummary* summary, unsigned flags, std::string const& name) override;
  void SetIdMap(MOXBuilderIdMap* id_map) override { id_map_ = id_map; }
  void SetValidator(MOXBuilderValidatorI* validator) override { validator_ = validator; }
  void SetCallback(MOXBuilderCallbackI* callback) override { callback_ = callback; }

 private:
  MemoryModelSet& model_set_;
  MOXBuilderIdMap* id_map_ = nullptr;
  MOXBuilderValidatorI* validator_ = nullptr;
  MOXBuilderCallbackI* callback_ = nullptr;
};

// Publishes a warning for everything that is wrong with the objects it is shown:
//   BUILD-1  a property refers to an object that does not exist
//   BUILD-2  the owner does not exist
//   BUILD-3  objects of one type under one owner have the same name (in the same schema)
// A reference to 0 is no reference.
class MemoryValidator final : public MOXBuilderValidatorI {
 public:
  explicit MemoryValidator(MemoryModelSet& model_set);
  ~MemoryValidator() override;
  void Validate(MOXObject const& object) override;

 private:
  class NameIndex;

  void CheckReferences(MemoryObject const& object);
  void CheckOwner(MemoryObject const& object);
  void CheckName(MemoryObject const& object);
  void Warn(char const* code, std::string message);

  MemoryModelSet& model_set_;
  std::unique_ptr<NameIndex> names_;
};

}  // namespace repora
