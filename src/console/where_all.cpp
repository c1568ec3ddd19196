// where --all: every simulator that any registry of this machine names.
#include <algorithm>

#include "console/command_results.h"
#include "console/console_commands.h"
#include "platform/terminal.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

std::size_t Count(const Files& files, const std::string& pattern, ListedEntries kind) {
  const auto listed = files.List(pattern, kind);
  if (!listed) return 0;
  return static_cast<std::size_t>(
      std::count_if(listed->begin(), listed->end(), [&](const ListedEntry& entry) {
        const bool is_dots = entry.name == "." || entry.name == "..";
        return !is_dots && entry.is_folder == (kind == ListedEntries::FilesAndFolders);
      }));
}

RegisteredSimulator Describe(LocalMachine& machine, const std::string& folder) {
  const Machine services = machine.Services();
  const Files& files = services.files;
  RegisteredSimulator simulator;
  simulator.folder = NamesOf(machine, folder);
  simulator.how = machine.Origin();
  simulator.windows = WindowsVersion(services.registry, services.text);
  simulator.is_there = files.IsFolder(folder);
  simulator.aircraft = Count(files, folder + R"(\Aircraft\*.*)", ListedEntries::FilesAndFolders);
  simulator.gauges = Count(files, folder + R"(\Gauges\*.gau)", ListedEntries::PlainFiles) +
                     Count(files, folder + R"(\Gauges\*.cab)", ListedEntries::PlainFiles);
  return simulator;
}

}  // namespace

std::vector<RegisteredSimulator> AllSimulators(const std::string& prefix) {
  std::vector<RegisteredSimulator> simulators;
  for (const auto& machine : OpenLocalMachines(prefix)) {
    const Machine services = machine->Services();
    for (const std::string& folder : FindSimulators(services.registry, services.text)) {
      simulators.push_back(Describe(*machine, folder));
    }
  }
  return simulators;
}

int WhereAllCommand(const CommandLine& line) {
  std::string lines;
  for (const RegisteredSimulator& simulator : AllSimulators(line.prefix)) {
    lines += simulator.folder.windows + "\n  on disk: " + simulator.folder.native +
             "\n  found by: " + simulator.how + "\n  Windows: " + simulator.windows +
             "\n  aircraft: " + std::to_string(simulator.aircraft) +
             ", gauge files and cabinets: " + std::to_string(simulator.gauges) + "\n";
    if (!simulator.is_there) lines += "  There is no such folder.\n";
  }
  if (lines.empty()) return Complain("No simulator is registered.");
  terminal::WriteOut(lines);
  return kExitDone;
}

}  // namespace panelkit
