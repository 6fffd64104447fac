#pragma once

#include <string>
#include <string_view>

#include "repora/core/expression.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/lob_storage.h"
#include "repora/tables/datatype.h"
#include "repora/tables/object_columns.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"
#include "repora/tables/table_options.h"

class MOXActionSummaryItem;
class REPInlineConstraintClauseList;
class REPOutOfLineConstraint;
class REPOutOfLineRefConstraint;
class REPProcessor;

// What a DROP clause does to columns: drops or marks those it lists, drops those marked before, or
// goes on with a drop that was interrupted.
enum class REPDrop_e : int { None, Columns, SetUnused, UnusedColumns, ColumnsContinue };

namespace repora {

// "ADD" and what it adds with one blank between them, wherever the blank comes from: the texts of
// most constraints start with one. Empty for nothing.
std::string AddClauseText(std::string_view added);

}  // namespace repora

// name [datatype] [SORT] [DEFAULT expression] [inline_constraints]
// | out_of_line_constraint | out_of_line_ref_constraint | supplemental_logging
class REPAddColumnClause {
 public:
  REPAddColumnClause();
  ~REPAddColumnClause();

  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnName() const { return name_.Get(); }
  void SetDatatype(REPDatatype* datatype) { datatype_.Set(datatype); }
  REPDatatype* GetDatatype() const { return datatype_.Get(); }
  void SetSort(bool sort) { sort_ = sort; }
  bool GetSort() const { return sort_; }
  // The DEFAULT expression.
  void SetExpression(REPExpr* expression) { expression_.Set(expression); }
  REPExpr* GetExpression() const { return expression_.Get(); }
  void SetInlineConstraints(REPInlineConstraintClauseList* constraints) {
    inline_constraints_.Set(constraints);
  }
  REPInlineConstraintClauseList* GetInlineConstraints() const { return inline_constraints_.Get(); }
  // A clause with a constraint of either kind or supplemental logging adds that and no column.
  void SetOutOfLineConstraint(REPOutOfLineConstraint* constraint) { constraint_.Set(constraint); }
  REPOutOfLineConstraint* GetOutOfLineConstraint() const { return constraint_.Get(); }
  void SetOutOfLineRefConstraint(REPOutOfLineRefConstraint* constraint) {
    ref_constraint_.Set(constraint);
  }
  REPOutOfLineRefConstraint* GetOutOfLineRefConstraint() const { return ref_constraint_.Get(); }
  void SetSuppLogProps(REPSuppLogProps* properties) { supplemental_logging_.Set(properties); }
  REPSuppLogProps* GetSuppLogProps() const { return supplemental_logging_.Get(); }

  // A column that the table has already is an error, reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPDatatype> datatype_;
  bool sort_ = false;
  repora::Owned<REPExpr> expression_;
  repora::Owned<REPInlineConstraintClauseList> inline_constraints_;
  repora::Owned<REPOutOfLineConstraint> constraint_;
  repora::Owned<REPOutOfLineRefConstraint> ref_constraint_;
  repora::Owned<REPSuppLogProps> supplemental_logging_;
};

// ADD {clause | (clause, ...)} [column_property ...]
class REPAddColumnClauseList : public repora::ClauseList<REPAddColumnClause> {
 public:
  // How columns that are added are stored.
  void SetColumnPropList(REPTableColumnPropList* list) { column_properties_.Set(list); }
  REPTableColumnPropList* GetColumnPropList() const { return column_properties_.Get(); }

  // This and the lists below end at the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPTableColumnPropList> column_properties_;
};

// name [datatype] [DEFAULT expression] [inline_constraints] [lob_storage]
// | COLUMN name [NOT] SUBSTITUTABLE AT ALL LEVELS [FORCE]
class REPModifyColumnClause {
 public:
  REPModifyColumnClause();
  ~REPModifyColumnClause();

  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnName() const { return name_.Get(); }
  void SetDatatype(REPDatatype* datatype) { datatype_.Set(datatype); }
  REPDatatype* GetDatatype() const { return datatype_.Get(); }
  // The DEFAULT expression.
  void SetExpression(REPExpr* expression) { expression_.Set(expression); }
  REPExpr* GetExpression() const { return expression_.Get(); }
  void SetInlineConstraints(REPInlineConstraintClauseList* constraints) {
    inline_constraints_.Set(constraints);
  }
  REPInlineConstraintClauseList* GetInlineConstraints() const { return inline_constraints_.Get(); }
  void SetLOBStorage(REPLOBStorage* storage) { lob_storage_.Set(storage); }
  REPLOBStorage* GetLOBStorage() const { return lob_storage_.Get(); }
  // Rendered only.
  void SetSubstitutable(REPSubstitutable_e substitutable) { substitutable_ = substitutable; }
  REPSubstitutable_e GetSubstitutable() const { return substitutable_; }

