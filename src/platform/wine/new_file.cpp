#include "platform/wine/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/wine/folder_reader.h"

namespace panelkit {

namespace {

constexpr const char* kPrefix = ".panelkit-";
constexpr const char* kEnding = ".tmp";

/// The process that gave a temporary file this name; nullopt for any other name.
std::optional<pid_t> ProcessOf(std::string_view name) {
  if (!name.starts_with(kPrefix) || !name.ends_with(kEnding)) return std::nullopt;
  name.remove_prefix(std::string_view(kPrefix).size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  if (error != std::errc() || *end != '-' || process <= 0) return std::nullopt;
  return process;
}

}  // namespace

NewFile::NewFile(std::string path, mode_t mode)
    : path_(std::move(path)),
      file_(path_, O_RDWR | O_CREAT | O_EXCL, mode),
      discard_(file_.IsOpen()) {}

NewFile::~NewFile() {
  if (discard_) unlink(path_.c_str());
}

bool NewFile::Flush() const {
  return fsync(file_.Descriptor()) == 0;
}

bool NewFile::Keep() {
  if (!file_.Close()) return false;
  discard_ = false;
  return true;
}

bool NewFile::KeepAs(const std::string& path) {
  if (!file_.Close() || std::rename(path_.c_str(), path.c_str()) != 0) return false;
  discard_ = false;
  return true;
}

std::string TemporaryPathBeside(const std::string& path) {
  const std::string stem =
      path.substr(0, path.rfind('/') + 1) + kPrefix + std::to_string(getpid()) + '-';
  struct stat stale {};
  // A name may be taken by what a killed process with our number left behind.
  for (int number = 0;; ++number) {
    std::string temporary = stem + std::to_string(number) + kEnding;
    if (lstat(temporary.c_str(), &stale) != 0) return temporary;
  }
}

void RemoveStaleTemporaries(const std::string& folder) {
  for (const auto& entry : ReadFolder(folder).value_or(std::vector<FolderEntry>())) {
    const std::optional<pid_t> process = ProcessOf(entry.name);
    const bool is_stale = process && kill(*process, 0) != 0 && errno == ESRCH;
    if (is_stale) unlink((folder + '/' + entry.name).c_str());
  }
}

}  // namespace panelkit
