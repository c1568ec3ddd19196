// Opens the machine that this process runs on. Each system's back end implements
// OpenLocalMachine; the build links one of them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine.h"

namespace panelkit {

/// An opened machine, and what the two programs need to know about it beside its services.
class LocalMachine {
 public:
  virtual ~LocalMachine() = default;

  /// The services; they live as long as this object.
  virtual Machine Services() = 0;

  /// Where the registry was found, as one line for the user: "Wine prefix /home/kim/.wine".
  virtual std::string Origin() const = 0;

  /// A path that the user typed, native or Windows, absolute or relative, as a Windows path.
  virtual std::string WindowsPath(std::string_view typed) const = 0;

  /// A Windows path as the system's own programs write it; the path itself where no native one
  /// is known.
  virtual std::string NativePath(std::string_view windows_path) const = 0;

  /// The folder of the pictures that came with the program, as a Windows path without a closing
  /// backslash: the executable's folder or, for an installed program, "share/panelkit" beside its
  /// "bin" folder.
  virtual std::string PictureFolder() const = 0;

  /// The folder that the user's downloads go to, by its native path; empty if there is none.
  virtual std::string DownloadFolder() const = 0;

  /// How Files::AppFolder was chosen, as one line for the user: "the program's own folder",
  /// "your own folder, since you may not write to /opt/panelkit".
  virtual std::string AppFolderOrigin() const = 0;

  /// The folders in which this or an earlier run may have left files: Files::AppFolder first, then
  /// the executable's or the user's own folder if that is another one and is there. As Windows
  /// paths without a closing backslash.
  virtual std::vector<std::string> FoldersOfOwnFiles() const = 0;

  /// The code page's name as web browsers know it: "windows-1252", "shift_jis".
  virtual std::string Charset() const = 0;
};

/// Opens the machine. Where several registries could serve (Wine prefixes), the first one for which
/// `wanted` is true is taken, else the first. Never null.
std::unique_ptr<LocalMachine> OpenLocalMachine(const std::function<bool(const Machine&)>& wanted);

/// Opens a machine for each registry that could serve, in the order of preference; or, if `prefix`
/// is not empty, for the Wine prefix in that folder alone. Empty if that is none.
std::vector<std::unique_ptr<LocalMachine>> OpenLocalMachines(const std::string& prefix);

}  // namespace panelkit
