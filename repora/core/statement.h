#pragma once

#include <string>

#include "repora/core/owned.h"
#include "repora/core/runtime_class.h"

class REPProcessor;

// The result of every Process operation.
enum REPProcess_e : int {
  REPProcessOK = 0,
  REPProcessDuplicate = 1,    // the object exists already in this run; nothing was created
  REPProcessUnused = 2,       // produced by no operation
  REPProcessUnsupported = 3,  // the statement has no processing
  REPProcessError = 4,        // failed; the statement reported the details itself
};

// The kind of a statement, for those who need to know it without asking the class.
enum class REPStatement_e : int {
  None = 0,
  CreateTable = 1,
  CreateIndex,
  AlterTable,
  AlterIndex,
  CreateTablespace,
  CreateTemporaryTablespace,
  AlterTablespace,
  CreateDatabase,
  AlterDatabase,
  CreateControlfile,
  CreatePFile,
  CreateSPFile,
  CreateCluster,
  AlterCluster,
  CreateRollbackSegment,
  AlterRollbackSegment,
  CreateDiskgroup,
  AlterDiskgroup,
  CreateSequence,
  AlterSequence,
  CreateSynonym,
  CreateTrigger,
  AlterTrigger,
  CreateProcedure,
  CreateFunction,
  CreatePackage,
  CreatePackageBody,
  CreateLibrary,
  CreateIndextype,
  AlterProcedure,
  AlterFunction,
  AlterPackage,
  CreateJava,
  AlterJava,
  CreateType,
  CreateTypeBody,
  AlterType,
  CreateDimension,
  AlterDimension,
  CreateOperator,
  AlterOperator,
  CreateOutline,
  AlterOutline,
  CreateSchema,
  AlterIndextype,
  CreateUser,
  CreateRole,
  CreateProfile,
  CreateContext,
  CreateDirectory,
  CreateDatabaseLink,
  AlterUser,
  AlterProfile,
  Comment,
  CreateView,
  AlterView,
  CreateMaterializedView,
  AlterMaterializedView,
  CreateMaterializedViewLog,
  AlterMaterializedViewLog,
};

// Base of every statement. Statements are filled through their setters: text setters copy and take
// null as empty; setters of a pointer take ownership and do not delete a value they replace;
// getters hand out borrowed pointers.
class REPStatement : public repora::RuntimeObject {
 public:
  static repora::RuntimeClass const* GetThisClass();
  repora::RuntimeClass const* GetRuntimeClass() const override;

  REPStatement_e GetStatementType() const { return statement_type_; }
  void SetStatementType(REPStatement_e type) { statement_type_ = type; }

  // Turns the statement into actions on the model. A statement without processing of its own is
  // reported as unsupported.
  virtual REPProcess_e Process(REPProcessor* processor) const;
  // The statement as SQL text.
  virtual std::string AsString() const = 0;

 private:
  REPStatement_e statement_type_ = REPStatement_e::None;
};

// Statements in the order of a script, owned.
class REPParseTree {
 public:
  void AddHead(REPStatement* statement);
  void AddTail(REPStatement* statement);
  int GetCount() const;
  REPStatement* GetStatement(int index) const;
  // Deletes the statements, the last one first.
  void RemoveContents();

  REPParseTree();
  ~REPParseTree();
  REPParseTree(REPParseTree const&) = delete;
  REPParseTree& operator=(REPParseTree const&) = delete;

 private:
  repora::OwnedList<REPStatement> statements_;
};
