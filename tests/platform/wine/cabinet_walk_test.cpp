// Walks over split, damaged and refused cabinets, where the services of other systems differ.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <utility>

#include "platform/cabinet_walks.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

const std::vector<CabinetEntry> kTwoEntries = {{"dial.xml", "<dial/>"}, {"a\\dial.bmp", "BM"}};
const std::string kFirstLine = EntryLine("dial.xml", 7);
const std::string kTwoLines = kFirstLine + EntryLine("a\\dial.bmp", 2);

std::string Pattern(std::size_t size) {
  std::string pattern;
  for (std::size_t i = 0; i < size; ++i) pattern += static_cast<char>(i * 7 + i / 256);
  return pattern;
}

/// Runs a line of shell on the disk.
void Run(const Disk& disk, const std::string& line) {
  REQUIRE(std::system(("cd '" + disk.folder.Path().native() + "' && " + line).c_str()) == 0);
}

TEST_CASE_FIXTURE(CabinetWalks,
                  "Each entry is reported as stored, whatever else the headers hold") {
  CHECK(WalkBytes(MakeCabinet({{"\xE9t\xE9/x", "1", 0x27, 0xFF9F, 0xBF7D}, {}, {"y"}})) ==
        "été/x 1 65439 49021\nerror 13");
  const std::string flagged = MakeCabinet({{"été漢", "12", 0xA0}, {"\xE9", "", 0xA0}});
  CHECK(WalkBytes(flagged, ExtractTo("out\\*")) ==
        EntryLine("été漢", 2) + "out\\été漢 0\n" + EntryLine("é", 0) + "out\\é 0\nok");
  CHECK(Tree(folder / "out") == "é\nété漢\n");
  const CabinetOptions all{.folders = 300, .reserve = 255, .previous = "1.cab", .next = "3.cab"};
  CHECK(WalkBytes(MakeCabinet(kTwoEntries, all)) == kTwoLines + "ok");
  std::vector<CabinetEntry> many;
  std::string told;
  for (int i = 0; i < 1000; ++i) {
    many.push_back({std::string(i % 255 + 1, 'n'), Pattern(i)});
    told += EntryLine(many.back().name, i);
  }
  CHECK(WalkBytes(MakeCabinet(many)) == told + "ok");
}

TEST_CASE_FIXTURE(CabinetWalks, "A damaged cabinet gives the entries before the damage") {
  const std::string whole = MakeCabinet(kTwoEntries);
  const std::size_t first = whole.find("dial.xml") + sizeof "dial.xml";
  const std::size_t both = whole.find("a\\dial.bmp") + sizeof "a\\dial.bmp";
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    CAPTURE(cut);
    const std::string told = cut < first ? "" : cut < both ? kFirstLine : kTwoLines;
    CHECK(WalkBytes(whole.substr(0, cut)) == told + (cut < both ? "error 13" : "ok"));
    CHECK(WalkBytes(whole.substr(0, cut), ExtractTo("out\\x")).ends_with("error 13"));
    CHECK(Tree(folder / "out").empty());
  }
  for (const std::string& bytes :
       {MakeCabinet({}).replace(25, 1, "\2"), MakeCabinet({{std::string(256, 'n')}}),
        MakeCabinet({{"x"}}).replace(16, 4, "\xF0\xFF\xFF\xFF"),
        MakeCabinet({{"x"}}).replace(52, 1, "\1")}) {
    CHECK(WalkBytes(bytes) == "error 13");
  }
}

TEST_CASE_FIXTURE(CabinetWalks, "A pipe and an unreadable cabinet are not walked") {
  Run(*this, "mkfifo fifo.cab && touch closed.cab && chmod 0 closed.cab && chmod a+rx .");
  CHECK(Walk("fifo.cab") == "error 13");
  // Permission bits do not bind the administrator, under whom tests may run.
  const uid_t user = geteuid();
  REQUIRE(seteuid(user == 0 ? 65534 : user) == 0);
  CHECK(Walk("CLOSED.cab") == "error 5");
  REQUIRE(seteuid(user) == 0);
}

TEST_CASE_FIXTURE(CabinetWalks, "An entry of any compression is unpacked from behind another") {
  Put(folder / "short", "hello");
  Put(folder / "long", Pattern(70001));
  Run(*this, "gcab -cz zip.cab short long");
  const fs::path seeds = PANELKIT_SEEDS_DIR;
  const std::pair<std::string, std::string> kinds[] = {{Get(folder / "zip.cab"), Pattern(70001)},
                                                       {Get(seeds / "lzx.cab"), "BMBMBMBM"},
                                                       {Get(seeds / "quantum.cab"), "hello"}};
  for (const auto& [bytes, second] : kinds) {
    Answers answers = ExtractTo("out\\x");
    answers.to_entry = [is_second = false, extract = answers.to_entry](auto& info) mutable {
      return std::exchange(is_second, true) ? extract(info) : FILEOP_SKIP;
    };
    CHECK(WalkBytes(bytes, answers).ends_with(" 0\nok"));
    CHECK(Get(folder / "out/x") == second);
  }
}

