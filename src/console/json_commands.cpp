// The commands with their results as JSON, which docs/json.md describes.
#include <exception>
#include <nlohmann/json.hpp>

#include "cabinet/cab_file.h"
#include "console/console_commands.h"
#include "console/console_program.h"
#include "console/json_findings.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kJsonVersion = 1;

// What one command came to.
struct Outcome {
  Json result = Json::object();
  Notes notes = {};
  int status = kExitDone;
};

Outcome Failed(const std::string& sentence) {
  return {nullptr, {{sentence}, true}, kExitError};
}

Json JsonOf(const FolderNames& folder) {
  return {{"path", folder.windows}, {"native_path", folder.native}};
}

Outcome WhereJson(LocalMachine& machine, const CommandLine& line) {
  const WhereResult where = Where(machine, line);
  if (where.simulator.windows.empty()) {
    return Failed("No simulator is registered (" + where.how + ").");
  }
  Outcome outcome;
  outcome.result = {{"simulator", JsonOf(where.simulator)},
                    {"found_by", where.how},
                    {"is_there", where.is_there},
                    {"own_files", JsonOf(where.own_files)}};
  if (!where.is_there) outcome.notes = {{"There is no such folder."}, true};
  return outcome;
}

Outcome WhereAllJson(const CommandLine& line) {
  Json simulators = Json::array();
  for (const RegisteredSimulator& simulator : AllSimulators(line.prefix)) {
    Json json = JsonOf(simulator.folder);
    json.update(Json{{"found_by", simulator.how},
                     {"windows", simulator.windows},
                     {"is_there", simulator.is_there},
                     {"aircraft", simulator.aircraft},
                     {"gauges", simulator.gauges}});
    simulators.push_back(std::move(json));
  }
  if (simulators.empty()) return Failed("No simulator is registered.");
  return {{{"simulators", std::move(simulators)}}};
}

Outcome ReportJson(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const Machine services = machine.Services();
  ConsoleProgram program(services, simulator);
  program.Click(line.command == ConsoleCommand::Show ? "menShow" : "menProbe");
  Outcome outcome;
  AddNotes(program.Form().Status(), outcome.notes);
  const GaugeReport* report = program.Form().Report();
  if (report == nullptr) return outcome;
  std::optional<HintFinder> hints;
  if (line.hints) {
    hints.emplace(services, simulator, FoldersOf(simulator, services.files.AppFolder()));
  }
  outcome.result = JsonOf(machine, *report, hints ? &*hints : nullptr);
  outcome.result["unreadable_aircraft"] = program.Form().Unreadable();
  if (!report->names.empty()) outcome.status = kExitGaugesMissing;
  return outcome;
}

Outcome CleanJson(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const CleanResult clean = Clean(machine, line, simulator);
  Outcome outcome{{{"dry_run", line.dry_run},
                   {"gauges", JsonOf(clean.gauges)},
                   {"spare_gauges", JsonOf(clean.spare)},
                   {"moved", clean.files.moved},
                   {"stayed", clean.files.stayed},
                   {"left", clean.files.left},
                   {"unreadable_aircraft", clean.unreadable}},
                  clean.notes};
  if (!clean.files.left.empty()) outcome.status = terminal::kExitInterrupted;
  return outcome;
}

Outcome RestoreJson(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const RestoreResult restore = Restore(machine, line, simulator);
  Outcome outcome{{{"gauges", JsonOf(restore.gauges)},
                   {"restored", restore.files.restored},
                   {"already_there", restore.files.already_there},
                   {"failed", restore.files.failed}}};
  outcome.notes.failed = !restore.files.failed.empty() ||
                         (!line.gauges.empty() && !restore.files.already_there.empty());
  if (outcome.notes.failed) outcome.notes.sentences = {"Not all of the files could be restored."};
  if (restore.files.stopped) outcome.status = terminal::kExitInterrupted;
  return outcome;
}

