#include "support/machine_here.h"

#include <windows.h>

#include <doctest/doctest.h>

#include "platform/windows/windows_machine.h"
#include "support/temp_folder.h"

namespace panelkit::test {

std::unique_ptr<LocalMachine> OpenMachineAt(const std::filesystem::path&,
                                            const std::filesystem::path& app) {
  return windows::OpenWindows(Utf8(app));
}

void KeepUserFilesIn(const std::filesystem::path&) {}  // Windows knows the user's folder by itself.

std::unique_ptr<Text> TextOf(unsigned code_page) {
  return std::make_unique<windows::WindowsText>(code_page);
}

void Hide(const std::filesystem::path& file) {
  REQUIRE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN));
}

}  // namespace panelkit::test
