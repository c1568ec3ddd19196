#include "platform/windows/new_file.h"

#include <charconv>

#include "platform/windows/native_file.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

constexpr std::string_view kTemporary = ".panelkit-";

/// The temporary files of one process; `number` tells them apart.
std::string TemporaryName(DWORD process, DWORD number) {
  return std::string(kTemporary) + std::to_string(process) + '-' + std::to_string(number) + ".tmp";
}

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
  // A name may be taken by what a killed process with our number left behind.
  for (DWORD number = 0;; ++number) {
    std::wstring temporary = FolderOf(path) + Wide(TemporaryName(GetCurrentProcessId(), number));
    if (AttributesOf(temporary) == INVALID_FILE_ATTRIBUTES) return temporary;
  }
}

void RemoveStaleBeside(const std::wstring& path) {
  const std::wstring folder = FolderOf(path);
  const auto found = Find(folder + Wide(kTemporary) + L"*.tmp");
  for (const WIN32_FIND_DATAW& entry : found.value_or(std::vector<WIN32_FIND_DATAW>())) {
    const std::string name = Utf8(entry.cFileName);
    const char* end = name.data() + name.size();
    DWORD process = 0;
    DWORD number = 0;
    const auto rest = std::from_chars(name.data() + kTemporary.size(), end, process).ptr;
    if (rest != end) std::from_chars(rest + 1, end, number);
    if (name != TemporaryName(process, number) || IsRunning(process)) continue;
    const std::wstring file = folder + entry.cFileName;
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(file.c_str());
  }
}

}  // namespace panelkit::windows
