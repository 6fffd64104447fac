#include <cstdio>
#include <string>
#include <vector>

#include "repora/model/dump_text.h"
#include "repora/model/item.h"
#include "repora/model/metamodel.h"

namespace repora {
namespace {

// The name of the vocabulary, or the number of an id that it does not know.
void DumpName(std::string& text, MOXId id) {
  if (auto const* name = VocabularyName(id))
    text += name;
  else
    text += std::to_string(id);
}

void DumpReference(std::string& text, std::uint32_t id) {
  text += '#';
  text += std::to_string(id);
}

template <class Elements, class DumpElement>
void DumpList(std::string& text, Elements const& elements, DumpElement dump_element) {
  text += '[';
  char const* separator = "";
  for (auto const& element : elements) {
    text += separator;
    dump_element(element);
    separator = ", ";
  }
  text += ']';
}

}  // namespace

void DumpQuoted(std::string& text, std::string_view value) {
  text += '"';
  for (char const c : value) {
    auto const code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      text += '\\';
      text += c;
    } else if (c == '\n') {
      text += "\\n";
    } else if (c == '\r') {
      text += "\\r";
    } else if (c == '\t') {
      text += "\\t";
    } else if (code < 0x20 || code == 0x7F) {
      char escaped[5];
      std::snprintf(escaped, sizeof escaped, "\\x%02X", code);
      text += escaped;
    } else {
      text += c;
    }
  }
  text += '"';
}

void DumpValue(std::string& text, QELValue const& value) {
  switch (value.Kind()) {
    case QELValue::eText: DumpQuoted(text, value.View()); return;
    case QELValue::eShortId: DumpReference(text, value.ShortId()); return;
    case QELValue::eTextVector: {
      std::vector<std::string> elements;
      value.GetStringVector(elements);
      DumpList(text, elements, [&](std::string const& element) { DumpQuoted(text, element); });
      return;
    }
    case QELValue::eShortIdVector: {
      std::vector<QELShortId> elements;
      value.GetShortIdVector(elements);
      DumpList(text, elements, [&](QELShortId element) { DumpReference(text, element.Id()); });
      return;
    }
    case QELValue::eInt64Vector: {
      std::vector<std::int64_t> elements;
      value.GetInt64Vector(elements);
      DumpList(text, elements, [&](std::int64_t element) {
        auto const bits = static_cast<std::uint64_t>(element);
        DumpReference(text, static_cast<std::uint32_t>(bits >> 32));
        text += '>';
        DumpReference(text, static_cast<std::uint32_t>(bits));
      });
      return;
    }
    case QELValue::eEmpty: text += "(empty)"; return;
    case QELValue::eInteger:
    case QELValue::eBoolean: text += value.AsString(true); return;
  }
}

void DumpObject(std::string& text, std::uint32_t id, MOXId type, std::uint32_t owner,
                std::string_view name) {
  DumpReference(text, id);
  text += ' ';
  DumpName(text, type);
  text += " owner ";
  DumpReference(text, owner);
  text += ' ';
  DumpQuoted(text, name);
}

void DumpProperties(std::string& text, PropertySet const& properties) {
  for (auto const& property : properties) {
    text += "  ";
    DumpName(text, property.id);
    text += ": ";
    DumpValue(text, property.value);
    text += '\n';
  }
}

}  // namespace repora

void MOXActionSummary::Dump(FILE* file, MOXModelSetI* /*model_set*/,
                            std::string const& title) const {
  if (!file) return;
  std::string text;
  if (!title.empty()) text = title + '\n';
  for (auto const* item : items_) {
    repora::DumpObject(text, item->Id(), item->Type(), item->Owner(), item->Name());
    text += IsExisting(item->Id()) ? " existing\n" : " created\n";
    repora::DumpProperties(text, item->Properties());
    for (auto const property : item->RemovedProperties()) {
      text += "  ";
      repora::DumpName(text, property);
      text += " removed\n";
    }
    std::fwrite(text.data(), 1, text.size(), file);
    text.clear();
  }
  std::fwrite(text.data(), 1, text.size(), file);
}
