// The commands of the console companion. Each runs the program's own handlers without a window,
// prints to the terminal, and gives an exit status.
#pragma once

#include <string>
#include <vector>

#include "app/status_line.h"
#include "console/command_line.h"
#include "console/command_results.h"
#include "platform/local_machine.h"

namespace panelkit {

inline constexpr int kExitDone = 0;           ///< Nothing is missing, or the command is done.
inline constexpr int kExitGaugesMissing = 1;  ///< The report names missing gauges.
inline constexpr int kExitError = 2;  ///< Something could not be done; standard error says what.

/// Runs one command to its end.
int RunConsoleCommand(LocalMachine& machine, const CommandLine& line);

/// The simulator's folder as the program would find it: `line.simulator` as a Windows path, else
/// the registry's answer.
std::string SimulatorFor(LocalMachine& machine, const CommandLine& line);

/// Why the simulator's folder is of no use; empty if it is of use.
std::string FolderComplaint(LocalMachine& machine, const std::string& simulator);

/// The same for the report commands, to which a folder that the registry names is of use also if it
/// is not there: they make their empty report of it and say why, as in the window.
std::string ReportComplaint(LocalMachine& machine, const CommandLine& line,
                            const std::string& simulator);

/// Says on standard error that Ctrl-C ended the command, and what that means. Gives
/// terminal::kExitInterrupted.
int ComplainOfInterrupt(const std::string& sentence);

/// Says on standard error what went wrong, after the program's name. Gives kExitError.
int Complain(const std::string& sentence);

/// Adds what the program's status line has to tell.
void AddNotes(const StatusLine& status, Notes& notes);

/// Says each sentence on standard error. Whether the command could do what it was asked.
bool Tell(const Notes& notes);

/// A heading and below it each name, indented, as lines.
std::string NameLines(const std::string& heading, const std::vector<std::string>& names);

/// A complaint as a line of JSON, {"error": ...}, in ASCII.
std::string JsonError(const std::string& sentence);

// The groups of commands, one file each.
int WhereAllCommand(const CommandLine& line);
int JsonCommand(LocalMachine& machine, const CommandLine& line);
int ReportCommand(LocalMachine& machine, const CommandLine& line);
int CleanCommand(LocalMachine& machine, const CommandLine& line);
int FindCommand(LocalMachine& machine, const CommandLine& line);
int RestoreCommand(LocalMachine& machine, const CommandLine& line);
int BrakeCommand(LocalMachine& machine, const CommandLine& line);
int CabinetCommand(LocalMachine& machine, const CommandLine& line);

}  // namespace panelkit
