#include "platform/win32/folder_dialog.h"

#include <shlobj.h>
#include <wrl/client.h>

#include "platform/windows/own_folders.h"
#include "platform/windows/system_library.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

void BeginInDownloads(IFileOpenDialog& dialog) {
  const auto item_of = SystemCall<HRESULT WINAPI(PCWSTR, IBindCtx*, REFIID, void**)>(
      L"shell32.dll", "SHCreateItemFromParsingName");
  const std::wstring path = Wide(UserDownloadFolder());
  ComPtr<IShellItem> folder;
  if (item_of != nullptr && SUCCEEDED(item_of(path.c_str(), nullptr, IID_PPV_ARGS(&folder)))) {
    dialog.SetDefaultFolder(folder.Get());
  }
}

std::vector<std::string> Picked(IFileOpenDialog& dialog) {
  std::vector<std::string> paths;
  ComPtr<IShellItemArray> items;
  DWORD count = 0;
  if (FAILED(dialog.GetResults(&items)) || FAILED(items->GetCount(&count))) return paths;
  for (DWORD i = 0; i < count; ++i) {
    ComPtr<IShellItem> item;
    PWSTR path = nullptr;
    if (FAILED(items->GetItemAt(i, &item)) ||
        FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) {
      continue;
    }
    paths.push_back(Utf8(path));
    CoTaskMemFree(path);
  }
  return paths;
}

std::vector<std::string> AskOlderWindows(HWND window, const std::wstring& title) {
  BROWSEINFOW question{};
  question.hwndOwner = window;
  question.lpszTitle = title.c_str();
  question.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  const LPITEMIDLIST folder = SHBrowseForFolderW(&question);
  if (folder == nullptr) return {};
  wchar_t path[MAX_PATH] = {};
  const bool has_path = SHGetPathFromIDListW(folder, path) != FALSE;
  CoTaskMemFree(folder);
  return has_path ? std::vector{Utf8(path)} : std::vector<std::string>();
}

}  // namespace

std::vector<std::string> AskForFolders(HWND window, const std::string& title) {
  ComPtr<IFileOpenDialog> dialog;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(&dialog)))) {
    return AskOlderWindows(window, Wide(title));
  }
  DWORD options = 0;
  dialog->GetOptions(&options);
  dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_ALLOWMULTISELECT | FOS_FORCEFILESYSTEM);
  dialog->SetTitle(Wide(title).c_str());
  BeginInDownloads(*dialog.Get());
  return SUCCEEDED(dialog->Show(window)) ? Picked(*dialog.Get()) : std::vector<std::string>();
}

}  // namespace panelkit::windows
