#include "repora/database/tablespace_options.h"

#include "repora/core/keyword_table.h"
#include "repora/core/name.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace repora {
namespace {

// An option of which the first value is true in the model and the second false, or the other way
// round.
template <class Enum>
void WriteChoice(MOXActionSummaryItem& item, MOXId property, Enum value, Enum is_true,
                 Enum is_false) {
  if (value == is_true) SetBoolean(item, property, true);
  if (value == is_false) SetBoolean(item, property, false);
}

}  // namespace

std::string_view Keyword(REPTempPerm_e value) {
  static constexpr std::string_view keywords[] = {"TEMPORARY", "PERMANENT"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPOnOff_e value) {
  static constexpr std::string_view keywords[] = {"ONLINE",
                                                  "OFFLINE",
                                                  "OFFLINE NORMAL",
                                                  "OFFLINE TEMPORARY",
                                                  "OFFLINE IMMEDIATE",
                                                  "DATAFILE ONLINE",
                                                  "DATAFILE OFFLINE",
                                                  "TEMPFILE ONLINE",
                                                  "TEMPFILE OFFLINE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPExtent_e value) {
  static constexpr std::string_view keywords[] = {"DICTIONARY", "LOCAL", "LOCAL AUTOALLOCATE",
                                                  "LOCAL UNIFORM", "UNIFORM"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPSegment_e value) {
  static constexpr std::string_view keywords[] = {"MANUAL", "AUTO"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPFlashback_e value) {
  static constexpr std::string_view keywords[] = {"ON", "OFF"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPRetention_e value) {
  static constexpr std::string_view keywords[] = {"GUARANTEE", "NOGUARANTEE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPReadWrite_e value) {
  static constexpr std::string_view keywords[] = {"READ ONLY", "READ WRITE"};
  return FindKeyword(value, keywords);
}

std::string_view Keyword(REPBackup_e value) {
  static constexpr std::string_view keywords[] = {"BEGIN BACKUP", "END BACKUP"};
  return FindKeyword(value, keywords);
}

void WriteCompress(MOXActionSummaryItem& tablespace, REPCompress_e value) {
  if (value == REPCompress_e::Compress)
    SetInteger(tablespace, ORVTypes::pCompressType, codes::kCompress);
  if (value == REPCompress_e::NoCompress)
    SetInteger(tablespace, ORVTypes::pCompressType, codes::kNoCompress);
}

void WriteFileSize(MOXActionSummaryItem& item, REPFileSize_e value) {
  if (value == REPFileSize_e::SmallFile)
    SetInteger(item, ORVTypes::pStorageFileType, codes::kSmallFile);
  if (value == REPFileSize_e::BigFile)
    SetInteger(item, ORVTypes::pStorageFileType, codes::kBigFile);
}

void WriteExtents(MOXActionSummaryItem& tablespace, REPExtent_e value, REPSizeClause const& size) {
  auto const write_local = [&](std::int32_t code) {
    AddInteger(tablespace, ORVTypes::pExtentManagementType, codes::kExtentsLocal);
    AddInteger(tablespace, ORVTypes::pLocalExtentManagementType, code);
  };
  switch (value) {
    case REPExtent_e::None: break;
    case REPExtent_e::Dictionary:
      AddInteger(tablespace, ORVTypes::pExtentManagementType, codes::kExtentsInDictionary);
      break;
    case REPExtent_e::Local: write_local(codes::kLocalExtentsUnspecified); break;
    case REPExtent_e::LocalAutoAllocate: write_local(codes::kLocalExtentsAutoAllocate); break;
    case REPExtent_e::LocalUniform:
    case REPExtent_e::Uniform: write_local(codes::kLocalExtentsUniform); break;
  }
  AddTextIfGiven(tablespace, ORVTypes::pExtentSize, size.AsString());
}

void WriteSegments(MOXActionSummaryItem& tablespace, REPSegment_e value) {
  if (value == REPSegment_e::Manual)
    SetInteger(tablespace, ORVTypes::pSegmentManagementType, codes::kSegmentsManual);
  if (value == REPSegment_e::Auto)
    SetInteger(tablespace, ORVTypes::pSegmentManagementType, codes::kSegmentsAuto);
}

void WriteFlashback(MOXActionSummaryItem& tablespace, REPFlashback_e value) {
  WriteChoice(tablespace, ORVTypes::pFlashbackMode, value, REPFlashback_e::On, REPFlashback_e::Off);
}

void WriteRetention(MOXActionSummaryItem& tablespace, REPRetention_e value) {
  WriteChoice(tablespace, ORVTypes::pRetentionGuarantee, value, REPRetention_e::Guarantee,
              REPRetention_e::NoGuarantee);
}

void WriteLogging(MOXActionSummaryItem& tablespace, REPLogging_e value) {
  WriteChoice(tablespace, ORVTypes::pOracleNoLogging, value, REPLogging_e::NoLogging,
              REPLogging_e::Logging);
}

void WriteOnOff(MOXActionSummaryItem& tablespace, REPOnOff_e value) {
  WriteChoice(tablespace, ORVTypes::pOracleOffline, value, REPOnOff_e::Offline, REPOnOff_e::Online);
}

bool IsNoGroup(REPName const& name) {
  return name.IsEmpty() || name.AsString(false) == "''";
}

std::string GroupText(REPName const* name) {
  if (!name) return {};
  SqlText sql(" TABLESPACE GROUP ");
  return IsNoGroup(*name) ? sql.Append("''").Take() : sql.Name(name).Take();
}

}  // namespace repora

REPProcess_e REPExtentMgmtClause::Process(REPProcessor* /*processor*/,
                                          MOXActionSummaryItem* tablespace) const {
  if (!tablespace) return REPProcessError;
  repora::WriteExtents(*tablespace, extent_, size_);
  return REPProcessOK;
}

std::string REPExtentMgmtClause::AsString() const {
  auto const keyword = repora::Keyword(extent_);
  if (keyword.empty()) return {};
  return repora::SqlText(" EXTENT MANAGEMENT ")
      .Append(keyword)
      .Append(size_.AsString(" SIZE "))
      .Take();
}
