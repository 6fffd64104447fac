#include <algorithm>
#include <utility>

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/select.h"
#include "repora/queries/table_refs.h"
#include "repora/queries/view_writer.h"

namespace codes = repora::codes;

namespace {

bool IsJoin(REPTableRef const& table) {
  return table.GetTable_e() == REPTableRef_e::Joined ||
         table.GetTable_e() == REPTableRef_e::ParenthesisedJoin;
}

bool IsWildcard(REPName const& name) {
  return name.GetName(false).starts_with('*');
}

bool IsGiven(char const* text) {
  return text && *text != '\0';
}

// Whether any entry of a FROM list, which may be missing, passes the test.
template <class Test>
bool AnyTable(REPTableRefList const* tables, Test test) {
  for (int i = 0; tables && i < tables->GetCount(); ++i)
    if (test(static_cast<REPTableRef const&>(*tables->GetTableRef(i)))) return true;
  return false;
}

// The item among the tables and views of the model. A view never refers to itself.
std::uint32_t FindSource(REPProcessor const& processor, REPName const& name,
                         MOXActionSummaryItem const* view) {
  auto const view_id = view ? view->Id() : 0;
  for (auto const type : {ORVTypes::oEntity, ORVTypes::oView, ORVTypes::oCachedView}) {
    auto const id = processor.FindItem(processor.GetRoot(), type, &name);
    if (id != 0 && (type == ORVTypes::oEntity || id != view_id)) return id;
  }
  return 0;
}

std::uint32_t FindSource(REPProcessor const& processor, REPName const& name,
                         MOXActionSummaryItem const* view, char const* default_owner) {
  if (IsGiven(default_owner) && name.GetOwnerName(false).empty()) {
    REPName owned;
    owned.AddTail(default_owner);
    owned.AddTail(name.GetName(true).c_str());
    if (auto const id = FindSource(processor, owned, view)) return id;
  }
  return FindSource(processor, name, view);
}

// The last segment as a name of its own.
REPName LastSegment(REPName const& name) {
  REPName segment;
  segment.AddTail(name.GetName(true).c_str());
  return segment;
}

// The name of a column in SQL: what the model calls it may be another one.
std::string SqlNameOf(MOXActionSummaryItem const& column) {
  auto const* const physical = column.Properties().Find(ORVTypes::pPhysicalName);
  return physical ? std::string(physical->View()) : std::string(column.Name());
}

void AddColumnsOf(REPProcessor const& processor, std::uint32_t table,
                  std::vector<REPSelect::ColInfo_s>& columns) {
  std::vector<MOXActionSummaryItem*> attributes;
  processor.FindChildrenByType(table, ORVTypes::oAttribute, attributes);
  for (auto const* attribute : attributes)
    columns.push_back({SqlNameOf(*attribute), {}, attribute->Id(), 0});
}

// The inline queries and collections of an entry, in order.
void FindUnnamed(REPTableRef const* table, std::vector<REPQueryTableExpr const*>& unnamed) {
  if (!table) return;
  if (auto const* const join = IsJoin(*table) ? table->GetJoinedTable() : nullptr) {
    FindUnnamed(join->GetLeftTable(), unnamed);
    FindUnnamed(join->GetRightTable(), unnamed);
  } else if (auto const* const expression = table->GetQueryTableExpr();
             expression && !expression->GetQueryName()) {
    unnamed.push_back(expression);
  }
}

}  // namespace

bool REPSelect::IsUnionOrJoin() const {
  return !factor_.empty() || !text_.empty() || set_operation_ || from_has_subquery_ ||
         AnyTable(tables_.Get(), [](REPTableRef const& table) {
           auto const* const expression = table.GetQueryTableExpr();
           return IsJoin(table) || (expression && expression->GetDBLink());
         });
}

bool REPSelect::ContainsWildcard() const {
  for (int i = 0; list_ && i < list_->GetCount(); ++i)
    if (list_->GetName(i) && IsWildcard(*list_->GetName(i))) return true;
  return false;
}

bool REPSelect::ContainsFlashbackQuery() const {
  return AnyTable(tables_.Get(), [](REPTableRef const& table) { return table.GetFlashback(); });
}

