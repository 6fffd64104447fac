#include "cli/session.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace repora::cli {
namespace {

using exporter::Message;
using exporter::MessageKind;

// The code of the run's own report of a failed statement.
constexpr std::string_view kFailureCode = "--------->";

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

Message ToMessage(reader::Diagnostic const& diagnostic, reader::Source const& source) {
  auto message = MessageAt(source, diagnostic.offset);
  message.kind =
      diagnostic.kind == reader::DiagnosticKind::Syntax ? MessageKind::Syntax : MessageKind::Note;
  message.text = diagnostic.text;
  message.statement = diagnostic.statement;
  return message;
}

// Places in the order of the text: 2n-1 is before statement n (counted from 1), 2n is in it, behind
// its first word, where messages about the statement as a whole stand.
constexpr std::size_t PlaceBefore(std::size_t statement) {
  return 2 * statement - 1;
}
constexpr std::size_t PlaceIn(std::size_t statement) {
  return 2 * statement;
}
constexpr std::size_t kEndOfScript = std::numeric_limits<std::size_t>::max();

// The place of each diagnostic. The reader tells them in the order of the text, as the statements
// are; those that belong to no statement find their place by the statements around them in the same
// source.
std::vector<std::size_t> PlaceDiagnostics(reader::ReadResult const& script) {
  // Per source the numbers of its statements; their offsets ascend.
  std::vector<std::vector<std::size_t>> statements_of(script.sources.size());
  for (std::size_t i = 0; i < script.statements.size(); ++i)
    statements_of[script.statements[i].source].push_back(i + 1);

  auto const place_of = [&](reader::Diagnostic const& diagnostic) -> std::size_t {
    if (diagnostic.statement != 0) return PlaceIn(diagnostic.statement);
    auto const& numbers = statements_of[diagnostic.source];
    auto const behind =
        std::partition_point(numbers.begin(), numbers.end(), [&](std::size_t number) {
          return script.statements[number - 1].offset < diagnostic.offset;
        });
    if (behind != numbers.begin()) return PlaceBefore(*(behind - 1) + 1);
    return behind == numbers.end() ? 0 : PlaceBefore(*behind);
  };

  std::vector<std::size_t> places;
  places.reserve(script.diagnostics.size());
  std::size_t last = 0;
  for (auto const& diagnostic : script.diagnostics) {
    last = std::max(last, place_of(diagnostic));
    places.push_back(last);
  }
  return places;
}

}  // namespace

void TellDiagnostics(reader::ReadResult const& script, SessionObserver& observer) {
  for (auto const& diagnostic : script.diagnostics) {
    auto const& source = *script.sources[diagnostic.source];
    observer.OnMessage(ToMessage(diagnostic, source), &source, diagnostic.offset);
  }
}

ImportSession::ImportSession(ImportSettings const& settings, reader::ReadResult& script,
                             SessionObserver& observer)
    : script_(script),
      observer_(observer),
      model_(OptionsOf(settings)),
      processor_(CreateByName<REPProcessor>("REPOracleProcessor")),
      diagnostic_places_(PlaceDiagnostics(script)) {
  processor_->SetModelSet(&model_);
  processor_->SetNotifyWnd(this);
  processor_->SetLogicalCase(settings.logical_case);
  processor_->SetPhysicalCase(settings.physical_case);
  processor_->SetIgnoreDuplicateViews(settings.ignore_duplicate_views);
  processor_->SetSummaryFilename(settings.summary_file.c_str());
  loaded_.highest_id = model_.HighestId();
  counts_.read = script.statements.size();
  counts_.unread = script.unread;
  counts_.outside = script.outside;
}

bool ImportSession::Run() {
  for (auto& statement : script_.statements) processor_->AddStatement(statement.object.release());
  bool const complete = processor_->Process();
  if (complete) TellDiagnosticsUpTo(kEndOfScript);
  counts_.ok = done_ - counts_.duplicate - counts_.unsupported - counts_.error;
  return complete;
}

// The run reports on a statement after it has counted it; what the statement says itself comes
// before.
void ImportSession::OnNotify(REPNotification const& notification) {
  auto const count = static_cast<std::size_t>(std::max(notification.count, 0));
  switch (notification.kind) {
    case eRENotifyBegin: break;
    case eRENotifyProgress:
      done_ = count;
      TellDiagnosticsUpTo(PlaceBefore(done_));
      observer_.OnProgress("statements", done_, counts_.read);
      break;
    case eRENotifyDuplicate:
      ++counts_.duplicate;
      Tell(MessageKind::Duplicate, notification, done_);
      break;
    case eRENotifyUnsupported:
      ++counts_.unsupported;
      Tell(MessageKind::Unsupported, notification, done_);
      break;
    case eRENotifyInformation: Tell(MessageKind::Information, notification, done_ + 1); break;
    case eRENotifyWarning: Tell(MessageKind::Warning, notification, done_ + 1); break;
    case eRENotifySemantic:
      if (notification.code_text && notification.code_text == kFailureCode) {
        ++counts_.error;
        Tell(MessageKind::Error, notification, done_);
      } else {
        Tell(MessageKind::Semantic, notification, done_ + 1);
      }
      break;
    case eRENotifyBuildTotal: build_total_ = count; break;
    case eRENotifyBuildPosition: observer_.OnProgress("model", count, build_total_); break;
    case eRENotifyAdvisories: TellAdvisories(); break;
  }
}

void ImportSession::Tell(MessageKind kind, REPNotification const& notification,
                         std::size_t statement) {
  TellDiagnosticsUpTo(PlaceBefore(statement));
  auto const* const place = statement >= 1 && statement <= script_.statements.size()
                                ? &script_.statements[statement - 1]
                                : nullptr;
  auto const* const source = place ? script_.sources[place->source].get() : nullptr;
  auto message = source ? MessageAt(*source, place->offset) : Message();
  message.kind = kind;
  message.code = notification.code_text ? notification.code_text : "";
  message.text = notification.message_text ? notification.message_text : "";
  message.statement = place ? statement : 0;
  observer_.OnMessage(message, source, place ? place->offset : 0);
}

void ImportSession::TellDiagnosticsUpTo(std::size_t place) {
  for (; next_diagnostic_ < script_.diagnostics.size() &&
         diagnostic_places_[next_diagnostic_] <= place;
       ++next_diagnostic_) {
    auto const& diagnostic = script_.diagnostics[next_diagnostic_];
    auto const& source = *script_.sources[diagnostic.source];
    observer_.OnMessage(ToMessage(diagnostic, source), &source, diagnostic.offset);
  }
}

// What the build found out about the model as a whole.
void ImportSession::TellAdvisories() {
  TellDiagnosticsUpTo(kEndOfScript);
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
