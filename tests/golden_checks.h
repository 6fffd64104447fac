#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "cli/session.h"
#include "tests/golden_file.h"

namespace repora::test {

// What came out of the script of a golden case.
struct GoldenOutcome {
  reader::ReadResult read;
  std::vector<std::string> rendered;  // by statement
  std::unique_ptr<cli::ImportSession> session;
  std::vector<exporter::Message> messages;
};

// Only reads the script, without running it.
reader::ReadResult ReadGolden(GoldenCase const& golden);
std::unique_ptr<GoldenOutcome> RunGolden(GoldenCase const& golden);

// The expectations that do not hold, each at its line and with what is wrong.
std::vector<GoldenLine> FindFailures(GoldenCase const& golden, GoldenOutcome& outcome);

// Why reading a rendered text does not give a statement that renders the same; empty when it does.
std::string RoundTripFault(std::string const& rendered);

// Checks that every statement of the scripts below the folders comes back; how many there are. What
// does not is listed by the script's name and the start of the rendered text, and where the scripts
// are all at hand, all that is listed must be needed.
std::size_t CheckRoundTrips(std::vector<std::filesystem::path> const& folders,
                            std::filesystem::path const& exception_list, bool all_used);

}  // namespace repora::test
