#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "repora/code/synonyms.h"

namespace repora::reader {

// CREATE [OR REPLACE] [EDITIONABLE | NONEDITIONABLE] [PUBLIC] SYNONYM [IF NOT EXISTS] name
//   [SHARING = word] FOR name[@link]
std::unique_ptr<REPStatement> ParseCreateSynonym(TokenStream& in) {
  auto synonym = std::make_unique<REPCreateSynonym>();
  synonym->SetStatementType(REPStatement_e::CreateSynonym);
  in.Expect(K_CREATE);
  synonym->SetReplace(AcceptOrReplace(in));
  SkipEditionable(in);
  synonym->SetPublic(in.Accept(K_PUBLIC));
  in.Expect(K_SYNONYM);
  SkipIfNotExists(in);
  synonym->SetSynonym(ParseName(in).release());
  SkipSharing(in);
  in.Expect(K_FOR);
  synonym->SetObjectName(ParseName(in).release());
  synonym->SetDBLink(ParseDBLink(in).release());
  return synonym;
}

}  // namespace repora::reader
