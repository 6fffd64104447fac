#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "reader/token_stream.h"
#include "repora/core/expression.h"
#include "repora/core/name.h"

namespace repora::reader {

// The parts a name may have. Nobody has as many, and each costs as much as all before it.
inline constexpr std::size_t kMostNameParts = 100;

// Whether a name comes: any word, or a quoted name.
bool IsName(Token const& token);

// name: {word | "quoted name"} [. ...]
std::unique_ptr<REPName> ParseName(TokenStream& in);

// A name without dots, such as that of a column.
std::unique_ptr<REPName> ParseSimpleName(TokenStream& in);

// The same as the text that statements hold of users, profiles, tablespaces and character sets.
std::string ParseNameText(TokenStream& in);

// ( name [, name]... )
std::unique_ptr<REPNameList> ParseNameList(TokenStream& in);

// [@ link[.domain]...]; null when there is none.
std::unique_ptr<REPName> ParseDBLink(TokenStream& in);

// [@ qualifier] behind the name of a database link, which is skipped.
void SkipConnectionQualifier(TokenStream& in);

// The script's own text since a mark.
std::unique_ptr<REPExpr> MakeExpression(TokenStream& in, std::size_t mark);

// An expression, up to where something comes that ends it and no operand is due.
std::unique_ptr<REPExpr> ParseExpression(TokenStream& in, bool (*ends)(TokenStream const& in));

// [OR REPLACE]; true when it is there.
bool AcceptOrReplace(TokenStream& in);

// [IF NOT EXISTS] and [IF EXISTS], which are skipped: a model does not know what exists.
void SkipIfNotExists(TokenStream& in);
void SkipIfExists(TokenStream& in);

// Words between CREATE and the kind of an object that say more of it, such as PRIVATE TEMPORARY,
// up to the kind: skipped with one note.
void SkipKindWords(TokenStream& in, Word kind);

// [EDITIONABLE | NONEDITIONABLE], which is skipped.
void SkipEditionable(TokenStream& in);

// [SHARING = word], which is skipped.
void SkipSharing(TokenStream& in);

}  // namespace repora::reader
