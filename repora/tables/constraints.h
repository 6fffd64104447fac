#pragma once

#include <cstdint>
#include <string>

#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPCondition;
class REPCreateIndex;
class REPIndexPropertiesClause;
class REPProcessor;
enum REPIndexKeyType_e : int;

enum class REPInlineConstr_e : int {
  None,
  Null,
  NotNull,
  Unique,
  PrimaryKey,
  References,
  Check,
  Ref,
  WithRowId,
  ScopeIs,
  Named  // CONSTRAINT name, in ENABLE and DISABLE clauses only
};
enum class REPOutOfLineConstr_e : int { None, Unique, PrimaryKey, ForeignKey, Check };
enum class REPKeepDrop_e : int { None, KeepIndex, DropIndex };

namespace repora {

// The name under which a constraint stands in the constraints map: the schema of its table, when
// the table name has one, and the constraint's own name. Names are unique in a schema, not only in
// a table. Null names count as empty.
REPName QualifiedConstraintName(REPName const* table_name, REPName const* constraint_name);

// Neither does anything for a constraint without a name. The test reports a name that is in use.
REPProcess_e TestConstraintName(REPProcessor& processor, REPName const* table_name,
                                REPName const* constraint_name);
REPProcess_e RegisterConstraintName(REPProcessor& processor, REPName const* table_name,
                                    REPName const* constraint_name, std::uint32_t item_id);

// Reports that the index a constraint is to use is missing or lacks a column.
REPProcess_e WarnIndexMissing(REPProcessor& processor, REPName const* table_name);

}  // namespace repora

// REFERENCES [owner.]table [(column, ...)] [ON DELETE {CASCADE | SET NULL}]
class REPReferenceClause {
 public:
  // The parent table.
  void SetReferenceName(REPName* name) { name_.Set(name); }
  REPName* GetReferenceName() const { return name_.Get(); }
  // The parent's columns; without them its primary key is meant.
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  void SetDelete(REPDelete_e rule) { delete_ = rule; }
  REPDelete_e GetDelete() const { return delete_; }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPNameList> columns_;
  REPDelete_e delete_{};
};

// [[NOT] DEFERRABLE] [INITIALLY {IMMEDIATE | DEFERRED}] [ENABLE | DISABLE] [VALIDATE | NOVALIDATE]
//   [RELY | NORELY] [EXCEPTIONS INTO table] [USING INDEX [index | create_index | properties]]
class REPConstraintState {
 public:
  REPConstraintState();
  ~REPConstraintState();

  void SetDeferrable(REPDeferrable_e deferrable) { deferrable_ = deferrable; }
  REPDeferrable_e GetDeferrable() const { return deferrable_; }
  void SetInitially(REPInitially_e initially) { initially_ = initially; }
  REPInitially_e GetInitially() const { return initially_; }
  void SetEnable(REPEnable_e enable) { enable_ = enable; }
  REPEnable_e GetEnable() const { return enable_; }
  void SetValidate(REPValidate_e validate) { validate_ = validate; }
  REPValidate_e GetValidate() const { return validate_; }
  void SetRely(REPRely_e rely) { rely_ = rely; }
  REPRely_e GetRely() const { return rely_; }
  // The EXCEPTIONS INTO table.
  void SetExceptions(REPName* table) { exceptions_.Set(table); }
  REPName* GetExceptions() const { return exceptions_.Get(); }
  void SetCreateIndex(REPCreateIndex* index) { create_index_.Set(index); }
  REPCreateIndex* GetCreateIndex() const { return create_index_.Get(); }
  // The name of the index that USING INDEX takes.
  void SetIndexSchema(REPName* name) { index_name_.Set(name); }
  REPName* GetIndexSchema() const { return index_name_.Get(); }
  void SetProperties(REPIndexPropertiesClause* properties) { properties_.Set(properties); }
  REPIndexPropertiesClause* GetProperties() const { return properties_.Get(); }
  // Whether the script has USING INDEX, in any of its forms.
  void SetUsingIndex(bool using_index) { using_index_ = using_index; }
  bool GetUsingIndex() const { return using_index_; }

