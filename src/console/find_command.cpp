// find: looks for missing gauges in other folders and in archives, and installs them.
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/find_result.h"
#include "console/progress_line.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::vector<RequiredFile> Probe(const Machine& services, const std::string& simulator,
                                Notes& notes) {
  ConsoleProgram program(services, simulator);
  program.Click("menProbe");
  AddNotes(program.Form().Status(), notes);
  const GaugeReport* report = program.Form().Report();
  return report == nullptr ? std::vector<RequiredFile>() : RequiredFilesOf(*report);
}

void Search(LocalMachine& machine, const std::vector<std::string>& folders, FindResult& result) {
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
    result.notes.sentences.push_back("There is no folder or file " + folder + ".");
    result.notes.failed = true;
  }
  result.passed_over = search.WhatWasPassedOver();
}

void InstallBest(const Machine& services, bool dry_run, FindResult& result) {
  ForEachChoice(result.required, result.pool, services, result.gauges,
                [&](const Candidate& candidate) {
                  if (terminal::Interrupted()) return false;
                  const InstallFault fault =
                      dry_run ? InstallFault::None : Install(services, candidate, result.gauges);
                  if (fault == InstallFault::None) {
                    result.installed.push_back(&candidate);
                  } else {
                    result.failed.push_back({&candidate, fault});
                  }
                  return fault == InstallFault::None;
                });
}

}  // namespace

FindResult Find(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const Machine services = machine.Services();
  FindResult result(services.text);
  result.gauges = FoldersOf(simulator, services.files.AppFolder()).gauges;
  result.required = Probe(services, simulator, result.notes);
  Search(machine, line.folders, result);
  for (PassedOver& what : RejectUnfit(services, result.required, result.pool)) {
    result.passed_over.push_back(std::move(what));
  }
  if (line.install) InstallBest(services, line.dry_run, result);
  result.is_interrupted = terminal::Interrupted();
  if (line.install && !line.dry_run && !result.is_interrupted) {
    result.still_required = Probe(services, simulator, result.notes);
  }
  for (const FindResult::Failure& failure : result.failed) {
    result.notes.sentences.push_back(
        LocationOf(machine, failure.candidate->path, failure.candidate->inside) +
        " was not installed: " + WordsOf(failure.fault) + ".");
    // What cannot be read is the archive's fault, and the next best had its turn.
    if (failure.fault == InstallFault::CannotCopy) result.notes.failed = true;
  }
  return result;
}

int FindCommand(LocalMachine& machine, const CommandLine& line) {
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = FolderComplaint(machine, simulator);
  if (!complaint.empty()) return Complain(complaint);
  const terminal::InterruptGuard guard;
  const FindResult result = Find(machine, line, simulator);
  const bool done = Tell(result.notes);  // First, since the result may be long.
  terminal::WriteOut(TextOf(machine, line, result));
  if (result.is_interrupted) return ComplainOfInterrupt("Nothing was begun after that.");
  if (!done) return kExitError;
  const auto& missing = result.still_required ? *result.still_required : result.required;
  return missing.empty() ? kExitDone : kExitGaugesMissing;
}

}  // namespace panelkit
