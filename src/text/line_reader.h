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
      : text_(text), cr_(Following('\r')), lf_(Following('\n')), bracket_(Following('[')) {}

  bool AtEnd() const { return position_ == text_.size(); }

  /// The next line; the empty text at the end.
  std::string_view Next();

  /// Whether the last line holds a "[", as a section's header does.
  bool LineHasBracket() const { return has_bracket_; }

 private:
  std::size_t Following(char end) const;

  std::string_view text_;
  std::size_t position_ = 0;
  // The next one of each, looked for again only when it is passed: a file may have none of one
  // kind. The text's size where none follows.
  std::size_t cr_;
  std::size_t lf_;
  std::size_t bracket_;
  bool has_bracket_ = false;
};

}  // namespace panelkit
