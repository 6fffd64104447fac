#include "cli/interrupt.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace repora::cli {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM};

// What the signal handler touches.
std::atomic<bool> interrupted{false};
std::atomic<int> signal_number{SIGINT};
std::atomic<int> wake_up_write_end{-1};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void WakeUp(char reason) {
  [[maybe_unused]] auto const written = ::write(wake_up_write_end, &reason, 1);
}

extern "C" void HandleInterrupt(int number) {
  auto const saved = errno;
  signal_number = number;
  interrupted = true;
  WakeUp('i');
  errno = saved;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return;  // then Ctrl-C ends the program at once
  wake_up_ = ends[0];
  wake_up_write_end = ends[1];

  // Signals go to the thread that works, so that they end its waiting for input at once.
  sigset_t blocked;
  sigset_t before;
  sigemptyset(&blocked);
  for (auto const number : kSignals) sigaddset(&blocked, number);
  ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
  waiter_ = std::thread([this] { Wait(); });
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);

  struct sigaction action {};
  action.sa_handler = HandleInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (auto const number : kSignals) {
    struct sigaction current {};
    ::sigaction(number, nullptr, &current);
    if (current.sa_handler != SIG_IGN) ::sigaction(number, &action, nullptr);
  }
}

InterruptWatch::~InterruptWatch() {
  if (wake_up_ < 0) return;
  WakeUp('q');
  waiter_.join();
  ::close(wake_up_write_end.exchange(-1));
  ::close(wake_up_);
}

std::atomic<bool> const& InterruptWatch::Flag() const {
  return interrupted;
}

void InterruptWatch::ThrowIfInterrupted() const {
  if (interrupted) throw Interrupted{};
}

void InterruptWatch::SetAction(std::function<void()> action) {
  std::lock_guard const guard(lock_);
  action_ = std::move(action);
  if (action_ && interrupted) action_();
}

int InterruptWatch::ExitStatus() {
  return 128 + signal_number;
}

void InterruptWatch::Wait() {
  char reason = 0;
  for (;;) {
    auto const count = ::read(wake_up_, &reason, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0 || reason == 'q') return;
    std::lock_guard const guard(lock_);
    if (action_) action_();
  }
}

}  // namespace repora::cli
