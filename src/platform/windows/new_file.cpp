#include "platform/windows/new_file.h"

#include "platform/windows/native_file.h"

namespace panelkit::windows {
namespace {

constexpr const wchar_t* kTemporary = L".panelkit-";

std::wstring FolderOf(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\') + 1);
}

bool IsRunning(DWORD process_id) {
  const Handle process(OpenProcess(SYNCHRONIZE, FALSE, process_id));
  return process ? WaitForSingleObject(process.Get(), 0) == WAIT_TIMEOUT
                 : GetLastError() == ERROR_ACCESS_DENIED;
}

}  // namespace

NewFile::NewFile(std::wstring name, DWORD attributes)
    : name_(std::move(name)),
      file_(CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr)),
      discard_(static_cast<bool>(file_)) {}

NewFile::~NewFile() {
  file_.Close();
  if (discard_) DeleteFileW(name_.c_str());
}

bool NewFile::KeepAs(const std::wstring& name, const ShortLocks& locks) {
  file_.Close();
  const bool moved = locks.Try([&] {
    return MoveFileExW(name_.c_str(), name.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  });
  if (moved) discard_ = false;
  return moved;
}

std::wstring TemporaryPathBeside(const std::wstring& path) {
  const std::wstring stem =
      FolderOf(path) + kTemporary + std::to_wstring(GetCurrentProcessId()) + L'-';
  // A name may be taken by what a killed process with our number left behind.
  for (int number = 0;; ++number) {
    std::wstring temporary = stem + std::to_wstring(number) + L".tmp";
    if (AttributesOf(temporary) == INVALID_FILE_ATTRIBUTES) return temporary;
  }
}

void RemoveStaleBeside(const std::wstring& path) {
  const std::wstring folder = FolderOf(path);
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((folder + kTemporary + L"*.tmp").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::wstring name = found.cFileName;
    const DWORD process = wcstoul(name.c_str() + std::wstring(kTemporary).size(), nullptr, 10);
    if (!IsRunning(process)) {
      SetFileAttributesW((folder + name).c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW((folder + name).c_str());
    }
  } while (FindNextFileW(search, &found));
  FindClose(search);
}

}  // namespace panelkit::windows
