#pragma once

#include <string>

#include "repora/code/unsupported.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/size.h"

// How a user proves who he is. Without authentication there is no clause for it.
enum class REPUserIdentify_e : int { Password = 0, Externally = 1, Globally = 2, None = 3 };
enum class REPUserAccount_e : int { None = 0, Lock = 1, Unlock = 2 };

// QUOTA {size | UNLIMITED} ON tablespace: a part of CREATE USER that is rendered only
class REPCreateUserQuota final : public REPStatement {
 public:
  // As in REPSizeClause::SetSize.
  void SetSize(char const* text) { size_.SetSize(text); }
  void SetUnlimited() { size_.SetType(REPSizeType_e::Unlimited); }
  REPSizeClause GetSizeClause() const { return size_; }
  void SetTableSpace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTableSpace() const { return tablespace_.Get(); }

  std::string AsString() const override;

 private:
  REPSizeClause size_;
  repora::Owned<REPName> tablespace_;
};

// CREATE USER name
//   [IDENTIFIED {BY password | EXTERNALLY | GLOBALLY AS 'name'}]
//   [DEFAULT TABLESPACE name] [TEMPORARY TABLESPACE name] [PROFILE name] [quota]...
//   [PASSWORD EXPIRE] [ACCOUNT {LOCK | UNLOCK}]
// The statement is kept as a script template.
class REPCreateUser final : public REPStatement {
 public:
  void SetUserName(char const* text) { name_ = text; }
  char const* GetUsername() const { return name_.c_str(); }
  // As the script wrote it, quotes included. Only the statement's text shows it.
  void SetPassword(char const* text) { password_ = text; }
  char const* GetPassword() const { return password_.c_str(); }
  // The name of GLOBALLY AS, without its quotes.
  void SetExternalName(char const* text) { external_name_ = text; }
  char const* GetExternalName() const { return external_name_.c_str(); }
  // The getters give the names as written, empty for none.
  void SetTableSpace(REPName* name) { tablespace_.Set(name); }
  std::string GetTableSpace() const { return repora::AsWritten(tablespace_.Get()); }
  void SetTempTableSpace(REPName* name) { temp_tablespace_.Set(name); }
  std::string GetTempTableSpace() const { return repora::AsWritten(temp_tablespace_.Get()); }
  void SetProfile(char const* text) { profile_ = text; }
  char const* GetProfile() const { return profile_.c_str(); }
  void SetPasswordExpire(bool expire) { password_expire_ = expire; }
  bool GetPasswordExpire() const { return password_expire_; }
  void SetIdentify(REPUserIdentify_e identify) { identify_ = identify; }
  REPUserIdentify_e GetIdentify() const { return identify_; }
  void SetAccount(REPUserAccount_e account) { account_ = account; }
  REPUserAccount_e GetAccount() const { return account_; }
  // Appends a quota and owns it.
  void SetQuota(REPCreateUserQuota* quota) { quotas_.AddTail(quota); }
  int GetNumQuotas() const { return quotas_.GetCount(); }
  // From 0 to GetNumQuotas() - 1; otherwise std::invalid_argument.
  REPCreateUserQuota* GetQuota(int index) const { return quotas_.At(index); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Text name_;
  repora::Text password_;
  repora::Text external_name_;
  repora::Owned<REPName> tablespace_;
  repora::Owned<REPName> temp_tablespace_;
  repora::Text profile_;
  bool password_expire_ = false;
  REPUserIdentify_e identify_ = REPUserIdentify_e::Password;
  REPUserAccount_e account_{};
  repora::OwnedList<REPCreateUserQuota> quotas_;
};

// ALTER USER, of which the model keeps nothing
class REPAlterUser final : public repora::UnsupportedStatement<"ALTER USER"> {};
