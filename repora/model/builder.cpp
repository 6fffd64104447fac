#include "repora/model/builder.h"

#include "repora/model/model.h"

namespace MOX {

std::unique_ptr<MOXBuilderI> BuilderFactoryI::CreateBuilder(MOXModelSetI* model_set,
                                                            BuilderOptions const& /*options*/,
                                                            unsigned /*flags*/) const {
  return model_set ? model_set->NewBuilder() : nullptr;
}

BuilderFactoryI& BuilderFactory() {
  static BuilderFactoryI factory;
  return factory;
}

}  // namespace MOX

std::unique_ptr<MOXBuilderValidatorI> IVOUtilityPack::CreateBuilderValidator(
    MOXModelSetI* model_set) {
  return model_set ? model_set->NewBuilderValidator() : nullptr;
}

void UZTUnificationPack::SetModelUnderConstruction(MOXObject& root, bool flag) {
  if (root.Model()) root.Model()->SetUnderConstruction(flag);
}

void UZTUnificationPack::ClearModelUnderConstruction(MOXObject& root) {
  SetModelUnderConstruction(root, false);
}
