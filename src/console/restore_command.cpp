// restore.
#include "console/command_results.h"
#include "console/console_commands.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::string ArchivesText(const RestoreResult& result) {
  std::string text;
  for (const FolderNames& archive : result.archives) {
    text += (text.empty() ? "" : " and ") + BothNames(archive);
  }
  return text;
}

}  // namespace

RestoreResult Restore(LocalMachine& machine, const CommandLine& line,
                      const std::string& simulator) {
  RestoreResult result;
  std::vector<GaugeFolders> folders;
  for (const std::string& own_folder : machine.FoldersOfOwnFiles()) {
    folders.push_back(FoldersOf(simulator, own_folder));
    result.archives.push_back(NamesOf(machine, folders.back().spare));
  }
  result.gauges = NamesOf(machine, folders.front().gauges);
  const auto names = line.gauges.empty() ? std::vector<std::string>{kEveryGauge} : line.gauges;
  result.files = RestoreGauges(machine.Services().files, folders, names, terminal::Interrupted);
  return result;
}

int RestoreCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = FolderComplaint(machine, simulator);
  if (!complaint.empty()) return Complain(complaint);
  const terminal::InterruptGuard guard;
  const RestoreResult result = Restore(machine, line, simulator);
  const auto& [restored, already_there, failed, stopped] = result.files;
  if (!restored.empty()) {
    terminal::WriteOut(NameLines("Restored to " + BothNames(result.gauges) + ":", restored));
  }
  if (!already_there.empty()) {
    terminal::WriteOut(
        NameLines("Left in SpareGauges, since Gauges has a file of that name:", already_there));
  }
  for (const std::string& name : failed) {
    Complain(name + " is not in " + ArchivesText(result) + ", or could not be moved.");
  }
  if (stopped) return ComplainOfInterrupt("The other files are still in SpareGauges.");
  if (restored.empty() && already_there.empty() && failed.empty()) {
    terminal::WriteOut("Nothing to restore.\n");
  }
  const bool wanted_stayed = !line.gauges.empty() && !already_there.empty();
  return failed.empty() && !wanted_stayed ? kExitDone : kExitError;
}

}  // namespace panelkit
