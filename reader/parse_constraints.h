#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/tables/constraints.h"

namespace repora::reader {

// Whether a constraint of a column comes.
bool IsInlineConstraint(TokenStream const& in);
std::unique_ptr<REPInlineConstraintClause> ParseInlineConstraint(TokenStream& in);

// Whether a "," comes and behind it one more constraint of the same column, which is how the
// library renders them. A constraint that a table can have in that place is one of the table.
bool IsFurtherInlineConstraint(TokenStream const& in);

// The constraints of a column, as far as they come; null when none comes.
std::unique_ptr<REPInlineConstraintClauseList> ParseInlineConstraints(TokenStream& in);

// Whether a constraint of a table comes, in the place of a column.
bool IsOutOfLineConstraint(TokenStream const& in);
std::unique_ptr<REPOutOfLineConstraint> ParseOutOfLineConstraint(TokenStream& in);

// Whether SCOPE FOR (...) or REF (...) comes, in the place of a column.
bool IsOutOfLineRefConstraint(TokenStream const& in);
std::unique_ptr<REPOutOfLineRefConstraint> ParseOutOfLineRefConstraint(TokenStream& in);

// The state of a constraint up to the next clause of its table; null when none comes.
std::unique_ptr<REPConstraintState> ParseConstraintState(TokenStream& in);

// Whether ENABLE or DISABLE of a constraint made elsewhere comes.
bool IsEnableDisableClause(TokenStream const& in);
std::unique_ptr<REPEnableDisableClause> ParseEnableDisableClause(TokenStream& in);

}  // namespace repora::reader
