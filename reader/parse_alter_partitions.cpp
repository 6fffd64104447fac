#include "reader/parse_alter_partitions.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "reader/parse_alter_columns.h"
#include "reader/parse_index_partitions.h"
#include "reader/parse_lobs.h"
#include "reader/parse_names.h"
#include "reader/parse_partitions.h"
#include "reader/parse_storage.h"
#include "reader/replace.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/tables/alter_partitions.h"
#include "repora/tables/table_organisation.h"

namespace repora::reader {
namespace {

using Clause = REPAlterTablePartitioning;

// Whether what ends a clause comes: {UPDATE | INVALIDATE} [GLOBAL] INDEXES or the parallel clause.
bool IsTail(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_INVALIDATE:
    case K_NOPARALLEL:
    case K_PARALLEL:
    case K_UPDATE: return true;
    default: return false;
  }
}

// Takes all up to the tail of the clause or to the ENABLE and DISABLE that may end the statement.
void SkipToTail(TokenStream& in) {
  while (!in.AtEnd() && !IsTail(in) && !in.Is(K_ENABLE) && !in.Is(K_DISABLE)) in.SkipItem();
}

// FOR (value, ...) ...: a partition that is given by a value of its key is nothing the model can
// find.
bool SkipTargetByValue(TokenStream& in) {
  auto const& token = in.Peek();
  if (!in.Is(K_FOR) || in.Peek(1).punctuation != '(') return false;
  in.Note(token, "change of a partition FOR (...) is skipped");
  SkipToTail(in);
  return true;
}

// The name of the partition that the clause changes.
bool ParseTarget(TokenStream& in, Clause& clause) {
  if (SkipTargetByValue(in)) return false;
  clause.SetPartitionName(ParseSimpleName(in).release());
  return true;
}

// [, name]... of verbs that newer releases apply to several partitions
void SkipFurther(TokenStream& in) {
  auto const& token = in.Peek();
  if (!in.Accept(',')) return;
  in.Note(token, "further partitions of a clause are skipped");
  SkipToTail(in);
}

void ParseParallelOption(TokenStream& in, Clause& clause) {
  auto const parallel = ParseParallel(in);
  if (!parallel) return;
  clause.SetParallel(parallel->GetParallel());
  if (parallel->GetParallel() == REPParallel_e::Parallel)
    clause.SetParallelSize(parallel->GetValue().c_str());
}

// [update_indexes] [parallel], in any order and with what the clause has no place for
void ParseTails(TokenStream& in, Clause& clause) {
  std::unique_ptr<REPUpdateIndexClause> update;
  for (;;) {
    auto const& token = in.Peek();
    if (auto indexes = ParseUpdateIndexes(in)) {
      update = std::move(indexes);
    } else if (in.Is(K_PARALLEL) || in.Is(K_NOPARALLEL)) {
      ParseParallelOption(in, clause);
    } else if (in.Accept(K_ONLINE) || in.Accept(K_CASCADE)) {
      in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
    } else if (in.Accept(K_ALLOW, K_CLUSTERING) || in.Accept(K_DISALLOW, K_CLUSTERING)) {
      in.Note(token, "clause " + std::string(TextOf(token.word)) + " CLUSTERING is skipped");
    } else if (!in.Is(K_INCLUDING) || !SkipClause(in, ClausePlace::Partition)) {
      break;
    }
  }
  if (update && !clause.GetUpdateIndexClause()) clause.SetUpdateIndexClause(update.release());
}

// {ADD | DROP} VALUES (...); false when none comes.
bool ParseValuesChange(TokenStream& in, Clause& clause) {
  if (in.Accept(K_ADD, K_VALUES))
    clause.SetAddDropValues(REPAddDropValues_e::Add);
  else if (in.Accept(K_DROP, K_VALUES))
    clause.SetAddDropValues(REPAddDropValues_e::Drop);
  else
    return false;
  Replace(clause, &Clause::GetListValueClause, &Clause::SetListValueClause, ParseListValues(in));
  return true;
}

// [REBUILD] UNUSABLE LOCAL INDEXES; false when none comes.
bool ParseUnusable(TokenStream& in, Clause& clause) {
  if (in.Accept(K_UNUSABLE, K_LOCAL, K_INDEXES))
    clause.SetUnusableLocal(REPUnusableLocal_e::Unusable);
  else if (in.Accept(K_REBUILD, K_UNUSABLE, K_LOCAL, K_INDEXES))
    clause.SetUnusableLocal(REPUnusableLocal_e::Rebuild);
  else
    return false;
  return true;
}

// The segment of a partition, or that of its overflow, as it is read.
struct Segment {
  std::unique_ptr<REPPhysicalAttrClause> physical;
  REPLogging_e logging{};
  std::unique_ptr<REPAllocExtentClause> allocate;
  std::unique_ptr<REPDeallocateUnusedClause> deallocate;
  REPShrink_e shrink{};
};

// One attribute of a segment; false when none comes.
bool ParseSegmentPart(TokenStream& in, Segment& segment) {
  auto const word = in.Peek().word;
  if (in.Accept(K_LOGGING)) {
    segment.logging = REPLogging_e::Logging;
  } else if (in.Accept(K_NOLOGGING)) {
    segment.logging = REPLogging_e::NoLogging;
  } else if (word != K_TABLESPACE && StartsSegmentAttribute(word)) {
    if (!segment.physical) segment.physical = std::make_unique<REPPhysicalAttrClause>();
    ParsePhysicalAttribute(in, *segment.physical);
  } else if (in.Is(K_ALLOCATE, K_EXTENT)) {
    segment.allocate = ParseAllocateExtent(in);
  } else if (in.Is(K_DEALLOCATE, K_UNUSED)) {
    segment.deallocate = ParseDeallocateUnused(in);
  } else if (in.Is(K_SHRINK, K_SPACE)) {
    segment.shrink = ParseShrink(in);
  } else {
    return false;
  }
  return true;
}

// A clause of a partition that the model has no place for; false at the end of the partition's
// clauses.
bool SkipPartitionClause(TokenStream& in) {
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || IsTail(in) || token.word == K_ENABLE ||
      token.word == K_DISABLE || token.word == K_ONLINE)
    return false;
  if (SkipClause(in, ClausePlace::Partition)) return true;
  in.Note(token, "clause " + ToUpper(in.TextOf(token)) + " of a partition is skipped");
  in.Next();
  while (!in.AtEnd() && !IsTail(in) && !StartsAlterClause(in.Peek().word)) in.SkipItem();
  return true;
}

