#include "brake/brake_setting.h"

#include "brake/config_file.h"

namespace panelkit {
namespace {

FileFault FaultOfMakeFolder(int outcome) {
  switch (outcome) {
    case kFolderCreated:
      return FileFault::None;
    case kFolderExistsOrNoAccess:
      return FileFault::NoAccess;
    case kFolderParentMissing:
      return FileFault::Absent;
    default:
      return FileFault::Other;
  }
}

FileFault WriteBackup(Files& files, const std::string& AppFolder, const std::string& config) {
  const std::string BackupFolder = AppFolder + "\\Backups";
  const std::string BackupFile = BackupFolder + "\\FS2002.cfg";
  if (!files.Exists(BackupFolder)) {
    const FileFault fault = FaultOfMakeFolder(files.MakeFolder(BackupFolder));
    if (fault != FileFault::None) return fault;
  }
  return files.ReplaceOrOverwrite(BackupFile, config, Durability::Flushed);
}

// Gives fs2002.cfg, which holds `before`, the content `after`.
BrakeOutcome Rewrite(Files& files, const std::string& FSPath, const std::string& before,
                     const std::string& after, const BetweenLines& between_lines) {
  BrakeOutcome outcome;
  outcome.fault = RewriteConfig(files, FsConfigFile(FSPath), before, after);
  const bool rewritten = outcome.fault == FileFault::None;
  outcome.shown = BrakeMessagesShown(rewritten ? after : before, between_lines);
  return outcome;
}

}  // namespace

std::string FsConfigFile(const std::string& FSPath) {
  return FSPath + "\\fs2002.cfg";
}

BrakeOutcome FindOrAddBrakeSetting(Files& files, const std::string& FSPath,
                                   const std::string& AppFolder,
                                   const BetweenLines& between_lines) {
  const FileContent config = ReadConfig(files, FsConfigFile(FSPath));
  if (!config.bytes) return {std::nullopt, config.fault};
  if (const auto shown = BrakeMessagesShown(*config.bytes, between_lines)) return {shown};
  const FileFault backup_fault =
      WriteBackup(files, AppFolder, AsRead(*config.bytes, between_lines));
  BrakeOutcome outcome = Rewrite(files, FSPath, *config.bytes,
                                 WithSettingAdded(*config.bytes, between_lines), between_lines);
  outcome.backup_fault = backup_fault;
  return outcome;
}

BrakeOutcome SetBrakeSetting(Files& files, const std::string& FSPath, int b,
                             const BetweenLines& between_lines) {
  const FileContent config = ReadConfig(files, FsConfigFile(FSPath));
  if (!config.bytes) return {std::nullopt, config.fault};
  return Rewrite(files, FSPath, *config.bytes, WithSettingSet(*config.bytes, b, between_lines),
                 between_lines);
}

}  // namespace panelkit
