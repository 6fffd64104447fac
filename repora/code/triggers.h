#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "repora/code/stored_code.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;

// When a trigger fires; a compound trigger says so in its body.
enum class REPTriggerFire_e : int { None = 0, Before = 1, After = 2, InsteadOf = 3 };

// What ALTER TRIGGER does.
enum class REPTrigger_e : int { None = 0, Enable = 1, Disable = 2, Rename = 3, Compile = 4 };

namespace repora {

// The DML events of a trigger, bits of a mask.
inline constexpr int kDMLDelete = 1;
inline constexpr int kDMLInsert = 2;
inline constexpr int kDMLUpdate = 4;

// Whether the model has a place for a DDL or database event, whatever the case of its keywords.
bool IsTriggerEvent(std::string_view event);

}  // namespace repora

// CREATE [OR REPLACE] TRIGGER [owner.]name {BEFORE | AFTER | INSTEAD OF} event [OR event]...
//   ON [NESTED TABLE column OF] {[owner.]table | [owner.]view | DATABASE | SCHEMA}
//   [REFERENCING {NEW | OLD | PARENT} AS name...] [FOR EACH ROW] [WHEN(condition)] body
class REPCreateTrigger final : public REPStatement {
 public:
  void SetTriggerName(REPName* name) { name_.Set(name); }
  REPName* GetTriggerName() const { return name_.Get(); }
  void SetReplace(bool replace) { replace_ = replace; }
  bool GetReplace() const { return replace_; }
  // Adds one of repora::kDML... to those that are set.
  void AddDMLEvent(int event) { dml_events_ |= static_cast<std::uint32_t>(event); }
  std::uint32_t GetDMLEvents() const { return dml_events_; }
  // These two numbers are kept for the host; the events themselves are the other events below.
  void AddDDLEvent(int event) { ddl_events_ |= static_cast<std::uint32_t>(event); }
  std::uint32_t GetDDLEvents() const { return ddl_events_; }
  void AddDatabaseEvent(int event) { database_event_ = event; }  // replaces
  int GetDatabaseEvent() const { return database_event_; }
  void SetTriggerFire(REPTriggerFire_e fire) { fire_ = fire; }
  REPTriggerFire_e GetTriggerFire() const { return fire_; }
  // Without WHEN and its parentheses.
  void SetTriggerWhen(char const* condition) { when_ = condition; }
  char const* GetTriggerWhen() const { return when_.c_str(); }
  // The PL/SQL block with its last ";", or CALL and what it calls.
  void SetTriggerBody(char const* body) { body_ = body; }
  char const* GetTriggerBody() const { return body_.c_str(); }
  void SetOnName(REPName* name) { on_.Set(name); }
  REPName* GetOnName() const { return on_.Get(); }
  void SetNestedColumn(REPName* column) { nested_column_.Set(column); }
  REPName* GetNestedColumn() const { return nested_column_.Get(); }
  void SetForRow(bool for_row) { for_row_ = for_row; }
  bool GetForRow() const { return for_row_; }
  void SetAsNew(char const* name) { as_new_ = name; }
  char const* GetAsNew() const { return as_new_.c_str(); }
  void SetAsOld(char const* name) { as_old_ = name; }
  char const* GetAsOld() const { return as_old_.c_str(); }
  void SetAsParent(char const* name) { as_parent_ = name; }
  char const* GetAsParent() const { return as_parent_.c_str(); }
  // DDL and database events as their keywords are written. At the front, as the object model is
  // filled from the last one to the first; so are the columns.
  void AddOtherEvent(char const* event) { other_events_.AddHead(new repora::Text(event)); }
  int GetOtherEventCount() const { return other_events_.GetCount(); }
  char const* GetOtherEvent(int index) const { return other_events_.At(index)->c_str(); }
  void AddUpdateColumn(REPName* column) { update_columns_.AddHead(column); }
  REPNameList const& GetUpdateColumns() const { return update_columns_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e FindTarget(REPProcessor* processor, MOXActionSummaryItem*& target) const;
  REPProcess_e AddUpdateColumns(REPProcessor* processor, MOXActionSummaryItem const& target,
                                MOXActionSummaryItem& trigger) const;
  void AddOtherEvents(MOXActionSummaryItem& trigger) const;

  repora::Owned<REPName> name_;
  bool replace_ = false;
  std::uint32_t dml_events_ = 0;
  std::uint32_t ddl_events_ = 0;
  int database_event_ = 0;
  REPTriggerFire_e fire_{};
  repora::Text when_;
  repora::Text body_;
  repora::Owned<REPName> on_;
  repora::Owned<REPName> nested_column_;
  bool for_row_ = false;
  repora::Text as_new_;
  repora::Text as_old_;
  repora::Text as_parent_;
  repora::OwnedList<repora::Text> other_events_;
  REPNameList update_columns_;
};

// ALTER TRIGGER [owner.]name {ENABLE | DISABLE | RENAME TO name |
//   COMPILE [DEBUG] [parameters] [REUSE SETTINGS]}
class REPAlterTrigger final : public repora::CompileStatement {
 public:
  void SetTriggerName(REPName* name) { name_.Set(name); }
  REPName* GetTriggerName() const { return name_.Get(); }
  void SetNewTriggerName(REPName* name) { new_name_.Set(name); }
  REPName* GetNewTriggerName() const { return new_name_.Get(); }
  void SetAlter(REPTrigger_e action) { action_ = action; }
  REPTrigger_e GetAlter() const { return action_; }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  repora::Owned<REPName> new_name_;
  REPTrigger_e action_{};
};
