#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "export/run_outcome.h"

namespace repora {
class MemoryModelSet;
}

namespace repora::exporter {

class Ledger;

// Takes the next piece of an output; false when it wants no more.
using Sink = std::function<bool(std::string_view)>;

// Writes a finished run as one JSON object: statement counts, messages, every object of the
// model in id order, and the ledger. Text that is not valid UTF-8 has U+FFFD in place of the bytes
// at fault, so the output is valid JSON for any script. False when the sink wanted no more.
bool WriteJson(StatementCounts const& statements, std::span<Message const> messages,
               MemoryModelSet& model, LoadedObjects const& loaded, Ledger const& ledger,
               Sink const& sink);

}  // namespace repora::exporter
