#include "cli/includes.h"

#include <algorithm>
#include <system_error>

#include "cli/files.h"
#include "cli/interrupt.h"

namespace repora::cli {
namespace {

namespace fs = std::filesystem;
using reader::ReadOptions;

fs::path FolderOf(std::string const& script) {
  return fs::path(script).parent_path();
}

// Where a file may be: beside the file that includes it and, but for @@, beside the script that was
// given and in the current folder.
std::vector<fs::path> Candidates(ReadOptions::Request const& request, std::string const& script) {
  auto name = request.name;
  std::replace(name.begin(), name.end(), '\\', '/');  // of scripts written under Windows
  std::vector<fs::path> candidates;
  auto const add = [&](fs::path const& folder) {
    auto candidate = folder / name;
    if (std::find(candidates.begin(), candidates.end(), candidate) == candidates.end())
      candidates.push_back(std::move(candidate));
  };
  add(FolderOf(request.from));
  if (!request.beside) {
    add(FolderOf(script));
    add({});
  }
  return candidates;
}

bool IsMissing(std::error_code const& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

}  // namespace

Includes::Includes(std::vector<std::string> const& scripts, std::vector<std::string> const& allowed,
                   InterruptWatch const& interrupts)
    : interrupts_(interrupts) {
  for (auto const& script : scripts) Allow(FolderOf(script));
  for (auto const& folder : allowed) Allow(folder);
}

ReadOptions::Included Includes::Find(ReadOptions::Request const& request,
                                     std::string const& script) const {
  ReadOptions::Included included;
  std::string looked_for;
  std::string problem;
  for (auto const& candidate : Candidates(request, script)) {
    auto const shown = candidate.lexically_normal().string();
    looked_for += (looked_for.empty() ? "" : ", ") + shown;
    std::error_code error;
    auto const file = fs::canonical(candidate, error);
    if (IsMissing(error)) continue;
    std::string here;
    if (error) {
      here = "it cannot be read: " + error.message();
    } else if (!IsAllowed(file)) {
      here = "it is outside the folders of the scripts; allow its folder by --allow-include " +
             file.parent_path().string();
    } else if (!fs::is_regular_file(file, error)) {
      here = fs::is_directory(file, error) ? "it is a folder" : "it is no regular file";
    } else {
      try {
        included.text = ReadFile(file.string(), [&] { interrupts_.ThrowIfInterrupted(); });
        included.name = shown;
        return included;
      } catch (FileError const& failure) {
        here = failure.what();
      }
    }
    if (problem.empty()) problem = here;
  }
  included.problem = problem.empty() ? "no such file; looked for " + looked_for : problem;
  return included;
}

void Includes::Allow(fs::path const& folder) {
  std::error_code error;
  auto real = fs::canonical(folder.empty() ? fs::path(".") : folder, error);
  if (!error) folders_.push_back(std::move(real));
}

bool Includes::IsAllowed(fs::path const& file) const {
  return std::any_of(folders_.begin(), folders_.end(), [&](fs::path const& folder) {
    return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
           folder.end();
  });
}

}  // namespace repora::cli
