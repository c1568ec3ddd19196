#include "pages/page_file.h"

namespace panelkit {

PagePlace WritePage(Files& files, const std::string& PagePath, std::string_view bytes) {
  const FileFault fault = files.ReplaceOrOverwrite(PagePath, bytes, Durability::Buffered);
  if (fault == FileFault::None) return {PagePath, PagePath};
  const std::string folder = files.UserFolder();
  const std::string path = folder + PagePath.substr(PagePath.rfind('\\'));
  const bool written =
      !folder.empty() && path != PagePath &&
      files.ReplaceOrOverwrite(path, bytes, Durability::Buffered) == FileFault::None;
  return {PagePath, written ? path : std::string(), fault};
}

}  // namespace panelkit
