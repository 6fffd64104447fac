#include "repora/code/triggers.h"

#include <utility>
#include <vector>

#include "repora/core/letters.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace codes = repora::codes;
using repora::SqlText;

namespace {

// The bit of an event in the mask of a property.
struct Event {
  std::string_view keyword;
  MOXId property;
  std::uint32_t bit;
};

constexpr Event kEvents[] = {
    {"ALTER", ORVTypes::pDDLEvent, 0x1},
    {"ANALYZE", ORVTypes::pDDLEvent, 0x2},
    {"ASSOCIATE STATISTICS", ORVTypes::pDDLEvent, 0x4},
    {"AUDIT", ORVTypes::pDDLEvent, 0x8},
    {"COMMENT", ORVTypes::pDDLEvent, 0x10},
    {"CREATE", ORVTypes::pDDLEvent, 0x20},
    {"DISASSOCIATE STATISTICS", ORVTypes::pDDLEvent, 0x40},
    {"DROP", ORVTypes::pDDLEvent, 0x80},
    {"GRANT", ORVTypes::pDDLEvent, 0x100},
    {"NOAUDIT", ORVTypes::pDDLEvent, 0x200},
    {"RENAME", ORVTypes::pDDLEvent, 0x400},
    {"REVOKE", ORVTypes::pDDLEvent, 0x800},
    {"TRUNCATE", ORVTypes::pDDLEvent, 0x1000},
    {"DDL", ORVTypes::pDDLEvent, 0x2000},
    {"SERVERERROR", ORVTypes::pDatabaseEvent, 0x1},
    {"LOGON", ORVTypes::pDatabaseEvent, 0x2},
    {"LOGOFF", ORVTypes::pDatabaseEvent, 0x4},
    {"STARTUP", ORVTypes::pDatabaseEvent, 0x8},
    {"SHUTDOWN", ORVTypes::pDatabaseEvent, 0x10},
    {"SUSPEND", ORVTypes::pDatabaseEvent, 0x20},
};

// The DML events in the order in which they are rendered.
struct DMLEvent {
  std::string_view keyword;
  int bit;
  std::int32_t code;
};
constexpr DMLEvent kDMLEvents[] = {
    {"DELETE", repora::kDMLDelete, codes::kTriggerDelete},
    {"INSERT", repora::kDMLInsert, codes::kTriggerInsert},
    {"UPDATE", repora::kDMLUpdate, codes::kTriggerUpdate},
};

bool Has(std::uint32_t events, DMLEvent const& event) {
  return (events & static_cast<std::uint32_t>(event.bit)) != 0;
}

QELValue FireValue(REPTriggerFire_e fire) {
  switch (fire) {
    case REPTriggerFire_e::Before: return QELValue::FromInteger(codes::kFireBefore);
    case REPTriggerFire_e::After: return QELValue::FromInteger(codes::kFireAfter);
    case REPTriggerFire_e::InsteadOf: return QELValue::FromInteger(codes::kFireInsteadOf);
    default: return {};
  }
}

std::string_view Keyword(REPTriggerFire_e fire) {
  switch (fire) {
    case REPTriggerFire_e::Before: return "BEFORE";
    case REPTriggerFire_e::After: return "AFTER";
    case REPTriggerFire_e::InsteadOf: return "INSTEAD OF";
    default: return {};
  }
}

constexpr char kBehindBody[] = "\r\n\r\n\r\n";

}  // namespace

bool repora::IsTriggerEvent(std::string_view event) {
  for (auto const& known : kEvents)
    if (EqualsIgnoringCase(event, known.keyword)) return true;
  return false;
}

REPProcess_e REPCreateTrigger::Process(REPProcessor* processor) const {
  if (!processor || !on_) return REPProcessError;
  MOXActionSummaryItem* target = nullptr;
  if (auto const result = FindTarget(processor, target); result != REPProcessOK) return result;
  MOXActionSummaryItem* trigger = nullptr;
  if (auto const result =
          processor->AddItem(target->Id(), ORVTypes::oTrigger, name_.Get(), trigger);
      result != REPProcessOK)
    return result;
  repora::SetOwnerOf(*trigger, name_.Get());
  trigger->AddProperty(MOXProperty(ORVTypes::pTriggerFire, FireValue(fire_), false));
  if (target->Type() != ORVTypes::oOracleDatabase) {
    std::int32_t actions = 0;
    for (auto const& event : kDMLEvents)
      if (Has(dml_events_, event)) actions |= event.code;
    repora::AddInteger(*trigger, ORVTypes::pType, actions);
  }
  if (for_row_) repora::AddInteger(*trigger, ORVTypes::pTriggerScope, codes::kForEachRow);
  repora::AddTextIfGiven(*trigger, ORVTypes::pTriggerWhen, when_);
  repora::AddText(*trigger, ORVTypes::pTriggerBody,
                  processor->GetTriggerTemplateSyntax(target->Type()) + body_.str() + kBehindBody);
  if (auto const result = AddUpdateColumns(processor, *target, *trigger); result != REPProcessOK)
    return result;
  repora::AddTextIfGiven(*trigger, ORVTypes::pTriggerOld, as_old_);
  repora::AddTextIfGiven(*trigger, ORVTypes::pTriggerNew, as_new_);
  AddOtherEvents(*trigger);
  if (replace_) repora::SetBoolean(*trigger, ORVTypes::pUseCreateOrReplace, true);
  return REPProcessOK;
}

