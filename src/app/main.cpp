// The program with its window.
#include <CLI/CLI.hpp>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/frm_gauges.h"
#include "app/simulator_choice.h"
#include "platform/local_machine.h"
#include "platform/terminal.h"
#include "platform/toolkit.h"
#include "simulator/remembered_simulator.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

int Refuse(const std::string& sentence) {
  terminal::WriteError("panelkit: " + sentence + "\n");
  return kCannotRun;
}

struct CommandLine {
  SimulatorChoice choice;
  std::vector<std::string> places;  // To be searched for the missing gauges, as typed.
};

// Reads the command line. Gives the exit status if no window is to be opened.
std::optional<int> Read(const std::vector<std::string>& arguments, CommandLine& line) {
  CLI::App app("Opens the window of Panelkit, which finds the missing gauges of FS2002 panels.",
               "panelkit");
  app.set_version_flag("--version", "panelkit " PANELKIT_VERSION);
  app.add_option("places", line.places,
                 "Folders, archives and gauges: missing gauges are looked for in them at once")
      ->type_name("FOLDER");
  AddSimulatorOptions(app, line.choice);
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

// The simulator that was chosen in the window, as a Windows path; empty if there is none. One that
// is `gone` is forgotten, and its native path given.
std::string Remembered(LocalMachine& machine, std::string& gone) {
  Files& files = machine.Services().files;
  const std::string native = RememberedSimulator(files);
  if (native.empty()) return {};
  std::string folder = machine.WindowsPath(native);
  if (IsSimulator(files, folder)) return folder;
  ForgetSimulator(files);
  gone = native;
  return {};
}

// How many simulators this machine has: the registered ones, and `chosen` unless it is empty.
std::size_t CountOfSimulators(const std::string& chosen) {
  std::set<std::string> folders;
  if (!chosen.empty()) folders.insert(chosen);
  for (const auto& machine : OpenLocalMachines({})) {
    const Machine services = machine->Services();
    for (const std::string& folder : FindSimulators(services.registry, services.text)) {
      folders.insert(machine->NativePath(folder));
    }
  }
  return folders.size();
}

int Run(const CommandLine& line) {
  const SimulatorChoice& choice = line.choice;
  std::string complaint;
  const std::unique_ptr<LocalMachine> machine = OpenChosenMachine(choice, complaint);
  if (machine == nullptr) return Refuse(complaint);
  std::string simulator = machine->WindowsPath(choice.simulator);
  if (!simulator.empty()) complaint = FolderComplaint(*machine, simulator);
  if (!complaint.empty()) return Refuse(complaint);
  std::string gone;
  const bool is_named = !choice.simulator.empty() || !choice.prefix.empty();
  if (!is_named) simulator = Remembered(*machine, gone);
  const std::unique_ptr<Toolkit> toolkit = OpenToolkit(*machine);
  if (toolkit == nullptr) return Refuse("Cannot open a display; panelkit-console needs none.");
  machine->Services().archives.WhileReading([&toolkit] { toolkit->Loop().ProcessPending(); });
  frmGauges program(*toolkit, machine->Services(), simulator);
  program.Steps().WriteCommandsIn(StyleFor(*machine, {.simulator = {}, .prefix = choice.prefix}));
  program.Show();
  program.Steps().OfferSimulators(
      gone, is_named ? 1 : CountOfSimulators(RememberedSimulator(machine->Services().files)));
  std::vector<std::string> places;
  for (const std::string& place : line.places) places.push_back(machine->WindowsPath(place));
  if (!places.empty()) program.FindIn(places);
  RunEventLoop(*toolkit);
}

}  // namespace
}  // namespace panelkit

int main(int argc, char** argv) {
  using namespace panelkit;
  try {
    CommandLine line;
    const std::optional<int> end = Read(terminal::Arguments(argc, argv), line);
    return end ? *end : Run(line);
  } catch (const std::exception& failure) {
    return Refuse(std::string("The program cannot go on: ") + failure.what());
  }
}
