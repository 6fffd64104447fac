#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

// An option that can be turned off by a keyword of its own or given a value: NOMAXVALUE or
// MAXVALUE n.
enum class REPOptional_e : int { None = 0, Off = 1, Value = 2 };

namespace repora {

// What creating and altering a sequence have in common. Numbers are kept as the script wrote them.
class SequenceStatement : public REPStatement {
 public:
  // Owner and sequence name.
  void SetSchemaName(REPName* name) { name_.Set(name); }
  REPName* GetSchemaName() const { return name_.Get(); }
  void SetIncrementBy(char const* text) { increment_ = text; }
  char const* GetIncrementBy() const { return increment_.c_str(); }
  void SetMaxValueOption(REPOptional_e option) { max_option_ = option; }
  REPOptional_e GetMaxValueOption() const { return max_option_; }
  void SetMinValueOption(REPOptional_e option) { min_option_ = option; }
  REPOptional_e GetMinValueOption() const { return min_option_; }
  void SetMaxValue(char const* text) { max_ = text; }
  char const* GetMaxValue() const { return max_.c_str(); }
  void SetMinValue(char const* text) { min_ = text; }
  char const* GetMinValue() const { return min_.c_str(); }
  void SetCache(char const* text) { cache_ = text; }
  char const* GetCache() const { return cache_.c_str(); }
  void SetOrder(REPOrder_e order) { order_ = order; }
  REPOrder_e GetOrder() const { return order_; }
  void SetCycle(REPCycle_e cycle) { cycle_ = cycle; }
  REPCycle_e GetCycle() const { return cycle_; }

 protected:
  Owned<REPName> name_;
  Text increment_;
  REPOptional_e max_option_{};
  REPOptional_e min_option_{};
  Text max_;
  Text min_;
  Text cache_;
  REPOrder_e order_{};
  REPCycle_e cycle_{};
};

}  // namespace repora

// CREATE SEQUENCE [owner.]name [INCREMENT BY n] [START WITH n] [MAXVALUE n | NOMAXVALUE]
//   [MINVALUE n | NOMINVALUE] [CYCLE | NOCYCLE] [CACHE n | NOCACHE] [ORDER | NOORDER]
class REPCreateSequence final : public repora::SequenceStatement {
 public:
  void SetStartWith(char const* text) { start_ = text; }
  char const* GetStartWith() const { return start_.c_str(); }
  void SetCacheOption(REPOptional_e option) { cache_option_ = option; }
  REPOptional_e GetCacheOption() const { return cache_option_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Text start_;
  REPOptional_e cache_option_{};
};

// ALTER SEQUENCE [owner.]name, with the options of CREATE SEQUENCE but START WITH
class REPAlterSequence final : public repora::SequenceStatement {
 public:
  void SetCacheOption(REPCache_e option) { cache_option_ = option; }
  REPCache_e GetCacheOption() const { return cache_option_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPCache_e cache_option_{};
};
