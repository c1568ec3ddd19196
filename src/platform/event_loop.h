// The event loop that delivers the user's actions.
#pragma once

namespace panelkit {

/// The event loop of one window toolkit.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Delivers pending interface events for at most 10 milliseconds, beyond which the event at hand
  /// alone is finished. Cheap enough to be called for each line of a file.
  virtual void ProcessPending() = 0;

  /// Ends the process at once, with exit status 0, whatever is under way.
  [[noreturn]] virtual void End() = 0;
};

}  // namespace panelkit
