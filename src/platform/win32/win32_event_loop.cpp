#include "platform/win32/win32_event_loop.h"

#include <cstdlib>
#include <utility>

namespace panelkit::windows {
namespace {

constexpr DWORD kPause = 20;           // Milliseconds: the window answers ...
constexpr DWORD kLongestDelivery = 8;  // ... and the work gets most of the time.

}  // namespace

// Tick counts are subtracted without a sign, so that they may wrap around.
void Win32EventLoop::ProcessPending() {
  const DWORD start = GetTickCount();
  if (start - delivered_at_ < kPause) return;
  MSG message;
  bool more = true;
  while (more && GetTickCount() - start < kLongestDelivery) {
    more = PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;
    if (more) Deliver(message);
  }
  // Painting comes last in the queue: input without end would put it off for ever.
  if (more) Repaint();
  delivered_at_ = GetTickCount();
}

// Not by ExitProcess, which waits for what the pane's threads still have under way.
void Win32EventLoop::End() {
  TerminateProcess(GetCurrentProcess(), EXIT_SUCCESS);
  std::abort();  // Never reached.
}

void Win32EventLoop::Run() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) Deliver(message);
  End();
}

void Win32EventLoop::Post(std::weak_ptr<const void> owner, std::function<void()> task) {
  posted_.push_back({std::move(owner), std::move(task)});
  // The caller may be a window procedure called from inside GetMessageW, which goes on waiting.
  PostThreadMessageW(thread_, WM_NULL, 0, 0);
}

void Win32EventLoop::Deliver(MSG& message) {
  if (message.message == WM_QUIT) End();
  const auto window = windows_.find(GetAncestor(message.hwnd, GA_ROOT));
  if (window == windows_.end() || !window->second(message)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  RunPosted();
}

void Win32EventLoop::RunPosted() {
  while (!posted_.empty()) {
    const PostedTask next = std::move(posted_.front());
    posted_.pop_front();
    if (!next.owner.expired()) next.task();
  }
}

void Win32EventLoop::Repaint() {
  for (const auto& [window, filter] : windows_) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
}

}  // namespace panelkit::windows
