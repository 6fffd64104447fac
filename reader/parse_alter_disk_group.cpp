#include <string>
#include <vector>

#include "reader/parse_disk_groups.h"
#include "reader/parse_file_specs.h"
#include "reader/parse_names.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "repora/core/letters.h"
#include "repora/database/alter_disk_group.h"

namespace repora::reader {
namespace {

using Type = REPAlterDGType_e;
using Clause = REPDiskgroupClause;

// Words that start a clause behind the disk groups that it is for.
bool StartsClause(Word word) {
  switch (word) {
    case K_ADD:
    case K_ALTER:
    case K_CHECK:
    case K_CONVERT:
    case K_DISABLE:
    case K_DISMOUNT:
    case K_DROP:
    case K_ENABLE:
    case K_MODIFY:
    case K_MOUNT:
    case K_OFFLINE:
    case K_ONLINE:
    case K_REBALANCE:
    case K_RENAME:
    case K_REPLACE:
    case K_RESIZE:
    case K_SCRUB:
    case K_SET:
    case K_UNDROP: return true;
    default: return false;
  }
}

// Clauses that are for several disk groups at once as well.
bool IsForMany(Word word) {
  return word == K_UNDROP || word == K_MOUNT || word == K_DISMOUNT || word == K_ENABLE ||
         word == K_DISABLE;
}

// Whether a clause that disk group clauses have no place for comes: users, volumes, groups of
// files, disks that are replaced, renamed or taken offline, attributes.
bool IsNewerClause(TokenStream const& in) {
  switch (in.Peek().word) {
    case K_CONVERT:
    case K_DISABLE:
    case K_ENABLE:
    case K_OFFLINE:
    case K_ONLINE:
    case K_REPLACE:
    case K_SCRUB:
    case K_SET: return true;
    case K_MODIFY: return !in.Is(K_MODIFY, K_TEMPLATE);
    case K_REBALANCE: return in.Is(K_REBALANCE, K_MODIFY);
    case K_RENAME: return in.Is(K_RENAME, K_DISK) || in.Is(K_RENAME, K_DISKS);
    case K_ADD:
    case K_DROP:
      switch (in.Peek(1).word) {
        case K_FILEGROUP:
        case K_QUOTAGROUP:
        case K_USER:
        case K_USERGROUP:
        case K_VOLUME: return true;
        default: return false;
      }
    default: return false;
  }
}

// The rest of the statement belongs to such a clause.
void SkipNewerClause(TokenStream& in) {
  auto const& token = in.Next();
  auto text = "clause " + std::string(TextOf(token.word));
  if (in.Peek().kind == TokenKind::Word) text += " " + ToUpper(in.TextOf(in.Peek()));
  in.Note(token, text + " is skipped");
  while (!in.AtEnd()) in.SkipItem();
}

// Whether the disk group and a further clause for it come.
bool IsClauseOf(TokenStream const& in, REPName const& group, std::size_t ahead) {
  return StartsClause(in.Peek(ahead + 1).word) &&
         EqualsIgnoringCase(in.TextOf(in.Peek(ahead)), group.AsString(false));
}

// The comma between two operands of a clause. One before the next clause stays: behind it comes the
// first word of the clause, or its disk group, which without quotes could also be an operand.
bool AcceptComma(TokenStream& in, Clause const& clause) {
  if (!in.Is(',')) return false;
  auto const& first = in.Peek(1);
  auto const& second = in.Peek(2);
  bool const more = second.kind != TokenKind::End && second.punctuation != ',';
  if (StartsClause(first.word) && more) return false;
  if (first.word == K_ALL && IsForMany(second.word)) return false;
  if (IsClauseOf(in, *clause.GetDiskgroupName(), 1)) return false;
  in.Next();
  return true;
}

// A list of names, each with what EXTRA reads behind it.
template <class Extra>
void ParseNames(TokenStream& in, Clause& clause, void (Clause::*add)(REPName*), Extra extra) {
  do {
    (clause.*add)(ParseName(in).release());
    extra();
  } while (AcceptComma(in, clause));
}

// 'text' as the script wrote it.
std::string ParseText(TokenStream& in) {
  return "'" + ParseFileName(in) + "'";
}

// A list of file names, directories or aliases, each with what EXTRA reads behind it.
template <class Extra>
void ParseTexts(TokenStream& in, Clause& clause, void (Clause::*add)(char const*), Extra extra) {
  do {
    (clause.*add)(ParseText(in).c_str());
    extra();
  } while (in.Peek(1).kind == TokenKind::String && in.Accept(','));
}

void Nothing() {}

// DISK disk ... | DISKS IN FAILGROUP failgroup ..., each with what EXTRA reads behind it; false
// when neither comes.
template <class Extra>
bool ParseDisks(TokenStream& in, Clause& clause, Type of_disks, Type of_failgroups, Extra extra) {
  SkipQuorum(in);
  if (in.Accept(K_DISK)) {
    clause.SetAlterDGType(of_disks);
    ParseNames(in, clause, &Clause::AddDiskName, extra);
    return true;
  }
  if (!in.Accept(K_DISKS)) return false;
  in.Expect(K_IN);
  SkipQuorum(in);
  in.Expect(K_FAILGROUP);
  clause.SetAlterDGType(of_failgroups);
  ParseNames(in, clause, &Clause::AddFailgroupName, extra);
  return true;
}

// ( [MIRROR | UNPROTECTED] [FINE | COARSE] )
void ParseTemplateAttributes(TokenStream& in, Clause& clause) {
  auto mirror = REPMirror_e::None;
  auto fine = REPFine_e::None;
  in.Expect(K_ATTRIBUTES);
  in.Expect('(');
  while (!in.Accept(')')) {
    auto const& token = in.Peek();
    if (token.kind != TokenKind::Word) in.Fail("an attribute of the template or ')'");
    in.Next();
    switch (token.word) {
      case K_MIRROR: mirror = REPMirror_e::Mirror; break;
      case K_UNPROTECTED: mirror = REPMirror_e::Unprotected; break;
      case K_FINE: fine = REPFine_e::Fine; break;
      case K_COARSE: fine = REPFine_e::Coarse; break;
      default: in.Note(token, "template attribute " + ToUpper(in.TextOf(token)) + " is skipped");
    }
  }
  clause.AddMirror(mirror);
  clause.AddFine(fine);
}

// template ATTRIBUTES (...) [, template ATTRIBUTES (...)]...
void ParseTemplates(TokenStream& in, Clause& clause, Type type) {
  clause.SetAlterDGType(type);
  ParseNames(in, clause, &Clause::AddTemplateName, [&] { ParseTemplateAttributes(in, clause); });
}

// {failgroup... | TEMPLATE ... | DIRECTORY ... | ALIAS ...}, behind ADD
void ParseAdd(TokenStream& in, Clause& clause) {
  if (IsFailgroup(in)) {
    clause.SetAlterDGType(Type::Add);
    do clause.AddFailgroup(ParseFailgroup(in).release());
    while (IsFailgroup(in));
  } else if (in.Accept(K_TEMPLATE)) {
    ParseTemplates(in, clause, Type::AddTemplate);
  } else if (in.Accept(K_DIRECTORY)) {
    clause.SetAlterDGType(Type::AddDirectory);
    ParseTexts(in, clause, &Clause::AddNewDirName, Nothing);
  } else if (in.Accept(K_ALIAS)) {
    clause.SetAlterDGType(Type::AddAlias);
    ParseTexts(in, clause, &Clause::AddAliasName, [&] {
      in.Expect(K_FOR);
      clause.AddFilename(ParseText(in).c_str());
    });
  } else {
    in.Fail("DISK, FAILGROUP, TEMPLATE, DIRECTORY or ALIAS");
  }
}

// {disks | TEMPLATE ... | DIRECTORY ... | ALIAS ... | FILE ...}, behind DROP
void ParseDrop(TokenStream& in, Clause& clause) {
  auto const parse_force = [&] { clause.AddForce(ParseForce(in)); };
  if (ParseDisks(in, clause, Type::DropDisk, Type::DropDisksInFailgroup, parse_force)) return;
  if (in.Accept(K_TEMPLATE)) {
    clause.SetAlterDGType(Type::DropTemplate);
    ParseNames(in, clause, &Clause::AddTemplateName, Nothing);
  } else if (in.Accept(K_DIRECTORY)) {
    clause.SetAlterDGType(Type::DropDirectory);
    ParseTexts(in, clause, &Clause::AddOldDirName, parse_force);
  } else if (in.Accept(K_ALIAS)) {
    clause.SetAlterDGType(Type::DropAlias);
    ParseTexts(in, clause, &Clause::AddAliasName, Nothing);
  } else if (in.Accept(K_FILE)) {
    clause.SetAlterDGType(Type::DropFile);
    ParseTexts(in, clause, &Clause::AddFilename, Nothing);
  } else {
    in.Fail("DISK, DISKS, TEMPLATE, DIRECTORY, ALIAS or FILE");
  }
}

// {ALL [SIZE size] | disks, each with [SIZE size]}, behind RESIZE
void ParseResize(TokenStream& in, Clause& clause) {
  auto const parse_size = [&] { return in.Accept(K_SIZE) ? ParseSize(in) : REPSizeClause(); };
  if (in.Accept(K_ALL)) {
    clause.SetAlterDGType(Type::ResizeAll);
    clause.SetSizeClause(parse_size());
  } else if (!ParseDisks(in, clause, Type::ResizeDisk, Type::ResizeDisksInFailgroup,
                         [&] { clause.AddSizeClause(parse_size()); })) {
    in.Fail("ALL, DISK or DISKS");
  }
}

// [POWER n] [WAIT | NOWAIT], behind REBALANCE; phases are skipped
void ParseRebalance(TokenStream& in, Clause& clause) {
  clause.SetAlterDGType(Type::Rebalance);
  for (;;) {
    auto const& token = in.Peek();
    if (in.Accept(K_POWER)) {
      clause.SetAlterDGType(Type::RebalancePower);
      clause.SetRebalancePower(in.Copy(in.ExpectNumber()));
    } else if (in.Accept(K_WAIT) || in.Accept(K_NOWAIT)) {
      in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
    } else if (in.Accept(K_WITH) || in.Accept(K_WITHOUT)) {
      in.Note(token, "phases of REBALANCE are skipped");
      do ParseSimpleName(in);
      while (in.Accept(','));
    } else {
      return;
    }
  }
}

// [ALL | disks | FILE ...] [REPAIR | NOREPAIR], behind CHECK
void ParseCheck(TokenStream& in, Clause& clause) {
  if (in.Accept(K_FILE)) {
    clause.SetAlterDGType(Type::CheckFile);
    ParseTexts(in, clause, &Clause::AddFilename, Nothing);
  } else if (!ParseDisks(in, clause, Type::CheckDisk, Type::CheckDisksInFailgroup, Nothing)) {
    clause.SetAlterDGType(Type::CheckAll);
    in.Accept(K_ALL);
  }
  if (in.Accept(K_REPAIR)) clause.SetRepair(REPRepair_e::Repair);
  if (in.Accept(K_NOREPAIR)) clause.SetRepair(REPRepair_e::NoRepair);
}

// {DIRECTORY | ALIAS} 'old' TO 'new' [, 'old' TO 'new']..., behind RENAME
void ParseRename(TokenStream& in, Clause& clause) {
  auto const parse_pairs = [&](Type type, auto add_old, auto add_new) {
    clause.SetAlterDGType(type);
    ParseTexts(in, clause, add_old, [&] {
      in.Expect(K_TO);
      (clause.*add_new)(ParseText(in).c_str());
    });
  };
  if (in.Accept(K_DIRECTORY))
    parse_pairs(Type::RenameDirectory, &Clause::AddOldDirName, &Clause::AddNewDirName);
  else if (in.Accept(K_ALIAS))
    parse_pairs(Type::RenameAlias, &Clause::AddAliasName, &Clause::AddNewAliasName);
  else
    in.Fail("DIRECTORY or ALIAS");
}

// [RESTRICTED | NORMAL] [FORCE | NOFORCE] behind MOUNT, which is skipped
void SkipMountOptions(TokenStream& in) {
  for (;;) {
    auto const& token = in.Peek();
    if (!in.Accept(K_RESTRICTED) && !in.Accept(K_NORMAL) && !in.Accept(K_FORCE) &&
        !in.Accept(K_NOFORCE))
      return;
    in.Note(token, "clause " + std::string(TextOf(token.word)) + " is skipped");
  }
}

// {UNDROP DISKS | MOUNT | DISMOUNT [FORCE | NOFORCE]}
Type ParseForMany(TokenStream& in, bool all) {
  if (in.Accept(K_UNDROP)) {
    in.Expect(K_DISKS);
    return all ? Type::AllUndropDisks : Type::UndropDisks;
  }
  if (in.Accept(K_MOUNT)) {
    SkipMountOptions(in);
    return all ? Type::AllMount : Type::Mount;
  }
  if (!in.Accept(K_DISMOUNT)) in.Fail("UNDROP, MOUNT or DISMOUNT");
  switch (ParseForce(in)) {
    case REPForce_e::Force: return all ? Type::AllDismountForce : Type::DismountForce;
    case REPForce_e::NoForce: return all ? Type::AllDismountNoForce : Type::DismountNoForce;
    default: return all ? Type::AllDismount : Type::Dismount;
  }
}

void ParseClause(TokenStream& in, Clause& clause) {
  if (in.Accept(K_ADD))
    ParseAdd(in, clause);
  else if (in.Accept(K_DROP))
    ParseDrop(in, clause);
  else if (in.Accept(K_RESIZE))
    ParseResize(in, clause);
  else if (in.Accept(K_REBALANCE))
    ParseRebalance(in, clause);
  else if (in.Accept(K_CHECK))
    ParseCheck(in, clause);
  else if (in.Accept(K_ALTER, K_TEMPLATE) || in.Accept(K_MODIFY, K_TEMPLATE))
    ParseTemplates(in, clause, Type::AlterTemplate);
  else if (in.Accept(K_RENAME))
    ParseRename(in, clause);
  else
    in.Fail("a clause of the disk group");
}

// The disk groups of a clause, or ALL of them.
struct Groups {
  std::vector<REPName> names;
  bool all = false;
};

// {name [, name]... | ALL}; where a clause follows at once, it is for the groups of the one before.
void ParseGroups(TokenStream& in, Groups& groups) {
  bool const named_again = !groups.names.empty() && IsClauseOf(in, groups.names.front(), 0);
  bool const has_groups = groups.all || !groups.names.empty();
  if (has_groups && !named_again && StartsClause(in.Peek().word)) return;
  groups = {};
  groups.all = in.Accept(K_ALL);
  if (groups.all) return;
  do groups.names.push_back(*ParseName(in));
  while (in.Accept(','));
}

// A clause for all or several disk groups, which has no operands; one for each group.
void AddForMany(TokenStream& in, REPAlterDiskgroup& statement, Groups const& groups) {
  auto const type = ParseForMany(in, groups.all);
  auto const add = [&](REPName* name) {
    auto* const clause = new Clause;
    clause->SetDiskgroupName(name);
    clause->SetAlterDGType(type);
    statement.AddDiskgroupClause(clause);
  };
  if (groups.all) add(nullptr);
  for (auto const& name : groups.names) add(new REPName(name));
}

}  // namespace

// ALTER DISKGROUP {name [, name]... | ALL} clause [[,] [name] clause]...; null when all of the
// clauses were skipped.
std::unique_ptr<REPStatement> ParseAlterDiskgroup(TokenStream& in) {
  auto statement = std::make_unique<REPAlterDiskgroup>();
  statement->SetStatementType(REPStatement_e::AlterDiskgroup);
  in.Expect(K_ALTER, K_DISKGROUP);
  Groups groups;
  do {
    ParseGroups(in, groups);
    if (IsNewerClause(in)) {
      SkipNewerClause(in);
    } else if (groups.all || groups.names.size() > 1 || IsForMany(in.Peek().word)) {
      AddForMany(in, *statement, groups);
    } else {
      auto clause = std::make_unique<Clause>();
      clause->SetDiskgroupName(new REPName(groups.names.front()));
      ParseClause(in, *clause);
      statement->AddDiskgroupClause(clause.release());
    }
    in.Accept(',');
  } while (!in.AtEnd());
  if (statement->GetDiskgroupClauses().GetCount() == 0) return nullptr;
  return statement;
}

}  // namespace repora::reader
