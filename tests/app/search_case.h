// The program with the strip below its reports, and two folders of downloads to look in.
#pragma once

#include <string>
#include <vector>

#include "support/simulator.h"

namespace panelkit::test {

/// Bytes that are a library for Windows as far as their head tells.
inline std::string GaugeBytes(const std::string& content) {
  std::string bytes = "MZ" + std::string(58, '\0') + "\x40" + std::string(3, '\0') + "PE";
  return bytes + std::string(20, '\0') + "\x02\x21" + content;
}

struct SearchCase : Program {
  HeadlessStrip& Strip() { return Window().StripOf("WebBrowser1"); }
  std::string OwnPage(const std::string& name) { return Get(simulator.App() / name); }

  /// The folders of downloads, and a folder beside them as the program names it.
  std::filesystem::path New() const { return simulator.App() / "new"; }
  std::filesystem::path Old() const { return simulator.App() / "old"; }
  std::string Path(const std::string& folder) const {
    return simulator.AppFolder() + "\\" + folder;
  }

  /// As a user looks who has probed.
  void LookIn(const std::vector<std::string>& places) {
    Click("menProbe");
    Window().choice = places;
    Strip().Press("&Look for Them...");
  }

  /// What FOUND.HTM tells, without times, and with the folders as {new} and {old}.
  std::string Found() {
    std::string page = OwnPage("FOUND.HTM");
    for (std::size_t at = 0; (at = page.find(" bytes, ", at)) != std::string::npos; ++at) {
      page.replace(at, page.find_first_of(",)<", at + 8) - at, " bytes");
    }
    const Files& files = simulator.Services().files;
    page = Replaced(page, files.NativePath(Path("absent")), "{absent}");
    for (const std::string folder : {"new", "old"}) {
      page = Replaced(page, files.NativePath(Path(folder)), "{" + folder + "}");
    }
    return Replaced(page, "}\\", "}/");
  }
};

}  // namespace panelkit::test
