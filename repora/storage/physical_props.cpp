#include "repora/storage/physical_props.h"

#include "repora/core/sql_text.h"

using repora::SqlText;

namespace {

// Here any value that is given and no NOCOMPRESS is COMPRESS, and either may have a size.
std::string TableCompression(REPCompress_e compression, std::string_view size) {
  if (compression == REPCompress_e::None) return {};
  return SqlText(compression == REPCompress_e::NoCompress ? "NOCOMPRESS" : "COMPRESS")
      .Option(size)
      .Take();
}

std::string_view MappingText(REPMapping_e mapping) {
  if (mapping == REPMapping_e::None) return {};
  return mapping == REPMapping_e::MappingTable ? "MAPPING TABLE" : "NOMAPPING";
}

}  // namespace

std::string REPPhysicalProps::AsString() const {
  if (cluster_) {
    SqlText sql("CLUSTER ");
    sql.Name(cluster_.Get());
    if (cluster_columns_) sql.Append(cluster_columns_->AsString(true));
    return sql.Take();
  }
  SqlText sql;
  if (organization_ != REPOrganization_e::None) sql.Part(repora::Keyword(organization_));
  sql.Part(repora::TextOf(external_.Get()));
  if (organization_ == REPOrganization_e::External) return sql.Take();
  return sql.Part(repora::TextOf(segment_.Get()))
      .PartClause("INCLUDING ", including_column_.Get())
      .Part(index_overflow_ ? "OVERFLOW" : "")
      .Part(repora::TextOf(overflow_segment_.Get()))
      .Part(TableCompression(compression_, compression_size_))
      .Part(MappingText(mapping_))
      .PartClause("PCTTHRESHOLD ", pct_threshold_)
      .Take();
}
