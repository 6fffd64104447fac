#include "repora/storage/storage_clause.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;

namespace codes = repora::codes;

namespace {

std::string_view Keyword(REPPoolType_e pool) {
  switch (pool) {
    case REPPoolType_e::None: break;
    case REPPoolType_e::Default: return "DEFAULT";
    case REPPoolType_e::Recycle: return "RECYCLE";
    case REPPoolType_e::Keep: return "KEEP";
  }
  return {};
}

void WriteBufferPool(MOXActionSummaryItem& storage, REPPoolType_e pool) {
  auto const write = [&storage](std::int32_t code) {
    repora::SetInteger(storage, ORVTypes::pOracleBuffPool, code);
  };
  switch (pool) {
    case REPPoolType_e::None: break;
    case REPPoolType_e::Default: write(codes::kBufferPoolDefault); break;
    case REPPoolType_e::Recycle: write(codes::kBufferPoolRecycle); break;
    case REPPoolType_e::Keep: write(codes::kBufferPoolKeep); break;
  }
}

void WriteMaxExtents(MOXActionSummaryItem& storage, REPSizeClause const& size) {
  switch (size.GetType()) {
    case REPSizeType_e::None: break;
    case REPSizeType_e::Unlimited:
      repora::SetInteger(storage, ORVTypes::pOracleMaxExtentType, codes::kMaxExtentsUnlimited);
      break;
    default: repora::SetText(storage, ORVTypes::pOracleMaxExtents, size.AsString());
  }
}

void WriteOptimal(MOXActionSummaryItem& storage, REPSizeClause const& size) {
  switch (size.GetType()) {
    case REPSizeType_e::None: break;
    case REPSizeType_e::KeywordOnly:
      // A blank stands for the keyword without a value.
      repora::SetText(storage, ORVTypes::pOracleOptimal, " ");
      break;
    case REPSizeType_e::Null:
      repora::SetInteger(storage, ORVTypes::pOracleOptimalSizeType, codes::kOptimalNull);
      break;
    default:
      repora::SetInteger(storage, ORVTypes::pOracleOptimalSizeType, codes::kOptimalSize);
      repora::SetText(storage, ORVTypes::pOracleOptimal, size.AsString());
  }
}

void WriteSize(MOXActionSummaryItem& storage, MOXId property, REPSizeClause const& size) {
  repora::SetTextIfGiven(storage, property, size.AsString());
}

void WriteNumber(MOXActionSummaryItem& storage, MOXId property, int number) {
  if (number >= 0) repora::SetText(storage, property, std::to_string(number));
}

void AppendSize(SqlText& sql, char const* keyword, REPSizeClause const& size) {
  if (size.GetType() != REPSizeType_e::None) sql.Append(keyword).Append(size.AsString());
}

void AppendNumber(SqlText& sql, char const* keyword, int number) {
  if (number >= 0) sql.Part(keyword).Number(number);
}

void FillSize(REPSizeClause& size, REPSizeClause const& other) {
  if (size.GetType() == REPSizeType_e::None) size = other;
}

}  // namespace

MOXActionSummaryItem* REPStorageClause::Process(REPProcessor* processor,
                                                MOXActionSummaryItem* owner) const {
  if (!processor || !owner) return nullptr;
  REPName const name(owner->Name());
  MOXActionSummaryItem* storage = nullptr;
  // An item that the owner has already is as good as a new one.
  processor->AddItem(owner->Id(), ORVTypes::oOraclePhysicalStorage, &name, storage);
  if (storage) WriteProperties(*storage);
  return storage;
}

