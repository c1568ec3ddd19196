// The console companion.
#include <exception>
#include <string>
#include <utility>

#include "app/simulator_choice.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

Outcome Run(const std::vector<std::string>& arguments, CommandLine& line) {
  try {
    if (auto answer = ParseCommandLine(arguments, line)) return std::move(*answer);
    std::string complaint;
    const auto machine = OpenChosenMachine(line, complaint);
    if (!machine) return Failure(complaint);
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
