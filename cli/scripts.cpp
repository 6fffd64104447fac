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

std::size_t CountFound(reader::ReadResult const& result) {
  return result.statements.size() + result.unread + result.outside + result.diagnostics.size();
}

}  // namespace

Scripts ReadScripts(std::vector<std::string> const& paths,
                    std::map<std::string, std::string> defines, InterruptWatch const& interrupts) {
  // All files first: a missing one is better known before a long read than after it.
  std::vector<std::string> texts;
  for (auto const& path : paths) {
    texts.push_back(ReadFile(path, [&] { interrupts.ThrowIfInterrupted(); }));
  }

  Scripts scripts;
  reader::ReadOptions options;
  options.defines = std::move(defines);
  options.stop = &interrupts.Flag();
  for (std::size_t i = 0; i < paths.size(); ++i) {
    options.include = [&, i](std::string const& name, std::string const& beside) {
      return ReadIncluded(name, beside, paths[i], interrupts);
    };
    auto const before = CountFound(scripts.read);
    reader::ReadScript(DisplayName(paths[i]), std::move(texts[i]), options, scripts.read);
    interrupts.ThrowIfInterrupted();
    if (CountFound(scripts.read) == before)
      scripts.without_statements.push_back(DisplayName(paths[i]));
  }
  return scripts;
}

}  // namespace repora::cli
