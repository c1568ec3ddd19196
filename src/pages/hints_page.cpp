#include "pages/hints_page.h"

#include <algorithm>

#include "pages/report_text.h"
#include "pages/shown_page.h"
#include "pages/strip_text.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostAircraft = 10;

std::string AskedForBy(const RequiredFile& file) {
  std::vector<std::string> names;
  for (const auto& aircraft : file.aircraft) {
    for (const std::string& name : aircraft) {
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
  }
  std::string line = "    asked for by ";
  const std::size_t named = std::min(names.size(), kMostAircraft);
  for (std::size_t i = 0; i < named; ++i) line += (i == 0 ? "" : ", ") + names[i];
  if (names.size() > named) line += " and " + std::to_string(names.size() - named) + " more";
  return line;
}

}  // namespace

std::string HintsPage(const GaugeReport& report, const HintsOf& hints, const CommandStyle& style,
                      const std::vector<DoubtfulEntry>& doubtful) {
  ShownPage page("WHY GAUGES ARE MISSING");
  page.BoldLine(MissingText(report.names.size()));
  for (const RequiredFile& file : RequiredFilesOf(report)) {
    page.Line("");
    page.BoldLine(file.name);
    page.Line(AskedForBy(file));
    const auto found = hints(file);
    for (const Hint& hint : found) page.Line("    " + LineOf(hint, style));
    if (found.empty()) page.Line("    nothing like it was seen on this machine");
  }
  const auto on_line = [&page](std::string_view line) {
    if (line.starts_with(' ')) return page.Line(line);
    if (!line.empty()) page.Heading(line);
  };
  TellDoubtful(doubtful, on_line);
  if (!report.otherwise_named.empty()) TellOtherwiseNamed(report.otherwise_named, on_line);
  return page.Take();
}

}  // namespace panelkit
