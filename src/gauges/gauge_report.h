// What a report command found, as data. Page and plain text are both written from it.
#pragma once

#include <tsl/robin_map.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

/// A panel entry that the scan has met.
struct NamedEntry {
  bool is_missing = false;  ///< Not asked, and false, in a report of Clean.
  int aircraft = 0;         ///< How many aircraft name it.
  int last_aircraft = 0;    ///< The number of the last of them.
};

/// By the entry as it stands in the panels. Keeps the hashes, so that a look-up reads few texts.
using NamedEntries =
    tsl::robin_map<std::string_view, NamedEntry, std::hash<std::string_view>, std::equal_to<>,
                   std::allocator<std::pair<std::string_view, NamedEntry>>, true>;

/// A line of a panel that names a gauge in a way which the reports do not read.
struct Mention {
  std::string entry;     ///< Without blanks around it.
  std::string aircraft;  ///< The folder's name as listed.
  std::string panel;     ///< The panel.cfg, by its path below the simulator's folder.
  int line = 0;          ///< From 1.
};

/// A file that only such lines name.
struct OtherwiseNamedFile {
  std::string name;               ///< The file part as it is spelt first.
  bool is_there = true;           ///< Every entry that names it is installed.
  std::vector<Mention> mentions;  ///< The first one of each panel.
};

/// The whole report. Texts are UTF-8, as they stand in the files.
struct GaugeReport {
  // Fuller than by default: no slower, and half as large.
  GaugeReport() { named.max_load_factor(0.8F); }

  ReportKind kind = ReportKind::Probe;

  /// The panels with something to list, in the order of the scan.
  std::vector<ReportedPanel> panels;

  /// Every entry that a panel names.
  NamedEntries named;

  /// The number of aircraft that were scanned.
  int aircraft = 0;

  /// The files that panels name in a way which the report does not read; none of them is listed in
  /// what follows.
  std::vector<OtherwiseNamedFile> otherwise_named;

  /// Sorted as the page shows them: the files that are missing or, of Clean, the removed gauges.
  std::vector<std::string> names;

  /// Of Clean: the number of files that were selected to move, whether or not they were found and
  /// could be moved, and the folders they go between.
  int removed_files = 0;
  GaugeFolders folders;

  /// Holds the texts that entries and titles view. They stay where they are when the report moves.
  std::unique_ptr<TextStore> texts = std::make_unique<TextStore>();
};

}  // namespace panelkit
