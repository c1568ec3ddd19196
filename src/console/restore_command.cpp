// restore.
#include "console/console_commands.h"
#include "console/json.h"
#include "gauges/gauge_mover.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::string TextOf(const RestoreOutcome& files, const std::string& gauges) {
  const auto& [restored, already_there, failed, stopped] = files;
  Lines lines;
  if (!restored.empty()) lines.AddNames("Restored to " + gauges + ":", restored);
  if (!already_there.empty()) {
    lines.AddNames("Left in SpareGauges, since Gauges has a file of that name:", already_there);
  }
  if (restored.empty() && already_there.empty() && failed.empty() && !stopped) {
    lines.Add("Nothing to restore.");
  }
  return lines.Take();
}

}  // namespace

Outcome RestoreCommand(LocalMachine& machine, const CommandLine& line,
                       const std::string& simulator) {
  const terminal::InterruptGuard guard;
  std::vector<GaugeFolders> folders;
  std::string archives;
  for (const std::string& own_folder : machine.FoldersOfOwnFiles()) {
    folders.push_back(FoldersOf(simulator, own_folder));
    archives += (archives.empty() ? "" : " and ") + BothNames(machine, folders.back().spare);
  }
  const std::string& gauges = folders.front().gauges;
  const auto names = line.gauges.empty() ? std::vector<std::string>{kEveryGauge} : line.gauges;
  const RestoreOutcome files =
      RestoreGauges(machine.Services().files, folders, names, terminal::Interrupted);
  Outcome outcome;
  for (const std::string& name : files.failed) {
    outcome.Fail(name + " is not in " + archives + ", or could not be moved.");
  }
  if (!line.gauges.empty() && !files.already_there.empty()) outcome.status = kExitError;
  if (files.stopped) outcome.Interrupt("The other files are still in SpareGauges.");
  outcome.output = line.format == Format::Json
                       ? JsonText(line, {{"gauges", JsonOfPath(machine, gauges)},
                                         {"restored", files.restored},
                                         {"already_there", files.already_there},
                                         {"failed", files.failed}})
                       : TextOf(files, BothNames(machine, gauges));
  return outcome;
}

}  // namespace panelkit
