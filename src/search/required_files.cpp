#include "search/required_files.h"

#include <string_view>
#include <unordered_map>
#include <utility>

#include "gauges/name_list.h"

namespace panelkit {

std::vector<RequiredFile> RequiredFilesOf(const GaugeReport& report) {
  std::vector<RequiredFile> files;
  std::unordered_map<std::string_view, std::size_t> places;
  for (const std::string& name : report.names) {
    places.emplace(name, files.size());
    files.push_back({name, {}});
  }
  std::unordered_map<std::string_view, std::size_t> known;  // The places of entries in their files.
  for (const ReportedPanel& panel : report.panels) {
    for (const ReportedWindow& window : panel.windows) {
      for (const ReportedGauge& gauge : window.gauges) {
        const auto place = gauge.is_missing ? places.find(FilePart(gauge.entry)) : places.end();
        if (place == places.end()) continue;
        RequiredFile& file = files[place->second];
        const auto [entry, is_new] = known.emplace(gauge.entry, file.entries.size());
        if (is_new) {
          file.entries.emplace_back(gauge.entry);
          file.aircraft.emplace_back();
        }
        auto& aircraft = file.aircraft[entry->second];
        if (aircraft.empty() || aircraft.back() != panel.aircraft) {
          aircraft.push_back(panel.aircraft);
        }
      }
    }
  }
  return files;
}

std::unordered_set<std::string> NamedFileParts(const GaugeReport& report, const Text& text) {
  std::unordered_set<std::string> parts;
  for (const auto& [entry, naming] : report.named) parts.insert(text.Lower(FilePart(entry)));
  return parts;
}

}  // namespace panelkit
