#include "search/find_result.h"

namespace panelkit {

void InstallBest(const Machine& machine, const std::string& gauges, bool dry_run,
                 const StopRequest& stop, FindResult& result) {
  ForEachChoice(result.required, result.pool, machine, gauges, [&](const Candidate& candidate) {
    if (stop()) return false;
    const InstallFault fault = dry_run ? InstallFault::None : Install(machine, candidate, gauges);
    if (fault == InstallFault::None) {
      result.installed.push_back(&candidate);
    } else {
      result.failed.push_back({&candidate, fault});
    }
    return fault == InstallFault::None;
  });
}

std::string LocationText(std::string path, const std::vector<std::string>& inside) {
  for (const std::string& entry : inside) path += " > " + entry;
  return path;
}

std::string FaultText(InstallFault fault) {
  switch (fault) {
    case InstallFault::NameTaken:
      return "Gauges has a file of that name";
    case InstallFault::CannotRead:
      return "it cannot be read whole";
    default:
      return "it could not be copied";
  }
}

}  // namespace panelkit
