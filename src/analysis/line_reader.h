// The lines of a text file held in memory.
#pragma once

#include <string_view>

namespace panelkit {

/// Gives one line after the other. CR LF, a lone CR and a lone LF end a line and are not part of
/// it; a last line needs no end.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  /// The next line; the empty line at the end.
  std::string_view Next();

 private:
  std::string_view rest_;
};

/// Whether `line` contains `words`, case ignored. `words` is ASCII in lower case.
bool ContainsWords(std::string_view line, std::string_view words);

}  // namespace panelkit
