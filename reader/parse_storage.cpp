#include "reader/parse_storage.h"

#include "reader/characters.h"
#include "reader/parse_names.h"

namespace repora::reader {
namespace {

// Options of STORAGE that the clause has no place for.
bool SkipStorageOption(TokenStream& in) {
  auto const& option = in.Peek();
  switch (option.word) {
    case K_FLASH_CACHE:
    case K_CELL_FLASH_CACHE:
      in.Next();
      in.Next();
      break;
    case K_MAXSIZE:
      in.Next();
      ParseSize(in);
      break;
    case K_ENCRYPT: in.Next(); break;
    default: return false;
  }
  in.Note(option, "storage option " + std::string(TextOf(option.word)) + " is skipped");
  return true;
}

// BUFFER_POOL {KEEP | RECYCLE | DEFAULT}, behind its keyword
REPPoolType_e ParseBufferPool(TokenStream& in) {
  if (in.Accept(K_KEEP)) return REPPoolType_e::Keep;
  if (in.Accept(K_RECYCLE)) return REPPoolType_e::Recycle;
  if (in.Accept(K_DEFAULT)) return REPPoolType_e::Default;
  in.Fail("KEEP, RECYCLE or DEFAULT");
}

bool IsUnit(std::string_view text) {
  return text.size() == 1 &&
         std::string_view("KMGT").find(UpperAscii(text[0])) != std::string_view::npos;
}

// Whether a number has no letter or one of a unit glued to it; a variable may be anything.
bool IsSize(std::string_view text) {
  auto const end = text.find_first_not_of("+-0123456789. \t");
  return end == std::string_view::npos || text.find('&') != std::string_view::npos ||
         IsUnit(text.substr(end));
}

// n | DEFAULT
std::string_view ParseDegree(TokenStream& in) {
  auto const mark = in.Mark();
  if (!in.Accept(K_DEFAULT)) return in.ExpectNumber();
  return in.TextSince(mark);
}

}  // namespace

REPSizeClause ParseSize(TokenStream& in) {
  if (in.Accept(K_UNLIMITED)) return REPSizeType_e::Unlimited;
  if (in.Accept(K_NULL)) return REPSizeType_e::Null;
  std::string text(in.ExpectNumber());
  if (!IsSize(text)) {
    in.StepBack();
    in.Fail("a size such as 10M");
  }
  // The unit may stand apart from the number.
  if (in.Peek().kind == TokenKind::Word && IsUnit(in.TextOf(in.Peek())))
    text += in.TextOf(in.Next());
  return text.c_str();
}

REPStorageClause ParseStorageClause(TokenStream& in) {
  REPStorageClause storage;
  in.Expect(K_STORAGE);
  in.Expect('(');
  storage.SetClausePresent(true);
  while (!in.Accept(')')) {
    in.Accept(',');
    if (in.Accept(K_INITIAL)) {
      storage.SetInitial(ParseSize(in));
    } else if (in.Accept(K_NEXT)) {
      storage.SetNext(ParseSize(in));
    } else if (in.Accept(K_MINEXTENTS)) {
      storage.SetMinExtents(ParseSize(in));
    } else if (in.Accept(K_MAXEXTENTS)) {
      storage.SetMaxExtents(ParseSize(in));
    } else if (in.Accept(K_PCTINCREASE)) {
      storage.SetPctIncrease(ParseSize(in));
    } else if (in.Accept(K_FREELISTS)) {
      storage.SetFreeLists(ParseSize(in));
    } else if (in.Accept(K_FREELIST)) {
      in.Expect(K_GROUPS);
      storage.SetGroups(ParseSize(in));
    } else if (in.Accept(K_OPTIMAL)) {
      bool const sized = in.Peek().kind == TokenKind::Number || in.Is(K_NULL);
      storage.SetOptimal(sized ? ParseSize(in) : REPSizeClause(REPSizeType_e::KeywordOnly));
    } else if (in.Accept(K_BUFFER_POOL)) {
      storage.SetBufferPool(ParseBufferPool(in));
    } else if (!SkipStorageOption(in)) {
      in.Fail("a storage option or ')'");
    }
  }
  return storage;
}

bool ParsePhysicalAttribute(TokenStream& in, REPPhysicalAttrClause& attributes) {
  if (in.Accept(K_PCTFREE))
    attributes.SetPctFree(in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_PCTUSED))
    attributes.SetPctUsed(in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_INITRANS))
    attributes.SetIniTrans(in.Copy(in.ExpectNumber()));
  else if (in.Accept(K_MAXTRANS))
    attributes.SetMaxTrans(in.Copy(in.ExpectNumber()));
  else if (in.Is(K_STORAGE))
    attributes.SetStorageClause(ParseStorageClause(in));
  else
    return false;
  return true;
}

bool StartsSegmentAttribute(Word word) {
  switch (word) {
    case K_INITRANS:
    case K_LOGGING:
    case K_MAXTRANS:
    case K_NOLOGGING:
    case K_PCTFREE:
    case K_PCTUSED:
    case K_STORAGE:
    case K_TABLESPACE: return true;
    default: return false;
  }
}

bool SkipTablespaceSet(TokenStream& in) {
  auto const& token = in.Peek();
  if (!in.Is(K_TABLESPACE, K_SET) || !IsName(in.Peek(2))) return false;
  in.Expect(K_TABLESPACE, K_SET);
  ParseSimpleName(in);
  in.Note(token, "clause TABLESPACE SET is skipped");
  return true;
}

