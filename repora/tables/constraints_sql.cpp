#include "repora/core/sql_text.h"
#include "repora/queries/conditions.h"
#include "repora/tables/constraints.h"
#include "repora/tables/indexes.h"

using repora::SqlText;
using repora::TextOf;

namespace {

std::string InParentheses(REPNameList const* names) {
  return names ? names->AsString(true) : std::string();
}

std::string CheckText(REPCondition const* condition) {
  return "CHECK (" + TextOf(condition) + ")";
}

}  // namespace

std::string REPReferenceClause::AsString() const {
  return SqlText("REFERENCES ")
      .Name(name_.Get())
      .Append(InParentheses(columns_.Get()))
      .Clause(" ON DELETE ", repora::Keyword(delete_))
      .Take();
}

// USING INDEX takes one index: a name, a CREATE INDEX or the properties of one to be made.
std::string REPConstraintState::AsString() const {
  SqlText sql;
  sql.Part(repora::Keyword(deferrable_))
      .Part(repora::Keyword(initially_))
      .Part(repora::Keyword(enable_))
      .Part(repora::Keyword(validate_))
      .Part(repora::Keyword(rely_))
      .PartClause("EXCEPTIONS INTO ", exceptions_.Get());
  std::string index;
  if (repora::IsGiven(index_name_.Get()))
    index = index_name_->AsString(false);
  else if (create_index_)
    index = create_index_->EmbeddedText();
  else
    index = TextOf(properties_.Get());
  if (using_index_ || !index.empty()) sql.Part("USING INDEX").Option(index);
  return sql.Take();
}

std::string REPInlineConstraintClause::AsString() const {
  SqlText sql;
  if (repora::IsGiven(name_.Get())) sql.PartClause("CONSTRAINT ", name_.Get());
  switch (constraint_) {
    case REPInlineConstr_e::Null: sql.Part("NULL"); break;
    case REPInlineConstr_e::NotNull: sql.Part("NOT NULL"); break;
    case REPInlineConstr_e::Unique: sql.Part("UNIQUE"); break;
    case REPInlineConstr_e::PrimaryKey: sql.Part("PRIMARY KEY"); break;
    case REPInlineConstr_e::References: sql.Part(TextOf(references_.Get())); break;
    case REPInlineConstr_e::Check: sql.Part(CheckText(check_.Get())); break;
    case REPInlineConstr_e::Ref: sql.Part(" REF ").Name(ref_name_.Get()); break;
    case REPInlineConstr_e::WithRowId: sql.Part("WITH ROWID"); break;
    case REPInlineConstr_e::ScopeIs: sql.Part("SCOPE IS ").Name(scope_.Get()); break;
    default: break;
  }
  return sql.Option(TextOf(state_.Get())).Take();
}

std::string REPInlineConstraintClauseList::AsString(bool parenthesised) const {
  return clauses_.Join(", ", parenthesised, [](auto const& clause) { return clause.AsString(); });
}

std::string REPOutOfLineConstraint::AsString() const {
  SqlText sql;
  bool const named = repora::IsGiven(name_.Get());
  if (named) sql.Clause(" CONSTRAINT ", name_.Get());
  switch (constraint_) {
    case REPOutOfLineConstr_e::Unique:
      sql.Append(" UNIQUE ").Append(InParentheses(columns_.Get()));
      break;
    case REPOutOfLineConstr_e::PrimaryKey:
      sql.Append(" PRIMARY KEY ").Append(InParentheses(columns_.Get()));
      break;
    case REPOutOfLineConstr_e::ForeignKey:
      sql.Append(" FOREIGN KEY ")
          .Append(InParentheses(columns_.Get()))
          .Append(" ")
          .Append(TextOf(references_.Get()));
      break;
    case REPOutOfLineConstr_e::Check:
      sql.AppendIf(named, " ").Append(CheckText(check_.Get()));
      break;
    default: break;
  }
  return sql.Option(TextOf(state_.Get())).Take();
}

std::string REPOutOfLineConstraintList::AsString(bool parenthesised) const {
  return constraints_.Join(", ", parenthesised,
                           [](auto const& constraint) { return constraint.AsString(); });
}

std::string repora::RefConstraint::AsString() const {
  if (scope_column_)
    return SqlText(" SCOPE FOR (")
        .Name(scope_column_.Get())
        .Append(") IS ")
        .Name(scope_table_.Get())
        .Take();
  if (ref_column_) return SqlText(" REF (").Name(ref_column_.Get()).Append(") WITH ROWID").Take();
  return {};
}

std::string REPOutOfLineRefConstraintList::AsString(bool parenthesised) const {
  return constraints_.Join(", ", parenthesised,
                           [](auto const& constraint) { return constraint.AsString(); });
}

std::string REPUsingIndexClause::AsString() const {
  return SqlText("USING INDEX").Clause(" ", name_.Get()).Option(TextOf(properties_.Get())).Take();
}

std::string REPEnableDisableClause::AsString() const {
  SqlText sql;
  sql.Part(repora::Keyword(enable_)).Part(repora::Keyword(validate_));
  switch (type_) {
    case REPInlineConstr_e::Unique:
      sql.Append(" UNIQUE").Option(InParentheses(columns_.Get()));
      break;
    case REPInlineConstr_e::PrimaryKey: sql.Append(" PRIMARY KEY"); break;
    case REPInlineConstr_e::Named: sql.Append(" CONSTRAINT ").Name(constraint_.Get()); break;
    default: break;
  }
  sql.Option(TextOf(using_.Get()))
      .Clause(" EXCEPTIONS INTO ", exceptions_.Get())
      .AppendIf(cascade_, " CASCADE")
      .AppendIf(keep_drop_ == REPKeepDrop_e::KeepIndex, " KEEP INDEX")
      .AppendIf(keep_drop_ == REPKeepDrop_e::DropIndex, " DROP INDEX");
  return sql.Take();
}

std::string REPEnableDisableClauseList::AsString(bool parenthesised) const {
  return clauses_.Join(", ", parenthesised, [](auto const& clause) { return clause.AsString(); });
}
