#include "repora/tables/supplemental_logging.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"

using repora::SqlText;
using repora::TextOf;

namespace {

REPProcess_e FailGroup(REPProcessor& processor, MOXActionSummaryItem const& table,
                       REPName const* group) {
  processor.DisplayWarning(REPMessage::LogGroupNotAdded,
                           processor.GetObjectDisplayString(ORVTypes::oEntity), table.Name(),
                           repora::AsWritten(group));
  return REPProcessError;
}

// Log groups are never taken out of the model.
REPProcess_e FailDrop(REPProcessor& processor, MOXActionSummaryItem const& table) {
  processor.DisplayWarning(REPMessage::AlterDropUnsupported,
                           processor.GetObjectDisplayString(ORVTypes::oEntity), table.Name());
  return REPProcessError;
}

}  // namespace

void REPSuppLogGroup::AddLogColumn(REPName* column, bool no_log) {
  auto* const added = new Column;
  added->name.Set(column);
  added->no_log = no_log;
  columns_.AddHead(added);
}

REPProcess_e REPSuppLogGroup::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                      REPSuppLog_e mode) const {
  if (!processor || !table) return REPProcessError;
  if (mode == REPSuppLog_e::Drop) return FailDrop(*processor, *table);
  MOXActionSummaryItem* group = nullptr;
  if (processor->AddItem(table->Id(), ORVTypes::oOracleSupplementalLogGroup, name_.Get(), group) !=
      REPProcessOK)
    return FailGroup(*processor, *table, name_.Get());
  for (int i = 0; i < columns_.GetCount(); ++i) {
    auto const* const name = GetLogColumn(i);
    auto const attribute = processor->FindItem(table->Id(), ORVTypes::oAttribute, name);
    if (!attribute) {
      processor->DisplayWarning(REPMessage::AlterColumnMissing,
                                processor->GetObjectDisplayString(ORVTypes::oEntity), table->Name(),
                                repora::AsWritten(name));
      return REPProcessError;
    }
    MOXActionSummaryItem* column = nullptr;
    if (processor->AddItem(group->Id(), ORVTypes::oOracleSupplementalLogColumn, name, column) !=
        REPProcessOK)
      return FailGroup(*processor, *table, name_.Get());
    repora::SetReference(*column, ORVTypes::pColumnRef, attribute);
    repora::SetBoolean(*column, ORVTypes::pHasNoLog, GetNoLog(i));
  }
  repora::SetBoolean(*group, ORVTypes::pLogAlways, always_);
  return REPProcessOK;
}

std::string REPSuppLogGroup::AsString() const {
  return SqlText("GROUP ")
      .Name(name_.Get())
      .Append(" ")
      .Append(columns_.Join(", ", true,
                            [](Column const& column) {
                              return repora::AsWritten(column.name.Get()) +
                                     (column.no_log ? " NO LOG" : "");
                            }))
      .AppendIf(always_, " ALWAYS")
      .Take();
}

REPProcess_e REPSuppIdKey::Process(MOXActionSummaryItem* table, REPSuppLog_e mode) const {
  if (!table) return REPProcessError;
  bool const log = mode != REPSuppLog_e::Drop;
  if (all_) repora::SetBoolean(*table, ORVTypes::pOracleSupplementalKeyLogAll, log);
  if (primary_key_) repora::SetBoolean(*table, ORVTypes::pOracleSupplementalKeyLogPK, log);
  if (unique_) repora::SetBoolean(*table, ORVTypes::pOracleSupplementalKeyLogUnique, log);
  if (foreign_key_) repora::SetBoolean(*table, ORVTypes::pOracleSupplementalKeyLogFK, log);
  return REPProcessOK;
}

std::string REPSuppIdKey::AsString() const {
  auto const keys = SqlText()
                        .Part(all_ ? "ALL" : "", ", ")
                        .Part(primary_key_ ? "PRIMARY KEY" : "", ", ")
                        .Part(unique_ ? "UNIQUE" : "", ", ")
                        .Part(foreign_key_ ? "FOREIGN KEY" : "", ", ")
                        .Take();
  return "DATA (" + keys + ") COLUMNS";
}

REPProcess_e REPSuppLogProps::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                      REPSuppLog_e mode) const {
  if (!processor || !table) return REPProcessError;
  if (group_) {
    if (auto const result = group_->Process(processor, table, mode); result != REPProcessOK)
      return result;
  }
  if (id_key_) {
    if (auto const result = id_key_->Process(table, mode); result != REPProcessOK) return result;
  }
  if (!group_name_) return REPProcessOK;
  if (mode == REPSuppLog_e::Drop) return FailDrop(*processor, *table);
  MOXActionSummaryItem* group = nullptr;
  return processor->AddItem(table->Id(), ORVTypes::oOracleSupplementalLogGroup, group_name_.Get(),
                            group) == REPProcessOK
             ? REPProcessOK
             : FailGroup(*processor, *table, group_name_.Get());
}

std::string REPSuppLogProps::AsString() const {
  return SqlText("SUPPLEMENTAL LOG")
      .Clause(" GROUP ", group_name_.Get())
      .Option(TextOf(group_.Get()))
      .Option(TextOf(id_key_.Get()))
      .Take();
}

REPProcess_e REPSuppLogPropsList::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                          REPSuppLog_e mode) const {
  return clauses_.ProcessAll([&](REPSuppLogProps const& properties) {
    return properties.Process(processor, table, mode);
  });
}

std::string REPSuppLogPropsList::AsString(bool parenthesised) const {
  return Join(", ", parenthesised);
}
