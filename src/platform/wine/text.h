// Text in a Windows code page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text.h"
#include "platform/wine/iconv_handle.h"

namespace panelkit {

/// Text by a code page of one or two bytes a character, or UTF-8 (65001), as the C library's iconv
/// knows it. Bytes below 0x80 are ASCII in every page, so a backslash is a backslash. A byte that
/// the page leaves undefined becomes the control character of the same number (0x80 to 0x9F) or
/// U+F0000 plus the byte, in the private use area that no code page maps to.
class WineText final : public Text {
 public:
  /// `page` is a Windows code page number; one that iconv does not know counts as 1252.
  explicit WineText(unsigned page);

  /// The name of the code page in use, as web browsers know it.
  std::string Charset() const;

  std::string FromAnsi(std::string_view bytes) const override;
  std::string ToAnsi(std::string_view text) const override;
  std::string Lower(std::string_view text) const override;
  std::string Upper(std::string_view text) const override;

 private:
  void ReadTables();
  void ReadPairs(const IconvHandle& from_page);
  void AddSingle(unsigned char byte, char32_t code_point);
  char32_t Decode(std::string_view bytes, std::size_t& position) const;

  unsigned page_;
  std::vector<char32_t> singles_;  ///< By byte; kLeadByte where a second byte follows.
  std::vector<char32_t> pairs_;    ///< By both bytes; empty for a page of single bytes.
  std::unordered_map<char32_t, std::uint16_t> bytes_;  ///< Both bytes, or one below 0x100.
};

}  // namespace panelkit
