#include "text/matching.h"

#include <algorithm>

namespace panelkit {

bool EqualsIgnoringCase(std::string_view text, std::string_view words) {
  const auto same = [](char in_text, char word) {
    return in_text == word || (in_text >= 'A' && in_text <= 'Z' && in_text - 'A' + 'a' == word);
  };
  return text.size() == words.size() && std::equal(text.begin(), text.end(), words.begin(), same);
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view words) {
  return text.size() >= words.size() &&
         EqualsIgnoringCase(text.substr(text.size() - words.size()), words);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view words) {
  // Most words that are asked for begin with a bracket, and most lines have none.
  if (words.front() < 'a') text.remove_prefix(std::min(text.find(words.front()), text.size()));
  for (; text.size() >= words.size(); text.remove_prefix(1)) {
    if (EqualsIgnoringCase(text.substr(0, words.size()), words)) return true;
  }
  return false;
}

bool MatchesWildcard(std::string_view pattern, std::string_view name) {
  if (pattern == "*.*") return true;
  if (pattern.starts_with('*') && pattern.find_first_of("*?", 1) == std::string_view::npos) {
    return name.ends_with(pattern.substr(1));  // As "*.gau", which is asked of thousands of names.
  }
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace panelkit
