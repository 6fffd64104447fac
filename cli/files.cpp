#include "cli/files.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace repora::cli {
namespace {

constexpr int kPollMilliseconds = 100;
constexpr std::size_t kPieceSize = std::size_t{256} * 1024;

std::string Describe(std::string_view action, std::string_view name, int error) {
  std::string text("cannot ");
  return text.append(action).append(" ").append(name).append(": ").append(std::strerror(error));
}

std::string Quoted(std::string_view name) {
  return std::string(1, '\'').append(name).append(1, '\'');
}

// Closes a descriptor at the end of a block.
class Descriptor {
 public:
  explicit Descriptor(int value) : value_(value) {}
  ~Descriptor() {
    if (value_ > STDERR_FILENO) ::close(value_);
  }
  Descriptor(Descriptor const&) = delete;
  Descriptor& operator=(Descriptor const&) = delete;
  int Get() const { return value_; }

 private:
  int value_;
};

// The file behind symbolic links; the path itself when there is none yet.
std::string Resolve(std::string const& path) {
  char resolved[PATH_MAX];
  return ::realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

// Returns when there is something to read, be it an error or the end.
void WaitForInput(int descriptor, std::function<void()> const& on_wait) {
  pollfd input{descriptor, POLLIN, 0};
  do {
    on_wait();
  } while (::poll(&input, 1, kPollMilliseconds) <= 0);
}

mode_t NewFileMode() {
  auto const mask = ::umask(0);
  ::umask(mask);
  return static_cast<mode_t>(0666) & ~mask;
}

}  // namespace

FileError::FileError(std::string_view action, std::string_view name, int error)
    : std::runtime_error(Describe(action, name, error)) {}

std::string ReadFile(std::string const& path, std::function<void()> const& on_wait) {
  bool const standard = path == kStandardStream;
  auto const name = standard ? std::string("standard input") : Quoted(path);
  Descriptor const file(standard ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.Get() < 0) throw FileError("read", name, errno);

  std::string text;
  struct stat status {};
  if (::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode))
    text.reserve(static_cast<std::size_t>(status.st_size) + kPieceSize);  // for the end as well
  for (;;) {
    WaitForInput(file.Get(), on_wait);
    auto const size = text.size();
    auto const room = std::max(kPieceSize, text.capacity() - size);
    text.resize(size + room);
    auto const count = ::read(file.Get(), text.data() + size, room);
    auto const error = errno;
    text.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return text;
    if (count > 0) continue;
    if (error != EINTR) throw FileError("read", name, error);
  }
}

OutputFile::OutputFile(std::string const& path) : name_(path) {
  if (IsStandardOutput()) {
    descriptor_ = STDOUT_FILENO;
    return;
  }
  target_ = Resolve(path);
  struct stat status {};
  bool const exists = ::stat(target_.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) Fail(EISDIR);
  if (exists && !S_ISREG(status.st_mode)) {
    descriptor_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor_ < 0) Fail(errno);
    return;
  }
  if (exists && ::access(target_.c_str(), W_OK) != 0) Fail(errno);
  auto const slash = target_.rfind('/');
  auto const name_start = slash == std::string::npos ? 0 : slash + 1;
  if (name_start == target_.size()) Fail(target_.empty() ? ENOENT : EISDIR);
  temporary_ = target_.substr(0, name_start) + "." + target_.substr(name_start) + ".XXXXXX";
  descriptor_ = ::mkostemp(temporary_.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    auto const error = errno;
    temporary_.clear();
    Fail(error);
  }
  ::fchmod(descriptor_, exists ? status.st_mode & static_cast<mode_t>(0777) : NewFileMode());
}

OutputFile::~OutputFile() {
  if (descriptor_ > STDERR_FILENO) ::close(descriptor_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::Write(std::string_view text) {
  while (!text.empty()) {
    auto const count = ::write(descriptor_, text.data(), text.size());
    if (count >= 0)
      text.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR)
      Fail(errno);
  }
}

void OutputFile::Commit() {
  if (descriptor_ > STDERR_FILENO) {
    auto const closed = ::close(descriptor_);
    descriptor_ = -1;
    if (closed != 0) Fail(errno);
  }
  if (temporary_.empty()) return;
  if (std::rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
  temporary_.clear();
}

void OutputFile::Fail(int error) const {
  throw FileError("write", IsStandardOutput() ? "standard output" : Quoted(name_), error);
}

WritablePath::WritablePath(OutputFile& file) : file_(file) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw FileError("open", "a pipe", errno);
  read_end_ = ends[0];
  write_end_ = ends[1];
  path_ = "/dev/fd/" + std::to_string(write_end_);
  copier_ = std::thread([this] { Copy(); });
}

WritablePath::~WritablePath() {
  Close();
}

void WritablePath::Finish() {
  Close();
  if (error_) std::rethrow_exception(error_);
}

void WritablePath::Copy() {
  std::string piece(kPieceSize, '\0');
  try {
    for (;;) {
      auto const count = ::read(read_end_, piece.data(), piece.size());
      if (count == 0 || (count < 0 && errno != EINTR)) break;
      if (count > 0)
        file_.Write(std::string_view(piece).substr(0, static_cast<std::size_t>(count)));
    }
  } catch (...) {
    error_ = std::current_exception();
  }
  // With nobody left to read, a writer that still has something to say gets an error.
  ::close(read_end_);
}

void WritablePath::Close() {
  if (write_end_ < 0) return;
  ::close(write_end_);
  write_end_ = -1;
  copier_.join();
}

}  // namespace repora::cli
