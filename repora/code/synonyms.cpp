#include "repora/code/synonyms.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"
#include "repora/model/item.h"

// The synonym becomes a child of its target when the script or the model knows the target;
// otherwise it keeps the target's name.
REPProcess_e REPCreateSynonym::AddSynonymItem(REPProcessor* processor,
                                              MOXActionSummaryItem*& synonym) const {
  auto const root = processor->GetRoot();
  if (!link_) {
    if (auto const* const target = processor->FindItemPtrByName(object_.Get()))
      return processor->AddItem(target->Id(), ORVTypes::oSynonym, synonym_.Get(), synonym);
  }
  auto const link =
      link_ ? processor->FindCreateItem(root, ORVTypes::oOracleDatabaseLink, link_.Get()) : 0;
  if (auto const result = processor->AddItem(root, ORVTypes::oSynonym, synonym_.Get(), synonym);
      result != REPProcessOK)
    return result;
  if (link_) repora::SetReference(*synonym, ORVTypes::pOracleDatabaseLinkRef, link);
  repora::SetText(*synonym, ORVTypes::pObjectName, object_->GetName(false));
  repora::SetTextIfGiven(*synonym, ORVTypes::pObjectOwner, object_->GetOwnerName(false));
  return REPProcessOK;
}

REPProcess_e REPCreateSynonym::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  if (!object_) return REPProcessError;
  if (processor->FindSynonymDuplicatePtr(synonym_.Get())) return REPProcessDuplicate;
  MOXActionSummaryItem* synonym = nullptr;
  if (auto const result = AddSynonymItem(processor, synonym); result != REPProcessOK) return result;
  repora::SetOwnerOf(*synonym, synonym_.Get());
  if (public_) repora::SetBoolean(*synonym, ORVTypes::pOracleSynPublic, true);
  if (replace_) repora::SetBoolean(*synonym, ORVTypes::pUseCreateOrReplace, true);
  return REPProcessOK;
}

std::string REPCreateSynonym::AsString() const {
  return repora::SqlText("CREATE ")
      .AppendIf(replace_, "OR REPLACE ")
      .AppendIf(public_, "PUBLIC ")
      .Append("SYNONYM ")
      .Name(synonym_.Get())
      .Append(" FOR ")
      .Name(object_.Get())
      .Clause("@", repora::AsWritten(link_.Get()))
      .Append(";")
      .Take();
}
