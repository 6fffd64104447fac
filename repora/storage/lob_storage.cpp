#include "repora/storage/lob_storage.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/lob_partitions.h"
#include "repora/storage/partition_items.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// Whether LOB storage of the owner stands under its columns.
bool HasColumns(MOXActionSummaryItem const& owner) {
  return owner.Type() == ORVTypes::oEntity || owner.Type() == ORVTypes::oCachedView;
}

int CountOf(REPNameList const* names) {
  return names ? names->GetCount() : 0;
}

std::string InParentheses(REPNameList const* names) {
  return names ? names->AsString(true) : std::string();
}

// The one parameters item of a LOB storage; null when it cannot be made.
MOXActionSummaryItem* FindOrMakeParameters(REPProcessor& processor,
                                           MOXActionSummaryItem const& lob) {
  auto* const parameters = processor.FindSummaryItemPtr(lob.Id(), ORVTypes::oOracleLOBParameters);
  return parameters ? parameters
                    : processor.CreateItem(lob.Id(), ORVTypes::oOracleLOBParameters, nullptr);
}

// Of the two cache properties only the one that was set last stays.
void WriteCache(MOXActionSummaryItem& parameters, REPCache_e cache) {
  auto const write = [&parameters](MOXId property, bool value, MOXId other) {
    repora::SetBoolean(parameters, property, value);
    parameters.RemoveProperty(other);
  };
  switch (cache) {
    case REPCache_e::None: break;
    case REPCache_e::NoCache:
      write(ORVTypes::pOracleCache, false, ORVTypes::pOracleCacheRead);
      break;
    case REPCache_e::Cache: write(ORVTypes::pOracleCache, true, ORVTypes::pOracleCacheRead); break;
    case REPCache_e::CacheReads:
      write(ORVTypes::pOracleCacheRead, true, ORVTypes::pOracleCache);
      break;
  }
}

void WriteLogging(MOXActionSummaryItem& parameters, REPLogging_e logging) {
  if (logging == REPLogging_e::Logging)
    repora::SetBoolean(parameters, ORVTypes::pOracleNoLogging, false);
  if (logging == REPLogging_e::NoLogging)
    repora::SetBoolean(parameters, ORVTypes::pOracleNoLogging, true);
}

// What new and changed parameters write alike.
template <class Parameters>
void WriteVersions(MOXActionSummaryItem& item, Parameters const& parameters) {
  repora::SetTextIfGiven(item, ORVTypes::pOraclePercentVersion, parameters.GetPCTVersion());
  if (parameters.GetRetention()) repora::SetBoolean(item, ORVTypes::pOracleRetainVersion, true);
  repora::SetTextIfGiven(item, ORVTypes::pOracleFreepools, parameters.GetFreePools());
}

// The cache keyword with logging behind it, which cannot stand alone.
std::string CacheText(REPCache_e cache, REPLogging_e logging) {
  SqlText sql(repora::Keyword(cache));
  if (!repora::Keyword(cache).empty()) sql.Option(repora::Keyword(logging));
  return sql.Take();
}

// What is being done to the table, as it stands in messages.
std::string StatementWord(REPProcessor const& processor) {
  auto const type = processor.GetStatementType();
  bool const alter =
      type == REPStatement_e::AlterTable || type == REPStatement_e::AlterMaterializedView;
  return repora::MessageText(alter ? REPMessage::WordAlter : REPMessage::WordCreate);
}

// The changes of a column's LOB storage.
REPProcess_e ModifyLob(REPProcessor* processor, MOXActionSummaryItem const* table,
                       REPNameList const* items, REPModifyLOBParameters const* parameters) {
  if (!processor || !table || CountOf(items) == 0) return REPProcessError;
  auto const* const name = items->GetName(0);
  auto const column = processor->FindItem(table->Id(), ORVTypes::oAttribute, name);
  if (!column) return REPProcessError;
  if (auto* const lob = processor->FindSummaryItemPtr(column, ORVTypes::oOracleLOBStorage))
    return parameters ? parameters->Process(processor, lob) : REPProcessOK;
  processor->DisplayWarning(REPMessage::AlterTargetMissing,
                            processor->GetObjectDisplayString(ORVTypes::oOracleLOBStorage),
                            repora::AsWritten(name));
  return REPProcessError;
}

