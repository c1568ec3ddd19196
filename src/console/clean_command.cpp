// clean, clean --dry-run.
#include "console/command_results.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "pages/report_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

void RunDry(ConsoleProgram& program, const Files& files, CleanResult& result) {
  const auto spare = program.FindSpare();
  for (std::size_t i = 0; spare && i < spare->SpareFiles.size(); ++i) {
    const std::string name = SpareFileName(files, result.gauges.windows, spare->SpareFiles[i]);
    if (!name.empty()) result.files.moved.push_back(name);
  }
}

void PrintResult(const CleanResult& result, const CommandLine& line) {
  const std::string archive = BothNames(result.spare);
  if (line.dry_run) {
    if (!result.notes.failed)
      PrintNames("Would move to " + archive + ":", result.files.moved, true);
  } else if (!result.files.left.empty()) {
    PrintNames("Moved to " + archive + ":", result.files.moved);
  } else if (line.html) {
    terminal::WriteOutBytes(result.report);
  } else if (!result.report.empty()) {
    terminal::WriteOut(result.report);
    if (result.spare.native != result.spare.windows) {
      terminal::WriteOut("The archive on disk: " + result.spare.native + "\n");
    }
  }
}

}  // namespace

CleanResult Clean(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const Machine services = machine.Services();
  const GaugeFolders folders = FoldersOf(simulator, services.files.AppFolder());
  CleanResult result;
  result.gauges = NamesOf(machine, folders.gauges);
  result.spare = NamesOf(machine, folders.spare);
  ConsoleProgram program(services, simulator);
  frmGauges& form = program.Form();
  form.Careful = line.careful;
  form.Stop = terminal::Interrupted;
  if (line.dry_run) {
    RunDry(program, services.files, result);
  } else {
    program.Click("menRemove");
    result.files = form.Moved();
  }
  result.unreadable = form.Unreadable();
  if (form.Report() != nullptr) {
    result.report = line.html ? services.text.ToAnsi(form.ReportHtml) + "\r\n"
                              : ReportText(*form.Report(), services.text);
  }
  AddNotes(form.Status(), result.notes);
  return result;
}

int CleanCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = ReportComplaint(machine, line, simulator);
  if (!complaint.empty()) return Complain(complaint);
  const terminal::InterruptGuard guard;
  const CleanResult result = Clean(machine, line, simulator);
  PrintResult(result, line);
  for (const std::string& aircraft : result.unreadable) {
    Complain("The panel of " + aircraft + " could not be read.");
  }
  const bool done = Tell(result.notes);
  if (!result.files.left.empty()) {
    return ComplainOfInterrupt(
        "Unneeded files left in Gauges: " + std::to_string(result.files.left.size()) + ".");
  }
  return done ? kExitDone : kExitError;
}

}  // namespace panelkit
