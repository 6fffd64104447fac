#include <string>

#include "reader/parse_alter_columns.h"
#include "reader/parse_alter_partitions.h"
#include "reader/parse_constraints.h"
#include "reader/parse_names.h"
#include "reader/parse_object_columns.h"
#include "reader/parse_organisation.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"
#include "repora/storage/compression.h"

namespace repora::reader {
namespace {

// Words that start a statement: the ";" before it is missing.
bool StartsStatement(Word word) {
  return word == K_CREATE || word == K_ALTER || word == K_INSERT || word == K_GRANT;
}

// Takes all up to the end of the statement, or to the ENABLE and DISABLE that may end it.
void SkipRest(TokenStream& in) {
  while (!in.AtEnd() && !StartsStatement(in.Peek().word) && !in.Is(K_ENABLE) && !in.Is(K_DISABLE))
    in.SkipItem();
}

// Changes of partitions that newer releases have, such as ADD PARTITIONS n.
bool SkipPartitioning(TokenStream& in) {
  auto const& verb = in.Peek();
  auto const& object = in.Peek(1);
  switch (verb.word) {
    case K_ADD:
    case K_COALESCE:
    case K_DROP:
    case K_EXCHANGE:
    case K_MERGE:
    case K_MODIFY:
    case K_MOVE:
    case K_RENAME:
    case K_SPLIT:
    case K_TRUNCATE: break;
    default: return false;
  }
  switch (object.word) {
    case K_PARTITION:
    case K_PARTITIONS:
    case K_SUBPARTITION:
    case K_SUBPARTITIONS: break;
    default: return false;
  }
  in.Note(verb, "clause " + std::string(TextOf(verb.word)) + " " +
                    std::string(TextOf(object.word)) + " is skipped");
  SkipRest(in);
  return true;
}

// A clause that the statement has no place for, or none yet.
void SkipClause(TokenStream& in) {
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || StartsStatement(token.word))
    in.Fail("a clause of ALTER TABLE");
  auto const note = [&]() -> std::string {
    auto const second = [&] {
      return in.Peek(1).kind == TokenKind::Word ? " " + ToUpper(in.TextOf(in.Peek(1)))
                                                : std::string();
    };
    switch (token.word) {
      case K_COLUMN:
      case K_LOB:
      case K_NESTED:
      case K_VARRAY:
      case K_XMLTYPE: return "column properties without ADD, MODIFY or MOVE are skipped";
      case K_SET: return "clause SET" + second() + " is skipped";
      case K_DISABLE:
      case K_ENABLE:
      case K_NO:
      case K_READ: return "clause " + std::string(TextOf(token.word)) + second() + " is skipped";
      default: return "clause " + ToUpper(in.TextOf(token)) + " is skipped";
    }
  };
  in.Note(token, note());
  in.Next();
  if (token.word == K_ILM) return SkipRest(in);
  if (token.word == K_NO || token.word == K_SET) in.SkipItem();
  SkipAlterClause(in);
}

// COMPRESS [BASIC | ADVANCED ... | FOR ... | n] | NOCOMPRESS
std::unique_ptr<REPCompressionClause> ParseTableCompression(TokenStream& in) {
  auto const compression = ParseCompression(in);
  auto clause = std::make_unique<REPCompressionClause>();
  clause->SetCompression(compression.compress);
  clause->SetCompressionSize(in.Copy(compression.size));
  SkipKindOfCompression(in);
  return clause;
}

// UPGRADE [[NOT] INCLUDING DATA] [column properties]
void ParseUpgrade(TokenStream& in, REPAlterTableProps& properties) {
  in.Expect(K_UPGRADE);
  if (in.Accept(K_NOT, K_INCLUDING, K_DATA))
    properties.SetUpgrade(REPUpgrade_e::NotIncludingData);
  else if (in.Accept(K_INCLUDING, K_DATA))
    properties.SetUpgrade(REPUpgrade_e::IncludingData);
  else
    properties.SetUpgrade(REPUpgrade_e::Upgrade);
  ColumnProperties columns;
  if (!ParseColumnProperties(in, columns)) return;
  if (!properties.GetUpgradeColumns()) properties.SetUpgradeColumns(new REPTableColumnPropList);
  for (auto& column : columns) properties.GetUpgradeColumns()->AddTail(column.release());
}

// {MINIMIZE | NOMINIMIZE} RECORDS_PER_BLOCK
void ParseRecordsPerBlock(TokenStream& in, REPAlterTableProps& properties) {
  bool const minimize = in.Next().word == K_MINIMIZE;
  in.Expect(K_RECORDS_PER_BLOCK);
  properties.SetRecBlock(minimize ? REPRecBlock_e::Minimize : REPRecBlock_e::NoMinimize);
}

// One attribute of the segment of the table, or of its overflow.
void ParseSegment(TokenStream& in, REPAlterTableProps& properties, bool in_overflow) {
  auto* segment = in_overflow ? properties.GetIOTSegmentAttributesClause()
                              : properties.GetSegmentAttributesClause();
  if (!segment) {
    segment = new REPSegmentAttributesClause;
    if (in_overflow)
      properties.SetIOTSegmentAttributesClause(segment);
    else
      properties.SetSegmentAttributesClause(segment);
  }
  ParseSegmentAttribute(in, *segment);
}

// ALLOCATE EXTENT ... | DEALLOCATE UNUSED ..., of the table or of its overflow; the last one
// counts.
void ParseExtents(TokenStream& in, REPAlterTableProps& properties, bool in_overflow) {
  using Allocate = std::unique_ptr<REPAllocExtentClause>;
  using Deallocate = std::unique_ptr<REPDeallocateUnusedClause>;
  if (in.Is(K_ALLOCATE)) {
    auto clause = ParseAllocateExtent(in);
    Allocate const replaced(in_overflow ? properties.GetIOTAllocExtentClause()
                                        : properties.GetAllocExtentClause());
    if (in_overflow)
      properties.SetIOTAllocExtentClause(clause.release());
    else
      properties.SetAllocExtentClause(clause.release());
  } else {
    auto clause = ParseDeallocateUnused(in);
    Deallocate const replaced(in_overflow ? properties.GetIOTDeallocateUnusedClause()
                                          : properties.GetDeallocateUnusedClause());
    if (in_overflow)
      properties.SetIOTDeallocateUnusedClause(clause.release());
    else
      properties.SetDeallocateUnusedClause(clause.release());
  }
}

// Whether a change of the space of the mapping table comes.
bool IsMappingTableChange(TokenStream const& in) {
  return in.Is(K_MAPPING, K_TABLE, K_ALLOCATE, K_EXTENT) ||
         in.Is(K_MAPPING, K_TABLE, K_DEALLOCATE, K_UNUSED);
}

// COALESCE | INCLUDING column | OVERFLOW | MAPPING TABLE | NOMAPPING | PCTTHRESHOLD n; true when
// what follows is of the overflow or of the mapping table.
bool ParseIndexOrganization(TokenStream& in, REPAlterTableProps& properties) {
  bool const is_first = properties.GetIOT() == REPIOT_e::None;
  auto const set_properties = [&] {
    if (is_first || properties.GetIOT() == REPIOT_e::Coalesce)
      properties.SetIOT(REPIOT_e::IndexOrganized);
  };
  if (in.Accept(K_COALESCE)) {
    properties.SetIOTCoalesce(true);
    if (is_first) properties.SetIOT(REPIOT_e::Coalesce);
    return false;
  }
  if (in.Accept(K_INCLUDING)) {
    auto const mark = in.Mark();
    ParseSimpleName(in);
    properties.SetIOTIncludingCol(in.Copy(in.TextSince(mark)));
    set_properties();
    return false;
  }
  if (in.Accept(K_OVERFLOW)) {
    properties.SetIOT(REPIOT_e::Overflow);
    return true;
  }
  if (IsMappingTableChange(in)) {
    in.Expect(K_MAPPING, K_TABLE);
    properties.SetIOT(REPIOT_e::MappingTable);
    return true;
  }
  if (!properties.GetIOTIndexOrgTableClause())
    properties.SetIOTIndexOrgTableClause(new REPIndexOrgTableClause);
  ParseIndexOrganizationOption(in, *properties.GetIOTIndexOrgTableClause());
  set_properties();
  return false;
}

// Whether an option of an index-organized table comes.
bool IsIndexOrganization(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_COALESCE:
    case K_INCLUDING:
    case K_NOMAPPING:
    case K_OVERFLOW:
    case K_PCTTHRESHOLD: return true;
    default: return in.Is(K_MAPPING, K_TABLE);
  }
}

