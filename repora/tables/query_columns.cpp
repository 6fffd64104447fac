#include "repora/tables/query_columns.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/select.h"
#include "repora/tables/columns.h"

namespace repora {
namespace {

std::string OwnerOf(REPName const* name) {
  return name ? name->GetOwnerName(false) : std::string();
}

REPProcess_e CopyProperties(REPProcessor& processor, REPSelect::ColInfo_s const& from,
                            MOXActionSummaryItem& attribute) {
  if (from.is_expression != 0 || from.attribute_id == 0) return REPProcessOK;
  auto const* const source = processor.FindSummaryPtrById(from.attribute_id);
  if (!source) return REPProcessError;
  QELValue value;
  auto const has = [&](MOXId property) {
    return source->GetPropertyValue(property, value) && QELValue::HasValue(value);
  };
  if (has(ORVTypes::pDatatype)) {
    attribute.SetProperty(ORVTypes::pDatatype, value);
    attribute.SetProperty(ORVTypes::pLogicalDatatype, value);
    if (auto const domain = processor.IdentifyParentDomain(value.String().c_str()))
      SetReference(attribute, ORVTypes::pParentDomain, domain);
  }
  for (auto const property : {ORVTypes::pOracleSortColumn, ORVTypes::pNullOption})
    if (has(property)) attribute.SetProperty(property, value);
  return REPProcessOK;
}

// A column of the table for the query's column at a position.
REPProcess_e MakeColumn(REPProcessor& processor, MOXActionSummaryItem const& table,
                        REPSelect& query, int position, REPName const& name,
                        MOXActionSummaryItem*& attribute) {
  if (auto const result = processor.AddItem(table.Id(), ORVTypes::oAttribute, &name, attribute);
      result != REPProcessOK)
    return result;
  SetInteger(*attribute, ORVTypes::pType, codes::kAttributeType);
  auto const* const from = query.ColListGetAt(position);
  return from ? CopyProperties(processor, *from, *attribute) : REPProcessError;
}

}  // namespace

REPProcess_e MakeNamedColumns(REPProcessor& processor, MOXActionSummaryItem& table,
                              REPName const* table_name, REPSelect& query,
                              REPRelTableColumnList const& columns) {
  if (query.CountCols(&processor, OwnerOf(table_name).c_str()) != columns.GetCount()) {
    processor.DisplayWarning(REPMessage::ColumnCountDiffers,
                             processor.GetObjectDisplayString(table.Type()), AsWritten(table_name));
    return REPProcessError;
  }
  REPName const unnamed;
  for (int i = 0; i < columns.GetCount(); ++i) {
    auto const& column = *columns.GetColumn(i);
    auto const* const name = column.GetColumnREPName();
    MOXActionSummaryItem* attribute = nullptr;
    if (auto const result =
            MakeColumn(processor, table, query, i, name ? *name : unnamed, attribute);
        result != REPProcessOK)
      return result;
    if (auto const result =
            column.ProcessDefaultsAndConstraints(&processor, &table, table_name, attribute);
        result != REPProcessOK)
      return result;
  }
  return REPProcessOK;
}

REPProcess_e MakeQueryColumns(REPProcessor& processor, MOXActionSummaryItem& table,
                              REPName const* table_name, REPSelect& query) {
  auto const count = query.CountCols(&processor, OwnerOf(table_name).c_str());
  if (count < 0) {
    processor.DisplaySemantic(REPMessage::SelectColumnsMissing,
                              processor.GetObjectDisplayString(table.Type()),
                              AsWritten(table_name));
    return REPProcessError;
  }
  for (int i = 0; i < count; ++i) {
    auto const* const from = query.ColListGetAt(i);
    if (!from) return REPProcessError;
    REPName name;
    name.AddTail((from->alias.empty() ? from->column : from->alias).c_str());
    MOXActionSummaryItem* attribute = nullptr;
    if (auto const result = MakeColumn(processor, table, query, i, name, attribute);
        result != REPProcessOK)
      return result;
  }
  return REPProcessOK;
}

}  // namespace repora
