// The cabinet service on Linux.
#pragma once

#include <string>

#include "platform/cabinet_walk.h"
#include "platform/text.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Walks cabinets on the disks of a Wine prefix.
///
/// Listing: a walk reports the entries that begin in the cabinet; those continued from the previous
/// cabinet of a set belong to that one's walk. It reads only headers, so damaged content shows at
/// extraction alone. A cabinet inside another file (a self-extracting program) is no cabinet. An
/// entry's name is UTF-8 if its attributes say so, else text of the prefix's code page.
///
/// Extraction: an entry is unpacked to a temporary file that is renamed to FullTargetName when it
/// is whole, so a failure leaves what stood there. The file gets the entry's time stamp, as local
/// time, and its read-only attribute. A link in place of the file is replaced.
///
/// Sets: an entry that goes on in the next cabinet, or is packed together with one that does, sends
/// SPFILENOTIFY_NEEDNEWCABINET with both parameters 0 once for each further cabinet, which must lie
/// in the walked one's folder (2 if it does not). An answer other than 0 stops the walk and becomes
/// its error. An entry packed together with one continued from the previous cabinet cannot be
/// unpacked (13).
class WineCabinetWalk : public CabinetWalk {
 public:
  /// Both outlive the service.
  WineCabinetWalk(const PathResolver& paths, const Text& text) : paths_(paths), text_(text) {}

  std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile, CabinetMsgHandler MsgHandler,
                                     std::uint32_t Context) override;

  std::int32_t GetLastError() const override { return last_error_; }

 private:
  const PathResolver& paths_;
  const Text& text_;
  std::int32_t last_error_ = 0;
};

}  // namespace panelkit
