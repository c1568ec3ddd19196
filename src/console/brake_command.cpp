// brake, brake on, brake off.
#include "console/command_results.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {

BrakeResult Brake(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  ConsoleProgram program(machine.Services(), simulator);
  frmGauges& form = program.Form();
  BrakeResult result;
  form.SetupBrakes();
  AddNotes(form.Status(), result.notes);
  const bool is_switch = !line.brake.empty();
  const bool wanted = line.brake == "on";
  if (is_switch && !result.notes.failed && form.BrakeMessagesAreShown() != wanted) {
    program.Click("menBrake");
    AddNotes(form.Status(), result.notes);
  }
  result.shown = form.Brakes().shown;
  if (!result.shown && result.notes.sentences.empty()) {
    result.notes.sentences.emplace_back(kNoPlaceForSettingText);
  }
  if (is_switch && result.shown != wanted) result.notes.failed = true;
  return result;
}

int BrakeCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  if (simulator.empty()) {
    return Complain("No simulator is registered (" + machine.Origin() + ").");
  }
  const BrakeResult result = Brake(machine, line, simulator);
  if (result.shown || !result.notes.failed) {
    // Without the setting the simulator shows the messages.
    terminal::WriteOut(result.shown.value_or(true) ? "on: the red brake messages are shown\n"
                                                   : "off: the red brake messages are hidden\n");
  }
  return Tell(result.notes) ? kExitDone : kExitError;
}

}  // namespace panelkit
