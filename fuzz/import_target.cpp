#include "fuzz/import_target.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/message_printer.h"
#include "cli/redaction.h"
#include "cli/session.h"
#include "export/json_export.h"
#include "export/ledger.h"
#include "export/report.h"
#include "reader/script_reader.h"
#include "repora/core/processor.h"
#include "repora/model/codes.h"

namespace repora::fuzz {
namespace {

constexpr char kTextSeparator = '\x1E';
constexpr std::size_t kIncludeLimit = 40;  // files that one run includes

// What the first two bytes say. Their two upper bits count for nothing, so that "@@" stands for
// the defaults and other settings can be written as letters.
struct Settings {
  cli::ImportSettings import;
  bool redacts = false;
  bool defines = false;   // X, Y, 1 and EMPTY have values
  bool includes = false;  // the texts behind the first are files for it to include
  bool runs_twice = false;
  bool exports = false;

  explicit Settings(std::string_view bytes) {
    if (bytes.size() < 2) return;
    auto const first = static_cast<unsigned char>(bytes[0]);
    auto const second = static_cast<unsigned char>(bytes[1]);
    import.logical_case = static_cast<eREPLogical>(first & 3U);
    import.physical_case = static_cast<eREPPhysical>((first >> 2U & 3U) % 3U);
    import.ignore_duplicate_views = (first & 16U) != 0;
    redacts = (first & 32U) != 0;
    constexpr std::array kTypes = {codes::kModelLogicalAndPhysical, codes::kModelLogical,
                                   codes::kModelPhysical, codes::kModelLogicalAndPhysical};
    import.model_type = kTypes[second & 3U];
    defines = (second & 4U) != 0;
    includes = (second & 8U) != 0;
    runs_twice = (second & 16U) != 0;
    exports = (second & 32U) != 0;
  }
};

void Require(bool holds, char const* promise) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", promise);
  std::abort();
}

std::vector<std::string> TextsOf(std::string_view input) {
  std::vector<std::string> texts;
  for (;;) {
    auto const end = input.find(kTextSeparator);
    texts.emplace_back(input.substr(0, end));
    if (end == std::string_view::npos) return texts;
    input.remove_prefix(end + 1);
  }
}

struct Reading {
  reader::ReadResult result;  // owns the sources of the pieces
  std::vector<reader::ReadPiece> pieces;
};

// Reads the texts as the scripts of one run, or the first as a script that may include the others,
// which are found under any name.
Reading Read(std::vector<std::string> const& texts, Settings const& settings) {
  Reading reading;
  reader::ReadOptions options;
  options.hand_over = [&](reader::ReadPiece piece) { reading.pieces.push_back(std::move(piece)); };
  if (settings.defines)
    options.defines = {
        {"X", "scott"}, {"Y", "NUMBER(5) DEFAULT '"}, {"1", "t1; -- "}, {"EMPTY", ""}};
  std::size_t included = 0;
  if (settings.includes)
    options.include = [&](reader::ReadOptions::Request const& request)
        -> std::optional<reader::ReadOptions::Included> {
      if (texts.size() < 2 || ++included > kIncludeLimit) return std::nullopt;
      std::size_t sum = request.beside ? request.from.size() : 0;
      for (auto const c : request.name) sum += static_cast<unsigned char>(c);
      auto const number = 1 + sum % (texts.size() - 1);
      return reader::ReadOptions::Included{"text" + std::to_string(number), texts[number]};
    };
  auto const scripts = settings.includes ? 1 : texts.size();
  for (std::size_t i = 0; i < scripts; ++i)
    reader::ReadScript("script" + std::to_string(i), texts[i], options, reading.result);
  return reading;
}

// Hears the messages of a run and prints them as the program does, but to nowhere.
class Listener final : public cli::SessionObserver {
 public:
  void OnMessage(exporter::Message const& message, reader::Source const* source,
                 std::size_t offset) override {
    counts.Add(message.kind);
    auto const text = cli::MessageText(message, source, offset, cli::Style(false));
    for (auto const c : text)
      Require(c == '\n' || static_cast<unsigned char>(c) >= ' ', "messages hold no control codes");
    messages.push_back(message);
  }

