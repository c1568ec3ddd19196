#include "shell/simulator_location.h"

#include <cstdint>

#include "analysis/line_reader.h"
#include "shell/mod_gauges.h"

namespace panelkit {
namespace {

constexpr const char* kApplications = R"(SOFTWARE\Microsoft\DirectPlay\Applications)";
constexpr const char* kOneApplication = R"(Software\Microsoft\DirectPlay\Applications\)";

}  // namespace

std::string FindSimulator(const Registry& registry, const Text& text) {
  std::string folder;
  for (std::int32_t Index = 0;; ++Index) {
    const std::string name =
        modGauges::GetRegSubKey(registry, HKEY_LOCAL_MACHINE_VALUE, kApplications, Index);
    if (name == modGauges::kNotFound) return folder;
    if (!ContainsWords(name, "flight simulator")) continue;
    folder = modGauges::GetRegValue(registry, text, HKEY_LOCAL_MACHINE_VALUE,
                                    kOneApplication + name, "Path");
  }
}

}  // namespace panelkit
