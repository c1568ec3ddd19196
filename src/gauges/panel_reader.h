// Reads what gauges one aircraft's panel names.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/text.h"
#include "text/line_reader.h"

namespace panelkit {

/// What the reader meets, in the order of the file. Texts are valid during the call only.
class PanelSink {
 public:
  virtual ~PanelSink() = default;

  /// A panel file was opened: the aircraft's own, or one that an alias leads to.
  virtual void OnFile() = 0;

  /// A panel window begins, under the next title line ("Window00=Main Panel").
  virtual void OnWindow(std::string_view title) = 0;

  /// A gauge line of that window, by its panel entry.
  virtual void OnEntry(std::string_view entry) = 0;
};

/// A line scanner for panel.cfg: it knows a handful of words, takes sections in the order in which
/// they stand, and pairs the n-th window with the n-th title by position alone.
class PanelReader {
 public:
  PanelReader(const Files& files, const Text& text, EventLoop& loop)
      : files_(files), text_(text), loop_(loop) {}

  /// Reads the panel of `aircraft`, a folder in `FSPath`\Aircraft, following alias lines (at most
  /// 100, and never to a file read before). Gives why the panel, or the one that an alias leads to,
  /// is there but could not be read; None if it was read or there is none. Lines read before the
  /// fault count.
  FileFault Read(const std::string& FSPath, const std::string& aircraft, PanelSink& sink);

 private:
  FileFault Follow(const std::string& FSPath, const std::string& panel, PanelSink& sink);
  std::optional<std::string> Scan(std::string_view content, PanelSink& sink);
  void ReadTitles(LineReader& lines);
  void ReadWindows(LineReader& lines, PanelSink& sink);

  const Files& files_;
  const Text& text_;
  EventLoop& loop_;
  std::array<std::string, 100> WindowTitles;
  std::int16_t TitleCount = 0;
};

}  // namespace panelkit
