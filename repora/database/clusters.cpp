#include "repora/database/clusters.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/column_properties.h"

using repora::SqlText;

namespace codes = repora::codes;

REPProcess_e REPClusterColumn::Process(REPProcessor* processor, MOXActionSummaryItem* cluster,
                                       REPName const* cluster_name) const {
  if (!processor || !cluster) return REPProcessError;
  MOXActionSummaryItem* column = nullptr;
  auto const result =
      processor->AddItem(cluster->Id(), ORVTypes::oOracleClusterColumn, name_.Get(), column);
  if (result == REPProcessDuplicate)
    processor->DisplayWarning(REPMessage::DuplicateColumn,
                              processor->GetObjectDisplayString(cluster->Type()),
                              repora::AsWritten(cluster_name), repora::AsWritten(name_.Get()));
  if (result != REPProcessOK) return result;
  if (datatype_) {
    long model_id = 0;
    repora::SetText(*column, ORVTypes::pDatatype, datatype_->AsString(model_id, true));
    if (datatype_->GetCharType() == REPChartype_e::Byte)
      repora::SetInteger(*column, ORVTypes::pCharacterSemantics, codes::kByteSemantics);
    if (datatype_->GetCharType() == REPChartype_e::Char)
      repora::SetInteger(*column, ORVTypes::pCharacterSemantics, codes::kCharSemantics);
  }
  if (sort_) repora::SetBoolean(*column, ORVTypes::pOracleSortColumn, true);
  return REPProcessOK;
}

std::string REPClusterColumn::AsString() const {
  return SqlText()
      .Name(name_.Get())
      .Append(" ")
      .Append(repora::DatatypeText(datatype_.Get()))
      .AppendIf(sort_, " SORT")
      .Take();
}

REPProcess_e REPClusterColumnList::Process(REPProcessor* processor, MOXActionSummaryItem* cluster,
                                           REPName const* cluster_name) const {
  return columns_.ProcessAll(
      [&](REPClusterColumn const& column) {
        return column.Process(processor, cluster, cluster_name);
      },
      repora::ListRule::SkipDuplicates);
}

std::string REPClusterColumnList::AsString() const {
  return columns_.Join(", ", true,
                       [](REPClusterColumn const& column) { return column.AsString(); });
}

namespace repora {

void ClusterOptions::WriteCache(MOXActionSummaryItem& cluster) const {
  if (cache_ == REPCache_e::NoCache) SetBoolean(cluster, ORVTypes::pOracleCache, false);
  if (cache_ == REPCache_e::Cache) SetBoolean(cluster, ORVTypes::pOracleCache, true);
}

void ClusterOptions::WriteSegment(REPProcessor* processor, MOXActionSummaryItem& cluster) const {
  if (!physical_.AsString().empty()) physical_.Process(processor, &cluster, codes::kRegularStorage);
}

// A cluster has no CACHE READS.
std::string ClusterOptions::CacheText() const {
  bool const known = cache_ == REPCache_e::NoCache || cache_ == REPCache_e::Cache;
  return SqlText().Option(known ? Keyword(cache_) : std::string_view()).Take();
}

}  // namespace repora

REPProcess_e REPCreateCluster::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const root = processor->GetRoot();
  MOXActionSummaryItem* item = nullptr;
  if (auto const result = processor->AddItem(root, ORVTypes::oOracleCluster, name_.Get(), item);
      result != REPProcessOK)
    return result;
  auto& cluster = *item;
  if (name_) repora::SetTextIfGiven(cluster, ORVTypes::pDBOwner, name_->GetOwnerName(false));
  if (index_) repora::SetBoolean(cluster, ORVTypes::pOracleIndex, true);
  if (hash_expression_)
    repora::SetText(cluster, ORVTypes::pHashExpression, hash_expression_->AsString());
  if (hash_size_ >= 0) repora::SetInteger(cluster, ORVTypes::pOracleHashKeys, hash_size_);
  if (single_) repora::SetBoolean(cluster, ORVTypes::pSingleTable, true);
  WriteCache(cluster);
  WriteSegment(processor, cluster);
  if (row_dependencies_ == REPRowDepend_e::NoRowDependencies)
    repora::SetBoolean(cluster, ORVTypes::pOracleRowDependencies, false);
  if (row_dependencies_ == REPRowDepend_e::RowDependencies)
    repora::SetBoolean(cluster, ORVTypes::pOracleRowDependencies, true);
  repora::SetTextIfGiven(cluster, ORVTypes::pOracleSize, size_.AsString());
  if (tablespace_)
    repora::SetReference(
        cluster, ORVTypes::pOracleTablespaceRef,
        processor->FindCreateItem(root, ORVTypes::oOracleTablespace, tablespace_.Get()));
  if (parallel_) parallel_->Process(processor, &cluster);
  return columns_ ? columns_->Process(processor, &cluster, name_.Get()) : REPProcessOK;
}

std::string REPCreateCluster::AsString() const {
  SqlText sql("CREATE CLUSTER ");
  sql.Name(name_.Get())
      .Option(repora::TextOf(columns_.Get()))
      .Append(" ")  // also where nothing physical follows
      .Append(physical_.AsString())
      .Append(size_.AsString(" SIZE "))
      .Clause(" TABLESPACE ", tablespace_.Get())
      .AppendIf(index_, " INDEX")
      .AppendIf(single_, " SINGLE TABLE");
  if (hash_size_ >= 0) sql.Append(" HASHKEYS ").Number(hash_size_);
  return sql.Clause(" HASH IS ", repora::TextOf(hash_expression_.Get()))
      .Option(repora::TextOf(parallel_.Get()))
      .AppendIf(row_dependencies_ == REPRowDepend_e::NoRowDependencies, " NOROWDEPENDENCIES")
      .AppendIf(row_dependencies_ == REPRowDepend_e::RowDependencies, " ROWDEPENDENCIES")
      .Append(CacheText())
      .Append(";")
      .Take();
}

REPProcess_e REPAlterCluster::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const cluster =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oOracleCluster, name_.Get());
  if (!cluster) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oOracleCluster),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  if (name_) repora::SetTextIfGiven(*cluster, ORVTypes::pDBOwner, name_->GetOwnerName(false));
  WriteCache(*cluster);
  WriteSegment(processor, *cluster);
  if (allocate_) allocate_->Process(cluster);
  parallel_.Process(processor, cluster);
  return REPProcessOK;
}

std::string REPAlterCluster::AsString() const {
  SqlText sql("ALTER CLUSTER ");
  sql.Name(name_.Get())
      .Option(physical_.AsString())
      .Append(size_.AsString(" SIZE "))
      .Option(parallel_.AsString())
      .Append(CacheText())
      .Option(repora::TextOf(allocate_.Get()));
  if (deallocate_) sql.Append(" DEALLOCATE UNUSED").Append(deallocate_size_.AsString(" KEEP "));
  return sql.Append(";").Take();
}
