#include "gauges/panel_reader.h"

#include <algorithm>
#include <new>
#include <unordered_set>

#include "text/matching.h"

namespace panelkit {
namespace {

constexpr int kDeepestAlias = 100;

bool IsWindowHeader(std::string_view line) {
  return ContainsIgnoringCase(line, "[window") && !ContainsIgnoringCase(line, "[window00]");
}

bool IsGaugeLine(std::string_view line) {
  return EqualsIgnoringCase(line.substr(0, 5), "gauge");
}

// The text between the line's first "=" and its first ","; empty if the "=" stands behind the
// comma. A line without a comma names a gauge too, unless nothing is left of it.
std::optional<std::string_view> EntryOf(std::string_view line) {
  const std::size_t comma = line.find(',');
  const std::size_t equals = line.find('=');
  std::string_view entry = line.substr(0, comma);
  if (equals != std::string_view::npos) entry.remove_prefix(std::min(equals + 1, entry.size()));
  if (comma == std::string_view::npos && entry.empty()) return std::nullopt;
  return entry;
}

// What stands behind the alias line's first "=", without the blanks around it.
std::string_view AliasValue(std::string_view line) {
  line.remove_prefix(line.find('=') + 1);
  const std::size_t first = line.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

}  // namespace

FileFault PanelReader::Read(const std::string& FSPath, const std::string& aircraft,
                            PanelReport& report) {
  try {
    mentions_.Begin(aircraft);
    const FileFault fault = Follow(FSPath, aircraft + R"(\Panel)", report);
    mentions_.LookFurther();
    return fault;
  } catch (const std::bad_alloc&) {
    // A panel that is too large for the memory at hand costs its own lines, not the whole run.
    return FileFault::TooLarge;
  }
}

// Reads the panel in a folder of Aircraft, then the one that its alias line leads to, and so on.
FileFault PanelReader::Follow(const std::string& FSPath, const std::string& panel,
                              PanelReport& report) {
  std::unordered_set<std::string> files_read;
  std::string path = FSPath + R"(\Aircraft\)" + panel + R"(\panel.cfg)";
  for (int depth = 0; depth <= kDeepestAlias && files_read.insert(text_.Lower(path)).second;
       ++depth) {
    const FileContent file = files_.Read(path);
    if (!file.bytes) return file.fault == FileFault::Absent ? FileFault::None : file.fault;
    report.OnFile();
    mentions_.BeginPanel(path);
    const std::optional<std::string> alias = Scan(text_.FromAnsi(*file.bytes), report);
    if (!alias) break;
    path = FSPath + R"(\Aircraft\)" + *alias + R"(\panel.cfg)";
  }
  return FileFault::None;
}

// Gives the folder, relative to Aircraft, that an alias line leads to.
std::optional<std::string> PanelReader::Scan(std::string_view content, PanelReport& report) {
  TitleCount = 0;
  LineReader lines(content, LoneLf::EndsLine);
  while (!lines.AtEnd()) {
    loop_.ProcessPending();
    const std::string_view line = NextLine(lines);
    if (ContainsIgnoringCase(line, "alias=")) {
      while (!lines.AtEnd()) NextLine(lines);
      return std::string(AliasValue(line));
    }
    if (lines.LineHasBracket() && ContainsIgnoringCase(line, "[window titles]")) ReadTitles(lines);
    // Not only at the titles header: windows beyond the titles start again at the first title.
    if (TitleCount > 0) ReadWindows(lines, report);
  }
  return std::nullopt;
}

// The next line, which the report takes no gauge from.
std::string_view PanelReader::NextLine(LineReader& lines) {
  const std::string_view line = lines.Next();
  mentions_.OnLine(line, lines.Number());
  return line;
}

void PanelReader::ReadTitles(LineReader& lines) {
  TitleCount = 0;
  for (std::string& title : WindowTitles) {
    if (lines.AtEnd()) return;
    const std::string_view line = NextLine(lines);
    if (!ContainsIgnoringCase(line, "window")) return;
    title = line;
    ++TitleCount;
  }
}

void PanelReader::ReadWindows(LineReader& lines, PanelReport& report) {
  for (int window = 0; window < TitleCount; ++window) {
    report.OnWindow(WindowTitles.at(window));
    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      const bool ends_window = lines.LineHasBracket() && IsWindowHeader(line);
      const auto entry = !ends_window && IsGaugeLine(line) ? EntryOf(line) : std::nullopt;
      if (!entry || MentionFinder::MayNameAnother(*entry)) {
        mentions_.OnLine(line, lines.Number(), entry.value_or(""));
      }
      if (ends_window) break;
      if (entry) report.OnEntry(*entry);
    }
  }
}

}  // namespace panelkit
