#include "console/progress_line.h"

#include <algorithm>

#include "platform/terminal.h"

namespace panelkit {
namespace {

// The last column stays free: a terminal would begin a new line behind it.
std::size_t Width() {
  constexpr int kWidest = 60;
  return static_cast<std::size_t>(std::clamp(terminal::ErrorColumns() - 1, 0, kWidest));
}

}  // namespace

ProgressLine::ProgressLine() : width_(Width()) {}

void ProgressLine::Show(int value, int max) {
  constexpr std::size_t kBesideBar = 7;  // "[] 100%"
  if (width_ == 0 || max <= 0) return;
  const int percent = value * 100 / max;
  if (percent == percent_) return;
  percent_ = percent;
  const std::size_t length = width_ - std::min(width_, kBesideBar);
  const std::size_t done = length * static_cast<std::size_t>(percent) / 100;
  Put("[" + std::string(done, '#') + std::string(length - done, '.') + "] " +
      std::to_string(percent) + "%");
}

void ProgressLine::Say(const std::string& text) {
  constexpr auto kInterval = std::chrono::milliseconds(100);
  const auto now = std::chrono::steady_clock::now();
  if (width_ == 0 || now - last_ < kInterval) return;
  last_ = now;
  Put(text);
}

void ProgressLine::Put(std::string text) {
  text.resize(width_, ' ');
  is_empty_ = false;
  terminal::WriteError("\r" + text);
}

void ProgressLine::Wipe() {
  if (!is_empty_) terminal::WriteError("\r" + std::string(width_, ' ') + "\r");
  is_empty_ = true;
  percent_ = -1;
}

}  // namespace panelkit
