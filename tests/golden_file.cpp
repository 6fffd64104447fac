#include "tests/golden_file.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

namespace repora::test {
namespace {

constexpr std::string_view kTitleMark = "=== ";
constexpr std::string_view kExpectationMark = "---";
std::set<std::string> const kSettings = {"logical-case", "physical-case", "model-type",
                                         "ignore-duplicate-views", "define"};

std::vector<std::string> ReadLines(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// "set logical-case mixed"; anything else belongs to the script.
bool ParseSetting(std::string const& line, GoldenCase& into) {
  std::istringstream words(line);
  std::string set;
  std::string name;
  std::string value;
  if (!(words >> set >> name >> value) || set != "set" || !kSettings.contains(name)) return false;
  into.settings.emplace_back(name, value);
  return true;
}

std::string Trimmed(std::string const& text) {
  auto const first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

void FindFaults(GoldenFile& file) {
  std::set<std::string> names;
  for (auto const& one : file.cases) {
    auto const place = file.path + ":" + std::to_string(one.line) + ": ";
    if (!names.insert(one.TestName()).second) file.faults.push_back(place + "a second such title");
    if (one.expectations.empty()) file.faults.push_back(place + "the case expects nothing");
  }
  if (file.cases.empty()) file.faults.push_back(file.path + ": no cases");
}

}  // namespace

std::string GoldenCase::TestName() const {
  std::string name;
  for (auto const c : title) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0)
      name += c;
    else if (!name.empty() && name.back() != '_')
      name += '_';
  }
  return name;
}

GoldenFile LoadGoldenFile(std::filesystem::path const& path) {
  GoldenFile file{path.string(), path.stem().string(), {}, {}};
  enum class Part { Settings, Script, Expectations } part = Part::Settings;
  int number = 0;
  for (auto const& line : ReadLines(path)) {
    ++number;
    if (line.starts_with(kTitleMark)) {
      file.cases.push_back({file.path, number, line.substr(kTitleMark.size()), {}, {}, {}});
      part = Part::Settings;
      continue;
    }
    if (file.cases.empty()) {
      if (!line.empty() && line[0] != '#')
        file.faults.push_back(file.path + ":" + std::to_string(number) + ": text before a title");
      continue;
    }
    auto& current = file.cases.back();
    if (part == Part::Settings && ParseSetting(line, current)) continue;
    if (part != Part::Expectations && line == kExpectationMark) {
      part = Part::Expectations;
    } else if (part == Part::Expectations) {
      if (!line.empty() && line[0] != '#') current.expectations.push_back({number, line});
    } else {
      part = Part::Script;
      current.sql += line + "\n";
    }
  }
  FindFaults(file);
  return file;
}

std::vector<GoldenFile> LoadGoldenFiles(std::filesystem::path const& folder) {
  std::vector<std::filesystem::path> paths;
  for (auto const& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".test") paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<GoldenFile> files;
  for (auto const& path : paths) files.push_back(LoadGoldenFile(path));
  return files;
}

std::vector<RoundTripException> LoadRoundTripExceptions(std::filesystem::path const& path) {
  std::vector<RoundTripException> exceptions;
  int number = 0;
  for (auto const& line : ReadLines(path)) {
    ++number;
    if (line.empty() || line[0] == '#') continue;
    auto const colon = line.find(':');
    auto const bar = line.find('|');
    if (colon == std::string::npos || bar == std::string::npos || bar < colon)
      exceptions.push_back({number, {}, line, {}});
    else
      exceptions.push_back({number, Trimmed(line.substr(0, colon)),
                            Trimmed(line.substr(colon + 1, bar - colon - 1)),
                            Trimmed(line.substr(bar + 1))});
  }
  return exceptions;
}

}  // namespace repora::test
