#include <doctest/doctest.h>

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

TEST_CASE_FIXTURE(CabinetWalks, "Each entry is told as stored, whatever else the headers hold") {
  CHECK(WalkBytes(MakeCabinet({{"\xE9t\xE9/x", "1", 0x27, 0xFF9F, 0xBF7D}, {}, {"y"}})) ==
        "1 | 31.12.2107 23:59:58 | \xE9t\xE9/x 27\nerror 13");
  CHECK(WalkBytes(MakeCabinet({{"\u00E9t\u00E9\u6F22", "12", 0xA0}})) ==
        "2 | 01.01.2002 12:00:00 | \xE9t\xE9? a0\nok");
  const CabinetOptions all{.folders = 300, .reserve = 255, .previous = "1.cab", .next = "3.cab"};
  CHECK(WalkBytes(MakeCabinet(kTwoEntries, all)) == kTwoLines + "ok");
  const std::string longest(255, 'n');
  CHECK(WalkBytes(MakeCabinet({{longest}})) == Told(longest, 0) + "ok");
}

TEST_CASE_FIXTURE(CabinetWalks, "A listing says what another reader of cabinets says") {
  std::vector<CabinetEntry> many;
  for (std::size_t i = 0; i < 1000; ++i) {
    many.push_back({"folder\\part " + std::to_string(i), std::string(i % 7, 'x')});
  }
  Put(C("many.cab"), MakeCabinet(many));
  Put(C("one.xml"), "<one/>");
  Put(C("two.bmp"), std::string(100000, 'b'));
  Run("gcab -c stored.cab *.xml *.bmp && gcab -cz zip.cab *.xml *.bmp");
  for (const std::string name : {"many", "stored", "zip"}) {
    CAPTURE(name);
    Run("cabextract -l " + name +
        ".cab | grep ' | [0-9]' | sed 's/^ *//;s|/|\\\\|;s/$/ 20/' >list");
    CHECK(Walk("C:\\" + name + ".cab") == Get(C("list")) + "ok");
  }
}

TEST_CASE_FIXTURE(CabinetWalks, "A cabinet cut off at any byte gives the entries before the cut") {
  const std::string whole = MakeCabinet(kTwoEntries);
  const std::size_t first = whole.find("dial.xml") + sizeof "dial.xml";
  const std::size_t both = whole.find("a\\dial.bmp") + sizeof "a\\dial.bmp";
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    CAPTURE(cut);
    const std::string told = cut < first ? "" : cut < both ? kFirstLine : kTwoLines;
    CHECK(WalkBytes(whole.substr(0, cut)) == told + (cut < both ? "error 13" : "ok"));
    CHECK(WalkBytes(whole.substr(0, cut), ExtractTo("C:\\out\\x")).ends_with("error 13"));
    CHECK(NamesInOut().empty());
  }
}

TEST_CASE_FIXTURE(CabinetWalks, "What is no cabinet fails with the reason") {
  Put(C("Folder/closed/x.cab"), "");
  Put(C("closed.cab"), "");
  Put(C("text.cab"), std::string(100, 't'));
  Put(C("version.cab"), MakeCabinet({}).replace(25, 1, "\2"));
  Put(C("outside.cab"), MakeCabinet(kTwoEntries).replace(16, 4, "\xF0\xFF\xFF\xFF"));
  Put(C("index.cab"), MakeCabinet({{"x"}}).replace(52, 1, "\1"));
  Put(C("name.cab"), MakeCabinet({{std::string(256, 'n')}}));
  Run("mkfifo fifo.cab && chmod 0 closed.cab Folder/closed");
  const OrdinaryUser user;
  for (const std::string name : {"text", "version", "outside", "index", "name", "fifo"}) {
    CAPTURE(name);
    CHECK(Walk("C:\\" + name + ".cab") == "error 13");
  }
  CHECK(Walk("C:\\missing.cab") == "error 2");
  CHECK(Walk("C:\\missing\\x.cab") == "error 3");
  CHECK(Walk("C:\\FOLDER") == "error 5");
  CHECK(Walk("C:\\folder/Closed\\x.cab") == "error 5");
  CHECK(Walk("C:\\CLOSED.cab") == "error 5");
  CHECK(Walk("C:\\what?.cab") == "error 123");
  CHECK(Walk("") == "error 123");
}

TEST_CASE_FIXTURE(CabinetWalks, "The program's answers steer the walk") {
  const std::string cabinet = MakeCabinet(kTwoEntries);
  Answers answers;
  answers.to_entry = [](auto&) { return FILEOP_ABORT; };
  CHECK(WalkBytes(cabinet, answers) == kFirstLine + "ok");
  answers.to_entry = [](auto&) -> std::uint32_t { throw std::runtime_error("out of the walk"); };
  CHECK_THROWS_WITH(WalkBytes(cabinet, answers), "out of the walk");

  answers = ExtractTo("C:\\out\\dial");
  answers.to_extracted = [](auto&) { return 4711U; };
  CHECK(WalkBytes(cabinet, answers) == kFirstLine + "C:\\out\\dial 0\nerror 4711");
  CHECK(Get(C("out/dial")) == "<dial/>");
}
