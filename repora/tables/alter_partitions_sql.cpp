#include <string_view>

#include "repora/core/sql_text.h"
#include "repora/tables/alter_partitions.h"
#include "repora/tables/table_organisation.h"
#include "repora/tables/update_indexes.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// The keywords of a choice; empty for a value outside it.
template <class Choice>
std::string_view Choose(Choice choice, std::string_view first, std::string_view second) {
  switch (static_cast<int>(choice)) {
    case 1: return first;
    case 2: return second;
    default: return {};
  }
}

std::string_view UnusableText(REPUnusableLocal_e choice) {
  return Choose(choice, "UNUSABLE LOCAL INDEXES", "REBUILD UNUSABLE LOCAL INDEXES");
}

// INTO(first, second); empty unless both are given.
template <class Spec>
std::string IntoText(repora::Owned<Spec> const& first, repora::Owned<Spec> const& second) {
  return first && second ? "INTO(" + first->AsString() + ", " + second->AsString() + ")"
                         : std::string();
}

}  // namespace

std::string REPPartitionSpec::AsString() const {
  return SqlText("PARTITION").Clause(" ", name_.Get()).Option(TextOf(description_.Get())).Take();
}

std::string repora::PartitionSegment::AsString() const {
  return SqlText()
      .Part(TextOf(physical.Get()))
      .Part(Choose(logging, "LOGGING", "NOLOGGING"))
      .Part(TextOf(allocate.Get()))
      .Part(TextOf(deallocate.Get()))
      .Part(Keyword(shrink))
      .Take();
}

std::string REPPartitionAttributes::AsString() const {
  return SqlText()
      .Part(segment_.AsString())
      .PartClause("OVERFLOW ", overflow_.AsString())
      .Part(TextOf(compression_.Get()))
      .Part(TextOf(lobs_.Get()))
      .Take();
}

std::string REPAlterTablePartitioning::AsString() const {
  auto const name = repora::AsWritten(name_.Get());
  auto const tails = UpdateTail() + ParallelTail();
  auto const on_name = [&](char const* keywords) { return keywords + name + tails; };
  auto const truncate = [&](char const* keywords) {
    return SqlText(keywords + name)
        .Option(Choose(truncated_storage_, "DROP STORAGE", "REUSE STORAGE"))
        .Append(tails)
        .Take();
  };
  auto const rename = [&](char const* keywords) {
    return SqlText(keywords + name).Append(" TO ").Name(new_name_.Get()).Take();
  };
  auto const merge = [&](char const* keywords, std::string const& into) {
    return SqlText(keywords + name)
        .Append(", ")
        .Name(name2_.Get())
        .Clause(" INTO ", into)
        .Append(tails)
        .Take();
  };
  switch (operation_) {
    case REPTablePart_e::None: break;
    case REPTablePart_e::ModifyDefaultAttributes: return DefaultAttributesText();
    case REPTablePart_e::SetSubpartitionTemplate:
      return SqlText("SET SUBPARTITION TEMPLATE ")
          .Append(template_quantity_)
          .Append(TextOf(template_.Get()))
          .Take();
    case REPTablePart_e::ModifyPartition: return ModifyPartitionText();
    case REPTablePart_e::ModifySubpartition: return ModifySubpartitionText();
    case REPTablePart_e::MovePartition:
      return SqlText("MOVE PARTITION " + name)
          .AppendIf(mapping_, " MAPPING TABLE")
          .Option(TextOf(description_.Get()))
          .Append(tails)
          .Take();
    case REPTablePart_e::MoveSubpartition:
      return "MOVE " + TextOf(subpartition1_.Get()) + ParallelTail();
    case REPTablePart_e::AddPartition: return AddPartitionText();
    case REPTablePart_e::CoalescePartition: return "COALESCE PARTITION" + tails;
    case REPTablePart_e::DropPartition: return on_name("DROP PARTITION ");
    case REPTablePart_e::DropSubpartition: return on_name("DROP SUBPARTITION ");
    case REPTablePart_e::RenamePartition: return rename("RENAME PARTITION ");
    case REPTablePart_e::RenameSubpartition: return rename("RENAME SUBPARTITION ");
    case REPTablePart_e::TruncatePartition: return truncate("TRUNCATE PARTITION ");
    case REPTablePart_e::TruncateSubpartition: return truncate("TRUNCATE SUBPARTITION ");
    case REPTablePart_e::SplitPartition:
    case REPTablePart_e::SplitSubpartition: return SplitText();
    case REPTablePart_e::MergePartitions:
      return merge("MERGE PARTITIONS ", TextOf(partition1_.Get()));
    case REPTablePart_e::MergeSubpartitions:
      return merge("MERGE SUBPARTITIONS ", TextOf(subpartition1_.Get()));
    case REPTablePart_e::ExchangePartition:
    case REPTablePart_e::ExchangeSubpartition: return ExchangeText();
  }
  return {};
}

