#include "reader/parse_lobs.h"

#include <string>

#include "reader/parse_names.h"
#include "reader/parse_object_columns.h"
#include "reader/parse_storage.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

void NoteSkipped(TokenStream& in, Token const& token, std::string const& option) {
  in.Note(token, "LOB option " + option + " is skipped");
}

// ENCRYPT [USING 'algorithm'] [IDENTIFIED BY password] ['mac'] [[NO] SALT], behind its keyword
void SkipEncryption(TokenStream& in) {
  if (in.Accept(K_USING)) in.Next();
  if (in.Accept(K_IDENTIFIED)) {
    in.Expect(K_BY);
    in.Next();
  }
  if (in.Peek().kind == TokenKind::String) in.Next();
  in.Accept(K_NO);
  in.Accept(K_SALT);
}

// Parameters of SECUREFILE segments, and of releases before those that the clauses describe.
bool SkipParameter(TokenStream& in) {
  auto const& token = in.Peek();
  switch (token.word) {
    case K_COMPRESS:
      in.Next();
      if (in.Is(K_HIGH) || in.Is(K_MEDIUM) || in.Is(K_LOW)) in.Next();
      break;
    case K_ENCRYPT:
      in.Next();
      SkipEncryption(in);
      break;
    case K_INDEX:
      in.Next();
      if (IsName(in.Peek())) ParseName(in);
      in.SkipParentheses();
      break;
    case K_MAXSIZE:
      in.Next();
      ParseSize(in);
      break;
    case K_DECRYPT:
    case K_DEDUPLICATE:
    case K_FILESYSTEM_LIKE_LOGGING:
    case K_KEEP_DUPLICATES:
    case K_NOCOMPRESS: in.Next(); break;
    default: return false;
  }
  NoteSkipped(in, token, std::string(TextOf(token.word)));
  return true;
}

// RETENTION [MAX | MIN n | AUTO | NONE], behind its keyword; false for NONE.
bool ParseRetention(TokenStream& in) {
  auto const& token = in.Peek();
  auto const text = ToUpper(in.TextOf(token));
  bool const none = text == "NONE";
  if (!none && token.word != K_AUTO && token.word != K_MAX && token.word != K_MIN) return true;
  in.Next();
  if (token.word == K_MIN) in.ExpectNumber();
  NoteSkipped(in, token, "RETENTION " + text);
  return !none;
}

// PCTVERSION n | RETENTION ... | FREEPOOLS n | NOCACHE | CACHE [READS] | LOGGING | NOLOGGING |
// storage_clause; false when none comes.
template <class Parameters>
bool ParseCommonParameter(TokenStream& in, Parameters& parameters) {
  if (in.Is(K_STORAGE)) {
    parameters.SetStorageClause(ParseStorageClause(in));
  } else if (in.Accept(K_PCTVERSION)) {
    parameters.SetPCTVersion(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_RETENTION)) {
    parameters.SetRetention(ParseRetention(in));
  } else if (in.Accept(K_FREEPOOLS)) {
    parameters.SetFreePools(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_NOCACHE)) {
    parameters.SetCache(REPCache_e::NoCache);
  } else if (in.Accept(K_CACHE)) {
    parameters.SetCache(in.Accept(K_READS) ? REPCache_e::CacheReads : REPCache_e::Cache);
  } else if (in.Accept(K_LOGGING)) {
    parameters.SetLogging(REPLogging_e::Logging);
  } else if (in.Accept(K_NOLOGGING)) {
    parameters.SetLogging(REPLogging_e::NoLogging);
  } else {
    return false;
  }
  return true;
}

// {ENABLE | DISABLE} STORAGE IN ROW [n]
void ParseStorageInRow(TokenStream& in, REPLOBParameters& parameters) {
  bool const enable = in.Next().word == K_ENABLE;
  in.Expect(K_STORAGE, K_IN, K_ROW);
  parameters.SetStorageRow(enable ? REPStorageRow_e::Enable : REPStorageRow_e::Disable);
  if (in.Peek().kind == TokenKind::Number) NoteSkipped(in, in.Next(), "size of STORAGE IN ROW");
}

