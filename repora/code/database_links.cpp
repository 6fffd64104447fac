#include "repora/code/database_links.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"

namespace codes = repora::codes;

REPProcess_e REPCreateDatabaseLink::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* link = nullptr;
  if (auto const result = processor->AddItem(processor->GetRoot(), ORVTypes::oOracleDatabaseLink,
                                             name_.Get(), link);
      result != REPProcessOK)
    return result;
  if (shared_) repora::SetBoolean(*link, ORVTypes::pShared, true);
  if (public_) repora::SetBoolean(*link, ORVTypes::pOraclePublic, true);
  repora::SetTextIfGiven(*link, ORVTypes::pAuthenticatedUser, auth_user_);
  if (current_user_) {
    repora::SetInteger(*link, ORVTypes::pConnectionType, codes::kConnectAsCurrentUser);
  } else if (!user_.empty()) {
    repora::SetText(*link, ORVTypes::pUser, user_);
    repora::SetInteger(*link, ORVTypes::pConnectionType, codes::kConnectAsNamedUser);
  }
  repora::SetTextIfGiven(*link, ORVTypes::pConnectString, connect_string_);
  return REPProcessOK;
}

std::string REPCreateDatabaseLink::AsString() const {
  repora::SqlText sql("CREATE ");
  sql.AppendIf(shared_, "SHARED ")
      .AppendIf(public_, "PUBLIC ")
      .Append("DATABASE LINK ")
      .Name(name_.Get());
  if (current_user_)
    sql.Append(" CONNECT TO CURRENT USER");
  else if (!user_.empty())
    sql.Append(" CONNECT TO ").Append(user_).Append(" IDENTIFIED BY ").Append(password_);
  if (!auth_user_.empty())
    sql.Append(" AUTHENTICATED BY ")
        .Append(auth_user_)
        .Append(" IDENTIFIED BY ")
        .Append(auth_password_);
  if (!connect_string_.empty()) sql.Append(" USING '").Append(connect_string_).Append("'");
  return sql.Take();
}
