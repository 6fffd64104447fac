#include "repora/code/comments.h"

#include <string_view>

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"

namespace {

std::string_view Keyword(REPComment_e type) {
  switch (type) {
    case REPComment_e::None: break;
    case REPComment_e::Table: return "TABLE";
    case REPComment_e::Column: return "COLUMN";
    case REPComment_e::Operator: return "OPERATOR";
    case REPComment_e::Indextype: return "INDEXTYPE";
    case REPComment_e::MaterializedView: return "MATERIALIZED VIEW";
  }
  return {};
}

void DisplayUndefined(REPProcessor& processor, MOXId type, REPName const* name) {
  processor.DisplaySemantic(REPMessage::UndefinedObject, processor.GetObjectDisplayString(type),
                            repora::AsWritten(name));
}

MOXActionSummaryItem* FindTableOrView(REPProcessor const& processor, REPName const* name) {
  for (auto const type : {ORVTypes::oEntity, ORVTypes::oCachedView, ORVTypes::oView})
    if (auto* const item = processor.FindItemPtr(processor.GetRoot(), type, name)) return item;
  return nullptr;
}

// A model of one side alone keeps the database's comment on a table or its column apart from the
// definition.
MOXId PropertyFor(REPProcessor const& processor, MOXActionSummaryItem const& table) {
  return table.Type() == ORVTypes::oEntity &&
                 processor.GetModelType() != repora::codes::kModelLogicalAndPhysical
             ? ORVTypes::pComment
             : MOXTypes::pDefinition;
}

}  // namespace

REPProcess_e REPComment::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  switch (type_) {
    case REPComment_e::None: break;
    case REPComment_e::Table: return ProcessTable(*processor);
    case REPComment_e::Column: return ProcessColumn(*processor);
    case REPComment_e::Operator:
      processor->DisplaySemantic(REPMessage::UnsupportedStatement, AsString());
      return REPProcessError;
    case REPComment_e::Indextype:
      return ProcessRootItem(*processor, ORVTypes::oScriptTemplate,
                             REPName("CREATE INDEXTYPE " + repora::AsWritten(name_.Get())));
    case REPComment_e::MaterializedView:
      return ProcessRootItem(*processor, ORVTypes::oCachedView, name_ ? *name_ : REPName());
  }
  return REPProcessOK;
}

REPProcess_e REPComment::ProcessTable(REPProcessor& processor) const {
  auto* item = FindTableOrView(processor, name_.Get());
  if (!item) item = processor.FindItemPtrByTypeName(ORVTypes::oOracleCachedViewLog, name_.Get());
  if (!item) {
    DisplayUndefined(processor, ORVTypes::oEntity, name_.Get());
    return REPProcessError;
  }
  repora::SetText(*item, PropertyFor(processor, *item), text_);
  return REPProcessOK;
}

REPProcess_e REPComment::ProcessColumn(REPProcessor& processor) const {
  REPName const table_name(name_ ? name_->GetOwnerName(true) : "");
  REPName const column_name(name_ ? name_->GetName(true) : "");
  auto const* const table = FindTableOrView(processor, &table_name);
  if (!table) {
    DisplayUndefined(processor, ORVTypes::oEntity, &table_name);
    return REPProcessError;
  }
  auto* const column = processor.FindItemPtr(table->Id(), ORVTypes::oAttribute, &column_name);
  if (!column) {
    processor.DisplaySemantic(
        REPMessage::NotFoundIn, processor.GetObjectDisplayString(ORVTypes::oAttribute),
        repora::AsWritten(&column_name), processor.GetObjectDisplayString(table->Type()),
        repora::AsWritten(&table_name));
    return REPProcessError;
  }
  repora::SetText(*column, PropertyFor(processor, *table), text_);
  return REPProcessOK;
}

REPProcess_e REPComment::ProcessRootItem(REPProcessor& processor, MOXId type,
                                         REPName const& name) const {
  if (auto* const item = processor.FindItemPtr(processor.GetRoot(), type, &name))
    repora::SetText(*item, MOXTypes::pDefinition, text_);
  else
    DisplayUndefined(processor, type, &name);
  return REPProcessOK;
}

std::string REPComment::AsString() const {
  return repora::SqlText("COMMENT ON ")
      .Append(Keyword(type_))
      .Clause(" ", name_.Get())
      .Append(" IS '")
      .Append(text_)
      .Append("';")
      .Take();
}
