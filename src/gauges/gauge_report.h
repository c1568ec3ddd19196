// What a report command found, as data. Page and plain text are both written from it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "gauges/gauge_mover.h"
#include "gauges/text_store.h"

namespace panelkit {

/// The command that a report is of. It decides what a run lists and collects.
enum class ReportKind {
  Probe,  ///< Lists the gauges that are not installed, and collects them.
  Show,   ///< Lists all gauges, marks those that are not installed, and collects these.
  Clean,  ///< Lists nothing and collects every gauge.
};

/// A gauge that a panel window names, by its panel entry.
struct ReportedGauge {
  std::string_view entry;
  bool is_missing;
};

/// A window with the gauges to list, in the order of the file.
struct ReportedWindow {
  std::string_view title;  ///< The whole title line, "Window00=Main Panel".
  std::vector<ReportedGauge> gauges;
};

/// A panel file with the windows that have gauges to list. An aircraft has one for each file that
/// its alias lines lead through.
struct ReportedPanel {
  std::string aircraft;  ///< The folder's name as listed.
  std::vector<ReportedWindow> windows;
};

/// The whole report. Texts are UTF-8, as they stand in the files.
struct GaugeReport {
  ReportKind kind = ReportKind::Probe;

  /// The panels with something to list, in the order of the scan.
  std::vector<ReportedPanel> panels;

  /// Sorted as the page shows them: the files that are missing or, of Clean, the removed gauges.
  std::vector<std::string> names;

  /// Of Clean: the number of files that the removed gauges lie in, and where they went.
  int removed_files = 0;
  GaugeFolders folders;

  /// Holds the texts that entries and titles view.
  std::unique_ptr<TextStore> texts = std::make_unique<TextStore>();
};

}  // namespace panelkit
