// CABFile over a scripted service and over real cabinets: its answers, events and results.
#include "cabinet/cab_file.h"

#include <doctest/doctest.h>

#include <map>
#include <utility>

#include "cabinet/folder_maker.h"
#include "cabinet/mod_gauges.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

// A cabinet service with scripted entries and errors, which logs the answers.
class ScriptedWalk : public CabinetWalk {
 public:
  std::vector<std::string> entries = {"a\\Dial.xml", "DIAL.XML", "b\\dial.bmp"};
  std::uint32_t error = 0;  // Of each extraction and of the walk.
  std::string log;

  std::uint32_t SetupIterateCabinetA(const std::string& /*CabinetFile*/,
                                     CabinetMsgHandler MsgHandler, std::uint32_t Context) override {
    const auto notify = [&](std::uint32_t notification, const void* record) {
      const std::uint32_t answer =
          MsgHandler(Context, notification, reinterpret_cast<std::uintptr_t>(record), 0);
      log += std::to_string(answer) + ' ';
      return answer;
    };
    notify(0x10, nullptr);
    for (const std::string& name : entries) {
      FILE_IN_CABINET_INFO info{name.c_str(), 1234, 0x2C21, 0x6000, {}};
      const std::uint32_t answer = notify(SPFILENOTIFY_FILEINCABINET, &info);
      if (answer == FILEOP_ABORT) return 1;
      if (answer == FILEOP_SKIP) continue;
      const FILEPATHS paths{info.FullTargetName.c_str(), error};
      if (notify(SPFILENOTIFY_FILEEXTRACTED, &paths) != 0) return 0;
    }
    notify(SPFILENOTIFY_NEEDNEWCABINET, nullptr);
    return error == 0 ? 1 : 0;
  }
  std::int32_t GetLastError() const override { return static_cast<std::int32_t>(error); }
};

struct Fixture {
  Simulator simulator;
  ScriptedWalk walk;
  std::shared_ptr<CABFile> cab;
  std::string cancelled;

  Fixture() {
    const Machine real = simulator.Services();
    cab = CABFile::Create(
        {real.registry, real.files, real.text, walk, real.dates, real.folders, real.archives});
    cab->CabName = simulator.AppFolder() + "\\x.cab";
    cab->FileFound = [this](const auto& file, double date, int size, const auto& folder) {
      walk.log += file + "," + std::to_string(date) + "," + std::to_string(size) + ",";
      walk.log += folder + ": ";
    };
    cab->BeforeExtract = [this](const std::string& name, bool& Cancel) {
      walk.log += name + ": ";
      Cancel = name == cancelled;
    };
    cab->AfterExtract = [this](const std::string& path) { walk.log += path + ": "; };
  }

  // The answers since the last call, each after the event that came before it.
  std::string Log() { return Replaced(std::exchange(walk.log, ""), simulator.AppFolder(), "APP"); }
};

std::string ErrorOf(const auto& operation) {
  try {
    operation();
  } catch (const CabError& error) {
    return std::to_string(error.Number) + " " + error.Source + ": " + error.Description;
  }
  return "no error";
}

TEST_CASE_FIXTURE(Fixture, "GetInfo reports entries and adds a row for each xml one") {
  modGauges::InstalledGauges.Reset();
  modGauges::CurrentCabinet = "sample";
  CHECK(cab->GetInfo());
  CHECK(Log() ==
        "0 Dial.xml,37257.500000,1234,a\\: 2 DIAL.XML,37257.500000,1234,: 2 "
        "dial.bmp,37257.500000,1234,b\\: 2 0 ");
  CHECK(modGauges::InstalledGauges.UpperBound() == 1);
  CHECK(modGauges::InstalledGauges.Row(0).key == "sample!Dial");
  CHECK(modGauges::CurrentCabFile == cab);
  CHECK(cab->GetInfo("A\\DIAL.xml"));
  CHECK(Log() == "0 Dial.xml,37257.500000,1234,a\\: 0 ");
  CHECK(cab->GetInfo("dial.bmp"));
  CHECK(Log() == "0 2 2 2 0 ");
  CHECK(cab->GetInfo());
  CHECK(Log().ends_with("dial.bmp,37257.500000,1234,b\\: 2 0 "));

  CHECK(cab->FileCount() == 3);
  CHECK(cab->FileCount() == 3);
  CHECK(Log() == "0 2 2 2 0 0 2 2 2 0 ");
}

