#pragma once

#include <functional>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "repora/queries/conditions.h"
#include "repora/tables/constraints.h"
#include "repora/tables/create_table.h"
#include "repora/tables/indexes.h"
#include "tests/run_fixture.h"

// Statements on tables in a line each, and what they made of the model as text.
namespace repora::test {

template <class T>
using Fill = std::function<void(T&)>;
using State = REPConstraintState;

// A new object as the function fills it.
template <class T>
T* New(Fill<T> const& fill) {
  auto* const object = new T;
  fill(*object);
  return object;
}

// The pieces of a text between separators, without blanks around them.
inline std::vector<std::string> Split(std::string const& text, char separator) {
  std::vector<std::string> pieces;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, separator);) {
    auto const first = piece.find_first_not_of(' ');
    if (first != std::string::npos)
      pieces.push_back(piece.substr(first, piece.find_last_not_of(' ') - first + 1));
  }
  return pieces;
}

// Null for an empty text, which is "no name".
inline REPName* Name(std::string const& text) {
  return text.empty() ? nullptr : new REPName(text.c_str());
}
inline REPNameList* Names(std::string const& text) {
  if (text.empty()) return nullptr;
  auto* const names = new REPNameList;
  for (auto const& name : Split(text, ',')) names->AddTail(Name(name));
  return names;
}

inline REPCondition* Condition(char const* column) {
  auto* const condition = new REPCondition(REPCondType_e::IsNotNull);
  condition->SetExpression1(column);
  return condition;
}

inline REPReferenceClause* References(std::string const& parent, std::string const& columns) {
  return New<REPReferenceClause>([&](auto& references) {
    references.SetReferenceName(Name(parent));
    references.SetColumns(Names(columns));
  });
}

// A constraint of a column: "NULL", "NN", "UQ", "PK", "CHK" or "FK->P(A)", with a name "PK:NAME".
inline REPInlineConstraintClause* Inline(std::string const& text,
                                         Fill<State> const& state = nullptr) {
  static std::regex const form(R"((\w+)(?::([^-]*))?(?:->([^(]*)(?:\((.*)\))?)?)");
  static std::map<std::string, REPInlineConstr_e> const kinds = {
      {"NULL", REPInlineConstr_e::Null},      {"NN", REPInlineConstr_e::NotNull},
      {"UQ", REPInlineConstr_e::Unique},      {"PK", REPInlineConstr_e::PrimaryKey},
      {"FK", REPInlineConstr_e::References},  {"CHK", REPInlineConstr_e::Check},
      {"REF", REPInlineConstr_e::Ref},        {"SCOPE", REPInlineConstr_e::ScopeIs},
      {"ROWID", REPInlineConstr_e::WithRowId}};
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) throw std::runtime_error(text);
  return New<REPInlineConstraintClause>([&](auto& clause) {
    clause.SetConstraint(kinds.at(parts[1]));
    clause.SetConstraintName(Name(parts[2]));
    if (parts[1] == "CHK") clause.SetCheckConditions(Condition("A"));
    if (parts[3].matched) clause.SetReferences(References(parts[3], parts[4]));
    if (state) clause.SetConstraintState(New(state));
  });
}

// A constraint of a table: "PK(A, B)", "UQ:NAME(A)", "FK(A, B)->P(X, Y)", "CHK()".
inline REPOutOfLineConstraint* OutOfLine(std::string const& text,
                                         Fill<State> const& state = nullptr) {
  static std::regex const form(R"((\w+)(?::(.*?))?\((.*?)\)(?:->([^(]*)(?:\((.*)\))?)?)");
  static std::map<std::string, REPOutOfLineConstr_e> const kinds = {
      {"UQ", REPOutOfLineConstr_e::Unique},
      {"PK", REPOutOfLineConstr_e::PrimaryKey},
      {"FK", REPOutOfLineConstr_e::ForeignKey},
      {"CHK", REPOutOfLineConstr_e::Check}};
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) throw std::runtime_error(text);
  return New<REPOutOfLineConstraint>([&](auto& constraint) {
    constraint.SetConstraint(kinds.at(parts[1]));
    constraint.SetConstraintName(Name(parts[2]));
    constraint.SetColumns(Names(parts[3]));
    if (parts[4].matched) constraint.SetForeignKeyReferences(References(parts[4], parts[5]));
    if (state) constraint.SetConstraintState(New(state));
  });
}

