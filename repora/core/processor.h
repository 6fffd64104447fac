#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "repora/core/message_ids.h"
#include "repora/core/notification.h"
#include "repora/core/runtime_class.h"
#include "repora/core/statement.h"
#include "repora/model/builder.h"
#include "repora/model/model.h"

class MOXActionSummary;
class MOXActionSummaryItem;
class MOXProperty;
class REPName;
class REPNameList;

// How logical names are made from the names of the script.
enum eREPLogical : int {
  eREPLogicalAsIs = 0,
  eREPLogicalLower = 1,
  eREPLogicalUpper = 2,
  eREPLogicalMixed = 3,  // words capitalised, underscores become blanks
};

// How physical names are made from the names of the script.
enum eREPPhysical : int { eREPPhysicalAsIs = 0, eREPPhysicalLower = 1, eREPPhysicalUpper = 2 };

// What kind of key a table's index is; further values are kept as given.
enum REPIndexKeyType_e : int { REPIndexPrimaryKey = 1, REPIndexOtherKey = 2 };

// Where a run gets statements from that its host makes while the run goes on. Called on the thread
// that runs the processor, which waits for the answer.
class REPStatementSource {
 public:
  // The next statement, which then belongs to the caller; null when no more will come. Not called
  // again after null.
  virtual REPStatement* Next() = 0;
  // Gets a statement back that was run or is not to be run any more, and owns it: the place to keep
  // it or to delete it where it was made. Deletes it at once unless overridden.
  virtual void TakeBack(REPStatement* statement);

 protected:
  ~REPStatementSource() = default;
};

