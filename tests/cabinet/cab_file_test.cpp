// CABFile over a scripted service: what it answers, tells and leaves behind.
#include "cabinet/cab_file.h"

#include <doctest/doctest.h>

#include <functional>

#include "cabinet/error_text.h"
#include "cabinet/folder_maker.h"
#include "shell/mod_gauges.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

// A cabinet service that says what it is told to, and keeps the answers.
class ScriptedWalk : public CabinetWalk {
 public:
  std::vector<std::string> entries;
  std::int32_t error = 0;              // The walk fails with it at its end.
  std::uint32_t extraction_error = 0;  // What each extraction reports.
  std::string answers;
  std::vector<std::string> targets;

  std::uint32_t SetupIterateCabinetA(const std::string& /*CabinetFile*/, std::uint32_t /*Reserved*/,
                                     CabinetMsgHandler MsgHandler, std::uint32_t Context) override {
    answers += std::to_string(MsgHandler(Context, 0x10, 0, 0));
    for (const std::string& name : entries) {
      FILE_IN_CABINET_INFO info{name.c_str(), 1234, 0, 0x2C21, 0x6000, 0, {}};
      const std::uint32_t answer = MsgHandler(Context, SPFILENOTIFY_FILEINCABINET,
                                              reinterpret_cast<std::uintptr_t>(&info), 0);
      answers += std::to_string(answer);
      if (answer == FILEOP_ABORT) return 1;
      if (answer == FILEOP_DOIT && !Extracted(MsgHandler, Context, info)) return 0;
    }
    answers += std::to_string(MsgHandler(Context, SPFILENOTIFY_NEEDNEWCABINET, 0, 0));
    return error == 0 ? 1 : 0;
  }
  std::int32_t GetLastError() const override { return error; }

 private:
  bool Extracted(CabinetMsgHandler MsgHandler, std::uint32_t Context,
                 const FILE_IN_CABINET_INFO& info) {
    targets.emplace_back(info.FullTargetName);
    FILEPATHS paths{info.FullTargetName, "", extraction_error, 0};
    error = static_cast<std::int32_t>(MsgHandler(Context, SPFILENOTIFY_FILEEXTRACTED,
                                                 reinterpret_cast<std::uintptr_t>(&paths), 0));
    return error == 0;
  }
};

struct Fixture {
  Simulator simulator;
  ScriptedWalk walk;
  std::shared_ptr<CABFile> cab;
  std::string log;

  Fixture() {
    const Machine real = simulator.Services();
    cab = CABFile::Create({real.registry, real.files, real.text, walk, real.dates});
    cab->CabName = simulator.AppFolder() + "\\x.cab";
    walk.entries = {"a\\Dial.xml", "DIAL.XML", "dial.bmp"};
    cab->FileFound.Subscribe([this](const std::string& file, double date, std::int32_t size,
                                    const std::string& folder) {
      log += file + "," + std::to_string(date) + "," + std::to_string(size) + "," + folder + ";";
    });
  }
};

CabError ErrorOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const CabError& error) {
    return error;
  }
  FAIL("no error came");
  return {0, "", ""};
}

void CheckError(const CabError& error, std::int32_t number, const std::string& source,
                const std::string& description) {
  CHECK(error.Number == number);
  CHECK(error.Source == source);
  CHECK(error.Description == description);
}

TEST_CASE_FIXTURE(Fixture, "GetInfo reports entries and adds a row for each xml one") {
  modGauges::InstalledGauges.Reset();
  modGauges::CurrentCabinet = "sample";
  CHECK(cab->GetInfo());
  CHECK(log ==
        "Dial.xml,37257.500000,1234,a\\;DIAL.XML,37257.500000,1234,;"
        "dial.bmp,37257.500000,1234,;");
  CHECK(walk.answers == "02220");
  CHECK(modGauges::InstalledGauges.UpperBound() == 1);
  CHECK(modGauges::InstalledGauges.Row(0).key == "sample!Dial");
  CHECK(modGauges::CurrentCabFile == cab);

  log.clear();
  walk.answers.clear();
  CHECK(cab->GetInfo("A\\DIAL.xml"));
  CHECK(log == "Dial.xml,37257.500000,1234,a\\;");
  CHECK(walk.answers == "00");
  walk.answers.clear();
  CHECK(cab->GetInfo("a.xml"));
  CHECK(walk.answers == "02220");
}

