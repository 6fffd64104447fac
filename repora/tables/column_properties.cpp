#include "repora/tables/column_properties.h"

#include "repora/core/expression.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/datatype.h"

namespace repora {

void WriteDatatype(REPProcessor& processor, MOXActionSummaryItem& attribute,
                   REPDatatype const& datatype) {
  long model_id = 0;
  auto const text = datatype.AsString(model_id, true);
  std::uint32_t domain = 0;
  auto const value = processor.ShareDatatype(text, domain);
  attribute.SetProperty(ORVTypes::pDatatype, value);
  attribute.SetProperty(ORVTypes::pLogicalDatatype, value);
  if (model_id > 0)
    SetInteger(attribute, ORVTypes::pTimezoneOption, static_cast<std::int32_t>(model_id));
  if (datatype.GetCharType() == REPChartype_e::Byte)
    SetInteger(attribute, ORVTypes::pCharacterSemantics, codes::kByteSemantics);
  if (datatype.GetCharType() == REPChartype_e::Char)
    SetInteger(attribute, ORVTypes::pCharacterSemantics, codes::kCharSemantics);
  if (domain) SetReference(attribute, ORVTypes::pParentDomain, domain);
}

void WriteDefault(REPProcessor& processor, MOXActionSummaryItem const& attribute,
                  REPExpr const& expression, MOXActionSummaryItem* usage) {
  if (!usage) processor.AddItem(attribute.Id(), ORVTypes::oDefaultConstraintUsage, nullptr, usage);
  if (!usage) return;
  auto* const value = processor.CreateItem(processor.GetRoot(), ORVTypes::oDefault, nullptr);
  if (!value) return;
  SetText(*value, ORVTypes::pServerValue, expression.AsString());
  SetReference(*usage, ORVTypes::pDefaultProperty, value->Id());
}

std::string DatatypeText(REPDatatype const* datatype) {
  long model_id = 0;
  return datatype ? datatype->AsString(model_id, false) : std::string();
}

}  // namespace repora
