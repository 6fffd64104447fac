#include "reader/parse_organisation.h"

#include <string_view>

#include "reader/parse_names.h"
#include "reader/parse_storage.h"
#include "repora/core/letters.h"
#include "repora/queries/select.h"
#include "repora/queries/sub_query.h"

namespace repora::reader {
namespace {

std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n\f\v";
  auto const first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// ( ... ); what stands between the parentheses, without the blanks around it.
std::string_view TakeParentheses(TokenStream& in) {
  auto const mark = in.Mark();
  if (!in.SkipParentheses()) in.Fail("'('");
  auto const text = in.TextSince(mark);
  return WithoutBlanks(text.substr(1, text.size() - 2));
}

// The contents of a string; quotes within it are single there.
std::string ContentsOf(std::string_view string) {
  std::string contents;
  for (std::size_t i = 1; i + 1 < string.size(); ++i) {
    contents += string[i];
    if (string[i] == '\'' && string[i + 1] == '\'') ++i;
  }
  return contents;
}

// [directory :] 'file' | the same in one string | the same without quotes, as the library renders
// it
std::string ParseLocation(TokenStream& in) {
  std::string location;
  if (IsName(in.Peek()) && in.Peek(1).punctuation == ':' && in.Peek(2).kind == TokenKind::String) {
    location = std::string(in.TextOf(in.Next())) + ":";
    in.Next();
  }
  if (in.Peek().kind == TokenKind::String) return location + ContentsOf(in.TextOf(in.Next()));
  auto const mark = in.Mark();
  while (!in.AtEnd() && !in.Is(',') && !in.Is(')')) in.SkipItem();
  location = in.TextSince(mark);
  if (location.empty()) in.Fail("a location");
  return location;
}

// One segment attribute after another; null when none comes.
std::unique_ptr<REPSegmentAttributesClause> ParseSegmentAttributes(TokenStream& in) {
  auto segment = std::make_unique<REPSegmentAttributesClause>();
  auto const mark = in.Mark();
  while (ParseSegmentAttribute(in, *segment)) {
  }
  return in.Mark() == mark ? nullptr : std::move(segment);
}

// Whether an option of an external table starts with the word, so that it ends another one.
bool StartsOption(Word word) {
  switch (word) {
    case K_ACCESS:
    case K_DEFAULT:
    case K_LOCATION:
    case K_PROJECT:
    case K_REJECT:
    case K_TYPE: return true;
    default: return false;
  }
}

}  // namespace

void ExternalTable::ParseBody(TokenStream& in) {
  if (!in.Accept('(')) return;
  while (!in.Accept(')')) {
    if (ParseOption(in)) continue;
    auto const& option = in.Peek();
    if (option.kind != TokenKind::Word) in.Fail("an option of the external table or ')'");
    in.Note(option, "option " + ToUpper(in.TextOf(option)) + " of an external table is skipped");
    do in.SkipItem();
    while (in.Peek().kind == TokenKind::String || in.Is('(') ||
           (in.Peek().kind == TokenKind::Word && !StartsOption(in.Peek().word)));
  }
}

bool ExternalTable::ParseOption(TokenStream& in) {
  if (in.Accept(K_TYPE)) {
    auto const mark = in.Mark();
    ParseSimpleName(in);
    Clause().SetDriverType(in.Copy(in.TextSince(mark)));
  } else if (in.Accept(K_DEFAULT, K_DIRECTORY)) {
    auto const mark = in.Mark();
    ParseSimpleName(in);
    Clause().SetDefaultDirectory(in.Copy(in.TextSince(mark)));
  } else if (in.Accept(K_ACCESS, K_PARAMETERS)) {
    ParseAccessParameters(in);
  } else if (in.Accept(K_LOCATION)) {
    ParseLocations(in);
  } else if (in.Accept(K_REJECT)) {
    in.Expect(K_LIMIT);
    auto const mark = in.Mark();
    if (!in.Accept(K_UNLIMITED)) in.ExpectNumber();
    Clause().SetRejectLimit(in.Copy(in.TextSince(mark)));
  } else if (in.Accept(K_PROJECT)) {
    in.Expect(K_COLUMN);
    if (!in.Is(K_ALL) && !in.Is(K_REFERENCED)) in.Fail("ALL or REFERENCED");
    Clause().SetProject(in.Next().word == K_ALL ? REPProject_e::All : REPProject_e::Referenced);
  } else {
    return false;
  }
  return true;
}

// {( text ) | USING CLOB {( query ) | query}}, behind ACCESS PARAMETERS
void ExternalTable::ParseAccessParameters(TokenStream& in) {
  if (!in.Accept(K_USING)) {
    Clause().SetAccessParameters(in.Copy(TakeParentheses(in)));
    return;
  }
  in.Expect(K_CLOB);
  std::string_view text;
  if (in.Is('(')) {
    text = TakeParentheses(in);
  } else {
    auto const mark = in.Mark();
    while (!in.AtEnd() && !in.Is(')') && !in.Is(K_LOCATION) && !in.Is(K_REJECT)) in.SkipItem();
    text = in.TextSince(mark);
  }
  if (text.empty()) in.Fail("a query");
  auto select = std::make_unique<REPSelect>();
  select->SetText(in.Copy(text));
  auto query = std::make_unique<REPSubQuery>();
  query->SetSubquery(select.release());
  std::unique_ptr<REPSubQuery> const replaced(Clause().GetSubQuery());
  Clause().SetSubQuery(query.release());
}

// ( location [, location]... ), behind LOCATION
void ExternalTable::ParseLocations(TokenStream& in) {
  Clause();
  in.Expect('(');
  do locations_.push_back(ParseLocation(in));
  while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
}

REPExternalTableClause& ExternalTable::Clause() {
  if (!clause_) clause_ = std::make_unique<REPExternalTableClause>();
  return *clause_;
}

std::unique_ptr<REPExternalTableClause> ExternalTable::Take() {
  // The clause takes the last one first.
  for (auto location = locations_.rbegin(); location != locations_.rend(); ++location)
    clause_->AddLocation(location->c_str());
  locations_.clear();
  return std::move(clause_);
}

bool PhysicalSide::ParsePart(TokenStream& in) {
  if (!StartsSegmentAttribute(in.Peek().word)) {
    in_overflow_ = false;
    return ParseOption(in);
  }
  auto& segment = in_overflow_ ? overflow_segment_ : segment_;
  if (!segment) segment = std::make_unique<REPSegmentAttributesClause>();
  return ParseSegmentAttribute(in, *segment);
}

void PhysicalSide::ParseOrganization(TokenStream& in) {
  if (in.Accept(K_HEAP)) {
    organization_ = REPOrganization_e::Heap;
  } else if (in.Accept(K_INDEX)) {
    organization_ = REPOrganization_e::Index;
  } else if (in.Accept(K_EXTERNAL)) {
    organization_ = REPOrganization_e::External;
    external_.ParseBody(in);
  } else {
    in.Fail("HEAP, INDEX or EXTERNAL");
  }
}

bool PhysicalSide::ParseOption(TokenStream& in) {
  if (organization_ == REPOrganization_e::External && external_.ParseOption(in)) return true;
  switch (in.Peek().word) {
    case K_ORGANIZATION:
      in.Next();
      ParseOrganization(in);
      break;
    case K_CLUSTER:
      in.Next();
      cluster_ = ParseName(in);
      cluster_columns_ = ParseNameList(in);
      break;
    case K_MAPPING:
      in.Expect(K_MAPPING, K_TABLE);
      mapping_ = REPMapping_e::MappingTable;
      break;
    case K_NOMAPPING:
      in.Next();
      mapping_ = REPMapping_e::NoMapping;
      break;
    case K_PCTTHRESHOLD:
      in.Next();
      pct_threshold_ = in.ExpectNumber();
      break;
    case K_INCLUDING:
      in.Next();
      including_ = ParseName(in);
      break;
    case K_OVERFLOW:
      in.Next();
      has_overflow_ = true;
      in_overflow_ = true;
      break;
    case K_COMPRESS:
    case K_NOCOMPRESS:
      compression_ = ParseCompression(in);
      SkipKindOfCompression(in);
      break;
    default:
      // COMPRESS follows, and says it all.
      return in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE);
  }
  return true;
}

