// probe and show.
#include "console/command_results.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/report_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

bool PrintReport(const frmGauges& form, const Text& text, bool html) {
  if (html) return terminal::WriteOutBytes(text.ToAnsi(form.ReportHtml) + "\r\n");
  return form.Report() == nullptr || terminal::WriteOut(ReportText(*form.Report(), text));
}

}  // namespace

int ReportCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = ReportComplaint(machine, line, simulator);
  if (!complaint.empty()) return Complain(complaint);
  const Machine services = machine.Services();
  const terminal::InterruptGuard guard;
  ConsoleProgram program(services, simulator);
  program.Click(line.command == ConsoleCommand::Show ? "menShow" : "menProbe");
  const frmGauges& form = program.Form();
  if (!PrintReport(form, services.text, line.html)) {
    return Complain("The report could not be written to standard output.");
  }
  Notes notes;
  AddNotes(form.Status(), notes);
  if (!Tell(notes)) return kExitError;
  return form.MissingGauges.UpperBound() > 0 ? kExitGaugesMissing : kExitDone;
}

}  // namespace panelkit
