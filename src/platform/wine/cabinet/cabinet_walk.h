// SetupIterateCabinetA on Linux.
#pragma once

#include <string>

#include "platform/cabinet_walk.h"
#include "platform/text.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Walks cabinets on the disks of a Wine prefix.
///
/// A walk reports the entries that begin in the cabinet; one that is continued from the previous
/// cabinet of a set belongs to that one's walk. Only headers are read for it, so content that is
/// damaged or cut off shows at extraction, and a cabinet behind another file's content
/// (self-extractors) is no cabinet.
///
/// Extraction unpacks to a file of its own and renames that to FullTargetName when it is whole:
/// after a failure nothing new stands there. The file takes the entry's time stamp, as local time,
/// and its read-only attribute. It never goes through a link in place of one of the entry's own
/// folders (5), and replaces a link at its own place. An entry that goes on in the next cabinet,
/// and one packed together with it, asks SPFILENOTIFY_NEEDNEWCABINET with both parameters 0 for
/// each further cabinet and then looks for it beside the walked one; where it is missing, code 2.
/// An answer other than 0 to that stops the walk as one to SPFILENOTIFY_FILEEXTRACTED does. An
/// entry packed together with one that began in the previous cabinet cannot be unpacked (13).
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
