#include "cli/read_ahead.h"

#include <utility>

namespace repora::cli {
namespace {

// As many as keep the slower side from waiting, and few enough to stay in the cache. A side that
// waited goes on when there is much to do: waking up takes time.
constexpr std::size_t kMostPieces = 16;
constexpr std::size_t kHalf = kMostPieces / 2;

}  // namespace

ReadAhead::ReadAhead(std::function<void(HandOver const&)> work)
    : worker_([this, work = std::move(work)] {
        std::exception_ptr error;
        try {
          work([this](reader::ReadPiece piece) { Put(std::move(piece)); });
        } catch (...) {
          error = std::current_exception();
        }
        std::lock_guard const guard(lock_);
        error_ = error;
        done_ = true;
        changed_.notify_all();
      }) {}

ReadAhead::~ReadAhead() {
  {
    std::lock_guard const guard(lock_);
    abandoned_ = true;
    changed_.notify_all();
  }
  worker_.join();
}

void ReadAhead::Put(reader::ReadPiece piece) {
  std::vector<reader::ReadPiece> done;
  std::unique_lock guard(lock_);
  if (pieces_.size() >= kMostPieces)
    changed_.wait(guard, [this] { return pieces_.size() <= kHalf || abandoned_; });
  done.swap(done_pieces_);
  if (abandoned_) return;
  pieces_.push_back(std::move(piece));
  if (pieces_.size() == kHalf) changed_.notify_all();
}

bool ReadAhead::Next(reader::ReadPiece& piece) {
  std::unique_lock guard(lock_);
  if (pieces_.empty()) changed_.wait(guard, [this] { return pieces_.size() >= kHalf || done_; });
  auto done = std::exchange(piece, {});
  if (pieces_.empty()) {
    guard.unlock();
    if (error_) std::rethrow_exception(error_);
    return false;
  }
  piece = std::move(pieces_.front());
  pieces_.pop_front();
  if (!done_) done_pieces_.push_back(std::move(done));
  if (pieces_.size() == kHalf) changed_.notify_all();
  return true;
}

}  // namespace repora::cli