// {LOB ... | VARRAY ...} parameters, with "," between them or not; false when none comes.
bool ParseLob(TokenStream& in, LobSegment segment,
              std::unique_ptr<REPVarrayLOBParametersList>& list) {
  auto const is_lob = [](Word word) { return word == K_LOB || word == K_VARRAY; };
  if (list && in.Is(',') && is_lob(in.Peek(1).word)) in.Next();
  if (!is_lob(in.Peek().word)) return false;
  if (!list) list = std::make_unique<REPVarrayLOBParametersList>();
  list->AddTail(ParseVarrayLobParameters(in, segment).release());
  return true;
}

// What is read of the attributes of a partition.
struct Attributes {
  Segment segment;
  Segment overflow;
  bool in_overflow = false;
  std::unique_ptr<REPCompressionClause> compression;
  std::unique_ptr<REPVarrayLOBParametersList> lobs;
  bool given = false;
};

// One attribute of a partition; false when none comes.
bool ParseAttribute(TokenStream& in, Attributes& attributes) {
  if (ParseSegmentPart(in, attributes.in_overflow ? attributes.overflow : attributes.segment) ||
      ParseLob(in, LobSegment::Changed, attributes.lobs)) {
    // Read.
  } else if (in.Accept(K_OVERFLOW)) {
    attributes.in_overflow = true;
  } else if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
    auto const compression = ParseCompression(in);
    attributes.compression = std::make_unique<REPCompressionClause>();
    attributes.compression->SetCompression(compression.compress);
    attributes.compression->SetCompressionSize(in.Copy(compression.size));
    SkipKindOfCompression(in);
  } else if (!in.Accept(K_ROW, K_STORE) && !in.Accept(K_COLUMN, K_STORE)) {
    return false;
  }
  attributes.given = true;
  return true;
}

