#include "reader/statement_kinds.h"

#include <algorithm>
#include <iterator>

namespace repora::reader {
namespace {

using Words = std::array<Word, 5>;

constexpr StatementKind Read(Words words, ParseFunction parse, Extent extent = Extent::Sql) {
  return {words, extent, parse};
}
constexpr StatementKind Outside(Words words, Extent extent = Extent::Sql) {
  return {words, extent, nullptr};
}

// All kinds, those with the same first words together, a longer one behind its beginning.
constexpr StatementKind kKinds[] = {
    Read({K_CREATE, K_TABLE}, ParseCreateTable),
    Read({K_CREATE, K_TABLESPACE}, ParseCreateTablespace),
    Outside({K_CREATE, K_TABLESPACE, K_SET}),
    Read({K_CREATE, K_INDEX}, ParseCreateIndex),
    Read({K_CREATE, K_INDEXTYPE}, ParseCreateIndextype),
    Read({K_CREATE, K_VIEW}, ParseCreateView),
    Read({K_CREATE, K_MATERIALIZED, K_VIEW}, ParseCreateMaterializedView),
    Read({K_CREATE, K_MATERIALIZED, K_VIEW, K_LOG}, ParseCreateMaterializedViewLog),
    Outside({K_CREATE, K_MATERIALIZED, K_ZONEMAP}),
    Read({K_CREATE, K_SNAPSHOT}, ParseCreateMaterializedView),
    Read({K_CREATE, K_SNAPSHOT, K_LOG}, ParseCreateMaterializedViewLog),
    Read({K_CREATE, K_SEQUENCE}, ParseCreateSequence),
    Read({K_CREATE, K_SYNONYM}, ParseCreateSynonym),
    Read({K_CREATE, K_TRIGGER}, ParseCreateTrigger, Extent::Plsql),
    Read({K_CREATE, K_PROCEDURE}, ParseCreateProcedure, Extent::Plsql),
    Read({K_CREATE, K_FUNCTION}, ParseCreateFunction, Extent::Plsql),
    Read({K_CREATE, K_PACKAGE}, ParseCreatePackage, Extent::Plsql),
    Read({K_CREATE, K_PACKAGE, K_BODY}, ParseCreatePackageBody, Extent::Plsql),
    Read({K_CREATE, K_TYPE}, ParseUnsupported),
    Read({K_CREATE, K_TYPE, K_BODY}, ParseUnsupported, Extent::Plsql),
    Read({K_CREATE, K_LIBRARY}, ParseCreateLibrary),
    Read({K_CREATE, K_JAVA}, ParseUnsupported, Extent::Source),
    Outside({K_CREATE, K_MLE, K_MODULE}, Extent::Source),
    Outside({K_CREATE, K_MLE, K_ENV}),
    Read({K_CREATE, K_OPERATOR}, ParseUnsupported),
    Read({K_CREATE, K_OUTLINE}, ParseUnsupported),
    Read({K_CREATE, K_SCHEMA}, ParseUnsupported),
    Read({K_CREATE, K_DIMENSION}, ParseUnsupported),
    Read({K_CREATE, K_USER}, ParseCreateUser),
    Read({K_CREATE, K_ROLE}, ParseCreateRole),
    Read({K_CREATE, K_PROFILE}, ParseCreateProfile),
    Read({K_CREATE, K_CONTEXT}, ParseCreateContext),
    Read({K_CREATE, K_DIRECTORY}, ParseCreateDirectory),
    Read({K_CREATE, K_DATABASE}, ParseCreateDatabase),
    Read({K_CREATE, K_DATABASE, K_LINK}, ParseCreateDatabaseLink),
    Read({K_CREATE, K_CONTROLFILE}, ParseCreateControlfile),
    Read({K_CREATE, K_PFILE}, ParseCreatePFile),
    Read({K_CREATE, K_SPFILE}, ParseCreateSPFile),
    Read({K_CREATE, K_CLUSTER}, ParseCreateCluster),
    Read({K_CREATE, K_ROLLBACK, K_SEGMENT}, ParseCreateRollbackSegment),
    Read({K_CREATE, K_DISKGROUP}, ParseCreateDiskgroup),
    Outside({K_CREATE, K_PLUGGABLE, K_DATABASE}),
    Outside({K_CREATE, K_AUDIT, K_POLICY}),
    Outside({K_CREATE, K_EDITION}),
    Outside({K_CREATE, K_FLASHBACK, K_ARCHIVE}),
    Outside({K_CREATE, K_RESTORE, K_POINT}),
    Outside({K_CREATE, K_ANALYTIC, K_VIEW}),
    Outside({K_CREATE, K_ATTRIBUTE, K_DIMENSION}),
    Outside({K_CREATE, K_HIERARCHY}),
    Outside({K_CREATE, K_INMEMORY, K_JOIN, K_GROUP}),
    Outside({K_CREATE, K_LOCKDOWN, K_PROFILE}),
    Outside({K_CREATE, K_PROPERTY, K_GRAPH}),
    Outside({K_CREATE, K_DOMAIN}),
    Outside({K_CREATE, K_JSON, K_RELATIONAL, K_DUALITY, K_VIEW}),
    Outside({K_CREATE, K_JSON, K_DUALITY, K_VIEW}),
    Outside({K_CREATE, K_JSON, K_COLLECTION, K_TABLE}),
    Outside({K_CREATE, K_JSON, K_COLLECTION, K_VIEW}),
    Outside({K_CREATE, K_LOGICAL, K_PARTITION, K_TRACKING}),
    Outside({K_CREATE, K_TRUE, K_CACHE}),
    Outside({K_CREATE, K_ASSERTION}),

    Read({K_ALTER, K_TABLE}, ParseAlterTable),
    Read({K_ALTER, K_TABLESPACE}, ParseAlterTablespace),
    Outside({K_ALTER, K_TABLESPACE, K_SET}),
    Read({K_ALTER, K_INDEX}, ParseAlterIndex),
    Read({K_ALTER, K_INDEXTYPE}, ParseUnsupported),
    Read({K_ALTER, K_VIEW}, ParseAlterView),
    Read({K_ALTER, K_MATERIALIZED, K_VIEW}, ParseAlterMaterializedView),
    Read({K_ALTER, K_MATERIALIZED, K_VIEW, K_LOG}, ParseAlterMaterializedViewLog),
    Outside({K_ALTER, K_MATERIALIZED, K_ZONEMAP}),
    Read({K_ALTER, K_SNAPSHOT}, ParseAlterMaterializedView),
    Read({K_ALTER, K_SNAPSHOT, K_LOG}, ParseAlterMaterializedViewLog),
    Read({K_ALTER, K_SEQUENCE}, ParseAlterSequence),
    Read({K_ALTER, K_TRIGGER}, ParseAlterTrigger),
    Read({K_ALTER, K_PROCEDURE}, ParseAlterProcedure),
    Read({K_ALTER, K_FUNCTION}, ParseAlterFunction),
    Read({K_ALTER, K_PACKAGE}, ParseAlterPackage),
    Read({K_ALTER, K_TYPE}, ParseUnsupported),
    Read({K_ALTER, K_JAVA}, ParseUnsupported),
    Read({K_ALTER, K_OPERATOR}, ParseUnsupported),
    Read({K_ALTER, K_OUTLINE}, ParseUnsupported),
    Read({K_ALTER, K_DIMENSION}, ParseUnsupported),
    Read({K_ALTER, K_USER}, ParseUnsupported),
    Read({K_ALTER, K_PROFILE}, ParseUnsupported),
    Read({K_ALTER, K_DATABASE}, ParseAlterDatabase),
    Outside({K_ALTER, K_DATABASE, K_LINK}),
    Read({K_ALTER, K_CLUSTER}, ParseAlterCluster),
    Read({K_ALTER, K_ROLLBACK, K_SEGMENT}, ParseAlterRollbackSegment),
    Read({K_ALTER, K_DISKGROUP}, ParseAlterDiskgroup),
    Outside({K_ALTER, K_SESSION}),
    Outside({K_ALTER, K_SYSTEM}),
    Outside({K_ALTER, K_SYNONYM}),
    Outside({K_ALTER, K_ROLE}),
    Outside({K_ALTER, K_LIBRARY}),
    Outside({K_ALTER, K_PLUGGABLE, K_DATABASE}),
    Outside({K_ALTER, K_AUDIT, K_POLICY}),
    Outside({K_ALTER, K_FLASHBACK, K_ARCHIVE}),
    Outside({K_ALTER, K_RESOURCE, K_COST}),
    Outside({K_ALTER, K_ANALYTIC, K_VIEW}),
    Outside({K_ALTER, K_ATTRIBUTE, K_DIMENSION}),
    Outside({K_ALTER, K_HIERARCHY}),
    Outside({K_ALTER, K_INMEMORY, K_JOIN, K_GROUP}),
    Outside({K_ALTER, K_LOCKDOWN, K_PROFILE}),
    Outside({K_ALTER, K_PROPERTY, K_GRAPH}),
    Outside({K_ALTER, K_DOMAIN}),
    Outside({K_ALTER, K_JSON, K_RELATIONAL, K_DUALITY, K_VIEW}),
    Outside({K_ALTER, K_JSON, K_DUALITY, K_VIEW}),
    Outside({K_ALTER, K_JSON, K_COLLECTION, K_TABLE}),
    Outside({K_ALTER, K_JSON, K_COLLECTION, K_VIEW}),
    Outside({K_ALTER, K_MLE, K_MODULE}),
    Outside({K_ALTER, K_MLE, K_ENV}),
    Outside({K_ALTER, K_ASSERTION}),

    Read({K_COMMENT}, ParseComment),

    Outside({K_INSERT}),
    Outside({K_UPDATE}),
    Outside({K_DELETE}),
    Outside({K_MERGE}),
    Outside({K_SELECT}),
    Outside({K_WITH}),
    Outside({K_WITH, K_FUNCTION}, Extent::Plsql),
    Outside({K_WITH, K_PROCEDURE}, Extent::Plsql),
    Outside({K_GRANT}),
    Outside({K_REVOKE}),
    Outside({K_DROP}),
    Outside({K_TRUNCATE}),
    Outside({K_RENAME}),
    Outside({K_PURGE}),
    Outside({K_FLASHBACK}),
    Outside({K_COMMIT}),
    Outside({K_ROLLBACK}),
    Outside({K_SAVEPOINT}),
    Outside({K_LOCK, K_TABLE}),
    Outside({K_ANALYZE}),
    Outside({K_ASSOCIATE}),
    Outside({K_DISASSOCIATE}),
    Outside({K_EXPLAIN, K_PLAN}),
    Outside({K_CALL}),
    Outside({K_AUDIT}),
    Outside({K_NOAUDIT}),
    Outside({K_ADMINISTER}),
    Outside({K_SET, K_ROLE}),
    Outside({K_SET, K_TRANSACTION}),
    Outside({K_SET, K_CONSTRAINT}),
    Outside({K_SET, K_CONSTRAINTS}),
    Outside({K_DECLARE}, Extent::Plsql),
    Outside({K_BEGIN}, Extent::Plsql),
};

// A block, which may also start with a label.
constexpr StatementKind const& kBlock = kKinds[std::size(kKinds) - 1];
static_assert(kBlock.words[0] == K_BEGIN);

// Words between CREATE or ALTER and what is created.
bool IsModifier(Word word) {
  switch (word) {
    case K_AND:
    case K_BIGFILE:
    case K_BITMAP:
    case K_BLOCKCHAIN:
    case K_CLEAN:
    case K_COMPILE:
    case K_DUPLICATED:
    case K_EDITIONABLE:
    case K_EDITIONING:
    case K_FLEXIBLE:
    case K_FORCE:
    case K_GLOBAL:
    case K_HYBRID:
    case K_IMMUTABLE:
    case K_MANDATORY:
    case K_LOCAL:
    case K_MULTIVALUE:
    case K_NO:
    case K_NOFORCE:
    case K_NONEDITIONABLE:
    case K_OR:
    case K_PRIVATE:
    case K_PUBLIC:
    case K_REPLACE:
    case K_RESOLVE:
    case K_SEARCH:
    case K_SHARDED:
    case K_SHARED:
    case K_SMALLFILE:
    case K_TEMPORARY:
    case K_UNDO:
    case K_UNIQUE:
    case K_USECASE:
    case K_VECTOR: return true;
    default: return false;
  }
}

constexpr std::size_t kMostModifiers = 12;

std::string MakeName(Words const& words) {
  if (words[0] == K_BEGIN || words[0] == K_DECLARE) return "PL/SQL block";
  if (words[0] == K_WITH) return "SELECT";
  std::string name;
  for (auto const word : words) {
    if (word == K_NONE) break;
    if (!name.empty()) name += ' ';
    name += TextOf(word);
  }
  return name;
}

}  // namespace

std::string const& StatementKind::Name() const {
  static auto const names = [] {
    std::array<std::string, std::size(kKinds)> made;
    for (std::size_t i = 0; i < made.size(); ++i) made[i] = MakeName(kKinds[i].words);
    return made;
  }();
  return names[static_cast<std::size_t>(this - kKinds)];
}

StatementKind const& BlockKind() {
  return kBlock;
}

bool KindFinder::Take(Token const& token) {
  ++tokens_;
  if (words_ == 0) {
    if (token.punctuation == '(') return true;  // (SELECT ...
    if (token.punctuation == kLabelStart) {
      kind_ = &kBlock;
      return false;
    }
    first_ = std::begin(kKinds);
    last_ = std::end(kKinds);
    return token.word != K_NONE && Extend(token.word);
  }
  auto const verb = first_->words[0];
  if (words_ == 1 && (verb == K_CREATE || verb == K_ALTER) && IsModifier(token.word))
    return tokens_ < kMostModifiers;
  return token.word != K_NONE && Extend(token.word);
}

// Narrows the kinds down to those that go on with the word; true when there is more to find out.
bool KindFinder::Extend(Word word) {
  auto const first = std::find_if(
      first_, last_, [&](StatementKind const& kind) { return kind.words[words_] == word; });
  auto const last = std::find_if(
      first, last_, [&](StatementKind const& kind) { return kind.words[words_] != word; });
  if (first == last) return false;
  first_ = first;
  last_ = last;
  ++words_;
  bool const whole = words_ == first->words.size() || first->words[words_] == K_NONE;
  if (whole) {
    kind_ = first;
    tokens_of_kind_ = tokens_;
  }
  return !whole || last - first > 1;
}

}  // namespace repora::reader