// One reverse-engineering job: takes statements in script order, turns them into an action summary
// and applies it to the model.
//
// Create it, SetModelSet, optionally a window, the case rules and a summary file, AddStatement for
// each statement, Process. Pause, Resume and Stop may come from another thread while Process runs;
// everything else belongs to the thread that runs it. Items that operations hand out are borrowed
// from the summary and live until the run ends.
class REPProcessor : public repora::RuntimeObject,
                     public MOXBuilderCallbackI,
                     public MOXSubscriberI {
 public:
  REPProcessor();
  ~REPProcessor() override;
  REPProcessor(REPProcessor const&) = delete;
  REPProcessor& operator=(REPProcessor const&) = delete;

  static repora::RuntimeClass const classREPProcessor;
  static repora::RuntimeClass const* GetThisClass() { return &classREPProcessor; }
  static repora::RuntimeObject* CreateObject();
  repora::RuntimeClass const* GetRuntimeClass() const override { return &classREPProcessor; }

  // --- Control ---

  void SetNotifyWnd(REPNotifyWnd* window);    // borrowed; null: messages become advisories
  void SetModelSet(MOXModelSetI* model_set);  // borrowed
  void SetLogicalCase(eREPLogical rule);
  void SetPhysicalCase(eREPPhysical rule);
  void SetSummaryFilename(char const* name);  // null or empty: no summary file
  void SetIgnoreDuplicateViews(bool ignore);
  void SetAdvisoryTree(void* tree);  // kept for the host, not used
  void SetStatementType(REPStatement_e type);
  void AddStatement(REPStatement* statement);  // takes ownership; null is ignored
  int GetCount() const;                        // statements held; those of a source are not counted
  // Borrowed until the end of the next run, which forgets it; null: none. The run takes the
  // statements added first and then asks the source until it has no more. Each is run, reported and
  // given back before the next one is asked for. eRENotifyBegin counts the statements added, as it
  // cannot know the others; eRENotifyProgress counts on. A stopped run gives the statement back
  // that it was to run and does not ask again.
  void SetStatementSource(REPStatementSource* source);

  // Runs the statements and applies the result to the model. False when the run was stopped or
  // there is no model set: the model is then untouched, and without a model set the statements
  // are kept for another try.
  bool Process();
  void Pause();
  void Resume();
  void Stop();

  std::uint32_t GetRoot() const;  // object id of the model's root, 0 before a run
  bool GetIgnoreDuplicateViews() const;
  REPStatement_e GetStatementType() const;
  int GetModelType() const;  // repora::codes::kModel...
  MOXModelSetI* GetModelSet() const;

  bool Advise(MOXBuilderCallbackI::Events_e event, unsigned long first,
              unsigned long second) override;
  void Notify(MOXPublishedEventI const& event) override;

  // --- Items: creating and registering ---

  // A new item, registered under (owner, type, name). An item that stands there already is handed
  // out with REPProcessDuplicate; a placeholder is adopted.
  REPProcess_e AddItem(std::uint32_t owner, MOXId type, REPName const* name,
                       MOXActionSummaryItem*& item);
  // A new item that is in the summary but not in the registry. Null and empty names give none.
  MOXActionSummaryItem* CreateItem(std::uint32_t owner, MOXId type, REPName const* name);
  // The id of the registered item or placeholder; makes a placeholder when there is neither.
  std::uint32_t FindCreateItem(std::uint32_t owner, MOXId type, REPName const* name);
  // Registers an item under another key as well, replacing what stands there.
  REPProcess_e AddSynonym(std::uint32_t owner, MOXId type, REPName const* name,
                          MOXActionSummaryItem* item);
  // Re-keys an item or a placeholder, or makes a placeholder of the new name. The item's name
  // properties stay. REPProcessDuplicate when the new name is taken.
  REPProcess_e ReplaceItem(std::uint32_t owner, MOXId type, REPName const* old_name,
                           REPName const* new_name);
  // Re-keys and renames an item. REPProcessError when it is not registered, REPProcessDuplicate
  // when the new name is taken.
  REPProcess_e RenameItem(MOXActionSummaryItem* item, REPName const* new_name);

  // --- Items: finding; null or 0 when nothing matches ---

  MOXActionSummaryItem* FindItemPtr(std::uint32_t owner, MOXId type, REPName const* name) const;
  std::uint32_t FindItem(std::uint32_t owner, MOXId type, REPName const* name) const;
  MOXActionSummaryItem* FindItemPtr(std::uint32_t owner, MOXId type) const;
  // The item of that name under the first of the owners that has one, and that owner's position.
  std::uint32_t FindItemAmong(std::vector<std::uint32_t> const& owners, MOXId type,
                              REPName const* name, std::size_t& position) const;
  // Both append. By registry order, an item once for each of its keys.
  void FindChildrenByType(std::uint32_t owner, MOXId type,
                          std::vector<MOXActionSummaryItem*>& items) const;
  MOXActionSummaryItem* FindSummaryItemPtr(std::uint32_t owner, MOXId type) const;
  // By ascending id.
  void FindSummaryChildrenByType(std::uint32_t owner, MOXId type,
                                 std::vector<MOXActionSummaryItem*>& items) const;
  MOXActionSummaryItem* FindSummaryPtrById(std::uint32_t id) const;
  MOXActionSummaryItem* FindItemPtrByTypeName(MOXId type, REPName const* name) const;
  MOXActionSummaryItem* FindItemPtrByName(REPName const* name) const;
  // The first item a synonym of that name may clash with.
  MOXActionSummaryItem* FindSynonymDuplicatePtr(REPName const* name) const;
  // Under any table, view, materialized view or the database.
  MOXActionSummaryItem* FindTrigger(REPName const* name) const;

  // --- Naming ---

  void SetNameProp(MOXActionSummaryItem* item, REPName const* name);
  void SetPhysicalNameProp(MOXActionSummaryItem* item, REPName const* name) const;
  void SetPropOnActionItem(MOXActionSummaryItem* item, MOXProperty const& property, bool as_pair);
  bool TypeUsesShortName(MOXId type) const;
  bool TypeUsesPhysicalName(MOXId type) const;
  bool TypeUsesDBOwner(MOXId type) const;
  std::string GetObjectDisplayString(MOXId type) const;
  // A value with the text of a datatype, which the columns of a run share, and the domain that
  // IdentifyParentDomain finds for it.
  QELValue ShareDatatype(std::string_view datatype, std::uint32_t& domain);
  // The model's domain for an Oracle datatype name; null counts as empty.
  std::uint32_t IdentifyParentDomain(char const* datatype_name);
  // The header, in the macros of the code generator, that a trigger on an object of that type
  // stores in front of its body.
  std::string GetTriggerTemplateSyntax(MOXId object_type) const;

  // --- Cross-reference maps; they live as long as the processor ---

  REPProcess_e AddMemberToTableIndexes(REPName const* table, std::uint32_t key_group_id,
                                       REPIndexKeyType_e key_type, REPName const* column);
  // A count below 1 accepts a primary key of any size.
  std::uint32_t FindPKInTableIndexes(REPName const* table, int column_count) const;
  std::uint32_t FindMatchInTableIndexes(REPName const* table, REPNameList const* columns) const;
  // Appends; REPProcessError when the key or one of its members is unknown.
  REPProcess_e GetMemberAttributesForIndex(REPName const* table, std::uint32_t key_group_id,
                                           std::vector<std::uint32_t>& attribute_ids) const;
  REPProcess_e RenameEntityInTableIndexes(REPName const* old_table, REPName const* new_table);
  REPProcess_e RenameMemberAttributesForTable(REPName const* table, REPName const* old_column,
                                              REPName const* new_column);
  REPProcess_e AddConstraintToConstraintsMap(REPName const* name, std::uint32_t item_id);
  std::uint32_t FindConstraintInConstraintsMap(REPName const* name) const;
  REPProcess_e RenameItemInConstraintsMap(REPName const* old_name, REPName const* new_name);
  REPProcess_e AddColToViewColumnsMap(std::uint32_t view_id, std::uint32_t column_id);
  std::int32_t GetViewColumnsColCount(std::uint32_t view_id) const;
  std::uint32_t GetViewColumnsColInPos(std::uint32_t view_id, long position) const;
  // REPProcessDuplicate when the alias, as written, is in the list already.
  REPProcess_e AliasNameListAdd(REPName const* alias);
  void AliasNameListClear();

  // --- Messages; a null insert ends the inserts ---

  void DisplayInformation(unsigned id, char const* a1 = nullptr, char const* a2 = nullptr,
                          char const* a3 = nullptr, char const* a4 = nullptr);
  void DisplayWarning(unsigned id, char const* a1 = nullptr, char const* a2 = nullptr,
                      char const* a3 = nullptr, char const* a4 = nullptr);
  void DisplaySemantic(unsigned id, char const* a1 = nullptr, char const* a2 = nullptr,
                       char const* a3 = nullptr, char const* a4 = nullptr);

  // The same by the message's name, with texts as inserts.
  template <class... Inserts>
  void DisplayInformation(REPMessage message, Inserts const&... inserts) {
    DisplayInformation(static_cast<unsigned>(message), TextOfInsert(inserts)...);
  }
  template <class... Inserts>
  void DisplayWarning(REPMessage message, Inserts const&... inserts) {
    DisplayWarning(static_cast<unsigned>(message), TextOfInsert(inserts)...);
  }
  template <class... Inserts>
  void DisplaySemantic(REPMessage message, Inserts const&... inserts) {
    DisplaySemantic(static_cast<unsigned>(message), TextOfInsert(inserts)...);
  }

 protected:
  void NotifyMessage(eRENotify kind, unsigned id, char const* a1, char const* a2, char const* a3,
                     char const* a4);
  void NotifyWindow(eRENotify kind, int count, char const* code_text = nullptr,
                    char const* message_text = nullptr);

 private:
  struct Run;
  struct State;

  static char const* TextOfInsert(char const* text) { return text; }
  static char const* TextOfInsert(std::string const& text) { return text.c_str(); }

  void LoadModel(Run& run);
  void LoadObject(MOXObject const& object);
  bool WaitForTurn();
  bool RunStatements();
  bool RunAddedStatements(int& done);
  bool RunStatementsOfSource(int& done);
  void RunStatement(REPStatement const& statement, int number);
  void ReportResult(REPProcess_e result, REPStatement const& statement);
  void WriteSummaryFile();
  void ApplySummary(Run& run);
  void EndRun();
  std::uint32_t LookUpParentDomain(std::string const& datatype_name) const;
  MOXActionSummaryItem* FindMember(std::uint32_t key_group_id, std::uint32_t map_name) const;

  std::unique_ptr<State> state_;
};

// The processor for Oracle scripts, the class that hosts create by its name.
class REPOracleProcessor final : public REPProcessor {
 public:
  static repora::RuntimeClass const classREPOracleProcessor;
  static repora::RuntimeClass const* GetThisClass() { return &classREPOracleProcessor; }
  static repora::RuntimeObject* CreateObject();
  repora::RuntimeClass const* GetRuntimeClass() const override { return &classREPOracleProcessor; }
};
