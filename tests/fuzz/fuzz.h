// What the fuzzers share.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "cabinet/cab_file.h"
#include "platform/wine/wine_machine.h"
#include "support/temp_folder.h"

namespace panelkit::fuzz {

/// What one fuzzer does with any bytes.
void Try(std::string_view input);

/// Ends the process, which counts as a finding, where a promise is broken.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

/// A Wine prefix in a temporary folder.
struct Prefix {
  test::TempFolder folder;
  WineMachine machine{{folder.Path(), "test"}, OwnFoldersOf(folder.Path())};
  std::filesystem::path c = folder / "drive_c";

  /// A new cabinet of these bytes, C:\x.cab.
  std::shared_ptr<CABFile> Cabinet(std::string_view bytes) {
    test::Put(c / "x.cab", bytes);
    auto cabinet = CABFile::Create(machine.Services());
    cabinet->CabName = "C:\\x.cab";
    return cabinet;
  }
};

}  // namespace panelkit::fuzz
