#include "reader/parse_partitions.h"

#include <string>

#include "reader/parse_lobs.h"
#include "reader/parse_names.h"
#include "reader/parse_storage.h"
#include "reader/skipped_clauses.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

// Words that end the attributes of a partition: what follows belongs to the statement.
bool EndsAttributes(Word word) {
  switch (word) {
    case K_ADD:
    case K_ALTER:
    case K_CREATE:
    case K_DISABLE:
    case K_DROP:
    case K_ENABLE:
    case K_GRANT:
    case K_INSERT:
    case K_INTO:
    case K_INVALIDATE:
    case K_NOPARALLEL:
    case K_ONLINE:
    case K_PARALLEL:
    case K_PARTITION:
    case K_SUBPARTITION:
    case K_UPDATE: return true;
    default: return false;
  }
}

// Whether an attribute comes that a partition can hold, or one with a note of its own.
bool StartsAttribute(TokenStream const& in) {
  auto const second = in.Peek(1).word;
  switch (auto const word = in.Peek().word) {
    case K_COLUMN:
    case K_ROW: return second == K_STORE;
    case K_READ: return second == K_ONLY || second == K_WRITE;
    case K_SEGMENT: return second == K_CREATION;
    case K_NO: return second == K_INMEMORY;
    case K_COMPRESS:
    case K_EXTERNAL:
    case K_ILM:
    case K_INDEXING:
    case K_INMEMORY:
    case K_LOB:
    case K_NOCOMPRESS:
    case K_OVERFLOW:
    case K_SUBPARTITIONS:
    case K_VARRAY: return true;
    default: return StartsSegmentAttribute(word);
  }
}

// Takes the rest of an attribute.
void SkipRest(TokenStream& in) {
  while (!in.AtEnd() && !in.Is(',') && !in.Is(')') && !EndsAttributes(in.Peek().word) &&
         !StartsAttribute(in))
    in.SkipItem();
}

// An attribute that the model has no place for; false when no attribute comes.
bool SkipAttribute(TokenStream& in) {
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word || EndsAttributes(token.word)) return false;
  if (SkipClause(in, ClausePlace::Partition)) return true;
  in.Note(token, token.word == K_NESTED ? "clause NESTED TABLE is skipped"
                                        : "clause " + ToUpper(in.TextOf(token)) + " is skipped");
  in.Next();
  if (in.Accept(K_STORE, K_AS)) in.SkipItem();
  SkipRest(in);
  return true;
}

// [STORE IN (tablespace, ...)]; null when none comes.
std::unique_ptr<REPNameList> ParseStoreIn(TokenStream& in) {
  return in.Accept(K_STORE, K_IN) ? ParseNameList(in) : nullptr;
}