TEST_CASE_FIXTURE(Fixture, "FileCount counts afresh at each read") {
  CHECK(cab->FileCount() == 3);
  CHECK(cab->FileCount() == 3);
  CHECK(walk.answers == "0222002220");
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
  CHECK(cab->GetXML() ==
        opening + file("a\\", "Dial.xml") + file("", "DIAL.XML") + file("", "dial.bmp") + closing);
  CHECK(cab->GetXML("dial.xml") == opening + file("a\\", "Dial.xml") + closing);
  CHECK(cab->GetXML("a\\dial.xml") == opening + closing);
}

TEST_CASE_FIXTURE(Fixture, "Extract announces, aims and reports each entry") {
  std::string cancelled;
  cab->BeforeExtract.Subscribe([&](const std::string& name, bool& Cancel) {
    log += "before " + name + ";";
    Cancel = name == cancelled;
  });
  cab->AfterExtract.Subscribe([&](const std::string& path) { log += "after " + path + ";"; });
  const std::string app = simulator.AppFolder();
  walk.entries = {"a\\b.gau", "c.gau", "..\\up.gau", "C:\\d.gau"};
  CHECK(cab->Extract());
  CHECK(walk.targets == std::vector<std::string>{app + "\\a\\b.gau", app + "\\c.gau"});
  CHECK(walk.answers == "011220");
  CHECK(log == "before a\\b.gau;after " + app + "\\a\\b.gau;before c.gau;after " + app +
                   "\\c.gau;before ..\\up.gau;before C:\\d.gau;");
  CHECK(std::filesystem::is_directory(simulator.App() / "a"));

  walk.targets.clear();
  cancelled = "c.gau";
  CHECK(cab->Extract("", app + "\\out\\", "same"));
  CHECK(walk.targets == std::vector<std::string>(3, app + "\\out\\same"));
  walk.targets.clear();
  CHECK(cab->Extract("A\\B.GAU", app + "\\out"));
  CHECK(walk.targets == std::vector<std::string>{app + "\\out\\a\\b.gau"});
  walk.targets.clear();
  CHECK(cab->Extract("b.gau"));
  CHECK(walk.targets.empty());

  walk.extraction_error = 112;
  CheckError(ErrorOf([&] { cab->Extract(); }), 112, "CabFile",
             "There is not enough space on the disk.");
}

TEST_CASE_FIXTURE(Fixture, "errors tell number, source and description") {
  const auto each = [&](std::int32_t number, const std::string& description) {
    CheckError(ErrorOf([&] { cab->FileCount(); }), number, "CabFile", description);
    CheckError(ErrorOf([&] { cab->Extract("none"); }), number, "CabFile", description);
    CheckError(ErrorOf([&] { cab->GetXML(); }), number, "CabFile.GetXML", description);
    CHECK_FALSE(cab->GetInfo());
  };
  walk.error = 2;
  each(2, "The system cannot find the file specified.");
  walk.error = 110;
  each(110, "Unknown error.");
  cab->CabName.clear();
  modGauges::SetCurrentCabFile(nullptr);
  each(-2147219548,
       "You must set the CabName property before taking any action on the CabFile object.");
  CHECK(modGauges::CurrentCabFile == nullptr);
  CHECK(modGauges::CabNotifyEntry(CabContextCount, SPFILENOTIFY_FILEINCABINET, 0, 0) == 0);
  CHECK(Win32ErrorText(123) ==
        "The filename, directory name, or volume label syntax is incorrect.");
  CHECK(CabErrorText(2) == "Unknown error.");
}

