#include "reader/parse_disk_groups.h"

#include "reader/parse_file_specs.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

// 'search string' [NAME name] [SIZE size] [FORCE | NOFORCE]
std::unique_ptr<REPQualifiedDiskClause> ParseDisk(TokenStream& in) {
  auto disk = std::make_unique<REPQualifiedDiskClause>();
  disk->SetSearchString(("'" + ParseFileName(in) + "'").c_str());
  for (;;) {
    if (in.Accept(K_NAME)) {
      std::unique_ptr<REPName> const replaced(disk->GetDiskName());
      disk->SetDiskName(nullptr);
      disk->SetDiskName(ParseName(in).release());
    } else if (in.Accept(K_SIZE)) {
      disk->SetSizeClause(ParseSize(in));
    } else if (in.Is(K_FORCE) || in.Is(K_NOFORCE)) {
      disk->SetForce(ParseForce(in));
    } else {
      return disk;
    }
  }
}

// [HIGH | NORMAL | EXTERNAL] REDUNDANCY; the other kinds are skipped
REPRedundancy_e ParseRedundancy(TokenStream& in) {
  auto const& kind = in.Next();
  in.Expect(K_REDUNDANCY);
  switch (kind.word) {
    case K_HIGH: return REPRedundancy_e::High;
    case K_NORMAL: return REPRedundancy_e::Normal;
    case K_EXTERNAL: return REPRedundancy_e::External;
    default:
      in.Note(kind, "clause " + ToUpper(in.TextOf(kind)) + " REDUNDANCY is skipped");
      return REPRedundancy_e::None;
  }
}

// ATTRIBUTE 'name' = 'value' [, 'name' = 'value']..., which is skipped
void SkipAttributes(TokenStream& in) {
  in.Note(in.Peek(), "clause ATTRIBUTE is skipped");
  in.Expect(K_ATTRIBUTE);
  do {
    ParseFileName(in);
    in.Expect('=');
    in.Next();
  } while (in.Accept(','));
}

}  // namespace

bool IsFailgroup(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_DISK:
    case K_FAILGROUP:
    case K_QUORUM:
    case K_REGULAR:
    case K_SITE: return true;
    default: return false;
  }
}

void SkipQuorum(TokenStream& in) {
  auto const& token = in.Peek();
  if (in.Accept(K_QUORUM) || in.Accept(K_REGULAR))
    in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
}

REPForce_e ParseForce(TokenStream& in) {
  if (in.Accept(K_FORCE)) return REPForce_e::Force;
  if (in.Accept(K_NOFORCE)) return REPForce_e::NoForce;
  return REPForce_e::None;
}

// [SITE name] [QUORUM | REGULAR] [FAILGROUP name] DISK disk [, disk]...
std::unique_ptr<REPFailgroup> ParseFailgroup(TokenStream& in) {
  auto failgroup = std::make_unique<REPFailgroup>();
  auto const& token = in.Peek();
  if (in.Accept(K_SITE)) {
    in.Note(token, "clause SITE is skipped");
    ParseSimpleName(in);
  }
  SkipQuorum(in);
  if (in.Accept(K_FAILGROUP)) failgroup->SetFailgroupName(ParseName(in).release());
  in.Expect(K_DISK);
  failgroup->AddQualifiedDiskClause(ParseDisk(in).release());
  // A comma may also stand before the next clause of ALTER DISKGROUP.
  while (in.Is(',') && in.Peek(1).kind == TokenKind::String) {
    in.Next();
    failgroup->AddQualifiedDiskClause(ParseDisk(in).release());
  }
  return failgroup;
}

// CREATE DISKGROUP name [redundancy] failgroup [failgroup]... [attributes]
std::unique_ptr<REPStatement> ParseCreateDiskgroup(TokenStream& in) {
  auto group = std::make_unique<REPCreateDiskgroup>();
  group->SetStatementType(REPStatement_e::CreateDiskgroup);
  in.Expect(K_CREATE, K_DISKGROUP);
  group->SetDiskgroupName(ParseName(in).release());
  if (in.Peek(1).word == K_REDUNDANCY) group->SetRedundancy(ParseRedundancy(in));
  do group->AddFailgroup(ParseFailgroup(in).release());
  while (IsFailgroup(in));
  if (in.Is(K_ATTRIBUTE)) SkipAttributes(in);
  return group;
}

}  // namespace repora::reader
