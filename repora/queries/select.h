#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPForUpdate;
class REPGroupByList;
class REPHierQuery;
class REPOrderByList;
class REPProcessor;
class REPSubQuery;
class REPTableRef;
class REPTableRefList;
class REPWhere;

// name [AS alias], ...
// The entries of a select list. A name is a column, an expression (REPName::IsExpression), or a
// wildcard: its last part is "*".
class REPSelectList final {
 public:
  virtual std::string AsString() const;

  // Takes ownership of both; the alias is null when there is none.
  void AddName(REPName* name, REPName* alias) {
    names_.AddTail(name);
    aliases_.AddTail(alias);
  }
  REPName* GetName(int index) const { return names_.At(index); }
  REPName* GetAlias(int index) const { return aliases_.At(index); }
  int GetCount() const { return names_.GetCount(); }

 private:
  repora::OwnedList<REPName, repora::NullElements::Kept> names_;
  repora::OwnedList<REPName, repora::NullElements::Kept> aliases_;
};

// [WITH ...] SELECT [ALL | UNIQUE | DISTINCT] {list | *} FROM tables [WHERE condition]
//   [[START WITH condition] CONNECT BY condition] [GROUP BY list] [set operation] [ORDER BY list]
//   [FOR UPDATE]
// A query. It is never run: it renders itself, says whether a view of it can be modelled column by
// column, and finds what its tables and columns are among the items of a run. What it found it
// keeps. Chains of set operations may be as long as memory allows; only copying them recurses.
class REPSelect final {
 public:
  // A column of the result.
  struct ColInfo_s {
    std::string column;             // its name or expression
    std::string alias;              // empty: none
    std::uint32_t attribute_id{};   // what it shows; 0 for an expression
    unsigned char is_expression{};  // 1: an expression
  };

  REPSelect();
  ~REPSelect();
  REPSelect(REPSelect const& other);
  REPSelect& operator=(REPSelect const& other);

  virtual std::string AsString() const;

  void SetSelectOpt(REPSelectOpt_e option) { option_ = option; }
  REPSelectOpt_e GetSelectOpt() const { return option_; }
  // The factoring clause, WITH included.
  void SetFactor(char const* text) { factor_ = text; }
  char const* GetFactor() const { return factor_.c_str(); }
  // Null stands for *.
  void SetSelectList(REPSelectList* list) { list_.Set(list); }
  REPSelectList* GetSelectList() const { return list_.Get(); }
  void SetTableRefList(REPTableRefList* tables) { tables_.Set(tables); }
  REPTableRefList* GetTableRefList() const { return tables_.Get(); }
  void SetWhere(REPWhere* clause) { where_.Set(clause); }
  REPWhere* GetWhere() const { return where_.Get(); }
  void SetHierQuery(REPHierQuery* clause) { hierarchy_.Set(clause); }
  REPHierQuery* GetHierQuery() const { return hierarchy_.Get(); }
  void SetGroupByList(REPGroupByList* list) { group_by_.Set(list); }
  REPGroupByList* GetGroupByList() const { return group_by_.Get(); }
  void SetSubQuery(REPSubQuery* operation) { set_operation_.Set(operation); }
  REPSubQuery* GetSubQuery() const { return set_operation_.Get(); }
  void SetOrderByList(REPOrderByList* list) { order_by_.Set(list); }
  REPOrderByList* GetOrderByList() const { return order_by_.Get(); }
  void SetForUpdate(REPForUpdate* clause) { for_update_.Set(clause); }
  REPForUpdate* GetForUpdate() const { return for_update_.Get(); }
  // The whole query, where it holds more than the clauses can. It renders as this text, and a view
  // of it counts as one that cannot be modelled column by column.
  void SetText(char const* text) { text_ = text; }
  char const* GetText() const { return text_.c_str(); }

