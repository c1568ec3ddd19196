#include "app/simulator_choice.h"

#include <CLI/CLI.hpp>
#include <utility>

#include "simulator/simulator_location.h"

namespace panelkit {

void AddSimulatorOptions(CLI::App& app, SimulatorChoice& choice) {
  app.add_option("--simulator", choice.simulator,
                 "The simulator's folder, instead of the registry's")
      ->type_name("DIR")
      ->group("Common options");
  app.add_option("--prefix", choice.prefix, "The Wine prefix to use, on Linux")
      ->type_name("DIR")
      ->group("Common options");
}

std::string EmptyArgumentComplaint(const std::vector<std::string>& arguments) {
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    if (word.starts_with("--") && word.ends_with('=')) {
      return word.substr(0, word.size() - 1) + " has an empty value.";
    }
    if (!word.empty()) continue;
    const std::string& before = arguments[i - 1];
    return before.starts_with("--") ? before + " has an empty value." : "An argument is empty.";
  }
  return {};
}

std::unique_ptr<LocalMachine> OpenChosenMachine(const SimulatorChoice& choice,
                                                std::string& complaint) {
  if (choice.prefix.empty()) {
    return OpenLocalMachine(
        [](const Machine& candidate) { return HasSimulator(candidate.registry, candidate.text); });
  }
  auto machines = OpenLocalMachines(choice.prefix);
  if (!machines.empty()) return std::move(machines.front());
  complaint = "There is no Wine prefix at " + choice.prefix + ".";
  return nullptr;
}

std::string FolderComplaint(LocalMachine& machine, const std::string& simulator) {
  if (machine.Services().files.IsFolder(simulator)) return {};
  return "The simulator's folder " + simulator + " is not there.";
}

CommandStyle StyleFor(LocalMachine& machine, const SimulatorChoice& choice) {
  CommandStyle style = CommandStyle::Of(machine.Services().files);
  const auto argument = [&](const std::string& text) { return AsArgument(text, style.is_posix); };
  if (!choice.prefix.empty()) style.program += " --prefix " + argument(choice.prefix);
  if (!choice.simulator.empty()) style.program += " --simulator " + argument(choice.simulator);
  const std::string downloads = machine.DownloadFolder();
  if (!downloads.empty()) style.look_in = argument(downloads);
  return style;
}

}  // namespace panelkit
