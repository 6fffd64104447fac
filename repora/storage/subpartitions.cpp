#include "repora/storage/subpartitions.h"

#include <vector>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/storage/partition_items.h"

using repora::SqlText;
using repora::TextOf;

namespace codes = repora::codes;

namespace {

// Adds a subpartition with its values and its storage.
REPProcess_e AddSubpartition(REPProcessor* processor, MOXActionSummaryItem* owner,
                             MOXActionSummaryItem const* column_owner, MOXId type,
                             REPName const* name, REPListValueClause const* values,
                             REPPartitioningStorageClauseList const* storage) {
  if (!processor || !owner) return REPProcessError;
  auto* const subpartition =
      repora::AddPartitionItem(*processor, *owner, type, name, REPMessage::DuplicateSubpartition);
  if (!subpartition) return REPProcessError;
  if (values) {
    if (auto const result = values->Process(subpartition); result != REPProcessOK) return result;
  }
  return storage ? storage->Process(processor, subpartition, column_owner) : REPProcessOK;
}

std::string ValuesText(REPListValueClause const* values) {
  return values ? values->AsString(false) : std::string();
}

std::string StoreInText(REPNameList const* tablespaces) {
  return tablespaces ? " STORE IN " + tablespaces->AsString(true) : std::string();
}

}  // namespace

REPProcess_e REPSubPartitionSpec::Process(REPProcessor* processor,
                                          MOXActionSummaryItem* description,
                                          MOXActionSummaryItem const* column_owner) const {
  return AddSubpartition(processor, description, column_owner, ORVTypes::oOracleSubpartitionSpec,
                         name_.Get(), values_.Get(), storage_.Get());
}

std::string REPSubPartitionSpec::AsString() const {
  return SqlText("SUBPARTITION")
      .Clause(" ", name_.Get())
      .Option(ValuesText(values_.Get()))
      .Option(TextOf(storage_.Get()))
      .Take();
}

REPProcess_e REPSubPartitionSpecList::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* description,
                                              MOXActionSummaryItem const* column_owner) const {
  return clauses_.ProcessAll([&](REPSubPartitionSpec const& subpartition) {
    return subpartition.Process(processor, description, column_owner);
  });
}

std::string REPSubPartitionSpecList::AsString() const {
  if (clauses_.IsEmpty()) return {};
  return Join(", ", true);
}

REPProcess_e REPPartitionLevel::Process(REPProcessor* processor, MOXActionSummaryItem* description,
                                        MOXActionSummaryItem const* column_owner) const {
  if (!processor || !description) return REPProcessError;
  auto const write_type = [description](std::int32_t type) {
    repora::SetInteger(*description, ORVTypes::pOraclePartitionLevelSubpartitionType, type);
  };
  if (!quantity_.empty()) {
    write_type(codes::kSubpartitionsByQuantity);
    repora::SetText(*description, ORVTypes::pOracleHashPartitionQuantity, quantity_);
  }
  if (tablespaces_) {
    write_type(codes::kSubpartitionsByQuantity);
    repora::SetTablespaces(*processor, *description, ORVTypes::pOracleTablespacesRef,
                           *tablespaces_);
  }
  if (subpartitions_) {
    if (auto const result = subpartitions_->Process(processor, description, column_owner);
        result != REPProcessOK)
      return result;
    write_type(codes::kSubpartitionsListed);
  }
  return REPProcessOK;
}

std::string REPPartitionLevel::AsString() const {
  if (subpartitions_) return subpartitions_->AsString();
  if (quantity_.empty()) return {};
  return SqlText("SUBPARTITIONS ").Append(quantity_).Append(StoreInText(tablespaces_.Get())).Take();
}

REPProcess_e REPSubPartitionTemplateSubPartition::Process(
    REPProcessor* processor, MOXActionSummaryItem* partitioning,
    MOXActionSummaryItem const* column_owner) const {
  if (!repora::IsGiven(name_.Get())) return REPProcessError;
  return AddSubpartition(processor, partitioning, column_owner, ORVTypes::oOraclePartitionTemplate,
                         name_.Get(), values_.Get(), storage_.Get());
}

std::string REPSubPartitionTemplateSubPartition::AsString() const {
  return SqlText("SUBPARTITION ")
      .Name(name_.Get())
      .Option(ValuesText(values_.Get()))
      .Option(TextOf(storage_.Get()))
      .Take();
}