  // The texts of the clauses without their keywords; empty when there is no such clause.
  std::string GetWhereString() const;
  std::string GetGroupByString() const;
  std::string GetHavingString() const;
  std::string GetOrderByString() const;

  // A set operation, a join, a database link, a factoring clause, or an inline subquery; the last
  // is known once the FROM list was processed.
  bool IsUnionOrJoin() const;
  bool ContainsWildcard() const;
  bool ContainsFlashbackQuery() const;

  // Finds the tables of the FROM list. For a view each gets a relationship to it, and an unknown
  // one a warning and a placeholder; with map_only nothing is created and an unknown table is a
  // failure. Names without an owner are looked up under the default owner first; null or empty:
  // there is none. All entries are processed; the result is the first failure.
  REPProcess_e ProcessTableList(REPProcessor* processor, MOXActionSummaryItem* view,
                                char const* default_owner, bool map_only);
  REPProcess_e LinkTableRef(REPProcessor* processor, MOXActionSummaryItem* view, REPTableRef* table,
                            char const* default_owner, bool map_only);
  // The left and then the right side of a join, up to the first failure.
  REPProcess_e ProcessJoinTableRef(REPProcessor* processor, MOXActionSummaryItem* view,
                                   REPTableRef* table, char const* default_owner, bool map_only);
  // A name that is there already keeps what it stands for.
  void InsertTableIntoMap(REPName* name, unsigned int table_id, unsigned int relationship_id);
  // Makes the columns of a view whose tables were found. What the view replaces is written as
  // property pairs.
  REPProcess_e ProcessColsForView(REPProcessor* processor, MOXActionSummaryItem* view,
                                  bool replace);

  // The columns of the result for CREATE TABLE ... AS SELECT: wildcards are expanded, those over an
  // inline query to its columns, and a name that no table has is listed as an expression. A
  // wildcard over a collection is a failure, as its columns are not known.
  REPProcess_e BuildColList(REPProcessor* processor, char const* default_owner);
  // Builds the list if need be; -1 when that fails, 0 without a select list.
  int CountCols(REPProcessor* processor, char const* default_owner);
  // Null outside 0 to the count - 1.
  ColInfo_s* ColListGetAt(int index);

 private:
  // A table of the FROM list and the relationship that leads to it.
  struct Table {
    std::uint32_t id = 0;
    std::uint32_t relationship = 0;
  };
  struct ViewColumns;
  struct ColumnList;

  std::string HeadText() const;
  std::string TailText() const;
  REPProcess_e ProcessTableRef(REPProcessor* processor, MOXActionSummaryItem* view,
                               REPTableRef* table, char const* default_owner, bool map_only);
  void WriteSelectType(REPProcessor* processor, MOXActionSummaryItem* view, bool replace) const;
  REPProcess_e AddViewColumn(ViewColumns const& view, int position,
                             MOXActionSummaryItem*& column) const;
  void LinkViewColumn(ViewColumns const& view, REPName const& name,
                      MOXActionSummaryItem& column) const;
  REPProcess_e AddColInfo(ColumnList& list, REPName const& name, REPName const* alias) const;
  REPProcess_e AddAllColInfos(ColumnList& list) const;
  std::vector<std::uint32_t> DistinctTables() const;
  std::vector<Table> TablesInKeyOrder() const;

  REPSelectOpt_e option_{};
  repora::Text factor_;
  repora::Owned<REPSelectList> list_;
  repora::Owned<REPTableRefList> tables_;
  repora::Owned<REPWhere> where_;
  repora::Owned<REPHierQuery> hierarchy_;
  repora::Owned<REPGroupByList> group_by_;
  repora::Owned<REPSubQuery> set_operation_;
  repora::Owned<REPOrderByList> order_by_;
  repora::Owned<REPForUpdate> for_update_;
  repora::Text text_;
  std::map<std::string, Table> table_map_;  // by map name
  std::vector<ColInfo_s> columns_;
  bool from_has_subquery_ = false;
};
