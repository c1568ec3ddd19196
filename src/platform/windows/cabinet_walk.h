// The cabinet service of this Windows, setupapi.dll.
#pragma once

#include "platform/cabinet_walk.h"
#include "platform/text.h"
#include "platform/windows/file_errors.h"

namespace panelkit::windows {

/// The system's own service, with the same outcomes on every Windows and on Wine. Entries are
/// extracted under temporary names and get their own when they are whole.
class WindowsCabinetWalk : public CabinetWalk {
 public:
  /// Both outlive this object.
  WindowsCabinetWalk(const Text& text, const ShortLocks& locks) : text_(text), locks_(locks) {}

  std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile, CabinetMsgHandler MsgHandler,
                                     std::uint32_t Context) override;
  std::int32_t GetLastError() const override { return last_error_; }

 private:
  const Text& text_;
  const ShortLocks& locks_;
  std::int32_t last_error_ = 0;
};

}  // namespace panelkit::windows
