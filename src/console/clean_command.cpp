// clean, clean --dry-run.
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/json_findings.h"
#include "pages/report_text.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

// The files that would move.
std::vector<std::string> RunDry(ConsoleProgram& program, const Files& files,
                                const std::string& gauges) {
  std::vector<std::string> names;
  const auto spare = program.FindSpare();
  for (std::size_t i = 0; spare && i < spare->SpareFiles.size(); ++i) {
    std::string name = SpareFileName(files, gauges, spare->SpareFiles[i]);
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

std::string TextOf(const GaugeReport& report, const LocalMachine& machine, const Text& text) {
  Lines lines;
  TellReport(report, text, [&](std::string_view line) { lines.Add(line); });
  const std::string native = machine.NativePath(report.folders.spare);
  if (native != report.folders.spare) lines.Add("The archive on disk: " + native);
  return lines.Take();
}

std::string NamesMoved(const std::string& heading, const std::vector<std::string>& names) {
  Lines lines;
  lines.AddNames(heading, names);
  return lines.Take();
}

// Which of the moved files panels name in a way that the reports do not read.
Json TellOfNamed(const CommandLine& line, const CommandStyle& style, const frmGauges& form,
                 const std::vector<std::string>& moved, Outcome& outcome) {
  Json array = Json::array();
  for (const auto& [file, mention] : form.NamedOtherwise(moved)) {
    const std::string restore = TextOf(Deed{DeedKind::Restore, file}, style);
    const std::string help =
        line.dry_run ? "clean --careful leaves it in Gauges" : restore + " brings it back";
    outcome.complaints.push_back(file + " is named for " + mention.aircraft + " in " +
                                 PlaceOf(mention) + ": " + help + ".");
    Json named{{"file", file}};
    named.update(JsonOf(mention));
    if (!line.dry_run) named["restore"] = restore;
    array.push_back(std::move(named));
  }
  return array;
}

}  // namespace

Outcome CleanCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const Machine services = machine.Services();
  const GaugeFolders folders = FoldersOf(simulator, services.files.AppFolder());
  const std::string archive = BothNames(services.files, folders.spare) + ":";
  const terminal::InterruptGuard guard;
  ConsoleProgram program(services, simulator);
  frmGauges& form = program.Form();
  form.Careful = line.careful;
  form.Stop = terminal::Interrupted;
  MoveOutcome files;
  if (line.dry_run) {
    files.moved = RunDry(program, services.files, folders.gauges);
  } else {
    program.Click("menRemove");
    files = form.Moved();
  }
  Outcome outcome;
  for (const std::string& aircraft : form.Unreadable()) {
    outcome.complaints.push_back("The panel of " + aircraft + " could not be read.");
  }
  program.TellInto(outcome);
  const Json named = TellOfNamed(line, StyleFor(machine, line), form, files.moved, outcome);
  const bool is_done = form.Report() != nullptr && outcome.status == kExitDone;
  if (!files.left.empty()) {
    outcome.Interrupt("Unneeded files left in Gauges: " + std::to_string(files.left.size()) + ".");
  }
  if (line.format == Format::Json) {
    outcome.output = JsonText(line, {{"dry_run", line.dry_run},
                                     {"gauges", JsonOfPath(machine, folders.gauges)},
                                     {"spare_gauges", JsonOfPath(machine, folders.spare)},
                                     {"moved", files.moved},
                                     {"stayed", files.stayed},
                                     {"left", files.left},
                                     {"moved_but_named", named},
                                     {"unreadable_aircraft", form.Unreadable()}});
  } else if (line.dry_run) {
    if (is_done) outcome.output = NamesMoved("Would move to " + archive, files.moved);
  } else if (!files.left.empty()) {
    outcome.output = NamesMoved("Moved to " + archive, files.moved);
  } else if (form.Report() != nullptr && line.format == Format::Html) {
    program.PrintPageInto(outcome);
  } else if (form.Report() != nullptr) {
    outcome.output = TextOf(*form.Report(), machine, services.text);
  }
  return outcome;
}

}  // namespace panelkit
