#include "repora/tables/columns.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace codes = repora::codes;

namespace {

std::string SqlOf(REPDatatype const* datatype) {
  long model_id = 0;
  return datatype ? datatype->AsString(model_id, false) : std::string();
}

}  // namespace

REPProcess_e REPRelTableColumn::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                        REPName const* table_name) const {
  if (!processor || !table) return REPProcessError;
  MOXActionSummaryItem* attribute = nullptr;
  auto const result = processor->AddItem(table->Id(), ORVTypes::oAttribute, name_.Get(), attribute);
  if (result == REPProcessDuplicate)
    processor->DisplayWarning(REPMessage::DuplicateColumn,
                              processor->GetObjectDisplayString(table->Type()),
                              repora::AsWritten(table_name), GetColumnName());
  if (result != REPProcessOK) return result;
  if (datatype_) SetDatatypeOf(processor, *attribute);
  if (sort_) repora::SetBoolean(*attribute, ORVTypes::pOracleSortColumn, true);
  repora::SetInteger(*attribute, ORVTypes::pType, codes::kAttributeType);
  return ProcessDefaultsAndConstraints(processor, table, table_name, attribute);
}

void REPRelTableColumn::SetDatatypeOf(REPProcessor* processor,
                                      MOXActionSummaryItem& attribute) const {
  long model_id = 0;
  auto const text = datatype_->AsString(model_id, true);
  QELValue const value{std::string_view(text)};  // shared by both properties
  attribute.SetProperty(ORVTypes::pDatatype, value);
  attribute.SetProperty(ORVTypes::pLogicalDatatype, value);
  if (model_id > 0)
    repora::SetInteger(attribute, ORVTypes::pTimezoneOption, static_cast<std::int32_t>(model_id));
  if (datatype_->GetCharType() == REPChartype_e::Byte)
    repora::SetInteger(attribute, ORVTypes::pCharacterSemantics, codes::kByteSemantics);
  if (datatype_->GetCharType() == REPChartype_e::Char)
    repora::SetInteger(attribute, ORVTypes::pCharacterSemantics, codes::kCharSemantics);
  if (auto const domain = processor->IdentifyParentDomain(text.c_str()))
    repora::SetReference(attribute, ORVTypes::pParentDomain, domain);
}

REPProcess_e REPRelTableColumn::ProcessDefaultsAndConstraints(REPProcessor* processor,
                                                              MOXActionSummaryItem* table,
                                                              REPName const* /*table_name*/,
                                                              MOXActionSummaryItem* column) const {
  if (!processor || !table || !column) return REPProcessError;
  if (!expression_) return REPProcessOK;
  MOXActionSummaryItem* usage = nullptr;
  processor->AddItem(column->Id(), ORVTypes::oDefaultConstraintUsage, nullptr, usage);
  if (!usage) return REPProcessOK;
  if (auto* const value =
          processor->CreateItem(processor->GetRoot(), ORVTypes::oDefault, nullptr)) {
    repora::SetText(*value, ORVTypes::pServerValue, expression_->AsString());
    repora::SetReference(*usage, ORVTypes::pDefaultProperty, value->Id());
  }
  return REPProcessOK;
}

std::string REPRelTableColumn::AsString() const {
  return repora::SqlText()
      .Name(name_.Get())
      .AppendIf(static_cast<bool>(datatype_), " ")
      .Append(SqlOf(datatype_.Get()))
      .AppendIf(static_cast<bool>(expression_), " DEFAULT ")
      .Append(repora::TextOf(expression_.Get()))
      .AppendIf(sort_, " SORT")
      .Take();
}

REPProcess_e REPRelTableColumnList::Process(REPProcessor* processor, MOXActionSummaryItem* table,
                                            REPName const* table_name) const {
  return columns_.ProcessAll(
      [&](REPRelTableColumn const& column) { return column.Process(processor, table, table_name); },
      repora::ListRule::SkipDuplicates);
}

std::string REPRelTableColumnList::AsString() const {
  return columns_.Join(", ", false,
                       [](REPRelTableColumn const& column) { return column.AsString(); });
}

std::string REPTableColumn::AsString() const {
  return repora::SqlText()
      .Name(name_.Get())
      .Append(" ")
      .Append(SqlOf(datatype_.Get()))
      .AppendIf(sort_, " SORT")
      .Take();
}

std::string REPTableColumnList::AsString() const {
  return columns_.Join(", ", false, [](REPTableColumn const& column) { return column.AsString(); });
}