std::string ModifyLobText(REPNameList const* items, REPModifyLOBParameters const* parameters) {
  SqlText sql("MODIFY LOB ");
  sql.Append(InParentheses(items));
  if (parameters) sql.Append(" (").Append(parameters->AsString()).Append(")");
  return sql.Take();
}

bool RefersToAny(MOXActionSummaryItem const& lob, std::vector<std::uint32_t> const& columns) {
  auto const* const value = lob.Properties().Find(ORVTypes::pColumnsRef);
  std::vector<QELShortId> references;
  if (!value || !value->GetShortIdVector(references)) return false;
  return std::any_of(references.begin(), references.end(), [&columns](QELShortId reference) {
    return std::find(columns.begin(), columns.end(), reference.Id()) != columns.end();
  });
}

}  // namespace

REPProcess_e REPLOBParameters::Process(REPProcessor* processor, MOXActionSummaryItem* lob) const {
  if (!processor || !lob) return REPProcessError;
  auto* const item = FindOrMakeParameters(*processor, *lob);
  if (!item) return REPProcessError;
  if (tablespace_)
    repora::SetReference(*item, ORVTypes::pOracleTablespaceRef,
                         repora::FindTablespace(*processor, tablespace_.Get()));
  if (storage_row_ == REPStorageRow_e::Enable)
    repora::SetBoolean(*item, ORVTypes::pEnableStorageInRow, true);
  if (storage_row_ == REPStorageRow_e::Disable)
    repora::SetBoolean(*item, ORVTypes::pEnableStorageInRow, false);
  if (storage_.GetClausePresent()) storage_.Process(processor, item);
  if (chunk_.GetType() != REPSizeType_e::None)
    repora::SetText(*item, ORVTypes::pOracleChunk, chunk_.AsString());
  WriteVersions(*item, *this);
  WriteCache(*item, cache_);
  WriteLogging(*item, logging_);
  return REPProcessOK;
}

std::string REPLOBParameters::AsString() const {
  auto const parameters =
      SqlText()
          .PartClause("TABLESPACE ", tablespace_.Get())
          .Part(repora::Keyword(storage_row_))
          .Part(storage_.GetClausePresent() ? storage_.AsString() : std::string())
          .PartClause("CHUNK ", chunk_.AsString())
          .PartClause("PCTVERSION ", pct_version_)
          .Part(retention_ ? "RETENTION" : "")
          .PartClause("FREEPOOLS ", free_pools_)
          .Part(CacheText(cache_, logging_))
          .Take();
  return "(" + parameters + ")";
}

REPLOBStorage::REPLOBStorage() = default;

REPLOBStorage::REPLOBStorage(REPLOBStorage const& other) = default;

REPLOBStorage::REPLOBStorage(REPLOBStorage const* other) : REPLOBStorage(repora::CopyOf(other)) {}

REPLOBStorage& REPLOBStorage::operator=(REPLOBStorage const& other) = default;

REPLOBStorage& REPLOBStorage::operator=(REPLOBStorage const* other) {
  return *this = repora::CopyOf(other);
}

REPLOBStorage::~REPLOBStorage() = default;

REPProcess_e REPLOBStorage::Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                    MOXActionSummaryItem* column_owner) const {
  if (!processor || !owner) return REPProcessError;
  if (HasColumns(*owner)) return ProcessForEntity(*processor, *owner);
  return column_owner ? ProcessForPartition(*processor, *owner, *column_owner) : REPProcessError;
}

REPProcess_e REPLOBStorage::ProcessForEntity(REPProcessor& processor,
                                             MOXActionSummaryItem& table) const {
  for (int i = 0; i < CountOf(items_.Get()); ++i) {
    auto const* const column =
        processor.FindItemPtr(table.Id(), ORVTypes::oAttribute, items_->GetName(i));
    if (!column) return REPProcessError;
    MOXActionSummaryItem* lob = nullptr;
    if (segment_) {
      // A segment that the column has already is as good as a new one.
      processor.AddItem(column->Id(), ORVTypes::oOracleLOBStorage, segment_.Get(), lob);
    } else {
      lob = processor.FindSummaryItemPtr(column->Id(), ORVTypes::oOracleLOBStorage);
      if (!lob) lob = processor.CreateItem(column->Id(), ORVTypes::oOracleLOBStorage, nullptr);
    }
    if (!lob) return REPProcessError;
    if (!parameters_) continue;
    if (auto const result = parameters_->Process(&processor, lob); result != REPProcessOK)
      return result;
  }
  if (partitions_)
    processor.DisplayInformation(
        REPMessage::OptionUnsupported, repora::MessageText(REPMessage::WordLobPartitionStorage),
        StatementWord(processor), processor.GetObjectDisplayString(table.Type()), table.Name());
  return REPProcessOK;
}