std::unique_ptr<REPPartitionAttributes> TakeAttributes(Attributes& attributes) {
  auto clause = std::make_unique<REPPartitionAttributes>();
  auto& segment = attributes.segment;
  clause->SetPhysicalAttrClause(segment.physical.release());
  clause->SetLogging(segment.logging);
  clause->SetAllocExtentClause(segment.allocate.release());
  clause->SetDeallocateUnusedClause(segment.deallocate.release());
  clause->SetShrink(segment.shrink);
  auto& overflow = attributes.overflow;
  clause->SetOverflowPhysicalAttrClause(overflow.physical.release());
  clause->SetOverflowLogging(overflow.logging);
  clause->SetOverflowAllocExtentClause(overflow.allocate.release());
  clause->SetOverflowDeallocateUnusedClause(overflow.deallocate.release());
  clause->SetOverflowShrink(overflow.shrink);
  clause->SetDataCompression(attributes.compression.release());
  clause->SetVarrayLOBParametersList(attributes.lobs.release());
  return clause;
}

// OVERFLOW [ALLOCATE EXTENT ...] [DEALLOCATE UNUSED ...] | ADD OVERFLOW [segment_attributes]
// [(...)]
std::unique_ptr<REPAlterOverflowClause> ParseOverflow(TokenStream& in) {
  auto clause = std::make_unique<REPAlterOverflowClause>();
  if (in.Accept(K_ADD, K_OVERFLOW)) {
    auto add = std::make_unique<REPAddOverflowClause>();
    if (StartsSegmentAttribute(in.Peek().word)) {
      add->SetSegmentAttributesClause(new REPSegmentAttributesClause);
      while (ParseSegmentAttribute(in, *add->GetSegmentAttributesClause())) continue;
    }
    clause->SetAddOverflowClause(add.release());
    return clause;
  }
  in.Expect(K_OVERFLOW);
  Segment segment;
  auto const& token = in.Peek();
  while (ParseSegmentPart(in, segment)) continue;
  if (segment.physical || segment.logging != REPLogging_e::None)
    in.Note(token, "segment attributes of the overflow are skipped");
  clause->SetAllocExtentClause(segment.allocate.release());
  clause->SetDeallocateUnusedClause(segment.deallocate.release());
  return clause;
}

// ATTRIBUTES [FOR PARTITION name] attribute..., behind MODIFY DEFAULT
bool ParseModifyDefault(TokenStream& in, Clause& clause) {
  in.Expect(K_ATTRIBUTES);
  if (in.Accept(K_FOR)) {
    in.Expect(K_PARTITION);
    clause.SetPartitionName(ParseSimpleName(in).release());
  }
  auto segment = std::make_unique<REPSegmentAttributesClause>();
  std::unique_ptr<REPAlterOverflowClause> overflow;
  std::unique_ptr<REPVarrayLOBParametersList> lobs;
  bool has_segment = false;
  for (;;) {
    if (ParseLob(in, LobSegment::New, lobs)) continue;
    if (ParseSegmentAttribute(in, *segment)) {
      has_segment = true;
    } else if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
      auto const compression = ParseCompression(in);
      clause.SetDataCompression(compression.compress);
      clause.SetDataCompressionSize(in.Copy(compression.size));
      SkipKindOfCompression(in);
    } else if (in.Accept(K_PCTTHRESHOLD)) {
      clause.SetPctThreshold(in.Copy(in.ExpectNumber()));
    } else if (in.Is(K_OVERFLOW) || in.Is(K_ADD, K_OVERFLOW)) {
      overflow = ParseOverflow(in);
    } else if (!in.Accept(K_ROW, K_STORE) && !in.Accept(K_COLUMN, K_STORE) &&
               !SkipPartitionClause(in)) {
      break;
    }
  }
  if (has_segment) clause.SetSegmentAttributesClause(segment.release());
  clause.SetAlterOverflowClause(overflow.release());
  clause.SetVarrayLOBParametersList(lobs.release());
  return true;
}

// TEMPLATE {(subpartition, ...) | () | n}, behind SET SUBPARTITION
bool ParseSetTemplate(TokenStream& in, Clause& clause) {
  in.Expect(K_TEMPLATE);
  if (in.Is('(') && in.Peek(1).punctuation == ')') {
    in.SkipParentheses();
    clause.SetSubPartitionList(new REPSubPartitionTemplateSubPartitionList);
  } else if (in.Is('(')) {
    clause.SetSubPartitionList(ParseTemplateSubPartitions(in).release());
  } else {
    clause.SetHashSubPartitionQuantity(in.Copy(in.ExpectNumber()));
  }
  return true;
}

