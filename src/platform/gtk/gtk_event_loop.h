// The event loop on GLib's default main context.
#pragma once

#include <glib.h>

#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace panelkit {

class GtkEventLoop final : public EventLoop {
 public:
  /// At most one short turn in every few milliseconds; every other call costs one look at the
  /// clock.
  void ProcessPending() override;

  /// WebKit's processes follow when their connection to this one breaks.
  [[noreturn]] void End() override;

 private:
  gint64 last_turn_ = 0;  ///< Monotonic, in microseconds: when the last turn was over.
};

/// Calls `task` once from the event loop, unless the object that `owner` watches has gone by then.
/// The task may destroy that object.
void PostToLoop(std::weak_ptr<const void> owner, std::function<void()> task);

}  // namespace panelkit
