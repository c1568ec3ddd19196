#include "pages/restored_page.h"

#include "pages/shown_page.h"

namespace panelkit {

std::vector<NameSection> RestoredSections(const RestoreOutcome& files, const std::string& gauges) {
  std::vector<NameSection> sections{
      {"Restored to " + gauges + ":", files.restored},
      {"Left in SpareGauges, since Gauges has a file of that name:", files.already_there},
      {"Left in SpareGauges, since they came from another simulator (--all brings them):",
       files.from_elsewhere}};
  std::erase_if(sections, [](const NameSection& section) { return section.names.empty(); });
  return sections;
}

std::string RestoredPage(const RestoreOutcome& files, const GaugeFolders& folders) {
  ShownPage page("GAUGES PUT BACK");
  for (const auto& [heading, names] : RestoredSections(files, folders.gauges)) {
    page.Names(heading, names);
    page.Line("");
  }
  if (!files.failed.empty()) {
    page.Names("Not in " + folders.spare + ", or they could not be moved:", files.failed);
  }
  return page.Take();
}

}  // namespace panelkit
