// The event loop on the thread's message queue.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "platform/event_loop.h"

namespace panelkit::windows {

class Win32EventLoop final : public EventLoop {
 public:
  /// Delivers messages for 8 milliseconds at most, and only if the last call that did so returned
  /// 20 milliseconds ago; any other call reads the clock and returns.
  void ProcessPending() override;
  [[noreturn]] void End() override;

  /// Delivers the user's actions until End.
  [[noreturn]] void Run();

  /// Calls `task` once from this loop, never from inside the dispatch of a message (an open menu or
  /// a window being moved has a loop of its own), unless the object that `owner` watches has gone
  /// by then. The task may destroy that object.
  void Post(std::weak_ptr<const void> owner, std::function<void()> task);

  /// Receives each message for a window or its controls before they do; true if it has handled it.
  using Filter = std::function<bool(MSG& message)>;

  /// Adds a top-level window, whose messages go through `filter`.
  void Add(HWND window, Filter filter) { windows_[window] = std::move(filter); }
  void Remove(HWND window) { windows_.erase(window); }

 private:
  struct PostedTask {
    std::weak_ptr<const void> owner;
    std::function<void()> task;
  };

  void Deliver(MSG& message);
  void RunPosted();
  void Repaint();

  DWORD thread_ = GetCurrentThreadId();
  DWORD delivered_at_ = 0;  ///< GetTickCount at the end of the last call that delivered messages.
  std::map<HWND, Filter> windows_;
  std::deque<PostedTask> posted_;
};

}  // namespace panelkit::windows
