// The program with its window.
#include <cstdio>

#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/gtk_face.h"
#include "platform/local_machine.h"
#include "shell/frm_gauges.h"
#include "shell/simulator_location.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

bool HasSimulator(const Machine& machine) {
  return !FindSimulator(machine.registry, machine.text).empty();
}

int RunWithWindow() {
  const std::unique_ptr<LocalMachine> machine = OpenLocalMachine(HasSimulator);
  const std::unique_ptr<GtkFace> face = GtkFace::Open(*machine);
  if (face == nullptr) {
    (void)std::fputs("panelkit: cannot open a display (panelkit-console needs none)\n", stderr);
    return kCannotRun;
  }
  frmGauges program(*face, machine->Services());
  program.Show();
  RunEventLoop();
}

}  // namespace
}  // namespace panelkit

int main(int argc, char**) {
  if (argc > 1) {
    (void)std::fputs("usage: panelkit (takes no arguments; panelkit-console does)\n", stderr);
    return panelkit::kCannotRun;
  }
  return panelkit::RunWithWindow();
}
