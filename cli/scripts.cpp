#include "cli/scripts.h"

#include <filesystem>
#include <optional>

#include "cli/files.h"
#include "cli/interrupt.h"

namespace repora::cli {
namespace {

namespace fs = std::filesystem;

std::string DisplayName(std::string const& path) {
  return path == kStandardStream ? "<stdin>" : path;
}

// Where an included file may be: beside the script that includes it (@@), or in the current folder
// and then beside the script that was given to the program (@).
std::vector<fs::path> Candidates(std::string const& name, std::string const& beside,
                                 std::string const& script) {
  auto const in_folder_of = [&](std::string const& other) {
    return (fs::path(other).parent_path() / name).lexically_normal();
  };
  if (!beside.empty()) return {in_folder_of(beside)};
  return {fs::path(name).lexically_normal(), in_folder_of(script)};
}

std::optional<reader::ReadOptions::Included> ReadIncluded(std::string const& name,
                                                          std::string const& beside,
                                                          std::string const& script,
                                                          InterruptWatch const& interrupts) {
  for (auto const& candidate : Candidates(name, beside, script)) {
    try {
      return reader::ReadOptions::Included{candidate.string(), ReadFile(candidate.string(), [&] {
                                             interrupts.ThrowIfInterrupted();
                                           })};
    } catch (FileError const&) {
      // The next place; the reader says so when there is none.
    }
  }
  return std::nullopt;
}

std::size_t CountStatements(reader::ReadResult const& result) {
  return result.read + result.unread + result.outside;
}

}  // namespace

std::size_t Scripts::Size() const {
  std::size_t size = 0;
  for (auto const& text : texts) size += text.size();
  return size;
}

std::vector<std::string> Scripts::Names() const {
  std::vector<std::string> names;
  for (auto const& path : paths) names.push_back(DisplayName(path));
  return names;
}

Scripts LoadScripts(std::vector<std::string> const& paths, InterruptWatch const& interrupts) {
  Scripts scripts;
  scripts.paths = paths;
  for (auto const& path : paths)
    scripts.texts.push_back(ReadFile(path, [&] { interrupts.ThrowIfInterrupted(); }));
  return scripts;
}

void ReadScripts(Scripts scripts, std::map<std::string, std::string> defines,
                 InterruptWatch const& interrupts,
                 std::function<void(reader::ReadPiece)> const& hand_over,
                 reader::ReadResult& result) {
  bool anything = false;
  reader::ReadOptions options;
  options.defines = std::move(defines);
  options.stop = &interrupts.Flag();
  options.hand_over = [&](reader::ReadPiece piece) {
    anything = anything || !piece.diagnostics.empty();
    hand_over(std::move(piece));
  };
  for (std::size_t i = 0; i < scripts.paths.size(); ++i) {
    auto const& path = scripts.paths[i];
    options.include = [&](std::string const& name, std::string const& beside) {
      return ReadIncluded(name, beside, path, interrupts);
    };
    auto const before = CountStatements(result);
    auto const source = result.sources.size();
    anything = false;
    reader::ReadScript(DisplayName(path), std::move(scripts.texts[i]), options, result);
    interrupts.ThrowIfInterrupted();
    if (anything || CountStatements(result) != before) continue;
    reader::ReadPiece piece;
    piece.diagnostics.push_back({reader::DiagnosticKind::Note, result.sources[source].get(), 0, 0,
                                 result.read, "no statements"});
    hand_over(std::move(piece));
  }
}

}  // namespace repora::cli
