#include "export/ledger.h"

#include <algorithm>
#include <functional>
#include <map>

#include "export/text_table.h"

namespace repora::exporter {
namespace {

void AddTo(FateCounts& sum, FateCounts const& more) {
  for (std::size_t i = 0; i < sum.counts.size(); ++i) sum.counts[i] += more.counts[i];
}

void AddTo(StatementCounts& sum, StatementCounts const& more) {
  sum.read += more.read;
  sum.ok += more.ok;
  sum.duplicate += more.duplicate;
  sum.unsupported += more.unsupported;
  sum.error += more.error;
  sum.unread += more.unread;
  sum.outside += more.outside;
}

void CountResult(StatementCounts& counts, std::string_view result) {
  if (result == "unread") ++counts.unread;
  if (result == "outside") ++counts.outside;
  if (result == "unread" || result == "outside") return;
  ++counts.read;
  if (result == "ok") ++counts.ok;
  if (result == "duplicate") ++counts.duplicate;
  if (result == "unsupported") ++counts.unsupported;
  if (result == "error") ++counts.error;
}

void KeepFirst(Place& kept, Place const& place) {
  if (kept.line == 0) kept = place;
}

std::string PlaceText(Place const& place) {
  if (place.line == 0) return {};
  return std::string(place.file)
      .append(":")
      .append(std::to_string(place.line))
      .append(":")
      .append(std::to_string(place.column));
}

std::string NumberText(std::size_t number) {
  return number == 0 ? "-" : std::to_string(number);
}

}  // namespace

std::size_t FateCounts::Sum() const {
  std::size_t sum = 0;
  for (auto const count : counts) sum += count;
  return sum;
}

std::size_t Ledger::Hash::operator()(Key const& key) const {
  auto const hash = std::hash<char const*>();
  return hash(key.statement) * 31 + hash(key.clause);
}

void Ledger::SetScripts(std::vector<std::string> const& names) {
  if (scripts_.size() < names.size()) scripts_.resize(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) scripts_[i].name = names[i];
}

void Ledger::StartStatement(std::size_t script, std::string_view result, Place const& place) {
  if (script >= scripts_.size()) scripts_.resize(script + 1);
  script_ = script;
  CountResult(scripts_[script].statements, result);
  if (keeps_details_) statements_.push_back({result, place, clauses_.size()});
}

std::uint32_t Ledger::RowOf(std::string_view statement, std::string_view clause) {
  auto const [row, is_new] = row_of_.try_emplace({statement.data(), clause.data()},
                                                 static_cast<std::uint32_t>(rows_.size()));
  if (is_new) rows_.push_back({statement, clause, {}, {}, {}});
  return row->second;
}

bool Ledger::WantsPlace(std::uint32_t row, Fate fate) const {
  return keeps_details_ || rows_[row].first.line == 0 ||
         (fate == Fate::Left && rows_[row].first_left.line == 0);
}

void Ledger::Add(std::uint32_t row, Fate fate, std::size_t words, Place const& place) {
  auto& counted = rows_[row];
  ++counted.counts.Of(fate);
  KeepFirst(counted.first, place);
  if (fate == Fate::Left) KeepFirst(counted.first_left, place);
  ++scripts_[script_].clauses.Of(fate);
  scripts_[script_].words.Of(fate) += words;
  if (keeps_details_)
    clauses_.push_back({row, fate, static_cast<std::uint32_t>(place.line),
                        static_cast<std::uint32_t>(place.column)});
}

Ledger::Script Ledger::Total() const {
  Script total;
  for (auto const& script : scripts_) {
    AddTo(total.statements, script.statements);
    AddTo(total.clauses, script.clauses);
    AddTo(total.words, script.words);
  }
  return total;
}

std::vector<Ledger::Row> Ledger::Rows() const {
  std::map<std::string_view, std::size_t> frequency;
  std::map<std::pair<std::string_view, std::string_view>, Row> merged;
  for (auto const& row : rows_) {
    if (row.clause.empty()) frequency[row.statement] += row.counts.Sum();
    auto& sum = merged[{row.statement, row.clause}];
    sum.statement = row.statement;
    sum.clause = row.clause;
    AddTo(sum.counts, row.counts);
    KeepFirst(sum.first, row.first);
    KeepFirst(sum.first_left, row.first_left);
  }
  std::vector<Row> rows;
  for (auto const& [key, row] : merged) rows.push_back(row);
  std::stable_sort(rows.begin(), rows.end(), [&](Row const& a, Row const& b) {
    return frequency[a.statement] > frequency[b.statement];
  });
  return rows;
}

std::string LedgerText(Ledger const& ledger, bool bold_headings) {
  TextTable table({TextTable::Align::Left, TextTable::Align::Right, TextTable::Align::Right,
                   TextTable::Align::Right, TextTable::Align::Right, TextTable::Align::Left});
  auto const add = [&](std::string label, FateCounts const& counts, std::string remark) {
    std::vector<std::string> cells{std::move(label)};
    for (auto const count : counts.counts) cells.push_back(NumberText(count));
    cells.push_back(std::move(remark));
    table.Add(std::move(cells));
  };
  table.Add({"", "held", "as text", "rendered only", "left", ""});
  for (auto const& row : ledger.Rows()) {
    auto label = row.clause.empty()
                     ? std::string(row.statement.empty() ? "no statement" : row.statement)
                     : std::string("  ").append(row.clause);
    auto remark = PlaceText(row.first_left);
    if (!remark.empty()) remark.insert(0, "first left at ");
    add(std::move(label), row.counts, std::move(remark));
  }
  auto const total = ledger.Total();
  add("all clauses, statements included", total.clauses, "");
  add("all words", total.words, "");
  return Heading("Ledger", bold_headings) + "\n" + table.Text();
}

}  // namespace repora::exporter
