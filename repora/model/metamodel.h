#pragma once

#include <span>
#include <string>

#include "repora/model/model.h"

// The vocabulary of the model as data: names of object types and properties, and which types carry
// which properties.
namespace repora {

// Texts are never null and live as long as the program.
struct TypeInfo {
  MOXId id;
  char const* name;      // "oEntity"
  char const* logical;   // "Entity"
  char const* physical;  // "Table"
};
struct PropertyInfo {
  MOXId id;
  char const* name;     // "pOracleCache"
  char const* display;  // "Cache"
};

// Both in ascending id order.
std::span<TypeInfo const> AllTypes();
std::span<PropertyInfo const> AllProperties();

// The name of an object type or a property, without its class; null for an unknown id.
char const* VocabularyName(MOXId id);
// Null for an unknown id.
char const* PropertyDisplayName(MOXId id);

// The metamodel: answers which properties an object type carries and what it is called. It has no
// objects of its own, so a look for any finds none.
class Metamodel final : public MOXModelI {
 public:
  void GetRootObject(MOXObject& root) override;  // an empty handle
  void CreateIterator(MOXObjectIterator& iterator) override;
  bool FindObject(std::uint32_t id, MOXObject& object) override;
  MOXObject OwnerOf(std::uint32_t id) override;
  Success_e PropertyOf(std::uint32_t id, MOXId property, QELValue& value) const override;

  // Owned by the metamodel library, valid for ever. No association is deprecated.
  MOXAssociation const* AssociationOf(MOXId object_type, MOXId property) const override;
  // Terminology ORVTypes::tPhysicalName or 0 (logical); empty for other ones and unknown types.
  std::string NameOfType(MOXId object_type, MOXId terminology) const override;
};

}  // namespace repora
