#include "console/console_commands.h"

#include "platform/terminal.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

int WhereCommand(LocalMachine& machine, const CommandLine& line) {
  const WhereResult result = Where(machine, line);
  if (result.simulator.windows.empty()) {
    return Complain("No simulator is registered (" + result.how + ").");
  }
  terminal::WriteOut(result.simulator.windows + "\n  on disk: " + result.simulator.native +
                     "\n  found by: " + result.how + "\n  own files: " + result.own_files.native +
                     " (" + result.own_files_how + ")\n");
  return result.is_there ? kExitDone : Complain("There is no such folder.");
}

}  // namespace

int RunConsoleCommand(LocalMachine& machine, const CommandLine& line) {
  if (line.json) return JsonCommand(machine, line);
  switch (line.command) {
    case ConsoleCommand::Where:
      return line.all ? WhereAllCommand(line) : WhereCommand(machine, line);
    case ConsoleCommand::Probe:
    case ConsoleCommand::Show:
      return ReportCommand(machine, line);
    case ConsoleCommand::Clean:
      return CleanCommand(machine, line);
    case ConsoleCommand::Find:
      return FindCommand(machine, line);
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

std::string FolderComplaint(LocalMachine& machine, const std::string& simulator) {
  if (simulator.empty()) {
    return "No simulator is registered (" + machine.Origin() +
           "). Its folder can be named with --simulator.";
  }
  if (machine.Services().files.IsFolder(simulator)) return {};
  return "The simulator's folder " + simulator + " is not there.";
}

std::string ReportComplaint(LocalMachine& machine, const CommandLine& line,
                            const std::string& simulator) {
  const bool is_registered = line.simulator.empty() && !simulator.empty();
  return is_registered ? std::string() : FolderComplaint(machine, simulator);
}

int ComplainOfInterrupt(const std::string& sentence) {
  Complain("Interrupted. " + sentence);
  return terminal::kExitInterrupted;
}

int Complain(const std::string& sentence) {
  terminal::WriteError("panelkit-console: " + sentence + "\n");
  return kExitError;
}

void AddNotes(const StatusLine& status, Notes& notes) {
  notes.sentences.insert(notes.sentences.end(), status.Sentences().begin(),
                         status.Sentences().end());
  notes.failed = notes.failed || status.HasComplaint();
}

bool Tell(const Notes& notes) {
  for (const std::string& sentence : notes.sentences) Complain(sentence);
  return !notes.failed;
}

std::string NameLines(const std::string& heading, const std::vector<std::string>& names) {
  std::string lines = heading + "\n";
  for (const std::string& name : names) lines += "    " + name + "\n";
  return lines;
}

FolderNames NamesOf(const LocalMachine& machine, const std::string& windows_path) {
  return {windows_path, machine.NativePath(windows_path)};
}

std::string BothNames(const FolderNames& folder) {
  if (folder.native == folder.windows) return folder.windows;
  return folder.windows + " (" + folder.native + ")";
}

WhereResult Where(LocalMachine& machine, const CommandLine& line) {
  const Files& files = machine.Services().files;
  const std::string folder = SimulatorFor(machine, line);
  return {NamesOf(machine, folder), line.simulator.empty() ? machine.Origin() : "--simulator",
          files.IsFolder(folder), NamesOf(machine, files.AppFolder()), machine.AppFolderOrigin()};
}

}  // namespace panelkit