// What is read while the clauses follow one another.
struct Progress {
  bool in_overflow = false;  // segment attributes and extents that come belong to the overflow
  std::unique_ptr<MoveTable> move;
  bool in_move = false;  // what comes may belong to the MOVE
  std::unique_ptr<REPAlterTablePartitioning> partitioning;
  ExternalTable external;
};

// MOVE and its parts; false when none comes.
bool ParseMove(TokenStream& in, Progress& progress) {
  if (in.Is(K_MOVE)) {
    if (progress.move) in.Fail("a clause other than a second MOVE");
    progress.move = std::make_unique<MoveTable>(in);
    progress.in_move = true;
    return true;
  }
  if (!progress.in_move) return false;
  if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
    progress.move->SetCompression(ParseTableCompression(in));
    return true;
  }
  // COMPRESS follows, and says it all.
  if (in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE)) return true;
  progress.in_move = progress.move->ParsePart(in);
  return progress.in_move;
}

// A property of the table; false when none comes.
bool ParseProperty(TokenStream& in, REPAlterTable& table, Progress& progress) {
  auto const word = in.Peek().word;
  if (StartsSegmentAttribute(word)) {
    ParseSegment(in, PropertiesOf(table), progress.in_overflow);
    return true;
  }
  if (in.Is(K_ALLOCATE, K_EXTENT) || in.Is(K_DEALLOCATE, K_UNUSED)) {
    ParseExtents(in, PropertiesOf(table), progress.in_overflow);
    return true;
  }
  progress.in_overflow = false;
  if (IsIndexOrganization(in)) {
    progress.in_overflow = ParseIndexOrganization(in, PropertiesOf(table));
    return true;
  }
  // COMPRESS follows, and says it all.
  if (in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE)) return true;
  if (auto parallel = ParseParallel(in)) {
    auto& properties = PropertiesOf(table);
    std::unique_ptr<REPParallelClause> const replaced(properties.GetParallelClause());
    properties.SetParallelClause(parallel.release());
    return true;
  }
  switch (word) {
    case K_COMPRESS:
    case K_NOCOMPRESS: {
      auto& properties = PropertiesOf(table);
      auto clause = ParseTableCompression(in);
      std::unique_ptr<REPCompressionClause> const replaced(properties.GetCompressionClause());
      properties.SetCompressionClause(clause.release());
      return true;
    }
    case K_SHRINK: PropertiesOf(table).SetShrink(ParseShrink(in)); return true;
    case K_UPGRADE: ParseUpgrade(in, PropertiesOf(table)); return true;
    case K_MINIMIZE:
    case K_NOMINIMIZE: ParseRecordsPerBlock(in, PropertiesOf(table)); return true;
    case K_CACHE: PropertiesOf(table).SetCache(REPCache_e::Cache); break;
    case K_NOCACHE: PropertiesOf(table).SetCache(REPCache_e::NoCache); break;
    default: return false;
  }
  in.Next();
  return true;
}

