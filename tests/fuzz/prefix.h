// A Wine prefix in a temporary folder.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cabinet/cab_file.h"
#include "platform/linux/wine_machine.h"
#include "support/temp_folder.h"

namespace panelkit::fuzz {

class Prefix {
 public:
  Prefix() { std::filesystem::create_directories(C() / "out"); }

  std::filesystem::path C() const { return folder_ / "drive_c"; }
  WineMachine& Machine() { return machine_; }

  /// A new cabinet C:\x.cab. Its only neighbour is the empty folder C:\out.
  std::shared_ptr<CABFile> Cabinet(std::string_view bytes) {
    test::Put(C() / "x.cab", bytes);
    auto cabinet = CABFile::Create(machine_.Services());
    cabinet->CabName = "C:\\x.cab";
    return cabinet;
  }

 private:
  test::TempFolder folder_;
  WineMachine machine_{{folder_.Path(), "test"}, folder_.Path().native()};
};

}  // namespace panelkit::fuzz
