#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "repora/core/name.h"
#include "repora/core/processor.h"
#include "repora/model/item.h"
#include "repora/model/memory_model.h"
#include "repora/model/metamodel.h"

namespace repora::test {

// A statement whose processing is a function of the test.
class FunctionStatement final : public REPStatement {
 public:
  using Function = std::function<REPProcess_e(REPProcessor&)>;
  explicit FunctionStatement(Function process, std::string text = "STATEMENT;")
      : process_(std::move(process)), text_(std::move(text)) {}
  REPProcess_e Process(REPProcessor* processor) const override { return process_(*processor); }
  std::string AsString() const override { return text_; }

 private:
  Function process_;
  std::string text_;
};

// What a host window was told, copied.
struct Notified {
  eRENotify kind;
  int count;
  std::string code;
  std::string message;
  friend bool operator==(Notified const&, Notified const&) = default;
};

class RecordingWindow final : public REPNotifyWnd {
 public:
  void OnNotify(REPNotification const& notification) override {
    last = &notification;
    if (on_notify) on_notify(notification);
    all.push_back({notification.kind, notification.count,
                   notification.code_text ? notification.code_text : "",
                   notification.message_text ? notification.message_text : ""});
  }
  std::vector<Notified> Of(eRENotify kind) const {
    std::vector<Notified> found;
    for (auto const& notified : all)
      if (notified.kind == kind) found.push_back(notified);
    return found;
  }

  std::vector<Notified> all;
  REPNotification const* last = nullptr;
  std::function<void(REPNotification const&)> on_notify;
};

// A processor over a new model in memory, with a window.
struct Job {
  Job() {
    processor.SetModelSet(&model);
    processor.SetNotifyWnd(&window);
  }
  void Add(FunctionStatement::Function process) {
    processor.AddStatement(new FunctionStatement(std::move(process)));
  }
  // Runs one function inside a run of its own.
  bool Run(std::function<void(REPProcessor&)> inside) {
    Add([inside = std::move(inside)](REPProcessor& running) {
      inside(running);
      return REPProcessOK;
    });
    return processor.Process();
  }

  MemoryModelSet model;
  RecordingWindow window;
  REPOracleProcessor processor;
};

// The item's properties by name: texts in quotes, references as ->id.
inline std::string Properties(MOXActionSummaryItem const& item) {
  std::set<std::string> parts;
  for (auto const& [id, value] : item.Properties()) {
    auto text = value.AsString(true);
    if (value.Kind() == QELValue::eText) text = "'" + text + "'";
    if (value.Kind() == QELValue::eShortId) text = "->" + text;
    parts.insert(VocabularyName(id) + ("=" + text));
  }
  std::string all;
  for (auto const& part : parts) all += (all.empty() ? "" : " ") + part;
  return all;
}

inline std::string TextProperty(MOXActionSummaryItem const& item, MOXId property) {
  auto const* const value = item.Properties().Find(property);
  return value ? value->AsString(true) : "(absent)";
}

}  // namespace repora::test