// {ENABLE | DISABLE} {ROW MOVEMENT | constraint | TABLE LOCK | ALL TRIGGERS}
void ParseEnable(TokenStream& in, REPAlterTable& table) {
  bool const enable = in.Is(K_ENABLE);
  if (IsEnableDisableClause(in)) {
    ParseAlterEnable(in, table);
  } else if (in.Accept(enable ? K_ENABLE : K_DISABLE, K_ROW, K_MOVEMENT)) {
    PropertiesOf(table).SetRowMovement(enable ? REPRowMovement_e::Enable
                                              : REPRowMovement_e::Disable);
  } else {
    SkipClause(in);
  }
}

void ParseAlterClause(TokenStream& in, REPAlterTable& table, Progress& progress) {
  if (SkipClause(in, ClausePlace::AlterTable) || ParseAlterPartitions(in, progress.partitioning) ||
      SkipPartitioning(in) || ParseMove(in, progress) || progress.external.ParseOption(in) ||
      ParseProperty(in, table, progress))
    return;
  switch (in.Peek().word) {
    case K_ADD: ParseAlterAdd(in, table); break;
    case K_MODIFY: ParseAlterModify(in, table); break;
    case K_DROP: ParseAlterDrop(in, table); break;
    case K_RENAME: ParseAlterRename(in, table); break;
    case K_ENABLE:
    case K_DISABLE: ParseEnable(in, table); break;
    case K_SET:
      if (in.Is(K_SET, K_UNUSED))
        ParseSetUnused(in, table);
      else
        SkipClause(in);
      break;
    default: SkipClause(in);
  }
}

