// What only Windows has: long paths, its command line, and dates as its control panel sets them.
#include <doctest/doctest.h>

#include "platform/disk.h"
#include "platform/terminal.h"
#include "platform/windows/paths.h"
#include "platform/windows/replaced_call.h"

namespace panelkit::test {
namespace {

TEST_CASE_FIXTURE(Disk, "Paths beyond 260 characters are paths like others") {
  // Wine has no such limit.
  const ReplacedCall<"CreateFileW",
                     HANDLE(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE)>
      create([](LPCWSTR name, auto... others) {
        CHECK((std::wstring_view(name).starts_with(L"\\\\?\\") || wcslen(name) < MAX_PATH));
        return decltype(create)::System(name, others...);
      });
  std::string path = files.AppFolder();
  for (int i = 0; i < 3; ++i) {
    path += '\\' + std::string(100, 'n');
    REQUIRE(files.MakeFolder(path) == kFolderCreated);
  }
  for (const char* bytes : {"1", "2"}) {
    CHECK(files.Replace(path + "\\a.gau", bytes, Durability::Flushed) == FileFault::None);
  }
  CHECK(files.Copy(path + "\\a.gau", path + "\\b.gau"));
  CHECK(files.Read(path + "\\b.gau").bytes == "2");
  CHECK(files.List(path + "\\*.gau", ListedEntries::PlainFiles)->size() == 2);
  for (const char* file : {"\\a.gau", "\\b.gau"}) CHECK(files.Delete(path + file));
}

TEST_CASE_FIXTURE(Disk, "Paths freed from that limit are those that users and services know") {
  CHECK(machine->WindowsPath("\\\\?\\UNC\\server\\share\\x") == "\\\\server\\share\\x");
  CHECK(machine->WindowsPath("\\\\?\\C:\\x") == "C:\\x");
  const ReplacedCall<"GetModuleFileNameW", DWORD(HMODULE, LPWSTR, DWORD)> started_from_a_share(
      [](HMODULE, LPWSTR file, DWORD) {
        const std::wstring path = L"\\\\?\\UNC\\server\\share\\Panelkit\\Panelkit.exe";
        return static_cast<DWORD>(path.copy(file, path.size()));
      });
  CHECK(windows::FolderOfProgram() == "\\\\server\\share\\Panelkit");
}

TEST_CASE("A folder's closing backslash does not swallow the rest of the command line") {
  static std::wstring line;
  const ReplacedCall<"GetCommandLineW", LPWSTR()> typed([] { return line.data(); });
  line =
      L"  \"C:\\Program Files\\console.exe\"\t--simulator  \"C:\\FS 2002\\\" probe \"\" H\u00F6he";
  CHECK(terminal::Arguments(0, nullptr) ==
        std::vector<std::string>{"C:\\Program Files\\console.exe", "--simulator", "C:\\FS 2002\\",
                                 "probe", "", "Höhe"});
}

TEST_CASE_FIXTURE(Disk, "A date's text has the short date and the long time, also at midnight") {
  const DateStamps& dates = machine->Services().dates;
  CHECK(dates.DateText(37257.5) == "1/1/2002 12:00:00 PM");
  CHECK(dates.DateText(37257.0) == "1/1/2002 12:00:00 AM");
  CHECK(dates.DateText(0) == "12/30/1899 12:00:00 AM");
}

}  // namespace
}  // namespace panelkit::test
