#include "repora/code/roles.h"

#include "repora/code/script_templates.h"
#include "repora/core/sql_text.h"

REPProcess_e REPCreateRole::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE ROLE " + (name_ ? name_->GetName(false) : ""),
                              *this);
}

std::string REPCreateRole::AsString() const {
  repora::SqlText sql("CREATE ROLE ");
  sql.Name(name_.Get());
  switch (type_) {
    case REPRoleType_e::None: break;
    case REPRoleType_e::NotIdentified: sql.Append(" NOT IDENTIFIED"); break;
    case REPRoleType_e::Password: sql.Append(" IDENTIFIED BY ").Append(password_); break;
    case REPRoleType_e::Package: sql.Append(" IDENTIFIED USING ").Name(package_.Get()); break;
    case REPRoleType_e::Externally: sql.Append(" IDENTIFIED EXTERNALLY"); break;
    case REPRoleType_e::Globally: sql.Append(" IDENTIFIED GLOBALLY"); break;
  }
  return sql.Append(";").Take();
}
