// The program as the console companion runs it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/frm_gauges.h"
#include "console/outcome.h"
#include "console/progress_line.h"
#include "platform/headless/headless_toolkit.h"

namespace panelkit {

/// Thrown where Ctrl-C ends a scan. No std::exception, so that the form does not take it for a
/// failure: whoever catches it is done with the form.
struct Interruption {};

/// Ends a scan by an Interruption after Ctrl-C under a terminal::InterruptGuard.
class ConsoleLoop : public QuietLoop {
 public:
  void ProcessPending() override;
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

  /// Adds what the last command has to tell to its outcome.
  void TellInto(Outcome& outcome) const;

  /// Puts the page of the last command into its outcome: as its file has it or, for a terminal, as
  /// text.
  void PrintPageInto(Outcome& outcome) const;

  frmGauges& Form() { return form_; }

 private:
  const Text& text_;
  ProgressLine progress_;
  ConsoleLoop loop_;
  HeadlessToolkit toolkit_;
  frmGauges form_;
};

}  // namespace panelkit
