#include "console/find_text.h"

#include <ctime>
#include <utility>

#include "cabinet/dos_stamp.h"
#include "console/console_commands.h"
#include "console/outcome.h"

namespace panelkit {
namespace {

// The date-time value of a time on this machine's clock.
double LocalDate(std::int64_t seconds_since_1970) {
  const auto time = static_cast<std::time_t>(seconds_since_1970);
  const std::tm* local = std::localtime(&time);
  if (local == nullptr) return 0;
  const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
  return SystemTimeToDate({field(local->tm_year + 1900), field(local->tm_mon + 1),
                           field(local->tm_mday), field(local->tm_hour), field(local->tm_min),
                           field(local->tm_sec)});
}

std::string OfferLine(LocalMachine& machine, const RequiredFile& required, const Offer& offer) {
  const Candidate& candidate = *offer.candidate;
  std::string line = "    " + LocationText(machine.NativePath(candidate.path), candidate.inside) +
                     "  (" + std::to_string(candidate.size) + " bytes";
  if (candidate.modified > 0) {
    line += ", " + machine.Services().dates.DateText(LocalDate(candidate.modified));
  }
  if (offer.entries.size() < required.entries.size()) {
    line += ", " + std::to_string(offer.entries.size()) + " of " +
            std::to_string(required.entries.size()) + " gauges";
  }
  if (candidate.is_renamed) line += ", as " + candidate.name;
  if (offer.name_is_taken) line += ", but Gauges has another file of that name";
  return line + ")";
}

void AddOffers(LocalMachine& machine, const FindResult& result, Lines& lines) {
  if (result.required.empty()) lines.Add("No gauge is missing.");
  for (std::size_t i = 0; i < result.required.size(); ++i) {
    const RequiredFile& file = result.required[i];
    if (!result.offers[i].empty()) lines.Add(file.name);
    for (const Offer& offer : result.offers[i]) lines.Add(OfferLine(machine, file, offer));
  }
}

// What nothing is offered for, with what nearly has its name.
void AddNotFound(const LocalMachine& machine, const CommandStyle& style, const FindResult& result,
                 Lines& lines) {
  bool is_first = true;
  for (std::size_t i = 0; i < result.required.size(); ++i) {
    if (!result.offers[i].empty()) continue;
    if (std::exchange(is_first, false)) lines.Add("Not found:");
    lines.Add("    " + result.required[i].name);
    for (const auto& [candidate, likeness, in_the_way] : result.near_offers[i]) {
      const std::string path = machine.NativePath(candidate->path);
      const Deed deed{DeedKind::Install, path, result.required[i].name, in_the_way};
      lines.Add("        but " + LocationText(path, candidate->inside) + ", which differs " +
                DifferenceText(likeness) + ": " + TextOf(deed, style));
    }
  }
}

void AddPassedOver(const LocalMachine& machine, const std::vector<PassedOver>& passed_over,
                   Lines& lines) {
  if (!passed_over.empty()) lines.Add("Passed over:");
  for (const PassedOver& what : passed_over) {
    std::string line =
        "    " + LocationText(machine.NativePath(what.path), what.inside) + ": " + what.reason;
    if (what.others > 0) line += " (and " + std::to_string(what.others) + " more)";
    lines.Add(line);
  }
}

// "Speed.gau for Alpha, Beta (the newest of 2 with that name)".
std::string InstalledLine(const InstalledFile& file) {
  std::string line = file.candidate->name;
  std::string_view before = " for ";
  for (const std::string& aircraft : file.aircraft) {
    line += std::exchange(before, ", ");
    line += aircraft;
  }
  const std::string choice = ChoiceText(file);
  return choice.empty() ? line : line + " (" + choice + ")";
}

void AddInstalled(const FindResult& result, const std::string& gauges, bool dry_run, Lines& lines) {
  std::vector<std::string> names;
  names.reserve(result.installed.size());
  for (const InstalledFile& file : result.installed) names.push_back(InstalledLine(file));
  if (names.empty()) {
    lines.Add(dry_run ? "Nothing would be installed." : "Nothing was installed.");
  } else {
    lines.AddNames((dry_run ? "Would install in " : "Installed in ") + gauges + ":", names);
  }
}

void AddStillRequired(const std::vector<RequiredFile>& required, Lines& lines) {
  std::vector<std::string> names;
  names.reserve(required.size());
  for (const RequiredFile& file : required) names.push_back(file.name);
  lines.AddNames("There are now " + std::to_string(names.size()) + " Required Files" +
                     (names.empty() ? "." : ":"),
                 names);
}

}  // namespace

std::string TextOf(LocalMachine& machine, const CommandLine& line, const std::string& gauges,
                   const FindResult& result) {
  Lines lines;
  AddOffers(machine, result, lines);
  AddNotFound(machine, StyleFor(machine, line), result, lines);
  AddPassedOver(machine, result.passed_over, lines);
  if (line.install) AddInstalled(result, gauges, line.dry_run, lines);
  if (result.still_required) AddStillRequired(*result.still_required, lines);
  return lines.Take();
}

}  // namespace panelkit
