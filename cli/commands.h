#pragma once

#include "cli/options.h"

namespace repora::cli {

class InterruptWatch;

// Each returns the program's exit status and throws FileError or Interrupted.
int RunImport(Options const& options, InterruptWatch& interrupts);
int RunRender(Options const& options, InterruptWatch& interrupts);

}  // namespace repora::cli
