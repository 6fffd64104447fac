#pragma once

#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

namespace repora::cli {

// A file that cannot be read or written, with the system's reason.
class FileError : public std::runtime_error {
 public:
  // "cannot read 'hr.sql': No such file or directory"
  FileError(std::string_view action, std::string_view name, int error);
};

// What users call standard input and standard output.
inline constexpr std::string_view kStandardStream = "-";

// The whole file, or standard input for "-". Throws FileError. While it waits for input it calls
// on_wait now and then, which may throw.
std::string ReadFile(std::string const& path, std::function<void()> const& on_wait);

// A file that appears at its place only when it is complete: it is written beside and renamed by
// Commit. Without Commit nothing is left behind and what stood there before stays. Standard output
// ("-"), devices and pipes are written to at once. All operations throw FileError.
class OutputFile {
 public:
  explicit OutputFile(std::string const& path);
  ~OutputFile();
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  bool IsStandardOutput() const { return name_ == kStandardStream; }
  void Write(std::string_view text);
  void Commit();

 private:
  [[noreturn]] void Fail(int error) const;

  std::string name_;       // as the user gave it
  std::string target_;     // where it goes, behind symbolic links
  std::string temporary_;  // empty: written at once
  int descriptor_ = -1;
};

// A path under which another part of the program can open and write an output file by name: what
// is written there goes to the file, and an error is not lost.
class WritablePath {
 public:
  explicit WritablePath(OutputFile& file);
  ~WritablePath();
  WritablePath(WritablePath const&) = delete;
  WritablePath& operator=(WritablePath const&) = delete;

  std::string const& Path() const { return path_; }
  // Waits until all that was written is in the file. Throws what went wrong there.
  void Finish();

 private:
  void Copy();
  void Close();

  OutputFile& file_;
  std::string path_;
  int read_end_ = -1;
  int write_end_ = -1;
  std::exception_ptr error_;
  std::thread copier_;
};

}  // namespace repora::cli
