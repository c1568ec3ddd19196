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
    case HintKind::SameEntries:
      return "same-entries";
    case HintKind::EndingInPanel:
      return "ending-in-panel";
    case HintKind::NearName:
      return "near-name";
  }
  return "";
}

const char* NameOf(DeedKind kind) {
  switch (kind) {
    case DeedKind::Restore:
      return "restore";
    case DeedKind::Install:
      return "install";
    case DeedKind::LookFor:
      return "look-for";
    case DeedKind::Rename:
      return "rename";
    case DeedKind::Unhide:
      return "unhide";
    case DeedKind::Repack:
      return "repack";
    case DeedKind::EditPanel:
      return "edit-panel";
  }
  return "";
}

Json JsonOf(const RequiredFile& file) {
  return {{"name", file.name}, {"entries", file.entries}, {"aircraft", file.aircraft}};
}

Json JsonOf(const LocalMachine& machine, const Hint& hint, const CommandStyle& style) {
  Json json{{"kind", NameOf(hint.kind)}};
  if (hint.kind == HintKind::InSpareGauges) json["exact_name"] = !hint.only_holds_name;
  json.update(JsonOfPath(machine, hint.path));
  if (!hint.wanted.empty()) json["wanted"] = hint.wanted;
  if (!hint.nearest.empty()) json["nearest"] = hint.nearest;
  json["text"] = LineOf(hint, style);
  json["deed"] = {{"kind", NameOf(hint.deed.kind)}, {"text", TextOf(hint.deed, style)}};
  return json;
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
  json["name_is_taken"] = offer.name_is_taken;
  json["satisfies"] = offer.entries;
  return json;
}

// One with all that it satisfies, of whichever file.
Json JsonOfChosen(const LocalMachine& machine, const Candidate& candidate,
                  const FindResult& result) {
  Offer whole;
  whole.candidate = &candidate;
  for (const std::vector<Offer>& of_file : result.offers) {
    for (const Offer& offer : of_file) {
      if (offer.candidate != &candidate) continue;
      whole.has_exact_name |= offer.has_exact_name;
      whole.entries.insert(whole.entries.end(), offer.entries.begin(), offer.entries.end());
    }
  }
  return JsonOf(machine, whole);
}

Json FoundJson(const LocalMachine& machine, const FindResult& result) {
  Json array = Json::array();
  for (std::size_t i = 0; i < result.required.size(); ++i) {
    Json required = JsonOf(result.required[i]);
    required["candidates"] = Json::array();
    for (const Offer& offer : result.offers[i]) {
      required["candidates"].push_back(JsonOf(machine, offer));
    }
    required["near"] = Json::array();
    for (const auto& [candidate, likeness, in_the_way] : result.near_offers[i]) {
      required["near"].push_back(JsonOf(machine, *candidate));
      required["near"].back()["differs"] = DifferenceText(likeness);
      required["near"].back()["name_is_taken"] = !in_the_way.empty();
    }
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
Json MissingJson(const CommandLine& line, const FindResult& result) {
  if (!result.still_required && !line.dry_run && !result.installed.empty()) return nullptr;
  Json array = Json::array();
  for (const RequiredFile& file : result.still_required.value_or(result.required)) {
    array.push_back(JsonOf(file));
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

Json JsonOf(const LocalMachine& machine, const GaugeReport& report, const Hints* hints) {
  Json missing = Json::array();
  const auto required = hints != nullptr ? hints->required : RequiredFilesOf(report);
  for (std::size_t i = 0; i < required.size(); ++i) {
    missing.push_back(JsonOf(required[i]));
    if (hints == nullptr) continue;
    missing.back()["hints"] = Json::array();
    for (const Hint& hint : hints->of_files[i]) {
      missing.back()["hints"].push_back(JsonOf(machine, hint, hints->style));
    }
  }
  return {{"panels", JsonOf(report.panels)}, {"missing", std::move(missing)}};
}

Json JsonOf(const LocalMachine& machine, const CommandLine& line, const FindResult& result) {
  Json installed = Json::array();
  for (const InstalledFile& file : result.installed) {
    installed.push_back(JsonOfChosen(machine, *file.candidate, result));
    installed.back()["aircraft"] = file.aircraft;
    installed.back()["others"] = file.others;
    installed.back()["choice"] = file.others > 0 ? Json(ChoiceText(file)) : Json();
  }
  Json not_installed = Json::array();
  for (const auto& [candidate, fault] : result.failed) {
    not_installed.push_back(JsonOfChosen(machine, *candidate, result));
    not_installed.back()["reason"] = FaultText(fault);
  }
  return {{"found", FoundJson(machine, result)},
          {"passed_over", PassedOverJson(machine, result.passed_over)},
          {"dry_run", line.dry_run},
          {"installed", std::move(installed)},
          {"not_installed", std::move(not_installed)},
          {"missing", MissingJson(line, result)}};
}

}  // namespace panelkit
