#include <doctest/doctest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <map>
#include <stdexcept>

#include "cabinet_walks.h"
#include "support/cabinet_writer.h"

using namespace panelkit;
using namespace panelkit::test;
namespace fs = std::filesystem;

namespace {

const std::vector<CabinetEntry> kTwoEntries = {{"dial.xml", "<dial/>"}, {"a\\dial.bmp", "BM"}};
const std::string kFirstLine = Told("dial.xml", 7);
const std::string kTwoLines = kFirstLine + Told("a\\dial.bmp", 2);

}  // namespace

TEST_CASE("Each entry is told as it is stored, whatever else the headers hold") {
  CabinetWalks walks;
  CHECK(walks.WalkBytes(MakeCabinet({})) == "ok");
  CHECK(walks.WalkBytes(MakeCabinet({{"\xE9t\xE9/x", "1", 0x27, 0xFF9F, 0xBF7D}, {}, {"y"}})) ==
        "1 | 31.12.2107 23:59:58 | \xE9t\xE9/x 27\nerror 13");
  CHECK(walks.WalkBytes(MakeCabinet({{"\u00E9t\u00E9\u6F22", "12", 0xA0}})) ==
        "2 | 01.01.2002 12:00:00 | \xE9t\xE9? a0\nok");
  CHECK(walks.WalkBytes(MakeCabinet(kTwoEntries, {.folders = 300,
                                                  .header_reserve = 60000,
                                                  .folder_reserve = 255,
                                                  .data_reserve = 255,
                                                  .previous = "before.cab",
                                                  .next = "after.cab"})) == kTwoLines + "ok");
  const std::string longest(255, 'n');
  CHECK(walks.WalkBytes(MakeCabinet({{longest}})) == Told(longest, 0) + "ok");
}

TEST_CASE("A listing says what another reader of cabinets says") {
  CabinetWalks walks;
  std::vector<CabinetEntry> many;
  for (int i = 0; i < 2000; ++i) {
    many.push_back({"folder\\a rather long name of a gauge part " + std::to_string(i) + ".bmp",
                    std::string(i % 7, 'x'), 0x20, static_cast<std::uint16_t>(0x2C21 + i % 8)});
  }
  Put(walks.C("many.cab"), MakeCabinet(many));
  Put(walks.C("one.xml"), "<one/>");
  Put(walks.C("two.bmp"), std::string(100000, 'b'));
  const std::string list =
      "cd '" + Utf8(walks.C("")) + "' && gcab -c c.cab one.xml two.bmp && " +
      "gcab -cz cz.cab one.xml two.bmp && for name in c cz many; do cabextract -l $name.cab | " +
      "sed -n '/ | [0-9]/{s/^ *//;s|/|\\\\|;s/$/ 20/;p}' >$name.list; done";
  REQUIRE(std::system(list.c_str()) == 0);
  for (const std::string name : {"c", "cz", "many"}) {
    CAPTURE(name);
    CHECK(Get(walks.C(name + ".list")).size() > 60);
    CHECK(walks.Walk("C:\\" + name + ".cab") == Get(walks.C(name + ".list")) + "ok");
  }
}

TEST_CASE("A cabinet cut off at any byte gives the entries before the cut") {
  CabinetWalks walks;
  const std::string whole = MakeCabinet(kTwoEntries);
  constexpr std::size_t kFirst = 36 + 8 + 16 + sizeof "dial.xml";
  constexpr std::size_t kBoth = kFirst + 16 + sizeof "a\\dial.bmp";
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    CAPTURE(cut);
    const std::string told = cut < kFirst ? "" : cut < kBoth ? kFirstLine : kTwoLines;
    CHECK(walks.WalkBytes(whole.substr(0, cut)) == told + (cut < kBoth ? "error 13" : "ok"));
    CHECK(walks.WalkBytes(whole.substr(0, cut), ExtractTo("C:\\out\\x")).ends_with("error 13"));
    CHECK(walks.NamesInOut().empty());
  }
}

TEST_CASE("What is no cabinet fails with the reason") {
  CabinetWalks walks;
  for (const char* name : {"Folder/closed/x.cab", "closed.cab", "empty.cab"})
    Put(walks.C(name), "");
  Put(walks.C("text.cab"), std::string(100, 't'));
  Put(walks.C("version.cab"), MakeCabinet({}).replace(25, 1, "\2"));
  Put(walks.C("outside.cab"), MakeCabinet(kTwoEntries).replace(16, 4, "\xF0\xFF\xFF\xFF"));
  Put(walks.C("index.cab"), MakeCabinet({{"x"}}).replace(52, 1, "\1"));
  Put(walks.C("name.cab"), MakeCabinet({{std::string(256, 'n')}}));
  REQUIRE(mkfifo(walks.C("fifo.cab").c_str(), 0666) == 0);
  fs::permissions(walks.C("closed.cab"), fs::perms::none);
  fs::permissions(walks.C("Folder/closed"), fs::perms::none);
  const std::map<std::string, std::vector<std::string>> expected = {
      {"error 2", {"C:\\missing.cab"}},
      {"error 3", {"C:\\missing\\x.cab"}},
      {"error 5", {"C:\\FOLDER", "C:\\folder/Closed\\x.cab", "C:\\CLOSED.cab"}},
      {"error 13",
       {"C:\\empty.cab", "C:\\text.cab", "C:\\version.cab", "C:\\outside.cab", "C:\\index.cab",
        "C:\\name.cab", "C:\\fifo.cab"}},
      {"error 123", {"C:\\what?.cab", ""}}};
  for (const auto& outcome : expected) {
    for (const std::string& path : outcome.second) {
      CAPTURE(path);
      CHECK(walks.WalkApart(path, {}, BecomeOrdinaryUser) == outcome.first);
    }
  }
}

TEST_CASE("The program's answers steer the walk") {
  CabinetWalks walks;
  Put(walks.C("x.cab"), MakeCabinet(kTwoEntries));
  Answers answers;
  answers.to_entry = [](auto&) { return FILEOP_ABORT; };
  CHECK(walks.Walk("C:\\x.cab", answers) == kFirstLine + "ok");
  answers.to_entry = [](auto&) -> std::uint32_t { throw std::runtime_error("out of the walk"); };
  CHECK_THROWS_WITH(walks.Walk("C:\\x.cab", answers), "out of the walk");

  answers = ExtractTo("C:\\out\\dial");
  answers.to_extracted = [](auto&) { return 4711U; };
  CHECK(walks.Walk("C:\\x.cab", answers) == kFirstLine + "C:\\out\\dial 0\nerror 4711");
  CHECK(Get(walks.C("out/dial")) == "<dial/>");
}
