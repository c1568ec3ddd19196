// A user whom Windows gives private copies of the files under "Program Files".
#include <doctest/doctest.h>

#include "gauges/gauge_mover.h"
#include "platform/disk.h"
#include "platform/windows/replaced_call.h"
#include "support/machine_here.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

/// Below "Program Files" each call is led to "VirtualStore" or, while the process wants the files
/// of all users, refused if it would change anything.
struct VirtualStore : Disk {
  using Names = std::vector<std::string>;

  VirtualStore() { fs::create_directories(folder / "VirtualStore/Gauges"); }

  /// Where a call for a path leads; empty if it is refused.
  std::wstring Led(const wchar_t* path, bool to_change) const {
    static const std::wstring marker = L"\\Program Files\\";
    std::wstring name = path;
    const std::size_t at = name.find(marker);
    if (at == std::wstring::npos || (!is_on && !to_change)) return name;
    if (!is_on) {
      SetLastError(ERROR_ACCESS_DENIED);
      return {};
    }
    const std::wstring copy =
        name.substr(0, at) + L"\\VirtualStore\\" + name.substr(at + marker.size());
    const bool is_folder = fs::is_directory(name);
    if (to_change && !is_folder && fs::exists(name) && !fs::exists(copy)) fs::copy_file(name, copy);
    return !is_folder && (to_change || fs::exists(copy)) ? copy : name;
  }

  template <FunctionName name, class Signature>
  struct LedCall;
  template <FunctionName name, class Result, class... Others>
  struct LedCall<name, Result(LPCWSTR, Others...)>
      : ReplacedCall<name, Result(LPCWSTR, Others...)> {
    LedCall(VirtualStore& store, bool changes)
        : ReplacedCall<name, Result(LPCWSTR, Others...)>(
              [&store, changes](LPCWSTR path, Others... others) {
                const std::wstring led = store.Led(path, changes);
                return led.empty() ? Result{} : LedCall::System(led.c_str(), others...);
              }) {}
  };

  bool is_on = true;
  LedCall<"DeleteFileW", BOOL(LPCWSTR)> deletes{*this, true};
  LedCall<"SetFileAttributesW", BOOL(LPCWSTR, DWORD)> changes{*this, true};
  LedCall<"GetFileAttributesW", DWORD(LPCWSTR)> attributes{*this, false};
  LedCall<"FindFirstFileW", HANDLE(LPCWSTR, LPWIN32_FIND_DATAW)> finds{*this, false};
  LedCall<"GetFileSecurityW",
          BOOL(LPCWSTR, SECURITY_INFORMATION, PSECURITY_DESCRIPTOR, DWORD, LPDWORD)>
      rights{*this, false};
  using Create = ReplacedCall<"CreateFileW", HANDLE(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES,
                                                    DWORD, DWORD, HANDLE)>;
  Create creates{[this](LPCWSTR path, DWORD access, auto... others) {
    const std::wstring led = Led(path, (access & GENERIC_WRITE) != 0);
    return led.empty() ? INVALID_HANDLE_VALUE : Create::System(led.c_str(), access, others...);
  }};
  using Copy = ReplacedCall<"CopyFileW", BOOL(LPCWSTR, LPCWSTR, BOOL)>;
  Copy copies{[this](LPCWSTR from, LPCWSTR to, BOOL only_new) {
    const std::wstring led = Led(to, true);
    return led.empty() ? FALSE : Copy::System(Led(from, false).c_str(), led.c_str(), only_new);
  }};
  using Move = ReplacedCall<"MoveFileExW", BOOL(LPCWSTR, LPCWSTR, DWORD)>;
  Move moves{[this](LPCWSTR from, LPCWSTR to, DWORD flags) {
    const std::wstring led = Led(to, true);
    return led.empty() ? FALSE : Move::System(Led(from, true).c_str(), led.c_str(), flags);
  }};
  ReplacedCall<"GetTokenInformation", BOOL(HANDLE, TOKEN_INFORMATION_CLASS, LPVOID, DWORD, PDWORD)>
      asks{[this](HANDLE, TOKEN_INFORMATION_CLASS asked, LPVOID answer, DWORD, PDWORD) {
        REQUIRE(asked == TokenVirtualizationEnabled);
        *static_cast<DWORD*>(answer) = is_on ? 1 : 0;
        return TRUE;
      }};
  ReplacedCall<"SetTokenInformation", BOOL(HANDLE, TOKEN_INFORMATION_CLASS, LPVOID, DWORD)> sets{
      [this](HANDLE, TOKEN_INFORMATION_CLASS set, LPVOID value, DWORD) {
        REQUIRE(set == TokenVirtualizationEnabled);
        is_on = *static_cast<DWORD*>(value) != 0;
        return TRUE;
      }};
};

}  // namespace

