#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

namespace repora::cli {

// Thrown where the program gives up because the user asked it to.
struct Interrupted {};

// Watches for Ctrl-C and for being asked to end. The first signal asks for an orderly stop, the
// second one ends the program. One at a time.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(InterruptWatch const&) = delete;
  InterruptWatch& operator=(InterruptWatch const&) = delete;

  std::atomic<bool> const& Flag() const;
  void ThrowIfInterrupted() const;
  // What to do at the signal, called on another thread; at once when it has come already.
  void SetAction(std::function<void()> action);
  void ClearAction() { SetAction(nullptr); }

  // 128 and the signal's number: 130 for Ctrl-C.
  static int ExitStatus();

 private:
  void Wait();

  std::mutex lock_;
  std::function<void()> action_;  // guarded by lock_
  int wake_up_ = -1;
  std::thread waiter_;
};

}  // namespace repora::cli
