#include "reader/skipped_clauses.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "reader/characters.h"
#include "reader/parse_names.h"
#include "repora/core/letters.h"

namespace repora::reader {
namespace {

// Grammar is written as in the comments of this reader: WORDS, [optional], {one | other},
// repeated [...]..., and <rule>. In small letters stand
//   name       schema.name
//   id         one name, which is no word that the reader knows
//   names      name [ASC | DESC] [, name [ASC | DESC]]...
//   item       a name, number, string or all between parentheses
//   number, string
//   =, -       themselves
//   ()         parentheses and all between them
//   condition  all up to a word that ends a condition of ALTER TABLE
//   rest       all up to the end of the statement
// The first of several alternatives that fits is taken, and an optional part whenever it fits.

struct Rule {
  std::string_view name;
  std::string_view grammar;
};

constexpr Rule kRules[] = {
    {"compression",
     "{ROW STORE COMPRESS [BASIC | ADVANCED]"
     " | COLUMN STORE COMPRESS [FOR {QUERY | ARCHIVE} [LOW | HIGH]] [[NO] ROW LEVEL LOCKING]"
     " | COMPRESS [BASIC | ADVANCED [LOW | HIGH] | FOR OLTP | FOR ALL OPERATIONS"
     " | FOR DIRECT_LOAD OPERATIONS | FOR {QUERY | ARCHIVE} [LOW | HIGH] [[NO] ROW LEVEL LOCKING]"
     " | number]"
     " | NOCOMPRESS}"},
    {"inmemory",
     "[NO MEMCOMPRESS | MEMCOMPRESS [AUTO | FOR {DML | {QUERY | CAPACITY} [LOW | HIGH]}]"
     " | PRIORITY item"
     " | DISTRIBUTE [AUTO | BY {ROWID RANGE | PARTITION | SUBPARTITION}] [FOR SERVICE item]"
     " | NO DUPLICATE | DUPLICATE [ALL] | TEXT () | SPATIAL item | ALL | ()]..."},
    {"policy",
     "{<compression> | TIER TO name [READ ONLY] | {SET | MODIFY} INMEMORY <inmemory> | NO INMEMORY"
     " | OPTIMIZE}"
     " [ROW | SEGMENT | GROUP]"
     " [AFTER number item OF {[NO | LOW] ACCESS | NO MODIFICATION | CREATION} | ON name]"},
    {"identity",
     "[START WITH {LIMIT VALUE | number} | INCREMENT BY [-] number | MAXVALUE [-] number"
     " | MINVALUE [-] number | CACHE number | SCALE [EXTEND | NOEXTEND] | NOMAXVALUE | NOMINVALUE"
     " | CYCLE | NOCYCLE | NOCACHE | ORDER | NOORDER | KEEP | NOKEEP | NOSCALE | SESSION"
     " | GLOBAL]..."},
    {"xmltype",
     "[STORE ALL VARRAYS AS {LOBS | TABLES} | STORE AS OBJECT RELATIONAL"
     " | STORE AS [SECUREFILE | BASICFILE] {CLOB | [TRANSPORTABLE] BINARY XML} [id] [()]]"
     " [XMLSCHEMA item] [ELEMENT item]"
     " [ALLOW NONSCHEMA | ALLOW ANYSCHEMA | DISALLOW NONSCHEMA | DISALLOW ANYSCHEMA]..."
     " [VIRTUAL COLUMNS ()]"},
    {"joined", "JOIN {name ON () | name name ON ()}"},
    {"when",
     "[{YES | NO} ON LOAD] [{YES | NO} ON DATA MOVEMENT]"
     " [WITH MATERIALIZED ZONEMAP [()] | WITHOUT MATERIALIZED ZONEMAP]"},
    {"clustering",
     "{[{name <joined> | name name <joined>} [<joined>]...] BY [LINEAR | INTERLEAVED] ORDER ()"
     " | {YES | NO} ON {LOAD | DATA MOVEMENT} | WITH MATERIALIZED ZONEMAP [()]"
     " | WITHOUT MATERIALIZED ZONEMAP}"
     " <when>"},
    {"replication", "[ALL KEYS | ALLOW NOVALIDATE KEYS | PARTIAL JSON]..."},
    {"edition", "{CURRENT EDITION | NULL EDITION | EDITION name}"},
    {"vector",
     "[[WITH] DISTANCE name | [WITH] TARGET ACCURACY number [PERCENT] | PARAMETERS ()"
     " | REPLICATION item]..."},
};

constexpr unsigned In(ClausePlace place) {
  return static_cast<unsigned>(place);
}

constexpr auto kTable = In(ClausePlace::Table) | In(ClausePlace::AlterTable);
constexpr auto kAlter = In(ClausePlace::AlterTable);
constexpr auto kPartition = In(ClausePlace::Partition);
constexpr auto kColumn = In(ClausePlace::Column);
constexpr auto kIndex = In(ClausePlace::Index);
constexpr auto kView = In(ClausePlace::View);
constexpr auto kAlterView = In(ClausePlace::AlterView);
constexpr auto kMaterialized = In(ClausePlace::MaterializedView);
constexpr auto kLog = In(ClausePlace::MaterializedViewLog);
constexpr auto kUser = In(ClausePlace::User);
constexpr auto kDefaults = In(ClausePlace::TablespaceDefaults);

struct Clause {
  unsigned places;
  std::string_view grammar;
  std::string_view name{};  // in its note; if not given, the words that the grammar starts with
};

// One that starts with the words of another stands before it.
constexpr Clause kClauses[] = {
    // What is stored, how long, and how it is compressed in memory.
    {kTable | kPartition | kMaterialized | kIndex, "SEGMENT CREATION {IMMEDIATE | DEFERRED}"},
    {kTable | kPartition | kMaterialized | kDefaults, "NO INMEMORY [()]"},
    {kTable | kPartition | kMaterialized | kDefaults, "INMEMORY <inmemory>"},
    {kTable | kPartition | kMaterialized | kIndex | kDefaults,
     "ILM {ADD POLICY <policy> | {DELETE | ENABLE | DISABLE} POLICY item | DELETE_ALL | ENABLE_ALL"
     " | DISABLE_ALL}"},
    {kTable | kPartition | kMaterialized | kColumn | kAlterView, "READ ONLY"},
    {kTable | kPartition | kMaterialized | kColumn | kAlterView, "READ WRITE"},
    {kDefaults, "INDEX COMPRESS {ADVANCED [LOW | HIGH] | number}"},
    {kDefaults, "INDEX NOCOMPRESS"},
    {kTable | kPartition, "INDEXING {ON | OFF}"},
    {kTable | kPartition, "FILESYSTEM_LIKE_LOGGING"},
    {kTable, "NO ROW ARCHIVAL"},
    {kTable, "ROW ARCHIVAL"},
    {kTable, "NO FLASHBACK ARCHIVE"},
    {kTable, "FLASHBACK ARCHIVE [id]"},
    {kTable | kMaterialized, "RESULT_CACHE ()"},
    {kTable, "NO MEMOPTIMIZE FOR READ"},
    {kTable, "NO MEMOPTIMIZE FOR WRITE"},
    {kTable, "MEMOPTIMIZE FOR READ"},
    {kTable, "MEMOPTIMIZE FOR WRITE"},
    {kTable | kMaterialized, "CLUSTERING <clustering>"},
    {kTable, "ATTRIBUTE CLUSTERING <clustering>"},
    {kTable | kMaterialized | kView, "DEFAULT COLLATION name"},
    {kTable | kMaterialized | kColumn | kIndex | kView | kAlterView, "ANNOTATIONS ()"},
    {kTable | kAlterView, "ENABLE LOGICAL REPLICATION <replication>"},
    {kTable | kAlterView, "DISABLE LOGICAL REPLICATION <replication>"},
    {kTable, "LOGICAL PARTITION TRACKING"},
    {kTable, "ENABLE CONTAINER_MAP"},
    {kTable, "DISABLE CONTAINER_MAP"},
    {kTable, "ENABLE CONTAINERS_DEFAULT"},
    {kTable, "DISABLE CONTAINERS_DEFAULT"},
    {kTable, "NOT FOR STAGING"},
    {kTable, "FOR STAGING"},
    {kTable, "FOR EXCHANGE WITH TABLE name"},
    {kTable | kMaterialized, "ENABLE CONCURRENT REFRESH"},
    {kTable | kMaterialized, "DISABLE CONCURRENT REFRESH"},
    {kTable, "CONCURRENT REFRESH"},
    {kTable, "REFRESH INTERVAL number item"},
    {kTable, "SYNCHRONOUS"},
    {kTable, "JSON () STORE AS [id] [()]", "JSON STORE AS"},
    // Rows that may not be changed.
    {kTable, "NO DROP [UNTIL number DAYS IDLE]"},
    {kTable, "NO DELETE [LOCKED] [UNTIL number DAYS AFTER INSERT [LOCKED]]"},
    {kTable, "HASHING USING item"},
    {kTable, "WITH ROW VERSION [AND USER CHAIN] item ()"},
    {kTable, "WITH USER CHAIN item ()"},
    {kTable, "VERSION item"},
    // Shards, and partitions elsewhere.
    {kTable, "PARENT name"},
    {kTable, "PARTITIONSET BY item () [SUBPARTITION BY item ()]"},
    {kTable, "EXTERNAL PARTITION ATTRIBUTES () [REJECT LIMIT item]"},
    {kPartition,
     "EXTERNAL [DEFAULT DIRECTORY name | LOCATION () | ACCESS PARAMETERS item | TYPE name]..."},
    {kPartition, "DEFAULT DIRECTORY name"},
    {kPartition, "LOCATION ()"},
    {kPartition, "ACCESS PARAMETERS item"},
    // What ALTER TABLE changes of it.
    {kAlter, "ADD CLUSTERING <clustering>"},
    {kAlter, "MODIFY CLUSTERING <clustering>"},
    {kAlter, "DROP CLUSTERING"},
    {kAlter, "ADD PERIOD FOR name [()]", "PERIOD FOR"},
    {kAlter, "DROP PERIOD FOR name", "PERIOD FOR"},
    {kAlter, "ADD ANNOTATIONS ()"},
    {kAlter, "ADD EXTERNAL PARTITION ATTRIBUTES () [REJECT LIMIT item]"},
    {kAlter, "DROP EXTERNAL PARTITION ATTRIBUTES [()]"},
    {kAlter, "ADD LOGICAL PARTITION TRACKING rest"},
    {kAlter, "DROP LOGICAL PARTITION TRACKING rest"},
    {kAlter, "ADD USER CHAIN rest"},
    {kAlter, "ADD PARTITIONSET rest"},
    {kAlter, "DROP PARTITIONSET rest"},
    {kAlter, "MERGE PARTITIONSETS rest"},
    {kAlter, "MODIFY PARTITIONSET rest"},
    {kAlter, "MOVE PARTITIONSET rest"},
    {kAlter, "SPLIT PARTITIONSET rest"},
    {kAlter, "MODIFY PARTITION BY rest"},
    {kAlter, "MODIFY NONPARTITIONED rest"},
    {kAlter, "MODIFY OPAQUE TYPE item STORE () UNPACKED"},
    {kAlter, "MODIFY item ADD DOMAIN name [USING ()]", "ADD DOMAIN"},
    {kAlter, "ADD DOMAIN name () [USING ()]"},
    {kAlter, "MODIFY item DROP DOMAIN [FORCE] [PRESERVE CONSTRAINTS]", "DROP DOMAIN"},
    {kAlter, "DROP DOMAIN () [FORCE] [PRESERVE CONSTRAINTS]"},
    {kAlter, "SET INTERVAL ()"},
    {kAlter, "SET STORE IN ()"},
    {kAlter, "SET PARTITIONING {AUTOMATIC | MANUAL}"},
    {kAlter | kPartition, "INCLUDING ROWS WHERE condition", "INCLUDING ROWS"},
    {kAlter, "UPDATE INDEXES [()]"},
    {kAlter, "ALLOW CLUSTERING"},
    {kAlter, "DISALLOW CLUSTERING"},
    // Columns.
    {kColumn, "VISIBLE"},
    {kColumn, "INVISIBLE"},
    {kColumn, "COLLATE name"},
    {kColumn, "ENCRYPT [USING item | IDENTIFIED BY item | string | [NO] SALT]..."},
    {kColumn, "DECRYPT"},
    {kColumn, "NOT RESERVABLE"},
    {kColumn, "RESERVABLE"},
    {kColumn, "DOMAIN name [() [USING ()]]"},
    {kColumn, "ADD DOMAIN name"},
    {kColumn, "DROP DOMAIN [FORCE] [PRESERVE CONSTRAINTS]"},
    {kColumn, "DROP IDENTITY"},
    {kColumn, "VALIDATE [CAST] [USING] string"},
    // Indexes.
    {kIndex, "VISIBLE"},
    {kIndex, "INVISIBLE"},
    {kIndex, "USABLE"},
    {kIndex, "UNUSABLE"},
    {kIndex, "NOREVERSE"},
    {kIndex, "INDEXING item"},
    {kIndex, "DEFERRED INVALIDATION"},
    {kIndex, "IMMEDIATE INVALIDATION"},
    {kIndex, "SHARING = {EXTENDED DATA | item}"},
    {kIndex, "FOR JSON"},
    {kIndex, "FOR TEXT"},
    {kIndex, "FOR XML"},
    {kIndex, "FILTER BY names"},
    {kIndex, "ORDER BY names"},
    {kIndex, "PARAMETERS ()"},
    {kIndex, "INCLUDE ()"},
    {kIndex, "ORGANIZATION INMEMORY NEIGHBOR GRAPH <vector>"},
    {kIndex, "ORGANIZATION NEIGHBOR PARTITIONS <vector>"},
    // Views.
    {kView, "BEQUEATH {CURRENT_USER | DEFINER}"},
    {kAlterView, "MODIFY [COLUMN] {() | name ANNOTATIONS ()}", "MODIFY ANNOTATIONS"},
    {kAlterView, "EDITIONABLE"},
    {kAlterView, "NONEDITIONABLE"},
    // Users.
    {kUser, "READ ONLY"},
    {kUser, "READ WRITE"},
    {kUser, "NO AUTHENTICATION"},
    {kUser, "HTTP DIGEST ENABLE"},
    {kUser, "HTTP DIGEST DISABLE"},
    {kUser, "DIGEST ENABLE"},
    {kUser, "DIGEST DISABLE"},
    {kUser, "DEFAULT COLLATION name"},
    {kUser, "LOCAL TEMPORARY TABLESPACE name"},
    {kUser, "ENABLE EDITIONS [FOR names] [FORCE]"},
    {kUser, "ENABLE DICTIONARY PROTECTION"},
    {kUser, "DISABLE DICTIONARY PROTECTION"},
    {kUser, "AND FACTOR string [AS string]"},
    // Materialized views and their logs.
    {kMaterialized, "EVALUATE USING <edition>"},
    {kMaterialized, "UNUSABLE BEFORE <edition>"},
    {kMaterialized, "UNUSABLE BEGINNING WITH <edition>"},
    {kMaterialized, "ENABLE ON QUERY COMPUTATION"},
    {kMaterialized, "DISABLE ON QUERY COMPUTATION"},
    {kLog, "SHARING = {EXTENDED DATA | item}"},
    {kLog, "PURGE IMMEDIATE [SYNCHRONOUS | ASYNCHRONOUS]", "PURGE"},
    {kLog, "FOR FAST REFRESH"},
    {kLog, "FOR SYNCHRONOUS REFRESH [USING name]"},
};

constexpr bool IsSmall(char c) {
  return c >= 'a' && c <= 'z';
}

// Whether a grammar names only rules that there are, and nothing else that is not known.
constexpr bool IsSound(std::string_view grammar) {
  constexpr std::string_view kTerminals[] = {"name",   "id",     "names",     "item",
                                             "number", "string", "condition", "rest"};
  for (std::size_t i = 0; i < grammar.size(); ++i) {
    if (!IsSmall(grammar[i])) continue;
    auto const start = i;
    while (i < grammar.size() && IsSmall(grammar[i])) ++i;
    auto const word = grammar.substr(start, i - start);
    bool const known =
        start > 0 && grammar[start - 1] == '<'
            ? std::any_of(std::begin(kRules), std::end(kRules),
                          [word](Rule const& rule) { return rule.name == word; })
            : std::find(std::begin(kTerminals), std::end(kTerminals), word) != std::end(kTerminals);
    if (!known) return false;
  }
  return true;
}
static_assert(std::all_of(std::begin(kRules), std::end(kRules),
                          [](Rule const& rule) { return IsSound(rule.grammar); }) &&
                  std::all_of(std::begin(kClauses), std::end(kClauses),
                              [](Clause const& clause) { return IsSound(clause.grammar); }),
              "a grammar has a rule or an element that there is not");

bool IsBlank(char c) {
  return c == ' ';
}

std::string_view WithoutBlanksInFront(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

// Splits off the first element: a word, a <rule>, or a pair of brackets with what they enclose,
// and the "..." behind them.
std::string_view TakeElement(std::string_view& grammar) {
  grammar = WithoutBlanksInFront(grammar);
  std::size_t end = 0;
  int depth = 0;
  for (; end < grammar.size(); ++end) {
    char const c = grammar[end];
    if (depth == 0 && IsBlank(c)) break;
    if (c == '[' || c == '{') ++depth;
    if (c == ']' || c == '}') --depth;
  }
  auto const element = grammar.substr(0, end);
  grammar.remove_prefix(end);
  return element;
}

// Splits off the first alternative.
std::string_view TakeAlternative(std::string_view& grammar) {
  std::size_t end = 0;
  int depth = 0;
  for (; end < grammar.size() && (depth > 0 || grammar[end] != '|'); ++end) {
    char const c = grammar[end];
    if (c == '[' || c == '{') ++depth;
    if (c == ']' || c == '}') --depth;
  }
  auto const alternative = grammar.substr(0, end);
  grammar.remove_prefix(end < grammar.size() ? end + 1 : end);
  return alternative;
}

bool IsPlainWord(std::string_view element) {
  return !element.empty() && element[0] >= 'A' && element[0] <= 'Z';
}

// Takes what a grammar describes from the statement. What does not fit leaves the statement as it
// was.
class Matcher {
 public:
  explicit Matcher(TokenStream& in) : in_(in) {}
  bool Sequence(std::string_view grammar);

 private:
  bool Element(std::string_view element);
  bool Alternatives(std::string_view grammar);
  bool Terminal(std::string_view element);
  bool Name();
  bool Names();
  bool Item();
  bool Condition();

  TokenStream& in_;
};

bool Matcher::Sequence(std::string_view grammar) {
  auto const mark = in_.Mark();
  for (auto element = TakeElement(grammar); !element.empty(); element = TakeElement(grammar)) {
    if (Element(element)) continue;
    in_.Rewind(mark);
    return false;
  }
  return true;
}

bool Matcher::Alternatives(std::string_view grammar) {
  while (!grammar.empty())
    if (Sequence(TakeAlternative(grammar))) return true;
  return false;
}

bool Matcher::Element(std::string_view element) {
  switch (element[0]) {
    case '<': {
      auto const name = element.substr(1, element.size() - 2);
      for (auto const& rule : kRules)
        if (rule.name == name) return Sequence(rule.grammar);
      return false;
    }
    case '{': return Alternatives(element.substr(1, element.size() - 2));
    case '[': {
      constexpr std::string_view kDots = "...";
      bool const repeated = element.ends_with(kDots);
      if (repeated) element.remove_suffix(kDots.size());
      auto const body = element.substr(1, element.size() - 2);
      for (auto mark = in_.Mark(); Alternatives(body) && repeated && in_.Mark() != mark;
           mark = in_.Mark())
        continue;
      return true;
    }
    default: return Terminal(element);
  }
}

bool Matcher::Terminal(std::string_view element) {
  auto const& token = in_.Peek();
  if (IsPlainWord(element)) {
    if (token.kind != TokenKind::Word || !EqualsIgnoringCase(in_.TextOf(token), element))
      return false;
    in_.Advance();
    return true;
  }
  if (element == "()") return in_.SkipParentheses();
  if (element == "=" || element == "-") return in_.Accept(element[0]);
  if (element == "name") return Name();
  if (element == "names") return Names();
  if (element == "item") return Item();
  if (element == "condition") return Condition();
  if (element == "rest") {
    while (!in_.AtEnd()) in_.Advance();
    return true;
  }
  bool const fits = element == "number"   ? token.kind == TokenKind::Number
                    : element == "string" ? token.kind == TokenKind::String
                                          : IsName(token) && token.word == K_NONE;  // id
  if (fits) in_.Advance();
  return fits;
}

bool Matcher::Name() {
  if (!IsName(in_.Peek())) return false;
  in_.Advance();
  while (in_.Is('.') && IsName(in_.Peek(1))) {
    in_.Advance();
    in_.Advance();
  }
  return true;
}

bool Matcher::Names() {
  do {
    if (!Name()) return false;
    if (!in_.Accept(K_ASC)) in_.Accept(K_DESC);
  } while (in_.Accept(','));
  return true;
}

bool Matcher::Item() {
  if (Name() || in_.SkipParentheses()) return true;
  auto const kind = in_.Peek().kind;
  if (kind != TokenKind::Number && kind != TokenKind::String) return false;
  in_.Advance();
  return true;
}

bool Matcher::Condition() {
  auto const mark = in_.Mark();
  auto const ends = [&] {
    switch (in_.Peek().word) {
      case K_ALLOW:
      case K_DISALLOW:
      case K_NOPARALLEL:
      case K_ONLINE:
      case K_PARALLEL:
      case K_UPDATE: return true;
      default: return in_.AtEnd() || in_.Is(',') || in_.Is(')');
    }
  };
  while (!ends()) in_.SkipItem();
  return in_.Mark() != mark;
}

// The words that a grammar starts with.
std::string NameOf(Clause const& clause) {
  if (!clause.name.empty()) return std::string(clause.name);
  std::string name;
  auto grammar = clause.grammar;
  for (auto word = TakeElement(grammar); IsPlainWord(word); word = TakeElement(grammar))
    name.append(name.empty() ? "" : " ").append(word);
  return name;
}

// Takes a clause that may stand there; null when none comes.
Clause const* TakeClause(TokenStream& in, ClausePlace place) {
  auto const& token = in.Peek();
  if (token.kind != TokenKind::Word) return nullptr;
  auto const letter = UpperAscii(in.TextOf(token)[0]);
  for (auto const& clause : kClauses) {
    bool const may_be = clause.grammar[0] == letter && (clause.places & In(place)) != 0;
    if (may_be && Matcher(in).Sequence(clause.grammar)) return &clause;
  }
  return nullptr;
}

}  // namespace

bool SkipClause(TokenStream& in, ClausePlace place) {
  auto const& token = in.Peek();
  auto const* const clause = TakeClause(in, place);
  if (!clause) return false;
  in.Note(token, "clause " + NameOf(*clause) + " is skipped");
  return true;
}

bool StartsSkippedClause(TokenStream& in, ClausePlace place) {
  auto const mark = in.Mark();
  bool const starts = TakeClause(in, place) != nullptr;
  in.Rewind(mark);
  return starts;
}

bool TakeCompression(TokenStream& in) {
  return Matcher(in).Sequence("<compression>");
}

void TakeIdentityOptions(TokenStream& in) {
  if (!in.SkipParentheses()) Matcher(in).Sequence("<identity>");
}

void TakeXmlTypeStorage(TokenStream& in) {
  Matcher(in).Sequence("<xmltype>");
}

}  // namespace repora::reader
