#include "platform/windows/windows_machine.h"

#include <windows.h>

#include "platform/windows/archives.h"
#include "platform/windows/cabinet_walk.h"
#include "platform/windows/date_stamps.h"
#include "platform/windows/files.h"
#include "platform/windows/folder_walk.h"
#include "platform/windows/paths.h"
#include "platform/windows/registry.h"
#include "platform/windows/text.h"
#include "platform/windows/wide.h"

namespace panelkit {
namespace windows {
namespace {

class ThisWindows : public LocalMachine {
 public:
  explicit ThisWindows(std::string app_folder)
      : text_(GetACP()), registry_(text_), files_(std::move(app_folder), text_), cabinets_(text_), archives_(text_) {}

  Machine Services() override { return {registry_, files_, text_, cabinets_, dates_, folders_, archives_}; }
  std::string Origin() const override { return "the registry of this Windows"; }

  std::string WindowsPath(std::string_view typed) const override {
    const std::wstring full = FullPath(typed);
    return full.empty() ? std::string(typed) : Utf8(full);
  }

  std::string NativePath(std::string_view windows_path) const override {
    return std::string(windows_path);
  }

  std::string PictureFolder() const override { return files_.AppFolder(); }
  std::string AppFolderOrigin() const override { return "the program's own folder"; }
  std::vector<std::string> FoldersOfOwnFiles() const override { return {files_.AppFolder()}; }

  /// The names that the web gives to code pages which are not simply numbered.
  std::string Charset() const override {
    switch (const UINT page = GetACP()) {
      case 932:
        return "shift_jis";
      case 936:
        return "gbk";
      case 949:
        return "euc-kr";
      case 950:
        return "big5";
      case 54936:
        return "gb18030";
      case CP_UTF8:
        return "utf-8";
      default:
        return "windows-" + std::to_string(page);
    }
  }

 private:
  WindowsText text_;
  WindowsRegistry registry_;
  WindowsFiles files_;
  WindowsCabinetWalk cabinets_;
  WindowsDateStamps dates_;
  WindowsFolderWalk folders_;
  WindowsArchives archives_;
};

}  // namespace

std::unique_ptr<LocalMachine> OpenWindows(std::string app_folder) {
  return std::make_unique<ThisWindows>(std::move(app_folder));
}

}  // namespace windows

// There is one registry to choose from.
std::unique_ptr<LocalMachine> OpenLocalMachine(const std::function<bool(const Machine&)>&) {
  return windows::OpenWindows(windows::FolderOfProgram());
}

std::vector<std::unique_ptr<LocalMachine>> OpenLocalMachines(const std::string& prefix) {
  std::vector<std::unique_ptr<LocalMachine>> machines;
  if (prefix.empty()) machines.push_back(windows::OpenWindows(windows::FolderOfProgram()));
  return machines;
}

}  // namespace panelkit
