// probe and show.
#include "cabinet/mod_gauges.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/json_findings.h"
#include "gauges/doubtful_entries.h"
#include "pages/report_text.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::vector<DoubtfulEntry> Doubtful(const GaugeReport& report, const Text& text) {
  return DoubtfulEntries(report.named, modGauges::InstalledGauges, text);
}

Json DoubtfulJson(const std::vector<DoubtfulEntry>& entries) {
  Json array = Json::array();
  for (const DoubtfulEntry& entry : entries) {
    array.push_back(
        {{"entry", entry.entry}, {"held_by", entry.held_by}, {"aircraft", entry.aircraft}});
  }
  return array;
}

std::string TextOf(const GaugeReport& report, const Text& text, const Hints* hints, bool careful) {
  Lines lines;
  const auto add = [&](std::string_view line) { lines.Add(line); };
  TellReport(report, text, add, [&](std::size_t position) {
    if (hints == nullptr) return;
    for (const Hint& hint : hints->of_files[position]) {
      lines.Add("        " + LineOf(hint, hints->style));
    }
  });
  if (hints != nullptr) TellDoubtful(Doubtful(report, text), add);
  if (careful) TellOtherwiseNamed(report.otherwise_named, add);
  return lines.Take();
}

// Looks for hints about each file, with progress on the terminal; Ctrl-C ends it by an
// Interruption.
Hints FindHints(LocalMachine& machine, const CommandLine& line, const Machine& services,
                const std::string& simulator, const GaugeReport& report) {
  ProgressLine progress;
  const auto go_on = [&](const std::string& what) {
    progress.Say("Looking for hints: " + what);
    if (terminal::Interrupted()) throw Interruption{};
    return true;
  };
  const HintFinder finder(
      services, simulator, FoldersOf(simulator, services.files.AppFolder()), report,
      [&](const SearchProgress& so_far) { return go_on(std::to_string(so_far.files) + " files"); });
  Hints hints{RequiredFilesOf(report), {}, StyleFor(machine, line)};
  for (const RequiredFile& file : hints.required) {
    hints.of_files.push_back(finder.HintsFor(file));
    go_on(std::to_string(hints.of_files.size()) + " of " + std::to_string(hints.required.size()));
  }
  return hints;
}

}  // namespace

Outcome ReportCommand(LocalMachine& machine, const CommandLine& line,
                      const std::string& simulator) {
  const Machine services = machine.Services();
  const terminal::InterruptGuard guard;
  ConsoleProgram program(services, simulator);
  program.Click(line.command == ConsoleCommand::Show ? "menShow" : "menProbe");
  Outcome outcome;
  const GaugeReport* report = program.Form().Report();
  if (report != nullptr && !report->names.empty()) outcome.status = kExitGaugesMissing;
  program.TellInto(outcome);
  if (report == nullptr) return outcome;
  const std::size_t otherwise_named = report->otherwise_named.size();
  const bool lists_them = line.careful && line.format != Format::Html;
  if (otherwise_named > 0 && !lists_them) {
    outcome.complaints.push_back(OtherwiseNamedText(otherwise_named));
  }
  std::optional<Hints> found;
  if (line.hints) found = FindHints(machine, line, services, simulator, *report);
  const Hints* hints = found ? &*found : nullptr;
  if (line.format == Format::Html) {
    program.PrintPageInto(outcome);
  } else if (line.format == Format::Json) {
    Json json = JsonOf(machine, *report, hints);
    if (line.hints) json["doubtful"] = DoubtfulJson(Doubtful(*report, services.text));
    if (line.careful) json["otherwise_named"] = JsonOf(report->otherwise_named);
    json["unreadable_aircraft"] = program.Form().Unreadable();
    outcome.output = JsonText(line, json);
  } else {
    outcome.output = TextOf(*report, services.text, hints, line.careful);
  }
  return outcome;
}

}  // namespace panelkit
