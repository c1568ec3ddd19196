// Files where the system refuses, pretends, or gives way only after a while.
#include <doctest/doctest.h>

#include "brake/config_file.h"
#include "gauges/gauge_mover.h"
#include "platform/disk.h"
#include "platform/windows/handle.h"
#include "platform/windows/replaced_call.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

using CreateCall = ReplacedCall<"CreateFileW", HANDLE(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES,
                                                      DWORD, DWORD, HANDLE)>;
using MoveCall = ReplacedCall<"MoveFileExW", BOOL(LPCWSTR, LPCWSTR, DWORD)>;
using DeleteCall = ReplacedCall<"DeleteFileW", BOOL(LPCWSTR)>;
using WriteCall = ReplacedCall<"WriteFile", BOOL(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED)>;

template <class Result>
Result Refuse(DWORD error, Result result) {
  SetLastError(error);
  return result;
}

/// A folder in which no file can be made.
CreateCall::Replacement ClosedFolder(const fs::path& folder) {
  return [closed = folder.wstring()](auto name, auto access, auto share, auto security, auto how,
                                     auto flags, auto sample) {
    return how == CREATE_NEW && std::wstring(name).starts_with(closed)
               ? Refuse(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE)
               : CreateCall::System(name, access, share, security, how, flags, sample);
  };
}

/// Opens a file as a program that lets nobody else at it.
windows::Handle Hold(const fs::path& file) {
  return windows::Handle(
      CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

}  // namespace

TEST_CASE_FIXTURE(Disk, "A lock of half a second is waited for") {
  Put(folder / "GAUGES.HTM", "old");
  Put(folder / "a.gau", "gauge");
  const std::function<bool()> calls[] = {
      [this] { return files.Read(At("GAUGES.HTM")).bytes == "old"; },
      [this] {
        return files.Replace(At("GAUGES.HTM"), "new", Durability::Buffered) == FileFault::None;
      },
      [this] { return files.Copy(At("a.gau"), At("b.gau")); },
      [this] { return files.Rename(At("a.gau"), At("c.gau")); },
      [this] { return files.Delete(At("c.gau")); }};
  const char* held[] = {"GAUGES.HTM", "GAUGES.HTM", "a.gau", "a.gau", "c.gau"};
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    CAPTURE(i);
    auto holder = Hold(folder / held[i]);
    REQUIRE(holder);
    int pauses = 0;
    const ReplacedCall<"Sleep", void(DWORD)> pause([&](DWORD) {
      if (++pauses == 25) holder.Close();
    });
    CHECK(calls[i]());
    CHECK(pauses == 25);
  }
  CHECK(Tree(folder.Path()) == "GAUGES.HTM\nb.gau\n");
  // A pane that is slow to let go of the page: one more error in place of the sharing violation.
  int refusals = 20;
  const MoveCall slow([&refusals](LPCWSTR from, LPCWSTR to, DWORD flags) {
    return --refusals > 0 ? Refuse(refusals % 2 == 0 ? 1175 : ERROR_ACCESS_DENIED, FALSE)
                          : MoveCall::System(from, to, flags);
  });
  CHECK(files.Replace(At("b.gau"), "new", Durability::Flushed) == FileFault::None);
  CHECK(refusals == 0);
}

TEST_CASE_FIXTURE(Disk, "Why a file cannot be read or written is told, and it stays as it was") {
  Put(folder / "sub/x", "x");
  Put(folder / "read-only", "x");
  Put(folder / "held", "x");
  Put(folder / "full", "x");
  fs::permissions(folder / "read-only", fs::perms::owner_read);
  fs::resize_file(folder / "full", kLargestFile + 1);
  CHECK(files.Read(At("full")).fault == FileFault::TooLarge);
  fs::resize_file(folder / "full", 1);
  const auto holder = Hold(folder / "held");
  CHECK(files.Read(At("held")).fault == FileFault::InUse);
  const auto replaced = [this](const char* name) {
    return files.Replace(At(name), "new", Durability::Flushed);
  };
  CHECK(replaced("held") == FileFault::InUse);
  CHECK(replaced("sub") == FileFault::NotAFile);
  CHECK(files.Read(At("sub")).fault == FileFault::NotAFile);
  CHECK(replaced("absent\\x") == FileFault::Absent);
  CHECK(files.Read(At("absent")).fault == FileFault::Absent);
  CHECK(replaced("read-only") == FileFault::ReadOnly);
  {
    const WriteCall full([](auto...) { return Refuse(ERROR_DISK_FULL, FALSE); });
    CHECK(replaced("full") == FileFault::NoRoom);
  }
  const CreateCall closed(
      [](auto...) { return Refuse(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE); });
  CHECK(files.Read(At("full")).fault == FileFault::NoAccess);
  CHECK(replaced("full") == FileFault::NoAccess);
  CHECK(Tree(folder.Path()) == "full\nheld\nread-only\nsub/x\n");
}

TEST_CASE_FIXTURE(Disk, "A rewritten file keeps its rights and its creation time") {
  const std::wstring file = (folder / "fs2002.cfg").wstring();
  Put(file, "old");
  const auto rights = [&file] {
    std::vector<std::byte> record(1000);
    DWORD size = 1000;
    REQUIRE(GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, record.data(), size, &size));
    return record;
  };
  const auto of_new_file = rights();
  SECURITY_DESCRIPTOR everyone{};
  InitializeSecurityDescriptor(&everyone, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&everyone, TRUE, nullptr, FALSE);
  REQUIRE(SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, &everyone));
  const auto before = rights();
  REQUIRE(before != of_new_file);
  // Wine keeps no creation times.
  const ReplacedCall<"GetFileTime", BOOL(HANDLE, LPFILETIME, LPFILETIME, LPFILETIME)> get(
      [](HANDLE, LPFILETIME created, LPFILETIME, LPFILETIME) {
        *created = {11, 22};
        return TRUE;
      });
  FILETIME set_time{};
  const ReplacedCall<"SetFileTime", BOOL(HANDLE, const FILETIME*, const FILETIME*, const FILETIME*)>
      set([&set_time](HANDLE, const FILETIME* created, const FILETIME*, const FILETIME*) {
        set_time = *created;
        return TRUE;
      });
  CHECK(files.Replace(At("fs2002.cfg"), "new", Durability::Flushed) == FileFault::None);
  CHECK(Get(file) == "new");
  CHECK(rights() == before);
  CHECK(set_time.dwLowDateTime == 11);
  CHECK(set_time.dwHighDateTime == 22);
}