void ParseLobParameter(TokenStream& in, REPLOBParameters& parameters) {
  if (in.Is(K_ENABLE) || in.Is(K_DISABLE)) {
    ParseStorageInRow(in, parameters);
  } else if (in.Accept(K_TABLESPACE)) {
    auto name = ParseName(in);
    std::unique_ptr<REPName> const replaced(parameters.GetTablespace());
    parameters.SetTablespace(name.release());
  } else if (in.Accept(K_CHUNK)) {
    parameters.SetChunkSize(ParseSize(in));
  } else if (!ParseCommonParameter(in, parameters) && !SkipParameter(in)) {
    in.Fail("a LOB parameter or ')'");
  }
}

// One parameter of a LOB segment that is changed; false when none comes.
bool AcceptModifyLobParameter(TokenStream& in, REPModifyLOBParameters& parameters) {
  if (in.Accept(K_REBUILD)) {
    in.Expect(K_FREEPOOLS);
    parameters.SetRebuildFreepools(true);
  } else if (in.Is(K_ALLOCATE)) {
    auto clause = ParseAllocateExtent(in);
    std::unique_ptr<REPAllocExtentClause> const replaced(parameters.GetAllocExtentClause());
    parameters.SetAllocExtentClause(clause.release());
  } else if (in.Accept(K_DEALLOCATE)) {
    in.Expect(K_UNUSED);
    parameters.SetDeallocate(true);
    if (in.Accept(K_KEEP)) parameters.SetKeepSize(ParseSize(in));
  } else if (in.Is(K_SHRINK)) {
    NoteSkipped(in, in.Peek(), "SHRINK");
    ParseShrink(in);
  } else {
    return ParseCommonParameter(in, parameters) || SkipParameter(in);
  }
  return true;
}

void ParseModifyLobParameter(TokenStream& in, REPModifyLOBParameters& parameters) {
  if (!AcceptModifyLobParameter(in, parameters)) in.Fail("a LOB parameter or ')'");
}

// ( parameter [,] ... )
template <class Parameters>
std::unique_ptr<Parameters> ParseParameters(TokenStream& in,
                                            void (*parse)(TokenStream&, Parameters&)) {
  auto parameters = std::make_unique<Parameters>();
  in.Expect('(');
  while (!in.Accept(')')) {
    in.Accept(',');
    parse(in, *parameters);
  }
  return parameters;
}

// Takes the storages that come into a partition or subpartition, which takes the last one first.
template <class Partition>
void ParseStorages(TokenStream& in, Partition& partition,
                   void (Partition::*add_lob)(REPLOBStorage*),
                   void (Partition::*add_varray)(REPVarrayColumnProps*)) {
  LobStorages storages;
  while (ParseLobStorageItem(in, storages)) {
  }
  for (auto lob = storages.lobs.rbegin(); lob != storages.lobs.rend(); ++lob)
    (partition.*add_lob)(lob->release());
  for (auto varray = storages.varrays.rbegin(); varray != storages.varrays.rend(); ++varray)
    (partition.*add_varray)(varray->release());
}

// ( SUBPARTITION name storage... [, ...] )
std::unique_ptr<REPLOBSubPartitionList> ParseLobSubPartitions(TokenStream& in) {
  auto list = std::make_unique<REPLOBSubPartitionList>();
  in.Expect('(');
  do {
    auto subpartition = std::make_unique<REPLOBSubPartition>();
    in.Expect(K_SUBPARTITION);
    subpartition->SetSubPartition(ParseSimpleName(in).release());
    ParseStorages(in, *subpartition, &REPLOBSubPartition::AddSubLOBStorage,
                  &REPLOBSubPartition::AddSubPartColProps);
    list->AddTail(subpartition.release());
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return list;
}

}  // namespace

