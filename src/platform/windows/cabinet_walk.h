// The cabinet walk by setupapi.
#pragma once

#include "platform/cabinet_walk.h"
#include "platform/text.h"

namespace panelkit::windows {

/// The system's own service, with its differences between systems levelled out.
class WindowsCabinetWalk : public CabinetWalk {
 public:
  /// `text` outlives this object.
  explicit WindowsCabinetWalk(const Text& text) : text_(text) {}

  std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile, CabinetMsgHandler MsgHandler,
                                     std::uint32_t Context) override;
  std::int32_t GetLastError() const override { return last_error_; }

 private:
  const Text& text_;
  std::int32_t last_error_ = 0;
};

}  // namespace panelkit::windows
