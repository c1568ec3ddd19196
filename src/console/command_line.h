// The command line of the console companion.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace panelkit {

enum class ConsoleCommand {
  Where,
  Probe,
  Show,
  Clean,
  Restore,
  Brake,
  Find,
  CabCount,
  CabList,
  CabXml,
  CabExtract,
};

/// What the user asked for. Texts are UTF-8, as typed; empty if left out.
struct CommandLine {
  ConsoleCommand command = ConsoleCommand::Where;
  std::string simulator;
  std::string command_name;  ///< "probe", "list", ...
  std::string prefix;        ///< Native folder of a Wine prefix.
  bool all = false;          ///< Where.
  bool html = false;
  bool json = false;
  bool dry_run = false;              ///< Clean and Find.
  bool careful = false;              ///< Clean.
  bool hints = false;                ///< Probe.
  bool install = false;              ///< Find.
  std::vector<std::string> folders;  ///< Find.
  std::vector<std::string> gauges;   ///< Restore.
  std::string brake;                 ///< Brake: "on", "off" or empty.
  std::string cabinet;               ///< The cab commands.
  std::string entry;
  std::string output_path;
  std::string output_file;
};

/// What to print, and the exit status, if there is no command to run: help was asked for, or the
/// command line is wrong.
struct CommandLineAnswer {
  std::string output;
  std::string complaint;
  int exit_status = 0;
};

/// Parses the command line; `arguments` starts with the program's name.
std::variant<CommandLine, CommandLineAnswer> ParseCommandLine(
    const std::vector<std::string>& arguments);

}  // namespace panelkit