  // Writes the state on the constraint state item of a constrained item (a column, key group, check
  // or relationship), which is made when there is none. USING INDEX is for key groups only and
  // otherwise an error that is reported here; is_key_group says what the constraint is.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* constrained,
                       bool is_key_group) const;
  // Makes the index of USING INDEX (CREATE INDEX ...) and enters its members as a key of the table.
  // Returns its key group, borrowed; null when there is no such index or it failed.
  MOXActionSummaryItem* ProcessCreateIndex(REPProcessor* processor, REPName const* table_name,
                                           REPIndexKeyType_e kind) const;
  std::string AsString() const;

 private:
  void WriteProperties(REPProcessor& processor, MOXActionSummaryItem& state) const;

  REPDeferrable_e deferrable_{};
  REPInitially_e initially_{};
  REPEnable_e enable_{};
  REPValidate_e validate_{};
  REPRely_e rely_{};
  repora::Owned<REPName> exceptions_;
  repora::Owned<REPCreateIndex> create_index_;
  repora::Owned<REPName> index_name_;
  repora::Owned<REPIndexPropertiesClause> properties_;
  bool using_index_ = false;
};

// [CONSTRAINT name] {NULL | NOT NULL | UNIQUE | PRIMARY KEY | references | CHECK (condition)
//   | REF column | WITH ROWID | SCOPE IS table} [constraint_state]
// A constraint of a column, written with the column. REF, WITH ROWID and SCOPE IS make no items.
class REPInlineConstraintClause {
 public:
  REPInlineConstraintClause();
  ~REPInlineConstraintClause();

  void SetConstraint(REPInlineConstr_e kind) { constraint_ = kind; }
  REPInlineConstr_e GetConstraint() const { return constraint_; }
  void SetConstraintName(REPName* name) { name_.Set(name); }
  REPName* GetConstraintName() const { return name_.Get(); }
  void SetConstraintState(REPConstraintState* state) { state_.Set(state); }
  REPConstraintState* GetConstraintState() const { return state_.Get(); }
  void SetReferences(REPReferenceClause* references) { references_.Set(references); }
  REPReferenceClause* GetReferences() const { return references_.Get(); }
  // Kept, neither processed nor rendered.
  void SetConditions(REPExpr* conditions) { conditions_.Set(conditions); }
  REPExpr* GetConditions() const { return conditions_.Get(); }
  // The table of SCOPE IS.
  void SetScope(REPName* table) { scope_.Set(table); }
  REPName* GetScope() const { return scope_.Get(); }
  void SetCheckConditions(REPCondition* condition) { check_.Set(condition); }
  REPCondition* GetCheckConditions() const { return check_.Get(); }
  // The column of REF.
  void SetRefName(REPName* name) { ref_name_.Set(name); }
  REPName* GetRefName() const { return ref_name_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name, MOXActionSummaryItem* column) const;
  // Makes the key group of a key on one column, or of a reference from a view. key_group is null
  // when none was made; a failure may leave one behind.
  REPProcess_e CreateKeyGroupPlusMember(REPProcessor* processor, MOXActionSummaryItem* table,
                                        REPName const* table_name, MOXActionSummaryItem* column,
                                        MOXActionSummaryItem*& key_group) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessNullOption(REPProcessor& processor, REPName const* table_name,
                                 MOXActionSummaryItem& column) const;
  REPProcess_e ProcessKey(REPProcessor& processor, MOXActionSummaryItem& table,
                          REPName const* table_name, MOXActionSummaryItem& column) const;
  REPProcess_e ProcessReferences(REPProcessor& processor, MOXActionSummaryItem& table,
                                 REPName const* table_name, MOXActionSummaryItem& column) const;
  REPProcess_e ProcessKeyGroup(REPProcessor& processor, MOXActionSummaryItem& table,
                               REPName const* table_name, MOXActionSummaryItem& column) const;

  REPInlineConstr_e constraint_{};
  repora::Owned<REPName> name_;
  repora::Owned<REPConstraintState> state_;
  repora::Owned<REPReferenceClause> references_;
  repora::Owned<REPExpr> conditions_;
  repora::Owned<REPName> scope_;
  repora::Owned<REPCondition> check_;
  repora::Owned<REPName> ref_name_;
};

