#include "pages/shown_page.h"

#include <bit>
#include <cstdint>

#include "pages/page_text.h"
#include "pages/report_page.h"

namespace panelkit {
namespace {

constexpr std::string_view kIndent = "&nbsp; &nbsp; ";

// Takes the first character off `text`, which is UTF-8.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  text.remove_prefix(1);
  if (lead < 0x80) return lead;
  const int length = std::countl_one(lead);
  char32_t character = lead & (0x7FU >> length);
  for (int i = 1; i < length && !text.empty(); ++i) {
    character = (character << 6U) | (static_cast<std::uint8_t>(text.front()) & 0x3FU);
    text.remove_prefix(1);
  }
  return character;
}

bool IsPlain(char32_t character) {
  constexpr std::u32string_view kMarkup = U"&<>\"'";
  return character < 0x7F && kMarkup.find(character) == std::u32string_view::npos;
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character < ' ' || character == 0x7F) {
      escaped += '?';
    } else if (IsPlain(character)) {
      escaped += static_cast<char>(character);
    } else {
      escaped += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
    }
  }
  return escaped;
}

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
