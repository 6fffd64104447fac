#pragma once

#include <string>

#include "repora/core/expression.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/tables/datatype.h"

class MOXActionSummaryItem;
class REPInlineConstraintClauseList;
class REPProcessor;

// name [datatype] [DEFAULT expression] [SORT] [inline_constraint ...]
// One column of a relational table. Without a datatype in CREATE TABLE ... AS SELECT lists.
class REPRelTableColumn {
 public:
  REPRelTableColumn();
  ~REPRelTableColumn();

  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnREPName() const { return name_.Get(); }
  std::string GetColumnName() const { return repora::AsWritten(name_.Get()); }
  void SetDatatype(REPDatatype* datatype) { datatype_.Set(datatype); }
  REPDatatype* GetDatatype() const { return datatype_.Get(); }
  // The DEFAULT expression.
  void SetExpression(REPExpr* expression) { expression_.Set(expression); }
  REPExpr* GetExpression() const { return expression_.Get(); }
  void SetSort(bool sort) { sort_ = sort; }
  bool GetSort() const { return sort_; }
  void SetInlineConstraints(REPInlineConstraintClauseList* list) { constraints_.Set(list); }
  REPInlineConstraintClauseList* GetInlineConstraints() const { return constraints_.Get(); }

  // Makes the attribute. REPProcessDuplicate when the table has a column of that name, which is
  // reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  // Adds what belongs to an attribute that exists already.
  REPProcess_e ProcessDefaultsAndConstraints(REPProcessor* processor, MOXActionSummaryItem* table,
                                             REPName const* table_name,
                                             MOXActionSummaryItem* column) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPDatatype> datatype_;
  repora::Owned<REPExpr> expression_;
  bool sort_ = false;
  repora::Owned<REPInlineConstraintClauseList> constraints_;
};

// Columns in order, owned.
class REPRelTableColumnList {
 public:
  void AddHead(REPRelTableColumn* column) { columns_.AddHead(column); }
  void AddTail(REPRelTableColumn* column) { columns_.AddTail(column); }
  int GetCount() const { return columns_.GetCount(); }
  REPRelTableColumn* GetColumn(int index) const { return columns_.At(index); }

  // A duplicate column is skipped; any other failure ends the list.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::OwnedList<REPRelTableColumn> columns_;
};

// name datatype [SORT]
// A column description that only renders itself.
class REPTableColumn {
 public:
  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnREPName() const { return name_.Get(); }
  std::string GetColumnName() const { return repora::AsWritten(name_.Get()); }
  void SetDatatype(REPDatatype* datatype) { datatype_.Set(datatype); }
  REPDatatype* GetDatatype() const { return datatype_.Get(); }
  void SetSort(bool sort) { sort_ = sort; }
  bool GetSort() const { return sort_; }
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPDatatype> datatype_;
  bool sort_ = false;
};

// Column descriptions in order, owned.
class REPTableColumnList {
 public:
  void AddHead(REPTableColumn* column) { columns_.AddHead(column); }
  void AddTail(REPTableColumn* column) { columns_.AddTail(column); }
  int GetCount() const { return columns_.GetCount(); }
  REPTableColumn* GetColumn(int index) const { return columns_.At(index); }
  std::string AsString() const;

 private:
  repora::OwnedList<REPTableColumn> columns_;
};