// MAPPING TABLE {ALLOCATE EXTENT ... | DEALLOCATE UNUSED ...}
std::unique_ptr<REPAlterMappingTableClause> ParseMappingTable(TokenStream& in) {
  auto clause = std::make_unique<REPAlterMappingTableClause>();
  in.Expect(K_MAPPING, K_TABLE);
  if (in.Is(K_ALLOCATE))
    clause->SetAllocExtentClause(ParseAllocateExtent(in).release());
  else
    clause->SetDeallocateUnusedClause(ParseDeallocateUnused(in).release());
  return clause;
}

// name {ADD VALUES | DROP VALUES | ADD SUBPARTITION | COALESCE SUBPARTITION | UNUSABLE LOCAL
// INDEXES
//   | MAPPING TABLE | attribute}...
bool ParseModifyPartition(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  Attributes attributes;
  for (;;) {
    if (in.Is(K_MAPPING, K_TABLE) && !clause.GetAlterMappingTableClause()) {
      clause.SetAlterMappingTableClause(ParseMappingTable(in).release());
    } else if (in.Is(K_ADD, K_SUBPARTITION) && !clause.GetSubPartitionSpec1()) {
      in.Expect(K_ADD);
      clause.SetSubPartitionSpec1(ParseSubPartition(in).release());
      SkipFurther(in);
    } else if (in.Accept(K_COALESCE, K_SUBPARTITION)) {
      clause.SetCoalesce(true);
    } else if (!ParseValuesChange(in, clause) && !ParseUnusable(in, clause) &&
               !ParseAttribute(in, attributes) && !SkipPartitionClause(in)) {
      break;
    }
  }
  if (attributes.given) clause.SetPartitionAttributes(TakeAttributes(attributes).release());
  return true;
}

// name {ADD VALUES | DROP VALUES | UNUSABLE LOCAL INDEXES | ALLOCATE | DEALLOCATE | SHRINK}...
bool ParseModifySubpartition(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  Attributes attributes;
  auto const& token = in.Peek();
  while (ParseValuesChange(in, clause) || ParseUnusable(in, clause) ||
         ParseAttribute(in, attributes) || SkipPartitionClause(in))
    continue;
  auto& segment = attributes.segment;
  clause.SetAllocExtentClause(segment.allocate.release());
  clause.SetDeallocateUnusedClause(segment.deallocate.release());
  clause.SetShrink(segment.shrink);
  clause.SetVarrayLOBParametersList(attributes.lobs.release());
  if (segment.physical || segment.logging != REPLogging_e::None || attributes.compression ||
      attributes.in_overflow)
    in.Note(token, "segment attributes of a subpartition are skipped");
  return true;
}

// [ONLINE], before what is moved is described
void SkipOnline(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_ONLINE)) in.Note(token, "clause ONLINE is skipped");
}

// name [ONLINE] [MAPPING TABLE] [description]
bool ParseMovePartition(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  SkipOnline(in);
  clause.SetMapping(in.Accept(K_MAPPING, K_TABLE));
  clause.SetTablePartDesc(ParsePartitionDescription(in).release());
  return true;
}

// name [ONLINE] [VALUES (...)] [partitioning_storage]
bool ParseMoveSubpartition(TokenStream& in, Clause& clause) {
  if (SkipTargetByValue(in)) return false;
  auto subpartition = std::make_unique<REPSubPartitionSpec>();
  subpartition->SetSubPartition(ParseSimpleName(in).release());
  SkipOnline(in);
  if (in.Accept(K_VALUES)) subpartition->SetListValues(ParseListValues(in).release());
  subpartition->SetStorageClauses(ParsePartitioningStorage(in).release());
  clause.SetSubPartitionSpec1(subpartition.release());
  return true;
}

// [name] {VALUES LESS THAN (...) [description] | VALUES (...) [description] | [storage]}
bool ParseAddPartition(TokenStream& in, Clause& clause) {
  clause.SetPartitionName(ParsePartitionName(in).release());
  if (in.Is(K_VALUES, K_LESS)) {
    clause.SetRangeValueClause(ParseRangeValues(in).release());
    clause.SetTablePartDesc(ParsePartitionDescription(in).release());
  } else if (in.Accept(K_VALUES)) {
    clause.SetListValueClause(ParseListValues(in).release());
    clause.SetTablePartDesc(ParsePartitionDescription(in).release());
  } else {
    clause.SetPartitioningStorageClauseList(ParsePartitioningStorage(in).release());
  }
  SkipFurther(in);
  return true;
}

bool ParseCoalesce(TokenStream& /*in*/, Clause& /*clause*/) {
  return true;
}

bool ParseDrop(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  SkipFurther(in);
  return true;
}

