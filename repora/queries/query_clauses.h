#pragma once

#include <string>

#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPCondition;
class REPProcessor;

// The clauses of a query behind its FROM list. Copies share conditions and expressions and copy all
// else.

// What an entry of GROUP BY, or of a GROUPING SETS in it, is.
enum class REPGroupBy_e : int { None, Expression, Rollup, Cube, GroupingSets };

// How long FOR UPDATE waits; values beyond these wait like Wait.
enum class REPUpdateWait_e : int { None, NoWait, Wait };

// WHERE condition
class REPWhere final {
 public:
  REPWhere();
  ~REPWhere();
  REPWhere(REPWhere const& other);
  REPWhere& operator=(REPWhere const& other);

  virtual std::string AsString() const;
  virtual std::string GetString() const;  // the condition alone

  void SetCondition(REPCondition* condition) { condition_.Set(condition); }
  REPCondition* GetCondition() const { return condition_.Get(); }

 private:
  repora::Shared<REPCondition> condition_;
};

// [START WITH condition] CONNECT BY [NOCYCLE] [condition]
class REPHierQuery final {
 public:
  REPHierQuery();
  ~REPHierQuery();
  REPHierQuery(REPHierQuery const& other);
  REPHierQuery& operator=(REPHierQuery const& other);

  virtual std::string AsString() const;

  void SetStartCondition(REPCondition* condition) { start_.Set(condition); }
  REPCondition* GetStartCondition() const { return start_.Get(); }
  // The condition of CONNECT BY.
  void SetOnCondition(REPCondition* condition) { connect_.Set(condition); }
  REPCondition* GetOnCondition() const { return connect_.Get(); }
  void SetNoCycle(bool no_cycle) { no_cycle_ = no_cycle; }
  bool GetNoCycle() const { return no_cycle_; }

  // Writes the clause on the view, as property pairs when it replaces an earlier definition.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* view, bool replace) const;

 private:
  repora::Shared<REPCondition> start_;
  repora::Shared<REPCondition> connect_;
  bool no_cycle_ = false;
};

// expression | ROLLUP (list) | CUBE (list) | GROUPING SETS ({list | ROLLUP list | CUBE list})
class REPGroupBy final {
 public:
  virtual std::string AsString() const;

  void SetGroupBy(REPGroupBy_e kind) { kind_ = kind; }
  REPGroupBy_e GetGroupBy() const { return kind_; }
  // What GROUPING SETS holds: Expression for a plain list, Rollup or Cube.
  void SetGroupBySet(REPGroupBy_e kind) { set_kind_ = kind; }
  REPGroupBy_e GetGroupBySet() const { return set_kind_; }
  void SetExpr(REPExpr* expression) { expression_.Set(expression); }
  REPExpr* GetExpr() const { return expression_.Get(); }
  void SetExprList(REPExprList* list) { list_.Set(list); }
  REPExprList* GetExprList() const { return list_.Get(); }

 private:
  REPGroupBy_e kind_{};
  REPGroupBy_e set_kind_{};
  repora::Shared<REPExpr> expression_;
  repora::Shared<REPExprList> list_;
};

// GROUP BY entry, ... [HAVING condition]
class REPGroupByList final {
 public:
  REPGroupByList();
  ~REPGroupByList();
  REPGroupByList(REPGroupByList const& other);
  REPGroupByList& operator=(REPGroupByList const& other);

  virtual std::string GetGroupByString() const;  // the entries alone
  virtual std::string GetHavingString() const;   // the condition alone
  virtual std::string AsString() const;

  void AddHead(REPGroupBy* entry) { entries_.AddHead(entry); }
  void AddTail(REPGroupBy* entry) { entries_.AddTail(entry); }
  int GetCount() const { return entries_.GetCount(); }
  REPGroupBy* GetGroupBy(int index) const { return entries_.At(index); }
  void SetHaving(REPCondition* condition) { having_.Set(condition); }
  REPCondition* GetHaving() const { return having_.Get(); }

 private:
  repora::OwnedList<REPGroupBy> entries_;
  repora::Shared<REPCondition> having_;
};

// key [ASC | DESC] [NULLS FIRST | NULLS LAST]
class REPOrderBy final {
 public:
  virtual std::string AsString() const;

  // The sort key: a column, a position or another expression.
  void SetName(REPName* name) { name_.Set(name); }
  REPName* GetName() const { return name_.Get(); }
  void SetOrderBy(REPOrderBy_e order) { order_ = order; }
  REPOrderBy_e GetOrderBy() const { return order_; }
  void SetOrderNulls(REPOrderNulls_e nulls) { nulls_ = nulls; }
  REPOrderNulls_e GetOrderNulls() const { return nulls_; }

 private:
  repora::Owned<REPName> name_;
  REPOrderBy_e order_{};
  REPOrderNulls_e nulls_{};
};

// ORDER [SIBLINGS] BY key, ...
class REPOrderByList final {
 public:
  virtual std::string GetString() const;  // the keys alone
  virtual std::string AsString() const;

  void AddHead(REPOrderBy* key) { keys_.AddHead(key); }
  void AddTail(REPOrderBy* key) { keys_.AddTail(key); }
  int GetCount() const { return keys_.GetCount(); }
  REPOrderBy* GetOrderBy(int index) const { return keys_.At(index); }
  void SetSiblings(bool siblings) { siblings_ = siblings; }
  bool GetSiblings() const { return siblings_; }

 private:
  repora::OwnedList<REPOrderBy> keys_;
  bool siblings_ = false;
};

// FOR UPDATE [OF (columns)] [NOWAIT | WAIT [seconds]]
class REPForUpdate final {
 public:
  virtual std::string AsString() const;

  void SetUpdateWait(REPUpdateWait_e wait) { wait_ = wait; }
  REPUpdateWait_e GetUpdateWait() const { return wait_; }
  // Seconds, as the script wrote them.
  void SetWaitValue(char const* text) { wait_value_ = text; }
  char const* GetWaitValue() const { return wait_value_.c_str(); }
  void SetUpdateNames(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetUpdateNames() const { return columns_.Get(); }

 private:
  REPUpdateWait_e wait_{};
  repora::Text wait_value_;
  repora::Owned<REPNameList> columns_;
};
