#include "console/find_text.h"

#include <utility>

#include "console/console_commands.h"
#include "console/outcome.h"
#include "search/look.h"

namespace panelkit {
namespace {

void AddOffers(const Machine& machine, const FindResult& result, Lines& lines) {
  if (result.required.empty()) lines.Add("No gauge is missing.");
  for (std::size_t i = 0; i < result.required.size(); ++i) {
    const RequiredFile& file = result.required[i];
    if (!result.offers[i].empty()) lines.Add(file.name);
    for (const Offer& offer : result.offers[i]) {
      lines.Add("    " + OfferText(machine, file, offer));
    }
  }
}

// The files without offers, with candidates of similar names.
void AddNotFound(const Machine& machine, const CommandStyle& style, const FindResult& result,
                 Lines& lines) {
  bool is_first = true;
  for (std::size_t i = 0; i < result.required.size(); ++i) {
    if (!result.offers[i].empty()) continue;
    if (std::exchange(is_first, false)) lines.Add("Not found:");
    lines.Add("    " + result.required[i].name);
    for (const NearOffer& near : result.near_offers[i]) {
      lines.Add("        " + NearText(machine, style, result.required[i], near));
    }
  }
}

void AddPassedOver(const Machine& machine, const std::vector<PassedOver>& passed_over,
                   Lines& lines) {
  if (!passed_over.empty()) lines.Add("Passed over:");
  for (const PassedOver& what : passed_over) lines.Add("    " + PassedOverText(machine, what));
}

void AddInstalled(const FindResult& result, const std::string& gauges, bool dry_run, Lines& lines) {
  std::vector<std::string> names;
  names.reserve(result.installed.size());
  for (const InstalledFile& file : result.installed) {
    names.push_back(file.candidate->name + PurposeText(file));
  }
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
  const Machine services = machine.Services();
  Lines lines;
  AddOffers(services, result, lines);
  AddNotFound(services, StyleFor(machine, line), result, lines);
  AddPassedOver(services, result.passed_over, lines);
  if (line.install) AddInstalled(result, gauges, line.dry_run, lines);
  if (result.still_required) AddStillRequired(*result.still_required, lines);
  return lines.Take();
}

}  // namespace panelkit