  exporter::MessageCounts counts;
  std::vector<exporter::Message> messages;
};

class DeafWindow final : public REPNotifyWnd {
 public:
  void OnNotify(REPNotification const& /*notification*/) override {}
};

// Offsets are within their source and do not descend there.
class OrderCheck {
 public:
  void Take(reader::Source const* source, std::size_t offset, char const* promise) {
    Require(source && offset <= source->Text().size(), "what is told stands in a script");
    auto& before = last_[source];
    Require(before <= offset, promise);
    before = offset;
  }

 private:
  std::map<reader::Source const*, std::size_t> last_;
};

// What others rely on.
void Check(Reading const& reading) {
  OrderCheck statements;
  OrderCheck diagnostics;
  OrderCheck traces;
  std::size_t read = 0;
  std::size_t traced = 0;
  for (auto const& piece : reading.pieces) {
    for (auto const& one : piece.statements)
      statements.Take(one.source, one.offset, "statements come in the order of the text");
    read += piece.statements.size();
    for (auto const& one : piece.diagnostics) {
      diagnostics.Take(one.source, one.offset, "messages come in the order of the text");
      Require(one.statement <= read && one.before <= read, "messages name a statement");
    }
    for (auto const& one : piece.traces) {
      traces.Take(one.source, one.offset, "the account comes in the order of the text");
      std::size_t words = 0;
      for (std::size_t i = 0; i < one.clauses; ++i)
        words += piece.clauses.at(one.first_clause + i).words;
      Require(one.reading != reader::Reading::Read || words == one.words,
              "the clauses of a statement hold all its words");
    }
    traced += piece.traces.size();
  }
  auto const& result = reading.result;
  Require(read == result.read, "all statements are handed over");
  Require(traced == result.read + result.unread + result.outside,
          "all statements are accounted for");
}

std::string Render(Reading const& reading) {
  std::string rendered;
  for (auto const& piece : reading.pieces)
    for (auto const& statement : piece.statements)
      rendered.append(statement.object->AsString()).append("\n/\n");
  return rendered;
}

void Export(cli::ImportSession& session, Listener const& listener) {
  std::string json;
  exporter::WriteJson(session.Statements(), listener.messages, session.Model(), session.Loaded(),
                      session.Ledger(), [&](std::string_view piece) {
                        json += piece;
                        return true;
                      });
  Require(nlohmann::json::accept(json), "the JSON of any script is valid");
  exporter::LedgerText(session.Ledger(), false);
  exporter::ReportText(session.Ledger(), listener.counts, session.Model(), session.Loaded(), false);
}

}  // namespace

void ImportBytes(std::string_view input) {
  Settings const settings(input);
  auto const texts = TextsOf(input.substr(input.size() < 2 ? 0 : 2));
  auto script = Read(texts, settings);
  Check(script);
  if (settings.redacts)
    for (auto& piece : script.pieces) cli::RedactPasswords(piece);
  auto rendered = Render(script);

  Listener listener;
  cli::ImportSession session(settings.import, listener);
  session.Ledger().SetScripts({"script0"});
  if (settings.exports) session.Ledger().KeepDetails();
  std::size_t next = 0;
  Require(session.Run([&](reader::ReadPiece& piece) {
    if (next == script.pieces.size()) return false;
    piece = std::move(script.pieces[next++]);
    return true;
  }),
          "a run that nobody stops is complete");
  auto const& counts = session.Statements();
  auto const failed = counts.duplicate + counts.unsupported + counts.error;
  Require(counts.read == script.result.read && failed <= counts.read &&
              counts.ok == counts.read - failed,
          "every statement has one result");
  auto const total = session.Ledger().Total().statements;
  Require(total.read == counts.read && total.unread == counts.unread &&
              total.outside == counts.outside && total.error == counts.error,
          "the ledger counts all statements");
  if (settings.exports) Export(session, listener);

  auto again = Read({std::move(rendered)}, Settings({}));
  if (!settings.runs_twice) return;
  DeafWindow window;
  REPOracleProcessor processor;
  processor.SetModelSet(&session.Model());
  processor.SetNotifyWnd(&window);
  for (auto& piece : again.pieces)
    for (auto& statement : piece.statements) processor.AddStatement(statement.object.release());
  Require(processor.Process(), "a second run over a model is complete");
}

}  // namespace repora::fuzz
