#pragma once

#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "repora/core/id_slots.h"
#include "repora/core/item_registry.h"
#include "repora/core/processor.h"
#include "repora/model/item.h"

namespace repora {

// The children that the summary has, by owner and type, in ascending id order.
class SummaryIndex {
 public:
  using Item = MOXActionSummaryItem;

  void Add(Item* item);
  Item* First(std::uint32_t owner, MOXId type) const;
  void Append(std::uint32_t owner, MOXId type, std::vector<Item*>& items) const;
  void Clear();

 private:
  struct Node {
    Item* item = nullptr;
    std::uint32_t next = 0;
  };
  struct Group {
    MOXId type = 0;
    std::uint32_t next = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
  };

  std::uint32_t FindGroup(std::uint32_t owner, MOXId type) const;

  IdSlots groups_of_owner_;
  BlockArray<Group> groups_;  // 0 means none, in both
  BlockArray<Node> nodes_;
};

// One key or index of a table: its type and the map names of its member columns.
struct TableIndex {
  REPIndexKeyType_e key_type{};
  std::vector<std::string> members;
};

}  // namespace repora

struct REPProcessor::State {
  // Settings of the host.
  REPNotifyWnd* notify_wnd = nullptr;
  MOXModelSetI* model_set = nullptr;
  eREPLogical logical_case = eREPLogicalAsIs;
  eREPPhysical physical_case = eREPPhysicalAsIs;
  void* advisory_tree = nullptr;
  std::string summary_file_name;
  bool ignore_duplicate_views = false;

  // Read from the model at the start of a run.
  std::uint32_t root = 0;
  std::uint32_t next_id = 0;
  int target_server = 0;
  int dbms_version = 0;
  int dbms_minor_version = 0;
  int model_type = 0;  // while the run goes on, 0: not read yet
  // Answers of the metamodel and the datatypes map, which do not change during a run.
  mutable std::unordered_map<MOXId, bool> uses_physical_name;
  std::unordered_map<std::string, std::uint32_t> parent_domains;

  // The run in progress.
  MOXActionSummary* summary = nullptr;
  REPStatement_e statement_type = REPStatement_e::None;
  std::vector<REPStatement*> statements;  // owned; null once run
  REPStatementSource* source = nullptr;   // borrowed; asked when those have run
  repora::NameTable names;
  repora::ItemRegistry registry{names};
  repora::ItemRegistry placeholders{names};
  repora::SummaryIndex summary_index;

  // Guarded by the lock.
  std::mutex lock;
  bool stop = false;
  bool pause = false;

  // Cross-reference maps, kept until the processor goes.
  std::map<std::string, std::map<std::uint32_t, repora::TableIndex>> table_indexes;
  std::map<std::uint32_t, std::vector<std::uint32_t>> view_columns;
  std::map<std::string, std::uint32_t> constraints;
  std::unordered_set<std::string> alias_names;

  REPNotification notification{};
};
