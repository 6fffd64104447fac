#include "repora/queries/view_writer.h"

#include "repora/core/processor.h"
#include "repora/model/item.h"

namespace repora {

void ViewWriter::Text(MOXId property, std::string_view text) const {
  processor_.SetPropOnActionItem(&view_, MOXProperty(property, QELValue(text), false), replace_);
}

void ViewWriter::TextIfGiven(MOXId property, std::string_view text) const {
  if (!text.empty()) Text(property, text);
}

void ViewWriter::Integer(MOXId property, std::int32_t number) const {
  processor_.SetPropOnActionItem(
      &view_, MOXProperty(property, QELValue::FromInteger(number), false), replace_);
}

void ViewWriter::Boolean(MOXId property, bool value) const {
  processor_.SetPropOnActionItem(&view_, MOXProperty(property, QELValue::FromBoolean(value), false),
                                 replace_);
}

}  // namespace repora
