#pragma once

#include <cstdint>
#include <vector>

#include "repora/core/message_ids.h"
#include "repora/core/name.h"
#include "repora/core/statement.h"
#include "repora/model/ids.h"

class MOXActionSummaryItem;
class REPProcessor;

// What the items of partitions share, whether a table, an index, a LOB or a materialized view is
// partitioned, and whether it is being created or altered.
namespace repora {

// A partition or subpartition under its owner. One without a name is always a new one. A name that
// cannot be added, because the owner has it already, raises the message (DuplicatePartition or
// DuplicateSubpartition) with the name as insert, and gives null.
MOXActionSummaryItem* AddPartitionItem(REPProcessor& processor, MOXActionSummaryItem const& owner,
                                       MOXId type, REPName const* name, REPMessage duplicate);

// The child of a type that is named like its owner: the description of a partition, the storage of
// a hash partition or subpartition. Made when there is none; null when it cannot be made.
MOXActionSummaryItem* FindOrAddNamesake(REPProcessor& processor, MOXActionSummaryItem const& owner,
                                        MOXId type);

// What columns are looked for as, which decides how they are found and how a missing one is told.
enum class ColumnUse {
  Key,           // of partitioning in one level
  CompositeKey,  // of partitioning in two levels; in a materialized view found by exact text
  Lob,           // stored apart in a partition
};

// Finds the columns of an item and appends their ids. One that is not found raises the message for
// a missing column and gives false; null is no column.
bool FindColumns(REPProcessor& processor, MOXActionSummaryItem const& column_owner,
                 REPNameList const& names, ColumnUse use, std::vector<std::uint32_t>& ids);
bool FindColumn(REPProcessor& processor, MOXActionSummaryItem const& column_owner,
                REPName const* name, ColumnUse use, std::uint32_t& id);

// The tablespace of a name, made as a placeholder when it is not known.
std::uint32_t FindTablespace(REPProcessor& processor, REPName const* name);
// Writes the tablespaces of a list on an item, as one property.
void SetTablespaces(REPProcessor& processor, MOXActionSummaryItem& item, MOXId property,
                    REPNameList const& names);

// How a table is partitioned, as far as its items say.
struct Partitioning {
  std::int32_t type = 0;                 // repora::codes::k...Partitioning; 0: not partitioned
  MOXActionSummaryItem* item = nullptr;  // the partitioning under the table; null: none
  MOXId partition_type = 0;              // of the partitions under the item

  // The partition of a name, or null.
  MOXActionSummaryItem* Find(REPProcessor const& processor, REPName const* name) const;
};
Partitioning FindPartitioning(REPProcessor const& processor, MOXActionSummaryItem const& table);

// Raises the message for a partition or a kind of partitioning that is not there; the result is an
// error.
REPProcess_e FailAlterPartitioning(REPProcessor& processor, MOXActionSummaryItem const& table);

}  // namespace repora
