#include "console/json_findings.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace panelkit {
namespace {

using Json = nlohmann::ordered_json;

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
    fact.update(JsonOfPath(machine, hint.path));
    if (!hint.wanted.empty()) fact["wanted"] = hint.wanted;
    if (!hint.nearest.empty()) fact["nearest"] = hint.nearest;
    fact["text"] = hints->LineOf(hint);
    required["hints"].push_back(std::move(fact));
  }
  return required;
}

// ISO 8601 in UTC.
std::string TimeText(std::int64_t seconds_since_1970) {
  using namespace std::chrono;
  const sys_seconds time{seconds(seconds_since_1970)};
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  std::array<char, 80> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                                  int(date.year()), unsigned(date.month()), unsigned(date.day()),
                                  int(clock.hours().count()), int(clock.minutes().count()),
                                  int(clock.seconds().count())));
  return text.data();
}

Json JsonOf(const LocalMachine& machine, const Candidate& candidate) {
  Json json{{"file", candidate.name}};
  json.update(JsonOfPath(machine, candidate.path));
  json["inside"] = candidate.inside;
  json["size"] = candidate.size;
  json["modified"] = candidate.modified > 0 ? Json(TimeText(candidate.modified)) : Json();
  return json;
}

Json RequiredJson(const LocalMachine& machine, const std::vector<RequiredFile>& required) {
  Json array = Json::array();
  for (const RequiredFile& file : required) array.push_back(JsonOf(machine, file, nullptr));
  return array;
}

Json OffersJson(LocalMachine& machine, const FindResult& result) {
  Json array = Json::array();
  for (const RequiredFile& file : result.required) {
    Json offers = Json::array();
    for (const Offer& offer : OffersFor(file, result.pool, machine.Services().text)) {
      Json json = JsonOf(machine, *offer.candidate);
      json["exact_name"] = offer.has_exact_name;
      json["satisfies"] = offer.entries;
      offers.push_back(std::move(json));
    }
    Json required = JsonOf(machine, file, nullptr);
    required["candidates"] = std::move(offers);
    array.push_back(std::move(required));
  }
  return array;
}

}  // namespace

Json JsonOfPath(const LocalMachine& machine, const std::string& windows_path) {
  return {{"path", windows_path}, {"native_path", machine.NativePath(windows_path)}};
}

Json JsonOf(const LocalMachine& machine, const GaugeReport& report, const HintFinder* hints) {
  Json missing = Json::array();
  for (const RequiredFile& file : RequiredFilesOf(report)) {
    missing.push_back(JsonOf(machine, file, hints));
  }
  return {{"panels", JsonOf(report.panels)}, {"missing", std::move(missing)}};
}

Json JsonOf(LocalMachine& machine, const FindResult& result) {
  Json json{{"found", OffersJson(machine, result)}};
  json["passed_over"] = Json::array();
  for (const PassedOver& what : result.passed_over) {
    Json passed = JsonOfPath(machine, what.path);
    passed["inside"] = what.inside;
    passed["reason"] = what.reason;
    passed["others"] = what.others;
    json["passed_over"].push_back(std::move(passed));
  }
  json["installed"] = Json::array();
  for (const Candidate* candidate : result.installed) {
    json["installed"].push_back(JsonOf(machine, *candidate));
  }
  json["not_installed"] = Json::array();
  for (const FindResult::Failure& failure : result.failed) {
    Json failed = JsonOf(machine, *failure.candidate);
    failed["reason"] = WordsOf(failure.fault);
    json["not_installed"].push_back(std::move(failed));
  }
  json["missing"] =
      RequiredJson(machine, result.still_required ? *result.still_required : result.required);
  return json;
}

}  // namespace panelkit
