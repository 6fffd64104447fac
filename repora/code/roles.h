#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

enum class REPRoleType_e : int {
  None = 0,
  NotIdentified = 1,
  Password = 2,
  Package = 3,
  Externally = 4,
  Globally = 5
};

// CREATE ROLE name
//   [NOT IDENTIFIED | IDENTIFIED {BY password | USING package | EXTERNALLY | GLOBALLY}]
// The statement is kept as a script template.
class REPCreateRole final : public REPStatement {
 public:
  void SetRoleName(REPName* name) { name_.Set(name); }
  REPName* GetRoleName() const { return name_.Get(); }
  // As the script wrote it, quotes included. Only the statement's text shows it.
  void SetPassword(char const* text) { password_ = text; }
  char const* GetPassword() const { return password_.c_str(); }
  void SetPackage(REPName* name) { package_.Set(name); }
  REPName* GetPackage() const { return package_.Get(); }
  void SetRoleType(REPRoleType_e type) { type_ = type; }
  REPRoleType_e GetRoleType() const { return type_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  repora::Text password_;
  repora::Owned<REPName> package_;
  REPRoleType_e type_{};
};
