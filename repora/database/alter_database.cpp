#include "repora/database/alter_database.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/database/create_database.h"
#include "repora/database/tablespace_options.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace codes = repora::codes;

REPProcess_e REPAlterDatabase::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  REPName name;
  name.AddTail(name_.empty() ? repora::kDefaultDatabase : name_.c_str());
  auto const type = ORVTypes::oOracleDatabase;
  auto* database = processor->FindItemPtr(processor->GetRoot(), type, &name);
  if (!database && !name_.empty()) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(type), name_.c_str());
    return REPProcessError;
  }
  // A script that names no database may well be about one that it does not create.
  if (!database)
    if (auto const result = processor->AddItem(processor->GetRoot(), type, &name, database);
        result != REPProcessOK)
      return result;
  return Apply(processor, *database);
}

REPProcess_e REPAlterDatabase::Apply(REPProcessor* processor,
                                     MOXActionSummaryItem& database) const {
  switch (type_) {
    case REPAlterDBType_e::ArchiveLog:
      repora::SetBoolean(database, ORVTypes::pOracleArchiveLog, true);
      break;
    case REPAlterDBType_e::NoArchiveLog:
      repora::SetBoolean(database, ORVTypes::pOracleArchiveLog, false);
      break;
    case REPAlterDBType_e::ForceLogging:
      repora::SetBoolean(database, ORVTypes::pForceLogging, true);
      break;
    case REPAlterDBType_e::NoForceLogging:
      repora::SetBoolean(database, ORVTypes::pForceLogging, false);
      break;
    case REPAlterDBType_e::AddLogfile:
      return redo_log_files_ ? redo_log_files_->Process(processor, &database) : REPProcessOK;
    case REPAlterDBType_e::DefaultFileSize: repora::WriteFileSize(database, file_size_); break;
    case REPAlterDBType_e::DefaultTablespace:
      if (auto const* const tablespace = NamedTablespace(processor))
        repora::SetReference(database, ORVTypes::pDefaultTablespaceRef, tablespace->Id());
      break;
    case REPAlterDBType_e::DefaultTempTablespace:
      if (auto* const tablespace = NamedTablespace(processor)) {
        repora::SetInteger(*tablespace, ORVTypes::pTablespaceType, codes::kTemporaryTablespace);
        repora::SetReference(database, ORVTypes::pDefaultTempTablespaceRef, tablespace->Id());
      }
      break;
    case REPAlterDBType_e::TimeZone:
      repora::SetTextIfGiven(database, ORVTypes::pTimeZone, time_zone_);
      break;
    // Once a log group is cleared nothing of it is left to be kept.
    case REPAlterDBType_e::ClearUnarchivedLogfile: break;
    default:
      if (type_ > REPAlterDBType_e::None && type_ <= REPAlterDBType_e::GuardNone)
        processor->DisplayWarning(REPMessage::UnsupportedStatement, AsString());
      break;
  }
  return REPProcessOK;
}

MOXActionSummaryItem* REPAlterDatabase::NamedTablespace(REPProcessor* processor) const {
  return tablespace_name_.empty() ? nullptr
                                  : repora::TablespaceOf(processor, tablespace_name_.c_str());
}
