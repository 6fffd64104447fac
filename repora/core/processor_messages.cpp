#include "repora/core/messages.h"
#include "repora/core/processor_state.h"

void REPProcessor::DisplayInformation(unsigned id, char const* a1, char const* a2, char const* a3,
                                      char const* a4) {
  NotifyMessage(eRENotifyInformation, id, a1, a2, a3, a4);
}

void REPProcessor::DisplayWarning(unsigned id, char const* a1, char const* a2, char const* a3,
                                  char const* a4) {
  NotifyMessage(eRENotifyWarning, id, a1, a2, a3, a4);
}

void REPProcessor::DisplaySemantic(unsigned id, char const* a1, char const* a2, char const* a3,
                                   char const* a4) {
  NotifyMessage(eRENotifySemantic, id, a1, a2, a3, a4);
}

void REPProcessor::NotifyMessage(eRENotify kind, unsigned id, char const* a1, char const* a2,
                                 char const* a3, char const* a4) {
  auto const code = "REP-" + std::to_string(id);
  auto const message = repora::FormatMessage(repora::MessageText(id), {a1, a2, a3, a4});
  NotifyWindow(kind, 0, code.c_str(), message.c_str());
}

void REPProcessor::NotifyWindow(eRENotify kind, int count, char const* code_text,
                                char const* message_text) {
  if (auto* const window = state_->notify_wnd) {
    state_->notification = {window, 0, 0, kind, count, 0, code_text, message_text};
    window->OnNotify(state_->notification);
    return;
  }
  bool const is_message = kind >= eRENotifyDuplicate && kind <= eRENotifySemantic;
  auto* const channel = state_->model_set ? state_->model_set->GetAdvisoryChannel() : nullptr;
  if (!is_message || !channel) return;
  auto const severity =
      kind == eRENotifyInformation ? MOXAdvisory::eInformation : MOXAdvisory::eWarning;
  long told = 0;
  long held = 0;
  long dropped = 0;
  channel->Publish(
      MOXAdvisory(code_text ? code_text : "", severity, message_text ? message_text : ""), told,
      held, dropped);
}
