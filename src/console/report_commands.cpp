// probe and show.
#include "console/command_results.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/report_text.h"
#include "platform/terminal.h"
#include "search/hints.h"

namespace panelkit {
namespace {

std::string TextWithHints(const GaugeReport& report, const Machine& services,
                          const std::string& simulator) {
  const auto required = RequiredFilesOf(report);
  const HintFinder finder(services, simulator, FoldersOf(simulator, services.files.AppFolder()));
  return ReportText(report, services.text, [&](std::size_t position) {
    std::string lines;
    for (const Hint& hint : finder.HintsFor(required[position])) {
      lines += "        " + finder.LineOf(hint) + "\n";
    }
    return lines;
  });
}

bool PrintReport(const frmGauges& form, const Machine& services, const std::string& simulator,
                 const CommandLine& line) {
  if (line.html) return terminal::WriteOutBytes(services.text.ToAnsi(form.ReportHtml) + "\r\n");
  const GaugeReport* report = form.Report();
  if (report == nullptr) return true;
  return terminal::WriteOut(line.hints ? TextWithHints(*report, services, simulator)
                                       : ReportText(*report, services.text));
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
  if (!PrintReport(form, services, simulator, line)) {
    return Complain("The report could not be written to standard output.");
  }
  Notes notes;
  AddNotes(form.Status(), notes);
  if (!Tell(notes)) return kExitError;
  return form.MissingGauges.UpperBound() > 0 ? kExitGaugesMissing : kExitDone;
}

}  // namespace panelkit
