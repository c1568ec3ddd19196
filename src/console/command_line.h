// The command line of the console companion.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/simulator_choice.h"

namespace panelkit {

struct Outcome;

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

/// How a result is printed.
enum class Format { Text, Html, Json };

/// What the user asked for. Texts are UTF-8, as typed; empty if left out.
struct CommandLine : SimulatorChoice {
  ConsoleCommand command = ConsoleCommand::Where;
  std::string command_name;  ///< "probe", "cab list", ...
  Format format = Format::Text;
  bool all = false;                   ///< Where and Restore.
  bool dry_run = false;               ///< Clean and Find.
  bool careful = false;               ///< Probe, Show, Clean and Find.
  bool hints = false;                 ///< Probe.
  bool install = false;               ///< Find.
  std::vector<std::string> accepted;  ///< Find: required files that a near name may stand for.
  std::vector<std::string> folders;   ///< Find.
  std::vector<std::string> gauges;    ///< Restore.
  bool older = false;                 ///< Restore.
  bool list = false;                  ///< Restore.
  std::string brake;                  ///< Brake: "on", "off" or empty.
  std::string cabinet;                ///< The cab commands.
  std::string entry;
  std::string output_path;
  std::string output_file;
};

/// Reads the command line into `line`; `arguments` starts with the program's name. Where there is
/// no command to run, since help was asked for or the command line is wrong, gives what to print
/// instead, and `line` has the format to print complaints in.
std::optional<Outcome> ParseCommandLine(const std::vector<std::string>& arguments,
                                        CommandLine& line);

}  // namespace panelkit
