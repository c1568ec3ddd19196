#include "brake/config_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace panelkit {
namespace {

// The record of a file's rewrite: its name has the FNV-1a hash of the file's path.
std::string RecordOf(const Files& files, const std::string& path) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : files.NativePath(path)) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), hash, 16).ptr;
  return files.AppFolder() + "\\fs2002-" + std::string(digits.begin(), end) + ".rewrite";
}

// A record holds the length of the old content in decimal, a line feed, and both contents.
FileFault WriteRecord(Files& files, const std::string& path, const std::string& before,
                      const std::string& after) {
  const std::string text = std::to_string(before.size()) + '\n' + before + after;
  if (text.size() > kLargestFile) return FileFault::TooLarge;  // Nobody could read it again.
  files.Delete(path);  // It may be of another user, whose file could not be replaced.
  return files.Replace(path, text, Durability::Flushed);
}

struct Contents {
  std::string_view before;
  std::string_view after;
};

Contents ContentsOf(std::string_view record) {
  std::size_t length = 0;
  std::from_chars(record.data(), record.data() + record.size(), length);
  record.remove_prefix(record.find('\n') + 1);
  return {record.substr(0, length), record.substr(std::min(length, record.size()))};
}

// Whether Files::Overwrite can have left `content`, at whatever moment it was stopped.
bool IsOnTheWay(std::string_view content, const Contents& contents) {
  const auto [shorter, longer] = std::minmax({contents.before.size(), contents.after.size()});
  if (content.size() < shorter || content.size() > longer) return false;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const auto is_from = [&](std::string_view bytes) {
      return i < bytes.size() && bytes[i] == content[i];
    };
    if (content[i] != 0 && !is_from(contents.before) && !is_from(contents.after)) return false;
  }
  return true;
}

// Whether the file has its old content after all.
bool PutBack(Files& files, const std::string& path, const std::string& before) {
  return files.Read(path).bytes == before || files.Overwrite(path, before) == FileFault::None;
}

}  // namespace

FileContent ReadConfig(Files& files, const std::string& path) {
  FileContent config = files.Read(path);
  const std::string record_path = RecordOf(files, path);
  if (!config.bytes || !files.Exists(record_path)) return config;
  FileContent record = files.Read(record_path);
  if (!record.bytes) return record;
  const Contents contents = ContentsOf(*record.bytes);
  if (!IsOnTheWay(*config.bytes, contents)) return config;
  // Also where not a byte has changed yet: if the other run is alive, this is what it writes.
  if (*config.bytes != contents.after) {
    const FileFault fault = files.Overwrite(path, contents.after);
    if (fault != FileFault::None) return {std::nullopt, fault};
    config.bytes = contents.after;
  }
  files.Delete(record_path);
  return config;
}

FileFault RewriteConfig(Files& files, const std::string& path, const std::string& before,
                        const std::string& after) {
  const std::string record = RecordOf(files, path);
  FileFault fault = files.Replace(path, after, Durability::Flushed);
  if (fault == FileFault::Irreplaceable) {
    fault = WriteRecord(files, record, before, after);
    if (fault != FileFault::None) return fault;
    fault = files.Overwrite(path, after);
    if (fault != FileFault::None && !PutBack(files, path, before)) return fault;
    files.Delete(record);
  } else if (fault == FileFault::None) {
    files.Delete(record);
  }
  return fault;
}

}  // namespace panelkit