TEST_CASE_FIXTURE(Fixture, "GetXML lists entries, or the first of a file name") {
  const std::string opening =
      R"(<?xml version="1.0"?><CABFILE CABFILENAME = ')" + cab->CabName + "'><FILES>";
  const std::string date = simulator.Services().dates.DateText(37257.5);
  const auto file = [&](const std::string& folder, const std::string& name) {
    return "<FILE><FULLNAME>" + folder + name + "</FULLNAME><NAME>" + name + "</NAME><DATE>" +
           date + "</DATE><SIZE>1234</SIZE><PATH>" + folder + "</PATH></FILE>\r\n";
  };
  const std::string closing = "</FILES></CABFILE>";
  CHECK(cab->GetXML() == opening + file("a\\", "Dial.xml") + file("", "DIAL.XML") +
                             file("b\\", "dial.bmp") + closing);
  CHECK(cab->GetXML("dial.xml") == opening + file("a\\", "Dial.xml") + closing);
  CHECK(cab->GetXML("a\\dial.xml") == opening + closing);
  CHECK(cab->GetXML().ends_with(file("b\\", "dial.bmp") + closing));
}

TEST_CASE_FIXTURE(Fixture, "Extract announces, aims and reports each entry") {
  const std::string out = simulator.AppFolder() + "\\out";
  Put(simulator.App() / "file", "in the way");
  walk.entries = {"a\\b.gau", "file\\x\\y", "..\\up.gau", "C:\\d.gau"};
  CHECK(cab->Extract());
  CHECK(Log() == "0 a\\b.gau: 1 APP\\a\\b.gau: 0 file\\x\\y: 2 ..\\up.gau: 2 C:\\d.gau: 2 0 ");
  CHECK(cab->Extract("A\\B.GAU", out + "\\deep"));
  CHECK(Log() == "0 a\\b.gau: 1 APP\\out\\deep\\a\\b.gau: 0 2 2 2 0 ");
  CHECK(std::filesystem::is_directory(simulator.App() / "out" / "deep" / "a"));
  CHECK(cab->Extract("b.gau"));
  CHECK(Log() == "0 2 2 2 2 0 ");
  walk.entries = {"two.gau", "x.gau", "TWO.gau"};
  CHECK(cab->Extract("Two.gau"));
  CHECK(Log() == "0 two.gau: 1 APP\\two.gau: 0 2 TWO.gau: 1 APP\\TWO.gau: 0 0 ");
  const std::string path = std::exchange(cab->CabName, "x.cab");
  cancelled = "TWO.gau";
  CHECK(cab->Extract("two.gau", "", ""));
  CHECK(Log() == "0 two.gau: 2 2 TWO.gau: 2 0 ");  // To the root, where no folder can be made.
  cab->CabName = path;

  cancelled = "c.gau";
  walk.entries = {"c.gau", "..\\up.gau"};
  CHECK(cab->Extract("", out + "\\", "same"));
  CHECK(Log() == "0 c.gau: 2 ..\\up.gau: 1 APP\\out\\same: 0 0 ");
  walk.error = 112;
  CHECK(ErrorOf([&] { cab->Extract("", "", "x"); }) ==
        "112 CabFile: There is not enough space on the disk.");
  CHECK(Log() == "0 c.gau: 2 ..\\up.gau: 1 112 ");

  std::string nothing;
  CHECK_FALSE(modGauges::MakeFolderPath(simulator.Services().files, nothing));
  CHECK(modGauges::AddBackslash(nothing) == "\\");
}

TEST_CASE_FIXTURE(Fixture, "errors tell number, source and description") {
  const auto each = [&](const std::string& number, const std::string& description) {
    CHECK(ErrorOf([&] { cab->FileCount(); }) == number + " CabFile: " + description);
    CHECK(ErrorOf([&] { cab->Extract("none"); }) == number + " CabFile: " + description);
    CHECK(ErrorOf([&] { cab->GetXML(); }) == number + " CabFile.GetXML: " + description);
    CHECK(ErrorOf([&] { cab->ListEntries(); }) == number + " CabFile: " + description);
    CHECK_FALSE(cab->GetInfo());
  };
  walk.error = 2;
  each("2", "The system cannot find the file specified.");
  walk.error = 110;
  each("110", "Unknown error.");
  CHECK(CabErrorText(2) == "Unknown error.");

  cab->CabName.clear();
  modGauges::SetCurrentCabFile(nullptr);
  each("-2147219548",
       "You must set the CabName property before taking any action on the CabFile object.");
  CHECK(modGauges::CurrentCabFile == nullptr);
  CHECK(modGauges::CabNotifyEntry(CabContextCount, SPFILENOTIFY_FILEINCABINET, 0, 0) == 0);
}

