#include "cli/session.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace repora::cli {
namespace {

using exporter::Message;
using exporter::MessageKind;

// The code of the run's own report of a failed statement.
constexpr std::string_view kFailureCode = "--------->";

constexpr std::size_t kEndOfPiece = std::numeric_limits<std::size_t>::max();

MemoryModelOptions OptionsOf(ImportSettings const& settings) {
  MemoryModelOptions options;
  options.model_type = settings.model_type;
  return options;
}

Message MessageAt(reader::Source const& source, std::size_t offset) {
  Message message;
  message.file = source.Name();
  auto const position = source.PositionOf(offset);
  message.line = position.line;
  message.column = position.column;
  return message;
}

void Tell(reader::Diagnostic const& diagnostic, SessionObserver& observer) {
  auto message = MessageAt(*diagnostic.source, diagnostic.offset);
  message.kind =
      diagnostic.kind == reader::DiagnosticKind::Syntax ? MessageKind::Syntax : MessageKind::Note;
  message.text = diagnostic.text;
  message.statement = diagnostic.statement;
  observer.OnMessage(message, diagnostic.source, diagnostic.offset);
}

}  // namespace

void TellDiagnostics(reader::ReadPiece const& piece, SessionObserver& observer) {
  for (auto const& diagnostic : piece.diagnostics) Tell(diagnostic, observer);
}

ImportSession::ImportSession(ImportSettings const& settings, SessionObserver& observer)
    : observer_(observer),
      model_(OptionsOf(settings)),
      processor_(CreateByName<REPProcessor>("REPOracleProcessor")),
      total_bytes_(settings.script_bytes) {
  processor_->SetModelSet(&model_);
  processor_->SetNotifyWnd(this);
  processor_->SetLogicalCase(settings.logical_case);
  processor_->SetPhysicalCase(settings.physical_case);
  processor_->SetIgnoreDuplicateViews(settings.ignore_duplicate_views);
  processor_->SetSummaryFilename(settings.summary_file.c_str());
  loaded_.highest_id = model_.HighestId();
}

bool ImportSession::Run(PieceFeed feed) {
  feed_ = std::move(feed);
  processor_->SetStatementSource(this);
  bool const complete = processor_->Process();
  if (failure_) std::rethrow_exception(failure_);
  counts_.ok = counts_.read - counts_.duplicate - counts_.unsupported - counts_.error;
  return complete;
}

// The next statement, once all that the reader has to say in front of it is told.
REPStatement* ImportSession::Next() {
  running_ = false;
  while (next_statement_ == piece_.statements.size())
    if (!NextPiece()) return nullptr;
  running_ = true;
  ++counts_.read;
  TellDiagnosticsBefore(counts_.read);
  return piece_.statements[next_statement_++].object.release();
}

bool ImportSession::NextPiece() {
  TellDiagnosticsBefore(kEndOfPiece);
  done_bytes_ += piece_.bytes;
  observer_.OnProgress("bytes", done_bytes_, total_bytes_);
  piece_ = {};
  next_statement_ = next_diagnostic_ = 0;
  try {
    if (!feed_(piece_)) return false;
  } catch (...) {
    // The processor is not made to be left in the midst of a run.
    failure_ = std::current_exception();
    processor_->Stop();
    return false;
  }
  for (auto const& trace : piece_.traces) {
    if (trace.reading == reader::Reading::Unread) ++counts_.unread;
    if (trace.reading == reader::Reading::Outside) ++counts_.outside;
  }
  return true;
}

// Notes in a statement are told when it is done.
void ImportSession::TellDiagnosticsBefore(std::size_t statement) {
  auto const& diagnostics = piece_.diagnostics;
  for (; next_diagnostic_ < diagnostics.size() &&
         diagnostics[next_diagnostic_].before + (diagnostics[next_diagnostic_].statement ? 1 : 0) <
             statement;
       ++next_diagnostic_)
    cli::Tell(diagnostics[next_diagnostic_], observer_);
}

void ImportSession::OnNotify(REPNotification const& notification) {
  auto const count = static_cast<std::size_t>(std::max(notification.count, 0));
  switch (notification.kind) {
    case eRENotifyBegin:
    case eRENotifyProgress: break;
    case eRENotifyDuplicate:
      ++counts_.duplicate;
      Tell(MessageKind::Duplicate, notification);
      break;
    case eRENotifyUnsupported:
      ++counts_.unsupported;
      Tell(MessageKind::Unsupported, notification);
      break;
    case eRENotifyInformation: Tell(MessageKind::Information, notification); break;
    case eRENotifyWarning: Tell(MessageKind::Warning, notification); break;
    case eRENotifySemantic:
      if (notification.code_text && notification.code_text == kFailureCode) {
        ++counts_.error;
        Tell(MessageKind::Error, notification);
      } else {
        Tell(MessageKind::Semantic, notification);
      }
      break;
    case eRENotifyBuildTotal: build_total_ = count; break;
    case eRENotifyBuildPosition: observer_.OnProgress("model", count, build_total_); break;
    case eRENotifyAdvisories: TellAdvisories(); break;
  }
}

void ImportSession::Tell(MessageKind kind, REPNotification const& notification) {
  auto const* const place = running_ ? &piece_.statements[next_statement_ - 1] : nullptr;
  auto message = place ? MessageAt(*place->source, place->offset) : Message();
  message.kind = kind;
  message.code = notification.code_text ? notification.code_text : "";
  message.text = notification.message_text ? notification.message_text : "";
  message.statement = place ? counts_.read : 0;
  observer_.OnMessage(message, place ? place->source : nullptr, place ? place->offset : 0);
}

// What the build found out about the model as a whole.
void ImportSession::TellAdvisories() {
  std::vector<MOXAdvisory> advisories;
  model_.GetAdvisoryChannel()->GetAdvisories(advisories);
  for (auto const& advisory : advisories) {
    Message message;
    message.kind = advisory.Severity() == MOXAdvisory::eInformation ? MessageKind::Information
                                                                    : MessageKind::Warning;
    message.code = advisory.Code();
    message.text = advisory.Message();
    observer_.OnMessage(message, nullptr, 0);
  }
}

}  // namespace repora::cli
