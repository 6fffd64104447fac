#include "repora/queries/views.h"

#include "repora/core/messages.h"
#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/model/codes.h"
#include "repora/model/item.h"
#include "repora/queries/select.h"
#include "repora/queries/view_columns.h"
#include "repora/queries/view_writer.h"

namespace codes = repora::codes;

REPCreateView::REPCreateView() = default;

REPCreateView::~REPCreateView() = default;

REPProcess_e REPCreateView::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const full_name = repora::AsWritten(name_.Get());
  if (object_view_ || xml_view_) {
    processor->DisplayInformation(REPMessage::OptionUnsupported,
                                  repora::MessageText(REPMessage::WordObjectRelationalXml),
                                  repora::MessageText(REPMessage::WordCreate),
                                  processor->GetObjectDisplayString(ORVTypes::oView), full_name);
    return REPProcessError;
  }
  MOXActionSummaryItem* item = nullptr;
  auto const added = processor->AddItem(processor->GetRoot(), ORVTypes::oView, name_.Get(), item);
  bool const replace = added == REPProcessDuplicate && processor->GetIgnoreDuplicateViews();
  if (added != REPProcessOK && !replace) return added;
  auto& view = *item;
  auto const owner = name_ ? name_->GetOwnerName(false) : std::string();
  repora::SetTextIfGiven(view, ORVTypes::pDBOwner, owner);
  if (!query_) {
    processor->DisplaySemantic(REPMessage::SelectListMissing, full_name);
    return REPProcessError;
  }
  repora::ViewWriter const writer(*processor, view, replace);
  if (replace_) writer.Boolean(ORVTypes::pUseCreateOrReplace, true);
  if (force_ == REPViewForce_e::NoForce) writer.Boolean(ORVTypes::pForceCreate, false);
  if (force_ == REPViewForce_e::Force) writer.Boolean(ORVTypes::pForceCreate, true);
  if (auto const result = query_->ProcessTableList(processor, &view, owner.c_str(), false);
      result != REPProcessOK)
    return result;
  repora::ViewOfQuery const made{*processor, view, name_.Get(), replace};
  if (!repora::KeepSqlIfUnmapped(made, *query_, *this)) {
    if (auto const result = ProcessColumns(made); result != REPProcessOK) return result;
  }
  if (restriction_ == REPSubqueryRestrict_e::None) return REPProcessOK;
  writer.Integer(ORVTypes::pViewWithCheck, restriction_ == REPSubqueryRestrict_e::ReadOnly
                                               ? codes::kViewReadOnly
                                               : codes::kViewCheckOption);
  if (restriction_name_)
    writer.Text(ORVTypes::pOracleConstraint, restriction_name_->AsString(false));
  return REPProcessOK;
}

// The view column by column, with its aliases and constraints.
REPProcess_e REPCreateView::ProcessColumns(repora::ViewOfQuery const& view) const {
  if (auto const result = repora::MakeViewColumns(view, *query_); result != REPProcessOK)
    return result;
  if (auto const count = aliases_.GetCount(); count > 0) {
    if (!repora::AliasesFit(view, count)) return REPProcessError;
    if (auto const result = aliases_.Process(&view.processor, &view.item, view.name);
        result != REPProcessOK)
      return result;
  }
  if (auto const result = constraints_.Process(&view.processor, &view.item, view.name);
      result != REPProcessOK)
    return result;
  repora::WarnOfFlashback(view, *query_);
  return REPProcessOK;
}

REPProcess_e REPViewAliasList::Process(REPProcessor* processor, MOXActionSummaryItem* view,
                                       REPName const* view_name) const {
  if (!processor || !view) return REPProcessError;
  processor->AliasNameListClear();
  for (int i = 0; i < GetCount(); ++i) {
    auto* const column = repora::FindViewColumn(*processor, *view, i);
    if (!column) return REPProcessError;
    if (auto const result = GetAlias(i)->Process(processor, view, view_name, column);
        result != REPProcessOK)
      return result;
  }
  processor->AliasNameListClear();
  return REPProcessOK;
}

REPProcess_e REPViewAlias::Process(REPProcessor* processor, MOXActionSummaryItem* view,
                                   REPName const* view_name, MOXActionSummaryItem* column) const {
  if (!processor || !view || !column) return REPProcessError;
  repora::RenameByAlias(*processor, *view, view_name, name_.Get(), *column);
  return constraints_ ? constraints_->Process(processor, view, view_name, column) : REPProcessOK;
}

REPProcess_e REPAlterView::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto const warn = [&](REPMessage message) {
    processor->DisplayWarning(message, processor->GetObjectDisplayString(ORVTypes::oView),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  };
  auto* const view = processor->FindItemPtr(processor->GetRoot(), ORVTypes::oView, name_.Get());
  if (!view) return warn(REPMessage::AlterTargetMissing);
  switch (kind_) {
    case REPAlterView_e::AddConstraint:
      return constraint_ ? constraint_->Process(processor, view, name_.Get()) : REPProcessOK;
    case REPAlterView_e::ModifyConstraintRely:
    case REPAlterView_e::ModifyConstraintNoRely:
      return constraint_name_ ? SetRely(*processor) : REPProcessOK;
    case REPAlterView_e::DropConstraint:
    case REPAlterView_e::DropPrimaryKey:
    case REPAlterView_e::DropUnique: return warn(REPMessage::AlterDropUnsupported);
    default: return REPProcessOK;
  }
}

// Constraints are known by the owner of their view and their name.
REPProcess_e REPAlterView::SetRely(REPProcessor& processor) const {
  REPName key;
  if (auto const owner = name_->GetOwnerName(false); !owner.empty()) key.AddTail(owner.c_str());
  key.AddTail(constraint_name_->GetFullName(false).c_str());
  if (constraint_name_->IsQuoted()) key.SetQuoted(true);
  auto const id = processor.FindConstraintInConstraintsMap(&key);
  auto const* const constraint = id != 0 ? processor.FindSummaryPtrById(id) : nullptr;
  if (!constraint) return REPProcessError;
  REPName name;
  name.AddTail(constraint->Name());
  auto* state = processor.FindItemPtr(id, ORVTypes::oOracleConstraintState, &name);
  if (!state) {
    auto const result = processor.AddItem(id, ORVTypes::oOracleConstraintState, &name, state);
    if (result != REPProcessOK && result != REPProcessDuplicate) return result;
  }
  repora::SetBoolean(*state, ORVTypes::pRely, kind_ == REPAlterView_e::ModifyConstraintRely);
  return REPProcessOK;
}
