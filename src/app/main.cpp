// The program with its window.
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/frm_gauges.h"
#include "platform/local_machine.h"
#include "platform/terminal.h"
#include "platform/toolkit.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

constexpr std::string_view kHelp =
    "Usage: panelkit\n"
    "Opens the window of Panelkit, which finds the missing gauges of Flight Simulator 2002's\n"
    "aircraft panels.\n"
    "\n"
    "  --help     Shows this text.\n"
    "  --version  Shows the version.\n"
    "\n"
    "panelkit-console does the same work without a window.\n";

int Refuse(const std::string& sentence) {
  terminal::WriteError("panelkit: " + sentence + "\n");
  return kCannotRun;
}

int RunWithWindow() {
  const std::unique_ptr<LocalMachine> machine = OpenLocalMachine(
      [](const Machine& candidate) { return HasSimulator(candidate.registry, candidate.text); });
  const std::unique_ptr<Toolkit> toolkit = OpenToolkit(*machine);
  if (toolkit == nullptr) return Refuse("cannot open a display (panelkit-console needs none)");
  frmGauges program(*toolkit, machine->Services());
  program.Show();
  RunEventLoop(*toolkit);
}

int Answer(const std::vector<std::string>& arguments) {
  std::string_view answer;
  if (arguments[1] == "--help") answer = kHelp;
  if (arguments[1] == "--version") answer = "panelkit " PANELKIT_VERSION "\n";
  if (answer.empty() || arguments.size() > 2) {
    return Refuse("takes no arguments but --help and --version (panelkit-console does)");
  }
  return terminal::WriteOut(answer) ? 0 : kCannotRun;
}

}  // namespace
}  // namespace panelkit

int main(int argc, char** argv) {
  using namespace panelkit;
  try {
    return argc > 1 ? Answer(terminal::Arguments(argc, argv)) : RunWithWindow();
  } catch (const std::exception& failure) {
    return Refuse(std::string("the program cannot go on: ") + failure.what());
  }
}
