// Any bytes are a script: they must be read, processed and rendered without a crash, and what is
// rendered must be readable again.
#include <cstddef>
#include <cstdint>
#include <string>

#include "reader/script_reader.h"
#include "repora/core/processor.h"
#include "repora/model/memory_model.h"

namespace {

class QuietWindow final : public REPNotifyWnd {
 public:
  void OnNotify(REPNotification const& /*notification*/) override {}
};

repora::reader::ReadResult Read(std::string text) {
  repora::reader::ReadOptions options;
  repora::reader::ReadResult result;
  repora::reader::ReadScript("fuzz.sql", std::move(text), options, result);
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  auto script = Read(std::string(reinterpret_cast<char const*>(data), size));
  std::string rendered;
  for (auto const& diagnostic : script.diagnostics)
    diagnostic.source->PositionOf(diagnostic.offset);
  for (auto const& statement : script.statements)
    rendered += statement.object->AsString() + "\n/\n";
  Read(std::move(rendered));

  repora::MemoryModelSet model;
  QuietWindow window;
  REPOracleProcessor processor;
  processor.SetModelSet(&model);
  processor.SetNotifyWnd(&window);
  for (auto& statement : script.statements) processor.AddStatement(statement.object.release());
  processor.Process();
  return 0;
}
