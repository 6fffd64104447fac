#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"

class REPCondition;
class REPJoinedTable;
class REPSelect;

// The entries of a FROM list. Copies share conditions and copy all else.

// What an entry of a FROM list is.
enum class REPTableRef_e : int {
  None,
  QueryTableExpr,     // a table, a subquery, a collection
  Only,               // ONLY(query table expression)
  Joined,             // left JOIN right
  ParenthesisedJoin,  // (left JOIN right)
};

// WITH behind the query of a view or of a FROM list. CheckConstraint belongs to views; subqueries
// of a FROM list say it with CheckOption and a constraint text.
enum class REPSubqueryRestrict_e : int { None, ReadOnly, CheckOption, CheckConstraint };

// SAMPLE [BLOCK](percent) [SEED(seed)]
class REPSampleClause final {
 public:
  virtual std::string AsString() const;

  void SetBlock(bool block) { block_ = block; }
  bool GetBlock() const { return block_; }
  void SetSamplePercent(char const* text) { percent_ = text; }
  char const* GetSamplePercent() const { return percent_.c_str(); }
  void SetSeedValue(char const* text) { seed_ = text; }
  char const* GetSeedValue() const { return seed_.c_str(); }

 private:
  bool block_ = false;
  repora::Text percent_;
  repora::Text seed_;
};

// [VERSIONS BETWEEN {SCN | TIMESTAMP} lower AND upper] [AS OF {SCN | TIMESTAMP} (value)]
class REPFlashbackClause final {
 public:
  virtual std::string AsString() const;

  // VERSIONS BETWEEN SCN; otherwise TIMESTAMP.
  void SetTimestampTypeSCN(bool scn) { versions_scn_ = scn; }
  bool GetTimestampTypeSCN() const { return versions_scn_; }
  void SetMinValue(char const* text) { lower_ = text; }
  char const* GetMinValue() const { return lower_.c_str(); }
  void SetMaxValue(char const* text) { upper_ = text; }
  char const* GetMaxValue() const { return upper_.c_str(); }
  // AS OF SCN; otherwise TIMESTAMP.
  void SetAsOfTimestampTypeSCN(bool scn) { as_of_scn_ = scn; }
  bool GetAsOfTimestampTypeSCN() const { return as_of_scn_; }
  void SetAsOfTimestamp(char const* text) { as_of_ = text; }
  char const* GetAsOfTimestamp() const { return as_of_.c_str(); }

 private:
  bool versions_scn_ = false;
  repora::Text lower_;
  repora::Text upper_;
  bool as_of_scn_ = false;
  repora::Text as_of_;
};

// name [@ link | [PARTITION (name)] [SUBPARTITION (name)] [sample]]
// | TABLE(expression)[(+)] | (query [WITH {READ ONLY | CHECK OPTION [CONSTRAINT name]}])
class REPQueryTableExpr final {
 public:
  REPQueryTableExpr();
  ~REPQueryTableExpr();
  REPQueryTableExpr(REPQueryTableExpr const& other);
  REPQueryTableExpr& operator=(REPQueryTableExpr const& other);

  virtual std::string AsString(bool in_join) const;

  // A table, view or materialized view; null for subqueries and collections.
  void SetQueryName(REPName* name) { name_.Set(name); }
  REPName* GetQueryName() const { return name_.Get(); }
  void SetDBLink(REPName* link) { link_.Set(link); }
  REPName* GetDBLink() const { return link_.Get(); }
  void SetPartition(REPName* name) { partition_.Set(name); }
  REPName* GetPartition() const { return partition_.Get(); }
  void SetSubpartition(REPName* name) { subpartition_.Set(name); }
  REPName* GetSubpartition() const { return subpartition_.Get(); }
  void SetSampleClause(REPSampleClause* clause) { sample_.Set(clause); }
  REPSampleClause* GetSampleClause() const { return sample_.Get(); }
  // The expression of TABLE(expression).
  void SetCollection(char const* text) { collection_ = text; }
  char const* GetCollection() const { return collection_.c_str(); }
  void SetCollectionPlus(bool outer_join) { collection_plus_ = outer_join; }
  bool GetCollectionPlus() const { return collection_plus_; }
  void SetSubquery(REPSelect* query) { query_.Set(query); }
  REPSelect* GetSubQuery() const { return query_.Get(); }
  void SetSubqueryRestrict(REPSubqueryRestrict_e restriction) { restriction_ = restriction; }
  REPSubqueryRestrict_e GetSubqueryRestrict() const { return restriction_; }
  void SetSubqueryConstraint(char const* text) { constraint_ = text; }
  char const* GetSubqueryConstraint() const { return constraint_.c_str(); }

