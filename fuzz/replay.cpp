// Sends saved inputs through the fuzz target: files, the files of folders, and packs (.pack), which
// hold inputs one behind the other, each after its length in a line of its own. The name of each
// input is written to standard error before it runs, so that the last one is at fault.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/import_target.h"

namespace {

namespace fs = std::filesystem;

std::string ReadFile(fs::path const& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot be read: " + path.string());
  return {std::istreambuf_iterator<char>(in), {}};
}

void Replay(std::string const& name, std::string_view input) {
  std::cerr << name << '\n';
  repora::fuzz::ImportBytes(input);
}

std::size_t ReplayPack(fs::path const& path) {
  auto const pack = ReadFile(path);
  std::string_view rest = pack;
  std::size_t count = 0;
  while (!rest.empty()) {
    auto const line = rest.find('\n');
    auto const length = std::stoul(std::string(rest.substr(0, line)));
    if (line == std::string_view::npos || rest.size() - line - 1 < length)
      throw std::runtime_error("is cut off: " + path.string());
    Replay(path.string() + "#" + std::to_string(++count), rest.substr(line + 1, length));
    rest.remove_prefix(line + 1 + length);
  }
  return count;
}

std::size_t ReplayPath(fs::path const& path) {
  if (path.extension() == ".pack") return ReplayPack(path);
  if (!fs::is_directory(path)) {
    Replay(path.string(), ReadFile(path));
    return 1;
  }
  std::vector<fs::path> entries(fs::directory_iterator(path), {});
  std::sort(entries.begin(), entries.end());
  std::size_t count = 0;
  for (auto const& entry : entries) count += ReplayPath(entry);
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    for (int i = 1; i < argc; ++i) {
      auto const count = ReplayPath(argv[i]);
      if (count == 0) throw std::runtime_error(std::string("holds no inputs: ") + argv[i]);
      std::cout << argv[i] << ": " << count << " inputs\n";
    }
  } catch (std::exception const& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return argc > 1 ? 0 : 2;
}
