// The console companion.
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "console/console_commands.h"
#include "platform/terminal.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

std::unique_ptr<LocalMachine> MachineFor(const CommandLine& line) {
  if (!line.prefix.empty()) {
    auto machines = OpenLocalMachines(line.prefix);
    return machines.empty() ? nullptr : std::move(machines.front());
  }
  return OpenLocalMachine(
      [](const Machine& candidate) { return HasSimulator(candidate.registry, candidate.text); });
}

}  // namespace
}  // namespace panelkit

int main(int argc, char** argv) {
  using namespace panelkit;
  try {
    const auto parsed = ParseCommandLine(terminal::Arguments(argc, argv));
    if (const auto* answer = std::get_if<CommandLineAnswer>(&parsed)) {
      terminal::WriteOut(answer->output);
      terminal::WriteError(answer->complaint);
      return answer->exit_status;
    }
    const auto& line = std::get<CommandLine>(parsed);
    const auto machine = MachineFor(line);
    if (machine) return RunConsoleCommand(*machine, line);
    const std::string complaint = "There is no Wine prefix at " + line.prefix + ".";
    if (!line.json) return Complain(complaint);
    terminal::WriteError(JsonError(complaint));
    return kExitError;
  } catch (const std::exception& failure) {
    return Complain(std::string("The command could not be finished: ") + failure.what());
  }
}
