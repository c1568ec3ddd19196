// find: looks for missing gauges in other folders and in archives, and installs them.
#include <algorithm>

#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/find_text.h"
#include "console/json_findings.h"
#include "pages/report_text.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"
#include "platform/terminal.h"
#include "search/look.h"

namespace panelkit {
namespace {

struct Requirements {
  std::vector<RequiredFile> files;
  std::unordered_set<std::string> named;
  std::vector<OtherwiseNamedFile> otherwise_named;
};

// What is missing, and what panels name; nullopt if that cannot be told.
std::optional<Requirements> Probe(const Machine& services, const std::string& simulator,
                                  Outcome& outcome) {
  ConsoleProgram program(services, simulator);
  program.Click("menProbe");
  program.TellInto(outcome);
  const GaugeReport* report = program.Form().Report();
  if (report == nullptr) return std::nullopt;
  return Requirements{RequiredFilesOf(*report), NamedFileParts(*report, services.text),
                      report->otherwise_named};
}

void Search(LocalMachine& machine, const std::vector<std::string>& folders, Look& look,
            Outcome& outcome) {
  ProgressLine progress;
  const auto on_progress = [&](const SearchProgress& so_far) {
    progress.Say(SearchedText(so_far.files, so_far.archives));
    return !terminal::Interrupted();
  };
  std::vector<std::string> places;
  places.reserve(folders.size());
  for (const std::string& folder : folders) places.push_back(machine.WindowsPath(folder));
  LookThrough(machine.Services(), places, on_progress, look);
  for (std::size_t i = 0; i < folders.size(); ++i) {
    const bool is_absent =
        std::find(look.absent.begin(), look.absent.end(), places[i]) != look.absent.end();
    if (is_absent) outcome.Fail("There is no folder or file " + folders[i] + ".");
  }
}

void RefuseUnknown(const Text& text, const std::vector<std::string>& accepted,
                   const FindResult& result, Outcome& outcome) {
  for (const std::string& name : accepted) {
    const bool is_required = std::any_of(
        result.required.begin(), result.required.end(),
        [&](const RequiredFile& file) { return text.Lower(file.name) == text.Lower(name); });
    if (!is_required) outcome.Fail("No panel misses a file " + name + ".");
  }
}

void TellOfFailures(const LocalMachine& machine, const FindResult& result, Outcome& outcome) {
  for (const auto& [candidate, fault] : result.failed) {
    const std::string sentence =
        LocationText(machine.NativePath(candidate->path), candidate->inside) +
        " was not installed: " + FaultText(fault) + ".";
    if (fault == InstallFault::CannotCopy) {
      outcome.Fail(sentence);
    } else {
      // The archive's fault, and the next best had its turn.
      outcome.complaints.push_back(sentence);
    }
  }
}

}  // namespace

Outcome FindCommand(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const Machine services = machine.Services();
  const terminal::InterruptGuard guard;
  Outcome outcome;
  outcome.complains_first = true;
  Look look(services.text);
  FindResult& result = look.found;
  auto requirements = Probe(services, simulator, outcome);
  if (!requirements) return outcome;
  result.required = std::move(requirements->files);
  result.named = std::move(requirements->named);
  RefuseUnknown(services.text, line.accepted, result, outcome);
  Search(machine, line.folders, look, outcome);
  const std::string gauges = FoldersOf(simulator, services.files.AppFolder()).gauges;
  // What was found until an interruption is read all the same.
  const bool was_interrupted = terminal::Interrupted();
  const auto stop = [&] { return !was_interrupted && terminal::Interrupted(); };
  FindOffers(services, gauges, line.accepted, stop, result);
  if (line.install) InstallBest(services, gauges, line.dry_run, terminal::Interrupted, result);
  if (line.install && !line.dry_run && !terminal::Interrupted()) {
    try {
      if (auto now = Probe(services, simulator, outcome)) {
        result.still_required = std::move(now->files);
        requirements->otherwise_named = std::move(now->otherwise_named);
      }
    } catch (const Interruption&) {
      // What was installed is to be told all the same.
    }
  }
  TellOfFailures(machine, result, outcome);
  const auto& missing = result.still_required ? *result.still_required : result.required;
  if (outcome.status == kExitDone && !missing.empty()) outcome.status = kExitGaugesMissing;
  if (terminal::Interrupted()) outcome.Interrupt("Nothing was begun after that.");
  if (line.format == Format::Json) {
    Json json = JsonOf(machine, line, result);
    if (line.careful) json["otherwise_named"] = JsonOf(requirements->otherwise_named);
    outcome.output = JsonText(line, json);
  } else {
    outcome.output = TextOf(machine, line, gauges, result);
    if (line.careful) {
      Lines lines;
      TellOtherwiseNamed(requirements->otherwise_named,
                         [&](std::string_view text) { lines.Add(text); });
      outcome.output += lines.Take();
    }
  }
  const std::size_t otherwise_named = requirements->otherwise_named.size();
  if (!line.careful && otherwise_named > 0) {
    outcome.complaints.push_back(OtherwiseNamedText(otherwise_named));
  }
  return outcome;
}

}  // namespace panelkit
