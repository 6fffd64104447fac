#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_strings.h"
#include "repora/code/comments.h"

namespace repora::reader {
namespace {

REPComment_e ParseTarget(TokenStream& in) {
  if (in.Accept(K_TABLE)) return REPComment_e::Table;
  if (in.Accept(K_COLUMN)) return REPComment_e::Column;
  if (in.Accept(K_OPERATOR)) return REPComment_e::Operator;
  if (in.Accept(K_INDEXTYPE)) return REPComment_e::Indextype;
  if (in.Accept(K_MATERIALIZED, K_VIEW)) return REPComment_e::MaterializedView;
  return REPComment_e::None;
}

// Whether the words of another kind of object come and its name.
bool IsForeignTarget(TokenStream const& in) {
  return IsName(in.Peek()) && IsName(in.Peek(1)) && in.Peek(1).word != K_IS;
}

}  // namespace

// COMMENT ON {TABLE | COLUMN | OPERATOR | INDEXTYPE | MATERIALIZED VIEW} name IS 'text'
std::unique_ptr<REPStatement> ParseComment(TokenStream& in) {
  auto const& first = in.Peek();
  auto const mark = in.Mark();
  in.Expect(K_COMMENT, K_ON);
  auto const target = ParseTarget(in);
  if (target == REPComment_e::None) {
    if (!IsForeignTarget(in)) in.Fail("TABLE or COLUMN");
    // Editions, mining models, policies and what else newer releases give comments to.
    do ParseName(in);
    while (!in.Is(K_IS));
    in.Note(first, std::string(in.TextSince(mark)) + " is not read");
    in.Expect(K_IS);
    ParseString(in);
    return nullptr;
  }
  auto comment = std::make_unique<REPComment>();
  comment->SetStatementType(REPStatement_e::Comment);
  comment->SetCommentType(target);
  comment->SetCommentName(ParseName(in).release());
  in.Expect(K_IS);
  comment->SetCommentText(ParseString(in).c_str());
  return comment;
}

}  // namespace repora::reader
