#include "repora/queries/query_clauses.h"

#include "repora/core/sql_text.h"
#include "repora/queries/conditions.h"
#include "repora/queries/select.h"
#include "repora/queries/sub_query.h"
#include "repora/queries/view_writer.h"

using repora::SqlText;
using repora::TextOf;

REPSubQuery::REPSubQuery() = default;
REPSubQuery::~REPSubQuery() = default;
REPSubQuery::REPSubQuery(REPSubQuery const& other) = default;
REPSubQuery& REPSubQuery::operator=(REPSubQuery const& other) = default;

std::string REPSubQuery::AsString() const {
  return SqlText(repora::Keyword(type_))
      .Append("(")
      .Append(TextOf(query_.Get()))
      .Append(")")
      .Take();
}

REPWhere::REPWhere() = default;
REPWhere::~REPWhere() = default;
REPWhere::REPWhere(REPWhere const& other) = default;
REPWhere& REPWhere::operator=(REPWhere const& other) = default;

std::string REPWhere::AsString() const {
  return condition_ ? "WHERE " + condition_->AsString() : std::string();
}

std::string REPWhere::GetString() const {
  return TextOf(condition_.Get());
}

REPHierQuery::REPHierQuery() = default;
REPHierQuery::~REPHierQuery() = default;
REPHierQuery::REPHierQuery(REPHierQuery const& other) = default;
REPHierQuery& REPHierQuery::operator=(REPHierQuery const& other) = default;

std::string REPHierQuery::AsString() const {
  SqlText sql;
  if (start_) sql.Append("START WITH ").Append(start_->AsString()).Append(" ");
  return sql.Append("CONNECT BY ")
      .AppendIf(no_cycle_, "NOCYCLE ")
      .Append(TextOf(connect_.Get()))
      .Take();
}

REPProcess_e REPHierQuery::Process(REPProcessor* processor, MOXActionSummaryItem* view,
                                   bool replace) const {
  if (!processor || !view) return REPProcessError;
  repora::ViewWriter const writer(*processor, *view, replace);
  if (start_) writer.Text(ORVTypes::pStartWithCondition, start_->AsString());
  if (no_cycle_) writer.Boolean(ORVTypes::pNoCycle, true);
  if (connect_) writer.Text(ORVTypes::pHierarchicalCondition, connect_->AsString());
  return REPProcessOK;
}

std::string REPGroupBy::AsString() const {
  auto const list = list_ ? list_->AsString(false) : std::string();
  auto const enclosed = [&](char const* keyword, char const* inner = "") {
    return SqlText(keyword).Append(" (").Append(inner).Append(list).Append(")").Take();
  };
  switch (kind_) {
    case REPGroupBy_e::Expression: return TextOf(expression_.Get());
    case REPGroupBy_e::Rollup: return enclosed("ROLLUP");
    case REPGroupBy_e::Cube: return enclosed("CUBE");
    case REPGroupBy_e::GroupingSets:
      switch (set_kind_) {
        case REPGroupBy_e::Expression: return enclosed("GROUPING SETS");
        case REPGroupBy_e::Rollup: return enclosed("GROUPING SETS", "ROLLUP ");
        case REPGroupBy_e::Cube: return enclosed("GROUPING SETS", "CUBE ");
        default: return "GROUPING SETS ()";
      }
    default: return {};
  }
}

REPGroupByList::REPGroupByList() = default;
REPGroupByList::~REPGroupByList() = default;
REPGroupByList::REPGroupByList(REPGroupByList const& other) = default;
REPGroupByList& REPGroupByList::operator=(REPGroupByList const& other) = default;

std::string REPGroupByList::GetGroupByString() const {
  return entries_.Join(", ", false, [](REPGroupBy const& entry) { return entry.AsString(); });
}

std::string REPGroupByList::GetHavingString() const {
  return TextOf(having_.Get());
}

std::string REPGroupByList::AsString() const {
  SqlText sql("GROUP BY ");
  sql.Append(GetGroupByString());
  if (having_) sql.Append(" HAVING ").Append(having_->AsString());
  return sql.Take();
}

std::string REPOrderBy::AsString() const {
  return SqlText()
      .Part(repora::AsWritten(name_.Get()))
      .Part(repora::Keyword(order_))
      .Part(repora::Keyword(nulls_))
      .Take();
}

std::string REPOrderByList::GetString() const {
  return keys_.Join(", ", false, [](REPOrderBy const& key) { return key.AsString(); });
}

std::string REPOrderByList::AsString() const {
  return (siblings_ ? "ORDER SIBLINGS BY " : "ORDER BY ") + GetString();
}

std::string REPForUpdate::AsString() const {
  SqlText sql("FOR UPDATE");
  if (columns_) sql.Append(" OF ").Append(columns_->AsString(true));
  if (wait_ == REPUpdateWait_e::None) return sql.Take();
  if (wait_ == REPUpdateWait_e::NoWait) return sql.Append(" NOWAIT").Take();
  return sql.Append(" WAIT").Option(wait_value_).Take();
}
