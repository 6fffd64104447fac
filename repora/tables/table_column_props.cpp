#include "repora/tables/table_column_props.h"

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"
#include "repora/storage/lob_partitions.h"
#include "repora/tables/object_columns.h"

using repora::TextOf;

REPTableColumnProp::REPTableColumnProp() = default;

REPTableColumnProp::~REPTableColumnProp() = default;

REPProcess_e REPTableColumnProp::Process(REPProcessor* processor,
                                         MOXActionSummaryItem* entity) const {
  if (!processor || !entity) return REPProcessError;
  if (object_ || nested_ || varray_)
    processor->DisplayInformation(
        REPMessage::OptionUnsupported, repora::MessageText(REPMessage::WordColumnProperties),
        repora::MessageText(REPMessage::WordCreate),
        processor->GetObjectDisplayString(ORVTypes::oEntity), entity->Name());
  if (lob_storage_) {
    if (auto const result = lob_storage_->Process(processor, entity, entity);
        result != REPProcessOK)
      return result;
  }
  return lob_partitions_ ? lob_partitions_->Process(processor, entity) : REPProcessOK;
}

std::string REPTableColumnProp::AsString() const {
  return repora::SqlText()
      .Part(TextOf(object_.Get()))
      .Part(TextOf(nested_.Get()))
      .Part(TextOf(varray_.Get()))
      .Part(TextOf(lob_storage_.Get()))
      .Part(lob_partitions_ ? lob_partitions_->AsString(true) : std::string())
      .Take();
}

REPProcess_e REPTableColumnPropList::Process(REPProcessor* processor,
                                             MOXActionSummaryItem* entity) const {
  return clauses_.ProcessAll(
      [&](REPTableColumnProp const& property) { return property.Process(processor, entity); },
      repora::ListRule::SkipDuplicates);
}

std::string REPTableColumnPropList::AsString(bool comma_separated) const {
  return Join(comma_separated ? ", " : " ", false);
}
