#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "repora/core/keywords.h"
#include "repora/core/name.h"
#include "repora/core/owned.h"
#include "repora/core/statement.h"
#include "repora/storage/parallel.h"
#include "repora/storage/storage_clause.h"

class MOXActionSummaryItem;
class REPCondition;
class REPGlobalPartitionedIndexClause;
class REPLocalPartitionedIndexClause;
class REPProcessor;

// Whether the partitions of an index are those of its table.
enum class REPIndexAttPart_e : int { None, Global, Local };

namespace repora {

// The name of a column or an index member as the script wrote it, which may not be the item's own:
// that one follows the case rule of the logical model.
REPName ScriptNameOf(MOXActionSummaryItem const& item);

// Writes the members of a key group in their order: as the order of the index and, unless the model
// is physical only, as that of the key.
void WriteMemberOrder(REPProcessor const& processor, MOXActionSummaryItem& key_group,
                      std::vector<std::uint32_t> const& members);

}  // namespace repora

// {column | expression} [ASC | DESC]
class REPIndexExpr {
 public:
  // A column name or an expression, as the script wrote it.
  void SetExpression(char const* text) { expression_ = text; }
  char const* GetExpression() const { return expression_.c_str(); }
  void SetSort(REPSort_e sort) { sort_ = sort; }
  REPSort_e GetSort() const { return sort_; }

  std::string AsString() const;

 private:
  repora::Text expression_;
  REPSort_e sort_{};
};

// What an index is made on, in order, owned.
class REPIndexExprList {
 public:
  void AddHead(REPIndexExpr* expression) { expressions_.AddHead(expression); }
  void AddTail(REPIndexExpr* expression) { expressions_.AddTail(expression); }
  int GetCount() const { return expressions_.GetCount(); }
  REPIndexExpr* GetIndexExpr(int index) const { return expressions_.At(index); }
  std::string AsString(bool parenthesised = false) const;

 private:
  repora::OwnedList<REPIndexExpr> expressions_;
};

// [physical_attributes] [LOGGING | NOLOGGING] [ONLINE] [COMPUTE STATISTICS]
//   [TABLESPACE {DEFAULT | name}] [COMPRESS [n] | NOCOMPRESS] [SORT | NOSORT] [REVERSE] [parallel]
class REPIndexAttributesClause {
 public:
  // Filled in place.
  REPPhysicalAttrClause* GetPhysicalAttrClause() { return &physical_; }
  REPPhysicalAttrClause const* GetPhysicalAttrClause() const { return &physical_; }
  void SetLogging(REPLogging_e logging) { logging_ = logging; }
  REPLogging_e GetLogging() const { return logging_; }
  void SetOnline(bool online) { online_ = online; }
  bool GetOnline() const { return online_; }
  void SetComputeStatistics(bool compute) { compute_statistics_ = compute; }
  bool GetComputeStatistics() const { return compute_statistics_; }
  // TABLESPACE DEFAULT, which wins over a name.
  void SetTablespaceDefault(bool use_default) { tablespace_default_ = use_default; }
  bool GetTablespaceDefault() const { return tablespace_default_; }
  void SetTablespace(REPName* name) { tablespace_.Set(name); }
  REPName* GetTablespace() const { return tablespace_.Get(); }
  void SetCompression(REPCompress_e compression) { compression_ = compression; }
  REPCompress_e GetCompression() const { return compression_; }
  // The prefix length after COMPRESS.
  void SetCompressionSize(char const* text) { compression_size_ = text; }
  char const* GetCompressionSize() const { return compression_size_.c_str(); }
  // NoSort or Sort.
  void SetSort(REPSort_e sort) { sort_ = sort; }
  REPSort_e GetSort() const { return sort_; }
  void SetReverse(bool reverse) { reverse_ = reverse; }
  bool GetReverse() const { return reverse_; }
  void SetParallelClause(REPParallelClause* clause) { parallel_.Set(clause); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }
  void SetIndexAttPartition(REPIndexAttPart_e partition) { partition_ = partition; }
  REPIndexAttPart_e GetIndexAttPartition() const { return partition_; }

