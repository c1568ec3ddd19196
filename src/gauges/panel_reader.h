// Reads what gauges one aircraft's panel names.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "gauges/mention_finder.h"
#include "gauges/panel_report.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/text.h"
#include "text/line_reader.h"

namespace panelkit {

/// A line scanner for panel.cfg: it recognises lines by a few words, ignores section numbers, and
/// gives the n-th window of the file the n-th title.
class PanelReader {
 public:
  /// What is read is handed on to `mentions`.
  PanelReader(const Files& files, const Text& text, EventLoop& loop, MentionFinder& mentions)
      : files_(files), text_(text), loop_(loop), mentions_(mentions) {}

  /// Reads the panel of `aircraft`, a folder in `FSPath`\Aircraft, following alias lines (at most
  /// 100, and never to a file read before). Gives why the panel, or the one that an alias leads to,
  /// is there but could not be read; None if it was read or there is none. Lines read before the
  /// fault count.
  FileFault Read(const std::string& FSPath, const std::string& aircraft, PanelReport& report);

 private:
  FileFault Follow(const std::string& FSPath, const std::string& panel, PanelReport& report);
  std::optional<std::string> Scan(std::string_view content, PanelReport& report);
  std::string_view NextLine(LineReader& lines);
  void ReadTitles(LineReader& lines);
  void ReadWindows(LineReader& lines, PanelReport& report);

  const Files& files_;
  const Text& text_;
  EventLoop& loop_;
  MentionFinder& mentions_;
  std::array<std::string, 100> WindowTitles;
  std::int16_t TitleCount = 0;
};

}  // namespace panelkit