// name TO name
bool ParseRename(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  in.Expect(K_TO);
  clause.SetNewName(ParseSimpleName(in).release());
  return true;
}

// name [DROP [ALL] STORAGE | REUSE STORAGE]
bool ParseTruncate(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  SkipFurther(in);
  if (in.Accept(K_DROP, K_STORAGE) || in.Accept(K_DROP, K_ALL, K_STORAGE))
    clause.SetStorage(REPStorage_e::Drop);
  else if (in.Accept(K_REUSE, K_STORAGE))
    clause.SetStorage(REPStorage_e::Reuse);
  return true;
}

// PARTITION [name] [description]
std::unique_ptr<REPPartitionSpec> ParsePartitionSpec(TokenStream& in) {
  auto partition = std::make_unique<REPPartitionSpec>();
  in.Expect(K_PARTITION);
  partition->SetPartitionName(ParsePartitionName(in).release());
  auto const& token = in.Peek();
  if (in.Is(K_VALUES, K_LESS)) {
    in.Note(token, "bound of a split partition is skipped");
    ParseRangeValues(in);
  } else if (in.Accept(K_VALUES)) {
    in.Note(token, "values of a split partition are skipped");
    ParseListValues(in);
  }
  partition->SetTablePartDesc(ParsePartitionDescription(in).release());
  return partition;
}

// INTO (first, second), of which newer releases make more
template <class Parse, class Take>
void ParseInto(TokenStream& in, Parse parse, Take take) {
  in.Expect(K_INTO);
  in.Expect('(');
  auto first = parse(in);
  in.Expect(',');
  auto second = parse(in);
  if (in.Is(',')) {
    in.Note(in.Peek(), "further partitions of a clause are skipped");
    while (!in.AtEnd() && !in.Is(')')) in.SkipItem();
  }
  if (!in.Accept(')')) in.Fail("',' or ')'");
  take(first.release(), second.release());
}

// name [AT (...) | VALUES (...)] [INTO (partition, partition)]
bool ParseSplitPartition(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  if (in.Accept(K_AT))
    clause.SetSplit(REPSplit_e::At);
  else if (in.Accept(K_VALUES))
    clause.SetSplit(REPSplit_e::Values);
  if (clause.GetSplit() != REPSplit_e::None)
    clause.SetListValueClause(ParseListValues(in).release());
  if (in.Is(K_INTO))
    ParseInto(in, ParsePartitionSpec, [&](REPPartitionSpec* first, REPPartitionSpec* second) {
      clause.SetPartitionSpec1(first);
      clause.SetPartitionSpec2(second);
    });
  return true;
}

// name [VALUES (...)] [INTO (subpartition, subpartition)]
bool ParseSplitSubpartition(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  auto const& token = in.Peek();
  if (in.Accept(K_VALUES)) {
    clause.SetListValueClause(ParseListValues(in).release());
  } else if (in.Accept(K_AT)) {
    in.Note(token, "bound of a range subpartition is skipped");
    ParseListValues(in);
  }
  if (in.Is(K_INTO))
    ParseInto(in, ParseSubPartition, [&](REPSubPartitionSpec* first, REPSubPartitionSpec* second) {
      clause.SetSubPartitionSpec1(first);
      clause.SetSubPartitionSpec2(second);
    });
  return true;
}

// , name, behind the first name; newer releases merge more
void ParseMerged(TokenStream& in, Clause& clause) {
  auto const& token = in.Peek();
  if (in.Accept(K_TO))
    in.Note(token, "partitions between those of a MERGE are skipped");
  else
    in.Expect(',');
  clause.SetPartitionName2(ParseSimpleName(in).release());
  auto const& further = in.Peek();
  while (in.Accept(',')) {
    ParseSimpleName(in);
    in.Note(further, "further partitions of a clause are skipped");
  }
}

// name, name [INTO partition]
bool ParseMergePartitions(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  ParseMerged(in, clause);
  if (in.Accept(K_INTO)) clause.SetPartitionSpec1(ParsePartitionSpec(in).release());
  return true;
}

// name, name [INTO subpartition]
bool ParseMergeSubpartitions(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  ParseMerged(in, clause);
  if (in.Accept(K_INTO)) clause.SetSubPartitionSpec1(ParseSubPartition(in).release());
  return true;
}

