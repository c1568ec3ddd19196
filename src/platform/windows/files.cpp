#include <windows.h>

#include "platform/windows/file_replacement.h"
#include "platform/windows/native_file.h"
#include "platform/windows/new_file.h"
#include "platform/windows/own_folders.h"
#include "platform/windows/paths.h"
#include "platform/windows/virtualisation.h"
#include "platform/windows/windows_machine.h"

namespace panelkit::windows {
namespace {

/// MakeFolder's number for failures that the program does not tell apart.
constexpr int kOtherFailure = 57;

}  // namespace

bool WindowsFiles::IsFolder(std::string_view path) const {
  return Has(AttributesOf(FilePath(path)), FILE_ATTRIBUTE_DIRECTORY);
}

bool WindowsFiles::IsPlainFile(std::string_view path) const {
  const DWORD attributes = AttributesOf(FilePath(path));
  return attributes != INVALID_FILE_ATTRIBUTES &&
         !Has(attributes, FILE_ATTRIBUTE_DIRECTORY | kHiddenOrSystem);
}

bool WindowsFiles::Exists(std::string_view path) const {
  return AttributesOf(FilePath(path)) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsFiles::IsSame(std::string_view path, std::string_view other) const {
  return IsSameFile(FilePath(path), FilePath(other));
}

bool WindowsFiles::IsLink(std::string_view path) const {
  return windows::IsLink(FilePath(path));
}

std::string WindowsFiles::UserFolder() const {
  return windows::UserFolder();
}

FileContent WindowsFiles::Read(std::string_view path) const {
  return ReadPlainFile(FilePath(path), locks_);
}

FileFault WindowsFiles::Replace(std::string_view path, std::string_view bytes,
                                Durability durability) {
  return ReplaceContent(FilePath(path), bytes, durability, locks_);
}

FileFault WindowsFiles::Overwrite(std::string_view path, std::string_view bytes) {
  return OverwriteContent(FilePath(path), bytes, locks_);
}

void WindowsFiles::Append(std::string_view path, std::string_view bytes) {
  const std::wstring name = FilePath(path);
  const Handle file = locks_.Try([&name] {
    return Handle(CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  });
  if (!file || SetFilePointer(file.Get(), 0, nullptr, FILE_END) == INVALID_SET_FILE_POINTER) return;
  if (WriteAll(file.Get(), bytes)) FlushFileBuffers(file.Get());
}

int WindowsFiles::MakeFolder(std::string_view path) {
  const std::wstring folder = FilePath(path);
  if (folder.empty()) return kOtherFailure;
  if (CreateDirectoryW(folder.c_str(), nullptr)) return kFolderCreated;
  switch (GetLastError()) {
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_ACCESS_DENIED:
      return kFolderExistsOrNoAccess;
    case ERROR_PATH_NOT_FOUND:
      return kFolderParentMissing;
    default:
      return kOtherFailure;
  }
}

bool WindowsFiles::Copy(std::string_view source, std::string_view target) {
  return CopyPlainFile(FilePath(source), FilePath(target), locks_);
}

bool WindowsFiles::Rename(std::string_view from, std::string_view to) {
  const std::wstring source = FilePath(from);
  const std::wstring target = FilePath(to);
  if (source.empty() || target.empty() || !MoveOver(source, target, locks_)) return false;
  if (SpelledAsOnDisk(target) == target) return true;
  // Wine leaves the spelling of a file that gave way.
  const std::wstring between = TemporaryPathBeside(target);
  return MoveOver(target, between, locks_) && MoveOver(between, target, locks_);
}

bool WindowsFiles::Delete(std::string_view path) {
  const std::wstring file = FilePath(path);
  const DWORD attributes = AttributesOf(file);
  if (attributes == INVALID_FILE_ATTRIBUTES || Has(attributes, FILE_ATTRIBUTE_DIRECTORY)) {
    return false;
  }
  const Seen seen = OthersSee(file);
  if (seen == Seen::Another) return false;  // It would show in the place of the deleted one.
  std::optional<FilesOfAllUsers> files_of_all;
  if (seen == Seen::TheSame) files_of_all.emplace();
  if (Has(attributes, FILE_ATTRIBUTE_READONLY)) {
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  const bool deleted = locks_.Try([&file] { return DeleteFileW(file.c_str()) != 0; });
  const DWORD attributes_now = AttributesOf(file);
  if (deleted && attributes_now == INVALID_FILE_ATTRIBUTES) return true;
  if (attributes_now != attributes) SetFileAttributesW(file.c_str(), attributes);
  return false;
}

std::shared_ptr<void> WindowsFiles::Lock(std::string_view folder) {
  // Folders take no locks. The system deletes this file even if the process is killed.
  const std::wstring path = FilePath(std::string(folder) + R"(\panelkit.lock)");
  const auto open = [&path] {
    return Handle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  };
  for (;;) {
    if (Handle file = locks_.Try(open)) return std::make_shared<Handle>(std::move(file));
    if (GetLastError() != ERROR_SHARING_VIOLATION) return nullptr;
  }
}

}  // namespace panelkit::windows
