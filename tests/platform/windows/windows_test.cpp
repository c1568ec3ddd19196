// What only Windows has: long paths, and dates as its control panel sets them.
#include <doctest/doctest.h>

#include "platform/disk.h"

namespace panelkit::test {
namespace {

TEST_CASE_FIXTURE(Disk, "Paths beyond 260 characters are paths like others") {
  std::string path = files.AppFolder();
  for (int i = 0; i < 3; ++i) {
    path += '\\' + std::string(100, 'n');
    REQUIRE(files.MakeFolder(path) == kFolderCreated);
  }
  for (const char* bytes : {"1", "2"}) {
    CHECK(files.Replace(path + "\\a.gau", bytes, Durability::Flushed) == FileFault::None);
  }
  CHECK(files.Copy(path + "\\a.gau", path + "\\b.gau"));
  CHECK(files.Read(path + "\\b.gau").bytes == "2");
  CHECK(files.List(path + "\\*.gau", ListedEntries::PlainFiles)->size() == 2);
  for (const char* file : {"\\a.gau", "\\b.gau"}) CHECK(files.Delete(path + file));
}

TEST_CASE_FIXTURE(Disk, "A date's text has the short date and the long time, also at midnight") {
  const DateStamps& dates = machine->Services().dates;
  CHECK(dates.DateText(37257.5) == "1/1/2002 12:00:00 PM");
  CHECK(dates.DateText(37257.0) == "1/1/2002 12:00:00 AM");
  CHECK(dates.DateText(0) == "12/30/1899 12:00:00 AM");
}

}  // namespace
}  // namespace panelkit::test
