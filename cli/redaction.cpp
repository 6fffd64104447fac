#include "cli/redaction.h"

#include "repora/code/database_links.h"
#include "repora/code/roles.h"
#include "repora/code/users.h"
#include "repora/database/create_database.h"

namespace repora::cli {
namespace {

constexpr char const* kRedacted = "****";

template <class Statement>
struct Password {
  char const* (Statement::*get)() const;
  void (Statement::*set)(char const*);
};

// The passwords of a statement of that class; those that are not given stay so.
template <class Statement>
void Redact(REPStatement& any, std::initializer_list<Password<Statement>> passwords) {
  auto* const statement = dynamic_cast<Statement*>(&any);
  if (!statement) return;
  for (auto const& password : passwords)
    if (*(statement->*password.get)() != '\0') (statement->*password.set)(kRedacted);
}

}  // namespace

void RedactPasswords(reader::ReadPiece& piece) {
  for (auto& statement : piece.statements) {
    auto& object = *statement.object;
    Redact<REPCreateUser>(object, {{&REPCreateUser::GetPassword, &REPCreateUser::SetPassword}});
    Redact<REPCreateRole>(object, {{&REPCreateRole::GetPassword, &REPCreateRole::SetPassword}});
    using Database = REPCreateDatabase;
    Redact<Database>(object, {{&Database::GetSysPassword, &Database::SetSysPassword},
                              {&Database::GetSystemPassword, &Database::SetSystemPassword}});
    using Link = REPCreateDatabaseLink;
    Redact<Link>(object, {{&Link::GetPassword, &Link::SetPassword},
                          {&Link::GetAuthPassword, &Link::SetAuthPassword}});
  }
}

}  // namespace repora::cli