  // Adds an attribute storage item under the owner (a key group or cluster index) and writes the
  // clause on it. The table is read for a LOCAL index, which needs a partitioned one; null for the
  // index of a cluster, which has no partitions to follow.
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* owner,
                       MOXActionSummaryItem* table) const;
  std::string AsString() const;

 private:
  void ProcessTablespace(REPProcessor& processor, MOXActionSummaryItem& storage,
                         bool has_physical_storage) const;
  REPProcess_e ProcessPartition(REPProcessor& processor, MOXActionSummaryItem& owner,
                                MOXActionSummaryItem const* table) const;

  REPPhysicalAttrClause physical_;
  REPLogging_e logging_{};
  bool online_ = false;
  bool compute_statistics_ = false;
  bool tablespace_default_ = false;
  repora::Owned<REPName> tablespace_;
  REPCompress_e compression_{};
  REPSort_e sort_{};
  bool reverse_ = false;
  repora::Owned<REPParallelClause> parallel_;
  repora::Text compression_size_;
  REPIndexAttPart_e partition_{};
};

// INDEXTYPE IS name [parallel] [PARAMETERS('text')]
// Rendered only.
class REPDomainIndexClause {
 public:
  void SetIndextypeName(REPName* name) { name_.Set(name); }
  REPName* GetIndextypeName() const { return name_.Get(); }
  void SetParallelClause(REPParallelClause* clause) { parallel_.Set(clause); }
  REPParallelClause* GetParallelClause() const { return parallel_.Get(); }
  void SetODCIParameters(char const* text) { parameters_ = text; }
  char const* GetODCIParameters() const { return parameters_.c_str(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* key_group) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPParallelClause> parallel_;
  repora::Text parameters_;
};

// index_attributes [domain_index] [global_partitions] [local_partitions]
class REPIndexPropertiesClause {
 public:
  REPIndexPropertiesClause();
  ~REPIndexPropertiesClause();

  // Filled in place.
  REPIndexAttributesClause* GetIndexAttributes() { return &attributes_; }
  REPIndexAttributesClause const* GetIndexAttributes() const { return &attributes_; }
  void SetDomainIndex(REPDomainIndexClause* clause) { domain_.Set(clause); }
  REPDomainIndexClause* GetDomainIndex() const { return domain_.Get(); }
  void SetGlobalIndex(REPGlobalPartitionedIndexClause* clause) { global_.Set(clause); }
  REPGlobalPartitionedIndexClause* GetGlobalIndex() const { return global_.Get(); }
  void SetLocalIndex(REPLocalPartitionedIndexClause* clause) { local_.Set(clause); }
  REPLocalPartitionedIndexClause* GetLocalIndex() const { return local_.Get(); }

  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem* table,
                       MOXActionSummaryItem* key_group) const;
  std::string AsString() const;

 private:
  REPIndexAttributesClause attributes_;
  repora::Owned<REPDomainIndexClause> domain_;
  repora::Owned<REPGlobalPartitionedIndexClause> global_;
  repora::Owned<REPLocalPartitionedIndexClause> local_;
};

// CLUSTER [owner.]name [index_attributes]
class REPClusterIndexClause {
 public:
  void SetClusterName(REPName* name) { name_.Set(name); }
  REPName* GetClusterName() const { return name_.Get(); }
  void SetIndexAttributes(REPIndexAttributesClause* attributes) { attributes_.Set(attributes); }
  REPIndexAttributesClause* GetIndexAttributes() const { return attributes_.Get(); }

  // cluster_index is null when none was made.
  REPProcess_e Process(REPProcessor* processor, REPName const* index_name, REPIndexType_e type,
                       MOXActionSummaryItem*& cluster_index) const;
  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPIndexAttributesClause> attributes_;
};

// [owner.]table [alias] (expression [ASC | DESC], ...) [index_properties]
class REPTableIndexClause {
 public:
  void SetTableName(REPName* name) { name_.Set(name); }
  REPName* GetTableName() const { return name_.Get(); }
  void SetAliasName(REPName* name) { alias_.Set(name); }
  REPName* GetAliasName() const { return alias_.Get(); }
  void SetIndexExprList(REPIndexExprList* list) { expressions_.Set(list); }
  REPIndexExprList* GetIndexExprList() const { return expressions_.Get(); }
  void SetIndexProperties(REPIndexPropertiesClause* properties) { properties_.Set(properties); }
  REPIndexPropertiesClause* GetIndexProperties() const { return properties_.Get(); }