REPProcess_e REPSelect::ProcessTableList(REPProcessor* processor, MOXActionSummaryItem* view,
                                         char const* default_owner, bool map_only) {
  if (!tables_) return REPProcessError;
  auto first_failure = REPProcessOK;
  for (int i = 0; i < tables_->GetCount(); ++i) {
    auto const result =
        ProcessTableRef(processor, view, tables_->GetTableRef(i), default_owner, map_only);
    if (first_failure == REPProcessOK) first_failure = result;
  }
  return first_failure;
}

REPProcess_e REPSelect::ProcessTableRef(REPProcessor* processor, MOXActionSummaryItem* view,
                                        REPTableRef* table, char const* default_owner,
                                        bool map_only) {
  return table && IsJoin(*table)
             ? ProcessJoinTableRef(processor, view, table, default_owner, map_only)
             : LinkTableRef(processor, view, table, default_owner, map_only);
}

REPProcess_e REPSelect::ProcessJoinTableRef(REPProcessor* processor, MOXActionSummaryItem* view,
                                            REPTableRef* table, char const* default_owner,
                                            bool map_only) {
  auto const* const join = table ? table->GetJoinedTable() : nullptr;
  if (!join) return REPProcessError;
  auto const result =
      ProcessTableRef(processor, view, join->GetLeftTable(), default_owner, map_only);
  return result != REPProcessOK
             ? result
             : ProcessTableRef(processor, view, join->GetRightTable(), default_owner, map_only);
}

REPProcess_e REPSelect::LinkTableRef(REPProcessor* processor, MOXActionSummaryItem* view,
                                     REPTableRef* table, char const* default_owner, bool map_only) {
  auto const* const expression = table ? table->GetQueryTableExpr() : nullptr;
  if (!processor || !expression || (!view && !map_only)) return REPProcessError;
  if (expression->GetSubQuery()) from_has_subquery_ = true;
  auto* const name = expression->GetQueryName();
  if (!name) return REPProcessOK;
  auto* const alias = table->GetAliasName();
  auto source = FindSource(*processor, *name, view, default_owner);
  if (map_only) {
    if (source == 0) return REPProcessError;
    InsertTableIntoMap(name, source, 0);
    if (alias) InsertTableIntoMap(alias, source, 0);
    return REPProcessOK;
  }
  if (source == 0) {
    std::string const owner(IsGiven(default_owner) ? std::string(default_owner) + "." : "");
    processor->DisplayWarning(REPMessage::DerivedInformation, name->GetFullName(false),
                              owner + view->Name(), processor->GetObjectDisplayString(view->Type()),
                              processor->GetObjectDisplayString(ORVTypes::oEntity));
    source = processor->FindCreateItem(processor->GetRoot(), ORVTypes::oEntity, name);
  }
  auto* const relationship =
      processor->CreateItem(processor->GetRoot(), ORVTypes::oRelationship, nullptr);
  if (!relationship) return REPProcessError;
  InsertTableIntoMap(name, source, relationship->Id());
  repora::AddInteger(*relationship, ORVTypes::pType, codes::kViewReference);
  repora::AddReference(*relationship, ORVTypes::pParentEntityRef, source);
  repora::AddReference(*relationship, ORVTypes::pChildEntityRef, view->Id());
  if (alias) {
    InsertTableIntoMap(alias, source, relationship->Id());
    repora::AddText(*relationship, ORVTypes::pAliasName, alias->AsString(false));
  }
  return REPProcessOK;
}

void REPSelect::InsertTableIntoMap(REPName* name, unsigned int table_id,
                                   unsigned int relationship_id) {
  if (name) table_map_.try_emplace(name->GetMapFullName(false), Table{table_id, relationship_id});
}

std::vector<REPSelect::Table> REPSelect::TablesInKeyOrder() const {
  std::vector<Table> tables;
  tables.reserve(table_map_.size());
  for (auto const& [key, table] : table_map_) tables.push_back(table);
  return tables;
}

