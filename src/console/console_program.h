// The program as the console companion runs it.
#pragma once

#include <string>
#include <string_view>

#include "app/frm_gauges.h"
#include "console/progress_line.h"
#include "platform/headless/headless_toolkit.h"

namespace panelkit {

/// Under a terminal::InterruptGuard, Ctrl-C ends the process at the next call, with the progress
/// line wiped and the exit status of an interrupt.
class ConsoleLoop : public QuietLoop {
 public:
  explicit ConsoleLoop(ProgressLine& progress) : progress_(progress) {}
  void ProcessPending() override;

 private:
  ProgressLine& progress_;
};

/// The program without a window, on one simulator, with the progress of its scans on the terminal.
class ConsoleProgram {
 public:
  ConsoleProgram(const Machine& services, const std::string& simulator);
  ConsoleProgram(const ConsoleProgram&) = delete;
  ConsoleProgram& operator=(const ConsoleProgram&) = delete;

  /// Runs the command of a menu item, as a click on it does.
  void Click(std::string_view item);

  /// Scans for the gauges that Clean would move, and moves nothing.
  std::optional<SpareSelection> FindSpare();

  frmGauges& Form() { return form_; }

 private:
  ProgressLine progress_;
  ConsoleLoop loop_{progress_};
  HeadlessToolkit toolkit_;
  frmGauges form_;
};

}  // namespace panelkit
