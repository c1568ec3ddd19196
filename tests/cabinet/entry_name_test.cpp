#include "cabinet/entry_name.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("Names that gauge makers give to their files may be followed") {
  for (const std::string name : {"dial.xml", "a\\b\\dial.bmp", "a.b\\.hidden", " led by a blank",
                                 "a b\\c d.gau", "...\u00E9", "console.xml", "com.gau", "com0",
                                 "com10", "nula", "COM\u2074.gau", "what?.xml"}) {
    CAPTURE(name);
    CHECK(panelkit::IsSafeEntryName(name));
  }
}

TEST_CASE("Names that lead out of the folder, to a device or to another file may not") {
  const std::string names[] = {"..\\x",         "a\\..\\x",  "a\\..",    "\\x",       "a\\",
                               "a\\\\b",        "a/b",       "C:x",      "x.",        "x ",
                               "a.\\x",         "con",       "a\\NUL",   "aux\\x",    "Prn .x",
                               "COM1",          "COM\u00B2", "com9.gau", "lpt3..xml", "COM\u00B9",
                               "lpt\u00B3.gau", "conin$",    "CONOUT$.x"};
  for (const std::string& name : names) {
    CAPTURE(name);
    CHECK_FALSE(panelkit::IsSafeEntryName(name));
  }
}