bool IsLobStorage(TokenStream const& in) {
  return in.Is(K_LOB) && in.Peek(1).punctuation == '(';
}

bool AcceptLobKind(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_BASICFILE)) return true;
  if (!in.Accept(K_SECUREFILE)) return false;
  in.Note(token, "SECUREFILE is skipped");
  return true;
}

std::unique_ptr<REPLOBStorage> ParseLobStorage(TokenStream& in) {
  auto storage = std::make_unique<REPLOBStorage>();
  in.Expect(K_LOB);
  storage->SetItemNames(ParseNameList(in).release());
  in.Expect(K_STORE, K_AS);
  bool const has_kind = AcceptLobKind(in);
  if (IsName(in.Peek())) storage->SetSegName(ParseName(in).release());
  // In a partition its subpartitions may follow, as in a table the partitions of the column.
  bool const partitions = in.Peek(1).word == K_PARTITION || in.Peek(1).word == K_SUBPARTITION;
  if (in.Is('(') && !partitions)
    storage->SetParameters(ParseLobParameters(in).release());
  else if (!storage->GetSegName() && !has_kind)
    in.Fail("a segment name or '('");
  return storage;
}

std::unique_ptr<REPLOBParameters> ParseLobParameters(TokenStream& in) {
  return ParseParameters<REPLOBParameters>(in, ParseLobParameter);
}

std::unique_ptr<REPModifyLOBParameters> ParseModifyLobParameters(TokenStream& in) {
  return ParseParameters<REPModifyLOBParameters>(in, ParseModifyLobParameter);
}

std::unique_ptr<REPVarrayLOBParameters> ParseVarrayLobParameters(TokenStream& in,
                                                                 LobSegment segment) {
  auto clause = std::make_unique<REPVarrayLOBParameters>();
  if (in.Accept(K_VARRAY)) {
    clause->SetVarrayName(ParseName(in).release());
  } else {
    in.Expect(K_LOB);
    if (in.Is('('))
      clause->SetItemNames(ParseNameList(in).release());
    else
      clause->SetItemName(ParseName(in).release());
  }
  if (segment == LobSegment::New) {
    clause->SetParameters(ParseLobParameters(in).release());
  } else if (in.Is('(')) {
    clause->SetModifyParameters(ParseModifyLobParameters(in).release());
  } else {
    auto parameters = std::make_unique<REPModifyLOBParameters>();
    while (AcceptModifyLobParameter(in, *parameters)) {
    }
    clause->SetModifyParameters(parameters.release());
  }
  return clause;
}

bool ParseLobStorageItem(TokenStream& in, LobStorages& storages) {
  auto const starts_item = [](Word word) { return word == K_LOB || word == K_VARRAY; };
  bool const follows = !storages.lobs.empty() || !storages.varrays.empty();
  if (follows && in.Is(',') && starts_item(in.Peek(1).word)) in.Next();
  if (!starts_item(in.Peek().word)) return false;
  if (in.Is(K_LOB))
    storages.lobs.push_back(ParseLobStorage(in));
  else
    storages.varrays.push_back(ParseVarrayProperties(in));
  return true;
}

std::unique_ptr<REPLOBPartitionList> ParseLobPartitions(TokenStream& in) {
  if (!in.Is('(') || in.Peek(1).word != K_PARTITION) return nullptr;
  auto list = std::make_unique<REPLOBPartitionList>();
  in.Expect('(');
  do {
    auto partition = std::make_unique<REPLOBPartition>();
    in.Expect(K_PARTITION);
    partition->SetPartition(ParseSimpleName(in).release());
    ParseStorages(in, *partition, &REPLOBPartition::AddLOBStorage,
                  &REPLOBPartition::AddPartColProps);
    if (in.Is('(')) partition->SetLOBSubPartitionList(ParseLobSubPartitions(in).release());
    list->AddTail(partition.release());
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  return list;
}

}  // namespace repora::reader
