#include "reader/clause_trace.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "reader/lexer.h"

namespace repora::reader {
namespace {

struct Row {
  std::string_view kind;  // empty: every statement
  std::string_view name;
  Fate fate;
};

constexpr Row kRows[] = {
#define REPORA_CLAUSE(name, fate) {{}, name, Fate::fate},
#define REPORA_CLAUSE_OF(kind, name, fate) {kind, name, Fate::fate},
#include "reader/clauses.def"
#undef REPORA_CLAUSE
#undef REPORA_CLAUSE_OF
};

// The names of clauses as a tree of their words.
class Names {
 public:
  struct Node {
    std::vector<std::pair<Word, std::uint32_t>> next;  // at most a dozen
    std::vector<Row const*> rows;  // that end here; that of every statement is the last one

    Row const* RowOf(std::string_view kind) const {
      for (auto const* row : rows)
        if (row->kind.empty() || row->kind == kind) return row;
      return nullptr;
    }
  };

  Names() : first_(kWords, 0), nodes_(1) {
    for (auto const& row : kRows) Add(row);
  }

  // The longest name that the tokens from a number on make in a statement, and its length.
  Row const* Find(std::string_view kind, std::vector<Token> const& tokens, std::size_t from,
                  std::size_t& length) const {
    auto at = first_[tokens[from].word];
    Row const* found = nullptr;
    for (auto i = from + 1; at != 0; ++i) {
      if (auto const* const row = nodes_[at].RowOf(kind)) {
        found = row;
        length = i - from;
      }
      at = i < tokens.size() ? Next(at, tokens[i].word) : 0;
    }
    return found;
  }

 private:
  static constexpr std::size_t kWords = std::size_t{1} << (8 * sizeof(Word));

  std::uint32_t Next(std::uint32_t at, Word word) const {
    for (auto const& [wanted, next] : nodes_[at].next)
      if (wanted == word) return next;
    return 0;
  }

  void Add(Row const& row) {
    std::uint32_t at = 0;
    for (std::size_t start = 0; start < row.name.size();) {
      auto const end = std::min(row.name.find(' ', start), row.name.size());
      auto const word = FindWord(row.name.substr(start, end - start));
      auto next = at == 0 ? first_[word] : Next(at, word);
      if (next == 0) {
        next = static_cast<std::uint32_t>(nodes_.size());
        nodes_.emplace_back();
        if (at == 0)
          first_[word] = next;
        else
          nodes_[at].next.push_back({word, next});
      }
      at = next;
      start = end + 1;
    }
    auto& rows = nodes_[at].rows;
    rows.insert(row.kind.empty() ? rows.end() : rows.begin(), &row);
  }

