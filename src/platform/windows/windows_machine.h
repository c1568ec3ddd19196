// This Windows as the machine that the program runs on, and its services.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/local_machine.h"
#include "platform/windows/file_errors.h"

namespace panelkit::windows {

/// Opens this Windows with `program_folder`, without a closing backslash, as the folder that the
/// program lies in.
std::unique_ptr<LocalMachine> OpenWindows(std::string program_folder);

/// One code page of Windows and the locale-independent rule of case.
class WindowsText : public Text {
 public:
  /// The code page `page` ("windows-1252" is 1252), which this Windows has installed.
  explicit WindowsText(unsigned page) : page_(page) {}

  std::string FromAnsi(std::string_view bytes) const override;
  std::string ToAnsi(std::string_view text) const override;
  std::string Lower(std::string_view text) const override;
  std::string Upper(std::string_view text) const override;

 private:
  unsigned page_;
};

/// The registry as a 32-bit program sees it, whatever this program's own word size.
class WindowsRegistry : public Registry {
 public:
  /// `text` outlives this object.
  explicit WindowsRegistry(const Text& text) : text_(text) {}

  std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                           std::string_view path) const override;

 private:
  const Text& text_;
};

/// The file system. Device names and pipes name nothing here.
///
/// Windows may give a user private copies of what other users cannot let him change
/// (virtualisation.h). Copy and Delete tell the truth about the files that every user has: a copy
/// that only this user would see is not made, and a file is deleted only if it is gone for all.
/// Everything else, Replace among it, works on what this user sees, as the simulator does.
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
  std::string NativePath(std::string_view path) const override { return std::string(path); }
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
  std::string app_folder_;
  const Text& text_;
  const ShortLocks& locks_;
};

/// The system's own cabinet service, setupapi.dll, with the same outcomes on every Windows and on
/// Wine. Entries are extracted under temporary names and get their own when they are whole.
class WindowsCabinetWalk : public CabinetWalk {
 public:
  /// Both outlive this object.
  WindowsCabinetWalk(const Text& text, const ShortLocks& locks) : text_(text), locks_(locks) {}

  std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile, CabinetMsgHandler MsgHandler,
                                     std::uint32_t Context) override;
  std::int32_t GetLastError() const override { return last_error_; }

 private:
  const Text& text_;
  const ShortLocks& locks_;
  std::int32_t last_error_ = 0;
};

/// Dates in the formats that the user has set.
class WindowsDateStamps : public DateStamps {
 public:
  std::string DateText(double date) const override;
};

class WindowsFolderWalk : public FolderWalk {
 public:
  Outcome Walk(std::string_view folder, FolderVisitor& visitor) const override;
};

}  // namespace panelkit::windows
