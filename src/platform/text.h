// The machine's ANSI code page and its rule of case.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// What the machine knows about text. Inside the program all text is UTF-8; bytes of the ANSI code
/// page exist only in files, in the registry and in cabinets. No call fails. Of bytes that are no
/// UTF-8, ToAnsi makes '?'; Lower and Upper give them back or put U+FFFD in their place.
class Text {
 public:
  virtual ~Text() = default;

  /// Bytes of the ANSI code page as UTF-8. Bytes that the page leaves undefined become placeholders
  /// that ToAnsi turns back into the same bytes.
  virtual std::string FromAnsi(std::string_view bytes) const = 0;

  /// UTF-8 as bytes of the ANSI code page, with '?' for each character that the page lacks; never a
  /// best-fit letter.
  virtual std::string ToAnsi(std::string_view text) const = 0;

  /// Lower case, letter by letter, whatever the locale. Two texts are equal with case ignored when
  /// their lowered forms are.
  virtual std::string Lower(std::string_view text) const = 0;

  /// Upper case, letter by letter, whatever the locale. Lists that ignore case sort by it. A letter
  /// of the ANSI code page whose capital it lacks stays small, so that ToAnsi can give it.
  virtual std::string Upper(std::string_view text) const = 0;
};

}  // namespace panelkit
