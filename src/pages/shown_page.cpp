#include "pages/shown_page.h"

#include "pages/page_text.h"
#include "pages/report_page.h"
#include "text/html.h"

namespace panelkit {
namespace {

constexpr std::string_view kIndent = "&nbsp; &nbsp; ";

}  // namespace

ShownPage::ShownPage(std::string_view title) : html_(PagePrelude) {
  html_ += RedHeading(title);
}

void ShownPage::Heading(std::string_view words) {
  html_ += "<br><br>" + RedHeading(words);
}

void ShownPage::Line(std::string_view line) {
  for (; line.starts_with("    "); line.remove_prefix(4)) html_ += kIndent;
  html_ += Escaped(line) + "<br>\r\n";
}

void ShownPage::BoldLine(std::string_view line) {
  html_ += "<b>" + Escaped(line) + "</b><br>\r\n";
}

void ShownPage::Names(std::string_view line, const std::vector<std::string>& names) {
  BoldLine(line);
  for (const std::string& name : names) Line("    " + name);
}

std::string ShownPage::Take() {
  return html_ + "<br><br></body>\r\n</html>\r\n";
}

}  // namespace panelkit
