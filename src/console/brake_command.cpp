// brake, brake on, brake off.
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/json.h"
#include "pages/status_text.h"

namespace panelkit {

Outcome BrakeCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  ConsoleProgram program(machine.Services(), simulator);
  frmGauges& form = program.Form();
  Outcome outcome;
  form.SetupBrakes();
  program.TellInto(outcome);
  const bool is_switch = !line.brake.empty();
  const bool wanted = line.brake == "on";
  if (is_switch && outcome.status == kExitDone && form.BrakeMessagesAreShown() != wanted) {
    program.Click("menBrake");
    program.TellInto(outcome);
  }
  const std::optional<bool> shown = form.Brakes().shown;  // Of the file, as it is now.
  if (!shown && outcome.complaints.empty()) {
    outcome.complaints.emplace_back(kNoPlaceForSettingText);
  }
  if (is_switch && shown != wanted) outcome.status = kExitError;
  if (line.format == Format::Json) {
    outcome.output = JsonText(line, {{"messages_shown", shown ? Json(*shown) : Json()}});
  } else if (shown || outcome.status == kExitDone) {
    // Without the setting the simulator shows the messages.
    outcome.output = shown.value_or(true) ? "on: the red brake messages are shown\n"
                                          : "off: the red brake messages are hidden\n";
  }
  return outcome;
}

}  // namespace panelkit
