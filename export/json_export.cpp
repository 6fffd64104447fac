#include "export/json_export.h"

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "export/ledger.h"
#include "repora/model/memory_model.h"
#include "repora/model/metamodel.h"

namespace repora::exporter {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kPieceSize = std::size_t{64} * 1024;

// Gathers the output into pieces worth handing on.
class Writer {
 public:
  explicit Writer(Sink const& sink) : sink_(sink) {}

  void Append(std::string_view text) {
    if (closed_) return;
    buffer_ += text;
    if (buffer_.size() >= kPieceSize) Flush();
  }
  void AppendValue(Json const& value) {
    Append(value.dump(-1, ' ', false, Json::error_handler_t::replace));
  }
  bool Finish() {
    if (!closed_) Flush();
    return !closed_;
  }
  bool IsClosed() const { return closed_; }

 private:
  void Flush() {
    closed_ = !sink_(buffer_);
    buffer_.clear();
  }

  Sink const& sink_;
  std::string buffer_;
  bool closed_ = false;
};

// The elements of an array, each on a line of its own.
class ArrayWriter {
 public:
  ArrayWriter(Writer& writer, std::string_view key) : writer_(writer) {
    writer_.Append(",\n \"");
    writer_.Append(key);
    writer_.Append("\": [");
  }
  void Add(Json const& element) {
    writer_.Append(first_ ? "\n  " : ",\n  ");
    writer_.AppendValue(element);
    first_ = false;
  }
  void Close() { writer_.Append("]"); }

