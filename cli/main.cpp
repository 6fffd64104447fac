#include <csignal>
#include <cstdio>
#include <exception>

#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace {

int Run(repora::cli::Options const& options) {
  repora::cli::InterruptWatch interrupts;
  try {
    return options.command == repora::cli::Command::Import
               ? repora::cli::RunImport(options, interrupts)
               : repora::cli::RunRender(options, interrupts);
  } catch (repora::cli::Interrupted const&) {
    std::fputs("repora: interrupted\n", stderr);
    return repora::cli::InterruptWatch::ExitStatus();
  }
}

}  // namespace

int main(int argc, char** argv) {
  // A reader of the output that goes away is an error of writing, not the end of the program.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    int exit_status = repora::cli::kExitDone;
    auto const options = repora::cli::ParseOptions(argc, argv, exit_status);
    return options ? Run(*options) : exit_status;
  } catch (std::exception const& error) {
    std::fprintf(stderr, "repora: %s\n", error.what());
    return repora::cli::kExitTrouble;
  }
}
