// The files of a Wine prefix.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/wine/listing.h"
#include "platform/wine/own_folders.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Files by Windows path, as Wine presents a Linux disk: hidden and system entries by extended
/// attribute and leading dot, read-only by permission bits. Pipes, devices and dangling links are
/// not listed; neither are names that no Windows path could hold (not UTF-8, or with a backslash).
class WineFiles final : public Files {
 public:
  /// Both live longer than this object.
  WineFiles(const PathResolver& resolver, const OwnFolders& folders)
      : resolver_(resolver), folders_(folders) {}

  std::string AppFolder() const override;
  std::string UserFolder() const override;
  std::optional<std::vector<ListedEntry>> List(std::string_view pattern,
                                               ListedEntries entries) const override;
  bool IsFolder(std::string_view path) const override;
  bool IsPlainFile(std::string_view path) const override;
  bool Exists(std::string_view path) const override;
  bool IsSame(std::string_view path, std::string_view other) const override;
  std::string NativePath(std::string_view path) const override;
  bool IsLink(std::string_view path) const override;
  FileContent Read(std::string_view path) const override;
  FileFault Replace(std::string_view path, std::string_view bytes, Durability durability) override;
  FileFault Overwrite(std::string_view path, std::string_view bytes) override;
  void Append(std::string_view path, std::string_view bytes) override;
  int MakeFolder(std::string_view path) override;
  bool Copy(std::string_view source, std::string_view target) override;
  bool Rename(std::string_view from, std::string_view to) override;
  bool Delete(std::string_view path) override;
  std::shared_ptr<void> Lock(std::string_view folder) override;

 private:
  std::optional<std::string> PlainFile(std::string_view path) const;
  FileFault WhyNotFound(std::string_view path) const;

  const PathResolver& resolver_;
  const OwnFolders& folders_;
  mutable Listing listing_;
};

}  // namespace panelkit
