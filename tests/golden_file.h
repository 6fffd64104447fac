#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace repora::test {

// Golden files hold cases of a title, settings, SQL and what must come out of it. The format is
// described in tests/golden/README.md.
struct GoldenLine {
  int number = 0;  // in the file
  std::string text;
};

struct GoldenCase {
  std::string file;
  int line = 0;  // of the title
  std::string title;
  std::vector<std::pair<std::string, std::string>> settings;
  std::string sql;
  std::vector<GoldenLine> expectations;

  std::string TestName() const;  // the title in letters, digits and underscores
};

struct GoldenFile {
  std::string path;
  std::string stem;  // "sequences"
  std::vector<GoldenCase> cases;
  std::vector<std::string> faults;  // what is wrong with the file itself
};

GoldenFile LoadGoldenFile(std::filesystem::path const& path);

// Every golden file of the folder, by name.
std::vector<GoldenFile> LoadGoldenFiles(std::filesystem::path const& folder);

// "File: title | reason" lines: the cases whose rendering is not read back as the same statement.
struct RoundTripException {
  int line = 0;
  std::string file;
  std::string title;
  std::string reason;
};
std::vector<RoundTripException> LoadRoundTripExceptions(std::filesystem::path const& path);

}  // namespace repora::test
