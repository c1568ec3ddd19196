#include "pages/status_text.h"

namespace panelkit {

std::string_view FaultText(FileFault fault) {
  switch (fault) {
    case FileFault::None:
      return "";
    case FileFault::Absent:
      return "it is not there";
    case FileFault::NotAFile:
      return "it is not a plain file";
    case FileFault::ReadOnly:
      return "it is read-only";
    case FileFault::NoAccess:
      return "access is denied";
    case FileFault::InUse:
      return "another program is using it";
    case FileFault::NoRoom:
      return "the disk is full";
    case FileFault::TooLarge:
      return "it is too large";
    case FileFault::Other:
      break;
  }
  return "the system refused it";
}

}  // namespace panelkit
