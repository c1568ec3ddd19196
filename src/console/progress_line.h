// A progress bar for a terminal.
#pragma once

namespace panelkit {

/// Draws a bar on standard error where that is a terminal, and wipes it at its end.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine() { Wipe(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(int value, int max);
  /// Leaves the line empty, for whatever is printed next.
  void Wipe();

 private:
  bool on_terminal_;
  int percent_ = -1;
};

}  // namespace panelkit