bool HoldsNothing(REPAlterTable const& table) {
  return !table.GetMoveTableClause() && !table.GetExternalTableClause() &&
         !table.GetAlterTableProps() && !table.GetAlterColumnClauses() &&
         !table.GetAlterTablePartitioning() && !table.GetEnableDisableClauseList() &&
         !table.GetOutOfLineConstraint() && !table.GetOutOfLineRefConstraint() &&
         !table.GetConstraintOldName() && table.GetModifyConstraint() == REPModifyConstr_e::None &&
         table.GetDropConstraint() == REPDropConstr_e::None;
}

}  // namespace

bool StartsAlterClause(Word word) {
  switch (word) {
    case K_ADD:
    case K_ALLOCATE:
    case K_CACHE:
    case K_COALESCE:
    case K_COMPRESS:
    case K_DEALLOCATE:
    case K_DISABLE:
    case K_DROP:
    case K_ENABLE:
    case K_INCLUDING:
    case K_LOB:
    case K_LOCATION:
    case K_MINIMIZE:
    case K_MODIFY:
    case K_MOVE:
    case K_NESTED:
    case K_NOCACHE:
    case K_NOCOMPRESS:
    case K_NOMAPPING:
    case K_NOMINIMIZE:
    case K_NOPARALLEL:
    case K_OVERFLOW:
    case K_PARALLEL:
    case K_PCTTHRESHOLD:
    case K_PROJECT:
    case K_REJECT:
    case K_RENAME:
    case K_SET:
    case K_SHRINK:
    case K_UPGRADE:
    case K_VARRAY: return true;
    default: return StartsSegmentAttribute(word);
  }
}

void SkipAlterClause(TokenStream& in) {
  while (!in.AtEnd() && !StartsAlterClause(in.Peek().word) && !StartsStatement(in.Peek().word) &&
         !StartsSkippedClause(in, ClausePlace::AlterTable)) {
    // What is stored may be a LOB, which is no clause of its own then.
    if (in.Accept(K_STORE, K_AS) && in.AtEnd()) break;
    in.SkipItem();
  }
}

// ALTER TABLE name clause...; null when all of its clauses were skipped, for which no table should
// be made.
std::unique_ptr<REPStatement> ParseAlterTable(TokenStream& in) {
  auto table = std::make_unique<REPAlterTable>();
  table->SetStatementType(REPStatement_e::AlterTable);
  in.Expect(K_ALTER, K_TABLE);
  SkipIfExists(in);
  table->SetTableName(ParseName(in).release());
  Progress progress;
  do ParseAlterClause(in, *table, progress);
  while (!in.AtEnd());
  table->SetAlterTablePartitioning(progress.partitioning.release());
  if (progress.move) table->SetMoveTableClause(progress.move->Take().release());
  table->SetExternalTableClause(progress.external.Take().release());
  return HoldsNothing(*table) ? nullptr : std::move(table);
}

}  // namespace repora::reader