// CREATE TABLE: columns and constraints separated by semicolons, a column followed by its
// constraints: "A PK; B NN FK->P". A state, when given, belongs to all of them.
inline REPCreateTable* Table(std::string const& name, std::string const& columns,
                             std::string const& constraints = "",
                             Fill<State> const& state = nullptr) {
  return New<REPCreateTable>([&](auto& table) {
    table.SetTableType(REPTableType_e::Relational);
    table.SetTableName(Name(name));
    auto const all_columns = Split(columns, ';');
    for (auto text = all_columns.rbegin(); text != all_columns.rend(); ++text)
      table.AddRelationalColumn(New<REPRelTableColumn>([&](auto& column) {
        auto const words = Split(*text, ' ');
        column.SetColumnName(Name(words[0]));
        if (words.size() == 1) return;
        auto* const list = new REPInlineConstraintClauseList;
        for (std::size_t i = 1; i < words.size(); ++i) list->AddTail(Inline(words[i], state));
        column.SetInlineConstraints(list);
      }));
    auto const all_constraints = Split(constraints, ';');
    for (auto text = all_constraints.rbegin(); text != all_constraints.rend(); ++text)
      table.AddOutOfLineConstraint(OutOfLine(*text, state));
  });
}

// CREATE INDEX on a table; the expressions are separated by commas, a "-" before one sorts it
// downwards.
inline REPCreateIndex* Index(char const* name, char const* table, std::string const& expressions,
                             REPIndexType_e type = REPIndexType_e::None,
                             Fill<REPIndexPropertiesClause> const& properties = nullptr) {
  auto* const clause = New<REPTableIndexClause>([&](auto& index) {
    index.SetTableName(new REPName(table));
    auto* const list = new REPIndexExprList;
    for (auto const& word : Split(expressions, ','))
      list->AddTail(New<REPIndexExpr>([&](auto& expression) {
        bool const down = word.front() == '-';
        expression.SetExpression(word.c_str() + down);
        if (down) expression.SetSort(REPSort_e::Desc);
      }));
    index.SetIndexExprList(list);
    if (properties) index.SetIndexProperties(New(properties));
  });
  return New<REPCreateIndex>([&](auto& index) {
    index.SetIndexName(new REPName(name));
    index.SetIndexType(type);
    index.SetTableIndexClause(clause);
  });
}

// A run in progress. Items are told as text so that a test can say what it expects in a line.
class RunningJob {
 public:
  RunningJob(REPProcessor& running, RecordingWindow& window) : p(running), window_(window) {}

  // Takes ownership.
  REPProcess_e Do(REPStatement* statement) {
    return std::unique_ptr<REPStatement>(statement)->Process(&p);
  }

  // The messages since the last call: "REP-28 text", a line each.
  std::string Messages() {
    std::string text;
    for (; told_ < window_.all.size(); ++told_) {
      auto const& notified = window_.all[told_];
      if (notified.code.empty()) continue;
      text += (text.empty() ? "" : "\n") + notified.code + " " + notified.message;
    }
    return text;
  }

  // An item under the root, registered.
  MOXActionSummaryItem* Add(MOXId type, char const* name, std::uint32_t owner = 0) {
    REPName const parsed(name);
    MOXActionSummaryItem* item = nullptr;
    p.AddItem(owner ? owner : p.GetRoot(), type, &parsed, item);
    return item;
  }
  MOXActionSummaryItem& Find(MOXId type, char const* name, std::uint32_t owner = 0) const {
    REPName const parsed(name);
    auto* const item = p.FindItemPtr(owner ? owner : p.GetRoot(), type, &parsed);
    if (!item) throw std::runtime_error(std::string("there is no item ") + name);
    return *item;
  }
  MOXActionSummaryItem& TableItem(char const* name) const { return Find(ORVTypes::oEntity, name); }
  MOXActionSummaryItem& ColumnItem(char const* table, char const* name) const {
    return Find(ORVTypes::oAttribute, name, TableItem(table).Id());
  }
  std::vector<MOXActionSummaryItem*> Children(std::uint32_t owner, MOXId type) const {
    std::vector<MOXActionSummaryItem*> children;
    p.FindSummaryChildrenByType(owner, type, children);
    return children;
  }
  // The only child of a type; fails the test when there is another number of them.
  MOXActionSummaryItem& Only(std::uint32_t owner, MOXId type) const {
    auto const children = Children(owner, type);
    if (children.size() != 1)
      throw std::runtime_error(std::to_string(children.size()) + " children instead of one");
    return *children.front();
  }
  // The properties of an item's state; "(none)" when it has no state.
  std::string StateOf(MOXActionSummaryItem const& item) const {
    auto const states = Children(item.Id(), ORVTypes::oOracleConstraintState);
    std::string text(states.empty() ? "(none)" : "");
    for (auto const* const state : states) {
      if (state != states.front()) text += " | ";
      text += Properties(*state);
    }
    return text;
  }

