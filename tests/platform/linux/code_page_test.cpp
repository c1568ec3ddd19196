// Text: code pages and letters.
#include <doctest/doctest.h>

#include <string>

#include "platform/linux/code_page_text.h"

namespace panelkit {
namespace {

// The pages 932 and 950 hold some characters twice; those come back in one form, as on Windows.
TEST_CASE("All bytes survive the way in and out") {
  std::string all;
  for (int byte = 0; byte < 0x100; ++byte) all += static_cast<char>(byte);
  for (const unsigned page :
       {874U, 1250U, 1251U, 1252U, 1253U, 1254U, 1255U, 1256U, 1257U, 1258U, 936U, 949U, 65001U}) {
    CAPTURE(page);
    const CodePageText text(page);
    CHECK(text.Page() == page);
    CHECK(text.ToAnsi(text.FromAnsi(all)) == all);
    const std::string reversed(all.rbegin(), all.rend());
    CHECK(text.ToAnsi(text.FromAnsi(reversed)) == reversed);
  }
}

TEST_CASE("Letters stand where their code page has them") {
  struct Sample {
    unsigned page;
    std::string bytes;
    std::string text;
  };
  const Sample samples[] = {
      {1252, "\x80 \xE9\x81", "€ é\u0081"},
      {1251, "\xCF\xEB\xE0\xED", "План"},
      {1253, "\xC1\xAA", "Α\U000F00AA"},
      {874, "\xA1\xDB", "ก\U000F00DB"},
      {932, "\x83\x5C\x8B\x40.gau \xB1 \x87\x40\\", "ソ機.gau ｱ ①\\"},
      {932, "\x81\x20\x81", "\u0081 \u0081"},
      {936, "\xB7\xC9\xBB\xFA|\x81\x5C", "飞机|乗"},
      {949, "\xBA\xF1\xC7\xE0\x81\x41", "비행갂"},
      {950, "\xB8\xF4\xAE\xE6\xA5\x5C", "路格功"},
      {65001, "\xC3\xA9\xFF", "é\U000F00FF"},
  };
  for (const Sample& sample : samples) {
    CAPTURE(sample.page);
    const CodePageText code_page(sample.page);
    CHECK(code_page.FromAnsi(sample.bytes) == sample.text);
    CHECK(code_page.ToAnsi(sample.text) == sample.bytes);
  }
  CHECK(CodePageText(1252).ToAnsi("Ā日\xFF\u0080😀|") == "?????|");
  CHECK(CodePageText(932).ToAnsi("≒∪") == "\x81\xE0\x81\xBE");
  CHECK(CodePageText(54321).Page() == 1252);
}

TEST_CASE("Case changes letter by letter and ASCII keeps to itself") {
  const CodePageText text(1252);
  CHECK(text.Lower("ABC xyz [ÄÉĞΣЖ] \xFF ß") == "abc xyz [äéğσж] \xFF ß");
  CHECK(text.Upper("abc XYZ {äéğσж} \xFF ß") == "ABC XYZ {ÄÉĞΣЖ} \xFF ß");
  CHECK(text.Lower("İ\u212A") == "İ\u212A");
  CHECK(text.Upper("ıſ") == "ıſ");
}

}  // namespace
}  // namespace panelkit
