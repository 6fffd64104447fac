#include "export/report.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

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

std::string Counted(std::size_t number, std::string_view one, std::string_view many) {
  return std::to_string(number).append(1, ' ').append(number == 1 ? one : many);
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

// Lines under a heading: a label, a number flush right, and a remark.
class Table {
 public:
  void Add(std::string label, std::size_t number, std::string remark) {
    rows_.push_back({std::move(label), std::to_string(number), std::move(remark)});
  }
  std::string Text() const {
    std::size_t label_width = 0;
    std::size_t number_width = 0;
    for (auto const& row : rows_) {
      label_width = std::max(label_width, row.label.size());
      number_width = std::max(number_width, row.number.size());
    }
    std::string text;
    for (auto const& row : rows_) {
      text.append(2, ' ').append(row.label);
      text.append(label_width - row.label.size() + 2 + number_width - row.number.size(), ' ');
      text += row.number;
      if (!row.remark.empty()) text.append(2, ' ').append(row.remark);
      text += '\n';
    }
    return text;
  }

 private:
  struct Line {
    std::string label;
    std::string number;
    std::string remark;
  };
  std::vector<Line> rows_;
};

std::string ObjectTable(MemoryModelSet& model, LoadedObjects const& loaded) {
  Table table;
  for (auto const& [row, count] : CountCreated(model, loaded)) {
    auto const& [type, kind] = row;
    auto name = kind.empty() ? model.GetMetamodel()->NameOfType(type, ORVTypes::tPhysicalName)
                             : std::string(kind);
    std::string remark;
    if (count.placeholders > 0) remark = Counted(count.placeholders, "placeholder", "placeholders");
    table.Add(name.empty() ? std::to_string(type) : std::move(name), count.objects,
              std::move(remark));
  }
  auto text = table.Text();
  return text.empty() ? "  none\n" : text;
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

}  // namespace

std::string ReportText(StatementCounts const& statements, MessageCounts const& messages,
                       MemoryModelSet& model, LoadedObjects const& loaded, bool bold_headings) {
  auto const heading = [&](std::string_view title) {
    std::string text(title);
    return bold_headings ? "\x1b[1m" + text + "\x1b[0m" : text;
  };
  return heading("Objects created") + "\n" + ObjectTable(model, loaded) + heading("Statements") +
         "\n  " + StatementLine(statements) + "\n" + heading("Messages") + "\n  " +
         MessageLine(messages) + "\n";
}

}  // namespace repora::exporter