// What the columns of a view are made with.
struct REPSelect::ViewColumns {
  REPProcessor* processor;
  std::uint32_t id;                   // of the view
  std::vector<std::uint32_t> owners;  // the tables in key order
  std::vector<Table> tables;          // the same
};

REPProcess_e REPSelect::ProcessColsForView(REPProcessor* processor, MOXActionSummaryItem* view,
                                           bool replace) {
  if (!processor || !view || !list_) return REPProcessError;
  WriteSelectType(processor, view, replace);
  ViewColumns columns{processor, view->Id(), {}, TablesInKeyOrder()};
  for (auto const& table : columns.tables) columns.owners.push_back(table.id);
  for (int i = 0; i < list_->GetCount(); ++i) {
    MOXActionSummaryItem* column = nullptr;
    if (auto const result = AddViewColumn(columns, i, column); result != REPProcessOK)
      return result;
    if (auto const result = processor->AddColToViewColumnsMap(view->Id(), column->Id());
        result != REPProcessOK)
      return result;
    LinkViewColumn(columns, *list_->GetName(i), *column);
  }
  return REPProcessOK;
}

void REPSelect::WriteSelectType(REPProcessor* processor, MOXActionSummaryItem* view,
                                bool replace) const {
  repora::ViewWriter const writer(*processor, *view, replace);
  switch (option_) {
    case REPSelectOpt_e::None: break;
    case REPSelectOpt_e::All: writer.Integer(ORVTypes::pSelectType, codes::kSelectAll); break;
    case REPSelectOpt_e::Unique: writer.Integer(ORVTypes::pSelectType, codes::kSelectUnique); break;
    case REPSelectOpt_e::Distinct:
      writer.Integer(ORVTypes::pSelectType, codes::kSelectDistinct);
      break;
  }
}

// Columns are named by their alias, else by their own name, and expressions by their position. The
// name of a column that shows another is that one's, so it has none of its own.
REPProcess_e REPSelect::AddViewColumn(ViewColumns const& view, int position,
                                      MOXActionSummaryItem*& column) const {
  auto const* const name = list_->GetName(position);
  if (!name) return REPProcessError;
  auto const add = [&](REPName const* column_name) {
    return view.processor->AddItem(view.id, ORVTypes::oAttribute, column_name, column);
  };
  if (auto const* const alias = list_->GetAlias(position)) return add(alias);
  if (name->IsExpression()) {
    REPName const numbered(repora::FormatMessage(REPMessage::ExpressionName, position + 1));
    return add(&numbered);
  }
  auto const own_name = LastSegment(*name);
  auto result = add(&own_name);
  if (result == REPProcessDuplicate) {
    REPName numbered;
    numbered.AddTail((name->GetName(false) + "_" + std::to_string(position + 1)).c_str());
    if (name->IsQuoted()) numbered.SetQuoted(true);
    result = add(&numbered);
  }
  if (result == REPProcessOK) column->RemoveProperty(MOXTypes::pName);
  return result;
}

// Links a column to the attribute that it shows, or writes what it is instead.
void REPSelect::LinkViewColumn(ViewColumns const& view, REPName const& name,
                               MOXActionSummaryItem& column) const {
  auto const own_name = LastSegment(name);
  std::uint32_t attribute = 0;
  std::uint32_t relationship = 0;
  if (!name.IsExpression()) {
    if (auto const owner = name.GetMapOwnerName(false); owner.empty()) {
      std::size_t position = 0;
      attribute =
          view.processor->FindItemAmong(view.owners, ORVTypes::oAttribute, &own_name, position);
      if (attribute != 0) relationship = view.tables[position].relationship;
    } else if (auto const table = table_map_.find(owner); table != table_map_.end()) {
      attribute = view.processor->FindItem(table->second.id, ORVTypes::oAttribute, &own_name);
      relationship = table->second.relationship;
    }
  }
  if (attribute != 0) {
    repora::SetReference(column, ORVTypes::pParentAttributeRef, attribute);
    repora::SetReference(column, ORVTypes::pParentRelationshipRef, relationship);
    return;
  }
  repora::SetText(column, ORVTypes::pViewExpression, name.AsString(false));
  if (!name.IsExpression() && !repora::HasProperty(column, MOXTypes::pName))
    repora::SetText(column, MOXTypes::pName, name.GetName(false));
}

