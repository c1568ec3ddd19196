#include "support/machine_here.h"

#include "platform/windows/windows_machine.h"
#include "support/temp_folder.h"

namespace panelkit::test {

std::unique_ptr<LocalMachine> OpenMachineAt(const std::filesystem::path&,
                                            const std::filesystem::path& app) {
  return windows::OpenWindows(Utf8(app));
}

}  // namespace panelkit::test
