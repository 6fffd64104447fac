#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "export/ledger.h"
#include "export/run_outcome.h"
#include "reader/script_reader.h"
#include "repora/core/processor.h"
#include "repora/model/memory_model.h"

namespace repora::cli {

// Hears what a run has to say.
class SessionObserver {
 public:
  virtual ~SessionObserver() = default;
  // In the order of the script. The source is null for messages without a place in a script.
  virtual void OnMessage(exporter::Message const& message, reader::Source const* source,
                         std::size_t offset) = 0;
  virtual void OnProgress(char const* /*what*/, std::size_t /*done*/, std::size_t /*total*/) {}
};

// Tells what the reader has to say, in the order of the text.
void TellDiagnostics(reader::ReadPiece const& piece, SessionObserver& observer);

// Takes back a part of the scripts that is done, and gives the next one; false when there is none.
using PieceFeed = std::function<bool(reader::ReadPiece&)>;

struct ImportSettings {
  eREPLogical logical_case = eREPLogicalAsIs;
  eREPPhysical physical_case = eREPPhysicalAsIs;
  std::int32_t model_type = codes::kModelLogicalAndPhysical;  // codes::kModel...
  bool ignore_duplicate_views = false;
  std::string summary_file;      // path; empty: none
  std::size_t script_bytes = 0;  // of all scripts, for the progress; 0: not known
};

// One import: runs the statements of scripts against a new model and tells the observer what the
// reader and the run have to say, merged in the order of the scripts.
class ImportSession final : private REPNotifyWnd, private REPStatementSource {
 public:
  // The observer is borrowed.
  ImportSession(ImportSettings const& settings, SessionObserver& observer);

  // Runs what the feed gives; what it throws goes through. False when it was stopped: the model is
  // then as it was before. Once.
  bool Run(PieceFeed feed);
  // Ends the run before its next statement. From any thread.
  void Stop() { processor_->Stop(); }

  MemoryModelSet& Model() { return model_; }
  exporter::LoadedObjects const& Loaded() const { return loaded_; }
  exporter::StatementCounts const& Statements() const { return counts_; }
  // Its names are those of the scripts read, which must be there as long as it is used.
  exporter::Ledger& Ledger() { return ledger_; }

 private:
  REPStatement* Next() override;
  void TakeBack(REPStatement* statement) override;
  bool NextPiece();
  void OnNotify(REPNotification const& notification) override;
  void Tell(exporter::MessageKind kind, REPNotification const& notification);
  void TellDiagnosticsBefore(std::size_t statement);
  void TellAdvisories();
  void NoteLoss(std::string_view code);
  void AccountFor(std::size_t statement);
  void AccountFor(reader::StatementTrace const& trace);

  SessionObserver& observer_;
  MemoryModelSet model_;
  std::unique_ptr<REPProcessor> processor_;
  exporter::LoadedObjects loaded_;
  exporter::StatementCounts counts_;
  std::size_t build_total_ = 0;  // items

  PieceFeed feed_;
  reader::ReadPiece piece_;
  std::size_t next_statement_ = 0;   // in the piece
  std::size_t next_diagnostic_ = 0;  // in the piece
  bool running_ = false;             // a statement: the one before next_statement_
  std::exception_ptr failure_;       // of the feed
  std::size_t next_trace_ = 0;       // in the piece

  // Of the statement that runs.
  std::string_view result_;
  bool keeps_sql_ = false;                     // the model has its query as a text
  std::vector<std::string_view> left_behind_;  // codes of messages about what it could not do

  exporter::Ledger ledger_;
  std::set<std::string, std::less<>> codes_;
  std::size_t done_bytes_ = 0;  // of the scripts
  std::size_t total_bytes_ = 0;
};

}  // namespace repora::cli