TEST_CASE_FIXTURE(Fixture, "an error inside a walk comes out with the callback's source") {
  CheckError(ErrorOf([&] { cab->Extract("", "", std::string(260, 'x')); }), 9,
             "CabFile.CabCallBack", "Subscript out of range");
  cab->BeforeExtract.Subscribe(
      [](const std::string&, bool&) { throw CabError(77, "subscriber", "Enough"); });
  CheckError(ErrorOf([&] { cab->Extract(); }), 77, "CabFile.CabCallBack", "Enough");

  GaugeTable& table = modGauges::InstalledGauges;
  table.Reset();
  while (table.UpperBound() < 32766) table.Add(simulator.Services().text, "", "g");
  walk.entries = {"one.xml", "two.xml", "three.xml"};
  modGauges::CurrentCabinet = "full";
  CHECK_FALSE(cab->GetInfo());
  CHECK(table.UpperBound() == 32767);
  CHECK(table.Row(32766).key == "full!one");
  CHECK(table.Row(32767).key == "full!two");
  table.Reset();
}

TEST_CASE("an object lives on while the program still refers to it") {
  Simulator simulator;
  std::weak_ptr<CABFile> seen;
  {
    const auto cab = CABFile::Create(simulator.Services());
    cab->CabName = simulator.AppFolder() + "\\none.cab";
    CheckError(ErrorOf([&] { cab->FileCount(); }), 2, "CabFile",
               "The system cannot find the file specified.");
    seen = cab;
  }
  CHECK_FALSE(seen.expired());
  modGauges::SetCurrentCabFile(nullptr);
  CHECK(seen.expired());
}

TEST_CASE("a real cabinet is extracted with its folders") {
  Simulator simulator;
  Put(simulator.App() / "real.cab",
      MakeCabinet({{"sub\\Speed.xml", "speed"}, {"Clock.xml", "clock"}, {"..\\evil.xml", "no"}}));
  const auto cab = CABFile::Create(simulator.Services());
  cab->CabName = simulator.AppFolder() + "\\REAL.CAB";
  CHECK(cab->Extract("", simulator.FSPath() + "\\Aircraft\\new\\deep"));
  CHECK(Tree(simulator.Fs()) == "Aircraft/new/deep/Clock.xml\nAircraft/new/deep/sub/Speed.xml\n");
  CHECK(Get(simulator.Fs() / "Aircraft" / "new" / "deep" / "sub" / "Speed.xml") == "speed");
}

TEST_CASE("an entry does not follow a link out of the output folder") {
  Simulator simulator;
  Put(simulator.App() / "x.cab",
      MakeCabinet({{"link\\deep\\evil.xml", "no"}, {"good.xml", "yes"}}));
  std::error_code error;
  std::filesystem::create_directory_symlink(simulator.App(), simulator.Fs() / "link", error);
  if (error) {
    MESSAGE("this user cannot make links");
    return;
  }
  const auto cab = CABFile::Create(simulator.Services());
  cab->CabName = simulator.AppFolder() + "\\x.cab";
  CHECK(cab->Extract("", simulator.FSPath()));
  CHECK(std::filesystem::exists(simulator.Fs() / "good.xml"));
  CHECK_FALSE(std::filesystem::exists(simulator.App() / "deep"));
}

TEST_CASE("MakeFolderPath makes what is missing from the top down") {
  Simulator simulator;
  Files& files = simulator.Services().files;
  const auto make = [&](std::string path) { return modGauges::MakeFolderPath(files, path); };
  const std::string app = simulator.AppFolder();
  CHECK_FALSE(make(""));
  CHECK(make(app));
  CHECK(make(app + "\\a\\b\\c\\"));
  CHECK(std::filesystem::is_directory(simulator.App() / "a" / "b" / "c"));
  Put(simulator.App() / "file", "x");
  CHECK_FALSE(make(app + "\\file\\below\\it"));
  CHECK(modGauges::AddBackslash("") == "\\");
  CHECK(modGauges::AddBackslash("a\\") == "a\\");
}

}  // namespace
}  // namespace panelkit::test
