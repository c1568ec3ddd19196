// The walk over folders on a Linux disk.
#pragma once

#include "platform/folder_walk.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

class WineFolderWalk final : public FolderWalk {
 public:
  explicit WineFolderWalk(const PathResolver& resolver) : resolver_(resolver) {}

  Outcome Walk(std::string_view folder, FolderVisitor& visitor) const override;

 private:
  const PathResolver& resolver_;
};

}  // namespace panelkit
