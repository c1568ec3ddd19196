#include "text/wildcard.h"

namespace panelkit {

bool MatchesWildcard(std::string_view pattern, std::string_view name) {
  if (pattern == "*.*") return true;
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