  std::vector<std::uint32_t> first_;  // by word
  std::vector<Node> nodes_;           // 0: none
};

// Of the words that start a statement.
Fate FateOfHead(std::string_view kind) {
  static auto const others = [] {
    std::vector<Row const*> rows;
    for (auto const& row : kRows)
      if (row.name == row.kind) rows.push_back(&row);
    return rows;
  }();
  for (auto const* row : others)
    if (row->name == kind) return row->fate;
  return Fate::Held;
}

Names const& AllNames() {
  static Names const names;
  return names;
}

}  // namespace

void ClauseMarks::Clear() {
  keywords_.clear();
  named_.clear();
  texts_.clear();
  queries_.clear();
  left_.clear();
}

void ClauseMarks::Forget(std::size_t token) {
  while (!keywords_.empty() && keywords_.back() >= token) keywords_.pop_back();
  while (!named_.empty() && named_.back().token >= token) named_.pop_back();
  while (!texts_.empty() && texts_.back().token >= token) texts_.pop_back();
  while (!queries_.empty() && queries_.back().token >= token) queries_.pop_back();
}

void ClauseMarks::Resolve(std::string_view kind, std::size_t tokens_of_kind,
                          std::vector<Token> const& tokens, std::vector<ClauseTrace>& clauses) {
  starts_.clear();
  auto covered = tokens_of_kind;
  for (auto const token : keywords_) {
    if (token < covered) continue;
    std::size_t length = 0;
    auto const* const row = AllNames().Find(kind, tokens, token, length);
    if (!row) continue;
    covered = token + length;
    starts_.push_back({token, covered, row->name, row->fate});
  }
  for (auto const& mark : named_)
    starts_.push_back({mark.token, mark.token, mark.name, Fate::Held});
  for (auto const& mark : texts_) starts_.push_back({mark.token, mark.end, "query", Fate::Text});
  if (!left_.empty()) {
    owners_.assign(tokens.size(), 0);
    for (std::size_t i = 0; i < starts_.size(); ++i) NoteOwner(i);
    // A note on the statement as a whole is no clause of it.
    for (auto const& mark : left_)
      if (!std::string_view(mark.what).starts_with(kind)) PlaceLeft(mark.token, mark.what);
  }
  std::stable_sort(starts_.begin(), starts_.end(),
                   [](Start const& a, Start const& b) { return a.token < b.token; });

  // The modifiers of a kind stand between its words and take no other word with them.
  auto const modifiers = std::partition_point(
      starts_.begin(), starts_.end(), [&](Start const& one) { return one.token < tokens_of_kind; });
  auto const count = tokens.size() - 1;  // without the End
  auto const words_until = [&](std::size_t token, auto next) {
    auto const end = next == starts_.end() ? count : std::min(next->token, count);
    return static_cast<std::uint32_t>(end - token);
  };
  auto const in_head = static_cast<std::uint32_t>(modifiers - starts_.begin());
  auto const head = words_until(0, starts_.begin() + in_head) - in_head;
  clauses.push_back({kind, FateOfHead(kind), tokens[0].offset, head, false});
  auto const first = clauses.size() - 1;
  for (auto start = starts_.begin(); start != starts_.end(); ++start)
    if (start->token < count)
      clauses.push_back({start->name, start->fate, tokens[start->token].offset,
                         start < modifiers ? 1U : words_until(start->token, start + 1),
                         IsInQuery(start->token)});
  // A change of which nothing else comes into the model has not come there itself.
  if (kind.starts_with("ALTER") && clauses.size() > first + 1 &&
      std::all_of(clauses.begin() + static_cast<std::ptrdiff_t>(first) + 1, clauses.end(),
                  [](ClauseTrace const& clause) {
                    return clause.fate == Fate::Rendered || clause.fate == Fate::Left;
                  }))
    clauses[first].fate = Fate::Rendered;
}

bool ClauseMarks::IsInQuery(std::size_t token) const {
  for (auto const& query : queries_)
    if (query.token <= token && token < query.end) return true;
  return false;
}

// The first start that holds a token owns it. No text stands in another, so each token is met once
// or twice.
void ClauseMarks::NoteOwner(std::size_t start) {
  auto const end = std::max(starts_[start].end, starts_[start].token + 1);
  for (auto token = starts_[start].token; token < std::min(end, owners_.size()); ++token)
    if (owners_[token] == 0) owners_[token] = static_cast<std::uint32_t>(start + 1);
}

// What is left takes the place of the clause in whose first words it stands, and has none in a text
// that is kept.
void ClauseMarks::PlaceLeft(std::size_t token, std::string_view name) {
  auto const owner = token < owners_.size() ? owners_[token] : 0;
  if (owner == 0) {
    starts_.push_back({token, token, name, Fate::Left});
    NoteOwner(starts_.size() - 1);
    return;
  }
  auto& start = starts_[owner - 1];
  if (start.fate == Fate::Held || start.fate == Fate::Rendered ||
      (start.token == token && start.fate != Fate::Left))
    start = {start.token, start.end, name, Fate::Left};
}

}  // namespace repora::reader
