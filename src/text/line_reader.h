// The lines of a text file held in memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace panelkit {

/// Gives one line after the other, without its end: CR LF, a lone CR or a lone LF. The last line
/// may lack one.
class LineReader {
 public:
  explicit LineReader(std::string_view text)
      : text_(text), cr_(Following('\r')), lf_(Following('\n')) {}

  bool AtEnd() const { return position_ == text_.size(); }

  /// The next line; the empty text at the end.
  std::string_view Next();

 private:
  std::size_t Following(char end) const;

  std::string_view text_;
  std::size_t position_ = 0;
  std::size_t cr_;  // The next CR and the next LF, each looked for again only when it is passed: a
  std::size_t lf_;  // file may have none of one kind. The text's size where none follows.
};

}  // namespace panelkit
