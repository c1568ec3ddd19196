// where, where --all: the simulators that the registries of this machine name.
#include <algorithm>

#include "console/console_commands.h"
#include "console/json.h"
#include "gauges/gauge_file.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

std::size_t CountFolders(const Files& files, const std::string& pattern) {
  const auto listed = files.List(pattern, ListedEntries::FilesAndFolders);
  if (!listed) return 0;
  return static_cast<std::size_t>(
      std::count_if(listed->begin(), listed->end(), [](const ListedEntry& entry) {
        return entry.is_folder && entry.name != "." && entry.name != "..";
      }));
}

// Adds one simulator to the result of where --all.
void Describe(LocalMachine& machine, const std::string& folder, Lines& lines, Json& json) {
  const Machine services = machine.Services();
  const Files& files = services.files;
  const std::string windows = WindowsVersion(services.registry, services.text);
  const bool is_there = files.IsFolder(folder);
  const std::size_t aircraft = CountFolders(files, folder + R"(\Aircraft\*.*)");
  std::size_t gauges = 0;
  for (const std::string_view extension : kGaugesExtensions) {
    gauges += FilesNamed(files, folder + R"(\Gauges\*)" + std::string(extension)).size();
  }
  lines.Add(folder);
  lines.Add("  on disk: " + machine.NativePath(folder));
  lines.Add("  found by: " + machine.Origin());
  lines.Add("  Windows: " + windows);
  lines.Add("  aircraft: " + std::to_string(aircraft) +
            ", gauge files and cabinets: " + std::to_string(gauges));
  if (!is_there) lines.Add("  There is no such folder.");
  json.push_back(JsonOfPath(machine, folder));
  json.back().update(Json{{"found_by", machine.Origin()},
                          {"windows", windows},
                          {"is_there", is_there},
                          {"aircraft", aircraft},
                          {"gauges", gauges}});
}

}  // namespace

Outcome WhereCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string folder = SimulatorFor(machine, line);
  const std::string how = line.simulator.empty() ? machine.Origin() : "--simulator";
  if (folder.empty()) return Failure("No simulator is registered (" + how + ").");
  const Files& files = machine.Services().files;
  const std::string own_files = files.AppFolder();
  const bool is_there = files.IsFolder(folder);
  Outcome outcome;
  if (!is_there) outcome.Fail("There is no such folder.");
  if (line.format == Format::Json) {
    outcome.output = JsonText(line, {{"simulator", JsonOfPath(machine, folder)},
                                     {"found_by", how},
                                     {"is_there", is_there},
                                     {"own_files", JsonOfPath(machine, own_files)}});
    return outcome;
  }
  Lines lines;
  lines.Add(folder);
  lines.Add("  on disk: " + machine.NativePath(folder));
  lines.Add("  found by: " + how);
  lines.Add("  own files: " + machine.NativePath(own_files) + " (" + machine.AppFolderOrigin() +
            ")");
  outcome.output = lines.Take();
  return outcome;
}

Outcome WhereAllCommand(const CommandLine& line) {
  Lines lines;
  Json json = Json::array();
  for (const auto& machine : OpenLocalMachines(line.prefix)) {
    const Machine services = machine->Services();
    for (const std::string& folder : FindSimulators(services.registry, services.text)) {
      Describe(*machine, folder, lines, json);
    }
  }
  if (json.empty()) return Failure("No simulator is registered.");
  return {line.format == Format::Json ? JsonText(line, {{"simulators", json}}) : lines.Take()};
}

}  // namespace panelkit
