#include <doctest/doctest.h>
#include <sys/stat.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "cabinet_walks.h"
#include "support/cabinet_writer.h"

using namespace panelkit;
using namespace panelkit::test;
namespace fs = std::filesystem;

namespace {

const std::vector<CabinetEntry> kTwoEntries = {{"dial.xml", "<dial/>"}, {"a\\dial.bmp", "BM"}};
const std::string kFirstLine = "dial.xml 7 2c21 6000 20\n";
const std::string kTwoLines = kFirstLine + "a\\dial.bmp 2 2c21 6000 20\n";

// One walk's entries in the words of cabextract.
std::string AsCabextractLists(CabinetWalks& walks, const std::string& cabinet) {
  std::string lines;
  Answers answers;
  answers.to_entry = [&](FILE_IN_CABINET_INFO& info) {
    std::string name = info.NameInCabinet;
    for (char& c : name) c = c == '\\' ? '/' : c;
    std::array<char, 400> line{};
    std::snprintf(line.data(), line.size(), "%10u | %02d.%02d.%04d %02d:%02d:%02d | %s\n",
                  info.FileSize, info.DosDate & 0x1F, info.DosDate >> 5 & 0xF,
                  (info.DosDate >> 9) + 1980, info.DosTime >> 11, info.DosTime >> 5 & 0x3F,
                  (info.DosTime & 0x1F) * 2, name.c_str());
    lines += line.data();
    return FILEOP_SKIP;
  };
  walks.Walk(cabinet, answers);
  return lines;
}

}  // namespace

TEST_CASE("Each entry is told as it is stored, whatever else the headers hold") {
  CabinetWalks walks;
  CHECK(walks.WalkBytes(MakeCabinet({})) == "ok");
  CHECK(walks.WalkBytes(MakeCabinet({{"\xE9t\xE9/x", "1", 0x27, 0xFF9F, 0xBF7D}, {}, {"y"}})) ==
        "\xE9t\xE9/x 1 ff9f bf7d 27\nerror 13");
  CHECK(walks.WalkBytes(MakeCabinet({{"\u00E9t\u00E9\u6F22", "12", 0xA0}})) ==
        "\xE9t\xE9? 2 2c21 6000 a0\nok");
  CHECK(walks.WalkBytes(MakeCabinet(kTwoEntries, {.folders = 300,
                                                  .header_reserve = 60000,
                                                  .folder_reserve = 255,
                                                  .data_reserve = 255,
                                                  .previous = "before.cab",
                                                  .next = "after.cab"})) == kTwoLines + "ok");
  const std::string longest(255, 'n');
  CHECK(walks.WalkBytes(MakeCabinet({{longest}})) == longest + " 0 2c21 6000 20\nok");
}

TEST_CASE("A listing says what another reader of cabinets says") {
  CabinetWalks walks;
  std::vector<CabinetEntry> many;
  for (int i = 0; i < 2000; ++i) {
    many.push_back({"folder\\a rather long name of a gauge part " + std::to_string(i) + ".bmp",
                    std::string(i % 7, 'x'), 0x20, static_cast<std::uint16_t>(0x2C21 + i % 8)});
  }
  Put(walks.C("many.cab"), MakeCabinet(many));
  Put(walks.C("in/one.xml"), "<one/>");
  Put(walks.C("in/sub/two.bmp"), std::string(100000, 'b'));
  const std::string make =
      "cd '" + Utf8(walks.C("")) + "' && for kind in c cz; do gcab -$kind $kind.cab " +
      "in/one.xml in/sub/two.bmp; done && for name in c cz many; do cabextract -l $name.cab | " +
      "grep ' | [0-9]' >$name.list; done";
  REQUIRE(std::system(make.c_str()) == 0);
  for (const std::string name : {"c", "cz", "many"}) {
    CAPTURE(name);
    CHECK(Get(walks.C(name + ".list")).size() > 90);
    CHECK(AsCabextractLists(walks, "C:\\" + name + ".cab") == Get(walks.C(name + ".list")));
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
  Put(walks.C("Folder/closed/x.cab"), "");
  Put(walks.C("closed.cab"), "");
  Put(walks.C("empty.cab"), "");
  Put(walks.C("text.cab"), std::string(100, 't'));
  Put(walks.C("version.cab"), MakeCabinet({}).replace(25, 1, "\2"));
  Put(walks.C("outside.cab"), MakeCabinet(kTwoEntries).replace(16, 4, "\xF0\xFF\xFF\xFF"));
  Put(walks.C("index.cab"), MakeCabinet({{"x"}}).replace(52, 1, "\1"));
  Put(walks.C("name.cab"), MakeCabinet({{std::string(256, 'n')}}));
  REQUIRE(mkfifo(walks.C("fifo.cab").c_str(), 0666) == 0);
  fs::permissions(walks.C("closed.cab"), fs::perms::none);
  fs::permissions(walks.C("Folder/closed"), fs::perms::none);
  for (const auto& expected : std::initializer_list<std::pair<std::string, std::string>>{
           {"C:\\missing.cab", "error 2"},
           {"C:\\missing\\x.cab", "error 3"},
           {"C:\\FOLDER", "error 5"},
           {"C:\\folder/Closed\\x.cab", "error 5"},
           {"C:\\CLOSED.cab", "error 5"},
           {"C:\\empty.cab", "error 13"},
           {"C:\\text.cab", "error 13"},
           {"C:\\version.cab", "error 13"},
           {"C:\\outside.cab", "error 13"},
           {"C:\\index.cab", "error 13"},
           {"C:\\name.cab", "error 13"},
           {"C:\\fifo.cab", "error 13"},
           {"C:\\what?.cab", "error 123"},
           {"", "error 123"}}) {
    CAPTURE(expected.first);
    CHECK(walks.WalkApart(expected.first, {}, BecomeOrdinaryUser) == expected.second);
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
