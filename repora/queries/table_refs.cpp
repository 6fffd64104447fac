#include "repora/queries/table_refs.h"

#include "repora/core/sql_text.h"
#include "repora/queries/conditions.h"
#include "repora/queries/select.h"

using repora::SqlText;
using repora::TextOf;

std::string REPSampleClause::AsString() const {
  SqlText sql("SAMPLE");
  sql.AppendIf(block_, " BLOCK").Append("(").Append(percent_).Append(")");
  if (!seed_.empty()) sql.Append(" SEED(").Append(seed_).Append(")");
  return sql.Take();
}

std::string REPFlashbackClause::AsString() const {
  SqlText sql;
  if (!lower_.empty())
    sql.Append("VERSIONS BETWEEN ")
        .Append(versions_scn_ ? "SCN" : "TIMESTAMP")
        .Append(" ")
        .Append(lower_)
        .Append(" AND ")
        .Append(upper_)
        .Append(" ");
  if (!as_of_.empty())
    sql.Append("AS OF ").Append(as_of_scn_ ? " SCN (" : " TIMESTAMP (").Append(as_of_).Append(") ");
  return sql.Take();
}

REPQueryTableExpr::REPQueryTableExpr() = default;
REPQueryTableExpr::~REPQueryTableExpr() = default;
REPQueryTableExpr::REPQueryTableExpr(REPQueryTableExpr const& other) = default;
REPQueryTableExpr& REPQueryTableExpr::operator=(REPQueryTableExpr const& other) = default;

std::string REPQueryTableExpr::AsString(bool in_join) const {
  SqlText sql;
  sql.Name(name_.Get());
  if (link_) return sql.Clause("@", link_.Get()).Take();
  if (!collection_.empty())
    return SqlText("TABLE(")
        .Append(collection_)
        .Append(")")
        .AppendIf(collection_plus_, "(+)")
        .Take();
  if (query_) return SubqueryText();
  auto const extension = [&](char const* keyword, REPName const* name) {
    if (name) sql.Append(keyword).Append(in_join ? " BY (" : " (").Name(name).Append(")");
  };
  extension(" PARTITION", partition_.Get());
  extension(" SUBPARTITION", subpartition_.Get());
  return sql.Option(TextOf(sample_.Get())).Take();
}

std::string REPQueryTableExpr::SubqueryText() const {
  SqlText sql("(");
  sql.Append(query_->AsString());
  if (restriction_ == REPSubqueryRestrict_e::ReadOnly) sql.Append(" WITH READ ONLY");
  if (restriction_ == REPSubqueryRestrict_e::CheckOption)
    sql.Append(" WITH CHECK OPTION").Clause(" CONSTRAINT ", constraint_);
  return sql.Append(")").Take();
}

REPTableRef::REPTableRef() = default;
REPTableRef::~REPTableRef() = default;
REPTableRef::REPTableRef(REPTableRef const& other) = default;
REPTableRef& REPTableRef::operator=(REPTableRef const& other) = default;

std::string REPTableRef::AsString(bool in_join) const {
  auto const table = [&] { return expression_ ? expression_->AsString(in_join) : std::string(); };
  SqlText sql;
  switch (kind_) {
    case REPTableRef_e::QueryTableExpr: sql.Append(table()); break;
    case REPTableRef_e::Only: sql.Append("ONLY(").Append(table()).Append(")"); break;
    case REPTableRef_e::Joined: return TextOf(joined_.Get());
    case REPTableRef_e::ParenthesisedJoin:
      return SqlText("(").Append(TextOf(joined_.Get())).Append(")").Take();
    default: return {};
  }
  return sql.Option(TextOf(flashback_.Get())).Clause(" ", alias_.Get()).Take();
}

REPJoinedTable::REPJoinedTable() = default;
REPJoinedTable::~REPJoinedTable() = default;
REPJoinedTable::REPJoinedTable(REPJoinedTable const& other) = default;
REPJoinedTable& REPJoinedTable::operator=(REPJoinedTable const& other) = default;

std::string REPJoinedTable::AsString() const {
  if (!left_) return {};
  SqlText sql(left_->AsString(true));
  sql.Append(" ").Append(repora::Keyword(type_)).Append(" ");
  if (right_) sql.Append(right_->AsString(true));
  if (on_) sql.Append(" ON ").Append(on_->AsString());
  if (using_) sql.Append(" USING").Append(using_->AsString(true));
  return sql.Take();
}

std::string REPTableRefList::AsString() const {
  return tables_.Join(", ", false, [](REPTableRef const& table) { return table.AsString(false); });
}
