// The event loop of a program that nobody clicks.
#pragma once

#include <cstdlib>

#include "platform/event_loop.h"

namespace panelkit {

class QuietLoop : public EventLoop {
 public:
  void ProcessPending() override {}
  [[noreturn]] void End() override { std::_Exit(EXIT_SUCCESS); }
};

}  // namespace panelkit
