// Folders and disks unlike a plain one of NTFS: clouds, network drives, exFAT, errors in the middle
// of a listing, long paths, and names that no file can have.
#include <doctest/doctest.h>

#include <set>

#include "gauges/gauge_mover.h"
#include "platform/disk.h"
#include "platform/windows/replaced_call.h"
#include "search/candidate_pool.h"
#include "search/content_check.h"
#include "search/installation.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

using NextCall = ReplacedCall<"FindNextFileW", BOOL(HANDLE, LPWIN32_FIND_DATAW)>;
using SecurityCall = ReplacedCall<"GetFileSecurityW", BOOL(LPCWSTR, SECURITY_INFORMATION,
                                                           PSECURITY_DESCRIPTOR, DWORD, LPDWORD)>;

/// A drive that gives all its files the same number.
struct SameNumbers
    : ReplacedCall<"GetFileInformationByHandle", BOOL(HANDLE, LPBY_HANDLE_FILE_INFORMATION)> {
  SameNumbers()
      : ReplacedCall([](HANDLE file, LPBY_HANDLE_FILE_INFORMATION information) {
          const BOOL result = System(file, information);
          information->dwVolumeSerialNumber = 0;
          information->nFileIndexHigh = 0;
          information->nFileIndexLow = 0;
          return result;
        }) {}
};

/// A walk's outcome and the names that it met: "a.gau b.gau, 1 unreadable".
std::string Walked(const Disk& disk) {
  struct : FolderVisitor {
    Step OnFolder(const std::string&, std::size_t) override { return Step::Enter; }
    bool Wants(std::string_view) override { return true; }
    void OnFile(const FoundFile& file) override {
      names += file.path.substr(file.path.rfind('\\') + 1) + ' ';
    }
    std::string names;
  } met;
  const auto outcome = disk.machine->Services().folders.Walk(disk.files.AppFolder(), met);
  return met.names + std::to_string(outcome.unreadable) + " unreadable";
}

/// Cleans, restores and installs in the folder `place`, and tells what moved.
std::string Round(const Disk& disk, const std::string& place) {
  const GaugeFolders folders{place + "\\Gauges", place + "\\SpareGauges"};
  REQUIRE(disk.files.MakeFolder(folders.gauges) == kFolderCreated);
  for (const char* name : {"\\b.CAB", "\\A.gau"}) {
    REQUIRE(disk.files.Replace(folders.gauges + name, name, Durability::Buffered) ==
            FileFault::None);
  }
  std::string told;
  const auto tell = [&told](const std::vector<std::string>& names) {
    for (const std::string& name : names) told += name + ' ';
    told += "| ";
  };
  const Text& text = disk.machine->Services().text;
  const auto restore = [&](const std::vector<std::string>& names) {
    return RestoreGauges(disk.files, text, {folders}, names, RestoreChoice::Own, {});
  };
  tell(ArchiveGauges(disk.files, text, folders, {"A", "b"}, {}).moved);
  tell(restore({kEveryGauge}).restored);
  for (const char* name : {"new.gau", "CON.gau", "aux.gau"}) {
    const bool installed =
        Install(disk.machine->Services(), {name, folders.gauges + "\\A.gau", {}, 0, 0},
                HashOf("\\A.gau"), folders.gauges) == InstallFault::None;
    told += installed ? std::string(name) + ' ' : "- ";
  }
  tell(restore({"NUL", "con.gau", "AUX.cab"}).failed);
  const auto gauges = disk.files.List(folders.gauges + "\\*", ListedEntries::PlainFiles);
  for (const ListedEntry& entry : *gauges) {
    told += entry.name + '=' + disk.files.Read(folders.gauges + "\\" + entry.name).bytes.value();
    CHECK(disk.files.Delete(folders.gauges + "\\" + entry.name));
  }
  return told;
}

}  // namespace

