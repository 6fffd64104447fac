#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "export/run_outcome.h"

namespace repora {
class MemoryModelSet;
}

namespace repora::exporter {

class Ledger;

// How many messages of each kind a run had.
class MessageCounts {
 public:
  void Add(MessageKind kind) { ++counts_[static_cast<std::size_t>(kind)]; }
  std::size_t Of(MessageKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }

 private:
  std::array<std::size_t, kMessageKindNames.size()> counts_{};
};

// The summary that closes a run, for people: what became of each script, created objects by type,
// messages, and a last line that sums the scripts up. With bold headings for terminals that show
// them.
std::string ReportText(Ledger const& ledger, MessageCounts const& messages, MemoryModelSet& model,
                       LoadedObjects const& loaded, bool bold_headings);

}  // namespace repora::exporter