TEST_CASE_FIXTURE(CabinetWalks, "Data that points before its own start shows none of our memory") {
  const std::string bytes = Get(fs::path(PANELKIT_SEEDS_DIR) / "before_the_start.cab");
  CHECK(WalkBytes(bytes, ExtractTo("out\\x")).ends_with(" 0\nok"));
  CHECK(Get(folder / "out/x") == 'w' + std::string(28, '\0'));
}

TEST_CASE_FIXTURE(CabinetWalks,
                  "A file has the entry's time and attribute, and an old one's name") {
  setenv("TZ", "XXX-5", 1);
  tzset();
  umask(022);
  Run(*this, "echo old >out/Dial.XML && chmod a-w out/Dial.XML && ln -s ../aside out/link");
  Run(*this, "touch out/.panelkit-1-0.tmp");  // Left by a killed run.
  WalkBytes(MakeCabinet({{"dial.xml", "new", 0x21},
                         {"link", "own"},
                         {"no_date", "", 0, 0},
                         {"No_Date", "later", 0, 0}}),
            ExtractTo("OUT\\*"));
  CHECK(Tree(folder / "out") == "Dial.XML\nlink\nno_date\n");
  CHECK_FALSE(fs::exists(folder / "aside"));
  Run(*this, "cd out && stat -c '%A %y' Dial.XML link >../list && cat * >>../list");
  CHECK(Get(folder / "list") ==
        "-r--r--r-- 2002-01-01 12:00:00.000000000 +0500\n"
        "-rw-r--r-- 2002-01-01 12:00:00.000000000 +0500\nnewownlater");
  CHECK(fs::last_write_time(folder / "out/no_date") > fs::last_write_time(folder / "out/link"));
}

TEST_CASE_FIXTURE(CabinetWalks, "A damaged entry is an error and leaves the old file as it was") {
  for (const std::string name : {"a", "b", "c"}) Put(folder / name, std::string(32768, name[0]));
  Run(*this, "gcab -c sound.cab a b c");
  const std::string sound = Get(folder / "sound.cab");
  Put(folder / "out/a", "old a");
  std::string codes;
  Answers go_on = ExtractTo("out\\*");
  go_on.to_outcome = [&codes](auto error) {
    codes += std::to_string(error) + ' ';
    return 0U;
  };
  for (const std::string& damaged :
       {std::string(sound).replace(sound.find("aaaa"), 1, "?"),
        std::string(sound).replace(42, 1, "\4"), sound.substr(0, 300)}) {
    CHECK(WalkBytes(damaged, go_on).ends_with("\nok"));
  }
  // What is packed behind the damage cannot be trusted either.
  CHECK(codes == "23 23 23 13 13 13 13 13 13 ");
  CHECK(Tree(folder / "out") == "a\n");
  CHECK(Get(folder / "out/a") == "old a");
}

TEST_CASE_FIXTURE(CabinetWalks, "A set of cabinets is followed to what an entry needs") {
  const auto part = [](std::uint16_t folder_of_entry, const CabinetOptions& options) {
    return MakeCabinet({{.name = "split", .content = Pattern(40000), .folder = folder_of_entry}},
                       options);
  };
  CabinetOptions middle{.previous = "x.cab", .next = "third.cab", .set_index = 1};
  middle.bytes_in_previous = 10000;
  // What goes both ways must be in the only folder.
  middle.folders = 2;
  const std::string odd_second = part(kFromPreviousToNext, middle);
  middle.folders = 1;
  middle.bytes_in_next = 3000;
  const std::string second = part(kFromPreviousToNext, middle);
  const Answers extract = ExtractTo("out\\*");

  const std::string told = EntryLine("split", 40000);
  Put(folder / "x.cab", part(kToNext, {.next = "Second.cab", .bytes_in_next = 30000}));
  CHECK(Walk("x.cab") == told + "ok");
  CHECK(Walk("x.cab", extract) == told + "next?\nout\\split 2\nerror 2");
  Put(folder / "THIRD.CAB",
      part(kFromPrevious, {.previous = "Second.cab", .set_index = 2, .bytes_in_previous = 37000}));
  for (const std::string& wrong : {odd_second, std::string(second).replace(34, 1, "\7")}) {
    Put(folder / "SECOND.CAB", wrong);
    CHECK(Walk("x.cab", extract) == told + "next?\nout\\split 13\nerror 13");
  }
  CHECK(Tree(folder / "out").empty());
  Put(folder / "SECOND.CAB", second);
  CHECK(Walk("x.cab", extract) == told + "next?\nnext?\nout\\split 0\nok");
  CHECK(Get(folder / "out/split") == Pattern(40000));
  CHECK(Walk("third.cab", extract) == "ok");
}

TEST_CASE_FIXTURE(CabinetWalks, "A place that cannot take the file is an error of that entry") {
  Run(*this, "mkdir out/folder");
  Put(folder / "x.cab", MakeCabinet({{"x", "1"}}));
  const auto code_at = [&](const std::string& place) {
    const std::string log = Walk("x.cab", ExtractTo(place));
    return log.substr(log.rfind(' ') + 1);
  };
  CHECK(code_at("out\\what?") == "123");
  CHECK(code_at("out\\missing\\x") == "3");
  CHECK(code_at("out\\folder") == "5");
  CHECK(code_at(std::string(kLongestTargetName - At("").size(), 'n')) == "0\nok");
}

}  // namespace
}  // namespace panelkit::test
