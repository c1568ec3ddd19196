// brake, brake on, brake off.
#include "app/frm_gauges.h"
#include "app/gauges_window.h"
#include "brake/config_edit.h"
#include "console/console_commands.h"
#include "console/exit_status.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/headless/quiet_loop.h"
#include "platform/terminal.h"

namespace panelkit {

int BrakeCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  if (simulator.empty()) {
    return Complain("No simulator is registered (" + machine.Origin() + ").");
  }
  const Machine services = machine.Services();
  const std::string config = simulator + "\\fs2002.cfg";
  if (!services.files.Read(config).bytes) return Complain(config + " is not there or cannot be read.");

  QuietLoop loop;
  HeadlessToolkit toolkit(loop);
  frmGauges program(toolkit, services, simulator);
  program.SetupBrakes();
  const bool wanted = line.brake.empty() ? program.BrakeMessagesAreShown() : line.brake == "on";
  if (program.BrakeMessagesAreShown() != wanted) {
    toolkit.FormTitled(kGaugesWindow.title)->Click("menBrake");
  }
  if (!line.brake.empty()) {
    const auto bytes = services.files.Read(config).bytes;
    const auto shown = bytes ? BrakeMessagesShown(*bytes, [] {}) : std::nullopt;
    if (shown != wanted) {
      return Complain(config + " does not hold the setting: it cannot be written, or has no " +
                      "SYSCLOCK line to put the setting behind.");
    }
  }
  if (!program.Complaint().empty()) return Complain(program.Complaint());
  terminal::WriteOut(wanted ? "on: the red brake messages are shown\n"
                            : "off: the red brake messages are hidden\n");
  return kExitDone;
}

}  // namespace panelkit
