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

const TrigramIndex& GaugeTable::PartsOfKeys() const {
  auto& parts = contents_->parts_of_keys;
  if (!parts) parts.emplace(contents_->lowered_keys);
  return *parts;
}

bool GaugeTable::HasOwnKey(const Text& text, std::string_view entry) const {
  const TextSet& keys = contents_->whole_keys;
  const std::string lowered = text.Lower(entry);
  return keys.contains(lowered) || (NamesFile(lowered) && keys.contains(FilePart(lowered)));
}

bool GaugeTable::Exists(const Text& text, std::string_view entry) const {
  // Most entries are a whole key, which holds itself.
  return HasOwnKey(text, entry) || PartsOfKeys().Contains(text.Lower(entry));
}

std::vector<int> GaugeTable::RowsThatSatisfy(const Text& text, std::string_view entry) const {
  std::vector<int> rows;
  const std::string lowered = text.Lower(entry);
  const std::string_view file = FilePart(lowered);
  const bool is_file = NamesFile(lowered) && contents_->whole_keys.contains(file);
  // One question to the index finds both: a key that holds the entry holds its file part too.
  for (const std::size_t row : PartsOfKeys().Containing(is_file ? file : lowered)) {
    const std::string_view key = contents_->lowered_keys[row];
    if (!is_file || key == file || key.find(lowered) != std::string_view::npos) {
      rows.push_back(static_cast<int>(row));
    }
  }
  return rows;
}

}  // namespace panelkit
