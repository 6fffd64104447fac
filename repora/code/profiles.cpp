#include "repora/code/profiles.h"

#include <string_view>

#include "repora/code/script_templates.h"
#include "repora/core/sql_text.h"

void REPResourceParameter::Set(REPResParmType_e type, char const* text) {
  type_ = type;
  std::string_view const given(text ? text : "");
  switch (type) {
    case REPResParmType_e::Number:
      if (given.ends_with('K') || given.ends_with('k')) type_ = REPResParmType_e::Kilobytes;
      if (given.ends_with('M') || given.ends_with('m')) type_ = REPResParmType_e::Megabytes;
      [[fallthrough]];
    case REPResParmType_e::Kilobytes:
    case REPResParmType_e::Megabytes:
      value_ = repora::Text(std::to_string(repora::ToInt(text)));
      break;
    default: value_ = {}; break;
  }
}

std::string REPResourceParameter::AsString() const {
  switch (type_) {
    case REPResParmType_e::None: break;
    case REPResParmType_e::Number: return value_.str();
    case REPResParmType_e::Kilobytes: return value_.str() + "K";
    case REPResParmType_e::Megabytes: return value_.str() + "M";
    case REPResParmType_e::Unlimited: return "UNLIMITED";
    case REPResParmType_e::Default: return "DEFAULT";
  }
  return {};
}

void REPResourceParameter::Copy(REPResourceParameter const& other) {
  type_ = other.type_;
  value_ = other.value_;
}

void REPPasswordParameter::Set(REPPassParmType_e type, char const* text) {
  type_ = type;
  bool const has_value = type == REPPassParmType_e::Number || type == REPPassParmType_e::Expression;
  value_ = has_value ? text : "";
}

std::string REPPasswordParameter::AsString() const {
  switch (type_) {
    case REPPassParmType_e::None: break;
    case REPPassParmType_e::Number:
    case REPPassParmType_e::Expression: return value_.str();
    case REPPassParmType_e::Unlimited: return "UNLIMITED";
    case REPPassParmType_e::Null: return "NULL";
    case REPPassParmType_e::Default: return "DEFAULT";
  }
  return {};
}

void REPPasswordParameter::Copy(REPPasswordParameter const& other) {
  type_ = other.type_;
  value_ = other.value_;
}

REPProcess_e REPCreateProfile::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  return repora::AddPreScript(*processor, "CREATE PROFILE " + (name_ ? name_->GetName(false) : ""),
                              *this);
}

std::string REPCreateProfile::AsString() const {
  repora::SqlText sql("CREATE PROFILE ");
  sql.Name(name_.Get()).Append(" LIMIT");
  auto const append = [&](char const* keyword, auto const& parameter) {
    if (static_cast<int>(parameter.GetType()) != 0)
      sql.Append(keyword).Append(parameter.AsString());
  };
  append(" SESSIONS_PER_USER ", sessions_per_user_);
  append(" CPU_PER_SESSION ", cpu_per_session_);
  append(" CPU_PER_CALL ", cpu_per_call_);
  append(" CONNECT_TIME ", connect_time_);
  append(" IDLE_TIME ", idle_time_);
  append(" LOGICAL_READS_PER_SESSION ", reads_per_session_);
  append(" LOGICAL_READS_PER_CALL ", reads_per_call_);
  append(" COMPOSITE_LIMIT ", composite_limit_);
  append(" PRIVATE_SGA ", private_sga_);
  append(" FAILED_LOGIN_ATTEMPTS ", failed_login_);
  append(" PASSWORD_LIFE_TIME ", life_time_);
  append(" PASSWORD_REUSE_TIME ", reuse_time_);
  append(" PASSWORD_REUSE_MAX ", reuse_max_);
  append(" PASSWORD_LOCK_TIME ", lock_time_);
  append(" PASSWORD_GRACE_TIME ", grace_time_);
  append(" PASSWORD_VERIFY_FUNCTION ", verify_function_);
  return sql.Append(";").Take();
}
