// A temporary folder, and the same folder as the machine of this system names it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/machine_here.h"
#include "support/temp_folder.h"

namespace panelkit::test {

struct Disk {
  TempFolder folder;
  std::unique_ptr<LocalMachine> machine = OpenMachineAt(folder.Path(), folder.Path());
  Files& files = machine->Services().files;

  /// The Windows path of `name` in the folder.
  std::string At(std::string_view name) const {
    return files.AppFolder() + '\\' + std::string(name);
  }

  /// A listing of the machine's, a blank behind each name, "/" behind a folder's; "(none)" if there
  /// is none.
  std::string List(std::string_view pattern, ListedEntries entries) const {
    const auto found = files.List(At(pattern), entries);
    std::string listed = found ? "" : "(none)";
    for (const ListedEntry& entry : found.value_or(std::vector<ListedEntry>())) {
      listed += entry.name + (entry.is_folder ? "/ " : " ");
    }
    return listed;
  }
};

}  // namespace panelkit::test
