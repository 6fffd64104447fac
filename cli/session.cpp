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

constexpr std::string_view kOk = "ok";

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

constexpr exporter::Fate FateOf(reader::Fate fate) {
  switch (fate) {
    case reader::Fate::Held: return exporter::Fate::Held;
    case reader::Fate::Text: return exporter::Fate::Text;
    case reader::Fate::Rendered: return exporter::Fate::Rendered;
    case reader::Fate::Left: break;
  }
  return exporter::Fate::Left;
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
  if (running_) AccountFor(counts_.read);
  running_ = false;
  while (next_statement_ == piece_.statements.size())
    if (!NextPiece()) return nullptr;
  running_ = true;
  result_ = kOk;
  keeps_sql_ = false;
  left_behind_.clear();
  ++counts_.read;
  TellDiagnosticsBefore(counts_.read);
  return piece_.statements[next_statement_++].object.release();
}

// The feed deletes it, with the rest of the piece, where it was made.
void ImportSession::TakeBack(REPStatement* statement) {
  piece_.statements[next_statement_ - 1].object.reset(statement);
}

bool ImportSession::NextPiece() {
  TellDiagnosticsBefore(kEndOfPiece);
  AccountFor(kEndOfPiece);
  done_bytes_ += piece_.bytes;
  observer_.OnProgress("bytes", done_bytes_, total_bytes_);
  next_statement_ = next_diagnostic_ = next_trace_ = 0;
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
      result_ = "duplicate";
      Tell(MessageKind::Duplicate, notification);
      break;
    case eRENotifyUnsupported:
      ++counts_.unsupported;
      result_ = "unsupported";
      Tell(MessageKind::Unsupported, notification);
      break;
    case eRENotifyInformation: Tell(MessageKind::Information, notification); break;
    case eRENotifyWarning:
      NoteLoss(notification.code_text ? notification.code_text : "");
      Tell(MessageKind::Warning, notification);
      break;
    case eRENotifySemantic:
      if (notification.code_text && notification.code_text == kFailureCode) {
        ++counts_.error;
        result_ = "error";
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

// A warning says what of a statement did not come into the model, but for three that say how it
// came there.
void ImportSession::NoteLoss(std::string_view code) {
  if (code == "REP-4") return;
  if (code == "REP-8" || code == "REP-9")
    keeps_sql_ = true;
  else
    left_behind_.push_back(*codes_.emplace(code).first);
}

// Counts the clauses of the statements up to the one of that number.
void ImportSession::AccountFor(std::size_t statement) {
  auto const& traces = piece_.traces;
  for (; next_trace_ < traces.size(); ++next_trace_) {
    auto const& trace = traces[next_trace_];
    if (trace.statement > statement) break;
    AccountFor(trace);
    if (trace.statement == statement) {
      ++next_trace_;
      break;
    }
  }
}

void ImportSession::AccountFor(reader::StatementTrace const& trace) {
  using exporter::Fate;
  auto const place = [&](std::size_t offset) {
    auto const position = trace.source->PositionOf(offset);
    return exporter::Place{trace.source->Name(), position.line, position.column};
  };
  auto const add = [&](std::string_view clause, Fate fate, std::size_t words, std::size_t offset) {
    auto const row = ledger_.RowOf(trace.kind, clause);
    ledger_.Add(row, fate, words,
                ledger_.WantsPlace(row, fate) ? place(offset) : exporter::Place());
  };
  auto const result = trace.reading == reader::Reading::Read     ? result_
                      : trace.reading == reader::Reading::Unread ? "unread"
                                                                 : "outside";
  ledger_.StartStatement(trace.source->Script(), result,
                         ledger_.KeepsDetails() ? place(trace.offset) : exporter::Place());
  if (trace.reading != reader::Reading::Read) return add({}, Fate::Left, trace.words, trace.offset);
  for (std::size_t i = 0; i < trace.clauses; ++i) {
    auto const& clause = piece_.clauses[trace.first_clause + i];
    auto fate = FateOf(clause.fate);
    if (keeps_sql_ && clause.in_query && fate == Fate::Held) fate = Fate::Text;
    if (result_ == "unsupported" && fate != Fate::Left) fate = Fate::Rendered;
    if (result_ == "duplicate" || result_ == "error") fate = Fate::Left;
    add(i == 0 ? std::string_view() : clause.name, fate, clause.words, clause.offset);
  }
  if (result_ == kOk)
    for (auto const code : left_behind_) add(code, Fate::Left, 0, trace.offset);
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
