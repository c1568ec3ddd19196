#include "commands/spare_selection.h"

#include <string_view>
#include <unordered_set>

#include "analysis/panel_entry.h"
#include "analysis/substring_index.h"

namespace panelkit {
namespace {

// The required names, lowered, ready for both tests.
class RequiredNames {
 public:
  RequiredNames(const std::vector<std::string>& required, const Text& text) {
    for (const std::string& name : required) {
      const std::string lowered = text.Lower(name);
      if (whole_.insert(lowered).second) parts_.Add(lowered);
    }
  }

  bool Need(const std::string& lowered_key) const {
    return (NamesFile(lowered_key) && whole_.contains(std::string(FilePart(lowered_key)))) ||
           parts_.Contains(lowered_key);
  }

 private:
  std::unordered_set<std::string> whole_;
  SubstringIndex parts_;
};

}  // namespace

SpareSelection SelectSpare(const GaugeTable& installed, const std::vector<std::string>& required,
                           const Text& text) {
  const RequiredNames needed_by(required, text);
  SpareSelection spare;
  SubstringIndex parts_of_spare_files;
  for (int row = 0; row < installed.UpperBound(); ++row) {
    const std::string& key = installed.Row(row).key;
    const std::string lowered = text.Lower(key);
    if (needed_by.Need(lowered)) continue;
    spare.keys.push_back(key);
    const std::string file(FilePart(lowered));
    // A name that equals an earlier one occurs in it, so this one test serves for both.
    if (parts_of_spare_files.Contains(file)) continue;
    spare.SpareFiles.push_back(NamesFile(key) ? file : key);
    parts_of_spare_files.Add(file);
  }
  return spare;
}

}  // namespace panelkit