void REPStorageClause::WriteProperties(MOXActionSummaryItem& storage) const {
  WriteBufferPool(storage, pool_);
  WriteSize(storage, ORVTypes::pOracleFreeListGroups, groups_);
  WriteSize(storage, ORVTypes::pOracleFreeLists, free_lists_);
  WriteSize(storage, ORVTypes::pOracleInitial, initial_);
  WriteMaxExtents(storage, max_extents_);
  WriteSize(storage, ORVTypes::pOracleMinExtents, min_extents_);
  WriteSize(storage, ORVTypes::pOracleNext, next_);
  WriteOptimal(storage, optimal_);
  WriteSize(storage, ORVTypes::pOraclePctIncrease, pct_increase_);
}

std::string REPStorageClause::AsString() const {
  SqlText sql("STORAGE (");
  AppendSize(sql, " INITIAL ", initial_);
  AppendSize(sql, " NEXT ", next_);
  AppendSize(sql, " MINEXTENTS ", min_extents_);
  AppendSize(sql, " MAXEXTENTS ", max_extents_);
  AppendSize(sql, " PCTINCREASE ", pct_increase_);
  AppendSize(sql, " FREELISTS ", free_lists_);
  AppendSize(sql, " FREELIST GROUPS ", groups_);
  if (optimal_.GetType() == REPSizeType_e::KeywordOnly)
    sql.Append(" OPTIMAL");
  else
    AppendSize(sql, " OPTIMAL ", optimal_);
  return sql.Clause(" BUFFER_POOL ", Keyword(pool_)).Append(" )").Take();
}

void REPStorageClause::FillFrom(REPStorageClause const& other) {
  if (pool_ == REPPoolType_e::None) pool_ = other.pool_;
  if (!present_) present_ = other.present_;
  FillSize(free_lists_, other.free_lists_);
  FillSize(groups_, other.groups_);
  FillSize(initial_, other.initial_);
  FillSize(max_extents_, other.max_extents_);
  FillSize(min_extents_, other.min_extents_);
  FillSize(next_, other.next_);
  FillSize(optimal_, other.optimal_);
  FillSize(pct_increase_, other.pct_increase_);
}

MOXActionSummaryItem* REPPhysicalAttrClause::Process(REPProcessor* processor,
                                                     MOXActionSummaryItem* owner,
                                                     std::int32_t storage_kind) const {
  if (!processor || !owner) return nullptr;
  REPName const name = storage_kind == codes::kOverflowStorage ? REPName("Overflow") : REPName();
  MOXActionSummaryItem* storage = nullptr;
  processor->AddItem(owner->Id(), ORVTypes::oOraclePhysicalStorage, &name, storage);
  if (!storage) return nullptr;
  repora::SetInteger(*storage, ORVTypes::pType, storage_kind);
  WriteNumber(*storage, ORVTypes::pOracleIniTrans, ini_trans_);
  WriteNumber(*storage, ORVTypes::pOracleMaxTrans, max_trans_);
  WriteNumber(*storage, ORVTypes::pOraclePctFree, pct_free_);
  WriteNumber(*storage, ORVTypes::pOraclePctUsed, pct_used_);
  if (storage_.GetClausePresent()) storage_.WriteProperties(*storage);
  return storage;
}

// MAXTRANS is left out: Oracle accepts it for old scripts and ignores it.
std::string REPPhysicalAttrClause::AsString() const {
  SqlText sql;
  AppendNumber(sql, "PCTFREE ", pct_free_);
  AppendNumber(sql, "PCTUSED ", pct_used_);
  AppendNumber(sql, "INITRANS ", ini_trans_);
  if (storage_.GetClausePresent()) sql.Part(storage_.AsString());
  return sql.Take();
}

void REPPhysicalAttrClause::FillFrom(REPPhysicalAttrClause const& other) {
  if (ini_trans_ == kNotGiven) ini_trans_ = other.ini_trans_;
  if (max_trans_ == kNotGiven) max_trans_ = other.max_trans_;
  if (pct_free_ == kNotGiven) pct_free_ = other.pct_free_;
  if (pct_used_ == kNotGiven) pct_used_ = other.pct_used_;
  storage_.FillFrom(other.storage_);
}
