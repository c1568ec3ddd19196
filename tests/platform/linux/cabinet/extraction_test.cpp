#include <doctest/doctest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <random>
#include <stdexcept>

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

const std::string kLong = Pattern(70001);
const std::string kText = "Needles, dials and lamps.";

// kText and "hello" as an LZX block of the uncompressed kind: one bit for no translated call
// addresses, the kind (3 bits) and size (24) in 16-bit words, filled up with zeros, three offsets.
const std::string kLzx = std::string("\0\x30\xE0\1\1\0\0\0\1\0\0\0\1\0\0\0", 16) + kText + "hello";

// The same, packed as literals by the arithmetic coder of Quantum.
const std::string kQuantum(
    "\xD3\x2B\xCD\x3E\xB8\xA4\xB0\x22\xC8\x0D\x91\x31\x9D\xD7\x6D\xAA\x5C\xAA\x86\x9E\x74\x6D\x03"
    "\0\0\0",
    26);

struct Packed {
  std::string bytes;
  std::string long_content;  // Of the entry "long"; "short" holds "hello".
};

std::vector<Packed> CabinetsOfEachKind(CabinetWalks& walks) {
  Put(walks.C("long"), kLong);
  Put(walks.C("short"), "hello");
  const std::string zip = "cd '" + Utf8(walks.C("")) + "' && gcab -cz zip.cab long short";
  REQUIRE(std::system(zip.c_str()) == 0);
  const std::vector<CabinetEntry> few = {{"long", kText}, {"short", "hello"}};
  const auto lzx = [](auto) { return kLzx; };
  const auto quantum = [](auto) { return kQuantum; };
  return {{MakeCabinet({{"long", kLong}, {"short", "hello"}}, {.data_reserve = 7}), kLong},
          {Get(walks.C("zip.cab")), kLong},
          {MakeCabinet(few, {.compression = 0x0F03, .pack = lzx}), kText},
          {MakeCabinet(few, {.compression = 0x0F12, .pack = quantum}), kText}};
}

// The three cabinets of a set. "split" lies in all of them; "near" is packed together with it.
std::array<std::string, 3> CabinetSet(std::uint16_t second_index = 1,
                                      std::uint16_t second_folders = 1) {
  CabinetEntry near{.name = "near", .content = std::string(32768, 'n'), .folder = 1};
  CabinetEntry split{.name = "split", .content = Pattern(40000), .folder = kToNext};
  std::array<std::string, 3> set;
  set[0] = MakeCabinet({{"first", "1"}, near, split},
                       {.folders = 2, .next = "Second.cab", .bytes_in_next = 32768});
  near.folder = split.folder = kFromPreviousToNext;
  set[1] = MakeCabinet({near, split}, {.folders = second_folders,
                                       .previous = "x.cab",
                                       .next = "third.cab",
                                       .set_index = second_index,
                                       .bytes_in_previous = 40000,
                                       .bytes_in_next = second_folders == 1 ? 3000U : 0U});
  near.folder = split.folder = kFromPrevious;
  set[2] = MakeCabinet(
      {near, split, {.name = "last", .content = "2", .folder = 1}},
      {.folders = 2, .previous = "Second.cab", .set_index = 2, .bytes_in_previous = 69768});
  return set;
}

// Puts a disk of 64 KiB in the place of C:\out, seen by this process alone.
void MountAsOut(const CabinetWalks& walks, unsigned long flags) {
  if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      mount("none", walks.C("out").c_str(), "tmpfs", flags, "size=64k") != 0) {
    throw std::runtime_error("no mounts");
  }
}

}  // namespace

TEST_CASE("Every kind of compression gives back what was packed, all or one entry of it") {
  CabinetWalks walks;
  for (const auto& [bytes, long_content] : CabinetsOfEachKind(walks)) {
    CHECK(walks.WalkBytes(bytes, ExtractTo("C:\\out\\*")).ends_with("\nok"));
    CHECK(Get(walks.C("out/long")) == long_content);
    CHECK(Get(walks.C("out/short")) == "hello");
    Answers second_only = ExtractTo("C:\\out\\alone");
    second_only.to_entry = [extract = second_only.to_entry](FILE_IN_CABINET_INFO& info) {
      return info.NameInCabinet == std::string("short") ? extract(info) : FILEOP_SKIP;
    };
    CHECK(walks.WalkBytes(bytes, second_only).ends_with("C:\\out\\alone 0\nok"));
    CHECK(Get(walks.C("out/alone")) == "hello");
    CHECK(walks.NamesInOut() == "alone long short ");
  }
}

