#include "gauges/doubtful_entries.h"

#include <algorithm>

namespace panelkit {

std::vector<DoubtfulEntry> DoubtfulEntries(const NamedEntries& named, const GaugeTable& installed,
                                           const Text& text) {
  std::vector<DoubtfulEntry> doubtful;
  for (const auto& [entry, facts] : named) {
    if (facts.is_missing || installed.HasOwnKey(text, entry)) continue;
    const std::vector<int> rows = installed.RowsThatSatisfy(text, entry);
    if (rows.empty()) continue;
    doubtful.push_back(
        {std::string(entry), std::string(installed.Row(rows.front()).key), facts.aircraft});
  }
  std::sort(doubtful.begin(), doubtful.end(),
            [](const DoubtfulEntry& a, const DoubtfulEntry& b) { return a.entry < b.entry; });
  return doubtful;
}

}  // namespace panelkit
