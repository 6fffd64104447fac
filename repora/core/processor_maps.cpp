#include <algorithm>
#include <string_view>
#include <utility>

#include "repora/core/letters.h"
#include "repora/core/name.h"
#include "repora/core/processor_state.h"

using repora::NameTable;
using repora::TableIndex;

namespace {

// Whether a map name becomes the same map name when it is read as a name once more.
bool IsPlain(std::string_view name) {
  return std::all_of(name.begin(), name.end(),
                     [](char c) { return repora::IsNameByte(static_cast<unsigned char>(c)); });
}

}  // namespace

namespace repora {

std::uint32_t CrossReferenceMaps::FindName(REPName const* name) const {
  return names_.Find(MapFullName(name));
}

CrossReferences const* CrossReferenceMaps::Find(REPName const* name) const {
  auto const number = FindName(name);
  return number < references_.size() ? &references_[number] : nullptr;
}

CrossReferences* CrossReferenceMaps::Find(REPName const* name) {
  return const_cast<CrossReferences*>(std::as_const(*this).Find(name));
}

CrossReferences& CrossReferenceMaps::Add(REPName const* name) {
  auto const number = names_.Add(MapFullName(name));
  while (references_.size() <= number) references_.Add({});
  return references_[number];
}

void CrossReferenceMaps::AddMember(CrossReferences& table, std::uint32_t key_group,
                                   REPIndexKeyType_e key_type, REPName const* column) {
  if (indexes_.size() == 0) {
    indexes_.Add({});
    members_.Add({});
  }
  table.is_table = true;
  // They mostly come in their order, and a table may have any number of them.
  auto at = table.last_index;
  if (!at || indexes_[at].key_group != key_group) {
    auto* place =
        at && indexes_[at].key_group < key_group ? &indexes_[at].next : &table.first_index;
    while (*place && indexes_[*place].key_group < key_group) place = &indexes_[*place].next;
    if (!*place || indexes_[*place].key_group != key_group)
      *place = indexes_.Add({key_group, key_type, 0, 0, 0, *place});
    at = *place;
    if (!indexes_[at].next) table.last_index = at;
  }
  auto& index = indexes_[at];
  auto const member = members_.Add({names_.Add(MapFullName(column)), 0});
  (index.first_member ? members_[index.last_member].next : index.first_member) = member;
  index.last_member = member;
  ++index.member_count;
}

TableIndex const* CrossReferenceMaps::FindIndex(CrossReferences const& table,
                                                std::uint32_t key_group) const {
  return FindIndexIf(table, [&](TableIndex const& index) { return index.key_group == key_group; });
}

}  // namespace repora

REPProcess_e REPProcessor::AddMemberToTableIndexes(REPName const* table, std::uint32_t key_group_id,
                                                   REPIndexKeyType_e key_type,
                                                   REPName const* column) {
  auto& maps = state_->cross_references;
  maps.AddMember(maps.Add(table), key_group_id, key_type, column);
  return REPProcessOK;
}

std::uint32_t REPProcessor::FindPKInTableIndexes(REPName const* table, int column_count) const {
  auto const& maps = state_->cross_references;
  auto const* const references = maps.Find(table);
  if (!references) return 0;
  auto const* const index = maps.FindIndexIf(*references, [&](TableIndex const& candidate) {
    return candidate.key_type == REPIndexPrimaryKey &&
           (column_count < 1 || candidate.member_count == static_cast<std::uint32_t>(column_count));
  });
  return index ? index->key_group : 0;
}

std::uint32_t REPProcessor::FindMatchInTableIndexes(REPName const* table,
                                                    REPNameList const* columns) const {
  auto const& maps = state_->cross_references;
  auto const* const references = maps.Find(table);
  if (!references || !columns || columns->GetCount() == 0) return 0;
  std::vector<std::uint32_t> wanted;
  for (int i = 0; i < columns->GetCount(); ++i)
    wanted.push_back(maps.FindName(columns->GetName(i)));
  auto const* const index = maps.FindIndexIf(*references, [&](TableIndex const& candidate) {
    return candidate.member_count == wanted.size() &&
           std::all_of(wanted.begin(), wanted.end(), [&](std::uint32_t name) {
             return !maps.VisitMembers(candidate,
                                       [&](std::uint32_t member) { return member != name; });
           });
  });
  return index ? index->key_group : 0;
}

