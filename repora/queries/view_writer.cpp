#include "repora/queries/view_writer.h"

#include <utility>

#include "repora/core/processor.h"
#include "repora/model/item.h"

namespace repora {

void ViewWriter::Text(MOXId property, std::string_view text) const {
  Write(property, QELValue(text));
}

void ViewWriter::TextIfGiven(MOXId property, std::string_view text) const {
  if (!text.empty()) Text(property, text);
}

void ViewWriter::Integer(MOXId property, std::int32_t number) const {
  Write(property, QELValue::FromInteger(number));
}

void ViewWriter::Boolean(MOXId property, bool value) const {
  Write(property, QELValue::FromBoolean(value));
}

void ViewWriter::Reference(MOXId property, std::uint32_t id) const {
  Write(property, QELValue(QELShortId(id)));
}

void ViewWriter::References(MOXId property, std::vector<std::uint32_t> const& ids) const {
  QELValue references;
  for (auto const id : ids) references += QELShortId(id);
  Write(property, std::move(references));
}

void ViewWriter::Write(MOXId property, QELValue value) const {
  processor_.SetPropOnActionItem(&view_, MOXProperty(property, std::move(value), false), replace_);
}

}  // namespace repora
