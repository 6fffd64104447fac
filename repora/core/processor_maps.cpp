#include <algorithm>

#include "repora/core/letters.h"
#include "repora/core/name.h"
#include "repora/core/processor_state.h"

namespace {

std::string MapNameOf(REPName const* name) {
  return name ? name->GetMapFullName(false) : std::string();
}

// The value of a key, or null.
template <class Map, class Key>
auto* FindIn(Map& map, Key const& key) {
  auto const found = map.find(key);
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace

REPProcess_e REPProcessor::AddMemberToTableIndexes(REPName const* table, std::uint32_t key_group_id,
                                                   REPIndexKeyType_e key_type,
                                                   REPName const* column) {
  auto& indexes = state_->table_indexes[MapNameOf(table)];
  auto const [index, is_new] = indexes.try_emplace(key_group_id);
  if (is_new) index->second.key_type = key_type;
  index->second.members.push_back(MapNameOf(column));
  return REPProcessOK;
}

std::uint32_t REPProcessor::FindPKInTableIndexes(REPName const* table, int column_count) const {
  auto const* const indexes = FindIn(state_->table_indexes, MapNameOf(table));
  if (!indexes) return 0;
  for (auto const& [id, index] : *indexes)
    if (index.key_type == REPIndexPrimaryKey &&
        (column_count < 1 || index.members.size() == static_cast<std::size_t>(column_count)))
      return id;
  return 0;
}

std::uint32_t REPProcessor::FindMatchInTableIndexes(REPName const* table,
                                                    REPNameList const* columns) const {
  auto const* const indexes = FindIn(state_->table_indexes, MapNameOf(table));
  if (!indexes || !columns || columns->GetCount() == 0) return 0;
  std::vector<std::string> wanted;
  for (int i = 0; i < columns->GetCount(); ++i)
    wanted.push_back(columns->GetName(i)->GetMapFullName(false));
  for (auto const& [id, index] : *indexes) {
    auto const& members = index.members;
    if (members.size() == wanted.size() &&
        std::all_of(wanted.begin(), wanted.end(), [&](std::string const& name) {
          return std::find(members.begin(), members.end(), name) != members.end();
        }))
      return id;
  }
  return 0;
}

REPProcess_e REPProcessor::GetMemberAttributesForIndex(
    REPName const* table, std::uint32_t key_group_id,
    std::vector<std::uint32_t>& attribute_ids) const {
  auto const* const indexes = FindIn(state_->table_indexes, MapNameOf(table));
  auto const* const index = indexes ? FindIn(*indexes, key_group_id) : nullptr;
  if (!index) return REPProcessError;
  for (auto const& member : index->members) {
    REPName const name(member.c_str());
    auto const* const item = FindItemPtr(key_group_id, ORVTypes::oKeyGroupMember, &name);
    auto const* const attribute = item ? item->Properties().Find(ORVTypes::pAttributeRef) : nullptr;
    if (!attribute) return REPProcessError;
    attribute_ids.push_back(attribute->ShortId());
  }
  return REPProcessOK;
}

REPProcess_e REPProcessor::RenameEntityInTableIndexes(REPName const* old_table,
                                                      REPName const* new_table) {
  auto& tables = state_->table_indexes;
  auto const new_name = MapNameOf(new_table);
  if (tables.count(new_name) != 0) return REPProcessError;
  auto node = tables.extract(MapNameOf(old_table));
  if (node.empty()) return REPProcessOK;
  node.key() = new_name;
  tables.insert(std::move(node));
  return REPProcessOK;
}

REPProcess_e REPProcessor::RenameMemberAttributesForTable(REPName const* table,
                                                          REPName const* old_column,
                                                          REPName const* new_column) {
  auto const* const indexes = FindIn(state_->table_indexes, MapNameOf(table));
  if (!indexes) return REPProcessError;
  auto const old_name = MapNameOf(old_column);
  for (auto const& [id, index] : *indexes) {
    for (auto const& member : index.members) {
      if (member != old_name) continue;
      auto* const item = FindItemPtr(id, ORVTypes::oKeyGroupMember, old_column);
      if (!item ||
          ReplaceItem(id, ORVTypes::oKeyGroupMember, old_column, new_column) != REPProcessOK)
        return REPProcessError;
      SetNameProp(item, new_column);
    }
  }
  return REPProcessOK;
}

REPProcess_e REPProcessor::AddConstraintToConstraintsMap(REPName const* name,
                                                         std::uint32_t item_id) {
  return state_->constraints.try_emplace(MapNameOf(name), item_id).second ? REPProcessOK
                                                                          : REPProcessDuplicate;
}

std::uint32_t REPProcessor::FindConstraintInConstraintsMap(REPName const* name) const {
  auto const* const id = FindIn(state_->constraints, MapNameOf(name));
  return id ? *id : 0;
}

REPProcess_e REPProcessor::RenameItemInConstraintsMap(REPName const* old_name,
                                                      REPName const* new_name) {
  auto& constraints = state_->constraints;
  auto const key = MapNameOf(new_name);
  if (constraints.count(key) != 0) return REPProcessDuplicate;
  auto node = constraints.extract(MapNameOf(old_name));
  if (node.empty()) return REPProcessError;
  node.key() = key;
  constraints.insert(std::move(node));
  return REPProcessOK;
}

REPProcess_e REPProcessor::AddColToViewColumnsMap(std::uint32_t view_id, std::uint32_t column_id) {
  state_->view_columns[view_id].push_back(column_id);
  return REPProcessOK;
}

std::int32_t REPProcessor::GetViewColumnsColCount(std::uint32_t view_id) const {
  auto const* const columns = FindIn(state_->view_columns, view_id);
  return columns ? static_cast<std::int32_t>(columns->size()) : 0;
}

std::uint32_t REPProcessor::GetViewColumnsColInPos(std::uint32_t view_id, long position) const {
  auto const* const columns = FindIn(state_->view_columns, view_id);
  if (!columns || position < 0 || static_cast<std::size_t>(position) >= columns->size()) return 0;
  return (*columns)[static_cast<std::size_t>(position)];
}

REPProcess_e REPProcessor::AliasNameListAdd(REPName const* alias) {
  return state_->alias_names.insert(repora::AsWritten(alias)).second ? REPProcessOK
                                                                     : REPProcessDuplicate;
}

void REPProcessor::AliasNameListClear() {
  state_->alias_names.clear();
}
