#include "platform/windows/own_folders.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

#include "platform/browser.h"
#include "platform/windows/new_file.h"
#include "platform/windows/paths.h"
#include "platform/windows/virtualisation.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {

std::string UserFolderPath() {
  std::array<wchar_t, MAX_PATH> local{};
  const HRESULT found =
      SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, local.data());
  return SUCCEEDED(found) ? Utf8(local.data()) + "\\Panelkit" : std::string();
}

std::string UserFolder() {
  const std::string folder = UserFolderPath();
  const bool is_there = CreateDirectoryW(FilePath(folder).c_str(), nullptr) != 0 ||
                        GetLastError() == ERROR_ALREADY_EXISTS;
  return is_there ? folder : std::string();
}

std::string UserDownloadFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_PROFILE, nullptr, 0, folder.data()))) {
    const std::wstring downloads = std::wstring(folder.data()) + L"\\Downloads";
    const DWORD attributes = GetFileAttributesW(downloads.c_str());
    const bool is_folder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (is_folder) return Utf8(downloads);
  }
  const bool has_desktop =
      SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, 0, folder.data()));
  return has_desktop ? Utf8(folder.data()) : std::string();
}

bool CanWriteTo(const std::string& folder) {
  const FilesOfAllUsers files_of_all;
  // Deleted by the system with its handle, so that a killed process leaves nothing.
  const NewFile probe(TemporaryPathBeside(FilePath(folder) + L"\\"),
                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE);
  return probe.IsThere();
}

void LayPicturesBeside(const std::string& folder) {
  const std::string program_folder = FolderOfProgram();
  if (folder == program_folder) return;
  for (const std::string_view picture : kPagePictures) {
    const std::string name = '\\' + std::string(picture);
    CopyFileW(FilePath(program_folder + name).c_str(), FilePath(folder + name).c_str(), TRUE);
  }
}

}  // namespace panelkit::windows
