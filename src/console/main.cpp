// The console companion.
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/status_text.h"
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

Outcome Run(const std::vector<std::string>& arguments, CommandLine& line) {
  try {
    if (auto answer = ParseCommandLine(arguments, line)) return std::move(*answer);
    const auto machine = MachineFor(line);
    if (!machine) return Failure("There is no Wine prefix at " + line.prefix + ".");
    return RunConsoleCommand(*machine, line);
  } catch (const Interruption&) {
    Outcome outcome;
    outcome.Interrupt({});
    return outcome;
  } catch (const std::exception& failure) {
    return Failure(UnfinishedText(failure.what()));
  }
}

}  // namespace
}  // namespace panelkit

int main(int argc, char** argv) {
  using namespace panelkit;
  CommandLine line;
  const Outcome outcome = Run(terminal::Arguments(argc, argv), line);
  return Print(outcome, line.format);
}
