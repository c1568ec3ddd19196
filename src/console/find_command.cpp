// find: looks for missing gauges in other folders and in archives, and installs them.
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/find_text.h"
#include "console/json_findings.h"
#include "pages/report_text.h"
#include "pages/status_text.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

// What is missing; nullopt if that cannot be told.
std::optional<std::vector<RequiredFile>> Probe(const Machine& services,
                                               const std::string& simulator,
                                               std::vector<OtherwiseNamedFile>& otherwise_named,
                                               Outcome& outcome) {
  ConsoleProgram program(services, simulator);
  program.Click("menProbe");
  program.TellInto(outcome);
  const GaugeReport* report = program.Form().Report();
  if (report == nullptr) return std::nullopt;
  otherwise_named = report->otherwise_named;
  return RequiredFilesOf(*report);
}

void Search(LocalMachine& machine, const std::vector<std::string>& folders, FindResult& result,
            Outcome& outcome) {
  ProgressLine progress;
  const Machine services = machine.Services();
  const auto on_progress = [&](const SearchProgress& so_far) {
    progress.Say(std::to_string(so_far.files) + " files, " + std::to_string(so_far.archives) +
                 " archives");
    return !terminal::Interrupted();
  };
  CandidateSearch search(services, result.pool, SearchDepth::Archives, on_progress);
  for (const std::string& folder : folders) {
    if (search.Ended() || search.LookThrough(machine.WindowsPath(folder))) continue;
    outcome.Fail("There is no folder or file " + folder + ".");
  }
  result.passed_over = search.WhatWasPassedOver();
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
  FindResult result(services.text);
  std::vector<OtherwiseNamedFile> otherwise_named;
  auto required = Probe(services, simulator, otherwise_named, outcome);
  if (!required) return outcome;
  result.required = std::move(*required);
  Search(machine, line.folders, result, outcome);
  for (PassedOver& what : RejectUnfit(services, result.required, result.pool)) {
    result.passed_over.push_back(std::move(what));
  }
  const std::string gauges = FoldersOf(simulator, services.files.AppFolder()).gauges;
  if (line.install) InstallBest(services, gauges, line.dry_run, terminal::Interrupted, result);
  if (line.install && !line.dry_run && !terminal::Interrupted()) {
    try {
      result.still_required = Probe(services, simulator, otherwise_named, outcome);
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
    if (line.careful) json["otherwise_named"] = JsonOf(otherwise_named);
    outcome.output = JsonText(line, json);
  } else {
    outcome.output = TextOf(machine, line, gauges, result);
    if (line.careful) {
      Lines lines;
      TellOtherwiseNamed(otherwise_named, [&](std::string_view text) { lines.Add(text); });
      outcome.output += lines.Take();
    }
  }
  if (!line.careful && !otherwise_named.empty()) {
    outcome.complaints.push_back(OtherwiseNamedText(otherwise_named.size()));
  }
  return outcome;
}

}  // namespace panelkit
