#include "repora/core/sql_text.h"
#include "repora/queries/select.h"
#include "repora/queries/views.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// The columns of a view and its constraints, separated by ", ".
std::string JoinColumns(std::string const& columns, REPOutOfLineConstraintList const& constraints) {
  SqlText sql;
  if (!columns.empty()) sql.Part(columns, ", ");
  if (constraints.GetCount() > 0) sql.Part(constraints.AsString(), ", ");
  return sql.Take();
}

std::string ObjectIdentifierText(REPNameList const* names) {
  return " WITH OBJECT IDENTIFIER" + (names ? names->AsString(true) : std::string(" DEFAULT"));
}

}  // namespace

std::string repora::NamedViewColumn::AsString() const {
  SqlText sql;
  sql.Name(name_.Get());
  if (constraints_) sql.Append(" ").Append(constraints_->AsString());
  return sql.Take();
}

std::string REPViewAliasList::AsString() const {
  return aliases_.Join(", ", false, [](REPViewAlias const& alias) { return alias.AsString(); });
}

std::string REPViewAttributeList::AsString() const {
  return attributes_.Join(", ", false,
                          [](REPViewAttribute const& attribute) { return attribute.AsString(); });
}

std::string REPObjectViewClause::AsString() const {
  SqlText sql("OF ");
  sql.Name(type_.Get());
  if (super_view_)
    sql.Append(" UNDER ").Name(super_view_.Get());
  else
    sql.Append(ObjectIdentifierText(identifier_.Get()));
  auto const columns = JoinColumns(attributes_.AsString(), constraints_);
  if (!columns.empty()) sql.Append(" (").Append(columns).Append(")");
  return sql.Take();
}

std::string REPXmlTypeViewClause::AsString() const {
  return SqlText("OF XMLTYPE")
      .Clause(" XMLSCHEMA ", schema_url_)
      .Clause(" ELEMENT ", element_)
      .Append(ObjectIdentifierText(identifier_.Get()))
      .Take();
}

std::string REPCreateView::AsString() const {
  SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ")
      .AppendIf(force_ == REPViewForce_e::NoForce, "NOFORCE ")
      .AppendIf(force_ == REPViewForce_e::Force, "FORCE ")
      .Append("VIEW ")
      .Name(name_.Get());
  if (object_view_) {
    sql.Option(object_view_->AsString());
  } else if (xml_view_) {
    sql.Option(xml_view_->AsString());
  } else if (aliases_.GetCount() > 0 || constraints_.GetCount() > 0) {
    sql.Append(" (").Append(JoinColumns(aliases_.AsString(), constraints_)).Append(")");
  }
  if (query_) sql.Append(" AS ").Append(query_->AsString());
  switch (restriction_) {
    case REPSubqueryRestrict_e::None: break;
    case REPSubqueryRestrict_e::ReadOnly: sql.Append(" WITH READ ONLY"); break;
    case REPSubqueryRestrict_e::CheckOption: sql.Append(" WITH CHECK OPTION"); break;
    case REPSubqueryRestrict_e::CheckConstraint:
      sql.Append(" WITH CHECK OPTION CONSTRAINT ").Name(restriction_name_.Get());
      break;
  }
  return sql.Take();
}

std::string REPAlterView::AsString() const {
  SqlText sql("ALTER VIEW ");
  if (name_) sql.Name(name_.Get()).Append(" ");
  switch (kind_) {
    case REPAlterView_e::None: break;
    case REPAlterView_e::AddConstraint: sql.Append("ADD ").Append(TextOf(constraint_.Get())); break;
    case REPAlterView_e::ModifyConstraintRely:
      sql.Append("MODIFY CONSTRAINT ").Name(constraint_name_.Get()).Append(" RELY");
      break;
    case REPAlterView_e::ModifyConstraintNoRely:
      sql.Append("MODIFY CONSTRAINT ").Name(constraint_name_.Get()).Append(" NORELY");
      break;
    case REPAlterView_e::DropConstraint:
      sql.Append("DROP CONSTRAINT ").Name(constraint_name_.Get());
      break;
    case REPAlterView_e::DropPrimaryKey: sql.Append("DROP PRIMARY KEY"); break;
    case REPAlterView_e::DropUnique:
      sql.Append("DROP UNIQUE ");
      if (columns_) sql.Append(columns_->AsString(true));
      break;
    case REPAlterView_e::Compile: sql.Append("COMPILE"); break;
  }
  return sql.Append(";").Take();
}
