// A progress bar for a terminal.
#pragma once

#include <chrono>
#include <string>

namespace panelkit {

/// Draws a bar on standard error where that is a terminal, no wider than that, and wipes it at its
/// end.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine() { Wipe(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(int value, int max);

  /// Shows `text` instead of a bar, in place of the one before; at most some times a second.
  void Say(const std::string& text);

  /// Leaves the line empty, for whatever is printed next.
  void Wipe();

 private:
  void Put(std::string text);

  std::size_t width_;  // 0 where standard error is no terminal.
  bool is_empty_ = true;
  int percent_ = -1;
  std::chrono::steady_clock::time_point last_ = {};
};

}  // namespace panelkit