  // What the clause does not give stays as the column has it.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPDatatype> datatype_;
  repora::Owned<REPExpr> expression_;
  repora::Owned<REPInlineConstraintClauseList> inline_constraints_;
  repora::Owned<REPLOBStorage> lob_storage_;
  REPSubstitutable_e substitutable_{};
};

// MODIFY clause | MODIFY(clause, ...)
class REPModifyColumnClauseList : public repora::ClauseList<REPModifyColumnClause> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;
};

// {DROP (column, ...) | SET UNUSED (column, ...) | DROP UNUSED COLUMNS | DROP COLUMNS CONTINUE}
//   [CASCADE CONSTRAINTS] [INVALIDATE] [CHECKPOINT n]
class REPDropColumnClause {
 public:
  void SetDrop(REPDrop_e drop) { drop_ = drop; }
  REPDrop_e GetDrop() const { return drop_; }
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  void SetCascade(bool cascade) { cascade_ = cascade; }
  bool GetCascade() const { return cascade_; }
  void SetInvalidate(bool invalidate) { invalidate_ = invalidate; }
  bool GetInvalidate() const { return invalidate_; }
  void SetCheckpoint(char const* text) { checkpoint_ = text; }
  char const* GetCheckpoint() const { return checkpoint_.c_str(); }

  // Columns are never taken out of the model: always REPProcessError, reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  REPDrop_e drop_{};
  repora::Owned<REPNameList> columns_;
  bool cascade_ = false;
  bool invalidate_ = false;
  repora::Text checkpoint_;
};

// DROP clauses in order, owned.
class REPDropColumnClauseList : public repora::ClauseList<REPDropColumnClause> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString() const;
};

// RENAME COLUMN old TO new
class REPRenameColumnClause {
 public:
  void SetOldName(REPName* name) { old_name_.Set(name); }
  REPName* GetOldName() const { return old_name_.Get(); }
  void SetNewName(REPName* name) { new_name_.Set(name); }
  REPName* GetNewName() const { return new_name_.Get(); }

  // The column, the keys it is a member of and later look-ups take the new name.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> old_name_;
  repora::Owned<REPName> new_name_;
};

// RENAME COLUMN clauses in order, owned.
class REPRenameColumnClauseList : public repora::ClauseList<REPRenameColumnClause> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;
};

// [add_list] [modify_list] [drop_list] [rename_list] [modify_collection_list]
//   [modify_lob_storage_list] [alter_varray_list]
class REPAlterColumnClauses {
 public:
  void SetAddColumnClauseList(REPAddColumnClauseList* list) { add_.Set(list); }
  REPAddColumnClauseList* GetAddColumnClauseList() const { return add_.Get(); }
  void SetModifyColumnClauseList(REPModifyColumnClauseList* list) { modify_.Set(list); }
  REPModifyColumnClauseList* GetModifyColumnClauseList() const { return modify_.Get(); }
  void SetDropColumnClauseList(REPDropColumnClauseList* list) { drop_.Set(list); }
  REPDropColumnClauseList* GetDropColumnClauseList() const { return drop_.Get(); }
  void SetRenameColumnClauseList(REPRenameColumnClauseList* list) { rename_.Set(list); }
  REPRenameColumnClauseList* GetRenameColumnClauseList() const { return rename_.Get(); }

  // Rendered only.
  void SetModifyCollectionClauseList(REPModifyCollectionClauseList* list) {
    modify_collections_.Set(list);
  }
  REPModifyCollectionClauseList* GetModifyCollectionClauseList() const {
    return modify_collections_.Get();
  }
  void SetModifyLOBStorageClauseList(REPModifyLOBStorageClauseList* list) {
    modify_lobs_.Set(list);
  }
  REPModifyLOBStorageClauseList* GetModifyLOBStorageClauseList() const {
    return modify_lobs_.Get();
  }
  // Rendered only.
  void SetAlterVarrayClauseList(REPAlterVarrayClauseList* list) { alter_varrays_.Set(list); }
  REPAlterVarrayClauseList* GetAlterVarrayClauseList() const { return alter_varrays_.Get(); }

  // The lists in this order, up to the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  repora::Owned<REPAddColumnClauseList> add_;
  repora::Owned<REPModifyColumnClauseList> modify_;
  repora::Owned<REPDropColumnClauseList> drop_;
  repora::Owned<REPRenameColumnClauseList> rename_;
  repora::Owned<REPModifyCollectionClauseList> modify_collections_;
  repora::Owned<REPModifyLOBStorageClauseList> modify_lobs_;
  repora::Owned<REPAlterVarrayClauseList> alter_varrays_;
};