// The constraints of a column in order, owned.
class REPInlineConstraintClauseList {
 public:
  void AddHead(REPInlineConstraintClause* clause) { clauses_.AddHead(clause); }
  void AddTail(REPInlineConstraintClause* clause) { clauses_.AddTail(clause); }
  int GetCount() const { return clauses_.GetCount(); }
  REPInlineConstraintClause* GetConstraint(int index) const { return clauses_.At(index); }

  // Ends at the first failure.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name, MOXActionSummaryItem* column) const;
  // Separated by blanks: a comma would end the column.
  std::string AsString(bool parenthesised = false) const;

 private:
  repora::OwnedList<REPInlineConstraintClause> clauses_;
};

// [CONSTRAINT name] {UNIQUE (column, ...) | PRIMARY KEY (column, ...)
//   | FOREIGN KEY (column, ...) references | CHECK (condition)} [constraint_state]
// A constraint of a table or view, written beside its columns.
class REPOutOfLineConstraint {
 public:
  REPOutOfLineConstraint();
  ~REPOutOfLineConstraint();

  void SetConstraintName(REPName* name) { name_.Set(name); }
  REPName* GetConstraintName() const { return name_.Get(); }
  void SetConstraint(REPOutOfLineConstr_e kind) { constraint_ = kind; }
  REPOutOfLineConstr_e GetConstraint() const { return constraint_; }
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  void SetForeignKeyReferences(REPReferenceClause* references) { references_.Set(references); }
  REPReferenceClause* GetForeignKeyReferences() const { return references_.Get(); }
  void SetConstraintState(REPConstraintState* state) { state_.Set(state); }
  REPConstraintState* GetConstraintState() const { return state_.Get(); }
  void SetCheckConditions(REPCondition* condition) { check_.Set(condition); }
  REPCondition* GetCheckConditions() const { return check_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessKey(REPProcessor& processor, MOXActionSummaryItem& table,
                          REPName const* table_name) const;
  REPProcess_e ProcessForeignKey(REPProcessor& processor, MOXActionSummaryItem& table,
                                 REPName const* table_name) const;
  REPProcess_e ProcessKeyGroup(REPProcessor& processor, MOXActionSummaryItem& table,
                               REPName const* table_name) const;
  REPProcess_e CreateKeyGroupPlusMembers(REPProcessor* processor, MOXActionSummaryItem* table,
                                         REPName const* table_name,
                                         MOXActionSummaryItem*& key_group) const;

  repora::Owned<REPName> name_;
  REPOutOfLineConstr_e constraint_{};
  repora::Owned<REPNameList> columns_;
  repora::Owned<REPReferenceClause> references_;
  repora::Owned<REPConstraintState> state_;
  repora::Owned<REPCondition> check_;
};

// The constraints of a table in order, owned.
class REPOutOfLineConstraintList {
 public:
  void AddHead(REPOutOfLineConstraint* constraint) { constraints_.AddHead(constraint); }
  void AddTail(REPOutOfLineConstraint* constraint) { constraints_.AddTail(constraint); }
  int GetCount() const { return constraints_.GetCount(); }
  REPOutOfLineConstraint* GetConstraint(int index) const { return constraints_.At(index); }

  // Ends at the first failure.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString(bool parenthesised = false) const;

 private:
  repora::OwnedList<REPOutOfLineConstraint> constraints_;
};

namespace repora {

// What constraints on object references hold, in the line and out of it.
class RefConstraint {
 public:
  void SetScopeColumn(REPName* column) { scope_column_.Set(column); }
  REPName* GetScopeColumn() const { return scope_column_.Get(); }
  // The table that the references of the scope column stay in.
  void SetScopeSchema(REPName* table) { scope_table_.Set(table); }
  REPName* GetScopeSchema() const { return scope_table_.Get(); }
  void SetRefColumn(REPName* column) { ref_column_.Set(column); }
  REPName* GetRefColumn() const { return ref_column_.Get(); }

  std::string AsString() const;

