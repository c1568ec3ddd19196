// The lines of a text file held in memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace panelkit {

/// What ends a line beside CR LF and a lone CR.
enum class LoneLf {
  EndsLine,
  EndsLineWithoutCr,  ///< A lone LF does so only in a text that has no CR at all.
};

/// Gives one line after the other, without its end. The last line may lack one.
class LineReader {
 public:
  LineReader(std::string_view text, LoneLf lone_lf)
      : text_(text),
        cr_(Following('\r')),
        lone_lf_ends_(lone_lf == LoneLf::EndsLine || cr_ == text.size()),
        lf_(lone_lf_ends_ ? Following('\n') : text.size()),
        bracket_(Following('[')) {}

  bool AtEnd() const { return position_ == text_.size(); }

  /// The next line; the empty text at the end.
  std::string_view Next();

  /// The number of the last line, from 1.
  int Number() const { return number_; }

  /// Whether the last line holds a "[", as a section's header does.
  bool LineHasBracket() const { return has_bracket_; }

 private:
  std::size_t Following(char end) const;

  std::string_view text_;
  std::size_t position_ = 0;
  // The next one of each, looked for again only when it is passed: a file may have none of one
  // kind. The text's size where none follows.
  std::size_t cr_;
  bool lone_lf_ends_;
  std::size_t lf_;  // The text's size where a lone one ends no line.
  std::size_t bracket_;
  bool has_bracket_ = false;
  int number_ = 0;
};

}  // namespace panelkit