// What the trigger belongs to: the database, or a table or view, which need not be known yet.
REPProcess_e REPCreateTrigger::FindTarget(REPProcessor* processor,
                                          MOXActionSummaryItem*& target) const {
  auto const root = processor->GetRoot();
  if (repora::EqualsIgnoringCase(on_->AsString(false), "database")) {
    target = processor->FindItemPtr(root, ORVTypes::oOracleDatabase);
    if (target) return REPProcessOK;
    REPName const name("DB_NAME");
    return processor->AddItem(root, ORVTypes::oOracleDatabase, &name, target);
  }
  if (repora::EqualsIgnoringCase(on_->GetName(false), "schema")) {
    processor->DisplayWarning(REPMessage::UnsupportedStatement, AsString());
    return REPProcessError;
  }
  for (auto const type : {ORVTypes::oEntity, ORVTypes::oView, ORVTypes::oCachedView}) {
    target = processor->FindItemPtr(root, type, on_.Get());
    if (target) return REPProcessOK;
  }
  target =
      processor->FindSummaryPtrById(processor->FindCreateItem(root, ORVTypes::oEntity, on_.Get()));
  return target ? REPProcessOK : REPProcessError;
}

REPProcess_e REPCreateTrigger::AddUpdateColumns(REPProcessor* processor,
                                                MOXActionSummaryItem const& target,
                                                MOXActionSummaryItem& trigger) const {
  if (update_columns_.GetCount() == 0) return REPProcessOK;
  std::vector<std::uint32_t> columns;
  for (int i = 0; i < update_columns_.GetCount(); ++i) {
    auto const* const name = update_columns_.GetName(i);
    auto const column = processor->FindItem(target.Id(), ORVTypes::oAttribute, name);
    if (column == 0) {
      processor->DisplaySemantic(REPMessage::NotFoundIn,
                                 processor->GetObjectDisplayString(ORVTypes::oAttribute),
                                 name->GetFullName(false),
                                 processor->GetObjectDisplayString(target.Type()), target.Name());
      return REPProcessError;
    }
    columns.push_back(column);
  }
  repora::SetReferences(trigger, ORVTypes::pTriggerUpdateColumns, columns);
  return REPProcessOK;
}

void REPCreateTrigger::AddOtherEvents(MOXActionSummaryItem& trigger) const {
  std::uint32_t ddl = 0;
  std::uint32_t database = 0;
  for (int i = 0; i < other_events_.GetCount(); ++i)
    for (auto const& known : kEvents)
      if (repora::EqualsIgnoringCase(GetOtherEvent(i), known.keyword))
        (known.property == ORVTypes::pDDLEvent ? ddl : database) |= known.bit;
  for (auto const& [property, mask] :
       {std::pair(ORVTypes::pDDLEvent, ddl), std::pair(ORVTypes::pDatabaseEvent, database)})
    if (mask != 0) repora::AddInteger(trigger, property, static_cast<std::int32_t>(mask));
}

std::string REPCreateTrigger::AsString() const {
  SqlText sql("CREATE ");
  sql.AppendIf(replace_, "OR REPLACE ").Append("TRIGGER ").Name(name_.Get()).Option(Keyword(fire_));
  SqlText actions;
  for (auto const& event : kDMLEvents)
    if (Has(dml_events_, event)) actions.Part(event.keyword, " OR ");
  if (dml_events_ != 0) {
    sql.Append(" ").Append(actions.Take());
    if (update_columns_.GetCount() > 0) sql.Append(" OF ").Append(update_columns_.AsString(true));
  }
  sql.Option(
      other_events_.Join(" OR ", false, [](repora::Text const& text) { return text.str(); }));
  sql.Append(" ON");
  if (nested_column_) sql.Append(" NESTED TABLE ").Name(nested_column_.Get()).Append(" OF");
  sql.Clause(" ", on_.Get());
  sql.AppendIf(!as_new_.empty() || !as_old_.empty() || !as_parent_.empty(), " REFERENCING");
  sql.Clause(" NEW AS ", as_new_).Clause(" OLD AS ", as_old_).Clause(" PARENT AS ", as_parent_);
  sql.AppendIf(for_row_, " FOR EACH ROW");
  if (!when_.empty()) sql.Append(" WHEN(").Append(when_).Append(")");
  return sql.Append(" ").Append(body_).Append(";").Append(kBehindBody).Take();
}

REPProcess_e REPAlterTrigger::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const trigger = processor->FindTrigger(name_.Get());
  if (!trigger) {
    processor->DisplayWarning(REPMessage::AlterFailed,
                              processor->GetObjectDisplayString(ORVTypes::oTrigger),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  switch (action_) {
    case REPTrigger_e::Enable:
      repora::SetInteger(*trigger, ORVTypes::pTriggerDisabled, codes::kTriggerIsEnabled);
      break;
    case REPTrigger_e::Disable:
      repora::SetInteger(*trigger, ORVTypes::pTriggerDisabled, codes::kTriggerIsDisabled);
      break;
    case REPTrigger_e::Rename: return processor->RenameItem(trigger, new_name_.Get());
    default: break;
  }
  return REPProcessOK;
}

std::string REPAlterTrigger::AsString() const {
  SqlText sql("ALTER TRIGGER ");
  sql.Name(name_.Get());
  switch (action_) {
    case REPTrigger_e::Enable: sql.Append(" ENABLE"); break;
    case REPTrigger_e::Disable: sql.Append(" DISABLE"); break;
    case REPTrigger_e::Rename: sql.Append(" RENAME TO ").Name(new_name_.Get()); break;
    case REPTrigger_e::Compile: AppendCompile(sql, {}); break;
    default: break;
  }
  return sql.Append(";").Take();
}