TEST_CASE("An extracted file has the entry's local time and attribute, and an old one's name") {
  CabinetWalks walks;
  setenv("TZ", "XXX-5", 1);
  tzset();
  Put(walks.C("out/Dial.XML"), "old");
  fs::permissions(walks.C("out/Dial.XML"), fs::perms::owner_read);
  Put(walks.C("aside"), "aside");
  fs::create_symlink("../aside", walks.C("out/link"));
  walks.WalkBytes(MakeCabinet({{"dial.xml", "new", 0x21},
                               {"link", "own"},
                               {"no date", "", 0, 0},
                               {"No Date", "later", 0, 0}}),
                  ExtractTo("C:\\OUT\\*"));
  CHECK(walks.NamesInOut() == "Dial.XML link no date ");
  CHECK(Get(walks.C("out/Dial.XML")) == "new");
  CHECK(Get(walks.C("out/no date")) == "later");
  CHECK(Get(walks.C("aside")) == "aside");
  constexpr std::time_t kStamp =
      1009868400;  // 1 January 2002, 12:00, five hours east of Greenwich.
  struct stat status {};
  REQUIRE(stat(walks.C("out/Dial.XML").c_str(), &status) == 0);
  CHECK(status.st_mtime == kStamp);
  CHECK((status.st_mode & 0222) == 0);
  REQUIRE(lstat(walks.C("out/link").c_str(), &status) == 0);
  CHECK((S_ISREG(status.st_mode) && (status.st_mode & 0200) != 0));
  REQUIRE(stat(walks.C("out/no date").c_str(), &status) == 0);
  CHECK(status.st_mtime > kStamp);
}

TEST_CASE("A damaged entry is an error and leaves the old file as it was") {
  CabinetWalks walks;
  const auto block = [](const char* name) {
    return CabinetEntry{name, std::string(32768, name[0])};
  };
  const std::string sound = MakeCabinet({block("a"), block("b"), block("c")});
  std::string flipped = sound;
  flipped[flipped.size() - 3 * 32768] ^= 1;
  Put(walks.C("out/a"), "old a");
  Answers go_on = ExtractTo("C:\\out\\*");
  go_on.to_extracted = [](auto&) { return 0U; };
  const auto all_with = [](const std::string& code) {
    std::string log;
    for (const std::string name : {"a", "b", "c"}) {
      log += Told(name, 32768) + "C:\\out\\" + name + " " + code + "\n";
    }
    return log + "ok";
  };
  // What is packed behind the damage cannot be trusted either.
  CHECK(walks.WalkBytes(flipped, go_on) == all_with("23"));
  CHECK(walks.WalkBytes(std::string(sound).replace(42, 1, "\4"), go_on) == all_with("13"));
  CHECK(walks.WalkBytes(sound.substr(0, 300), go_on) == all_with("13"));
  CHECK(walks.NamesInOut() == "a ");
  CHECK(Get(walks.C("out/a")) == "old a");
}

TEST_CASE("Flipped bits never end in a crash, a success without a file, or half a file") {
  CabinetWalks walks;
  std::vector<Packed> cabinets = CabinetsOfEachKind(walks);
  cabinets.push_back({CabinetSet()[0], ""});
  Put(walks.C("second.cab"), CabinetSet()[1]);
  Put(walks.C("third.cab"), CabinetSet()[2]);
  int wrong = 0;
  Answers answers = ExtractTo("C:\\out\\x");
  answers.to_extracted = [&](const FILEPATHS& outcome) {
    wrong += fs::remove(walks.C("out/x")) == (outcome.Win32Error != 0);
    return 0U;
  };
  std::mt19937 random(2002);
  for (const Packed& cabinet : cabinets) {
    for (int round = 0; round < 250; ++round) {
      std::string damaged = cabinet.bytes;
      // Half of the flips hit the headers.
      const std::size_t range = round % 2 == 0 ? 90 : damaged.size();
      damaged[random() % range] ^= static_cast<char>(1U << random() % 8);
      const std::string log = "\n" + walks.WalkBytes(damaged, answers);
      CHECK_MESSAGE((log.ends_with("\nok") || log.ends_with("\nerror 13")), log);
      CHECK(wrong == 0);
      CHECK(walks.NamesInOut().empty());
    }
  }
}

