#include "platform/wine/rewrite_in_place.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <optional>
#include <sstream>

#include "platform/wine/folder_reader.h"
#include "platform/wine/native_file.h"
#include "platform/wine/new_file.h"

namespace panelkit {

namespace {

constexpr std::string_view kRecordStart = "rewrite-";

/// What a record holds. Its file has a line of the three lengths, then the texts themselves.
struct Rewrite {
  std::string path;
  std::string old_bytes;
  std::string new_bytes;
};

std::string TextOf(const Rewrite& rewrite) {
  std::ostringstream text;
  text << rewrite.path.size() << ' ' << rewrite.old_bytes.size() << ' ' << rewrite.new_bytes.size()
       << '\n'
       << rewrite.path << rewrite.old_bytes << rewrite.new_bytes;
  return text.str();
}

/// nullopt if the record is not whole: then the file was not touched yet.
std::optional<Rewrite> RewriteOf(const std::string& record) {
  std::istringstream lengths(record.substr(0, record.find('\n')));
  std::size_t path = 0;
  std::size_t old_length = 0;
  std::size_t new_length = 0;
  lengths >> path >> old_length >> new_length;
  const std::size_t start = record.find('\n') + 1;
  if (!lengths || std::max({path, old_length, new_length}) > record.size() ||
      record.size() - start != path + old_length + new_length) {
    return std::nullopt;
  }
  return Rewrite{record.substr(start, path), record.substr(start + path, old_length),
                 record.substr(start + path + old_length)};
}

/// False, with errno set, if not all of it could be written.
bool Overwrite(int descriptor, std::string_view bytes) {
  return lseek(descriptor, 0, SEEK_SET) == 0 && WriteAll(descriptor, bytes) &&
         ftruncate(descriptor, static_cast<off_t>(bytes.size())) == 0;
}

bool OverwriteAndFlush(int descriptor, std::string_view bytes) {
  return Overwrite(descriptor, bytes) && fsync(descriptor) == 0;
}

/// Whether `content` can be what was left of a rewrite: at each place the old byte, the new one, or
/// the 0 of a block that did not reach the disk.
bool IsHalfDone(const std::string& content, const Rewrite& rewrite) {
  const auto [shorter, longer] = std::minmax({rewrite.old_bytes.size(), rewrite.new_bytes.size()});
  if (content.size() < shorter || content.size() > longer) return false;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const auto holds = [&](const std::string& bytes) {
      return i < bytes.size() && bytes[i] == content[i];
    };
    if (content[i] != 0 && !holds(rewrite.old_bytes) && !holds(rewrite.new_bytes)) return false;
  }
  return true;
}

/// Whether the record has done its work: the file holds one content, whole.
bool Finish(const Rewrite& rewrite) {
  const auto content = ReadPlainFile(rewrite.path, kLargestFile).bytes;
  if (!content) return false;
  if (*content == rewrite.old_bytes || *content == rewrite.new_bytes) return true;
  if (!IsHalfDone(*content, rewrite)) return false;
  const OpenFile file(rewrite.path, O_WRONLY | O_NONBLOCK | O_NOCTTY);
  return file.IsOpen() && OverwriteAndFlush(file.Descriptor(), rewrite.new_bytes);
}

/// Whether nobody but this user can have written the record: it tells us which file to write to.
bool IsOurs(const OpenFile& record) {
  struct stat status {};
  return fstat(record.Descriptor(), &status) == 0 && S_ISREG(status.st_mode) &&
         status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace

FileFault RewriteInPlace(const std::string& path, std::string_view bytes, Durability durability,
                         const std::string& records) {
  const OpenFile file(path, O_WRONLY | O_NONBLOCK | O_NOCTTY);
  if (!file.IsOpen()) return FaultOf(errno);
  if (durability == Durability::Buffered) {
    return Overwrite(file.Descriptor(), bytes) ? FileFault::None : FaultOf(errno);
  }
  auto old = ReadPlainFile(path, kLargestFile);
  if (!old.bytes) return old.fault;
  const Rewrite rewrite{path, *std::move(old.bytes), std::string(bytes)};
  NewFile record(UnusedPath(records, kRecordStart, ""), kOwnerOnly);
  if (!record.IsOpen() || !WriteAll(record.Descriptor(), TextOf(rewrite)) || !record.Flush()) {
    return FaultOf(errno);
  }
  if (!FlushFolder(records)) return FileFault::Other;
  if (OverwriteAndFlush(file.Descriptor(), bytes)) return FileFault::None;
  const FileFault fault = FaultOf(errno);
  if (!OverwriteAndFlush(file.Descriptor(), rewrite.old_bytes)) record.Keep();
  return fault;
}

void FinishRewrites(const std::string& records) {
  const auto entries = ReadFolder(records);
  for (std::size_t i = 0; entries && i < entries->size(); ++i) {
    const auto maker = MakerOf((*entries)[i].name, kRecordStart, "");
    if (!maker) continue;
    const std::string path = records + '/' + (*entries)[i].name;
    const OpenFile file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (!file.IsOpen() || !IsOurs(file) || !IsLeftBehind(file, *maker)) continue;
    const auto record = ReadPlainFile(path, 3 * kLargestFile).bytes;
    if (!record) continue;
    const auto rewrite = RewriteOf(*record);
    if (!rewrite || Finish(*rewrite)) unlink(path.c_str());
  }
}

}  // namespace panelkit
