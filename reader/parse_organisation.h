#pragma once

#include <memory>
#include <string>
#include <vector>

#include "reader/parse_lobs.h"
#include "reader/parse_storage.h"
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

// How the rows of a table or materialized view are stored, while it is read. Clauses may be written
// more than once, of which the last counts.
class PhysicalSide {
 public:
  // One of a segment attribute | ORGANIZATION ... | CLUSTER name (columns) | MAPPING TABLE |
  // NOMAPPING | PCTTHRESHOLD n | INCLUDING column | OVERFLOW | COMPRESS [n] | NOCOMPRESS | an
  // option of an external table; false when none comes. Segment attributes right behind OVERFLOW
  // are its.
  bool ParsePart(TokenStream& in);
  // {HEAP | INDEX | EXTERNAL [( option... )]}, behind ORGANIZATION
  void ParseOrganization(TokenStream& in);
  // Hands all to a statement, which must have none of it.
  template <class Statement>
  void GiveTo(Statement& statement) {
    statement.SetOrganization(organization_);
    statement.SetExternalTableClause(external_.Take().release());
    statement.SetSegmentAttributes(segment_.release());
    statement.SetOverflowSegmentAttributes(overflow_segment_.release());
    statement.SetIndexOverflow(has_overflow_);
    statement.SetIncludingColumn(including_.release());
    statement.SetCompression(compression_.compress);
    statement.SetCompressionSize(std::string(compression_.size).c_str());
    statement.SetMapping(mapping_);
    statement.SetPctThreshold(pct_threshold_.c_str());
    statement.SetClusterName(cluster_.release());
    statement.SetClusterColumns(cluster_columns_.release());
  }

 private:
  bool ParseOption(TokenStream& in);

  REPOrganization_e organization_{};
  ExternalTable external_;
  std::unique_ptr<REPSegmentAttributesClause> segment_;
  std::unique_ptr<REPSegmentAttributesClause> overflow_segment_;
  bool has_overflow_ = false;
  bool in_overflow_ = false;  // segment attributes that come belong to the overflow
  std::unique_ptr<REPName> including_;
  Compression compression_;
  REPMapping_e mapping_{};
  std::string pct_threshold_;
  std::unique_ptr<REPName> cluster_;
  std::unique_ptr<REPNameList> cluster_columns_;
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