// A list of columns while it is made.
struct REPSelect::ColumnList {
  REPProcessor* processor;
  char const* default_owner;
  std::vector<std::uint32_t> tables;  // in key order, each once
  std::vector<ColInfo_s> columns;
};

REPProcess_e REPSelect::BuildColList(REPProcessor* processor, char const* default_owner) {
  if (!columns_.empty()) return REPProcessOK;
  if (auto const result = ProcessTableList(processor, nullptr, default_owner, true);
      result != REPProcessOK)
    return result;
  ColumnList list{processor, default_owner, DistinctTables(), {}};
  for (int i = 0; list_ && i < list_->GetCount(); ++i) {
    auto const* const name = list_->GetName(i);
    if (!name) return REPProcessError;
    if (auto const result = AddColInfo(list, *name, list_->GetAlias(i)); result != REPProcessOK)
      return result;
  }
  columns_ = std::move(list.columns);
  return REPProcessOK;
}

REPProcess_e REPSelect::AddColInfo(ColumnList& list, REPName const& name,
                                   REPName const* alias) const {
  auto const alias_text = repora::AsWritten(alias);
  auto const add = [&](std::uint32_t attribute) {
    if (attribute != 0)
      list.columns.push_back({name.GetName(false), alias_text, attribute, 0});
    else
      list.columns.push_back({name.AsString(false), alias_text, 0, 1});
    return REPProcessOK;
  };
  if (name.IsExpression()) return add(0);
  auto const own_name = LastSegment(name);
  auto const owner = name.GetMapOwnerName(false);
  if (owner.empty()) {
    if (IsWildcard(name)) return AddAllColInfos(list);
    std::size_t position = 0;
    return add(
        list.processor->FindItemAmong(list.tables, ORVTypes::oAttribute, &own_name, position));
  }
  auto const table = table_map_.find(owner);
  if (table == table_map_.end()) return REPProcessError;
  if (IsWildcard(name)) {
    AddColumnsOf(*list.processor, table->second.id, list.columns);
    return REPProcessOK;
  }
  auto const attribute =
      list.processor->FindItem(table->second.id, ORVTypes::oAttribute, &own_name);
  return attribute != 0 ? add(attribute) : REPProcessError;
}

// The columns of all tables, and then those of the inline queries.
REPProcess_e REPSelect::AddAllColInfos(ColumnList& list) const {
  for (auto const table : list.tables) AddColumnsOf(*list.processor, table, list.columns);
  std::vector<REPQueryTableExpr const*> unnamed;
  for (int i = 0; i < tables_->GetCount(); ++i) FindUnnamed(tables_->GetTableRef(i), unnamed);
  for (auto const* expression : unnamed) {
    auto* const query = expression->GetSubQuery();
    if (!query || !query->list_) return REPProcessError;
    if (auto const result = query->BuildColList(list.processor, list.default_owner);
        result != REPProcessOK)
      return result;
    for (auto const& column : query->columns_)
      list.columns.push_back({column.alias.empty() ? column.column : column.alias,
                              {},
                              column.attribute_id,
                              column.is_expression});
  }
  return REPProcessOK;
}

// In key order. A table with an alias stands in the map twice, but its columns are in the result
// once.
std::vector<std::uint32_t> REPSelect::DistinctTables() const {
  std::vector<std::uint32_t> tables;
  for (auto const& [key, table] : table_map_)
    if (std::find(tables.begin(), tables.end(), table.id) == tables.end())
      tables.push_back(table.id);
  return tables;
}

int REPSelect::CountCols(REPProcessor* processor, char const* default_owner) {
  if (!list_) return 0;
  if (BuildColList(processor, default_owner) != REPProcessOK) return -1;
  return static_cast<int>(columns_.size());
}

REPSelect::ColInfo_s* REPSelect::ColListGetAt(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= columns_.size()) return nullptr;
  return &columns_[static_cast<std::size_t>(index)];
}
