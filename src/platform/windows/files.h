// The files of this Windows.
#pragma once

#include "platform/files.h"
#include "platform/text.h"
#include "platform/windows/file_errors.h"

namespace panelkit::windows {

/// The file system of this Windows. Device names and pipes name nothing here.
class WindowsFiles : public Files {
 public:
  /// `app_folder` as AppFolder gives it; `text` and `locks` outlive this object.
  WindowsFiles(std::string app_folder, const Text& text, const ShortLocks& locks)
      : app_folder_(std::move(app_folder)), text_(text), locks_(locks) {}

  std::string AppFolder() const override { return app_folder_; }
  std::string UserFolder() const override;
  std::optional<std::vector<ListedEntry>> List(std::string_view pattern,
                                               ListedEntries entries) const override;
  bool IsFolder(std::string_view path) const override;
  bool IsPlainFile(std::string_view path) const override;
  bool Exists(std::string_view path) const override;
  bool IsSame(std::string_view path, std::string_view other) const override;
  bool IsLink(std::string_view path) const override;
  FileContent Read(std::string_view path) const override;
  FileFault Replace(std::string_view path, std::string_view bytes, Durability durability) override;
  int MakeFolder(std::string_view path) override;
  bool Copy(std::string_view source, std::string_view target) override;
  bool Rename(std::string_view from, std::string_view to) override;
  bool Delete(std::string_view path) override;

 private:
  std::string app_folder_;
  const Text& text_;
  const ShortLocks& locks_;
};

}  // namespace panelkit::windows
