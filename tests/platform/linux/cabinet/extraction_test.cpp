#include <doctest/doctest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <ctime>
#include <utility>

#include "cabinet_walks.h"
#include "support/cabinet_writer.h"

using namespace panelkit;
using namespace panelkit::test;
namespace fs = std::filesystem;

namespace {

std::string Pattern(std::size_t size) {
  std::string pattern;
  for (std::size_t i = 0; i < size; ++i) pattern += static_cast<char>(i * 7 + i / 256);
  return pattern;
}

// "near", and packed together with it "split", which lies in all three cabinets of a set.
std::vector<CabinetEntry> NearAndSplit(std::uint16_t folder_of_near,
                                       std::uint16_t folder_of_split) {
  return {{.name = "near", .content = std::string(32768, 'n'), .folder = folder_of_near},
          {.name = "split", .content = Pattern(40000), .folder = folder_of_split}};
}

std::string SecondOfSet(std::uint16_t folders) {
  return MakeCabinet(NearAndSplit(kFromPreviousToNext, kFromPreviousToNext),
                     {.folders = folders,
                      .previous = "x.cab",
                      .next = "third.cab",
                      .set_index = 1,
                      .bytes_in_previous = 40000,
                      .bytes_in_next = folders == 1 ? 3000U : 0U});
}

}  // namespace

TEST_CASE_FIXTURE(CabinetWalks, "Every compression gives back what was packed, all or one entry") {
  const std::string pattern = Pattern(70001);
  Put(C("long"), pattern);
  Put(C("short"), "hello");
  Run("gcab -cz zip.cab long short");
  const fs::path seeds = PANELKIT_SEEDS_DIR;
  const struct {
    std::string bytes, first, second;
  } kinds[] = {
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
                  "A file has the entry's local time and attribute, an old one's name") {
  setenv("TZ", "XXX-5", 1);
  tzset();
  umask(022);
  Put(C("aside"), "aside");
  Run("echo old >out/Dial.XML && chmod a-w out/Dial.XML && ln -s ../aside out/link");
  WalkBytes(MakeCabinet({{"dial.xml", "new", 0x21},
                         {"link", "own"},
                         {"no date", "", 0, 0},
                         {"No Date", "later", 0, 0}}),
            ExtractTo("C:\\OUT\\*"));
  CHECK(NamesInOut() == "Dial.XML link no date ");
  Run("cd out && stat -c '%A %y' Dial.XML link >../stat && cat * >../contents");
  CHECK(Get(C("stat")) ==
        "-r--r--r-- 2002-01-01 12:00:00.000000000 +0500\n"
        "-rw-r--r-- 2002-01-01 12:00:00.000000000 +0500\n");
  CHECK(Get(C("contents")) == "newownlater");
  CHECK(Get(C("aside")) == "aside");
  CHECK(fs::last_write_time(C("out/no date")) > fs::last_write_time(C("out/link")));
}

TEST_CASE_FIXTURE(CabinetWalks, "A damaged entry is an error and leaves the old file as it was") {
  for (const std::string name : {"a", "b", "c"}) Put(C(name), std::string(32768, name[0]));
  Run("gcab -c sound.cab a b c");
  const std::string sound = Get(C("sound.cab"));
  const std::size_t content = sound.size() - 3 * 32768;
  Put(C("out/a"), "old a");
  // What is packed behind the damage cannot be trusted either.
  for (const auto& [bytes, codes] :
       {std::pair(std::string(sound).replace(content, 1, "?"), "23 23 23 "),
        {std::string(sound).replace(42, 1, "\4"), "13 13 13 "},
        {sound.substr(0, 300), "13 13 13 "}}) {
    std::string seen;
    Answers go_on = ExtractTo("C:\\out\\*");
    go_on.to_extracted = [&](const FILEPATHS& outcome) {
      seen += std::to_string(outcome.Win32Error) + ' ';
      return 0U;
    };
    CHECK(WalkBytes(bytes, go_on).ends_with("\nok"));
    CHECK(seen == codes);
  }
  CHECK(NamesInOut() == "a ");
  CHECK(Get(C("out/a")) == "old a");
}

TEST_CASE_FIXTURE(CabinetWalks,
                  "A set of cabinets is followed to what an entry needs, no further") {
  std::vector<CabinetEntry> entries = NearAndSplit(1, kToNext);
  entries.push_back({"first", "1"});
  const std::string first =
      MakeCabinet(entries, {.folders = 2, .next = "Second.cab", .bytes_in_next = 32768});
  entries = NearAndSplit(kFromPrevious, kFromPrevious);
  entries.push_back({.name = "last", .content = "2", .folder = 1});
  const std::string third = MakeCabinet(
      entries,
      {.folders = 2, .previous = "Second.cab", .set_index = 2, .bytes_in_previous = 69768});

  const Answers extract = ExtractTo("C:\\out\\*");
  const std::string asked = Told("near", 32768) + "next?\n";
  const std::string told = "C:\\out\\near 0\n" + Told("split", 40000) + "C:\\out\\split ";
  const std::string told_first = Told("first", 1) + "C:\\out\\first 0\nok";
  Answers refuse = extract;
  refuse.to_next = 1223;
  CHECK(WalkBytes(first) == Told("near", 32768) + Told("split", 40000) + Told("first", 1) + "ok");
  CHECK(Walk("C:\\x.cab", refuse) == asked + "error 1223");
  CHECK(NamesInOut().empty());
  CHECK(Walk("C:\\x.cab", extract) == asked + told + "2\nerror 2");
  Put(C("THIRD.CAB"), third);
  // One that is out of turn, and one of which what goes both ways is not the only folder.
  for (const std::string& wrong : {SecondOfSet(1).replace(34, 1, "\7"), SecondOfSet(2)}) {
    Put(C("SECOND.CAB"), wrong);
    CHECK(Walk("C:\\x.cab", extract) == asked + told + "13\nerror 13");
  }
  CHECK(NamesInOut() == "near ");

  Put(C("SECOND.CAB"), SecondOfSet(1));
  CHECK(Walk("C:\\x.cab", extract) == asked + "next?\n" + told + "0\n" + told_first);
  CHECK(Get(C("out/split")) == Pattern(40000));
  CHECK(Walk("C:\\second.cab", extract) == "ok");
  CHECK(Walk("C:\\third.cab", extract) == Told("last", 1) + "C:\\out\\last 0\nok");
  CHECK(WalkBytes(MakeCabinet({{"first", "1"}}, {.next = "Second.cab"}), extract) == told_first);
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
