#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "reader/script_reader.h"
#include "repora/core/statement.h"

namespace repora::cli {

// Reads on a thread of its own while what was read is worked on: a processor and a reader share the
// work of an import almost evenly. It stays only a few pieces ahead.
class ReadAhead {
 public:
  using HandOver = std::function<void(reader::ReadPiece)>;
  // The work hands over pieces until it is done; it may throw.
  explicit ReadAhead(std::function<void(HandOver const&)> work);
  // Drops what nobody took and waits for the end of the work.
  ~ReadAhead();
  ReadAhead(ReadAhead const&) = delete;
  ReadAhead& operator=(ReadAhead const&) = delete;

  // Exchanges a piece that is done for the next one; false at the end of the work, which leaves an
  // empty one. Throws what the work threw.
  bool Next(reader::ReadPiece& piece);

 private:
  void Put(reader::ReadPiece piece);

  std::mutex lock_;  // of all but the thread
  std::condition_variable changed_;
  std::deque<reader::ReadPiece> pieces_;
  std::vector<reader::ReadPiece> done_pieces_;  // to be deleted by the worker, which made them
  bool done_ = false;                           // nothing will come any more
  bool abandoned_ = false;                      // nothing is wanted any more
  std::exception_ptr error_;
  std::thread worker_;
};

}  // namespace repora::cli
