#pragma once

// The whole object model and the processor.

#include "repora/code/sequences.h"
#include "repora/code/synonyms.h"
#include "repora/core/expression.h"
#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/notification.h"
#include "repora/core/processor.h"
#include "repora/core/statement.h"
#include "repora/storage/compression.h"
#include "repora/storage/extents.h"
#include "repora/storage/parallel.h"
#include "repora/storage/physical_props.h"
#include "repora/storage/segment_attributes.h"
#include "repora/storage/size.h"
#include "repora/storage/storage_clause.h"
#include "repora/tables/columns.h"
#include "repora/tables/create_table.h"
#include "repora/tables/datatype.h"
#include "repora/tables/table_options.h"
