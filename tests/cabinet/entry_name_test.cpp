#include "cabinet/entry_name.h"

#include <doctest/doctest.h>

#include <string>

using panelkit::IsSafeEntryName;

TEST_CASE("Names that gauge makers give to their files may be followed") {
  for (const char* name :
       {"dial.xml", "a\\b\\dial.bmp", "a.b\\.hidden", " led by a blank", "a b\\c d.gau", "..x",
        "...\u00E9", "con\u00E9.gau", "console.xml", "com.gau", "com0", "com10", "lpt", "nula",
        "aux_fuel.gau", "COM\u2074.gau", "x\\\u6F22.xml", "what?.xml"}) {
    CAPTURE(name);
    CHECK(IsSafeEntryName(name));
  }
}

TEST_CASE("Names that lead out of the folder, to a device or to another file may not") {
  for (const char* name : {"",
                           ".",
                           "..",
                           "..\\x",
                           "a\\..\\x",
                           "a\\..",
                           ".\\x",
                           "\\x",
                           "\\\\server\\share\\x",
                           "a\\",
                           "a\\\\b",
                           "/x",
                           "a/b",
                           "../x",
                           "C:\\x",
                           "C:x",
                           "x.gau:stream",
                           "x.",
                           "x ",
                           "x. .",
                           "a.\\x",
                           "a \\x",
                           "con",
                           "a\\NUL",
                           "nul.txt",
                           "aux\\x",
                           "Prn .x",
                           "COM1",
                           "com9.gau",
                           "lpt3..xml",
                           "COM\u00B9",
                           "lpt\u00B3.gau",
                           "conin$",
                           "CONOUT$.x"}) {
    CAPTURE(name);
    CHECK_FALSE(IsSafeEntryName(name));
  }
}
