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
  all.append(all.rbegin(), all.rend());
  for (const unsigned page : {874U, 1250U, 1252U, 1255U, 1258U, 936U, 949U, 65001U}) {
    CAPTURE(page);
    const CodePageText text(page);
    CHECK(text.Page() == page);
    CHECK(text.ToAnsi(text.FromAnsi(all)) == all);
  }
}

TEST_CASE("Letters stand where their code page has them, and change their case") {
  struct Sample {
    unsigned page;
    std::string bytes, text;
  };
  const Sample samples[] = {
      {1252, "\x80 \xE9\x81", "€ é\u0081"},
      {1251, "\xCF\xEB\xE0\xED", "План"},
      {874, "\xA1\xDB", "ก\U000F00DB"},
      {932, "\x83\x5C\x8B\x40.gau \xB1 \x87\x40\\\x81\x20\x81", "ソ機.gau ｱ ①\\\u0081 \u0081"},
      {65001, "\xC3\xA9\xFF", "é\U000F00FF"},
  };
  for (const Sample& sample : samples) {
    CAPTURE(sample.page);
    const CodePageText code_page(sample.page);
    CHECK(code_page.FromAnsi(sample.bytes) == sample.text);
    CHECK(code_page.ToAnsi(sample.text) == sample.bytes);
  }
  CHECK(CodePageText(932).ToAnsi("≒∪") == "\x81\xE0\x81\xBE");
  const CodePageText unknown(54321);
  CHECK(unknown.ToAnsi("é Ā日\xFF\u0080😀|") == "\xE9 ?????|");
  CHECK(unknown.Lower("ABC xyz [ÄÉĞΣЖ] \xFF ß İ\u212A") == "abc xyz [äéğσж] \xFF ß İ\u212A");
  CHECK(unknown.Upper("abc XYZ {äéğσж} \xFF ß ıſ") == "ABC XYZ {ÄÉĞΣЖ} \xFF ß ıſ");
}

}  // namespace
}  // namespace panelkit
