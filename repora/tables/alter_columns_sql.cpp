#include "repora/core/sql_text.h"
#include "repora/tables/alter_columns.h"
#include "repora/tables/column_properties.h"
#include "repora/tables/constraints.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// " DEFAULT " and the expression, whose text may be anything.
void AppendDefault(SqlText& sql, REPExpr const* expression) {
  if (expression) sql.Append(" DEFAULT ").Append(expression->AsString());
}

std::string_view SubstitutableText(REPSubstitutable_e substitutable) {
  switch (substitutable) {
    case REPSubstitutable_e::None: break;
    case REPSubstitutable_e::Substitutable: return " SUBSTITUTABLE AT ALL LEVELS";
    case REPSubstitutable_e::NotSubstitutable: return " NOT SUBSTITUTABLE AT ALL LEVELS";
    case REPSubstitutable_e::SubstitutableForce: return " SUBSTITUTABLE AT ALL LEVELS FORCE";
    case REPSubstitutable_e::NotSubstitutableForce: return " NOT SUBSTITUTABLE AT ALL LEVELS FORCE";
  }
  return {};
}

template <class List>
std::string TextOfClauses(List const& clauses, char const* separator) {
  return clauses.Join(separator, false, [](auto const& clause) { return clause.AsString(); });
}

}  // namespace

std::string repora::AddClauseText(std::string_view added) {
  if (added.empty()) return {};
  return SqlText("ADD").AppendIf(added.front() != ' ', " ").Append(added).Take();
}

std::string REPAddColumnClause::AsString() const {
  SqlText sql;
  sql.Name(name_.Get()).Option(repora::DatatypeText(datatype_.Get())).AppendIf(sort_, " SORT");
  AppendDefault(sql, expression_.Get());
  return sql.Option(TextOf(inline_constraints_.Get()))
      .Append(TextOf(constraint_.Get()))
      .Append(TextOf(ref_constraint_.Get()))
      .Append(TextOf(supplemental_logging_.Get()))
      .Take();
}

std::string REPAddColumnClauseList::AsString() const {
  auto const text = TextOfClauses(clauses_, ", ");
  return SqlText()
      .Part(repora::AddClauseText(clauses_.GetCount() > 1 ? "(" + text + ")" : text))
      .Part(column_properties_ ? column_properties_->AsString(false) : std::string())
      .Take();
}

std::string REPModifyColumnClause::AsString() const {
  if (auto const text = SubstitutableText(substitutable_); !text.empty())
    return SqlText("COLUMN ").Name(name_.Get()).Append(text).Take();
  SqlText sql;
  sql.Name(name_.Get()).Option(repora::DatatypeText(datatype_.Get()));
  AppendDefault(sql, expression_.Get());
  return sql.Option(TextOf(inline_constraints_.Get())).Option(TextOf(lob_storage_.Get())).Take();
}

std::string REPModifyColumnClauseList::AsString() const {
  auto const text = TextOfClauses(clauses_, ", ");
  if (clauses_.GetCount() == 0) return {};
  return clauses_.GetCount() == 1 ? "MODIFY " + text : "MODIFY(" + text + ")";
}

std::string REPDropColumnClause::AsString() const {
  auto const columns = columns_ ? columns_->AsString(true) : std::string();
  SqlText sql;
  switch (drop_) {
    case REPDrop_e::None: break;
    case REPDrop_e::Columns: sql.Append("DROP ").Append(columns); break;
    case REPDrop_e::SetUnused: sql.Append("SET UNUSED ").Append(columns); break;
    case REPDrop_e::UnusedColumns: sql.Append("DROP UNUSED COLUMNS"); break;
    case REPDrop_e::ColumnsContinue: sql.Append("DROP COLUMNS CONTINUE"); break;
  }
  return sql.AppendIf(cascade_, " CASCADE CONSTRAINTS")
      .AppendIf(invalidate_, " INVALIDATE")
      .Clause(" CHECKPOINT ", checkpoint_)
      .Take();
}

std::string REPDropColumnClauseList::AsString() const {
  return TextOfClauses(clauses_, " ");
}

std::string REPRenameColumnClause::AsString() const {
  return SqlText("RENAME COLUMN ")
      .Name(old_name_.Get())
      .Append(" TO ")
      .Name(new_name_.Get())
      .Take();
}

std::string REPRenameColumnClauseList::AsString() const {
  return TextOfClauses(clauses_, " ");
}

std::string REPAlterColumnClauses::AsString() const {
  return SqlText()
      .Part(TextOf(add_.Get()))
      .Part(TextOf(modify_.Get()))
      .Part(TextOf(drop_.Get()))
      .Part(TextOf(rename_.Get()))
      .Part(TextOf(modify_collections_.Get()))
      .Part(TextOf(modify_lobs_.Get()))
      .Part(TextOf(alter_varrays_.Get()))
      .Take();
}
