#include "console/json_findings.h"

#include <chrono>

#include "text/time_text.h"

namespace panelkit {
namespace {

Json JsonOf(const std::vector<ReportedPanel>& panels) {
  Json array = Json::array();
  for (const ReportedPanel& panel : panels) {
    Json windows = Json::array();
    for (const ReportedWindow& window : panel.windows) {
      Json gauges = Json::array();
      for (const ReportedGauge& gauge : window.gauges) {
        gauges.push_back({{"entry", gauge.entry}, {"missing", gauge.is_missing}});
      }
      windows.push_back({{"title", window.title}, {"gauges", std::move(gauges)}});
    }
    array.push_back({{"aircraft", panel.aircraft}, {"windows", std::move(windows)}});
  }
  return array;
}

const char* NameOf(HintKind kind) {
  switch (kind) {
    case HintKind::InSpareGauges:
      return "in-spare-gauges";
    case HintKind::Elsewhere:
      return "elsewhere";
    case HintKind::Hidden:
      return "hidden";
    case HintKind::OtherExtension:
      return "other-extension";
    case HintKind::NotACabinet:
      return "not-a-cabinet";
    case HintKind::LacksEntry:
      return "lacks-entry";
    case HintKind::DamagedCabinet:
      return "damaged-cabinet";
    case HintKind::Misnamed:
      return "misnamed";
    case HintKind::EndingInPanel:
      return "ending-in-panel";
    case HintKind::NearName:
      return "near-name";
  }
  return "";
}

Json JsonOf(const LocalMachine& machine, const RequiredFile& file, const HintFinder* hints) {
  Json required{{"name", file.name}, {"entries", file.entries}};
  if (hints == nullptr) return required;
  required["hints"] = Json::array();
  for (const Hint& hint : hints->HintsFor(file)) {
    Json fact{{"kind", NameOf(hint.kind)}};
    if (hint.kind == HintKind::InSpareGauges) fact["exact_name"] = !hint.only_holds_name;
    fact.update(JsonOfPath(machine, hint.path));
    if (!hint.wanted.empty()) fact["wanted"] = hint.wanted;
    if (!hint.nearest.empty()) fact["nearest"] = hint.nearest;
    fact["text"] = hints->LineOf(hint);
    required["hints"].push_back(std::move(fact));
  }
  return required;
}

// ISO 8601 in UTC.
std::string IsoTime(std::int64_t seconds_since_1970) {
  std::string time = TimeText(std::chrono::sys_seconds{std::chrono::seconds(seconds_since_1970)});
  time.replace(time.find(' '), 1, "T");
  return time + "Z";
}

Json JsonOf(const LocalMachine& machine, const Candidate& candidate) {
  Json json{{"file", candidate.name}};
  json.update(JsonOfPath(machine, candidate.path));
  json["inside"] = candidate.inside;
  json["size"] = candidate.size;
  json["modified"] = candidate.modified > 0 ? Json(IsoTime(candidate.modified)) : Json();
  return json;
}

Json JsonOf(const LocalMachine& machine, const Offer& offer) {
  Json json = JsonOf(machine, *offer.candidate);
  json["exact_name"] = offer.has_exact_name;
  json["satisfies"] = offer.entries;
  return json;
}

// The candidates for each required file.
using Offers = std::vector<std::vector<Offer>>;

// One of them with all that it satisfies, of whichever file.
Json JsonOfChosen(const LocalMachine& machine, const Candidate& candidate, const Offers& offers) {
  Offer whole;
  whole.candidate = &candidate;
  for (const std::vector<Offer>& of_file : offers) {
    for (const Offer& offer : of_file) {
      if (offer.candidate != &candidate) continue;
      whole.has_exact_name |= offer.has_exact_name;
      whole.entries.insert(whole.entries.end(), offer.entries.begin(), offer.entries.end());
    }
  }
  return JsonOf(machine, whole);
}

Json FoundJson(const LocalMachine& machine, const FindResult& result, const Offers& offers) {
  Json array = Json::array();
  for (std::size_t i = 0; i < offers.size(); ++i) {
    Json required = JsonOf(machine, result.required[i], nullptr);
    required["candidates"] = Json::array();
    for (const Offer& offer : offers[i]) required["candidates"].push_back(JsonOf(machine, offer));
    array.push_back(std::move(required));
  }
  return array;
}

Json PassedOverJson(const LocalMachine& machine, const std::vector<PassedOver>& passed_over) {
  Json array = Json::array();
  for (const PassedOver& what : passed_over) {
    Json passed = JsonOfPath(machine, what.path);
    passed["inside"] = what.inside;
    passed["reason"] = what.reason;
    passed["others"] = what.others;
    array.push_back(std::move(passed));
  }
  return array;
}

// What is missing at the end; null where an installation was not followed by a probe.
Json MissingJson(const LocalMachine& machine, const CommandLine& line, const FindResult& result) {
  if (!result.still_required && !line.dry_run && !result.installed.empty()) return nullptr;
  Json array = Json::array();
  for (const RequiredFile& file : result.still_required.value_or(result.required)) {
    array.push_back(JsonOf(machine, file, nullptr));
  }
  return array;
}

}  // namespace

Json JsonOf(const Mention& mention) {
  return {{"entry", mention.entry},
          {"aircraft", mention.aircraft},
          {"panel", mention.panel},
          {"line", mention.line}};
}

Json JsonOf(const std::vector<OtherwiseNamedFile>& files) {
  Json array = Json::array();
  for (const OtherwiseNamedFile& file : files) {
    Json mentions = Json::array();
    for (const Mention& mention : file.mentions) mentions.push_back(JsonOf(mention));
    array.push_back(
        {{"name", file.name}, {"missing", !file.is_there}, {"mentions", std::move(mentions)}});
  }
  return array;
}

Json JsonOf(const LocalMachine& machine, const GaugeReport& report, const HintFinder* hints) {
  Json missing = Json::array();
  for (const RequiredFile& file : RequiredFilesOf(report)) {
    missing.push_back(JsonOf(machine, file, hints));
  }
  return {{"panels", JsonOf(report.panels)}, {"missing", std::move(missing)}};
}

Json JsonOf(LocalMachine& machine, const CommandLine& line, const FindResult& result) {
  Offers offers;
  for (const RequiredFile& file : result.required) {
    offers.push_back(OffersFor(file, result.pool, machine.Services().text));
  }
  Json installed = Json::array();
  for (const Candidate* candidate : result.installed) {
    installed.push_back(JsonOfChosen(machine, *candidate, offers));
  }
  Json not_installed = Json::array();
  for (const auto& [candidate, fault] : result.failed) {
    not_installed.push_back(JsonOfChosen(machine, *candidate, offers));
    not_installed.back()["reason"] = FaultText(fault);
  }
  return {{"found", FoundJson(machine, result, offers)},
          {"passed_over", PassedOverJson(machine, result.passed_over)},
          {"dry_run", line.dry_run},
          {"installed", std::move(installed)},
          {"not_installed", std::move(not_installed)},
          {"missing", MissingJson(machine, line, result)}};
}

}  // namespace panelkit
