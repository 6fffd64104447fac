#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "repora/core/id_slots.h"
#include "repora/core/item_registry.h"
#include "repora/core/processor.h"
#include "repora/model/item.h"

namespace repora {

// The children that the summary has, by owner and type, in ascending id order. Few runs ask for
// them, so it is brought up to date when they do.
class SummaryIndex {
 public:
  using Item = MOXActionSummaryItem;

  // Takes in the items that came to the end of the map since the last time.
  void Update(MOXItemMap const& items);
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

  void Add(Item* item);
  std::uint32_t FindGroup(std::uint32_t owner, MOXId type) const;

  IdSlots groups_of_owner_;
  BlockArray<Group> groups_;  // 0 means none, in both
  BlockArray<Node> nodes_;
  std::ptrdiff_t items_seen_ = 0;
};

// What the cross-reference maps know by a map name. In lists of numbers, 0 for none: a run makes
// these while it frees statements, and a part on the heap per table would keep that memory in
// pieces.
struct CrossReferences {
  bool is_table = false;
  bool is_constraint = false;
  std::uint32_t constraint = 0;   // id of the item
  std::uint32_t first_index = 0;  // by ascending key group
  std::uint32_t last_index = 0;
};
// One key or index of a table.
struct TableIndex {
  std::uint32_t key_group = 0;
  REPIndexKeyType_e key_type{};
  std::uint32_t first_member = 0;
  std::uint32_t last_member = 0;
  std::uint32_t member_count = 0;
  std::uint32_t next = 0;
};
struct IndexMember {
  std::uint32_t name = 0;  // map name of the column
  std::uint32_t next = 0;
};

class CrossReferenceMaps {
 public:
  explicit CrossReferenceMaps(NameTable& names) : names_(names) {}

  // What is known by a name; null when nothing ever was.
  CrossReferences const* Find(REPName const* name) const;
  CrossReferences* Find(REPName const* name);
  CrossReferences& Add(REPName const* name);

  std::uint32_t FindName(REPName const* name) const;  // NameTable::kNoName for an unknown one

  void AddMember(CrossReferences& table, std::uint32_t key_group, REPIndexKeyType_e key_type,
                 REPName const* column);
  TableIndex const* FindIndex(CrossReferences const& table, std::uint32_t key_group) const;
  // The first index that the test accepts, or null.
  template <class Test>
  TableIndex const* FindIndexIf(CrossReferences const& table, Test test) const {
    for (auto i = table.first_index; i; i = indexes_[i].next)
      if (test(indexes_[i])) return &indexes_[i];
    return nullptr;
  }
  // Calls visit(name) for the members in their order until it returns false; whether none did.
  template <class Visit>
  bool VisitMembers(TableIndex const& index, Visit visit) const {
    for (auto i = index.first_member; i; i = members_[i].next)
      if (!visit(members_[i].name)) return false;
    return true;
  }

 private:
  NameTable& names_;
  BlockArray<CrossReferences> references_;  // by number of the name
  BlockArray<TableIndex> indexes_;
  BlockArray<IndexMember> members_;
};

// A datatype that columns of a run have: the text they share, and its domain.
struct KnownDatatype {
  QELValue text;
  std::uint32_t domain = 0;
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
  std::array<std::optional<bool>, repora::kTypeEnd> uses_physical_name;
  repora::NameTable datatype_names;
  std::vector<repora::KnownDatatype> datatypes;  // by number in datatype_names

  // The run in progress.
  MOXActionSummary* summary = nullptr;
  REPStatement_e statement_type = REPStatement_e::None;
  std::vector<REPStatement*> statements;  // owned; null once run
  REPStatementSource* source = nullptr;   // borrowed; asked when those have run
  repora::NameTable names;                // kept for the cross-reference maps
  repora::ItemRegistry registry{names};
  repora::ItemRegistry placeholders{names};
  repora::SummaryIndex summary_index;

  // Set by other threads as well.
  std::atomic<bool> stop = false;
  std::atomic<bool> pause = false;

  // Cross-reference maps, kept until the processor goes.
  repora::CrossReferenceMaps cross_references{names};
  std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> view_columns;
  std::unordered_set<std::string> alias_names;

  REPNotification notification{};

  void UpdateSummaryIndex() {
    if (summary) summary_index.Update(summary->CreatedObjects());
  }
};