 private:
  Writer& writer_;
  bool first_ = true;
};

// A host's own types and properties go by their numbers.
std::string VocabularyKey(MOXId id) {
  auto const* const name = VocabularyName(id);
  return name ? name : std::to_string(id);
}

Json ReferenceTo(std::uint32_t id) {
  return Json{{"ref", id}};
}

// High half: the parent of a migrated column; low half: the child.
Json PairOf(std::int64_t number) {
  auto const bits = static_cast<std::uint64_t>(number);
  return Json{{"parent", static_cast<std::uint32_t>(bits >> 32)},
              {"child", static_cast<std::uint32_t>(bits)}};
}

template <class Element, class Convert>
Json ArrayOf(std::vector<Element> const& elements, Convert convert) {
  auto array = Json::array();
  for (auto const& element : elements) array.push_back(convert(element));
  return array;
}

Json ToJson(QELValue const& value) {
  switch (value.Kind()) {
    case QELValue::eEmpty: break;
    case QELValue::eInteger: return value.Integer();
    case QELValue::eBoolean: return value.Boolean();
    case QELValue::eText: return value.String();
    case QELValue::eShortId: return ReferenceTo(value.ShortId());
    case QELValue::eTextVector: {
      std::vector<std::string> texts;
      value.GetStringVector(texts);
      return texts;
    }
    case QELValue::eShortIdVector: {
      std::vector<QELShortId> ids;
      value.GetShortIdVector(ids);
      return ArrayOf(ids, [](QELShortId id) { return ReferenceTo(id.Id()); });
    }
    case QELValue::eInt64Vector: {
      std::vector<std::int64_t> numbers;
      value.GetInt64Vector(numbers);
      return ArrayOf(numbers, PairOf);
    }
  }
  return nullptr;
}

Json ToJson(StatementCounts const& counts) {
  return Json{{"read", counts.read},           {"ok", counts.ok},
              {"duplicate", counts.duplicate}, {"unsupported", counts.unsupported},
              {"error", counts.error},         {"unread", counts.unread},
              {"outside", counts.outside}};
}

Json ToJson(Message const& message) {
  return Json{{"kind", NameOf(message.kind)},  {"code", message.code}, {"text", message.text},
              {"file", message.file},          {"line", message.line}, {"column", message.column},
              {"statement", message.statement}};
}

Json ToJson(MOXObject const& object, MemoryModelSet const& model, LoadedObjects const& loaded) {
  auto const& properties = *model.PropertiesOf(object.Id());
  auto const* const name = properties.Find(MOXTypes::pName);
  auto by_name = Json::object();
  for (auto const& property : properties)
    by_name[VocabularyKey(property.id)] = ToJson(property.value);
  return Json{{"id", object.Id()},
              {"type", VocabularyKey(object.Type())},
              {"owner", model.OwnerOf(object.Id())},
              {"name", name ? name->String() : std::string()},
              {"origin", loaded.Contains(object.Id()) ? "loaded" : "created"},
              {"properties", std::move(by_name)}};
}

Json ToJson(Place const& place) {
  return Json{{"file", place.file}, {"line", place.line}, {"column", place.column}};
}

Json ToJson(FateCounts const& counts) {
  auto json = Json::object();
  for (std::size_t i = 0; i < kFateNames.size(); ++i)
    json[std::string(kFateNames[i])] = counts.counts[i];
  return json;
}

Json ToJson(Ledger::Row const& row) {
  Json json{{"statement", row.statement}, {"clause", row.clause}};
  json.update(ToJson(row.counts));
  json["first"] = ToJson(row.first);
  if (row.first_left.line != 0) json["first_left"] = ToJson(row.first_left);
  return json;
}

// A statement with its clauses. The kind is that of its first clause.
Json StatementToJson(Ledger const& ledger, std::size_t index) {
  auto const& statements = ledger.Statements();
  auto const& statement = statements[index];
  auto const& all = ledger.Clauses();
  auto const end = index + 1 < statements.size() ? statements[index + 1].first_clause : all.size();
  auto clauses = Json::array();
  for (auto i = statement.first_clause; i < end; ++i)
    clauses.push_back(Json{{"clause", ledger.StoredRow(all[i].row).clause},
                           {"fate", NameOf(all[i].fate)},
                           {"line", all[i].line},
                           {"column", all[i].column}});
  auto const kind = statement.first_clause < end
                        ? ledger.StoredRow(all[statement.first_clause].row).statement
                        : std::string_view();
  Json json{{"statement", kind}, {"result", statement.result}};
  json.update(ToJson(statement.place));
  json["clauses"] = std::move(clauses);
  return json;
}

void WriteLedger(Ledger const& ledger, Writer& writer) {
  auto const total = ledger.Total();
  writer.Append(",\n \"ledger\": {\"clauses\": ");
  writer.AppendValue(ToJson(total.clauses));
  writer.Append(", \"words\": ");
  writer.AppendValue(ToJson(total.words));
  ArrayWriter scripts(writer, "scripts");
  for (auto const& script : ledger.Scripts())
    scripts.Add(Json{{"file", script.name},
                     {"statements", ToJson(script.statements)},
                     {"clauses", ToJson(script.clauses)},
                     {"words", ToJson(script.words)}});
  scripts.Close();
  ArrayWriter rows(writer, "table");
  for (auto const& row : ledger.Rows()) rows.Add(ToJson(row));
  rows.Close();
  ArrayWriter statements(writer, "statements");
  for (std::size_t i = 0; i < ledger.Statements().size() && !writer.IsClosed(); ++i)
    statements.Add(StatementToJson(ledger, i));
  statements.Close();
  writer.Append("}");
}

}  // namespace

bool WriteJson(StatementCounts const& statements, std::span<Message const> messages,
               MemoryModelSet& model, LoadedObjects const& loaded, Ledger const& ledger,
               Sink const& sink) {
  Writer writer(sink);
  writer.Append("{\"statements\": ");
  writer.AppendValue(ToJson(statements));

  ArrayWriter message_array(writer, "messages");
  for (auto const& message : messages) message_array.Add(ToJson(message));
  message_array.Close();

  ArrayWriter object_array(writer, "objects");
  MOXObjectIterator objects;
  model.GetModel()->CreateIterator(objects);
  while (!writer.IsClosed() && ++objects) {
    MOXObject object;
    objects.GetValue(object);
    object_array.Add(ToJson(object, model, loaded));
  }
  object_array.Close();
  WriteLedger(ledger, writer);
  writer.Append("}\n");
  return writer.Finish();
}

}  // namespace repora::exporter
