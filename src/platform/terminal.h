// Seam 1, terminal: what a program without a window needs of its shell. Each system's back end
// implements these functions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace panelkit::terminal {

/// The command line as UTF-8, the program's name first.
std::vector<std::string> Arguments(int argc, char** argv);

/// Writes UTF-8 text to standard output in the terminal's encoding, '?' for what it lacks. False
/// when it cannot be written (a full disk, a closed pipe).
bool WriteOut(std::string_view text);

/// Writes bytes to standard output as they are, without any translation of line ends. False as
/// above.
bool WriteOutBytes(std::string_view bytes);

/// Writes UTF-8 text to standard error in the terminal's encoding.
void WriteError(std::string_view text);

/// Whether standard error is a terminal, where a progress bar makes sense.
bool ErrorIsTerminal();

}  // namespace panelkit::terminal
