#include "platform/wine/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace panelkit {

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
      path.substr(0, path.rfind('/') + 1) + ".panelkit-" + std::to_string(getpid()) + '-';
  struct stat stale {};
  // A name may be taken by what a killed process with our number left behind.
  for (int number = 0;; ++number) {
    std::string temporary = stem + std::to_string(number) + ".tmp";
    if (lstat(temporary.c_str(), &stale) != 0) return temporary;
  }
}

}  // namespace panelkit
