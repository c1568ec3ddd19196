// The services of a Wine prefix that take no header each: text, the registry, dates, the folder
// walk.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/date_stamps.h"
#include "platform/folder_walk.h"
#include "platform/registry.h"
#include "platform/text.h"
#include "platform/wine/c_library.h"
#include "platform/wine/hive.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Text by a code page of one or two bytes a character, or UTF-8 (65001), as the C library's iconv
/// knows it. Bytes below 0x80 are ASCII in every page, so a backslash is a backslash. A byte that
/// the page leaves undefined becomes the control character of the same number (0x80 to 0x9F) or
/// U+F0000 plus the byte, in the private use area that no code page maps to.
class WineText final : public Text {
 public:
  /// `page` is a Windows code page number; one that iconv does not know counts as 1252.
  explicit WineText(unsigned page);

  /// The name of the code page in use, as web browsers know it.
  std::string Charset() const;

  std::string FromAnsi(std::string_view bytes) const override;
  std::string ToAnsi(std::string_view text) const override;
  std::string Lower(std::string_view text) const override;
  std::string Upper(std::string_view text) const override;

 private:
  void ReadTables();
  void ReadPairs(const IconvHandle& from_page);
  void AddSingle(unsigned char byte, char32_t code_point);
  char32_t Decode(std::string_view bytes, std::size_t& position) const;

  unsigned page_;
  std::vector<char32_t> singles_;  ///< By byte; kLeadByte where a second byte follows.
  std::vector<char32_t> pairs_;    ///< By both bytes; empty for a page of single bytes.
  std::unordered_map<char32_t, std::uint16_t> bytes_;  ///< Both bytes, or one below 0x100.
};

/// The file `system.reg` of a prefix, parsed once for each state of it.
class HiveFile {
 public:
  explicit HiveFile(std::string native_path) : path_(std::move(native_path)) {}

  /// The hive as the file holds it now: read again if another file stands there or its size or
  /// time stamp changed. Null if it cannot be read.
  std::shared_ptr<const Hive> Current();

 private:
  std::string path_;
  struct stat read_ {};
  std::shared_ptr<const Hive> hive_;
};

/// HKEY_LOCAL_MACHINE of a prefix; other roots hold nothing. In a 64-bit prefix "Software" leads
/// below "Software\Wow6432Node". Each open sees the file as it is then; an open key keeps what it
/// saw. Names cross the code page as in Windows' ANSI calls: a letter that it lacks is '?', so a
/// subkey whose name holds one is enumerated but cannot be opened.
class WineRegistry final : public Registry {
 public:
  /// Both live longer than this object.
  WineRegistry(HiveFile& file, const Text& text) : file_(file), text_(text) {}

  std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                           std::string_view path) const override;

 private:
  HiveFile& file_;
  const Text& text_;
};

/// The number of the ANSI code page that the hive names, 1252 where it names none.
unsigned CodePageOf(const Hive* hive);

/// Dates in the format of the user's locale (C if that is not installed), read from the environment
/// at the first call.
class WineDateStamps final : public DateStamps {
 public:
  /// Empty for a value that is no number or outside the years 100 to 9999.
  std::string DateText(double date) const override;

 private:
  mutable std::optional<UserLocale> locale_;
};

/// The walk over folders on a Linux disk.
class WineFolderWalk final : public FolderWalk {
 public:
  explicit WineFolderWalk(const PathResolver& resolver) : resolver_(resolver) {}

  Outcome Walk(std::string_view folder, FolderVisitor& visitor) const override;

 private:
  const PathResolver& resolver_;
};

}  // namespace panelkit
