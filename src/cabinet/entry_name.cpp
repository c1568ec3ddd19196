#include "cabinet/entry_name.h"

#include <algorithm>
#include <array>

#include "text/matching.h"

namespace panelkit {

namespace {

constexpr std::array<std::string_view, 6> kDevices = {"con", "prn",    "aux",
                                                      "nul", "conin$", "conout$"};
constexpr std::array<std::string_view, 2> kNumberedDevices = {"com", "lpt"};

// 1 to 9, and the superscript digits 1 to 3, which Windows takes for digits here.
bool IsDeviceNumber(std::string_view text) {
  if (text.size() == 1) return text[0] >= '1' && text[0] <= '9';
  return text == "\u00B9" || text == "\u00B2" || text == "\u00B3";
}

// Windows takes a device's name for the device in every folder, with any extension and with blanks
// before that.
bool IsDevice(std::string_view part) {
  std::string_view stem = part.substr(0, part.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  const auto is_stem = [stem](auto device) { return EqualsIgnoringCase(stem, device); };
  if (std::any_of(kDevices.begin(), kDevices.end(), is_stem)) return true;
  return std::any_of(kNumberedDevices.begin(), kNumberedDevices.end(), [stem](auto device) {
    return stem.size() > device.size() &&
           EqualsIgnoringCase(stem.substr(0, device.size()), device) &&
           IsDeviceNumber(stem.substr(device.size()));
  });
}

bool IsSafePart(std::string_view part) {
  return !part.empty() && part.back() != '.' && part.back() != ' ' && !IsDevice(part);
}

}  // namespace

bool IsSafeEntryName(std::string_view name) {
  if (name.find_first_of("/:") != std::string_view::npos) return false;
  for (;;) {
    const std::size_t separator = name.find('\\');
    if (!IsSafePart(name.substr(0, separator))) return false;
    if (separator == std::string_view::npos) return true;
    name.remove_prefix(separator + 1);
  }
}

}  // namespace panelkit
