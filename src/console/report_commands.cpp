// probe, show, clean and restore.
#include "app/frm_gauges.h"
#include "app/gauges_window.h"
#include "console/console_commands.h"
#include "console/exit_status.h"
#include "console/progress_line.h"
#include "gauges/gauge_mover.h"
#include "pages/report_text.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/headless/quiet_loop.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

const char* MenuItemOf(ConsoleCommand command) {
  switch (command) {
    case ConsoleCommand::Show:
      return "menShow";
    case ConsoleCommand::Clean:
      return "menRemove";
    default:
      return "menProbe";
  }
}

bool PrintReport(const frmGauges& program, const Text& text, bool html) {
  if (html) return terminal::WriteOutBytes(text.ToAnsi(program.ReportHtml) + "\r\n");
  return program.Report() == nullptr || terminal::WriteOut(ReportText(*program.Report(), text));
}

int DryRun(frmGauges& program, ProgressLine& progress, const Files& files,
           const std::string& simulator) {
  const auto spare = program.FindSpare();
  progress.Wipe();
  if (!spare) return Complain(program.Complaint());
  const GaugeFolders folders = FoldersOf(simulator, files.AppFolder());
  std::string lines = "Would move to " + folders.spare + ":\n";
  for (const std::string& entry : spare->SpareFiles) {
    const std::string name = SpareFileName(files, folders.gauges, entry);
    if (!name.empty()) lines += "    " + name + "\n";
  }
  terminal::WriteOut(lines);
  return kExitDone;
}

// Why the simulator's folder is of no use; empty where it is.
std::string FolderComplaint(LocalMachine& machine, const std::string& simulator) {
  if (simulator.empty()) {
    return "No simulator is registered (" + machine.Origin() +
           "). Its folder can be named with --simulator.";
  }
  if (machine.Services().files.IsFolder(simulator)) return {};
  return "The simulator's folder " + simulator + " is not there.";
}

void PrintNames(const std::string& heading, const std::vector<std::string>& names) {
  if (names.empty()) return;
  std::string lines = heading + "\n";
  for (const std::string& name : names) lines += "    " + name + "\n";
  terminal::WriteOut(lines);
}

}  // namespace

int ReportCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string folder_complaint = FolderComplaint(machine, simulator);
  if (!folder_complaint.empty()) {
    Complain(folder_complaint);
    // A folder that the registry names gives its empty report all the same, as in the window.
    if (simulator.empty() || !line.simulator.empty()) return kExitError;
  }
  const Machine services = machine.Services();
  ProgressLine progress;
  QuietLoop loop;
  HeadlessToolkit toolkit(loop, [&progress](int value, int max) { progress.Show(value, max); });
  frmGauges program(toolkit, services, simulator);
  if (line.dry_run) return DryRun(program, progress, services.files, simulator);

  toolkit.FormTitled(kGaugesWindow.title)->Click(MenuItemOf(line.command));
  progress.Wipe();
  if (!PrintReport(program, services.text, line.html)) {
    return Complain("The report could not be written to standard output.");
  }
  if (!program.Complaint().empty()) return Complain(program.Complaint());
  const bool looks_for_missing = line.command != ConsoleCommand::Clean;
  return looks_for_missing && program.MissingGauges.UpperBound() > 0 ? kExitGaugesMissing
                                                                     : kExitDone;
}

int RestoreCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = FolderComplaint(machine, simulator);
  if (!complaint.empty()) return Complain(complaint);
  Files& files = machine.Services().files;
  const GaugeFolders folders = FoldersOf(simulator, files.AppFolder());
  const RestoreOutcome outcome = RestoreGauges(
      files, folders, line.gauges.empty() ? std::vector<std::string>{kEveryGauge} : line.gauges);
  PrintNames("Restored to " + folders.gauges + ":", outcome.restored);
  PrintNames("Left in " + folders.spare + ", since Gauges has a file of that name:",
             outcome.already_there);
  if (outcome.restored.empty() && outcome.already_there.empty() && outcome.failed.empty()) {
    terminal::WriteOut("Nothing to restore.\n");
  }
  for (const std::string& name : outcome.failed) {
    Complain(name + " is not in " + folders.spare + ", or could not be moved.");
  }
  const bool wanted_stayed = !line.gauges.empty() && !outcome.already_there.empty();
  return outcome.failed.empty() && !wanted_stayed ? kExitDone : kExitError;
}

}  // namespace panelkit
