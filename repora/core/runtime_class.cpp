#include "repora/core/runtime_class.h"

namespace repora {
namespace {

// Constant-initialised, so records of any translation unit can register in any order.
RuntimeClass const*& FirstClass() {
  static RuntimeClass const* first = nullptr;
  return first;
}

RuntimeClass const& RootClass() {
  static RuntimeClass const root("RuntimeObject", nullptr, nullptr);
  return root;
}

}  // namespace

RuntimeClass::RuntimeClass(char const* name, RuntimeClass const* base, Creator create)
    : name_(name), base_(base), create_(create), next_(FirstClass()) {
  FirstClass() = this;
}

bool RuntimeClass::IsDerivedFrom(RuntimeClass const& base) const {
  auto const* candidate = this;
  while (candidate && candidate != &base) candidate = candidate->base_;
  return candidate != nullptr;
}

RuntimeClass const* RuntimeClass::Find(std::string_view name) {
  auto const* candidate = FirstClass();
  while (candidate && candidate->name_ != name) candidate = candidate->next_;
  return candidate;
}

RuntimeClass const* RuntimeObject::GetRuntimeClass() const {
  return &RootClass();
}

}  // namespace repora
