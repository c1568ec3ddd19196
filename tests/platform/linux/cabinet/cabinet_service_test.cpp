// Walks over whole, split, damaged and refused cabinets.
#include <sys/stat.h>

#include <ctime>
#include <stdexcept>
#include <utility>

#include "cabinet_walks.h"
#include "support/cabinet_writer.h"

using namespace panelkit;
using namespace panelkit::test;
namespace fs = std::filesystem;

namespace {

const std::vector<CabinetEntry> kTwoEntries = {{"dial.xml", "<dial/>"}, {"a\\dial.bmp", "BM"}};
const std::string kFirstLine = Told("dial.xml", 7);
const std::string kTwoLines = kFirstLine + Told("a\\dial.bmp", 2);

std::string Pattern(std::size_t size) {
  std::string pattern;
  for (std::size_t i = 0; i < size; ++i) pattern += static_cast<char>(i * 7 + i / 256);
  return pattern;
}

// One of three cabinets. "split" lies in all of them, "near" is packed together with it.
std::string PartOfSet(std::vector<CabinetEntry> own, std::uint16_t folder_of_near,
                      std::uint16_t folder_of_split, const CabinetOptions& options) {
  own.push_back({.name = "near", .content = std::string(32768, 'n'), .folder = folder_of_near});
  own.push_back({.name = "split", .content = Pattern(40000), .folder = folder_of_split});
  return MakeCabinet(own, options);
}

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
  for (int i = 0; i < 1000; ++i) many.push_back({"folder\\" + std::to_string(i), Pattern(i)});
  Put(C("many.cab"), MakeCabinet(many));
  Put(C("one.xml"), "<one/>");
  Put(C("two.bmp"), Pattern(100000));
  Run("gcab -c stored.cab one.xml two.bmp && gcab -cz zip.cab one.xml two.bmp");
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
  for (const std::string& bytes :
       {std::string(100, 't'), MakeCabinet({}).replace(25, 1, "\2"),
        MakeCabinet(kTwoEntries).replace(16, 4, "\xF0\xFF\xFF\xFF"),
        MakeCabinet({{"x"}}).replace(52, 1, "\1"), MakeCabinet({{std::string(256, 'n')}})}) {
    CHECK(WalkBytes(bytes) == "error 13");
  }
  Run("mkdir -p Folder/closed && touch closed.cab && chmod 0 closed.cab Folder/closed");
  Run("mkfifo -m 666 fifo.cab");
  const OrdinaryUser user;
  CHECK(Walk("C:\\missing.cab") == "error 2");
  CHECK(Walk("C:\\missing\\x.cab") == "error 3");
  CHECK(Walk("C:\\FOLDER") == "error 5");
  CHECK(Walk("C:\\folder/Closed\\x.cab") == "error 5");
  CHECK(Walk("C:\\CLOSED.cab") == "error 5");
  CHECK(Walk("C:\\fifo.cab") == "error 13");
  CHECK(Walk("C:\\what?.cab") == "error 123");
  CHECK(Walk("") == "error 123");
}

TEST_CASE_FIXTURE(CabinetWalks, "The program's answers steer the walk") {
  const std::string cabinet = MakeCabinet(kTwoEntries);
  Answers answers = ExtractTo("C:\\out\\dial");
  answers.to_extracted = [](auto&) { return 4711U; };
  CHECK(WalkBytes(cabinet, answers) == kFirstLine + "C:\\out\\dial 0\nerror 4711");
  answers.to_entry = [](auto&) { return FILEOP_ABORT; };
  CHECK(WalkBytes(cabinet, answers) == kFirstLine + "ok");
  answers.to_entry = [](auto&) -> std::uint32_t { throw std::runtime_error("out of the walk"); };
  CHECK_THROWS_WITH(WalkBytes(cabinet, answers), "out of the walk");
}

TEST_CASE_FIXTURE(CabinetWalks, "Every compression gives back what was packed, all or one entry") {
  const std::string pattern = Pattern(70001);
  Put(C("long"), pattern);
  Put(C("short"), "hello");
  Run("gcab -cz zip.cab long short");
  const fs::path seeds = PANELKIT_SEEDS_DIR;
  const std::vector<std::array<std::string, 3>> kinds = {
      {MakeCabinet({{"long", pattern}, {"short", "hello"}}, {.reserve = 7}), pattern, "hello"},
      {Get(C("zip.cab")), pattern, "hello"},
      {Get(seeds / "lzx.cab"), "<gauge/>", "BMBMBMBM"},
      {Get(seeds / "quantum.cab"), "Needles, dials and lamps.", "hello"}};
  for (const auto& [bytes, first, second] : kinds) {
    for (const bool all : {true, false}) {
      Answers answers;
      answers.to_entry = [wanted = all](FILE_IN_CABINET_INFO& info) mutable {
        return std::exchange(wanted, true) ? ExtractTo("C:\\out\\x").to_entry(info) : FILEOP_SKIP;
      };
      std::string contents;
      answers.to_extracted = [&](const FILEPATHS& outcome) {
        contents += Get(C("out/x"));
        return outcome.Win32Error;
      };
      CHECK(WalkBytes(bytes, answers).ends_with(" 0\nok"));
      CHECK(contents == (all ? first + second : second));
      CHECK(NamesInOut() == "x ");
    }
  }
}

