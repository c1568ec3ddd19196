// The event loop of a program without a window.
#pragma once

#include <cstdlib>

#include "platform/event_loop.h"

namespace panelkit {

/// There are no events; End ends the process.
class QuietLoop : public EventLoop {
 public:
  void ProcessPending() override {}
  [[noreturn]] void End() override { std::_Exit(EXIT_SUCCESS); }
};

}  // namespace panelkit
