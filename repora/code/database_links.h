#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

// CREATE [SHARED] [PUBLIC] DATABASE LINK name
//   [CONNECT TO {CURRENT_USER | user IDENTIFIED BY password}]
//   [AUTHENTICATED BY user IDENTIFIED BY password] [USING 'connect string']
class REPCreateDatabaseLink final : public REPStatement {
 public:
  void SetDatabaseName(REPName* name) { name_.Set(name); }
  REPName* GetDatabaseName() const { return name_.Get(); }
  void SetPublic(bool is_public) { public_ = is_public; }
  bool GetPublic() const { return public_; }
  void SetShared(bool shared) { shared_ = shared; }
  bool GetShared() const { return shared_; }
  void SetCurrUser(bool current_user) { current_user_ = current_user; }
  bool GetCurrUser() const { return current_user_; }
  void SetUser(char const* text) { user_ = text; }
  char const* GetUser() const { return user_.c_str(); }
  // The passwords as the script wrote them, quotes included. Only the statement's text shows them.
  void SetPassword(char const* text) { password_ = text; }
  char const* GetPassword() const { return password_.c_str(); }
  // Without its quotes.
  void SetConnect(char const* text) { connect_string_ = text; }
  char const* GetConnect() const { return connect_string_.c_str(); }
  void SetAuthUser(char const* text) { auth_user_ = text; }
  char const* GetAuthUser() const { return auth_user_.c_str(); }
  void SetAuthPassword(char const* text) { auth_password_ = text; }
  char const* GetAuthPassword() const { return auth_password_.c_str(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  bool public_ = false;
  bool shared_ = false;
  bool current_user_ = false;
  repora::Text user_;
  repora::Text password_;
  repora::Text connect_string_;
  repora::Text auth_user_;
  repora::Text auth_password_;
};
