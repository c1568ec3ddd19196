#include "platform/wine/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/wine/dos_attributes.h"
#include "platform/wine/native_file.h"
#include "platform/wine/new_file.h"

namespace panelkit {

namespace {

constexpr mode_t kPermissions = 07777;
constexpr mode_t kByUmask = 0666;

/// The path at the end of a chain of links, whether or not a file is there.
std::optional<std::string> FinalTarget(std::string path) {
  constexpr int kLongestChain = 40;
  for (int i = 0; i < kLongestChain; ++i) {
    std::error_code error;
    const std::filesystem::path link = std::filesystem::read_symlink(path, error);
    if (error) return path;
    path = std::filesystem::path(FolderOf(path)) / link;
  }
  return std::nullopt;
}

std::vector<std::string> AttributeNames(int descriptor) {
  std::array<char, 65536> buffer{};
  const ssize_t size = flistxattr(descriptor, buffer.data(), buffer.size());
  std::string_view rest(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  std::vector<std::string> names;
  while (!rest.empty()) {
    names.emplace_back(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(names.back().size() + 1);
  }
  return names;
}

/// Copies the extended attributes. False if one of the "user." attributes or the access list could
/// not be set; a label of another kind, which the system gives by itself, may be lost.
bool CopyAttributes(int from, int to) {
  bool copied = true;
  std::array<char, 65536> value{};
  for (const std::string& name : AttributeNames(from)) {
    const ssize_t size = fgetxattr(from, name.c_str(), value.data(), value.size());
    const bool set = size >= 0 && fsetxattr(to, name.c_str(), value.data(),
                                            static_cast<std::size_t>(size), 0) == 0;
    if (!set && (name.starts_with("user.") || name == "system.posix_acl_access")) copied = false;
  }
  return copied;
}

/// Gives the new file the old one's owner, permissions and extended attributes.
bool TakeOver(const std::string& old_path, const struct stat& old, int descriptor) {
  struct stat now {};
  if (fstat(descriptor, &now) != 0) return false;
  if ((now.st_uid != old.st_uid || now.st_gid != old.st_gid) &&
      fchown(descriptor, old.st_uid, old.st_gid) != 0) {
    return false;
  }
  if ((now.st_mode & kPermissions) != (old.st_mode & kPermissions) &&
      fchmod(descriptor, old.st_mode & kPermissions) != 0) {
    return false;
  }
  const OpenFile old_file(old_path, O_RDONLY | O_NONBLOCK);
  return !old_file.IsOpen() || CopyAttributes(old_file.Descriptor(), descriptor);
}

/// Why the file may not get new content; None if it may.
FileFault RewriteFault(const std::string& path, const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return FileFault::NotAFile;
  if (IsReadOnly(status)) return FileFault::ReadOnly;
  const bool may_write = faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
  return may_write ? FileFault::None : FaultOf(errno);
}

/// Writes a new file and gives it the old one's place, if there is an old one. NoAccess if it
/// cannot be all that the old one is.
FileFault ReplaceInOneStep(const std::string& path, const std::optional<struct stat>& old,
                           std::string_view bytes, Durability durability) {
  NewFile file(Beside{path}, old ? kOwnerOnly : kByUmask);
  if (!file.IsOpen() || !WriteAll(file.Descriptor(), bytes)) return FaultOf(errno);
  if (old && !TakeOver(path, *old, file.Descriptor())) return FileFault::NoAccess;
  const bool flushed = durability == Durability::Flushed;
  if ((flushed && !file.Flush()) || !file.KeepAs(path)) return FaultOf(errno);
  // The new content stands; what a failed flush leaves open is only when the disk knows of it.
  if (flushed) FlushFolder(FolderOf(path));
  return FileFault::None;
}

/// Whether another program has the file open for writing, as far as the system tells (a lease is
/// refused then).
bool IsBeingWritten(int descriptor) {
  fcntl(descriptor, F_SETSIG, SIGURG);  // Whoever opens it now must not end us by SIGIO.
  const bool refused = fcntl(descriptor, F_SETLEASE, F_RDLCK) != 0 && errno == EAGAIN;
  fcntl(descriptor, F_SETLEASE, F_UNLCK);
  return refused;
}

bool CopyContent(int from, int to) {
  std::vector<char> buffer(std::size_t{256} * 1024);
  for (;;) {
    const auto count = ReadSome(from, buffer.data(), buffer.size());
    if (!count) return false;
    if (*count == 0) return true;
    if (!WriteAll(to, {buffer.data(), *count})) return false;
  }
}

}  // namespace

FileFault ReplaceFile(const std::string& target, std::string_view bytes, Durability durability) {
  const auto path = FinalTarget(target);
  if (!path) return FaultOf(ELOOP);
  const auto old = StatusOf(*path);
  if (old) {
    const FileFault fault = RewriteFault(*path, *old);
    if (fault != FileFault::None) return fault;
  }
  const FileFault fault = ReplaceInOneStep(*path, old, bytes, durability);
  // InUse: a file that is mounted by itself, as into a sandbox, cannot give way.
  const bool may_stay = fault == FileFault::NoAccess || fault == FileFault::InUse;
  return old && may_stay ? FileFault::Irreplaceable : fault;
}

FileFault OverwriteFile(const std::string& path, std::string_view bytes) {
  const auto status = StatusOf(path);
  const FileFault fault = status ? RewriteFault(path, *status) : FaultOf(errno);
  if (fault != FileFault::None) return fault;
  const OpenFile file(path, O_WRONLY | O_NONBLOCK | O_NOCTTY);
  const bool written = file.IsOpen() && WriteAll(file.Descriptor(), bytes) &&
                       ftruncate(file.Descriptor(), static_cast<off_t>(bytes.size())) == 0 &&
                       fsync(file.Descriptor()) == 0;
  return written ? FileFault::None : FaultOf(errno);
}

bool CopyFile(const std::string& source, const std::string& target) {
  const OpenFile from(source, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat status {};
  if (!from.IsOpen() || fstat(from.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return false;
  }
  const auto old = StatusOf(target);
  if (old && old->st_dev == status.st_dev && old->st_ino == status.st_ino) return false;
  if (unlink(target.c_str()) != 0 && errno != ENOENT) return false;
  NewFile to(target, kOwnerOnly);
  if (!to.IsOpen() || !CopyContent(from.Descriptor(), to.Descriptor())) return false;
  // A disk without permissions or attributes of this kind takes the copy all the same.
  CopyAttributes(from.Descriptor(), to.Descriptor());
  static_cast<void>(fchmod(to.Descriptor(), status.st_mode & kPermissions));
  const std::array<timespec, 2> times = {timespec{0, UTIME_OMIT}, status.st_mtim};
  if (futimens(to.Descriptor(), times.data()) != 0 || !to.Flush() ||
      !FlushFolder(FolderOf(target))) {
    return false;
  }
  // Who deletes the source after this must not take away what another program is writing.
  struct stat now {};
  if (fstat(from.Descriptor(), &now) != 0 || !IsSameState(status, now) ||
      IsBeingWritten(from.Descriptor())) {
    return false;
  }
  return to.Keep();
}

}  // namespace panelkit
