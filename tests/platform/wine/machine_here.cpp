#include "support/machine_here.h"

#include <doctest/doctest.h>
#include <sys/xattr.h>

#include "platform/wine/wine_machine.h"

namespace panelkit::test {

std::unique_ptr<LocalMachine> OpenMachineAt(const std::filesystem::path& root,
                                            const std::filesystem::path& app) {
  return std::make_unique<WineMachine>(WinePrefix{root, "test"}, OwnFoldersOf(app));
}

void KeepUserFilesIn(const std::filesystem::path& folder) {
  setenv("XDG_DATA_HOME", folder.c_str(), 1);
}

std::unique_ptr<Text> TextOf(unsigned code_page) {
  return std::make_unique<WineText>(code_page);
}

void Hide(const std::filesystem::path& file) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", "0x22", 4, 0) == 0);
}

}  // namespace panelkit::test
