#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/queries/select.h"

namespace repora::reader {

// Whether a query comes: SELECT or WITH, in parentheses or not.
bool StartsQuery(TokenStream const& in);

// [WITH ...] SELECT ... [set operation ...] [ORDER BY ...] [FOR UPDATE ...]
// Up to the end of the statement, a ")", or what a view may have behind it. A query that holds more
// than the classes do keeps its text beside its clauses; one that cannot be taken apart is its
// text, with a note.
std::unique_ptr<REPSelect> ParseQuery(TokenStream& in);

// ( query )
std::unique_ptr<REPSelect> ParseQueryInParentheses(TokenStream& in);

// Whether WITH READ ONLY or WITH CHECK OPTION comes.
bool StartsRestriction(TokenStream const& in);

// Whether the CONTAINER_MAP or CONTAINERS_DEFAULT that ends the definition of a view comes.
bool StartsContainerOption(TokenStream const& in);

}  // namespace repora::reader
