// What the text service of every machine promises.
#include <doctest/doctest.h>

#include <string>

#include "support/machine_here.h"

namespace panelkit::test {
namespace {

// The pages 932 and 950 hold some characters twice; those come back in one form.
TEST_CASE("All bytes survive the way in and out, also those that a code page leaves undefined") {
  std::string all;
  for (int byte = 0; byte < 0x100; ++byte) all += static_cast<char>(byte);
  all.append(all.rbegin(), all.rend());
  for (const unsigned page : {874U, 1250U, 1252U, 1253U, 1255U, 1258U, 936U, 949U, 65001U}) {
    CAPTURE(page);
    const auto text = TextOf(page);
    CHECK(text->ToAnsi(text->FromAnsi(all)) == all);
  }
}

TEST_CASE("Letters stand where their code page has them, and change case in every alphabet") {
  const struct {
    unsigned page;
    std::string bytes, text;
  } samples[] = {
      {1252, "\x80 H\xF6he", "€ Höhe"},
      {1251, "\xCF\xEB\xE0\xED", "План"},
      {874, "\xA1", "ก"},
      {932, "\x95\x5C\\\x83\x5C\x8B\x40.gau \xB1 \x87\x40", "表\\ソ機.gau ｱ ①"},
      {65001, "H\xC3\xB6he 計", "Höhe 計"},
  };
  for (const auto& sample : samples) {
    CAPTURE(sample.page);
    CHECK(TextOf(sample.page)->FromAnsi(sample.bytes) == sample.text);
    CHECK(TextOf(sample.page)->ToAnsi(sample.text) == sample.bytes);
  }
  // What the page lacks becomes one question mark, never a best-fit letter.
  const auto text = TextOf(1252);
  CHECK(text->ToAnsi("é Ł1 ≈ ∞ Ā計 🛩|") == "\xE9 ?1 ? ? ?? ?|");
  CHECK(text->Lower("GAUGE xyz [ÄÉĞΣЖΩ] ß İ\u212A I") == "gauge xyz [äéğσжω] ß İ\u212A i");
  CHECK(text->Upper("gauge XYZ {äéğσжω} ßÿ ıſ i") == "GAUGE XYZ {ÄÉĞΣЖΩ} ßŸ ıſ I");
  // No page shows a "?" for a small letter whose capital it lacks.
  CHECK(text->Upper("µ ƒ Μ?") == "µ ƒ Μ?");
  CHECK(TextOf(1253)->Upper("ƒ ώ") == "ƒ Ώ");
  // Not every Windows has a capital of "µ".
  CHECK(TextOf(65001)->Upper("ƒ") == "Ƒ");
}

}  // namespace
}  // namespace panelkit::test
