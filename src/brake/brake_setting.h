// The setting of the red brake messages in the simulator's fs2002.cfg, on disk.
#pragma once

#include <optional>
#include <string>

#include "brake/config_edit.h"
#include "platform/files.h"

namespace panelkit {

/// What a look at fs2002.cfg, or an edit of it, came to.
struct BrakeOutcome {
  /// Whether the file, as it stands on the disk now, has the messages shown; nullopt if it has no
  /// setting or cannot be read.
  std::optional<bool> shown;

  /// Why the file could not be read or could not be written; it is as it was then.
  FileFault fault = FileFault::None;

  /// Why there is no backup of a file that the setting was missing in.
  FileFault backup_fault = FileFault::None;
};

/// The path of the configuration file in the simulator's folder.
std::string FsConfigFile(const std::string& FSPath);

/// Reads the setting. Where it is missing, copies the file to `AppFolder`\Backups\FS2002.cfg and
/// then adds the setting; a backup that cannot be made does not keep the setting from being added.
BrakeOutcome FindOrAddBrakeSetting(Files& files, const std::string& FSPath,
                                   const std::string& AppFolder, const BetweenLines& between_lines);

/// Sets the setting to `b` (1: messages are shown, 0: hidden) on each line that holds it.
BrakeOutcome SetBrakeSetting(Files& files, const std::string& FSPath, int b,
                             const BetweenLines& between_lines);

}  // namespace panelkit
