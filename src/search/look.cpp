#include "search/look.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "cabinet/dos_stamp.h"

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

}  // namespace

void LookThrough(const Machine& machine, const std::vector<std::string>& places,
                 const CandidateSearch::OnProgress& on_progress, Look& look) {
  CandidateSearch search(machine, look.found.pool, SearchDepth::Archives, on_progress);
  for (const std::string& place : places) {
    if (!search.Ended() && !search.LookThrough(place)) look.absent.push_back(place);
  }
  look.found.passed_over = search.WhatWasPassedOver();
  look.stopped = search.Ended();
}

std::size_t CountOfFound(const FindResult& found) {
  return static_cast<std::size_t>(
      std::count_if(found.offers.begin(), found.offers.end(),
                    [](const std::vector<Offer>& offers) { return !offers.empty(); }));
}

std::size_t CountOfHelped(const FindResult& found) {
  const auto is_installed = [&found](const Offer& offer) {
    return std::any_of(
        found.installed.begin(), found.installed.end(),
        [&offer](const InstalledFile& file) { return file.candidate == offer.candidate; });
  };
  return static_cast<std::size_t>(std::count_if(
      found.offers.begin(), found.offers.end(), [&](const std::vector<Offer>& offers) {
        return std::any_of(offers.begin(), offers.end(), is_installed);
      }));
}

std::string OfferText(const Machine& machine, const RequiredFile& required, const Offer& offer) {
  const Candidate& candidate = *offer.candidate;
  std::string line = LocationText(machine.files.NativePath(candidate.path), candidate.inside) +
                     "  (" + std::to_string(candidate.size) + " bytes";
  if (candidate.modified > 0) {
    line += ", " + machine.dates.DateText(LocalDate(candidate.modified));
  }
  if (offer.entries.size() < required.entries.size()) {
    line += ", " + std::to_string(offer.entries.size()) + " of " +
            std::to_string(required.entries.size()) + " gauges";
  }
  if (candidate.is_renamed) line += ", as " + candidate.name;
  if (offer.name_is_taken) line += ", but Gauges has another file of that name";
  return line + ")";
}

std::string PurposeText(const InstalledFile& file) {
  std::string text;
  for (const std::string& aircraft : file.aircraft) {
    text += (text.empty() ? " for " : ", ") + aircraft;
  }
  const std::string choice = ChoiceText(file);
  return choice.empty() ? text : text + " (" + choice + ")";
}

std::string NearText(const Machine& machine, const CommandStyle& style,
                     const RequiredFile& required, const NearOffer& near) {
  const std::string path = machine.files.NativePath(near.candidate->path);
  const Deed deed{DeedKind::Install, path, required.name, near.in_the_way};
  return "but " + LocationText(path, near.candidate->inside) + ", which differs " +
         DifferenceText(near.likeness) + ": " + TextOf(deed, style);
}

std::string PassedOverText(const Machine& machine, const PassedOver& what) {
  std::string line =
      LocationText(machine.files.NativePath(what.path), what.inside) + ": " + what.reason;
  if (what.others > 0) line += " (and " + std::to_string(what.others) + " more)";
  return line;
}

}  // namespace panelkit
