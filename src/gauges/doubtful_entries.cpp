#include "gauges/doubtful_entries.h"

#include <algorithm>

#include "gauges/name_list.h"

namespace panelkit {

std::vector<DoubtfulEntry> DoubtfulEntries(const NamedEntries& named, const GaugeTable& installed,
                                           const Text& text) {
  std::vector<DoubtfulEntry> doubtful;
  for (const auto& [entry, facts] : named) {
    if (facts.is_missing) continue;
    const std::vector<int> rows = installed.RowsThatSatisfy(text, entry);
    const std::string lowered = text.Lower(entry);
    const bool has_own = std::any_of(rows.begin(), rows.end(), [&](int row) {
      const std::string key = text.Lower(installed.Row(row).key);
      return key == lowered || (NamesFile(lowered) && key == FilePart(lowered));
    });
    if (has_own || rows.empty()) continue;
    doubtful.push_back(
        {std::string(entry), std::string(installed.Row(rows.front()).key), facts.aircraft});
  }
  std::sort(doubtful.begin(), doubtful.end(),
            [](const DoubtfulEntry& a, const DoubtfulEntry& b) { return a.entry < b.entry; });
  return doubtful;
}

}  // namespace panelkit
