#include "platform/wine/cabinet/target_names.h"

#include <sys/stat.h>

#include <vector>

#include "platform/wine/folder_reader.h"
#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"

namespace panelkit {

std::optional<std::string> TargetNames::Find(std::string_view windows_path) {
  std::optional<std::string> exact = paths_.SpeltExactly(windows_path);
  if (!exact) return std::nullopt;
  const std::string folder = FolderOf(*exact);
  const auto [known, is_new] = folders_.try_emplace(folder);
  NamesByLoweredName& names = known->second;
  if (is_new) {
    for (const auto& entry : ReadFolder(folder).value_or(std::vector<FolderEntry>())) {
      std::string& name = names[Lowered(entry.name)];
      if (name.empty() || entry.name < name) name = entry.name;
    }
  }
  struct stat status {};
  if (lstat(exact->c_str(), &status) == 0) return exact;
  const std::string name(NameOf(*exact));
  return (folder == "/" ? "" : folder) + '/' + names.try_emplace(Lowered(name), name).first->second;
}

}  // namespace panelkit