// ( value [, value]... ), each with the script's own text
template <class Clause>
void ParseValues(TokenStream& in, Clause& clause) {
  in.Expect('(');
  do {
    auto const mark = in.Mark();
    while (!in.AtEnd() && !in.Is(',') && !in.Is(')')) in.SkipItem();
    auto const text = in.TextSince(mark);
    if (text.empty()) in.Fail("a value");
    clause.AddValue(in.Copy(text));
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
}

// ( item [, item]... ), of which each starts with a word
template <class List, class Parse>
std::unique_ptr<List> ParseList(TokenStream& in, Parse parse) {
  auto list = std::make_unique<List>();
  in.Expect('(');
  do list->AddTail(parse(in).release());
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return list;
}

std::unique_ptr<REPNameList> ListOf(std::unique_ptr<REPName> name) {
  auto list = std::make_unique<REPNameList>();
  list->AddTail(name.release());
  return list;
}

// LOB (column) STORE AS [SECUREFILE | BASICFILE] [segment] [(TABLESPACE name)]
void ParseStorageLob(TokenStream& in, REPPartitioningStorageClause& storage) {
  in.Expect(K_LOB);
  storage.SetLOBItemList(ParseNameList(in).release());
  in.Expect(K_STORE, K_AS);
  AcceptLobKind(in);
  if (IsName(in.Peek()) && !in.AtEnd() && !StartsAttribute(in) && !EndsAttributes(in.Peek().word))
    storage.SetLOBSegmentNameList(ListOf(ParseSimpleName(in)).release());
  if (!in.Accept('(')) return;
  std::unique_ptr<REPName> tablespace;
  while (!in.Accept(')')) {
    if (in.Accept(K_TABLESPACE)) {
      tablespace = ParseSimpleName(in);
      continue;
    }
    if (in.Peek().kind != TokenKind::Word) in.Fail("a LOB parameter or ')'");
    in.Note(in.Peek(), "LOB parameters of a hash partition or subpartition are skipped");
    while (!in.AtEnd() && !in.Is(')') && !in.Is(K_TABLESPACE)) in.SkipItem();
  }
  if (tablespace) storage.SetLOBTablespaceNameList(ListOf(std::move(tablespace)).release());
}

// VARRAY item STORE AS [SECUREFILE | BASICFILE] LOB segment
void ParseStorageVarray(TokenStream& in, REPPartitioningStorageClause& storage) {
  in.Expect(K_VARRAY);
  auto const mark = in.Mark();
  ParseName(in);
  storage.SetVarrayItem(in.Copy(in.TextSince(mark)));
  in.Expect(K_STORE, K_AS);
  AcceptLobKind(in);
  in.Expect(K_LOB);
  storage.SetVarraySegmentName(ParseSimpleName(in).release());
}

// The storage of a hash partition or subpartition is a tablespace at most.
bool SkipStorageAttribute(TokenStream& in) {
  auto const& token = in.Peek();
  if (SkipTablespaceSet(in)) return true;
  if (TakeCompression(in)) {
    in.Note(token, "compression of a hash partition or subpartition is skipped");
    return true;
  }
  REPSegmentAttributesClause segment;
  if (ParseSegmentAttribute(in, segment)) {
    in.Note(token, "segment attributes of a hash partition or subpartition are skipped");
    return true;
  }
  return SkipAttribute(in);
}

// One clause of partitioning storage; null when none comes.
std::unique_ptr<REPPartitioningStorageClause> ParsePartitionStorageClause(TokenStream& in) {
  auto clause = std::make_unique<REPPartitioningStorageClause>();
  if (in.Is(K_TABLESPACE, K_SET)) return nullptr;
  if (in.Accept(K_TABLESPACE)) {
    clause->SetTablespaceName(ParseSimpleName(in).release());
  } else if (in.Accept(K_OVERFLOW)) {
    clause->SetOverflow(true);
    if (in.Accept(K_TABLESPACE)) clause->SetOverflowTablespaceName(ParseSimpleName(in).release());
  } else if (in.Is(K_LOB)) {
    ParseStorageLob(in, *clause);
  } else if (in.Is(K_VARRAY)) {
    ParseStorageVarray(in, *clause);
  } else {
    return nullptr;
  }
  return clause;
}

// What is read while the attributes of a partition follow one another.
struct Attributes {
  REPTablePartDesc& description;
  Subpartitions subpartitions;
  LobStorages storages;
};

void ParseSegment(TokenStream& in, REPTablePartDesc& description) {
  bool const in_overflow = description.GetOverflow();
  auto* segment =
      in_overflow ? description.GetOverflowSegAttributes() : description.GetSegAttributes();
  if (!segment) {
    segment = new REPSegmentAttributesClause;
    if (in_overflow)
      description.SetOverflowSegAttributes(segment);
    else
      description.SetSegAttributes(segment);
  }
  ParseSegmentAttribute(in, *segment);
}

// SUBPARTITIONS n [STORE IN (tablespace, ...)] | (subpartition, ...)
void ParsePartitionLevel(TokenStream& in, Attributes& attributes) {
  if (attributes.subpartitions == Subpartitions::Skipped && in.SkipParentheses()) return;
  auto level = std::make_unique<REPPartitionLevel>();
  if (in.Accept(K_SUBPARTITIONS)) {
    level->SetQuantity(in.Copy(in.ExpectNumber()));
    level->SetTablespaceList(ParseStoreIn(in).release());
  } else {
    level->SetSpecList(ParseList<REPSubPartitionSpecList>(in, ParseSubPartition).release());
  }
  if (attributes.subpartitions == Subpartitions::Skipped) return;
  std::unique_ptr<REPPartitionLevel> const replaced(attributes.description.GetPartitionLevel());
  attributes.description.SetPartitionLevel(level.release());
}

// One attribute of a partition; false when none comes.
bool ParseAttribute(TokenStream& in, Attributes& attributes) {
  auto& description = attributes.description;
  auto const word = in.Peek().word;
  if (StartsSegmentAttribute(word)) {
    ParseSegment(in, description);
  } else if (word == K_COMPRESS || word == K_NOCOMPRESS) {
    auto const compression = ParseCompression(in);
    description.SetCompress(compression.compress);
    description.SetCompressValue(in.Copy(compression.size));
    SkipKindOfCompression(in);
  } else if (in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE)) {
    // COMPRESS follows, and says it all.
  } else if (in.Accept(K_OVERFLOW)) {
    description.SetOverflow(true);
  } else if (word == K_SUBPARTITIONS || (in.Is('(') && in.Peek(1).word == K_SUBPARTITION)) {
    ParsePartitionLevel(in, attributes);
  } else if (!ParseLobStorageItem(in, attributes.storages)) {
    return SkipAttribute(in);
  }
  return true;
}

