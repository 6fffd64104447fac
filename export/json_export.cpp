#include "export/json_export.h"

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

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

}  // namespace

bool WriteJson(StatementCounts const& statements, std::span<Message const> messages,
               MemoryModelSet& model, LoadedObjects const& loaded, Sink const& sink) {
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
  writer.Append("}\n");
  return writer.Finish();
}

}  // namespace repora::exporter
