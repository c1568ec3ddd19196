#include "console/console_commands.h"

#include "console/exit_status.h"
#include "platform/terminal.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

int WhereCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string folder = SimulatorFor(machine, line);
  const std::string how = line.simulator.empty() ? machine.Origin() : "--simulator";
  if (folder.empty()) return Complain("No simulator is registered (" + how + ").");
  terminal::WriteOut(folder + "\n");
  terminal::WriteOut("  on disk: " + machine.NativePath(folder) + "\n");
  terminal::WriteOut("  found by: " + how + "\n");
  if (machine.Services().files.IsFolder(folder)) return kExitDone;
  return Complain("There is no such folder.");
}

}  // namespace

int RunConsoleCommand(LocalMachine& machine, const CommandLine& line) {
  switch (line.command) {
    case ConsoleCommand::Where:
      return WhereCommand(machine, line);
    case ConsoleCommand::Probe:
    case ConsoleCommand::Show:
    case ConsoleCommand::Clean:
      return ReportCommand(machine, line);
    case ConsoleCommand::Restore:
      return RestoreCommand(machine, line);
    case ConsoleCommand::Brake:
      return BrakeCommand(machine, line);
    case ConsoleCommand::CabCount:
    case ConsoleCommand::CabList:
    case ConsoleCommand::CabXml:
    case ConsoleCommand::CabExtract:
      return CabinetCommand(machine, line);
  }
  return kExitError;
}

std::string SimulatorFor(LocalMachine& machine, const CommandLine& line) {
  if (!line.simulator.empty()) return machine.WindowsPath(line.simulator);
  const Machine services = machine.Services();
  return FindSimulator(services.registry, services.text);
}

int Complain(const std::string& sentence) {
  terminal::WriteError("panelkit-console: " + sentence + "\n");
  return kExitError;
}

}  // namespace panelkit
