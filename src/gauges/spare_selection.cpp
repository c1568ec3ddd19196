#include "gauges/spare_selection.h"

#include <string_view>
#include <unordered_set>

#include "gauges/trigram_index.h"

namespace panelkit {
namespace {

std::unordered_set<std::string> Lowered(const std::vector<std::string>& names, const Text& text) {
  std::unordered_set<std::string> lowered;
  for (const std::string& name : names) lowered.insert(text.Lower(name));
  return lowered;
}

// The required names, lowered, ready for both tests.
class RequiredNames {
 public:
  RequiredNames(const std::vector<std::string>& required, const Text& text)
      : whole_(Lowered(required, text)), parts_({whole_.begin(), whole_.end()}) {}

  bool Need(const std::string& lowered_key) const {
    return (NamesFile(lowered_key) && whole_.contains(std::string(FilePart(lowered_key)))) ||
           parts_.Contains(lowered_key);
  }

 private:
  std::unordered_set<std::string> whole_;
  TrigramIndex parts_;
};

}  // namespace

SpareSelection SelectSpare(const GaugeTable& installed, const std::vector<std::string>& required,
                           const Text& text) {
  const RequiredNames needed_by(required, text);
  SpareSelection spare;
  std::vector<std::string> lowered_files;
  for (int row = 0; row < installed.UpperBound(); ++row) {
    const std::string_view key = installed.Row(row).key;
    const std::string lowered = text.Lower(key);
    if (needed_by.Need(lowered)) continue;
    spare.keys.emplace_back(key);
    lowered_files.emplace_back(FilePart(lowered));
  }
  const TrigramIndex parts_of_files({lowered_files.begin(), lowered_files.end()});
  for (std::size_t i = 0; i < lowered_files.size(); ++i) {
    // A name that equals an earlier one occurs in it, so this one test serves for both. It may ask
    // all earlier ones, those left out as well: what occurs in them occurs in one that is moved.
    if (parts_of_files.ContainsBefore(i, lowered_files[i])) continue;
    spare.SpareFiles.push_back(NamesFile(spare.keys[i]) ? lowered_files[i] : spare.keys[i]);
  }
  return spare;
}

}  // namespace panelkit