std::string REPAlterTablePartitioning::DefaultAttributesText() const {
  SqlText sql("MODIFY DEFAULT ATTRIBUTES");
  sql.Clause(" FOR PARTITION ", name_.Get()).Option(TextOf(segment_.Get()));
  if (auto const keyword = repora::Keyword(compression_); !keyword.empty())
    sql.Option(keyword).Option(compression_size_);
  return sql.Clause(" PCTTHRESHOLD ", pct_threshold_)
      .Option(TextOf(overflow_.Get()))
      .Option(TextOf(lobs_.Get()))
      .Take();
}

std::string REPAlterTablePartitioning::ModifyPartitionText() const {
  SqlText sql("MODIFY PARTITION ");
  sql.Name(name_.Get())
      .Option(UnusableText(unusable_local_))
      .Option(ValuesChangeText())
      .Option(TextOf(mapping_table_.Get()));
  if (subpartition1_) sql.Append(" ADD ").Append(subpartition1_->AsString()).Append(UpdateTail());
  sql.Option(TextOf(attributes_.Get()));
  if (coalesce_) sql.Append(" COALESCE SUBPARTITION").Append(UpdateTail());
  return sql.Append(ParallelTail()).Take();
}

std::string REPAlterTablePartitioning::ModifySubpartitionText() const {
  return SqlText("MODIFY SUBPARTITION")
      .Clause(" ", name_.Get())
      .Option(TextOf(allocate_.Get()))
      .Option(TextOf(deallocate_.Get()))
      .Option(TextOf(lobs_.Get()))
      .Option(UnusableText(unusable_local_))
      .Option(ValuesChangeText())
      .Option(repora::Keyword(shrink_))
      .Take();
}

std::string REPAlterTablePartitioning::AddPartitionText() const {
  return SqlText("ADD PARTITION")
      .Clause(" ", name_.Get())
      .Option(TextOf(bound_.Get()))
      .Option(values_ ? values_->AsString(false) : std::string())
      .Option(TextOf(description_.Get()))
      .Option(TextOf(storage_.Get()))
      .Append(UpdateTail())
      .Append(ParallelTail())
      .Take();
}

// A partition is split at a bound or by values, a subpartition by values only.
std::string REPAlterTablePartitioning::SplitText() const {
  bool const partition = operation_ == REPTablePart_e::SplitPartition;
  SqlText sql(partition ? "SPLIT PARTITION " : "SPLIT SUBPARTITION ");
  sql.Name(name_.Get());
  bool const at = partition && split_ == REPSplit_e::At;
  if (values_ && (!partition || at || split_ == REPSplit_e::Values))
    sql.Option(values_->AsString(at));
  return sql
      .Option(partition ? IntoText(partition1_, partition2_)
                        : IntoText(subpartition1_, subpartition2_))
      .Append(UpdateTail())
      .Append(ParallelTail())
      .Take();
}

std::string REPAlterTablePartitioning::ExchangeText() const {
  return SqlText(operation_ == REPTablePart_e::ExchangePartition ? "EXCHANGE PARTITION "
                                                                 : "EXCHANGE SUBPARTITION ")
      .Name(name_.Get())
      .Append(" WITH TABLE ")
      .Name(table_name_.Get())
      .Option(Choose(indexes_, "INCLUDING INDEXES", "EXCLUDING INDEXES"))
      .Option(Choose(validation_, "WITH VALIDATION", "WITHOUT VALIDATION"))
      .Clause(" EXCEPTIONS INTO ", exceptions_table_.Get())
      .Append(UpdateTail())
      .Append(ParallelTail())
      .Take();
}

std::string REPAlterTablePartitioning::ValuesChangeText() const {
  return SqlText(Choose(add_drop_values_, "ADD", "DROP"))
      .Option(values_ ? values_->AsString(false) : std::string())
      .Take();
}

std::string REPAlterTablePartitioning::UpdateTail() const {
  return SqlText().Option(TextOf(update_indexes_.Get())).Take();
}

std::string REPAlterTablePartitioning::ParallelTail() const {
  auto const keyword = repora::Keyword(parallel_);
  return keyword.empty() ? std::string() : SqlText().Option(keyword).Option(parallel_size_).Take();
}
