#include "repora/model/metamodel.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace repora {
namespace {

constexpr TypeInfo kTypes[] = {
#define REPORA_TYPE(id, logical, physical) {kType_##id, #id, logical, physical},
#include "repora/model/vocabulary.def"
};

struct PropertyRow {
  PropertyInfo info;
  std::array<bool, kTypeEnd> carried_by;
};

constexpr PropertyRow Row(MOXId id, char const* name, char const* display, auto... types) {
  PropertyRow row{{id, name, display}, {}};
  for (auto const type : {MOXId{kTypeEnd}, MOXId{types}...}) {
    if (type == kNoType) row.carried_by.fill(true);
    if (type < kTypeEnd) row.carried_by[type] = true;
  }
  return row;
}

// Derived, so that the vocabulary can name the types without their class.
struct Vocabulary : ORVTypes {
  static constexpr MOXId REPORA_ALL_TYPES = kNoType;
  static constexpr PropertyRow kRows[] = {
#define REPORA_MOX_PROPERTY(id, ...) Row(kProperty_##id, #id, __VA_ARGS__),
#define REPORA_PROPERTY(id, ...) Row(kProperty_##id, #id, __VA_ARGS__),
#include "repora/model/vocabulary.def"
  };
};

constexpr auto kProperties = [] {
  std::array<PropertyInfo, std::size(Vocabulary::kRows)> properties{};
  for (std::size_t i = 0; i < properties.size(); ++i) properties[i] = Vocabulary::kRows[i].info;
  return properties;
}();

// The same for all: nothing is known about an association but that it exists.
class Association final : public MOXAssociation {
 public:
  int GetBoolean(MOXId const& /*property*/) const override { return kNotSet; }
};

TypeInfo const* FindType(MOXId id) {
  return id > kNoType && id < kTypeEnd ? &kTypes[id - 1] : nullptr;
}

PropertyInfo const* FindProperty(MOXId id) {
  return id > kFirstProperty && id < kPropertyEnd ? &kProperties[id - kFirstProperty - 1] : nullptr;
}

}  // namespace

std::span<TypeInfo const> AllTypes() {
  return kTypes;
}

std::span<PropertyInfo const> AllProperties() {
  return kProperties;
}

char const* VocabularyName(MOXId id) {
  if (auto const* type = FindType(id)) return type->name;
  auto const* property = FindProperty(id);
  return property ? property->name : nullptr;
}

char const* PropertyDisplayName(MOXId id) {
  auto const* property = FindProperty(id);
  return property ? property->display : nullptr;
}

void Metamodel::GetRootObject(MOXObject& root) {
  root = MOXObject();
}

void Metamodel::CreateIterator(MOXObjectIterator& iterator) {
  iterator.Start(nullptr);
}

bool Metamodel::FindObject(std::uint32_t /*id*/, MOXObject& object) {
  object = MOXObject();
  return false;
}

MOXObject Metamodel::OwnerOf(std::uint32_t /*id*/) {
  return {};
}

Success_e Metamodel::PropertyOf(std::uint32_t /*id*/, MOXId /*property*/, QELValue& value) const {
  value.Clean();
  return eFailed;
}

MOXAssociation const* Metamodel::AssociationOf(MOXId object_type, MOXId property) const {
  static Association const association;
  if (!FindType(object_type) || !FindProperty(property)) return nullptr;
  auto const& row = Vocabulary::kRows[property - kFirstProperty - 1];
  return row.carried_by[object_type] ? &association : nullptr;
}

std::string Metamodel::NameOfType(MOXId object_type, MOXId terminology) const {
  auto const* type = FindType(object_type);
  if (!type || terminology > ORVTypes::tPhysicalName) return {};
  return terminology == ORVTypes::tPhysicalName ? type->physical : type->logical;
}

}  // namespace repora