REPProcess_e REPLOBStorage::ProcessForPartition(REPProcessor& processor,
                                                MOXActionSummaryItem& owner,
                                                MOXActionSummaryItem& column_owner) const {
  std::vector<std::uint32_t> columns;
  for (int i = 0; i < CountOf(items_.Get()); ++i) {
    columns.push_back(
        processor.FindItem(column_owner.Id(), ORVTypes::oAttribute, items_->GetName(i)));
    if (columns.back() == 0) return REPProcessError;
  }
  if (columns.empty()) return REPProcessError;
  MOXActionSummaryItem* lob = nullptr;
  if (segment_)
    processor.AddItem(owner.Id(), ORVTypes::oOracleLOBStorage, segment_.Get(), lob);
  else
    lob = processor.CreateItem(owner.Id(), ORVTypes::oOracleLOBStorage, nullptr);
  if (!lob) return REPProcessError;
  repora::SetReferences(*lob, ORVTypes::pColumnsRef, columns);
  return parameters_ ? parameters_->Process(&processor, lob) : REPProcessOK;
}

std::string REPLOBStorage::AsString() const {
  return SqlText("LOB ")
      .Append(InParentheses(items_.Get()))
      .Append(" STORE AS")
      .Clause(" ", segment_.Get())
      .Option(TextOf(parameters_.Get()))
      .Take();
}

REPProcess_e REPLOBStorageList::Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                        MOXActionSummaryItem* column_owner) const {
  return clauses_.ProcessAll([&](REPLOBStorage const& storage) {
    return storage.Process(processor, owner, column_owner);
  });
}

std::string REPLOBStorageList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}

REPProcess_e REPModifyLOBParameters::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* lob) const {
  if (!processor || !lob) return REPProcessError;
  auto* const item = FindOrMakeParameters(*processor, *lob);
  if (!item) return REPProcessError;
  if (storage_.GetClausePresent()) storage_.Process(processor, item);
  WriteVersions(*item, *this);
  WriteCache(*item, cache_);
  // A LOB that is cached is logged, whatever the clause says.
  if (cache_ == REPCache_e::NoCache || cache_ == REPCache_e::CacheReads)
    WriteLogging(*item, logging_);
  return REPProcessOK;
}

std::string REPModifyLOBParameters::AsString() const {
  SqlText sql;
  sql.Part(storage_.GetClausePresent() ? storage_.AsString() : std::string())
      .PartClause("PCTVERSION ", pct_version_)
      .Part(retention_ ? "RETENTION" : "")
      .PartClause("FREEPOOLS ", free_pools_)
      .Part(rebuild_free_pools_ ? "REBUILD FREEPOOLS" : "")
      .Part(CacheText(cache_, logging_))
      .Part(TextOf(allocate_.Get()));
  if (deallocate_) sql.Append(" DEALLOCATE UNUSED").Clause(" KEEP ", keep_.AsString());
  return sql.Take();
}

REPProcess_e REPModifyLOBStorage::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* table) const {
  return ModifyLob(processor, table, items_.Get(), parameters_.Get());
}

std::string REPModifyLOBStorage::AsString() const {
  return ModifyLobText(items_.Get(), parameters_.Get());
}

REPProcess_e REPModifyLOBStorageList::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* table) const {
  return clauses_.ProcessAll(
      [&](REPModifyLOBStorage const& storage) { return storage.Process(processor, table); });
}

std::string REPModifyLOBStorageList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}

REPProcess_e REPModifyLOBStorageClause::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* table) const {
  return ModifyLob(processor, table, items_.Get(), parameters_.Get());
}

