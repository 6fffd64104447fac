#include "repora/tables/table_organisation.h"

#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

using repora::SqlText;
using repora::TextOf;

namespace codes = repora::codes;

namespace {

std::string_view MappingText(REPMapping_e mapping) {
  switch (mapping) {
    case REPMapping_e::None: break;
    case REPMapping_e::MappingTable: return "MAPPING TABLE";
    case REPMapping_e::NoMapping: return "NOMAPPING";
  }
  return {};
}

}  // namespace

REPProcess_e REPIndexOrgTableClause::Process(MOXActionSummaryItem* table) const {
  if (!table) return REPProcessError;
  repora::SetInteger(*table, ORVTypes::pDataOrganizationType, codes::kIndexOrganized);
  if (mapping_ == REPMapping_e::MappingTable)
    repora::SetInteger(*table, ORVTypes::pTableMapping, codes::kMappingTable);
  if (mapping_ == REPMapping_e::NoMapping)
    repora::SetInteger(*table, ORVTypes::pTableMapping, codes::kNoMapping);
  repora::SetTextIfGiven(*table, ORVTypes::pPctThreshold, pct_threshold_);
  return key_compression_ ? key_compression_->Process(table) : REPProcessOK;
}

std::string REPIndexOrgTableClause::AsString() const {
  return SqlText()
      .Part(MappingText(mapping_))
      .PartClause("PCTTHRESHOLD ", pct_threshold_)
      .Part(TextOf(key_compression_.Get()))
      .Take();
}

REPProcess_e REPAddOverflowClause::Process(REPProcessor* processor,
                                           MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  if (!segment_) return REPProcessOK;
  auto const* const storage = segment_->Process(processor, table, codes::kOverflowStorage);
  if (storage) repora::SetReference(*table, ORVTypes::pOracleOverflowStorageRef, storage->Id());
  return REPProcessOK;
}

std::string REPAddOverflowClause::AsString() const {
  return SqlText("ADD OVERFLOW")
      .Option(TextOf(segment_.Get()))
      .Option(TextOf(partitions_.Get()))
      .Take();
}

std::string repora::SideSegmentChange::ExtentsText() const {
  return SqlText().Part(TextOf(allocate_.Get())).Part(TextOf(deallocate_.Get())).Take();
}

REPProcess_e REPAlterOverflowClause::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  return add_overflow_ ? add_overflow_->Process(processor, table) : REPProcessOK;
}

std::string REPAlterOverflowClause::AsString() const {
  return SqlText().PartClause("OVERFLOW ", ExtentsText()).Part(TextOf(add_overflow_.Get())).Take();
}

std::string REPAlterMappingTableClause::AsString() const {
  return SqlText("MAPPING TABLE ").Append(ExtentsText()).Take();
}

REPProcess_e REPMoveTableClause::Process(REPProcessor* processor,
                                         MOXActionSummaryItem* table) const {
  if (!processor || !table) return REPProcessError;
  if (segment_) {
    auto const* const storage = segment_->Process(processor, table, codes::kUnclassifiedStorage);
    if (storage && !repora::HasProperty(*table, ORVTypes::pOracleIndexStorageRef)) {
      auto const* const kind = table->Properties().Find(ORVTypes::pOracleDataStorageType);
      bool const is_index = kind && kind->Integer() == codes::kIndexOrExternalStorage;
      repora::SetReference(
          *table, is_index ? ORVTypes::pOracleIndexStorageRef : ORVTypes::pOracleRegularStorageRef,
          storage->Id());
    }
  }
  auto result = REPProcessOK;
  if (compression_) result = compression_->Process(table);
  if (result == REPProcessOK && index_organised_) result = index_organised_->Process(table);
  if (result == REPProcessOK) result = lob_storages_.Process(processor, table, table);
  if (result == REPProcessOK && parallel_) result = parallel_->Process(processor, table);
  return result;
}

std::string REPMoveTableClause::AsString() const {
  return SqlText("MOVE")
      .AppendIf(online_, " ONLINE")
      .Option(TextOf(segment_.Get()))
      .Option(TextOf(compression_.Get()))
      .Option(TextOf(index_organised_.Get()))
      .Option(lob_storages_.AsString())
      .Option(varrays_.AsString())
      .Option(TextOf(parallel_.Get()))
      .Take();
}
