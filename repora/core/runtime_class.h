#pragma once

#include <memory>
#include <string_view>

namespace repora {

class RuntimeObject;

// The record that describes a class at run time. Records are static and register themselves, so a
// host can create an object by the name of its class.
class RuntimeClass {
 public:
  using Creator = RuntimeObject* (*)();

  // create is null for classes that cannot be created by name.
  RuntimeClass(char const* name, RuntimeClass const* base, Creator create);

  char const* Name() const { return name_; }
  RuntimeClass const* Base() const { return base_; }
  bool IsDerivedFrom(RuntimeClass const& base) const;

  // A new object owned by the caller; null when the class cannot be created by name.
  RuntimeObject* CreateObject() const { return create_ ? create_() : nullptr; }

  // The class of that name, or null.
  static RuntimeClass const* Find(std::string_view name);

 private:
  char const* name_;
  RuntimeClass const* base_;
  Creator create_;
  RuntimeClass const* next_;
};

// A new object of the named class, or null when there is none or it is no T.
template <class T>
std::unique_ptr<T> CreateByName(std::string_view class_name) {
  auto const* found = RuntimeClass::Find(class_name);
  if (!found || !found->IsDerivedFrom(*T::GetThisClass())) return nullptr;
  return std::unique_ptr<T>(static_cast<T*>(found->CreateObject()));
}

// Base of the classes with run-time class information.
class RuntimeObject {
 public:
  virtual RuntimeClass const* GetRuntimeClass() const;
  virtual ~RuntimeObject() = default;

  // Diagnostics, for derived classes that have something to store or to say.
  virtual void Store() const {}
  virtual void CheckValid() const {}
  virtual void DumpContents() const {}

 protected:
  RuntimeObject() = default;
  RuntimeObject(RuntimeObject const&) = default;
  RuntimeObject& operator=(RuntimeObject const&) = default;
};

}  // namespace repora
