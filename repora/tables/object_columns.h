#pragma once

#include <string>

#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/storage/lob_storage.h"
#include "repora/tables/table_options.h"

class REPInlineConstraintClauseList;
class REPOutOfLineConstraintList;
class REPOutOfLineRefConstraintList;
class REPPhysicalProps;
class REPSuppLogPropsList;
class REPTableColumnPropList;

// The clauses on columns of object, nested table and varray types. The model has no place for
// them: they are rendered only.

// [ELEMENT] IS OF TYPE (ONLY type) | [NOT] SUBSTITUTABLE AT ALL LEVELS
class REPSubstitutable {
 public:
  // The form with FORCE is not one of this clause and renders as nothing.
  void SetSubstitutable(REPSubstitutable_e substitutable) { substitutable_ = substitutable; }
  REPSubstitutable_e GetSubstitutable() const { return substitutable_; }
  void SetElement(bool element) { element_ = element; }
  bool GetElement() const { return element_; }
  // The only type there may be; it decides for the form IS OF.
  void SetType(REPName* type) { type_.Set(type); }
  REPName* GetType() const { return type_.Get(); }

  std::string AsString() const;

 private:
  REPSubstitutable_e substitutable_{};
  bool element_ = false;
  repora::Owned<REPName> type_;
};

// COLUMN name substitutable
class REPObjectColumnProps {
 public:
  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnName() const { return name_.Get(); }
  void SetSubstitutable(REPSubstitutable* substitutable) { substitutable_.Set(substitutable); }
  REPSubstitutable* GetSubstitutable() const { return substitutable_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPSubstitutable> substitutable_;
};

// name [DEFAULT expression] [inline_constraints] | out_of_line_constraints
// | out_of_line_ref_constraints | supplemental_logging
class REPObjectProps {
 public:
  REPObjectProps();
  ~REPObjectProps();

  void SetColumnName(REPName* name) { name_.Set(name); }
  REPName* GetColumnName() const { return name_.Get(); }
  // The DEFAULT expression.
  void SetExpression(REPExpr* expression) { expression_.Set(expression); }
  REPExpr* GetExpression() const { return expression_.Get(); }
  void SetInlineConstraints(REPInlineConstraintClauseList* constraints) {
    inline_constraints_.Set(constraints);
  }
  REPInlineConstraintClauseList* GetInlineConstraints() const { return inline_constraints_.Get(); }
  void SetOutOfLineConstraints(REPOutOfLineConstraintList* constraints) {
    constraints_.Set(constraints);
  }
  REPOutOfLineConstraintList* GetOutOfLineConstraints() const { return constraints_.Get(); }
  void SetOutOfLineRefConstraints(REPOutOfLineRefConstraintList* constraints) {
    ref_constraints_.Set(constraints);
  }
  REPOutOfLineRefConstraintList* GetOutOfLineRefConstraints() const {
    return ref_constraints_.Get();
  }
  void SetSuppLogProps(REPSuppLogPropsList* properties) { supplemental_logging_.Set(properties); }
  REPSuppLogPropsList* GetSuppLogProps() const { return supplemental_logging_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPExpr> expression_;
  repora::Owned<REPInlineConstraintClauseList> inline_constraints_;
  repora::Owned<REPOutOfLineConstraintList> constraints_;
  repora::Owned<REPOutOfLineRefConstraintList> ref_constraints_;
  repora::Owned<REPSuppLogPropsList> supplemental_logging_;
};

// Object properties in order, owned.
class REPObjectPropsList : public repora::ClauseList<REPObjectProps> {
 public:
  std::string AsString(bool parenthesised = false) const;
};

// NESTED TABLE item [substitutable] STORE AS table
//   [([(object_properties)] [physical_properties] [column_properties])]
//   [RETURN AS {LOCATOR | VALUE}]
class REPNestedColumnProps {
 public:
  REPNestedColumnProps();
  ~REPNestedColumnProps();

