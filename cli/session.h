#pragma once

#include <cstddef>
#include <memory>
#include <vector>

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

// Tells all that the reader has to say, in the order of the text.
void TellDiagnostics(reader::ReadResult const& script, SessionObserver& observer);

struct ImportSettings {
  eREPLogical logical_case = eREPLogicalAsIs;
  eREPPhysical physical_case = eREPPhysicalAsIs;
  std::int32_t model_type = codes::kModelLogicalAndPhysical;  // codes::kModel...
  bool ignore_duplicate_views = false;
  std::string summary_file;  // path; empty: none
};

// One import: runs the statements of a script against a new model and tells the observer what the
// reader and the run have to say, merged in the order of the script.
class ImportSession final : private REPNotifyWnd {
 public:
  // Takes the statements from the script; the script and the observer are borrowed.
  ImportSession(ImportSettings const& settings, reader::ReadResult& script,
                SessionObserver& observer);

  // False when it was stopped: the model is then as it was before. Once.
  bool Run();
  // Ends the run before its next statement. From any thread.
  void Stop() { processor_->Stop(); }

  MemoryModelSet& Model() { return model_; }
  exporter::LoadedObjects const& Loaded() const { return loaded_; }
  exporter::StatementCounts const& Statements() const { return counts_; }

 private:
  void OnNotify(REPNotification const& notification) override;
  void Tell(exporter::MessageKind kind, REPNotification const& notification, std::size_t statement);
  void TellDiagnosticsUpTo(std::size_t place);
  void TellAdvisories();

  reader::ReadResult& script_;
  SessionObserver& observer_;
  MemoryModelSet model_;
  std::unique_ptr<REPProcessor> processor_;
  exporter::LoadedObjects loaded_;
  exporter::StatementCounts counts_;
  std::size_t done_ = 0;         // statements
  std::size_t build_total_ = 0;  // items
  std::vector<std::size_t> diagnostic_places_;
  std::size_t next_diagnostic_ = 0;
};

}  // namespace repora::cli
