// A Wine prefix as the machine that the program runs on.
#pragma once

#include <string>
#include <string_view>

#include "platform/linux/cabinet/cabinet_service.h"
#include "platform/linux/calendar.h"
#include "platform/linux/code_page_text.h"
#include "platform/linux/hive_file.h"
#include "platform/linux/hive_registry.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/path_resolver.h"
#include "platform/linux/wine_prefix.h"
#include "platform/local_machine.h"

namespace panelkit {

/// One prefix. Its code page is that of the moment of opening; all else is read when asked.
class WineMachine final : public LocalMachine {
 public:
  /// `app_folder` is the native folder of the program's executable.
  WineMachine(WinePrefix prefix, std::string_view app_folder);

  Machine Services() override;
  std::string Origin() const override;
  std::string WindowsPath(std::string_view typed) const override;
  std::string NativePath(std::string_view windows_path) const override;
  std::string Charset() const override;

 private:
  WinePrefix prefix_;
  HiveFile hive_;
  CodePageText text_;
  PathResolver resolver_;
  HiveRegistry registry_;
  LinuxFiles files_;
  CabinetService cabinets_;
  Calendar calendar_;
};

}  // namespace panelkit