 private:
  std::string SubqueryText() const;

  repora::Owned<REPName> name_;
  repora::Owned<REPName> link_;
  repora::Owned<REPName> partition_;
  repora::Owned<REPName> subpartition_;
  repora::Owned<REPSampleClause> sample_;
  repora::Text collection_;
  bool collection_plus_ = false;
  repora::Owned<REPSelect> query_;
  REPSubqueryRestrict_e restriction_{};
  repora::Text constraint_;
};

// {query table expression | ONLY(query table expression)} [flashback] [alias]
// | joined table | (joined table)
class REPTableRef final {
 public:
  REPTableRef();
  ~REPTableRef();
  REPTableRef(REPTableRef const& other);
  REPTableRef& operator=(REPTableRef const& other);

  virtual std::string AsString(bool in_join) const;

  void SetTableRef(REPTableRef_e kind) { kind_ = kind; }
  REPTableRef_e GetTable_e() const { return kind_; }
  void SetQueryTableExpr(REPQueryTableExpr* expression) { expression_.Set(expression); }
  REPQueryTableExpr* GetQueryTableExpr() const { return expression_.Get(); }
  void SetFlashback(REPFlashbackClause* clause) { flashback_.Set(clause); }
  REPFlashbackClause* GetFlashback() const { return flashback_.Get(); }
  void SetAliasName(REPName* alias) { alias_.Set(alias); }
  REPName* GetAliasName() const { return alias_.Get(); }
  void SetJoinedTable(REPJoinedTable* table) { joined_.Set(table); }
  REPJoinedTable* GetJoinedTable() const { return joined_.Get(); }

 private:
  REPTableRef_e kind_{};
  repora::Owned<REPQueryTableExpr> expression_;
  repora::Owned<REPFlashbackClause> flashback_;
  repora::Owned<REPName> alias_;
  repora::Owned<REPJoinedTable> joined_;
};

// Nothing: the place that the object model keeps for a grouped table of a join.
class REPGroupedTableClause final {
 public:
  virtual std::string AsString() const { return {}; }
};

// left {JOIN | ...} right [ON condition] [USING(columns)]
class REPJoinedTable final {
 public:
  REPJoinedTable();
  ~REPJoinedTable();
  REPJoinedTable(REPJoinedTable const& other);
  REPJoinedTable& operator=(REPJoinedTable const& other);

  // Empty without a left table.
  virtual std::string AsString() const;

  void SetJoinType(REPJoinType_e type) { type_ = type; }
  REPJoinType_e GetJoinType() const { return type_; }
  void SetLeftTableRef(REPTableRef* table) { left_.Set(table); }
  REPTableRef* GetLeftTable() const { return left_.Get(); }
  void SetRightTableRef(REPTableRef* table) { right_.Set(table); }
  REPTableRef* GetRightTable() const { return right_.Get(); }
  void SetLeftGroupedClause(REPGroupedTableClause* clause) { left_grouped_.Set(clause); }
  REPGroupedTableClause* GetLeftGroupedClause() const { return left_grouped_.Get(); }
  void SetRightGroupedClause(REPGroupedTableClause* clause) { right_grouped_.Set(clause); }
  REPGroupedTableClause* GetRightGroupedClause() const { return right_grouped_.Get(); }
  void SetOnCondition(REPCondition* condition) { on_.Set(condition); }
  REPCondition* GetOnCondition() const { return on_.Get(); }
  void SetUsingColumns(REPNameList* columns) { using_.Set(columns); }
  REPNameList* GetUsingColumns() const { return using_.Get(); }

 private:
  REPJoinType_e type_{};
  repora::Owned<REPTableRef> left_;
  repora::Owned<REPTableRef> right_;
  repora::Owned<REPGroupedTableClause> left_grouped_;
  repora::Owned<REPGroupedTableClause> right_grouped_;
  repora::Shared<REPCondition> on_;
  repora::Owned<REPNameList> using_;
};

// The entries of a FROM list in order, owned.
class REPTableRefList final {
 public:
  virtual std::string AsString() const;

  void AddHead(REPTableRef* table) { tables_.AddHead(table); }
  void AddTail(REPTableRef* table) { tables_.AddTail(table); }
  int GetCount() const { return tables_.GetCount(); }
  REPTableRef* GetTableRef(int index) const { return tables_.At(index); }

 private:
  repora::OwnedList<REPTableRef> tables_;
};
