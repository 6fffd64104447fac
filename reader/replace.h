#pragma once

#include <memory>

namespace repora::reader {

// Sets a child that may be there already: a clause that is written twice counts as it is written
// last, and a setter leaves what it replaces to its caller.
template <class Owner, class T>
void Replace(Owner& owner, T* (Owner::*get)() const, void (Owner::*set)(T*),
             std::unique_ptr<T> value) {
  std::unique_ptr<T> const replaced((owner.*get)());
  (owner.*set)(value.release());
}

}  // namespace repora::reader
