#include "search/required_files.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "gauges/name_list.h"

namespace panelkit {

std::vector<RequiredFile> RequiredFilesOf(const GaugeReport& report) {
  std::vector<RequiredFile> files;
  std::unordered_map<std::string_view, std::size_t> places;
  for (const std::string& name : report.names) {
    places.emplace(name, files.size());
    files.push_back({name, {}});
  }
  std::unordered_set<std::string_view> known;
  for (const ReportedPanel& panel : report.panels) {
    for (const ReportedWindow& window : panel.windows) {
      for (const ReportedGauge& gauge : window.gauges) {
        if (!gauge.is_missing || !known.insert(gauge.entry).second) continue;
        const auto place = places.find(FilePart(gauge.entry));
        if (place != places.end()) files[place->second].entries.emplace_back(gauge.entry);
      }
    }
  }
  return files;
}

}  // namespace panelkit