TEST_CASE_FIXTURE(CabinetWalks,
                  "A file has the entry's time and attribute, and an old one's name") {
  setenv("TZ", "XXX-5", 1);
  tzset();
  umask(022);
  Run("echo old >out/Dial.XML && chmod a-w out/Dial.XML && ln -s ../aside out/link");
  WalkBytes(MakeCabinet({{"dial.xml", "new", 0x21},
                         {"link", "own"},
                         {"no date", "", 0, 0},
                         {"No Date", "later", 0, 0}}),
            ExtractTo("C:\\OUT\\*"));
  CHECK(NamesInOut() == "Dial.XML link no date ");
  CHECK_FALSE(fs::exists(C("aside")));
  Run("cd out && stat -c '%A %y' Dial.XML link >../list && cat * >>../list");
  CHECK(Get(C("list")) ==
        "-r--r--r-- 2002-01-01 12:00:00.000000000 +0500\n"
        "-rw-r--r-- 2002-01-01 12:00:00.000000000 +0500\nnewownlater");
  CHECK(fs::last_write_time(C("out/no date")) > fs::last_write_time(C("out/link")));
}

TEST_CASE_FIXTURE(CabinetWalks, "A damaged entry is an error and leaves the old file as it was") {
  for (const std::string name : {"a", "b", "c"}) Put(C(name), std::string(32768, name[0]));
  Run("gcab -c sound.cab a b c");
  const std::string sound = Get(C("sound.cab"));
  const std::size_t content = sound.find("aaaa");
  Put(C("out/a"), "old a");
  std::string codes;
  Answers go_on = ExtractTo("C:\\out\\*");
  go_on.to_extracted = [&](const FILEPATHS& outcome) {
    codes += std::to_string(outcome.Win32Error) + ' ';
    return 0U;
  };
  for (const std::string& damaged :
       {std::string(sound).replace(content, 1, "?"), std::string(sound).replace(42, 1, "\4"),
        sound.substr(0, 300)}) {
    CHECK(WalkBytes(damaged, go_on).ends_with("\nok"));
  }
  // What is packed behind the damage cannot be trusted either.
  CHECK(codes == "23 23 23 13 13 13 13 13 13 ");
  CHECK(NamesInOut() == "a ");
  CHECK(Get(C("out/a")) == "old a");
}

TEST_CASE_FIXTURE(CabinetWalks,
                  "A set of cabinets is followed to what an entry needs, no further") {
  const auto second_of = [](std::uint16_t folders) {
    return PartOfSet({}, kFromPreviousToNext, kFromPreviousToNext,
                     {.folders = folders,
                      .previous = "x.cab",
                      .next = "third.cab",
                      .set_index = 1,
                      .bytes_in_previous = 40000,
                      .bytes_in_next = folders == 1 ? 3000U : 0U});
  };
  const Answers extract = ExtractTo("C:\\out\\*");
  Answers refuse = extract;
  refuse.to_next = 1223;
  const std::string own = Told("first", 1) + "C:\\out\\first 0\n";
  const std::string asked = own + Told("near", 32768) + "next?\n";
  const std::string told = "C:\\out\\near 0\n" + Told("split", 40000) + "C:\\out\\split ";
  Put(C("x.cab"), PartOfSet({{"first", "1"}}, 1, kToNext,
                            {.folders = 2, .next = "Second.cab", .bytes_in_next = 32768}));
  CHECK(Walk("C:\\x.cab") == Told("first", 1) + Told("near", 32768) + Told("split", 40000) + "ok");
  CHECK(Walk("C:\\x.cab", refuse) == asked + "error 1223");
  CHECK(NamesInOut() == "first ");
  CHECK(Walk("C:\\x.cab", extract) == asked + told + "2\nerror 2");
  Put(C("THIRD.CAB"),
      PartOfSet(
          {{.name = "last", .content = "2", .folder = 1}}, kFromPrevious, kFromPrevious,
          {.folders = 2, .previous = "Second.cab", .set_index = 2, .bytes_in_previous = 69768}));
  // One that is out of turn, and one in which what goes both ways is not in the only folder.
  for (const std::string& wrong : {second_of(1).replace(34, 1, "\7"), second_of(2)}) {
    Put(C("SECOND.CAB"), wrong);
    CHECK(Walk("C:\\x.cab", extract) == asked + told + "13\nerror 13");
  }
  CHECK(NamesInOut() == "first near ");

  Put(C("SECOND.CAB"), second_of(1));
  CHECK(Walk("C:\\x.cab", extract) == asked + "next?\n" + told + "0\nok");
  CHECK(Get(C("out/split")) == Pattern(40000));
  CHECK(Walk("C:\\second.cab", extract) == "ok");
  CHECK(Walk("C:\\third.cab", extract) == Told("last", 1) + "C:\\out\\last 0\nok");
  CHECK(WalkBytes(MakeCabinet({{"first", "1"}}, {.next = "Second.cab"}), extract) == own + "ok");
}

TEST_CASE_FIXTURE(CabinetWalks, "A place that cannot take the file is an error of that entry") {
  Run("mkdir elsewhere out/folder && ln -s ../elsewhere out/link");
  Put(C("x.cab"), MakeCabinet({{"link\\x", "1"}}));
  const auto code_at = [&](const std::string& place) {
    const std::string log = Walk("C:\\x.cab", ExtractTo(place));
    return log.substr(log.rfind(' ') + 1);
  };
  CHECK(code_at("C:\\out\\what?") == "123");
  CHECK(code_at("") == "123");
  CHECK(code_at("C:\\out\\missing\\x") == "3");
  CHECK(code_at("C:\\out\\folder") == "5");
  CHECK(code_at("C:\\OUT\\*") == "5");
  CHECK(fs::is_empty(C("elsewhere")));
  CHECK(code_at("C:\\out\\" + std::string(253, 'n')) == "0\nok");
  // A link that the user named is followed.
  CHECK(code_at("C:\\out\\link\\y") == "0\nok");
  CHECK(Get(C("elsewhere/y")) == "1");
  Run("chmod a-w out");
  const OrdinaryUser user;
  CHECK(code_at("C:\\out\\x") == "5");
}