bool ParseIndexOrganizationOption(TokenStream& in, REPIndexOrgTableClause& clause) {
  if (in.Accept(K_MAPPING, K_TABLE))
    clause.SetMappingTable(REPMapping_e::MappingTable);
  else if (in.Accept(K_NOMAPPING))
    clause.SetMappingTable(REPMapping_e::NoMapping);
  else if (in.Accept(K_PCTTHRESHOLD))
    clause.SetPctThreshold(in.Copy(in.ExpectNumber()));
  else
    return false;
  return true;
}

std::unique_ptr<REPAddOverflowClause> ParseAddOverflow(TokenStream& in) {
  auto clause = std::make_unique<REPAddOverflowClause>();
  in.Expect(K_OVERFLOW);
  clause->SetSegmentAttributesClause(ParseSegmentAttributes(in).release());
  if (!in.Is('(')) return clause;
  in.Next();
  auto partitions = std::make_unique<REPSegmentAttributesClauseList>();
  do {
    in.Expect(K_PARTITION);
    partitions->AddTail(ParseSegmentAttributes(in).release());
  } while (in.Accept(','));
  if (!in.Accept(')')) in.Fail("',' or ')'");
  clause->SetSegmentAttributesClauseList(partitions.release());
  return clause;
}

MoveTable::MoveTable(TokenStream& in) : clause_(std::make_unique<REPMoveTableClause>()) {
  in.Expect(K_MOVE);
  clause_->SetOnline(in.Accept(K_ONLINE));
}

