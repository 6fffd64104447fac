#include <string_view>

#include "repora/core/sql_text.h"
#include "repora/queries/select.h"
#include "repora/storage/parallel.h"
#include "repora/storage/partitions.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/create_table.h"
#include "repora/tables/external_table.h"

using repora::SqlText;

namespace {

// One of two keywords, empty for any other value.
std::string_view Choose(int choice, std::string_view first, std::string_view second) {
  if (choice == 1) return first;
  return choice == 2 ? second : std::string_view();
}

}  // namespace

std::string REPCreateTable::AsString() const {
  switch (table_type_) {
    case REPTableType_e::None: break;
    case REPTableType_e::Relational: return RelationalTableText();
    case REPTableType_e::Object:
      return SqlText("CREATE ")
          .AppendIf(global_temporary_, "GLOBAL TEMPORARY ")
          .Append("TABLE ")
          .Name(name_.Get())
          .Append(" <<object type>>;")
          .Take();
    case REPTableType_e::XmlType: return "CREATE TABLE (XML type);";
  }
  return {};
}

std::string REPCreateTable::RelationalTableText() const {
  SqlText sql("CREATE ");
  sql.AppendIf(global_temporary_, "GLOBAL TEMPORARY ").Append("TABLE ").Name(name_.Get());
  auto const properties = RelationalPropertiesText();
  if (!properties.empty()) sql.Append("(").Append(properties).Append(")");
  auto const commit = Choose(static_cast<int>(commit_), "DELETE", "PRESERVE");
  if (!commit.empty()) sql.Append(" ON COMMIT ").Append(commit).Append(" ROWS");
  sql.Option(Choose(static_cast<int>(cache_), "NOCACHE", "CACHE"))
      .Option(repora::TextOf(parallel_.Get()))
      .Option(
          Choose(static_cast<int>(row_movement_), "DISABLE ROW MOVEMENT", "ENABLE ROW MOVEMENT"))
      .Option(Choose(static_cast<int>(row_dependencies_), "NOROWDEPENDENCIES", "ROWDEPENDENCIES"))
      .Option(repora::TextOf(enable_disable_.Get()));
  if (organization_ != REPOrganization_e::None) sql.Option(repora::Keyword(organization_));
  sql.Option(repora::TextOf(query_.Get()));
  if (external_) sql.Append("(").Append(external_->AsString()).Append(")");
  sql.Option(repora::TextOf(segment_.Get())).Clause(" INCLUDING ", including_column_.Get());
  if (index_overflow_) sql.Append(" OVERFLOW").Option(repora::TextOf(overflow_segment_.Get()));
  auto const compression = repora::Keyword(compression_);
  if (!compression.empty()) sql.Option(compression).Option(compression_size_);
  sql.Option(Choose(static_cast<int>(mapping_), "MAPPING TABLE", "NOMAPPING"))
      .Clause(" PCTTHRESHOLD ", pct_threshold_);
  if (cluster_) {
    sql.Append(" CLUSTER ").Name(cluster_.Get());
    if (cluster_columns_) sql.Append(cluster_columns_->AsString(true));
  }
  return sql.Option(column_properties_.AsString(true))
      .Option(repora::TextOf(partitioning_.Get()))
      .Append(";")
      .Take();
}

std::string REPCreateTable::RelationalPropertiesText() const {
  SqlText sql;
  if (columns_.GetCount() > 0) sql.Part(" " + columns_.AsString(), ", ");
  if (constraints_.GetCount() > 0) sql.Part(" " + constraints_.AsString(), ", ");
  if (ref_constraints_.GetCount() > 0) sql.Part(" " + ref_constraints_.AsString(), ", ");
  if (supplemental_logging_.GetCount() > 0) sql.Part(" " + supplemental_logging_.AsString(), ", ");
  return sql.Take();
}
