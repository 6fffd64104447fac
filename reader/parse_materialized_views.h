#pragma once

#include <memory>
#include <string_view>

#include "reader/token_stream.h"
#include "repora/queries/materialized_views.h"

// What creating and altering a materialized view have in common.
namespace repora::reader {

// MATERIALIZED VIEW, or SNAPSHOT as it was called before
void ExpectMaterializedView(TokenStream& in);

// USING [NO] INDEX; USING alone may belong to a refresh or to a newer clause.
bool IsUsingIndex(TokenStream const& in);

// Whether a clause comes that ends one before it.
bool StartsViewClause(TokenStream const& in);

// Takes the rest of a clause.
void SkipViewRest(TokenStream& in);

// Takes a clause that the statement has no place for, with a note; what is no clause fails.
void SkipViewClause(TokenStream& in, std::string_view expected);

// SCOPE FOR ( column ) IS table
std::unique_ptr<REPScopedTableRefConstraint> ParseScope(TokenStream& in);

}  // namespace repora::reader
