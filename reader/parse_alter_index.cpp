#include <string>

#include "reader/parse_index_partitions.h"
#include "reader/parse_indexes.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/tables/alter_index.h"

namespace repora::reader {
namespace {

void NoteSkipped(TokenStream& in, Token const& token) {
  in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
}

// NOPARALLEL | PARALLEL [n | (...)]; false when none comes.
bool ParseIndexParallel(TokenStream& in, IndexOptions& options) {
  auto const clause = ParseParallelDegree(in);
  if (clause.parallel == REPParallel_e::None) return false;
  options.SetParallelSize(clause.degree.c_str());
  options.SetParallel(clause.parallel);
  return true;
}

// LOGGING | NOLOGGING; false when none comes.
bool ParseIndexLogging(TokenStream& in, IndexOptions& options) {
  if (in.Accept(K_LOGGING))
    options.SetLogging(REPLogging_e::Logging);
  else if (in.Accept(K_NOLOGGING))
    options.SetLogging(REPLogging_e::NoLogging);
  else
    return false;
  return true;
}

// physical_attribute | LOGGING | NOLOGGING | ALLOCATE EXTENT ... | DEALLOCATE UNUSED [KEEP size] |
//   UNUSABLE [ONLINE]; false when none comes.
bool ParseSegmentChange(TokenStream& in, IndexChanges& changes) {
  if (ParsePhysicalAttribute(in, *changes.GetPhysicalAttr()) || ParseIndexLogging(in, changes))
    return true;
  if (in.Is(K_ALLOCATE)) {
    auto clause = ParseAllocateExtent(in);
    std::unique_ptr<REPAllocExtentClause> const replaced(changes.GetAllocExtentClause());
    changes.SetAllocExtentClause(clause.release());
  } else if (in.Accept(K_DEALLOCATE)) {
    in.Expect(K_UNUSED);
    changes.SetDeallocate(true);
    if (in.Accept(K_KEEP)) changes.SetDeallocateSize(ParseSize(in));
  } else if (in.Accept(K_UNUSABLE)) {
    changes.SetUnusable(true);
    auto const& token = in.Peek();
    if (in.Accept(K_ONLINE)) NoteSkipped(in, token);
  } else {
    return false;
  }
  return true;
}

// COALESCE [CLEANUP [ONLY]] [parallel] | PARAMETERS ('text') | UPDATE BLOCK REFERENCES; false when
// none comes.
bool ParseWholeChange(TokenStream& in, IndexChanges& changes) {
  if (in.Accept(K_COALESCE)) {
    changes.SetCoalesce(true);
    auto const& cleanup = in.Peek();
    if (in.Accept(K_CLEANUP)) {
      in.Accept(K_ONLY);
      NoteSkipped(in, cleanup);
    }
    // The degree of this work is not that of the index.
    auto const& parallel = in.Peek();
    if (ParseParallel(in)) NoteSkipped(in, parallel);
  } else if (in.Is(K_PARAMETERS)) {
    changes.SetParameters(ParseIndexParameters(in).c_str());
  } else if (in.Accept(K_UPDATE)) {
    in.Expect(K_BLOCK, K_REFERENCES);
    changes.SetUpdateReferences(true);
  } else {
    return false;
  }
  return true;
}

// One option of REBUILD; false when none comes.
bool ParseRebuildOption(TokenStream& in, REPRebuildClause& rebuild) {
  if (ParsePhysicalAttribute(in, *rebuild.GetPhysicalAttr()) || ParseIndexLogging(in, rebuild) ||
      ParseIndexParallel(in, rebuild))
    return true;
  switch (in.Peek().word) {
    case K_PARAMETERS: rebuild.SetParameters(ParseIndexParameters(in).c_str()); return true;
    case K_COMPRESS:
    case K_NOCOMPRESS: {
      auto const compression = ParseIndexCompression(in);
      rebuild.SetCompression(compression.compress);
      rebuild.SetCompressionSize(in.Copy(compression.size));
      return true;
    }
    default: break;
  }
  if (in.Accept(K_REVERSE)) {
    rebuild.SetReverse(REPReverse_e::Reverse);
  } else if (in.Accept(K_NOREVERSE)) {
    rebuild.SetReverse(REPReverse_e::NoReverse);
  } else if (in.Accept(K_ONLINE)) {
    rebuild.SetOnline(true);
  } else if (in.Accept(K_COMPUTE)) {
    in.Expect(K_STATISTICS);
    rebuild.SetCompute(true);
  } else if (in.Accept(K_TABLESPACE)) {
    auto name = ParseName(in);
    std::unique_ptr<REPName> const replaced(rebuild.GetTablespace());
    rebuild.SetTablespace(name.release());
  } else {
    return SkipClause(in, ClausePlace::Index);
  }
  return true;
}

// REBUILD [{PARTITION | SUBPARTITION} name] [options]..., behind its keyword
std::unique_ptr<REPRebuildClause> ParseRebuild(TokenStream& in) {
  auto rebuild = std::make_unique<REPRebuildClause>();
  if (in.Accept(K_PARTITION))
    rebuild->SetPartition(ParseSimpleName(in).release());
  else if (in.Accept(K_SUBPARTITION))
    rebuild->SetSubpartition(ParseSimpleName(in).release());
  while (ParseRebuildOption(in, *rebuild)) {
  }
  return rebuild;
}

// MODIFY DEFAULT ATTRIBUTES [FOR PARTITION name] [segment_attributes], behind ATTRIBUTES
void ParseDefaultAttributes(TokenStream& in, REPAlterIndexPartition& partition) {
  partition.SetAlterIndex(REPAlterIndex_e::ModifyDefaultAttributes);
  if (in.Accept(K_FOR)) {
    in.Expect(K_PARTITION);
    partition.SetPartition(ParseSimpleName(in).release());
  }
  IndexPartitionOptions options;
  while (true) {
    auto const& token = in.Peek();
    if (in.Accept(K_TABLESPACE, K_DEFAULT))
      NoteSkipped(in, token);
    else if (!ParseIndexPartitionOption(in, options))
      break;
  }
  if (options.compression != REPCompress_e::None) {
    if (!options.segment) options.segment = std::make_unique<REPSegmentAttributesClause>();
    options.segment->SetCompression(options.compression);
    options.segment->SetCompressionSize(options.compression_size.c_str());
  }
  partition.SetSegmentAttributes1(options.segment.release());
}

// MODIFY {DEFAULT ATTRIBUTES ... | PARTITION name ... | SUBPARTITION name ...}, behind its keyword
void ParseModify(TokenStream& in, REPAlterIndexPartition& partition) {
  if (in.Accept(K_DEFAULT, K_ATTRIBUTES)) return ParseDefaultAttributes(in, partition);
  if (in.Accept(K_SUBPARTITION)) {
    partition.SetAlterIndex(REPAlterIndex_e::ModifySubpartition);
    partition.SetSubpartition(ParseSimpleName(in).release());
    while (ParseSegmentChange(in, partition) || SkipClause(in, ClausePlace::Index)) {
    }
    return;
  }
  if (!in.Accept(K_PARTITION)) in.Fail("DEFAULT ATTRIBUTES, PARTITION or SUBPARTITION");
  partition.SetAlterIndex(REPAlterIndex_e::ModifyPartition);
  partition.SetPartition(ParseSimpleName(in).release());
  while (true) {
    if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
      auto const compression = ParseIndexCompression(in);
      partition.SetCompression1(compression.compress);
      partition.SetCompressionSize1(in.Copy(compression.size));
    } else if (!ParseSegmentChange(in, partition) && !ParseWholeChange(in, partition) &&
               !SkipClause(in, ClausePlace::Index)) {
      return;
    }
  }
}

// ADD PARTITION [name] [TABLESPACE name [compression]] [parallel], behind PARTITION
void ParseAddPartition(TokenStream& in, REPAlterIndexPartition& partition) {
  partition.SetAlterIndex(REPAlterIndex_e::AddPartition);
  partition.SetPartition(ParseIndexPartitionName(in).release());
  if (in.Accept(K_TABLESPACE)) partition.SetTablespace(ParseName(in).release());
  auto const& compression = in.Peek();
  if (ParseIndexCompression(in).compress != REPCompress_e::None) NoteSkipped(in, compression);
  ParseIndexParallel(in, partition);
}

// PARTITION [name] [options]...
std::unique_ptr<REPName> ParseTarget(TokenStream& in, IndexPartitionOptions& options) {
  in.Expect(K_PARTITION);
  auto name = ParseIndexPartitionName(in);
  while (ParseIndexPartitionOption(in, options)) {
  }
  return name;
}

// SPLIT PARTITION name AT (value, ...) [INTO (partition, partition)] [parallel], behind PARTITION
void ParseSplit(TokenStream& in, REPAlterIndexPartition& partition) {
  partition.SetAlterIndex(REPAlterIndex_e::SplitPartition);
  partition.SetPartition(ParseSimpleName(in).release());
  in.Expect(K_AT);
  in.Expect('(');
  auto const mark = in.Mark();
  while (!in.AtEnd() && !in.Is(')')) in.SkipItem();
  if (in.Mark() == mark) in.Fail("a value");
  partition.SetValues(in.Copy(in.TextSince(mark)));
  in.Expect(')');
  if (in.Accept(K_INTO)) {
    IndexPartitionOptions first;
    IndexPartitionOptions second;
    partition.SetInto(true);
    in.Expect('(');
    partition.SetIntoName1(ParseTarget(in, first).release());
    in.Expect(',');
    partition.SetIntoName2(ParseTarget(in, second).release());
    in.Expect(')');
    partition.SetSegmentAttributes1(first.segment.release());
    partition.SetCompression1(first.compression);
    partition.SetCompressionSize1(first.compression_size.c_str());
    partition.SetSegmentAttributes2(second.segment.release());
    partition.SetCompression2(second.compression);
    partition.SetCompressionSize2(second.compression_size.c_str());
  }
  ParseIndexParallel(in, partition);
}

// RENAME {PARTITION | SUBPARTITION} name TO name, behind its keyword
void ParseRename(TokenStream& in, REPAlterIndexPartition& partition) {
  if (in.Accept(K_PARTITION)) {
    partition.SetAlterIndex(REPAlterIndex_e::RenamePartition);
    partition.SetPartition(ParseSimpleName(in).release());
  } else {
    if (!in.Accept(K_SUBPARTITION)) in.Fail("TO, PARTITION or SUBPARTITION");
    partition.SetAlterIndex(REPAlterIndex_e::RenameSubpartition);
    partition.SetSubpartition(ParseSimpleName(in).release());
  }
  in.Expect(K_TO);
  partition.SetNewName(ParseSimpleName(in).release());
}

// What is done to a partition; null when none comes.
std::unique_ptr<REPAlterIndexPartition> ParsePartitionOperation(TokenStream& in) {
  auto partition = std::make_unique<REPAlterIndexPartition>();
  if (in.Accept(K_MODIFY)) {
    ParseModify(in, *partition);
  } else if (in.Accept(K_ADD, K_PARTITION)) {
    ParseAddPartition(in, *partition);
  } else if (in.Accept(K_COALESCE, K_PARTITION)) {
    partition->SetAlterIndex(REPAlterIndex_e::CoalescePartition);
    ParseIndexParallel(in, *partition);
  } else if (in.Is(K_RENAME) && !in.Is(K_RENAME, K_TO)) {
    in.Next();
    ParseRename(in, *partition);
  } else if (in.Accept(K_DROP, K_PARTITION)) {
    partition->SetAlterIndex(REPAlterIndex_e::DropPartition);
    partition->SetPartition(ParseSimpleName(in).release());
  } else if (in.Accept(K_SPLIT, K_PARTITION)) {
    ParseSplit(in, *partition);
  } else {
    return nullptr;
  }
  return partition;
}

// A change of the whole index; false when none comes.
bool ParseIndexChange(TokenStream& in, REPAlterIndex& index) {
  if (ParseSegmentChange(in, index) || ParseWholeChange(in, index) || ParseIndexParallel(in, index))
    return true;
  if (in.Accept(K_RENAME, K_TO)) {
    auto name = ParseName(in);
    std::unique_ptr<REPName> const replaced(index.GetNewName());
    index.SetNewName(name.release());
  } else if (in.Is(K_SHRINK)) {
    index.SetShrink(ParseShrink(in));
  } else if (in.Accept(K_ENABLE)) {
    index.SetEnable(REPEnable_e::Enable);
  } else if (in.Accept(K_DISABLE)) {
    index.SetEnable(REPEnable_e::Disable);
  } else if (in.Accept(K_MONITORING)) {
    in.Expect(K_USAGE);
    index.SetMonitor(REPMonitor_e::On);
  } else if (in.Accept(K_NOMONITORING)) {
    in.Expect(K_USAGE);
    index.SetMonitor(REPMonitor_e::Off);
  } else {
    auto const& token = in.Peek();
    if (!in.Accept(K_COMPILE)) return SkipClause(in, ClausePlace::Index);
    NoteSkipped(in, token);
  }
  return true;
}

}  // namespace

// ALTER INDEX name {change | REBUILD ... | partition_operation}...
// Without a change that an index object holds it says nothing, and is read all the same.
std::unique_ptr<REPStatement> ParseAlterIndex(TokenStream& in) {
  auto index = std::make_unique<REPAlterIndex>();
  index->SetStatementType(REPStatement_e::AlterIndex);
  in.Expect(K_ALTER, K_INDEX);
  SkipIfExists(in);
  index->SetIndexName(ParseName(in).release());
  while (!in.AtEnd()) {
    if (!index->GetRebuildClause() && in.Accept(K_REBUILD)) {
      index->SetRebuildClause(ParseRebuild(in).release());
      continue;
    }
    auto partition = index->GetAlterPartition() ? nullptr : ParsePartitionOperation(in);
    if (partition)
      index->SetAlterPartition(partition.release());
    else if (!ParseIndexChange(in, *index))
      in.Fail("a clause of ALTER INDEX");
  }
  return index;
}

}  // namespace repora::reader
