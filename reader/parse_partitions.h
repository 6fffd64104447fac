#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/storage/partitions.h"

namespace repora::reader {

// PARTITION BY ...; null, noted, for a method that the clause cannot hold. What follows its name is
// then left to the caller to skip.
std::unique_ptr<REPTablePartitioningClause> ParseTablePartitioning(TokenStream& in);

// The name behind PARTITION or SUBPARTITION; null when there is none.
std::unique_ptr<REPName> ParsePartitionName(TokenStream& in);

// VALUES LESS THAN ( value [, value]... )
std::unique_ptr<REPRangeValueClause> ParseRangeValues(TokenStream& in);

// ( DEFAULT | value [, value]... ), behind VALUES or AT
std::unique_ptr<REPListValueClause> ParseListValues(TokenStream& in);

// Whether a partition's subpartitions are kept, or were said to be skipped by a note.
enum class Subpartitions { Kept, Skipped };

// What a partition has behind its values, up to what is no attribute of a partition; never null.
std::unique_ptr<REPTablePartDesc> ParsePartitionDescription(
    TokenStream& in, Subpartitions subpartitions = Subpartitions::Kept);

// {TABLESPACE name | OVERFLOW [TABLESPACE name] | LOB (column) STORE AS ... | VARRAY ...}...; null
// when there is none.
std::unique_ptr<REPPartitioningStorageClauseList> ParsePartitioningStorage(TokenStream& in);

// SUBPARTITION [name] [VALUES (...)] [partitioning_storage]
std::unique_ptr<REPSubPartitionSpec> ParseSubPartition(TokenStream& in);

// ( SUBPARTITION name [VALUES (...)] [partitioning_storage] [, ...] )
std::unique_ptr<REPSubPartitionTemplateSubPartitionList> ParseTemplateSubPartitions(
    TokenStream& in);

// ( PARTITION [name] [partitioning_storage] [, ...] )
std::unique_ptr<REPIndividualHashPartitionList> ParseHashPartitions(TokenStream& in);

// PARTITIONS n [STORE IN (...)] [OVERFLOW STORE IN (...)]
std::unique_ptr<REPHashPartitionsByQuantity> ParseHashPartitionsByQuantity(TokenStream& in);

}  // namespace repora::reader
