#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "repora/model/codes.h"
#include "repora/model/model.h"
#include "repora/model/property_set.h"

namespace repora {

// What the root of a new model says about its target.
struct MemoryModelOptions {
  std::string root_name = "Oracle Model";
  int target_server = 1;  // the host's own numbering; nothing here reads it
  int dbms_version = 23;  // release of the database, 0: not known
  int dbms_minor_version = 0;
  std::int32_t model_type = codes::kModelLogicalAndPhysical;  // codes::kModel...
};

// An object as the model in memory holds it.
struct MemoryObject {
  std::uint32_t id;
  MOXId type;
  std::uint32_t owner;  // as it was given, whether or not such an object exists; 0 for the root
  PropertySet properties;
};

// A model in memory with all that belongs to it: metamodel, advisory channel, type index, builders
// and validators. It owns what it returns pointers to; builders and validators must not outlive it.
// A new one holds its root (id 1), a domain per built-in datatype and the trigger template.
//
// Made for millions of objects: what it costs to reach one grows with the gaps between the ids (and
// only by their logarithm), not with the number of objects.
class MemoryModelSet final : public MOXModelSetI {
 public:
  explicit MemoryModelSet(MemoryModelOptions const& options = {});
  ~MemoryModelSet() override;

  MOXModelI* GetModel() override;
  MOXModelI* GetMetamodel() override;
  MOXAdvisoryChannelI* GetAdvisoryChannel() override;
  MOXTypeIndexI* GetTypeIndex() override;
  std::unique_ptr<MOXBuilderI> NewBuilder() override;
  std::unique_ptr<MOXBuilderValidatorI> NewBuilderValidator() override;

  // A new object with the next free id; its name becomes MOXTypes::pName unless it is null or
  // empty. The owner need not exist yet. Returns the id, or 0 when the ids are used up.
  std::uint32_t AddObject(MOXId type, std::uint32_t owner, char const* name);
  // A new object with an id of the caller's choice; false when it is 0 or taken.
  bool InsertObject(std::uint32_t id, MOXId type, std::uint32_t owner, PropertySet properties);

  // Prepares for so many objects more.
  void Reserve(std::size_t count);

  // All three: false when no object has the id.
  bool SetOwner(std::uint32_t id, std::uint32_t owner);
  bool SetProperty(std::uint32_t id, MOXId property, QELValue value);
  bool RemoveProperty(std::uint32_t id, MOXId property);

  bool Has(std::uint32_t id) const;
  // As it was given, whether or not such an object exists; 0 for the root and unknown ids.
  std::uint32_t OwnerOf(std::uint32_t id) const;
  std::size_t ObjectCount() const;    // the root counts
  std::uint32_t HighestId() const;    // 1 in an empty model: its root
  std::uint64_t ChangeCount() const;  // grows with every change of the model
  bool IsUnderConstruction() const;   // between the two calls that bracket a build
  // Borrowed until the model changes; null when no object has the id.
  PropertySet const* PropertiesOf(std::uint32_t id) const;
  MemoryObject const* Find(std::uint32_t id) const;
  // All objects by ascending id, borrowed until the model changes.
  std::vector<MemoryObject> const& Objects() const;

  // Every object with its properties in ascending id order; equal models give equal texts.
  // A null file is ignored.
  void Dump(std::FILE* file) const;
  std::string DumpText() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace repora
