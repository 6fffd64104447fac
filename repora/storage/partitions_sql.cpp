#include "repora/core/sql_text.h"
#include "repora/storage/partitions.h"

using repora::SqlText;
using repora::TextOf;

namespace {

std::string InParentheses(REPNameList const* names) {
  return names ? names->AsString(true) : std::string();
}

}  // namespace

std::string REPTablePartDesc::AsString() const {
  SqlText sql;
  sql.Part(TextOf(segment_.Get()));
  if (auto const keyword = repora::Keyword(compression_); !keyword.empty())
    sql.Part(keyword).Option(compression_value_);
  if (overflow_) sql.Part("OVERFLOW").Option(TextOf(overflow_segment_.Get()));
  return sql.Part(lobs_.AsString()).Part(varrays_.AsString()).Part(TextOf(level_.Get())).Take();
}

std::string REPRangePartitioning::AsString() const {
  return SqlText("PARTITION")
      .Clause(" ", name_.Get())
      .Option(TextOf(values_.Get()))
      .Option(TextOf(description_.Get()))
      .Take();
}

std::string REPRangePartitioningList::AsString() const {
  if (clauses_.IsEmpty()) return {};
  return Join(", ", true);
}

std::string REPListPartitioning::AsString() const {
  return SqlText("PARTITION")
      .Clause(" ", name_.Get())
      .Option(values_ ? values_->AsString(false) : std::string())
      .Option(TextOf(description_.Get()))
      .Take();
}

std::string REPListPartitioningList::AsString() const {
  if (clauses_.IsEmpty()) return {};
  return Join(", ", true);
}

std::string REPIndividualHashPartition::AsString() const {
  return SqlText("PARTITION").Clause(" ", name_.Get()).Option(TextOf(storage_.Get())).Take();
}

std::string REPIndividualHashPartitionList::AsString() const {
  return Join(", ", true);
}

std::string REPHashPartitionsByQuantity::AsString() const {
  return SqlText()
      .PartClause("PARTITIONS ", quantity_)
      .Clause(" STORE IN", InParentheses(tablespaces_.Get()))
      .Clause(" OVERFLOW STORE IN", InParentheses(overflow_tablespaces_.Get()))
      .Take();
}

std::string REPTablePartitioningClause::AsString() const {
  switch (type_) {
    case REPPartition_e::None: break;
    case REPPartition_e::Range:
      return SqlText("PARTITION BY RANGE")
          .Append(InParentheses(columns_.Get()))
          .Option(TextOf(ranges_.Get()))
          .Take();
    case REPPartition_e::Hash:
      return SqlText("PARTITION BY HASH")
          .Append(InParentheses(columns_.Get()))
          .Option(TextOf(hashes_.Get()))
          .Option(TextOf(quantity_.Get()))
          .Take();
    case REPPartition_e::List:
      return SqlText("PARTITION BY LIST (")
          .Name(column_.Get())
          .Append(")")
          .Option(TextOf(lists_.Get()))
          .Take();
    case REPPartition_e::Composite:
      return SqlText("PARTITION BY RANGE")
          .Append(columns_  ? columns_->AsString(true)
                  : column_ ? "(" + column_->AsString(true) + ")"
                            : std::string())
          .Option(TextOf(by_list_.Get()))
          .Option(TextOf(by_hash_.Get()))
          .Option(TextOf(ranges_.Get()))
          .Take();
  }
  return {};
}