// SUBPARTITION TEMPLATE {(subpartition, ...) | n}; null when none comes.
std::unique_ptr<REPSubPartitionTemplate> ParseTemplate(TokenStream& in) {
  if (!in.Accept(K_SUBPARTITION, K_TEMPLATE)) return nullptr;
  auto subpartitions = std::make_unique<REPSubPartitionTemplate>();
  if (in.Is('('))
    subpartitions->SetSubPartitions(ParseTemplateSubPartitions(in).release());
  else
    subpartitions->SetQuantity(in.Copy(in.ExpectNumber()));
  return subpartitions;
}

// SUBPARTITION BY HASH (columns) [template | SUBPARTITIONS n [STORE IN (tablespaces)]]
std::unique_ptr<REPSubPartitionByHash> ParseSubPartitionByHash(TokenStream& in) {
  auto clause = std::make_unique<REPSubPartitionByHash>();
  in.Expect(K_SUBPARTITION, K_BY, K_HASH);
  clause->SetColumns(ParseNameList(in).release());
  if (in.Accept(K_SUBPARTITIONS)) {
    clause->SetQuantity(in.Copy(in.ExpectNumber()));
    clause->SetTablespaces(ParseStoreIn(in).release());
  } else {
    clause->SetTemplate(ParseTemplate(in).release());
  }
  return clause;
}

// [word [(...)] [STORE IN (...)]]: partitions that the database makes by itself
void SkipAutomatic(TokenStream& in, Word word) {
  auto const& token = in.Peek();
  if (!in.Accept(word)) return;
  in.Note(token, "clause " + std::string(TextOf(word)) + " is skipped");
  if (word == K_INTERVAL) in.SkipParentheses();
  ParseStoreIn(in);
}

// SUBPARTITION BY LIST (column) [AUTOMATIC ...] [template]
std::unique_ptr<REPSubPartitionByList> ParseSubPartitionByList(TokenStream& in) {
  auto clause = std::make_unique<REPSubPartitionByList>();
  in.Expect(K_SUBPARTITION, K_BY, K_LIST);
  in.Expect('(');
  clause->SetColumn(ParseName(in).release());
  in.Expect(')');
  SkipAutomatic(in, K_AUTOMATIC);
  clause->SetTemplate(ParseTemplate(in).release());
  return clause;
}

