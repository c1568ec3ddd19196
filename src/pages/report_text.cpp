#include "pages/report_text.h"

#include <algorithm>
#include <array>
#include <optional>

#include "pages/page_text.h"

namespace panelkit {
namespace {

// How one kind of line begins and ends in a page, and what stands for both in the text.
struct LineForm {
  std::string_view opening;
  std::string_view ending;
  std::string_view text_before;
  std::string_view text_after;
};

// Longer openings before those that they begin with.
constexpr std::array kForms{
    LineForm{"<br><br><font color=\"red\"><b>", "</b></font><hr size=1>", "\n", ""},
    LineForm{"<font color=\"red\"><b>", "</b></font><hr size=1>", "", ""},
    LineForm{"<font color=\"red\">AND ARCHIVED IN FOLDER:</font><br>  &nbsp;  &nbsp; ",
             "</b></font><hr size=1>", "AND ARCHIVED IN FOLDER:\n    ", ""},
    LineForm{"<b>AIRCRAFT: ", "</b><br>", "\nAIRCRAFT: ", ""},
    LineForm{"<b>There are ", " Required Files:</b><br><br>", "There are ", " Required Files:"},
    LineForm{"<b>Removed Files:</b>", "<br><br>", "Removed Files:", ""},
    LineForm{"&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; ", "<br>", "        ", ""},
    LineForm{"&nbsp; &nbsp; &nbsp; &nbsp; ", "<br>", "    ", ""},
    LineForm{"&nbsp; &nbsp; ", "<br>", "    ", ""},
};

constexpr std::string_view kFolderOpening = "<font color=\"red\"><b>";
constexpr std::string_view kFolderMiddle = " FOLDER: </font><BR> &nbsp;  &nbsp; ";

// The line of a Clean Gauges report that counts what went and names the folder.
std::optional<std::string> RemovalText(std::string_view line) {
  const std::size_t middle = line.find(kFolderMiddle);
  if (!line.starts_with(kFolderOpening) || middle == std::string_view::npos ||
      !line.ends_with("<br>")) {
    return std::nullopt;
  }
  std::string_view folder = line.substr(middle + kFolderMiddle.size());
  folder.remove_suffix(4);
  const std::string_view counts =
      line.substr(kFolderOpening.size(), middle - kFolderOpening.size());
  return std::string(counts) + " FOLDER:\n    " + std::string(folder);
}

std::optional<std::string> LineText(std::string_view line) {
  if (auto removal = RemovalText(line)) return removal;
  for (const LineForm& form : kForms) {
    if (line.size() < form.opening.size() + form.ending.size()) continue;
    if (!line.starts_with(form.opening) || !line.ends_with(form.ending)) continue;
    line.remove_prefix(form.opening.size());
    line.remove_suffix(form.ending.size());
    return std::string(form.text_before).append(line).append(form.text_after);
  }
  return std::nullopt;
}

}  // namespace

std::string ReportText(std::string_view page) {
  std::string text;
  text.reserve(page.size());
  while (!page.empty()) {
    const std::string_view line = page.substr(0, page.find("\r\n"));
    page.remove_prefix(std::min(page.size(), line.size() + 2));
    if (const auto plain = LineText(line)) text.append(*plain).append("\n");
  }
  return text;
}

}  // namespace panelkit
