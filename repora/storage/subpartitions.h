#pragma once

#include <string>

#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/partition_values.h"
#include "repora/storage/partitioning_storage.h"

class MOXActionSummaryItem;
class REPProcessor;

// SUBPARTITION [name] [VALUES (...)] [partitioning_storage]
class REPSubPartitionSpec {
 public:
  void SetSubPartition(REPName* name) { name_.Set(name); }
  REPName* GetSubPartition() const { return name_.Get(); }
  void SetListValues(REPListValueClause* values) { values_.Set(values); }
  REPListValueClause* GetListValues() const { return values_.Get(); }
  void SetStorageClauses(REPPartitioningStorageClauseList* storage) { storage_.Set(storage); }
  REPPartitioningStorageClauseList* GetStorageClauses() const { return storage_.Get(); }

  // Adds the subpartition to the description of its partition.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* description,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPListValueClause> values_;
  repora::Owned<REPPartitioningStorageClauseList> storage_;
};

// (subpartition, ...)
class REPSubPartitionSpecList : public repora::ClauseList<REPSubPartitionSpec> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* description,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;
};

// SUBPARTITIONS n [STORE IN (tablespace, ...)] | (subpartition, ...)
class REPPartitionLevel {
 public:
  void SetQuantity(char const* text) { quantity_ = text; }
  char const* GetQuantity() const { return quantity_.c_str(); }
  void SetTablespaceList(REPNameList* names) { tablespaces_.Set(names); }
  REPNameList* GetTablespaceList() const { return tablespaces_.Get(); }
  void SetSpecList(REPSubPartitionSpecList* list) { subpartitions_.Set(list); }
  REPSubPartitionSpecList* GetSpecList() const { return subpartitions_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* description,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Text quantity_;
  repora::Owned<REPNameList> tablespaces_;
  repora::Owned<REPSubPartitionSpecList> subpartitions_;
};

// SUBPARTITION name [VALUES (...)] [partitioning_storage]
class REPSubPartitionTemplateSubPartition {
 public:
  // A subpartition of a template must have a name.
  void SetSubPartition(REPName* name) { name_.Set(name); }
  REPName* GetSubPartition() const { return name_.Get(); }
  void SetValuesClause(REPListValueClause* values) { values_.Set(values); }
  REPListValueClause* GetValuesClause() const { return values_.Get(); }
  void SetStorageClause(REPPartitioningStorageClauseList* storage) { storage_.Set(storage); }
  REPPartitioningStorageClauseList* GetStorageClause() const { return storage_.Get(); }

  // Adds the subpartition to a composite partitioning.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPListValueClause> values_;
  repora::Owned<REPPartitioningStorageClauseList> storage_;
};

// (template_subpartition, ...)
class REPSubPartitionTemplateSubPartitionList
    : public repora::ClauseList<REPSubPartitionTemplateSubPartition> {
 public:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;
};

// SUBPARTITION TEMPLATE {(template_subpartition, ...) | n}
class REPSubPartitionTemplate {
 public:
  void SetQuantity(char const* text) { quantity_ = text; }
  char const* GetQuantity() const { return quantity_.c_str(); }
  void SetSubPartitions(REPSubPartitionTemplateSubPartitionList* list) { subpartitions_.Set(list); }
  REPSubPartitionTemplateSubPartitionList* GetSubPartitions() const { return subpartitions_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Text quantity_;
  repora::Owned<REPSubPartitionTemplateSubPartitionList> subpartitions_;
};

// SUBPARTITION BY LIST (column) [template]
class REPSubPartitionByList {
 public:
  void SetColumn(REPName* column) { column_.Set(column); }
  REPName* GetColumn() const { return column_.Get(); }
  void SetTemplate(REPSubPartitionTemplate* subpartitions) { template_.Set(subpartitions); }
  REPSubPartitionTemplate* GetTemplate() const { return template_.Get(); }

  // Writes the subpartitioning on a composite partitioning; without a column an error.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> column_;
  repora::Owned<REPSubPartitionTemplate> template_;
};

// SUBPARTITION BY HASH (column, ...) [template | SUBPARTITIONS n [STORE IN (tablespace, ...)]]
class REPSubPartitionByHash {
 public:
  void SetColumns(REPNameList* columns) { columns_.Set(columns); }
  REPNameList* GetColumns() const { return columns_.Get(); }
  void SetQuantity(char const* text) { quantity_ = text; }
  char const* GetQuantity() const { return quantity_.c_str(); }
  // Written only together with a quantity.
  void SetTablespaces(REPNameList* names) { tablespaces_.Set(names); }
  REPNameList* GetTablespaces() const { return tablespaces_.Get(); }
  void SetTemplate(REPSubPartitionTemplate* subpartitions) { template_.Set(subpartitions); }
  REPSubPartitionTemplate* GetTemplate() const { return template_.Get(); }

  // Writes the subpartitioning on a composite partitioning; without columns an error.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* partitioning,
                       MOXActionSummaryItem const* column_owner) const;
  std::string AsString() const;

 private:
  repora::Owned<REPNameList> columns_;
  repora::Text quantity_;
  repora::Owned<REPNameList> tablespaces_;
  repora::Owned<REPSubPartitionTemplate> template_;
};