// Whether a key comes that is no list of columns.
bool HasExpression(TokenStream const& in, std::size_t ahead) {
  if (in.Peek(ahead).punctuation != '(') return false;
  for (++ahead; in.Peek(ahead).kind != TokenKind::End; ++ahead) {
    if (in.Peek(ahead).punctuation == '(') return true;
    if (in.Peek(ahead).punctuation == ')') return false;
  }
  return false;
}

// Whether the columns of a list partitioning that come are several.
bool HasSeveralColumns(TokenStream const& in, std::size_t ahead) {
  while (in.Peek(ahead).kind != TokenKind::End && in.Peek(ahead).punctuation != ')')
    if (in.Peek(ahead++).punctuation == ',') return true;
  return false;
}

// SUBPARTITION BY ... that the model cannot hold, up to the partitions
void SkipSubpartitioning(TokenStream& in, std::string_view method) {
  auto const& token = in.Peek();
  auto const kind = ToUpper(in.TextOf(in.Peek(2)));
  in.Note(token, "SUBPARTITION BY " + kind + " of " + std::string(method) +
                     " partitions is skipped with the subpartitions");
  in.Expect(K_SUBPARTITION, K_BY);
  while (!in.AtEnd() && !in.Is(K_PARTITIONS) && !(in.Is('(') && in.Peek(1).word == K_PARTITION))
    in.SkipItem();
}

// [SUBPARTITION BY ...]: range partitions may have hash or list subpartitions, others none.
Subpartitions ParseSubpartitioning(TokenStream& in, REPTablePartitioningClause& clause) {
  if (!in.Is(K_SUBPARTITION, K_BY)) return Subpartitions::Kept;
  switch (clause.GetPartitionType()) {
    case REPPartition_e::Range: break;
    case REPPartition_e::List: SkipSubpartitioning(in, "list"); return Subpartitions::Skipped;
    default: SkipSubpartitioning(in, "hash"); return Subpartitions::Skipped;
  }
  if (HasExpression(in, 3)) {
    SkipSubpartitioning(in, "range");
    return Subpartitions::Skipped;
  }
  if (in.Is(K_SUBPARTITION, K_BY, K_HASH)) {
    clause.SetSubPartitionByHash(ParseSubPartitionByHash(in).release());
  } else if (in.Is(K_SUBPARTITION, K_BY, K_LIST) && !HasSeveralColumns(in, 4)) {
    clause.SetSubPartitionByList(ParseSubPartitionByList(in).release());
  } else {
    SkipSubpartitioning(in, "range");
    return Subpartitions::Skipped;
  }
  clause.SetPartitionType(REPPartition_e::Composite);
  return Subpartitions::Kept;
}

// PARTITION [name] VALUES LESS THAN (...) [description]
std::unique_ptr<REPRangePartitioning> ParseRangePartition(TokenStream& in,
                                                          Subpartitions subpartitions) {
  auto partition = std::make_unique<REPRangePartitioning>();
  in.Expect(K_PARTITION);
  partition->SetPartition(ParsePartitionName(in).release());
  partition->SetRangeClause(ParseRangeValues(in).release());
  partition->SetTablePartDecs(ParsePartitionDescription(in, subpartitions).release());
  return partition;
}

// PARTITION [name] VALUES (...) [description]
std::unique_ptr<REPListPartitioning> ParseListPartition(TokenStream& in,
                                                        Subpartitions subpartitions) {
  auto partition = std::make_unique<REPListPartitioning>();
  in.Expect(K_PARTITION);
  partition->SetPartition(ParsePartitionName(in).release());
  in.Expect(K_VALUES);
  partition->SetListClause(ParseListValues(in).release());
  partition->SetTablePartDesc(ParsePartitionDescription(in, subpartitions).release());
  return partition;
}

// RANGE (columns) [INTERVAL ...] [subpartitioning] (partitions)
void ParseByRange(TokenStream& in, REPTablePartitioningClause& clause) {
  in.Expect(K_RANGE);
  clause.SetPartitionType(REPPartition_e::Range);
  clause.SetColumns(ParseNameList(in).release());
  SkipAutomatic(in, K_INTERVAL);
  auto const subpartitions = ParseSubpartitioning(in, clause);
  clause.SetRangeList(ParseList<REPRangePartitioningList>(in, [&](TokenStream&) {
                        return ParseRangePartition(in, subpartitions);
                      }).release());
}

