#include "cli/progress.h"

#include <algorithm>
#include <cstdio>

namespace repora::cli {
namespace {

constexpr std::size_t kBarWidth = 30;
constexpr auto kInterval = std::chrono::milliseconds(100);

}  // namespace

std::string ProgressLine(char const* what, std::size_t done, std::size_t total) {
  auto const share = [&](std::size_t whole) {
    return total == 0 ? whole : whole * std::min(done, total) / total;
  };
  auto const filled = share(kBarWidth);
  auto const percent = std::to_string(share(100));
  std::string line(what);
  line.append(" [").append(filled, '=');
  if (filled < kBarWidth) line.append(1, '>').append(kBarWidth - filled - 1, ' ');
  line.append("] ").append(3 - percent.size(), ' ').append(percent).append("%  ");
  return line.append(std::to_string(done)).append(" of ").append(std::to_string(total));
}

void ProgressBar::Show(char const* what, std::size_t done, std::size_t total) {
  if (!enabled_) return;
  auto const now = Clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  visible_ = true;
  auto const line = ProgressLine(what, done, total).insert(0, 1, '\r').append("\x1b[K");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void ProgressBar::Hide() {
  if (!visible_) return;
  visible_ = false;
  std::fputs("\r\x1b[K", stderr);
}

}  // namespace repora::cli
