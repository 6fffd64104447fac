#include "repora/model/model.h"

MOXObject MOXObject::Owner() const {
  return model_ ? model_->OwnerOf(id_) : MOXObject();
}

Success_e MOXObject::GetProperty(MOXId const& id, QELValue& value, bool /*flag*/) const {
  value.Clean();
  return model_ ? model_->PropertyOf(id_, id, value) : eFailed;
}

MOXAssociation const* MOXModelI::AssociationOf(MOXId /*object_type*/, MOXId /*property*/) const {
  return nullptr;
}

std::string MOXModelI::NameOfType(MOXId /*object_type*/, MOXId /*terminology*/) const {
  return {};
}

bool MOXModelI::FindBuiltIn(int /*index*/, MOXId /*type*/, MOXObject& /*object*/) {
  return false;
}

void MOXModelI::SetUnderConstruction(bool /*under_construction*/) {}

MOXAssociation const* MOXUtilityPack::FindAssociation(MOXModelI const* metamodel,
                                                      MOXId const& object_type,
                                                      MOXId const& property) {
  return metamodel ? metamodel->AssociationOf(object_type, property) : nullptr;
}

std::string MOXUtilityPack::MetaobjectName(MOXId object_type, NameType_e /*name_type*/,
                                           MOXModelI const* metamodel, MOXId terminology,
                                           void* /*unused*/) {
  return metamodel ? metamodel->NameOfType(object_type, terminology) : std::string();
}

ORVBuiltInObjectIndex& ORVBuiltInObjectIndex::GetInstance() {
  static ORVBuiltInObjectIndex instance;
  return instance;
}

bool ORVBuiltInObjectIndex::FindBuiltInObject(MOXModelI* model, int index, MOXId const& type,
                                              MOXObject& object) const {
  return model && model->FindBuiltIn(index, type, object);
}
