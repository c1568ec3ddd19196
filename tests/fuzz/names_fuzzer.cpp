// Any bytes as names of files: what they were before a renaming, which are like each other, how
// they are quoted.
#include <algorithm>
#include <vector>

#include "fuzz/fuzz.h"
#include "platform/libarchive/oem_names.h"
#include "search/deeds.h"
#include "search/gauge_names.h"
#include "search/near_name.h"
#include "search/reasons.h"

namespace panelkit::fuzz {
namespace {

// What a shell of Unix makes of one argument.
std::string Unquoted(std::string_view argument) {
  std::string text;
  char quote = '\0';
  for (std::size_t i = 0; i < argument.size(); ++i) {
    const char c = argument[i];
    if (quote == '\0' && (c == '\'' || c == '"')) {
      quote = c;
    } else if (c == quote) {
      quote = '\0';
    } else if (c == '\\' && quote == '\0') {
      text += argument[++i];
    } else {
      text += c;
    }
  }
  return text;
}

void TryNear(const Text& text, const std::vector<std::string>& names) {
  NearNames near(text);
  for (const std::string& name : names) near.Add(name);
  const auto all = [](std::size_t) { return true; };
  for (const std::string& name : names) {
    const auto matches = near.LikeThis(name, all);
    Require(matches.size() <= 3);
    for (const auto& [number, likeness] : matches) {
      const std::string other = text.Lower(names[number]);
      Require(other != text.Lower(name));
      if (likeness == Likeness::Separators) continue;
      const std::size_t most = likeness == Likeness::OneLetter ? 1 : 2;
      Require(EditDistance(other, text.Lower(name), most).has_value());
    }
  }
}

}  // namespace

void Try(std::string_view input) {
  static Prefix prefix;
  const Text& text = prefix.machine.Services().text;
  Require(!PossibleNames(input, text).empty());
  static_cast<void>(ReasonAgainstCabinet(input));
  static_cast<void>(ReasonAgainstGaugeFile(input));
  std::vector<std::string> names;
  for (std::size_t begin = 0; begin < input.size() && names.size() < 50;) {
    const std::size_t end = std::min(input.find('\n', begin), input.size());
    names.emplace_back(input.substr(begin, end - begin));
    begin = end + 1;
  }
  for (const std::string& name : names) {
    const std::string original = OriginalName(name);
    const FileKind kind = KindOf(original);
    Require(original.empty() || kind == FileKind::GaugeFile || kind == FileKind::Cabinet);
    Require(original.size() <= name.size());
    Require(Unquoted(AsArgument(name, true)) == name);
  }
  TryNear(text, names);
}

}  // namespace panelkit::fuzz
