// The console companion.
#include <exception>
#include <string>

#include "console/console_commands.h"
#include "platform/terminal.h"
#include "simulator/simulator_location.h"

int main(int argc, char** argv) {
  using namespace panelkit;
  try {
    const auto parsed = ParseCommandLine(terminal::Arguments(argc, argv));
    if (const auto* answer = std::get_if<CommandLineAnswer>(&parsed)) {
      terminal::WriteOut(answer->output);
      terminal::WriteError(answer->complaint);
      return answer->exit_status;
    }
    const auto machine = OpenLocalMachine([](const Machine& candidate) {
      return !FindSimulator(candidate.registry, candidate.text).empty();
    });
    return RunConsoleCommand(*machine, std::get<CommandLine>(parsed));
  } catch (const std::exception& failure) {
    return Complain(std::string("The command could not be finished: ") + failure.what());
  }
}