REPProcess_e REPProcessor::GetMemberAttributesForIndex(
    REPName const* table, std::uint32_t key_group_id,
    std::vector<std::uint32_t>& attribute_ids) const {
  auto const& maps = state_->cross_references;
  auto const* const references = maps.Find(table);
  auto const* const index = references ? maps.FindIndex(*references, key_group_id) : nullptr;
  if (!index) return REPProcessError;
  bool const complete = maps.VisitMembers(*index, [&](std::uint32_t member) {
    auto const* const item = FindMember(key_group_id, member);
    auto const* const attribute = item ? item->Properties().Find(ORVTypes::pAttributeRef) : nullptr;
    if (attribute) attribute_ids.push_back(attribute->ShortId());
    return attribute != nullptr;
  });
  return complete ? REPProcessOK : REPProcessError;
}

MOXActionSummaryItem* REPProcessor::FindMember(std::uint32_t key_group_id,
                                               std::uint32_t map_name) const {
  auto const text = state_->names[map_name].view();
  if (IsPlain(text))
    return state_->registry.Find({key_group_id, ORVTypes::oKeyGroupMember, map_name});
  REPName const name(text);
  return FindItemPtr(key_group_id, ORVTypes::oKeyGroupMember, &name);
}

REPProcess_e REPProcessor::RenameEntityInTableIndexes(REPName const* old_table,
                                                      REPName const* new_table) {
  auto& renamed = state_->cross_references.Add(new_table);
  if (renamed.is_table) return REPProcessError;
  auto* const references = state_->cross_references.Find(old_table);
  if (!references || !references->is_table) return REPProcessOK;
  renamed.is_table = std::exchange(references->is_table, false);
  renamed.first_index = std::exchange(references->first_index, 0);
  renamed.last_index = std::exchange(references->last_index, 0);
  return REPProcessOK;
}

REPProcess_e REPProcessor::RenameMemberAttributesForTable(REPName const* table,
                                                          REPName const* old_column,
                                                          REPName const* new_column) {
  auto const& maps = state_->cross_references;
  auto const* const references = maps.Find(table);
  if (!references || !references->is_table) return REPProcessError;
  auto const old_name = maps.FindName(old_column);
  auto const rename = [&](std::uint32_t key_group) {
    auto* const item = FindItemPtr(key_group, ORVTypes::oKeyGroupMember, old_column);
    if (!item ||
        ReplaceItem(key_group, ORVTypes::oKeyGroupMember, old_column, new_column) != REPProcessOK)
      return false;
    SetNameProp(item, new_column);
    return true;
  };
  auto const* const failed = maps.FindIndexIf(*references, [&](TableIndex const& index) {
    return !maps.VisitMembers(
        index, [&](std::uint32_t member) { return member != old_name || rename(index.key_group); });
  });
  return failed ? REPProcessError : REPProcessOK;
}

REPProcess_e REPProcessor::AddConstraintToConstraintsMap(REPName const* name,
                                                         std::uint32_t item_id) {
  auto& references = state_->cross_references.Add(name);
  if (references.is_constraint) return REPProcessDuplicate;
  references.is_constraint = true;
  references.constraint = item_id;
  return REPProcessOK;
}

std::uint32_t REPProcessor::FindConstraintInConstraintsMap(REPName const* name) const {
  auto const* const references = std::as_const(state_->cross_references).Find(name);
  return references && references->is_constraint ? references->constraint : 0;
}

REPProcess_e REPProcessor::RenameItemInConstraintsMap(REPName const* old_name,
                                                      REPName const* new_name) {
  auto& renamed = state_->cross_references.Add(new_name);
  if (renamed.is_constraint) return REPProcessDuplicate;
  auto* const references = state_->cross_references.Find(old_name);
  if (!references || !references->is_constraint) return REPProcessError;
  references->is_constraint = false;
  renamed.is_constraint = true;
  renamed.constraint = references->constraint;
  return REPProcessOK;
}

REPProcess_e REPProcessor::AddColToViewColumnsMap(std::uint32_t view_id, std::uint32_t column_id) {
  state_->view_columns[view_id].push_back(column_id);
  return REPProcessOK;
}

std::int32_t REPProcessor::GetViewColumnsColCount(std::uint32_t view_id) const {
  auto const columns = state_->view_columns.find(view_id);
  return columns == state_->view_columns.end() ? 0
                                               : static_cast<std::int32_t>(columns->second.size());
}

std::uint32_t REPProcessor::GetViewColumnsColInPos(std::uint32_t view_id, long position) const {
  auto const columns = state_->view_columns.find(view_id);
  if (columns == state_->view_columns.end() || position < 0 ||
      static_cast<std::size_t>(position) >= columns->second.size())
    return 0;
  return columns->second[static_cast<std::size_t>(position)];
}

REPProcess_e REPProcessor::AliasNameListAdd(REPName const* alias) {
  return state_->alias_names.insert(repora::AsWritten(alias)).second ? REPProcessOK
                                                                     : REPProcessDuplicate;
}

void REPProcessor::AliasNameListClear() {
  state_->alias_names.clear();
}
