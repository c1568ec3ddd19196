// What a command of the console companion comes to, and the one way to print it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "console/command_line.h"

namespace panelkit {

inline constexpr int kExitDone = 0;           ///< Nothing is missing, or the command is done.
inline constexpr int kExitGaugesMissing = 1;  ///< The report names missing gauges.
inline constexpr int kExitError = 2;  ///< Something could not be done; standard error says what.

/// A command's end: its result as it is to be printed, what went wrong, and the exit status.
struct Outcome {
  std::string output;                        ///< For standard output; empty if there is no result.
  bool is_page = false;                      ///< `output` is bytes of a page, not UTF-8 text.
  std::vector<std::string> complaints = {};  ///< One sentence each, for standard error.
  bool complains_first = false;              ///< Before a long output that they explain.
  int status = kExitDone;

  /// Adds what could not be done: the status is that of an error.
  void Fail(std::string sentence);

  /// Adds that Ctrl-C ended the command, and what that means, as one more sentence or "".
  void Interrupt(const std::string& sentence);
};

/// The outcome of a command that has no result.
Outcome Failure(std::string sentence);

/// The result of `line`'s command as JSON text in ASCII, the same in every encoding: `members`
/// behind the version and the command's name.
std::string JsonText(const CommandLine& line, const nlohmann::ordered_json& members);

/// Text for standard output, made line by line. On a terminal each control character in a line is
/// shown as an escape ("\x1b"), so that no name can move the cursor or forge a line.
class Lines {
 public:
  Lines();

  /// Adds a line, given without its end.
  void Add(std::string_view line);

  /// Adds a heading and below it each name, indented.
  void AddNames(std::string_view heading, const std::vector<std::string>& names);

  /// Adds text that has lines of its own.
  void AddText(std::string_view text);

  bool IsEmpty() const { return text_.empty(); }

  std::string Take() { return std::move(text_); }

 private:
  bool on_terminal_;
  std::string text_;
};

/// Prints the outcome of a command and gives the exit status, that of an error if standard output
/// could not be written. Complaints have no control characters; they are JSON if that was asked
/// for.
[[nodiscard]] int Print(const Outcome& outcome, Format format);

}  // namespace panelkit
