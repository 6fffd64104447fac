#include "reader/parse_index_partitions.h"

#include "reader/parse_indexes.h"
#include "reader/parse_names.h"
#include "reader/parse_partitions.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/storage/compression.h"
#include "repora/storage/partitions.h"

namespace repora::reader {
namespace {

std::string SkippedClause(Word word) {
  return "clause " + std::string(TextOf(word)) + " is skipped";
}

// COMPUTE STATISTICS | ONLINE | a newer property: what a partition of an index has no place for.
bool SkipPartitionOption(TokenStream& in) {
  auto const& option = in.Peek();
  if (!in.Accept(K_COMPUTE, K_STATISTICS) && !in.Accept(K_ONLINE))
    return SkipClause(in, ClausePlace::Index);
  in.Note(option, SkippedClause(option.word));
  return true;
}

// What a partition has no place for, be it an attribute of a segment.
bool SkipAnyOption(TokenStream& in) {
  auto const& option = in.Peek();
  REPSegmentAttributesClause skipped;
  if (!ParseSegmentAttribute(in, skipped) &&
      ParseIndexCompression(in).compress == REPCompress_e::None)
    return SkipPartitionOption(in);
  in.Note(option, SkippedClause(option.word));
  return true;
}

// (name, ...), behind STORE IN; true for DEFAULT alone, which leaves the list empty.
bool ParseStoreIn(TokenStream& in, std::unique_ptr<REPNameList>& tablespaces) {
  if (in.Is('(') && in.Peek(1).word == K_DEFAULT && in.Peek(2).punctuation == ')') {
    in.SkipParentheses();
    return true;
  }
  tablespaces = ParseNameList(in);
  return false;
}

// ( item [, item]... ), each of which starts with the word
template <class List>
std::unique_ptr<List> ParseList(TokenStream& in, Word word, auto parse) {
  auto list = std::make_unique<List>();
  in.Expect('(');
  do {
    in.Expect(word);
    list->AddTail(parse(in).release());
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return list;
}

// SUBPARTITION [name] [TABLESPACE {name | DEFAULT}], behind its keyword
std::unique_ptr<REPSubPartition> ParseIndexSubpartition(TokenStream& in) {
  auto subpartition = std::make_unique<REPSubPartition>();
  subpartition->SetPartitionName(ParseIndexPartitionName(in).release());
  while (true) {
    if (in.Accept(K_TABLESPACE, K_DEFAULT)) {
      subpartition->SetDefaultTablespace(true);
    } else if (in.Accept(K_TABLESPACE)) {
      auto name = ParseName(in);
      std::unique_ptr<REPName> const replaced(subpartition->GetTablespaceName());
      subpartition->SetTablespaceName(name.release());
    } else if (!SkipAnyOption(in)) {
      return subpartition;
    }
  }
}

std::unique_ptr<REPSubPartitionList> ParseIndexSubpartitions(TokenStream& in) {
  return ParseList<REPSubPartitionList>(in, K_SUBPARTITION, ParseIndexSubpartition);
}

// PARTITION [name] [options]... [STORE IN (...)] [(subpartitions)], behind its keyword
std::unique_ptr<REPPartition> ParsePartition(TokenStream& in) {
  auto partition = std::make_unique<REPPartition>();
  partition->SetPartitionName(ParseIndexPartitionName(in).release());
  IndexPartitionOptions options;
  while (true) {
    if (in.Accept(K_TABLESPACE, K_DEFAULT)) {
      partition->SetDefaultTablespace(true);
    } else if (in.Accept(K_STORE, K_IN)) {
      auto tablespaces = ParseNameList(in);
      std::unique_ptr<REPNameList> const replaced(partition->GetStoreInTablespaces());
      partition->SetStoreInTablespaces(tablespaces.release());
    } else if (in.Is('(') && !partition->GetSubPartitionList()) {
      partition->SetSubPartitionList(ParseIndexSubpartitions(in).release());
    } else if (!ParseIndexPartitionOption(in, options)) {
      break;
    }
  }
  partition->SetSegmentAttributes(options.segment.release());
  partition->SetCompress(options.compression);
  partition->SetCompressSize(options.compression_size.c_str());
  return partition;
}

// ( value [, value]... ) as the text of the values with the separator between them. It may stand
// between them in the script as well, where a rendered text is read back.
std::string ParseBoundValues(TokenStream& in) {
  std::string values;
  in.Expect('(');
  do {
    if (!values.empty()) values += kBoundSeparator;
    auto const mark = in.Mark();
    while (!in.AtEnd() && !in.Is(',') && !in.Is(')')) in.SkipItem();
    if (in.Mark() == mark) in.Fail("a value");
    values += in.TextSince(mark);
  } while (in.Accept(','));
  in.Expect(')');
  return values;
}

// PARTITION [name] VALUES LESS THAN (value, ...) [options]..., behind its keyword
std::unique_ptr<REPIndexPartitioningClause> ParseRange(TokenStream& in) {
  auto range = std::make_unique<REPIndexPartitioningClause>();
  range->SetPartitionName(ParseIndexPartitionName(in).release());
  in.Expect(K_VALUES, K_LESS, K_THAN);
  range->SetValues(ParseBoundValues(in).c_str());
  IndexPartitionOptions options;
  while (ParseIndexPartitionOption(in, options)) {
  }
  if (options.compression != REPCompress_e::None) {
    if (!options.segment) options.segment = std::make_unique<REPSegmentAttributesClause>();
    options.segment->SetCompression(options.compression);
    options.segment->SetCompressionSize(options.compression_size.c_str());
  }
  range->SetSegmentAttributesClause(options.segment.release());
  return range;
}

// (partition, ...), or the partitions as they are rendered, without parentheses and commas
std::unique_ptr<REPIndexPartitioningClauseList> ParseRanges(TokenStream& in) {
  if (in.Is('(')) return ParseList<REPIndexPartitioningClauseList>(in, K_PARTITION, ParseRange);
  auto ranges = std::make_unique<REPIndexPartitioningClauseList>();
  if (!in.Is(K_PARTITION)) in.Fail("'(' or PARTITION");
  while (in.Accept(K_PARTITION)) ranges->AddTail(ParseRange(in).release());
  return ranges;
}

// [PARTITIONS n] [STORE IN (...)] [OVERFLOW STORE IN (...)] [(partitions)]
void ParseHash(TokenStream& in, REPGlobalPartitionedIndexClause& global) {
  if (in.Accept(K_PARTITIONS)) global.SetHashQuantity(in.Copy(in.ExpectNumber()));
  if (in.Accept(K_STORE, K_IN)) global.SetStoreInNames(ParseNameList(in).release());
  if (in.Accept(K_OVERFLOW, K_STORE, K_IN)) global.SetOverflowNames(ParseNameList(in).release());
  if (in.Is('(')) global.SetIndividualPartitions(ParseHashPartitions(in).release());
}

// PARTITION [name] [options]... [STORE IN (...) | (subpartitions)], behind its keyword
std::unique_ptr<REPUpdateIndexPartition> ParseUpdatedPartition(TokenStream& in) {
  auto partition = std::make_unique<REPUpdateIndexPartition>();
  auto description = std::make_unique<REPIndexPartitionDesc>();
  auto name = ParseIndexPartitionName(in);
  if (name) partition->SetPartitionName(new REPName(*name));
  description->SetPartitionName(name.release());
  IndexPartitionOptions options;
  auto subpartitions = std::make_unique<REPIndexSubpartitionClause>();
  bool has_subpartitions = false;
  while (true) {
    if (in.Is('(') && !subpartitions->GetSubpartitionList()) {
      subpartitions->SetSubpartitionList(ParseIndexSubpartitions(in).release());
      has_subpartitions = true;
    } else if (!subpartitions->GetTablespaceNames() && in.Accept(K_STORE, K_IN)) {
      subpartitions->SetTablespaceNames(ParseNameList(in).release());
      has_subpartitions = true;
    } else if (!ParseIndexPartitionOption(in, options)) {
      break;
    }
  }
  description->SetSegmentAttributesClause(options.segment.release());
  if (options.compression != REPCompress_e::None) {
    auto compression = std::make_unique<REPCompressionClause>();
    compression->SetCompression(options.compression);
    compression->SetCompressionSize(options.compression_size.c_str());
    description->SetKeyCompressionClause(compression.release());
  }
  if (has_subpartitions) description->SetIndexSubpartitionClause(subpartitions.release());
  partition->SetIndexPartitionDesc(description.release());
  return partition;
}

// SUBPARTITION [name] [TABLESPACE name], behind its keyword
std::unique_ptr<REPUpdateIndexSubpartition> ParseUpdatedSubpartition(TokenStream& in) {
  auto subpartition = std::make_unique<REPUpdateIndexSubpartition>();
  subpartition->SetSubpartitionName(ParseIndexPartitionName(in).release());
  while (true) {
    if (!subpartition->GetTablespaceName() && in.Accept(K_TABLESPACE))
      subpartition->SetTablespaceName(ParseName(in).release());
    else if (!SkipAnyOption(in))
      return subpartition;
  }
}

// index [({PARTITION ... | SUBPARTITION ...}, ...)]
std::unique_ptr<REPUpdateIndex> ParseUpdatedIndex(TokenStream& in) {
  auto index = std::make_unique<REPUpdateIndex>();
  index->SetIndexName(ParseName(in).release());
  if (in.Is('(')) {
    if (in.Peek(1).word == K_SUBPARTITION)
      index->SetUpdateIndexSubpartitionList(
          ParseList<REPUpdateIndexSubpartitionList>(in, K_SUBPARTITION, ParseUpdatedSubpartition)
              .release());
    else
      index->SetUpdateIndexPartitionList(
          ParseList<REPUpdateIndexPartitionList>(in, K_PARTITION, ParseUpdatedPartition).release());
  }
  // How the index is partitioned anew, where the table is.
  if (in.Is(K_LOCAL) || in.Is(K_GLOBAL)) {
    in.Note(in.Peek(), SkippedClause(in.Peek().word));
    while (!in.AtEnd() && !in.Is(',') && !in.Is(')')) in.SkipItem();
  }
  return index;
}

}  // namespace

bool ParseIndexPartitionOption(TokenStream& in, IndexPartitionOptions& options) {
  if (StartsSegmentAttribute(in.Peek().word)) {
    if (!options.segment) options.segment = std::make_unique<REPSegmentAttributesClause>();
    return ParseSegmentAttribute(in, *options.segment);
  }
  if (auto const compression = ParseIndexCompression(in);
      compression.compress != REPCompress_e::None) {
    options.compression = compression.compress;
    options.compression_size = compression.size;
    return true;
  }
  return SkipPartitionOption(in);
}

std::unique_ptr<REPName> ParseIndexPartitionName(TokenStream& in) {
  switch (in.Peek().word) {
    case K_INDEXING:
    case K_PARAMETERS:
    case K_UNUSABLE:
    case K_USABLE: return nullptr;
    default: return ParsePartitionName(in);
  }
}

std::unique_ptr<REPLocalPartitionedIndexClause> ParseLocalPartitions(TokenStream& in) {
  if (!in.Accept(K_LOCAL)) return nullptr;
  auto local = std::make_unique<REPLocalPartitionedIndexClause>();
  if (in.Accept(K_STORE, K_IN)) {
    std::unique_ptr<REPNameList> tablespaces;
    local->SetStoreInDefaultTablespace(ParseStoreIn(in, tablespaces));
    local->SetStoreInTablespaces(tablespaces.release());
  }
  if (in.Is('('))
    local->SetPartitionList(ParseList<REPPartitionList>(in, K_PARTITION, ParsePartition).release());
  return local;
}

std::unique_ptr<REPGlobalPartitionedIndexClause> ParseGlobalPartitions(TokenStream& in) {
  if (!in.Accept(K_GLOBAL, K_PARTITION, K_BY)) return nullptr;
  auto global = std::make_unique<REPGlobalPartitionedIndexClause>();
  bool const hash = in.Accept(K_HASH);
  if (!hash && !in.Accept(K_RANGE)) in.Fail("RANGE or HASH");
  global->SetHash(hash);
  global->SetColumnList(ParseNameList(in).release());
  if (hash)
    ParseHash(in, *global);
  else
    global->SetIndexPartitioningClauseList(ParseRanges(in).release());
  return global;
}

std::unique_ptr<REPUpdateIndexClause> ParseUpdateIndexes(TokenStream& in) {
  auto clause = std::make_unique<REPUpdateIndexClause>();
  if (in.Accept(K_UPDATE, K_GLOBAL, K_INDEXES)) {
    clause->SetUpdateIndexes(REPUpdateIndexes_e::UpdateGlobal);
  } else if (in.Accept(K_INVALIDATE, K_GLOBAL, K_INDEXES)) {
    clause->SetUpdateIndexes(REPUpdateIndexes_e::InvalidateGlobal);
  } else if (in.Accept(K_UPDATE, K_INDEXES)) {
    clause->SetUpdateIndexes(REPUpdateIndexes_e::Update);
    if (in.Accept('(')) {
      auto indexes = std::make_unique<REPUpdateIndexList>();
      do indexes->AddTail(ParseUpdatedIndex(in).release());
      while (in.Accept(','));
      if (!in.Accept(')')) in.Fail("',' or ')'");
      clause->SetUpdateIndexList(indexes.release());
    }
  } else {
    return nullptr;
  }
  return clause;
}

}  // namespace repora::reader
