#pragma once

#include <cstdint>
#include <vector>

#include "repora/core/statement.h"
#include "repora/model/ids.h"

class MOXActionSummaryItem;
class REPConstraintState;
class REPName;
class REPProcessor;
class REPReferenceClause;

// What foreign keys of columns and of tables share.
namespace repora {

// A foreign key on its way to the model, all borrowed. Names and clauses may be null.
struct ForeignKey {
  MOXActionSummaryItem* table = nullptr;  // the child
  REPName const* table_name = nullptr;
  REPName const* constraint_name = nullptr;
  REPReferenceClause const* references = nullptr;
  REPConstraintState const* state = nullptr;
  bool of_column = false;              // written with its column, not beside the columns
  std::vector<std::uint32_t> columns;  // the child's attributes
  std::uint32_t parent = 0;            // entity
  std::uint32_t parent_key = 0;        // key group
};

// The parent table that the clause names; null for a null clause.
REPName const* ParentNameOf(REPReferenceClause const* references);

// Raises the warning that something a table's constraint names (a table, a column) is not there.
void WarnTargetMissing(REPProcessor& processor, REPName const* table_name, MOXId type,
                       REPName const* name);

// Finds the parent's key by the columns of the clause, in any order, or its primary key of as many
// members as the child has columns. A failure is reported.
REPProcess_e FindParentKey(REPProcessor& processor, ForeignKey& key);

// Makes the relationship of a foreign key whose parent and parent key are known.
REPProcess_e AddRelationship(REPProcessor& processor, ForeignKey const& key);

}  // namespace repora
