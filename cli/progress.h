#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace repora::cli {

// The bar that long work shows on a terminal, on the last line of standard error. It appears only
// after a moment, so that short work shows none.
class ProgressBar {
 public:
  explicit ProgressBar(bool enabled) : enabled_(enabled) {}
  ~ProgressBar() { Hide(); }
  ProgressBar(ProgressBar const&) = delete;
  ProgressBar& operator=(ProgressBar const&) = delete;

  void Show(char const* what, std::size_t done, std::size_t total);
  // Makes room for other output; the next Show draws it again.
  void Hide();

 private:
  using Clock = std::chrono::steady_clock;

  bool enabled_;
  bool visible_ = false;
  Clock::time_point next_ = Clock::now() + std::chrono::milliseconds(300);
};

// "statements [=====>    ]  45%  1234 of 5678".
std::string ProgressLine(char const* what, std::size_t done, std::size_t total);

}  // namespace repora::cli