REPProcess_e REPSubPartitionTemplateSubPartitionList::Process(
    REPProcessor* processor, MOXActionSummaryItem* partitioning,
    MOXActionSummaryItem const* column_owner) const {
  return clauses_.ProcessAll([&](REPSubPartitionTemplateSubPartition const& subpartition) {
    return subpartition.Process(processor, partitioning, column_owner);
  });
}

std::string REPSubPartitionTemplateSubPartitionList::AsString() const {
  return Join(", ", true);
}

REPProcess_e REPSubPartitionTemplate::Process(REPProcessor* processor,
                                              MOXActionSummaryItem* partitioning,
                                              MOXActionSummaryItem const* column_owner) const {
  if (!processor || !partitioning) return REPProcessError;
  if (!quantity_.empty()) {
    repora::SetInteger(*partitioning, ORVTypes::pOracleTemplateSubpartitionType,
                       codes::kTemplateByQuantity);
    repora::SetText(*partitioning, ORVTypes::pOracleHashPartitionQuantity, quantity_);
  }
  if (subpartitions_) {
    if (auto const result = subpartitions_->Process(processor, partitioning, column_owner);
        result != REPProcessOK)
      return result;
    repora::SetInteger(*partitioning, ORVTypes::pOracleTemplateSubpartitionType,
                       codes::kTemplateListed);
  }
  return REPProcessOK;
}

std::string REPSubPartitionTemplate::AsString() const {
  return SqlText("SUBPARTITION TEMPLATE ")
      .Append(TextOf(subpartitions_.Get()))
      .Append(quantity_)
      .Take();
}

REPProcess_e REPSubPartitionByList::Process(REPProcessor* processor,
                                            MOXActionSummaryItem* partitioning,
                                            MOXActionSummaryItem const* column_owner) const {
  if (!processor || !partitioning || !column_owner) return REPProcessError;
  repora::SetInteger(*partitioning, ORVTypes::pOracleCompositeSubpartitionType,
                     codes::kSubpartitionByList);
  std::uint32_t column = 0;
  if (!repora::FindColumn(*processor, *column_owner, column_.Get(), repora::ColumnUse::CompositeKey,
                          column))
    return REPProcessError;
  repora::SetReference(*partitioning, ORVTypes::pColumnRef, column);
  return template_ ? template_->Process(processor, partitioning, column_owner) : REPProcessOK;
}

std::string REPSubPartitionByList::AsString() const {
  return SqlText("SUBPARTITION BY LIST (")
      .Name(column_.Get())
      .Append(")")
      .Option(TextOf(template_.Get()))
      .Take();
}

REPProcess_e REPSubPartitionByHash::Process(REPProcessor* processor,
                                            MOXActionSummaryItem* partitioning,
                                            MOXActionSummaryItem const* column_owner) const {
  if (!processor || !partitioning || !column_owner) return REPProcessError;
  repora::SetInteger(*partitioning, ORVTypes::pOracleCompositeSubpartitionType,
                     codes::kSubpartitionByHash);
  if (!columns_) return REPProcessError;
  std::vector<std::uint32_t> columns;
  if (!repora::FindColumns(*processor, *column_owner, *columns_, repora::ColumnUse::CompositeKey,
                           columns))
    return REPProcessError;
  repora::SetReferences(*partitioning, ORVTypes::pOracleHashColumnsRef, columns);
  if (!quantity_.empty()) {
    repora::SetInteger(*partitioning, ORVTypes::pHashSubpartitionType,
                       codes::kHashSubpartitionsByQuantity);
    repora::SetText(*partitioning, ORVTypes::pOracleHashPartitionQuantity, quantity_);
    if (tablespaces_)
      repora::SetTablespaces(*processor, *partitioning, ORVTypes::pOracleTablespacesRef,
                             *tablespaces_);
  }
  if (!template_) return REPProcessOK;
  repora::SetInteger(*partitioning, ORVTypes::pHashSubpartitionType,
                     codes::kHashSubpartitionsByTemplate);
  return template_->Process(processor, partitioning, column_owner);
}

std::string REPSubPartitionByHash::AsString() const {
  SqlText sql("SUBPARTITION BY HASH");
  if (columns_) sql.Append(columns_->AsString(true));
  if (template_) return sql.Option(template_->AsString()).Take();
  return sql.Clause(" SUBPARTITIONS ", quantity_).Append(StoreInText(tablespaces_.Get())).Take();
}
