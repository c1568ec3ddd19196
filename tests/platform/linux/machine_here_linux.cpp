#include "platform/linux/wine_machine.h"
#include "support/machine_here.h"

namespace panelkit::test {

std::unique_ptr<LocalMachine> OpenMachineAt(const std::filesystem::path& root,
                                            const std::filesystem::path& app) {
  return std::make_unique<WineMachine>(WinePrefix{root, "test"}, app.native());
}

}  // namespace panelkit::test
