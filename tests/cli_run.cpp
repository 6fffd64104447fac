#include "tests/cli_run.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace repora::test {
namespace {

constexpr int kTimeoutMilliseconds = 120000;

struct Pipe {
  Pipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    read_end = ends[0];
    write_end = ends[1];
  }
  ~Pipe() {
    CloseRead();
    CloseWrite();
  }
  Pipe(Pipe const&) = delete;
  Pipe& operator=(Pipe const&) = delete;
  void CloseRead() {
    if (read_end >= 0) ::close(read_end);
    read_end = -1;
  }
  void CloseWrite() {
    if (write_end >= 0) ::close(write_end);
    write_end = -1;
  }
  int read_end;
  int write_end;
};

// What happens in the child process.
[[noreturn]] void Execute(std::filesystem::path const& folder, std::vector<std::string>& arguments,
                          ProgramInput const& input, int in, int out, int err) {
  std::vector<char*> argv;
  for (auto& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  ::dup2(in, STDIN_FILENO);
  ::dup2(out, STDOUT_FILENO);
  ::dup2(err, STDERR_FILENO);
  for (auto const number : {SIGINT, SIGTERM, SIGPIPE}) std::signal(number, SIG_DFL);
  ::unsetenv("NO_COLOR");
  for (auto const& variable : input.environment) ::putenv(const_cast<char*>(variable.c_str()));
  if (::chdir(folder.c_str()) == 0) ::execv(argv[0], argv.data());
  ::_exit(127);
}

// Reads until both streams end.
void Collect(Pipe& out, Pipe& err, ProgramResult& result, ProgramInput const& input,
             pid_t process) {
  char piece[65536];
  std::string* const texts[] = {&result.out, &result.err};
  pollfd streams[] = {{out.read_end, POLLIN, 0}, {err.read_end, POLLIN, 0}};
  while (streams[0].fd >= 0 || streams[1].fd >= 0) {
    if (::poll(streams, 2, kTimeoutMilliseconds) == 0) {
      ::kill(process, SIGKILL);
      return;
    }
    for (std::size_t i = 0; i < 2; ++i) {
      if (streams[i].fd < 0 || streams[i].revents == 0) continue;
      auto const count = ::read(streams[i].fd, piece, sizeof piece);
      if (count > 0)
        texts[i]->append(piece, static_cast<std::size_t>(count));
      else
        streams[i].fd = -1;
      if (i == 1 && count > 0 && input.watch) input.watch(result.err, process);
    }
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  auto pattern = (std::filesystem::temp_directory_path() / "repora_test_XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::Write(std::string const& name, std::string const& text) const {
  std::filesystem::create_directories((path_ / name).parent_path());
  std::ofstream(path_ / name, std::ios::binary) << text;
}

std::string TemporaryFolder::Read(std::string const& name) const {
  std::ostringstream text;
  text << std::ifstream(path_ / name, std::ios::binary).rdbuf();
  return text.str();
}

std::vector<std::string> TemporaryFolder::Names() const {
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(path_))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

ProgramResult RunProgram(std::filesystem::path const& folder, std::vector<std::string> arguments,
                         ProgramInput const& input) {
  arguments.insert(arguments.begin(), REPORA_PROGRAM);
  Pipe in;
  Pipe out;
  Pipe err;
  if (input.closed_output) out.CloseRead();
  auto const process = ::fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process == 0) Execute(folder, arguments, input, in.read_end, out.write_end, err.write_end);
  in.CloseRead();
  out.CloseWrite();
  err.CloseWrite();

  std::thread feeder([&] {
    std::string_view rest(input.in);
    while (!rest.empty()) {
      auto const count = ::write(in.write_end, rest.data(), rest.size());
      if (count <= 0) break;
      rest.remove_prefix(static_cast<std::size_t>(count));
    }
    if (!input.keep_in_open) in.CloseWrite();
  });
  if (input.watch) input.watch({}, process);
  ProgramResult result;
  Collect(out, err, result, input, process);
  feeder.join();
  int status = 0;
  ::waitpid(process, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  return result;
}

}  // namespace repora::test
