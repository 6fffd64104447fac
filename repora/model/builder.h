#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "repora/model/ids.h"

class MOXActionSummary;
class MOXModelSetI;
class MOXObject;

// Tells a builder which ids of a summary are ids of existing objects.
class MOXBuilderIdMap {
 public:
  explicit MOXBuilderIdMap(MOXModelSetI* model_set) : model_set_(model_set) {}
  void AddMapping(std::uint32_t from, std::uint32_t to) {
    mappings_[from] = to;
    highest_ = std::max(highest_, from);
    is_identity_ = is_identity_ && from == to;
  }
  // The object's id, or 0 when the summary id is not mapped.
  std::uint32_t Find(std::uint32_t from) const {
    if (from > highest_) return 0;  // as are all that a run made, the objects loaded come first
    auto const found = mappings_.find(from);
    return found == mappings_.end() ? 0 : found->second;
  }
  // Whether every mapping added leads to the same id.
  bool IsIdentity() const { return is_identity_; }
  MOXModelSetI* ModelSet() const { return model_set_; }

 private:
  MOXModelSetI* model_set_;  // borrowed
  std::unordered_map<std::uint32_t, std::uint32_t> mappings_;
  std::uint32_t highest_ = 0;
  bool is_identity_ = true;
};

// Checks what a build made and publishes what it finds on the advisory channel.
class MOXBuilderValidatorI {
 public:
  virtual ~MOXBuilderValidatorI() = default;
  // Called by the builder for every object it created or changed, after all of them stand.
  virtual void Validate(MOXObject const& object) = 0;
};

// Progress of a build.
class MOXBuilderCallbackI {
 public:
  enum Events_e { eProgress = 0, eFinished = 1 };

  // eProgress: first is the number of items built so far, second the number of all. False asks the
  // builder to stop telling.
  virtual bool Advise(Events_e event, unsigned long first, unsigned long second) = 0;

 protected:
  ~MOXBuilderCallbackI() = default;
};

class MOXBuilderI {
 public:
  virtual ~MOXBuilderI() = default;
  // Applies the summary to the model under that name. The flags are the model library's own; 0.
  virtual bool Build(MOXActionSummary* summary, unsigned flags, std::string const& name) = 0;
  // All three are borrowed and may be null.
  virtual void SetIdMap(MOXBuilderIdMap* id_map) = 0;
  virtual void SetValidator(MOXBuilderValidatorI* validator) = 0;
  virtual void SetCallback(MOXBuilderCallbackI* callback) = 0;
};

namespace MOX {

struct BuilderOptions {
  std::uint32_t words[5] = {0, 0, 0, 0, 0};
};

class BuilderFactoryI {
 public:
  // A new builder for the model set, or null when the set cannot be built.
  std::unique_ptr<MOXBuilderI> CreateBuilder(MOXModelSetI* model_set, BuilderOptions const& options,
                                             unsigned flags) const;
};

BuilderFactoryI& BuilderFactory();

}  // namespace MOX

class IVOUtilityPack {
 public:
  // A new validator for the model set, or null.
  static std::unique_ptr<MOXBuilderValidatorI> CreateBuilderValidator(MOXModelSetI* model_set);
};

// Brackets a build: between the two calls the model of the root counts as under construction.
class UZTUnificationPack {
 public:
  static void SetModelUnderConstruction(MOXObject& root, bool flag);
  static void ClearModelUnderConstruction(MOXObject& root);
};