  // key_group is null when none was made; a failure behind that leaves it in place. The result is
  // REPProcessDuplicate when the table has an index of that name.
  REPProcess_e Process(REPProcessor* processor, REPName const* index_name, REPIndexType_e type,
                       MOXActionSummaryItem*& key_group) const;
  std::string AsString() const;

 private:
  REPProcess_e ProcessExpressions(REPProcessor& processor, MOXActionSummaryItem const& table,
                                  MOXActionSummaryItem& key_group) const;

  repora::Owned<REPName> name_;
  repora::Owned<REPName> alias_;
  repora::Owned<REPIndexExprList> expressions_;
  repora::Owned<REPIndexPropertiesClause> properties_;
};

// [owner.]table (expression, ...) FROM table [alias], ... WHERE condition [index_attributes]
//   [local_partitions]
// A bitmap join index. Rendered only.
class REPBitmapIndexClause {
 public:
  REPBitmapIndexClause();
  ~REPBitmapIndexClause();

  void SetTableName(REPName* name) { name_.Set(name); }
  REPName* GetTableName() const { return name_.Get(); }
  void SetIndexExprList(REPIndexExprList* list) { expressions_.Set(list); }
  REPIndexExprList* GetIndexExprList() const { return expressions_.Get(); }
  // The tables of FROM and their aliases. Both add at the head of their list: they are added from
  // the last to the first. Null for a table without alias.
  void AddFromName(REPName* name) { from_names_.AddHead(name); }
  void AddFromAlias(REPName* alias) { from_aliases_.AddHead(alias); }
  void SetCondition(REPCondition* condition) { condition_.Set(condition); }
  REPCondition* GetCondition() const { return condition_.Get(); }
  void SetIndexAttributes(REPIndexAttributesClause* attributes) { attributes_.Set(attributes); }
  REPIndexAttributesClause* GetIndexAttributes() const { return attributes_.Get(); }
  void SetLocalPartition(REPLocalPartitionedIndexClause* clause) { local_.Set(clause); }
  REPLocalPartitionedIndexClause* GetLocalPartition() const { return local_.Get(); }

  std::string AsString() const;

 private:
  repora::Owned<REPName> name_;
  repora::Owned<REPIndexExprList> expressions_;
  repora::OwnedList<REPName, repora::NullElements::Kept> from_names_;
  repora::OwnedList<REPName, repora::NullElements::Kept> from_aliases_;
  repora::Owned<REPCondition> condition_;
  repora::Owned<REPIndexAttributesClause> attributes_;
  repora::Owned<REPLocalPartitionedIndexClause> local_;
};

// CREATE [UNIQUE | BITMAP] INDEX [owner.]name ON {cluster_index | table_index | bitmap_join_index}
class REPCreateIndex final : public REPStatement {
 public:
  void SetIndexType(REPIndexType_e type) { type_ = type; }
  REPIndexType_e GetIndexType() const { return type_; }
  void SetIndexName(REPName* name) { name_.Set(name); }
  REPName* GetIndexName() const { return name_.Get(); }
  void SetClusterIndexClause(REPClusterIndexClause* clause) { cluster_.Set(clause); }
  REPClusterIndexClause* GetClusterIndexClause() const { return cluster_.Get(); }
  void SetTableIndexClause(REPTableIndexClause* clause) { table_.Set(clause); }
  REPTableIndexClause* GetTableIndexClause() const { return table_.Get(); }
  void SetBitmapIndexClause(REPBitmapIndexClause* clause) { bitmap_.Set(clause); }
  REPBitmapIndexClause* GetBitmapIndexClause() const { return bitmap_.Get(); }

  // Unsupported for a bitmap join index and for a statement without a clause.
  REPProcess_e Process(REPProcessor* processor) const override;
  // For an index that is part of a constraint. Returns its key group, or cluster index, borrowed;
  // null on any failure.
  MOXActionSummaryItem* ProcessEmbeded(REPProcessor* processor) const;
  std::string AsString() const override;
  // The text as a part of another statement, without the closing semicolon.
  std::string EmbeddedText() const;

 private:
  REPProcess_e Process(REPProcessor* processor, MOXActionSummaryItem*& index) const;

  REPIndexType_e type_{};
  repora::Owned<REPName> name_;
  repora::Owned<REPClusterIndexClause> cluster_;
  repora::Owned<REPTableIndexClause> table_;
  repora::Owned<REPBitmapIndexClause> bitmap_;
};
