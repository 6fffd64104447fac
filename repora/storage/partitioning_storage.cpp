#include "repora/storage/partitioning_storage.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"

using repora::SqlText;

namespace {

// The one name of a list, null when it is empty or not given.
REPName const* OneName(REPNameList const* names) {
  return names && names->GetCount() > 0 ? names->GetName(0) : nullptr;
}

bool HasSeveral(REPNameList const* names) {
  return names && names->GetCount() > 1;
}

}  // namespace

REPProcess_e REPPartitioningStorageClause::Process(REPProcessor* processor,
                                                   MOXActionSummaryItem* storage,
                                                   MOXActionSummaryItem const* column_owner,
                                                   bool& overflow) const {
  if (!processor || !storage) return REPProcessError;
  if (overflow_) {
    overflow = true;
    repora::SetBoolean(*storage, ORVTypes::pIndexOverflow, true);
  }
  auto const* const tablespace =
      overflow && overflow_tablespace_ ? overflow_tablespace_.Get() : tablespace_.Get();
  if (tablespace)
    repora::SetReference(
        *storage,
        overflow ? ORVTypes::pOracleOverflowTablespaceRef : ORVTypes::pOracleTablespaceRef,
        repora::FindTablespace(*processor, tablespace));
  return lob_items_ ? ProcessLob(*processor, *storage, column_owner) : REPProcessOK;
}

REPProcess_e REPPartitioningStorageClause::ProcessLob(
    REPProcessor& processor, MOXActionSummaryItem& storage,
    MOXActionSummaryItem const* column_owner) const {
  if (!column_owner) return REPProcessError;
  std::vector<std::uint32_t> columns;
  if (!repora::FindColumns(processor, *column_owner, *lob_items_, repora::ColumnUse::Lob, columns))
    return REPProcessError;
  if (HasSeveral(lob_segments_.Get())) return REPProcessError;
  MOXActionSummaryItem* lob = nullptr;
  if (auto const* const segment = OneName(lob_segments_.Get())) {
    auto const result = processor.AddItem(storage.Id(), ORVTypes::oOracleLOBStorage, segment, lob);
    if (result == REPProcessDuplicate &&
        processor.GetStatementType() == REPStatement_e::CreateTable)
      processor.DisplayWarning(REPMessage::DuplicateSegment, segment->GetFullName(false));
  } else {
    lob = processor.CreateItem(storage.Id(), ORVTypes::oOracleLOBStorage, nullptr);
  }
  if (!lob) return REPProcessError;
  if (!columns.empty()) repora::SetReferences(*lob, ORVTypes::pColumnsRef, columns);
  if (HasSeveral(lob_tablespaces_.Get())) return REPProcessError;
  if (auto const* const tablespace = OneName(lob_tablespaces_.Get()))
    repora::SetReference(*lob, ORVTypes::pOracleTablespaceRef,
                         repora::FindTablespace(processor, tablespace));
  return REPProcessOK;
}

std::string REPPartitioningStorageClause::AsString() const {
  SqlText sql;
  sql.PartClause("TABLESPACE ", tablespace_.Get());
  if (overflow_) sql.Part("OVERFLOW").Clause(" TABLESPACE ", overflow_tablespace_.Get());
  if (lob_items_) {
    sql.Part("LOB ").Append(lob_items_->AsString(true)).Append(" STORE AS ");
    if (lob_segments_) sql.Append(lob_segments_->AsString(false)).Append(" ");
    if (lob_tablespaces_)
      sql.Append("(TABLESPACE ").Append(lob_tablespaces_->AsString(false)).Append(")");
  }
  if (!varray_item_.empty())
    sql.Part("VARRAY ").Append(varray_item_).Append(" STORE AS LOB ").Name(varray_segment_.Get());
  return sql.Take();
}

REPProcess_e REPPartitioningStorageClauseList::Process(
    REPProcessor* processor, MOXActionSummaryItem* owner,
    MOXActionSummaryItem const* column_owner) const {
  if (!processor || !owner || GetCount() == 0) return REPProcessError;
  auto* const storage =
      repora::FindOrAddNamesake(*processor, *owner, ORVTypes::oOraclePartitioningStorage);
  if (!storage) return REPProcessError;
  bool overflow = false;
  return clauses_.ProcessAll([&](REPPartitioningStorageClause const& clause) {
    return clause.Process(processor, storage, column_owner, overflow);
  });
}

std::string REPPartitioningStorageClauseList::AsString() const {
  return Join(" ", false);
}