TEST_CASE_FIXTURE(VirtualStore, "Clean moves what only this user has, and leaves what others see") {
  for (const char* name : {"shared", "both"}) {
    Put(folder / "Program Files/Gauges" / (std::string(name) + ".gau"), "everyone's");
  }
  for (const char* name : {"both", "own"}) {
    Put(folder / "VirtualStore/Gauges" / (std::string(name) + ".gau"), "this user's");
  }
  const fs::path shared = folder / "Program Files/Gauges/shared.gau";
  fs::permissions(shared, fs::perms::owner_read);
  const MoveOutcome outcome =
      ArchiveGauges(files, *TextOf(1252), {At("Program Files\\Gauges"), At("SpareGauges")},
                    {"shared", "both", "own"}, {});
  CHECK(outcome.stayed == Names{"shared.gau", "both.gau"});
  CHECK(outcome.moved == Names{"own.gau"});
  CHECK(Tree(folder.Path()) ==
        "Program Files/Gauges/both.gau\nProgram Files/Gauges/shared.gau\n"
        "SpareGauges.txt\nSpareGauges/own.gau\n"
        "VirtualStore/Gauges/both.gau\n");
  CHECK(Get(folder / "SpareGauges/own.gau") == "this user's");
  CHECK((GetFileAttributesW(shared.c_str()) & FILE_ATTRIBUTE_READONLY) != 0);
  CHECK(is_on);
}

TEST_CASE_FIXTURE(VirtualStore, "No gauge is restored or installed for this user alone") {
  Put(folder / "SpareGauges/a.gau", "gauge");
  fs::create_directories(folder / "Program Files/Gauges");
  const GaugeFolders folders{At("Program Files\\Gauges"), At("SpareGauges")};
  const RestoreOutcome outcome =
      RestoreGauges(files, *TextOf(1252), {folders}, {"a"}, RestoreChoice::Own, {});
  CHECK(outcome.failed == Names{"a.gau"});
  CHECK(outcome.restored.empty());
  CHECK_FALSE(CopyGauge(files, At("SpareGauges\\a.gau"), folders.gauges, "b.gau"));
  CHECK(Tree(folder.Path()) == "SpareGauges/a.gau\n");
}

TEST_CASE_FIXTURE(VirtualStore, "The brake writes this user's copy; own files lie where all look") {
  Put(folder / "Program Files/fs2002.cfg", "everyone's");
  const std::string config = At("Program Files\\fs2002.cfg");
  CHECK(files.Replace(config, "this user's", Durability::Flushed) == FileFault::None);
  CHECK(files.Read(config).bytes == "this user's");
  CHECK(Tree(folder.Path()) == "Program Files/fs2002.cfg\nVirtualStore/fs2002.cfg\n");
  CHECK(Get(folder / "Program Files/fs2002.cfg") == "everyone's");
  const auto installed = OpenMachineAt({}, folder / "Program Files");
  CHECK(installed->Services().files.AppFolder() == files.UserFolder());
}

}  // namespace panelkit::test
