#include "export/report.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "export/ledger.h"
#include "export/text_table.h"
#include "repora/model/codes.h"
#include "repora/model/memory_model.h"
#include "repora/model/metamodel.h"

namespace repora::exporter {
namespace {

struct Count {
  std::size_t objects = 0;
  std::size_t placeholders = 0;  // referred to, but not created by the script
};

// A row of the table of objects: a type, and for keys and indexes, which are of one type, what kind
// of them.
using Row = std::pair<MOXId, std::string_view>;

bool IsSet(PropertySet const& properties, MOXId property) {
  auto const* const value = properties.Find(property);
  return value && value->Boolean();
}

std::string_view KindOfKey(PropertySet const& properties) {
  auto const* const value = properties.Find(ORVTypes::pKeyGroupType);
  auto const type = value ? value->View() : std::string_view();
  bool const is_constraint = IsSet(properties, ORVTypes::pGenerateAsConstraint);
  if (type == codes::kPrimaryKey) return "Primary Key";
  if (type == codes::kAlternateKey) return is_constraint ? "Unique Key" : "Unique Index";
  return type == codes::kForeignKey ? "Foreign Key of a View" : "Index";
}

std::map<Row, Count> CountCreated(MemoryModelSet& model, LoadedObjects const& loaded) {
  std::map<Row, Count> counts;
  MOXObjectIterator objects;
  model.GetModel()->CreateIterator(objects);
  while (++objects) {
    MOXObject object;
    objects.GetValue(object);
    if (loaded.Contains(object.Id())) continue;
    auto const& properties = *model.PropertiesOf(object.Id());
    bool const is_key = object.Type() == ORVTypes::oKeyGroup;
    auto& count = counts[{object.Type(), is_key ? KindOfKey(properties) : std::string_view()}];
    ++count.objects;
    // The index of a key is not generated because the constraint brings it.
    bool const of_constraint = is_key && IsSet(properties, ORVTypes::pGenerateAsConstraint);
    if (!of_constraint && IsSet(properties, ORVTypes::pDoNotGenerate)) ++count.placeholders;
  }
  return counts;
}

// "3 read, 2 ok, 1 failed": without those that are zero, save the first.
class Enumeration {
 public:
  void Add(std::size_t number, std::string_view one, std::string_view many) {
    if (number == 0 && !text_.empty()) return;
    if (!text_.empty()) text_ += ", ";
    text_ += Counted(number, one, many);
  }
  void Add(std::size_t number, std::string_view what) { Add(number, what, what); }
  std::string const& Text() const { return text_; }

 private:
  std::string text_;
};

std::string ObjectTable(MemoryModelSet& model, LoadedObjects const& loaded) {
  TextTable table({TextTable::Align::Left, TextTable::Align::Right, TextTable::Align::Left});
  for (auto const& [row, count] : CountCreated(model, loaded)) {
    auto const& [type, kind] = row;
    auto name = kind.empty() ? model.GetMetamodel()->NameOfType(type, ORVTypes::tPhysicalName)
                             : std::string(kind);
    std::string remark;
    if (count.placeholders > 0) remark = Counted(count.placeholders, "placeholder", "placeholders");
    table.Add({name.empty() ? std::to_string(type) : std::move(name), std::to_string(count.objects),
               std::move(remark)});
  }
  return table.IsEmpty() ? "  none\n" : table.Text();
}

std::string StatementLine(StatementCounts const& counts) {
  Enumeration line;
  line.Add(counts.read, "read");
  line.Add(counts.ok, "ok");
  line.Add(counts.duplicate, "duplicate", "duplicates");
  line.Add(counts.unsupported, "unsupported");
  line.Add(counts.error, "failed");
  line.Add(counts.unread, "unread");
  line.Add(counts.outside, "outside the model");
  return line.Text();
}

// Duplicates, unsupported and failed statements stand in the line above.
std::string MessageLine(MessageCounts const& counts) {
  Enumeration line;
  auto const add = [&](MessageKind kind, std::string_view one, std::string_view many) {
    if (counts.Of(kind) > 0) line.Add(counts.Of(kind), one, many);
  };
  add(MessageKind::Syntax, "syntax error", "syntax errors");
  add(MessageKind::Semantic, "semantic error", "semantic errors");
  add(MessageKind::Warning, "warning", "warnings");
  add(MessageKind::Information, "piece of information", "pieces of information");
  add(MessageKind::Note, "note", "notes");
  return line.Text().empty() ? "none" : line.Text();
}

// "shop.sql  12 read, 12 ok; 140 clauses: 120 held, 15 as text, 3 rendered only, 2 left".
std::string AccountOf(Ledger::Script const& script) {
  auto const& clauses = script.clauses;
  auto text = StatementLine(script.statements) + "; " + Counted(clauses.Sum(), "clause", "clauses");
  Enumeration fates;
  fates.Add(clauses.Of(Fate::Held), "held");
  fates.Add(clauses.Of(Fate::Text), "as text");
  fates.Add(clauses.Of(Fate::Rendered), "rendered only");
  fates.Add(clauses.Of(Fate::Left), "left");
  return clauses.Sum() == 0 ? text : text + ": " + fates.Text();
}

std::string ScriptTable(Ledger const& ledger) {
  TextTable table({TextTable::Align::Left, TextTable::Align::Left});
  for (auto const& script : ledger.Scripts()) table.Add({script.name, AccountOf(script)});
  return table.IsEmpty() ? "  none\n" : table.Text();
}

}  // namespace

std::string ReportText(Ledger const& ledger, MessageCounts const& messages, MemoryModelSet& model,
                       LoadedObjects const& loaded, bool bold_headings) {
  auto const heading = [&](std::string_view title) { return Heading(title, bold_headings) + "\n"; };
  return heading("Scripts") + ScriptTable(ledger) + heading("Objects created") +
         ObjectTable(model, loaded) + heading("Messages") + "  " + MessageLine(messages) + "\n" +
         heading("Statements") + "  " + AccountOf(ledger.Total()) + "\n";
}

}  // namespace repora::exporter
