#include "repora/storage/segment_attributes.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/compression.h"

using repora::SqlText;

MOXActionSummaryItem* REPSegmentAttributesClause::Process(REPProcessor* processor,
                                                          MOXActionSummaryItem* owner,
                                                          std::int32_t storage_kind) const {
  auto* const storage = attributes_.Process(processor, owner, storage_kind);
  if (!storage) return nullptr;
  if (logging_ == REPLogging_e::Logging)
    repora::SetBoolean(*storage, ORVTypes::pOracleNoLogging, false);
  if (logging_ == REPLogging_e::NoLogging)
    repora::SetBoolean(*storage, ORVTypes::pOracleNoLogging, true);
  if (tablespace_) {
    auto const tablespace = processor->FindCreateItem(
        processor->GetRoot(), ORVTypes::oOracleTablespace, tablespace_.Get());
    repora::SetReference(*storage, ORVTypes::pOracleTablespaceRef, tablespace);
  }
  if (owner->Type() == ORVTypes::oOraclePartitionDescription)
    repora::WriteCompression(*owner, compression_, compression_size_);
  return storage;
}

std::string REPSegmentAttributesClause::AsString() const {
  return SqlText()
      .Part(attributes_.AsString())
      .PartClause("TABLESPACE ", tablespace_.Get())
      .Part(repora::Keyword(logging_))
      .Part(repora::CompressionText(compression_, compression_size_))
      .Take();
}

void REPSegmentAttributesClause::FillFrom(REPSegmentAttributesClause& other) {
  if (logging_ == REPLogging_e::None) logging_ = other.logging_;
  if (!tablespace_) tablespace_.Set(other.tablespace_.Release());
  attributes_.FillFrom(other.attributes_);
}

std::string REPSegmentAttributesClauseList::AsString() const {
  SqlText sql("(");
  for (int i = 0; i < GetCount(); ++i) {
    sql.Part("PARTITION", ", ");
    if (auto const* const clause = GetAttributes(i)) sql.Append(" ").Append(clause->AsString());
  }
  return sql.Append(")").Take();
}

REPSegmentAttributesClause* REPSegmentAttributesClauseList::CompactList() {
  int first = 0;
  while (first < GetCount() && !GetAttributes(first)) ++first;
  if (first == GetCount()) {
    clauses_.RemoveAll();
    return nullptr;
  }
  auto* const merged = RemoveAt(first);
  for (int i = first; i < GetCount(); ++i)
    if (auto* const piece = GetAttributes(i)) merged->FillFrom(*piece);
  clauses_.RemoveAll();
  AddTail(merged);
  return merged;
}

std::string REPSegmentAttributesList::AsString() const {
  if (clauses_.IsEmpty()) return {};
  return clauses_.Join(", ", true, [](REPSegmentAttributesClause const& clause) {
    return "PARTITION " + clause.AsString();
  });
}