bool ParseSegmentAttribute(TokenStream& in, REPSegmentAttributesClause& segment) {
  if (ParsePhysicalAttribute(in, *segment.GetAttributesClause()) || SkipTablespaceSet(in))
    return true;
  if (in.Accept(K_LOGGING)) {
    segment.SetLogging(REPLogging_e::Logging);
  } else if (in.Accept(K_NOLOGGING)) {
    segment.SetLogging(REPLogging_e::NoLogging);
  } else if (in.Accept(K_TABLESPACE)) {
    auto name = ParseName(in);
    // A second one counts; the first comes back to its reader.
    std::unique_ptr<REPName> const replaced(segment.GetTablespaceName());
    segment.SetTablespaceName(name.release());
  } else {
    return false;
  }
  return true;
}

std::unique_ptr<REPParallelClause> ParseParallel(TokenStream& in) {
  auto clause = std::make_unique<REPParallelClause>();
  if (in.Accept(K_NOPARALLEL)) {
    clause->SetParallel(REPParallel_e::NoParallel);
    return clause;
  }
  if (!in.Accept(K_PARALLEL)) return nullptr;
  clause->SetParallel(REPParallel_e::Parallel);
  if (in.Peek().kind == TokenKind::Number) {
    clause->SetSize(in.Copy(in.ExpectNumber()));
  } else if (in.Accept('(')) {
    while (!in.Accept(')')) {
      in.Accept(',');
      if (in.Accept(K_DEGREE))
        clause->SetDegree(in.Copy(ParseDegree(in)));
      else if (in.Accept(K_INSTANCES))
        clause->SetInstances(in.Copy(ParseDegree(in)));
      else
        in.Fail("DEGREE, INSTANCES or ')'");
    }
  }
  return clause;
}

Compression ParseCompression(TokenStream& in) {
  if (in.Accept(K_NOCOMPRESS)) return {REPCompress_e::NoCompress, {}};
  if (!in.Accept(K_COMPRESS)) return {};
  if (in.Peek().kind == TokenKind::Number) return {REPCompress_e::Compress, in.ExpectNumber()};
  return {REPCompress_e::Compress, {}};
}

void SkipKindOfCompression(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_BASIC) || in.Is(K_FOR, K_UPDATE)) return;
  if (in.Accept(K_FOR))
    in.Next();
  else if (!in.Accept(K_ADVANCED))
    return;
  in.Note(token, "kind of compression is skipped");
  if (in.Is(K_LOW) || in.Is(K_HIGH) || in.Is(K_OPERATIONS)) in.Next();
  if (!in.Accept(K_ROW, K_LEVEL, K_LOCKING)) in.Accept(K_NO, K_ROW, K_LEVEL, K_LOCKING);
}

REPCache_e ParseCache(TokenStream& in) {
  return in.Accept(K_READS) ? REPCache_e::CacheReads : REPCache_e::Cache;
}

Parallel ParseParallelDegree(TokenStream& in) {
  auto const clause = ParseParallel(in);
  if (!clause) return {};
  if (clause->GetParallel() != REPParallel_e::Parallel) return {clause->GetParallel(), {}};
  auto degree = clause->GetValue();
  return {degree.empty() ? REPParallel_e::Parallel : REPParallel_e::ParallelDegree,
          std::move(degree)};
}

void NoteMaxTransAlone(TokenStream& in, Token const& statement,
                       REPPhysicalAttrClause const& attributes) {
  if (attributes.GetMaxTrans() >= 0 && attributes.AsString().empty())
    in.Note(statement, "clause MAXTRANS is skipped");
}

std::unique_ptr<REPAllocExtentClause> ParseAllocateExtent(TokenStream& in) {
  auto clause = std::make_unique<REPAllocExtentClause>();
  in.Expect(K_ALLOCATE, K_EXTENT);
  if (!in.Accept('(')) return clause;
  while (!in.Accept(')')) {
    if (in.Accept(K_SIZE)) {
      clause->SetSizeClause(ParseSize(in));
    } else if (in.Accept(K_DATAFILE)) {
      if (in.Peek().kind != TokenKind::String) in.Fail("a file name in quotes");
      std::unique_ptr<REPName> const replaced(clause->GetFilename());
      clause->SetFilename(new REPName(in.TextOf(in.Next())));
    } else if (in.Accept(K_INSTANCE)) {
      clause->SetInstance(in.Copy(in.ExpectNumber()));
    } else {
      in.Fail("SIZE, DATAFILE, INSTANCE or ')'");
    }
  }
  return clause;
}

std::unique_ptr<REPDeallocateUnusedClause> ParseDeallocateUnused(TokenStream& in) {
  auto clause = std::make_unique<REPDeallocateUnusedClause>();
  in.Expect(K_DEALLOCATE, K_UNUSED);
  if (in.Accept(K_KEEP)) clause->SetKeepSize(ParseSize(in));
  return clause;
}

REPShrink_e ParseShrink(TokenStream& in) {
  in.Expect(K_SHRINK, K_SPACE);
  bool const compact = in.Accept(K_COMPACT);
  if (in.Accept(K_CASCADE)) return compact ? REPShrink_e::CompactCascade : REPShrink_e::Cascade;
  return compact ? REPShrink_e::Compact : REPShrink_e::Space;
}

}  // namespace repora::reader
