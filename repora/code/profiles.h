#pragma once

#include <string>

#include "repora/code/unsupported.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

enum class REPResParmType_e : int {
  None = 0,
  Number = 1,
  Kilobytes = 2,
  Megabytes = 3,
  Unlimited = 4,
  Default = 5
};

enum class REPPassParmType_e : int {
  None = 0,
  Number = 1,
  Expression = 2,  // or the name of a function
  Unlimited = 3,
  Null = 4,
  Default = 5
};

// n [K | M] | UNLIMITED | DEFAULT
class REPResourceParameter final {
 public:
  REPResourceParameter() = default;
  REPResourceParameter(REPResourceParameter const& other) { Copy(other); }
  REPResourceParameter& operator=(REPResourceParameter const& other) {
    Copy(other);
    return *this;
  }

  // Of the text counts the integer at its start, and for a Number a last letter K or M, which makes
  // it Kilobytes or Megabytes. The types without a number have no value. Null counts as empty,
  // which is 0.
  void Set(REPResParmType_e type, char const* text);
  REPResParmType_e GetType() const { return type_; }
  // The number without its unit.
  char const* GetValue() const { return value_.c_str(); }

  virtual std::string AsString() const;

 protected:
  void Copy(REPResourceParameter const& other);

 private:
  REPResParmType_e type_{};
  repora::Text value_;
};

// expression | UNLIMITED | NULL | DEFAULT
class REPPasswordParameter final {
 public:
  REPPasswordParameter() = default;
  REPPasswordParameter(REPPasswordParameter const& other) { Copy(other); }
  REPPasswordParameter& operator=(REPPasswordParameter const& other) {
    Copy(other);
    return *this;
  }

  // The text is kept as it is for a Number and an Expression; the other types have no value.
  void Set(REPPassParmType_e type, char const* text);
  REPPassParmType_e GetType() const { return type_; }
  char const* GetValue() const { return value_.c_str(); }

  virtual std::string AsString() const;

 protected:
  void Copy(REPPasswordParameter const& other);

 private:
  REPPassParmType_e type_{};
  repora::Text value_;
};

// CREATE PROFILE name LIMIT {parameter value}...
// The statement is kept as a script template.
class REPCreateProfile final : public REPStatement {
 public:
  using Resource = REPResourceParameter;
  using Password = REPPasswordParameter;

  void SetProfileName(REPName* name) { name_.Set(name); }
  REPName* GetProfileName() const { return name_.Get(); }

  // Each as in the Set of its parameter.
  void SetSessionsPerUser(REPResParmType_e t, char const* text) { sessions_per_user_.Set(t, text); }
  Resource const& GetSessionsPerUser() const { return sessions_per_user_; }
  void SetCpuPerSession(REPResParmType_e t, char const* text) { cpu_per_session_.Set(t, text); }
  Resource const& GetCpuPerSession() const { return cpu_per_session_; }
  void SetCpuPerCall(REPResParmType_e t, char const* text) { cpu_per_call_.Set(t, text); }
  Resource const& GetCpuPerCall() const { return cpu_per_call_; }
  void SetConnectTime(REPResParmType_e t, char const* text) { connect_time_.Set(t, text); }
  Resource const& GetConnectTime() const { return connect_time_; }
  void SetIdleTime(REPResParmType_e t, char const* text) { idle_time_.Set(t, text); }
  Resource const& GetIdleTime() const { return idle_time_; }
  void SetReadsPerSession(REPResParmType_e t, char const* text) { reads_per_session_.Set(t, text); }
  Resource const& GetReadsPerSession() const { return reads_per_session_; }
  void SetReadsPerCall(REPResParmType_e t, char const* text) { reads_per_call_.Set(t, text); }
  Resource const& GetReadsPerCall() const { return reads_per_call_; }
  void SetCompositeLimit(REPResParmType_e t, char const* text) { composite_limit_.Set(t, text); }
  Resource const& GetCompositeLimit() const { return composite_limit_; }
  void SetPrivateSGA(REPResParmType_e t, char const* text) { private_sga_.Set(t, text); }
  Resource const& GetPrivateSGA() const { return private_sga_; }

  void SetFailedLogin(REPPassParmType_e t, char const* text) { failed_login_.Set(t, text); }
  Password const& GetFailedLogin() const { return failed_login_; }
  void SetPasswordLifeTime(REPPassParmType_e t, char const* text) { life_time_.Set(t, text); }
  Password const& GetPasswordLifeTime() const { return life_time_; }
  void SetReuseTime(REPPassParmType_e t, char const* text) { reuse_time_.Set(t, text); }
  Password const& GetReuseTime() const { return reuse_time_; }
  void SetReuseMax(REPPassParmType_e t, char const* text) { reuse_max_.Set(t, text); }
  Password const& GetReuseMax() const { return reuse_max_; }
  void SetLockTime(REPPassParmType_e t, char const* text) { lock_time_.Set(t, text); }
  Password const& GetLockTime() const { return lock_time_; }
  void SetGraceTime(REPPassParmType_e t, char const* text) { grace_time_.Set(t, text); }
  Password const& GetGraceTime() const { return grace_time_; }
  void SetVerifyFunction(REPPassParmType_e t, char const* text) { verify_function_.Set(t, text); }
  Password const& GetVerifyFunction() const { return verify_function_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> name_;
  Resource sessions_per_user_;
  Resource cpu_per_session_;
  Resource cpu_per_call_;
  Resource connect_time_;
  Resource idle_time_;
  Resource reads_per_session_;
  Resource reads_per_call_;
  Resource composite_limit_;
  Resource private_sga_;
  Password failed_login_;
  Password life_time_;
  Password reuse_time_;
  Password reuse_max_;
  Password lock_time_;
  Password grace_time_;
  Password verify_function_;
};

// ALTER PROFILE, of which the model keeps nothing
class REPAlterProfile final : public repora::UnsupportedStatement<"ALTER PROFILE"> {};
