#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/owned.h"

class REPSelect;

// {UNION | UNION ALL | INTERSECT | MINUS}(query)
// A set operation with a further query. Copies are deep.
class REPSubQuery final {
 public:
  REPSubQuery();
  ~REPSubQuery();
  REPSubQuery(REPSubQuery const& other);
  REPSubQuery& operator=(REPSubQuery const& other);

  virtual std::string AsString() const;

  void SetSubqueryType(REPSubqueryType_e type) { type_ = type; }
  REPSubqueryType_e GetSubqueryType() const { return type_; }
  void SetSubquery(REPSelect* query) { query_.Set(query); }
  REPSelect* GetSubquery() const { return query_.Get(); }
  // Hands the further query over to the caller.
  REPSelect* ReleaseSubquery() { return query_.Release(); }

 private:
  REPSubqueryType_e type_{};
  repora::Owned<REPSelect> query_;
};
