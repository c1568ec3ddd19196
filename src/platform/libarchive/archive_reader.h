// The reader of archives by libarchive, the same on every system.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <memory>

#include "platform/archive.h"
#include "platform/text.h"

namespace panelkit {

/// Reads zip, 7z, rar, tar (compressed too), lzh, iso and cabinet files, and what is behind a
/// program that unpacks itself. Names that are not in Unicode are decoded as the ANSI code page, in
/// zip and lzh files as PossibleNames has them. What it leaves to a system is UnpackedFile.
class LibarchiveReader : public ArchiveReader {
 public:
  /// The native path of a Windows path; empty if it names nothing.
  using NativePath = std::function<std::filesystem::path(std::string_view windows_path)>;

  LibarchiveReader(const Text& text, NativePath native_path)
      : text_(text), native_path_(std::move(native_path)) {}

  ArchiveFault Read(std::string_view path, const OnArchiveEntry& visit) const override;
  ArchiveFault ReadBytes(std::string bytes, const OnArchiveEntry& visit) const override;

 private:
  ArchiveFault Walk(std::istream& stream, const OnArchiveEntry& visit) const;

  const Text& text_;
  NativePath native_path_;
};

/// What each system's back end implements: while it lives, names of entries convert to UTF-8 on
/// this thread whatever the locale.
std::shared_ptr<void> ConvertNamesToUtf8();

}  // namespace panelkit
