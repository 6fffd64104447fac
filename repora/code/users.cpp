#include "repora/code/users.h"

#include "repora/code/script_templates.h"
#include "repora/core/sql_text.h"

using repora::SqlText;

std::string REPCreateUserQuota::AsString() const {
  return SqlText("QUOTA ").Append(size_.AsString()).Append(" ON ").Name(tablespace_.Get()).Take();
}

REPProcess_e REPCreateUser::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE USER " + name_.str(), *this);
}

std::string REPCreateUser::AsString() const {
  SqlText sql("CREATE USER ");
  sql.Append(name_);
  switch (identify_) {
    case REPUserIdentify_e::Password: sql.Append(" IDENTIFIED BY ").Append(password_); break;
    case REPUserIdentify_e::Externally: sql.Append(" IDENTIFIED EXTERNALLY "); break;
    case REPUserIdentify_e::Globally:
      sql.Append(" IDENTIFIED GLOBALLY AS '").Append(external_name_).Append("'");
      break;
    case REPUserIdentify_e::None: break;
  }
  sql.Clause(" DEFAULT TABLESPACE ", tablespace_.Get())
      .Clause(" TEMPORARY TABLESPACE ", temp_tablespace_.Get())
      .Clause(" PROFILE ", profile_);
  for (int i = 0; i < quotas_.GetCount(); ++i) sql.Option(quotas_.At(i)->AsString());
  return sql.AppendIf(password_expire_, " PASSWORD EXPIRE ")
      .AppendIf(account_ == REPUserAccount_e::Lock, " ACCOUNT LOCK ")
      .AppendIf(account_ == REPUserAccount_e::Unlock, " ACCOUNT UNLOCK ")
      .Take();
}