bool MoveTable::ParsePart(TokenStream& in) {
  auto const word = in.Peek().word;
  if (StartsSegmentAttribute(word)) {
    if (!clause_->GetSegmentAttributesClause())
      clause_->SetSegmentAttributesClause(new REPSegmentAttributesClause);
    return ParseSegmentAttribute(in, *clause_->GetSegmentAttributesClause());
  }
  if (in.Accept(K_ONLINE)) {
    clause_->SetOnline(true);
    return true;
  }
  if (word == K_MAPPING || word == K_NOMAPPING || word == K_PCTTHRESHOLD) {
    if (!clause_->GetIndexOrgTableClause())
      clause_->SetIndexOrgTableClause(new REPIndexOrgTableClause);
    return ParseIndexOrganizationOption(in, *clause_->GetIndexOrgTableClause());
  }
  if (auto parallel = ParseParallel(in)) {
    std::unique_ptr<REPParallelClause> const replaced(clause_->GetParallelClause());
    clause_->SetParallelClause(parallel.release());
    return true;
  }
  return ParseLobStorageItem(in, storages_);
}

void MoveTable::SetCompression(std::unique_ptr<REPCompressionClause> compression) {
  std::unique_ptr<REPCompressionClause> const replaced(clause_->GetCompressionClause());
  clause_->SetCompressionClause(compression.release());
}

std::unique_ptr<REPMoveTableClause> MoveTable::Take() {
  // The clause takes the last one first.
  for (auto lob = storages_.lobs.rbegin(); lob != storages_.lobs.rend(); ++lob)
    clause_->AddLOBStorage(lob->release());
  for (auto varray = storages_.varrays.rbegin(); varray != storages_.varrays.rend(); ++varray)
    clause_->AddVarrayColumnProps(varray->release());
  storages_ = {};
  return std::move(clause_);
}

}  // namespace repora::reader
