#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;

// What a statement does with supplemental logging: CREATE TABLE has it among its columns, ALTER
// TABLE adds or drops it.
enum class REPSuppLog_e : int { Create, Add, Drop };

// GROUP name (column [NO LOG], ...) [ALWAYS]
class REPSuppLogGroup {
 public:
  // The name of the group.
  void SetLogGroup(REPName* name) { name_.Set(name); }
  REPName* GetLogGroup() const { return name_.Get(); }
  // Adds at the head of the list. no_log: the column is in the group, but not logged.
  void AddLogColumn(REPName* column, bool no_log);
  int GetLogColumnCount() const { return columns_.GetCount(); }
  REPName* GetLogColumn(int index) const { return columns_.At(index)->name.Get(); }
  bool GetNoLog(int index) const { return columns_.At(index)->no_log; }
  void SetLogAlways(bool always) { always_ = always; }
  bool GetLogAlways() const { return always_; }

  // A group that the table has already, an unknown column and DROP are errors, reported here.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPSuppLog_e mode) const;
  std::string AsString() const;

 private:
  struct Column {
    repora::Owned<REPName> name;
    bool no_log = false;
  };

  repora::Owned<REPName> name_;
  repora::OwnedList<Column> columns_;
  bool always_ = false;
};

// DATA ({ALL | PRIMARY KEY | UNIQUE | FOREIGN KEY}, ...) COLUMNS
class REPSuppIdKey {
 public:
  void SetLogAll(bool log) { all_ = log; }
  bool GetLogAll() const { return all_; }
  void SetLogPrimaryKey(bool log) { primary_key_ = log; }
  bool GetLogPrimaryKey() const { return primary_key_; }
  void SetLogUnique(bool log) { unique_ = log; }
  bool GetLogUnique() const { return unique_; }
  void SetLogForeignKey(bool log) { foreign_key_ = log; }
  bool GetLogForeignKey() const { return foreign_key_; }

  // Kinds of keys that are not chosen stay as the table has them.
  REPProcess_e Process(MOXActionSummaryItem* table, REPSuppLog_e mode) const;
  std::string AsString() const;

 private:
  bool all_ = false;
  bool primary_key_ = false;
  bool unique_ = false;
  bool foreign_key_ = false;
};

// SUPPLEMENTAL LOG {GROUP name | log_group | id_key}
class REPSuppLogProps {
 public:
  void SetLogGroup(REPSuppLogGroup* group) { group_.Set(group); }
  REPSuppLogGroup* GetLogGroup() const { return group_.Get(); }
  void SetIdKey(REPSuppIdKey* key) { id_key_.Set(key); }
  REPSuppIdKey* GetIdKey() const { return id_key_.Get(); }
  // A group without its columns, which is how DROP names it.
  void SetGroupName(REPName* name) { group_name_.Set(name); }
  REPName* GetGroupName() const { return group_name_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPSuppLog_e mode) const;
  std::string AsString() const;

 private:
  repora::Owned<REPSuppLogGroup> group_;
  repora::Owned<REPSuppIdKey> id_key_;
  repora::Owned<REPName> group_name_;
};

// Supplemental logging in order, owned.
class REPSuppLogPropsList : public repora::ClauseList<REPSuppLogProps> {
 public:
  // Ends at the first result that is not OK.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPSuppLog_e mode) const;
  std::string AsString(bool parenthesised = false) const;
};
