#include "cli/scripts.h"

#include "cli/files.h"
#include "cli/includes.h"
#include "cli/interrupt.h"

namespace repora::cli {
namespace {

std::string DisplayName(std::string const& path) {
  return path == kStandardStream ? "<stdin>" : path;
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

void ReadScripts(Scripts scripts, std::vector<std::string> const& include_folders,
                 std::map<std::string, std::string> defines, InterruptWatch const& interrupts,
                 std::function<void(reader::ReadPiece)> const& hand_over,
                 reader::ReadResult& result) {
  Includes const includes(scripts.paths, include_folders, interrupts);
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
    options.include = [&](auto const& request) { return includes.Find(request, path); };
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
