#include "repora/core/sql_text.h"
#include "repora/queries/conditions.h"
#include "repora/storage/compression.h"
#include "repora/tables/index_partitions.h"
#include "repora/tables/indexes.h"

using repora::SqlText;
using repora::TextOf;

namespace {

std::string InParentheses(REPIndexExprList const* expressions) {
  return expressions ? expressions->AsString(true) : std::string();
}

}  // namespace

std::string REPIndexExpr::AsString() const {
  return SqlText(expression_).Option(repora::Keyword(sort_)).Take();
}

std::string REPIndexExprList::AsString(bool parenthesised) const {
  return expressions_.Join(", ", parenthesised,
                           [](REPIndexExpr const& expression) { return expression.AsString(); });
}

std::string REPIndexAttributesClause::AsString() const {
  return SqlText()
      .Part(physical_.AsString())
      .Part(repora::Keyword(logging_))
      .Part(online_ ? "ONLINE" : "")
      .Part(compute_statistics_ ? "COMPUTE STATISTICS" : "")
      .Part(tablespace_default_ ? "TABLESPACE DEFAULT" : "")
      .PartClause("TABLESPACE ", tablespace_.Get())
      .Part(repora::CompressionText(compression_, compression_size_))
      .Part(repora::Keyword(sort_))
      .Part(reverse_ ? "REVERSE" : "")
      .Part(TextOf(parallel_.Get()))
      .Take();
}

std::string REPDomainIndexClause::AsString() const {
  SqlText sql("INDEXTYPE IS ");
  sql.Name(name_.Get()).Option(TextOf(parallel_.Get()));
  if (!parameters_.empty()) sql.Append(" PARAMETERS('").Append(parameters_).Append("')");
  return sql.Take();
}

std::string REPIndexPropertiesClause::AsString() const {
  return SqlText()
      .Part(attributes_.AsString())
      .Part(TextOf(domain_.Get()))
      .Part(TextOf(global_.Get()))
      .Part(TextOf(local_.Get()))
      .Take();
}

std::string REPClusterIndexClause::AsString() const {
  return SqlText("CLUSTER ").Name(name_.Get()).Option(TextOf(attributes_.Get())).Take();
}

std::string REPTableIndexClause::AsString() const {
  return SqlText()
      .Name(name_.Get())
      .Clause(" ", alias_.Get())
      .Option(InParentheses(expressions_.Get()))
      .Option(TextOf(properties_.Get()))
      .Take();
}

std::string REPBitmapIndexClause::AsString() const {
  SqlText sql;
  sql.Name(name_.Get()).Option(InParentheses(expressions_.Get()));
  SqlText tables;
  for (int i = 0; i < from_names_.GetCount(); ++i) {
    auto const* const name = from_names_.At(i);
    if (!name) continue;
    tables.Part(name->AsString(false), ", ");
    if (i < from_aliases_.GetCount()) tables.Clause(" ", from_aliases_.At(i));
  }
  return sql.Clause(" FROM ", tables.Take())
      .Clause(" WHERE ", TextOf(condition_.Get()))
      .Option(TextOf(attributes_.Get()))
      .Option(TextOf(local_.Get()))
      .Take();
}

std::string REPCreateIndex::AsString() const {
  return EmbeddedText() + ";";
}

std::string REPCreateIndex::EmbeddedText() const {
  SqlText sql("CREATE ");
  auto const type = repora::Keyword(type_);
  if (!type.empty()) sql.Append(type).Append(" ");
  return sql.Append("INDEX ")
      .Name(name_.Get())
      .Append(" ON ")
      .Append(TextOf(cluster_.Get()))
      .Append(TextOf(table_.Get()))
      .Append(TextOf(bitmap_.Get()))
      .Take();
}
