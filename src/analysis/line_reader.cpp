#include "analysis/line_reader.h"

#include <algorithm>

namespace panelkit {

std::string_view LineReader::Next() {
  const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
  const std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(end);
  if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
  return line;
}

bool ContainsWords(std::string_view line, std::string_view words) {
  const auto same = [](char in_line, char word) {
    return (in_line >= 'A' && in_line <= 'Z' ? in_line - 'A' + 'a' : in_line) == word;
  };
  return std::search(line.begin(), line.end(), words.begin(), words.end(), same) != line.end();
}

}  // namespace panelkit
