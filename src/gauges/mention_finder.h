// The gauges that panels name in ways which the reports do not read.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "gauges/gauge_report.h"
#include "platform/files.h"
#include "platform/text.h"

namespace panelkit {

/// Reads panels generously, beside the reader of the reports. A line counts in any section, and in
/// none, if it begins, after blanks, with "gauge", digits and "="; blanks around the name do not
/// belong to it. Beside `Panel`, the folders `Panel.*` of an aircraft are looked into, which
/// aircraft.cfg names as panels of variants. Alias lines are followed wherever they stand.
class MentionFinder {
 public:
  MentionFinder(const Files& files, const Text& text, std::string FSPath);

  /// Turns to the next aircraft, a folder of Aircraft.
  void Begin(const std::string& aircraft);

  /// Looks through a panel that the reports have read from `path`. `reported` are the entries in
  /// `content` that they have taken, in its order: these are no news.
  void Look(const std::string& path, std::string_view content,
            std::span<const std::string_view> reported);

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
  std::unordered_set<std::string> seen_;  // The aircraft's panels by lowered path.
  std::vector<std::string> open_;         // Panels that alias lines lead to.
  std::vector<Mention> mentions_;
  std::vector<std::string> unreadable_;
};

/// The mentioned files that no entry of the report names, case ignored, each with the places of its
/// mentions, one a panel, in the order of `mentions`. `exists` answers for a panel entry.
std::vector<OtherwiseNamedFile> OtherwiseNamedFiles(
    const std::vector<Mention>& mentions, const NamedEntries& named, const Text& text,
    const std::function<bool(const std::string& Gauge)>& exists);

}  // namespace panelkit
