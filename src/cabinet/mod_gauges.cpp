#include "cabinet/mod_gauges.h"

#include <utility>

#include "cabinet/cab_file.h"

namespace panelkit::modGauges {

GaugeTable InstalledGauges;
std::string CurrentCabinet;
std::shared_ptr<CABFile> CurrentCabFile;

void SetCurrentCabFile(std::shared_ptr<CABFile> Object) {
  CurrentCabFile = std::move(Object);
}

std::uint32_t CabNotifyEntry(std::uint32_t Context, std::uint32_t Notification,
                             std::uintptr_t Param1, std::uintptr_t Param2) {
  if (!CurrentCabFile) return 0;
  return CurrentCabFile->CabCallBack(Context, Notification, Param1, Param2);
}

}  // namespace panelkit::modGauges
