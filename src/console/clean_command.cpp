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

// What standard output is to have.
std::string PrintedText(const CleanResult& result, const CommandLine& line) {
  const std::string archive = BothNames(result.spare);
  if (line.dry_run) {
    return result.notes.failed ? std::string()
                               : NameLines("Would move to " + archive + ":", result.files.moved);
  }
  if (!result.files.left.empty()) return NameLines("Moved to " + archive + ":", result.files.moved);
  if (result.report.empty() || result.spare.native == result.spare.windows) return result.report;
  return result.report + "The archive on disk: " + result.spare.native + "\n";
}

bool PrintResult(const CleanResult& result, const CommandLine& line) {
  if (line.html && !line.dry_run && result.files.left.empty()) {
    return terminal::WriteOutBytes(result.report);
  }
  return terminal::WriteOut(PrintedText(result, line));
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
  const bool printed = PrintResult(result, line);
  for (const std::string& aircraft : result.unreadable) {
    Complain("The panel of " + aircraft + " could not be read.");
  }
  const bool done = Tell(result.notes);
  if (!printed) Complain("The report could not be written to standard output.");
  if (!result.files.left.empty()) {
    return ComplainOfInterrupt(
        "Unneeded files left in Gauges: " + std::to_string(result.files.left.size()) + ".");
  }
  return done && printed ? kExitDone : kExitError;
}

}  // namespace panelkit
