#include "console/progress_line.h"

#include <algorithm>

#include "platform/terminal.h"

namespace panelkit {

ProgressLine::ProgressLine() : on_terminal_(terminal::ErrorIsTerminal()) {}

void ProgressLine::Show(int value, int max) {
  if (!on_terminal_ || max <= 0) return;
  const int percent = value * 100 / max;
  if (percent == percent_) return;
  percent_ = percent;
  is_empty_ = false;
  const std::string done(percent / 2, '#');
  const std::string left(50 - percent / 2, '.');
  terminal::WriteError("\r[" + done + left + "] " + std::to_string(percent) + "%");
}

void ProgressLine::Say(const std::string& text) {
  constexpr auto kInterval = std::chrono::milliseconds(100);
  const auto now = std::chrono::steady_clock::now();
  if (!on_terminal_ || now - last_ < kInterval) return;
  last_ = now;
  is_empty_ = false;
  terminal::WriteError("\r" + text + std::string(59 - std::min<std::size_t>(59, text.size()), ' '));
}

void ProgressLine::Wipe() {
  if (!is_empty_) terminal::WriteError("\r" + std::string(60, ' ') + "\r");
  is_empty_ = true;
  percent_ = -1;
}

}  // namespace panelkit
