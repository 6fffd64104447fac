#pragma once

#include <cstddef>
#include <string>

#include "cli/terminal.h"
#include "export/run_outcome.h"

namespace repora::reader {
class Source;
}

namespace repora::cli {

// A message as a compiler shows it: "hr.sql:12:1: warning REP-39: ...". Below a syntax error stand
// the line of the script and a caret. Long texts and lines are cut. The source may be null.
std::string MessageText(exporter::Message const& message, reader::Source const* source,
                        std::size_t offset, Style const& style);

}  // namespace repora::cli
