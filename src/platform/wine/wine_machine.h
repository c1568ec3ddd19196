// A Wine prefix as the machine that the program runs on.
#pragma once

#include <string>
#include <string_view>

#include "platform/local_machine.h"
#include "platform/wine/archives.h"
#include "platform/wine/cabinet/cabinet_walk.h"
#include "platform/wine/files.h"
#include "platform/wine/own_folders.h"
#include "platform/wine/path_resolver.h"
#include "platform/wine/services.h"
#include "platform/wine/wine_prefix.h"

namespace panelkit {

/// One prefix. Its code page is that of the moment of opening; all else is read when asked.
class WineMachine final : public LocalMachine {
 public:
  WineMachine(WinePrefix prefix, OwnFolders folders);

  Machine Services() override;
  std::string Origin() const override;
  std::string WindowsPath(std::string_view typed) const override;
  std::string NativePath(std::string_view windows_path) const override;
  std::string PictureFolder() const override;
  std::string DownloadFolder() const override { return UserDownloadFolder(); }
  std::string AppFolderOrigin() const override;
  std::vector<std::string> FoldersOfOwnFiles() const override;
  std::string Charset() const override;

 private:
  WinePrefix prefix_;
  OwnFolders folders_;
  HiveFile hive_;
  WineText text_;
  PathResolver resolver_;
  WineRegistry registry_;
  WineFiles files_;
  WineCabinetWalk cabinets_;
  WineDateStamps calendar_;
  WineFolderWalk walk_;
  WineArchives archives_;
};

}  // namespace panelkit
