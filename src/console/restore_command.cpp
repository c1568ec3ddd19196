// restore.
#include "console/console_commands.h"
#include "console/json.h"
#include "gauges/gauge_mover.h"
#include "pages/restored_page.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::string TextOf(const RestoreOutcome& files, const std::string& gauges) {
  Lines lines;
  for (const auto& [heading, names] : RestoredSections(files, gauges)) {
    lines.AddNames(heading, names);
  }
  if (lines.IsEmpty() && files.failed.empty() && !files.stopped) {
    lines.Add("Nothing to restore.");
  }
  return lines.Take();
}

// What the archives hold, and where each file came from.
Outcome ListSpares(LocalMachine& machine, const CommandLine& line,
                   const std::vector<GaugeFolders>& folders) {
  const Machine services = machine.Services();
  Lines lines;
  Json archives = Json::array();
  for (const GaugeFolders& pair : folders) {
    lines.Add(BothNames(services.files, pair.spare));
    Json archive = JsonOfPath(machine, pair.spare);
    archive["files"] = Json::array();
    for (const ArchivedGauge& gauge : ArchivedGauges(services.files, services.text, pair.spare)) {
      const bool is_known = !gauge.record.folder.empty();
      lines.Add(
          "    " + gauge.name +
          (is_known ? " from " + gauge.record.folder + ", " + gauge.record.time + " UTC" : ""));
      archive["files"].push_back({{"name", gauge.name},
                                  {"from", is_known ? Json(gauge.record.folder) : Json()},
                                  {"name_there", is_known ? Json(gauge.record.name) : Json()},
                                  {"time", is_known ? Json(gauge.record.time) : Json()}});
    }
    archives.push_back(std::move(archive));
  }
  Outcome outcome;
  outcome.output =
      line.format == Format::Json ? JsonText(line, {{"archives", archives}}) : lines.Take();
  return outcome;
}

RestoreChoice ChoiceOf(const CommandLine& line) {
  if (line.older) return RestoreChoice::Older;
  return line.all ? RestoreChoice::All : RestoreChoice::Own;
}

}  // namespace

Outcome RestoreCommand(LocalMachine& machine, const CommandLine& line,
                       const std::string& simulator) {
  const Machine services = machine.Services();
  const terminal::InterruptGuard guard;
  std::vector<GaugeFolders> folders;
  std::string archives;
  for (const std::string& own_folder : machine.FoldersOfOwnFiles()) {
    folders.push_back(FoldersOf(simulator, own_folder));
    archives += (archives.empty() ? "" : " and ") + BothNames(services.files, folders.back().spare);
  }
  if (line.list) return ListSpares(machine, line, folders);
  const std::string& gauges = folders.front().gauges;
  const auto names = line.gauges.empty() ? std::vector<std::string>{kEveryGauge} : line.gauges;
  const RestoreOutcome files = RestoreGauges(services.files, services.text, folders, names,
                                             ChoiceOf(line), terminal::Interrupted);
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
                                         {"from_elsewhere", files.from_elsewhere},
                                         {"failed", files.failed}})
                       : TextOf(files, BothNames(services.files, gauges));
  return outcome;
}

}  // namespace panelkit