TEST_CASE("A set of cabinets is followed to what an entry needs, and no further") {
  CabinetWalks walks;
  const auto [first, second, third] = CabinetSet();
  const std::string split = Told("split", 40000);
  CHECK(walks.WalkBytes(first) == Told("first", 1) + Told("near", 32768) + split + "ok");
  const Answers extract = ExtractTo("C:\\out\\*");
  const std::string asked =
      Told("first", 1) + "C:\\out\\first 0\n" + Told("near", 32768) + "next?\n";
  const std::string told = "C:\\out\\near 0\n" + split + "C:\\out\\split ";
  Answers refuse = extract;
  refuse.to_next = 1223;
  CHECK(walks.WalkBytes(first, refuse) == asked + "error 1223");
  CHECK(walks.NamesInOut() == "first ");
  CHECK(walks.WalkBytes(first, extract) == asked + told + "2\nerror 2");
  Put(walks.C("THIRD.CAB"), third);
  Put(walks.C("SECOND.CAB"), CabinetSet(7)[1]);
  CHECK(walks.WalkBytes(first, extract) == asked + told + "13\nerror 13");
  // What goes both ways has to be in the only folder.
  Put(walks.C("SECOND.CAB"), CabinetSet(1, 2)[1]);
  CHECK(walks.WalkBytes(first, extract) == asked + told + "13\nerror 13");
  CHECK(walks.NamesInOut() == "first near ");

  Put(walks.C("SECOND.CAB"), second);
  CHECK(walks.WalkBytes(first, extract) == asked + "next?\n" + told + "0\nok");
  CHECK(Get(walks.C("out/split")) == Pattern(40000));
  CHECK(walks.Walk("C:\\second.cab", extract) == "ok");
  CHECK(walks.Walk("C:\\third.cab", extract) == Told("last", 1) + "C:\\out\\last 0\nok");
  CHECK(walks.WalkBytes(MakeCabinet({{"own", "1"}}, {.next = "Second.cab"}), extract) ==
        Told("own", 1) + "C:\\out\\own 0\nok");
}

TEST_CASE("A place that cannot take the file is an error of that entry") {
  CabinetWalks walks;
  fs::create_directories(walks.C("elsewhere"));
  fs::create_directory(walks.C("out/folder"));
  fs::create_symlink("../elsewhere", walks.C("out/link"));
  const std::string cabinet = MakeCabinet({{"link\\x", "1"}});
  for (const auto& place : std::initializer_list<std::pair<std::string, const char*>>{
           {"C:\\out\\what?", " 123\nerror 123"},
           {"C:\\out\\a:b", " 123\nerror 123"},
           {"", " 123\nerror 123"},
           {"C:\\out\\missing\\x", " 3\nerror 3"},
           {"C:\\out\\folder", " 5\nerror 5"},
           {"C:\\out\\" + std::string(253, 'n'), " 0\nok"},
           {"C:\\OUT\\*", " 5\nerror 5"}}) {
    CAPTURE(place.first);
    CHECK(walks.WalkBytes(cabinet, ExtractTo(place.first)).ends_with(place.second));
  }
  CHECK(fs::is_empty(walks.C("elsewhere")));
  // A link that the user named is followed.
  CHECK(walks.WalkBytes(cabinet, ExtractTo("C:\\out\\link\\y")).ends_with("\nok"));
  CHECK(Get(walks.C("elsewhere/y")) == "1");
}

TEST_CASE("A full, a read-only and a closed disk are told apart, and keep no half file") {
  CabinetWalks walks;
  Put(walks.C("x.cab"), MakeCabinet({{"long", kLong}}));
  const std::string told = Told("long", 70001) + "C:\\out\\long ";
  Answers answers = ExtractTo("C:\\out\\*");
  answers.to_extracted = [&](const FILEPATHS& outcome) {
    return walks.NamesInOut().empty() ? outcome.Win32Error : 9999;
  };
  const auto walk_on = [&](unsigned long flags) {
    return walks.WalkApart("C:\\x.cab", answers, [&] { MountAsOut(walks, flags); });
  };
  if (walk_on(0) == "no mounts") {
    MESSAGE("left out: no right to mount a small disk");
  } else {
    CHECK(walk_on(0) == told + "112\nerror 112");
    CHECK(walk_on(MS_RDONLY) == told + "19\nerror 19");
  }
  fs::permissions(walks.C("out"), fs::perms::owner_read | fs::perms::owner_exec |
                                      fs::perms::others_read | fs::perms::others_exec);
  CHECK(walks.WalkApart("C:\\x.cab", answers, BecomeOrdinaryUser) == told + "5\nerror 5");
}
