#include "platform/windows/text.h"

#include <doctest/doctest.h>

using panelkit::windows::WindowsText;

TEST_CASE("Every byte of a gauge name survives, also one that the code page leaves undefined") {
  for (const unsigned page : {1252U, 1253U, 932U, 65001U}) {
    const WindowsText text(page);
    for (int byte = 1; byte < 256; ++byte) {
      const std::string bytes = {'a', static_cast<char>(byte)};
      CAPTURE(page);
      CAPTURE(byte);
      CHECK(text.ToAnsi(text.FromAnsi(bytes)) == bytes);
    }
  }
}

TEST_CASE(
    "Letters cross the border of the code page, and what it lacks becomes one question mark") {
  struct {
    unsigned page;
    std::string utf8;
    std::string ansi;
  } const cases[] = {
      {1252, "Höhe €", "H\xF6he \x80"},
      {1252, "Ł1 ≈ ∞ Ā", "?1 ? ? ?"},  // no best-fit letters
      {1252, "\xF0\x9F\x9B\xA9.gau", "?.gau"},
      {932, "表\\計器", "\x95\x5C\\\x8Cv\x8A\xED"},  // the second byte of the first one is 0x5C
      {65001, "Höhe 計", "Höhe 計"},
  };
  for (const auto& example : cases) {
    const WindowsText text(example.page);
    CAPTURE(example.utf8);
    CHECK(text.ToAnsi(example.utf8) == example.ansi);
    if (example.ansi.find('?') == std::string::npos) {
      CHECK(text.FromAnsi(example.ansi) == example.utf8);
    }
  }
}

TEST_CASE("Case is folded letter by letter, in every alphabet and without a locale") {
  const WindowsText text(1252);
  CHECK(text.Lower("GAUGE Höhe ÄÉ ЖΩ I") == "gauge höhe äé жω i");
  CHECK(text.Upper("straße ÿ ж i") == "STRAßE Ÿ Ж I");
  CHECK(text.Lower("").empty());
}
