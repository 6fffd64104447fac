#include "reader/parse_alter_columns.h"

#include <string>

#include "reader/parse_columns.h"
#include "reader/parse_constraints.h"
#include "reader/parse_lobs.h"
#include "reader/parse_names.h"
#include "reader/parse_object_columns.h"
#include "reader/parse_organisation.h"
#include "reader/parse_storage.h"
#include "reader/parse_supplemental.h"
#include "repora/tables/alter_columns.h"
#include "repora/tables/supplemental_logging.h"

namespace repora::reader {
namespace {

// Hands a member over from one owner to another.
template <class From, class To, class T>
void Move(From& from, T* (From::*get)() const, void (From::*set_from)(T*), To& to,
          void (To::*set_to)(T*)) {
  (to.*set_to)((from.*get)());
  (from.*set_from)(nullptr);
}

// name [datatype] [DEFAULT expression] [constraint]...
template <class Clause>
std::unique_ptr<Clause> MakeColumnClause(REPRelTableColumn& column) {
  using Column = REPRelTableColumn;
  auto clause = std::make_unique<Clause>();
  Move(column, &Column::GetColumnREPName, &Column::SetColumnName, *clause, &Clause::SetColumnName);
  Move(column, &Column::GetDatatype, &Column::SetDatatype, *clause, &Clause::SetDatatype);
  Move(column, &Column::GetExpression, &Column::SetExpression, *clause, &Clause::SetExpression);
  Move(column, &Column::GetInlineConstraints, &Column::SetInlineConstraints, *clause,
       &Clause::SetInlineConstraints);
  return clause;
}

REPAlterColumnClauses& ColumnsOf(REPAlterTable& table) {
  if (!table.GetAlterColumnClauses()) table.SetAlterColumnClauses(new REPAlterColumnClauses);
  return *table.GetAlterColumnClauses();
}

void Add(REPAlterTable& table, std::unique_ptr<REPAddColumnClause> clause) {
  auto& columns = ColumnsOf(table);
  if (!columns.GetAddColumnClauseList()) columns.SetAddColumnClauseList(new REPAddColumnClauseList);
  columns.GetAddColumnClauseList()->AddTail(clause.release());
}

void Modify(REPAlterTable& table, std::unique_ptr<REPModifyColumnClause> clause) {
  auto& columns = ColumnsOf(table);
  if (!columns.GetModifyColumnClauseList())
    columns.SetModifyColumnClauseList(new REPModifyColumnClauseList);
  columns.GetModifyColumnClauseList()->AddTail(clause.release());
}

// The list that a property of a statement or clause holds, made when it is first needed.
template <class List, class Owner>
List& ListOf(Owner& owner, List* (Owner::*get)() const, void (Owner::*set)(List*)) {
  if (!(owner.*get)()) (owner.*set)(new List);
  return *(owner.*get)();
}

void Drop(REPAlterTable& table, std::unique_ptr<REPDropColumnClause> clause) {
  auto& columns = ColumnsOf(table);
  if (!columns.GetDropColumnClauseList())
    columns.SetDropColumnClauseList(new REPDropColumnClauseList);
  columns.GetDropColumnClauseList()->AddTail(clause.release());
}

void Rename(REPAlterTable& table, std::unique_ptr<REPRenameColumnClause> clause) {
  auto& columns = ColumnsOf(table);
  if (!columns.GetRenameColumnClauseList())
    columns.SetRenameColumnClauseList(new REPRenameColumnClauseList);
  columns.GetRenameColumnClauseList()->AddTail(clause.release());
}

// The statement has a place for one constraint, which is done behind the columns and ENABLE. One
// that something else follows goes among the columns, so that the order of the script is kept.
void MakeWayForConstraint(REPAlterTable& table) {
  if (!table.GetOutOfLineConstraint()) return;
  auto clause = std::make_unique<REPAddColumnClause>();
  Move(table, &REPAlterTable::GetOutOfLineConstraint, &REPAlterTable::SetOutOfLineConstraint,
       *clause, &REPAddColumnClause::SetOutOfLineConstraint);
  Add(table, std::move(clause));
}

void SkipAlterClauseAs(TokenStream& in, std::string_view note) {
  in.Note(in.Peek(), note);
  in.SkipItem();
  SkipAlterClause(in);
}

// column | constraint | ref_constraint | SUPPLEMENTAL LOG ... | PERIOD FOR ...
void ParseAddedInList(TokenStream& in, REPAlterTable& table) {
  if (SkipPeriod(in) || SkipDomain(in)) return;
  SkipIfNotExists(in);
  if (IsSupplementalLogging(in)) {
    auto clause = std::make_unique<REPAddColumnClause>();
    clause->SetSuppLogProps(ParseSupplementalLogging(in).release());
    if (clause->GetSuppLogProps()) Add(table, std::move(clause));
  } else if (IsOutOfLineConstraint(in)) {
    auto clause = std::make_unique<REPAddColumnClause>();
    clause->SetOutOfLineConstraint(ParseOutOfLineConstraint(in).release());
    Add(table, std::move(clause));
  } else if (IsOutOfLineRefConstraint(in)) {
    auto clause = std::make_unique<REPAddColumnClause>();
    clause->SetOutOfLineRefConstraint(ParseOutOfLineRefConstraint(in).release());
    Add(table, std::move(clause));
  } else {
    auto const column = ParseColumn(in);
    auto clause = MakeColumnClause<REPAddColumnClause>(*column);
    clause->SetSort(column->GetSort());
    Add(table, std::move(clause));
  }
}

// ( item [, item]... ) | item, where the items are read by a function
template <class ParseItem>
void ParseOneOrMore(TokenStream& in, ParseItem parse_item) {
  if (in.Accept('(')) {
    do parse_item();
    while (in.Accept(','));
    if (!in.Accept(')')) in.Fail("',' or ')'");
    return;
  }
  parse_item();
  // No clause that is to be skipped comes behind a column, but a second column may, by mistake.
  auto const word = in.Peek().word;
  if (!in.AtEnd() && !StartsAlterClause(word) && word != K_COLUMN && word != K_XMLTYPE)
    in.Fail("a clause of ALTER TABLE");
}

// What follows the columns of ADD: how they are stored.
void ParseAddedProperties(TokenStream& in, REPAlterTable& table) {
  ColumnProperties properties;
  if (!ParseColumnProperties(in, properties)) return;
  auto& columns = ColumnsOf(table);
  auto& added = ListOf(columns, &REPAlterColumnClauses::GetAddColumnClauseList,
                       &REPAlterColumnClauses::SetAddColumnClauseList);
  auto& list = ListOf(added, &REPAddColumnClauseList::GetColumnPropList,
                      &REPAddColumnClauseList::SetColumnPropList);
  for (auto& property : properties) list.AddTail(property.release());
}

// LOB storage of columns that MODIFY changes. Each change of a column has a place for one; those
// too many are skipped.
void ParseModifiedLobs(TokenStream& in, REPAlterTable& table) {
  while (IsLobStorage(in)) {
    auto const* const changes = ColumnsOf(table).GetModifyColumnClauseList();
    auto const& token = in.Peek();
    auto storage = ParseLobStorage(in);
    auto index = changes ? changes->GetCount() : 0;
    while (index > 0 && changes->GetClause(index - 1)->GetLOBStorage()) --index;
    if (index > 0)
      changes->GetClause(index - 1)->SetLOBStorage(storage.release());
    else
      in.Note(token, "LOB storage of more columns than MODIFY changes is skipped");
  }
}

// SUPPLEMENTAL LOG ... [, SUPPLEMENTAL LOG ...]..., behind ADD or DROP, of which the statement has
// a place for one kind.
void ParseAlterLogging(TokenStream& in, REPAlterTable& table, REPSuppLog_e mode) {
  do {
    auto const& token = in.Peek();
    auto logging = ParseSupplementalLogging(in);
    if (!logging) continue;
    auto& properties = PropertiesOf(table);
    bool const is_first = !properties.GetSuppLogPropsList();
    if (!is_first && properties.GetSuppLogging() != mode) {
      in.Note(token, "supplemental logging that is dropped beside one that is added is skipped");
      continue;
    }
    properties.SetSuppLogging(mode);
    ListOf(properties, &REPAlterTableProps::GetSuppLogPropsList,
           &REPAlterTableProps::SetSuppLogPropsList)
        .AddTail(logging.release());
  } while (in.Is(',') && in.Peek(1).word == K_SUPPLEMENTAL && in.Accept(','));
}

// name [datatype] [DEFAULT expression] [constraint]... [LOB storage] [DROP IDENTITY]
void ParseModifiedColumn(TokenStream& in, REPAlterTable& table) {
  auto const mark = in.Mark();
  auto const column = ParseColumn(in);
  bool const has_storage = IsLobStorage(in);
  if (in.Mark() == mark + 1) in.Fail("a datatype, DEFAULT or a constraint");
  // Nothing is left of a column of which everything was skipped.
  if (column->GetDatatype() || column->GetExpression() || column->GetInlineConstraints() ||
      has_storage)
    Modify(table, MakeColumnClause<REPModifyColumnClause>(*column));
  ParseModifiedLobs(in, table);
}

// COLUMN name [NOT] SUBSTITUTABLE AT ALL LEVELS [FORCE], behind its keyword
void ParseSubstitutable(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPModifyColumnClause>();
  in.StartClause("column");
  clause->SetColumnName(ParseSimpleName(in).release());
  bool const negated = in.Accept(K_NOT);
  in.Expect(K_SUBSTITUTABLE, K_AT, K_ALL, K_LEVELS);
  if (in.Accept(K_FORCE))
    clause->SetSubstitutable(negated ? REPSubstitutable_e::NotSubstitutableForce
                                     : REPSubstitutable_e::SubstitutableForce);
  else
    clause->SetSubstitutable(negated ? REPSubstitutable_e::NotSubstitutable
                                     : REPSubstitutable_e::Substitutable);
  Modify(table, std::move(clause));
}

// LOB ( column [, column]... ) ( parameter... )
void ParseModifyLob(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPModifyLOBStorageClause>();
  in.Expect(K_LOB);
  clause->SetLOBItemList(ParseNameList(in).release());
  clause->SetLOBParameters(ParseModifyLobParameters(in).release());
  ListOf(ColumnsOf(table), &REPAlterColumnClauses::GetModifyLOBStorageClauseList,
         &REPAlterColumnClauses::SetModifyLOBStorageClauseList)
      .AddTail(clause.release());
}

// NESTED TABLE item RETURN AS {LOCATOR | VALUE}
void ParseModifyNestedTable(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPModifyCollectionClause>();
  in.Expect(K_NESTED, K_TABLE);
  clause->SetCollectionItem(ParseName(in).release());
  in.Expect(K_RETURN, K_AS);
  clause->SetLocator(ParseReturnAs(in));
  ListOf(ColumnsOf(table), &REPAlterColumnClauses::GetModifyCollectionClauseList,
         &REPAlterColumnClauses::SetModifyCollectionClauseList)
      .AddTail(clause.release());
}

// Whether the storage of a varray is changed, and not a column of that name.
bool IsModifyVarray(TokenStream const& in) {
  return in.Is(K_VARRAY) && in.Peek(2).punctuation == '(' && in.Peek(3).kind != TokenKind::Number;
}

// VARRAY item ( parameter... )
void ParseModifyVarray(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPAlterVarrayClause>();
  in.Expect(K_VARRAY);
  clause->SetVarrayItem(ParseName(in).release());
  clause->SetLOBParameters(ParseModifyLobParameters(in).release());
  ListOf(ColumnsOf(table), &REPAlterColumnClauses::GetAlterVarrayClauseList,
         &REPAlterColumnClauses::SetAlterVarrayClauseList)
      .AddTail(clause.release());
}

// A constraint that MODIFY or DROP means.
struct Target {
  REPModifyConstr_e kind = REPModifyConstr_e::None;
  std::unique_ptr<REPName> name;
  std::unique_ptr<REPNameList> columns;
};

bool IsTarget(TokenStream const& in) {
  return (in.Is(K_CONSTRAINT) && IsName(in.Peek(1))) || in.Is(K_PRIMARY, K_KEY) ||
         (in.Is(K_UNIQUE) && in.Peek(1).punctuation == '(');
}

// CONSTRAINT name | PRIMARY KEY | UNIQUE (columns)
Target ParseTarget(TokenStream& in) {
  if (in.Accept(K_PRIMARY, K_KEY)) return {REPModifyConstr_e::PrimaryKey, nullptr, nullptr};
  if (in.Accept(K_UNIQUE)) return {REPModifyConstr_e::Unique, nullptr, ParseNameList(in)};
  in.Expect(K_CONSTRAINT);
  SkipIfExists(in);
  return {REPModifyConstr_e::Constraint, ParseName(in), nullptr};
}

// Whether the statement has a place left for the constraint; MODIFY, DROP and RENAME share them.
bool TakeTarget(REPAlterTable& table, Target& target) {
  if ((target.name && table.GetConstraintOldName()) ||
      (target.columns && table.GetConstraintColumnList()))
    return false;
  if (target.name) table.SetConstraintOldName(target.name.release());
  if (target.columns) table.SetConstraintColumnList(target.columns.release());
  return true;
}

// {CONSTRAINT name | PRIMARY KEY | UNIQUE (columns)} state [CASCADE]
void ParseModifyConstraint(TokenStream& in, REPAlterTable& table) {
  auto const& token = in.Peek();
  auto const mark = in.Mark() - 1;  // the MODIFY
  auto target = ParseTarget(in);
  auto state = ParseConstraintState(in);
  if (!state) in.Fail("a constraint state");
  auto const& cascade = in.Peek();
  if (in.Accept(K_CASCADE)) in.Note(cascade, "CASCADE of MODIFY is skipped");
  if (state->AsString().empty()) return in.ForgetKeywords(mark);  // all of it was skipped
  if (table.GetModifyConstraint() != REPModifyConstr_e::None || !TakeTarget(table, target)) {
    in.Note(token, "MODIFY of another constraint is skipped");
    return;
  }
  table.SetModifyConstraint(target.kind);
  table.SetConstraintState(state.release());
}

REPDropConstr_e DropOf(REPModifyConstr_e kind) {
  switch (kind) {
    case REPModifyConstr_e::PrimaryKey: return REPDropConstr_e::PrimaryKey;
    case REPModifyConstr_e::Unique: return REPDropConstr_e::Unique;
    default: return REPDropConstr_e::Constraint;
  }
}

// {CONSTRAINT name | PRIMARY KEY | UNIQUE (columns)} [CASCADE] [{KEEP | DROP} INDEX] [ONLINE]
void ParseDropConstraint(TokenStream& in, REPAlterTable& table) {
  auto const& token = in.Peek();
  auto target = ParseTarget(in);
  bool const cascade = in.Accept(K_CASCADE);
  auto keep_drop = REPKeepDrop_e::None;
  if (in.Accept(K_KEEP, K_INDEX)) keep_drop = REPKeepDrop_e::KeepIndex;
  if (in.Accept(K_DROP, K_INDEX)) keep_drop = REPKeepDrop_e::DropIndex;
  auto const& online = in.Peek();
  if (in.Accept(K_ONLINE)) in.Note(online, "clause ONLINE is skipped");
  if (table.GetDropConstraint() != REPDropConstr_e::None || !TakeTarget(table, target)) {
    in.Note(token, "DROP of another constraint is skipped");
    return;
  }
  table.SetDropConstraint(DropOf(target.kind));
  table.SetCascade(cascade);
  table.SetKeepDrop(keep_drop);
}

// name | ( name [, name]... )
std::unique_ptr<REPNameList> ParseColumnNames(TokenStream& in) {
  if (in.Is('(')) return ParseNameList(in);
  auto names = std::make_unique<REPNameList>();
  names->AddTail(ParseSimpleName(in).release());
  return names;
}

// [CASCADE CONSTRAINTS] [INVALIDATE] [CHECKPOINT n] [ONLINE], in any order
void ParseDropOptions(TokenStream& in, REPDropColumnClause& clause) {
  while (true) {
    auto const& token = in.Peek();
    if (in.Accept(K_CASCADE)) {
      if (!in.Accept(K_CONSTRAINT)) in.Expect(K_CONSTRAINTS);
      clause.SetCascade(true);
    } else if (in.Accept(K_INVALIDATE)) {
      clause.SetInvalidate(true);
    } else if (in.Accept(K_CHECKPOINT)) {
      clause.SetCheckpoint(in.Copy(in.ExpectNumber()));
    } else if (in.Accept(K_ONLINE)) {
      in.Note(token, "clause ONLINE is skipped");
    } else {
      return;
    }
  }
}

// {COLUMN name | (names) | UNUSED COLUMNS | COLUMNS CONTINUE} [option]...
void ParseDropColumns(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPDropColumnClause>();
  if (in.Accept(K_UNUSED, K_COLUMNS)) {
    clause->SetDrop(REPDrop_e::UnusedColumns);
  } else if (in.Accept(K_COLUMNS, K_CONTINUE)) {
    clause->SetDrop(REPDrop_e::ColumnsContinue);
  } else {
    if (!in.Accept(K_COLUMN) && !in.Is('(')) in.Fail("COLUMN, CONSTRAINT or '('");
    SkipIfExists(in);
    clause->SetDrop(REPDrop_e::Columns);
    clause->SetColumns(ParseColumnNames(in).release());
  }
  ParseDropOptions(in, *clause);
  Drop(table, std::move(clause));
}

// COLUMN old TO new, behind its keyword
void ParseRenameColumn(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPRenameColumnClause>();
  clause->SetOldName(ParseSimpleName(in).release());
  in.Expect(K_TO);
  clause->SetNewName(ParseSimpleName(in).release());
  Rename(table, std::move(clause));
}

// CONSTRAINT old TO new
void ParseRenameConstraint(TokenStream& in, REPAlterTable& table) {
  auto const& token = in.Peek();
  in.Expect(K_CONSTRAINT);
  Target target{REPModifyConstr_e::Constraint, ParseName(in), nullptr};
  in.Expect(K_TO);
  auto name = ParseName(in);
  if (TakeTarget(table, target))
    table.SetConstraintNewName(name.release());
  else
    in.Note(token, "RENAME of another constraint is skipped");
}

}  // namespace

REPAlterTableProps& PropertiesOf(REPAlterTable& table) {
  if (!table.GetAlterTableProps()) table.SetAlterTableProps(new REPAlterTableProps);
  return *table.GetAlterTableProps();
}

// ADD {(item [, item]...) | column | constraint... | ref_constraint}
void ParseAlterAdd(TokenStream& in, REPAlterTable& table) {
  in.Expect(K_ADD);
  if (IsOutOfLineConstraint(in)) {
    do {
      auto constraint = ParseOutOfLineConstraint(in);
      MakeWayForConstraint(table);
      table.SetOutOfLineConstraint(constraint.release());
    } while (IsOutOfLineConstraint(in));
  } else if (IsOutOfLineRefConstraint(in) && !table.GetOutOfLineRefConstraint()) {
    table.SetOutOfLineRefConstraint(ParseOutOfLineRefConstraint(in).release());
  } else if (in.Is(K_SUPPLEMENTAL, K_LOG)) {
    ParseAlterLogging(in, table, REPSuppLog_e::Add);
  } else if (in.Is(K_OVERFLOW)) {
    auto clause = ParseAddOverflow(in);
    auto& properties = PropertiesOf(table);
    std::unique_ptr<REPAddOverflowClause> const replaced(properties.GetIOTAddOverflowClause());
    properties.SetIOT(REPIOT_e::AddOverflow);
    properties.SetIOTAddOverflowClause(clause.release());
  } else {
    ParseOneOrMore(in, [&] { ParseAddedInList(in, table); });
    ParseAddedProperties(in, table);
  }
}

// MODIFY {(column [, column]...) | column | COLUMN name ... | constraint state}
void ParseAlterModify(TokenStream& in, REPAlterTable& table) {
  in.Expect(K_MODIFY);
  if (IsTarget(in)) {
    ParseModifyConstraint(in, table);
  } else if (in.Accept(K_COLUMN)) {
    ParseSubstitutable(in, table);
  } else if (IsLobStorage(in)) {
    ParseModifyLob(in, table);
  } else if (in.Is(K_NESTED, K_TABLE)) {
    ParseModifyNestedTable(in, table);
  } else if (IsModifyVarray(in)) {
    ParseModifyVarray(in, table);
  } else {
    ParseOneOrMore(in, [&] { ParseModifiedColumn(in, table); });
    ParseModifiedLobs(in, table);
  }
}

// DROP {constraint ... | columns ...}
void ParseAlterDrop(TokenStream& in, REPAlterTable& table) {
  in.Expect(K_DROP);
  if (IsTarget(in))
    ParseDropConstraint(in, table);
  else if (in.Is(K_SUPPLEMENTAL, K_LOG))
    ParseAlterLogging(in, table, REPSuppLog_e::Drop);
  else if (in.Is('(') && in.Peek(1).word == K_PERIOD && in.Peek(2).word == K_FOR)
    SkipAlterClauseAs(in, "clause PERIOD FOR is skipped");
  else
    ParseDropColumns(in, table);
}

// RENAME {COLUMN old TO new | CONSTRAINT old TO new | TO name}
void ParseAlterRename(TokenStream& in, REPAlterTable& table) {
  in.Expect(K_RENAME);
  if (in.Accept(K_COLUMN)) {
    ParseRenameColumn(in, table);
  } else if (in.Is(K_CONSTRAINT)) {
    ParseRenameConstraint(in, table);
  } else {
    if (!in.Accept(K_TO)) in.Fail("COLUMN, CONSTRAINT or TO");
    auto name = ParseName(in);
    auto& properties = PropertiesOf(table);
    std::unique_ptr<REPName> const replaced(properties.GetNewTableName());
    properties.SetNewTableName(name.release());
  }
}

// SET UNUSED {COLUMN name | (names)} [option]...
void ParseSetUnused(TokenStream& in, REPAlterTable& table) {
  auto clause = std::make_unique<REPDropColumnClause>();
  in.Expect(K_SET, K_UNUSED);
  in.Accept(K_COLUMN);
  clause->SetDrop(REPDrop_e::SetUnused);
  clause->SetColumns(ParseColumnNames(in).release());
  ParseDropOptions(in, *clause);
  Drop(table, std::move(clause));
}

// {ENABLE | DISABLE} {constraint | TABLE LOCK | ALL TRIGGERS}
void ParseAlterEnable(TokenStream& in, REPAlterTable& table) {
  auto clause = ParseEnableDisableClause(in);
  MakeWayForConstraint(table);
  if (!table.GetEnableDisableClauseList())
    table.SetEnableDisableClauseList(new REPEnableDisableClauseList);
  table.GetEnableDisableClauseList()->AddTail(clause.release());
}

}  // namespace repora::reader
