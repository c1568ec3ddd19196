#include "platform/wine/native_file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace panelkit {

namespace {

/// open(2) tried again where a signal stopped it.
int Open(const std::string& path, int flags, unsigned mode) {
  int descriptor = -1;
  do {
    descriptor = open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

void WaitUntilWritable(int descriptor) {
  pollfd waiting{descriptor, POLLOUT, 0};
  poll(&waiting, 1, -1);
}

}  // namespace

OpenFile::OpenFile(const std::string& path, int flags, unsigned mode)
    : descriptor_(Open(path, flags, mode)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

OpenFile::~OpenFile() {
  Close();
}

OpenFile OpenFile::Twin() const {
  OpenFile twin;
  twin.descriptor_ = fcntl(descriptor_, F_DUPFD_CLOEXEC, 0);
  return twin;
}

bool OpenFile::Close() {
  if (!IsOpen()) return true;
  const int descriptor = descriptor_;
  descriptor_ = -1;
  return close(descriptor) == 0 || errno == EINTR;
}

FileFault FaultOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
      return FileFault::Absent;
    case EISDIR:
    case ENXIO:
    case ENODEV:
      return FileFault::NotAFile;
    case EROFS:
      return FileFault::ReadOnly;
    case EACCES:
    case EPERM:
      return FileFault::NoAccess;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
      return FileFault::InUse;
    case ENOSPC:
    case EDQUOT:
      return FileFault::NoRoom;
    case EFBIG:
    case EOVERFLOW:
      return FileFault::TooLarge;
    default:
      return FileFault::Other;
  }
}

std::optional<struct stat> StatusOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool IsSameState(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

std::optional<std::size_t> ReadSome(int descriptor, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) return std::nullopt;
  return static_cast<std::size_t>(count);
}

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      WaitUntilWritable(descriptor);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

FileContent ReadPlainFile(const std::string& path, std::size_t limit) {
  const auto failed = [](FileFault fault) { return FileContent{std::nullopt, fault}; };
  const OpenFile file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat status {};
  if (!file.IsOpen() || fstat(file.Descriptor(), &status) != 0) return failed(FaultOf(errno));
  if (!S_ISREG(status.st_mode)) return failed(FileFault::NotAFile);
  if (static_cast<std::size_t>(status.st_size) > limit) return failed(FileFault::TooLarge);
  // Room for one byte more than the file had when it was opened: a read that leaves it empty has
  // come to the end, so most files take a single one. The kernel's own files tell no size.
  const auto size = static_cast<std::size_t>(status.st_size);
  std::string content(size + 1, '\0');
  std::size_t length = 0;
  for (;;) {
    const auto count = ReadSome(file.Descriptor(), &content[length], content.size() - length);
    if (!count) return failed(FaultOf(errno));
    if (*count == 0) break;
    length += *count;
    if (length > limit) return failed(FileFault::TooLarge);
    if (length == size) break;
    if (length == content.size()) content.resize(std::min(limit + 1, 2 * length + 4096));
  }
  content.resize(length);
  return {std::move(content), FileFault::None};
}

bool FlushFolder(const std::string& folder) {
  const OpenFile opened(folder, O_RDONLY | O_DIRECTORY);
  if (!opened.IsOpen() || fsync(opened.Descriptor()) == 0) return true;
  return errno != EIO && errno != ENOSPC && errno != EDQUOT;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string_view NameOf(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace panelkit
