#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "repora/database/rollback_segments.h"

namespace repora::reader {

// CREATE [PUBLIC] ROLLBACK SEGMENT name [TABLESPACE name | storage_clause]...
std::unique_ptr<REPStatement> ParseCreateRollbackSegment(TokenStream& in) {
  auto segment = std::make_unique<REPCreateRollbackSegment>();
  segment->SetStatementType(REPStatement_e::CreateRollbackSegment);
  in.Expect(K_CREATE);
  if (in.Accept(K_PUBLIC)) segment->SetPublic();
  in.Expect(K_ROLLBACK, K_SEGMENT);
  SkipIfNotExists(in);
  segment->SetSegmentName(ParseName(in).release());
  std::unique_ptr<REPName> tablespace;
  while (!in.AtEnd()) {
    if (in.Accept(K_TABLESPACE))
      tablespace = ParseName(in);
    else if (in.Is(K_STORAGE))
      segment->SetStorageClause(ParseStorageClause(in));
    else
      in.Fail("TABLESPACE or STORAGE");
  }
  segment->SetTableSpace(tablespace.release());
  return segment;
}

// ALTER ROLLBACK SEGMENT name {ONLINE | OFFLINE | storage_clause | SHRINK [TO size]}...
std::unique_ptr<REPStatement> ParseAlterRollbackSegment(TokenStream& in) {
  auto segment = std::make_unique<REPAlterRollbackSegment>();
  segment->SetStatementType(REPStatement_e::AlterRollbackSegment);
  in.Expect(K_ALTER, K_ROLLBACK, K_SEGMENT);
  SkipIfExists(in);
  segment->SetSegmentName(ParseName(in).release());
  do {
    if (in.Accept(K_ONLINE)) {
      segment->SetOnOff(REPOnOff_e::Online);
    } else if (in.Accept(K_OFFLINE)) {
      segment->SetOnOff(REPOnOff_e::Offline);
    } else if (in.Is(K_STORAGE)) {
      segment->SetStorageClause(ParseStorageClause(in));
    } else if (in.Accept(K_SHRINK)) {
      segment->SetShrink(true);
      if (in.Accept(K_TO)) segment->SetShrinkClause(ParseSize(in));
    } else {
      in.Fail("ONLINE, OFFLINE, STORAGE or SHRINK");
    }
  } while (!in.AtEnd());
  return segment;
}

}  // namespace repora::reader
