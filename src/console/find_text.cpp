// find: its result as text.
#include <chrono>
#include <ctime>

#include "console/find_result.h"

namespace panelkit {
namespace {

// The days since 30 December 1899 of a time on this machine's clock.
double LocalDate(std::int64_t seconds_since_1970) {
  using namespace std::chrono;
  const auto time = static_cast<std::time_t>(seconds_since_1970);
  const std::tm* local = std::localtime(&time);
  if (local == nullptr) return 0;
  const auto days = sys_days(year(local->tm_year + 1900) / (local->tm_mon + 1) / local->tm_mday) -
                    sys_days(year(1899) / December / 30);
  const int seconds = (local->tm_hour * 60 + local->tm_min) * 60 + local->tm_sec;
  return static_cast<double>(days.count()) + seconds / 86400.0;
}

std::string OfferLine(LocalMachine& machine, const RequiredFile& required, const Offer& offer) {
  const Candidate& candidate = *offer.candidate;
  std::string line = "    " + LocationOf(machine, candidate.path, candidate.inside) + "  (" +
                     std::to_string(candidate.size) + " bytes";
  if (candidate.modified > 0) {
    line += ", " + machine.Services().dates.DateText(LocalDate(candidate.modified));
  }
  if (offer.entries.size() < required.entries.size()) {
    line += ", " + std::to_string(offer.entries.size()) + " of " +
            std::to_string(required.entries.size()) + " gauges";
  }
  if (candidate.is_renamed) line += ", as " + candidate.name;
  return line + ")\n";
}

std::string OfferLines(LocalMachine& machine, const FindResult& result) {
  if (result.required.empty()) return "No gauge is missing.\n";
  std::string lines;
  std::string not_found;
  for (const RequiredFile& file : result.required) {
    const auto offers = OffersFor(file, result.pool, machine.Services().text);
    if (offers.empty()) {
      not_found += "    " + file.name + "\n";
      continue;
    }
    lines += file.name + "\n";
    for (const Offer& offer : offers) lines += OfferLine(machine, file, offer);
  }
  return not_found.empty() ? lines : lines + "Not found:\n" + not_found;
}

std::string PassedOverLines(const LocalMachine& machine,
                            const std::vector<PassedOver>& passed_over) {
  std::string lines;
  for (const PassedOver& what : passed_over) {
    lines += "    " + LocationOf(machine, what.path, what.inside) + ": " + what.reason;
    if (what.others > 0) lines += " (and " + std::to_string(what.others) + " more)";
    lines += "\n";
  }
  return lines.empty() ? lines : "Passed over:\n" + lines;
}

std::string InstalledLines(const FindResult& result, bool dry_run) {
  std::string lines;
  for (const Candidate* candidate : result.installed) lines += "    " + candidate->name + "\n";
  if (lines.empty()) return dry_run ? "Nothing would be installed.\n" : "Nothing was installed.\n";
  return (dry_run ? "Would install in " : "Installed in ") + result.gauges + ":\n" + lines;
}

std::string StillRequiredLines(const std::vector<RequiredFile>& required) {
  std::string lines = "There are now " + std::to_string(required.size()) + " Required Files";
  lines += required.empty() ? ".\n" : ":\n";
  for (const RequiredFile& file : required) lines += "    " + file.name + "\n";
  return lines;
}

}  // namespace

std::string LocationOf(const LocalMachine& machine, const std::string& path,
                       const std::vector<std::string>& inside) {
  std::string location = machine.NativePath(path);
  for (const std::string& entry : inside) location += " > " + entry;
  return location;
}

std::string WordsOf(InstallFault fault) {
  switch (fault) {
    case InstallFault::NameTaken:
      return "Gauges has a file of that name";
    case InstallFault::CannotRead:
      return "it cannot be read whole";
    default:
      return "it could not be copied";
  }
}

std::string TextOf(LocalMachine& machine, const CommandLine& line, const FindResult& result) {
  std::string text = OfferLines(machine, result) + PassedOverLines(machine, result.passed_over);
  if (line.install) text += InstalledLines(result, line.dry_run);
  if (result.still_required) text += StillRequiredLines(*result.still_required);
  return text;
}

}  // namespace panelkit