TEST_CASE("each code has its fixed text, and no other code has one") {
  const std::map<int, std::string> texts = {
      {2, "The system cannot find the file specified."},
      {3, "The system cannot find the path specified."},
      {4, "The system cannot open the file."},
      {5, "Access is denied."},
      {8, "Not enough storage is available to process this command."},
      {13, "Invalid data."},
      {14, "Not enough storage is available to complete this operation."},
      {15, "The system cannot find the drive specified."},
      {19, "The media is write protected."},
      {20, "The system cannot find the device specified."},
      {21, "The device is not ready."},
      {23, "Data error (cyclic redundancy check)."},
      {25, "The drive cannot locate a specific area or track on the disk."},
      {26, "The specified disk or diskette cannot be accessed."},
      {27, "The drive cannot find the sector requested."},
      {29, "The system cannot write to the specified device."},
      {30, "The system cannot read from the specified device."},
      {31, "A device attached to the system is not functioning."},
      {32, "The process cannot access the file because it is being used by another process."},
      {33,
       "The process cannot access the file because another process has locked a portion of the "
       "file."},
      {39, "The disk is full."},
      {82, "The directory or file cannot be created."},
      {111, "The file name is too long."},
      {112, "There is not enough space on the disk."},
      {123, "The filename, directory name, or volume label syntax is incorrect."}};
  for (int code = -1; code < 200; ++code) {
    CAPTURE(code);
    const auto text = texts.find(code);
    CHECK(Win32ErrorText(code) == (text == texts.end() ? "Unknown error." : text->second));
  }
}

TEST_CASE_FIXTURE(Fixture, "an object lives on while the program still refers to it") {
  cab->FileCount();
  const std::weak_ptr<CABFile> seen = std::exchange(cab, nullptr);
  CHECK_FALSE(seen.expired());
  modGauges::SetCurrentCabFile(nullptr);
  CHECK(seen.expired());
}

TEST_CASE_FIXTURE(Fixture, "an error inside a walk comes out with the callback's source") {
  // The service has room for 259 bytes, counted in the code page.
  const std::size_t free = 259 - (simulator.AppFolder().size() + 1);
  CHECK(cab->Extract("DIAL.XML", "", std::string(free, 'x')));
  CHECK(Log() == "0 2 DIAL.XML: 1 APP\\" + std::string(free, 'x') + ": 0 2 0 ");
  CHECK(ErrorOf([&] { cab->Extract("", "", std::string(free + 1, 'x')); }) ==
        "9 CabFile.CabCallBack: Subscript out of range");

  const Text& text = simulator.Services().text;
  GaugeTable& table = modGauges::InstalledGauges;
  table.Reset();
  while (table.UpperBound() < 32766) table.Add(text, "", "g");
  walk.entries = {"one.xml", "two.xml", "three.xml"};
  modGauges::CurrentCabinet = "full";
  CHECK_FALSE(cab->GetInfo());
  CHECK(table.Overflowed());
  CHECK(table.Row(32767).key == "full!two");
  CHECK_FALSE(table.Exists(text, "full!two"));
  Log();
  cab->ListEntries();
  CHECK(Log() ==
        "0 one.xml,37257.500000,1234,: 2 two.xml,37257.500000,1234,: 2 "
        "three.xml,37257.500000,1234,: 2 0 ");
}

// On a system without links the second entry lands in a plain folder.
TEST_CASE("a real cabinet is extracted with its folders, but not through a link") {
  Simulator simulator;
  Put(simulator.App() / "real.cab",
      MakeCabinet({{"sub\\Speed.xml", "speed"}, {"link\\deep\\evil.xml"}}));
  std::error_code ignored;
  std::filesystem::create_directory_symlink(simulator.App(), simulator.Fs() / "link", ignored);
  const auto cab = CABFile::Create(simulator.Services());
  cab->CabName = simulator.AppFolder() + "\\REAL.CAB";
  CHECK(cab->Extract("", simulator.FSPath()));
  CHECK(Get(simulator.Fs() / "sub" / "Speed.xml") == "speed");
  CHECK(Tree(simulator.App()) == "real.cab\n");
}

}  // namespace
}  // namespace panelkit::test
