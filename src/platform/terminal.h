// The terminal or pipes of a program. Each system's back end implements these functions. On
// Windows, a program with a window that was started by a click has neither: a message box shows
// its text until the user closes it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace panelkit::terminal {

/// The command line as UTF-8, the program's name first.
std::vector<std::string> Arguments(int argc, char** argv);

/// Writes UTF-8 text to standard output in the terminal's encoding, '?' for what that lacks (as
/// UTF-8 if the environment names no locale). False if it cannot be written (a full disk). A reader
/// that has closed the pipe has read enough: true, and what is left is dropped.
[[nodiscard]] bool WriteOut(std::string_view text);

/// Writes bytes to standard output as they are, without any translation of line ends; true and
/// false as for WriteOut.
[[nodiscard]] bool WriteOutBytes(std::string_view bytes);

/// Writes UTF-8 text to standard error in the terminal's encoding.
void WriteError(std::string_view text);

/// The width in columns of the terminal that standard error is, where a progress bar makes sense; 0
/// if it is none.
int ErrorColumns();

/// Whether standard output is a terminal, which obeys control characters.
bool OutIsTerminal();

/// The exit status of a command that Ctrl-C ended before it was done.
inline constexpr int kExitInterrupted = 130;

/// While one of these lives, the first Ctrl-C does not end the process but is noted: the program
/// asks Interrupted() where it can stop, and ends by itself. A second Ctrl-C ends the process at
/// once. One at a time; the end of its life brings back what Ctrl-C did before.
class InterruptGuard {
 public:
  InterruptGuard();
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;
};

/// Whether Ctrl-C was pressed under an InterruptGuard, the present one or an earlier one.
bool Interrupted();

}  // namespace panelkit::terminal