  // The column or attribute of a nested table type, or COLUMN_VALUE.
  void SetNestedItem(REPName* item) { item_.Set(item); }
  REPName* GetNestedItem() const { return item_.Get(); }
  void SetStorageTable(REPName* table) { storage_table_.Set(table); }
  REPName* GetStorageTable() const { return storage_table_.Get(); }
  void SetReturnAs(REPReturnAs_e return_as) { return_as_ = return_as; }
  REPReturnAs_e GetReturnAs() const { return return_as_; }
  void SetSubstitutable(REPSubstitutable* substitutable) { substitutable_.Set(substitutable); }
  REPSubstitutable* GetSubstitutable() const { return substitutable_.Get(); }
  void SetObjectProps(REPObjectPropsList* properties) { object_properties_.Set(properties); }
  REPObjectPropsList* GetObjectProps() const { return object_properties_.Get(); }
  void SetPhysicalProps(REPPhysicalProps* properties) { physical_properties_.Set(properties); }
  REPPhysicalProps* GetPhysicalProps() const { return physical_properties_.Get(); }
  void SetColumnProps(REPTableColumnPropList* properties) { column_properties_.Set(properties); }
  REPTableColumnPropList* GetColumnProps() const { return column_properties_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> item_;
  repora::Owned<REPName> storage_table_;
  REPReturnAs_e return_as_{};
  repora::Owned<REPSubstitutable> substitutable_;
  repora::Owned<REPObjectPropsList> object_properties_;
  repora::Owned<REPPhysicalProps> physical_properties_;
  repora::Owned<REPTableColumnPropList> column_properties_;
};

// VARRAY item [substitutable] [STORE AS LOB [segment] [lob_parameters]]
class REPVarrayColumnProps {
 public:
  void SetVarrayItem(REPName* item) { item_.Set(item); }
  REPName* GetVarrayItem() const { return item_.Get(); }
  void SetSubstitutable(REPSubstitutable* substitutable) { substitutable_.Set(substitutable); }
  REPSubstitutable* GetSubstitutable() const { return substitutable_.Get(); }
  void SetSegName(REPName* name) { segment_.Set(name); }
  REPName* GetSegName() const { return segment_.Get(); }
  void SetLOBParameters(REPLOBParameters* parameters) { parameters_.Set(parameters); }
  REPLOBParameters* GetLOBParameters() const { return parameters_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> item_;
  repora::Owned<REPSubstitutable> substitutable_;
  repora::Owned<REPName> segment_;
  repora::Owned<REPLOBParameters> parameters_;
};

// Varray properties in order, owned.
class REPVarrayColumnPropsList : public repora::ClauseList<REPVarrayColumnProps> {
 public:
  std::string AsString(bool parenthesised = false) const;
};

// MODIFY NESTED TABLE item RETURN AS {LOCATOR | VALUE}
class REPModifyCollectionClause {
 public:
  void SetCollectionItem(REPName* item) { item_.Set(item); }
  REPName* GetCollectionItem() const { return item_.Get(); }
  void SetLocator(REPReturnAs_e return_as) { return_as_ = return_as; }
  REPReturnAs_e GetLocator() const { return return_as_; }

  std::string AsString() const;

 private:
  repora::Owned<REPName> item_;
  REPReturnAs_e return_as_{};
};

// Changes of nested tables in order, owned.
class REPModifyCollectionClauseList : public repora::ClauseList<REPModifyCollectionClause> {
 public:
  std::string AsString() const;
};

// MODIFY VARRAY item (modify_lob_parameters)
class REPAlterVarrayClause {
 public:
  void SetVarrayItem(REPName* item) { item_.Set(item); }
  REPName* GetVarrayItem() const { return item_.Get(); }
  void SetLOBParameters(REPModifyLOBParameters* parameters) { parameters_.Set(parameters); }
  REPModifyLOBParameters* GetLOBParameters() const { return parameters_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> item_;
  repora::Owned<REPModifyLOBParameters> parameters_;
};

// Changes of varrays in order, owned.
class REPAlterVarrayClauseList : public repora::ClauseList<REPAlterVarrayClause> {
 public:
  std::string AsString() const;
};
