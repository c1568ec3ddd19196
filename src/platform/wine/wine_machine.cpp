#include "platform/wine/wine_machine.h"

#include <cctype>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/wine/heap.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

namespace fs = std::filesystem;

std::string ExecutableFolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool IsWindowsPath(std::string_view typed) {
  const bool has_drive = typed.size() >= 2 && typed[1] == ':' &&
                         std::isalpha(static_cast<unsigned char>(typed[0])) != 0;
  return has_drive || typed.starts_with('\\');
}

}  // namespace

WineMachine::WineMachine(WinePrefix prefix, OwnFolders folders)
    : prefix_(std::move(prefix)),
      folders_(std::move(folders)),
      hive_(RegistryFileOf(prefix_.folder)),
      text_(CodePageOf(hive_.Current().get())),
      resolver_(prefix_.folder),
      registry_(hive_, text_),
      files_(resolver_, folders_),
      cabinets_(resolver_, text_),
      walk_(resolver_),
      archives_(resolver_, text_) {}

Machine WineMachine::Services() {
  return {registry_, files_, text_, cabinets_, calendar_, walk_, archives_};
}

std::string WineMachine::Origin() const {
  const bool is_there = StatusOf(RegistryFileOf(prefix_.folder)).has_value();
  std::string origin = is_there ? "Wine prefix " : "no Wine prefix at ";
  origin += prefix_.folder;
  if (!prefix_.found_by.empty()) origin += " (" + prefix_.found_by + ")";
  return origin;
}

std::string WineMachine::WindowsPath(std::string_view typed) const {
  if (typed.empty() || IsWindowsPath(typed)) return std::string(typed);
  std::error_code error;
  fs::path absolute = fs::absolute(typed, error);
  // What ".." means behind a link only the disk knows.
  if (typed.find("../") != std::string::npos || typed.ends_with("..")) {
    absolute = fs::weakly_canonical(absolute, error);
  }
  return resolver_.WindowsPathOf(absolute.native());
}

std::string WineMachine::NativePath(std::string_view windows_path) const {
  return files_.NativePath(windows_path);
}

std::string WineMachine::PictureFolder() const {
  return resolver_.WindowsPathOf(folders_.pictures);
}

std::string WineMachine::AppFolderOrigin() const {
  const bool has_drive = !resolver_.WindowsPathOf(folders_.app).starts_with(R"(\\?\)");
  return folders_.origin + (has_drive ? "" : ", to which no drive of the prefix leads");
}

std::vector<std::string> WineMachine::FoldersOfOwnFiles() const {
  std::vector<std::string> folders = {resolver_.WindowsPathOf(folders_.app)};
  const std::string& other = folders_.app == folders_.user ? folders_.program : folders_.user;
  if (StatusOf(other)) folders.push_back(resolver_.WindowsPathOf(other));
  return folders;
}

std::string WineMachine::Charset() const {
  return text_.Charset();
}

std::unique_ptr<LocalMachine> OpenLocalMachine(const std::function<bool(const Machine&)>& wanted) {
  UseHugePages();
  const OwnFolders folders = OwnFoldersOf(ExecutableFolder());
  const std::vector<WinePrefix> prefixes = WinePrefixes();
  for (const WinePrefix& prefix : prefixes) {
    auto machine = std::make_unique<WineMachine>(prefix, folders);
    if (prefixes.size() == 1 || wanted(machine->Services())) return machine;
  }
  return std::make_unique<WineMachine>(prefixes.front(), folders);
}

std::vector<std::unique_ptr<LocalMachine>> OpenLocalMachines(const std::string& prefix) {
  UseHugePages();
  std::error_code error;
  const auto prefixes = prefix.empty()
                            ? WinePrefixes()
                            : std::vector<WinePrefix>{{fs::absolute(prefix, error), "--prefix"}};
  const OwnFolders folders = OwnFoldersOf(ExecutableFolder());
  std::vector<std::unique_ptr<LocalMachine>> machines;
  for (const WinePrefix& each : prefixes) {
    if (!prefix.empty() && !StatusOf(RegistryFileOf(each.folder))) continue;
    machines.push_back(std::make_unique<WineMachine>(each, folders));
  }
  return machines;
}

}  // namespace panelkit