TEST_CASE_FIXTURE(Disk, "Links are symbolic links and junctions, not what lies in a cloud") {
  Put(folder / "tagged/inside.gau", "");
  Put(folder / "x.gau", "");
  DWORD tag = 0;
  const auto give_tag = [&tag](BOOL result, LPWIN32_FIND_DATAW found) {
    if (std::wstring_view(found->cFileName) == L"tagged") {
      found->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
      found->dwReserved0 = tag;
    }
    return result;
  };
  const ReplacedCall<"GetFileAttributesW", DWORD(LPCWSTR)> attributes([](LPCWSTR path) {
    const DWORD reparse = std::wstring_view(path).ends_with(L"tagged") ? 0x400 : 0;
    return decltype(attributes)::System(path) | reparse;
  });
  const ReplacedCall<"FindFirstFileW", HANDLE(LPCWSTR, LPWIN32_FIND_DATAW)> first(
      [&](LPCWSTR path, LPWIN32_FIND_DATAW found) {
        const HANDLE search = decltype(first)::System(path, found);
        give_tag(TRUE, found);
        return search;
      });
  const NextCall next([&](HANDLE search, LPWIN32_FIND_DATAW found) {
    return give_tag(NextCall::System(search, found), found);
  });
  constexpr DWORD kOneDrive = 0x9000601A;
  for (const DWORD link : {IO_REPARSE_TAG_SYMLINK, IO_REPARSE_TAG_MOUNT_POINT}) {
    tag = link;
    CHECK(files.IsLink(At("tagged")));
    CHECK(Walked(*this) == "x.gau 0 unreadable");
  }
  tag = kOneDrive;
  CHECK_FALSE(files.IsLink(At("tagged")));
  CHECK(Walked(*this) == "x.gau inside.gau 0 unreadable");
}

TEST_CASE_FIXTURE(Disk, "A folder that fails half way is not taken for a shorter one") {
  for (const char* name : {"a.gau", "b.gau"}) Put(folder / name, "");
  CHECK(Walked(*this) == "a.gau b.gau 0 unreadable");
  int entries = 3;
  const NextCall next([&entries](HANDLE search, LPWIN32_FIND_DATAW found) {
    if (--entries > 0) return NextCall::System(search, found);
    SetLastError(ERROR_UNEXP_NET_ERR);
    return FALSE;
  });
  CHECK(Walked(*this) == "1 unreadable");
  entries = 3;
  CHECK(List("*.gau", ListedEntries::PlainFiles) == "(none)");
}

TEST_CASE_FIXTURE(Disk, "A listing has its order also on disks that keep none") {
  for (const char* name : {"a.gau", "B.gau"}) Put(folder / name, "");
  const NextCall next([](HANDLE search, LPWIN32_FIND_DATAW found) {
    const BOOL more = NextCall::System(search, found);
    wchar_t& letter = found->cFileName[0];
    letter = letter == L'a' ? L'B' : letter == L'B' ? L'a' : letter;
    return more;
  });
  CHECK(List("*.gau", ListedEntries::PlainFiles) == "a.gau B.gau ");
}

TEST_CASE_FIXTURE(Disk, "What killed runs left is removed; others' files of such names are not") {
  const std::string own = ".panelkit-" + std::to_string(GetCurrentProcessId()) + "-7.tmp";
  const std::string stale = ".panelkit-4294967292-0.tmp";
  std::set<std::string> kept{
      ".panelkit-0x1-0.tmp",      ".panelkit-04294967292-0.tmp", ".panelkit-4294967292-0.tmp.tmp",
      ".panelkit-4294967292.tmp", ".panelkit-notes.tmp",         own};
  for (const std::string& name : kept) Put(folder / name, "");
  Put(folder / stale, "left");
  fs::permissions(folder / stale, fs::perms::owner_read);
  CHECK(files.Replace(At("x"), "new", Durability::Buffered) == FileFault::None);
  std::string names;
  for (const std::string& name : kept) names += name + '\n';
  CHECK(Tree(folder.Path()) == names + "x\n");
}

TEST_CASE_FIXTURE(Disk, "Clean, restore and install work alike on every disk") {
  const std::string all =
      "A.gau b.cab | A.gau b.CAB | new.gau - - NUL con.gau AUX.cab | A.gau=\\A.gaub.CAB=\\b.CAB"
      "new.gau=\\A.gau";
  SUBCASE("with long paths") {
    std::string path = files.AppFolder();
    for (int i = 0; i < 3; ++i) {
      path += '\\' + std::string(100, 'n');
      REQUIRE(files.MakeFolder(path) == kFolderCreated);
    }
    CHECK(Round(*this, path) == all);
  }
  SUBCASE("without rights, as exFAT is") {
    const SecurityCall no_rights([](auto...) {
      SetLastError(ERROR_INVALID_FUNCTION);
      return FALSE;
    });
    CHECK(Round(*this, files.AppFolder()) == all);
  }
  SUBCASE("that gives all files one number, as some shares do") {
    const SameNumbers same_numbers;
    CHECK(Round(*this, files.AppFolder()) == all);
    Put(folder / "x", "");
    fs::create_hard_link(folder / "x", folder / "y");
    CHECK(files.IsSame(At("x"), At("y")));
  }
}

}  // namespace panelkit::test
