#include "gauges/gauge_table.h"

#include <algorithm>
#include <string>

#include "gauges/gauge_file.h"

namespace panelkit {

bool GaugeTable::Add(const Text& text, std::string_view origin, std::string_view key) {
  auto& [store, rows, lowered_keys, whole_keys, parts_of_keys] = *contents_;
  // The rows of one cabinet follow each other and share its name.
  const bool same_origin = rows.size() > 1 && rows[rows.size() - 2].origin == origin;
  rows.back() = {same_origin ? rows[rows.size() - 2].origin : store.Keep(origin), store.Keep(key)};
  if (UpperBound() == kHighestIndex) {
    overflowed_ = true;
    return false;
  }
  rows.emplace_back();
  lowered_keys.push_back(store.Keep(text.Lower(key)));
  whole_keys.insert(lowered_keys.back());
  parts_of_keys.reset();
  return true;
}

bool GaugeTable::AddEntry(const Text& text, std::string_view cabinet, std::string_view file) {
  if (!file.ends_with(kGaugeEntryExtension)) return true;
  return Add(text, cabinet, std::string(cabinet) + "!" + LessExtension(file));
}

bool GaugeTable::Exists(const Text& text, std::string_view entry) const {
  auto& [store, rows, lowered_keys, whole_keys, parts_of_keys] = *contents_;
  const std::string lowered = text.Lower(entry);
  if (!parts_of_keys) parts_of_keys.emplace(lowered_keys);
  // A whole key, which most entries are, holds itself.
  return whole_keys.contains(lowered) ||
         (NamesFile(lowered) && whole_keys.contains(FilePart(lowered))) ||
         parts_of_keys->Contains(lowered);
}

std::vector<int> GaugeTable::RowsThatSatisfy(const Text& text, std::string_view entry) const {
  std::vector<int> rows;
  if (!Exists(text, entry)) return rows;
  const auto& [store, all_rows, lowered_keys, whole_keys, parts_of_keys] = *contents_;
  const std::string lowered = text.Lower(entry);
  for (const std::size_t row : parts_of_keys->Containing(lowered)) {
    rows.push_back(static_cast<int>(row));
  }
  if (NamesFile(lowered) && whole_keys.contains(FilePart(lowered))) {
    for (std::size_t row = 0; row < lowered_keys.size(); ++row) {
      if (lowered_keys[row] == FilePart(lowered)) rows.push_back(static_cast<int>(row));
    }
    std::sort(rows.begin(), rows.end());
  }
  return rows;
}

}  // namespace panelkit