 private:
  Owned<REPName> scope_column_;
  Owned<REPName> scope_table_;
  Owned<REPName> ref_column_;
};

}  // namespace repora

// SCOPE FOR (column) IS table | REF (column) WITH ROWID
class REPInlineRefConstraintClause : public repora::RefConstraint {};

// SCOPE FOR (column) IS table | REF (column) WITH ROWID
class REPOutOfLineRefConstraint : public repora::RefConstraint {
 public:
  // The model has no place for object references: always REPProcessUnsupported.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
};

// The REF constraints of a table in order, owned.
class REPOutOfLineRefConstraintList {
 public:
  void AddHead(REPOutOfLineRefConstraint* constraint) { constraints_.AddHead(constraint); }
  void AddTail(REPOutOfLineRefConstraint* constraint) { constraints_.AddTail(constraint); }
  int GetCount() const { return constraints_.GetCount(); }
  REPOutOfLineRefConstraint* GetConstraint(int index) const { return constraints_.At(index); }

  // REPProcessUnsupported unless the list is empty.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table) const;
  std::string AsString(bool parenthesised = false) const;

 private:
  repora::OwnedList<REPOutOfLineRefConstraint> constraints_;
};

// USING INDEX [index] [properties]
class REPUsingIndexClause {
 public:
  REPUsingIndexClause();
  ~REPUsingIndexClause();

  void SetIndexName(REPName* name) { name_.Set(name); }
  REPName* GetIndexName() const { return name_.Get(); }
  void SetIndexProperties(REPIndexPropertiesClause* properties) { properties_.Set(properties); }
  REPIndexPropertiesClause* GetIndexProperties() const { return properties_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPIndexPropertiesClause> properties_;
};

// {ENABLE | DISABLE} [VALIDATE | NOVALIDATE] {UNIQUE (column, ...) | PRIMARY KEY | CONSTRAINT name}
//   [using_index] [EXCEPTIONS INTO table] [CASCADE] [{KEEP | DROP} INDEX]
// CASCADE and KEEP or DROP INDEX are rendered only.
class REPEnableDisableClause {
 public:
  void SetEnable(REPEnable_e enable) { enable_ = enable; }
  REPEnable_e GetEnable() const { return enable_; }
  void SetValidate(REPValidate_e validate) { validate_ = validate; }
  REPValidate_e GetValidate() const { return validate_; }
  // Unique, PrimaryKey or Named.
  void SetType(REPInlineConstr_e type) { type_ = type; }
  REPInlineConstr_e GetType() const { return type_; }
  // The columns of UNIQUE.
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  // The name of CONSTRAINT.
  void SetConstraint(REPName* name) { constraint_.Set(name); }
  REPName* GetConstraint() const { return constraint_.Get(); }
  void SetUsingClause(REPUsingIndexClause* clause) { using_.Set(clause); }
  REPUsingIndexClause* GetUsingClause() const { return using_.Get(); }
  // The EXCEPTIONS INTO table.
  void SetExceptions(REPName* table) { exceptions_.Set(table); }
  REPName* GetExceptions() const { return exceptions_.Get(); }
  void SetCascade(bool cascade) { cascade_ = cascade; }
  bool GetCascade() const { return cascade_; }
  void SetKeepDrop(REPKeepDrop_e keep_drop) { keep_drop_ = keep_drop; }
  REPKeepDrop_e GetKeepDrop() const { return keep_drop_; }

  // Writes on the state of a constraint made earlier; one that is not known is no failure.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  std::string AsString() const;

 private:
  std::uint32_t FindTarget(REPProcessor const& processor, REPName const* table_name) const;
  REPProcess_e ProcessUsingClause(REPProcessor& processor, MOXActionSummaryItem& table,
                                  REPName const* table_name, std::uint32_t target) const;

  REPEnable_e enable_{};
  REPValidate_e validate_{};
  REPInlineConstr_e type_{};
  repora::Owned<REPNameList> columns_;
  repora::Owned<REPName> constraint_;
  repora::Owned<REPUsingIndexClause> using_;
  repora::Owned<REPName> exceptions_;
  bool cascade_ = false;
  REPKeepDrop_e keep_drop_{};
};

// ENABLE and DISABLE clauses in order, owned.
class REPEnableDisableClauseList : public repora::ClauseList<REPEnableDisableClause> {
 public:
  // Ends at the first failure.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       REPName const* table_name) const;
  // Separated by blanks, as they stand behind a table.
  std::string AsString(bool parenthesised = false) const;
};
