// Folder walk: the files of a folder and of all folders below it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace panelkit {

/// A plain file that a walk has met.
struct FoundFile {
  std::string path;           ///< Windows path in UTF-8.
  std::uint64_t size = 0;     ///< Bytes.
  std::int64_t modified = 0;  ///< Seconds since 1970, UTC.
};

/// What a walk asks, and what it reports to.
class FolderVisitor {
 public:
  virtual ~FolderVisitor() = default;

  /// What a walk does next.
  enum class Step {
    Enter,  ///< It visits the folder.
    Skip,   ///< It passes over the folder and all below it.
    End,
  };

  /// Called at each folder (a Windows path), before its files; `files` is the number of plain files
  /// met so far.
  virtual Step OnFolder(const std::string& folder, std::size_t files) = 0;

  /// Whether OnFile is to be called for plain files of this name (UTF-8).
  virtual bool Wants(std::string_view name) = 0;

  virtual void OnFile(const FoundFile& file) = 0;
};

/// The machine's folder walk.
class FolderWalk {
 public:
  virtual ~FolderWalk() = default;

  /// What a walk could not show.
  struct Outcome {
    bool is_folder = true;       ///< False if `folder` names no folder; nothing was visited then.
    std::size_t unreadable = 0;  ///< Folders that could not be read.
  };

  /// Visits the plain files in `folder` (a Windows path) and in all folders below it, hidden ones
  /// too, each folder's by name in byte order. Links to files are files; links to folders are not
  /// followed. Names that no Windows path can hold are passed over. An exception out of `visitor`
  /// comes out of this call.
  virtual Outcome Walk(std::string_view folder, FolderVisitor& visitor) const = 0;
};

}  // namespace panelkit
