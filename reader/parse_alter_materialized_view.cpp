#include <string>
#include <vector>

#include "reader/parse_alter_partitions.h"
#include "reader/parse_lobs.h"
#include "reader/parse_materialized_views.h"
#include "reader/parse_names.h"
#include "reader/parse_organisation.h"
#include "reader/parse_refresh.h"
#include "reader/parse_statements.h"
#include "reader/parse_storage.h"
#include "repora/queries/alter_materialized_view.h"

namespace repora::reader {
namespace {

// Physical attributes up to what is none; null when none comes.
std::unique_ptr<REPPhysicalAttrClause> ParsePhysicalAttributes(TokenStream& in) {
  auto attributes = std::make_unique<REPPhysicalAttrClause>();
  auto const mark = in.Mark();
  while (ParsePhysicalAttribute(in, *attributes)) continue;
  return in.Mark() == mark ? nullptr : std::move(attributes);
}

// What is read of ALTER MATERIALIZED VIEW while its clauses follow one another.
struct Changes {
  bool any = false;          // something was kept
  bool in_overflow = false;  // segment attributes that come belong to the overflow
  std::unique_ptr<REPPhysicalAttrClause> physical;
  std::unique_ptr<REPPhysicalAttrClause> index_attributes;
  std::unique_ptr<REPSegmentAttributesClause> segment;
  std::unique_ptr<REPScopedTableRefConstraintList> scopes;
  std::unique_ptr<REPAlterTablePartitioning> partitioning;
  std::vector<std::unique_ptr<REPLOBStorage>> lobs;
  std::vector<std::unique_ptr<REPModifyLOBStorage>> modified_lobs;
  std::unique_ptr<REPAllocExtentClause> allocate;
  std::unique_ptr<REPDeallocateUnusedClause> deallocate;
  std::unique_ptr<REPName> including;
  std::unique_ptr<REPAddOverflowClause> add_overflow;
  std::unique_ptr<REPName> rollback_segment;
};

// One attribute of the segment of the view, or of its overflow; a tablespace is always of the
// latter, for the view itself cannot leave its own. False when none comes.
bool ParseAlterSegment(TokenStream& in, REPAlterMaterializedView& view, Changes& changes) {
  auto const word = in.Peek().word;
  if (!StartsSegmentAttribute(word)) return false;
  if (changes.in_overflow || word == K_TABLESPACE) {
    if (!changes.segment) changes.segment = std::make_unique<REPSegmentAttributesClause>();
    ParseSegmentAttribute(in, *changes.segment);
  } else if (in.Accept(K_LOGGING)) {
    view.SetLogging(REPLogging_e::Logging);
  } else if (in.Accept(K_NOLOGGING)) {
    view.SetLogging(REPLogging_e::NoLogging);
  } else {
    if (!changes.physical) changes.physical = std::make_unique<REPPhysicalAttrClause>();
    ParsePhysicalAttribute(in, *changes.physical);
  }
  return true;
}

// COMPRESS [kind] | NOCOMPRESS
void ParseAlterCompression(TokenStream& in, REPAlterMaterializedView& view) {
  auto const& token = in.Peek();
  auto const compression = ParseCompression(in);
  view.SetCompression(compression.compress);
  if (!compression.size.empty()) in.Note(token, "prefix length of COMPRESS is skipped");
  SkipKindOfCompression(in);
}

// LOB storage [, LOB storage]... | MODIFY LOB ( column ) ( parameter... ) [, ...]; false when none
// comes.
bool ParseAlterLob(TokenStream& in, Changes& changes) {
  auto const starts = [&](std::size_t ahead) {
    return in.Peek(ahead).word == K_LOB && in.Peek(ahead + 1).punctuation == '(';
  };
  auto const starts_change = [&](std::size_t ahead) {
    return in.Peek(ahead).word == K_MODIFY && starts(ahead + 1);
  };
  bool const follows = !changes.lobs.empty() || !changes.modified_lobs.empty();
  if (follows && in.Is(',') && (starts(1) || starts_change(1))) in.Next();
  if (starts(0)) {
    changes.lobs.push_back(ParseLobStorage(in));
    return true;
  }
  if (!starts_change(0)) return false;
  auto lob = std::make_unique<REPModifyLOBStorage>();
  in.Expect(K_MODIFY, K_LOB);
  lob->SetItemNames(ParseNameList(in).release());
  lob->SetParameters(ParseModifyLobParameters(in).release());
  changes.modified_lobs.push_back(std::move(lob));
  return true;
}

// MODIFY {SCOPE FOR ... | ( SCOPE FOR ... [, ...] )}; false when none comes.
bool ParseModifyScopes(TokenStream& in, Changes& changes) {
  bool const in_parentheses = in.Is(K_MODIFY) && in.Peek(1).punctuation == '(' &&
                              in.Peek(2).word == K_SCOPE && in.Peek(3).word == K_FOR;
  if (!in_parentheses && !in.Is(K_MODIFY, K_SCOPE, K_FOR)) return false;
  in.Next();
  auto scopes = std::make_unique<REPScopedTableRefConstraintList>();
  if (in_parentheses) in.Expect('(');
  do scopes->AddTail(ParseScope(in).release());
  while (in.Accept(','));
  if (in_parentheses) in.Expect(')');
  changes.scopes = std::move(scopes);
  return true;
}

// ALLOCATE EXTENT ... | DEALLOCATE UNUSED ... | SHRINK SPACE ... | COALESCE | PCTTHRESHOLD n |
// INCLUDING column | OVERFLOW | ADD OVERFLOW ... | CACHE | NOCACHE | parallel | compression; false
// when none comes.
bool ParseAlterStorage(TokenStream& in, REPAlterMaterializedView& view, Changes& changes) {
  if (in.Is(K_ALLOCATE)) {
    changes.allocate = ParseAllocateExtent(in);
  } else if (in.Is(K_DEALLOCATE)) {
    changes.deallocate = ParseDeallocateUnused(in);
  } else if (in.Is(K_SHRINK)) {
    view.SetShrink(ParseShrink(in));
  } else if (in.Accept(K_COALESCE)) {
    view.SetCoalesce(true);
  } else if (in.Accept(K_PCTTHRESHOLD)) {
    view.SetPctThreshold(in.Copy(in.ExpectNumber()));
  } else if (in.Accept(K_INCLUDING)) {
    changes.including = ParseSimpleName(in);
  } else if (in.Accept(K_OVERFLOW)) {
    view.SetIndexOverflow(true);
    changes.in_overflow = true;
  } else if (in.Is(K_ADD, K_OVERFLOW)) {
    in.Next();
    changes.add_overflow = ParseAddOverflow(in);
  } else if (in.Accept(K_CACHE)) {
    view.SetCache(REPCache_e::Cache);
  } else if (in.Accept(K_NOCACHE)) {
    view.SetCache(REPCache_e::NoCache);
  } else if (in.Is(K_COMPRESS) || in.Is(K_NOCOMPRESS)) {
    ParseAlterCompression(in, view);
  } else if (auto const parallel = ParseParallelDegree(in);
             parallel.parallel != REPParallel_e::None) {
    view.SetParallel(parallel.parallel);
    view.SetParallelSize(parallel.degree.c_str());
  } else {
    // COMPRESS follows, and says it all.
    return in.Accept(K_ROW, K_STORE) || in.Accept(K_COLUMN, K_STORE);
  }
  return true;
}

// REFRESH [option]..., which knows one rollback segment, of the master
void ParseAlterRefresh(TokenStream& in, REPAlterMaterializedView& view, Changes& changes) {
  in.Expect(K_REFRESH);
  view.SetRefreshPresent(true);
  for (;;) {
    auto const& token = in.Peek();
    Rollbacks rollbacks;
    if (!ParseRefreshOption(in, view) && !ParseRefreshUsing(in, view, rollbacks)) return;
    for (auto const& rollback : rollbacks) {
      if (rollback->GetMaster() != REPMaster_e::Master) {
        in.Note(token, "rollback segment of the local side is skipped");
        continue;
      }
      view.SetRefreshRollback(rollback->GetDefault() ? REPRefreshRollback_e::DefaultMaster
                                                     : REPRefreshRollback_e::Master);
      changes.rollback_segment.reset(rollback->GetSegmentName());
      rollback->SetSegmentName(nullptr);
    }
  }
}

// {ENABLE | DISABLE} QUERY REWRITE | COMPILE | CONSIDER FRESH; none when none comes.
REPMViewType_e ParseAlterKind(TokenStream& in) {
  if (in.Accept(K_ENABLE, K_QUERY, K_REWRITE)) return REPMViewType_e::EnableRewrite;
  if (in.Accept(K_DISABLE, K_QUERY, K_REWRITE)) return REPMViewType_e::DisableRewrite;
  if (in.Accept(K_COMPILE)) return REPMViewType_e::Compile;
  if (in.Accept(K_CONSIDER, K_FRESH)) return REPMViewType_e::ConsiderFresh;
  return REPMViewType_e::None;
}

// USING INDEX [physical attribute]...; false when it is USING NO INDEX, which is skipped. Where
// attributes follow they bring the keyword: the statement renders the keyword alone far before
// them.
bool ParseAlterUsingIndex(TokenStream& in, REPAlterMaterializedView& view, Changes& changes) {
  auto const& token = in.Next();
  if (in.Accept(K_NO, K_INDEX)) {
    in.Note(token, "clause USING NO INDEX is skipped");
    return false;
  }
  in.Expect(K_INDEX);
  if (auto attributes = ParsePhysicalAttributes(in))
    changes.index_attributes = std::move(attributes);
  else
    view.SetUsingIndex(REPUsingIndex_e::Index);
  return true;
}

// False when the clause was skipped.
bool ParseAlterClause(TokenStream& in, REPAlterMaterializedView& view, Changes& changes) {
  if (ParseAlterSegment(in, view, changes)) return true;
  changes.in_overflow = false;
  if (ParseAlterPartitions(in, changes.partitioning)) return changes.partitioning != nullptr;
  if (ParseAlterLob(in, changes) || ParseModifyScopes(in, changes) ||
      ParseAlterStorage(in, view, changes))
    return true;
  if (IsUsingIndex(in)) return ParseAlterUsingIndex(in, view, changes);
  if (in.Is(K_REFRESH)) {
    ParseAlterRefresh(in, view, changes);
    return true;
  }
  if (auto const kind = ParseAlterKind(in); kind != REPMViewType_e::None) {
    view.SetViewType(kind);
    return true;
  }
  SkipViewClause(in, "a clause of ALTER MATERIALIZED VIEW");
  return false;
}

void GiveTo(REPAlterMaterializedView& view, Changes& changes) {
  view.SetPhysicalAttrClause(changes.physical.release());
  view.SetUsingPhysicalAttrClause(changes.index_attributes.release());
  view.SetSegmentAttributesClause(changes.segment.release());
  view.SetScopedConstraintList(changes.scopes.release());
  view.SetAlterTablePartitioning(changes.partitioning.release());
  // The statement takes the last one first.
  for (auto lob = changes.lobs.rbegin(); lob != changes.lobs.rend(); ++lob)
    view.AddLOBStorage(lob->release());
  for (auto lob = changes.modified_lobs.rbegin(); lob != changes.modified_lobs.rend(); ++lob)
    view.AddModifyLOBStorage(lob->release());
  view.SetAllocExtentClause(changes.allocate.release());
  view.SetDeallocateUnusedClause(changes.deallocate.release());
  view.SetIncludingColumn(changes.including.release());
  view.SetAddOverflowClause(changes.add_overflow.release());
  view.SetRollbackSegment(changes.rollback_segment.release());
}

}  // namespace

// ALTER {MATERIALIZED VIEW | SNAPSHOT} [IF EXISTS] name clause...; null when all were skipped.
std::unique_ptr<REPStatement> ParseAlterMaterializedView(TokenStream& in) {
  auto view = std::make_unique<REPAlterMaterializedView>();
  view->SetStatementType(REPStatement_e::AlterMaterializedView);
  in.Expect(K_ALTER);
  ExpectMaterializedView(in);
  SkipIfExists(in);
  view->SetViewName(ParseName(in).release());
  Changes changes;
  do changes.any = ParseAlterClause(in, *view, changes) || changes.any;
  while (!in.AtEnd());
  GiveTo(*view, changes);
  if (!changes.any) return nullptr;
  return view;
}

}  // namespace repora::reader
