#include "platform/windows/file_replacement.h"

#include <optional>
#include <vector>

#include "platform/windows/native_file.h"
#include "platform/windows/new_file.h"
#include "platform/windows/paths.h"
#include "platform/windows/virtualisation.h"

namespace panelkit::windows {
namespace {

/// Attributes that a rewritten file keeps.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// Attributes that stop calls which would replace the file.
constexpr DWORD kProtecting =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

/// Where a link ends. A Windows that cannot tell has no links of files either.
std::wstring BehindLinks(const std::wstring& path) {
  const std::wstring end = FinalPath(OpenAny(path));
  return end.empty() ? path : end;
}

/// Owner, group or access rights of a file, as a self-relative record; nullopt if they are closed
/// to us or the file system has none.
std::optional<std::vector<std::byte>> SecurityOf(const std::wstring& path,
                                                 SECURITY_INFORMATION parts) {
  DWORD size = 0;
  GetFileSecurityW(path.c_str(), parts, nullptr, 0, &size);
  std::vector<std::byte> record(size);
  if (size == 0 || !GetFileSecurityW(path.c_str(), parts, record.data(), size, &size)) {
    return std::nullopt;
  }
  return record;
}

/// Gives the new file the old one's owner and access rights. False if they cannot be kept.
bool TakeOverSecurity(const std::wstring& from, const std::wstring& to) {
  constexpr SECURITY_INFORMATION kOwner = OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION;
  auto rights = SecurityOf(from, DACL_SECURITY_INFORMATION);
  auto owner = SecurityOf(from, kOwner);
  if (!rights && !owner) {
    const DWORD error = GetLastError();
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION;
  }
  if (!rights || !owner) return false;
  if (owner != SecurityOf(to, kOwner) && !SetFileSecurityW(to.c_str(), kOwner, owner->data())) {
    return false;
  }
  if (rights == SecurityOf(to, DACL_SECURITY_INFORMATION)) return true;
  // Rights that the folder hands down are marked as such, and stay so only when that is asked for.
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (GetSecurityDescriptorControl(rights->data(), &control, &revision) &&
      (control & SE_DACL_AUTO_INHERITED) != 0) {
    SetSecurityDescriptorControl(rights->data(), SE_DACL_AUTO_INHERIT_REQ,
                                 SE_DACL_AUTO_INHERIT_REQ);
  }
  return SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights->data()) != 0;
}

/// Writes the whole content to a new file. Gives the fault, or None.
FileFault Fill(const NewFile& file, std::string_view bytes, Durability durability) {
  const bool filled = file.IsThere() && WriteAll(file.Get(), bytes) &&
                      (durability != Durability::Flushed || file.Flush());
  return filled ? FileFault::None : FaultOf(GetLastError());
}

FileFault CreateWhole(const std::wstring& path, std::string_view bytes, Durability durability,
                      const ShortLocks& locks) {
  NewFile file(TemporaryPathBeside(path), FILE_ATTRIBUTE_NORMAL);
  if (const FileFault fault = Fill(file, bytes, durability); fault != FileFault::None) return fault;
  return file.KeepAs(path, locks) ? FileFault::None : FaultOf(GetLastError());
}

/// Read-only, hidden and system files stop a call that would replace them.
void MakeReplaceable(const std::wstring& path) {
  const DWORD attributes = AttributesOf(path);
  if (Has(attributes, kProtecting) && !Has(attributes, FILE_ATTRIBUTE_DIRECTORY)) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

/// Flushes a copy to the disk; a read-only one is made writable for the length of the call.
bool FlushCopy(const std::wstring& path, const ShortLocks& locks) {
  const DWORD attributes = AttributesOf(path);
  const bool read_only = Has(attributes, FILE_ATTRIBUTE_READONLY);
  if (read_only) SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
  bool flushed = false;
  {
    const Handle file = locks.Try([&path] { return Open(path, GENERIC_WRITE, 0); });
    flushed = file && FlushFileBuffers(file.Get()) != 0;
  }
  if (read_only) SetFileAttributesW(path.c_str(), attributes);
  return flushed;
}

}  // namespace

FileFault ReplaceContent(const std::wstring& path, std::string_view bytes, Durability durability,
                         const ShortLocks& locks) {
  if (path.empty()) return FileFault::Absent;
  RemoveStaleBeside(path);
  if (AttributesOf(path) == INVALID_FILE_ATTRIBUTES) {
    return CreateWhole(path, bytes, durability, locks);
  }
  const std::wstring target = SpelledAsOnDisk(IsLink(path) ? BehindLinks(path) : path);
  const DWORD attributes = AttributesOf(target);
  if (Has(attributes, FILE_ATTRIBUTE_READONLY) && !Has(attributes, FILE_ATTRIBUTE_DIRECTORY)) {
    return FileFault::ReadOnly;
  }
  // Only a file that may be written is to be replaced.
  FILETIME created{};
  {
    const Handle old =
        locks.Try([&] { return Open(target, GENERIC_WRITE | FILE_READ_ATTRIBUTES, 0); });
    if (!old) return FaultOf(GetLastError());
    if (GetFileType(old.Get()) != FILE_TYPE_DISK) return FileFault::NotAFile;
    GetFileTime(old.Get(), &created, nullptr, nullptr);
  }
  NewFile file(TemporaryPathBeside(target), attributes & kKeptAttributes);
  if (file.IsThere()) {
    if (const FileFault fault = Fill(file, bytes, durability); fault != FileFault::None) {
      return fault;
    }
    SetFileTime(file.Get(), &created, nullptr, nullptr);
    if (TakeOverSecurity(target, file.Name()) && file.KeepAs(target, locks)) {
      return FileFault::None;
    }
  }
  return FileFault::Irreplaceable;
}

FileFault OverwriteContent(const std::wstring& path, std::string_view bytes,
                           const ShortLocks& locks) {
  const Handle file = locks.Try([&path] { return Open(path, GENERIC_WRITE, 0); });
  if (!file) return FaultOf(GetLastError());
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return FileFault::NotAFile;
  const bool written = WriteAll(file.Get(), bytes) && SetEndOfFile(file.Get()) != 0 &&
                       FlushFileBuffers(file.Get()) != 0;
  return written ? FileFault::None : FaultOf(GetLastError());
}

bool CopyPlainFile(const std::wstring& source, const std::wstring& target,
                   const ShortLocks& locks) {
  constexpr DWORD kFolder = FILE_ATTRIBUTE_DIRECTORY;
  if (source.empty() || target.empty() || Has(AttributesOf(source), kFolder) ||
      Has(AttributesOf(target), kFolder) || IsSameFile(source, target)) {
    return false;
  }
  MakeReplaceable(target);
  const bool copied =
      locks.Try([&] { return CopyFileW(source.c_str(), target.c_str(), FALSE) != 0; });
  if (copied && FlushCopy(target, locks) && OthersSee(target) == Seen::TheSame) return true;
  MakeReplaceable(target);
  DeleteFileW(target.c_str());
  return false;
}

bool MoveOver(const std::wstring& from, const std::wstring& to, const ShortLocks& locks) {
  if (Has(AttributesOf(to), FILE_ATTRIBUTE_DIRECTORY)) {
    SetLastError(ERROR_DIRECTORY);
    return false;
  }
  if (!IsSameFile(from, to)) MakeReplaceable(to);
  return locks.Try([&] {
    return MoveFileExW(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  });
}

}  // namespace panelkit::windows
