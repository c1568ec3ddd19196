// The gauges that panels name in ways which the reports do not read.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gauges/gauge_report.h"
#include "platform/files.h"
#include "platform/text.h"

namespace panelkit {

/// Reads panels generously, beside the reader of the reports, which hands it each line. A line
/// names a gauge wherever it stands, also before the first section, if it begins, after blanks,
/// with "gauge", digits and "="; blanks around the name do not belong to it. Beside `Panel`, the
/// folders `Panel.*` of an aircraft are looked into, which aircraft.cfg names as panels of
/// variants. Alias lines are followed wherever they stand.
class MentionFinder {
 public:
  MentionFinder(const Files& files, const Text& text, std::string FSPath);

  /// Turns to the next aircraft, a folder of Aircraft.
  void Begin(const std::string& aircraft);

  /// Turns to a panel that the reports read from `path`.
  void BeginPanel(const std::string& path);

  /// Looks at one of its lines. `reported` is the entry in `line` that the reports have taken, if
  /// they have: this is no news.
  void OnLine(std::string_view line, int number, std::string_view reported = {});

  /// Whether a line may name another gauge than `reported`, the entry that the reports have taken
  /// from it. OnLine need not see the others.
  static bool MayNameAnother(std::string_view reported) {
    return std::any_of(reported.begin(), reported.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == ';' || c == '/'; });
  }

  /// Reads the aircraft's other panels, and what their alias lines lead to.
  void LookFurther();

  /// All that was found, in the order of the scan.
  const std::vector<Mention>& Mentions() const { return mentions_; }

  /// Panels, by their paths below the simulator's folder, that LookFurther could not read.
  const std::vector<std::string>& Unreadable() const { return unreadable_; }

 private:
  void Read(const std::string& path);
  void Open(std::string_view folder);

  const Files& files_;
  const Text& text_;
  std::string FSPath_;
  std::string aircraft_;
  std::string panel_;              // By its path below the simulator's folder.
  std::vector<std::string> seen_;  // The aircraft's panels by path.
  std::vector<std::string> open_;  // Panels that alias lines lead to.
  std::vector<Mention> mentions_;
  std::vector<std::string> unreadable_;
};

/// The mentioned files that no entry of the report names, case ignored, each with the places of its
/// mentions, one a panel, in the order of `mentions`. `exists` answers for a panel entry.
std::vector<OtherwiseNamedFile> OtherwiseNamedFiles(
    const std::vector<Mention>& mentions, const NamedEntries& named, const Text& text,
    const std::function<bool(const std::string& Gauge)>& exists);

}  // namespace panelkit