  std::string NameOf(std::uint32_t id) const {
    auto const* const item = p.FindSummaryPtrById(id);
    return item ? item->Name() : "?" + std::to_string(id);
  }

  // "PK PK_T(A, B); IE I({UPPER(A)} DESC)": type, name and members in their order.
  std::string KeyGroups(MOXActionSummaryItem const& owner) const {
    std::string text;
    for (auto const* const key : Children(owner.Id(), ORVTypes::oKeyGroup)) {
      text += (text.empty() ? "" : "; ") + TextProperty(*key, ORVTypes::pKeyGroupType);
      if (key->Name()[0]) text += std::string(" ") + key->Name();
      text += "(";
      std::vector<QELShortId> order;
      if (auto const* const list = key->Properties().Find(ORVTypes::pIndexMemberOrderList))
        list->GetShortIdVector(order);
      for (std::size_t i = 0; i < order.size(); ++i)
        text += (i > 0 ? ", " : "") + MemberText(*p.FindSummaryPtrById(order[i].Id()));
      text += ")";
    }
    return text;
  }
  std::string KeyGroups(char const* table) const { return KeyGroups(TableItem(table)); }

  // "FK C(X, Y) -> P(A, B) 7 100": physical name, columns, type, no nulls, delete rule. "?" where
  // the mapping is missing.
  std::string Relationships() const {
    std::string text;
    for (auto const* const item : Children(p.GetRoot(), ORVTypes::oRelationship)) {
      auto const read = [&](MOXId property) {
        auto const* const value = item->Properties().Find(property);
        return value ? *value : QELValue();
      };
      std::vector<std::int64_t> pairs;
      read(ORVTypes::pMigrationMapping).GetInt64Vector(pairs);
      std::string parents;
      std::string children;
      for (auto const pair : pairs) {
        auto const* const comma = parents.empty() ? "" : ", ";
        parents += comma + NameOf(static_cast<std::uint32_t>(pair >> 32));
        children += comma + NameOf(static_cast<std::uint32_t>(pair & 0xFFFFFFFF));
      }
      if (!text.empty()) text += "; ";
      if (auto const name = read(ORVTypes::pPhysicalName).String(); !name.empty())
        text += name + " ";
      text += NameOf(read(ORVTypes::pChildEntityRef).ShortId()) + "(" + children + ") -> " +
              NameOf(read(ORVTypes::pParentEntityRef).ShortId()) + "(" + parents + ")";
      for (auto const property : {ORVTypes::pType, ORVTypes::pRelationshipNoNulls,
                                  ORVTypes::pRelationshipParentDeleteRule})
        if (auto const value = read(property); QELValue::HasValue(value))
          text += " " + value.AsString(true);
    }
    return text;
  }

  REPProcessor& p;

 private:
  std::string MemberText(MOXActionSummaryItem const& member) const {
    auto const* const column = member.Properties().Find(ORVTypes::pAttributeRef);
    auto text = column ? NameOf(column->ShortId())
                       : "{" + TextProperty(member, ORVTypes::pExpression) + "}";
    if (member.Properties().Find(ORVTypes::pKeyGroupSortOrder))
      text += " " + TextProperty(member, ORVTypes::pKeyGroupSortOrder);
    return text;
  }

  RecordingWindow& window_;
  std::size_t told_ = 0;
};

// Calls the action inside a run of the job.
inline void InRun(Job& job, std::function<void(RunningJob&)> const& action) {
  bool called = false;
  ASSERT_TRUE(job.Run([&](REPProcessor& running) {
    RunningJob run(running, job.window);
    run.Messages();
    action(run);
    called = true;
  }));
  ASSERT_TRUE(called);
}

inline void InRun(std::function<void(RunningJob&)> const& action) {
  Job job;
  InRun(job, action);
}

}  // namespace repora::test
