// The program with its window.
#include <CLI/CLI.hpp>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/frm_gauges.h"
#include "app/simulator_choice.h"
#include "platform/local_machine.h"
#include "platform/terminal.h"
#include "platform/toolkit.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

int Refuse(const std::string& sentence) {
  terminal::WriteError("panelkit: " + sentence + "\n");
  return kCannotRun;
}

// Reads the command line. What to end with, where there is no window to open.
std::optional<int> Read(const std::vector<std::string>& arguments, SimulatorChoice& choice) {
  CLI::App app("Opens the window of Panelkit, which finds the missing gauges of FS2002 panels.",
               "panelkit");
  app.set_version_flag("--version", "panelkit " PANELKIT_VERSION);
  AddSimulatorOptions(app, choice);
  app.footer("panelkit-console does the same work without a window.");
  const std::string empty = EmptyArgumentComplaint(arguments);
  if (!empty.empty()) return Refuse(empty);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), std::prev(arguments.rend())));
  } catch (const CLI::ParseError& error) {
    std::ostringstream answer;
    if (app.exit(error, answer, answer) != 0) return Refuse(error.what());
    return terminal::WriteOut(answer.str()) ? 0 : kCannotRun;
  }
  return std::nullopt;
}

int Run(const SimulatorChoice& choice) {
  std::string complaint;
  const std::unique_ptr<LocalMachine> machine = OpenChosenMachine(choice, complaint);
  if (machine == nullptr) return Refuse(complaint);
  const std::string simulator = machine->WindowsPath(choice.simulator);
  if (!simulator.empty()) complaint = FolderComplaint(*machine, simulator);
  if (!complaint.empty()) return Refuse(complaint);
  const std::unique_ptr<Toolkit> toolkit = OpenToolkit(*machine);
  if (toolkit == nullptr) return Refuse("Cannot open a display; panelkit-console needs none.");
  frmGauges program(*toolkit, machine->Services(), simulator);
  program.Show();
  RunEventLoop(*toolkit);
}

}  // namespace
}  // namespace panelkit

int main(int argc, char** argv) {
  using namespace panelkit;
  try {
    SimulatorChoice choice;
    const std::optional<int> end = Read(terminal::Arguments(argc, argv), choice);
    return end ? *end : Run(choice);
  } catch (const std::exception& failure) {
    return Refuse(std::string("The program cannot go on: ") + failure.what());
  }
}