// LIST (column) [AUTOMATIC ...] [subpartitioning] (partitions)
void ParseByList(TokenStream& in, REPTablePartitioningClause& clause) {
  in.Expect(K_LIST);
  in.Expect('(');
  clause.SetPartitionType(REPPartition_e::List);
  clause.SetColumn(ParseName(in).release());
  in.Expect(')');
  SkipAutomatic(in, K_AUTOMATIC);
  auto const subpartitions = ParseSubpartitioning(in, clause);
  clause.SetListList(ParseList<REPListPartitioningList>(in, [&](TokenStream&) {
                       return ParseListPartition(in, subpartitions);
                     }).release());
}

// PARTITION [name] [partitioning_storage]
std::unique_ptr<REPIndividualHashPartition> ParseHashPartition(TokenStream& in) {
  auto partition = std::make_unique<REPIndividualHashPartition>();
  in.Expect(K_PARTITION);
  partition->SetName(ParsePartitionName(in).release());
  partition->SetStorage(ParsePartitioningStorage(in).release());
  // Subpartitions that the note on the method speaks of.
  if (in.Is('(') && in.Peek(1).word == K_SUBPARTITION) in.SkipParentheses();
  return partition;
}

// HASH (columns) {(partitions) | PARTITIONS n ...}
void ParseByHash(TokenStream& in, REPTablePartitioningClause& clause) {
  in.Expect(K_HASH);
  clause.SetPartitionType(REPPartition_e::Hash);
  clause.SetColumns(ParseNameList(in).release());
  ParseSubpartitioning(in, clause);
  if (in.Is('('))
    clause.SetIndivList(ParseHashPartitions(in).release());
  else if (in.Is(K_PARTITIONS))
    clause.SetHashPartitions(ParseHashPartitionsByQuantity(in).release());
}

}  // namespace

std::unique_ptr<REPTablePartitioningClause> ParseTablePartitioning(TokenStream& in) {
  auto clause = std::make_unique<REPTablePartitioningClause>();
  auto const& token = in.Peek();
  in.Expect(K_PARTITION, K_BY);
  bool const has_key = in.Is(K_RANGE) || in.Is(K_LIST) || in.Is(K_HASH);
  if (has_key && HasExpression(in, 1)) {
    in.Note(token,
            "PARTITION BY " + ToUpper(in.TextOf(in.Next())) + " of an expression is skipped");
    in.SkipParentheses();
    return nullptr;
  }
  if (in.Is(K_RANGE)) {
    ParseByRange(in, *clause);
  } else if (in.Is(K_LIST) && !HasSeveralColumns(in, 2)) {
    ParseByList(in, *clause);
  } else if (in.Is(K_HASH)) {
    ParseByHash(in, *clause);
  } else {
    auto const& method = in.Peek();
    if (method.kind != TokenKind::Word) in.Fail("a method of partitioning");
    std::string name("PARTITION BY " + ToUpper(in.TextOf(method)));
    if (in.Is(K_CONSISTENT, K_HASH)) name += " HASH";
    in.Note(token, name + (in.Accept(K_LIST) ? " of several columns is skipped" : " is skipped"));
    return nullptr;
  }
  return clause;
}

std::unique_ptr<REPName> ParsePartitionName(TokenStream& in) {
  auto const& token = in.Peek();
  bool const named = token.kind == TokenKind::QuotedName || in.Peek(1).word == K_VALUES ||
                     (token.kind == TokenKind::Word && token.word != K_VALUES &&
                      token.word != K_AT && !StartsAttribute(in) && !EndsAttributes(token.word));
  return named ? ParseSimpleName(in) : nullptr;
}

