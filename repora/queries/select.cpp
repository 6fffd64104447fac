#include "repora/queries/select.h"

#include "repora/core/sql_text.h"
#include "repora/queries/query_clauses.h"
#include "repora/queries/sub_query.h"
#include "repora/queries/table_refs.h"

using repora::SqlText;
using repora::TextOf;

std::string REPSelectList::AsString() const {
  SqlText sql;
  for (int i = 0; i < GetCount(); ++i) {
    if (i > 0) sql.Append(", ");
    sql.Name(GetName(i));
    if (GetAlias(i)) sql.Append(" AS ").Append(GetAlias(i)->AsString(true));
  }
  return sql.Take();
}

REPSelect::REPSelect() = default;
REPSelect::REPSelect(REPSelect const& other) = default;
REPSelect& REPSelect::operator=(REPSelect const& other) = default;

// A chain of set operations is taken apart link by link, as deleting it from within would nest as
// deep as it is long.
REPSelect::~REPSelect() {
  auto* operation = set_operation_.Release();
  while (operation) {
    auto* const query = operation->ReleaseSubquery();
    delete operation;
    operation = query ? query->set_operation_.Release() : nullptr;
    delete query;
  }
}

// What stands before the set operation.
std::string REPSelect::HeadText() const {
  SqlText sql;
  if (!factor_.empty()) sql.Append(factor_).Append(" ");
  sql.Append("SELECT ");
  if (option_ != REPSelectOpt_e::None) sql.Append(repora::Keyword(option_)).Append(" ");
  sql.Append(list_ ? list_->AsString() : "*").Append(" FROM");
  return sql.Option(TextOf(tables_.Get()))
      .Option(TextOf(where_.Get()))
      .Option(TextOf(hierarchy_.Get()))
      .Option(TextOf(group_by_.Get()))
      .Take();
}

// What stands behind the set operation.
std::string REPSelect::TailText() const {
  return SqlText().Option(TextOf(order_by_.Get())).Option(TextOf(for_update_.Get())).Take();
}

std::string REPSelect::AsString() const {
  SqlText sql;
  std::vector<std::string> tails;  // of the queries around the one that comes
  for (auto const* query = this; query;) {
    if (!query->text_.empty()) {
      sql.Append(query->text_);
      break;
    }
    sql.Append(query->HeadText());
    auto const* const operation = query->set_operation_.Get();
    if (!operation) {
      sql.Append(query->TailText());
      break;
    }
    sql.Append(" ").Append(repora::Keyword(operation->GetSubqueryType())).Append("(");
    tails.push_back(query->TailText());
    query = operation->GetSubquery();
  }
  for (auto tail = tails.rbegin(); tail != tails.rend(); ++tail) sql.Append(")").Append(*tail);
  return sql.Take();
}

std::string REPSelect::GetWhereString() const {
  return where_ ? where_->GetString() : std::string();
}

std::string REPSelect::GetGroupByString() const {
  return group_by_ ? group_by_->GetGroupByString() : std::string();
}

std::string REPSelect::GetHavingString() const {
  return group_by_ ? group_by_->GetHavingString() : std::string();
}

std::string REPSelect::GetOrderByString() const {
  return order_by_ ? order_by_->GetString() : std::string();
}
