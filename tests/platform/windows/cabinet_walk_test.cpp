#include "platform/cabinet_walk.h"

#include <doctest/doctest.h>

#include <stdexcept>

#include "support/cabinet_writer.h"
#include "support/machine_here.h"
#include "support/temp_folder.h"

using namespace panelkit;
using test::MakeCabinet;
using test::Put;

namespace {

/// What the handler answers in the walk at hand, and what it was told.
struct Script {
  std::string seen;  ///< One line an event.
  std::function<std::uint32_t(FILE_IN_CABINET_INFO&)> on_entry = [](auto&) { return FILEOP_SKIP; };
  std::uint32_t on_extracted = 0;
};
Script* script = nullptr;

std::uint32_t Follow(std::uint32_t context, std::uint32_t notification, std::uintptr_t param1,
                     std::uintptr_t) {
  REQUIRE(context == 42);
  if (notification == SPFILENOTIFY_FILEINCABINET) {
    auto& entry = *reinterpret_cast<FILE_IN_CABINET_INFO*>(param1);
    script->seen += std::string(entry.NameInCabinet) + ":" + std::to_string(entry.FileSize) + ":" +
                    std::to_string(entry.DosDate) + ":" + std::to_string(entry.DosTime) + "\n";
    return script->on_entry(entry);
  }
  if (notification == SPFILENOTIFY_FILEEXTRACTED) {
    const auto& paths = *reinterpret_cast<const FILEPATHS*>(param1);
    script->seen += "extracted:" + std::to_string(paths.Win32Error) + "\n";
    return script->on_extracted;
  }
  return 0;
}

struct Cabinets {
  test::TempFolder folder;
  std::unique_ptr<LocalMachine> machine = test::OpenMachineAt({}, folder.Path());
  CabinetWalk& cabinets = machine->Services().cabinets;
  Script now;

  Cabinets() {
    script = &now;
    Put(folder / "two.cab", MakeCabinet({{.name = "a\\H\xF6he.xml", .content = "12345"},
                                         {.name = "b.bmp", .content = "6"}}));
  }

  std::uint32_t Walk(const std::string& name) {
    return cabinets.SetupIterateCabinetA(test::Utf8(folder.Path()) + "\\" + name, 0, &Follow, 42);
  }
};

const std::string kFirst = "a\\H\xF6he.xml:5:11297:24576\n";
const std::string kSecond = "b.bmp:1:11297:24576\n";
const std::string kBoth = kFirst + kSecond;

}  // namespace

TEST_CASE_FIXTURE(Cabinets, "A walk tells every entry in order") {
  CHECK(Walk("TWO.cab") == 1);
  CHECK(now.seen == kBoth);
  now.seen.clear();
  rename(folder / "two.cab", folder / "計器.cab");
  CHECK(Walk("計器.cab") == 1);  // reached by its short name
  CHECK(now.seen == kBoth);
}

TEST_CASE_FIXTURE(Cabinets, "After an abort nothing more comes, and the walk has succeeded") {
  now.on_entry = [](auto&) { return FILEOP_ABORT; };
  CHECK(Walk("two.cab") == 1);
  CHECK(now.seen == kFirst);
}

TEST_CASE_FIXTURE(Cabinets, "Entries are extracted to where the handler says, until it refuses") {
  now.on_entry = [this](FILE_IN_CABINET_INFO& entry) {
    const std::string target = test::Utf8(folder.Path()) + "\\" + std::to_string(entry.FileSize);
    target.copy(entry.FullTargetName, target.size());
    return FILEOP_DOIT;
  };
  CHECK(Walk("two.cab") == 1);
  CHECK(now.seen == kFirst + "extracted:0\n" + kSecond + "extracted:0\n");
  CHECK(test::Get(folder / "5") == "12345");
  CHECK(test::Get(folder / "1") == "6");

  now.seen.clear();
  now.on_extracted = 112;
  CHECK(Walk("two.cab") == 0);
  CHECK(cabinets.GetLastError() == 112);
  CHECK(now.seen == kFirst + "extracted:0\n");
}

TEST_CASE_FIXTURE(Cabinets, "An error of the handler comes out of the walk, which has ended") {
  now.on_entry = [](auto&) -> std::uint32_t { throw std::runtime_error("range"); };
  CHECK_THROWS_WITH(Walk("two.cab"), "range");
  CHECK(now.seen == kFirst);
}

TEST_CASE_FIXTURE(Cabinets, "A file that cannot be walked fails with a reason") {
  Put(folder / "empty.cab", "");
  Put(folder / "text.cab",
      "This is no cabinet but a text of some length, as a reader might rename.");
  std::string damaged = test::Get(folder / "two.cab");
  Put(folder / "damaged.cab", damaged.substr(0, damaged.find("b.bmp") - 8));
  create_directory(folder / "folder.cab");
  struct {
    std::string name;
    int error;
  } const cases[] = {{"absent.cab", 2}, {"no\\folder.cab", 3}, {"folder.cab", 5},  {"a?b.cab", 123},
                     {"empty.cab", 13}, {"text.cab", 13},      {"damaged.cab", 13}};
  for (const auto& example : cases) {
    CAPTURE(example.name);
    CHECK(Walk(example.name) == 0);
    CHECK(cabinets.GetLastError() == example.error);
  }
}
