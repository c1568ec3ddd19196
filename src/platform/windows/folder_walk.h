// The walk over folders by the wide calls of kernel32.
#pragma once

#include "platform/folder_walk.h"

namespace panelkit::windows {

class WindowsFolderWalk : public FolderWalk {
 public:
  Outcome Walk(std::string_view folder, FolderVisitor& visitor) const override;
};

}  // namespace panelkit::windows
