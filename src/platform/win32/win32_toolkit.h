// The window toolkit on the Windows API.
#pragma once

#include <windows.h>

#include "platform/toolkit.h"
#include "platform/win32/screen_scale.h"
#include "platform/win32/win32_event_loop.h"

namespace panelkit::windows {

/// Forms of the system's own controls. Its thread is the interface thread.
class Win32Toolkit final : public Toolkit {
 public:
  Win32Toolkit();
  ~Win32Toolkit() override;
  Win32Toolkit(const Win32Toolkit&) = delete;
  Win32Toolkit& operator=(const Win32Toolkit&) = delete;

  /// Throws std::runtime_error where Windows makes no window.
  std::unique_ptr<Form> CreateForm(const FormDescription& description) override;
  Win32EventLoop& Loop() override { return loop_; }
  ScreenSize Screen() const override;

 private:
  Win32EventLoop loop_;
  ScreenScale scale_;
  HWND owner_;
};

}  // namespace panelkit::windows
