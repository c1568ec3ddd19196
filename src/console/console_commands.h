// The commands of the console companion. Each runs the program's own handlers without a window.
#pragma once

#include <string>

#include "console/command_line.h"
#include "console/outcome.h"
#include "platform/local_machine.h"
#include "search/deeds.h"

namespace panelkit {

/// Runs one command to its end.
Outcome RunConsoleCommand(LocalMachine& machine, const CommandLine& line);

/// The simulator's folder as the program would find it: `line.simulator` as a Windows path, else
/// the registry's answer.
std::string SimulatorFor(LocalMachine& machine, const CommandLine& line);

// The commands that need no simulator, one file a group.
Outcome WhereCommand(LocalMachine& machine, const CommandLine& line);
Outcome WhereAllCommand(const CommandLine& line);
Outcome CabinetCommand(LocalMachine& machine, const CommandLine& line);

// Those that need the simulator's folder: a Windows path, never empty.
Outcome ReportCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator);
Outcome CleanCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator);
Outcome RestoreCommand(LocalMachine& machine, const CommandLine& line,
                       const std::string& simulator);
Outcome FindCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator);
Outcome BrakeCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator);

}  // namespace panelkit
