#include "analysis/gauge_table.h"

#include <utility>

#include "analysis/panel_entry.h"

namespace panelkit {

void GaugeTable::Reset() {
  rows_.assign(1, {});
  overflowed_ = false;
  lowered_keys_.clear();
  parts_of_keys_.Clear();
  answered_.clear();
}

bool GaugeTable::Add(const Text& text, std::string origin, std::string key) {
  std::string lowered = text.Lower(key);
  rows_.back() = {std::move(origin), std::move(key)};
  if (UpperBound() == kHighestIndex) {
    overflowed_ = true;
    return false;
  }
  rows_.emplace_back();
  lowered_keys_.insert(lowered);
  parts_of_keys_.Add(std::move(lowered));
  answered_.clear();
  return true;
}

bool GaugeTable::Exists(const Text& text, const std::string& entry) const {
  const auto [answer, is_new] = answered_.try_emplace(entry, false);
  if (is_new) {
    const std::string lowered = text.Lower(entry);
    answer->second =
        (NamesFile(lowered) && lowered_keys_.contains(std::string(FilePart(lowered)))) ||
        parts_of_keys_.Contains(lowered);
  }
  return answer->second;
}

}  // namespace panelkit
