#include "repora/core/sql_text.h"
#include "repora/storage/compression.h"
#include "repora/storage/partitions.h"
#include "repora/tables/index_partitions.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// "(name, ...)"; empty for null.
std::string InParentheses(REPNameList const* names) {
  return names ? names->AsString(true) : std::string();
}

}  // namespace

std::string REPIndexPartitioningClause::AsString() const {
  SqlText sql("PARTITION ");
  if (name_) sql.Name(name_.Get()).Append(" ");
  return sql.Append("VALUES LESS THAN (")
      .Append(values_)
      .Append(")")
      .Option(TextOf(segment_.Get()))
      .Take();
}

std::string REPIndexPartitioningClauseList::AsString() const {
  return clauses_.Join(" ", false,
                       [](REPIndexPartitioningClause const& clause) { return clause.AsString(); });
}

std::string REPGlobalPartitionedIndexClause::AsString() const {
  SqlText sql("GLOBAL PARTITION BY ");
  sql.Append(hash_ ? "HASH " : "RANGE ").Append(InParentheses(columns_.Get()));
  if (!hash_) return sql.Option(TextOf(ranges_.Get())).Take();
  return sql.Clause(" PARTITIONS ", quantity_)
      .Clause(" STORE IN ", InParentheses(store_in_.Get()))
      .Clause(" OVERFLOW STORE IN ", InParentheses(overflow_.Get()))
      .Option(TextOf(individual_.Get()))
      .Take();
}

std::string REPSubPartition::AsString() const {
  return SqlText("SUBPARTITION")
      .Clause(" ", name_.Get())
      .Clause(" TABLESPACE ", tablespace_.Get())
      .AppendIf(default_tablespace_, " TABLESPACE DEFAULT")
      .Take();
}

std::string REPSubPartitionList::AsString() const {
  return clauses_.Join(", ", true,
                       [](REPSubPartition const& subpartition) { return subpartition.AsString(); });
}

std::string REPPartition::AsString() const {
  SqlText sql("PARTITION");
  sql.Clause(" ", name_.Get()).Option(TextOf(segment_.Get()));
  if (auto const compression = repora::Keyword(compression_); !compression.empty())
    sql.Option(compression).Option(compression_size_);
  return sql.AppendIf(default_tablespace_, " TABLESPACE DEFAULT")
      .Option(TextOf(subpartitions_.Get()))
      .Clause(" STORE IN ", InParentheses(store_in_.Get()))
      .Take();
}

std::string REPPartitionList::AsString() const {
  return clauses_.Join(", ", true,
                       [](REPPartition const& partition) { return partition.AsString(); });
}

std::string REPLocalPartitionedIndexClause::AsString() const {
  return SqlText("LOCAL")
      .Clause(" STORE IN ", InParentheses(store_in_.Get()))
      .Option(TextOf(partitions_.Get()))
      .Take();
}

std::string REPIndexSubpartitionClause::AsString() const {
  return SqlText()
      .PartClause("STORE IN ", InParentheses(tablespaces_.Get()))
      .Part(TextOf(subpartitions_.Get()))
      .Take();
}

std::string REPIndexPartitionDesc::AsString() const {
  if (!name_) return "PARTITION";
  return SqlText("PARTITION ")
      .Name(name_.Get())
      .Option(TextOf(segment_.Get()))
      .Option(TextOf(compression_.Get()))
      .Option(TextOf(subpartitions_.Get()))
      .Take();
}
