#include "platform/windows/windows_machine.h"

#include <windows.h>

#include "platform/windows/archives.h"
#include "platform/windows/own_folders.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"

namespace panelkit {
namespace windows {
namespace {

class ThisWindows : public LocalMachine {
 public:
  explicit ThisWindows(std::string program_folder)
      : program_folder_(std::move(program_folder)),
        text_(GetACP()),
        registry_(text_),
        files_(ChosenAppFolder(program_folder_), text_, locks_),
        cabinets_(text_, locks_),
        archives_(text_) {}

  Machine Services() override {
    return {registry_, files_, text_, cabinets_, dates_, folders_, archives_};
  }
  std::string Origin() const override { return "the registry of this Windows"; }

  std::string WindowsPath(std::string_view typed) const override {
    const std::wstring full = FullPath(typed);
    return full.empty() ? std::string(typed) : Utf8(PlainForm(full));
  }

  std::string NativePath(std::string_view windows_path) const override {
    return std::string(windows_path);
  }

  std::string PictureFolder() const override { return program_folder_; }

  std::string DownloadFolder() const override { return UserDownloadFolder(); }

  std::string AppFolderOrigin() const override {
    return files_.AppFolder() == program_folder_
               ? "the program's own folder"
               : "your own folder, since you may not write to " + program_folder_;
  }

  std::vector<std::string> FoldersOfOwnFiles() const override {
    std::vector<std::string> folders{files_.AppFolder()};
    for (const std::string& other : {program_folder_, UserFolderPath()}) {
      if (other != folders.front() && files_.IsFolder(other)) folders.push_back(other);
    }
    return folders;
  }

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
  static std::string ChosenAppFolder(const std::string& program_folder) {
    const std::string own = CanWriteTo(program_folder) ? std::string() : UserFolder();
    return own.empty() ? program_folder : own;
  }

  std::string program_folder_;
  WindowsText text_;
  WindowsRegistry registry_;
  ShortLocks locks_;
  WindowsFiles files_;
  WindowsCabinetWalk cabinets_;
  WindowsDateStamps dates_;
  WindowsFolderWalk folders_;
  WindowsArchives archives_;
};

}  // namespace

std::unique_ptr<LocalMachine> OpenWindows(std::string program_folder) {
  return std::make_unique<ThisWindows>(std::move(program_folder));
}

}  // namespace windows

// There is one registry to choose from.
std::unique_ptr<LocalMachine> OpenLocalMachine(const std::function<bool(const Machine&)>&) {
  auto machine = windows::OpenWindows(windows::FolderOfProgram());
  windows::LayPicturesBeside(machine->Services().files.AppFolder());
  return machine;
}

std::vector<std::unique_ptr<LocalMachine>> OpenLocalMachines(const std::string& prefix) {
  std::vector<std::unique_ptr<LocalMachine>> machines;
  if (prefix.empty()) machines.push_back(windows::OpenWindows(windows::FolderOfProgram()));
  return machines;
}

}  // namespace panelkit
