#include "console/progress_line.h"

#include <string>

#include "platform/terminal.h"

namespace panelkit {

ProgressLine::ProgressLine() : on_terminal_(terminal::ErrorIsTerminal()) {}

void ProgressLine::Show(int value, int max) {
  if (!on_terminal_ || max <= 0) return;
  const int percent = value * 100 / max;
  if (percent == percent_) return;
  percent_ = percent;
  const std::string done(percent / 2, '#');
  const std::string left(50 - percent / 2, '.');
  terminal::WriteError("\r[" + done + left + "] " + std::to_string(percent) + "%");
}

void ProgressLine::Wipe() {
  if (percent_ >= 0) terminal::WriteError("\r" + std::string(60, ' ') + "\r");
  percent_ = -1;
}

}  // namespace panelkit
