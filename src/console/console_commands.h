// The commands of the console companion. Each runs the program's own handlers on a face without a
// window, prints to the terminal, and gives an exit status of exit_status.h.
#pragma once

#include <string>

#include "console/command_line.h"
#include "platform/local_machine.h"

namespace panelkit {

/// Runs one command to its end.
int RunConsoleCommand(LocalMachine& machine, const CommandLine& line);

/// The simulator's folder as the program would find it: `line.simulator` as a Windows path, else
/// the registry's answer.
std::string SimulatorFor(LocalMachine& machine, const CommandLine& line);

/// Says on standard error what went wrong, after the program's name. Gives kExitError.
int Complain(const std::string& sentence);

// The groups of commands, one file each.
int ReportCommand(LocalMachine& machine, const CommandLine& line);
int RestoreCommand(LocalMachine& machine, const CommandLine& line);
int BrakeCommand(LocalMachine& machine, const CommandLine& line);
int CabinetCommand(LocalMachine& machine, const CommandLine& line);

}  // namespace panelkit
