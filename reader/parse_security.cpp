#include <string>

#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/parse_strings.h"
#include "reader/skipped_clauses.h"
#include "repora/code/contexts.h"
#include "repora/code/database_links.h"
#include "repora/code/directories.h"
#include "repora/code/profiles.h"
#include "repora/code/roles.h"
#include "repora/code/users.h"

namespace repora::reader {
namespace {

// password | VALUES 'hash', behind BY; as written
std::string_view ParsePassword(TokenStream& in) {
  auto const mark = in.Mark();
  if (in.Is(K_VALUES) && in.Peek(1).kind == TokenKind::String) in.Next();
  switch (in.Peek().kind) {
    case TokenKind::Word:
    case TokenKind::QuotedName:
    case TokenKind::Number:
    case TokenKind::String: in.Next(); break;
    default: in.Fail("a password");
  }
  return in.TextSince(mark);
}

// CONTAINER = word | SHARING = word: where an object lives in a database of many; false when
// neither comes.
bool SkipPlacement(TokenStream& in) {
  if (in.Is(K_SHARING)) {
    SkipSharing(in);
    return true;
  }
  auto const& token = in.Peek();
  if (!in.Accept(K_CONTAINER)) return false;
  in.Note(token, "clause CONTAINER is skipped");
  in.Expect('=');
  in.Next();
  return true;
}

// [AS 'name'] of a way to identify that has no place for it
void SkipExternalName(TokenStream& in) {
  auto const& token = in.Peek();
  if (!in.Accept(K_AS)) return;
  ParseString(in);
  in.Note(token, "external name is skipped");
}

// {BY password [HTTP] [DIGEST {ENABLE | DISABLE}] | EXTERNALLY [AS 'name'] | GLOBALLY [AS 'name']},
// behind IDENTIFIED
void ParseIdentification(TokenStream& in, REPCreateUser& user) {
  if (in.Accept(K_BY)) {
    user.SetIdentify(REPUserIdentify_e::Password);
    user.SetPassword(in.Copy(ParsePassword(in)));
  } else if (in.Accept(K_EXTERNALLY)) {
    user.SetIdentify(REPUserIdentify_e::Externally);
    SkipExternalName(in);
  } else if (in.Accept(K_GLOBALLY)) {
    user.SetIdentify(REPUserIdentify_e::Globally);
    if (in.Accept(K_AS)) user.SetExternalName(ParseQuotedText(in).c_str());
  } else {
    in.Fail("BY, EXTERNALLY or GLOBALLY");
  }
}

// QUOTA {size | UNLIMITED} ON tablespace, behind its keyword
std::unique_ptr<REPCreateUserQuota> ParseQuota(TokenStream& in) {
  auto quota = std::make_unique<REPCreateUserQuota>();
  auto const size = ParseSize(in);
  if (size.GetType() == REPSizeType_e::Unlimited)
    quota->SetUnlimited();
  else
    quota->SetSize(size.AsString().c_str());
  in.Expect(K_ON);
  quota->SetTableSpace(ParseSimpleName(in).release());
  return quota;
}

void ParseUserOption(TokenStream& in, REPCreateUser& user) {
  if (in.Accept(K_IDENTIFIED)) {
    ParseIdentification(in, user);
  } else if (in.Accept(K_DEFAULT, K_TABLESPACE)) {
    user.SetTableSpace(ParseSimpleName(in).release());
  } else if (in.Accept(K_TEMPORARY, K_TABLESPACE)) {
    user.SetTempTableSpace(ParseSimpleName(in).release());
  } else if (in.Accept(K_QUOTA)) {
    user.SetQuota(ParseQuota(in).release());
  } else if (in.Accept(K_PROFILE)) {
    user.SetProfile(in.Copy(ParseNameText(in)));
  } else if (in.Accept(K_PASSWORD)) {
    in.Expect(K_EXPIRE);
    user.SetPasswordExpire(true);
  } else if (in.Accept(K_ACCOUNT)) {
    bool const lock = in.Accept(K_LOCK);
    if (!lock) in.Expect(K_UNLOCK);
    user.SetAccount(lock ? REPUserAccount_e::Lock : REPUserAccount_e::Unlock);
  } else if (!SkipPlacement(in) && !SkipClause(in, ClausePlace::User)) {
    in.Fail("an option of the user");
  }
}

// {BY password | USING package | EXTERNALLY | GLOBALLY [AS 'name']}, behind IDENTIFIED
void ParseIdentification(TokenStream& in, REPCreateRole& role) {
  if (in.Accept(K_BY)) {
    role.SetRoleType(REPRoleType_e::Password);
    role.SetPassword(in.Copy(ParsePassword(in)));
  } else if (in.Accept(K_USING)) {
    role.SetRoleType(REPRoleType_e::Package);
    role.SetPackage(ParseName(in).release());
  } else if (in.Accept(K_EXTERNALLY)) {
    role.SetRoleType(REPRoleType_e::Externally);
  } else if (in.Accept(K_GLOBALLY)) {
    role.SetRoleType(REPRoleType_e::Globally);
    SkipExternalName(in);
  } else {
    in.Fail("BY, USING, EXTERNALLY or GLOBALLY");
  }
}

struct ResourceWord {
  Word word;
  void (REPCreateProfile::*set)(REPResParmType_e, char const*);
};

constexpr ResourceWord kResources[] = {
    {K_SESSIONS_PER_USER, &REPCreateProfile::SetSessionsPerUser},
    {K_CPU_PER_SESSION, &REPCreateProfile::SetCpuPerSession},
    {K_CPU_PER_CALL, &REPCreateProfile::SetCpuPerCall},
    {K_CONNECT_TIME, &REPCreateProfile::SetConnectTime},
    {K_IDLE_TIME, &REPCreateProfile::SetIdleTime},
    {K_LOGICAL_READS_PER_SESSION, &REPCreateProfile::SetReadsPerSession},
    {K_LOGICAL_READS_PER_CALL, &REPCreateProfile::SetReadsPerCall},
    {K_COMPOSITE_LIMIT, &REPCreateProfile::SetCompositeLimit},
    {K_PRIVATE_SGA, &REPCreateProfile::SetPrivateSGA}};

struct PasswordWord {
  Word word;
  void (REPCreateProfile::*set)(REPPassParmType_e, char const*);
};

constexpr PasswordWord kPasswordRules[] = {
    {K_FAILED_LOGIN_ATTEMPTS, &REPCreateProfile::SetFailedLogin},
    {K_PASSWORD_LIFE_TIME, &REPCreateProfile::SetPasswordLifeTime},
    {K_PASSWORD_REUSE_TIME, &REPCreateProfile::SetReuseTime},
    {K_PASSWORD_REUSE_MAX, &REPCreateProfile::SetReuseMax},
    {K_PASSWORD_LOCK_TIME, &REPCreateProfile::SetLockTime},
    {K_PASSWORD_GRACE_TIME, &REPCreateProfile::SetGraceTime},
    {K_PASSWORD_VERIFY_FUNCTION, &REPCreateProfile::SetVerifyFunction}};

template <std::size_t size, class Entry>
Entry const* Find(Entry const (&entries)[size], Word word) {
  for (auto const& entry : entries)
    if (entry.word == word) return &entry;
  return nullptr;
}

bool IsNewerLimit(Word word) {
  return word == K_INACTIVE_ACCOUNT_TIME || word == K_PASSWORD_ROLLOVER_TIME;
}

bool EndsLimit(TokenStream const& in) {
  auto const word = in.Peek().word;
  return in.AtEnd() || word == K_CONTAINER || IsNewerLimit(word) || Find(kResources, word) ||
         Find(kPasswordRules, word);
}

// n [K | M] | UNLIMITED | DEFAULT, behind the name of the parameter
void ParseResource(TokenStream& in, Token const& name, ResourceWord const& resource,
                   REPCreateProfile& profile) {
  if (in.Accept(K_DEFAULT)) {
    (profile.*resource.set)(REPResParmType_e::Default, "");
    return;
  }
  auto const size = ParseSize(in);
  if (size.GetType() == REPSizeType_e::Unlimited) {
    (profile.*resource.set)(REPResParmType_e::Unlimited, "");
    return;
  }
  // The parameter holds an integer, and no unit beyond M.
  auto const text = size.AsString();
  auto const number = std::to_string(ToInt(text.c_str()));
  if (text == number || text == number + "K" || text == number + "M")
    (profile.*resource.set)(REPResParmType_e::Number, text.c_str());
  else
    in.Note(name, "limit " + std::string(TextOf(name.word)) + " " + text + " is skipped");
}

// expression | UNLIMITED | NULL | DEFAULT, behind the name of the parameter
void ParsePasswordRule(TokenStream& in, PasswordWord const& rule, REPCreateProfile& profile) {
  auto type = REPPassParmType_e::Expression;
  if (in.Accept(K_UNLIMITED)) {
    type = REPPassParmType_e::Unlimited;
  } else if (in.Accept(K_DEFAULT)) {
    type = REPPassParmType_e::Default;
  } else if (in.Accept(K_NULL)) {
    type = REPPassParmType_e::Null;
  } else if (EndsLimit(in)) {
    in.Fail("a number, UNLIMITED, NULL or DEFAULT");
  }
  auto const mark = in.Mark();
  if (type == REPPassParmType_e::Expression) {
    bool const number = in.Peek().kind == TokenKind::Number;
    in.SkipItem();
    if (number && EndsLimit(in)) type = REPPassParmType_e::Number;
    while (!EndsLimit(in)) in.SkipItem();
  }
  (profile.*rule.set)(type, in.Copy(in.TextSince(mark)));
}

void ParseLimit(TokenStream& in, REPCreateProfile& profile) {
  if (SkipPlacement(in)) return;
  auto const& name = in.Peek();
  if (auto const* const resource = Find(kResources, name.word)) {
    in.Next();
    ParseResource(in, name, *resource, profile);
  } else if (auto const* const rule = Find(kPasswordRules, name.word)) {
    in.Next();
    ParsePasswordRule(in, *rule, profile);
  } else if (IsNewerLimit(name.word)) {
    in.Next();
    in.Note(name, "limit " + std::string(TextOf(name.word)) + " is skipped");
    while (!EndsLimit(in)) in.SkipItem();
  } else {
    in.Fail("a limit of the profile");
  }
}

// CONNECT {TO {CURRENT_USER | user IDENTIFIED BY password} | WITH credential}
//   | AUTHENTICATED BY user IDENTIFIED BY password | USING 'connect string'
void ParseLinkOption(TokenStream& in, REPCreateDatabaseLink& link) {
  auto const& token = in.Peek();
  if (in.Accept(K_CONNECT, K_WITH)) {
    in.Note(token, "clause CONNECT WITH is skipped");
    ParseName(in);
  } else if (in.Accept(K_CONNECT)) {
    in.Expect(K_TO);
    // The library renders it without the underscore.
    if (in.Accept(K_CURRENT_USER) || in.Accept(K_CURRENT, K_USER)) {
      link.SetCurrUser(true);
      return;
    }
    link.SetUser(in.Copy(ParseNameText(in)));
    in.Expect(K_IDENTIFIED, K_BY);
    link.SetPassword(in.Copy(ParsePassword(in)));
  } else if (in.Accept(K_AUTHENTICATED)) {
    in.Expect(K_BY);
    link.SetAuthUser(in.Copy(ParseNameText(in)));
    in.Expect(K_IDENTIFIED, K_BY);
    link.SetAuthPassword(in.Copy(ParsePassword(in)));
  } else if (in.Accept(K_USING)) {
    link.SetConnect(ParseQuotedText(in).c_str());
  } else {
    in.Fail("CONNECT, AUTHENTICATED, USING or the end of the statement");
  }
}

}  // namespace

// CREATE USER [IF NOT EXISTS] name [option]...
std::unique_ptr<REPStatement> ParseCreateUser(TokenStream& in) {
  auto user = std::make_unique<REPCreateUser>();
  user->SetStatementType(REPStatement_e::CreateUser);
  in.Expect(K_CREATE, K_USER);
  SkipIfNotExists(in);
  user->SetUserName(in.Copy(ParseNameText(in)));
  user->SetIdentify(REPUserIdentify_e::None);
  while (!in.AtEnd()) ParseUserOption(in, *user);
  return user;
}

// CREATE ROLE [IF NOT EXISTS] name [NOT IDENTIFIED | IDENTIFIED ...] [CONTAINER = word]
std::unique_ptr<REPStatement> ParseCreateRole(TokenStream& in) {
  auto role = std::make_unique<REPCreateRole>();
  role->SetStatementType(REPStatement_e::CreateRole);
  in.Expect(K_CREATE, K_ROLE);
  SkipIfNotExists(in);
  role->SetRoleName(ParseSimpleName(in).release());
  while (!in.AtEnd()) {
    if (in.Accept(K_NOT)) {
      in.Expect(K_IDENTIFIED);
      role->SetRoleType(REPRoleType_e::NotIdentified);
    } else if (in.Accept(K_IDENTIFIED)) {
      ParseIdentification(in, *role);
    } else if (!SkipPlacement(in)) {
      in.Fail("NOT IDENTIFIED, IDENTIFIED or the end of the statement");
    }
  }
  return role;
}

// CREATE [MANDATORY] PROFILE [IF NOT EXISTS] name LIMIT {parameter value}... [CONTAINER = word]
std::unique_ptr<REPStatement> ParseCreateProfile(TokenStream& in) {
  auto profile = std::make_unique<REPCreateProfile>();
  profile->SetStatementType(REPStatement_e::CreateProfile);
  in.Expect(K_CREATE);
  auto const& kind = in.Peek();
  if (in.Accept(K_MANDATORY)) in.Note(kind, "MANDATORY is skipped");
  in.Expect(K_PROFILE);
  SkipIfNotExists(in);
  profile->SetProfileName(ParseSimpleName(in).release());
  in.Expect(K_LIMIT);
  while (!in.AtEnd()) ParseLimit(in, *profile);
  return profile;
}

// CREATE [OR REPLACE] CONTEXT [IF NOT EXISTS] namespace USING name
//   [ACCESSED GLOBALLY | INITIALIZED {EXTERNALLY | GLOBALLY}] [SHARING = word]
std::unique_ptr<REPStatement> ParseCreateContext(TokenStream& in) {
  auto context = std::make_unique<REPCreateContext>();
  context->SetStatementType(REPStatement_e::CreateContext);
  in.Expect(K_CREATE);
  context->SetReplace(AcceptOrReplace(in));
  in.Expect(K_CONTEXT);
  SkipIfNotExists(in);
  context->SetNameSpace(ParseSimpleName(in).release());
  in.Expect(K_USING);
  context->SetPackage(ParseName(in).release());
  while (!in.AtEnd()) {
    if (in.Accept(K_ACCESSED)) {
      in.Expect(K_GLOBALLY);
      context->SetContextType(REPContextType_e::AccessedGlobally);
    } else if (in.Accept(K_INITIALIZED)) {
      bool const externally = in.Accept(K_EXTERNALLY);
      if (!externally) in.Expect(K_GLOBALLY);
      context->SetContextType(externally ? REPContextType_e::InitializedExternally
                                         : REPContextType_e::InitializedGlobally);
    } else if (!SkipPlacement(in)) {
      in.Fail("ACCESSED GLOBALLY, INITIALIZED or the end of the statement");
    }
  }
  return context;
}

// CREATE [OR REPLACE] DIRECTORY [IF NOT EXISTS] name [SHARING = word] AS 'path'
std::unique_ptr<REPStatement> ParseCreateDirectory(TokenStream& in) {
  auto directory = std::make_unique<REPCreateDirectory>();
  directory->SetStatementType(REPStatement_e::CreateDirectory);
  in.Expect(K_CREATE);
  directory->SetReplace(AcceptOrReplace(in));
  in.Expect(K_DIRECTORY);
  SkipIfNotExists(in);
  directory->SetDirName(ParseName(in).release());
  SkipPlacement(in);
  in.Expect(K_AS);
  directory->SetPathName(ParseQuotedText(in).c_str());
  return directory;
}

// CREATE [SHARED] [PUBLIC] DATABASE LINK [IF NOT EXISTS] name[@qualifier] [option]...
std::unique_ptr<REPStatement> ParseCreateDatabaseLink(TokenStream& in) {
  auto link = std::make_unique<REPCreateDatabaseLink>();
  link->SetStatementType(REPStatement_e::CreateDatabaseLink);
  in.Expect(K_CREATE);
  while (!in.Is(K_DATABASE)) {
    if (in.Accept(K_PUBLIC))
      link->SetPublic(true);
    else if (in.Accept(K_SHARED))
      link->SetShared(true);
    else
      in.Fail("SHARED, PUBLIC or DATABASE LINK");
  }
  in.Expect(K_DATABASE, K_LINK);
  SkipIfNotExists(in);
  link->SetDatabaseName(ParseName(in).release());
  SkipConnectionQualifier(in);
  while (!in.AtEnd()) ParseLinkOption(in, *link);
  return link;
}

}  // namespace repora::reader
