#include <dirent.h>

#include <algorithm>
#include <vector>

#include "platform/wine/directory.h"
#include "platform/wine/native_file.h"
#include "platform/wine/services.h"

namespace panelkit {
namespace {

struct Folder {
  std::string native;
  std::string windows;
};

/// A walk under way; `pending` is a stack of the folders that are still to be visited.
struct TreeWalk {
  FolderVisitor& visitor;
  std::vector<Folder> pending;
  std::size_t files = 0;
  std::size_t unreadable = 0;

  void Visit(const Folder& folder);
  void VisitFile(const Folder& folder, const DirectoryEntry& entry);
};

void TreeWalk::Visit(const Folder& folder) {
  auto entries = ReadDirectory(folder.native);
  if (!entries) {
    ++unreadable;
    return;
  }
  std::sort(entries->begin(), entries->end(),
            [](const auto& a, const auto& b) { return a.name < b.name; });
  const std::size_t first = pending.size();
  for (const DirectoryEntry& entry : *entries) {
    if (entry.type == DT_DIR && CanBeNamed(entry.name)) {
      pending.push_back({folder.native + '/' + entry.name, folder.windows + '\\' + entry.name});
    } else if (entry.type == DT_REG || entry.type == DT_LNK) {
      VisitFile(folder, entry);
    }
  }
  std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
}

void TreeWalk::VisitFile(const Folder& folder, const DirectoryEntry& entry) {
  ++files;
  if (!visitor.Wants(entry.name) || !CanBeNamed(entry.name)) return;
  const auto status = StatusOf(folder.native + '/' + entry.name);
  if (!status || !S_ISREG(status->st_mode)) return;
  visitor.OnFile({folder.windows + '\\' + entry.name, static_cast<std::uint64_t>(status->st_size),
                  status->st_mtime});
}

}  // namespace

FolderWalk::Outcome WineFolderWalk::Walk(std::string_view folder, FolderVisitor& visitor) const {
  const auto root = resolver_.Existing(folder);
  const auto status = root ? StatusOf(*root) : std::nullopt;
  if (!status || !S_ISDIR(status->st_mode)) return {false, 0};
  const std::string windows(folder.substr(0, folder.find_last_not_of("\\/") + 1));
  TreeWalk walk{visitor, {{*root == "/" ? "" : *root, windows}}};
  while (!walk.pending.empty()) {
    const Folder next = std::move(walk.pending.back());
    walk.pending.pop_back();
    const auto step = visitor.OnFolder(next.windows, walk.files);
    if (step == FolderVisitor::Step::End) break;
    if (step == FolderVisitor::Step::Enter) walk.Visit(next);
  }
  return {true, walk.unreadable};
}

}  // namespace panelkit
