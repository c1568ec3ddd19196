// The cabinet service of Windows where it differs between systems, or fails.
#include <windows.h>

#include <doctest/doctest.h>

#include "platform/cabinet_walks.h"
#include "platform/windows/replaced_call.h"

// Defines the names of cabinet_walk.h's constants as macros, so it comes last.
#include <setupapi.h>

namespace panelkit::test {
namespace {

using Service =
    ReplacedCall<"SetupIterateCabinetA", BOOL(PCSTR, DWORD, PSP_FILE_CALLBACK_A, PVOID)>;

}  // namespace

TEST_CASE_FIXTURE(CabinetWalks, "A cabinet is named to the service as it takes names, or not") {
  std::string named;
  const Service service([&named](PCSTR path, DWORD, PSP_FILE_CALLBACK_A, PVOID) {
    named = path;
    return TRUE;
  });
  const std::string folder_name(225 - At("").size(), 'n');
  Put(folder / (folder_name + "/x.cab"), "");
  CHECK(Walk(folder_name + "\\x.cab") == "ok");
  CHECK(named == At(folder_name + "\\x.cab"));
  Put(folder / "計器.cab", "");
  const NoShortNames no_short_names;
  CHECK(Walk("計器.cab") == "error 123");
}

TEST_CASE_FIXTURE(CabinetWalks, "A next cabinet that is not there is asked for once") {
  int asked = 0;
  const Service service([&asked](PCSTR, DWORD, PSP_FILE_CALLBACK_A notify, PVOID context) {
    CABINET_INFO_A next{};
    next.CabinetFile = "y.cab";
    char place[MAX_PATH] = {};
    while (asked < 100 &&
           notify(context, SPFILENOTIFY_NEEDNEWCABINET, reinterpret_cast<UINT_PTR>(&next),
                  reinterpret_cast<UINT_PTR>(place)) == 0) {
      ++asked;
    }
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
  });
  CHECK(WalkBytes("cabinet") == "next?\nerror 2");
  CHECK(asked == 1);
}

TEST_CASE_FIXTURE(CabinetWalks, "No half-written file stands under an entry's name") {
  Put(folder / "out/a.xml", "from before");
  DWORD error = ERROR_DISK_FULL;
  std::string seen;
  const Service service([&](PCSTR, DWORD, PSP_FILE_CALLBACK_A notify, PVOID context) {
    FILE_IN_CABINET_INFO_A entry{};
    entry.NameInCabinet = "a.xml";
    REQUIRE(notify(context, SPFILENOTIFY_FILEINCABINET, reinterpret_cast<UINT_PTR>(&entry), 0) ==
            FILEOP_DOIT);
    Put(entry.FullTargetName, "half");
    seen += Get(folder / "out/a.xml") + '|';
    if (error == ERROR_SUCCESS) Put(entry.FullTargetName, "whole");
    const FILEPATHS_A outcome{entry.FullTargetName, "x.cab", error, 0};
    return BOOL{
        notify(context, SPFILENOTIFY_FILEEXTRACTED, reinterpret_cast<UINT_PTR>(&outcome), 0) == 0};
  });
  CHECK(WalkBytes("cabinet", ExtractTo("out\\*")).ends_with("out\\a.xml 112\nerror 112"));
  CHECK(Get(folder / "out/a.xml") == "from before");
  error = ERROR_SUCCESS;
  CHECK(WalkBytes("cabinet", ExtractTo("out\\*")).ends_with("out\\a.xml 0\nok"));
  CHECK(Get(folder / "out/a.xml") == "whole");
  CHECK(seen == "from before|from before|");
  CHECK(Tree(folder / "out") == "a.xml\n");
}

}  // namespace panelkit::test