Outcome BrakeJson(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const BrakeResult brake = Brake(machine, line, simulator);
  return {{{"messages_shown", brake.shown ? Json(*brake.shown) : Json()}}, brake.notes};
}

Outcome FindJson(LocalMachine& machine, const CommandLine& line, const std::string& simulator) {
  const FindResult find = Find(machine, line, simulator);
  Outcome outcome{JsonOf(machine, find), find.notes};
  outcome.result["dry_run"] = line.dry_run;
  if (!outcome.result["missing"].empty()) outcome.status = kExitGaugesMissing;
  if (find.is_interrupted) outcome.status = terminal::kExitInterrupted;
  return outcome;
}

Outcome CabListJson(LocalMachine& machine, const CommandLine& line) {
  const Machine services = machine.Services();
  const auto cabinet = CABFile::Create(services);
  cabinet->CabName = machine.WindowsPath(line.cabinet);
  Json entries = Json::array();
  cabinet->FileFound = [&](const std::string& file, double date, std::int32_t size,
                           const std::string& folder) {
    entries.push_back({{"name", folder + file},
                       {"size", static_cast<std::uint32_t>(size)},
                       {"date", services.dates.DateText(date)}});
  };
  Notes notes;
  try {
    cabinet->ListEntries(line.entry);
    if (!line.entry.empty() && entries.empty()) {
      return Failed("The cabinet has no entry " + line.entry + ".");
    }
  } catch (const CabError& error) {
    notes = {{error.Description + " (error " + std::to_string(error.Number) + ")"}, true};
  }
  return {{{"cabinet", JsonOfPath(machine, cabinet->CabName)}, {"entries", std::move(entries)}},
          std::move(notes)};
}

Outcome Run(LocalMachine& machine, const CommandLine& line) {
  if (line.command == ConsoleCommand::Where) {
    return line.all ? WhereAllJson(line) : WhereJson(machine, line);
  }
  if (line.command == ConsoleCommand::CabList) return CabListJson(machine, line);
  const std::string simulator = SimulatorFor(machine, line);
  const std::string complaint = FolderComplaint(machine, simulator);
  if (!complaint.empty()) return Failed(complaint);
  switch (line.command) {
    case ConsoleCommand::Probe:
    case ConsoleCommand::Show:
      return ReportJson(machine, line, simulator);
    case ConsoleCommand::Clean:
      return CleanJson(machine, line, simulator);
    case ConsoleCommand::Restore:
      return RestoreJson(machine, line, simulator);
    case ConsoleCommand::Brake:
      return BrakeJson(machine, line, simulator);
    case ConsoleCommand::Find:
      return FindJson(machine, line, simulator);
    default:
      return Failed("This command has no result as JSON.");
  }
}

}  // namespace

std::string JsonError(const std::string& sentence) {
  // ASCII alone, so that it is the same in every encoding of the terminal.
  return Json{{"error", sentence}}.dump(-1, ' ', true, Json::error_handler_t::replace) + "\n";
}

int JsonCommand(LocalMachine& machine, const CommandLine& line) {
  const terminal::InterruptGuard guard;
  Outcome outcome;
  try {
    outcome = Run(machine, line);
  } catch (const std::exception& failure) {
    outcome = Failed(std::string("The command could not be finished: ") + failure.what());
  }
  if (outcome.result.is_object()) {
    Json whole{{"panelkit_json", kJsonVersion}, {"command", line.command_name}};
    whole.update(outcome.result);
    terminal::WriteOutBytes(whole.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
  }
  for (const std::string& sentence : outcome.notes.sentences) {
    terminal::WriteError(JsonError(sentence));
  }
  if (outcome.status == terminal::kExitInterrupted) {
    terminal::WriteError(JsonError("Interrupted."));
    return outcome.status;
  }
  return outcome.notes.failed ? kExitError : outcome.status;
}

}  // namespace panelkit
