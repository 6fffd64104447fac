#pragma once

#include <string>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/external_table.h"
#include "repora/tables/table_options.h"

// CLUSTER name (column, ...)
// | ORGANIZATION EXTERNAL [external_table]
// | [ORGANIZATION {HEAP | INDEX}] [external_table] [segment_attributes] [INCLUDING column]
//   [OVERFLOW [segment_attributes]] [COMPRESS [n] | NOCOMPRESS] [MAPPING TABLE | NOMAPPING]
//   [PCTTHRESHOLD n]
class REPPhysicalProps final {
 public:
  REPPhysicalProps() = default;
  explicit REPPhysicalProps(REPPhysicalProps const* other)
      : REPPhysicalProps(repora::CopyOf(other)) {}
  REPPhysicalProps& operator=(REPPhysicalProps const* other) {
    return *this = repora::CopyOf(other);
  }

  virtual std::string AsString() const;

  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  void SetCompressionSize(char const* text) { compression_size_ = text; }
  void SetOrganization(REPOrganization_e organization) { organization_ = organization; }
  void SetMapping(REPMapping_e mapping) { mapping_ = mapping; }
  void SetPctThreshold(char const* text) { pct_threshold_ = text; }
  void SetIndexOverflow(bool overflow) { index_overflow_ = overflow; }
  void SetIncludingColumn(REPName* column) { including_column_.Set(column); }
  void SetSegmentAttributes(REPSegmentAttributesClause* clause) { segment_.Set(clause); }
  REPSegmentAttributesClause* GetSegmentAttributes() const { return segment_.Get(); }
  void SetOverflowSegmentAttributes(REPSegmentAttributesClause* clause) {
    overflow_segment_.Set(clause);
  }
  void SetClusterName(REPName* name) { cluster_.Set(name); }
  void SetClusterColumns(REPNameList* columns) { cluster_columns_.Set(columns); }
  void SetExternalTableClause(REPExternalTableClause* clause) { external_.Set(clause); }

 private:
  REPCompress_e compression_{};
  repora::Text compression_size_;  // the prefix length of COMPRESS n
  REPOrganization_e organization_{};
  REPMapping_e mapping_{};
  repora::Text pct_threshold_;
  bool index_overflow_ = false;  // the keyword OVERFLOW
  repora::Owned<REPName> including_column_;
  repora::Owned<REPSegmentAttributesClause> segment_;  // the table's own
  repora::Owned<REPSegmentAttributesClause> overflow_segment_;
  repora::Owned<REPName> cluster_;
  repora::Owned<REPNameList> cluster_columns_;
  repora::Owned<REPExternalTableClause> external_;
};
