#include "console/console_commands.h"

#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

// Why the simulator's folder is of no use to the command; empty if it is of use. One that the
// registry names and that is not there is of use to a report: it is empty then and says why, as in
// the window.
std::string Complaint(LocalMachine& machine, const CommandLine& line,
                      const std::string& simulator) {
  if (simulator.empty()) {
    return "No simulator is registered (" + machine.Origin() +
           "). Its folder can be named with --simulator.";
  }
  const bool makes_report = line.command == ConsoleCommand::Probe ||
                            line.command == ConsoleCommand::Show ||
                            line.command == ConsoleCommand::Clean;
  if (line.command == ConsoleCommand::Brake || (makes_report && line.simulator.empty())) return {};
  return FolderComplaint(machine, simulator);
}

}  // namespace

Outcome RunConsoleCommand(LocalMachine& machine, const CommandLine& line) {
  switch (line.command) {
    case ConsoleCommand::Where:
      return line.all ? WhereAllCommand(line) : WhereCommand(machine, line);
    case ConsoleCommand::CabCount:
    case ConsoleCommand::CabList:
    case ConsoleCommand::CabXml:
    case ConsoleCommand::CabExtract:
      return CabinetCommand(machine, line);
    default:
      break;
  }
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = Complaint(machine, line, simulator);
  if (!complaint.empty()) return Failure(complaint);
  switch (line.command) {
    case ConsoleCommand::Clean:
      return CleanCommand(machine, line, simulator);
    case ConsoleCommand::Restore:
      return RestoreCommand(machine, line, simulator);
    case ConsoleCommand::Find:
      return FindCommand(machine, line, simulator);
    case ConsoleCommand::Brake:
      return BrakeCommand(machine, line, simulator);
    default:
      return ReportCommand(machine, line, simulator);
  }
}

std::string SimulatorFor(LocalMachine& machine, const CommandLine& line) {
  if (!line.simulator.empty()) return machine.WindowsPath(line.simulator);
  const Machine services = machine.Services();
  return FindSimulator(services.registry, services.text);
}

}  // namespace panelkit