TEST_CASE_FIXTURE(Disk,
                  "What may be written but not replaced is written in place, and lost never") {
  const fs::path file = folder / "fs/fs2002.cfg";
  const std::string path = At("fs\\fs2002.cfg");
  const std::string old = "old, and of some length", longer(1000, 'n');
  for (const bool closed_folder : {true, false}) {
    CAPTURE(closed_folder);
    Put(file, old);
    const CreateCall create(closed_folder ? ClosedFolder(folder / "fs") : CreateCall::System);
    const MoveCall move([&](LPCWSTR from, LPCWSTR to, DWORD flags) {
      return std::wstring(to).ends_with(L"\\fs2002.cfg") ? Refuse(ERROR_ACCESS_DENIED, FALSE)
                                                         : MoveCall::System(from, to, flags);
    });
    // While the record is there, the file itself is written: half of it, where the disk fails.
    int failures = 0;
    const WriteCall write([&](auto handle, auto bytes, auto size, auto written, auto overlapped) {
      const bool fails = failures > 0 && Tree(folder.Path()).find(".rewrite") != std::string::npos;
      const BOOL done =
          WriteCall::System(handle, bytes, fails ? size / 2 : size, written, overlapped);
      return fails && failures-- > 0 ? Refuse(ERROR_CRC, FALSE) : done;
    });
    CHECK(files.Replace(path, longer, Durability::Flushed) == FileFault::Irreplaceable);
    CHECK(Get(file) == old);
    failures = 1;
    CHECK(RewriteConfig(files, path, old, longer) == FileFault::Other);
    CHECK(Get(file) == old);
    CHECK(Tree(folder.Path()) == "fs/fs2002.cfg\n");
    failures = 2;
    CHECK(RewriteConfig(files, path, old, longer) == FileFault::Other);
    CHECK(Get(file) != longer);
    CHECK(ReadConfig(files, path).bytes == longer);
    CHECK(Get(file) == longer);
    CHECK(Tree(folder.Path()) == "fs/fs2002.cfg\n");
    CHECK(RewriteConfig(files, path, longer, old) == FileFault::None);
    CHECK(Get(file) == old);
    CHECK(Tree(folder.Path()) == "fs/fs2002.cfg\n");
  }
}

TEST_CASE_FIXTURE(Disk, "A delete counts only if the file is gone; else nothing is lost by it") {
  Put(folder / "Gauges/a.gau", "gauge");
  Put(folder / "Gauges/b.gau", "gauge");
  Put(folder / "Gauges/c.gau", "the user's own");
  for (const char* name : {"a", "b", "c"}) Put(folder / "SpareGauges" / (name + ".gau"s), "older");
  fs::permissions(folder / "Gauges/a.gau", fs::perms::owner_read);
  const GaugeFolders folders{At("Gauges"), At("SpareGauges")};
  // As for a user whose private copy of a protected file goes away in its place; the protected one,
  // which shows then, may be another.
  const DeleteCall pretended([this](LPCWSTR path) {
    if (std::wstring(path).ends_with(L"\\Gauges\\c.gau")) Put(folder / "Gauges/c.gau", "protected");
    return std::wstring(path).ends_with(L"\\Gauges\\b.gau") ||
                   std::wstring(path).find(L"\\Gauges\\") == std::wstring::npos
               ? DeleteCall::System(path)
               : TRUE;
  });
  const MoveOutcome outcome = ArchiveGauges(files, *TextOf(1252), folders, {"a", "b", "c"}, {});
  CHECK(outcome.stayed == std::vector<std::string>{"a.gau", "c.gau"});
  CHECK(outcome.moved == std::vector<std::string>{"b.gau"});
  const fs::path older = folder / "SpareGauges/Older";  // Of the older b and c, with the time.
  CHECK(std::distance(fs::directory_iterator(older), {}) == 2);
  fs::remove_all(older);
  CHECK(Tree(folder.Path()) ==
        "Gauges/a.gau\nGauges/c.gau\nSpareGauges.txt\n"
        "SpareGauges/a.gau\nSpareGauges/b.gau\nSpareGauges/c.gau\n");
  CHECK(Get(folder / "SpareGauges/a.gau") == "older");
  CHECK(Get(folder / "SpareGauges/b.gau") == "gauge");
  CHECK(Get(folder / "SpareGauges/c.gau") == "the user's own");
  CHECK((GetFileAttributesW((folder / "Gauges/a.gau").c_str()) & FILE_ATTRIBUTE_READONLY) != 0);
}

TEST_CASE("A program folder that is closed to the user gives way to one of the user's own") {
  const CreateCall closed(
      [](auto...) { return Refuse(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE); });
  const auto machine = OpenLocalMachine({});
  const Files& files = machine->Services().files;
  CHECK(files.AppFolder().ends_with("\\Panelkit"));
  CHECK(files.AppFolder() == files.UserFolder());
  CHECK(files.IsFolder(files.UserFolder()));
}

}  // namespace panelkit::test
