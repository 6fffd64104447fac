#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/model/ids.h"

// What is commented.
enum class REPComment_e : int {
  None = 0,
  Table = 1,  // a view or a materialized view or its log as well
  Column = 2,
  Operator = 3,
  Indextype = 4,
  MaterializedView = 5
};

// COMMENT ON {TABLE | COLUMN | OPERATOR | INDEXTYPE | MATERIALIZED VIEW} name IS 'text'
class REPComment final : public REPStatement {
 public:
  void SetCommentType(REPComment_e type) { type_ = type; }
  REPComment_e GetCommentType() const { return type_; }
  // Of a column: [owner.]table.column
  void SetCommentName(REPName* name) { name_.Set(name); }
  REPName* GetCommentName() const { return name_.Get(); }
  // Without its quotes, and with single ones inside.
  void SetCommentText(char const* text) { text_ = text; }
  char const* GetCommentText() const { return text_.c_str(); }

  REPProcess_e Process(REPProcessor* processor) const override;
  std::string AsString() const override;

 private:
  REPProcess_e ProcessTable(REPProcessor& processor) const;
  REPProcess_e ProcessColumn(REPProcessor& processor) const;
  // Sets the comment of an item under the root; without one it says so and goes on.
  REPProcess_e ProcessRootItem(REPProcessor& processor, MOXId type, REPName const& name) const;

  REPComment_e type_{};
  repora::Owned<REPName> name_;
  repora::Text text_;
};
