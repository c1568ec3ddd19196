// The program with its window.
#include <exception>
#include <string>

#include "app/frm_gauges.h"
#include "platform/local_machine.h"
#include "platform/terminal.h"
#include "platform/toolkit.h"
#include "simulator/simulator_location.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

int Refuse(const std::string& sentence) {
  terminal::WriteError("panelkit: " + sentence + "\n");
  return kCannotRun;
}

bool HasSimulator(const Machine& machine) {
  return !FindSimulator(machine.registry, machine.text).empty();
}

int RunWithWindow() {
  const std::unique_ptr<LocalMachine> machine = OpenLocalMachine(HasSimulator);
  const std::unique_ptr<Toolkit> toolkit = OpenToolkit(*machine);
  if (toolkit == nullptr) return Refuse("cannot open a display (panelkit-console needs none)");
  frmGauges program(*toolkit, machine->Services());
  program.Show();
  RunEventLoop(*toolkit);
}

}  // namespace
}  // namespace panelkit

int main(int argc, char**) {
  using namespace panelkit;
  if (argc > 1) return Refuse("takes no arguments (panelkit-console does)");
  try {
    return RunWithWindow();
  } catch (const std::exception& failure) {
    return Refuse(std::string("the program cannot go on: ") + failure.what());
  }
}