std::string REPModifyLOBStorageClause::AsString() const {
  return ModifyLobText(items_.Get(), parameters_.Get());
}

REPProcess_e REPModifyLOBStorageClauseList::Process(REPProcessor* processor,
                                                    MOXActionSummaryItem* table) const {
  return clauses_.ProcessAll(
      [&](REPModifyLOBStorageClause const& clause) { return clause.Process(processor, table); });
}

std::string REPModifyLOBStorageClauseList::AsString() const {
  return Join(" ", false);
}

REPProcess_e REPVarrayLOBParameters::Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                                             MOXActionSummaryItem* column_owner) const {
  if (!processor || !owner) return REPProcessError;
  if (HasColumns(*owner)) return ProcessForEntity(*processor, *owner);
  return column_owner ? ProcessForPartition(*processor, *owner, *column_owner) : REPProcessError;
}

REPProcess_e REPVarrayLOBParameters::ProcessForEntity(REPProcessor& processor,
                                                      MOXActionSummaryItem& table) const {
  for (int i = 0; i < CountOf(items_.Get()); ++i) {
    auto const* const name = items_->GetName(i);
    auto const* const column = processor.FindItemPtr(table.Id(), ORVTypes::oAttribute, name);
    if (!column) return REPProcessError;
    MOXActionSummaryItem* lob = nullptr;
    processor.AddItem(column->Id(), ORVTypes::oOracleLOBStorage, name, lob);
    if (!lob) return REPProcessError;
    if (auto const result = ProcessParameters(processor, *lob); result != REPProcessOK)
      return result;
  }
  return REPProcessOK;
}

REPProcess_e REPVarrayLOBParameters::ProcessForPartition(REPProcessor& processor,
                                                         MOXActionSummaryItem& owner,
                                                         MOXActionSummaryItem& column_owner) const {
  std::vector<REPName const*> names;
  for (int i = 0; i < CountOf(items_.Get()); ++i) names.push_back(items_->GetName(i));
  if (!items_ && item_) names.push_back(item_.Get());
  if (names.empty()) return REPProcessError;
  std::vector<std::uint32_t> columns;
  for (auto const* const name : names) {
    columns.push_back(processor.FindItem(column_owner.Id(), ORVTypes::oAttribute, name));
    if (columns.back() == 0) return REPProcessError;
  }
  std::vector<MOXActionSummaryItem*> lobs;
  processor.FindSummaryChildrenByType(owner.Id(), ORVTypes::oOracleLOBStorage, lobs);
  auto const found = std::find_if(
      lobs.begin(), lobs.end(),
      [&columns](MOXActionSummaryItem const* lob) { return RefersToAny(*lob, columns); });
  auto* const lob = found != lobs.end()
                        ? *found
                        : processor.CreateItem(owner.Id(), ORVTypes::oOracleLOBStorage, nullptr);
  if (!lob) return REPProcessError;
  repora::SetReferences(*lob, ORVTypes::pColumnsRef, columns);
  return ProcessParameters(processor, *lob);
}

REPProcess_e REPVarrayLOBParameters::ProcessParameters(REPProcessor& processor,
                                                       MOXActionSummaryItem& lob) const {
  auto result = parameters_ ? parameters_->Process(&processor, &lob) : REPProcessOK;
  if (result == REPProcessOK && modify_parameters_)
    result = modify_parameters_->Process(&processor, &lob);
  return result;
}

std::string REPVarrayLOBParameters::AsString() const {
  SqlText sql;
  if (items_)
    sql.Append("LOB ").Append(items_->AsString(true));
  else if (item_)
    sql.Clause("LOB ", item_.Get());
  else
    sql.Clause("VARRAY ", varray_.Get());
  return sql.Option(TextOf(parameters_.Get())).Option(TextOf(modify_parameters_.Get())).Take();
}

REPProcess_e REPVarrayLOBParametersList::Process(REPProcessor* processor,
                                                 MOXActionSummaryItem* owner,
                                                 MOXActionSummaryItem* column_owner) const {
  return clauses_.ProcessAll([&](REPVarrayLOBParameters const& parameters) {
    return parameters.Process(processor, owner, column_owner);
  });
}

std::string REPVarrayLOBParametersList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}
