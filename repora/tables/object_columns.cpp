#include "repora/tables/object_columns.h"

#include "repora/core/sql_text.h"
#include "repora/storage/physical_props.h"
#include "repora/tables/constraints.h"
#include "repora/tables/supplemental_logging.h"
#include "repora/tables/table_column_props.h"

using repora::SqlText;
using repora::TextOf;

std::string REPSubstitutable::AsString() const {
  if (type_)
    return SqlText()
        .AppendIf(element_, "ELEMENT ")
        .Append("IS OF TYPE (ONLY ")
        .Name(type_.Get())
        .Append(")")
        .Take();
  switch (substitutable_) {
    case REPSubstitutable_e::Substitutable: return "SUBSTITUTABLE AT ALL LEVELS";
    case REPSubstitutable_e::NotSubstitutable: return "NOT SUBSTITUTABLE AT ALL LEVELS";
    default: return {};
  }
}

std::string REPObjectColumnProps::AsString() const {
  return SqlText("COLUMN ").Name(name_.Get()).Option(TextOf(substitutable_.Get())).Take();
}

REPObjectProps::REPObjectProps() = default;

REPObjectProps::~REPObjectProps() = default;

std::string REPObjectProps::AsString() const {
  SqlText sql;
  sql.Part(repora::AsWritten(name_.Get()));
  if (expression_) sql.Part("DEFAULT ").Append(expression_->AsString());
  return sql.Part(TextOf(inline_constraints_.Get()))
      .Part(TextOf(constraints_.Get()))
      .Part(TextOf(ref_constraints_.Get()))
      .Part(TextOf(supplemental_logging_.Get()))
      .Take();
}

std::string REPObjectPropsList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}

REPNestedColumnProps::REPNestedColumnProps() = default;

REPNestedColumnProps::~REPNestedColumnProps() = default;

std::string REPNestedColumnProps::AsString() const {
  SqlText properties;
  if (object_properties_) properties.Part(object_properties_->AsString(true));
  properties.Part(TextOf(physical_properties_.Get()));
  if (column_properties_) properties.Part(column_properties_->AsString(false));
  auto const inside = properties.Take();
  SqlText sql("NESTED TABLE ");
  sql.Name(item_.Get())
      .Option(TextOf(substitutable_.Get()))
      .Append(" STORE AS ")
      .Name(storage_table_.Get());
  if (!inside.empty()) sql.Append(" (").Append(inside).Append(")");
  return sql.Clause(" RETURN AS ", repora::Keyword(return_as_)).Take();
}

std::string REPVarrayColumnProps::AsString() const {
  SqlText sql("VARRAY ");
  sql.Name(item_.Get()).Option(TextOf(substitutable_.Get()));
  if (segment_ || parameters_)
    sql.Append(" STORE AS LOB").Clause(" ", segment_.Get()).Option(TextOf(parameters_.Get()));
  return sql.Take();
}

std::string REPVarrayColumnPropsList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}

std::string REPModifyCollectionClause::AsString() const {
  return SqlText("MODIFY NESTED TABLE ")
      .Name(item_.Get())
      .Clause(" RETURN AS ", repora::Keyword(return_as_))
      .Take();
}

std::string REPModifyCollectionClauseList::AsString() const {
  return Join(" ", false);
}

std::string REPAlterVarrayClause::AsString() const {
  SqlText sql("MODIFY VARRAY ");
  sql.Name(item_.Get());
  if (parameters_) sql.Append(" (").Append(parameters_->AsString()).Append(")");
  return sql.Take();
}

std::string REPAlterVarrayClauseList::AsString() const {
  return Join(" ", false);
}
