// The event loop on GLib's default main context.
#pragma once

#include <glib.h>

#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace panelkit {

class GtkEventLoop final : public EventLoop {
 public:
  /// Delivers events for at most kLongestRun, and only after a pause since the last time; any other
  /// call only reads the clock.
  void ProcessPending() override;

  /// WebKit's processes end by themselves when their connection to this one breaks.
  [[noreturn]] void End() override;

 private:
  gint64 next_run_ = 0;  ///< When it may deliver again: monotonic time in microseconds.
};

/// Calls `task` once from the event loop, unless the object that `owner` watches has been destroyed
/// by then. The task may destroy that object.
void PostToLoop(std::weak_ptr<const void> owner, std::function<void()> task);

}  // namespace panelkit
