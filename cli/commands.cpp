#include "cli/commands.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "cli/exit_status.h"
#include "cli/files.h"
#include "cli/interrupt.h"
#include "cli/message_printer.h"
#include "cli/progress.h"
#include "cli/read_ahead.h"
#include "cli/redaction.h"
#include "cli/scripts.h"
#include "export/json_export.h"
#include "export/report.h"

namespace repora::cli {
namespace {

using exporter::MessageKind;

constexpr std::size_t kRenderPiece = std::size_t{64} * 1024;

// Shows messages and progress on standard error, counts the messages and, on demand, keeps them.
class Console final : public SessionObserver {
 public:
  explicit Console(Options const& options)
      : style_(UsesColor(options.color, stderr)),
        bar_(options.progress && !options.quiet && IsTerminal(stderr)),
        keeps_messages_(!options.json.empty()) {}

  void OnMessage(exporter::Message const& message, reader::Source const* source,
                 std::size_t offset) override {
    bar_.Hide();
    auto const text = MessageText(message, source, offset, style_);
    std::fwrite(text.data(), 1, text.size(), stderr);
    counts_.Add(message.kind);
    if (keeps_messages_) messages_.push_back(message);
  }
  void OnProgress(char const* what, std::size_t done, std::size_t total) override {
    bar_.Show(what, done, total);
  }

  void HideProgress() { bar_.Hide(); }
  exporter::MessageCounts const& Counts() const { return counts_; }
  std::vector<exporter::Message> const& Messages() const { return messages_; }

 private:
  Style style_;
  ProgressBar bar_;
  bool keeps_messages_;
  exporter::MessageCounts counts_;
  std::vector<exporter::Message> messages_;
};

int StatusOf(exporter::MessageCounts const& messages, std::size_t unread, bool strict) {
  auto const any = [&](std::initializer_list<MessageKind> kinds) {
    for (auto const kind : kinds)
      if (messages.Of(kind) > 0) return true;
    return false;
  };
  bool const incomplete =
      unread > 0 || any({MessageKind::Error, MessageKind::Unsupported, MessageKind::Syntax});
  bool const imperfect =
      any({MessageKind::Warning, MessageKind::Semantic, MessageKind::Duplicate, MessageKind::Note});
  return incomplete || (strict && imperfect) ? kExitIncomplete : kExitDone;
}

// Runs the session so that Ctrl-C stops it.
void RunUntilInterrupted(ImportSession& session, PieceFeed const& feed,
                         InterruptWatch& interrupts) {
  interrupts.SetAction([&] { session.Stop(); });
  bool const complete = session.Run(feed);
  interrupts.ClearAction();
  interrupts.ThrowIfInterrupted();
  if (!complete) throw std::logic_error("the run ended before its time");
}

bool IsSameFile(std::string const& a, std::string const& b) {
  std::error_code error;
  return a == b || std::filesystem::equivalent(a, b, error);
}

// Outputs must not overwrite each other, and least of all a script.
void RefuseOverwriting(Options const& options) {
  if (options.json == kStandardStream && options.summary == kStandardStream)
    throw std::runtime_error("--json and --summary cannot both go to standard output");
  if (!options.json.empty() && IsSameFile(options.json, options.summary))
    throw std::runtime_error("--json and --summary both name '" + options.json + "'");
  for (auto const& output : {options.json, options.summary})
    for (auto const& script : options.scripts)
      if (!output.empty() && output != kStandardStream && IsSameFile(output, script))
        throw std::runtime_error("'" + output +
                                 "' is one of the scripts; name another output file");
}

// The program is about to end, and the system takes back a large model faster than its destructors
// would piece by piece. Sanitizers would take it for a leak.
void KeepToTheEnd([[maybe_unused]] std::unique_ptr<ImportSession> session) {
#ifndef REPORA_SANITIZED
  [[maybe_unused]] static ImportSession* kept;
  kept = session.release();
#endif
}

}  // namespace

int RunImport(Options const& options, InterruptWatch& interrupts) {
  RefuseOverwriting(options);
  // Before the work, so that a place that cannot be written to is known early.
  std::optional<OutputFile> json;
  std::optional<OutputFile> summary;
  std::optional<WritablePath> summary_path;
  if (!options.json.empty()) json.emplace(options.json);
  if (!options.summary.empty()) summary_path.emplace(summary.emplace(options.summary));

  Console console(options);
  auto scripts = LoadScripts(options.scripts, interrupts);
  auto settings = options.settings;
  settings.script_bytes = scripts.Size();
  auto const names = scripts.Names();
  if (summary_path) settings.summary_file = summary_path->Path();
  reader::ReadResult result;
  ReadAhead reading([&](ReadAhead::HandOver const& hand_over) {
    ReadScripts(std::move(scripts), options.include_folders, options.defines, interrupts, hand_over,
                result);
  });
  auto const feed = [&](reader::ReadPiece& piece) {
    if (!reading.Next(piece)) return false;
    if (options.redact) RedactPasswords(piece);
    return true;
  };
  auto owned_session = std::make_unique<ImportSession>(settings, console);
  auto& session = *owned_session;
  auto& ledger = session.Ledger();
  ledger.SetScripts(names);
  if (json) ledger.KeepDetails();
  RunUntilInterrupted(session, feed, interrupts);
  console.HideProgress();

  if (summary_path) summary_path->Finish();
  if (json)
    exporter::WriteJson(session.Statements(), console.Messages(), session.Model(), session.Loaded(),
                        ledger, [&](std::string_view piece) {
                          interrupts.ThrowIfInterrupted();
                          json->Write(piece);
                          return true;
                        });
  if (json) json->Commit();
  if (summary) summary->Commit();

  bool const output_is_data = options.json == kStandardStream || options.summary == kStandardStream;
  auto* const stream = output_is_data ? stderr : stdout;
  bool const bold = UsesColor(options.color, stream);
  std::string report;
  if (options.ledger) report += exporter::LedgerText(ledger, bold);
  if (!options.quiet)
    report +=
        exporter::ReportText(ledger, console.Counts(), session.Model(), session.Loaded(), bold);
  if (output_is_data)
    std::fwrite(report.data(), 1, report.size(), stderr);
  else
    OutputFile(std::string(kStandardStream)).Write(report);
  bool const any_left = ledger.Total().clauses.Of(exporter::Fate::Left) > 0;
  KeepToTheEnd(std::move(owned_session));
  if (options.strict && any_left) return kExitIncomplete;
  return StatusOf(console.Counts(), result.unread, options.strict);
}

int RunRender(Options const& options, InterruptWatch& interrupts) {
  Console console(options);
  OutputFile output{std::string(kStandardStream)};
  std::string text;
  auto const write = [&] {
    interrupts.ThrowIfInterrupted();
    output.Write(text);
    text.clear();
  };
  reader::ReadResult result;
  ReadScripts(
      LoadScripts(options.scripts, interrupts), options.include_folders, options.defines,
      interrupts,
      [&](reader::ReadPiece piece) {
        if (options.redact) RedactPasswords(piece);
        TellDiagnostics(piece, console);
        for (auto const& statement : piece.statements) {
          text.append(statement.object->AsString()).append("\n/\n");
          if (text.size() >= kRenderPiece) write();
        }
      },
      result);
  write();
  return StatusOf(console.Counts(), result.unread, options.strict);
}

}  // namespace repora::cli
