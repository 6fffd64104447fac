#include "repora/tables/columns.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/tables/column_properties.h"
#include "repora/tables/constraints.h"

namespace codes = repora::codes;

REPRelTableColumn::REPRelTableColumn() = default;

REPRelTableColumn::~REPRelTableColumn() = default;

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
  if (datatype_) repora::WriteDatatype(*processor, *attribute, *datatype_);
  if (sort_) repora::SetBoolean(*attribute, ORVTypes::pOracleSortColumn, true);
  repora::SetInteger(*attribute, ORVTypes::pType, codes::kAttributeType);
  return ProcessDefaultsAndConstraints(processor, table, table_name, attribute);
}

REPProcess_e REPRelTableColumn::ProcessDefaultsAndConstraints(REPProcessor* processor,
                                                              MOXActionSummaryItem* table,
                                                              REPName const* table_name,
                                                              MOXActionSummaryItem* column) const {
  if (!processor || !table || !column) return REPProcessError;
  if (expression_) repora::WriteDefault(*processor, *column, *expression_);
  return constraints_ ? constraints_->Process(processor, table, table_name, column) : REPProcessOK;
}

std::string REPRelTableColumn::AsString() const {
  return repora::SqlText()
      .Name(name_.Get())
      .AppendIf(static_cast<bool>(datatype_), " ")
      .Append(repora::DatatypeText(datatype_.Get()))
      .AppendIf(static_cast<bool>(expression_), " DEFAULT ")
      .Append(repora::TextOf(expression_.Get()))
      .AppendIf(sort_, " SORT")
      .Option(repora::TextOf(constraints_.Get()))
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
      .Append(repora::DatatypeText(datatype_.Get()))
      .AppendIf(sort_, " SORT")
      .Take();
}

std::string REPTableColumnList::AsString() const {
  return columns_.Join(", ", false, [](REPTableColumn const& column) { return column.AsString(); });
}