// name WITH TABLE table [{INCLUDING | EXCLUDING} INDEXES] [{WITH | WITHOUT} VALIDATION]
//   [EXCEPTIONS INTO table]
bool ParseExchange(TokenStream& in, Clause& clause) {
  if (!ParseTarget(in, clause)) return false;
  in.Expect(K_WITH, K_TABLE);
  clause.SetTableName(ParseName(in).release());
  if (in.Accept(K_INCLUDING, K_INDEXES))
    clause.SetIndexes(REPIndexes_e::Including);
  else if (in.Accept(K_EXCLUDING, K_INDEXES))
    clause.SetIndexes(REPIndexes_e::Excluding);
  if (in.Accept(K_WITH, K_VALIDATION))
    clause.SetValidation(REPValidation_e::With);
  else if (in.Accept(K_WITHOUT, K_VALIDATION))
    clause.SetValidation(REPValidation_e::Without);
  if (in.Accept(K_EXCEPTIONS, K_INTO)) clause.SetExceptTableName(ParseName(in).release());
  return true;
}

// What a clause is by its first two words, and how it is read behind them.
struct Operation {
  Word verb;
  Word object;
  REPTablePart_e part;
  bool (*parse)(TokenStream& in, Clause& clause);  // false: skipped with a note
};

using enum REPTablePart_e;
constexpr Operation kOperations[] = {
    {K_MODIFY, K_DEFAULT, ModifyDefaultAttributes, ParseModifyDefault},
    {K_SET, K_SUBPARTITION, SetSubpartitionTemplate, ParseSetTemplate},
    {K_MODIFY, K_PARTITION, ModifyPartition, ParseModifyPartition},
    {K_MODIFY, K_SUBPARTITION, ModifySubpartition, ParseModifySubpartition},
    {K_MOVE, K_PARTITION, MovePartition, ParseMovePartition},
    {K_MOVE, K_SUBPARTITION, MoveSubpartition, ParseMoveSubpartition},
    {K_ADD, K_PARTITION, AddPartition, ParseAddPartition},
    {K_COALESCE, K_PARTITION, CoalescePartition, ParseCoalesce},
    {K_DROP, K_PARTITION, DropPartition, ParseDrop},
    {K_DROP, K_PARTITIONS, DropPartition, ParseDrop},
    {K_DROP, K_SUBPARTITION, DropSubpartition, ParseDrop},
    {K_DROP, K_SUBPARTITIONS, DropSubpartition, ParseDrop},
    {K_RENAME, K_PARTITION, RenamePartition, ParseRename},
    {K_RENAME, K_SUBPARTITION, RenameSubpartition, ParseRename},
    {K_TRUNCATE, K_PARTITION, TruncatePartition, ParseTruncate},
    {K_TRUNCATE, K_PARTITIONS, TruncatePartition, ParseTruncate},
    {K_TRUNCATE, K_SUBPARTITION, TruncateSubpartition, ParseTruncate},
    {K_TRUNCATE, K_SUBPARTITIONS, TruncateSubpartition, ParseTruncate},
    {K_SPLIT, K_PARTITION, SplitPartition, ParseSplitPartition},
    {K_SPLIT, K_SUBPARTITION, SplitSubpartition, ParseSplitSubpartition},
    {K_MERGE, K_PARTITIONS, MergePartitions, ParseMergePartitions},
    {K_MERGE, K_SUBPARTITIONS, MergeSubpartitions, ParseMergeSubpartitions},
    {K_EXCHANGE, K_PARTITION, ExchangePartition, ParseExchange},
    {K_EXCHANGE, K_SUBPARTITION, ExchangeSubpartition, ParseExchange},
};

// The operation that comes; null when none does.
Operation const* FindOperation(TokenStream const& in) {
  auto const found = std::find_if(
      std::begin(kOperations), std::end(kOperations),
      [&in](Operation const& operation) { return in.Is(operation.verb, operation.object); });
  return found == std::end(kOperations) ? nullptr : found;
}

}  // namespace

bool ParseAlterPartitions(TokenStream& in, std::unique_ptr<REPAlterTablePartitioning>& change) {
  auto const* const operation = FindOperation(in);
  if (!operation) return false;
  auto const& token = in.Next();
  in.Next();
  auto clause = std::make_unique<Clause>();
  clause->SetTablePart(operation->part);
  bool const read = operation->parse(in, *clause);
  ParseTails(in, *clause);
  if (!read) return true;
  if (change)
    in.Note(token, "further changes of partitions are skipped");
  else
    change = std::move(clause);
  return true;
}

}  // namespace repora::reader
