#pragma once

#include <memory>
#include <string>
#include <vector>

#include "reader/parse_lobs.h"
#include "reader/token_stream.h"
#include "repora/tables/external_table.h"
#include "repora/tables/table_organisation.h"

namespace repora::reader {

// The clause of an external table while its options are read. Options may come in several places;
// of one that is repeated the last counts, and locations add up.
class ExternalTable {
 public:
  // ( option... ), or nothing
  void ParseBody(TokenStream& in);
  // One of TYPE driver | DEFAULT DIRECTORY name | ACCESS PARAMETERS ... | LOCATION (...) |
  // REJECT LIMIT n | PROJECT COLUMN ...; false when none comes.
  bool ParseOption(TokenStream& in);
  // The clause read, for its owner; null when no option came.
  std::unique_ptr<REPExternalTableClause> Take();

 private:
  REPExternalTableClause& Clause();
  void ParseAccessParameters(TokenStream& in);
  void ParseLocations(TokenStream& in);

  std::unique_ptr<REPExternalTableClause> clause_;
  std::vector<std::string> locations_;
};

// One of MAPPING TABLE | NOMAPPING | PCTTHRESHOLD n; false when none comes.
bool ParseIndexOrganizationOption(TokenStream& in, REPIndexOrgTableClause& clause);

// OVERFLOW [segment attribute]... [( PARTITION [segment attribute]... [, ...] )], behind ADD
std::unique_ptr<REPAddOverflowClause> ParseAddOverflow(TokenStream& in);

// What a MOVE is made of; the clause takes it when it ends.
class MoveTable {
 public:
  // MOVE [ONLINE]
  explicit MoveTable(TokenStream& in);
  // One more part; false when none comes.
  bool ParsePart(TokenStream& in);
  void SetCompression(std::unique_ptr<REPCompressionClause> compression);
  std::unique_ptr<REPMoveTableClause> Take();

 private:
  std::unique_ptr<REPMoveTableClause> clause_;
  LobStorages storages_;
};

}  // namespace repora::reader