std::unique_ptr<REPRangeValueClause> ParseRangeValues(TokenStream& in) {
  auto clause = std::make_unique<REPRangeValueClause>();
  in.Expect(K_VALUES, K_LESS, K_THAN);
  ParseValues(in, *clause);
  return clause;
}

std::unique_ptr<REPListValueClause> ParseListValues(TokenStream& in) {
  auto clause = std::make_unique<REPListValueClause>();
  if (in.Is('(') && in.Peek(1).word == K_DEFAULT && in.Peek(2).punctuation == ')') {
    in.SkipParentheses();
    clause->SetDefault(true);
  } else {
    ParseValues(in, *clause);
  }
  return clause;
}

std::unique_ptr<REPTablePartDesc> ParsePartitionDescription(TokenStream& in,
                                                            Subpartitions subpartitions) {
  auto description = std::make_unique<REPTablePartDesc>();
  Attributes attributes{*description, subpartitions, {}};
  while (ParseAttribute(in, attributes)) continue;
  auto& [lobs, varrays] = attributes.storages;
  for (auto lob = lobs.rbegin(); lob != lobs.rend(); ++lob)
    description->AddLOBStorage(lob->release());
  for (auto varray = varrays.rbegin(); varray != varrays.rend(); ++varray)
    description->AddColProps(varray->release());
  return description;
}

std::unique_ptr<REPPartitioningStorageClauseList> ParsePartitioningStorage(TokenStream& in) {
  auto list = std::make_unique<REPPartitioningStorageClauseList>();
  for (;;) {
    if (auto clause = ParsePartitionStorageClause(in))
      list->AddTail(clause.release());
    else if (!SkipStorageAttribute(in))
      break;
  }
  return list->GetCount() > 0 ? std::move(list) : nullptr;
}

std::unique_ptr<REPSubPartitionSpec> ParseSubPartition(TokenStream& in) {
  auto subpartition = std::make_unique<REPSubPartitionSpec>();
  in.Expect(K_SUBPARTITION);
  subpartition->SetSubPartition(ParsePartitionName(in).release());
  if (in.Is(K_VALUES, K_LESS)) {
    in.Note(in.Peek(), "bound of a range subpartition is skipped");
    ParseRangeValues(in);
  } else if (in.Accept(K_VALUES)) {
    subpartition->SetListValues(ParseListValues(in).release());
  }
  subpartition->SetStorageClauses(ParsePartitioningStorage(in).release());
  return subpartition;
}

std::unique_ptr<REPSubPartitionTemplateSubPartitionList> ParseTemplateSubPartitions(
    TokenStream& in) {
  return ParseList<REPSubPartitionTemplateSubPartitionList>(in, [](TokenStream& stream) {
    auto subpartition = std::make_unique<REPSubPartitionTemplateSubPartition>();
    stream.Expect(K_SUBPARTITION);
    subpartition->SetSubPartition(ParseSimpleName(stream).release());
    if (stream.Accept(K_VALUES)) subpartition->SetValuesClause(ParseListValues(stream).release());
    subpartition->SetStorageClause(ParsePartitioningStorage(stream).release());
    return subpartition;
  });
}

std::unique_ptr<REPIndividualHashPartitionList> ParseHashPartitions(TokenStream& in) {
  return ParseList<REPIndividualHashPartitionList>(in, ParseHashPartition);
}

std::unique_ptr<REPHashPartitionsByQuantity> ParseHashPartitionsByQuantity(TokenStream& in) {
  auto clause = std::make_unique<REPHashPartitionsByQuantity>();
  in.Expect(K_PARTITIONS);
  clause->SetQuantity(in.Copy(in.ExpectNumber()));
  clause->SetTablespaces(ParseStoreIn(in).release());
  auto const& token = in.Peek();
  if (TakeCompression(in)) in.Note(token, "compression of hash partitions is skipped");
  if (in.Accept(K_OVERFLOW)) {
    in.Expect(K_STORE, K_IN);
    clause->SetOverflowTablespaces(ParseNameList(in).release());
  }
  return clause;
}

}  // namespace repora::reader
