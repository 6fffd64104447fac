#include <string_view>

#include "repora/core/sql_text.h"
#include "repora/queries/materialized_views.h"
#include "repora/queries/refresh.h"
#include "repora/queries/select.h"
#include "repora/storage/partitions.h"
#include "repora/storage/segment_attributes.h"
#include "repora/tables/external_table.h"
#include "repora/tables/table_column_props.h"

using repora::SqlText;
using repora::TextOf;

namespace {

// Without the keyword that tables have before it.
std::string_view OrganizationText(REPOrganization_e organization) {
  switch (organization) {
    case REPOrganization_e::None: break;
    case REPOrganization_e::Heap: return "HEAP";
    case REPOrganization_e::Index: return "INDEX";
    case REPOrganization_e::External: return "EXTERNAL";
  }
  return {};
}

std::string_view MappingText(REPMapping_e mapping) {
  switch (mapping) {
    case REPMapping_e::None: break;
    case REPMapping_e::MappingTable: return "MAPPING TABLE";
    case REPMapping_e::NoMapping: return "NOMAPPING";
  }
  return {};
}

std::string_view PrecisionText(REPPrebuilt_e prebuilt) {
  switch (prebuilt) {
    case REPPrebuilt_e::None:
    case REPPrebuilt_e::Prebuilt: break;
    case REPPrebuilt_e::WithReducedPrecision: return "WITH REDUCED PRECISION";
    case REPPrebuilt_e::WithoutReducedPrecision: return "WITHOUT REDUCED PRECISION";
  }
  return {};
}

}  // namespace

std::string REPScopedTableRefConstraint::AsString() const {
  return SqlText("SCOPE FOR (").Name(column_.Get()).Append(") IS ").Name(scope_.Get()).Take();
}

std::string REPScopedTableRefConstraintList::AsString() const {
  return constraints_.Join(", ", true, [](REPScopedTableRefConstraint const& constraint) {
    return constraint.AsString();
  });
}

std::string REPMaterializedViewProps::AsString() const {
  return SqlText()
      .Part(columns_ ? columns_->AsString(false) : std::string())
      .Part(TextOf(partitioning_.Get()))
      .Part(repora::Keyword(cache_))
      .Part(repora::Keyword(parallel_))
      .Part(parallel_size_)
      .Part(repora::Keyword(build_))
      .Take();
}

std::string REPCreateMaterializedView::AsString() const {
  SqlText sql("CREATE MATERIALIZED VIEW");
  sql.Clause(" ", name_.Get());
  if (aliases_) sql.Option(aliases_->AsString(true));
  sql.Clause(" OF ", type_.Get()).Option(TextOf(scopes_.Get()));
  if (prebuilt_ != REPPrebuilt_e::None)
    sql.Append(" ON PREBUILT TABLE").Option(PrecisionText(prebuilt_));
  else
    sql.Option(PhysicalText());
  if (using_index_ == REPUsingIndex_e::NoIndex) sql.Append(" USING NO INDEX");
  if (using_index_ == REPUsingIndex_e::Index)
    sql.Append(" USING INDEX")
        .Clause(" TABLESPACE ", index_tablespace_.Get())
        .Option(TextOf(index_attributes_.Get()));
  return sql.Option(TextOf(refresh_.Get()))
      .AppendIf(for_update_, " FOR UPDATE")
      .AppendIf(rewrite_ == REPRewrite_e::Enable, " ENABLE QUERY REWRITE")
      .AppendIf(rewrite_ == REPRewrite_e::Disable, " DISABLE QUERY REWRITE")
      .Clause(" AS ", TextOf(query_.Get()))
      .Take();
}

std::string REPCreateMaterializedView::PhysicalText() const {
  SqlText sql;
  sql.Part(OrganizationText(organization_))
      .Part(TextOf(external_.Get()))
      .Part(TextOf(segment_.Get()))
      .PartClause("INCLUDING ", including_column_.Get());
  if (index_overflow_) sql.Part("OVERFLOW").Option(TextOf(overflow_segment_.Get()));
  if (auto const compression = repora::Keyword(compression_); !compression.empty())
    sql.Part(compression).Option(compression_size_);
  sql.Part(MappingText(mapping_)).PartClause("PCTTHRESHOLD ", pct_threshold_);
  if (cluster_) {
    sql.PartClause("CLUSTER ", cluster_.Get());
    if (cluster_columns_) sql.Append(cluster_columns_->AsString(true));
  }
  return sql.Part(TextOf(properties_.Get())).Take();
}
