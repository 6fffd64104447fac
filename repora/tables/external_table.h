#pragma once

#include <memory>
#include <string>

#include "repora/core/owned.h"
#include "repora/core/statement.h"

class MOXActionSummaryItem;
class REPProcessor;
class REPSubQuery;

enum class REPProject_e : int { None, All, Referenced };

// [TYPE driver] [DEFAULT DIRECTORY directory]
//   [ACCESS PARAMETERS(text) | ACCESS PARAMETERS USING CLOB subquery]
//   [LOCATION([directory:]file, ...)] [REJECT LIMIT {n | UNLIMITED}]
//   [PROJECT COLUMN {ALL | REFERENCED}]
class REPExternalTableClause {
 public:
  REPExternalTableClause();
  REPExternalTableClause(REPExternalTableClause const& other);
  explicit REPExternalTableClause(REPExternalTableClause const* other);
  REPExternalTableClause& operator=(REPExternalTableClause const& other);
  REPExternalTableClause& operator=(REPExternalTableClause const* other);
  virtual ~REPExternalTableClause();

  virtual std::string AsString() const;

  void SetDriverType(char const* text) { driver_ = text; }
  char const* GetDriverType() const { return driver_.c_str(); }
  // What the driver is told, in its own language.
  void SetAccessParameters(char const* text) { parameters_ = text; }
  char const* GetAccessParameters() const { return parameters_.c_str(); }
  void SetDefaultDirectory(char const* text) { directory_ = text; }
  char const* GetDefaultDirectory() const { return directory_.c_str(); }
  // A query for the access parameters; it counts when there is a text for them too. Copies of the
  // clause share the query.
  void SetSubQuery(REPSubQuery* query);
  REPSubQuery* GetSubQuery() const;
  // A file name, or a directory name, a colon and a file name, without quotes. Adds at the head of
  // the list.
  void AddLocation(char const* text) { locations_.AddHead(new repora::Text(text)); }
  int GetLocationCount() const { return locations_.GetCount(); }
  char const* GetLocation(int index) const { return locations_.At(index)->c_str(); }
  void SetRejectLimit(char const* text) { reject_limit_ = text; }
  char const* GetRejectLimit() const { return reject_limit_.c_str(); }
  // Rendered only.
  void SetProject(REPProject_e project) { project_ = project; }
  REPProject_e GetProject() const { return project_; }

  // alter: the table may have locations already, which stay beside the new ones; that is reported.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table, bool alter) const;

 private:
  REPProcess_e ProcessLocations(REPProcessor& processor, MOXActionSummaryItem& table,
                                bool alter) const;

  repora::Text driver_;
  repora::Text parameters_;
  repora::Text directory_;
  std::shared_ptr<repora::Owned<REPSubQuery>> sub_query_;  // null: none
  repora::OwnedList<repora::Text> locations_;
  repora::Text reject_limit_;
  REPProject_e project_{};
};
