#pragma once

#include <cstdint>
#include <vector>

#include "repora/core/name.h"

class MOXActionSummaryItem;
class REPProcessor;

// What the organisation of a table or materialized view refers to.
namespace repora {

// The column of INCLUDING; one that is not there is reported and gives 0.
std::uint32_t FindIncludingColumn(REPProcessor& processor, MOXActionSummaryItem const& item,
                                  REPName const& name);

// The cluster of that name, made as a placeholder with its schema when it is not known.
std::uint32_t FindCluster(REPProcessor& processor, REPName const& name);

// Finds the columns that stand for the key of the cluster and appends their ids; one that is not
// there is reported and gives false.
bool FindClusterColumns(REPProcessor& processor, MOXActionSummaryItem const& item,
                        REPNameList const& names, std::vector<std::uint32_t>& ids);

}  // namespace repora
