// The promises of every machine's cabinet service.
#include <stdexcept>

#include "platform/cabinet_walks.h"

namespace panelkit::test {
namespace {

const std::string kCabinet = MakeCabinet({{"a\\H\xF6he.xml", "12345"}, {"b.bmp", "6"}});
const std::string kFirst = EntryLine("a\\Höhe.xml", 5);
const std::string kSecond = EntryLine("b.bmp", 1);

TEST_CASE_FIXTURE(CabinetWalks, "A walk reports every entry in order and acts on the answers") {
  CHECK(WalkBytes(kCabinet) == kFirst + kSecond + "ok");
  // Windows' service takes no name that the code page lacks, but the file's short name.
  rename(folder / "x.cab", folder / "計器.cab");
  CHECK(Walk("計器.CAB") == kFirst + kSecond + "ok");

  create_directory(folder / "out/a");
  Answers answers = ExtractTo("out\\*");
  const std::string first_outcome = kFirst + "out\\a\\Höhe.xml 0\n";
  CHECK(WalkBytes(kCabinet, answers) == first_outcome + kSecond + "out\\b.bmp 0\nok");
  CHECK(Get(folder / "out/a/Höhe.xml") == "12345");
  CHECK(Get(folder / "out/b.bmp") == "6");
  answers.to_outcome = [](auto) { return 112U; };
  CHECK(WalkBytes(kCabinet, answers) == first_outcome + "error 112");
  answers.to_entry = [](auto&) { return FILEOP_ABORT; };
  CHECK(WalkBytes(kCabinet, answers) == kFirst + "ok");

  int reported = 0;
  answers.to_entry = [&reported](auto&) -> std::uint32_t {
    ++reported;
    throw std::runtime_error("out of the walk");
  };
  CHECK_THROWS_WITH(WalkBytes(kCabinet, answers), "out of the walk");
  CHECK(reported == 1);
  // The error of an earlier walk is not the one's that ended by an exception.
  CHECK(machine->Services().cabinets.GetLastError() == 0);
}

TEST_CASE_FIXTURE(CabinetWalks, "A file that cannot be walked fails with a reason") {
  for (const std::string& bytes :
       {std::string(), std::string(100, 't'), kCabinet.substr(0, kCabinet.find("b.bmp") - 8)}) {
    CHECK(WalkBytes(bytes).ends_with("error 13"));
  }
  const std::pair<std::string, std::string> names[] = {{"absent.cab", "error 2"},
                                                       {"no\\x.cab", "error 3"},
                                                       {"OUT", "error 5"},
                                                       {"a?b.cab", "error 123"}};
  for (const auto& [name, error] : names) CHECK(Walk(name) == error);
}

}  // namespace
}  // namespace panelkit::test
